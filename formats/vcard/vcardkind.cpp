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

}  // namespace

NumberKind NumberKindOf(std::string_view words) {
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
    // A type of the user's own, in quoted-printable within its brackets, as some telephones write.
    constexpr std::string_view Custom = "x-custom(";
    const std::size_t custom = LoweredAscii(property.Parameters).find(Custom);
    if (custom != std::string::npos) {
        return NumberKindOf(TransferredBytes(property.Parameters.substr(custom + Custom.size()),
                                             VCardTransfer::QuotedPrintable));
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
