// Moving through the register: record selector, list, keys, search, and leaving the window.
#include "mainwindow/handlers.h"

#include "tests/support/handlerfixture.h"

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

const std::string DiscardQuestion =
    "box \"Änderungen am Datensatz verwerfen?\" title \"Sicherheitsabfrage\" icon None buttons "
    "Yes+No default No -> ";
const std::string SearchInput =
    "input \"Bitte Suchbegriff angeben\" title \"Suche nach\" preset \"\" -> ";
const std::string QuitQuestion =
    "box \"Beenden ohne zu sichern?\" title \"Sicherheitsabfrage\" icon Question buttons "
    "Ok+Cancel default Cancel -> ";

std::string NotFound() {
    return OkBox(u"Der Suchbegriff wurde nicht gefunden", u"Suche", "Information");
}

class Selector : public HandlerFixture {};
class List : public HandlerFixture {};
class Keys : public HandlerFixture {};
class Search : public HandlerFixture {};
class Closing : public HandlerFixture {};

TEST_F(Selector, ShowsTheEntryOfItsValue) {
    Given(RegisterOfNames({u"Anna", u"Bernd", u"Carl"}));

    Satzwahl_Change(program, 3, desktop);

    EXPECT_EQ(desktop.Transcript, Lines{"entry"});
    EXPECT_EQ(program.State.AnzNr, 3);
    EXPECT_EQ(program.State.Satzwahl.Value, 3);
    EXPECT_EQ(Field(0), u"Carl");
    EXPECT_EQ(program.Fields.Index, 3);
}

TEST_F(Selector, ClampsToItsRange) {
    Given(RegisterOfNames({u"Anna", u"Bernd"}));
    Satzwahl_Change(program, 9, desktop);
    EXPECT_EQ(program.State.AnzNr, 2);
    EXPECT_EQ(Field(0), u"Bernd");
    Satzwahl_Change(program, 0, desktop);
    EXPECT_EQ(program.State.AnzNr, 1);
    EXPECT_EQ(Field(0), u"Anna");
}

TEST_F(Selector, LosesEditsWithoutAQuestion) {
    Given(RegisterOfNames({u"Anna", u"Bernd"}));
    Field(0) = u"getippt";
    program.Fields.DDAB = 4;
    Choice_Change(program);

    Satzwahl_Change(program, 2, desktop);

    EXPECT_EQ(desktop.Transcript, Lines{"entry"});
    EXPECT_EQ(program.State.Register(1), EntryOfPlace(1, u"Anna", u"1"));
    EXPECT_TRUE(program.State.RegisterSaved);
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Neutral);
}

TEST_F(List, AClickShowsThePositionOfItsRow) {
    Given(RegisterOfNames({u"Anna", u"", u"Carl"}));
    ASSERT_EQ(Rows(), (std::vector<Text>{u"#1: Anna (1)", u"#3: Carl (3)"}));

    TelRegListe_Click(program, Rows()[1], desktop);

    EXPECT_EQ(desktop.Transcript, Lines{"entry"});
    EXPECT_EQ(program.State.AnzNr, 3);
    EXPECT_EQ(Field(0), u"Carl");
}

TEST_F(List, TypedTextAndAStoredEntryAreLeftWithoutAQuestion) {
    Given(RegisterOfNames({u"Anna", u"Bernd"}));
    Field(0) = u"getippt";
    TelRegListe_Click(program, u"#2: Bernd (2)", desktop);
    EXPECT_EQ(program.State.Register(1), EntryOfPlace(1, u"Anna", u"1"));

    program.Fields.btnSaveChange = EditState::Stored;
    TelRegListe_Click(program, u"#1: Anna (1)", desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{"entry", "entry"}));
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(List, YesDiscardsThePendingEdits) {
    Given(RegisterOfNames({u"Anna", u"Bernd"}));
    const Contents before = ContentsOf(program.State);
    Field(0) = u"Zora";
    program.Fields.DDAB = 4;
    Choice_Change(program);
    desktop.AnswerBox(Button::Yes);

    TelRegListe_Click(program, u"#2: Bernd (2)", desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{DiscardQuestion + "Yes", "entry"}));
    EXPECT_TRUE(ContentsOf(program.State) == before);
    EXPECT_TRUE(program.State.RegisterSaved);
    EXPECT_EQ(program.State.AnzNr, 2);
    EXPECT_EQ(Field(0), u"Bernd");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Neutral);
}

