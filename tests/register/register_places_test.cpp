// Erasing and appending entries, and which places of the table they use.

#include "register/register.h"

#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gtest/gtest.h>

#include <random>

namespace norvik::test {
namespace {

using Transcript = std::vector<std::string>;
using NameList = std::vector<Text>;

void SetOrder(RegisterState& state, const std::vector<int>& order) {
    for (std::size_t i = 0; i < order.size(); ++i) {
        state.RegisterOrder(static_cast<int>(i) + 1) = static_cast<std::int16_t>(order[i]);
    }
}

RegisterState FullRegister() {
    RegisterState state;
    for (int place = 1; place <= 2000; ++place) {
        state.Register(place).Name = Decimal(place);
    }
    SetCount(state, 2000);
    return state;
}

TEST(DeleteEntryAt, ARegisterWithOneEntryKeepsIt) {
    RegisterState state = RegisterOfNames({u"Anna"});
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 1, desktop);
    EXPECT_EQ(ContentsOf(state), before);
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(desktop.Transcript, (Transcript{"entry", "list"}));
}

TEST(DeleteEntryAt, TheEntriesBehindMoveUp) {
    RegisterState state = RegisterOfNames({u"A", u"B", u"C", u"D"});
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 2, desktop);
    EXPECT_EQ(Names(state), (NameList{u"A", u"C", u"D"}));
    EXPECT_EQ(state.AnzGes, 3);
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_EQ(state.Satzwahl.Maximum, 3);
    EXPECT_EQ(state.Satzwahl.Value, 2);
    EXPECT_EQ(desktop.Transcript, (Transcript{"entry", "list"}));
}

TEST(DeleteEntryAt, InAnUnsortedRegisterTheFreedPlaceMovesBehindTheUsedRange) {
    RegisterState state = RegisterOfNames({u"A", u"B", u"C", u"D"});
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 2, desktop);
    EXPECT_EQ(Order(state, 5), (std::vector<int>{1, 3, 4, 2, 5}));
}

TEST(DeleteEntryAt, AfterASortTheFreedPlaceOfTheOrderHoldsThePositionNumber) {
    RegisterState state = RegisterOfNames({u"C", u"D", u"A", u"B"});
    SetOrder(state, {3, 4, 1, 2});
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 2, desktop);
    EXPECT_EQ(Order(state, 5), (std::vector<int>{3, 1, 2, 2, 5}));
    EXPECT_EQ(Names(state), (NameList{u"A", u"C", u"D"}));
}

TEST(DeleteEntryAt, ThePlaceKeepsItsOldContents) {
    RegisterState state = RegisterOfNames({u"A", u"B", u"C"});
    const RegisterEntry erased = state.Register(2);
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 2, desktop);
    EXPECT_EQ(state.Register(2), erased);
}

TEST(DeleteEntryAt, ErasingTheLastEntryShowsTheNewLastOne) {
    RegisterState state = RegisterOfNames({u"A", u"B", u"C"});
    SetOrder(state, {2, 3, 1});
    ScriptedDesktop desktop;
    int shown = 0;
    desktop.OnShowEntry = [&] { shown = state.RegisterOrder(state.AnzNr); };
    DeleteEntryAt(state, 3, desktop);
    EXPECT_EQ(state.AnzGes, 2);
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_EQ(state.Satzwahl.Value, 2);
    EXPECT_EQ(shown, 3);
    EXPECT_EQ(Order(state, 3), (std::vector<int>{2, 3, 3}));
}

TEST(DeleteEntryAt, LeavesTheSavedFlagToItsCaller) {
    RegisterState state = RegisterOfNames({u"A", u"B"});
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 1, desktop);
    EXPECT_TRUE(state.RegisterSaved);
}

TEST(DeleteEntryAt, RecountsTheMarkedEntriesOfTheTable) {
    RegisterState state = RegisterOf({Entry(u"A"), Entry(u"B"), Entry(u"C", u"", u"()")});
    ASSERT_EQ(state.AnzMarkiert, 1);
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 1, desktop);  // the marked entry stays, but at index 3 of now 2
    EXPECT_EQ(state.AnzMarkiert, 0);
}

TEST(DeleteEntryAt, AFullRegisterLosesItsFirstEntry) {
    RegisterState state = FullRegister();
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 1, desktop);
    EXPECT_EQ(state.AnzGes, 1999);
    EXPECT_EQ(state.RegisterOrder(1), 2);
    EXPECT_EQ(state.RegisterOrder(1999), 2000);
    EXPECT_EQ(state.RegisterOrder(2000), 1);
}

TEST(AppendEntry, MakesAnEmptyEntryBehindTheLastOne) {
    RegisterState state = RegisterOfNames({u"A", u"B"});
    state.Register(3) = Entry(u"an old one", u"9", u"()");
    EXPECT_EQ(AppendEntry(state), 3);
    EXPECT_EQ(Names(state), (NameList{u"A", u"B", u""}));
    RegisterEntry expected;
    expected.RecIndex = 2;
    EXPECT_EQ(state.Register(3), expected);
    EXPECT_EQ(state.AnzGes, 3);
    EXPECT_EQ(state.Satzwahl.Maximum, 3);
    EXPECT_EQ(state.AnzNr, 1);
}

