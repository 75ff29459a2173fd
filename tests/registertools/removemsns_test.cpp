#include "registertools/removemsns.h"

#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string Question =
    "box \"Diese Aktion löscht alle Einstellungen zu abgehenden MSN!\\r\\n\" title \"MSN löschen\" "
    "icon Exclamation buttons Ok+Cancel default Cancel -> ";

RegisterState WithFlags(std::initializer_list<int> flags) {
    RegisterState state = RegisterOf({});
    int place = 0;
    for (const int flag : flags) {
        ++place;
        state.Register(place).Name = u"n";
        state.Register(place).MsnFilter = static_cast<std::int16_t>(flag);
    }
    SetCount(state, place);
    return state;
}

std::vector<int> Flags(const RegisterState& state, int count) {
    std::vector<int> flags;
    for (int place = 1; place <= count; ++place) {
        flags.push_back(state.Register(place).MsnFilter);
    }
    return flags;
}

TEST(MnuBearbeitenKillMSN, SetsEveryMsn1To6To15AndCountsThem) {
    RegisterState state = WithFlags({0, 1, 2, 3, 4, 5, 15});
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok);

    EXPECT_TRUE(RemoveMsns(state, desktop));

    EXPECT_THAT(
        desktop.Transcript,
        ElementsAre(Question + "Ok", "status \"6abgehende MSN-Einträge wurden gelöscht.\""));
    EXPECT_THAT(Flags(state, 7), ElementsAre(15, 15, 15, 15, 15, 15, 15));
}

TEST(MnuBearbeitenKillMSN, CancelEndsTheOperation) {
    RegisterState state = WithFlags({0, 5});
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Cancel);
    EXPECT_FALSE(RemoveMsns(state, desktop));
    EXPECT_THAT(desktop.Transcript, ElementsAre(Question + "Cancel"));
    EXPECT_TRUE(ContentsOf(state) == before);
}

TEST(MnuBearbeitenKillMSN, ARegisterWithoutAnyMsnSettingShowsZero) {
    RegisterState state = WithFlags({15, 0x9F});
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok);
    EXPECT_TRUE(RemoveMsns(state, desktop));
    EXPECT_THAT(desktop.Statuses(), ElementsAre("0abgehende MSN-Einträge wurden gelöscht."));
    EXPECT_TRUE(ContentsOf(state) == before);
}

TEST(MnuBearbeitenKillMSN, AnEntryWithMsn6IsNotCountedAndKeepsTheValue6) {
    RegisterState state = WithFlags({6, 7, 8, 9, 10, 11, 12, 13, 14});
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok);
    RemoveMsns(state, desktop);
    EXPECT_THAT(desktop.Statuses(), ElementsAre("0abgehende MSN-Einträge wurden gelöscht."));
    EXPECT_THAT(Flags(state, 9), ElementsAre(6, 7, 8, 9, 10, 11, 12, 13, 14));
}

TEST(MnuBearbeitenKillMSN, FilterCounterAndAllOtherBitsSurvive) {
    RegisterState state = WithFlags({0xC3, 0x10, 0x7FF0, 0x20, -16, -10});
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok);
    RemoveMsns(state, desktop);
    EXPECT_THAT(Flags(state, 6), ElementsAre(0xCF, 0x1F, 0x7FFF, 0x2F, -1, -10));
    EXPECT_THAT(desktop.Statuses(), ElementsAre("5abgehende MSN-Einträge wurden gelöscht."));
}

TEST(MnuBearbeitenKillMSN, ChangesNothingButTheFlagWord) {
    RegisterEntry entry = Entry(u"Anna", u"030", u"()Info");
    entry.RecNumber = 3;
    entry.Ton = 0x85;
    entry.MsnFilter = 0x52;
    entry.GebEinh = 7;
    entry.AB = 4;
    entry.Listed = true;
    RegisterState state = RegisterOf({entry});
    state.RegisterSaved = true;
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok);
    RemoveMsns(state, desktop);
    entry.MsnFilter = 0x5F;
    EXPECT_EQ(state.Register(1), entry);
    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST(MnuBearbeitenKillMSN, EntriesBehindTheCountKeepTheirs) {
    RegisterState state = WithFlags({0, 0, 0});
    SetCount(state, 2);
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok);
    RemoveMsns(state, desktop);
    EXPECT_THAT(Flags(state, 3), ElementsAre(15, 15, 0));
}

TEST(MnuBearbeitenKillMSN, AfterAnEraseNoShownEntryIsMissed) {
    RegisterState state = WithFlags({0, 1, 2, 3});
    state.RegisterOrder(1) = 4;
    state.RegisterOrder(2) = 1;
    state.RegisterOrder(3) = 3;
    state.RegisterOrder(4) = 2;
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 2, desktop);  // frees place 1; the places 2, 3 and 4 are shown
    desktop.Transcript.clear();
    desktop.AnswerBox(Button::Ok);

    RemoveMsns(state, desktop);

    EXPECT_THAT(desktop.Statuses(), ElementsAre("3abgehende MSN-Einträge wurden gelöscht."));
    EXPECT_THAT(Flags(state, 4), ElementsAre(0, 15, 15, 15));
}

TEST(MnuBearbeitenKillMSN, AFullRegisterIsCountedInPlainDecimal) {
    RegisterState state;
    for (int place = 1; place <= RegisterPlaces; ++place) {
        state.Register(place).MsnFilter = 2;
    }
    SetCount(state, RegisterPlaces);
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok);
    RemoveMsns(state, desktop);
    EXPECT_THAT(desktop.Statuses(), ElementsAre("2000abgehende MSN-Einträge wurden gelöscht."));
}

TEST(MnuBearbeitenKillMSN, ARegisterWithoutEntriesShowsZero) {
    RegisterState state = RegisterOf({});
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok);
    EXPECT_TRUE(RemoveMsns(state, desktop));
    EXPECT_THAT(desktop.Statuses(), ElementsAre("0abgehende MSN-Einträge wurden gelöscht."));
}

}  // namespace
}  // namespace norvik::test
