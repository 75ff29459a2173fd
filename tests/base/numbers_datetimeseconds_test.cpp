// Points in time with their seconds.
#include "base/numbers.h"

#include "tests/support/times.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>
#include <string>

namespace norvik::test {
namespace {

FileTime At(long long seconds) {
    return FileTime(std::chrono::seconds(seconds));
}

#ifndef _WIN32
/// The time zone of the process while the object lives.
class TimeZone {
  public:
    explicit TimeZone(const char* zone) {
        if (const char* old = std::getenv("TZ")) {
            old_ = old;
            hadOne_ = true;
        }
        setenv("TZ", zone, 1);
        tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;
    TimeZone(TimeZone&&) = delete;
    TimeZone& operator=(TimeZone&&) = delete;
    ~TimeZone() {
        if (hadOne_) {
            setenv("TZ", old_.c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }

  private:
    std::string old_;
    bool hadOne_ = false;
};

constexpr const char* Berlin = "CET-1CEST,M3.5.0,M10.5.0/3";

/// While it lives, the user's clock shows At() as Greenwich's would.
class Greenwich {
  public:
    [[nodiscard]] FileTime At(long long seconds) const { return test::At(seconds); }

  private:
    TimeZone zone_{"UTC0"};
};
#else
/// The zone cannot be changed there, so At() is when the user's clock shows what Greenwich's does
/// after so many seconds.
class Greenwich {
  public:
    [[nodiscard]] FileTime At(long long seconds) const {
        return WhenTheClockShows(test::At(seconds));
    }
};
#endif

/// A point in time by its seconds since 1 January 1970, 0:00 in Greenwich.
TEST(FormatDateTimeSeconds, WritesDayAndSecondInGermanOrder) {
    const Greenwich clock;
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(1'135'449'007)), u"24.12.2005 18:30:07");
}

TEST(FormatDateTimeSeconds, FillsUpWithZeros) {
    const Greenwich clock;
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(0)), u"01.01.1970 00:00:00");
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(981'173'106)), u"03.02.2001 04:05:06");
}

#ifndef _WIN32
TEST(FormatDateTimeSeconds, IsTheLocalTimeInWinterAndInSummer) {
    const TimeZone zone(Berlin);
    EXPECT_EQ(FormatDateTimeSeconds(At(1'135'449'007)), u"24.12.2005 19:30:07");
    EXPECT_EQ(FormatDateTimeSeconds(At(1'119'637'807)), u"24.06.2005 20:30:07");
}
#endif

TEST(FormatDateTimeSeconds, DoesNotRoundPartsOfASecondUp) {
    const Greenwich clock;
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(59) + std::chrono::milliseconds(999)),
              u"01.01.1970 00:00:59");
}

TEST(FormatDateTimeSeconds, IsFormatDateTimeAndTheSeconds) {
    const Greenwich clock;
    for (const long long seconds : {0LL, 59LL, 60LL, 86'399LL, 951'782'399LL, 4'102'444'799LL}) {
        const Text text = FormatDateTimeSeconds(clock.At(seconds));
        ASSERT_EQ(text.size(), 19U);
        EXPECT_EQ(text.substr(0, 16), FormatDateTime(clock.At(seconds)));
        EXPECT_EQ(text[16], u':');
        const long long second = seconds % 60;
        EXPECT_EQ(text.substr(17), Text(second < 10 ? u"0" : u"") + Decimal(second));
    }
}

TEST(FormatDateTimeSeconds, KnowsTheLeapDayAndTheEndOfACentury) {
    const Greenwich clock;
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(951'782'399)), u"28.02.2000 23:59:59");
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(951'782'400)), u"29.02.2000 00:00:00");
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(4'102'444'799)), u"31.12.2099 23:59:59");
}

#ifndef _WIN32
TEST(FormatDateTimeSeconds, ReachesFromTheYear1ToTheYear9999) {
    const Greenwich clock;
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(-62'135'596'800)), u"01.01.0001 00:00:00");
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(-9'223'372'800)), u"21.09.1677 00:00:00");
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(-1)), u"31.12.1969 23:59:59");
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(9'300'000'000)), u"14.09.2264 21:20:00");
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(253'402'300'799)), u"31.12.9999 23:59:59");
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(-62'135'596'801)), u"");
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(253'402'300'800)), u"");
}
#endif

TEST(FormatDateTimeSeconds, DoesNotRoundUpBefore1970Either) {
    const Greenwich clock;
    EXPECT_EQ(FormatDateTimeSeconds(clock.At(-1) + std::chrono::milliseconds(1)),
              u"31.12.1969 23:59:59");
}

TEST(FileTimeOf, IsUnknownBeyondAllCounting) {
    EXPECT_EQ(FileTimeOf(1, 500'000), At(1) + std::chrono::milliseconds(500));
    EXPECT_EQ(FileTimeOf(-2, 999'999), At(-1) - std::chrono::microseconds(1));
    EXPECT_EQ(FileTimeOf(std::numeric_limits<long long>::max(), 0), std::nullopt);
    EXPECT_EQ(FileTimeOf(std::numeric_limits<long long>::min(), 0), std::nullopt);
    EXPECT_NE(FileTimeOf(9'223'372'036'852, 999'999), std::nullopt);
}

}  // namespace
}  // namespace norvik::test
