#include "paper/fonts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

constexpr bool Bold = true;

TEST(ListFont, IsATrueTypeFile) {
    for (const bool bold : {false, true}) {
        const ByteView file = ListFont(bold);
        ASSERT_GT(file.size(), 10'000U);
        EXPECT_EQ(Bytes(file.begin(), file.begin() + 4), (Bytes{0, 1, 0, 0}));
    }
    EXPECT_NE(ListFont(false).size(), ListFont(true).size());
}

TEST(ListFont, HasEveryCharacterThatShows) {
    for (int byte = 0; byte < 256; ++byte) {
        const char16_t character = CharacterOf(static_cast<Byte>(byte));
        for (const bool bold : {false, true}) {
            EXPECT_EQ(TextWidth({&character, 1}, bold, 1) > 0, !IsControl(character)) << byte;
        }
    }
}

TEST(TextWidth, IsThatOfTheCharacters) {
    EXPECT_DOUBLE_EQ(TextWidth(u"", false, 10), 0);
    EXPECT_DOUBLE_EQ(TextWidth(u"0", false, 10), 5.72);
    EXPECT_DOUBLE_EQ(TextWidth(u"1", false, 10), 5.72);  // figures stand below each other
    EXPECT_DOUBLE_EQ(TextWidth(u"AÄ€", false, 10), 6.15 + 6.15 + 5.72);
    EXPECT_GT(TextWidth(u"Anna", Bold, 10), TextWidth(u"Anna", false, 10));
    EXPECT_DOUBLE_EQ(TextWidth(u"Ω", false, 10), TextWidth(u"?", false, 10));
}

TEST(WrappedText, BreaksAtBlanks) {
    const double three = TextWidth(u"000", false, 10);
    EXPECT_THAT(WrappedText(u"000", false, 10, three), ElementsAre(u"000"));
    EXPECT_THAT(WrappedText(u"000 00", false, 10, three), ElementsAre(u"000", u"00"));
    EXPECT_THAT(WrappedText(u" 0 0  000 ", false, 10, three), ElementsAre(u"0 0", u"000"));
    EXPECT_THAT(WrappedText(u"0000", false, 10, three), ElementsAre(u"000", u"0"));
    EXPECT_THAT(WrappedText(u"0 00000", false, 10, three), ElementsAre(u"0", u"000", u"00"));
    EXPECT_THAT(WrappedText(u"", false, 10, three), ElementsAre(u""));
    EXPECT_THAT(WrappedText(u"   ", false, 10, three), ElementsAre(u""));
}

TEST(WrappedText, GoesOnWhereNothingFits) {
    EXPECT_THAT(WrappedText(u"ab c", false, 10, 0), ElementsAre(u"a", u"b", u"c"));
    EXPECT_THAT(WrappedText(u"ab", false, 10, -5), ElementsAre(u"a", u"b"));
}

TEST(CutText, EndsWithAnEllipsisWhereItIsCut) {
    const double room = TextWidth(u"00…", false, 10);
    EXPECT_EQ(CutText(u"00", false, 10, room), u"00");
    EXPECT_EQ(CutText(u"0000000", false, 10, room), u"00…");
    EXPECT_EQ(CutText(u"0 00000", false, 10, room), u"0…");
    EXPECT_EQ(CutText(u"0000", false, 10, 0), u"0…");
    EXPECT_EQ(CutText(u"", false, 10, -1), u"…");
}

}  // namespace
}  // namespace norvik::test
