#include "mainwindow/operations.h"

#include <new>

namespace norvik {

void ReportUnhandled(const RuntimeError& error, Desktop& desktop) {
    Text text = u"Laufzeitfehler '" + Decimal(static_cast<int>(error.Number())) + u"':";
    text.append(LineEnd).append(LineEnd).append(error.Description());
    desktop.Ask({.text = text, .icon = Icon::Critical});
}

void RunOperation(const std::function<void()>& operation, Desktop& desktop) {
    std::optional<RuntimeError> failure;
    try {
        operation();
    } catch (const RuntimeError& error) {
        failure = error;
    } catch (const std::bad_alloc&) {
        failure = RuntimeError(ErrorNumber::OutOfMemory);
    }
    desktop.SetPointer(Pointer::Normal);
    if (failure) {
        ReportUnhandled(*failure, desktop);
    }
}

}  // namespace norvik
