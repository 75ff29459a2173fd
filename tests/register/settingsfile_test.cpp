// The settings file in the program's folder: finding, reading, writing.

#include "register/settings.h"

#include "base/runtimeerror.h"
#include "tests/support/errors.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;

std::string Written(const SettingsTable& table) {
    const TestFolder folder;
    WriteSettingsFile(folder.Path(), table);
    const Bytes bytes = ReadFile(folder / "norvik.ini");
    return {bytes.begin(), bytes.end()};
}

int ReadError(const FilePath& folder) {
    SettingsTable table;
    return ErrorOf([&] { ReadSettingsFile(folder, table); });
}

TEST(WriteSettingsFile, ASettingsFileWithTwoValuesHasAllSectionHeaders) {
    SettingsTable table;
    table.SetValue(Setting::Language, u"deutsch");
    table.SetValue(Setting::LoadSyncOnStart, u"no");
    EXPECT_EQ(Written(table), ";NORVIK.EXE Konfigurationsdatei\r\n"
                              ";NORVIK.EXE configuration file\r\n"
                              ";changing this file is allowed, but\r\n"
                              ";it will be regenerated\r\n"
                              ";if settings are changed by the program\r\n"
                              "\r\n"
                              "[common]\r\n"
                              "Language=deutsch\r\n"
                              "\r\n"
                              "[location]\r\n"
                              "\r\n"
                              "[export flags]\r\n"
                              "\r\n"
                              "[sync settings]\r\n"
                              "LoadSyncOnStart=no\r\n"
                              "\r\n"
                              "[end]\r\n");
}

TEST(WriteSettingsFile, EveryRowWithAKeyStandsInItsSection) {
    SettingsTable table;
    for (int row = 1; row <= 25; ++row) {
        table.SetValue(static_cast<Setting>(row), u"v" + Decimal(row));
    }
    EXPECT_EQ(Written(table), ";NORVIK.EXE Konfigurationsdatei\r\n"
                              ";NORVIK.EXE configuration file\r\n"
                              ";changing this file is allowed, but\r\n"
                              ";it will be regenerated\r\n"
                              ";if settings are changed by the program\r\n"
                              "\r\n[common]\r\n"
                              "Language=v1\r\nLoadFile=v2\r\nUnit=v3\r\n"
                              "\r\n[location]\r\n"
                              "CountryCode=v4\r\nRegionCode=v5\r\n"
                              "\r\n[export flags]\r\n"
                              "AddRegionCode=v6\r\nGlobalizeNumber=v7\r\nChange00to+=v8\r\n"
                              "UseReductionFlags=v9\r\nDeleteCommaInNames=v10\r\n"
                              "WriteMemNumber=v11\r\nUseQuotesForData=v12\r\nDataSeparator=v13\r\n"
                              "\r\n[sync settings]\r\n"
                              "SyncDatabase=v14\r\nSyncName=v15\r\nSyncGiven=v16\r\n"
                              "SyncCompany=v17\r\nSyncAdd=v18\r\nSyncZip=v19\r\nSyncCity=v20\r\n"
                              "SyncBusiness=v21\r\nSyncPrivate=v22\r\nSyncFax=v23\r\n"
                              "SyncOther=v24\r\nLoadSyncOnStart=v25\r\n"
                              "\r\n[end]\r\n");
}

TEST(WriteSettingsFile, AnEmptyTableIsCommentsAndHeaders) {
    EXPECT_EQ(Written(SettingsTable()), ";NORVIK.EXE Konfigurationsdatei\r\n"
                                        ";NORVIK.EXE configuration file\r\n"
                                        ";changing this file is allowed, but\r\n"
                                        ";it will be regenerated\r\n"
                                        ";if settings are changed by the program\r\n"
                                        "\r\n[common]\r\n\r\n[location]\r\n\r\n[export flags]\r\n"
                                        "\r\n[sync settings]\r\n\r\n[end]\r\n");
}

TEST(WriteSettingsFile, ValuesStandAsTheyAreInWindows1252) {
    SettingsTable table;
    table.SetValue(Setting::LoadFile, u"C:\\Büro €.T9T");
    EXPECT_NE(Written(table).find("\r\nLoadFile=C:\\B\xFCro \x80.T9T\r\n"), std::string::npos);
}

