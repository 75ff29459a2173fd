#include "formats/common/quietsave.h"

namespace norvik {

std::optional<RuntimeError> TrySave(const std::function<void()>& write, Desktop& desktop) {
    try {
        write();
        return std::nullopt;
    } catch (const RuntimeError& error) {
        desktop.SetPointer(Pointer::Normal);
        return error;
    }
}

void ReportNotSaved(const std::optional<RuntimeError>& error, Desktop& desktop) {
    if (error) {
        desktop.SetStatus(Text(u"Nicht gespeichert: ").append(error->Description()));
    }
}

}  // namespace norvik
