#include "qt/textconversion.h"
#include "qt/userfolders.h"

#include <QDir>
#include <QStandardPaths>

namespace norvik {

// A relative folder of the environment does not count.

FilePath UserDataFolder() {
    FilePath data =
        ToFilePath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    return data.is_absolute() ? data : ToFilePath(QDir::homePath()) / ".local/share";
}

FilePath UserStateFolder() {
    FilePath state = ToFilePath(qEnvironmentVariable("XDG_STATE_HOME"));
    return state.is_absolute() ? state : ToFilePath(QDir::homePath()) / ".local/state";
}

FilePath UserConfigFolder() {
    FilePath config =
        ToFilePath(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    return config.is_absolute() ? config : ToFilePath(QDir::homePath()) / ".config";
}

}  // namespace norvik
