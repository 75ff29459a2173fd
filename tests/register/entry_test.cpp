#include "register/entry.h"

#include "tests/support/builders.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

RegisterEntry WithTon(int ton) {
    RegisterEntry entry;
    entry.Ton = static_cast<std::int16_t>(ton);
    return entry;
}

RegisterEntry WithMsnFilter(int value) {
    RegisterEntry entry;
    entry.MsnFilter = static_cast<std::int16_t>(value);
    return entry;
}

TEST(HasOwnTone, IsBit7OfTon) {
    EXPECT_TRUE(HasOwnTone(WithTon(0x80)));
    EXPECT_TRUE(HasOwnTone(WithTon(0x80 + 79)));
    EXPECT_FALSE(HasOwnTone(WithTon(0x7F)));
    EXPECT_FALSE(HasOwnTone(WithTon(0x100)));
    EXPECT_FALSE(HasOwnTone(WithTon(0)));
}

TEST(HasChargeCounter, IsBit4OfMsnFilter) {
    EXPECT_TRUE(HasChargeCounter(WithMsnFilter(0x10)));
    EXPECT_TRUE(HasChargeCounter(WithMsnFilter(0xFF)));
    EXPECT_FALSE(HasChargeCounter(WithMsnFilter(0xEF)));
}

TEST(MsnOf, IsTheLowFourBitsOfMsnFilter) {
    EXPECT_EQ(MsnOf(WithMsnFilter(0x00)), 0);
    EXPECT_EQ(MsnOf(WithMsnFilter(0xF5)), 5);
    EXPECT_EQ(MsnOf(WithMsnFilter(0xFF)), 15);
}

TEST(FilterOf, IsBits6And7OfMsnFilterAlone) {
    EXPECT_EQ(FilterOf(WithMsnFilter(0x3F)), 0);
    EXPECT_EQ(FilterOf(WithMsnFilter(0x40)), 1);
    EXPECT_EQ(FilterOf(WithMsnFilter(0x80)), 2);
    EXPECT_EQ(FilterOf(WithMsnFilter(0xC0)), 3);
    EXPECT_EQ(FilterOf(WithMsnFilter(0x7F00)), 0);
}

TEST(RegisterEntry, AFreshEntryHasTheTelephonesMsnTheChargeCounterOffAndNoFilter) {
    const RegisterEntry entry;
    EXPECT_EQ(entry.MsnFilter, 15);
    EXPECT_EQ(MsnOf(entry), MsnOfTelephone);
    EXPECT_FALSE(HasChargeCounter(entry));
    EXPECT_EQ(FilterOf(entry), 0);
}

TEST(IsMarked, TheMarkMayStandAnywhereInTheInfo) {
    EXPECT_TRUE(IsMarked(Entry(u"A", u"1", u"()abc")));
    EXPECT_TRUE(IsMarked(Entry(u"A", u"1", u"abc()def")));
    EXPECT_TRUE(IsMarked(Entry(u"A", u"1", u"abc()")));
    EXPECT_TRUE(IsMarked(Entry(u"A", u"1", u"(())")));
}

TEST(IsMarked, OnlyTheTwoCharactersTogetherInTheInfoMark) {
    EXPECT_FALSE(IsMarked(Entry(u"A", u"1", u"")));
    EXPECT_FALSE(IsMarked(Entry(u"A", u"1", u"(privat)")));
    EXPECT_FALSE(IsMarked(Entry(u"A", u"1", u"( )")));
    EXPECT_FALSE(IsMarked(Entry(u"A", u"1", u")(")));
    EXPECT_FALSE(IsMarked(Entry(u"A()", u"1()", u"")));
}

TEST(InfoLine, IsTheLinesTwentyOneCharacters) {
    const RegisterEntry entry =
        Entry(u"A", u"1", u"Erste Zeile          Zweite Zeile, ganz vollDritte");
    EXPECT_EQ(InfoLine(entry, 0), u"Erste Zeile          ");
    EXPECT_EQ(InfoLine(entry, 1), u"Zweite Zeile, ganz vo");
    EXPECT_EQ(InfoLine(entry, 2), u"llDritte             ");
    EXPECT_EQ(InfoLine(entry, 3), Text(21, u' '));
    EXPECT_EQ(InfoLine(entry, 5), Text(21, u' '));
}

TEST(InfoLine, TheSixthLineEndsAfterItsTwentyOneCharacters) {
    const RegisterEntry entry = Entry(u"A", u"1", Text(105, u'x') + Text(21, u'y') + u"zzz");
    EXPECT_EQ(InfoLine(entry, 4), Text(21, u'x'));
    EXPECT_EQ(InfoLine(entry, 5), Text(21, u'y'));
}

TEST(InfoLine, AnEmptyInfoHasSixBlankLines) {
    for (int line = 0; line < InfoLines; ++line) {
        EXPECT_EQ(InfoLine(RegisterEntry(), line), Text(21, u' ')) << line;
    }
}

}  // namespace
}  // namespace norvik::test
