#include "base/windows1252.h"

#include "base/runtimeerror.h"

#include <algorithm>
#include <array>

namespace norvik {

namespace {

constexpr Byte FirstSpecial = 0x80;
constexpr Byte FirstLatin1 = 0xA0;

/// The characters of the bytes 0x80 to 0x9F; all others have their own code (Unicode consortium,
/// CP1252.TXT).
constexpr std::array<char16_t, FirstLatin1 - FirstSpecial> Specials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// Whether the character's byte is its own code.
constexpr bool IsOwnByte(char16_t character) {
    return character <= 0xFF && (character & 0xE0U) != FirstSpecial;  // 0x80 to 0x9F are not
}

constexpr auto Characters = [] {
    std::array<char16_t, 256> characters{};
    for (std::size_t byte = 0; byte < characters.size(); ++byte) {
        const bool special = byte >= FirstSpecial && byte < FirstLatin1;
        characters.at(byte) =
            special ? Specials.at(byte - FirstSpecial) : static_cast<char16_t>(byte);
    }
    return characters;
}();

}  // namespace

char16_t CharacterOf(Byte byte) {
    return Characters[byte];
}

std::optional<Byte> ByteOf(char16_t character) {
    if (IsOwnByte(character)) {
        return static_cast<Byte>(character);
    }
    const auto* found = std::find(Specials.begin(), Specials.end(), character);
    if (found == Specials.end()) {
        return std::nullopt;
    }
    return static_cast<Byte>(FirstSpecial + (found - Specials.begin()));
}

Text TextFromBytes(ByteView bytes) {
    Text text;
    AssignFromBytes(text, bytes);
    return text;
}

void AssignFromBytes(Text& text, ByteView bytes) {
    text.resize(bytes.size());
    std::transform(bytes.begin(), bytes.end(), text.begin(), CharacterOf);
}

Bytes BytesFromText(TextView text) {
    Bytes bytes;
    AppendBytes(bytes, text);
    return bytes;
}

void AppendBytes(Bytes& bytes, TextView text) {
    const std::size_t start = bytes.size();
    bytes.resize(start + text.size());
    Byte* const to = bytes.data() + start;
    // Without a way out of the loop it is done several characters at a time.
    unsigned special = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        to[i] = static_cast<Byte>(text[i]);
        special |= IsOwnByte(text[i]) ? 0U : 1U;
    }
    if (special != 0) {
        std::transform(text.begin(), text.end(), to, [](char16_t character) {
            const std::optional<Byte> byte = ByteOf(character);
            if (!byte) {
                throw RuntimeError(ErrorNumber::InvalidArgument);
            }
            return *byte;
        });
    }
}

}  // namespace norvik
