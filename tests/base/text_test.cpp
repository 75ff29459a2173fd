#include "base/text.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

constexpr TextView Uppers = u"ABCDEFGHIJKLMNOPQRSTUVWXYZÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞŠŒŽŸ";
constexpr TextView Lowers = u"abcdefghijklmnopqrstuvwxyzàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþšœžÿ";

TEST(LowerCase, LowersEveryCapitalLetterOfTheRepertoire) {
    EXPECT_EQ(LowerCase(Uppers), Lowers);
}

TEST(LowerCase, LeavesEveryOtherCharacterAsItIs) {
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const auto c = static_cast<char16_t>(code);
        if (!Contains(Uppers, TextView(&c, 1))) {
            ASSERT_EQ(LowerCase(c), c) << code;
        }
    }
}

TEST(UpperCase, RaisesEverySmallLetterOfTheRepertoire) {
    EXPECT_EQ(UpperCase(Lowers), Uppers);
}

TEST(UpperCase, LeavesEveryOtherCharacterAsItIs) {
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const auto c = static_cast<char16_t>(code);
        if (!Contains(Lowers, TextView(&c, 1))) {
            ASSERT_EQ(UpperCase(c), c) << code;
        }
    }
}

TEST(UpperCase, TheSharpSAndTheSignsHaveNoOtherCase) {
    EXPECT_EQ(UpperCase(u"ß×÷µƒªº"), u"ß×÷µƒªº");
    EXPECT_EQ(LowerCase(u"ß×÷µƒªº"), u"ß×÷µƒªº");
}

TEST(TrimBlanks, CutsBlanksAtBothEndsAndKeepsThoseBetween) {
    EXPECT_EQ(TrimBlanks(u"  a  b   "), u"a  b");
    EXPECT_EQ(TrimBlanks(u"ab"), u"ab");
}

TEST(TrimBlanks, NothingButBlanksGivesNothing) {
    EXPECT_EQ(TrimBlanks(u"   "), u"");
    EXPECT_EQ(TrimBlanks(u""), u"");
}

TEST(TrimBlanks, OtherWhiteSpaceIsNoBlank) {
    EXPECT_EQ(TrimBlanks(u" \t a\u00A0 "), u"\t a\u00A0");
    EXPECT_EQ(TrimBlanks(u"\r\n a \r\n"), u"\r\n a \r\n");
}

TEST(RightTrim, CutsBlanksAtTheEndAlone) {
    EXPECT_EQ(RightTrim(u"  a b  "), u"  a b");
    EXPECT_EQ(RightTrim(u"a\t "), u"a\t");
    EXPECT_EQ(RightTrim(u"   "), u"");
    EXPECT_EQ(RightTrim(u""), u"");
}

TEST(Slice, GivesWhatTheTextHasThere) {
    EXPECT_EQ(Slice(u"abcdef", 1, 3), u"bcd");
    EXPECT_EQ(Slice(u"abcdef", 4, 3), u"ef");
    EXPECT_EQ(Slice(u"abcdef", 2), u"cdef");
    EXPECT_EQ(Slice(u"abcdef", 0, 0), u"");
}

TEST(Slice, BehindTheEndIsNothing) {
    EXPECT_EQ(Slice(u"abc", 3, 1), u"");
    EXPECT_EQ(Slice(u"abc", 1000), u"");
    EXPECT_EQ(Slice(u"", 0, 5), u"");
}

TEST(PadOrCut, GivesExactlyTheWidth) {
    EXPECT_EQ(PadOrCut(u"ab", 4), u"ab  ");
    EXPECT_EQ(PadOrCut(u"abcd", 4), u"abcd");
    EXPECT_EQ(PadOrCut(u"abcdef", 4), u"abcd");
    EXPECT_EQ(PadOrCut(u"", 2), u"  ");
    EXPECT_EQ(PadOrCut(u"ab", 0), u"");
}

TEST(Contains, FindsAPartAnywhereByCharacterCodes) {
    EXPECT_TRUE(Contains(u"abc", u"abc"));
    EXPECT_TRUE(Contains(u"abc", u"c"));
    EXPECT_FALSE(Contains(u"abc", u"C"));
    EXPECT_FALSE(Contains(u"abc", u"ac"));
    EXPECT_FALSE(Contains(u"", u"a"));
}

TEST(Contains, AnEmptyPartOccursEverywhere) {
    EXPECT_TRUE(Contains(u"abc", u""));
    EXPECT_TRUE(Contains(u"", u""));
}

TEST(Decimal, WritesPlainDigits) {
    EXPECT_EQ(Decimal(0), u"0");
    EXPECT_EQ(Decimal(-12), u"-12");
    EXPECT_EQ(Decimal(2147483647), u"2147483647");
}

TEST(FromAscii, TakesEveryCharacterOver) {
    EXPECT_EQ(FromAscii("a~ 1"), u"a~ 1");
    EXPECT_EQ(FromAscii(""), u"");
}

TEST(LineEnd, IsCarriageReturnAndLineFeed) {
    EXPECT_EQ(LineEnd, Text({char16_t{13}, char16_t{10}}));
    EXPECT_EQ(Tab, char16_t{9});
}

TEST(IsControl, IsTrueOfWhatIsNotShown) {
    for (const char16_t c : TextView(u"\u0000\u0001\t\r\n\u001F\u007F\u0080\u0081\u009F", 10)) {
        EXPECT_TRUE(IsControl(c)) << static_cast<int>(c);
    }
    for (const char16_t c : TextView(u" ~\u00A0ÿ€Š")) {
        EXPECT_FALSE(IsControl(c)) << static_cast<int>(c);
    }
}

}  // namespace
}  // namespace norvik::test
