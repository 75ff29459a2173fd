#include "formats/common/quietsave.h"

#include <utility>

namespace norvik {

OverwritingHook TellDesktop(Desktop& desktop, Text& remark) {
    return [&desktop, &remark](const FilePath& file) {
        if (Text said = desktop.BeforeOverwriting(file); !said.empty()) {
            remark = std::move(said);
        }
    };
}

OutputTarget TargetOf(const FilePath& path, Desktop& desktop, Text& remark) {
    OutputTarget target(path);
    target.BeforeOverwriting = TellDesktop(desktop, remark);
    return target;
}

SaveResult TrySave(const FilePath& path, const std::function<void(const OutputTarget&)>& write,
                   Desktop& desktop) {
    SaveResult result = {.Path = path, .Remark = desktop.BeforeReplacing(path)};
    try {
        write(TargetOf(path, desktop, result.Remark));
    } catch (const RuntimeError& error) {
        desktop.SetPointer(Pointer::Normal);
        result.Failure = error;
    }
    return result;
}

void ShowNotSaved(const RuntimeError& error, Desktop& desktop) {
    Text text = u"Nicht gespeichert: ";
    text.append(error.Description());
    if (!error.Cause().empty()) {
        text.append(u" (").append(error.Cause()).append(u")");
    }
    desktop.SetStatus(text);
}

void ShowSaved(const FilePath& path, Desktop& desktop, TextView remark) {
    desktop.SetStatus((u"Gespeichert: " + TextFromPath(path)).append(remark));
}

void EndSave(RegisterState& state, const SaveResult& result, Desktop& desktop) {
    if (result.Failure) {
        state.RegisterSaved = false;
        ShowNotSaved(*result.Failure, desktop);
    } else {
        ShowSaved(result.Path, desktop, result.Remark);
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
