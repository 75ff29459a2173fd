// LeadingInteger: a text read as a whole number by its leading digits.
#include "base/numbers.h"

#include "base/runtimeerror.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace norvik::test {
namespace {

constexpr long long Least16 = -32768;
constexpr long long Most16 = 32767;
constexpr long long Least32 = -2147483647LL - 1;
constexpr long long Most32 = 2147483647LL;

long long Read(TextView text) {
    return LeadingInteger(text, Least32, Most32);
}

/// The number of the run-time error, 0 for none.
int ErrorOf(TextView text, long long least, long long most) {
    try {
        LeadingInteger(text, least, most);
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

TEST(LeadingInteger, ReadsDigits) {
    EXPECT_EQ(Read(u"0"), 0);
    EXPECT_EQ(Read(u"7"), 7);
    EXPECT_EQ(Read(u"1234567890"), 1234567890);
    EXPECT_EQ(Read(u"000012"), 12);
}

TEST(LeadingInteger, StopsAtTheFirstCharacterThatIsNoDigit) {
    EXPECT_EQ(Read(u"12abc"), 12);
    EXPECT_EQ(Read(u"12 34"), 12);
    EXPECT_EQ(Read(u"12,9"), 12);
    EXPECT_EQ(Read(u"12.9"), 12);
    EXPECT_EQ(Read(u"12-3"), 12);
    EXPECT_EQ(Read(u"0x10"), 0);
    EXPECT_EQ(Read(u"1²"), 1);
}

TEST(LeadingInteger, AnExponentIsNotRead) {
    EXPECT_EQ(Read(u"1e3"), 1);
    EXPECT_EQ(Read(u"1D3"), 1);
}

TEST(LeadingInteger, NoDigitsGive0) {
    for (const TextView text : {u"", u" ", u"abc", u"-", u"+", u"-a", u"--1", u"+-1", u"- 1", u",5",
                                u".5", u"\t1", u"\u00A01", u"²"}) {
        EXPECT_EQ(Read(text), 0) << testing::PrintToString(Text(text));
    }
}

TEST(LeadingInteger, ASignIsRead) {
    EXPECT_EQ(Read(u"-12"), -12);
    EXPECT_EQ(Read(u"+12"), 12);
    EXPECT_EQ(Read(u"-0"), 0);
    EXPECT_EQ(Read(u"-12-3"), -12);
}

TEST(LeadingInteger, LeadingBlanksAreSkipped) {
    EXPECT_EQ(Read(u"   12"), 12);
    EXPECT_EQ(Read(u"  -12 "), -12);
}

TEST(LeadingInteger, TheLimitsThemselvesFit) {
    EXPECT_EQ(LeadingInteger(u"32767", Least16, Most16), 32767);
    EXPECT_EQ(LeadingInteger(u"-32768", Least16, Most16), -32768);
    EXPECT_EQ(LeadingInteger(u"2147483647", Least32, Most32), Most32);
    EXPECT_EQ(LeadingInteger(u"-2147483648", Least32, Most32), Least32);
}

TEST(LeadingInteger, OneBeyondALimitRaisesError6) {
    EXPECT_EQ(ErrorOf(u"32768", Least16, Most16), 6);
    EXPECT_EQ(ErrorOf(u"-32769", Least16, Most16), 6);
    EXPECT_EQ(ErrorOf(u"2147483648", Least32, Most32), 6);
    EXPECT_EQ(ErrorOf(u"-2147483649xyz", Least32, Most32), 6);
    EXPECT_EQ(ErrorOf(u"-1", 0, Most16), 6);
    EXPECT_EQ(ErrorOf(u"", 1, Most16), 6);
}

TEST(LeadingInteger, EveryValueOf16BitsComesBack) {
    for (long long value = Least16 - 100; value <= Most16 + 100; ++value) {
        const bool fits = value >= Least16 && value <= Most16;
        ASSERT_EQ(ErrorOf(Decimal(value), Least16, Most16), fits ? 0 : 6) << value;
        if (fits) {
            ASSERT_EQ(LeadingInteger(Decimal(value), Least16, Most16), value);
        }
    }
}

TEST(LeadingInteger, ANumberOfAnyLengthRaisesError6WithoutWrapping) {
    for (const std::size_t digits : {18U, 19U, 20U, 21U, 39U, 100U, 100'000U}) {
        for (const char16_t digit : {u'1', u'9'}) {
            EXPECT_EQ(ErrorOf(Text(digits, digit), Least32, Most32), 6) << digits;
            EXPECT_EQ(ErrorOf(u"-" + Text(digits, digit), Least32, Most32), 6) << digits;
        }
    }
    EXPECT_EQ(ErrorOf(u"18446744073709551617", Least32, Most32), 6) << "2 to the 64th and 1";
    EXPECT_EQ(ErrorOf(u"4294967297", Least32, Most32), 6) << "2 to the 32nd and 1";
}

TEST(LeadingInteger, ALongRowOfZerosIsNoLargeNumber) {
    EXPECT_EQ(Read(Text(1000, u'0') + u"42"), 42);
}

}  // namespace
}  // namespace norvik::test
