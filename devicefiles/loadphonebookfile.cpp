#include "base/lines.h"
#include "devicefiles/phonebookfile.h"
#include "tools/checkregister.h"

#include <utility>

namespace norvik {

bool LoadPhonebookFile(RegisterState& state, const FilePath& path, Desktop& desktop) {
    return LoadPhonebookFile(state, ReadSourceFile(path), desktop);
}

bool LoadPhonebookFile(RegisterState& state, const SourceFile& file, Desktop& desktop) {
    LineReader lines(file.Content);
    const Text first = lines.NextOrRaise();
    if (TrimBlanks(first) != phonebookfile::Identification) {
        Text text = u"Dies ist keine Norvik-175-Registerdatei!";
        text.reserve(text.size() + first.size() + LineEnd.size() + 2);  // may be a whole file
        text.append(LineEnd).append(u"(").append(first).append(u")");
        desktop.Ask({.text = std::move(text), .title = u"Fehlermeldung", .icon = Icon::Critical});
        return false;
    }
    ResetRegister(state);
    state.LoadReport.clear();
    desktop.SetPointer(Pointer::Hourglass);
    const int count = ReadPhonebookEntries(state, lines, desktop);
    desktop.SetPointer(Pointer::Normal);
    state.LoadedModel = u"175";
    state.File = {.Type = state.LoadedModel, .Path = file.Path, .Modified = file.Modified};
    CheckRegister(state, desktop);
    desktop.ShowCurrentFile();
    SetCount(state, count);
    RefreshStatus(state, desktop);
    return true;
}

}  // namespace norvik
