#include "textformats/csvformat.h"
#include "tools/checkregister.h"

namespace norvik {

namespace {

/// In front of the path, it switches the removal of doubled lines on.
constexpr std::string_view RemoveDoublesMark = "#D";

}  // namespace

void LoadCSV(RegisterState& state, const FilePath& file, const Settings& settings,
             Desktop& desktop) {
    const std::string argument = file.string();
    const bool removeDoubles = argument.starts_with(RemoveDoublesMark);
    const FilePath path = removeDoubles ? argument.substr(RemoveDoublesMark.size()) : argument;
    LoadCSV(state, ReadSourceFile(path), removeDoubles, settings, desktop);
}

void LoadCSV(RegisterState& state, const SourceFile& file, bool removeDoubles,
             const Settings& settings, Desktop& desktop) {
    ResetRegister(state);
    state.LoadReport.clear();
    SetCount(state, ReadCSV(state, file.Content, removeDoubles, settings, desktop));
    state.LoadedModel.clear();
    if (!state.LoadReport.empty()) {
        desktop.Ask({.text = state.LoadReport, .title = u"LadeCSV: Doubletten entfernt/Hinweise"});
    }
    state.File = {.Type = u"CSV", .Path = file.Path, .Modified = file.Modified};
    CheckRegister(state, desktop);
    desktop.ShowCurrentFile();
}

}  // namespace norvik
