#include "formats/vcard/vcardproperty.h"

#include <algorithm>
#include <array>

namespace norvik {

namespace {

char Lowered(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

/// Without regard to case.
bool AreEqual(char a, char b) {
    return a == b || Lowered(a) == Lowered(b);
}

/// The place of the first of the characters that stands outside quotes; npos where there is none.
template <char... Sought>
std::size_t FindOutsideQuotes(std::string_view text) {
    constexpr char Highest = std::max({'"', Sought...});
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] > Highest) {  // as most are
            continue;
        }
        if (text[i] == '"') {
            quoted = !quoted;
        } else if (!quoted && ((text[i] == Sought) || ...)) {
            return i;
        }
    }
    return std::string_view::npos;
}

std::string_view WithoutQuotes(std::string_view value) {
    value = TrimmedBytes(value);
    if (value.starts_with('"')) {
        value.remove_prefix(1);
        value.remove_suffix(value.ends_with('"') ? 1 : 0);
    }
    return value;
}

std::optional<unsigned> HexDigit(char byte) {
    constexpr std::string_view Digits = "0123456789abcdef";
    const std::size_t place = Digits.find(Lowered(byte));
    return place == std::string_view::npos ? std::nullopt
                                           : std::optional(static_cast<unsigned>(place));
}

std::string FromQuotedPrintable(std::string_view value) {
    std::string bytes;
    bytes.reserve(value.size());
    for (std::size_t i = 0; i < value.size(); ++i) {
        constexpr unsigned HexBase = 16;
        const auto high = i + 2 < value.size() ? HexDigit(value[i + 1]) : std::nullopt;
        const auto low = high ? HexDigit(value[i + 2]) : std::nullopt;
        if (value[i] == '=' && low) {
            bytes.push_back(static_cast<char>(*high * HexBase + *low));
            i += 2;
        } else if (value[i] != '=' || i + 1 < value.size()) {  // a break at the end is nothing
            bytes.push_back(value[i]);
        }
    }
    return bytes;
}

std::string FromBase64(std::string_view value) {
    constexpr std::string_view Digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    constexpr unsigned BitsOfDigit = 6;
    constexpr unsigned BitsOfByte = 8;
    std::string bytes;
    unsigned bits = 0;
    unsigned count = 0;
    for (const char digit : value) {
        const std::size_t place = Digits.find(digit);
        if (place == std::string_view::npos) {
            continue;
        }
        bits = (bits << BitsOfDigit | static_cast<unsigned>(place)) & 0xFFFFU;
        count += BitsOfDigit;
        if (count >= BitsOfByte) {
            count -= BitsOfByte;
            bytes.push_back(static_cast<char>(bits >> count & 0xFFU));
        }
    }
    return bytes;
}

struct NameRow {
    std::string_view Name;
    VCardName What;
};

constexpr std::array<NameRow, 19> Names = {{
    {"BEGIN", VCardName::Begin},
    {"END", VCardName::End},
    {"VERSION", VCardName::Version},
    {"AGENT", VCardName::Agent},
    {"N", VCardName::Name},
    {"FN", VCardName::FullName},
    {"NICKNAME", VCardName::Nickname},
    {"ORG", VCardName::Organisation},
    {"ADR", VCardName::Address},
    {"LABEL", VCardName::Label},
    {"EMAIL", VCardName::Mail},
    {"NOTE", VCardName::Note},
    {"TEL", VCardName::Number},
    {"X-ABLABEL", VCardName::GroupLabel},
    {"KIND", VCardName::Kind},
    {"X-ADDRESSBOOKSERVER-KIND", VCardName::Kind},
    {"X-PHONETIC-LAST-NAME", VCardName::PhoneticFamily},
    {"X-PHONETIC-FIRST-NAME", VCardName::PhoneticGiven},
    {"SORT-STRING", VCardName::SortName},
}};
constexpr std::size_t LongestName = 31;

/// A place by the length and the first letter, in any case.
constexpr std::size_t PlaceByLook(std::string_view name) {
    constexpr unsigned LetterMask = 0x1F;
    return name.size() * (LetterMask + 1) + (static_cast<unsigned char>(name.front()) & LetterMask);
}

/// The row of the name that looks so, if any does; no two of them look alike.
constexpr auto PlacesOfNames = [] {
    std::array<unsigned char, (LongestName + 1) * (LongestName + 1)> places{};
    for (std::size_t row = 0; row < Names.size(); ++row) {
        places.at(PlaceByLook(Names.at(row).Name)) = static_cast<unsigned char>(row);
    }
    return places;
}();
static_assert(std::all_of(Names.begin(), Names.end(), [](const NameRow& row) {
    return Names.at(PlacesOfNames.at(PlaceByLook(row.Name))).Name == row.Name;
}));

}  // namespace

