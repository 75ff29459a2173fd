#include "sync/quotedfields.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using Fields = std::vector<TextView>;

Text QuotedNumbers(int from, int to) {
    Text record;
    for (int number = from; number <= to; ++number) {
        record.append(u"\"").append(Decimal(number)).append(u"\",");
    }
    return record;
}

TEST(SplitQuotedFields, AFieldStandsBetweenTwoQuotes) {
    EXPECT_EQ(SplitQuotedFields(uR"("Meier","Hans")", 40), (Fields{u"Meier", u"Hans"}));
}

TEST(SplitQuotedFields, TheSeparatorIsFree) {
    EXPECT_EQ(SplitQuotedFields(uR"("a";"b")", 40), (Fields{u"a", u"b"}));
    EXPECT_EQ(SplitQuotedFields(u"\"a\"\t\"b\"", 40), (Fields{u"a", u"b"}));
    EXPECT_EQ(SplitQuotedFields(uR"("a" "b")", 40), (Fields{u"a", u"b"}));
    EXPECT_EQ(SplitQuotedFields(uR"("a" and then, 1;2 "b")", 40), (Fields{u"a", u"b"}));
    EXPECT_EQ(SplitQuotedFields(TextView(u"\"a\"\n\0ÿ\"b\"", 9), 40), (Fields{u"a", u"b"}));
}

TEST(SplitQuotedFields, FieldsWithoutASeparatorAreFieldsAllTheSame) {
    EXPECT_EQ(SplitQuotedFields(uR"("a""b""c")", 40), (Fields{u"a", u"b", u"c"}));
}

TEST(SplitQuotedFields, TextInFrontOfTheFirstQuoteIsIgnored) {
    EXPECT_EQ(SplitQuotedFields(uR"(1, "a")", 40), Fields{u"a"});
}

TEST(SplitQuotedFields, TextBehindTheLastQuoteIsIgnored) {
    EXPECT_EQ(SplitQuotedFields(uR"("a",b;c )", 40), Fields{u"a"});
}

TEST(SplitQuotedFields, TwoQuotesInARowAreAnEmptyField) {
    EXPECT_EQ(SplitQuotedFields(uR"("")", 40), Fields{u""});
    EXPECT_EQ(SplitQuotedFields(uR"("","a","")", 40), (Fields{u"", u"a", u""}));
}

TEST(SplitQuotedFields, AFieldCannotContainAQuote) {
    EXPECT_EQ(SplitQuotedFields(uR"("the ""red"" stone")", 40),
              (Fields{u"the ", u"red", u" stone"}));
}

TEST(SplitQuotedFields, ASeparatorBetweenTheQuotesBelongsToTheField) {
    EXPECT_EQ(SplitQuotedFields(uR"("Meier, Hans; 1")", 40), Fields{u"Meier, Hans; 1"});
}

TEST(SplitQuotedFields, AQuoteWithoutAClosingOneEndsTheRecord) {
    EXPECT_EQ(SplitQuotedFields(uR"("a","b","c)", 40), (Fields{u"a", u"b"}));
    EXPECT_EQ(SplitQuotedFields(uR"("a",")", 40), Fields{u"a"});
    EXPECT_EQ(SplitQuotedFields(uR"(")", 40), Fields());
    EXPECT_EQ(SplitQuotedFields(uR"(""")", 40), Fields{u""});
}

TEST(SplitQuotedFields, ARecordWithoutAQuoteHasNoField) {
    EXPECT_EQ(SplitQuotedFields(u"", 40), Fields());
    EXPECT_EQ(SplitQuotedFields(u"Meier,Hans", 40), Fields());
    EXPECT_EQ(SplitQuotedFields(u"'Meier','Hans'", 40), Fields());
}

TEST(SplitQuotedFields, BlanksInAFieldStay) {
    EXPECT_EQ(SplitQuotedFields(u"\"  a  \",\"\t\"", 40), (Fields{u"  a  ", u"\t"}));
}

TEST(SplitQuotedFields, ARecordWithMoreFieldsThanRoomKeepsTheFirstOnes) {
    const Text record = QuotedNumbers(1, 60);
    const Fields forty = SplitQuotedFields(record, 40);
    ASSERT_EQ(forty.size(), 40U);
    EXPECT_EQ(forty.front(), u"1");
    EXPECT_EQ(forty.back(), u"40");
    const Fields fifty = SplitQuotedFields(record, 50);
    ASSERT_EQ(fifty.size(), 50U);
    EXPECT_EQ(fifty.back(), u"50");
    EXPECT_EQ(SplitQuotedFields(record, 1), Fields{u"1"});
    EXPECT_EQ(SplitQuotedFields(record, 0), Fields());
}

TEST(SplitQuotedFields, ExactlyAsManyFieldsAsThereIsRoomAreAllKept) {
    const Text record = QuotedNumbers(1, 40);
    const Fields fields = SplitQuotedFields(record, 40);
    ASSERT_EQ(fields.size(), 40U);
    EXPECT_EQ(fields.back(), u"40");
}

TEST(SplitQuotedFields, TheFieldsPointIntoTheRecord) {
    const Text record = uR"("ab","c")";
    const Fields fields = SplitQuotedFields(record, 40);
    ASSERT_EQ(fields.size(), 2U);
    EXPECT_EQ(fields[0].data(), record.data() + 1);
    EXPECT_EQ(fields[1].data(), record.data() + 6);
}

}  // namespace
}  // namespace norvik::test
