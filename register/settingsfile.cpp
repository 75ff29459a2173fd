#include "register/settings.h"

#include "base/files.h"
#include "base/outputfile.h"

#include <utility>

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

void WriteSettingsFile(const FilePath& folder, const SettingsTable& table,
                       OverwritingHook beforeOverwriting) {
    OutputTarget target(SettingsPath(folder));
    target.BeforeOverwriting = std::move(beforeOverwriting);
    ReplaceFile(std::move(target), BytesFromText(SettingsText(table)));
}

}  // namespace norvik
