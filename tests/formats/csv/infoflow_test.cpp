#include "formats/csv/infoflow.h"

#include <gtest/gtest.h>

#include <vector>

namespace norvik::test {

namespace {

Text Assemble(const std::vector<TextView>& fields) {
    return AssembleInfo(fields);
}

/// A text of `length` times the same character.
Text Times(std::size_t length, char16_t character) {
    return Text(length, character);
}

// Fields of at most 21 characters

TEST(AssembleInfo, FieldsOfALineEachArePaddedAndJoined) {
    EXPECT_EQ(Assemble({u"one", u"two", u"three"}), u"one                  "
                                                    u"two                  "
                                                    u"three");
}

TEST(AssembleInfo, AnEmptyFieldIsAnEmptyLine) {
    EXPECT_EQ(Assemble({u"", u"two", u"", u"", u"five", u""}), u"                     "
                                                               u"two                  "
                                                               u"                     "
                                                               u"                     "
                                                               u"five");
}

TEST(AssembleInfo, NoFieldsAndEmptyFieldsGiveNoText) {
    EXPECT_EQ(Assemble({}), u"");
    EXPECT_EQ(Assemble({u"", u"", u"", u"", u"", u""}), u"");
}

TEST(AssembleInfo, TheTextIsRightTrimmedAndKeepsLeadingBlanks) {
    EXPECT_EQ(Assemble({u"  one  ", u"   "}), u"  one");
}

TEST(AssembleInfo, SixFieldsOf21CharactersFillTheText) {
    const Text line = Times(21, u'x');
    EXPECT_EQ(Assemble({line, line, line, line, line, line}), Times(126, u'x'));
}

TEST(AssembleInfo, ALineOf21CharactersIsNotFlowed) {
    EXPECT_EQ(Assemble({u"aaaaaaaaaa bbbbbbbbbb", u"", u"c"}), u"aaaaaaaaaa bbbbbbbbbb"
                                                               u"                     "
                                                               u"c");
}

TEST(AssembleInfo, ALineMarkInAShortFieldIsAnOrdinaryCharacter) {
    EXPECT_EQ(Assemble({u"L'Ha\u00FF", u"b"}), u"L'Ha\u00FF                b");
}

// Longer fields are flowed

TEST(AssembleInfo, ALongFieldOf25LettersWithoutBlanksGivesALineOf21AndOneOf4) {
    EXPECT_EQ(Assemble({u"abcdefghijklmnopqrstuvwxy", u"next"}), u"abcdefghijklmnopqrstu"
                                                                 u"vwxy                 "
                                                                 u"next");
}

TEST(AssembleInfo, TheLastLineIsTrimmedAtItsEnd) {
    EXPECT_EQ(Assemble({u"abcdefghijklmnopqrstuvwxy"}), u"abcdefghijklmnopqrstuvwxy");
}

TEST(AssembleInfo, ALineCutAtABlankHandsTheBlankToTheNextLine) {
    EXPECT_EQ(Assemble({u"the key is under the red stone"}), u"the key is under the "
                                                             u" red stone");
}

TEST(AssembleInfo, TheBlankBehindALineOf21CharactersOpensTheNextLine) {
    EXPECT_EQ(Assemble({u"aaaaaaaaaa bbbbbbbbbb cc"}), u"aaaaaaaaaa bbbbbbbbbb"
                                                       u" cc");
}

TEST(AssembleInfo, ALongWordBehindABlankIsCutWhereTheLineIsFull) {
    // The blank that opens the second line does not lie behind its start.
    EXPECT_EQ(Assemble({u"web: abcdefghijklmnopqrstuvwxyz"}), u"web:                 "
                                                              u" abcdefghijklmnopqrst"
                                                              u"uvwxyz");
}

TEST(AssembleInfo, EachFieldEndsALine) {
    EXPECT_EQ(Assemble({u"short", u"abcdefghijklmnopqrstuvwxy", u"end"}), u"short                "
                                                                          u"abcdefghijklmnopqrstu"
                                                                          u"vwxy                 "
                                                                          u"end");
}

TEST(AssembleInfo, EmptyFieldsMakeNoLineInFlowedText) {
    EXPECT_EQ(Assemble({u"", u"one", u"", u"", u"abcdefghijklmnopqrstuvwxy", u""}),
              u"one                  "
              u"abcdefghijklmnopqrstu"
              u"vwxy");
}

TEST(AssembleInfo, AFieldOf21LettersWithoutBlanksStaysWholeInFlowedText) {
    EXPECT_EQ(Assemble({u"abcdefghijklmnopqrstu", u"abcdefghijklmnopqrstuv"}),
              u"abcdefghijklmnopqrstu"
              u"abcdefghijklmnopqrstu"
              u"v");
}

TEST(AssembleInfo, AFieldOf21CharactersWithABlankIsCutThereInFlowedText) {
    // Its mark is the 22nd character of the line, and the line goes back to its last blank.
    EXPECT_EQ(Assemble({u"aaaaaaaaaa bbbbbbbbbb", u"abcdefghijklmnopqrstuv"}),
              u"aaaaaaaaaa           "
              u" bbbbbbbbbb          "
              u"abcdefghijklmnopqrstu"
              u"v");
}

TEST(AssembleInfo, ALineMarkInALongFieldEndsALine) {
    EXPECT_EQ(Assemble({u"abc\u00FFdefghijklmnopqrstuvwxyz"}), u"abc                  "
                                                               u"defghijklmnopqrstuvwx"
                                                               u"yz");
}

TEST(AssembleInfo, MarksThatOpenALineMakeNoneAndDoNotAppear) {
    EXPECT_EQ(Assemble({u"\u00FF\u00FFabc\u00FF\u00FF\u00FFdefghijklmnopqrstuvwxyz"}),
              u"abc                  "
              u"defghijklmnopqrstuvwx"
              u"yz");
}

TEST(AssembleInfo, AFieldOfBlanksAloneIsAnEmptyLineInFlowedText) {
    EXPECT_EQ(Assemble({u"   ", u"abcdefghijklmnopqrstuv"}), u"                     "
                                                             u"abcdefghijklmnopqrstu"
                                                             u"v");
}

TEST(AssembleInfo, ManyBlanksAreCutLikeAnyOther) {
    // The 22nd character of each line is a blank: it opens the next one.
    EXPECT_EQ(Assemble({Times(45, u' ') + u"x"}), Times(21, u' ') + Times(21, u' ') + u"   x");
}

TEST(AssembleInfo, ABlankInFrontOfALongWordIsNoPlaceToCut) {
    EXPECT_EQ(Assemble({u" abcdefghijklmnopqrstuvwxyz"}), u" abcdefghijklmnopqrst"
                                                          u"uvwxyz");
}

TEST(AssembleInfo, FlowedTextOf126CharactersIsWhole) {
    EXPECT_EQ(Assemble({Times(126, u'x')}), Times(126, u'x'));
}

TEST(AssembleInfo, LongerFlowedTextEndsInThreePoints) {
    EXPECT_EQ(Assemble({Times(127, u'x')}), Times(123, u'x') + u"...");
    EXPECT_EQ(Assemble({Times(4000, u'x'), u"y"}), Times(123, u'x') + u"...");
}

TEST(AssembleInfo, ASeventhLineOfBlanksIsNoLongerText) {
    EXPECT_EQ(Assemble({Times(126, u'x'), u"  "}), Times(126, u'x'));
}

TEST(AssembleInfo, WhatTheSixthLineLeavesBlankCountsAsText) {
    // Six lines of one letter and a seventh: the sixth line's padding gives way to the points.
    EXPECT_EQ(Assemble({u"a\u00FFb\u00FFc\u00FFd\u00FFe\u00FFf\u00FFgggggggggg"}),
              u"a                    "
              u"b                    "
              u"c                    "
              u"d                    "
              u"e                    "
              u"f                 ...");
}

TEST(AssembleInfo, TextFarBehindTheSixthLineCountsToo) {
    EXPECT_EQ(Assemble({Times(126, u'x') + u" " + Times(60, u' ') + u"y"}),
              Times(123, u'x') + u"...");
}

}  // namespace

}  // namespace norvik::test