std::optional<VCardProperty> SplitVCardProperty(std::string_view line) {
    std::size_t nameEnd = 0;
    bool hasGroup = false;
    for (; nameEnd < line.size() && line[nameEnd] != ':' && line[nameEnd] != ';'; ++nameEnd) {
        hasGroup = hasGroup || line[nameEnd] == '.';
    }
    if (nameEnd == line.size()) {
        return std::nullopt;
    }
    VCardProperty property;
    property.Name = TrimmedBytes(line.substr(0, nameEnd));
    if (hasGroup) {
        const std::size_t point = property.Name.rfind('.');
        property.Group = property.Name.substr(0, point);
        property.Name.remove_prefix(point + 1);
    }
    const std::string_view behind = line.substr(nameEnd + 1);
    if (line[nameEnd] == ':') {
        property.Value = behind;
    } else {
        std::size_t colon = FindOutsideQuotes<':'>(behind);
        if (colon == std::string_view::npos) {
            colon = behind.find(':');
        }
        if (colon == std::string_view::npos) {
            return std::nullopt;
        }
        property.Parameters = behind.substr(0, colon);
        property.Value = behind.substr(colon + 1);
    }
    return property.Name.empty() ? std::nullopt : std::optional(property);
}

std::optional<VCardName> VCardNameOf(std::string_view name) {
    if (name.empty() || name.size() > LongestName) {
        return std::nullopt;
    }
    const NameRow& row = Names.at(PlacesOfNames.at(PlaceByLook(name)));
    return EqualsIgnoringCase(row.Name, name) ? std::optional(row.What) : std::nullopt;
}

std::optional<VCardParameters::Parameter> VCardParameters::Next() {
    if (rest_.empty()) {
        return std::nullopt;
    }
    if (!inList_) {
        name_ = {};
        const std::size_t equals = FindOutsideQuotes<'=', ';', ','>(rest_);
        if (equals != std::string_view::npos && rest_[equals] == '=') {
            name_ = TrimmedBytes(rest_.substr(0, equals));
            rest_.remove_prefix(equals + 1);
        }
    }
    const std::size_t end = std::min(FindOutsideQuotes<';', ','>(rest_), rest_.size());
    const std::string_view value = rest_.substr(0, end);
    inList_ = end < rest_.size() && rest_[end] == ',';
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return Parameter{name_, WithoutQuotes(value)};
}

VCardTransfer TransferOf(const VCardProperty& property) {
    VCardParameters parameters(property.Parameters);
    while (const auto parameter = parameters.Next()) {
        if (const VCardTransfer transfer = TransferOf(*parameter);
            transfer != VCardTransfer::Plain) {
            return transfer;
        }
    }
    return VCardTransfer::Plain;
}

VCardTransfer TransferOf(const VCardParameters::Parameter& parameter) {
    if (!parameter.Name.empty() && !EqualsIgnoringCase(parameter.Name, "ENCODING")) {
        return VCardTransfer::Plain;
    }
    if (EqualsIgnoringCase(parameter.Value, "QUOTED-PRINTABLE")) {
        return VCardTransfer::QuotedPrintable;
    }
    const bool isBase64 = EqualsIgnoringCase(parameter.Value, "BASE64") ||
                          (EqualsIgnoringCase(parameter.Value, "B") && !parameter.Name.empty());
    return isBase64 ? VCardTransfer::Base64 : VCardTransfer::Plain;
}

bool IsPreferred(const VCardProperty& property) {
    VCardParameters parameters(property.Parameters);
    while (const auto parameter = parameters.Next()) {
        if (EqualsIgnoringCase(parameter->Name, "PREF") ||
            ContainsIgnoringCase(parameter->Value, "PREF")) {
            return true;
        }
    }
    return false;
}

std::string_view TransferredBytes(std::string_view value, VCardTransfer transfer,
                                  std::string& room) {
    switch (transfer) {
    case VCardTransfer::QuotedPrintable:
        room = FromQuotedPrintable(value);
        return room;
    case VCardTransfer::Base64:
        room = FromBase64(value);
        return room;
    case VCardTransfer::Plain:
        break;
    }
    return value;
}

std::string_view TakeVCardPiece(std::string_view& rest, char separator) {
    std::size_t end = 0;
    while (end < rest.size() && rest[end] != separator) {
        end += rest[end] == '\\' ? 2 : 1;
    }
    const std::string_view piece = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return piece;
}

std::string_view Unescaped(std::string_view piece, std::string& room) {
    constexpr std::string_view Escaped = ",;:\\\"";
    if (piece.find('\\') == std::string_view::npos) {
        return piece;
    }
    std::string& bytes = room;
    bytes.clear();
    for (std::size_t i = 0; i < piece.size(); ++i) {
        const char next = i + 1 < piece.size() ? piece[i + 1] : '\0';
        if (piece[i] != '\\' ||
            (Lowered(next) != 'n' && Escaped.find(next) == std::string_view::npos)) {
            bytes.push_back(piece[i]);
        } else {
            bytes.push_back(Lowered(next) == 'n' ? '\n' : next);
            ++i;
        }
    }
    return bytes;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), AreEqual);
}

bool ContainsIgnoringCase(std::string_view bytes, std::string_view part) {
    return std::search(bytes.begin(), bytes.end(), part.begin(), part.end(), AreEqual) !=
           bytes.end();
}

std::string LoweredAscii(std::string_view bytes) {
    std::string lowered(bytes);
    std::transform(lowered.begin(), lowered.end(), lowered.begin(), Lowered);
    return lowered;
}

std::string_view TrimmedBytes(std::string_view bytes) {
    const auto isBlank = [](char byte) { return byte == ' ' || byte == '\t'; };
    while (!bytes.empty() && isBlank(bytes.front())) {
        bytes.remove_prefix(1);
    }
    while (!bytes.empty() && isBlank(bytes.back())) {
        bytes.remove_suffix(1);
    }
    return bytes;
}

}  // namespace norvik
