#include "base/utf8.h"

#include "base/windows1252.h"

#include <array>

namespace norvik {

namespace {

/// The bits of a sequence's further bytes, and their mark.
constexpr unsigned FurtherBits = 6;
constexpr unsigned FurtherMask = 0x3F;
constexpr unsigned FurtherMark = 0x80;
constexpr unsigned OneByteEnd = 0x80;
constexpr unsigned TwoBytesEnd = 0x800;
constexpr unsigned ThreeBytesEnd = 0x10000;

/// The number of bytes of the sequence that `lead` opens; 0 when none begins so.
std::size_t SequenceLength(unsigned lead) {
    if (lead < OneByteEnd) {
        return 1;
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return 0;
    }
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

bool IsHalfOfAPair(char32_t point) {
    return point >= 0xD800 && point <= 0xDFFF;
}

/// The code point of a sequence, or nothing when it does not fit together.
std::optional<char32_t> CodePoint(std::u8string_view sequence) {
    const auto lead = static_cast<unsigned>(sequence.front());
    if (sequence.size() == 1) {
        return lead;
    }
    char32_t point = lead & (0x7FU >> sequence.size());
    for (const auto next : sequence.substr(1)) {
        if ((static_cast<unsigned>(next) & ~FurtherMask) != FurtherMark) {
            return std::nullopt;
        }
        point = (point << FurtherBits) | (static_cast<unsigned>(next) & FurtherMask);
    }
    constexpr std::array<char32_t, 5> Least = {0, 0, OneByteEnd, TwoBytesEnd, ThreeBytesEnd};
    constexpr char32_t Last = 0x10FFFF;
    if (point < Least.at(sequence.size()) || point > Last || IsHalfOfAPair(point)) {
        return std::nullopt;
    }
    return point;
}

char Further(unsigned bits) {
    return static_cast<char>(FurtherMark | (bits & FurtherMask));
}

}  // namespace

std::optional<char32_t> TakeCodePoint(std::u8string_view& utf8) {
    const std::size_t length = SequenceLength(static_cast<unsigned>(utf8.front()));
    if (length == 0 || length > utf8.size()) {
        return std::nullopt;
    }
    const std::optional<char32_t> point = CodePoint(utf8.substr(0, length));
    if (point) {
        utf8.remove_prefix(length);
    }
    return point;
}

std::u32string CodePoints(std::u8string_view utf8) {
    std::u32string points;
    points.reserve(utf8.size());
    while (!utf8.empty()) {
        const std::optional<char32_t> point = TakeCodePoint(utf8);
        if (!point) {
            utf8.remove_prefix(1);
        }
        points.push_back(point.value_or(ReplacementCharacter));
    }
    return points;
}

void AppendUtf8(std::string& utf8, char32_t point) {
    if (point < OneByteEnd) {
        utf8.push_back(static_cast<char>(point));
        return;
    }
    if (point < TwoBytesEnd) {
        utf8.push_back(static_cast<char>(0xC0U | (point >> FurtherBits)));
    } else {
        if (point < ThreeBytesEnd) {
            utf8.push_back(static_cast<char>(0xE0U | (point >> (2 * FurtherBits))));
        } else {
            utf8.push_back(static_cast<char>(0xF0U | (point >> (3 * FurtherBits))));
            utf8.push_back(Further(point >> (2 * FurtherBits)));
        }
        utf8.push_back(Further(point >> FurtherBits));
    }
    utf8.push_back(Further(point));
}

std::string ToUtf8(TextView text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (const char16_t character : text) {
        AppendUtf8(utf8, character);
    }
    return utf8;
}

std::optional<Text> FromUtf8(std::string_view utf8) {
    const std::u8string bytes(utf8.begin(), utf8.end());
    Text text;
    for (std::u8string_view rest = bytes; !rest.empty();) {
        const std::optional<char32_t> point = TakeCodePoint(rest);
        if (!point || *point > 0xFFFF || !ByteOf(static_cast<char16_t>(*point))) {
            return std::nullopt;
        }
        text.push_back(static_cast<char16_t>(*point));
    }
    return text;
}

}  // namespace norvik
