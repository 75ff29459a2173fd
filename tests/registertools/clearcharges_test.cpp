#include "registertools/clearcharges.h"

#include "formats/charges/chargestatement.h"
#include "registertools/sortregister.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string Question =
    "box \"Diese Aktion löscht alle individuellen Gebührenzähler!\\r\\n\" title \"Zähler löschen\" "
    "icon Exclamation buttons Ok+Cancel default Ok -> ";
const std::string Done = "status \"Alle individuellen Gebührenzähler wurden gelöscht.\"";

/// An entry that differs in every field from an empty one.
RegisterEntry Full(TextView name, std::int16_t msnFilter, std::int32_t units) {
    RegisterEntry entry = Entry(name, u"0301", u"()Info");
    entry.RecNumber = 7;
    entry.Ton = 0x85;
    entry.MsnFilter = msnFilter;
    entry.GebEinh = units;
    entry.AB = 3;
    entry.Listed = true;
    return entry;
}

RegisterState Three() {
    RegisterState state = RegisterOf(
        {Full(u"Carl", 0x93, 12), Full(u"Anna", 0x0F, 2'147'483'647), Full(u"Bernd", 0x10, -5)});
    state.AnzNr = 2;
    return state;
}

TEST(MnuGebDelete, SetsEveryCounterTo0AndKeepsTheBitAndAllOtherFields) {
    RegisterState state = Three();
    Contents expected = ContentsOf(state);
    for (int place = 1; place <= 3; ++place) {
        expected.Entries(place).GebEinh = 0;
    }
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok);

    EXPECT_TRUE(ClearCharges(state, desktop));

    EXPECT_THAT(desktop.Transcript, ElementsAre(Question + "Ok", Done));
    EXPECT_TRUE(ContentsOf(state) == expected);
    EXPECT_EQ(state.Register(1).MsnFilter, 0x93);
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_EQ(state.AnzGes, 3);
}

TEST(MnuGebDelete, CancelKeepsEveryCounter) {
    RegisterState state = Three();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Cancel);
    EXPECT_FALSE(ClearCharges(state, desktop));
    EXPECT_THAT(desktop.Transcript, ElementsAre(Question + "Cancel"));
    EXPECT_TRUE(ContentsOf(state) == before);
}

TEST(MnuGebDelete, DoesNotTouchWhetherTheRegisterIsSaved) {
    for (const bool saved : {true, false}) {
        RegisterState state = Three();
        state.RegisterSaved = saved;
        ScriptedDesktop desktop;
        desktop.AnswerBox(Button::Ok);
        ClearCharges(state, desktop);
        EXPECT_EQ(state.RegisterSaved, saved);
    }
}

TEST(MnuGebDelete, ReachesEveryShownEntryOfASortedRegisterAfterAnErase) {
    for (int erased = 1; erased <= 3; ++erased) {
        RegisterState state = Three();
        ScriptedDesktop desktop;
        int place = 1;
        SortRegister(state, place, desktop);
        const int freed = state.RegisterOrder(erased);
        const std::int32_t unitsOfFreed = state.Register(freed).GebEinh;
        DeleteEntryAt(state, erased, desktop);
        desktop.AnswerBox(Button::Ok);

        ClearCharges(state, desktop);

        EXPECT_EQ(EntryAt(state, 1).GebEinh, 0) << erased;
        EXPECT_EQ(EntryAt(state, 2).GebEinh, 0) << erased;
        EXPECT_EQ(state.Register(freed).GebEinh, unitsOfFreed) << erased;
    }
}

TEST(MnuGebDelete, ReachesTheLastEntryOfAFullRegister) {
    RegisterState state;
    for (int place = 1; place <= RegisterPlaces; ++place) {
        state.Register(place).GebEinh = place;
    }
    SetCount(state, RegisterPlaces);
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok);
    ClearCharges(state, desktop);
    for (int place = 1; place <= RegisterPlaces; ++place) {
        EXPECT_EQ(state.Register(place).GebEinh, 0) << place;
    }
}

TEST(MnuGebDelete, AfterwardsAStatementListsTheSameEntriesWith0_00Each) {
    const TestFolder folder;
    RegisterState state = Three();
    WriteChargeStatement(state, 0.1, folder / "vorher.geb");
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok);
    ClearCharges(state, desktop);
    WriteChargeStatement(state, 0.1, folder / "nachher.geb");

    const Bytes head = Raw("'Norvik Geb' FC 'hrenauszug' 0D 0A 'Typ:    Zeit: ' 0D 0A"
                           "'Quelle: ' 0D 0A 'EINZELGEB' DC 'HR' 09 'NAME' 0D 0A");
    EXPECT_EQ(ReadFile(folder / "vorher.geb"),
              Join({head, Raw("'1,20' 09 'Carl' 0D 0A '-0,50' 09 'Bernd' 0D 0A"
                              "0D 0A '0,70' 09 'GESAMTSUMME' 0D 0A")}));
    EXPECT_EQ(ReadFile(folder / "nachher.geb"),
              Join({head, Raw("'0,00' 09 'Carl' 0D 0A '0,00' 09 'Bernd' 0D 0A"
                              "0D 0A '0,00' 09 'GESAMTSUMME' 0D 0A")}));
}

}  // namespace
}  // namespace norvik::test