TEST_F(List, NoStoresThePendingEditsWithoutSortingAndShowsTheClickedEntry) {
    Given(RegisterOfNames({u"Anna", u"Bernd", u"Carl"}));
    Field(0) = u"Zora";
    Field(8) = u"()";
    program.Fields.DDAB = 4;
    Choice_Change(program);
    desktop.AnswerBox(Button::No);

    TelRegListe_Click(program, Text(Rows()[1]), desktop);

    RegisterEntry stored = EntryOfPlace(1, u"Zora", u"1", u"()");
    stored.AB = 4;
    EXPECT_EQ(desktop.Transcript, (Lines{DiscardQuestion + "No", "list", "entry"}));
    EXPECT_EQ(program.State.Register(1), stored);
    EXPECT_EQ(Order(program.State, 3), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(Rows(), (std::vector<Text>{u"#1: Zora (1) ()", u"#2: Bernd (2)", u"#3: Carl (3)"}));
    EXPECT_FALSE(program.State.RegisterSaved);
    EXPECT_EQ(program.State.AnzMarkiert, 1);
    EXPECT_EQ(program.State.AnzNr, 2);
    EXPECT_EQ(program.State.Satzwahl.Value, 2);
    EXPECT_EQ(Field(0), u"Bernd");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Neutral);
}

TEST_F(List, NoTakesTheRowThatIsGivenByReferenceBeforeTheRowsAreRebuilt) {
    Given(RegisterOfNames({u"Anna", u"Bernd"}));
    Choice_Change(program);
    desktop.AnswerBox(Button::No);

    TelRegListe_Click(program, Rows()[1], desktop);

    EXPECT_EQ(program.State.AnzNr, 2);
}

TEST_F(List, NoStoresAnErasedChargeCounter) {
    RegisterEntry entry = Entry(u"Anna", u"1");
    entry.GebEinh = 100;
    Given(RegisterOf({entry, Entry(u"Bernd", u"2")}));
    btnEraseCharge_Click(program);
    desktop.AnswerBox(Button::No);

    TelRegListe_Click(program, u"#2: Bernd (2)", desktop);

    EXPECT_EQ(program.State.Register(1), Entry(u"Anna", u"1"));
}

