#include "devicefiles/mnudateiloadnv.h"

#include "devicefiles/followload.h"
#include "devicefiles/registerfile.h"
#include "devicefiles/undefinederror.h"

namespace norvik {

void ReportLoadNVError(const RuntimeError& error, Desktop& desktop) {
    switch (error.Number()) {
    case ErrorNumber::FileNotFound:
    case ErrorNumber::FileAlreadyOpen:
    case ErrorNumber::DeviceError:
    case ErrorNumber::BadFileName:
        desktop.Ask({.text = u"Dateizugriff fehlgeschlagen!",
                     .title = u"Zugriffsfehler",
                     .icon = Icon::Critical});
        return;
    default:
        ReportUndefinedError(u"mnuDateiLoadNV", error, desktop);
    }
}

void mnuDateiLoadNV(RegisterState& state, Desktop& desktop) {
    const std::optional<FilePath> chosen =
        desktop.AskForFileToOpen({.filter = u"NV-195-Datei|*.t9t|Alle Dateien|*.*",
                                  .ending = std::string(RegisterFileEnding)});
    if (!chosen) {
        return;
    }
    const FilePath path = WithEnding(*chosen, RegisterFileEnding);
    try {
        LoadRegisterFile(state, ReadSourceFile(path), desktop);
        FollowLoad(state, desktop);
    } catch (const RuntimeError& error) {
        ReportLoadNVError(error, desktop);
    }
}

bool LoadNVOrReport(RegisterState& state, const SourceReader& read, Desktop& desktop) {
    try {
        return LoadRegisterFile(state, read(), desktop);
    } catch (const RuntimeError& error) {
        ReportLoadNVError(error, desktop);
        return false;
    }
}

}  // namespace norvik
