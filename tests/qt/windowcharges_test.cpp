#include "tests/qt/windowfixture.h"
#include "tests/support/times.h"

#include <algorithm>
#include <chrono>
#include <filesystem>

namespace norvik::test {

namespace {

using testing::ElementsAre;

const std::string Statement = "box \"Diese Aktion speichert alle Gebühren in einer Textdatei.\" "
                              "title \"Auszug\" icon Exclamation buttons OK+Abbrechen default OK";
const std::string SaveDialog = "save \"norvik-Gebühren (*.geb)|Alle Dateien (*)\" name \"\"";
const std::string Delete = "box \"Diese Aktion löscht alle individuellen Gebührenzähler!\n\" "
                           "title \"Zähler löschen\" icon Exclamation buttons OK+Abbrechen "
                           "default OK";

/// The charges menu on a register of four entries; the unit costs 0,12, entry 2 is shown.
class WindowCharges : public WindowTest {
  protected:
    WindowCharges() {
        Load({{.name = "M\x81ller", .tel = "4", .msnFilter = 0x1F, .gebEinh = 1000},
              {.name = "Anna", .tel = "1", .msnFilter = 0x1F, .gebEinh = 12},
              {.name = "Bernd", .tel = "2", .msnFilter = 0x0F, .gebEinh = 500},
              {.name = "Carla", .tel = "3", .msnFilter = 0xD2}});
        Selector()->setValue(2);
        Retype(0, "getippt");
    }

    /// Loads the register again with a known time of its file.
    void LoadWithDate(FileTime date) {
        std::filesystem::last_write_time(Folder / "register.t9t",
                                         std::chrono::file_clock::from_sys(date));
        Dialogs.ChooseFile(PathIn("register.t9t"));
        Trigger("mnuDateiLoadNV");
        Dialogs.Transcript.clear();
    }

    /// The statement's lines from the fourth on: what does not depend on the file.
    std::string AmountsOf(const char* name) const {
        const std::string text = FileText(name);
        const std::size_t start = text.find("EINZELGEB\xDCHR");
        return start == std::string::npos ? "no heading: " + text : text.substr(start);
    }

    void ExpectUnchanged() const {
        EXPECT_EQ(TextOf("AnzGeb"), "60,00");
        EXPECT_EQ(TextOfField(0), "getippt");
        EXPECT_EQ(TextOf("AnzNr"), "2");
        EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
        EXPECT_EQ(ButtonColour(), NeutralColour());
    }

    /// The counters of all entries.
    std::vector<std::string> Counters() {
        std::vector<std::string> counters;
        for (const int position : {4, 3, 2, 1}) {
            Selector()->setValue(position);
            counters.push_back(TextOfField(3));
        }
        return counters;
    }
};

TEST_F(WindowCharges, TheStatementListsTheCountedEntriesAndTheirSum) {
    LoadWithDate(LocalTime(2005, 12, 24, 8, 30, 7));
    Selector()->setValue(2);
    Retype(0, "getippt");
    Dialogs.Click(QMessageBox::Ok).ChooseFile(PathIn("auszug"));
    Trigger("mnuGebAuszug");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Statement, SaveDialog));
    EXPECT_EQ(FileText("auszug.geb"), "Norvik Geb\xFChrenauszug\r\n"
                                      "Typ: 195   Zeit: 24.12.2005 08:30:07\r\n"
                                      "Quelle: " +
                                          PathIn("register.t9t").toStdString() +
                                          "\r\n"
                                          "EINZELGEB\xDCHR\tNAME\r\n"
                                          "1,44\tAnna\r\n"
                                          "0,00\tCarla\r\n"
                                          "120,00\tM\xFCller\r\n"
                                          "\r\n"
                                          "121,44\tGESAMTSUMME\r\n");
    EXPECT_EQ(TextOf("Status"), "Gebührenauszug erstellt.");
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_EQ(TextOfField(0), "Bernd") << "the entry is shown again";
    EXPECT_TRUE(Window->close()) << "the register is as saved as it was";
}

TEST_F(WindowCharges, TheStatusLineFollowsTheStatement) {
    PaintedTexts painted(Find<QLabel>("Status"));
    Dialogs.Press(Qt::Key_Return).ChooseFile(PathIn("auszug.txt"));
    Trigger("mnuGebAuszug");
    painted.Texts.erase(std::unique(painted.Texts.begin(), painted.Texts.end()),
                        painted.Texts.end());
    painted.Texts.erase(
        std::remove(painted.Texts.begin(), painted.Texts.end(), "Sortieren beendet"),
        painted.Texts.end());
    EXPECT_THAT(painted.Texts,
                ElementsAre("Gebührenauszug wird erstellt...", "Gebührenauszug erstellt."));
    EXPECT_TRUE(FileText("auszug.txt").starts_with("Norvik Geb\xFChrenauszug\r\n"));
}

TEST_F(WindowCharges, ARefusedStatementWritesNothing) {
    Dialogs.Cancel().Press(Qt::Key_Escape).Close();
    for (int i = 0; i < 3; ++i) {
        Trigger("mnuGebAuszug");
        ExpectUnchanged();
    }
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Statement, Statement, Statement));
    Dialogs.Transcript.clear();
    Dialogs.Click(QMessageBox::Ok).Cancel();
    Trigger("mnuGebAuszug");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Statement, SaveDialog));
    ExpectUnchanged();
}

