// The user's clock in the zone that the system is set to, whatever that is.
#include "base/numbers.h"

#include "base/platform.h"
#include "tests/support/windowsheader.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

namespace norvik::test {
namespace {

constexpr long long Christmas = 1'135'449'007;        // 24.12.2005 18:30:07 in Greenwich
constexpr long long Midsummer = 1'119'637'807;        // 24.06.2005 18:30:07 in Greenwich
constexpr long long January1601 = -11'644'300'800;    // the 3rd, 0:00
constexpr long long Silvester9999 = 253'402'128'000;  // the 30th, 0:00

FileTime At(long long seconds) {
    return FileTime(std::chrono::seconds(seconds));
}

/// How many minutes the clock is ahead of Greenwich's in winter and in summer.
std::pair<LONG, LONG> MinutesAhead() {
    TIME_ZONE_INFORMATION zone{};
    EXPECT_NE(GetTimeZoneInformation(&zone), TIME_ZONE_ID_INVALID);
    const LONG standard = -(zone.Bias + zone.StandardBias);
    if (zone.DaylightDate.wMonth == 0) {
        return {standard, standard};
    }
    const LONG daylight = -(zone.Bias + zone.DaylightBias);
    const bool isSouth = zone.StandardDate.wMonth < zone.DaylightDate.wMonth;
    return isSouth ? std::pair(daylight, standard) : std::pair(standard, daylight);
}

long long MinutesShown(long long time) {
    const auto shown = platform::LocalTime(std::chrono::sys_seconds(std::chrono::seconds(time)));
    EXPECT_TRUE(shown);
    using namespace std::chrono;
    const auto day = sys_days(year(shown->tm_year + 1900) / (shown->tm_mon + 1) / shown->tm_mday);
    return (day.time_since_epoch() + hours(shown->tm_hour) + minutes(shown->tm_min) +
            seconds(shown->tm_sec) - seconds(time)) /
           minutes(1);
}

class LocalTimeOnWindows : public testing::Test {
  protected:
    ~LocalTimeOnWindows() override { _putenv_s("TZ", ""); }
};

TEST_F(LocalTimeOnWindows, IsThatOfTheSystemsZoneInWinterAndInSummer) {
    const std::pair<LONG, LONG> ahead = MinutesAhead();
    // What a shell of another system leaves there is not for us.
    for (const char* const variable : {"", "Europe/Berlin", "JST-9", "EST5EDT"}) {
        _putenv_s("TZ", variable);
        _tzset();
        EXPECT_EQ(MinutesShown(Christmas), ahead.first) << variable;
        EXPECT_EQ(MinutesShown(Midsummer), ahead.second) << variable;
    }
}

/// The zone of the tests under wine (scripts/windows-tests.sh).
TEST_F(LocalTimeOnWindows, IsWrittenAsInBerlinThere) {
    if (MinutesAhead() == std::pair<LONG, LONG>(60, 120)) {
        EXPECT_EQ(FormatDateTimeSeconds(At(Christmas)), u"24.12.2005 19:30:07");
        EXPECT_EQ(FormatDateTimeSeconds(At(Midsummer)), u"24.06.2005 20:30:07");
    }
    EXPECT_EQ(FormatDateTimeSeconds(At(Midsummer)).substr(0, 16), FormatDateTime(At(Midsummer)));
}

TEST_F(LocalTimeOnWindows, ReachesFromTheYear1601ToTheYear9999) {
    EXPECT_EQ(FormatDateTime(At(January1601)).substr(2, 8), u".01.1601");
    EXPECT_EQ(FormatDateTime(At(Silvester9999)).substr(2, 8), u".12.9999");
    EXPECT_EQ(FormatDateTime(At(-62'135'596'800)), u"");
    EXPECT_EQ(FormatDateTime(At(253'402'300'800 + 86'400)), u"");
    EXPECT_EQ(FormatDateTime(FileTime::max()), u"");
    EXPECT_EQ(FormatDateTime(FileTime::min()), u"");
}

}  // namespace
}  // namespace norvik::test
