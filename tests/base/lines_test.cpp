#include "base/lines.h"

#include "base/runtimeerror.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

std::vector<Text> LinesOf(const Bytes& file) {
    std::vector<Text> lines;
    LineReader reader(file);
    while (!reader.AtEnd()) {
        lines.push_back(reader.Next());
    }
    return lines;
}

using Lines = std::vector<Text>;

TEST(LineReader, ALineEndsAtCarriageReturnAndLineFeed) {
    EXPECT_EQ(LinesOf(Raw("'ab' 0D 0A 'c' 0D 0A")), (Lines{u"ab", u"c"}));
}

TEST(LineReader, ALineEndsAtACarriageReturnAlone) {
    EXPECT_EQ(LinesOf(Raw("'ab' 0D 'c' 0D")), (Lines{u"ab", u"c"}));
}

TEST(LineReader, BothEndsMayStandInOneFile) {
    EXPECT_EQ(LinesOf(Raw("'a' 0D 'b' 0D 0A 'c' 0D 'd'")), (Lines{u"a", u"b", u"c", u"d"}));
}

TEST(LineReader, ABareLineFeedDoesNotEndALine) {
    EXPECT_EQ(LinesOf(Raw("'a' 0A 'b' 0D 0A 0A 'c' 0D 0A")), (Lines{u"a\nb", u"\nc"}));
}

TEST(LineReader, ASecondLineFeedBelongsToTheNextLine) {
    EXPECT_EQ(LinesOf(Raw("'a' 0D 0A 0A 'b'")), (Lines{u"a", u"\nb"}));
}

TEST(LineReader, ACarriageReturnAtTheVeryEndMakesLineFeedsPartOfTheLine) {
    EXPECT_EQ(LinesOf(Raw("'a' 0A 'b' 0A 'c' 0D")), (Lines{u"a\nb\nc"}));
}

TEST(LineReader, LineFeedsEndTheLinesOfAFileWithoutAnyCarriageReturn) {
    EXPECT_EQ(LinesOf(Raw("'a' 0A 0A 'b' 0A")), (Lines{u"a", u"", u"b"}));
}

TEST(LineReader, TheLastLineNeedsNoLineEnd) {
    EXPECT_EQ(LinesOf(Raw("'a' 0D 0A 'b'")), (Lines{u"a", u"b"}));
    EXPECT_EQ(LinesOf(Raw("'a' 0A 'b'")), (Lines{u"a", u"b"}));
    EXPECT_EQ(LinesOf(Raw("'a'")), (Lines{u"a"}));
}

TEST(LineReader, EmptyLinesCount) {
    EXPECT_EQ(LinesOf(Raw("0D 0A 'a' 0D 0A 0D 0A")), (Lines{u"", u"a", u""}));
    EXPECT_EQ(LinesOf(Raw("0D 0D")), (Lines{u"", u""}));
}

TEST(LineReader, GivesLinesAsBytesAndWhatRemains) {
    const Bytes file = Raw("'ab' 0D 0A 80 0D");
    LineReader reader(file);
    EXPECT_EQ(reader.Remaining(), 6U);
    const ByteView first = reader.NextBytes();
    EXPECT_EQ(Bytes(first.begin(), first.end()), Raw("'ab'"));
    EXPECT_EQ(first.data(), file.data());
    EXPECT_EQ(reader.Remaining(), 2U);
    const ByteView second = reader.NextBytesOrRaise();
    EXPECT_EQ(Bytes(second.begin(), second.end()), Raw("80"));
    EXPECT_EQ(reader.Remaining(), 0U);
    EXPECT_THROW(reader.NextBytesOrRaise(), RuntimeError);
}

TEST(LineReader, AnEmptyFileHasNoLine) {
    EXPECT_EQ(LinesOf({}), Lines());
}

TEST(LineReader, TheBytesAreWindows1252) {
    EXPECT_EQ(LinesOf(Raw("80 FC 81 0D 0A")), (Lines{u"€ü\u0081"}));
}

TEST(LineReader, AZeroByteOrAnEndMarkIsACharacterLikeOthers) {
    EXPECT_EQ(LinesOf(Raw("'a' 00 'b' 1A 'c' 0D 0A 'd'")), (Lines{Text(u"a\0b\x1A"
                                                                       u"c",
                                                                       5),
                                                                  u"d"}));
}

}  // namespace
}  // namespace norvik::test
