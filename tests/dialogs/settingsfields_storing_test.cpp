// The settings dialog: what it stores, and the settings file byte by byte.
#include "dialogs/settingsfields.h"

#include "base/runtimeerror.h"
#include "tests/support/errors.h"
#include "tests/support/processlimits.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// A whole settings file that holds the four groups of lines.
std::string SettingsFile(const std::string& common, const std::string& location,
                         const std::string& flags, const std::string& sync) {
    return ";NORVIK.EXE Konfigurationsdatei\r\n"
           ";NORVIK.EXE configuration file\r\n"
           ";changing this file is allowed, but\r\n"
           ";it will be regenerated\r\n"
           ";if settings are changed by the program\r\n"
           "\r\n[common]\r\n" +
           common + "\r\n[location]\r\n" + location + "\r\n[export flags]\r\n" + flags +
           "\r\n[sync settings]\r\n" + sync + "\r\n[end]\r\n";
}

/// The file of a dialog whose fields are empty.
std::string EmptyFile() {
    return SettingsFile("Language=deutsch\r\n", "CountryCode=0\r\nRegionCode=0\r\n", "",
                        "LoadSyncOnStart=no\r\n");
}

std::string FileIn(const FilePath& folder) {
    const Bytes bytes = ReadFile(folder / "norvik.ini");
    return {bytes.begin(), bytes.end()};
}

/// Stores, expects the confirmation alone and gives the file.
std::string Stored(const SettingsFields& fields, Settings& settings) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    btnMakeChanges_Click(fields, settings, folder.Path(), desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre("status \"Einstellungen gespeichert\""));
    return FileIn(folder.Path());
}

SettingsFields FilledFields() {
    SettingsFields fields;
    fields.InpLoadfile = u"C:\\Daten\\Büro.T9T";
    fields.InpSyncFile = u"C:\\Daten\\Adreßbuch.CSV";
    fields.chkLoadSyncOnStart = true;
    fields.SetValue = {u"49", u"30", u"0,12", u"1",  u"2",  u"3", u"5",
                       u"6",  u"7",  u"9",    u"10", u"11", u"12"};
    return fields;
}

/// A country code, as it was typed, in the table.
Text CountryOf(TextView typed) {
    SettingsFields fields;
    fields.SetValue[0] = typed;
    Settings settings;
    Stored(fields, settings);
    return settings.Table.Value(Setting::CountryCode);
}

// The file

TEST(SettingsMakeChanges, WritesEveryFieldOfTheDialogIntoItsRow) {
    Settings settings;
    EXPECT_EQ(Stored(FilledFields(), settings),
              SettingsFile("Language=deutsch\r\nLoadFile=C:\\Daten\\B\xFCro.T9T\r\nUnit=0,12\r\n",
                           "CountryCode=49\r\nRegionCode=30\r\n", "",
                           "SyncDatabase=C:\\Daten\\Adre\xDF"
                           "buch.CSV\r\n"
                           "SyncName=1\r\nSyncGiven=2\r\nSyncCompany=3\r\nSyncAdd=5\r\n"
                           "SyncZip=6\r\nSyncCity=7\r\nSyncBusiness=9\r\nSyncPrivate=10\r\n"
                           "SyncFax=11\r\nSyncOther=12\r\nLoadSyncOnStart=yes\r\n"));
}

TEST(SettingsMakeChanges, EmptyFieldsWriteLanguageNumbersAndTheBoxAlone) {
    Settings settings;
    EXPECT_EQ(Stored(SettingsFields(), settings), EmptyFile());
}

