#include "qt/remembered.h"

#include "base/platform.h"
#include "qt/textconversion.h"

#include <QSettings>

#include <cstdint>
#include <filesystem>
#include <utility>

namespace norvik {

namespace {

QString FilesKey() {
    return QStringLiteral("Dateien/Zuletzt");
}

QString FolderKey() {
    return QStringLiteral("Dateien/Ordner");
}

/// In front of a path that is no text; no full path begins like this.
QString BytesMark() {
    return QStringLiteral("file:");
}

QString ToRemembered(const FilePath& path) {
    const QString text = FromFilePath(path);
    return ToFilePath(text) == path
               ? text
               : BytesMark() +
                     QString::fromLatin1(
                         QByteArray::fromStdString(platform::Utf8Of(path)).toPercentEncoding("/"));
}

/// Empty where the text cannot be a path.
FilePath FromRemembered(const QString& text) {
    const FilePath path = text.startsWith(BytesMark())
                              ? platform::PathOfUtf8(QByteArray::fromPercentEncoding(
                                                         text.mid(BytesMark().size()).toLatin1())
                                                         .toStdString())
                              : ToFilePath(text);
    return path.native().find(FilePath::value_type()) == FilePath::string_type::npos ? path
                                                                                     : FilePath();
}

}  // namespace

FilePath UsableSettingsFile(FilePath file) {
    constexpr std::uintmax_t Largest = 1 << 20;
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    const bool isUsable = status.type() == std::filesystem::file_type::not_found ||
                          (std::filesystem::is_regular_file(status) &&
                           std::filesystem::file_size(file, error) <= Largest);
    return isUsable ? std::move(file) : FilePath();
}

RecentFiles ReadRecentFiles(const FilePath& settingsFile) {
    RecentFiles files;
    if (settingsFile.empty()) {
        return files;
    }
    const QSettings settings(FromFilePath(settingsFile), QSettings::IniFormat);
    for (const QString& text : settings.value(FilesKey()).toStringList()) {
        FilePath path = FromRemembered(text);
        if (!path.empty() && files.Paths.size() < MostRecentFiles) {
            files.Paths.push_back(std::move(path));
        }
    }
    files.Folder = FromRemembered(settings.value(FolderKey()).toString());
    return files;
}

void WriteRecentFiles(const FilePath& settingsFile, const RecentFiles& files) {
    if (settingsFile.empty()) {
        return;
    }
    QStringList paths;
    for (const FilePath& path : files.Paths) {
        paths << ToRemembered(path);
    }
    QSettings settings(FromFilePath(settingsFile), QSettings::IniFormat);
    settings.setValue(FilesKey(), paths);
    settings.setValue(FolderKey(), ToRemembered(files.Folder));
}

}  // namespace norvik
