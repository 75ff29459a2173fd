// The settings: a table of key/value rows as "norvik.ini" holds them, and the values that follow
// from it.
#pragma once

#include "base/outputfile.h"
#include "base/paths.h"
#include "base/text.h"
#include "base/windows1252.h"

#include <array>

namespace norvik {

inline constexpr int SettingsRows = 30;

/// The rows of the settings table that have a key, counted from 1 as the file's order.
enum class Setting {
    Language = 1,
    LoadFile,
    Unit,
    CountryCode,
    RegionCode,
    AddRegionCode,
    GlobalizeNumber,
    Change00toPlus,
    UseReductionFlags,
    DeleteCommaInNames,
    WriteMemNumber,
    UseQuotesForData,
    DataSeparator,
    SyncDatabase,
    SyncName,
    SyncGiven,
    SyncCompany,
    SyncAdd,
    SyncZip,
    SyncCity,
    SyncBusiness,
    SyncPrivate,
    SyncFax,
    SyncOther,
    LoadSyncOnStart,
};

/// 30 rows of key and value; rows 26 to 30 have neither and are never written.
class SettingsTable {
  public:
    /// All keys, all values empty.
    SettingsTable();

    struct Row {
        Text Key;
        Text Value;
    };

    [[nodiscard]] const Text& Value(Setting setting) const;
    void SetValue(Setting setting, TextView value);

    /// Row `row`, 1 to SettingsRows; raises error 9 for any other.
    [[nodiscard]] const Row& At(int row) const;
    /// Puts the value into the row whose key equals `key` but for the case; an unknown key changes
    /// nothing.
    void Assign(TextView key, TextView value);

    /// The folder of the table's file, from which relative paths in it count.
    [[nodiscard]] const FilePath& Folder() const { return folder_; }
    void SetFolder(const FilePath& folder) { folder_ = folder; }

  private:
    FilePath folder_;
    std::array<Row, SettingsRows> rows_;
};

/// The table and what the program makes of it at start-up.
struct Settings {
    SettingsTable Table;
    double UnitPrice = 0.12;    ///< price of a charge unit, in the currency's whole unit
    Text InternationalPrefix;   ///< "00" and the own country code
    Text AreaPrefix;            ///< "0" and the own area code
    int LanguageFlag = 0;       ///< 1 when the language is "english"
    Text StartFile;             ///< to be loaded at start-up; emptied after the attempt
    FilePath StartFolder;       ///< from which it counts; empty for the working folder
    bool AutoloadFlag = false;  ///< a start file is known
};

/// The name of the settings file in the program's folder.
inline constexpr TextView SettingsFileName = u"norvik.ini";

/// Reads the lines of a settings file into the table. Keys and values arrive in lower case; lines
/// without "=" or with a key of fewer than two characters are ignored.
void ReadSettings(ByteView file, SettingsTable& table);

/// The whole text of a settings file: comments, the four sections with the rows that have a value,
/// and the end mark.
Text SettingsText(const SettingsTable& table);

/// Reads "norvik.ini" in the program's folder, which becomes the table's in any case; raises error
/// 53 when there is none.
void ReadSettingsFile(const FilePath& folder, SettingsTable& table);

/// Sets the values that follow from the table.
void ApplySettings(Settings& settings);

/// Writes the whole table to "norvik.ini" in the program's folder, replacing the old file only when
/// the new one is complete. Raises error 5 for a value outside Windows-1252.
void WriteSettingsFile(const FilePath& folder, const SettingsTable& table,
                       OverwritingHook beforeOverwriting = {});

}  // namespace norvik
