#include "formats/common/doublednumbers.h"

#include "tests/support/builders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Country 49, area 30.
Settings Berlin() {
    Settings settings;
    settings.InternationalPrefix = u"0049";
    settings.AreaPrefix = u"030";
    return settings;
}

Text Key(TextView number) {
    return DialledKey(number, Berlin());
}

TEST(DialledKey, IsTheInternationalForm) {
    for (const TextView number :
         {u"030 1234", u"1234", u"+49 30 1234", u"0049(30)1234", u"  030-12/34 "}) {
        EXPECT_EQ(Key(number), u"0049301234");
    }
    EXPECT_EQ(Key(u"+43 1 234"), u"00431234");
}

TEST(DialledKey, OfTheOwnExchangeIsTheNumberItself) {
    EXPECT_EQ(Key(u"i12"), u"i12");
    EXPECT_EQ(Key(u"**12"), u"**12");
    EXPECT_EQ(Key(u"*12"), u"*12");
    EXPECT_EQ(Key(u"##12"), u"##12");
    EXPECT_EQ(Key(u"#(1)-2"), u"#12");
    EXPECT_NE(Key(u"i12"), Key(u"12"));
}

TEST(DialledKey, OfNoDigitIsNone) {
    EXPECT_EQ(Key(u""), u"");
    EXPECT_EQ(Key(u"  "), u"");
    EXPECT_EQ(Key(u"unbekannt"), u"");
    EXPECT_EQ(Key(u"+"), u"");
    EXPECT_EQ(Key(u"*#"), u"");
}

TEST(DialledKey, NeedsNoSettings) {
    Settings none;
    none.InternationalPrefix = u"00";
    none.AreaPrefix = u"0";
    EXPECT_EQ(DialledKey(u"030 1234", none), DialledKey(u"0301234", none));
    EXPECT_EQ(DialledKey(u"", none), u"");
    EXPECT_EQ(DialledKey(u"(1)2-34", none), u"1234");
    EXPECT_NE(DialledKey(u"112", none), DialledKey(u"0112", none));
    Settings country = Berlin();
    country.AreaPrefix = u"0";
    EXPECT_NE(DialledKey(u"1234", country), DialledKey(u"01234", country));
    EXPECT_EQ(DialledKey(u"01234", country), DialledKey(u"+491234", country));
}

RegisterState Numbers(std::initializer_list<TextView> numbers) {
    RegisterState state;
    ResetRegister(state);
    int count = 0;
    for (const TextView number : numbers) {
        state.Register(++count).Tel = number;
    }
    SetCount(state, count);
    return state;
}

TEST(DoubledNumbers, AreThoseOfSeveralEntriesInTheirOrder) {
    const RegisterState state =
        Numbers({u"030 1", u"0711 2", u"1", u"", u"+49 711 2", u"089 3", u"", u"0049 30 1"});
    EXPECT_THAT(DoubledNumbers(state, Berlin()), ElementsAre(DoubledNumber{u"0049301", {1, 3, 8}},
                                                             DoubledNumber{u"00497112", {2, 5}}));
}

TEST(DoubledNumbers, AreLookedForInTheShownPositionsAlone) {
    RegisterState state = Numbers({u"1", u"2", u"1"});
    state.AnzGes = 2;
    EXPECT_THAT(DoubledNumbers(state, Berlin()), IsEmpty());
    state.AnzGes = 0;
    EXPECT_THAT(DoubledNumbers(state, Berlin()), IsEmpty());
}

TEST(DoubledNumbers, GoByPositionNotByPlace) {
    RegisterState state = Numbers({u"2", u"1", u"1"});
    std::swap(state.RegisterOrder(1), state.RegisterOrder(3));
    EXPECT_THAT(DoubledNumbers(state, Berlin()), ElementsAre(DoubledNumber{u"0049301", {1, 2}}));
}

}  // namespace

}  // namespace norvik::test
