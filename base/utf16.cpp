#include "base/utf16.h"

#include "base/utf8.h"

namespace norvik {

namespace {

constexpr char32_t Pairs = 0x10000;  ///< the first point that takes a pair
constexpr unsigned HighHalf = 0xD800;
constexpr unsigned LowHalf = 0xDC00;
constexpr unsigned HalfBits = 10;
constexpr unsigned HalfMask = 0x3FF;

bool IsHalf(char32_t unit, unsigned which) {
    return (unit & ~HalfMask) == which;
}

/// A half that stands alone, in three bytes; nothing, and the text stays, when it is none.
std::optional<char16_t> TakeHalf(std::u8string_view& utf8) {
    constexpr unsigned Lead = 0xED;
    constexpr unsigned FurtherMask = 0x3F;
    constexpr unsigned FurtherMark = 0x80;
    if (utf8.size() < 3 || utf8[0] != Lead || (utf8[1] & ~FurtherMask) != FurtherMark ||
        (utf8[2] & ~FurtherMask) != FurtherMark) {
        return std::nullopt;
    }
    constexpr unsigned LeadBits = 0xD000;
    const unsigned half = LeadBits | ((utf8[1] & FurtherMask) << 6U) | (utf8[2] & FurtherMask);
    utf8.remove_prefix(3);
    return static_cast<char16_t>(half);
}

void AppendUtf16(std::u16string& utf16, char32_t point) {
    if (point < Pairs) {
        utf16.push_back(static_cast<char16_t>(point));
        return;
    }
    const auto beyond = static_cast<unsigned>(point - Pairs);
    utf16.push_back(static_cast<char16_t>(HighHalf + (beyond >> HalfBits)));
    utf16.push_back(static_cast<char16_t>(LowHalf + (beyond & HalfMask)));
}

}  // namespace

std::string Utf8OfUtf16(std::u16string_view utf16) {
    std::string utf8;
    utf8.reserve(utf16.size());
    while (!utf16.empty()) {
        const char32_t unit = utf16[0];
        const char32_t next = utf16.size() > 1 ? utf16[1] : U'\0';
        const bool isPair = IsHalf(unit, HighHalf) && IsHalf(next, LowHalf);
        AppendUtf8(utf8,
                   isPair ? Pairs + ((unit & HalfMask) << HalfBits) + (next & HalfMask) : unit);
        utf16.remove_prefix(isPair ? 2 : 1);
    }
    return utf8;
}

std::u16string Utf16OfUtf8(std::string_view utf8) {
    const std::u8string bytes(utf8.begin(), utf8.end());
    std::u16string utf16;
    utf16.reserve(utf8.size());
    for (std::u8string_view rest = bytes; !rest.empty();) {
        if (const auto point = TakeCodePoint(rest)) {
            AppendUtf16(utf16, *point);
        } else if (const auto half = TakeHalf(rest)) {
            utf16.push_back(*half);
        } else {
            AppendUtf16(utf16, ReplacementCharacter);
            rest.remove_prefix(1);
        }
    }
    return utf16;
}

}  // namespace norvik
