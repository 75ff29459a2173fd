#include "base/numbers.h"

#include "base/platform.h"
#include "base/runtimeerror.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <ctime>
#include <limits>
#include <string>

namespace norvik {

namespace {

constexpr int SignificantDigits = 15;
constexpr int Decimals = 2;

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

std::size_t EndOfDigits(TextView text, std::size_t position) {
    while (position < text.size() && IsDigit(text[position])) {
        ++position;
    }
    return position;
}

/// A non-negative number as its significant decimal digits d1 d2 d3 … and the exponent of d1, so
/// that the value is d1.d2d3… × 10^exponent.
struct DecimalDigits {
    std::string digits;
    int exponent = 0;
};

DecimalDigits ToDecimalDigits(double value) {
    std::array<char, 32> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::scientific, SignificantDigits - 1);
    const std::string text(buffer.data(), written.ptr);  // for example 1.25000000000000e-01
    const std::size_t e = text.find('e');
    DecimalDigits result;
    result.digits = text.substr(0, 1) + text.substr(2, e - 2);
    result.exponent = std::stoi(text.substr(e + 1));
    return result;
}

/// Adds 1 to the last digit, with carry. One digit at least must not be 9: "099" becomes "100".
void Increment(std::string& digits) {
    const std::size_t last = digits.find_last_not_of('9');
    std::fill(digits.begin() + static_cast<std::ptrdiff_t>(last) + 1, digits.end(), '0');
    ++digits[last];
}

/// The whole number of hundredths nearest to `value` (half away from zero), as decimal digits.
std::string Hundredths(double value) {
    const DecimalDigits decimal = ToDecimalDigits(value);
    const int kept = decimal.exponent + 1 + Decimals;  // digits up to the second decimal
    if (kept < 0) {
        return "0";
    }
    const auto keep = static_cast<std::size_t>(kept);
    std::string digits = decimal.digits.substr(0, keep);
    if (keep < decimal.digits.size()) {
        digits.insert(digits.begin(), '0');  // room for a carry
        if (decimal.digits[keep] >= '5') {
            Increment(digits);
        }
        const std::size_t first = std::min(digits.find_first_not_of('0'), digits.size() - 1);
        return digits.substr(first);
    }
    digits.append(keep - digits.size(), '0');
    return digits;
}

std::string TwoDigits(int value) {
    return (value < 10 ? "0" : "") + std::to_string(value);
}

Text FormatLocalTime(FileTime time, bool withSeconds) {
    constexpr int FirstYear = 1;
    constexpr int LastYear = 9999;
    constexpr int YearsBefore = 1900;
    const std::optional<std::tm> local =
        platform::LocalTime(std::chrono::floor<std::chrono::seconds>(time));
    if (!local || local->tm_year < FirstYear - YearsBefore ||
        local->tm_year > LastYear - YearsBefore) {
        return {};
    }
    std::string year = std::to_string(local->tm_year + YearsBefore);
    year.insert(0, year.size() < 4 ? 4 - year.size() : 0, '0');
    std::string text = TwoDigits(local->tm_mday) + "." + TwoDigits(local->tm_mon + 1) + "." + year +
                       " " + TwoDigits(local->tm_hour) + ":" + TwoDigits(local->tm_min);
    if (withSeconds) {
        text += ":" + TwoDigits(local->tm_sec);
    }
    return FromAscii(text);
}

}  // namespace

double ParseDecimal(TextView text) {
    Text normalised(text);
    if (const std::size_t comma = normalised.find(u','); comma != Text::npos) {
        normalised[comma] = u'.';
    }
    const std::size_t blanks = std::min(normalised.find_first_not_of(u' '), normalised.size());
    const TextView rest = TextView(normalised).substr(blanks);
    const bool hasSign = !rest.empty() && (rest[0] == u'-' || rest[0] == u'+');
    const bool negative = hasSign && rest[0] == u'-';
    const std::size_t start = hasSign ? 1 : 0;
    std::size_t end = EndOfDigits(rest, start);
    if (end < rest.size() && rest[end] == u'.') {
        end = EndOfDigits(rest, end + 1);
    }
    const std::string number(rest.begin() + static_cast<std::ptrdiff_t>(start),
                             rest.begin() + static_cast<std::ptrdiff_t>(end));
    double value = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value,
                                      std::chars_format::fixed);
    if (read.ec == std::errc::result_out_of_range) {
        // A long row of zeros behind the point ("0.000…1") is out of range downwards.
        const bool tiny =
            number.find_first_not_of('0') >= std::min(number.find('.'), number.size());
        value = tiny ? 0 : std::numeric_limits<double>::max();
    }
    return negative ? -value : value;
}

long long LeadingInteger(TextView text, long long least, long long most) {
    // Far beyond every field, and far enough from the type's own end for one more digit.
    constexpr long long Ceiling = std::numeric_limits<long long>::max() / 100;
    const TextView rest = text.substr(std::min(text.find_first_not_of(u' '), text.size()));
    const bool hasSign = !rest.empty() && (rest[0] == u'-' || rest[0] == u'+');
    const std::size_t start = hasSign ? 1 : 0;
    long long value = 0;
    for (const char16_t digit : rest.substr(start, EndOfDigits(rest, start) - start)) {
        value = std::min(value * 10 + (digit - u'0'), Ceiling);
    }
    value = hasSign && rest[0] == u'-' ? -value : value;
    if (value < least || value > most) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return value;
}

Text FormatAmount(double amount) {
    // An endless product of price and units is shown as the largest amount.
    const double magnitude =
        std::isnan(amount) ? 0 : std::min(std::abs(amount), std::numeric_limits<double>::max());
    std::string digits = Hundredths(magnitude);
    const bool negative = amount < 0 && digits.find_first_not_of('0') != std::string::npos;
    if (digits.size() <= Decimals) {
        digits.insert(0, Decimals + 1 - digits.size(), '0');
    }
    digits.insert(digits.size() - Decimals, 1, ',');
    return FromAscii(negative ? "-" + digits : digits);
}

Text Hex2(int value) {
    constexpr TextView digits = u"0123456789ABCDEF";
    const auto bits = static_cast<unsigned>(value);
    return {digits[(bits >> 4U) & 0xFU], digits[bits & 0xFU]};
}

std::optional<FileTime> FileTimeOf(long long seconds, long long microseconds) {
    constexpr long long Each = 1'000'000;
    constexpr long long Most = std::numeric_limits<long long>::max() / Each - 1;
    if (seconds < -Most || seconds > Most) {
        return std::nullopt;
    }
    return FileTime(std::chrono::microseconds(seconds * Each + microseconds));
}

Text FormatDateTime(FileTime time) {
    return FormatLocalTime(time, false);
}

Text FormatDateTimeSeconds(FileTime time) {
    return FormatLocalTime(time, true);
}

}  // namespace norvik
