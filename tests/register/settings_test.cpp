#include "register/settings.h"

#include "base/runtimeerror.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using Values = std::vector<Text>;

/// The settings that the file holds, with what follows from them.
Settings SettingsFrom(std::string_view file) {
    Settings settings;
    ReadSettings(ByteView(reinterpret_cast<const Byte*>(file.data()), file.size()), settings.Table);
    ApplySettings(settings);
    return settings;
}

/// The values of all 30 rows.
Values ValuesOf(const Settings& settings) {
    Values values;
    for (int row = 1; row <= 30; ++row) {
        values.push_back(settings.Table.At(row).Value);
    }
    return values;
}

/// 30 empty values but for one row's.
Values OnlyRow(std::size_t row, TextView value) {
    Values values(30);
    values[row - 1] = value;
    return values;
}

TEST(SettingsTable, HasItsThirtyRowsInTheirOrder) {
    const std::vector<Text> keys = {u"Language",
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
                                    u"LoadSyncOnStart",
                                    u"",
                                    u"",
                                    u"",
                                    u"",
                                    u""};
    const SettingsTable table;
    for (int row = 1; row <= 30; ++row) {
        EXPECT_EQ(table.At(row).Key, keys[static_cast<std::size_t>(row - 1)]);
        EXPECT_EQ(table.At(row).Value, u"");
    }
}

TEST(SettingsTable, TheNamedRowsAreThoseOfTheKeys) {
    EXPECT_EQ(static_cast<int>(Setting::Language), 1);
    EXPECT_EQ(static_cast<int>(Setting::CountryCode), 4);
    EXPECT_EQ(static_cast<int>(Setting::AddRegionCode), 6);
    EXPECT_EQ(static_cast<int>(Setting::Change00toPlus), 8);
    EXPECT_EQ(static_cast<int>(Setting::SyncDatabase), 14);
    EXPECT_EQ(static_cast<int>(Setting::LoadSyncOnStart), 25);
    SettingsTable table;
    table.SetValue(Setting::Change00toPlus, u"yes");
    EXPECT_EQ(table.At(8).Value, u"yes");
    EXPECT_EQ(table.Value(Setting::Change00toPlus), u"yes");
}

TEST(SettingsTable, ARowOutside1To30RaisesError9) {
    const SettingsTable table;
    for (const int row : {0, 31, -1}) {
        try {
            static_cast<void>(table.At(row));
            ADD_FAILURE() << row;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::IndexOutOfRange);
        }
    }
}

TEST(ReadSettings, EveryKeyGoesIntoItsRow) {
    const Settings settings = SettingsFrom(
        "language=v1\r\nloadfile=v2\r\nunit=v3\r\ncountrycode=v4\r\nregioncode=v5\r\n"
        "addregioncode=v6\r\nglobalizenumber=v7\r\nchange00to+=v8\r\nusereductionflags=v9\r\n"
        "deletecommainnames=v10\r\nwritememnumber=v11\r\nusequotesfordata=v12\r\n"
        "dataseparator=v13\r\nsyncdatabase=v14\r\nsyncname=v15\r\nsyncgiven=v16\r\n"
        "synccompany=v17\r\nsyncadd=v18\r\nsynczip=v19\r\nsynccity=v20\r\nsyncbusiness=v21\r\n"
        "syncprivate=v22\r\nsyncfax=v23\r\nsyncother=v24\r\nloadsynconstart=v25\r\n");
    Values expected(30);
    for (std::size_t row = 1; row <= 25; ++row) {
        expected[row - 1] = u"v" + FromAscii(std::to_string(row));
    }
    EXPECT_EQ(ValuesOf(settings), expected);
}

TEST(ReadSettings, KeysMatchWhateverTheirCase) {
    EXPECT_EQ(ValuesOf(SettingsFrom("LOADSYNCONSTART=YES\r\n")), OnlyRow(25, u"yes"));
    EXPECT_EQ(ValuesOf(SettingsFrom("Change00to+=Yes\r\n")), OnlyRow(8, u"yes"));
}

TEST(ReadSettings, AStartFileWithBlanksAroundItIsLoweredAndTrimmed) {
    const Settings settings = SettingsFrom("LoadFile = C:\\Daten\\Reg.T9T  \r\n");
    EXPECT_EQ(settings.StartFile, u"c:\\daten\\reg.t9t");
    EXPECT_TRUE(settings.AutoloadFlag);
}

TEST(ReadSettings, ALineWithAKeyOfOneCharacterIsIgnored) {
    EXPECT_EQ(ValuesOf(SettingsFrom("a=1\r\n")), Values(30));
}

TEST(ReadSettings, ALineWithoutAKeyGoesIntoNoRow) {
    EXPECT_EQ(ValuesOf(SettingsFrom("=1\r\n = 2\r\n  =\r\n")), Values(30));
}

TEST(ReadSettings, LinesWithoutAnEqualsSignAreIgnored) {
    EXPECT_EQ(ValuesOf(SettingsFrom("[common]\r\n\r\n;comment\r\nUnit\r\nUnit 5\r\n[end]\r\n")),
              Values(30));
}

