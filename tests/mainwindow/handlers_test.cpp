// The buttons and choices that change the shown entry.
#include "mainwindow/handlers.h"

#include "tests/support/handlerfixture.h"

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

class SaveChange : public HandlerFixture {};
class EraseCharge : public HandlerFixture {};
class Export : public HandlerFixture {};
class Choice : public HandlerFixture {};

TEST_F(SaveChange, FollowsTheEntryToItsNewPosition) {
    Given(RegisterOfNames({u"Anna", u"Bernd", u"Carl"}));
    Field(0) = u"Dora";

    btnSaveChange_Click(program, desktop);

    EXPECT_EQ(desktop.Transcript,
              (Lines{"pointer Hourglass", "status \"Sortiere, Durchgang 1\"",
                     "status \"Sortiert: 2\"", "status \"Sortiere, Durchgang 2\"",
                     "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"", "pointer Normal",
                     "status \"Sortieren beendet\"", "list", "entry"}));
    EXPECT_EQ(program.State.AnzNr, 3);
    EXPECT_EQ(program.State.Satzwahl.Value, 3);
    EXPECT_EQ(program.State.AnzGes, 3);
    EXPECT_EQ(Order(program.State, 3), (std::vector<int>{2, 3, 1}));
    EXPECT_EQ(program.State.Register(1), EntryOfPlace(1, u"Dora", u"1"));
    EXPECT_EQ(Field(0), u"Dora");
    EXPECT_EQ(program.Fields.Index, 1);
    EXPECT_EQ(Rows(), (std::vector<Text>{u"#1: Bernd (2)", u"#2: Carl (3)", u"#3: Dora (1)"}));
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Stored);
    EXPECT_FALSE(program.State.RegisterSaved);
}

TEST_F(SaveChange, AnEntryThatKeepsItsPlaceTakesOnePass) {
    Given(RegisterOfNames({u"Anna", u"Bernd"}), 2);
    Field(1) = u"4711";
    Field(8) = u"neue Zeile";

    btnSaveChange_Click(program, desktop);

    EXPECT_EQ(desktop.Transcript,
              (Lines{"pointer Hourglass", "status \"Sortiere, Durchgang 1\"",
                     "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"", "pointer Normal",
                     "status \"Sortieren beendet\"", "list", "entry"}));
    EXPECT_EQ(program.State.Register(2), EntryOfPlace(2, u"Bernd", u"4711", u"neue Zeile"));
    EXPECT_EQ(program.State.AnzNr, 2);
    EXPECT_EQ(Field(8), u"neue Zeile           ");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Stored);
    EXPECT_FALSE(program.State.RegisterSaved);
}

TEST_F(SaveChange, SortsByTheNewNameWithoutRegardToCaseAndUmlautsBehindZ) {
    Given(RegisterOfNames({u"anna", u"Bernd", u"Zoe", u"Mia"}), 4);
    Field(0) = u"Ärger";

    btnSaveChange_Click(program, desktop);

    EXPECT_EQ(Names(program.State), (std::vector<Text>{u"anna", u"Bernd", u"Zoe", u"Ärger"}));
    EXPECT_EQ(program.State.AnzNr, 4);
}

TEST_F(SaveChange, OfTwoEqualEntriesTheFirstIsShown) {
    Given(RegisterOfNames({u"Anna", u"Bernd"}), 2);
    Field(0) = u"Anna";
    Field(1) = u"1";

    btnSaveChange_Click(program, desktop);

    EXPECT_EQ(program.State.AnzNr, 1);
    EXPECT_EQ(program.Fields.Index, 1);
    EXPECT_EQ(Names(program.State), (std::vector<Text>{u"Anna", u"Anna"}));
}

TEST_F(SaveChange, ALongNameIsCutWhenItIsStored) {
    const Text longName = u"Abcdefghijklmnopqrstuvwxyz";
    Given(RegisterOf({Entry(longName, u"1")}));
    EXPECT_EQ(Rows(), std::vector<Text>{u"#1: Abcdefghijklmnopqrstuvwxyz (1)"});

    btnSaveChange_Click(program, desktop);

    EXPECT_EQ(program.State.Register(1), Entry(u"Abcdefghijklmnopqrstu", u"1"));
    EXPECT_EQ(Rows(), std::vector<Text>{u"#1: Abcdefghijklmnopqrstu (1)"});
}

