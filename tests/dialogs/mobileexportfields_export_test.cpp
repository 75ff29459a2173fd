// The button of the mobile export's dialog that exports.
#include "dialogs/mobileexportfields.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/settings.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

using Boxes = std::array<bool, HandyBoxes>;

const std::string Dialog = "save \"SIM-Surf|*.pbb|Alle Dateien|*.*\" ending .pbb -> ";
const std::string Start = "box \"Diese Funktion exportiert das aktuelle Telefonbuch\\r\\n"
                          "in ein u.a. von SIM-Surf lesbares Format\" title \"Export\" "
                          "icon Exclamation buttons Ok+Cancel default Ok -> ";
const std::string Exporting = "status \"Exportiere Telefonbuch in Textdatei...\"";
const std::string Exported = "status \"Telefonbuch exportiert\"";

RegisterState One() {
    return RegisterOf({Entry(u"Meier, Hans", u"0044 1", u"()")});
}

/// The fields with the given boxes and ";".
MobileExportFields With(const Boxes& boxes) {
    MobileExportFields fields;
    fields.chkHE = boxes;
    fields.InpSeparator = u";";
    return fields;
}

constexpr Boxes ByMark = {false, false, false, true};

TEST(MobileExportButton, AsksForTheFileExportsAndShowsTheEntryAgain) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.pbb").AnswerBox(Button::Ok);
    btnExport_Click(With(ByMark), One(), Berlin(), desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + (folder / "a.pbb").string(), Start + "Ok",
                                                Exporting, Exported, "entry"));
    EXPECT_EQ(ReadFile(folder / "a.pbb"), Raw("'Meier, Hans;00441' 0D 0A"));
}

TEST(MobileExportButton, CancelInTheFileDialogEndsTheOperation) {
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    btnExport_Click(With(ByMark), One(), Berlin(), desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + "cancel"));
}

TEST(MobileExportButton, CancelAtTheFirstBoxWritesNothingAndShowsTheEntryAgain) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a").AnswerBox(Button::Cancel);
    btnExport_Click(With(ByMark), One(), Berlin(), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + (folder / "a").string(), Start + "Cancel", "entry"));
    EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST(MobileExportButton, AStoppedExportShowsTheEntryAgain) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.pbb").AnswerBox(Button::Ok).AnswerBox(Button::Cancel);
    btnExport_Click(With({}), One(), Berlin(), desktop);
    ASSERT_EQ(desktop.Transcript.size(), 7U);
    EXPECT_EQ(desktop.Transcript[5], "status \"Telefonbuchexport durch Benutzer abgebrochen.\"");
    EXPECT_EQ(desktop.Transcript[6], "entry");
}

TEST(MobileExportButton, ANameWithoutAPointGetsTheEnding) {
    const std::vector<std::pair<FilePath, FilePath>> names = {
        {"handy", "handy.pbb"}, {"handy.txt", "handy.txt"}, {"a.b/handy", "a.b/handy.pbb"},
        {"handy.", "handy."},   {"handy.PBB", "handy.PBB"},
    };
    for (const auto& name : names) {
        const TestFolder folder;
        fs::create_directory(folder / "a.b");
        ScriptedDesktop desktop;
        desktop.AnswerFile(folder / name.first).AnswerBox(Button::Ok);
        btnExport_Click(With(ByMark), One(), Berlin(), desktop);
        EXPECT_TRUE(fs::is_regular_file(folder / name.second)) << name.second;
    }
}

/// What the dialog with these boxes exports of One(), asked or not.
std::string Exports(const Boxes& boxes, const Settings& settings) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.pbb").AnswerBox(Button::Ok);
    if (!boxes[3]) {
        desktop.AnswerBox(Button::Yes);
    }
    RegisterState state = One();
    state.Register(1).Tel = u"12";
    state.Register(2) = Entry(u"B", u"00441", u"()");
    SetCount(state, 2);
    if (!boxes[3]) {
        desktop.AnswerBox(Button::No);
    }
    btnExport_Click(With(boxes), state, settings, desktop);
    const Bytes bytes = ReadFile(folder / "a.pbb");
    return {bytes.begin(), bytes.end()};
}

TEST(MobileExportButton, EachBoxReachesTheFile) {
    const Settings settings = Berlin();
    EXPECT_EQ(Exports({}, settings), "Meier, Hans;12\r\n") << "asked for each entry";
    EXPECT_EQ(Exports({false, false, false, true}, settings), "Meier, Hans;12\r\nB;00441\r\n");
    EXPECT_EQ(Exports({true, false, false, true}, settings), "Meier, Hans;03012\r\nB;00441\r\n");
    EXPECT_EQ(Exports({false, true, false, true}, settings), "Meier, Hans;00493012\r\nB;00441\r\n");
    EXPECT_EQ(Exports({true, true, false, true}, settings), "Meier, Hans;00493012\r\nB;00441\r\n");
    EXPECT_EQ(Exports({false, false, true, true}, settings), "Meier, Hans;12\r\nB;+441\r\n");
    EXPECT_EQ(Exports({false, false, false, true, true}, settings), "Meier Hans;12\r\nB;00441\r\n");
    EXPECT_EQ(Exports({false, false, false, true, false, true}, settings),
              "1;Meier, Hans;12\r\n2;B;00441\r\n");
    EXPECT_EQ(Exports({false, false, false, true, false, false, true}, settings),
              "\"Meier, Hans\";\"12\"\r\n\"B\";\"00441\"\r\n");
}

TEST(MobileExportButton, TheBoxesCountNotTheStoredSettings) {
    Settings settings = Berlin();
    for (const Setting setting :
         {Setting::GlobalizeNumber, Setting::Change00toPlus, Setting::DeleteCommaInNames,
          Setting::WriteMemNumber, Setting::UseQuotesForData}) {
        settings.Table.SetValue(setting, u"yes");
    }
    settings.Table.SetValue(Setting::DataSeparator, u"/");
    EXPECT_EQ(Exports(ByMark, settings), "Meier, Hans;12\r\nB;00441\r\n");
}

TEST(MobileExportButton, AFileThatCannotBeWrittenRaisesItsErrorAndShowsNoEntry) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "fehlt/a.pbb").AnswerBox(Button::Ok);
    try {
        btnExport_Click(With(ByMark), One(), Berlin(), desktop);
        ADD_FAILURE() << "nothing was raised";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::PathNotFound);
    }
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + (folder / "fehlt/a.pbb").string(), Start + "Ok", Exporting,
                            "status \"Nicht gespeichert: Pfad nicht gefunden\""));
}

}  // namespace
}  // namespace norvik::test
