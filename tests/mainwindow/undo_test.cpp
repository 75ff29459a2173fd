#include "mainwindow/undo.h"

#include "base/runtimeerror.h"
#include "mainwindow/menu.h"
#include "registertools/sortregister.h"
#include "tests/support/handlerfixture.h"

#include <gmock/gmock.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

class UndoTest : public HandlerFixture {
  protected:
    void Start(RegisterState state, int position = 1) {
        Given(std::move(state), position);
        StartHistory(program.Past, program.State);
        desktop.Transcript.clear();
    }

    /// Runs a handler as the window does.
    void Do(void (*handler)(Program&, Desktop&), TextView what) {
        RunStep(
            program, what, [&] { handler(program, desktop); }, desktop);
    }
    void Undo() { Do(mnuBearbeitenUndo, {}); }
    void Redo() { Do(mnuBearbeitenRedo, {}); }

    void GoTo(int position) {
        RunStep(
            program, {}, [&] { Satzwahl_Change(program, position, desktop); }, desktop);
    }
};

TEST_F(UndoTest, WithoutAStepThereIsNothingToUndo) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    EXPECT_FALSE(CanUndo(program));
    EXPECT_FALSE(CanRedo(program));
    EXPECT_EQ(UndoCaption(program), u"&Rückgängig");
    EXPECT_EQ(RedoCaption(program), u"&Wiederholen");
    Undo();
    Redo();
    EXPECT_THAT(desktop.Transcript, ElementsAre("pointer Normal", "pointer Normal"));
}

TEST_F(UndoTest, AnErasedEntryComesBackAndIsShown) {
    Start(RegisterOfNames({u"Anna", u"Bert", u"Carl"}), 2);
    Do(btnErase_Click, EraseStep);
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Carl"));
    EXPECT_EQ(UndoCaption(program), u"&Rückgängig: Eintrag löschen");
    desktop.Transcript.clear();
    Undo();
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bert", u"Carl"));
    EXPECT_EQ(Field(NameField), u"Bert");
    EXPECT_TRUE(program.State.RegisterSaved);
    EXPECT_THAT(
        desktop.Transcript,
        ElementsAre("entry", "list", "status \"Rückgängig: Eintrag löschen\"", "pointer Normal"));
    EXPECT_EQ(RedoCaption(program), u"&Wiederholen: Eintrag löschen");
    Redo();
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Carl"));
    EXPECT_EQ(Field(NameField), u"Carl");
    EXPECT_FALSE(program.State.RegisterSaved);
    EXPECT_EQ(desktop.Statuses().back(), "Wiederholt: Eintrag löschen");
}

TEST_F(UndoTest, AStoredEntryComesBackAtItsOldPlace) {
    Start(RegisterOfNames({u"Anna", u"Bert", u"Carl"}), 1);
    Field(NameField) = u"Dora";
    Do(btnSaveChange_Click, StoredStep);
    EXPECT_THAT(Names(program.State), ElementsAre(u"Bert", u"Carl", u"Dora"));
    EXPECT_EQ(program.State.AnzNr, 3);
    EXPECT_EQ(program.Past.Steps.size(), 1U);  // what was stored was not left
    Undo();
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bert", u"Carl"));
    EXPECT_EQ(program.State.AnzNr, 1);
    EXPECT_EQ(Field(NameField), u"Anna");
}

TEST_F(UndoTest, WhatWasTypedAndLeftIsOneStepAway) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Field(NameField) = u"Annabel";
    program.Fields.DDAB = 3;
    EXPECT_TRUE(IsNotStored(program));
    GoTo(2);
    EXPECT_FALSE(IsNotStored(program));
    EXPECT_EQ(UndoCaption(program), u"&Rückgängig: Eingabe verworfen");
    Undo();
    EXPECT_EQ(program.State.AnzNr, 1);
    EXPECT_EQ(Field(NameField), u"Annabel");
    EXPECT_EQ(program.Fields.DDAB, 3);
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
    EXPECT_TRUE(IsNotStored(program));
    EXPECT_EQ(EntryAt(program.State, 1).Name, u"Anna");
    Do(btnSaveChange_Click, StoredStep);
    EXPECT_EQ(EntryAt(program.State, 1).Name, u"Annabel");
    EXPECT_EQ(EntryAt(program.State, 1).AB, 3);
}

TEST_F(UndoTest, WhatIsTypedGoesFirst) {
    Start(RegisterOfNames({u"Anna", u"Bert", u"Carl"}), 2);
    Do(btnErase_Click, EraseStep);
    Field(TelField) = u"99";
    EXPECT_EQ(UndoCaption(program), u"&Rückgängig: Eingabe");
    Undo();
    EXPECT_EQ(Field(TelField), u"3");
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Carl"));
    EXPECT_EQ(UndoCaption(program), u"&Rückgängig: Eintrag löschen");
    Undo();
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bert", u"Carl"));
    Redo();
    Redo();
    EXPECT_EQ(program.State.AnzNr, 2);
    EXPECT_EQ(Field(TelField), u"99");
    EXPECT_TRUE(IsNotStored(program));
    EXPECT_FALSE(CanRedo(program));
}

