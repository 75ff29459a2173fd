#include "qt/remembered.h"

#include "qt/textconversion.h"

#include <QSettings>

#include <algorithm>

namespace norvik {

namespace {

QString FilesKey() {
    return QStringLiteral("Dateien/Zuletzt");
}

QString FolderKey() {
    return QStringLiteral("Dateien/Ordner");
}

}  // namespace

RecentFiles ReadRecentFiles(const FilePath& settingsFile) {
    RecentFiles files;
    if (settingsFile.empty()) {
        return files;
    }
    const QSettings settings(FromFilePath(settingsFile), QSettings::IniFormat);
    for (const QString& path : settings.value(FilesKey()).toStringList()) {
        if (!path.isEmpty() && files.Paths.size() < MostRecentFiles) {
            files.Paths.push_back(ToFilePath(path));
        }
    }
    files.Folder = ToFilePath(settings.value(FolderKey()).toString());
    return files;
}

void WriteRecentFiles(const FilePath& settingsFile, const RecentFiles& files) {
    if (settingsFile.empty()) {
        return;
    }
    QStringList paths;
    for (const FilePath& path : files.Paths) {
        paths << FromFilePath(path);
    }
    QSettings settings(FromFilePath(settingsFile), QSettings::IniFormat);
    settings.setValue(FilesKey(), paths);
    settings.setValue(FolderKey(), FromFilePath(files.Folder));
}

}  // namespace norvik
