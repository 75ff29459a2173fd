#include "dialogs/mobileexportfields.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/errors.h"
#include "tests/support/processlimits.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/settings.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::array<Setting, HandyBoxes> BoxSettings = {
    Setting::AddRegionCode,     Setting::GlobalizeNumber,    Setting::Change00toPlus,
    Setting::UseReductionFlags, Setting::DeleteCommaInNames, Setting::WriteMemNumber,
    Setting::UseQuotesForData};

using Boxes = std::array<bool, HandyBoxes>;

// Opening

TEST(MobileExportLoad, FillsTheTwoPrefixes) {
    const MobileExportFields fields = NVHE_Load(Berlin());
    EXPECT_EQ(fields.AnzVorwahl, u"030");
    EXPECT_EQ(fields.AnzLand, u"0049");
}

TEST(MobileExportLoad, WithoutSettingsShowsBarePrefixesNoBoxAndASemicolon) {
    const MobileExportFields fields = NVHE_Load(Settings());
    EXPECT_EQ(fields.AnzVorwahl, u"0");
    EXPECT_EQ(fields.AnzLand, u"00");
    EXPECT_EQ(fields.chkHE, Boxes{});
    EXPECT_EQ(fields.InpSeparator, u";");
}

TEST(MobileExportLoad, ChecksEachBoxWhoseSettingIsYes) {
    for (std::size_t box = 0; box < HandyBoxes; ++box) {
        Settings settings;
        settings.Table.SetValue(BoxSettings.at(box), u"yes");
        Boxes expected{};
        expected.at(box) = true;
        if (box == 1) {
            expected[0] = true;  // as when the user checks it
        }
        EXPECT_EQ(NVHE_Load(settings).chkHE, expected) << box;
    }
}

TEST(MobileExportLoad, ChecksAllBoxesOrNone) {
    for (const TextView value : {u"yes", u"no", u"ja", u"1", u"y", u"yes "}) {
        Settings settings;
        for (const Setting setting : BoxSettings) {
            settings.Table.SetValue(setting, value);
        }
        Boxes expected{};
        expected.fill(value == u"yes");
        EXPECT_EQ(NVHE_Load(settings).chkHE, expected) << Utf8(value);
    }
}

TEST(MobileExportLoad, InternationalNumbersNeedTheRegionCodeWhateverItsSetting) {
    Settings settings;
    settings.Table.SetValue(Setting::AddRegionCode, u"no");
    settings.Table.SetValue(Setting::GlobalizeNumber, u"yes");
    EXPECT_EQ(NVHE_Load(settings).chkHE, (Boxes{true, true}));
}

TEST(MobileExportLoad, ShowsTheStoredSeparator) {
    for (const TextView separator : {u",", u"\t", u" - ", u"€"}) {
        Settings settings;
        settings.Table.SetValue(Setting::DataSeparator, separator);
        EXPECT_EQ(NVHE_Load(settings).InpSeparator, separator);
    }
}

TEST(MobileExportLoad, ReadsWhatStandsInTheSettingsFile) {
    Settings settings;
    ReadSettings(Raw("'COUNTRYCODE = 43' 0D 0A 'regioncode=1' 0D 0A 'Change00to+=YES' 0D 0A"
                     "'UseQuotesForData= Yes ' 0D 0A 'DataSeparator=,' 0D 0A"),
                 settings.Table);
    const MobileExportFields fields = NVHE_Load(settings);
    EXPECT_EQ(fields.AnzVorwahl, u"01");
    EXPECT_EQ(fields.AnzLand, u"0043");
    EXPECT_EQ(fields.chkHE, (Boxes{false, false, true, false, false, false, true}));
    EXPECT_EQ(fields.InpSeparator, u",");
}

// The boxes

TEST(ChkHE, WhenGlobalizeNumberBecomesCheckedAddRegionCodeIsCheckedToo) {
    for (const bool before : {false, true}) {
        MobileExportFields fields;
        fields.chkHE = {before, true};
        chkHE_Click(fields, 1);
        EXPECT_EQ(fields.chkHE, (Boxes{true, true}));
    }
}

TEST(ChkHE, WhenGlobalizeNumberBecomesUncheckedAddRegionCodeStays) {
    for (const bool before : {false, true}) {
        MobileExportFields fields;
        fields.chkHE = {before, false};
        chkHE_Click(fields, 1);
        EXPECT_EQ(fields.chkHE, (Boxes{before, false}));
    }
}