TEST_F(UndoTest, ARedoThatLeavesWhatIsTypedKeepsIt) {
    Start(RegisterOfNames({u"Anna", u"Bert", u"Carl"}), 2);
    Do(btnErase_Click, EraseStep);
    Undo();
    Field(NameField) = u"Berta";
    Redo();
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Carl"));
    Undo();
    EXPECT_EQ(UndoCaption(program), u"&Rückgängig: Eingabe verworfen");
    Undo();
    EXPECT_EQ(program.State.AnzNr, 2);
    EXPECT_EQ(Field(NameField), u"Berta");
}

TEST_F(UndoTest, AChargeErasedOnScreenCountsAsTyped) {
    RegisterState state = RegisterOfNames({u"Anna", u"Bert"});
    state.Register(1).GebEinh = 10;
    program.Set.UnitPrice = 0.12;
    Start(std::move(state));
    RunStep(
        program, {}, [&] { btnEraseCharge_Click(program); }, desktop);
    EXPECT_TRUE(IsNotStored(program));
    GoTo(2);
    Undo();
    EXPECT_EQ(program.Fields.AnzGeb, u"0,00");
    EXPECT_TRUE(program.Fields.ChargeErased);
}

TEST_F(UndoTest, BulkToolsKeepWhatIsTypedAndAreOneStep) {
    RegisterState state = RegisterOfNames({u"Anna", u"Bert"});
    state.Register(1).MsnFilter = 2;
    state.Register(2).MsnFilter = 3;
    Start(std::move(state));
    Field(NameField) = u"Annabel";
    desktop.AnswerBox(Button::Ok);
    Do(mnuBearbeitenKillMSN, u"MSN löschen (# Einträge)");
    EXPECT_EQ(Field(NameField), u"Annabel");
    EXPECT_EQ(UndoCaption(program), u"&Rückgängig: Eingabe");
    Field(NameField) = u"Anna";
    EXPECT_FALSE(IsNotStored(program));
    EXPECT_EQ(UndoCaption(program), u"&Rückgängig: MSN löschen (2 Einträge)");
    Undo();
    EXPECT_EQ(EntryAt(program.State, 1).MsnFilter, 2);
    EXPECT_EQ(EntryAt(program.State, 2).MsnFilter, 3);
    EXPECT_EQ(program.Fields.DDMSN, 3);
}

TEST_F(UndoTest, ClearedCountersComeBack) {
    RegisterState state = RegisterOfNames({u"Anna", u"Bert"});
    state.Register(2).GebEinh = 7;
    program.Set.UnitPrice = 1;
    Start(std::move(state), 2);
    desktop.AnswerBox(Button::Ok);
    Do(mnuGebDelete, u"Zähler löschen (# Einträge)");
    EXPECT_FALSE(IsNotStored(program));
    EXPECT_EQ(UndoCaption(program), u"&Rückgängig: Zähler löschen (1 Eintrag)");
    Undo();
    EXPECT_EQ(program.Fields.AnzGeb, u"7,00");
}

TEST_F(UndoTest, AnOperationThatFailsRecordsWhatItChanged) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    RunStep(
        program, u"halb",
        [&] {
            EntryAt(program.State, 1).Name = u"Berta";
            throw RuntimeError(ErrorNumber::Overflow);
        },
        desktop);
    EXPECT_EQ(UndoCaption(program), u"&Rückgängig: halb");
    Undo();
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bert"));
}

TEST_F(UndoTest, AHardStopPassesThrough) {
    Start(RegisterOfNames({u"Anna"}));
    EXPECT_THROW(RunStep(
                     program, {},
                     [&] {
                         ResetRegister(program.State);
                         throw HardStop();
                     },
                     desktop),
                 HardStop);
    EXPECT_EQ(program.Past.Last.Register(1).Name, u"Anna");  // as it was before
}

TEST_F(UndoTest, ALoadIsOneStepAndShowsItsSourceAgain) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    program.List.Open = true;
    const auto load = [&] {
        ResetRegister(program.State);
        EntryAt(program.State, 1).Name = u"Carl";
        SetCount(program.State, 1);
        program.State.File = {.Type = u"CSV", .Path = "/c.csv", .Modified = std::nullopt};
        NoteSaved(program.State, u"CSV");
    };
    RunStep(program, u"CSV laden", load, desktop);
    desktop.Transcript.clear();
    Undo();
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bert"));
    EXPECT_TRUE(program.State.File.Path.empty());
    EXPECT_THAT(
        desktop.Transcript,
        ElementsAre("entry", "list", "file", "status \"Rückgängig: CSV laden\"", "pointer Normal"));
    EXPECT_FALSE(program.State.RegisterSaved);  // the CSV file holds another one
    Redo();
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(UndoTest, ACaptionShowsAnAmpersandAsItIs) {
    Start(RegisterOfNames({u"Anna"}));
    RunStep(
        program, u"A & B", [&] { EntryAt(program.State, 1).Name = u"B"; }, desktop);
    EXPECT_EQ(UndoCaption(program), u"&Rückgängig: A && B");
}

TEST_F(UndoTest, TheMenuHasBothAtItsEnd) {
    std::vector<std::string> names;
    for (const MenuRow& row : MenuTable()) {
        if (row.Menu == "mnuBearbeiten") {
            names.emplace_back(row.Name);
        }
    }
    ASSERT_EQ(names.size(), 6U);
    EXPECT_EQ(names[4], "mnuBearbeitenUndo");
    EXPECT_EQ(names[5], "mnuBearbeitenRedo");
}

}  // namespace
}  // namespace norvik::test
