#include "console/utf8.h"

#include "base/windows1252.h"

#include <algorithm>

namespace norvik {

namespace {

/// The bits of a UTF-8 sequence's further bytes, and their mark.
constexpr unsigned FurtherBits = 6;
constexpr unsigned FurtherMask = 0x3F;
constexpr unsigned FurtherMark = 0x80;
constexpr unsigned OneByteEnd = 0x80;
constexpr unsigned TwoBytesEnd = 0x800;

char Further(unsigned bits) {
    return static_cast<char>(FurtherMark | (bits & FurtherMask));
}

void Append(std::string& utf8, unsigned character) {
    if (character < OneByteEnd) {
        utf8.push_back(static_cast<char>(character));
    } else if (character < TwoBytesEnd) {
        utf8.push_back(static_cast<char>(0xC0U | (character >> FurtherBits)));
        utf8.push_back(Further(character));
    } else {
        utf8.push_back(static_cast<char>(0xE0U | (character >> (2 * FurtherBits))));
        utf8.push_back(Further(character >> FurtherBits));
        utf8.push_back(Further(character));
    }
}

}  // namespace

std::string ToUtf8(TextView text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (const char16_t character : text) {
        Append(utf8, character);
    }
    return utf8;
}

std::optional<Text> FromUtf8(std::string_view utf8) {
    Text text;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto byte = [&](std::size_t k) {
            return i + k < utf8.size() ? static_cast<unsigned char>(utf8[i + k]) : 0U;
        };
        const unsigned lead = byte(0);
        const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : 3;
        unsigned character = length == 1 ? lead : lead & (0x7FU >> length);
        for (std::size_t k = 1; k < length; ++k) {
            character = (character << FurtherBits) | (byte(k) & FurtherMask);
        }
        // What was read is right only when it is written the same way.
        std::string again;
        Append(again, character);
        if (again != utf8.substr(i, length) || !ByteOf(static_cast<char16_t>(character))) {
            return std::nullopt;
        }
        text.push_back(static_cast<char16_t>(character));
        i += length;
    }
    return text;
}

bool IsControl(char16_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

Text Printable(TextView text) {
    Text printable(text);
    std::replace_if(printable.begin(), printable.end(), IsControl, u'?');
    return printable;
}

FilePath PathOfArgument(std::string_view argument) {
    return argument;
}

Text PrintablePath(const FilePath& path) {
    return Printable(TextFromPath(path));
}

}  // namespace norvik
