#include "formats/common/followload.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;

TEST(FollowLoad, SortsAndShowsEntry1) {
    RegisterState state = RegisterOfNames({u"Carl", u"Anna", u"Bernd"});
    state.AnzNr = 3;
    ScriptedDesktop desktop;
    desktop.OnShowEntry = [&] {
        EXPECT_EQ(state.AnzNr, 1);
        EXPECT_EQ(EntryAt(state, 1).Name, u"Anna");
    };

    FollowLoad(state, desktop);

    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bernd", u"Carl"));
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(state.Satzwahl.Value, 1);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre("pointer Hourglass", "status \"Sortiere, Durchgang 1\"",
                            "status \"Sortiert: 2\"", "status \"Sortiere, Durchgang 2\"",
                            "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"",
                            "pointer Normal", "status \"Sortieren beendet\"", "entry", "list"));
}

TEST(FollowLoad, NotesThatLineAccessZerosMayBeThere) {
    RegisterState state = RegisterOfNames({u"Anna"});
    ScriptedDesktop desktop;
    ASSERT_FALSE(state.WarnLineAccessZero);
    FollowLoad(state, desktop);
    EXPECT_TRUE(state.WarnLineAccessZero);
}

TEST(FollowLoad, LeavesRegisterSavedAsItIs) {
    for (const bool saved : {true, false}) {
        RegisterState state = RegisterOfNames({u"Anna"});
        state.RegisterSaved = saved;
        ScriptedDesktop desktop;
        FollowLoad(state, desktop);
        EXPECT_EQ(state.RegisterSaved, saved);
    }
}

TEST(FollowLoad, ARegisterWithoutEntriesStopsTheProgram) {
    RegisterState state = RegisterOf({});
    ScriptedDesktop desktop;
    EXPECT_THROW(FollowLoad(state, desktop), HardStop);
    EXPECT_THAT(desktop.Questions(), ElementsAre(OkBox(u"Sortierfehler", u"")));
}

TEST(ShowFirstEntry, ShowsPosition1AndRecountsTheMarkedEntries) {
    RegisterState state =
        RegisterOf({Entry(u"Anna"), Entry(u"Bernd", u"2", u"()"), Entry(u"Carl", u"3", u"x()")});
    state.AnzNr = 2;
    state.Satzwahl.Value = 2;
    state.AnzMarkiert = 0;
    ScriptedDesktop desktop;

    ShowFirstEntry(state, desktop);

    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(state.Satzwahl.Value, 1);
    EXPECT_EQ(state.AnzMarkiert, 2);
    EXPECT_THAT(desktop.Transcript, ElementsAre("entry", "list"));
}

TEST(ShowFirstEntry, WorksOnARegisterWithoutEntries) {
    RegisterState state = RegisterOf({});
    state.AnzNr = 5;
    ScriptedDesktop desktop;
    ShowFirstEntry(state, desktop);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_THAT(desktop.Transcript, ElementsAre("entry", "list"));
}

}  // namespace

}  // namespace norvik::test
