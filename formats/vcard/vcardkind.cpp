#include "formats/vcard/vcardkind.h"

#include <algorithm>
#include <array>

namespace norvik {

namespace {

struct KindRow {
    std::string_view Part;
    NumberKind Kind;
};

/// Parts of types and labels, lowered. Those of a graver kind come first.
constexpr std::array<KindRow, 21> Kinds = {{
    {"fax", NumberKind::Fax},        {"cell", NumberKind::Mobile},
    {"mobil", NumberKind::Mobile},   {"handy", NumberKind::Mobile},
    {"iphone", NumberKind::Mobile},  {"smartphone", NumberKind::Mobile},
    {"work", NumberKind::Work},      {"arbeit", NumberKind::Work},
    {"office", NumberKind::Work},    {"b\xC3\xBCro", NumberKind::Work},
    {"buero", NumberKind::Work},     {"gesch\xC3\xA4", NumberKind::Work},
    {"geschaeft", NumberKind::Work}, {"business", NumberKind::Work},
    {"dienst", NumberKind::Work},    {"beruf", NumberKind::Work},
    {"firma", NumberKind::Work},     {"home", NumberKind::Home},
    {"privat", NumberKind::Home},    {"zuhause", NumberKind::Home},
    {"zu hause", NumberKind::Home},
}};

/// The types that most numbers have, to be found without looking for parts.
constexpr std::array<KindRow, 5> CommonTypes = {{{"cell", NumberKind::Mobile},
                                                 {"home", NumberKind::Home},
                                                 {"work", NumberKind::Work},
                                                 {"voice", NumberKind::Unknown},
                                                 {"pref", NumberKind::Unknown}}};

/// A type of the user's own, in quoted-printable within its brackets, as some telephones write.
std::optional<std::string_view> CustomType(std::string_view parameters) {
    constexpr std::string_view Custom = "x-custom(";
    if (parameters.find('(') == std::string_view::npos) {
        return std::nullopt;
    }
    const std::size_t custom = LoweredAscii(parameters).find(Custom);
    return custom == std::string::npos ? std::nullopt
                                       : std::optional(parameters.substr(custom + Custom.size()));
}

}  // namespace

NumberKind NumberKindOf(std::string_view words) {
    for (const auto& [type, kind] : CommonTypes) {
        if (EqualsIgnoringCase(words, type)) {
            return kind;
        }
    }
    const std::string lowered = LoweredAscii(words);
    const auto* found = std::find_if(Kinds.begin(), Kinds.end(), [&lowered](const KindRow& row) {
        return lowered.find(row.Part) != std::string::npos;
    });
    if (found != Kinds.end()) {
        return found->Kind;
    }
    const bool inCar = lowered == "car" || lowered == "pcs";  // of version 2.1
    return inCar ? NumberKind::Mobile : NumberKind::Unknown;
}

NumberKind NumberKindOf(const VCardProperty& property) {
    if (const auto custom = CustomType(property.Parameters)) {
        std::string room;
        return NumberKindOf(TransferredBytes(*custom, VCardTransfer::QuotedPrintable, room));
    }
    NumberKind kind = NumberKind::Unknown;
    VCardParameters parameters(property.Parameters);
    while (const auto parameter = parameters.Next()) {
        if (parameter->Name.empty() || EqualsIgnoringCase(parameter->Name, "TYPE") ||
            EqualsIgnoringCase(parameter->Name, "LABEL")) {
            kind = std::max(kind, NumberKindOf(parameter->Value));
        }
    }
    return kind;
}

}  // namespace norvik
