#include "registertools/searchregister.h"

#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;

const std::string NotFound =
    OkBox(u"Der Suchbegriff wurde nicht gefunden", u"Suche", "Information");

RegisterState People() {
    return RegisterOf({Entry(u"Anna", u"100", u"Chor"), Entry(u"Meier", u"200", u"Garten"),
                       Entry(u"Zoe", u"300", u"kennt Meister Klein"), Entry(u"Otto", u"2001")});
}

TEST(SearchRegister, ANewSearchFindsTheFirstMatchRegardlessOfCase) {
    for (const TextView term : {u"mei", u"MEI", u"mEi"}) {
        RegisterState state = People();
        state.AnzNr = 4;
        ScriptedDesktop desktop;
        SearchRegister(state, term, false, desktop);
        EXPECT_EQ(state.AnzNr, 2);
        EXPECT_EQ(state.Satzwahl.Value, 2);
        EXPECT_THAT(desktop.Transcript, ElementsAre("beep", "entry"));
    }
}

TEST(SearchRegister, ANewSearchTestsRecord1First) {
    RegisterState state = People();
    ScriptedDesktop desktop;
    SearchRegister(state, u"anna", false, desktop);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_THAT(desktop.Transcript, ElementsAre("beep", "entry"));
}

TEST(SearchRegister, ThePositionIsSetBeforeTheRecordIsShown) {
    RegisterState state = People();
    ScriptedDesktop desktop;
    desktop.OnShowEntry = [&] { EXPECT_EQ(state.AnzNr, 3); };
    SearchRegister(state, u"klein", false, desktop);
    EXPECT_EQ(state.AnzNr, 3);
}

TEST(SearchRegister, AContinuedSearchMovesOnToTheNextMatchBehindTheCurrentRecord) {
    RegisterState state = People();
    ScriptedDesktop desktop;
    SearchRegister(state, u"mei", false, desktop);
    SearchRegister(state, u"mei", true, desktop);
    EXPECT_EQ(state.AnzNr, 3);
    EXPECT_THAT(desktop.Transcript, ElementsAre("beep", "entry", "beep", "entry"));
}

TEST(SearchRegister, ABackwardSearchMovesOnToTheNextMatchInFrontOfTheCurrentRecord) {
    RegisterState state = People();
    state.AnzNr = 4;
    ScriptedDesktop desktop;
    SearchRegister(state, u"mei", true, desktop, SearchDirection::Backwards);
    EXPECT_EQ(state.AnzNr, 3);
    EXPECT_EQ(state.Satzwahl.Value, 3);
    SearchRegister(state, u"mei", true, desktop, SearchDirection::Backwards);
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_THAT(desktop.Transcript, ElementsAre("beep", "entry", "beep", "entry"));
}

TEST(SearchRegister, ABackwardSearchWrapsToTheLastRecordInFrontOfRecord1) {
    RegisterState state = People();
    state.AnzNr = 2;
    ScriptedDesktop desktop;
    SearchRegister(state, u"mei", true, desktop, SearchDirection::Backwards);
    EXPECT_EQ(state.AnzNr, 3);
    state.AnzNr = 1;
    SearchRegister(state, u"otto", true, desktop, SearchDirection::Backwards);
    EXPECT_EQ(state.AnzNr, 4);
}

TEST(SearchRegister, ABackwardSearchTestsTheCurrentRecordLast) {
    RegisterState state = People();
    state.AnzNr = 2;
    ScriptedDesktop desktop;
    SearchRegister(state, u"garten", true, desktop, SearchDirection::Backwards);
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_THAT(desktop.Transcript, ElementsAre("beep", "entry"));
}

TEST(SearchRegister, ABackwardSearchWithoutAMatchSaysSo) {
    for (const int count : {0, 1, 4}) {
        RegisterState state = People();
        SetCount(state, count);
        ScriptedDesktop desktop;
        SearchRegister(state, u"xyz", true, desktop, SearchDirection::Backwards);
        EXPECT_EQ(state.AnzNr, 1);
        EXPECT_THAT(desktop.Transcript, ElementsAre(NotFound)) << count;
    }
}

TEST(SearchRegister, AContinuedSearchWrapsToRecord1BehindTheLastRecord) {
    RegisterState state = People();
    state.AnzNr = 3;
    ScriptedDesktop desktop;
    SearchRegister(state, u"mei", true, desktop);
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_THAT(desktop.Transcript, ElementsAre("beep", "entry"));
}

TEST(SearchRegister, AContinuedSearchFromTheLastRecordStartsAtRecord1) {
    RegisterState state = People();
    state.AnzNr = 4;
    ScriptedDesktop desktop;
    SearchRegister(state, u"anna", true, desktop);
    EXPECT_EQ(state.AnzNr, 1);
}

TEST(SearchRegister, AContinuedSearchComesBackToTheOnlyMatch) {
    RegisterState state = People();
    state.AnzNr = 4;
    ScriptedDesktop desktop;
    SearchRegister(state, u"otto", true, desktop);
    EXPECT_EQ(state.AnzNr, 4);
    EXPECT_THAT(desktop.Transcript, ElementsAre("beep", "entry"));
}

