#include "ringtones/tonenames.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

/// "kein", the twenty fixed names and "Eigen 1" to "Eigen 60", with the given ones in place of the
/// first behind "kein".
std::vector<Text> NamesWith(const std::vector<Text>& own) {
    std::vector<Text> names = {u"kein",      u"3Klang 1",  u"3Klang 2",  u"3Klang 3",  u"2Klang 1",
                               u"2Klang 2",  u"2Klang 3",  u"2Klang 4",  u"2Klang 5",  u"Ton 1",
                               u"Ton 2",     u"Klingel 1", u"Klingel 2", u"Klingel 3", u"Klingel 4",
                               u"Klingel 5", u"Klingel 6", u"Klingel 7", u"Klingel 8", u"Klingel 9",
                               u"Klingel 10"};
    for (int number = 1; number <= 60; ++number) {
        names.push_back(u"Eigen " + FromAscii(std::to_string(number)));
    }
    std::copy(own.begin(), own.end(), names.begin() + 1);
    return names;
}

/// A file of `count` lines "Name 1", "Name 2", … and the same as texts.
std::string FileOf(int count) {
    std::string file;
    for (int number = 1; number <= count; ++number) {
        file += "Name " + std::to_string(number) + "\r\n";
    }
    return file;
}
std::vector<Text> LinesOf(int count) {
    std::vector<Text> lines;
    for (int number = 1; number <= count; ++number) {
        lines.push_back(u"Name " + FromAscii(std::to_string(number)));
    }
    return lines;
}

std::vector<Text> NamesFrom(const std::string& file) {
    return ToneNamesFrom(ByteView(reinterpret_cast<const Byte*>(file.data()), file.size()));
}

TEST(DefaultToneNames, AreTheFixedNamesAndSixtyOwnMelodies) {
    EXPECT_EQ(DefaultToneNames(), NamesWith({}));
    EXPECT_EQ(DefaultToneNames().size(), 81U);
}

TEST(DefaultToneNames, ATonesItemIsItsNumberPlus1) {
    const std::vector<Text> names = DefaultToneNames();
    EXPECT_EQ(names[0 + 1], u"3Klang 1");
    EXPECT_EQ(names[3 + 1], u"2Klang 1");
    EXPECT_EQ(names[8 + 1], u"Ton 1");
    EXPECT_EQ(names[10 + 1], u"Klingel 1");
    EXPECT_EQ(names[20 + 1], u"Eigen 1");
    EXPECT_EQ(names[79 + 1], u"Eigen 60");
}

TEST(ToneNamesFrom, EachLineIsTheNextItemBehindKein) {
    EXPECT_EQ(NamesFrom("Glocke\r\nHorn\r\n"), NamesWith({u"Glocke", u"Horn"}));
}

TEST(ToneNamesFrom, LinesThatBeginWithASemicolonDoNotCount) {
    EXPECT_EQ(NamesFrom(";Namen\r\nGlocke\r\n;\r\nHorn\r\n;Ende"), NamesWith({u"Glocke", u"Horn"}));
}

TEST(ToneNamesFrom, ASemicolonFurtherBehindIsPartOfTheName) {
    EXPECT_EQ(NamesFrom(" ;Glocke\r\nHorn;laut\r\n"), NamesWith({u" ;Glocke", u"Horn;laut"}));
}

TEST(ToneNamesFrom, AnEmptyLineIsAnItemToo) {
    EXPECT_EQ(NamesFrom("\r\nHorn\r\n"), NamesWith({u"", u"Horn"}));
}

TEST(ToneNamesFrom, FewerThanTwentyLinesAreCompletedWithTheMissingFixedNames) {
    EXPECT_EQ(NamesFrom(FileOf(19)), NamesWith(LinesOf(19)));
    EXPECT_EQ(NamesFrom(FileOf(19))[20], u"Klingel 10");
    EXPECT_EQ(NamesFrom(FileOf(19))[21], u"Eigen 1");
}

TEST(ToneNamesFrom, TwentyLinesAreFollowedByAllOwnMelodies) {
    EXPECT_EQ(NamesFrom(FileOf(20)), NamesWith(LinesOf(20)));
    EXPECT_EQ(NamesFrom(FileOf(20))[21], u"Eigen 1");
}

TEST(ToneNamesFrom, MoreLinesAreFollowedByTheMissingOwnMelodiesWithTheirOwnNumbers) {
    EXPECT_EQ(NamesFrom(FileOf(79)), NamesWith(LinesOf(79)));
    EXPECT_EQ(NamesFrom(FileOf(25))[26], u"Eigen 6");
    EXPECT_EQ(NamesFrom(FileOf(79))[80], u"Eigen 60");
}

TEST(ToneNamesFrom, EightyLinesNameEveryTone) {
    EXPECT_EQ(NamesFrom(FileOf(80)), NamesWith(LinesOf(80)));
}

TEST(ToneNamesFrom, LinesAfterTheEightiethAreIgnored) {
    EXPECT_EQ(NamesFrom(FileOf(85)), NamesWith(LinesOf(80)));
}

TEST(ToneNamesFrom, CommentsAmongEightyLinesTakeNoPlace) {
    EXPECT_EQ(NamesFrom(";Kopf\r\n" + FileOf(80) + ";Ende\r\nzu viel\r\n"), NamesWith(LinesOf(80)));
}

TEST(ToneNamesFrom, AnEmptyFileGivesTheFixedNames) {
    EXPECT_EQ(NamesFrom(""), NamesWith({}));
}

TEST(ToneNamesFrom, TheFileIsWindows1252) {
    EXPECT_EQ(NamesFrom("Gl\xF6"
                        "ckchen\r\n"),
              NamesWith({u"Glöckchen"}));
}

}  // namespace
}  // namespace norvik::test
