#include "tests/qt/windowmobileexport.h"

namespace norvik::test {

namespace {

using testing::ElementsAre;

namespace fs = std::filesystem;

const std::string SaveDialog = "save \"SIM-Surf (*.pbb)|Alle Dateien (*)\" name \"\"";
const std::string Start = "box \"Diese Funktion exportiert das aktuelle Telefonbuch\n"
                          "in ein u.a. von SIM-Surf lesbares Format\n"
                          "ACHTUNG: Diese Funktion liefert nur sinnvolle Ergebnisse, wenn das\n"
                          "Telefonregister keine führenden Nullen enthält!!!\" "
                          "title \"Export\" icon Exclamation buttons OK+Abbrechen default OK";
const std::string StartWithoutZeros =
    "box \"Diese Funktion exportiert das aktuelle Telefonbuch\n"
    "in ein u.a. von SIM-Surf lesbares Format\" "
    "title \"Export\" icon Exclamation buttons OK+Abbrechen default OK";

std::string AskFor(const std::string& entry) {
    return "box \"" + entry +
           "\n\nDiesen Eintrag exportieren?\" title \"Exportabfrage\" icon Question buttons "
           "Abbrechen+Ja+Nein default Ja";
}

TEST_F(WindowMobileExport, ExportsInTheOrderOfTheTableAskingForEachEntry) {
    Drive([this] {
        Click("btnExport");
        EXPECT_EQ(TextOf("Status"), "Telefonbuch exportiert");
        EXPECT_EQ(TextOfField(0), "Anna") << "the entry is shown again";
    });
    Dialogs.ChooseFile(PathIn("handy")).Click(QMessageBox::Ok).Click(QMessageBox::Yes);
    Dialogs.Click(QMessageBox::No).Press(Qt::Key_Return);
    ShowDialog();
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(Opened, SaveDialog, Start, AskFor("Meier, Hans\n1234567"),
                            AskFor(",Meier\n0891234"), AskFor("Anna\n0044201234")));
    EXPECT_EQ(FileText("handy.pbb"), "Meier, Hans;1234567\r\nAnna;0044201234\r\n");
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_THAT(Rows(), ElementsAre("#1: ,Meier (0891234)", "#2: Anna (0044201234) x()",
                                    "#3: Meier, Hans (1234567) ()"));
    EXPECT_TRUE(Window->close()) << "the register is as saved as it was";
}

TEST_F(WindowMobileExport, TheStatusLineFollowsTheExport) {
    PaintedTexts painted(Find<QLabel>("Status"));
    Export({"chkHE(3)"});
    painted.Texts.erase(std::unique(painted.Texts.begin(), painted.Texts.end()),
                        painted.Texts.end());
    painted.Texts.erase(
        std::remove(painted.Texts.begin(), painted.Texts.end(), "Sortieren beendet"),
        painted.Texts.end());
    EXPECT_THAT(painted.Texts,
                ElementsAre("Exportiere Telefonbuch in Textdatei...", "Telefonbuch exportiert"));
}

TEST_F(WindowMobileExport, MarkedEntriesAreExportedWithoutAQuestion) {
    Export({"chkHE(3)"});
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Opened, SaveDialog, Start));
    EXPECT_EQ(FileText("handy.pbb"), "Meier, Hans;1234567\r\nAnna;0044201234\r\n");
}

TEST_F(WindowMobileExport, WithoutAMarkedEntryTheFileIsEmptyAndNoQuestionIsAsked) {
    Load({{.name = "Anna", .tel = "1"}, {.name = "Bernd", .tel = "2"}});
    Export({"chkHE(3)"});
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Opened, SaveDialog, Start));
    EXPECT_EQ(FileText("handy.pbb"), "");
    EXPECT_EQ(TextOf("Status"), "Telefonbuch exportiert");
}

TEST_F(WindowMobileExport, CancelAtTheThirdEntryLeavesTheTwoLinesBefore) {
    Drive([this] { Click("btnExport"); });
    Dialogs.ChooseFile(PathIn("handy.txt")).Click(QMessageBox::Ok).Click(QMessageBox::Yes);
    Dialogs.Click(QMessageBox::Yes).Press(Qt::Key_Escape);
    ShowDialog();
    EXPECT_EQ(Dialogs.Transcript.size(), 6U);
    EXPECT_EQ(FileText("handy.txt"), "Meier, Hans;1234567\r\n,Meier;0891234\r\n");
    EXPECT_EQ(TextOf("Status"), "Telefonbuchexport durch Benutzer abgebrochen.");
}

TEST_F(WindowMobileExport, Box0AddsTheAreaPrefix) {
    Export({"chkHE(0)"});
    EXPECT_EQ(FileText("handy.pbb"),
              "Meier, Hans;0301234567\r\n,Meier;0891234\r\nAnna;0044201234\r\n");
}

TEST_F(WindowMobileExport, Box1MakesNumbersInternational) {
    Export({"chkHE(1)"});
    EXPECT_EQ(FileText("handy.pbb"),
              "Meier, Hans;0049301234567\r\n,Meier;0049891234\r\nAnna;0044201234\r\n");
}

TEST_F(WindowMobileExport, Box1AloneMakesNumbersInternationalToo) {
    Export({"chkHE(1)", "chkHE(0)"});
    EXPECT_EQ(FileText("handy.pbb"),
              "Meier, Hans;0049301234567\r\n,Meier;0049891234\r\nAnna;0044201234\r\n");
}

