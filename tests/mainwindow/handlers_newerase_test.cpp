// New and erased entries, and the places of the register that they take and leave.
#include "mainwindow/handlers.h"
#include "registertools/sortregister.h"
#include "tests/support/handlerfixture.h"

#include <algorithm>
#include <random>
#include <set>

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

/// Carl, Anna and Bernd at places 1 to 3, shown in the order Anna, Bernd, Carl.
RegisterState SortedRegister() {
    RegisterState state = RegisterOfNames({u"Carl", u"Anna", u"Bernd"});
    ScriptedDesktop desktop;
    int place = 1;
    SortRegister(state, place, desktop);
    return state;
}

RegisterState FullRegister() {
    RegisterState state = RegisterOf({});
    for (int place = 1; place <= 2000; ++place) {
        state.Register(place).Name = u"N" + Decimal(9999 - place);
        state.Register(place).Tel = Decimal(place);
    }
    SetCount(state, 2000);
    return state;
}

class New : public HandlerFixture {};
class Erase : public HandlerFixture {};

TEST_F(New, ShowsAnEmptyEntryBehindTheLastAndFocusesTheName) {
    Given(RegisterOfNames({u"Anna", u"Bernd"}));
    program.State.Register(3) = EntryOfPlace(3, u"Gelöscht", u"3", u"()");
    program.State.Register(3).Listed = true;

    btnNew_Click(program, desktop);

    RegisterEntry expected = EntryOfPlace(3, u"");
    expected.Listed = true;  // clearing an entry leaves its listed mark
    EXPECT_EQ(desktop.Transcript, (Lines{"entry", "focus 0", "list"}));
    EXPECT_EQ(program.State.Register(3), expected);
    EXPECT_EQ(program.State.AnzGes, 3);
    EXPECT_EQ(program.State.AnzNr, 3);
    EXPECT_EQ(program.State.Satzwahl.Maximum, 3);
    EXPECT_EQ(program.State.Satzwahl.Value, 3);
    EXPECT_EQ(Field(0), u"");
    EXPECT_EQ(program.Fields.Index, 3);
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Neutral);
    EXPECT_EQ(Rows(), (std::vector<Text>{u"#1: Anna (1)", u"#2: Bernd (2)"}));
    EXPECT_FALSE(program.State.RegisterSaved);
}

TEST_F(New, AfterErasingReusesTheFreedPlace) {
    Given(RegisterOfNames({u"Anna", u"Bernd", u"Carl"}), 2);
    btnErase_Click(program, desktop);

    btnNew_Click(program, desktop);

    EXPECT_EQ(Order(program.State, 3), (std::vector<int>{1, 3, 2}));
    EXPECT_EQ(program.State.Register(2), EntryOfPlace(2, u""));
    EXPECT_EQ(program.State.Register(2).RecIndex, 1);
    EXPECT_EQ(program.Fields.Index, 2);
    EXPECT_EQ(Names(program.State), (std::vector<Text>{u"Anna", u"Carl", u""}));
}

TEST_F(New, AfterErasingInASortedRegisterReusesTheFreedPlaceAndClearsNoLiveEntry) {
    for (int erased = 1; erased <= 3; ++erased) {
        Given(SortedRegister(), erased);
        std::vector<Text> names = Names(program.State);
        const int freed = program.State.RegisterOrder(erased);
        btnErase_Click(program, desktop);

        btnNew_Click(program, desktop);

        names.erase(names.begin() + erased - 1);
        names.push_back(u"");
        EXPECT_EQ(Names(program.State), names) << erased;
        EXPECT_EQ(program.State.RegisterOrder(3), freed) << erased;
        EXPECT_EQ(program.State.Register(freed), EntryOfPlace(freed, u"")) << erased;
    }
}

TEST_F(New, OnAFullRegisterRaisesErrorNineAndChangesNothing) {
    Given(FullRegister(), 1234);
    Field(0) = u"getippt";
    program.Fields.btnSaveChange = EditState::Pending;
    const Contents before = ContentsOf(program.State);
    try {
        btnNew_Click(program, desktop);
        ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::IndexOutOfRange);
    }
    EXPECT_EQ(desktop.Transcript, Lines());
    EXPECT_TRUE(ContentsOf(program.State) == before);
    EXPECT_EQ(program.State.AnzGes, 2000);
    EXPECT_EQ(program.State.AnzNr, 1234);
    EXPECT_EQ(program.State.Satzwahl.Maximum, 2000);
    EXPECT_EQ(program.State.Satzwahl.Value, 1234);
    EXPECT_TRUE(program.State.RegisterSaved);
    EXPECT_EQ(Field(0), u"getippt");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
}

