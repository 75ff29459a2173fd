#include "formats/csv/csvsplit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace norvik::test {

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

/// The fields that a splitter fills from a line, and nothing of the empty ones behind them.
std::vector<Text> Filled(const CsvFields& fields) {
    std::vector<Text> values(fields.Values.begin(), fields.Values.end());
    values.resize(std::min(values.size(), fields.Count));
    return values;
}

// The header

TEST(IsQuotedHeader, BeginsAndEndsWithAQuoteAndHoldsAnEvenNumber) {
    EXPECT_TRUE(IsQuotedHeader(u"\"Name\";\"Tel\""));
    EXPECT_TRUE(IsQuotedHeader(u"\"Name\""));
    EXPECT_TRUE(IsQuotedHeader(u"\"\""));
}

TEST(IsQuotedHeader, WithoutAQuoteAtTheBeginningItIsNot) {
    EXPECT_FALSE(IsQuotedHeader(u"Name;\"Tel\";\"Info1\""));
    EXPECT_FALSE(IsQuotedHeader(u" \"Name\";\"Tel\""));
}

TEST(IsQuotedHeader, WithoutAQuoteAtTheEndItIsNot) {
    EXPECT_FALSE(IsQuotedHeader(u"\"Name\";\"Tel\";Info1"));
    EXPECT_FALSE(IsQuotedHeader(u"\"Name\";\"Tel\" "));
}

TEST(IsQuotedHeader, AnOddNumberOfQuotesTurnsItOff) {
    EXPECT_FALSE(IsQuotedHeader(u"\"Name\";Tel\""));
    EXPECT_FALSE(IsQuotedHeader(u"\""));
    EXPECT_FALSE(IsQuotedHeader(u"\"\"\""));
}

TEST(IsQuotedHeader, AnEmptyOrUnquotedHeaderIsNot) {
    EXPECT_FALSE(IsQuotedHeader(u""));
    EXPECT_FALSE(IsQuotedHeader(u"Name;Tel"));
}

// The unquoted form

TEST(SplitPlain, CutsAtEverySemicolon) {
    const CsvFields fields = SplitPlain(u"Anna;030;Info");
    EXPECT_THAT(Filled(fields), ElementsAre(u"Anna", u"030", u"Info"));
    EXPECT_EQ(fields.Count, 3U);
}

TEST(SplitPlain, FieldsThatTheLineDoesNotHaveAreEmpty) {
    const CsvFields fields = SplitPlain(u"Anna");
    EXPECT_EQ(fields.Values[0], u"Anna");
    for (std::size_t i = 1; i < fields.Values.size(); ++i) {
        EXPECT_EQ(fields.Values.at(i), u"") << i;
    }
    EXPECT_EQ(fields.Count, 1U);
}

TEST(SplitPlain, QuotesDoNotProtectASemicolon) {
    const CsvFields fields = SplitPlain(u"\"Meier;Otto\";1");
    EXPECT_THAT(Filled(fields), ElementsAre(u"\"Meier", u"Otto\"", u"1"));
}

TEST(SplitPlain, RightTrimsEachPieceAndKeepsLeadingBlanks) {
    EXPECT_THAT(Filled(SplitPlain(u"  Anna  ; 1 ;   ;b")),
                ElementsAre(u"  Anna", u" 1", u"", u"b"));
}

TEST(SplitPlain, OnlyBlanksAreTrimmed) {
    EXPECT_THAT(Filled(SplitPlain(u"Anna\t;1\u00A0;2\n")),
                ElementsAre(u"Anna\t", u"1\u00A0", u"2\n"));
}

TEST(SplitPlain, AnEmptyLineHasNoField) {
    const CsvFields fields = SplitPlain(u"");
    EXPECT_EQ(fields.Count, 0U);
    EXPECT_THAT(fields.Values, Each(IsEmpty()));
}

TEST(SplitPlain, ALineOfOneBlankHasOneField) {
    EXPECT_EQ(SplitPlain(u" ").Count, 1U);
}

TEST(SplitPlain, OneSemicolonMakesTwoEmptyFields) {
    EXPECT_THAT(Filled(SplitPlain(u";")), ElementsAre(u"", u""));
    EXPECT_EQ(SplitPlain(u";").Count, 2U);
}

TEST(SplitPlain, ASemicolonAtTheEndOpensOneMoreField) {
    EXPECT_EQ(SplitPlain(u"Anna;1;").Count, 3U);
}

TEST(SplitPlain, AFieldOfTwoQuotesIsEmpty) {
    EXPECT_THAT(Filled(SplitPlain(u"\"\";1")), ElementsAre(u"", u"1"));
}

