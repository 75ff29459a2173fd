#include "tests/support/times.h"

#include "tests/support/windowsheader.h"

#include <gtest/gtest.h>

namespace norvik::test {

namespace {

FileTime InGreenwich(const SYSTEMTIME& time) {
    using namespace std::chrono;
    return FileTime(sys_days(year(time.wYear) / month(time.wMonth) / day(time.wDay)) +
                    hours(time.wHour) + minutes(time.wMinute) + seconds(time.wSecond));
}

}  // namespace

FileTime LocalTime(int year, int month, int day, int hour, int minute, int second) {
    SYSTEMTIME local{};
    local.wYear = static_cast<WORD>(year);
    local.wMonth = static_cast<WORD>(month);
    local.wDay = static_cast<WORD>(day);
    local.wHour = static_cast<WORD>(hour);
    local.wMinute = static_cast<WORD>(minute);
    local.wSecond = static_cast<WORD>(second);
    SYSTEMTIME utc{};
    EXPECT_NE(TzSpecificLocalTimeToSystemTime(nullptr, &local, &utc), 0);
    return InGreenwich(utc);
}

FileTime WhenTheClockShows(FileTime time) {
    using namespace std::chrono;
    const sys_days day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(floor<seconds>(time) - day);
    return LocalTime(
        static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
        static_cast<int>(static_cast<unsigned>(date.day())),
        static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
        static_cast<int>(clock.seconds().count()));
}

}  // namespace norvik::test
