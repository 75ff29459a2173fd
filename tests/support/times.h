// Times for files.
#pragma once

#include "base/files.h"

#include <chrono>
#include <ctime>

namespace norvik::test {

#ifndef _WIN32
inline FileTime LocalTime(int year, int month, int day, int hour, int minute, int second) {
    std::tm local{};
    local.tm_year = year - 1900;
    local.tm_mon = month - 1;
    local.tm_mday = day;
    local.tm_hour = hour;
    local.tm_min = minute;
    local.tm_sec = second;
    local.tm_isdst = -1;
    return FileTime(std::chrono::seconds(std::mktime(&local)));
}
#else
FileTime LocalTime(int year, int month, int day, int hour, int minute, int second);
/// When the user's clock shows what Greenwich's does at `time`.
FileTime WhenTheClockShows(FileTime time);
#endif

}  // namespace norvik::test