TEST(SplitPlain, AFieldBetweenQuotesLosesThem) {
    EXPECT_THAT(Filled(SplitPlain(u"\"Anna\";\"1\" ;\" b \"")), ElementsAre(u"Anna", u"1", u" b "));
}

TEST(SplitPlain, OnlyTheOuterPairOfQuotesIsTakenOff) {
    EXPECT_THAT(Filled(SplitPlain(u"\"\"\"\";\"\"Anna\"\";\"a\"b\"")),
                ElementsAre(u"\"\"", u"\"Anna\"", u"a\"b"));
}

TEST(SplitPlain, AQuoteAtOneEndAloneStays) {
    EXPECT_THAT(Filled(SplitPlain(u"\"Anna;Anna\"; \"b\"")),
                ElementsAre(u"\"Anna", u"Anna\"", u" \"b\""));
}

TEST(SplitPlain, AFieldThatIsOneQuoteIsEmpty) {
    EXPECT_THAT(Filled(SplitPlain(u"\";1;\"")), ElementsAre(u"", u"1", u""));
}

TEST(SplitPlain, FieldsAfterTheFifteenthAreIgnored) {
    const CsvFields fields = SplitPlain(u"1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;16;17");
    EXPECT_THAT(Filled(fields), ElementsAre(u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9",
                                            u"10", u"11", u"12", u"13", u"14", u"15"));
}

// The quoted form

TEST(SplitQuoted, TakesTheTextsBetweenPairsOfQuotes) {
    EXPECT_THAT(Filled(SplitQuoted(u"\"Anna\";\"030\";\"Info\"")),
                ElementsAre(u"Anna", u"030", u"Info", u""));
}

TEST(SplitQuoted, ReportsTheNumberOfPairsPlus1) {
    EXPECT_EQ(SplitQuoted(u"\"Anna\";\"030\";\"Info\"").Count, 4U);
    EXPECT_EQ(SplitQuoted(u"\"Anna\"").Count, 2U);
    EXPECT_EQ(SplitQuoted(u"Anna;030").Count, 1U);
    EXPECT_EQ(SplitQuoted(u"").Count, 1U);
}

TEST(SplitQuoted, TwoQuotesGiveAnEmptyField) {
    EXPECT_THAT(Filled(SplitQuoted(u"\"\";\"1\";\"\"")), ElementsAre(u"", u"1", u"", u""));
}

TEST(SplitQuoted, WhateverStandsBetweenTheValuesIsSkipped) {
    EXPECT_THAT(Filled(SplitQuoted(u"x \"Anna\" , und ;;\"1\"\"2\" y")),
                ElementsAre(u"Anna", u"1", u"2", u""));
}

TEST(SplitQuoted, ASemicolonBetweenQuotesBelongsToTheValue) {
    EXPECT_THAT(Filled(SplitQuoted(u"\"Meier;Otto\";\"1\"")),
                ElementsAre(u"Meier;Otto", u"1", u""));
}

TEST(SplitQuoted, BlanksAtTheEndsOfAValueStay) {
    EXPECT_THAT(Filled(SplitQuoted(u"\" Anna \"")), ElementsAre(u" Anna ", u""));
}

TEST(SplitQuoted, StopsAtAQuoteThatIsNotClosed) {
    const CsvFields fields = SplitQuoted(u"\"Anna\";\"1\";\"Info");
    EXPECT_THAT(Filled(fields), ElementsAre(u"Anna", u"1", u""));
    EXPECT_EQ(fields.Count, 3U);
}

TEST(SplitQuoted, ALineOfOneQuoteHasNoValue) {
    const CsvFields fields = SplitQuoted(u"\"");
    EXPECT_EQ(fields.Count, 1U);
    EXPECT_THAT(fields.Values, Each(IsEmpty()));
}

TEST(SplitQuoted, AQuoteInsideAValueShiftsTheFollowingOnes) {
    EXPECT_THAT(Filled(SplitQuoted(u"\"a\"b\";\"1\"")), ElementsAre(u"a", u";", u""));
}

TEST(SplitQuoted, ValuesAfterTheFifteenthAreIgnored) {
    Text line;
    for (int i = 1; i <= 17; ++i) {
        line.append(u"\"").append(Decimal(i)).append(u"\";");
    }
    const CsvFields fields = SplitQuoted(line);
    EXPECT_EQ(fields.Values.front(), u"1");
    EXPECT_EQ(fields.Values.back(), u"15");
}

}  // namespace

}  // namespace norvik::test
