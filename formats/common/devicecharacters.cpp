#include "formats/common/devicecharacters.h"

#include <algorithm>
#include <array>

namespace norvik {

namespace {

/// The character at each place of AnsiChars is the byte at the same place of DeviceChars. "^" maps
/// to itself.
constexpr TextView AnsiChars = u"äöüßÄÖÜéè^°§âêô";
constexpr std::array<Byte, 15> DeviceChars = {132, 148, 129, 225, 142, 153, 154, 130,
                                              138, 94,  248, 245, 131, 136, 147};
static_assert(AnsiChars.size() == DeviceChars.size());

using CharacterTable = std::array<char16_t, 256>;

CharacterTable MakeCharacterTable() {
    CharacterTable table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        table[byte] = CharacterOf(static_cast<Byte>(byte));
    }
    for (std::size_t i = 0; i < DeviceChars.size(); ++i) {
        table[DeviceChars[i]] = AnsiChars[i];
    }
    return table;
}

}  // namespace

Text DeviceToAnsi(ByteView bytes) {
    static const CharacterTable table = MakeCharacterTable();
    Text text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](Byte byte) { return table[byte]; });
    return text;
}

Bytes AnsiToDevice(TextView text) {
    Bytes bytes = BytesFromText(text);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t place = AnsiChars.find(text[i]);
        if (place != TextView::npos) {
            bytes[i] = DeviceChars[place];
        }
    }
    return bytes;
}

}  // namespace norvik
