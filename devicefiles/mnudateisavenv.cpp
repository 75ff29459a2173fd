#include "devicefiles/mnudateisavenv.h"

#include "devicefiles/quietsave.h"
#include "devicefiles/registerfile.h"

namespace norvik {

void mnuDateiSaveNV(RegisterState& state, Desktop& desktop) {
    const std::optional<FilePath> chosen =
        desktop.AskForFileToSave({.filter = u"norvik-195-Datei|*.t9t|Alle Dateien|*.*",
                                  .ending = std::string(RegisterFileEnding)});
    if (!chosen) {
        return;
    }
    const FilePath path = WithEnding(*chosen, RegisterFileEnding);
    const auto failure = TrySave([&] { WriteRegisterFile195(state, path, desktop); }, desktop);
    RefreshStatus(state, desktop);
    ReportNotSaved(failure, desktop);
}

}  // namespace norvik
