// Setting, clearing and counting the export mark.

#include "register/register.h"

#include "tests/support/builders.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

/// A count that no recount gives, so that a recount shows.
constexpr int Stale = 99;

RegisterState WithInfo(TextView info) {
    RegisterState state = RegisterOf({Entry(u"A", u"1", info)});
    state.AnzMarkiert = Stale;
    return state;
}

TEST(SetExportMark, PutsTheMarkInFrontOfTheInfoAndRecounts) {
    RegisterState state = WithInfo(u"abc");
    SetExportMark(state, 1, true);
    EXPECT_EQ(state.Register(1), Entry(u"A", u"1", u"()abc"));
    EXPECT_EQ(state.AnzMarkiert, 1);
}

TEST(SetExportMark, AnEmptyInfoBecomesTheMark) {
    RegisterState state = WithInfo(u"");
    SetExportMark(state, 1, true);
    EXPECT_EQ(state.Register(1).Info, u"()");
}

TEST(SetExportMark, AFullInfoGrowsByTheMark) {
    RegisterState state = WithInfo(Text(126, u'x'));
    SetExportMark(state, 1, true);
    EXPECT_EQ(state.Register(1).Info, u"()" + Text(126, u'x'));
}

TEST(SetExportMark, MarkingAnEntryThatIsMarkedAlreadyChangesNothing) {
    for (const TextView info : {u"()abc", u"abc()def", u"()()"}) {
        RegisterState state = WithInfo(info);
        SetExportMark(state, 1, true);
        EXPECT_EQ(state.Register(1).Info, info);
        EXPECT_EQ(state.AnzMarkiert, Stale) << "nothing changed, nothing to count";
    }
}

TEST(SetExportMark, UnmarkingAnEntryWithTwoMarksRemovesOnlyTheFirstSoThatItStaysMarked) {
    RegisterState state = WithInfo(u"a()b()c");
    SetExportMark(state, 1, false);
    EXPECT_EQ(state.Register(1).Info, u"ab()c");
    EXPECT_EQ(state.AnzMarkiert, 1);
}

TEST(SetExportMark, AMarkInTheMiddleIsCutOut) {
    RegisterState state = WithInfo(u"abc()def");
    EXPECT_TRUE(IsMarked(state.Register(1)));
    SetExportMark(state, 1, false);
    EXPECT_EQ(state.Register(1), Entry(u"A", u"1", u"abcdef"));
    EXPECT_EQ(state.AnzMarkiert, 0);
}

TEST(SetExportMark, CuttingAMarkOutMayJoinAnother) {
    RegisterState state = WithInfo(u"(())");
    SetExportMark(state, 1, false);
    EXPECT_EQ(state.Register(1).Info, u"()");
    EXPECT_EQ(state.AnzMarkiert, 1);
}

TEST(SetExportMark, UnmarkingAnUnmarkedEntryChangesNothing) {
    RegisterState state = WithInfo(u"(abc)");
    SetExportMark(state, 1, false);
    EXPECT_EQ(state.Register(1).Info, u"(abc)");
    EXPECT_EQ(state.AnzMarkiert, Stale);
}

TEST(SetExportMark, GoesByTableIndexNotByPosition) {
    RegisterState state = RegisterOfNames({u"A", u"B"});
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    SetExportMark(state, 1, true);
    EXPECT_EQ(state.Register(1).Info, u"()");
    EXPECT_EQ(state.Register(2).Info, u"");
}

TEST(SetExportMark, LeavesTheSavedFlagToItsCaller) {
    RegisterState state = WithInfo(u"");
    SetExportMark(state, 1, true);
    EXPECT_TRUE(state.RegisterSaved);
}

TEST(SetExportMark, AnIndexOutside1To2000RaisesError9) {
    RegisterState state;
    EXPECT_THROW(SetExportMark(state, 0, true), RuntimeError);
    EXPECT_THROW(SetExportMark(state, 2001, false), RuntimeError);
}

TEST(CountMarked, CountsEntriesNotMarks) {
    RegisterState state = RegisterOf(
        {Entry(u"A", u"1", u"()()"), Entry(u"B", u"2", u"(x)"), Entry(u"C", u"3", u"abc()def")});
    state.AnzMarkiert = Stale;
    CountMarked(state);
    EXPECT_EQ(state.AnzMarkiert, 2);
}

TEST(CountMarked, NoneIsCountedAs0) {
    RegisterState state = RegisterOfNames({u"A", u"B"});
    state.AnzMarkiert = Stale;
    CountMarked(state);
    EXPECT_EQ(state.AnzMarkiert, 0);
}

TEST(CountMarked, GoesThroughTableIndicesUpToTheCountNotThroughTheOrder) {
    RegisterState state =
        RegisterOf({Entry(u"A", u"1"), Entry(u"B", u"2"), Entry(u"C", u"3", u"()")});
    state.RegisterOrder(1) = 3;
    state.RegisterOrder(3) = 1;
    SetCount(state, 2);  // shown are places 3 and 2, counted are places 1 and 2
    CountMarked(state);
    EXPECT_EQ(state.AnzMarkiert, 0);
}

TEST(CountMarked, ReachesTheLastPlace) {
    RegisterState state;
    state.Register(1).Info = u"()";
    state.Register(2000).Info = u"()";
    SetCount(state, 2000);
    CountMarked(state);
    EXPECT_EQ(state.AnzMarkiert, 2);
}

}  // namespace
}  // namespace norvik::test
