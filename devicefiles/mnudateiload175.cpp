#include "devicefiles/mnudateiload175.h"

#include "devicefiles/followload.h"
#include "devicefiles/phonebookfile.h"
#include "devicefiles/undefinederror.h"

namespace norvik {

void mnuDateiLoad175(RegisterState& state, Desktop& desktop) {
    const std::optional<FilePath> chosen =
        desktop.AskForFileToOpen({.filter = u"norvik-175-Datei|*.pbo|Alle Dateien|*.*",
                                  .ending = std::string(phonebookfile::Ending)});
    if (chosen && Load175OrReport(state, WithEnding(*chosen, phonebookfile::Ending), desktop)) {
        FollowLoad(state, desktop);
    }
}

bool Load175OrReport(RegisterState& state, const FilePath& path, Desktop& desktop) {
    return Load175OrReport(
        state, [&path] { return ReadSourceFile(path); }, desktop);
}

bool Load175OrReport(RegisterState& state, const SourceReader& read, Desktop& desktop) {
    try {
        return LoadPhonebookFile(state, read(), desktop);
    } catch (const RuntimeError& error) {
        desktop.SetPointer(Pointer::Normal);
        ReportUndefinedError(u"mnuDateiLoad175", error, desktop);
        return false;
    }
}

}  // namespace norvik