TEST_F(SaveChange, ChoicesThatSelectNothingStoreZero) {
    RegisterEntry entry = Entry(u"Anna", u"1");
    entry.Ton = 128 + 90;
    entry.AB = 12;
    Given(RegisterOf({entry}));

    btnSaveChange_Click(program, desktop);

    EXPECT_EQ(program.State.Register(1), Entry(u"Anna", u"1"));
    EXPECT_EQ(program.Fields.DDTon, 0);
    EXPECT_FALSE(program.Fields.chkTon);
    EXPECT_EQ(program.Fields.DDAB, 0);
}

TEST_F(SaveChange, RecountsTheMarkedEntries) {
    Given(RegisterOfNames({u"Anna"}));
    Field(8) = u"()";

    btnSaveChange_Click(program, desktop);

    EXPECT_EQ(program.State.AnzMarkiert, 1);
    EXPECT_TRUE(program.Fields.chkExport);
}

TEST_F(SaveChange, WithoutAnyEntryMakesTheFirstOne) {
    RegisterState empty = RegisterOf({});
    SetCount(empty, 0);
    Given(empty);
    Field(0) = u"Anna";

    btnSaveChange_Click(program, desktop);

    EXPECT_EQ(desktop.Questions(), (Lines{"list", "entry"}));
    EXPECT_EQ(program.State.AnzGes, 1);
    EXPECT_EQ(program.State.AnzNr, 1);
    EXPECT_EQ(program.State.Register(1).Name, u"Anna");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Stored);
    EXPECT_FALSE(program.State.RegisterSaved);
}

TEST_F(EraseCharge, ClearsTheAmountOnScreenAlone) {
    RegisterEntry entry = Entry(u"Anna", u"1");
    entry.GebEinh = 100;
    Given(RegisterOf({entry}));
    ASSERT_EQ(program.Fields.AnzGeb, u"12,00");

    btnEraseCharge_Click(program);

    EXPECT_EQ(program.Fields.AnzGeb, u"0,00");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
    EXPECT_EQ(program.State.Register(1), entry);
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(EraseCharge, MovingOnWithoutStoringLeavesTheCounterUnchanged) {
    RegisterEntry entry = Entry(u"Anna", u"1");
    entry.GebEinh = 100;
    Given(RegisterOf({entry, Entry(u"Bernd", u"2")}));
    btnEraseCharge_Click(program);

    Satzwahl_Change(program, 2, desktop);
    Satzwahl_Change(program, 1, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{"entry", "entry"}));
    EXPECT_EQ(program.State.Register(1), entry);
    EXPECT_EQ(program.Fields.AnzGeb, u"12,00");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Neutral);
}

TEST_F(EraseCharge, StoringClearsTheCounter) {
    RegisterEntry entry = Entry(u"Anna", u"1");
    entry.GebEinh = 100;
    Given(RegisterOf({entry}));
    btnEraseCharge_Click(program);

    btnSaveChange_Click(program, desktop);

    EXPECT_EQ(program.State.Register(1), Entry(u"Anna", u"1"));
    EXPECT_EQ(program.Fields.AnzGeb, u"0,00");
    EXPECT_EQ(Field(3), u"0");
}

TEST_F(EraseCharge, StoringWithoutItKeepsTheCounter) {
    RegisterEntry entry = Entry(u"Anna", u"1");
    entry.GebEinh = 100;
    Given(RegisterOf({entry}));

    btnSaveChange_Click(program, desktop);

    EXPECT_EQ(program.State.Register(1), entry);
}

