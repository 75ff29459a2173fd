#include "base/longreport.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

/// Characters that tell where they stand.
Text Numbered(std::size_t length) {
    Text text(length, u'\0');
    for (std::size_t i = 0; i < length; ++i) {
        text[i] = static_cast<char16_t>(u'0' + i % 61);
    }
    return text;
}

Text WithoutMiddle(TextView text) {
    return LongReport(text).Shown();
}

/// What is shown of a text that is too long.
Text Shortened(const Text& text, TextView leftOut) {
    return text.substr(0, 999'950) + u"\r\n[… " + Text(leftOut) + u" Zeichen ausgelassen …]\r\n" +
           text.substr(text.size() - 999'950);
}

TEST(LongReport, IsEmptyAtFirstAndWhenCleared) {
    LongReport report;
    EXPECT_TRUE(report.IsEmpty());
    EXPECT_EQ(report, u"");
    report.Append(u"a");
    EXPECT_FALSE(report.IsEmpty());
    report.Clear();
    EXPECT_TRUE(report.IsEmpty());
    EXPECT_EQ(report, u"");
}

TEST(LongReport, ShowsAllOfAShortReport) {
    LongReport report(u"eins\r\n");
    report.Append(u"zwei").Append(LineEnd).Append(LongReport(u"drei"));
    EXPECT_EQ(report, u"eins\r\nzwei\r\ndrei");
    EXPECT_EQ(report.Size(), 16U);
}

TEST(LongReport, ShowsAllUpToTwoMillionCharacters) {
    const Text text = Numbered(2'000'000);
    EXPECT_TRUE(WithoutMiddle(text) == text);
    EXPECT_TRUE(WithoutMiddle(text + u"x") == Shortened(text + u"x", u"101"));
}

TEST(LongReport, LeavesOutTheMiddleOfALongerOneHoweverItIsPutTogether) {
    for (const std::size_t length :
         {2'000'001U, 2'001'999U, 2'002'000U, 2'004'001U, 2'999'900U, 3'000'000U, 6'500'000U}) {
        const Text text = Numbered(length);
        const Text expected = Shortened(text, Decimal(static_cast<long long>(length) - 1'999'900));
        EXPECT_TRUE(WithoutMiddle(text) == expected) << length;
        for (const std::size_t part : {17U, 999'950U, 1'500'000U}) {
            LongReport report;
            for (std::size_t start = 0; start < length; start += part) {
                report.Append(Slice(text, start, part));
            }
            EXPECT_TRUE(report.Shown() == expected) << length << " in parts of " << part;
            EXPECT_EQ(report.Size(), length);
        }
    }
}

TEST(LongReport, AReportInAReportCountsWhole) {
    const Text text = Numbered(2'345'678);
    LongReport inner(text);
    const Text both = u"vorn" + text;
    LongReport outer(u"vorn");
    outer.Append(inner);
    EXPECT_TRUE(outer.Shown() == WithoutMiddle(both));
    outer.Append(u"hinten");
    EXPECT_TRUE(outer.Shown() == WithoutMiddle(both + u"hinten"));
    EXPECT_EQ(outer.Size(), both.size() + 6);
}

TEST(LongReport, WhatIsShownIsNotShortenedAgain) {
    const Text shown = WithoutMiddle(Text(64'000'000, u'x'));
    EXPECT_LE(shown.size(), 2'000'000U);
    EXPECT_TRUE(WithoutMiddle(shown) == shown);
}

}  // namespace
}  // namespace norvik::test
