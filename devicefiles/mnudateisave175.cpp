#include "devicefiles/mnudateisave175.h"

#include "devicefiles/followload.h"
#include "devicefiles/phonebookfile.h"
#include "devicefiles/quietsave.h"

namespace norvik {

void mnuDateiSave175(RegisterState& state, Desktop& desktop) {
    const std::optional<FilePath> chosen =
        desktop.AskForFileToSave({.filter = u"norvik-175-Datei|*.pbo|Alle Dateien|*.*",
                                  .ending = std::string(phonebookfile::Ending)});
    if (!chosen) {
        return;
    }
    const FilePath path = WithEnding(*chosen, phonebookfile::Ending);
    const auto failure = TrySave([&] { WritePhonebookFile(state, path, desktop); }, desktop);
    ShowFirstEntry(state, desktop);
    ReportNotSaved(failure, desktop);
}

}  // namespace norvik
