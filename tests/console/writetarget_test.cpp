// What the targets hold is compared with the window's files in convert_test.cpp; here is the rest.
#include "console/writetarget.h"

#include "tests/support/builders.h"
#include "tests/support/pdftext.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

Settings SettingsWith(std::initializer_list<std::pair<Setting, TextView>> rows) {
    Settings settings;
    for (const auto& row : rows) {
        settings.Table.SetValue(row.first, row.second);
    }
    return settings;
}

TEST(MobileOptions, AreThoseOfTheSettingsAndTheTickedBoxes) {
    const MobileExportOptions plain = MobileOptions({}, Settings());
    EXPECT_FALSE(plain.AddRegionCode || plain.GlobalizeNumber || plain.Change00toPlus ||
                 plain.UseReductionFlags || plain.DeleteCommaInNames || plain.WriteMemNumber ||
                 plain.UseQuotesForData);
    EXPECT_EQ(plain.DataSeparator, u";");

    const Settings settings = SettingsWith({{Setting::WriteMemNumber, u"yes"},
                                            {Setting::UseQuotesForData, u"no"},
                                            {Setting::DataSeparator, u","}});
    const MobileExportOptions both =
        MobileOptions({.Boxes = {GlobalizeNumberBox, UseQuotesForDataBox}}, settings);
    EXPECT_TRUE(both.WriteMemNumber);
    EXPECT_TRUE(both.UseQuotesForData);
    EXPECT_TRUE(both.GlobalizeNumber);
    EXPECT_TRUE(both.AddRegionCode);  // goes with it in the dialog, too
    EXPECT_FALSE(both.Change00toPlus);
    EXPECT_FALSE(both.UseReductionFlags);
    EXPECT_EQ(both.DataSeparator, u",");
    EXPECT_TRUE(MobileOptions({.OnlyMarked = true}, settings).UseReductionFlags);
}

TEST(TargetOptions, AreThoseOfTheTarget) {
    const TargetOptions options = TargetOptionsOf({.OnlyMarked = true,
                                                   .Quoted = true,
                                                   .Exclusions = u"1|2",
                                                   .Boxes = {DeleteCommaInNamesBox}},
                                                  Settings());
    EXPECT_TRUE(options.OnlyMarked);
    EXPECT_TRUE(options.Quoted);
    EXPECT_EQ(options.Exclusions, u"1|2");
    EXPECT_TRUE(options.Mobile.DeleteCommaInNames);
    EXPECT_TRUE(options.Mobile.UseReductionFlags);
    EXPECT_FALSE(TargetOptionsOf({}, Settings()).Quoted);
}

TEST(WriteTarget, WarnsOfARegisterThatIsTooLargeForTheIp286) {
    const TestFolder folder;
    RegisterState state;
    SetCount(state, 301);
    ScriptedDesktop desktop;
    EXPECT_TRUE(WriteTarget({.To = FileFormat::Ip286}, Settings(), state, folder / "a", desktop));
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(OkBox(u"Der Datensatz wird 301 Datensätze beinhalten, ein Yealink T28 "
                                  u"speichert jedoch maximal 300 Datensätze. Der Import wird "
                                  u"einige Datensätze ignorieren!",
                                  u"WARNHINWEIS", "Critical"),
                            OkBox(u"301 Einträge exportiert\r\n0 Einträge wurden ignoriert\r\n",
                                  u"Exportergebnis", "Information")));
}

TEST(WriteTarget, TellsWhetherThereWasAnythingToWrite) {
    const TestFolder folder;
    RegisterState state = RegisterOf({Entry(u"Anna", u"1")});
    ScriptedDesktop desktop;
    const ConverterOptions options = {.To = FileFormat::Register193, .OnlyMarked = true};
    EXPECT_FALSE(WriteTarget(options, Settings(), state, folder / "a", desktop));
    EXPECT_FALSE(std::filesystem::exists(folder / "a"));
    SetExportMark(state, 1, true);
    EXPECT_TRUE(WriteTarget(options, Settings(), state, folder / "a", desktop));
    EXPECT_TRUE(std::filesystem::exists(folder / "a"));
}

TEST(WriteTarget, WritesThePhoneListOfMarkedEntriesAlone) {
    const TestFolder folder;
    RegisterState state = RegisterOf({Entry(u"Anna", u"1"), Entry(u"Bert", u"2")});
    ScriptedDesktop desktop;
    const ConverterOptions options = {.OnPaper = true, .OnlyMarked = true};
    EXPECT_FALSE(WriteTarget(options, Settings(), state, folder / "a.pdf", desktop));
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(OkBox(u"Keine Datensätze zum Drucken!", u"Fehler", "Exclamation")));
    EXPECT_THAT(FilesIn(folder.Path()), IsEmpty());
    SetExportMark(state, 2, true);
    EXPECT_TRUE(WriteTarget(options, Settings(), state, folder / "a.pdf", desktop));
    EXPECT_THAT(TextOfPdf(folder / "a.pdf"),
                StartsWith("B\nBert 2\nTelefonliste 1 markierter Eintrag B\nSeite 1 von 1 "));
}

TEST(ReportWriteError, ShowsTheBoxThatTheWindowShows) {
    const RuntimeError full(ErrorNumber::DiskFull);
    const auto shown = [&full](FileFormat format) {
        ScriptedDesktop desktop;
        ReportWriteError({.To = format}, full, desktop);
        return desktop.Transcript;
    };
    EXPECT_THAT(shown(FileFormat::Register195), IsEmpty());
    EXPECT_THAT(shown(FileFormat::Register193), IsEmpty());
    EXPECT_THAT(shown(FileFormat::Phonebook175), IsEmpty());
    EXPECT_THAT(shown(FileFormat::Csv),
                ElementsAre(OkBox(u"Undef'd Error: mnuDateiSaveCSV:61Datenträger voll")));
    EXPECT_THAT(shown(FileFormat::Ip286),
                ElementsAre(OkBox(u"Undef'd Error: mnuDateiSaveIP286:61Datenträger voll")));
    const std::string unhandled =
        OkBox(u"Laufzeitfehler '61':\r\n\r\nDatenträger voll", u"NORVIK", "Critical");
    EXPECT_THAT(shown(FileFormat::MobileExport), ElementsAre(unhandled));
    EXPECT_THAT(shown(FileFormat::ChargeStatement), ElementsAre(unhandled));
    ScriptedDesktop desktop;
    ReportWriteError({.OnPaper = true}, full, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(OkBox(u"Undef'd Error: mnuDateiSavePdf:61Datenträger voll")));
}

}  // namespace
}  // namespace norvik::test
