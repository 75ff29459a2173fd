#include "base/inputstream.h"

#include "tests/support/errors.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace norvik::test {
namespace {

/// `count` bytes, at most `most` at a time.
InputStream Zeros(std::uintmax_t count, std::size_t most, std::optional<std::uintmax_t> size) {
    const auto read = [count, most](std::span<Byte> block) mutable {
        const std::size_t next = std::min({most, block.size(), static_cast<std::size_t>(count)});
        std::fill_n(block.begin(), next, Byte{0});
        count -= next;
        return next;
    };
    return {read, size};
}

TEST(InputStream, OfBytesGivesThemBlockByBlock) {
    InputStream stream(Raw("'abcde'"));
    EXPECT_EQ(stream.Size(), 5U);
    Bytes block(2);
    EXPECT_EQ(stream.Read(block), 2U);
    EXPECT_EQ(block, Raw("'ab'"));
    EXPECT_EQ(stream.ReadAll(), Raw("'cde'"));
    EXPECT_EQ(stream.Read(block), 0U);
    EXPECT_EQ(stream.ReadAll(), Bytes());
}

TEST(InputStream, WithoutAnythingIsAtItsEnd) {
    InputStream stream;
    Bytes block(1);
    EXPECT_EQ(stream.Read(block), 0U);
    EXPECT_EQ(stream.Size(), 0U);
}

TEST(InputStream, ReadsAllWhateverItsBlocks) {
    for (const std::size_t most : {1U, 7U, 65536U}) {
        EXPECT_EQ(Zeros(70000, most, std::nullopt).ReadAll(), Bytes(70000, 0)) << most;
        EXPECT_EQ(Zeros(70000, most, 3).ReadAll(), Bytes(70000, 0)) << most;  // it has grown
    }
}

TEST(InputStream, ReadsNoMoreAtOnceThanThereMayBe) {
    constexpr std::size_t Block = 1024 * 1024;
    EXPECT_EQ(Zeros(MaximumFileSize, Block, std::nullopt).ReadAll().size(), MaximumFileSize);
    EXPECT_EQ(ErrorOf([] { Zeros(MaximumFileSize + 1, Block, std::nullopt).ReadAll(); }), 7);
    EXPECT_EQ(ErrorOf([] { Zeros(0, Block, MaximumFileSize + 1).ReadAll(); }), 7);
}

}  // namespace
}  // namespace norvik::test