TEST(ReadSettings, UnknownKeysAreIgnored) {
    EXPECT_EQ(ValuesOf(SettingsFrom("Colour=red\r\n;Unit=5\r\nUnits=5\r\nUni=5\r\n[x]Unit=5\r\n")),
              Values(30));
}

TEST(ReadSettings, TheLaterOfTwoLinesWins) {
    EXPECT_EQ(ValuesOf(SettingsFrom("Unit=1\r\nunit=2\r\n")), OnlyRow(3, u"2"));
    EXPECT_EQ(ValuesOf(SettingsFrom("Unit=1\r\nunit=\r\n")), Values(30));
}

TEST(ReadSettings, TheFirstEqualsSignDivides) {
    EXPECT_EQ(ValuesOf(SettingsFrom("DataSeparator==\r\n")), OnlyRow(13, u"="));
    EXPECT_EQ(ValuesOf(SettingsFrom("LoadFile=a=b.t9t\r\n")), OnlyRow(2, u"a=b.t9t"));
}

TEST(ReadSettings, BlanksInsideAValueStay) {
    EXPECT_EQ(ValuesOf(SettingsFrom("   SyncDatabase   =   c:\\eigene  dateien\\a.txt   \r\n")),
              OnlyRow(14, u"c:\\eigene  dateien\\a.txt"));
}

TEST(ReadSettings, OnlyBlanksAreTrimmed) {
    EXPECT_EQ(ValuesOf(SettingsFrom("Unit=\t5\t\r\n")), OnlyRow(3, u"\t5\t"));
    EXPECT_EQ(ValuesOf(SettingsFrom("\tUnit=5\r\n")), Values(30));
}

TEST(ReadSettings, UmlautsAreLoweredToo) {
    EXPECT_EQ(ValuesOf(SettingsFrom("LoadFile=C:\\\xC4RGER\\\x8A.T9T\r\n")),
              OnlyRow(2, u"c:\\ärger\\š.t9t"));
}

TEST(ReadSettings, NeitherSectionHeadersNorTheEndAreNeeded) {
    const std::string_view whole = "[common]\r\nLanguage=english\r\n\r\n[location]\r\n"
                                   "CountryCode=49\r\n\r\n[end]\r\n";
    EXPECT_EQ(ValuesOf(SettingsFrom("Language=english\r\nCountryCode=49")),
              ValuesOf(SettingsFrom(whole)));
    EXPECT_EQ(SettingsFrom("CountryCode=49\r\nLanguage=english").InternationalPrefix, u"0049");
}

TEST(ReadSettings, LinesBehindTheEndAreReadLikeOthers) {
    EXPECT_EQ(ValuesOf(SettingsFrom("[end]\r\nUnit=5\r\n")), OnlyRow(3, u"5"));
}

TEST(ReadSettings, AFileWithLineFeedsAloneReadsTheSame) {
    const Settings settings = SettingsFrom("[common]\nUnit=5\nCountryCode=43\n");
    EXPECT_EQ(settings.UnitPrice, 5);
    EXPECT_EQ(settings.InternationalPrefix, u"0043");
}

TEST(ReadSettings, AnEmptyFileLeavesEveryValueEmpty) {
    EXPECT_EQ(ValuesOf(SettingsFrom("")), Values(30));
}

TEST(ReadSettings, SpecialCharactersDisturbNothing) {
    EXPECT_EQ(ValuesOf(SettingsFrom(std::string_view("Un\0it=5\r\nUnit=6\0\r\n", 18))),
              OnlyRow(3, Text(u"6\0", 2)));
}

TEST(ApplySettings, WithoutValuesThePresetPriceDoesNotSurvive) {
    EXPECT_EQ(Settings().UnitPrice, 0.12);
    const Settings settings = SettingsFrom("");
    EXPECT_EQ(settings.UnitPrice, 0);
    EXPECT_EQ(settings.InternationalPrefix, u"00");
    EXPECT_EQ(settings.AreaPrefix, u"0");
    EXPECT_EQ(settings.LanguageFlag, 0);
    EXPECT_EQ(settings.StartFile, u"");
    EXPECT_FALSE(settings.AutoloadFlag);
}

TEST(ApplySettings, TheUnitMayHaveACommaOrAPoint) {
    EXPECT_EQ(SettingsFrom("Unit=0,15\r\n").UnitPrice, 0.15);
    EXPECT_EQ(SettingsFrom("Unit=0.15\r\n").UnitPrice, 0.15);
    EXPECT_EQ(SettingsFrom("Unit=teuer\r\n").UnitPrice, 0);
}

TEST(ApplySettings, OnlyEnglishSwitchesTheLanguageFlag) {
    EXPECT_EQ(SettingsFrom("Language=English\r\n").LanguageFlag, 1);
    EXPECT_EQ(SettingsFrom("Language=deutsch\r\n").LanguageFlag, 0);
    EXPECT_EQ(SettingsFrom("Language=englisch\r\n").LanguageFlag, 0);
}

TEST(ApplySettings, ThePrefixesPutZerosInFrontOfTheCodes) {
    const Settings settings = SettingsFrom("CountryCode=49\r\nRegionCode=30\r\n");
    EXPECT_EQ(settings.InternationalPrefix, u"0049");
    EXPECT_EQ(settings.AreaPrefix, u"030");
}

}  // namespace
}  // namespace norvik::test
