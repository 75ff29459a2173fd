#include "register/settings.h"

#include "base/files.h"
#include "base/outputfile.h"

namespace norvik {

namespace {

FilePath SettingsPath(const FilePath& folder) {
    return FindIgnoringCase(folder, FilePath(SettingsFileName));
}

}  // namespace

void ReadSettingsFile(const FilePath& folder, SettingsTable& table) {
    table.SetFolder(folder);
    ReadSettings(ReadWholeFile(SettingsPath(folder)), table);
}

void WriteSettingsFile(const FilePath& folder, const SettingsTable& table) {
    ReplaceFile(SettingsPath(folder), BytesFromText(SettingsText(table)));
}

}  // namespace norvik
