#include "devicefiles/registerfilereader.h"
#include "tools/checkregister.h"

namespace norvik {

void ShowFindings(RegisterState& state, Desktop& desktop) {
    if (!state.LoadReport.empty()) {
        desktop.Ask({.text = state.LoadReport, .title = u"Debugs beim Einlesen"});
        state.LoadReport.clear();
    }
}

namespace {

void Empty(RegisterState& state) {
    ResetRegister(state);
    state.LoadReport.clear();
}

void ReportError(const RuntimeError& error, Desktop& desktop) {
    desktop.Ask({.text = u"mnuLade193195: " + error.NumberAndDescription(), .title = u""});
}

}  // namespace

bool LoadRegisterFile(RegisterState& state, const FilePath& path, Desktop& desktop) {
    SourceFile file;
    try {
        file = ReadSourceFile(path);
    } catch (const RuntimeError& error) {
        Empty(state);
        ReportError(error, desktop);
        return false;
    }
    return LoadRegisterFile(state, file, desktop);
}

bool LoadRegisterFile(RegisterState& state, const SourceFile& file, Desktop& desktop) {
    Empty(state);
    state.File.Path = file.Path;
    state.File.Modified = file.Modified;
    int count = 0;
    try {
        count = ReadRegisterFile(state, file.Content, desktop);
    } catch (const RuntimeError& error) {
        ReportError(error, desktop);
        return false;
    }
    desktop.SetPointer(Pointer::Normal);
    ShowFindings(state, desktop);
    SetCount(state, count);
    RefreshStatus(state, desktop);
    CheckRegister(state, desktop);
    state.File.Type = state.LoadedModel;
    desktop.ShowCurrentFile();
    return true;
}

}  // namespace norvik