TEST(SettingsMakeChanges, TheExportFlagsKeepTheirValues) {
    Settings settings;
    const std::array<Setting, 8> flags = {Setting::AddRegionCode,      Setting::GlobalizeNumber,
                                          Setting::Change00toPlus,     Setting::UseReductionFlags,
                                          Setting::DeleteCommaInNames, Setting::WriteMemNumber,
                                          Setting::UseQuotesForData,   Setting::DataSeparator};
    for (std::size_t i = 0; i < flags.size(); ++i) {
        settings.Table.SetValue(flags.at(i), u"v" + Decimal(static_cast<int>(i)));
    }
    EXPECT_EQ(Stored(SettingsFields(), settings),
              SettingsFile("Language=deutsch\r\n", "CountryCode=0\r\nRegionCode=0\r\n",
                           "AddRegionCode=v0\r\nGlobalizeNumber=v1\r\nChange00to+=v2\r\n"
                           "UseReductionFlags=v3\r\nDeleteCommaInNames=v4\r\nWriteMemNumber=v5\r\n"
                           "UseQuotesForData=v6\r\nDataSeparator=v7\r\n",
                           "LoadSyncOnStart=no\r\n"));
}

TEST(SettingsMakeChanges, TheLanguageIsDeutschWhateverWasStored) {
    Settings settings;
    settings.Table.SetValue(Setting::Language, u"english");
    Stored(SettingsFields(), settings);
    EXPECT_EQ(settings.Table.Value(Setting::Language), u"deutsch");
}

TEST(SettingsMakeChanges, AClearedFieldLosesItsLine) {
    Settings settings;
    Stored(FilledFields(), settings);
    EXPECT_EQ(Stored(SettingsFields(), settings), EmptyFile());
}

TEST(SettingsMakeChanges, NoPathIsChecked) {
    SettingsFields fields;
    fields.InpLoadfile = u"/gibt/es/nicht.xyz";
    fields.InpSyncFile = u"/dev/zero";
    Settings settings;
    EXPECT_EQ(Stored(fields, settings),
              SettingsFile("Language=deutsch\r\nLoadFile=/gibt/es/nicht.xyz\r\n",
                           "CountryCode=0\r\nRegionCode=0\r\n", "",
                           "SyncDatabase=/dev/zero\r\nLoadSyncOnStart=no\r\n"));
}

TEST(SettingsMakeChanges, FieldNumbersAreStoredAsTheyWereTyped) {
    SettingsFields fields;
    const std::array<Text, SyncItems> typed = {
        u"abc", u"007", u"99", u"-1", u"0", u"1,5", u"+3", u"", u"7 ", u"12345678901234567890"};
    std::copy(typed.begin(), typed.end(), fields.SetValue.begin() + FirstItemValue);
    Settings settings;
    EXPECT_EQ(Stored(fields, settings),
              SettingsFile("Language=deutsch\r\n", "CountryCode=0\r\nRegionCode=0\r\n", "",
                           "SyncName=abc\r\nSyncGiven=007\r\nSyncCompany=99\r\nSyncAdd=-1\r\n"
                           "SyncZip=0\r\nSyncCity=1,5\r\nSyncBusiness=+3\r\nSyncFax=7 \r\n"
                           "SyncOther=12345678901234567890\r\nLoadSyncOnStart=no\r\n"));
}

TEST(SettingsMakeChanges, ReplacesTheOldFileWholeAndLeavesNothingBesideIt) {
    const TestFolder folder;
    folder.Write("norvik.ini", std::string(5000, 'x') + "\r\nFremd=1\r\n");
    Settings settings;
    ScriptedDesktop desktop;
    btnMakeChanges_Click(SettingsFields(), settings, folder.Path(), desktop);
    EXPECT_EQ(FileIn(folder.Path()), EmptyFile());
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()), 1);
}

TEST(SettingsMakeChanges, ReplacesAFileWhoseNameIsInOtherCase) {
    const TestFolder folder;
    folder.Write("NORVIK.INI", "alt");
    Settings settings;
    ScriptedDesktop desktop;
    btnMakeChanges_Click(SettingsFields(), settings, folder.Path(), desktop);
    const Bytes bytes = ReadFile(folder / "NORVIK.INI");
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), EmptyFile());
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()), 1);
}

