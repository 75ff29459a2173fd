#include "mainwindow/history.h"

#include "tests/support/builders.h"
#include "tests/support/idledesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace norvik::test {
namespace {

using testing::ElementsAre;

/// All that a step restores, as it stood at one moment.
struct Moment {
    Contents All;
    int AnzGes = 0;
    int AnzNr = 0;
    int AnzMarkiert = 0;
    int SelectorMaximum = 0;
    int SelectorValue = 0;
    Text LoadedModel;
    Text Type;
    FilePath Path;
    bool WarnLineAccessZero = false;

    bool operator==(const Moment&) const = default;
};

Moment MomentOf(const RegisterState& state) {
    return {ContentsOf(state),       state.AnzGes,           state.AnzNr,
            state.AnzMarkiert,       state.Satzwahl.Maximum, state.Satzwahl.Value,
            state.LoadedModel,       state.File.Type,        state.File.Path,
            state.WarnLineAccessZero};
}

class HistoryTest : public testing::Test {
  protected:
    void Given(RegisterState start) {
        state = std::move(start);
        StartHistory(history, state);
    }

    RegisterState state;
    History history;
    IdleDesktop desktop;
};

TEST_F(HistoryTest, BeginsWithoutSteps) {
    Given(RegisterOfNames({u"Anna", u"Bert"}));
    EXPECT_EQ(StepToUndo(history), nullptr);
    EXPECT_EQ(StepToRedo(history), nullptr);
    EXPECT_FALSE(RecordStep(history, state, u"nichts"));
    EXPECT_EQ(StepToUndo(history), nullptr);
}

TEST_F(HistoryTest, AnEntryComesBackWithItsPosition) {
    Given(RegisterOfNames({u"Anna", u"Bert", u"Carl"}));
    state.AnzNr = 2;
    state.Satzwahl.Value = 2;
    const Moment before = MomentOf(state);
    ASSERT_FALSE(RecordStep(history, state, u"nur die Position"));
    DeleteEntryAt(state, 2, desktop);
    const Moment after = MomentOf(state);
    ASSERT_TRUE(RecordStep(history, state, u"Eintrag löschen"));
    ASSERT_NE(StepToUndo(history), nullptr);
    EXPECT_EQ(StepToUndo(history)->What, u"Eintrag löschen");

    EXPECT_FALSE(Undo(history, state).has_value());
    EXPECT_EQ(MomentOf(state), before);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bert", u"Carl"));
    EXPECT_EQ(StepToUndo(history), nullptr);
    ASSERT_NE(StepToRedo(history), nullptr);
    EXPECT_EQ(StepToRedo(history)->What, u"Eintrag löschen");

    EXPECT_FALSE(Redo(history, state).has_value());
    EXPECT_EQ(MomentOf(state), after);
    EXPECT_EQ(StepToRedo(history), nullptr);
}

TEST_F(HistoryTest, AChangeBehindUndoneStepsForgetsThem) {
    Given(RegisterOfNames({u"Anna"}));
    EntryAt(state, 1).Name = u"Berta";
    RecordStep(history, state, u"eins");
    Undo(history, state);
    EntryAt(state, 1).Name = u"Carla";
    ASSERT_TRUE(RecordStep(history, state, u"zwei"));
    EXPECT_EQ(StepToRedo(history), nullptr);
    EXPECT_EQ(history.Steps.size(), 1U);
    Undo(history, state);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna"));
}

TEST_F(HistoryTest, ALoadIsOneStepThatRestoresTheSource) {
    Given(RegisterOfNames({u"Anna", u"Bert"}));
    state.LoadedModel = u"195";
    state.File = {.Type = u"195", .Path = "/alt.t9t", .Modified = FileTime()};
    StartHistory(history, state);
    const Moment before = MomentOf(state);
    const unsigned generation = state.Generation;
    ResetRegister(state);
    EntryAt(state, 1).Name = u"Carl";
    SetCount(state, 1);
    state.AnzMarkiert = 0;
    state.LoadedModel.clear();
    state.File = {.Type = u"CSV", .Path = "/neu.csv", .Modified = std::nullopt};
    state.WarnLineAccessZero = true;
    const Moment after = MomentOf(state);
    ASSERT_TRUE(RecordStep(history, state, u"laden"));
    EXPECT_TRUE(StepToUndo(history)->Loaded);

    Undo(history, state);
    EXPECT_EQ(MomentOf(state), before);
    EXPECT_EQ(state.File.Modified, FileTime());
    EXPECT_NE(state.Generation, generation);  // what was taken from the register is stale again
    EXPECT_FALSE(RecordStep(history, state, u"nichts"));
    Redo(history, state);
    EXPECT_EQ(MomentOf(state), after);
    EXPECT_EQ(state.File.Modified, std::nullopt);
}

TEST_F(HistoryTest, TheSameRegisterLoadedAgainIsAStep) {
    Given(RegisterOfNames({u"Anna"}));
    const RegisterState same = state;
    ResetRegister(state);
    state.Register(1) = same.Register(1);
    EXPECT_TRUE(RecordStep(history, state, u"laden"));
    EXPECT_THAT(history.Steps.front().Entries, testing::IsEmpty());
}

TEST_F(HistoryTest, TheNumberOfChangedEntriesStandsInTheText) {
    Given(RegisterOfNames({u"Anna", u"Bert", u"Carl"}));
    EntryAt(state, 1).Tel = u"01";
    EntryAt(state, 3).Tel = u"03";
    RecordStep(history, state, u"Null hinzufügen (# Einträge)");
    EXPECT_EQ(StepToUndo(history)->What, u"Null hinzufügen (2 Einträge)");
    EntryAt(state, 2).Tel = u"02";
    RecordStep(history, state, u"Null hinzufügen (# Einträge)");
    EXPECT_EQ(StepToUndo(history)->What, u"Null hinzufügen (1 Eintrag)");
    EXPECT_EQ(StepToUndo(history)->Entries.size(), 1U);
}

TEST_F(HistoryTest, TheWarningFlagAloneIsAStep) {
    Given(RegisterOfNames({u"Anna"}));
    state.WarnLineAccessZero = true;
    EXPECT_TRUE(RecordStep(history, state, u"Null hinzufügen (# Einträge)"));
    Undo(history, state);
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST_F(HistoryTest, ListedMarksAreNoStepAndStayAsTheyAre) {
    Given(RegisterOfNames({u"Anna", u"Bert"}));
    EntryAt(state, 1).Name = u"Berta";
    RecordStep(history, state, u"eins");
    EntryAt(state, 1).Listed = true;
    EntryAt(state, 2).Listed = true;
    EXPECT_FALSE(RecordStep(history, state, u"nichts"));
    Undo(history, state);
    EXPECT_EQ(EntryAt(state, 1).Name, u"Anna");
    EXPECT_TRUE(EntryAt(state, 1).Listed);
    EXPECT_TRUE(EntryAt(state, 2).Listed);
    EXPECT_FALSE(RecordStep(history, state, u"nichts"));
}

TEST_F(HistoryTest, TheSavedFlagTellsWhetherTheRegisterIsTheOneSaved) {
    Given(RegisterOfNames({u"Anna", u"Bert"}));
    EntryAt(state, 1).Name = u"Berta";
    RecordStep(history, state, u"eins");
    state.RegisterSaved = true;
    NoteFile(history, state, true);
    EntryAt(state, 1).Name = u"Carla";
    state.RegisterSaved = false;
    RecordStep(history, state, u"zwei");
    Undo(history, state);
    EXPECT_TRUE(state.RegisterSaved);
    Undo(history, state);
    EXPECT_FALSE(state.RegisterSaved);
    Redo(history, state);
    EXPECT_TRUE(state.RegisterSaved);
    Redo(history, state);
    EXPECT_FALSE(state.RegisterSaved);
}

TEST_F(HistoryTest, AnEqualRegisterCountsAsSavedHoweverItCameAbout) {
    Given(RegisterOfNames({u"Anna"}));
    EntryAt(state, 1).Name = u"Berta";
    RecordStep(history, state, u"eins");
    EntryAt(state, 1).Name = u"Anna";
    RecordStep(history, state, u"zwei");
    EntryAt(state, 1).Name = u"Carla";
    RecordStep(history, state, u"drei");
    Undo(history, state);
    EXPECT_TRUE(state.RegisterSaved);
    Undo(history, state);
    EXPECT_FALSE(state.RegisterSaved);
}

TEST_F(HistoryTest, ACountThatDiffersIsNotSaved) {
    Given(RegisterOfNames({u"Anna"}));
    EntryAt(state, AppendEntry(state)).Name = u"Bert";
    RecordStep(history, state, u"eins");
    NoteFile(history, state, true);
    EntryAt(state, AppendEntry(state)).Name = u"Carl";
    RecordStep(history, state, u"zwei");
    Undo(history, state);
    EXPECT_TRUE(state.RegisterSaved);
    Undo(history, state);
    EXPECT_FALSE(state.RegisterSaved);
}

TypedEntry Typed(int place, TextView name) {
    TypedEntry typed;
    typed.Place = place;
    typed.Buffer.Anzeigefeld[NameField] = Text(name);
    return typed;
}

TEST_F(HistoryTest, WhatWasTypedAndLeftIsGivenBackOnce) {
    Given(RegisterOfNames({u"Anna", u"Bert"}));
    RecordTyped(history, history.Done, Typed(1, u"Annal"), u"Eingabe verworfen");
    DeleteEntryAt(state, 1, desktop);
    RecordStep(history, state, u"Eintrag löschen");
    EXPECT_FALSE(Undo(history, state).has_value());
    EXPECT_EQ(StepToUndo(history)->What, u"Eingabe verworfen");
    const std::optional<TypedEntry> typed = Undo(history, state);
    ASSERT_TRUE(typed.has_value());
    EXPECT_EQ(typed->Place, 1);
    EXPECT_EQ(typed->Buffer.Anzeigefeld[NameField], u"Annal");
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bert"));
    EXPECT_EQ(StepToUndo(history), nullptr);
    EXPECT_EQ(StepToRedo(history)->What, u"Eintrag löschen");  // stays to be redone
}

TEST_F(HistoryTest, WhatIsTypedAndTakenBackComesBackByRedoing) {
    Given(RegisterOfNames({u"Anna"}));
    EntryAt(state, 1).Name = u"Berta";
    RecordStep(history, state, u"eins");
    Undo(history, state);
    RecordTypedAsUndone(history, Typed(1, u"Annal"), u"Eingabe");
    EXPECT_EQ(StepToUndo(history), nullptr);
    EXPECT_EQ(StepToRedo(history)->What, u"Eingabe");
    const std::optional<TypedEntry> typed = Redo(history, state);
    ASSERT_TRUE(typed.has_value());
    EXPECT_EQ(typed->Buffer.Anzeigefeld[NameField], u"Annal");
    EXPECT_EQ(StepToUndo(history), nullptr);
    EXPECT_EQ(StepToRedo(history)->What, u"eins");
}

/// A register of as many entries as fit, with names, numbers and info texts of full length.
RegisterState FullRegister() {
    RegisterState full;
    SetCount(full, RegisterPlaces);
    for (int place = 1; place <= RegisterPlaces; ++place) {
        RegisterEntry& entry = full.Register(place);
        entry.Name = PadOrCut(u"Name " + Decimal(place), FieldWidth);
        entry.Tel = PadOrCut(Decimal(place), FieldWidth);
        entry.Info = PadOrCut(u"Info " + Decimal(place), InfoLines * InfoLineWidth);
    }
    return full;
}

void ChangeEveryEntry(RegisterState& state, char16_t mark) {
    for (int place = 1; place <= RegisterPlaces; ++place) {
        state.Register(place).Tel.front() = mark;
    }
}

TEST_F(HistoryTest, AHundredStepsOfWhichTenChangeEveryEntryAreKept) {
    Given(FullRegister());
    const Moment before = MomentOf(state);
    for (int step = 0; step < 100; ++step) {
        if (step % 10 == 0) {
            ChangeEveryEntry(state, static_cast<char16_t>(u'a' + step / 10));
        } else {
            EntryAt(state, step).Name.back() = u'!';
        }
        ASSERT_TRUE(RecordStep(history, state, u"Schritt"));
    }
    EXPECT_LT(SizeOf(history), std::size_t{40} * 1024 * 1024);
    EXPECT_EQ(history.Done, 100U);
    while (StepToUndo(history) != nullptr) {
        Undo(history, state);
    }
    EXPECT_EQ(MomentOf(state), before);
}

TEST_F(HistoryTest, TooMuchDropsTheOldestStepsButNeverTheLast) {
    RegisterState large = FullRegister();
    for (int place = 1; place <= RegisterPlaces; ++place) {
        large.Register(place).Name = Text(10000, u'n');
    }
    Given(large);
    for (const char16_t mark : {u'a', u'b', u'c'}) {
        ChangeEveryEntry(state, mark);
        RecordStep(history, state, Text(1, mark));
        EXPECT_EQ(history.Steps.size(), 1U);
        EXPECT_EQ(StepToUndo(history)->What, Text(1, mark));
    }
    Undo(history, state);
    EXPECT_EQ(state.Register(1).Tel.front(), u'b');
    EXPECT_EQ(StepToUndo(history), nullptr);
}

TEST_F(HistoryTest, NoMoreStepsAreKeptThanTheLimit) {
    Given(RegisterOfNames({u"Anna"}));
    for (std::size_t step = 0; step < HistorySteps + 5; ++step) {
        EntryAt(state, 1).Name = Decimal(static_cast<long long>(step));
        RecordStep(history, state, EntryAt(state, 1).Name);
    }
    EXPECT_EQ(history.Steps.size(), HistorySteps);
    EXPECT_EQ(history.Steps.front().What, u"5");
}

/// Random changes of every kind, undone and redone in between: the register must be at every step
/// what it was there.
TEST_F(HistoryTest, RandomStepsComeBackBitForBit) {
    std::mt19937 random(20260101);
    const auto draw = [&random](int most) {
        return static_cast<int>(random() % static_cast<unsigned>(most));
    };
    Given(RegisterOfNames({u"Anna", u"Bert", u"Carl"}));
    std::vector<Moment> moments = {MomentOf(state)};
    std::size_t at = 0;
    for (int round = 0; round < 600; ++round) {
        const int kind = draw(8);
        if (kind == 0 && at > 0) {
            Undo(history, state);
            ASSERT_EQ(MomentOf(state), moments[--at]) << round;
            continue;
        }
        if (kind == 1 && at + 1 < moments.size()) {
            Redo(history, state);
            ASSERT_EQ(MomentOf(state), moments[++at]) << round;
            continue;
        }
        const int position = 1 + draw(state.AnzGes);
        switch (kind) {
        case 2:
        case 3:
            EntryAt(state, position).Name = Text(static_cast<std::size_t>(draw(30)), u'x');
            break;
        case 4:
            DeleteEntryAt(state, position, desktop);
            break;
        case 5:
            SelectRecord(state, AppendEntry(state), desktop);
            break;
        case 6:
            SetExportMark(state, state.RegisterOrder(position), draw(2) == 0);
            break;
        default:
            if (draw(10) == 0) {
                ResetRegister(state);
                SetCount(state, 1 + draw(5));
                SelectRecord(state, 1, desktop);
                state.File.Path = std::to_string(round);
                state.LoadedModel = Decimal(round);
            } else {
                std::swap(state.RegisterOrder(1), state.RegisterOrder(state.AnzGes));
            }
        }
        CountMarked(state);
        if (RecordStep(history, state, u"Schritt")) {
            moments.resize(at + 1);
            moments.push_back(MomentOf(state));
            ++at;
        } else {
            moments[at] = MomentOf(state);
        }
        if (moments.size() > HistorySteps) {
            StartHistory(history, state);
            moments = {MomentOf(state)};
            at = 0;
        }
    }
    while (at > 0) {
        Undo(history, state);
        // The step's own start is where it was made, though the position moved since the one
        // before.
        --at;
        ASSERT_EQ(ContentsOf(state), moments[at].All);
    }
}

}  // namespace
}  // namespace norvik::test
