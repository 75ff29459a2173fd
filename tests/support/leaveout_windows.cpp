// What docs/windows.md names as not tested there is skipped, with the reason that it gives, and
// nothing else may skip itself. With NORVIK_RUN_ALL in the environment all tests run, which shows
// what need not be named there any more.
#include "tests/support/leaveout.h"

#include "tests/support/places.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <string>

namespace norvik::test {
namespace {

using Reasons = std::map<std::string, std::string>;

/// Each name stands in a line of its own, "- `Suite.Test`", below the heading that is its reason.
Reasons ReadReasons() {
    constexpr std::string_view Heading = "### ";
    constexpr std::string_view Item = "- `";
    std::ifstream list(SourceFolder() / "docs" / "windows.md");
    Reasons reasons;
    std::string reason;
    for (std::string line; std::getline(list, line);) {
        if (line.starts_with(Heading)) {
            reason = line.substr(Heading.size());
        } else if (line.starts_with(Item)) {
            const std::size_t end = line.find('`', Item.size());
            reasons[line.substr(Item.size(), end - Item.size())] = reason;
        }
    }
    EXPECT_FALSE(reasons.empty()) << "docs/windows.md could not be read";
    return reasons;
}

class Skipping : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& test) override {
        const auto found = reasons_.find(NameOf(test));
        if (found != reasons_.end() && !runsAll_) {
            GTEST_SKIP() << found->second;
        }
    }
    void OnTestEnd(const testing::TestInfo& test) override {
        if (test.result()->Skipped() && reasons_.count(NameOf(test)) == 0) {
            ADD_FAILURE() << "skips itself and is not named in docs/windows.md";
        }
    }
    static std::string NameOf(const testing::TestInfo& test) {
        return std::string(test.test_suite_name()) + "." + test.name();
    }

    Reasons reasons_ = ReadReasons();
    bool runsAll_ = std::getenv("NORVIK_RUN_ALL") != nullptr;
};

}  // namespace

void LeaveOutWhatIsNotTestedHere() {
    testing::UnitTest::GetInstance()->listeners().Append(new Skipping);
}

}  // namespace norvik::test
