// What the settings dialog does, without its widgets.
#pragma once

#include "base/desktop.h"
#include "dialogs/syncsample.h"
#include "dialogs/windows.h"
#include "register/settings.h"
#include "sync/synctables.h"

#include <array>

namespace norvik {

/// The boxes SetValue(0) to SetValue(12).
inline constexpr std::size_t CountryCodeValue = 0;
inline constexpr std::size_t RegionCodeValue = 1;
inline constexpr std::size_t UnitValue = 2;
inline constexpr std::size_t FirstItemValue = 3;
inline constexpr std::size_t SettingValues = FirstItemValue + SyncItems;

/// The labels itemexpl(7) to itemexpl(16) stand for the items.
inline constexpr int FirstItemLabel = 7;

/// The items of DDSprache.
enum LanguageItem { German, English };

inline constexpr int FirstSampleRecord = 1;
inline constexpr int LastSampleRecord = static_cast<int>(SyncRecords);

/// The dialog's fields, named as it names them.
struct SettingsFields {
    int DDSprache = German;
    Text InpLoadfile;
    Text InpSyncFile;
    bool chkLoadSyncOnStart = false;
    std::array<Text, SettingValues> SetValue;
    int ScrollSyncFile = FirstSampleRecord;  ///< up to LastSampleRecord
    std::vector<Text> ListSyncFileItems;
    int SelectedItem = -1;  ///< the selected line of ListSyncFileItems, or -1
    std::array<Text, SyncItems> Testausgabe;
    SyncSample Sample;
    bool SyncFileIsVCard = false;  ///< which needs no field numbers
};

/// Shows the dialog.
void mnuSettingsBasic(Windows& windows);

/// The fields as the dialog opens: the stored values and the first sample record.
SettingsFields NVSET_Load(const Settings& settings);

/// Shows the fields of a record of a database, counted from 1, and those that the items are mapped
/// to. A record behind the end is the last one. Of a vCard it is said that it needs no numbers.
void SetSyncItemList(SettingsFields& fields, TextView file, int record);
/// The same for the dialog's file and record.
void ShowSampleRecord(SettingsFields& fields);

/// Shows the field that the number in SetValue(box) names beside it; nothing for the boxes of the
/// location.
void ShowMappedField(SettingsFields& fields, std::size_t box);

/// The user chose a language: there is German only.
void DDSprache_Click(SettingsFields& fields, Desktop& desktop);
void btnChangeLoadfile_Click(SettingsFields& fields, Desktop& desktop);
void btnChangeSyncfile_Click(SettingsFields& fields, Desktop& desktop);

/// Takes the selected field for an item; `label` is the index of its itemexpl.
void itemexpl_Click(SettingsFields& fields, int label);

/// The box that a key in SetValue(box) moves to: the next one, or the previous one with `up`.
std::size_t NextValueBox(std::size_t box, bool up);

/// Puts the values into the settings and writes their file in the program's folder. Raises what
/// writing it raises.
void btnMakeChanges_Click(const SettingsFields& fields, Settings& settings, const FilePath& folder,
                          Desktop& desktop);
/// The dialog closes without storing.
void NVSET_btnCancel_Click(Desktop& desktop);

}  // namespace norvik
