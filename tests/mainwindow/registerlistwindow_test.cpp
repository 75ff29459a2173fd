#include "mainwindow/registerlistwindow.h"

#include "tests/support/handlerfixture.h"

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;
using Texts = std::vector<Text>;

/// Three entries, not sorted by place: position 1 is "Anna" with announcement 1, position 2 "Bernd"
/// with call filter and announcement 2, position 3 "Carl" with none of it.
RegisterState ThreeEntries() {
    RegisterEntry anna = Entry(u"Anna", u"030");
    anna.AB = 1;
    RegisterEntry bernd = Entry(u"Bernd", u"040");
    bernd.AB = 2;
    bernd.MsnFilter = 0x4F;
    RegisterState state = RegisterOf({Entry(u"Carl", u"050"), bernd, anna});
    state.RegisterOrder(1) = 3;
    state.RegisterOrder(3) = 1;
    return state;
}

class RegisterList : public HandlerFixture {
  protected:
    RegisterList() {
        Given(ThreeEntries());
        mnuListView(program, desktop);
        desktop.Transcript.clear();
    }

    /// The user ticks a box, or clears it.
    void Click(std::size_t box) {
        program.List.chkFi.at(box) = !program.List.chkFi.at(box);
        chkFi_Click(program, desktop, desktop);
    }

    /// The marks of places 1 to 3: Carl, Bernd, Anna.
    std::vector<bool> Listed() {
        return {program.State.Register(1).Listed, program.State.Register(2).Listed,
                program.State.Register(3).Listed};
    }

    void ExpectFieldsOfANewWindow() {
        EXPECT_FALSE(program.List.Open);
        EXPECT_EQ(program.List.chkFi, (std::array<bool, 8>{}));
        EXPECT_EQ(program.List.ListResult, Texts());
        EXPECT_EQ(program.List.AnzTreffer, u"-");
    }

    const Texts AllRows = {u"#1: Anna (030)", u"#2: Bernd (040)", u"#3: Carl (050)"};
};

TEST(RegisterListAtStart, IsNotShown) {
    EXPECT_FALSE(Program().List.Open);
}

TEST_F(RegisterList, TheMenuItemShowsItEmpty) {
    NVList_btnCancel_Click(program, desktop);
    desktop.Transcript.clear();

    mnuListView(program, desktop);

    EXPECT_EQ(desktop.Transcript, Lines{"show NVList"});
    EXPECT_TRUE(program.List.Open);
    EXPECT_EQ(program.List.ListResult, Texts());
    EXPECT_EQ(program.List.AnzTreffer, u"-");
}

TEST_F(RegisterList, AFillShowsItOnlyWhenItIsNotYetShown) {
    NVList_btnCancel_Click(program, desktop);
    desktop.Transcript.clear();

    Click(0);
    Click(1);

    EXPECT_EQ(desktop.Transcript, Lines{"show NVList"});
    EXPECT_TRUE(program.List.Open);
    EXPECT_EQ(program.List.AnzTreffer, u"2");
}

TEST_F(RegisterList, TheMenuItemBringsAnOpenListToTheFrontAsItIs) {
    Click(0);
    const Texts before = program.List.ListResult;
    mnuListView(program, desktop);
    EXPECT_EQ(desktop.Transcript, Lines{"show NVList"});
    EXPECT_EQ(program.List.ListResult, before);
    EXPECT_TRUE(program.List.chkFi.at(0));
    EXPECT_EQ(program.List.AnzTreffer, u"2");
}

