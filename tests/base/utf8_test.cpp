#include "base/utf8.h"

#include "base/windows1252.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

TEST(CodePoints, ReadsSequencesOfOneToFourBytes) {
    EXPECT_EQ(CodePoints(u8""), U"");
    EXPECT_EQ(CodePoints(u8"Aä€\U0001F600\U0010FFFF"), U"Aä€\U0001F600\U0010FFFF");
}

std::u32string PointsOf(std::string_view bytes) {
    return CodePoints(std::u8string(bytes.begin(), bytes.end()));
}

TEST(CodePoints, ReplacesEveryByteThatFitsNowhere) {
    EXPECT_EQ(PointsOf("a\xFF"
                       "b"),
              U"a\uFFFDb");
    EXPECT_EQ(PointsOf("\x80"), U"\uFFFD");
    EXPECT_EQ(PointsOf("\xE2\x82"), U"\uFFFD\uFFFD");
    EXPECT_EQ(PointsOf("\xC0\xAF"), U"\uFFFD\uFFFD");            // overlong
    EXPECT_EQ(PointsOf("\xE0\x80\xAF"), U"\uFFFD\uFFFD\uFFFD");  // overlong
    EXPECT_EQ(PointsOf("\xED\xA0\x80"), U"\uFFFD\uFFFD\uFFFD");  // half of a surrogate pair
    EXPECT_EQ(PointsOf("\xF4\x90\x80\x80").size(), 4U);          // beyond the last
    EXPECT_EQ(PointsOf("\xC3(\xA4"), U"\uFFFD(\uFFFD");
}

TEST(TakeCodePoint, TakesOneAndLeavesTheRest) {
    const std::u8string text = u8"€a";
    std::u8string_view rest = text;
    EXPECT_EQ(TakeCodePoint(rest), U'€');
    EXPECT_EQ(rest, u8"a");
    EXPECT_EQ(TakeCodePoint(rest), U'a');
    const char8_t lone = 0xA4;
    std::u8string_view broken(&lone, 1);
    EXPECT_EQ(TakeCodePoint(broken), std::nullopt);
    EXPECT_EQ(broken.size(), 1U);
}

TEST(ToUtf8, WritesOneTwoAndThreeBytes) {
    EXPECT_EQ(ToUtf8(u""), "");
    EXPECT_EQ(ToUtf8(u"Aä€"), "A\xC3\xA4\xE2\x82\xAC");
    EXPECT_EQ(ToUtf8(u"\x007F\x0080"), "\x7F\xC2\x80");
}

TEST(AppendUtf8, WritesFourBytesBehindTheFirst65536Points) {
    std::string utf8 = "a";
    AppendUtf8(utf8, 0xFFFF);
    AppendUtf8(utf8, 0x10000);
    AppendUtf8(utf8, 0x1F600);
    AppendUtf8(utf8, 0x10FFFF);
    EXPECT_EQ(utf8, "a\xEF\xBF\xBF\xF0\x90\x80\x80\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF");
}

TEST(FromUtf8, ReadsEveryCharacterOfTheRepertoireBack) {
    for (int byte = 0; byte < 256; ++byte) {
        const Text text(2, CharacterOf(static_cast<Byte>(byte)));
        EXPECT_EQ(FromUtf8(ToUtf8(text)), text) << byte;
    }
    EXPECT_EQ(FromUtf8(""), u"");
    EXPECT_EQ(FromUtf8("A\xC3\xA4\xE2\x82\xACz"), u"Aä€z");
}

TEST(FromUtf8, RefusesWhatIsNoUtf8) {
    for (const char* const bytes :
         {"\x80", "\xBF", "\xE4", "a\xC3", "\xC3z", "\xC1\x81", "\xE2\x82", "\xE2\x82z",
          "\xE0\x83\xA4", "\xFF", "\xF0\x9F\x98\x80", "\xF8\x88\x80\x80\x80", "\xED\xA0\x80"}) {
        EXPECT_EQ(FromUtf8(bytes), std::nullopt) << bytes;
    }
}

TEST(FromUtf8, RefusesCharactersOutsideTheRepertoire) {
    EXPECT_EQ(FromUtf8("\xC4\x80"), std::nullopt);      // U+0100
    EXPECT_EQ(FromUtf8("\xE6\x97\xA5"), std::nullopt);  // U+65E5
}

}  // namespace
}  // namespace norvik::test
