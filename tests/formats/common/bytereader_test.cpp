#include "formats/common/bytereader.h"

#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

TEST(ByteReader, GivesTheBytesInTurn) {
    const Bytes bytes = Raw("01 02 03");
    ByteReader file(bytes);
    const ByteView two = file.ReadBytes(2);
    EXPECT_THAT(two, ElementsAre(1, 2));
    EXPECT_FALSE(file.AtEnd());
    EXPECT_EQ(file.ReadByte(), std::optional<Byte>(3));
    EXPECT_TRUE(file.AtEnd());
}

TEST(ByteReader, AtTheEndBytesAreMissingAndTheTextComesBackShorter) {
    const Bytes bytes = Raw("01 02");
    ByteReader file(bytes);
    EXPECT_THAT(file.ReadBytes(5), ElementsAre(1, 2));
    EXPECT_TRUE(file.ReadBytes(5).empty());
    EXPECT_EQ(file.ReadByte(), std::nullopt);
    EXPECT_THAT(file.Read(), ElementsAre(1, 2));
}

}  // namespace
}  // namespace norvik::test