TEST_F(RegisterList, EachClickRefillsItAtOnce) {
    Click(0);
    EXPECT_EQ(program.List.ListResult,
              (Texts{u"AB-Ansage 1:  Anna (030)", u"AB-Ansage 2:  Bernd (040)"}));
    EXPECT_EQ(program.List.AnzTreffer, u"2");
    EXPECT_EQ(Listed(), (std::vector<bool>{false, true, true}));
    Click(4);
    EXPECT_EQ(program.List.ListResult,
              (Texts{u"AB-Ansage 1:  Anna (030)", u"AB-Ansage 2:  Bernd (040)",
                     u"Anruffilter:  Bernd (040)"}));
    EXPECT_EQ(program.List.AnzTreffer, u"3");
    Click(0);
    EXPECT_EQ(program.List.ListResult, Texts{u"Anruffilter:  Bernd (040)"});
    EXPECT_EQ(program.List.AnzTreffer, u"1");
    EXPECT_EQ(Listed(), (std::vector<bool>{false, true, false}));
    EXPECT_EQ(desktop.Transcript, Lines());
}

TEST_F(RegisterList, AnEntryWithACallFilterAndAnAnnouncementGivesTwoLines) {
    program.State = RegisterOf({program.State.Register(2)});
    Click(0);
    Click(4);
    EXPECT_EQ(program.List.ListResult,
              (Texts{u"AB-Ansage 2:  Bernd (040)", u"Anruffilter:  Bernd (040)"}));
    EXPECT_EQ(program.List.AnzTreffer, u"2");
}

TEST_F(RegisterList, EachBoxListsItsProperty) {
    RegisterEntry call = Entry(u"a", u"1", u"()");
    call.Ton = EnTon;
    call.AB = 1;
    call.MsnFilter = 0x40 + EnGeb + 2;
    call.GebEinh = 50;
    RegisterEntry vip = Entry(u"b", u"2");
    vip.MsnFilter = 0x8F;
    RegisterEntry cd = Entry(u"c", u"3");
    cd.MsnFilter = 0xCF;
    program.State = RegisterOf({call, vip, cd});
    program.Set.UnitPrice = 0.1;
    program.Fields.DDTonItems.at(1) = u"Gong";
    const std::array<Text, 8> expected = {
        u"AB-Ansage 1:  a (1)", u"Ton Gong:  a (1)",   u"MSN 3:  a (1)",      u"GZ 5,00:  a (1)",
        u"Anruffilter:  a (1)", u"VIP-Filter:  b (2)", u"CD- Filter:  c (3)", u"Markiert :  a (1)"};
    for (std::size_t box = 0; box < expected.size(); ++box) {
        Click(box);
        EXPECT_EQ(program.List.ListResult, Texts{expected.at(box)}) << box;
        program.List.chkFi.at(box) = false;
    }
}

TEST_F(RegisterList, NoBoxSendsTheLettersForAnyFilterAndForNone) {
    for (std::size_t box : {0U, 1U, 2U, 3U, 7U}) {
        Click(box);
    }
    for (const Text& line : program.List.ListResult) {
        EXPECT_FALSE(Contains(line, u"ilter")) << Utf8(line);
    }
    EXPECT_EQ(program.List.AnzTreffer, u"2");
}

TEST_F(RegisterList, UntickingTheLastBoxLeavesTheListTheCountAndTheMarks) {
    Click(4);
    Click(4);
    EXPECT_EQ(program.List.ListResult, Texts{u"Anruffilter:  Bernd (040)"});
    EXPECT_EQ(program.List.AnzTreffer, u"1");
    EXPECT_EQ(Listed(), (std::vector<bool>{false, true, false}));
}

TEST_F(RegisterList, RefreshingFillsItAsAClickDoes) {
    Click(0);
    program.State.Register(3).AB = 0;
    RefreshRegisterList(program, desktop, desktop);
    EXPECT_EQ(program.List.ListResult, Texts{u"AB-Ansage 2:  Bernd (040)"});
    EXPECT_EQ(program.List.AnzTreffer, u"1");
    EXPECT_EQ(Listed(), (std::vector<bool>{false, true, false}));
}

