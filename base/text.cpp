#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace norvik {

namespace {

/// Pairs of letters that do not follow the distance of 32 between the cases.
struct CasePair {
    char16_t upper;
    char16_t lower;
};
constexpr CasePair IrregularPairs[] = {
    {u'\u0160', u'\u0161'}, {u'\u0152', u'\u0153'}, {u'\u017D', u'\u017E'}, {u'\u0178', u'\u00FF'}};

constexpr char16_t CaseDistance = 32;

bool IsRegularUpper(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'\u00C0' && c <= u'\u00DE' && c != u'\u00D7');
}

bool IsRegularLower(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'\u00E0' && c <= u'\u00FE' && c != u'\u00F7');
}

template <typename Convert>
Text Converted(TextView text, Convert convert) {
    Text result(text);
    std::transform(result.begin(), result.end(), result.begin(), convert);
    return result;
}

}  // namespace

char16_t LowerCase(char16_t c) {
    if (IsRegularUpper(c)) {
        return static_cast<char16_t>(c + CaseDistance);
    }
    for (const CasePair& pair : IrregularPairs) {
        if (c == pair.upper) {
            return pair.lower;
        }
    }
    return c;
}

char16_t UpperCase(char16_t c) {
    if (IsRegularLower(c)) {
        return static_cast<char16_t>(c - CaseDistance);
    }
    for (const CasePair& pair : IrregularPairs) {
        if (c == pair.lower) {
            return pair.upper;
        }
    }
    return c;
}

Text LowerCase(TextView text) {
    return Converted(text, [](char16_t c) { return LowerCase(c); });
}

void MakeLowerCase(Text& text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char16_t c) { return LowerCase(c); });
}

Text UpperCase(TextView text) {
    return Converted(text, [](char16_t c) { return UpperCase(c); });
}

bool IsControl(char16_t c) {
    return c < u' ' || (c >= u'\u007F' && c <= u'\u009F');
}

TextView TrimBlanks(TextView text) {
    const std::size_t start = text.find_first_not_of(u' ');
    return start == TextView::npos ? TextView() : RightTrim(text.substr(start));
}

TextView RightTrim(TextView text) {
    return text.substr(0, text.find_last_not_of(u' ') + 1);
}

TextView Slice(TextView text, std::size_t start, std::size_t length) {
    return start >= text.size() ? TextView() : text.substr(start, length);
}

Text PadOrCut(TextView text, std::size_t width) {
    Text result(Slice(text, 0, width));
    result.resize(width, u' ');
    return result;
}

bool Contains(TextView text, TextView part) {
    return text.find(part) != TextView::npos;
}

Text Decimal(long long value) {
    std::array<char, 20> digits{};  // the lowest value has so many, with its sign
    auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return {digits.data(), end};
}

Text FromAscii(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

}  // namespace norvik
