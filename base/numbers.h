// Numbers and points in time as German texts, whatever the system's locale.
#pragma once

#include "base/text.h"

#include <chrono>
#include <optional>

namespace norvik {

/// The leading number of `text` after its first comma has become a point: leading blanks, a sign,
/// digits, a point, digits. Reading stops at the first character that cannot continue the number;
/// no digits give 0. "0,12" and "0.12" give 0.12, "1.234,5" gives 1.234. An exponent is not read. A
/// number beyond a double's range gives the largest double.
double ParseDecimal(TextView text);

/// The leading whole number of `text`: leading blanks, a sign, digits; no digits give 0 ("12abc"
/// gives 12). Raises error 6 for a number below `least` or above `most`.
long long LeadingInteger(TextView text, long long least, long long most);

/// `amount` in the format "##0.00" with a decimal comma, rounded half away from zero on its decimal
/// value of 15 significant digits: 2.675 gives "2,68", -0.001 gives "0,00".
Text FormatAmount(double amount);

/// The last two upper-case hexadecimal digits of `value`: 5 gives "05", 4096 gives "00".
Text Hex2(int value);

/// In microseconds: finer ones could not count to the year 9999.
using FileTime = std::chrono::time_point<std::chrono::system_clock, std::chrono::microseconds>;

/// The point in time so many seconds and microseconds after 1 January 1970, 0:00 in Greenwich;
/// nothing for one that cannot be counted.
std::optional<FileTime> FileTimeOf(long long seconds, long long microseconds);

/// `time` in the local time zone as "dd.mm.yyyy hh:mm"; empty outside the years 1 to 9999.
Text FormatDateTime(FileTime time);
/// The same with the seconds: "dd.mm.yyyy hh:mm:ss".
Text FormatDateTimeSeconds(FileTime time);

}  // namespace norvik