TEST_F(Export, StoresPendingEditsTogetherWithTheMark) {
    Given(RegisterOf({Entry(u"Anna", u"1", u"Info"), Entry(u"Bernd", u"2")}));
    Field(0) = u"Zora";
    program.Fields.DDAB = 3;
    program.Fields.btnSaveChange = EditState::Pending;
    program.Fields.chkExport = true;

    chkExport_Click(program, desktop);

    RegisterEntry expected = Entry(u"Zora", u"1", u"()Info");
    expected.AB = 3;
    EXPECT_EQ(desktop.Transcript, (Lines{"entry", "list"}));
    EXPECT_EQ(program.State.Register(1), expected);
    EXPECT_EQ(program.State.AnzNr, 1);  // stored without sorting
    EXPECT_EQ(Rows(), (std::vector<Text>{u"#1: Zora (1) ()Info", u"#2: Bernd (2)"}));
    EXPECT_EQ(Field(8), u"()Info               ");
    EXPECT_TRUE(program.Fields.chkExport);
    EXPECT_EQ(program.State.AnzMarkiert, 1);
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Stored);
    EXPECT_FALSE(program.State.RegisterSaved);
}

TEST_F(Export, ClearingTheBoxCutsTheMarkOut) {
    Given(RegisterOf({Entry(u"Anna", u"1", u"abc()def")}));
    ASSERT_EQ(program.State.AnzMarkiert, 1);
    program.Fields.chkExport = false;

    chkExport_Click(program, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{"entry", "list"}));
    EXPECT_EQ(program.State.Register(1), Entry(u"Anna", u"1", u"abcdef"));
    EXPECT_EQ(program.State.AnzMarkiert, 0);
    EXPECT_FALSE(program.Fields.chkExport);
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Stored);
    EXPECT_FALSE(program.State.RegisterSaved);
}

TEST_F(Export, AnEntryMarkedTwiceStaysMarked) {
    Given(RegisterOf({Entry(u"Anna", u"1", u"()a()b")}));
    program.Fields.chkExport = false;

    chkExport_Click(program, desktop);

    EXPECT_EQ(program.State.Register(1), Entry(u"Anna", u"1", u"a()b"));
    EXPECT_TRUE(program.Fields.chkExport);
    EXPECT_EQ(program.State.AnzMarkiert, 1);
}

TEST_F(Export, AMarkThatStandsThereAlreadyIsNotRepeated) {
    Given(RegisterOf({Entry(u"Anna", u"1")}));
    Field(9) = u"()";
    program.Fields.chkExport = true;

    chkExport_Click(program, desktop);

    EXPECT_EQ(program.State.Register(1), Entry(u"Anna", u"1", Text(21, u' ') + u"()"));
    EXPECT_EQ(program.State.AnzMarkiert, 1);
}

TEST_F(Export, MarksTheEntryThatTheOrderNames) {
    RegisterState state = RegisterOfNames({u"Zoe", u"Anna"});
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    Given(state, 1);
    program.Fields.chkExport = true;

    chkExport_Click(program, desktop);

    EXPECT_EQ(program.State.Register(1), EntryOfPlace(1, u"Zoe", u"1"));
    EXPECT_EQ(program.State.Register(2), EntryOfPlace(2, u"Anna", u"2", u"()"));
}

TEST_F(Choice, AChangeOnlyTurnsTheButtonLightRed) {
    Given(RegisterOfNames({u"Anna", u"Bernd"}));
    const Contents before = ContentsOf(program.State);
    program.Fields.DDTon = 5;
    program.Fields.chkTon = true;
    program.Fields.OptFilter = 2;

    Choice_Change(program);

    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
    EXPECT_TRUE(ContentsOf(program.State) == before);
    EXPECT_TRUE(program.State.RegisterSaved);
    EXPECT_EQ(program.Fields.DDTon, 5);
    EXPECT_TRUE(program.Fields.chkTon);
    EXPECT_EQ(program.Fields.OptFilter, 2);
}

TEST_F(Choice, AChangeAfterStoringTurnsTheGreenButtonRedAgain) {
    Given(RegisterOfNames({u"Anna"}));
    btnSaveChange_Click(program, desktop);
    ASSERT_EQ(program.Fields.btnSaveChange, EditState::Stored);

    Choice_Change(program);

    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
}

}  // namespace
}  // namespace norvik::test
