#include "registertools/sortregister.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <utility>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

int Sort(RegisterState& state, int place, ScriptedDesktop& desktop) {
    SortRegister(state, place, desktop);
    return place;
}

TEST(SortRegister, ARegisterAlreadyInOrderTakesExactlyOnePass) {
    RegisterState state = RegisterOfNames({u"Anna", u"Bernd", u"Carl"});
    ScriptedDesktop desktop;
    EXPECT_EQ(Sort(state, 2, desktop), 2);
    EXPECT_THAT(Order(state, 3), ElementsAre(1, 2, 3));
    EXPECT_THAT(desktop.Transcript,
                ElementsAre("pointer Hourglass", "status \"Sortiere, Durchgang 1\"",
                            "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"",
                            "pointer Normal", "status \"Sortieren beendet\""));
}

TEST(SortRegister, EveryPassIsCountedTheLastIsTheOneWithoutAnExchange) {
    RegisterState state = RegisterOfNames({u"C", u"B", u"A"});
    ScriptedDesktop desktop;
    EXPECT_EQ(Sort(state, 1, desktop), 3);
    EXPECT_THAT(Order(state, 3), ElementsAre(3, 2, 1));
    EXPECT_THAT(desktop.Transcript,
                ElementsAre("pointer Hourglass", "status \"Sortiere, Durchgang 1\"",
                            "status \"Sortiert: 2\"", "status \"Sortiere, Durchgang 2\"",
                            "status \"Sortiert: 1\"", "status \"Sortiere, Durchgang 3\"",
                            "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"",
                            "pointer Normal", "status \"Sortieren beendet\""));
}

TEST(SortRegister, AnnaComesBeforeBerndWhateverTheCase) {
    RegisterState state = RegisterOfNames({u"Bernd", u"anna"});
    ScriptedDesktop desktop;
    Sort(state, 1, desktop);
    EXPECT_THAT(Names(state), ElementsAre(u"anna", u"Bernd"));
}

TEST(SortRegister, ZoeComesBeforeAerger) {
    RegisterState state = RegisterOfNames({u"Ärger", u"Zoe"});
    ScriptedDesktop desktop;
    Sort(state, 1, desktop);
    EXPECT_THAT(Names(state), ElementsAre(u"Zoe", u"Ärger"));
}

TEST(SortRegister, UmlautsAndSharpSSortBehindZByTheirCodes) {
    RegisterState state = RegisterOfNames({u"Ü", u"ö", u"ß", u"Ä", u"z", u"a", u"Z1"});
    ScriptedDesktop desktop;
    Sort(state, 1, desktop);
    EXPECT_THAT(Names(state), ElementsAre(u"a", u"z", u"Z1", u"ß", u"Ä", u"ö", u"Ü"));
}

TEST(SortRegister, CharactersBetweenTheCasesAreComparedAfterLowering) {
    // "_" (0x5F) stands behind the capitals but before the small letters.
    RegisterState state = RegisterOfNames({u"AB", u"A_"});
    ScriptedDesktop desktop;
    Sort(state, 1, desktop);
    EXPECT_THAT(Names(state), ElementsAre(u"A_", u"AB"));
}

TEST(SortRegister, AnEmptyNameAndAPrefixComeFirst) {
    RegisterState state = RegisterOfNames({u"Annabell", u"Anna", u""});
    ScriptedDesktop desktop;
    Sort(state, 1, desktop);
    EXPECT_THAT(Names(state), ElementsAre(u"", u"Anna", u"Annabell"));
}

TEST(SortRegister, EqualNamesKeepTheirOrder) {
    RegisterState state = RegisterOfNames({u"b", u"ANNA", u"anna", u"Anna", u"a"});
    ScriptedDesktop desktop;
    Sort(state, 1, desktop);
    EXPECT_THAT(Order(state, 5), ElementsAre(5, 2, 3, 4, 1));
}

