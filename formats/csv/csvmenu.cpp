#include "formats/csv/csvmenu.h"

#include "formats/common/followload.h"
#include "formats/common/quietsave.h"
#include "formats/common/undefinederror.h"
#include "formats/csv/csvformat.h"

namespace norvik {

void mnuDateiLoadCSV(RegisterState& state, const Settings& settings, const CsvLoadOptions& options,
                     Desktop& desktop) {
    const std::optional<FilePath> chosen = desktop.AskForFileToOpen(
        {.filter = Text(csvformat::DialogFilter), .ending = std::string(csvformat::Ending)});
    if (!chosen) {
        return;
    }
    FilePath file = options.AvoidDoubles ? "#D" : "";
    file += WithEnding(*chosen, csvformat::Ending);
    if (LoadCSVOrReport(state, settings, file, desktop)) {
        FollowLoad(state, desktop);
    }
}

namespace {

/// Runs `load` and gives whether it went to its end.
bool RunOrReport(RegisterState& state, const std::function<void()>& load, Desktop& desktop) {
    const auto report = [&desktop](const RuntimeError& error) {
        ReportUndefinedError(u"mnuDateiLoadCSV", error, desktop);
    };
    return LoadOrReport(state, load, report, desktop);
}

}  // namespace

bool LoadCSVOrReport(RegisterState& state, const Settings& settings, const FilePath& file,
                     Desktop& desktop) {
    return RunOrReport(
        state, [&] { LoadCSV(state, file, settings, desktop); }, desktop);
}

bool LoadCSVOrReport(RegisterState& state, const Settings& settings, const SourceReader& read,
                     const CsvLoadOptions& options, Desktop& desktop) {
    return RunOrReport(
        state, [&] { LoadCSV(state, ReadWhole(read()), options, settings, desktop); }, desktop);
}

void mnuDateiSaveCSV(RegisterState& state, Desktop& desktop) {
    const std::optional<FilePath> chosen = desktop.AskForFileToSave(
        {.filter = Text(csvformat::DialogFilter), .ending = std::string(csvformat::Ending)});
    if (!chosen) {
        return;
    }
    const FilePath path = WithEnding(*chosen, csvformat::Ending);
    SaveResult result = {.Path = path, .Remark = desktop.BeforeReplacing(path)};
    try {
        SaveCSV(state, TargetOf(path, desktop, result.Remark), desktop);
    } catch (const RuntimeError& error) {
        ReportUndefinedError(u"mnuDateiSaveCSV", error, desktop);
        result.Failure = error;
        EndSave(state, result, desktop);
        return;
    }
    desktop.ShowEntry();
    EndSave(state, result, desktop);
}

}  // namespace norvik
