#include "console/nearest.h"

#include <gtest/gtest.h>

#include <array>

namespace norvik::test {
namespace {

TEST(EditDistance, CountsWhatMustBeInsertedRemovedOrReplaced) {
    EXPECT_EQ(EditDistance("", ""), 0U);
    EXPECT_EQ(EditDistance("", "msn"), 3U);
    EXPECT_EQ(EditDistance("msn", ""), 3U);
    EXPECT_EQ(EditDistance("msn", "msn"), 0U);
    EXPECT_EQ(EditDistance("mns", "msn"), 2U);
    EXPECT_EQ(EditDistance("von", "nach"), 4U);
    EXPECT_EQ(EditDistance("sortirt", "sortiert"), 1U);
    EXPECT_EQ(EditDistance("ueberschreiben", "uberschreiben"), 1U);
    EXPECT_EQ(EditDistance("hilfe", "help"), 3U);
}

TEST(EditDistance, TakesUpperAndLowerCaseLettersAsTheSame) {
    EXPECT_EQ(EditDistance("ADDREGIONCODE", "AddRegionCode"), 0U);
    EXPECT_EQ(EditDistance("[", "{"), 1U);
    EXPECT_EQ(EditDistance("@", "`"), 1U);
}

constexpr std::array<std::string_view, 5> Options = {"--von", "--sortiert", "--unsortiert",
                                                     "--hilfe", "--Change00to+"};

TEST(Nearest, IsTheCandidateOfTheLeastDistance) {
    EXPECT_EQ(Nearest("--fon", Options), "--von");
    EXPECT_EQ(Nearest("--unsortirt", Options), "--unsortiert");
    EXPECT_EQ(Nearest("--change00to", Options), "--Change00to+");
    EXPECT_EQ(Nearest("--sortieren", Options), "--sortiert");
}

TEST(Nearest, IsTheFirstOneOfThoseThatAreEquallyFar) {
    constexpr std::array<std::string_view, 3> words = {"193", "195", "175"};
    EXPECT_EQ(Nearest("199", words), "193");
    EXPECT_EQ(Nearest("196", words), "193");
    EXPECT_EQ(Nearest("174", words), "175");
}

TEST(Nearest, IsFirstOfAllACandidateThatBeginsWithTheWord) {
    EXPECT_EQ(Nearest("-h", Options), "--hilfe");
    EXPECT_EQ(Nearest("--uns", Options), "--unsortiert");
    EXPECT_EQ(Nearest("sort", Options), "--sortiert");
}

TEST(Nearest, IsNothingWhereNoneResemblesTheWord) {
    for (const std::string_view word : {"---", "-?", "--to", "x", "--help-me-please", ""}) {
        EXPECT_EQ(Nearest(word, Options), std::nullopt) << word;
    }
    EXPECT_EQ(Nearest("--von", {}), std::nullopt);
}

}  // namespace
}  // namespace norvik::test
