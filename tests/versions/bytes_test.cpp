#include "versions/bytes.h"

#include "base/runtimeerror.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <limits>

namespace norvik::test {
namespace {

constexpr std::int64_t Least = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t Most = std::numeric_limits<std::int64_t>::max();

TEST(ByteAppender, PutsNumbersWithTheLowestByteFirst) {
    Bytes bytes;
    ByteAppender appender(bytes);
    appender.Number(1, 1);
    appender.Number(0x0203, 2);
    appender.Number(-2, 4);
    appender.Number(Least, 8);
    EXPECT_EQ(bytes, Raw("01 0302 FEFFFFFF 0000000000000080"));
}

TEST(ByteAppender, PutsBlocksAndTextsBehindTheirLength) {
    Bytes bytes;
    ByteAppender appender(bytes);
    appender.Block(Raw("AA BB"));
    appender.String(u"ä€");
    appender.Block({});
    EXPECT_EQ(bytes, Raw("02000000 AABB 02000000 E480 00000000"));
    EXPECT_THROW(appender.String(u"\u0142"), RuntimeError);
}

TEST(ByteTaker, TakesThemBack) {
    const Bytes bytes = Raw("01 0302 FEFFFFFF 0000000000000080 02000000 E480");
    ByteTaker taker(bytes);
    EXPECT_EQ(taker.Number(1, 0, 1), 1);
    EXPECT_EQ(taker.Number(2, 0, 1000), 0x0203);
    EXPECT_EQ(taker.Number(4, -10, 10), -2);
    EXPECT_EQ(taker.Number(8, Least, Most), Least);
    EXPECT_FALSE(taker.IsDone());
    EXPECT_EQ(taker.String(), u"ä€");
    EXPECT_TRUE(taker.IsDone());
    EXPECT_FALSE(taker.Failed());
}

TEST(ByteTaker, FailsForANumberOutOfItsRangeAndStaysSo) {
    const Bytes bytes = Raw("05 01 01");
    ByteTaker taker(bytes);
    EXPECT_EQ(taker.Number(1, 0, 4), 0);
    EXPECT_TRUE(taker.Failed());
    EXPECT_EQ(taker.Number(1, 0, 4), 0);
    EXPECT_TRUE(taker.Block().empty());
    EXPECT_FALSE(taker.IsDone());
    ByteTaker low(bytes);
    EXPECT_EQ(low.Number(1, 6, 9), 0);
    EXPECT_TRUE(low.Failed());
}

TEST(ByteTaker, FailsAtTheEnd) {
    const Bytes bytes = Raw("01");
    ByteTaker number(bytes);
    EXPECT_EQ(number.Number(2, 0, 9), 0);
    EXPECT_TRUE(number.Failed());
    const Bytes shortBlock = Raw("03000000 AABB");
    ByteTaker block(shortBlock);
    EXPECT_TRUE(block.Block().empty());
    EXPECT_TRUE(block.Failed());
    const Bytes negative = Raw("FFFFFFFF");
    ByteTaker length(negative);
    EXPECT_TRUE(length.Block().empty());
    EXPECT_TRUE(length.Failed());
}

// The values of the hash's authors.
TEST(Fnv1aOf, IsThe64BitFnv1a) {
    EXPECT_EQ(Fnv1aOf({}), 0xCBF29CE484222325U);
    EXPECT_EQ(Fnv1aOf(Raw("'a'")), 0xAF63DC4C8601EC8CU);
    EXPECT_EQ(Fnv1aOf(Raw("'foobar'")), 0x85944171F73967E8U);
}

// Reckoned by hand from the definition.
TEST(HashOf, TakesEightBytesAtATime) {
    EXPECT_EQ(HashOf({}), 0U);
    EXPECT_EQ(HashOf(Raw("'a'")), 0x54CDA58FEF23226FU);
    EXPECT_EQ(HashOf(Raw("'foobar!!'")), 0xEDF5CEA6391CA2A0U);
    EXPECT_EQ(HashOf(Raw("'foobar!! F'")), 0x8A61F38AE2AE2971U);
}

TEST(HashOf, TellsZerosApart) {
    EXPECT_NE(HashOf(Raw("00")), HashOf(Raw("0000")));
    EXPECT_NE(HashOf({}), HashOf(Raw("00")));
}

}  // namespace
}  // namespace norvik::test
