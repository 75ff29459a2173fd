#include "register/settings.h"

namespace norvik {

namespace {

FilePath SettingsPath(const FilePath& folder) {
    return FindIgnoringCase(folder, FilePath(SettingsFileName));
}

}  // namespace

void ReadSettingsFile(const FilePath& folder, SettingsTable& table) {
    ReadSettings(ReadWholeFile(SettingsPath(folder)), table);
}

void WriteSettingsFile(const FilePath& folder, const SettingsTable& table) {
    ReplaceFile(SettingsPath(folder), BytesFromText(SettingsText(table)));
}

}  // namespace norvik
