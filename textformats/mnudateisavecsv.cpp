#include "textformats/mnudateisavecsv.h"

#include "devicefiles/undefinederror.h"
#include "textformats/csvformat.h"

namespace norvik {

void mnuDateiSaveCSV(RegisterState& state, Desktop& desktop) {
    const std::optional<FilePath> chosen = desktop.AskForFileToSave(
        {.filter = u"CSV-Datei|*.csv|Alle Dateien|*.*", .ending = std::string(csvformat::Ending)});
    if (!chosen) {
        return;
    }
    try {
        SaveCSV(state, WithEnding(*chosen, csvformat::Ending), desktop);
    } catch (const RuntimeError& error) {
        ReportUndefinedError(u"mnuDateiSaveCSV", error, desktop);
        return;
    }
    desktop.ShowEntry();
}

}  // namespace norvik
