#include "base/commandwords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::u16string> TextsOf(std::u16string_view line) {
    std::vector<std::u16string> texts;
    for (const CommandWord& word : CommandWords(line)) {
        texts.push_back(word.Text);
    }
    return texts;
}

TEST(CommandWords, AreWhatStandsBehindTheProgramsName) {
    EXPECT_THAT(TextsOf(u""), IsEmpty());
    EXPECT_THAT(TextsOf(u"n.exe"), IsEmpty());
    EXPECT_THAT(TextsOf(u"n.exe  \t "), IsEmpty());
    EXPECT_THAT(TextsOf(u"n.exe a \t b\u03BA"), ElementsAre(u"a", u"b\u03BA"));
    EXPECT_THAT(TextsOf(u"\"C:\\Programme Norvik\\\" a"), ElementsAre(u"a"));
    EXPECT_THAT(TextsOf(u"C:\\\"Pro gramme\"\\n.exe a"), ElementsAre(u"a"));
    EXPECT_THAT(TextsOf(u"\"nie zu Ende"), IsEmpty());
}

TEST(CommandWords, QuotesKeepAWordTogether) {
    EXPECT_THAT(TextsOf(u"n \"a b\" c\" d \"e \"\""), ElementsAre(u"a b", u"c d e", u""));
    EXPECT_THAT(TextsOf(u"n \"a \"\" b\" \"offen "), ElementsAre(u"a \" b", u"offen "));
}

TEST(CommandWords, BackslashesCountInFrontOfAQuoteAlone) {
    EXPECT_THAT(TextsOf(u"n C:\\a\\b\\ \\\\server\\x"),
                ElementsAre(u"C:\\a\\b\\", u"\\\\server\\x"));
    EXPECT_THAT(TextsOf(u"n \"C:\\a b\\\\\" c"), ElementsAre(u"C:\\a b\\", u"c"));
    EXPECT_THAT(TextsOf(u"n a\\\"b c"), ElementsAre(u"a\"b", u"c"));
    EXPECT_THAT(TextsOf(u"n a\\\\\\\"b \"c\\\"d\""), ElementsAre(u"a\\\"b", u"c\"d"));
    EXPECT_THAT(TextsOf(u"n a\\"), ElementsAre(u"a\\"));
}

TEST(CommandWords, APatternStandsOutsideOfQuotes) {
    const std::vector<CommandWord> words = CommandWords(u"n *.t9t \"*\" a?c abc \"ordner x\"\\*");
    ASSERT_EQ(words.size(), 5U);
    EXPECT_TRUE(words[0].IsPattern);
    EXPECT_FALSE(words[1].IsPattern);
    EXPECT_TRUE(words[2].IsPattern);
    EXPECT_FALSE(words[3].IsPattern);
    EXPECT_TRUE(words[4].IsPattern);
    EXPECT_EQ(words[4].Text, u"ordner x\\*");
}

}  // namespace
}  // namespace norvik::test