TEST(ChkHE, NoOtherBoxChangesAnything) {
    for (const std::size_t box : {0U, 2U, 3U, 4U, 5U, 6U}) {
        MobileExportFields fields;
        fields.chkHE = {false, true, false, true, false, true, false};
        fields.chkHE.at(box) = !fields.chkHE.at(box);
        const Boxes clicked = fields.chkHE;
        chkHE_Click(fields, box);
        EXPECT_EQ(fields.chkHE, clicked) << box;
    }
}

// Storing

/// Five comment lines and, between and behind them, all headings of a settings file that holds the
/// three groups of lines.
std::string SettingsFile(const std::string& common, const std::string& location,
                         const std::string& flags) {
    return ";NORVIK.EXE Konfigurationsdatei\r\n"
           ";NORVIK.EXE configuration file\r\n"
           ";changing this file is allowed, but\r\n"
           ";it will be regenerated\r\n"
           ";if settings are changed by the program\r\n"
           "\r\n[common]\r\n" +
           common + "\r\n[location]\r\n" + location + "\r\n[export flags]\r\n" + flags +
           "\r\n[sync settings]\r\n\r\n[end]\r\n";
}

std::string WrittenIn(const TestFolder& folder) {
    const Bytes bytes = ReadFile(folder / "norvik.ini");
    return {bytes.begin(), bytes.end()};
}

/// Stores and gives the file.
std::string Saved(const MobileExportFields& fields, Settings& settings) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    btnSaveSettings_Click(fields, settings, folder.Path(), desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre("status \"Einstellungen gespeichert\""));
    return WrittenIn(folder);
}

TEST(MobileExportSaveSettings, WritesTheBoxes1To6AndTheSeparatorAmongAllOtherSettings) {
    Settings settings = Berlin();
    settings.Table.SetValue(Setting::Language, u"deutsch");
    settings.Table.SetValue(Setting::LoadFile, u"c:\\büro.t9t");
    settings.Table.SetValue(Setting::Unit, u"0,12");
    settings.Table.SetValue(Setting::WriteMemNumber, u"yes");
    MobileExportFields fields;
    fields.chkHE = {false, true, false, true, false, false, true};
    fields.InpSeparator = u",";
    EXPECT_EQ(Saved(fields, settings),
              SettingsFile("Language=deutsch\r\nLoadFile=c:\\b\xFCro.t9t\r\nUnit=0,12\r\n",
                           "CountryCode=49\r\nRegionCode=30\r\n",
                           "GlobalizeNumber=yes\r\nChange00to+=no\r\nUseReductionFlags=yes\r\n"
                           "DeleteCommaInNames=no\r\nWriteMemNumber=no\r\nUseQuotesForData=yes\r\n"
                           "DataSeparator=,\r\n"));
}

TEST(MobileExportSaveSettings, ATabIsThereAgainAfterTheSettingsWereRead) {
    const TestFolder folder;
    Settings settings;
    MobileExportFields fields;
    fields.InpSeparator = u"\t";
    ScriptedDesktop desktop;
    btnSaveSettings_Click(fields, settings, folder.Path(), desktop);
    Settings read;
    ReadSettingsFile(folder.Path(), read.Table);
    EXPECT_EQ(NVHE_Load(read).InpSeparator, u"\t");
}

TEST(MobileExportSaveSettings, EachBoxHasItsRow) {
    const std::array<std::string, HandyBoxes> keys = {
        "AddRegionCode",      "GlobalizeNumber", "Change00to+",     "UseReductionFlags",
        "DeleteCommaInNames", "WriteMemNumber",  "UseQuotesForData"};
    for (std::size_t checked = 0; checked < HandyBoxes; ++checked) {
        MobileExportFields fields;
        fields.chkHE.at(checked) = true;
        std::string flags;
        for (std::size_t box = 1; box < HandyBoxes; ++box) {
            flags += keys.at(box) + (box == checked ? "=yes\r\n" : "=no\r\n");
        }
        Settings settings;
        EXPECT_EQ(Saved(fields, settings), SettingsFile("", "", flags)) << checked;
    }
}

TEST(MobileExportSaveSettings, AddRegionCodeKeepsItsValue) {
    const std::string others = "GlobalizeNumber=no\r\nChange00to+=no\r\nUseReductionFlags=no\r\n"
                               "DeleteCommaInNames=no\r\nWriteMemNumber=no\r\n"
                               "UseQuotesForData=no\r\nDataSeparator=;\r\n";
    for (const bool checked : {false, true}) {
        MobileExportFields fields;
        fields.chkHE[0] = checked;
        fields.InpSeparator = u";";
        Settings yes;
        yes.Table.SetValue(Setting::AddRegionCode, u"yes");
        EXPECT_EQ(Saved(fields, yes), SettingsFile("", "", "AddRegionCode=yes\r\n" + others));
        Settings no;
        no.Table.SetValue(Setting::AddRegionCode, u"no");
        EXPECT_EQ(Saved(fields, no), SettingsFile("", "", "AddRegionCode=no\r\n" + others));
        Settings none;
        EXPECT_EQ(Saved(fields, none), SettingsFile("", "", others));
    }
}

