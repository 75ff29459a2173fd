#include "formats/vcard/vcardtext.h"

#include "base/utf8.h"
#include "base/windows1252.h"
#include "formats/vcard/vcardproperty.h"

#include <algorithm>
#include <array>
#include <utility>

namespace norvik {

namespace {

constexpr char16_t HardBlank = u'\u00A0';
constexpr char16_t NewLine = u'\n';

bool IsAscii(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char byte) { return static_cast<Byte>(byte) < 0x80; });
}

std::u8string Utf8Of(std::string_view bytes) {
    return {bytes.begin(), bytes.end()};
}

bool IsUtf8(std::u8string_view bytes) {
    constexpr unsigned BehindAscii = 0x80;
    while (!bytes.empty()) {
        if (bytes.front() < BehindAscii) {
            bytes.remove_prefix(1);
        } else if (!TakeCodePoint(bytes)) {
            return false;
        }
    }
    return true;
}

/// The eight characters in which ISO-8859-15 differs from Windows-1252.
char32_t Latin9Point(Byte byte) {
    static constexpr std::array<std::pair<Byte, char32_t>, 8> Others = {{{0xA4, U'€'},
                                                                         {0xA6, U'Š'},
                                                                         {0xA8, U'š'},
                                                                         {0xB4, U'Ž'},
                                                                         {0xB8, U'ž'},
                                                                         {0xBC, U'Œ'},
                                                                         {0xBD, U'œ'},
                                                                         {0xBE, U'Ÿ'}}};
    const auto* found = std::find_if(Others.begin(), Others.end(),
                                     [byte](const auto& other) { return other.first == byte; });
    return found == Others.end() ? CharacterOf(byte) : found->second;
}

std::u32string PointsOf(std::string_view bytes, VCardCharset charset) {
    if (charset == VCardCharset::Utf8 || charset == VCardCharset::Undeclared) {
        const std::u8string utf8 = Utf8Of(bytes);
        if (charset == VCardCharset::Utf8 || IsUtf8(utf8)) {
            return CodePoints(utf8);
        }
    }
    std::u32string points;
    points.reserve(bytes.size());
    for (const char character : bytes) {
        const Byte byte = static_cast<Byte>(character);
        points.push_back(charset == VCardCharset::Latin9 ? Latin9Point(byte) : CharacterOf(byte));
    }
    return points;
}

bool IsLineEnd(char16_t character) {
    return character == NewLine || character == u'\r' || character == u'\v';
}

bool IsGap(char16_t character) {
    return IsControl(character) || character == u' ' || character == HardBlank;
}

/// Puts a blank, or a line end where there is one, into the place of each gap; none at the ends.
Text Tidied(TextView text) {
    Text tidied;
    tidied.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        if (!IsGap(text[i])) {
            tidied.push_back(text[i++]);
            continue;
        }
        bool lineEnds = false;
        for (; i < text.size() && IsGap(text[i]); ++i) {
            lineEnds = lineEnds || IsLineEnd(text[i]);
        }
        if (!tidied.empty() && i < text.size()) {
            tidied.push_back(lineEnds ? NewLine : u' ');
        }
    }
    return tidied;
}

/// A digit of another script, and the characters that programs put between digits.
char32_t NumberPoint(char32_t point) {
    static constexpr std::array<char32_t, 6> Zeros = {0x0660, 0x06F0, 0x0966,
                                                      0x09E6, 0x0E50, 0xFF10};
    for (const char32_t zero : Zeros) {
        if (point >= zero && point <= zero + 9) {
            return U'0' + (point - zero);
        }
    }
    if ((point >= 0x2010 && point <= 0x2015) || point == 0x2212 || point == 0xFF0D) {
        return U'-';
    }
    if (point == 0xFF0B) {  // a wide plus
        return U'+';
    }
    const bool isBlank = (point >= 0x2000 && point <= 0x200A) || point == 0x202F || point == 0x3000;
    return isBlank ? U' ' : point;
}

/// The bytes that stand for themselves wherever they are: printable ASCII without "\".
constexpr auto IsPlain = [] {
    std::array<bool, 256> isPlain{};
    for (std::size_t byte = '!'; byte <= '~'; ++byte) {
        isPlain.at(byte) = byte != '\\';
    }
    return isPlain;
}();

