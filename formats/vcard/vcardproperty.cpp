#include "formats/vcard/vcardproperty.h"

#include <algorithm>
#include <array>

namespace norvik {

namespace {

char Lowered(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

/// The place of the first of the characters that stands outside quotes; npos where there is none.
template <char... Sought>
std::size_t FindOutsideQuotes(std::string_view text) {
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
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

}  // namespace

std::optional<VCardProperty> SplitVCardProperty(std::string_view line) {
    std::size_t nameEnd = 0;
    while (nameEnd < line.size() && line[nameEnd] != ':' && line[nameEnd] != ';') {
        ++nameEnd;
    }
    if (nameEnd == line.size()) {
        return std::nullopt;
    }
    VCardProperty property;
    property.Name = TrimmedBytes(line.substr(0, nameEnd));
    const std::size_t point = property.Name.rfind('.');
    if (point != std::string_view::npos) {
        property.Group = property.Name.substr(0, point);
        property.Name.remove_prefix(point + 1);
    }
    line.remove_prefix(nameEnd);
    std::size_t colon = FindOutsideQuotes<':'>(line);
    if (colon == std::string_view::npos) {
        colon = line.find(':');
    }
    if (colon == std::string_view::npos || property.Name.empty()) {
        return std::nullopt;
    }
    property.Parameters = line.substr(0, colon);
    if (!property.Parameters.empty()) {
        property.Parameters.remove_prefix(1);
    }
    property.Value = line.substr(colon + 1);
    return property;
}

std::optional<VCardName> VCardNameOf(std::string_view name) {
    struct Row {
        std::string_view Name;
        VCardName What;
    };
    constexpr std::array<Row, 16> Rows = {{
        {"TEL", VCardName::Number},
        {"N", VCardName::Name},
        {"FN", VCardName::FullName},
        {"BEGIN", VCardName::Begin},
        {"END", VCardName::End},
        {"VERSION", VCardName::Version},
        {"ORG", VCardName::Organisation},
        {"ADR", VCardName::Address},
        {"EMAIL", VCardName::Mail},
        {"NOTE", VCardName::Note},
        {"X-ABLABEL", VCardName::GroupLabel},
        {"LABEL", VCardName::Label},
        {"NICKNAME", VCardName::Nickname},
        {"AGENT", VCardName::Agent},
        {"KIND", VCardName::Kind},
        {"X-ADDRESSBOOKSERVER-KIND", VCardName::Kind},
    }};
    const auto* found = std::find_if(Rows.begin(), Rows.end(), [name](const Row& row) {
        return row.Name.size() == name.size() && EqualsIgnoringCase(row.Name, name);
    });
    return found == Rows.end() ? std::nullopt : std::optional(found->What);
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
        if (!parameter->Name.empty() && !EqualsIgnoringCase(parameter->Name, "ENCODING")) {
            continue;
        }
        if (EqualsIgnoringCase(parameter->Value, "QUOTED-PRINTABLE")) {
            return VCardTransfer::QuotedPrintable;
        }
        if (EqualsIgnoringCase(parameter->Value, "BASE64") ||
            (EqualsIgnoringCase(parameter->Value, "B") && !parameter->Name.empty())) {
            return VCardTransfer::Base64;
        }
    }
    return VCardTransfer::Plain;
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

std::string_view ParameterOf(const VCardProperty& property, std::string_view name) {
    VCardParameters parameters(property.Parameters);
    while (const auto parameter = parameters.Next()) {
        if (EqualsIgnoringCase(parameter->Name, name)) {
            return parameter->Value;
        }
    }
    return {};
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
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(),
                      [](char left, char right) { return Lowered(left) == Lowered(right); });
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