TEST_F(WindowMobileExport, Box2WritesAPlusAndBox4CutsTheCommaButNotAtTheFirstPlace) {
    Export({"chkHE(1)", "chkHE(2)", "chkHE(4)"});
    EXPECT_EQ(FileText("handy.pbb"),
              "Meier Hans;+49301234567\r\n,Meier;+49891234\r\nAnna;+44201234\r\n");
}

TEST_F(WindowMobileExport, Box5WritesRunningNumbersAndBox6Quotes) {
    Export({"chkHE(3)", "chkHE(5)", "chkHE(6)"}, QString::fromUtf8("€"));
    EXPECT_EQ(FileText("handy.pbb"), "\"1\"\x80\"Meier, Hans\"\x80\"1234567\"\r\n"
                                     "\"2\"\x80\"Anna\"\x80\"0044201234\"\r\n");
}

TEST_F(WindowMobileExport, AnEmptySeparatorPutsNothingBetweenTheValues) {
    Export({"chkHE(3)"}, "");
    EXPECT_EQ(FileText("handy.pbb"), "Meier, Hans1234567\r\nAnna0044201234\r\n");
}

TEST_F(WindowMobileExport, AWrongNumberIsReportedAboveTheDialogAndWrittenAllTheSame) {
    Load({{.name = "Anna", .tel = "+0301"}});
    Drive([this] { Click("btnExport"); });
    Dialogs.ChooseFile(PathIn("handy")).Click(QMessageBox::Ok).Click(QMessageBox::Yes);
    Dialogs.Click(QMessageBox::Ok);
    ShowDialog();
    EXPECT_EQ(Dialogs.Transcript.back(),
              OkBox("Fehler in Rufnummer: +0301", "Norvik:Globalize", "Information"));
    EXPECT_EQ(FileText("handy.pbb"), "Anna;+0301\r\n");
}

TEST_F(WindowMobileExport, WithoutLineAccessZerosThereIsNoWarning) {
    Dialogs.Click(QMessageBox::Yes);
    Trigger("mnuBearbeitenNullEntf");
    Dialogs.Transcript.clear();
    Export({"chkHE(3)"});
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Opened, SaveDialog, StartWithoutZeros));
}

TEST_F(WindowMobileExport, ReturnExportsFromEveryInput) {
    Drive([this] {
        QTest::keyClick(Find<QWidget>("chkHE(0)"), Qt::Key_Return);
        QTest::keyClick(Separator(), Qt::Key_Return);
        QTest::keyClick(Find<QWidget>("btnExport"), Qt::Key_Return);
    });
    Dialogs.Cancel().Cancel().Cancel();
    ShowDialog();
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Opened, SaveDialog, SaveDialog, SaveDialog));
}

TEST_F(WindowMobileExport, RefusingTheExportWritesNothing) {
    Drive([this] {
        Click("btnExport");
        EXPECT_EQ(TextOfField(0), "getippt");
        Click("btnExport");
        Click("btnExport");
    });
    Dialogs.Cancel().ChooseFile(PathIn("handy")).Cancel();
    Dialogs.ChooseFile(PathIn("handy")).Press(Qt::Key_Escape);
    ShowDialog();
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(Opened, SaveDialog, SaveDialog, Start, SaveDialog, Start));
    EXPECT_FALSE(fs::exists(Folder / "handy.pbb"));
    EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
}

TEST_F(WindowMobileExport, AFileIsKeptOrReplacedAsTheOverwriteQuestionIsAnswered) {
    Folder.Write("handy.pbb", std::string(5000, 'x'));
    Drive([this] {
        Click("chkHE(3)");
        Click("btnExport");
        EXPECT_EQ(FileText("handy.pbb"), std::string(5000, 'x'));
        Click("btnExport");
    });
    Dialogs.ChooseFileAndKeep(PathIn("handy"));
    Dialogs.ChooseFile(PathIn("handy")).Click(QMessageBox::Yes).Click(QMessageBox::Ok);
    ShowDialog();
    EXPECT_EQ(FileText("handy.pbb"), "Meier, Hans;1234567\r\nAnna;0044201234\r\n");
}

TEST_F(WindowMobileExport, AnExportThatFailsIsARuntimeErrorAndTheDialogStaysOpen) {
    fs::create_symlink("/dev/full", Folder / "voll.pbb");
    Drive([this] {
        Click("chkHE(3)");
        Click("btnExport");
        EXPECT_EQ(TextOfField(0), "getippt");
        Click("btnExport");
        EXPECT_EQ(Ticked(), "3");
        EXPECT_NE(TextOf("Status"), "Telefonbuch exportiert");
    });
    Dialogs.ChooseFile(PathIn("fehlt/handy")).Click(QMessageBox::Ok).Click(QMessageBox::Ok);
    Dialogs.ChooseFile(PathIn("voll")).Click(QMessageBox::Yes).Click(QMessageBox::Ok);
    Dialogs.Click(QMessageBox::Ok);
    ShowDialog();
    ASSERT_EQ(Dialogs.Transcript.size(), 8U);
    EXPECT_EQ(Dialogs.Transcript[3], RuntimeErrorBox(76, "Pfad nicht gefunden"));
    EXPECT_EQ(Dialogs.Transcript[7], RuntimeErrorBox(61, "Datenträger voll"));
    EXPECT_TRUE(Window->close());
}

}  // namespace

}  // namespace norvik::test
