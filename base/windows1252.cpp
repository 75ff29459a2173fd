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
    return character < FirstSpecial || (character >= FirstLatin1 && character <= 0xFF);
}

}  // namespace

char16_t CharacterOf(Byte byte) {
    const bool special = byte >= FirstSpecial && byte < FirstLatin1;
    return special ? Specials[static_cast<std::size_t>(byte - FirstSpecial)] : char16_t{byte};
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
    Text text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(), CharacterOf);
    return text;
}

Bytes BytesFromText(TextView text) {
    Bytes bytes(text.size());
    std::transform(text.begin(), text.end(), bytes.begin(), [](char16_t character) {
        if (IsOwnByte(character)) {
            return static_cast<Byte>(character);
        }
        const std::optional<Byte> byte = ByteOf(character);
        if (!byte) {
            throw RuntimeError(ErrorNumber::InvalidArgument);
        }
        return *byte;
    });
    return bytes;
}

}  // namespace norvik