TEST(AppendEntry, AnEmptyRegisterGetsItsFirstEntry) {
    RegisterState state;
    SetCount(state, 0);
    EXPECT_EQ(AppendEntry(state), 1);
    EXPECT_EQ(state.AnzGes, 1);
}

TEST(AppendEntry, AfterAnEraseInAnUnsortedRegisterTheFreedPlaceIsReused) {
    RegisterState state = RegisterOfNames({u"A", u"B", u"C"});
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 2, desktop);
    EXPECT_EQ(AppendEntry(state), 3);
    EXPECT_EQ(Order(state, 4), (std::vector<int>{1, 3, 2, 4}));
    EXPECT_EQ(Names(state), (NameList{u"A", u"C", u""}));
}

TEST(AppendEntry, AfterAnEraseInASortedRegisterNoLiveEntryIsCleared) {
    RegisterState state = RegisterOfNames({u"B", u"C", u"A"});
    SetOrder(state, {3, 1, 2});
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 1, desktop);  // frees place 3, leaves the number 1 behind the range
    ASSERT_EQ(Order(state, 3), (std::vector<int>{1, 2, 1}));
    EXPECT_EQ(AppendEntry(state), 3);
    EXPECT_EQ(Order(state, 3), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(Names(state), (NameList{u"B", u"C", u""}));
}

TEST(AppendEntry, ANumberBehindTheRangeThatIsFreeIsTakenEvenWhereALowerPlaceIsFree) {
    RegisterState state = RegisterOfNames({u"A", u"B", u"C", u"D", u"E"});
    SetOrder(state, {2, 4, 1, 3, 5});
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 3, desktop);  // place 1 free; behind the range: 3
    DeleteEntryAt(state, 3, desktop);  // place 3 free too; behind the range: 3, 3
    ASSERT_EQ(Order(state, 5), (std::vector<int>{2, 4, 5, 3, 3}));
    AppendEntry(state);
    EXPECT_EQ(Order(state, 5), (std::vector<int>{2, 4, 5, 3, 3}));
    AppendEntry(state);
    EXPECT_EQ(Order(state, 5), (std::vector<int>{2, 4, 5, 3, 1}));
    EXPECT_EQ(Names(state), (NameList{u"B", u"D", u"E", u"", u""}));
}

TEST(AppendEntry, OnAFullRegisterRaisesError9AndChangesNothing) {
    RegisterState state = FullRegister();
    state.AnzNr = 5;
    const Contents before = ContentsOf(state);
    try {
        AppendEntry(state);
        ADD_FAILURE() << "nothing was raised";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::IndexOutOfRange);
    }
    EXPECT_EQ(ContentsOf(state), before);
    EXPECT_EQ(state.AnzGes, 2000);
    EXPECT_EQ(state.AnzNr, 5);
    EXPECT_EQ(state.Satzwahl.Maximum, 2000);
}

TEST(AppendEntry, AFullSortedRegisterFromWhichOneWasErasedTakesOneMore) {
    RegisterState state = FullRegister();
    for (int position = 1; position <= 2000; ++position) {
        state.RegisterOrder(position) = static_cast<std::int16_t>(2001 - position);
    }
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 10, desktop);  // frees place 1991
    EXPECT_EQ(AppendEntry(state), 2000);
    EXPECT_EQ(state.RegisterOrder(2000), 1991);
    EXPECT_THROW(AppendEntry(state), RuntimeError);
}

TEST(AppendEntry, HoweverEntriesComeAndGoEachKeepsItsPlace) {
    std::mt19937 random(20091123);  // always the same story
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    RegisterState state = RegisterOfNames({u"Erster"});
    NameList expected = Names(state);
    for (int step = 0; step < 400; ++step) {
        const int what = below(5);
        if (what < 2) {
            const int position = AppendEntry(state);
            EntryAt(state, position).Name = u"N" + Decimal(step);
            expected.push_back(u"N" + Decimal(step));
        } else if (what < 4 && expected.size() > 1) {
            const int position = below(state.AnzGes);
            ScriptedDesktop desktop;
            DeleteEntryAt(state, position + 1, desktop);
            expected.erase(expected.begin() + position);
        } else if (state.AnzGes > 1) {  // two entries change their positions, as in a sort
            const int a = below(state.AnzGes);
            const int b = below(state.AnzGes);
            std::swap(state.RegisterOrder(a + 1), state.RegisterOrder(b + 1));
            std::swap(expected[static_cast<std::size_t>(a)], expected[static_cast<std::size_t>(b)]);
        }
        ASSERT_EQ(Names(state), expected) << "step " << step;
    }
}

}  // namespace
}  // namespace norvik::test