TEST(SettingsMakeChanges, MakesTheFolderOnTheFirstWrite) {
    const TestFolder folder;
    Settings settings;
    ScriptedDesktop desktop;
    btnMakeChanges_Click(SettingsFields(), settings, folder / "share" / "norvik", desktop);
    EXPECT_EQ(FileIn(folder / "share" / "norvik"), EmptyFile());
}

TEST(SettingsMakeChanges, TheNextStartReadsWhatWasStoredInLowerCase) {
    const TestFolder folder;
    Settings settings;
    ScriptedDesktop desktop;
    btnMakeChanges_Click(FilledFields(), settings, folder.Path(), desktop);

    Settings next;
    ReadSettingsFile(folder.Path(), next.Table);
    const SettingsFields fields = NVSET_Load(next);

    EXPECT_EQ(fields.InpLoadfile, u"c:\\daten\\büro.t9t");
    EXPECT_EQ(fields.InpSyncFile, u"c:\\daten\\adreßbuch.csv");
    EXPECT_TRUE(fields.chkLoadSyncOnStart);
    EXPECT_EQ(fields.SetValue, FilledFields().SetValue);
}

// The values in memory

TEST(SettingsMakeChanges, TheChargeFactorBecomesTheUnitPriceAndIsStoredAsText) {
    const std::vector<std::pair<TextView, double>> cases = {
        {u"0,15", 0.15}, {u"0.15", 0.15},     {u" 0,15 ", 0.15}, {u"abc", 0}, {u"", 0},
        {u"1e3", 1},     {u"1.234,5", 1.234}, {u"-1", -1},       {u"5 ct", 5}};
    for (const auto& example : cases) {
        SettingsFields fields;
        fields.SetValue[2] = example.first;
        Settings settings;
        Stored(fields, settings);
        EXPECT_EQ(settings.UnitPrice, example.second) << Utf8(example.first);
        EXPECT_EQ(settings.Table.Value(Setting::Unit), example.first);
    }
}

TEST(SettingsMakeChanges, CountryAndAreaCodeAreReadAsNumbersAndWrittenBackWithoutBlanks) {
    const std::vector<std::pair<TextView, std::string>> cases = {
        {u"49", "49"},     {u"49 ", "49"},
        {u"  49  ", "49"}, {u"+49", "49"},
        {u"0049", "49"},   {u"4 9", "4"},
        {u"abc", "0"},     {u"", "0"},
        {u" ", "0"},       {u"49abc", "49"},
        {u"30,5", "30.5"}, {u"30.5", "30.5"},
        {u"1e3", "1"},     {u"-49", "-49"},
        {u"-0", "0"},      {u"30,0", "30"},
        {u",5", "0.5"},    {u"-", "0"},
        {u"+ 49", "0"},    {u"--1", "0"},
        {u"0,1", "0.1"},   {u"123456789012345", "123456789012345"}};
    for (const auto& example : cases) {
        SettingsFields fields;
        fields.SetValue[0] = example.first;
        fields.SetValue[1] = example.first;
        Settings settings;
        EXPECT_EQ(Stored(fields, settings),
                  SettingsFile("Language=deutsch\r\n",
                               "CountryCode=" + example.second +
                                   "\r\nRegionCode=" + example.second + "\r\n",
                               "", "LoadSyncOnStart=no\r\n"))
            << Utf8(example.first);
        EXPECT_EQ(settings.InternationalPrefix, FromAscii("00" + example.second));
        EXPECT_EQ(settings.AreaPrefix, FromAscii("0" + example.second));
    }
}

TEST(SettingsMakeChanges, ANumberThatWasStoredStaysTheSameWhenItIsStoredAgain) {
    for (const Text& typed :
         {Text(u"49"), Text(u"30,5"), Text(u"-1,25"), Text(u"1234567890123456"),
          Text(u"12345678901234567890"), Text(u"0,00001"), Text(u"0,000000012"), Text(400, u'9')}) {
        const Text once = CountryOf(typed);
        EXPECT_EQ(Utf8(CountryOf(once)), Utf8(once)) << Utf8(typed);
    }
}

