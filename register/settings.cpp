#include "register/settings.h"

#include "base/lines.h"
#include "base/numbers.h"
#include "base/runtimeerror.h"

#include <algorithm>

namespace norvik {

namespace {

/// The keys of rows 1 to 25.
constexpr std::array<TextView, 25> Keys = {u"Language",
                                           u"LoadFile",
                                           u"Unit",
                                           u"CountryCode",
                                           u"RegionCode",
                                           u"AddRegionCode",
                                           u"GlobalizeNumber",
                                           u"Change00to+",
                                           u"UseReductionFlags",
                                           u"DeleteCommaInNames",
                                           u"WriteMemNumber",
                                           u"UseQuotesForData",
                                           u"DataSeparator",
                                           u"SyncDatabase",
                                           u"SyncName",
                                           u"SyncGiven",
                                           u"SyncCompany",
                                           u"SyncAdd",
                                           u"SyncZip",
                                           u"SyncCity",
                                           u"SyncBusiness",
                                           u"SyncPrivate",
                                           u"SyncFax",
                                           u"SyncOther",
                                           u"LoadSyncOnStart"};
static_assert(Keys.size() == static_cast<std::size_t>(Setting::LoadSyncOnStart));

constexpr std::array<TextView, 5> Comments = {
    u";NORVIK.EXE Konfigurationsdatei", u";NORVIK.EXE configuration file",
    u";changing this file is allowed, but", u";it will be regenerated",
    u";if settings are changed by the program"};

/// A section opens in front of the row of its first key.
struct Section {
    Setting first;
    TextView header;
};
constexpr std::array<Section, 4> Sections = {{{Setting::Language, u"[common]"},
                                              {Setting::CountryCode, u"[location]"},
                                              {Setting::AddRegionCode, u"[export flags]"},
                                              {Setting::SyncDatabase, u"[sync settings]"}}};
constexpr TextView EndSection = u"[end]";

std::size_t IndexOf(Setting setting) {
    return static_cast<std::size_t>(setting) - 1;
}

void AddLine(Text& text, TextView line) {
    text.append(line).append(LineEnd);
}

void AddSectionHeader(Text& text, TextView header) {
    AddLine(text, u"");
    AddLine(text, header);
}

}  // namespace

SettingsTable::SettingsTable() {
    for (std::size_t i = 0; i < Keys.size(); ++i) {
        rows_[i].Key = Keys[i];
    }
}

const Text& SettingsTable::Value(Setting setting) const {
    return rows_[IndexOf(setting)].Value;
}

void SettingsTable::SetValue(Setting setting, TextView value) {
    rows_[IndexOf(setting)].Value = value;
}

const SettingsTable::Row& SettingsTable::At(int row) const {
    if (row < 1 || row > SettingsRows) {
        throw RuntimeError(ErrorNumber::IndexOutOfRange);
    }
    return rows_[static_cast<std::size_t>(row - 1)];
}

void SettingsTable::Assign(TextView key, TextView value) {
    static const std::array<Text, Keys.size()> loweredKeys = [] {
        std::array<Text, Keys.size()> keys;
        std::transform(Keys.begin(), Keys.end(), keys.begin(),
                       [](TextView name) { return LowerCase(name); });
        return keys;
    }();
    const auto* found = std::find(loweredKeys.begin(), loweredKeys.end(), LowerCase(key));
    if (found != loweredKeys.end()) {
        rows_[static_cast<std::size_t>(found - loweredKeys.begin())].Value = value;
    }
}

void ReadSettings(ByteView file, SettingsTable& table) {
    constexpr std::size_t ShortestKey = 2;
    LineReader lines(file);
    while (!lines.AtEnd()) {
        Text lowered = lines.Next();
        MakeLowerCase(lowered);
        const TextView line = TrimBlanks(lowered);
        const std::size_t equals = line.find(u'=');
        if (equals == TextView::npos || equals < ShortestKey) {
            continue;
        }
        table.Assign(TrimBlanks(line.substr(0, equals)), TrimBlanks(line.substr(equals + 1)));
    }
}

Text SettingsText(const SettingsTable& table) {
    Text text;
    for (const TextView comment : Comments) {
        AddLine(text, comment);
    }
    for (int row = 1; row <= SettingsRows; ++row) {
        for (const Section& section : Sections) {
            if (row == static_cast<int>(section.first)) {
                AddSectionHeader(text, section.header);
            }
        }
        const SettingsTable::Row& entry = table.At(row);
        if (!entry.Value.empty()) {
            AddLine(text, entry.Key + u"=" + entry.Value);
        }
    }
    AddSectionHeader(text, EndSection);
    return text;
}

void ApplySettings(Settings& settings) {
    const SettingsTable& table = settings.Table;
    settings.LanguageFlag = table.Value(Setting::Language) == u"english" ? 1 : 0;
    settings.StartFile = table.Value(Setting::LoadFile);
    settings.StartFolder = table.Folder();
    settings.UnitPrice = ParseDecimal(table.Value(Setting::Unit));
    settings.InternationalPrefix = u"00" + table.Value(Setting::CountryCode);
    settings.AreaPrefix = u"0" + table.Value(Setting::RegionCode);
    settings.AutoloadFlag = !settings.StartFile.empty();
}

}  // namespace norvik
