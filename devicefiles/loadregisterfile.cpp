#include "devicefiles/registerfilereader.h"
#include "tools/checkregister.h"

namespace norvik {

void ShowFindings(RegisterState& state, Desktop& desktop) {
    if (!state.LoadReport.empty()) {
        desktop.Ask({.text = state.LoadReport, .title = u"Debugs beim Einlesen"});
        state.LoadReport.clear();
    }
}

void LoadRegisterFile(RegisterState& state, const FilePath& path, Desktop& desktop) {
    ResetRegister(state);
    state.LoadReport.clear();
    int count = 0;
    try {
        const Bytes bytes = ReadWholeFile(path);
        state.File.Path = path;
        state.File.Modified = LastModified(path);
        count = ReadRegisterFile(state, bytes, desktop);
    } catch (const RuntimeError& error) {
        desktop.Ask({.text = u"mnuLade193195: " + error.NumberAndDescription(), .title = u""});
        return;
    }
    desktop.SetPointer(Pointer::Normal);
    ShowFindings(state, desktop);
    SetCount(state, count);
    RefreshStatus(state, desktop);
    CheckRegister(state, desktop);
    state.File.Type = state.LoadedModel;
    desktop.ShowCurrentFile();
}

}  // namespace norvik