TEST_F(List, TheFilterBoxRebuildsTheRowsAtOnce) {
    RegisterState state = RegisterOfNames({u"Anna", u"Bernd", u"Carl"});
    state.Register(1).Listed = true;
    state.Register(3).Listed = true;
    Given(state);

    program.Fields.chkListFilter = true;
    chkListFilter_Click(program, desktop);
    EXPECT_EQ(Rows(), (std::vector<Text>{u"#1: Anna (1)", u"#3: Carl (3)"}));

    program.Fields.chkListFilter = false;
    chkListFilter_Click(program, desktop);
    EXPECT_EQ(Rows(), (std::vector<Text>{u"#1: Anna (1)", u"#2: Bernd (2)", u"#3: Carl (3)"}));
    EXPECT_EQ(desktop.Transcript, (Lines{"list", "list"}));
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(Keys, ReturnAndDownMoveOnInTheCycleOfEightFields) {
    const std::vector<int> cycle = {0, 1, 8, 9, 10, 11, 12, 13};
    Given(RegisterOfNames({u"Anna"}));
    for (const FieldKey key : {FieldKey::Return, FieldKey::Down}) {
        for (std::size_t i = 0; i < cycle.size(); ++i) {
            desktop.Transcript.clear();
            Anzeigefeld_KeyDown(program, cycle[i], key, false, desktop);
            EXPECT_EQ(desktop.Transcript,
                      Lines{"focus " + std::to_string(cycle[(i + 1) % cycle.size()])});
        }
    }
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(Keys, UpMovesBackInTheCycleAndNeverStores) {
    const std::vector<int> cycle = {0, 1, 8, 9, 10, 11, 12, 13};
    Given(RegisterOfNames({u"Anna"}));
    Field(0) = u"getippt";
    for (const bool shift : {false, true}) {
        for (std::size_t i = 0; i < cycle.size(); ++i) {
            desktop.Transcript.clear();
            Anzeigefeld_KeyDown(program, cycle[(i + 1) % cycle.size()], FieldKey::Up, shift,
                                desktop);
            EXPECT_EQ(desktop.Transcript, Lines{"focus " + std::to_string(cycle[i])});
        }
    }
    EXPECT_EQ(program.State.Register(1), EntryOfPlace(1, u"Anna", u"1"));
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(Keys, WithShiftReturnAndDownStoreAndSortFirst) {
    for (const FieldKey key : {FieldKey::Return, FieldKey::Down}) {
        Given(RegisterOfNames({u"Anna", u"Bernd"}));
        desktop.Transcript.clear();
        Field(0) = u"Zora";

        Anzeigefeld_KeyDown(program, 0, key, true, desktop);

        EXPECT_EQ(
            desktop.Transcript,
            (Lines{"pointer Hourglass", "status \"Sortiere, Durchgang 1\"",
                   "status \"Sortiert: 1\"", "status \"Sortiere, Durchgang 2\"",
                   "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"", "pointer Normal",
                   "status \"Sortieren beendet\"", "list", "entry", "focus 1"}));
        EXPECT_EQ(program.State.Register(1), EntryOfPlace(1, u"Zora", u"1"));
        EXPECT_EQ(program.State.AnzNr, 2);
        EXPECT_EQ(program.Fields.btnSaveChange, EditState::Stored);
        EXPECT_FALSE(program.State.RegisterSaved);
    }
}

TEST_F(Keys, WithShiftInTheLastFieldStoresAndGoesToTheName) {
    Given(RegisterOfNames({u"Anna"}));
    Field(13) = u"sechste";

    Anzeigefeld_KeyDown(program, 13, FieldKey::Return, true, desktop);

    EXPECT_EQ(desktop.Transcript.back(), "focus 0");
    EXPECT_EQ(program.State.Register(1),
              EntryOfPlace(1, u"Anna", u"1", Text(105, u' ') + u"sechste"));
}

TEST_F(Search, FindsTheFirstMatchWithoutRegardToCase) {
    Given(RegisterOfNames({u"Anna", u"Meier", u"MEISE"}), 3);
    desktop.AnswerText(u"mEi");

    btnSearch_Click(program, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{SearchInput + "\"mEi\"", "beep", "entry"}));
    EXPECT_EQ(program.State.AnzNr, 2);
    EXPECT_EQ(program.State.Satzwahl.Value, 2);
    EXPECT_EQ(Field(0), u"Meier");
    EXPECT_TRUE(program.Fields.btnSearchMoreEnabled);
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(Search, ATermCanMatchAcrossNameInfoAndNumber) {
    Given(RegisterOf({Entry(u"X"), Entry(u"Anna", u"030", u"Büro")}));
    desktop.AnswerText(u"aBÜ").AnswerText(u"O03");
    btnSearch_Click(program, desktop);
    EXPECT_EQ(program.State.AnzNr, 2);
    Satzwahl_Change(program, 1, desktop);
    btnSearch_Click(program, desktop);
    EXPECT_EQ(program.State.AnzNr, 2);
}

TEST_F(Search, WithoutAMatchSaysSoAndStays) {
    Given(RegisterOfNames({u"Anna", u"Bernd"}), 2);
    Field(0) = u"getippt";
    desktop.AnswerText(u"xyz");

    btnSearch_Click(program, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{SearchInput + "\"xyz\"", NotFound()}));
    EXPECT_EQ(program.State.AnzNr, 2);
    EXPECT_EQ(Field(0), u"getippt");
    EXPECT_TRUE(program.Fields.btnSearchMoreEnabled);
}

TEST_F(Search, ACancelledOrEmptyTermSearchesNothingAndDisablesMore) {
    for (const std::optional<Text>& answer : {std::optional<Text>(), std::optional<Text>(u"")}) {
        Given(RegisterOfNames({u"Anna", u"Bernd"}), 2);
        program.SearchTerm = u"alt";
        program.Fields.btnSearchMoreEnabled = true;
        desktop.Transcript.clear();
        desktop.AnswerText(answer);

        btnSearch_Click(program, desktop);

        EXPECT_EQ(desktop.Transcript, Lines{SearchInput + (answer ? "\"\"" : "cancel")});
        EXPECT_EQ(program.SearchTerm, u"");
        EXPECT_FALSE(program.Fields.btnSearchMoreEnabled);
        EXPECT_EQ(program.State.AnzNr, 2);
    }
}

TEST_F(Search, MoreMovesOnAndWrapsToTheFirstMatch) {
    Given(RegisterOfNames({u"Meier", u"Anna", u"Meise"}));
    desktop.AnswerText(u"mei");
    btnSearch_Click(program, desktop);
    ASSERT_EQ(program.State.AnzNr, 1);
    desktop.Transcript.clear();

    btnSearchMore_Click(program, desktop);
    EXPECT_EQ(program.State.AnzNr, 3);
    btnSearchMore_Click(program, desktop);
    EXPECT_EQ(program.State.AnzNr, 1);

    EXPECT_EQ(desktop.Transcript, (Lines{"beep", "entry", "entry", "beep", "entry", "entry"}));
    EXPECT_EQ(Field(0), u"Meier");
}

TEST_F(Search, BackwardsMovesBackAndWrapsToTheLastMatch) {
    Given(RegisterOfNames({u"Meier", u"Anna", u"Meise"}));
    program.SearchTerm = u"mei";

    SearchBackwards(program, desktop);
    EXPECT_EQ(program.State.AnzNr, 3);
    SearchBackwards(program, desktop);
    EXPECT_EQ(program.State.AnzNr, 1);

    EXPECT_EQ(desktop.Transcript, (Lines{"beep", "entry", "entry", "beep", "entry", "entry"}));
    EXPECT_EQ(Field(0), u"Meier");
}

TEST_F(Search, MoreFindsTheOnlyMatchAgain) {
    Given(RegisterOfNames({u"Anna", u"Meier"}), 2);
    program.SearchTerm = u"meier";

    btnSearchMore_Click(program, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{"beep", "entry", "entry"}));
    EXPECT_EQ(program.State.AnzNr, 2);
}

TEST_F(Search, MoreWithoutAMatchSaysSoAndShowsTheEntryAgain) {
    Given(RegisterOfNames({u"Anna", u"Bernd"}), 2);
    program.SearchTerm = u"xyz";
    Field(0) = u"getippt";

    btnSearchMore_Click(program, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{NotFound(), "entry"}));
    EXPECT_EQ(program.State.AnzNr, 2);
    EXPECT_EQ(Field(0), u"Bernd");
}

TEST_F(Closing, ASavedRegisterAsksNothing) {
    Given(RegisterOfNames({u"Anna"}));
    EXPECT_TRUE(MayClose(program, desktop));
    EXPECT_EQ(desktop.Transcript, Lines());
}

TEST_F(Closing, AnUnsavedRegisterAsks) {
    Given(RegisterOfNames({u"Anna"}));
    program.State.RegisterSaved = false;
    desktop.AnswerBox(Button::Cancel).AnswerBox(Button::Ok);

    EXPECT_FALSE(MayClose(program, desktop));
    EXPECT_TRUE(MayClose(program, desktop));

    EXPECT_EQ(desktop.Transcript, (Lines{QuitQuestion + "Cancel", QuitQuestion + "Ok"}));
    EXPECT_FALSE(program.State.RegisterSaved);
}

}  // namespace
}  // namespace norvik::test
