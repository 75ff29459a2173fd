#include "devicefiles/mnudateisave193.h"

#include "devicefiles/followload.h"
#include "devicefiles/quietsave.h"
#include "devicefiles/registerfile.h"

namespace norvik {

namespace {

bool AskForReduction(const RegisterState& state, Desktop& desktop) {
    if (state.LoadedModel == u"193") {
        return false;
    }
    return desktop.Ask({.text = u"Nur markierte Datensätze abspeichern?",
                        .title = u"Datensatzreduktion",
                        .icon = Icon::Question,
                        .buttons = {Button::Yes, Button::No},
                        .defaultButton = Button::No}) == Button::Yes;
}

}  // namespace

void MNUDateiSave193(RegisterState& state, Desktop& desktop) {
    const std::optional<FilePath> chosen =
        desktop.AskForFileToSave({.filter = u"norvik-193/5-Datei|*.t9t|Alle Dateien|*.*",
                                  .ending = std::string(RegisterFileEnding)});
    if (!chosen) {
        return;
    }
    const FilePath path = WithEnding(*chosen, RegisterFileEnding);
    const bool onlyMarked = AskForReduction(state, desktop);
    const auto failure =
        TrySave([&] { WriteRegisterFile193(state, path, onlyMarked, desktop); }, desktop);
    ShowFirstEntry(state, desktop);
    ReportNotSaved(failure, desktop);
}

}  // namespace norvik