TEST(SortRegister, OnlyTheNameIsTheKey) {
    RegisterState state = RegisterOf({Entry(u"A", u"9", u"z"), Entry(u"A", u"1", u"a")});
    ScriptedDesktop desktop;
    Sort(state, 1, desktop);
    EXPECT_THAT(Order(state, 2), ElementsAre(1, 2));
}

TEST(SortRegister, ThePlaceNamesTheSamePersonAsBefore) {
    for (int place = 1; place <= 4; ++place) {
        RegisterState state = RegisterOfNames({u"d", u"b", u"c", u"a"});
        const RegisterEntry before = EntryAt(state, place);
        ScriptedDesktop desktop;
        EXPECT_EQ(EntryAt(state, Sort(state, place, desktop)), before);
    }
}

TEST(SortRegister, OfTwoWithTheSameNameAndNumberTheFirstInTheNewOrderIsTaken) {
    RegisterState state =
        RegisterOf({Entry(u"Z"), Entry(u"A", u"1", u"first"), Entry(u"A", u"1", u"second")});
    ScriptedDesktop desktop;
    EXPECT_EQ(Sort(state, 3, desktop), 1);
}

TEST(SortRegister, TheIdentityIsNameFollowedDirectlyByNumber) {
    // "A1" + "2" and "A" + "12" are the same text.
    RegisterState state = RegisterOf({Entry(u"A1", u"2"), Entry(u"A", u"12")});
    ScriptedDesktop desktop;
    EXPECT_EQ(Sort(state, 1, desktop), 1);
    EXPECT_EQ(EntryAt(state, 1).Name, u"A");
}

TEST(SortRegister, TheIdentityIsCaseSensitive) {
    RegisterState state = RegisterOf({Entry(u"ANNA", u"1"), Entry(u"anna", u"1")});
    ScriptedDesktop desktop;
    EXPECT_EQ(Sort(state, 2, desktop), 2);
}

TEST(SortRegister, ACountOf0TakesTheSortierfehlerPath) {
    RegisterState state = RegisterOf({});
    ScriptedDesktop desktop;
    EXPECT_THROW(Sort(state, 1, desktop), HardStop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre("pointer Hourglass", "status \"Sortiere, Durchgang 1\"",
                            "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"",
                            OkBox(u"Sortierfehler", u"")));
}

TEST(SortRegister, ACurrentRecordThatIsNotAmongTheUsedOnesStopsTheProgram) {
    RegisterState state = RegisterOfNames({u"a", u"b", u"c"});
    SetCount(state, 2);
    ScriptedDesktop desktop;
    EXPECT_THROW(Sort(state, 3, desktop), HardStop);
    EXPECT_THAT(desktop.Questions(), ElementsAre(OkBox(u"Sortierfehler", u"")));
}

TEST(SortRegister, MovesNoEntryAndNoPlaceBehindTheCount) {
    RegisterState state = RegisterOfNames({u"d", u"c", u"b", u"a"});
    SetCount(state, 3);
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    Sort(state, 1, desktop);
    EXPECT_TRUE(state.Register == before.Entries);
    EXPECT_THAT(Order(state, 5), ElementsAre(3, 2, 1, 4, 5));
}

TEST(SortRegister, TheWindowsPositionIsTheCallersBusiness) {
    RegisterState state = RegisterOfNames({u"b", u"a"});
    ScriptedDesktop desktop;
    EXPECT_EQ(Sort(state, 1, desktop), 2);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(state.Satzwahl.Value, 1);
}

// Against the plain sort by neighbours

struct BubbleSort {
    std::vector<int> order;
    std::vector<std::string> statuses;
};

