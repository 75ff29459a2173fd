#include "console/optiontable.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

TEST(FindRow, KnowsEachOptionByItsNames) {
    for (const std::string_view name : OptionNames()) {
        ASSERT_NE(FindRow(name), nullptr) << name;
    }
    EXPECT_EQ(FindRow("--help"), FindRow("--hilfe"));
    EXPECT_EQ(FindRow("-h"), FindRow("--hilfe"));
    EXPECT_EQ(FindRow("-V"), FindRow("--version"));
    EXPECT_EQ(FindRow("-v"), nullptr);
    EXPECT_EQ(FindRow(""), nullptr);
}

}  // namespace
}  // namespace norvik::test
