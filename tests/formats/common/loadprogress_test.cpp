#include "formats/common/loadprogress.h"

#include "tests/support/scripteddesktop.h"
#include "tests/support/stepclock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t Look = 65536;  ///< the clock is looked at every so many bytes
constexpr std::size_t Size = 10 * Look;

/// The status texts of reading a file of ten looks, step milliseconds each.
std::vector<std::string> StatusesOf(int step, bool done = true) {
    ScriptedDesktop desktop;
    const Clock clock = StepClock(std::chrono::milliseconds(step));
    {
        LoadProgress progress(u"Datei", Size, desktop, clock);
        for (std::size_t remaining = Size; remaining > 0; remaining -= 16) {
            progress.Remaining(remaining);
        }
        if (done) {
            progress.Done();
        }
    }
    return desktop.Transcript;
}

TEST(LoadProgress, AShortLoadLeavesTheStatusLineAlone) {
    EXPECT_THAT(StatusesOf(0), IsEmpty());
    EXPECT_THAT(StatusesOf(33), IsEmpty());
    EXPECT_THAT(StatusesOf(33, false), IsEmpty());
}

TEST(LoadProgress, TheFirstSignComesAfterThreeTenthsOfASecond) {
    EXPECT_THAT(StatusesOf(34),
                ElementsAre("status \"Datei wird gelesen... 90 %\"", "status \"Datei gelesen\""));
}

TEST(LoadProgress, TheOthersATenthOfASecondLater) {
    EXPECT_THAT(StatusesOf(60),
                ElementsAre("status \"Datei wird gelesen... 50 %\"",
                            "status \"Datei wird gelesen... 70 %\"",
                            "status \"Datei wird gelesen... 90 %\"", "status \"Datei gelesen\""));
}

TEST(LoadProgress, AnAbortedLoadSaysSo) {
    EXPECT_THAT(
        StatusesOf(200, false),
        ElementsAre(
            "status \"Datei wird gelesen... 20 %\"", "status \"Datei wird gelesen... 30 %\"",
            "status \"Datei wird gelesen... 40 %\"", "status \"Datei wird gelesen... 50 %\"",
            "status \"Datei wird gelesen... 60 %\"", "status \"Datei wird gelesen... 70 %\"",
            "status \"Datei wird gelesen... 80 %\"", "status \"Datei wird gelesen... 90 %\"",
            "status \"Datei nicht ganz gelesen\""));
}

TEST(LoadProgress, TheClockOfASmallFileIsNotLookedAtAgain) {
    ScriptedDesktop desktop;
    const Clock clock = StepClock(std::chrono::hours(1));
    LoadProgress progress(u"Datei", Look, desktop, clock);
    for (std::size_t remaining = Look; remaining > 0; --remaining) {
        progress.Remaining(remaining);
    }
    progress.Done();
    EXPECT_THAT(desktop.Transcript, IsEmpty());
}

}  // namespace
}  // namespace norvik::test