BubbleSort SortByNeighbours(const RegisterState& state) {
    BubbleSort result{Order(state, state.AnzGes), {}};
    const auto key = [&](std::size_t i) { return LowerCase(state.Register(result.order[i]).Name); };
    int swaps = 1;
    for (int pass = 1; swaps != 0; ++pass) {
        result.statuses.push_back("Sortiere, Durchgang " + std::to_string(pass));
        swaps = 0;
        for (std::size_t i = 0; i + 1 < result.order.size(); ++i) {
            if (key(i) > key(i + 1)) {
                std::swap(result.order[i], result.order[i + 1]);
                ++swaps;
            }
        }
        result.statuses.push_back("Sortiert: " + std::to_string(swaps));
    }
    result.statuses.emplace_back("Suche Datensatz...");
    result.statuses.emplace_back("Sortieren beendet");
    return result;
}

/// A register of up to 40 short names, many of them equal but for the case, in any order.
RegisterState RandomRegister(std::mt19937& random) {
    constexpr TextView Alphabet = u"abAB zZäÄß_";
    const auto upTo = [&](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit)(random);
    };
    RegisterState state = RegisterOf({});
    const int count = 1 + static_cast<int>(upTo(39));
    SetCount(state, count);
    std::vector<int> places(RegisterPlaces);
    std::iota(places.begin(), places.end(), 1);
    std::shuffle(places.begin(), places.end(), random);
    for (int position = 1; position <= RegisterPlaces; ++position) {
        state.RegisterOrder(position) =
            static_cast<std::int16_t>(places[static_cast<std::size_t>(position - 1)]);
    }
    for (int position = 1; position <= count; ++position) {
        RegisterEntry& entry = EntryAt(state, position);
        for (std::size_t length = upTo(2); length > 0; --length) {
            entry.Name += Alphabet[upTo(Alphabet.size() - 1)];
        }
        entry.Tel = Decimal(position);
    }
    return state;
}

TEST(SortRegister, GivesTheOrderThePassesAndTheSwapsOfASortByNeighbours) {
    for (unsigned seed = 1; seed <= 300; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        RegisterState state = RandomRegister(random);
        const BubbleSort expected = SortByNeighbours(state);
        const int place = std::uniform_int_distribution<int>(1, state.AnzGes)(random);
        const RegisterEntry current = EntryAt(state, place);

        ScriptedDesktop desktop;
        const int newPlace = Sort(state, place, desktop);

        EXPECT_EQ(Order(state, state.AnzGes), expected.order);
        EXPECT_EQ(desktop.Statuses(), expected.statuses);
        EXPECT_EQ(EntryAt(state, newPlace), current);
    }
}

TEST(SortRegister, AFullRegisterInReverseOrderTakes2000Passes) {
    RegisterState state = RegisterOf({});
    SetCount(state, RegisterPlaces);
    for (int place = 1; place <= RegisterPlaces; ++place) {
        state.Register(place).Name = Decimal(9999 - place);
    }
    ScriptedDesktop desktop;
    EXPECT_EQ(Sort(state, 1, desktop), 2000);
    const std::vector<std::string> statuses = desktop.Statuses();
    ASSERT_EQ(statuses.size(), 4002U);
    for (int pass = 1; pass <= 2000; ++pass) {
        const auto at = static_cast<std::size_t>(2 * (pass - 1));
        EXPECT_EQ(statuses[at], "Sortiere, Durchgang " + std::to_string(pass));
        EXPECT_EQ(statuses[at + 1], "Sortiert: " + std::to_string(2000 - pass));
    }
    EXPECT_EQ(state.RegisterOrder(1), 2000);
    EXPECT_EQ(state.RegisterOrder(2000), 1);
}

TEST(SwapsOfPasses, NoKeysAndOneKeyTakeOnePass) {
    EXPECT_THAT(SwapsOfPasses(std::vector<Text>()), ElementsAre(0));
    EXPECT_THAT(SwapsOfPasses({u"a"}), ElementsAre(0));
}

TEST(SwapsOfPasses, EqualKeysAreNeverExchanged) {
    EXPECT_THAT(SwapsOfPasses({u"a", u"a", u"a"}), ElementsAre(0));
    EXPECT_THAT(SwapsOfPasses({u"b", u"a", u"b", u"a"}), ElementsAre(2, 1, 0));
}

}  // namespace

}  // namespace norvik::test