TEST_F(RegisterList, RefreshingWithoutATickedBoxDoesNothing) {
    program.State.Register(1).Listed = true;
    program.Fields.chkListFilter = true;
    RefreshRegisterList(program, desktop, desktop);
    EXPECT_EQ(desktop.Transcript, Lines());
    EXPECT_EQ(program.List.AnzTreffer, u"-");
    EXPECT_EQ(Listed(), (std::vector<bool>{true, false, false}));
}

TEST_F(RegisterList, AFilteredMainListFollowsEachFill) {
    program.Fields.chkListFilter = true;
    Click(4);
    EXPECT_EQ(Rows(), Texts{u"#2: Bernd (040)"});
    Click(0);
    EXPECT_EQ(Rows(), (Texts{u"#1: Anna (030)", u"#2: Bernd (040)"}));
    EXPECT_EQ(desktop.Transcript, (Lines{"list", "list"}));
}

TEST_F(RegisterList, FillingChangesNothingElse) {
    program.Fields.btnSaveChange = EditState::Pending;
    Field(0) = u"being typed";
    Click(0);
    EXPECT_EQ(Field(0), u"being typed");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
    EXPECT_TRUE(program.State.RegisterSaved);
    EXPECT_EQ(program.State.AnzNr, 1);
}

TEST_F(RegisterList, SettingTheFilterShowsTheListedEntriesAloneAndClosesIt) {
    Click(0);
    EXPECT_EQ(Rows(), AllRows);

    NVList_btnExit_Click(program, desktop, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{"list", "close NVList"}));
    EXPECT_TRUE(program.Fields.chkListFilter);
    EXPECT_EQ(Rows(), (Texts{u"#1: Anna (030)", u"#2: Bernd (040)"}));
    EXPECT_EQ(Listed(), (std::vector<bool>{false, true, true}));
    ExpectFieldsOfANewWindow();
}

TEST_F(RegisterList, SettingTheFilterWithoutATickedBoxShowsAllEntries) {
    Click(4);
    Click(4);
    program.Fields.chkListFilter = true;
    RebuildRows(program);
    ASSERT_EQ(Rows(), Texts{u"#2: Bernd (040)"});

    NVList_btnExit_Click(program, desktop, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{"list", "close NVList"}));
    EXPECT_FALSE(program.Fields.chkListFilter);
    EXPECT_EQ(Rows(), AllRows);
    EXPECT_EQ(Listed(), (std::vector<bool>{false, true, false}));
    ExpectFieldsOfANewWindow();
}

TEST_F(RegisterList, SettingTheSameFilterAgainRebuildsTheMainListAsWell) {
    Click(0);
    program.Fields.chkListFilter = true;
    program.Fields.TelRegListe = {u"#9: alt ()"};
    NVList_btnExit_Click(program, desktop, desktop);
    EXPECT_EQ(Rows(), (Texts{u"#1: Anna (030)", u"#2: Bernd (040)"}));
}

TEST_F(RegisterList, AnyBoxSetsTheFilter) {
    for (std::size_t box = 0; box < 8; ++box) {
        mnuListView(program, desktop);
        program.Fields.chkListFilter = false;
        Click(box);
        NVList_btnExit_Click(program, desktop, desktop);
        EXPECT_TRUE(program.Fields.chkListFilter) << box;
    }
}

TEST_F(RegisterList, AbandoningItLeavesTheFilterBoxAndTheMarks) {
    for (const bool filtered : {false, true}) {
        mnuListView(program, desktop);
        program.Fields.chkListFilter = filtered;
        Click(4);
        desktop.Transcript.clear();

        NVList_btnCancel_Click(program, desktop);

        EXPECT_EQ(desktop.Transcript, Lines{"close NVList"});
        EXPECT_EQ(program.Fields.chkListFilter, filtered);
        EXPECT_EQ(Listed(), (std::vector<bool>{false, true, false}));
        ExpectFieldsOfANewWindow();
    }
}

