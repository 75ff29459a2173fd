#include "base/charset.h"

#include "base/simplify.h"
#include "base/utf8.h"

#include <algorithm>
#include <array>

namespace norvik {

namespace {

constexpr std::array<Byte, 3> ByteOrderMark = {0xEF, 0xBB, 0xBF};
constexpr Byte FirstBeyondAscii = 0x80;
constexpr std::size_t LongestSequence = 4;

std::size_t AsciiLength(ByteView bytes) {
    const auto beyond = std::find_if(bytes.begin(), bytes.end(),
                                     [](Byte byte) { return byte >= FirstBeyondAscii; });
    return static_cast<std::size_t>(beyond - bytes.begin());
}

/// The length of the sequence that the bytes begin with; 0 for none.
std::size_t SequenceLength(ByteView bytes) {
    const ByteView start = bytes.first(std::min(bytes.size(), LongestSequence));
    std::array<char8_t, LongestSequence> sequence{};
    std::copy(start.begin(), start.end(), sequence.begin());
    std::u8string_view rest(sequence.data(), start.size());
    return TakeCodePoint(rest) ? start.size() - rest.size() : 0;
}

/// Whether the bytes are UTF-8 with a character beyond ASCII.
bool IsUtf8BeyondAscii(ByteView bytes) {
    bool beyond = false;
    for (;;) {
        bytes = bytes.subspan(AsciiLength(bytes));
        if (bytes.empty()) {
            return beyond;
        }
        const std::size_t length = SequenceLength(bytes);
        if (length == 0) {
            return false;
        }
        beyond = true;
        bytes = bytes.subspan(length);
    }
}

}  // namespace

TextFile RecognizeText(ByteView file, Charset charset) {
    if (charset == Charset::Windows1252) {
        return {.Content = file};
    }
    if (file.size() >= ByteOrderMark.size() &&
        std::equal(ByteOrderMark.begin(), ByteOrderMark.end(), file.begin())) {
        return {.Content = file.subspan(ByteOrderMark.size()), .IsUtf8 = true};
    }
    return {.Content = file, .IsUtf8 = charset == Charset::Utf8 || IsUtf8BeyondAscii(file)};
}

bool AssignDecoded(Text& text, ByteView bytes, bool isUtf8) {
    if (!isUtf8 || AsciiLength(bytes) == bytes.size()) {
        AssignFromBytes(text, bytes);
        return false;
    }
    SimplifiedText simplified = SimplifyUtf8(std::u8string(bytes.begin(), bytes.end()));
    text = std::move(simplified.Value);
    return simplified.Replaced;
}

}  // namespace norvik
