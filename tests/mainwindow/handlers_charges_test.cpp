// The charges menu and the call list as the main window starts them.
#include "mainwindow/handlers.h"
#include "mainwindow/menu.h"
#include "tests/support/handlerfixture.h"
#include "tests/support/testfolder.h"

#include <algorithm>

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

const std::string ResetQuestion =
    "box \"Diese Aktion löscht alle individuellen Gebührenzähler!\\r\\n\" title \"Zähler löschen\" "
    "icon Exclamation buttons Ok+Cancel default Ok -> ";
const std::string ResetDone = "status \"Alle individuellen Gebührenzähler wurden gelöscht.\"";
const std::string StatementQuestion =
    "box \"Diese Aktion speichert alle Gebühren in einer Textdatei.\" title \"Auszug\" icon "
    "Exclamation buttons Ok+Cancel default Ok -> ";

class Charges : public HandlerFixture {
  protected:
    Charges() {
        program.Set.UnitPrice = 0.12;
        RegisterState state = RegisterOfNames({u"Anna", u"Bernd"});
        state.Register(1).MsnFilter = 0x93;  // MSN 4, counter on, VIP
        state.Register(1).GebEinh = 12;
        state.Register(2).GebEinh = 7;
        Given(std::move(state));
    }

    /// Runs the menu item of this name.
    void Run(std::string_view name) {
        const auto rows = MenuTable();
        const auto row = std::find_if(rows.begin(), rows.end(), [&](const MenuRow& candidate) {
            return candidate.Name == name;
        });
        ASSERT_NE(row, rows.end()) << name;
        row->Run(program, desktop, desktop);
    }

    TestFolder folder;
};

TEST_F(Charges, TheResetShowsAnAmountOf0AtOnceAndNothingElseAnew) {
    ASSERT_EQ(program.Fields.AnzGeb, u"1,44");
    Field(0) = u"being typed";
    program.Fields.btnSaveChange = EditState::Pending;
    desktop.AnswerBox(Button::Ok);

    mnuGebDelete(program, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{ResetQuestion + "Ok", ResetDone}));
    EXPECT_EQ(program.Fields.AnzGeb, u"0,00");
    EXPECT_EQ(Field(3), u"0");
    EXPECT_EQ(Field(0), u"being typed");
    EXPECT_TRUE(program.Fields.chkCharge);
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
    EXPECT_EQ(program.State.Register(1).GebEinh, 0);
    EXPECT_EQ(program.State.Register(1).MsnFilter, 0x93);
    EXPECT_EQ(program.State.Register(2).GebEinh, 0);
    EXPECT_EQ(program.State.Register(2).MsnFilter, 15);
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(Charges, StoringTheShownEntryAfterTheResetDoesNotBringTheUnitsBack) {
    desktop.AnswerBox(Button::Ok);
    mnuGebDelete(program, desktop);
    btnSaveChange_Click(program, desktop);
    EXPECT_EQ(program.State.Register(1).GebEinh, 0);
    EXPECT_EQ(program.Fields.AnzGeb, u"0,00");
    EXPECT_EQ(Field(3), u"0");
}

TEST_F(Charges, ACancelledResetKeepsTheAmount) {
    const Contents before = ContentsOf(program.State);
    desktop.AnswerBox(Button::Cancel);
    mnuGebDelete(program, desktop);
    EXPECT_EQ(desktop.Transcript, Lines{ResetQuestion + "Cancel"});
    EXPECT_EQ(program.Fields.AnzGeb, u"1,44");
    EXPECT_TRUE(ContentsOf(program.State) == before);
}

TEST_F(Charges, TheResetsMenuItemRunsIt) {
    desktop.AnswerBox(Button::Ok);
    Run("mnuGebDelete");
    EXPECT_EQ(program.State.Register(1).GebEinh, 0);
    EXPECT_EQ(program.Fields.AnzGeb, u"0,00");
}