TEST_F(New, TheLastPlaceCanBeTaken) {
    RegisterState state = FullRegister();
    SetCount(state, 1999);
    Given(state);

    btnNew_Click(program, desktop);

    EXPECT_EQ(program.State.AnzGes, 2000);
    EXPECT_EQ(program.State.AnzNr, 2000);
    EXPECT_EQ(program.State.Register(2000), EntryOfPlace(2000, u""));
}

TEST_F(New, FillsTheFreedPlacesOfAFullSortedRegister) {
    RegisterState state = FullRegister();
    int place = 1;
    SortRegister(state, place, desktop);
    Given(state);
    std::set<int> freed;
    for (const int position : {5, 700, 1998}) {
        Satzwahl_Change(program, position, desktop);
        freed.insert(program.Fields.Index);
        btnErase_Click(program, desktop);
    }
    std::set<int> taken;
    for (int i = 0; i < 3; ++i) {
        btnNew_Click(program, desktop);
        taken.insert(program.Fields.Index);
    }
    EXPECT_EQ(taken, freed);
    EXPECT_THROW(btnNew_Click(program, desktop), RuntimeError);
    const std::vector<int> order = Order(program.State, 2000);
    EXPECT_EQ(std::set<int>(order.begin(), order.end()).size(), 2000U);
}

TEST_F(Erase, TheOnlyEntryIsKeptButCountsAsAChange) {
    Given(RegisterOf({Entry(u"Anna", u"1", u"()")}));

    btnErase_Click(program, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{"entry", "list"}));
    EXPECT_EQ(program.State.Register(1), Entry(u"Anna", u"1", u"()"));
    EXPECT_EQ(program.State.AnzGes, 1);
    EXPECT_EQ(program.State.AnzNr, 1);
    EXPECT_EQ(Rows(), std::vector<Text>{u"#1: Anna (1) ()"});
    EXPECT_FALSE(program.State.RegisterSaved);
}

TEST_F(Erase, InTheMiddleShowsTheEntryThatFollows) {
    Given(RegisterOfNames({u"Anna", u"Bernd", u"Carl"}), 2);
    program.Fields.btnSaveChange = EditState::Pending;

    btnErase_Click(program, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{"entry", "list"}));
    EXPECT_EQ(Order(program.State, 3), (std::vector<int>{1, 3, 2}));
    EXPECT_EQ(program.State.AnzGes, 2);
    EXPECT_EQ(program.State.AnzNr, 2);
    EXPECT_EQ(program.State.Satzwahl.Maximum, 2);
    EXPECT_EQ(program.State.Satzwahl.Value, 2);
    EXPECT_EQ(Field(0), u"Carl");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Neutral);
    EXPECT_EQ(Rows(), (std::vector<Text>{u"#1: Anna (1)", u"#2: Carl (3)"}));
    EXPECT_FALSE(program.State.RegisterSaved);
    EXPECT_EQ(program.State.Register(2), EntryOfPlace(2, u"Bernd", u"2"));  // contents stay
}

TEST_F(Erase, TheLastEntryShowsTheNewLastOne) {
    Given(RegisterOfNames({u"Anna", u"Bernd", u"Carl"}), 3);

    btnErase_Click(program, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{"entry", "list"}));
    EXPECT_EQ(Order(program.State, 3), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(program.State.AnzGes, 2);
    EXPECT_EQ(program.State.AnzNr, 2);
    EXPECT_EQ(program.State.Satzwahl.Value, 2);
    EXPECT_EQ(Field(0), u"Bernd");
    EXPECT_EQ(Rows(), (std::vector<Text>{u"#1: Anna (1)", u"#2: Bernd (2)"}));
}

TEST_F(Erase, InASortedRegisterThePositionNumberIsLeftBehindTheRange) {
    Given(SortedRegister(), 1);
    btnErase_Click(program, desktop);
    EXPECT_EQ(Order(program.State, 3), (std::vector<int>{3, 1, 1}));
    EXPECT_EQ(Names(program.State), (std::vector<Text>{u"Bernd", u"Carl"}));
    EXPECT_EQ(Field(0), u"Bernd");

    Given(SortedRegister(), 2);
    btnErase_Click(program, desktop);
    EXPECT_EQ(Order(program.State, 3), (std::vector<int>{2, 1, 2}));
    EXPECT_EQ(Names(program.State), (std::vector<Text>{u"Anna", u"Carl"}));
    EXPECT_EQ(Field(0), u"Carl");

    Given(SortedRegister(), 3);
    btnErase_Click(program, desktop);
    EXPECT_EQ(Order(program.State, 3), (std::vector<int>{2, 3, 3}));
    EXPECT_EQ(Names(program.State), (std::vector<Text>{u"Anna", u"Bernd"}));
    EXPECT_EQ(Field(0), u"Bernd");
}

