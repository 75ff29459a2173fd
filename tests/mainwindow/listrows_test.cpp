#include "mainwindow/listrows.h"

#include "tests/support/builders.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

RegisterState OneListed() {
    RegisterState state = RegisterOfNames({u"Anna", u"Bernd", u"Carl"});
    state.Register(2).Listed = true;
    return state;
}

TEST(ListRows, ARowHoldsPositionNameNumberAndInfo) {
    const RegisterState state =
        RegisterOf({Entry(u"Anna", u"030123", u"Info"), Entry(u"Bernd", u"", u"")});
    EXPECT_EQ(ListRows(state, false),
              (std::vector<Text>{u"#1: Anna (030123) Info", u"#2: Bernd ()"}));
}

TEST(ListRows, LongNamesAreWhole) {
    const RegisterState state = RegisterOf({Entry(Text(255, u'n'), Text(255, u'7'))});
    EXPECT_EQ(ListRows(state, false),
              std::vector<Text>{u"#1: " + Text(255, u'n') + u" (" + Text(255, u'7') + u")"});
}

TEST(ListRows, EntriesWithoutANameHaveNoRowAndTheOthersKeepTheirPositions) {
    const RegisterState state =
        RegisterOf({Entry(u"", u"1", u"Info"), Entry(u"Bernd", u"2"), Entry(u""), Entry(u" ")});
    EXPECT_EQ(ListRows(state, false), (std::vector<Text>{u"#2: Bernd (2)", u"#4:   ()"}));
}

TEST(ListRows, FollowTheOrderOfPositions) {
    RegisterState state = RegisterOfNames({u"Anna", u"Bernd", u"Carl"});
    state.RegisterOrder(1) = 3;
    state.RegisterOrder(3) = 1;
    EXPECT_EQ(ListRows(state, false),
              (std::vector<Text>{u"#1: Carl (3)", u"#2: Bernd (2)", u"#3: Anna (1)"}));
}

TEST(ListRows, PlacesBehindTheCountHaveNoRow) {
    RegisterState state = RegisterOfNames({u"Anna", u"Bernd", u"Carl"});
    SetCount(state, 2);
    EXPECT_EQ(ListRows(state, false), (std::vector<Text>{u"#1: Anna (1)", u"#2: Bernd (2)"}));
    SetCount(state, 0);
    EXPECT_EQ(ListRows(state, false), std::vector<Text>());
}

TEST(ListRows, WithTheFilterOnlyListedEntriesHaveARow) {
    EXPECT_EQ(ListRows(OneListed(), true), std::vector<Text>{u"#2: Bernd (2)"});
}

TEST(ListRows, WithoutTheFilterTheListedMarkDoesNotMatter) {
    EXPECT_EQ(ListRows(OneListed(), false),
              (std::vector<Text>{u"#1: Anna (1)", u"#2: Bernd (2)", u"#3: Carl (3)"}));
}

TEST(ListRows, AListedEntryWithoutANameHasNoRow) {
    RegisterState state = RegisterOfNames({u"", u"Bernd"});
    state.Register(1).Listed = true;
    EXPECT_EQ(ListRows(state, true), std::vector<Text>());
}

TEST(ListRows, AFullRegisterHasTwoThousandRows) {
    RegisterState state = RegisterOf({});
    for (int place = 1; place <= 2000; ++place) {
        state.Register(place).Name = u"N";
    }
    SetCount(state, 2000);
    const std::vector<Text> rows = ListRows(state, false);
    ASSERT_EQ(rows.size(), 2000U);
    EXPECT_EQ(rows.back(), u"#2000: N ()");
    EXPECT_EQ(PositionOfRow(rows.back()), 2000);
}

TEST(PositionOfRow, IsTheNumberBehindTheFirstCharacter) {
    EXPECT_EQ(PositionOfRow(u"#1: Anna (030) Info"), 1);
    EXPECT_EQ(PositionOfRow(u"#1999: Anna (030) Info"), 1999);
}

TEST(PositionOfRow, IsNotMisledByNameAndNumber) {
    EXPECT_EQ(PositionOfRow(u"#7: 12: 13 (14) #15: 16"), 7);
    EXPECT_EQ(PositionOfRow(u"#7: ,5 (,6)"), 7);
}

TEST(WithoutPosition, BeginsWithTheName) {
    EXPECT_EQ(WithoutPosition(u"#1: Anna (030) Info"), u"Anna (030) Info");
    EXPECT_EQ(WithoutPosition(u"#1999: #2: Anna (030)"), u"#2: Anna (030)");
    EXPECT_EQ(WithoutPosition(u"#1: "), u"");
}

TEST(WithoutPosition, LeavesOtherRowsAsTheyAre) {
    for (const TextView row :
         {u"", u"#", u"#1", u"#1:", u"#1:Anna", u"#: Anna", u"#1x: Anna", u"MSN 1:  Anna (030)"}) {
        EXPECT_EQ(WithoutPosition(row), row);
    }
}

TEST(RowOfPosition, CountsRowsFromZeroAndKnowsPositionsWithoutARow) {
    const std::vector<Text> rows = {u"#2: Bernd ()", u"#9: Ida ()", u"#10: Jan ()", u"#200: Z ()"};
    EXPECT_EQ(RowOfPosition(rows, 2), 0);
    EXPECT_EQ(RowOfPosition(rows, 9), 1);
    EXPECT_EQ(RowOfPosition(rows, 10), 2);
    EXPECT_EQ(RowOfPosition(rows, 200), 3);
    for (const int without : {0, 1, 3, 11, 199, 201}) {
        EXPECT_EQ(RowOfPosition(rows, without), std::nullopt) << without;
    }
}

TEST(RowOfPosition, AnEmptyListHasNone) {
    EXPECT_EQ(RowOfPosition({}, 1), std::nullopt);
}

}  // namespace
}  // namespace norvik::test