TEST_F(Charges, TheStatementsMenuItemTakesTheUnitPriceOfTheSettings) {
    program.Set.UnitPrice = 0.25;
    const Contents before = ContentsOf(program.State);
    const FilePath path = folder / "a.geb";
    desktop.AnswerBox(Button::Ok).AnswerFile(path);

    Run("mnuGebAuszug");

    EXPECT_EQ(
        desktop.Transcript,
        (Lines{StatementQuestion + "Ok",
               "save \"norvik-Gebühren|*.geb|Alle Dateien|*.*\" ending .geb -> " + path.string(),
               "status \"Gebührenauszug wird erstellt...\"", "status \"Gebührenauszug erstellt.\"",
               "entry"}));
    EXPECT_EQ(ReadFile(path),
              Raw("'Norvik Geb' FC 'hrenauszug' 0D 0A 'Typ:    Zeit: ' 0D 0A 'Quelle: ' 0D 0A"
                  "'EINZELGEB' DC 'HR' 09 'NAME' 0D 0A '3,00' 09 'Anna' 0D 0A"
                  "0D 0A '3,00' 09 'GESAMTSUMME' 0D 0A"));
    EXPECT_EQ(program.Fields.AnzGeb, u"3,00");
    EXPECT_TRUE(ContentsOf(program.State) == before);
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(Charges, TheStatementShowsTheStoredEntryInsteadOfWhatIsBeingTyped) {
    Field(0) = u"being typed";
    program.Fields.btnSaveChange = EditState::Pending;
    desktop.AnswerBox(Button::Ok).AnswerFile(folder / "a.geb");
    Run("mnuGebAuszug");
    EXPECT_EQ(Field(0), u"Anna");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Neutral);
    EXPECT_EQ(program.State.Register(1).Name, u"Anna");
}

TEST_F(Charges, ACancelledStatementKeepsWhatIsBeingTyped) {
    Field(0) = u"being typed";
    desktop.AnswerBox(Button::Cancel);
    Run("mnuGebAuszug");
    EXPECT_EQ(desktop.Transcript, Lines{StatementQuestion + "Cancel"});
    EXPECT_EQ(Field(0), u"being typed");
}

TEST_F(Charges, TheCallListsMenuItemDoesNotTouchTheRegister) {
    Field(0) = u"being typed";
    program.State.RegisterSaved = false;
    const Contents before = ContentsOf(program.State);
    const FilePath input = folder.Write(
        "a.t9a", Raw("06 12 'Anrufliste 195/193' 02 01 06 0A '0512241830' 06 03 '030' 01 00"));
    desktop.AnswerFile(input).AnswerText(u"3");

    Run("mnuDateiConvCallListCSV");

    EXPECT_EQ(
        desktop.Transcript,
        (Lines{"open \"Anrufliste|*.t9a|Alle Dateien|*.*\" ending .t9a -> " + input.string(),
               "input \"MSN zu 24.12.2005 18:30 030\" title \"Anruferliste-Ergänzung MSN\" preset "
               "\"0\" -> \"3\"",
               "box \"Anruferliste wurde in Datei\\r\\n" + (folder / "a.csv").string() +
                   " gespeichert.\" title \"Anruferliste\" icon Information buttons Ok default Ok "
                   "-> Ok",
               "status \"Gespeichert: " + (folder / "a.csv").string() + "\""}));
    EXPECT_EQ(ReadFile(folder / "a.csv"), Raw("'00;24.12.2005 18:30;3;030' 0D 0A"));
    EXPECT_TRUE(ContentsOf(program.State) == before);
    EXPECT_FALSE(program.State.RegisterSaved);
    EXPECT_TRUE(program.State.File.Path.empty());
    EXPECT_EQ(program.State.AnzGes, 2);
    EXPECT_EQ(Field(0), u"being typed");
}

}  // namespace
}  // namespace norvik::test