TEST(SearchRegister, InARegisterOfOneAContinuedSearchFindsItAgain) {
    RegisterState state = RegisterOf({Entry(u"Anna")});
    ScriptedDesktop desktop;
    SearchRegister(state, u"ann", true, desktop);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_THAT(desktop.Transcript, ElementsAre("beep", "entry"));
}

TEST(SearchRegister, ATermThatOccursNowhereIsReportedOnceAndLeavesTheCurrentRecord) {
    for (const bool continueSearch : {false, true}) {
        for (const int current : {1, 3, 4}) {
            RegisterState state = People();
            state.AnzNr = current;
            state.Satzwahl.Value = current;
            ScriptedDesktop desktop;
            SearchRegister(state, u"xyz", continueSearch, desktop);
            EXPECT_EQ(state.AnzNr, current);
            EXPECT_EQ(state.Satzwahl.Value, current);
            EXPECT_THAT(desktop.Transcript, ElementsAre(NotFound));
        }
    }
}

TEST(SearchRegister, TheInfoAndTheNumberAreSearchedToo) {
    RegisterState state = People();
    ScriptedDesktop desktop;
    SearchRegister(state, u"garten", false, desktop);
    EXPECT_EQ(state.AnzNr, 2);
    SearchRegister(state, u"2001", false, desktop);
    EXPECT_EQ(state.AnzNr, 4);
}

TEST(SearchRegister, ATermMatchesAcrossTheEndOfTheNameAndTheStartOfTheInfo) {
    RegisterState state = People();
    ScriptedDesktop desktop;
    SearchRegister(state, u"oeken", false, desktop);
    EXPECT_EQ(state.AnzNr, 3);
}

TEST(SearchRegister, ATermMatchesAcrossTheEndOfTheInfoAndTheStartOfTheNumber) {
    RegisterState state = People();
    ScriptedDesktop desktop;
    SearchRegister(state, u"chor100", false, desktop);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_THAT(desktop.Transcript, ElementsAre("beep", "entry"));
}

TEST(SearchRegister, WithoutInfoTheNumberFollowsTheNameDirectly) {
    RegisterState state = People();
    ScriptedDesktop desktop;
    SearchRegister(state, u"to20", false, desktop);
    EXPECT_EQ(state.AnzNr, 4);
}

TEST(SearchRegister, TheFieldsAreJoinedAsNameInfoNumber) {
    RegisterState state = People();
    ScriptedDesktop desktop;
    SearchRegister(state, u"meier200", false, desktop);
    SearchRegister(state, u"200meier", false, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(NotFound, NotFound));
}

TEST(SearchRegister, UmlautsAreLoweredLikeOtherLetters) {
    RegisterState state = RegisterOf({Entry(u"Anna"), Entry(u"Ärger, Žofie")});
    ScriptedDesktop desktop;
    SearchRegister(state, u"äRG", false, desktop);
    EXPECT_EQ(state.AnzNr, 2);
    SearchRegister(state, u"žOF", false, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre("beep", "entry", "beep", "entry"));
}

TEST(SearchRegister, AnUmlautIsNoPlainLetter) {
    RegisterState state = RegisterOf({Entry(u"Müller")});
    ScriptedDesktop desktop;
    SearchRegister(state, u"muller", false, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(NotFound));
}

TEST(SearchRegister, BlanksInTheTermCount) {
    RegisterState state = People();
    ScriptedDesktop desktop;
    SearchRegister(state, u"meier ", false, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(NotFound));
}

TEST(SearchRegister, WalksThePositionsAndNotTheTable) {
    RegisterState state = People();
    state.RegisterOrder(1) = 3;
    state.RegisterOrder(3) = 1;
    ScriptedDesktop desktop;
    SearchRegister(state, u"mei", false, desktop);
    EXPECT_EQ(state.AnzNr, 1);
    SearchRegister(state, u"anna", false, desktop);
    EXPECT_EQ(state.AnzNr, 3);
}

TEST(SearchRegister, EntriesBehindTheCountAreNotFound) {
    RegisterState state = People();
    SetCount(state, 2);
    ScriptedDesktop desktop;
    SearchRegister(state, u"otto", false, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(NotFound));
}

TEST(SearchRegister, AFullRegisterIsSearchedToItsEndAndAround) {
    RegisterState state = RegisterOf({});
    state.Register(2000).Name = u"Letzter";
    state.Register(1).Name = u"Erster";
    SetCount(state, 2000);
    ScriptedDesktop desktop;
    SearchRegister(state, u"letzter", false, desktop);
    EXPECT_EQ(state.AnzNr, 2000);
    SearchRegister(state, u"erster", true, desktop);
    EXPECT_EQ(state.AnzNr, 1);
}

TEST(SearchRegister, ChangesNeitherEntriesNorOrder) {
    RegisterState state = People();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    SearchRegister(state, u"mei", false, desktop);
    EXPECT_TRUE(ContentsOf(state) == before);
}

}  // namespace

}  // namespace norvik::test
