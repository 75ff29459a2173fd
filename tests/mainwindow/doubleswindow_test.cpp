#include "mainwindow/doubleswindow.h"

#include "mainwindow/undo.h"
#include "tests/support/handlerfixture.h"

#include <gmock/gmock.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DoublesWindow : public HandlerFixture {
  protected:
    DoublesWindow() {
        program.Set.InternationalPrefix = u"0049";
        program.Set.AreaPrefix = u"030";
        Given(RegisterOf({Entry(u"Anna", u"030 1"), Entry(u"Bernd", u"2"), Entry(u"Carla", u"1"),
                          Entry(u"Dora", u"+49 30 2"), Entry(u"Emil", u"3")}));
        StartHistory(program.Past, program.State);
    }

    void Do(const std::function<void()>& operation, TextView what = {}) {
        RunStep(program, what, operation, desktop);
    }
    void Open() {
        Do([&] { mnuListDoubles(program, desktop); });
        desktop.Transcript.clear();
    }
    void Choose(int row) {
        Do([&] { ListDoubles_Click(program, row, desktop); }, StoredStep);
    }
    void Erase() {
        Do([&] { DOUBLES_btnErase_Click(program, desktop); }, EraseStep);
    }
    [[nodiscard]] std::vector<Text> RowNames() const {
        std::vector<Text> names;
        for (const DoubleRow& row : program.Doubles.ListDoubles) {
            names.push_back(row.Name);
        }
        return names;
    }
};

TEST_F(DoublesWindow, ShowsTheEntriesNumberByNumber) {
    Do([&] { mnuListDoubles(program, desktop); });
    EXPECT_THAT(desktop.Transcript, ElementsAre("show DOUBLES", "pointer Normal"));
    EXPECT_TRUE(program.Doubles.Open);
    EXPECT_EQ(program.Doubles.Chosen, -1);
    EXPECT_THAT(program.Doubles.ListDoubles, ElementsAre(DoubleRow{.Place = 1,
                                                                   .Position = 1,
                                                                   .Group = 0,
                                                                   .Dialled = u"0049301",
                                                                   .Name = u"Anna",
                                                                   .Tel = u"030 1"},
                                                         DoubleRow{.Place = 3,
                                                                   .Position = 3,
                                                                   .Group = 0,
                                                                   .Dialled = u"0049301",
                                                                   .Name = u"Carla",
                                                                   .Tel = u"1"},
                                                         DoubleRow{.Place = 2,
                                                                   .Position = 2,
                                                                   .Group = 1,
                                                                   .Dialled = u"0049302",
                                                                   .Name = u"Bernd",
                                                                   .Tel = u"2"},
                                                         DoubleRow{.Place = 4,
                                                                   .Position = 4,
                                                                   .Group = 1,
                                                                   .Dialled = u"0049302",
                                                                   .Name = u"Dora",
                                                                   .Tel = u"+49 30 2"}));
}

TEST_F(DoublesWindow, AClickShowsTheEntry) {
    Open();
    Choose(1);
    EXPECT_EQ(program.Doubles.Chosen, 1);
    EXPECT_EQ(program.State.AnzNr, 3);
    EXPECT_THAT(desktop.Transcript, ElementsAre("entry", "pointer Normal"));
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(DoublesWindow, AClickAsksBeforeAPendingChoiceIsLeft) {
    Open();
    Choice_Change(program);
    Field(0) = u"Anton";
    desktop.AnswerBox(Button::No);
    Choose(1);
    EXPECT_EQ(EntryAt(program.State, 1).Name, u"Anton");
    EXPECT_EQ(program.State.AnzNr, 3);
    EXPECT_FALSE(program.State.RegisterSaved);
    EXPECT_THAT(RowNames(), ElementsAre(u"Anton", u"Carla", u"Bernd", u"Dora"));
}

TEST_F(DoublesWindow, ErasesTheChosenEntryAsTheButtonDoesAndThatCanBeUndone) {
    Open();
    Choose(1);
    desktop.Transcript.clear();
    Erase();
    const auto erased = desktop.Transcript;
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bernd", u"Dora", u"Emil"));
    EXPECT_FALSE(program.State.RegisterSaved);
    EXPECT_THAT(RowNames(), ElementsAre(u"Bernd", u"Dora"));
    EXPECT_EQ(program.Doubles.Chosen, -1);
    EXPECT_EQ(Utf8(UndoCaption(program)), "&Rückgängig: Eintrag löschen");
    desktop.Transcript.clear();
    Do([&] { mnuBearbeitenUndo(program, desktop); });
    EXPECT_THAT(RowNames(), ElementsAre(u"Anna", u"Carla", u"Bernd", u"Dora"));

    Do([&] { SelectRecord(program.State, 3, desktop); });
    desktop.Transcript.clear();
    Do([&] { btnErase_Click(program, desktop); }, EraseStep);
    EXPECT_EQ(desktop.Transcript, erased);
}

TEST_F(DoublesWindow, ErasesTheChosenEntryAlsoWhenAnotherOneIsShown) {
    Open();
    Choose(1);
    Do([&] { SelectRecord(program.State, 5, desktop); });
    Erase();
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bernd", u"Dora", u"Emil"));
}

TEST_F(DoublesWindow, WithoutAChosenRowNothingIsErased) {
    Open();
    Erase();
    EXPECT_EQ(program.State.AnzGes, 5);
    EXPECT_THAT(desktop.Transcript, ElementsAre("pointer Normal"));
}

TEST_F(DoublesWindow, FollowsTheRegister) {
    Open();
    Choose(2);
    Field(1) = u"030 3";
    Do([&] { btnSaveChange_Click(program, desktop); }, StoredStep);
    EXPECT_THAT(RowNames(), ElementsAre(u"Anna", u"Carla", u"Bernd", u"Emil"));
    EXPECT_EQ(program.Doubles.Chosen, 2);
    Do([&] {
        ResetRegister(program.State);
        SetCount(program.State, 1);
    });
    EXPECT_THAT(RowNames(), IsEmpty());
    EXPECT_EQ(program.Doubles.Chosen, -1);
}

TEST_F(DoublesWindow, AnotherRegisterHasNoChosenRow) {
    Open();
    Choose(1);
    Do([&] { ++program.State.Generation; });
    EXPECT_THAT(RowNames(), ElementsAre(u"Anna", u"Carla", u"Bernd", u"Dora"));
    EXPECT_EQ(program.Doubles.Chosen, -1);
}

TEST_F(DoublesWindow, FollowsTheOwnCountryAndArea) {
    Open();
    Do([&] { program.Set.AreaPrefix = u"040"; });
    EXPECT_THAT(RowNames(), IsEmpty());
}

TEST_F(DoublesWindow, ClosesAndForgets) {
    Open();
    Choose(1);
    desktop.Transcript.clear();
    Do([&] { DOUBLES_btnClose_Click(program, desktop); });
    EXPECT_THAT(desktop.Transcript, ElementsAre("close DOUBLES", "pointer Normal"));
    EXPECT_FALSE(program.Doubles.Open);
    EXPECT_THAT(RowNames(), IsEmpty());
    Erase();
    EXPECT_EQ(program.State.AnzGes, 5);
}

}  // namespace
}  // namespace norvik::test
