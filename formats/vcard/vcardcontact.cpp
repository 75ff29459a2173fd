#include "formats/vcard/vcardcontact.h"

#include <algorithm>
#include <array>
#include <utility>

namespace norvik {

namespace {

bool Says(const VCardAddress& address) {
    return !address.Box.Value.empty() || !address.Extension.Value.empty() ||
           !address.Street.Value.empty() || !address.City.Value.empty() ||
           !address.Code.Value.empty();
}

void Clear(SimplifiedText& text) {
    text.Value.clear();
    text.Replaced = false;
}

/// In the order in which they stand in a card.
std::array<SimplifiedText*, 7> PartsOf(VCardAddress& address) {
    return {&address.Box,    &address.Extension, &address.Street, &address.City,
            &address.Region, &address.Code,      &address.Country};
}

void Clear(VCardAddress& address) {
    for (SimplifiedText* part : PartsOf(address)) {
        Clear(*part);
    }
}

/// Empties the contact but keeps the room of its texts.
void Clear(VCardContact& contact) {
    for (SimplifiedText* text :
         {&contact.Family, &contact.Given, &contact.Additional, &contact.FullName,
          &contact.Nickname, &contact.Organisation, &contact.Department, &contact.Mail,
          &contact.Label, &contact.Note, &contact.PhoneticFamily, &contact.PhoneticGiven,
          &contact.SortName}) {
        Clear(*text);
    }
    Clear(contact.Address);
    contact.Numbers.clear();
    contact.NumbersLeftOut = 0;
    contact.NameGaveWay = false;
    contact.IsGroup = false;
    contact.IsWhole = true;
}

VCardCharset CharsetNamed(Charset characters) {
    switch (characters) {
    case Charset::Utf8:
        return VCardCharset::Utf8;
    case Charset::Windows1252:
        return VCardCharset::Windows1252;
    case Charset::Automatic:
        break;
    }
    return VCardCharset::Undeclared;
}

/// Where the first property of a name goes as it is.
constexpr std::pair<VCardName, SimplifiedText VCardContact::*> FirstTexts[] = {
    {VCardName::PhoneticFamily, &VCardContact::PhoneticFamily},
    {VCardName::PhoneticGiven, &VCardContact::PhoneticGiven},
    {VCardName::SortName, &VCardContact::SortName},
    {VCardName::Nickname, &VCardContact::Nickname},
    {VCardName::Mail, &VCardContact::Mail},
};

}  // namespace

VCardReader::VCardReader(InputStream& input, Charset characters)
    : lines_(input), preset_(CharsetNamed(characters)) {}

bool VCardReader::Next(VCardContact& contact) {
    if (std::exchange(hasBegun_, false)) {
        Begin(Place::Inside, contact);
    }
    for (std::string_view line; lines_.Next(line);) {
        const std::optional<VCardProperty> property = SplitVCardProperty(line);
        if (property && Take(*property, contact)) {
            return true;
        }
    }
    if (std::exchange(place_, Place::Outside) != Place::Inside) {
        return false;
    }
    contact.IsWhole = false;
    Finish(contact);
    return true;
}

bool VCardReader::Begin(Place place, VCardContact& contact) {
    if (!contact.Numbers.empty()) {
        roomOfNumber_ = std::move(contact.Numbers.front().Number);
    }
    Clear(contact);
    kindOfGroup_.clear();
    place_ = place;
    charset_ = lines_.IsMarked() ? VCardCharset::Utf8 : preset_;
    hasAddress_ = false;
    hasPreferred_ = false;
    agentFollows_ = false;
    nested_ = 0;
    return false;
}

/// Takes a property into the contact; gives whether that is complete now.
bool VCardReader::Take(const VCardProperty& property, VCardContact& contact) {
    const std::optional<VCardName> what = VCardNameOf(property.Name);
    if (!what) {
        agentFollows_ = false;
        return false;
    }
    if (*what == VCardName::Begin || *what == VCardName::End) {
        return EqualsIgnoringCase(TrimmedBytes(property.Value), "VCARD") &&
               TakeEdge(*what, contact);
    }
    if (place_ == Place::Outside) {
        Begin(Place::Guessed, contact);
    }
    agentFollows_ = *what == VCardName::Agent && TrimmedBytes(property.Value).empty();
    if (nested_ > 0) {
        return false;
    }
    TakeText(*what, property, contact);
    return false;
}

/// Takes the beginning or the end of a card; gives whether the contact is complete now.
bool VCardReader::TakeEdge(VCardName edge, VCardContact& contact) {
    if (edge == VCardName::Begin) {
        if (place_ != Place::Inside) {
            return Begin(Place::Inside, contact);
        }
        if (std::exchange(agentFollows_, false)) {
            ++nested_;
            return false;
        }
        hasBegun_ = true;  // the end of the card before is missing
        contact.IsWhole = false;
    } else if (nested_ > 0) {
        --nested_;
        return false;
    } else if (place_ == Place::Outside) {
        return false;
    }
    place_ = Place::Outside;
    Finish(contact);
    return true;
}

/// Of several parameters that tell it the first one counts.
VCardReader::Manner VCardReader::MannerOf(const VCardProperty& property) const {
    Manner manner = {.Characters = charset_, .Transfer = VCardTransfer::Plain};
    constexpr std::string_view Types = "TYPE=";
    const std::string_view all = property.Parameters;
    if (all.empty() || (EqualsIgnoringCase(all.substr(0, Types.size()), Types) &&
                        all.find(';') == std::string_view::npos)) {
        return manner;  // as most
    }
    bool hasCharset = false;
    VCardParameters parameters(all);
    while (const auto parameter = parameters.Next()) {
        if (!hasCharset && EqualsIgnoringCase(parameter->Name, "CHARSET")) {
            hasCharset = true;
            const VCardCharset declared = VCardCharsetOf(parameter->Value);
            manner.Characters = declared == VCardCharset::Undeclared ? charset_ : declared;
        } else if (manner.Transfer == VCardTransfer::Plain) {
            manner.Transfer = TransferOf(*parameter);
        }
    }
    return manner;
}

void VCardReader::TakeText(VCardName what, const VCardProperty& property, VCardContact& contact) {
    const auto [charset, transfer] = MannerOf(property);
    std::string_view value = property.Value;
    if (transfer != VCardTransfer::Plain) {
        value = TransferredBytes(value, transfer, transferred_);
    }
    for (const auto& [name, text] : FirstTexts) {
        if (name == what) {
            TakeFirst(contact.*text, value, charset);
            return;
        }
    }
    switch (what) {
    case VCardName::Version:
        if (charset_ == VCardCharset::Undeclared && TrimmedBytes(value).starts_with('4')) {
            charset_ = VCardCharset::Utf8;
        }
        break;
    case VCardName::Name:
        TakeName(value, charset, contact);
        if (!property.Parameters.empty()) {
            TakeSortName(property, charset, contact);
        }
        break;
    case VCardName::FullName:
        contact.NameGaveWay = TakeFirst(contact.FullName, value, charset) || contact.NameGaveWay;
        break;
    case VCardName::Organisation:
        if (contact.Organisation.Value.empty()) {
            TakeLine(contact.Organisation, TakeVCardPiece(value, ';'), charset);
            TakeLine(contact.Department, TakeVCardPiece(value, ';'), charset);
        }
        break;
    case VCardName::Address:
        TakeAddress(property, value, charset, contact);
        break;
    case VCardName::Label:
        if (contact.Label.Value.empty()) {
            TakeLines(contact.Label, value, charset);
        }
        break;
    case VCardName::Note:
        TakeNote(contact.Note, value, charset);
        break;
    case VCardName::Number:
        TakeNumber(property, value, charset, contact);
        break;
    case VCardName::GroupLabel:
        TakeLabel(property);
        break;
    case VCardName::Kind:
        contact.IsGroup = EqualsIgnoringCase(TrimmedBytes(value), "group");
        break;
    default:  // the first texts, and the edges of a card
        break;
    }
}

void VCardReader::TakeName(std::string_view value, VCardCharset charset, VCardContact& contact) {
    const std::array<SimplifiedText*, 3> parts = {&contact.Family, &contact.Given,
                                                  &contact.Additional};
    if (contact.Family.Value.empty() && contact.Given.Value.empty()) {
        TakeNameParts(value, charset, parts);
    } else if (Strangeness(contact.Family) + Strangeness(contact.Given) > 0) {
        auto& [family, given, additional] = otherName_;
        TakeNameParts(value, charset, {&family, &given, &additional});
        if (Strangeness(family) + Strangeness(given) < 0) {
            std::swap(contact.Family, family);
            std::swap(contact.Given, given);
            std::swap(contact.Additional, additional);
            contact.NameGaveWay = true;
        }
    }
}

void VCardReader::TakeNameParts(std::string_view value, VCardCharset charset,
                                const std::array<SimplifiedText*, 3>& parts) {
    for (SimplifiedText* part : parts) {
        TakeNames(*part, TakeVCardPiece(value, ';'), charset);
    }
}

/// The parameter of a name has family and given name in one text or in a list.
void VCardReader::TakeSortName(const VCardProperty& property, VCardCharset charset,
                               VCardContact& contact) {
    names_.clear();
    VCardParameters parameters(property.Parameters);
    while (const auto parameter = parameters.Next()) {
        std::string_view names =
            EqualsIgnoringCase(parameter->Name, "SORT-AS") ? parameter->Value : std::string_view();
        while (!names.empty()) {
            names_.append(names_.empty() ? "" : ", ");
            names_.append(TrimmedBytes(TakeVCardPiece(names, ',')));
        }
    }
    TakeFirst(contact.SortName, names_, charset);
}

/// Several given names, which version 3.0 separates by commas, become one text.
void VCardReader::TakeNames(SimplifiedText& target, std::string_view piece, VCardCharset charset) {
    if (piece.empty() || piece.find(',') == std::string_view::npos) {
        TakeLine(target, piece, charset);
        return;
    }
    names_.clear();
    while (!piece.empty()) {
        const std::string_view name = Unescaped(TakeVCardPiece(piece, ','), unescaped_);
        names_.append(names_.empty() || name.starts_with(' ') ? "" : " ").append(name);
    }
    AssignVCardLine(target, names_, charset);
}

/// Takes a piece of a value, which may have escaped characters.
void VCardReader::TakeLine(SimplifiedText& target, std::string_view piece, VCardCharset charset) {
    if (piece.empty()) {
        Clear(target);
    } else if (!AssignUsualVCardText(target, piece, charset)) {
        AssignVCardLine(target, Unescaped(piece, unescaped_), charset);
    }
}

/// The same with several lines.
void VCardReader::TakeLines(SimplifiedText& target, std::string_view piece, VCardCharset charset) {
    if (!AssignUsualVCardText(target, piece, charset)) {
        AssignVCardText(target, Unescaped(piece, unescaped_), charset);
    }
}

/// Takes the value behind what there is already, as far as a line goes.
void VCardReader::TakeNote(SimplifiedText& note, std::string_view value, VCardCharset charset) {
    if (note.Value.empty()) {
        TakeLines(note, value, charset);
    } else if (note.Value.size() < LongestVCardLine) {
        TakeLines(further_, value, charset);
        note.Value.append(further_.Value.empty() ? u"" : u"\n").append(further_.Value);
        note.Replaced = note.Replaced || further_.Replaced;
    }
}

/// Takes the value unless there is one already; one that can be read goes before one of another
/// script. Gives whether such a one gave way.
bool VCardReader::TakeFirst(SimplifiedText& target, std::string_view value, VCardCharset charset) {
    if (target.Value.empty()) {
        TakeLine(target, value, charset);
    } else if (Strangeness(target) > 0) {
        TakeLine(further_, value, charset);
        if (Strangeness(further_) < 0) {
            std::swap(target, further_);
            return true;
        }
    }
    return false;
}

void VCardReader::TakeAddress(const VCardProperty& property, std::string_view value,
                              VCardCharset charset, VCardContact& contact) {
    const bool preferred = IsPreferred(property);
    if (hasAddress_ && (hasPreferred_ || !preferred)) {
        return;
    }
    VCardAddress& address = hasAddress_ ? address_ : contact.Address;
    for (SimplifiedText* part : PartsOf(address)) {
        TakeLine(*part, TakeVCardPiece(value, ';'), charset);
    }
    if (!Says(address)) {
        Clear(address);
        return;
    }
    if (hasAddress_) {
        std::swap(contact.Address, address_);
    }
    hasAddress_ = true;
    hasPreferred_ = preferred;
}

void VCardReader::TakeNumber(const VCardProperty& property, std::string_view value,
                             VCardCharset charset, VCardContact& contact) {
    if (!AssignUsualVCardText(number_, value, charset)) {
        number_ = VCardNumberText(Unescaped(value, unescaped_), charset);
    }
    if (number_.Value.empty()) {
        return;
    }
    if (contact.Numbers.size() == MostVCardNumbers) {
        ++contact.NumbersLeftOut;
        return;
    }
    VCardNumber& number = contact.Numbers.emplace_back();
    number.Number = std::move(roomOfNumber_);
    number.Number = TextView(number_.Value).substr(0, LongestVCardNumber);
    number.Kind = NumberKindOf(property);
    if (!property.Group.empty()) {
        number.Group = LoweredAscii(property.Group.substr(0, LongestVCardGroup + 1));
    }
}

void VCardReader::TakeLabel(const VCardProperty& property) {
    const NumberKind kind = NumberKindOf(property.Value);
    const bool isKept = !property.Group.empty() && property.Group.size() <= LongestVCardGroup &&
                        kindOfGroup_.size() < MostVCardNumbers;
    if (kind != NumberKind::Unknown && isKept) {
        kindOfGroup_.insert_or_assign(LoweredAscii(property.Group), kind);
    }
}

/// A label stands before or behind its number.
void VCardReader::Finish(VCardContact& contact) const {
    if (kindOfGroup_.empty()) {
        return;
    }
    for (VCardNumber& number : contact.Numbers) {
        const auto label = kindOfGroup_.find(number.Group);
        if (!number.Group.empty() && label != kindOfGroup_.end()) {
            number.Kind = std::max(number.Kind, label->second);
        }
    }
}

}  // namespace norvik