TEST_F(RegisterList, OpenedAgainItStartsWithoutBoxesWhileTheMarksLast) {
    Click(4);
    NVList_btnExit_Click(program, desktop, desktop);
    mnuListView(program, desktop);
    EXPECT_TRUE(program.List.Open);
    EXPECT_EQ(program.List.chkFi, (std::array<bool, 8>{}));
    EXPECT_EQ(program.List.ListResult, Texts());
    EXPECT_EQ(Listed(), (std::vector<bool>{false, true, false}));
    EXPECT_EQ(Rows(), Texts{u"#2: Bernd (040)"});
}

TEST_F(RegisterList, RenewedWithTickedBoxesItIsRefilled) {
    Click(0);
    RegisterEntry dora = Entry(u"Dora", u"060");
    dora.AB = 1;
    program.State = RegisterOf({dora});
    RenewRegisterList(program, desktop, desktop);
    EXPECT_EQ(program.List.ListResult, Texts{u"AB-Ansage 1:  Dora (060)"});
    EXPECT_EQ(program.List.AnzTreffer, u"1");
}

TEST_F(RegisterList, RenewedWithoutATickedBoxItIsEmptied) {
    Click(0);
    Click(0);
    RenewRegisterList(program, desktop, desktop);
    EXPECT_EQ(program.List.ListResult, Texts());
    EXPECT_EQ(program.List.AnzTreffer, u"-");
    EXPECT_TRUE(program.List.Open);
    EXPECT_EQ(desktop.Transcript, Lines());
}

TEST_F(RegisterList, AClosedListIsNotRenewed) {
    NVList_btnCancel_Click(program, desktop);
    desktop.Transcript.clear();
    RenewRegisterList(program, desktop, desktop);
    EXPECT_EQ(desktop.Transcript, Lines());
    ExpectFieldsOfANewWindow();
}

TEST_F(RegisterList, ALineThatIsChosenShowsItsEntry) {
    Click(0);  // "AB-Ansage 1:  Anna (030)", "AB-Ansage 2:  Bernd (040)"
    desktop.Transcript.clear();
    ListResult_DblClick(program, 1, desktop);
    EXPECT_EQ(program.State.AnzNr, 2);
    ListResult_DblClick(program, 0, desktop);
    EXPECT_EQ(program.State.AnzNr, 1);
    EXPECT_EQ(desktop.Transcript, (Lines{"entry", "entry"}));
    EXPECT_TRUE(program.List.Open);
    EXPECT_FALSE(program.Fields.chkListFilter);
}

TEST_F(RegisterList, ALineThatIsChosenAsksWhatBecomesOfAPendingChoice) {
    Click(0);
    program.Fields.btnSaveChange = EditState::Pending;
    desktop.Transcript.clear();
    desktop.AnswerBox(Button::Yes);
    ListResult_DblClick(program, 1, desktop);
    EXPECT_EQ(desktop.Transcript.size(), 2U);
    EXPECT_EQ(program.State.AnzNr, 2);
}

TEST_F(RegisterList, ALineFindsItsEntryWhereverItStandsNow) {
    Click(0);
    std::swap(program.State.RegisterOrder(1), program.State.RegisterOrder(3));  // Carl, Bernd, Anna
    ListResult_DblClick(program, 0, desktop);
    EXPECT_EQ(program.State.AnzNr, 3);
    EXPECT_EQ(Field(0), u"Anna");
}

TEST_F(RegisterList, ALineWhoseEntryIsGoneSaysSo) {
    Click(0);
    program.State.AnzNr = 1;
    btnErase_Click(program, desktop);
    desktop.Transcript.clear();
    for (const int line : {0, 2, -1}) {
        ListResult_DblClick(program, line, desktop);
    }
    EXPECT_EQ(desktop.Transcript,
              (Lines{"beep", "status \"Dieser Eintrag steht nicht mehr im Register\"", "beep",
                     "status \"Dieser Eintrag steht nicht mehr im Register\"", "beep",
                     "status \"Dieser Eintrag steht nicht mehr im Register\""}));
}

}  // namespace
}  // namespace norvik::test
