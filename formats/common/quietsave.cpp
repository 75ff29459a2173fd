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

void ShowNotSaved(const RuntimeError& error, Desktop& desktop) {
    Text text = u"Nicht gespeichert: ";
    text.append(error.Description());
    if (!error.Cause().empty()) {
        text.append(u" (").append(error.Cause()).append(u")");
    }
    desktop.SetStatus(text);
}

void ShowSaved(const FilePath& path, Desktop& desktop) {
    desktop.SetStatus(u"Gespeichert: " + TextFromPath(path));
}

void EndSave(RegisterState& state, const std::optional<RuntimeError>& failure, const FilePath& path,
             Desktop& desktop) {
    if (failure) {
        state.RegisterSaved = false;
        ShowNotSaved(*failure, desktop);
    } else {
        ShowSaved(path, desktop);
    }
}

void SaveOrSay(const std::function<void()>& write, Desktop& desktop) {
    try {
        write();
    } catch (const RuntimeError& error) {
        ShowNotSaved(error, desktop);
        throw;
    }
}

}  // namespace norvik
