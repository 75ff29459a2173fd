#include "base/numbers.h"
#include "tests/support/times.h"

#include <gtest/gtest.h>

#include <ctime>
#include <limits>
#include <locale>

namespace norvik::test {
namespace {

/// A locale in which a number looks quite different from a German and from a C one.
class ForeignNumbers : public std::numpunct<char> {
  protected:
    char do_decimal_point() const override { return '#'; }
    char do_thousands_sep() const override { return '_'; }
    std::string do_grouping() const override { return "\1"; }
};

class InForeignLocale {
  public:
    InForeignLocale()
        : before_(std::locale::global(std::locale(std::locale(), new ForeignNumbers))) {}
    InForeignLocale(const InForeignLocale&) = delete;
    InForeignLocale& operator=(const InForeignLocale&) = delete;
    InForeignLocale(InForeignLocale&&) = delete;
    InForeignLocale& operator=(InForeignLocale&&) = delete;
    ~InForeignLocale() { std::locale::global(before_); }

  private:
    std::locale before_;
};

TEST(ParseDecimal, CommaAndPointGiveTheSame) {
    EXPECT_EQ(ParseDecimal(u"0,12"), 0.12);
    EXPECT_EQ(ParseDecimal(u"0.12"), 0.12);
}

TEST(ParseDecimal, OnlyTheFirstCommaBecomesAPoint) {
    EXPECT_EQ(ParseDecimal(u"1.234,5"), 1.234);
    EXPECT_EQ(ParseDecimal(u"1,234,5"), 1.234);
    EXPECT_EQ(ParseDecimal(u"1,234.5"), 1.234);
}

TEST(ParseDecimal, StopsAtTheFirstCharacterThatCannotContinueTheNumber) {
    EXPECT_EQ(ParseDecimal(u"12a34"), 12);
    EXPECT_EQ(ParseDecimal(u"12 34"), 12);
    EXPECT_EQ(ParseDecimal(u"12-3"), 12);
    EXPECT_EQ(ParseDecimal(u"0,15 Euro, netto"), 0.15);
    EXPECT_EQ(ParseDecimal(u"7ü"), 7);
}

TEST(ParseDecimal, AnEmptyOrNonNumericTextGives0) {
    for (const TextView text : {u"", u"   ", u"Euro", u"a1", u",", u".", u"-", u"+", u"-,", u"--1",
                                u"+-1", u"\t", u"- 5"}) {
        EXPECT_EQ(ParseDecimal(text), 0) << testing::PrintToString(Text(text));
    }
}

TEST(ParseDecimal, ASignIsRead) {
    EXPECT_EQ(ParseDecimal(u"-3"), -3);
    EXPECT_EQ(ParseDecimal(u"+3"), 3);
    EXPECT_EQ(ParseDecimal(u"-0,5"), -0.5);
}

TEST(ParseDecimal, AnExponentIsNotRead) {
    EXPECT_EQ(ParseDecimal(u"1e3"), 1);
    EXPECT_EQ(ParseDecimal(u"1.5E3"), 1.5);
    EXPECT_EQ(ParseDecimal(u"1d3"), 1);
}

TEST(ParseDecimal, WordsForSpecialValuesAndHexadecimalDigitsAreNoNumbers) {
    EXPECT_EQ(ParseDecimal(u"inf"), 0);
    EXPECT_EQ(ParseDecimal(u"nan"), 0);
    EXPECT_EQ(ParseDecimal(u"0x1F"), 0);
}

TEST(ParseDecimal, DigitsOnOneSideOfThePointAreEnough) {
    EXPECT_EQ(ParseDecimal(u",5"), 0.5);
    EXPECT_EQ(ParseDecimal(u"5,"), 5);
    EXPECT_EQ(ParseDecimal(u"5,x"), 5);
}

TEST(ParseDecimal, LeadingBlanksDoNotCount) {
    EXPECT_EQ(ParseDecimal(u"   7,5"), 7.5);
}

TEST(ParseDecimal, ManyDigitsOverflowNothing) {
    EXPECT_EQ(ParseDecimal(Text(400, u'9')), std::numeric_limits<double>::max());
    EXPECT_EQ(ParseDecimal(u"-" + Text(400, u'9')), -std::numeric_limits<double>::max());
    EXPECT_EQ(ParseDecimal(u"0," + Text(400, u'0') + u"1"), 0);
    EXPECT_EQ(ParseDecimal(Text(400, u'0') + u"12"), 12);
}

TEST(ParseDecimal, TheLocaleDoesNotMatter) {
    const InForeignLocale locale;
    EXPECT_EQ(ParseDecimal(u"1234,5"), 1234.5);
    EXPECT_EQ(ParseDecimal(u"1#5"), 1);
}

TEST(FormatAmount, HasTwoDecimalsAndADecimalComma) {
    EXPECT_EQ(FormatAmount(0), u"0,00");
    EXPECT_EQ(FormatAmount(5), u"5,00");
    EXPECT_EQ(FormatAmount(0.12), u"0,12");
    EXPECT_EQ(FormatAmount(0.5), u"0,50");
    EXPECT_EQ(FormatAmount(0.05), u"0,05");
}

TEST(FormatAmount, GroupsNoThousands) {
    EXPECT_EQ(FormatAmount(1234567.89), u"1234567,89");
    EXPECT_EQ(FormatAmount(2147483647.0 * 0.12), u"257698037,64");
}

TEST(FormatAmount, RoundsHalfAwayFromZeroOnTheDecimalValue) {
    EXPECT_EQ(FormatAmount(0.125), u"0,13");
    EXPECT_EQ(FormatAmount(2.675), u"2,68");
    EXPECT_EQ(FormatAmount(-2.675), u"-2,68");
    EXPECT_EQ(FormatAmount(1.005), u"1,01");
    EXPECT_EQ(FormatAmount(0.005), u"0,01");
    EXPECT_EQ(FormatAmount(0.0049), u"0,00");
    EXPECT_EQ(FormatAmount(0.124999), u"0,12");
}

TEST(FormatAmount, ACarryGoesThroughAllDigits) {
    EXPECT_EQ(FormatAmount(0.995), u"1,00");
    EXPECT_EQ(FormatAmount(0.0951), u"0,10");
    EXPECT_EQ(FormatAmount(999.995), u"1000,00");
}

TEST(FormatAmount, FifteenDigitsCount) {
    EXPECT_EQ(FormatAmount(0.1 + 0.2), u"0,30");
    EXPECT_EQ(FormatAmount(1.1 * 1.1 * 100), u"121,00");
    EXPECT_EQ(FormatAmount(0.00499999999999999999), u"0,01");
}

TEST(FormatAmount, AnAmountThatRoundsToZeroFromBelowHasNoSign) {
    EXPECT_EQ(FormatAmount(-0.0), u"0,00");
    EXPECT_EQ(FormatAmount(-0.001), u"0,00");
    EXPECT_EQ(FormatAmount(-0.0049), u"0,00");
    EXPECT_EQ(FormatAmount(-0.005), u"-0,01");
    EXPECT_EQ(FormatAmount(-1e-300), u"0,00");
}

TEST(FormatAmount, AnAmountOfManyDigitsIsWrittenOut) {
    EXPECT_EQ(FormatAmount(1e20), u"100000000000000000000,00");
    EXPECT_EQ(FormatAmount(1e300), u"1" + Text(300, u'0') + u",00");
    EXPECT_EQ(FormatAmount(std::numeric_limits<double>::infinity()),
              FormatAmount(std::numeric_limits<double>::max()));
}

TEST(FormatAmount, TheLocaleDoesNotMatter) {
    const InForeignLocale locale;
    EXPECT_EQ(FormatAmount(1234.5), u"1234,50");
}

TEST(Hex2, Of0Is00) {
    EXPECT_EQ(Hex2(0), u"00");
}

TEST(Hex2, Of6Is06) {
    EXPECT_EQ(Hex2(6), u"06");
}

TEST(Hex2, IsTheLastTwoUpperCaseDigits) {
    EXPECT_EQ(Hex2(5), u"05");
    EXPECT_EQ(Hex2(15), u"0F");
    EXPECT_EQ(Hex2(16), u"10");
    EXPECT_EQ(Hex2(255), u"FF");
    EXPECT_EQ(Hex2(256), u"00");
    EXPECT_EQ(Hex2(4096), u"00");
    EXPECT_EQ(Hex2(32767), u"FF");
}

TEST(Hex2, ANegativeValueHasItsTwosComplementDigits) {
    EXPECT_EQ(Hex2(-1), u"FF");
    EXPECT_EQ(Hex2(-32768), u"00");
}

TEST(FormatDateTime, WritesTheLocalDayAndMinuteInGermanOrder) {
    EXPECT_EQ(FormatDateTime(LocalTime(2009, 11, 23, 17, 45, 59)), u"23.11.2009 17:45");
}

TEST(FormatDateTime, FillsUpWithZeros) {
    EXPECT_EQ(FormatDateTime(LocalTime(2001, 2, 3, 4, 5, 6)), u"03.02.2001 04:05");
    EXPECT_EQ(FormatDateTime(LocalTime(2024, 2, 29, 0, 0, 0)), u"29.02.2024 00:00");
}

TEST(FormatDateTime, TheLocaleDoesNotMatter) {
    const InForeignLocale locale;
    EXPECT_EQ(FormatDateTime(LocalTime(1999, 12, 31, 23, 59, 0)), u"31.12.1999 23:59");
}

}  // namespace
}  // namespace norvik::test