/// Takes bytes that are tidy and plain and, in UTF-8, characters of the upper half of ISO-8859-1;
/// gives false, with anything in `text`, where they are not.
bool TakeUsual(std::string_view bytes, bool mayBeUtf8, Text& text) {
    constexpr unsigned FirstPair = 0xC2A1;  // behind the hard blank
    constexpr unsigned LastPair = 0xC3BF;
    if (bytes.starts_with(' ') || bytes.ends_with(' ')) {
        return false;
    }
    text.resize(bytes.size());
    char16_t* end = text.data();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const Byte byte = static_cast<Byte>(bytes[i]);
        if (IsPlain[byte]) {
            *end++ = byte;
        } else if (byte == ' ' && bytes[i - 1] != ' ') {
            *end++ = u' ';
        } else {
            const unsigned further = i + 1 < bytes.size() ? static_cast<Byte>(bytes[i + 1]) : 0;
            const unsigned pair = static_cast<unsigned>(byte) << 8U | further;
            if (!mayBeUtf8 || pair < FirstPair || pair > LastPair || (further & 0xC0U) != 0x80U) {
                return false;
            }
            *end++ = static_cast<char16_t>((byte & 0x03U) << 6U | (further & 0x3FU));
            ++i;
        }
    }
    text.resize(static_cast<std::size_t>(end - text.data()));
    return true;
}

bool IsTidy(TextView text) {
    char16_t last = u' ';
    for (const char16_t character : text) {
        if (IsGap(character) && (character != u' ' || last == u' ')) {
            return false;
        }
        last = character;
    }
    return text.empty() || last != u' ';
}

SimplifiedText Tidy(SimplifiedText text) {
    if (!IsTidy(text.Value)) {
        text.Value = Tidied(text.Value);
    }
    return text;
}

}  // namespace

VCardCharset VCardCharsetOf(std::string_view name) {
    struct Row {
        std::string_view Name;
        VCardCharset Charset;
    };
    static constexpr std::array<Row, 13> Rows = {{
        {"utf-8", VCardCharset::Utf8},
        {"utf8", VCardCharset::Utf8},
        {"iso-8859-1", VCardCharset::Windows1252},
        {"iso8859-1", VCardCharset::Windows1252},
        {"iso_8859-1", VCardCharset::Windows1252},
        {"latin1", VCardCharset::Windows1252},
        {"windows-1252", VCardCharset::Windows1252},
        {"cp1252", VCardCharset::Windows1252},
        {"ansi", VCardCharset::Windows1252},
        {"iso-8859-15", VCardCharset::Latin9},
        {"iso8859-15", VCardCharset::Latin9},
        {"iso_8859-15", VCardCharset::Latin9},
        {"latin9", VCardCharset::Latin9},
    }};
    if (name.empty()) {
        return VCardCharset::Undeclared;
    }
    const auto* found = std::find_if(Rows.begin(), Rows.end(), [name](const Row& row) {
        return EqualsIgnoringCase(row.Name, name);
    });
    return found == Rows.end() ? VCardCharset::Undeclared : found->Charset;
}

namespace {

/// Any bytes.
SimplifiedText Decoded(std::string_view bytes, VCardCharset charset) {
    if (IsAscii(bytes)) {
        return {.Value = Tidied(Text(bytes.begin(), bytes.end()))};
    }
    if (charset == VCardCharset::Utf8 || charset == VCardCharset::Undeclared) {
        const std::u8string utf8 = Utf8Of(bytes);
        if (charset == VCardCharset::Utf8 || IsUtf8(utf8)) {
            return Tidy(SimplifyUtf8(utf8));
        }
    }
    return Tidy(Simplify(PointsOf(bytes, charset)));
}

}  // namespace

bool AssignUsualVCardText(SimplifiedText& text, std::string_view bytes, VCardCharset charset) {
    const bool mayBeUtf8 = charset == VCardCharset::Utf8 || charset == VCardCharset::Undeclared;
    text.Replaced = false;
    return TakeUsual(bytes, mayBeUtf8, text.Value);
}

void AssignVCardText(SimplifiedText& text, std::string_view bytes, VCardCharset charset) {
    if (!AssignUsualVCardText(text, bytes, charset)) {
        text = Decoded(bytes, charset);
    }
}

void AssignVCardLine(SimplifiedText& text, std::string_view bytes, VCardCharset charset) {
    if (!AssignUsualVCardText(text, bytes, charset)) {
        text = Decoded(bytes, charset);
        std::replace(text.Value.begin(), text.Value.end(), NewLine, u' ');
    }
}

SimplifiedText VCardLine(std::string_view bytes, VCardCharset charset) {
    SimplifiedText text;
    AssignVCardLine(text, bytes, charset);
    return text;
}

int Strangeness(const SimplifiedText& text) {
    int strange = 0;
    for (const char16_t character : text.Value) {
        const bool isLetter = LowerCase(character) != UpperCase(character) || character == u'ß';
        strange += character == u'?' && text.Replaced ? 1 : isLetter ? -1 : 0;
    }
    return strange;
}

SimplifiedText VCardNumberText(std::string_view bytes, VCardCharset charset) {
    if (IsAscii(bytes)) {
        return VCardLine(bytes, charset);
    }
    std::u32string points = PointsOf(bytes, charset);
    std::transform(points.begin(), points.end(), points.begin(), NumberPoint);
    SimplifiedText text = Tidy(Simplify(points));
    std::replace(text.Value.begin(), text.Value.end(), NewLine, u' ');
    return text;
}

}  // namespace norvik