TEST(SettingsMakeChanges, ACodeOf20DigitsIsWrittenWithDigitsAlone) {
    const Text written = CountryOf(u"12345678901234567890");
    EXPECT_EQ(written.size(), 20U) << Utf8(written);
    EXPECT_EQ(written.find_first_not_of(u"0123456789"), Text::npos) << Utf8(written);
}

TEST(SettingsMakeChanges, TheDialogShowsTheNumbersAsTheyWereWrittenWhenItOpensAgain) {
    SettingsFields fields;
    fields.SetValue[0] = u"0049 ";
    fields.SetValue[1] = u"abc";
    fields.SetValue[2] = u" 0,12";
    Settings settings;
    Stored(fields, settings);
    const SettingsFields again = NVSET_Load(settings);
    EXPECT_EQ(again.SetValue[0], u"49");
    EXPECT_EQ(again.SetValue[1], u"0");
    EXPECT_EQ(again.SetValue[2], u" 0,12");
}

TEST(SettingsMakeChanges, ANewLoadFileIsNotLoadedInThisRun) {
    Settings settings;
    Stored(FilledFields(), settings);
    EXPECT_EQ(settings.StartFile, u"");
    EXPECT_FALSE(settings.AutoloadFlag);
}

// Failing to write

TEST(SettingsMakeChanges, APathThatTheFileCannotHoldRaises5AndLeavesTheOldFile) {
    const TestFolder folder;
    const FilePath path = folder.Write("norvik.ini", "alt");
    SettingsFields fields;
    fields.InpLoadfile = u"→";
    Settings settings;
    ScriptedDesktop desktop;
    EXPECT_EQ(ErrorOf([&] { btnMakeChanges_Click(fields, settings, folder.Path(), desktop); }), 5);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_EQ(ReadFile(path), Raw("'alt'"));
}

TEST(SettingsMakeChanges, AFolderInThePlaceOfTheFileRaises75) {
    const TestFolder folder;
    fs::create_directory(folder / "norvik.ini");
    Settings settings;
    ScriptedDesktop desktop;
    EXPECT_EQ(
        ErrorOf([&] { btnMakeChanges_Click(SettingsFields(), settings, folder.Path(), desktop); }),
        75);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()), 1);
}

#ifndef _WIN32
TEST(SettingsMakeChanges, AReadOnlyFolderRaises70AndKeepsTheOldFile) {
    const TestFolder folder;
    const FilePath path = folder.Write("norvik.ini", "alt");
    fs::permissions(folder.Path(), fs::perms(0555));
    Settings settings;
    ScriptedDesktop desktop;
    {
        const AsAnyUser anyUser;
        EXPECT_EQ(ErrorOf([&] {
                      btnMakeChanges_Click(SettingsFields(), settings, folder.Path(), desktop);
                  }),
                  70);
    }
    fs::permissions(folder.Path(), fs::perms(0755));
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_EQ(ReadFile(path), Raw("'alt'"));
}

TEST(SettingsMakeChanges, AFileThatCannotGrowRaises57AndKeepsTheOldFile) {
    const TestFolder folder;
    const FilePath path = folder.Write("norvik.ini", "alt");
    Settings settings;
    ScriptedDesktop desktop;
    {
        const FileSizeLimit limit(100);
        EXPECT_EQ(ErrorOf([&] {
                      btnMakeChanges_Click(SettingsFields(), settings, folder.Path(), desktop);
                  }),
                  57);
    }
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_EQ(ReadFile(path), Raw("'alt'"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()), 1);
}
#endif

// Discarding

TEST(SettingsCancel, ShowsThatNothingWasStored) {
    ScriptedDesktop desktop;
    NVSET_btnCancel_Click(desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre("status \"Einstellungen nicht gespeichert.\""));
}

}  // namespace
}  // namespace norvik::test