TEST_F(Erase, DownToTheLastEntryKeepsThatOne) {
    Given(SortedRegister(), 1);
    for (int i = 0; i < 5; ++i) {
        btnErase_Click(program, desktop);
    }
    EXPECT_EQ(Names(program.State), std::vector<Text>{u"Carl"});
    EXPECT_EQ(program.State.AnzNr, 1);
    EXPECT_EQ(Field(0), u"Carl");
}

TEST_F(Erase, RecountsTheMarksByTableIndex) {
    Given(RegisterOf({Entry(u"Anna", u"1", u"()"), Entry(u"Bernd"), Entry(u"Carl", u"3", u"()")}));
    ASSERT_EQ(program.State.AnzMarkiert, 2);

    btnErase_Click(program, desktop);  // Anna's place stays among indices 1 and 2, Carl's does not

    EXPECT_EQ(program.State.AnzMarkiert, 1);
}

/// The register as its user sees it: people in the order of their positions.
struct Person {
    Text Name;
    Text Tel;
};

class RandomSequence : public HandlerFixture, public testing::WithParamInterface<unsigned> {
  protected:
    int Random(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random); }

    void DoNew() {
        btnNew_Click(program, desktop);
        people.push_back({});
        shown = people.size();
    }

    void DoErase() {
        btnErase_Click(program, desktop);
        if (people.size() > 1) {
            people.erase(people.begin() + static_cast<std::ptrdiff_t>(shown) - 1);
            shown = std::min(shown, people.size());
        }
    }

    void DoStore() {
        const Person person = {Text(1, static_cast<char16_t>(u"aAbBcCzZäÄ"[Random(10)])),
                               Decimal(++lastNumber)};
        Field(0) = person.Name;
        Field(1) = person.Tel;
        btnSaveChange_Click(program, desktop);
        people[shown - 1] = person;
        std::stable_sort(people.begin(), people.end(), [](const Person& a, const Person& b) {
            return LowerCase(a.Name) < LowerCase(b.Name);
        });
        const auto found = std::find_if(people.begin(), people.end(),
                                        [&](const Person& p) { return p.Tel == person.Tel; });
        shown = static_cast<std::size_t>(found - people.begin()) + 1;
    }

    void DoSelect() {
        shown = static_cast<std::size_t>(Random(static_cast<int>(people.size()))) + 1;
        Satzwahl_Change(program, static_cast<int>(shown), desktop);
    }

    void ExpectTheSamePeople() {
        ASSERT_EQ(program.State.AnzGes, static_cast<int>(people.size()));
        ASSERT_EQ(program.State.AnzNr, static_cast<int>(shown));
        std::set<int> places;
        for (std::size_t i = 0; i < people.size(); ++i) {
            const int position = static_cast<int>(i) + 1;
            ASSERT_EQ(EntryAt(program.State, position).Name, people[i].Name) << position;
            ASSERT_EQ(EntryAt(program.State, position).Tel, people[i].Tel) << position;
            places.insert(program.State.RegisterOrder(position));
        }
        ASSERT_EQ(places.size(), people.size()) << "two positions share a place";
        ASSERT_EQ(Field(0), people[shown - 1].Name);
        ASSERT_EQ(Field(1), people[shown - 1].Tel);
    }

    std::mt19937 random{GetParam()};
    std::vector<Person> people;
    std::size_t shown = 1;
    int lastNumber = 100;
};

TEST_P(RandomSequence, NewNeverClearsALiveEntryAndErasingTakesExactlyOne) {
    Given(RegisterOfNames({u"Carl", u"Anna", u"Bernd"}));
    people = {{u"Carl", u"1"}, {u"Anna", u"2"}, {u"Bernd", u"3"}};
    for (int step = 0; step < 400; ++step) {
        const int choice = Random(9);
        if (choice < 3) {
            DoNew();
        } else if (choice < 5) {
            DoErase();
        } else if (choice < 7) {
            DoStore();
        } else {
            DoSelect();
        }
        ASSERT_NO_FATAL_FAILURE(ExpectTheSamePeople()) << "seed " << GetParam() << " step " << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomSequence, testing::Range(1U, 13U));

}  // namespace
}  // namespace norvik::test