TEST(MobileExportSaveSettings, TheOptionsAreThereWhenTheDialogOpensAgain) {
    Settings settings;
    MobileExportFields fields;
    fields.chkHE = {true, false, true, false, true, false, true};
    fields.InpSeparator = u"\t";
    Saved(fields, settings);
    const MobileExportFields again = NVHE_Load(settings);
    EXPECT_EQ(again.chkHE, (Boxes{false, false, true, false, true, false, true}));
    EXPECT_EQ(again.InpSeparator, u"\t");
}

TEST(MobileExportSaveSettings, AnEmptySeparatorHasNoLineAndComesBackAsASemicolon) {
    Settings settings;
    settings.Table.SetValue(Setting::DataSeparator, u",");
    EXPECT_EQ(Saved(MobileExportFields(), settings).find("DataSeparator"), std::string::npos);
    EXPECT_EQ(settings.Table.Value(Setting::DataSeparator), u"");
    EXPECT_EQ(NVHE_Load(settings).InpSeparator, u";");
}

TEST(MobileExportSaveSettings, ChangesTheTableInMemoryAndNothingBesideIt) {
    Settings settings = Berlin();
    settings.UnitPrice = 0.15;  // from the command line
    settings.Table.SetValue(Setting::Unit, u"0,12");
    MobileExportFields fields = NVHE_Load(settings);
    fields.chkHE[2] = true;
    Saved(fields, settings);
    EXPECT_EQ(settings.Table.Value(Setting::Change00toPlus), u"yes");
    EXPECT_EQ(settings.Table.Value(Setting::GlobalizeNumber), u"no");
    EXPECT_EQ(settings.Table.Value(Setting::Unit), u"0,12");
    EXPECT_EQ(settings.UnitPrice, 0.15);
    EXPECT_EQ(settings.AreaPrefix, u"030");
    EXPECT_EQ(settings.InternationalPrefix, u"0049");
}

TEST(MobileExportSaveSettings, ASeparatorThatTheFileCannotHoldRaises5AndLeavesTheOldFile) {
    const TestFolder folder;
    const FilePath path = folder.Write("norvik.ini", "old");
    Settings settings;
    MobileExportFields fields;
    fields.InpSeparator = u"→";
    ScriptedDesktop desktop;
    EXPECT_EQ(ErrorOf([&] { btnSaveSettings_Click(fields, settings, folder.Path(), desktop); }), 5);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_EQ(ReadFile(path), Raw("'old'"));
}

#ifndef _WIN32
TEST(MobileExportSaveSettings, AReadOnlyFolderRaises70AndKeepsTheOldFile) {
    const TestFolder folder;
    const FilePath path = folder.Write("norvik.ini", "old");
    fs::permissions(folder.Path(), fs::perms(0555));
    Settings settings;
    MobileExportFields fields;
    fields.chkHE[Change00toPlusBox] = true;
    fields.InpSeparator = u"x";
    ScriptedDesktop desktop;
    {
        const AsAnyUser anyUser;
        EXPECT_EQ(ErrorOf([&] { btnSaveSettings_Click(fields, settings, folder.Path(), desktop); }),
                  70);
    }
    fs::permissions(folder.Path(), fs::perms(0755));
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_EQ(settings.Table.Value(Setting::Change00toPlus), u"");
    EXPECT_EQ(settings.Table.Value(Setting::DataSeparator), u"");
    EXPECT_EQ(ReadFile(path), Raw("'old'"));
}

TEST(MobileExportSaveSettings, ADiskWithoutRoomKeepsTheOldFile) {
    const TestFolder folder;
    const FilePath path = folder.Write("norvik.ini", "old");
    Settings settings;
    ScriptedDesktop desktop;
    {
        const FileSizeLimit limit(100);
        EXPECT_EQ(ErrorOf([&] {
                      btnSaveSettings_Click(MobileExportFields(), settings, folder.Path(), desktop);
                  }),
                  57);
    }
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_EQ(ReadFile(path), Raw("'old'"));
}
#endif

}  // namespace
}  // namespace norvik::test
