#include "register/register.h"

#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using Transcript = std::vector<std::string>;

/// An entry none of whose fields has the value of an empty one.
RegisterEntry FullEntry() {
    RegisterEntry entry = Entry(u"Anna", u"0123", u"()Info");
    entry.RecIndex = 77;
    entry.RecNumber = 78;
    entry.Ton = 0x85;
    entry.MsnFilter = 0xF3;
    entry.GebEinh = 12345;
    entry.AB = 3;
    entry.Listed = true;
    return entry;
}

RegisterEntry EmptyEntryAt(int index) {
    RegisterEntry entry;
    entry.RecIndex = static_cast<std::int16_t>(index - 1);
    entry.RecNumber = 0;
    entry.Ton = 0;
    entry.MsnFilter = 15;
    entry.GebEinh = 0;
    entry.AB = 0;
    return entry;
}

void ExpectEmptyTableInOrder(const RegisterState& state) {
    for (int place = 1; place <= 2000; ++place) {
        ASSERT_EQ(state.Register(place), EmptyEntryAt(place)) << place;
        ASSERT_EQ(state.RegisterOrder(place), place);
    }
}

TEST(RegisterState, AFreshOneHoldsOneEmptySavedEntry) {
    const RegisterState state;
    ExpectEmptyTableInOrder(state);
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(state.AnzMarkiert, 0);
    EXPECT_EQ(state.Satzwahl.Maximum, 1);
    EXPECT_EQ(state.Satzwahl.Value, 1);
    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_EQ(state.LoadedModel, u"");
}

TEST(EntryAt, GoesThroughTheOrder) {
    RegisterState state = RegisterOfNames({u"A", u"B", u"C"});
    state.RegisterOrder(1) = 3;
    EXPECT_EQ(EntryAt(state, 1).Name, u"C");
    EntryAt(state, 1).Tel = u"99";
    EXPECT_EQ(state.Register(3).Tel, u"99");
}

TEST(EntryAt, APositionOutside1To2000RaisesError9) {
    RegisterState state;
    EXPECT_THROW(EntryAt(state, 0), RuntimeError);
    EXPECT_THROW(EntryAt(state, 2001), RuntimeError);
    EXPECT_NO_THROW(EntryAt(state, 2000));
}

TEST(ClearEntry, MakesEveryFieldEmptyButTheListedMark) {
    RegisterState state;
    state.Register(7) = FullEntry();
    ClearEntry(state, 7);
    RegisterEntry expected = EmptyEntryAt(7);
    expected.Listed = true;
    EXPECT_EQ(state.Register(7), expected);
}

TEST(ClearEntry, ChangesNothingElse) {
    RegisterState state = RegisterOfNames({u"A", u"B", u"C"});
    state.RegisterOrder(2) = 3;
    state.RegisterSaved = false;
    ClearEntry(state, 2);
    EXPECT_EQ(state.Register(1).Name, u"A");
    EXPECT_EQ(state.Register(3).Name, u"C");
    EXPECT_EQ(Order(state, 3), (std::vector<int>{1, 3, 3}));
    EXPECT_EQ(state.AnzGes, 3);
    EXPECT_FALSE(state.RegisterSaved);
}

TEST(ClearEntry, AnIndexOutside1To2000RaisesError9) {
    RegisterState state;
    EXPECT_THROW(ClearEntry(state, 0), RuntimeError);
    EXPECT_THROW(ClearEntry(state, 2001), RuntimeError);
}

TEST(ResetRegister, EmptiesEveryPlaceListedMarksIncludedAndPutsTheOrderRight) {
    RegisterState state;
    for (int place = 1; place <= 2000; ++place) {
        state.Register(place) = FullEntry();
        state.RegisterOrder(place) = static_cast<std::int16_t>(2001 - place);
    }
    ResetRegister(state);
    ExpectEmptyTableInOrder(state);
}

TEST(ResetRegister, CountPositionAndTheSavedFlagStay) {
    RegisterState state = RegisterOfNames({u"A", u"B", u"C"});
    state.AnzNr = 2;
    state.RegisterSaved = false;
    ResetRegister(state);
    EXPECT_EQ(state.AnzGes, 3);
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_FALSE(state.RegisterSaved);
}

TEST(SetCount, SetsTheCountAndTheSelectorsMaximum) {
    RegisterState state;
    state.AnzNr = 9;
    SetCount(state, 12);
    EXPECT_EQ(state.AnzGes, 12);
    EXPECT_EQ(state.Satzwahl.Maximum, 12);
    EXPECT_EQ(state.AnzNr, 9);
}

TEST(SetCount, TheSelectorsRangeNeverIsEmpty) {
    RegisterState state;
    SetCount(state, 0);
    EXPECT_EQ(state.AnzGes, 0);
    EXPECT_EQ(state.Satzwahl.Maximum, 1);
}

TEST(SelectRecord, SetsSelectorAndPositionAndShowsTheEntry) {
    RegisterState state = RegisterOfNames({u"A", u"B", u"C"});
    ScriptedDesktop desktop;
    SelectRecord(state, 2, desktop);
    EXPECT_EQ(state.Satzwahl.Value, 2);
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_EQ(desktop.Transcript, Transcript{"entry"});
}

TEST(SelectRecord, APositionAboveTheMaximumGivesTheMaximum) {
    RegisterState state = RegisterOfNames({u"A", u"B", u"C"});
    ScriptedDesktop desktop;
    SelectRecord(state, 4, desktop);
    EXPECT_EQ(state.Satzwahl.Value, 3);
    EXPECT_EQ(state.AnzNr, 3);
    EXPECT_EQ(desktop.Transcript, Transcript{"entry"});
}

TEST(SelectRecord, APositionBelow1Gives1) {
    RegisterState state = RegisterOfNames({u"A", u"B"});
    state.AnzNr = 2;
    ScriptedDesktop desktop;
    SelectRecord(state, 0, desktop);
    EXPECT_EQ(state.Satzwahl.Value, 1);
    EXPECT_EQ(state.AnzNr, 1);
}

TEST(SelectRecord, TheEntryIsShownAfterThePositionIsSet) {
    RegisterState state = RegisterOfNames({u"A", u"B"});
    ScriptedDesktop desktop;
    int shown = 0;
    desktop.OnShowEntry = [&] { shown = state.AnzNr; };
    SelectRecord(state, 2, desktop);
    EXPECT_EQ(shown, 2);
}

TEST(RefreshStatus, RecountsTheMarkedEntriesAndRebuildsTheList) {
    RegisterState state = RegisterOf({Entry(u"A", u"1", u"()"), Entry(u"B", u"2", u"x()")});
    state.AnzMarkiert = 0;
    ScriptedDesktop desktop;
    int counted = -1;
    desktop.OnRebuildList = [&] { counted = state.AnzMarkiert; };
    RefreshStatus(state, desktop);
    EXPECT_EQ(counted, 2);
    EXPECT_EQ(desktop.Transcript, Transcript{"list"});
}

}  // namespace
}  // namespace norvik::test
