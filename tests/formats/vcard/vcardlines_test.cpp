#include "formats/vcard/vcardlines.h"

#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The lines of the bytes, `most` of which come at a time.
std::vector<std::string> LinesOf(std::string_view file, std::size_t most) {
    const auto read = [rest = file, most](std::span<Byte> block) mutable {
        const std::string_view next = rest.substr(0, std::min(most, block.size()));
        std::copy(next.begin(), next.end(), block.begin());
        rest.remove_prefix(next.size());
        return next.size();
    };
    InputStream input(read, std::nullopt);
    VCardLines reader(input);
    std::vector<std::string> lines;
    for (std::string_view line; reader.Next(line);) {
        lines.emplace_back(line);
    }
    EXPECT_EQ(reader.BytesRead(), file.size());
    return lines;
}

std::vector<std::string> LinesOf(std::string_view file) {
    const std::vector<std::string> lines = LinesOf(file, file.size() + 2);
    for (const std::size_t most : {1U, 2U, 3U}) {
        if (most > 1 || !file.starts_with("\xFF")) {  // a mark comes whole
            EXPECT_EQ(LinesOf(file, most), lines) << most;
        }
    }
    return lines;
}

TEST(VCardLines, EndAtCrLfAndBoth) {
    EXPECT_THAT(LinesOf("a\rb\nc\r\nd"), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(LinesOf("a\r\n"), ElementsAre("a"));
    EXPECT_THAT(LinesOf("a\r\r\n"), ElementsAre("a", ""));
    EXPECT_THAT(LinesOf(""), IsEmpty());
}

TEST(VCardLines, GoOnBehindABlankOrTab) {
    EXPECT_THAT(LinesOf("N:M\xC3\r\n \xBCll\n\ter\nTEL:1"),
                ElementsAre("N:M\xC3\xBCller", "TEL:1"));
    EXPECT_THAT(LinesOf("a\n  b"), ElementsAre("a b"));
}

TEST(VCardLines, GoOnBehindASoftBreakOfQuotedPrintable) {
    EXPECT_THAT(LinesOf("FN;ENCODING=QUOTED-PRINTABLE:=4A=\r\n=4B= \r\nc\r\nTEL:1"),
                ElementsAre("FN;ENCODING=QUOTED-PRINTABLE:=4A=4Bc", "TEL:1"));
    EXPECT_THAT(LinesOf("FN;quoted-printable:a=\n b\n c"), ElementsAre("FN;quoted-printable:a bc"));
    EXPECT_THAT(LinesOf("PHOTO;ENCODING=b:QQ=\nTEL:1"),
                ElementsAre("PHOTO;ENCODING=b:QQ=", "TEL:1"));
    EXPECT_THAT(LinesOf("a=\nb"), ElementsAre("a=", "b"));
}

TEST(VCardLines, ASoftBreakDoesNotSwallowTheEndOfACard) {
    EXPECT_THAT(LinesOf("FN;QUOTED-PRINTABLE:a=\nEND:VCARD\nTEL:1"),
                ElementsAre("FN;QUOTED-PRINTABLE:a=", "END:VCARD", "TEL:1"));
    EXPECT_THAT(LinesOf("FN;QUOTED-PRINTABLE:a="), ElementsAre("FN;QUOTED-PRINTABLE:a="));
}

TEST(VCardLines, KeepTheBeginningOfALongOne) {
    const std::string photo(LongestVCardLine + 100000, 'x');
    const std::vector<std::string> lines = LinesOf("PHOTO:" + photo + "\r\nTEL:1", 65536);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0], ("PHOTO:" + photo).substr(0, LongestVCardLine));
    EXPECT_EQ(lines[1], "TEL:1");
}

TEST(VCardLines, AreWithoutZerosAndMarks) {
    using namespace std::string_view_literals;
    EXPECT_THAT(LinesOf("\xEF\xBB\xBF"
                        "a\0b\n\xEF\xBB\xBF"
                        "c"sv),
                ElementsAre("ab", "c"));
}

TEST(VCardLines, OfUtf16BecomeUtf8) {
    using namespace std::string_view_literals;
    EXPECT_THAT(LinesOf("\xFF\xFE"
                        "a\0\xFC\0\n\0\x3D\xD8\0\xDE"
                        "b\0"sv,
                        64),
                ElementsAre("a\xC3\xBC", "\xF0\x9F\x98\x80"
                                         "b"));
    EXPECT_THAT(LinesOf("\xFE\xFF\0a\xDE\0\x20\xAC\0\r\0\n\xD8\x3D\0b\0"sv, 64),
                ElementsAre("a\xE2\x82\xAC", "b"));
}

}  // namespace
}  // namespace norvik::test
