#include "dialogs/settingsfields.h"

#include "formats/common/quietsave.h"
#include "formats/formattable.h"
#include "sync/quotedfields.h"
#include "sync/synccontacts.h"

#include <charconv>
#include <limits>

namespace norvik {

namespace {

constexpr TextView Yes = u"yes";
constexpr TextView No = u"no";
/// So many fields of a sample record are shown.
constexpr std::size_t SampleFields = 50;
/// What stands in place of the samples of a vCard.
constexpr TextView NoNumbersNeeded = u"Keine Feldnummern nötig";
constexpr TextView FromVCard = u"aus der vCard";
/// The sync file's.
constexpr TextView SyncFilter =
    u"CSV-Datei|*.csv|Textdatei|*.txt|Alle Dateien|*.*|vCard-Datei|*.vcf";

Setting ItemSetting(std::size_t item) {
    return static_cast<Setting>(static_cast<int>(Setting::SyncName) + static_cast<int>(item));
}

/// A number as people write it: no blanks, no needless zeros, a decimal point.
Text PlainNumber(double number) {
    std::array<char, 512> buffer{};  // the largest double has 309 digits
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                       number == 0 ? 0.0 : number,  // no minus before a zero
                                       std::chars_format::fixed);
    return FromAscii(
        std::string_view(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data())));
}

/// The number of the field that an item's box holds, from 1; 0 for none.
std::size_t FieldNumber(TextView value) {
    const long long number = LeadingInteger(value, std::numeric_limits<long long>::min(),
                                            std::numeric_limits<long long>::max());
    return number < 1 ? 0 : static_cast<std::size_t>(number);
}

void ShowMappedFields(SettingsFields& fields, const std::vector<TextView>& sample) {
    for (std::size_t item = 0; item < SyncItems; ++item) {
        const std::size_t number = FieldNumber(fields.SetValue.at(FirstItemValue + item));
        if (number > 0) {
            fields.Testausgabe.at(item) =
                number <= sample.size() ? Text(sample[number - 1]) : Text();
        }
    }
}

/// The samples of a vCard do not stay for another file.
void NoteKindOfFile(SettingsFields& fields, TextView file) {
    const bool isVCard = NamesVCard(file);
    if (isVCard != fields.SyncFileIsVCard) {
        fields.Testausgabe.fill(isVCard ? Text(FromVCard) : Text());
    }
    fields.SyncFileIsVCard = isVCard;
}

/// Returns whether a file was chosen.
bool ChooseFile(Text& field, TextView filter, std::string_view ending, Desktop& desktop) {
    const std::optional<FilePath> chosen =
        desktop.AskForFileToOpen({.filter = Text(filter), .ending = std::string(ending)});
    if (chosen) {
        field = TextFromPath(WithEnding(*chosen, ending));
    }
    return chosen.has_value();
}

}  // namespace

void mnuSettingsBasic(Windows& windows) {
    windows.ShowSettings();
}

SettingsFields NVSET_Load(const Settings& settings) {
    const SettingsTable& table = settings.Table;
    SettingsFields fields;
    fields.Sample = SyncSample(table.Folder());
    fields.InpLoadfile = table.Value(Setting::LoadFile);
    fields.SetValue[CountryCodeValue] = table.Value(Setting::CountryCode);
    fields.SetValue[RegionCodeValue] = table.Value(Setting::RegionCode);
    fields.SetValue[UnitValue] = table.Value(Setting::Unit);
    fields.chkLoadSyncOnStart = table.Value(Setting::LoadSyncOnStart) == Yes;
    fields.InpSyncFile = table.Value(Setting::SyncDatabase);
    for (std::size_t item = 0; item < SyncItems; ++item) {
        fields.SetValue.at(FirstItemValue + item) = table.Value(ItemSetting(item));
    }
    ShowSampleRecord(fields);
    return fields;
}

void SetSyncItemList(SettingsFields& fields, TextView file, int record) {
    fields.ListSyncFileItems.clear();
    fields.SelectedItem = -1;
    NoteKindOfFile(fields, file);
    if (file.empty()) {
        return;
    }
    if (fields.SyncFileIsVCard) {
        fields.ListSyncFileItems.emplace_back(
            fields.Sample.CanBeOpened(file) ? NoNumbersNeeded : u"SyncDatei n. gefunden");
        return;
    }
    const std::optional<Text> line = fields.Sample.Line(file, record);
    if (!line) {
        fields.ListSyncFileItems.emplace_back(u"SyncDatei n. gefunden");
        return;
    }
    const std::vector<TextView> sample = SplitQuotedFields(*line, SampleFields);
    for (std::size_t i = 0; i < sample.size(); ++i) {
        fields.ListSyncFileItems.push_back(Decimal(static_cast<long long>(i) + 1) + u" - " +
                                           Text(sample[i]));
    }
    ShowMappedFields(fields, sample);
}