TEST(WriteSettingsFile, ReplacesTheOldFileWhole) {
    const TestFolder folder;
    folder.Write("norvik.ini", std::string(5000, 'x'));
    WriteSettingsFile(folder.Path(), SettingsTable());
    const Bytes written = ReadFile(folder / "norvik.ini");
    EXPECT_EQ(std::count(written.begin(), written.end(), Byte{'x'}), 1) << "of \"export\"";
}

TEST(WriteSettingsFile, AFileOfThatNameInAnotherCaseIsTheOldFile) {
    const TestFolder folder;
    folder.Write("Norvik.INI", "Unit=5\r\n");
    SettingsTable table;
    table.SetValue(Setting::Unit, u"6");
    WriteSettingsFile(folder.Path(), table);
    EXPECT_FALSE(fs::exists(folder / "norvik.ini"));
    SettingsTable read;
    ReadSettingsFile(folder.Path(), read);
    EXPECT_EQ(read.Value(Setting::Unit), u"6");
}

TEST(WriteSettingsFile, MakesTheFolderOnTheFirstWrite) {
    const TestFolder folder;
    WriteSettingsFile(folder / "share/norvik", SettingsTable());
    EXPECT_TRUE(fs::exists(folder / "share/norvik/norvik.ini"));
}

TEST(WriteSettingsFile, AValueThatTheFileCannotHoldRaisesError5AndLeavesTheOldFile) {
    const TestFolder folder;
    const FilePath path = folder.Write("norvik.ini", "old");
    SettingsTable table;
    table.SetValue(Setting::LoadFile, u"Жук.t9t");
    EXPECT_EQ(ErrorOf([&] { WriteSettingsFile(folder.Path(), table); }), 5);
    EXPECT_EQ(ReadFile(path), Raw("'old'"));
}

TEST(WriteSettingsFile, AFolderOfThatNameRaisesError75) {
    const TestFolder folder;
    fs::create_directory(folder / "norvik.ini");
    EXPECT_EQ(ErrorOf([&] { WriteSettingsFile(folder.Path(), SettingsTable()); }), 75);
}

TEST(ReadSettingsFile, ReadsTheFileInTheProgramsFolderWhateverItsCase) {
    const TestFolder folder;
    folder.Write("NORVIK.INI", "Unit=5\r\n");
    SettingsTable table;
    ReadSettingsFile(folder.Path(), table);
    EXPECT_EQ(table.Value(Setting::Unit), u"5");
}

TEST(ReadSettingsFile, WhatWasWrittenComesBackInLowerCase) {
    const TestFolder folder;
    SettingsTable table;
    table.SetValue(Setting::LoadFile, u"C:\\Daten\\Büro.T9T");
    table.SetValue(Setting::DataSeparator, u";");
    table.SetValue(Setting::SyncOther, u"12");
    WriteSettingsFile(folder.Path(), table);
    SettingsTable read;
    ReadSettingsFile(folder.Path(), read);
    EXPECT_EQ(read.Value(Setting::LoadFile), u"c:\\daten\\büro.t9t");
    EXPECT_EQ(read.Value(Setting::DataSeparator), u";");
    EXPECT_EQ(read.Value(Setting::SyncOther), u"12");
    EXPECT_EQ(read.Value(Setting::Unit), u"");
}

TEST(ReadSettingsFile, AMissingFileRaisesError53) {
    const TestFolder folder;
    EXPECT_EQ(ReadError(folder.Path()), 53);
}

TEST(ReadSettingsFile, AMissingFolderRaisesError76) {
    const TestFolder folder;
    EXPECT_EQ(ReadError(folder / "fehlt"), 76);
}

TEST(ReadSettingsFile, AFolderOfThatNameRaisesError75) {
    const TestFolder folder;
    fs::create_directory(folder / "norvik.ini");
    EXPECT_EQ(ReadError(folder.Path()), 75);
}

}  // namespace
}  // namespace norvik::test