TEST_F(WindowCharges, AStatementIsKeptWhenTheOverwriteQuestionIsAnsweredNo) {
    Folder.Write("auszug.geb", "alt");
    Dialogs.Click(QMessageBox::Ok).ChooseFileAndKeep(PathIn("auszug"));
    Trigger("mnuGebAuszug");
    EXPECT_EQ(Dialogs.Transcript.size(), 3U);
    EXPECT_EQ(FileText("auszug.geb"), "alt");
    ExpectUnchanged();
}

TEST_F(WindowCharges, AStatementThatCannotBeWrittenIsARuntimeError) {
    Dialogs.Click(QMessageBox::Ok).ChooseFile(PathIn("fehlt/auszug")).Click(QMessageBox::Ok);
    Trigger("mnuGebAuszug");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(Statement, SaveDialog, RuntimeErrorBox(76, "Pfad nicht gefunden")));
    EXPECT_EQ(TextOfField(0), "getippt");
    std::filesystem::create_symlink("/dev/full", Folder / "voll.geb");
    Dialogs.Click(QMessageBox::Ok)
        .ChooseFile(PathIn("voll"))
        .Click(QMessageBox::Yes)
        .Click(QMessageBox::Ok);
    Trigger("mnuGebAuszug");
    EXPECT_EQ(Dialogs.Transcript.back(), RuntimeErrorBox(61, "Datenträger voll"));
    EXPECT_NE(TextOf("Status"), "Gebührenauszug erstellt.");
}

TEST_F(WindowCharges, BeforeAnyLoadTheStatementHasNoSourceAndATotalOfZero) {
    Open();
    Dialogs.Click(QMessageBox::Ok).ChooseFile(PathIn("leer"));
    Trigger("mnuGebAuszug");
    EXPECT_EQ(FileText("leer.geb"), "Norvik Geb\xFChrenauszug\r\n"
                                    "Typ:    Zeit: \r\n"
                                    "Quelle: \r\n"
                                    "EINZELGEB\xDCHR\tNAME\r\n"
                                    "\r\n"
                                    "0,00\tGESAMTSUMME\r\n");
}

TEST_F(WindowCharges, AnAmountHasNoGrouping) {
    Open("/g12345,67");
    Load({{.name = "Anna", .tel = "1", .msnFilter = 0x1F, .gebEinh = 10}});
    Dialogs.Click(QMessageBox::Ok).ChooseFile(PathIn("auszug"));
    Trigger("mnuGebAuszug");
    EXPECT_EQ(AmountsOf("auszug.geb"),
              "EINZELGEB\xDCHR\tNAME\r\n123456,70\tAnna\r\n\r\n123456,70\tGESAMTSUMME\r\n");
}

TEST_F(WindowCharges, DeletingSetsEveryCounterToZeroAndLeavesWhatIsTyped) {
    ASSERT_EQ(TextOf("AnzGeb"), "60,00");
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuGebDelete");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Delete));
    EXPECT_EQ(TextOf("Status"), "Alle individuellen Gebührenzähler wurden gelöscht.");
    EXPECT_EQ(TextOf("AnzGeb"), "0,00");
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_THAT(Counters(), ElementsAre("0", "0", "0", "0"));
    EXPECT_TRUE(IsChecked("chkCharge")) << "entry 1 goes on counting";
    EXPECT_THAT(Rows(),
                ElementsAre("#1: Anna (1)", "#2: Bernd (2)", "#3: Carla (3)", "#4: Müller (4)"));
    EXPECT_TRUE(Window->close()) << "the register's state of being saved stays as it was";
}

TEST_F(WindowCharges, DeletedCountersDoNotComeBackWithTheShownEntry) {
    Dialogs.Press(Qt::Key_Return);
    Trigger("mnuGebDelete");
    Click("btnSaveChange");
    EXPECT_THAT(Counters(), ElementsAre("0", "0", "0", "0"));
}

TEST_F(WindowCharges, AfterDeletingAStatementListsTheSameEntriesWithZeroEach) {
    Dialogs.Click(QMessageBox::Ok).Click(QMessageBox::Ok).ChooseFile(PathIn("auszug"));
    Trigger("mnuGebDelete");
    Trigger("mnuGebAuszug");
    EXPECT_EQ(AmountsOf("auszug.geb"), "EINZELGEB\xDCHR\tNAME\r\n"
                                       "0,00\tAnna\r\n0,00\tCarla\r\n0,00\tM\xFCller\r\n"
                                       "\r\n0,00\tGESAMTSUMME\r\n");
}

TEST_F(WindowCharges, AChoiceThatIsNotStoredStaysPendingWhenTheCountersAreDeleted) {
    Click("chkTon");
    ASSERT_EQ(ButtonColour(), Pending);
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuGebDelete");
    EXPECT_EQ(ButtonColour(), Pending);
    EXPECT_TRUE(IsChecked("chkTon"));
}

TEST_F(WindowCharges, RefusingToDeleteChangesNothing) {
    Dialogs.Cancel().Press(Qt::Key_Escape).Close();
    for (int i = 0; i < 3; ++i) {
        Trigger("mnuGebDelete");
        ExpectUnchanged();
    }
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Delete, Delete, Delete));
    EXPECT_THAT(Counters(), ElementsAre("1000", "0", "500", "12"));
}

}  // namespace

}  // namespace norvik::test
