#include "textformats/mnudateiconvcalllistcsv.h"

#include "devicefiles/undefinederror.h"
#include "textformats/convertcalllist.h"

namespace norvik {

void mnuDateiConvCallListCSV(Desktop& desktop) {
    const std::optional<FilePath> chosen = desktop.AskForFileToOpen(
        {.filter = u"Anrufliste|*.t9a|Alle Dateien|*.*", .ending = std::string(calllist::Ending)});
    if (!chosen) {
        return;
    }
    try {
        ConvertCallList(WithEnding(*chosen, calllist::Ending), desktop);
    } catch (const RuntimeError& error) {
        ReportUndefinedError(u"mnuDateiConvCallListCSV", error, desktop);
    }
}

}  // namespace norvik