void ShowSampleRecord(SettingsFields& fields) {
    SetSyncItemList(fields, Text(fields.InpSyncFile), fields.ScrollSyncFile);
}

void ShowMappedField(SettingsFields& fields, std::size_t box) {
    if (box < FirstItemValue || fields.SyncFileIsVCard) {
        return;
    }
    Text& output = fields.Testausgabe.at(box - FirstItemValue);
    output.clear();
    const std::size_t number = FieldNumber(fields.SetValue.at(box));
    if (number == 0 || fields.InpSyncFile.empty()) {
        return;
    }
    if (const auto line = fields.Sample.Line(fields.InpSyncFile, fields.ScrollSyncFile)) {
        const std::vector<TextView> sample = SplitQuotedFields(*line, SampleFields);
        if (number <= sample.size()) {
            output = sample[number - 1];
        }
    }
}

void DDSprache_Click(SettingsFields& fields, Desktop& desktop) {
    if (fields.DDSprache != German) {
        desktop.Ask({.text = u"Andere Sprachen als Deutsch werden noch nicht unterstützt!"});
        fields.DDSprache = German;
    }
}

void btnChangeLoadfile_Click(SettingsFields& fields, Desktop& desktop) {
    const FormatRow& row = RowOf(FileFormat::Register195);
    ChooseFile(fields.InpLoadfile, row.OpenFilter, row.Ending, desktop);
}

void btnChangeSyncfile_Click(SettingsFields& fields, Desktop& desktop) {
    if (ChooseFile(fields.InpSyncFile, SyncFilter, ".csv", desktop)) {
        ShowSampleRecord(fields);
    }
}

void itemexpl_Click(SettingsFields& fields, int label) {
    const int item = label - FirstItemLabel;
    if (item < 0 || item >= static_cast<int>(SyncItems) || fields.SyncFileIsVCard) {
        return;
    }
    const auto place = static_cast<std::size_t>(item);
    fields.SetValue.at(FirstItemValue + place) = Decimal(fields.SelectedItem + 1);
    fields.Testausgabe.at(place) =
        fields.SelectedItem < 0
            ? Text()
            : fields.ListSyncFileItems.at(static_cast<std::size_t>(fields.SelectedItem));
}

std::size_t NextValueBox(std::size_t box, bool up) {
    return (box + (up ? SettingValues - 1 : 1)) % SettingValues;
}

void btnMakeChanges_Click(const SettingsFields& fields, Settings& settings, const FilePath& folder,
                          Desktop& desktop) {
    SettingsTable& table = settings.Table;
    settings.UnitPrice = ParseDecimal(fields.SetValue[UnitValue]);
    table.SetValue(Setting::Unit, fields.SetValue[UnitValue]);
    const Text country = PlainNumber(ParseDecimal(fields.SetValue[CountryCodeValue]));
    const Text region = PlainNumber(ParseDecimal(fields.SetValue[RegionCodeValue]));
    table.SetValue(Setting::CountryCode, country);
    table.SetValue(Setting::RegionCode, region);
    settings.InternationalPrefix = u"00" + country;
    settings.AreaPrefix = u"0" + region;
    table.SetValue(Setting::LoadFile, fields.InpLoadfile);
    table.SetValue(Setting::SyncDatabase, fields.InpSyncFile);
    for (std::size_t item = 0; item < SyncItems; ++item) {
        table.SetValue(ItemSetting(item), fields.SetValue.at(FirstItemValue + item));
    }
    table.SetValue(Setting::LoadSyncOnStart, fields.chkLoadSyncOnStart ? Yes : No);
    table.SetValue(Setting::Language, u"deutsch");
    Text remark;
    WriteSettingsFile(folder, table, TellDesktop(desktop, remark));
    desktop.SetStatus(u"Einstellungen gespeichert" + remark);
}

void NVSET_btnCancel_Click(Desktop& desktop) {
    desktop.SetStatus(u"Einstellungen nicht gespeichert.");
}

}  // namespace norvik
