#include "formats/vcard/vcardcontact.h"

#include <algorithm>
#include <utility>

namespace norvik {

namespace {

/// Whether one of the parameters says that this value is liked best.
bool IsPreferred(const VCardProperty& property) {
    VCardParameters parameters(property.Parameters);
    while (const auto parameter = parameters.Next()) {
        if (EqualsIgnoringCase(parameter->Name, "PREF") ||
            LoweredAscii(parameter->Value).find("pref") != std::string::npos) {
            return true;
        }
    }
    return false;
}

/// Takes the value `text` unless there is one already.
void TakeFirst(SimplifiedText& target, SimplifiedText text) {
    if (target.Value.empty()) {
        target = std::move(text);
    }
}

void Append(SimplifiedText& target, const SimplifiedText& text) {
    if (!text.Value.empty() && target.Value.size() < LongestVCardLine) {
        target.Value.append(target.Value.empty() ? u"" : u"\n").append(text.Value);
        target.Replaced = target.Replaced || text.Replaced;
    }
}

bool Says(const VCardAddress& address) {
    return !address.Box.Value.empty() || !address.Extension.Value.empty() ||
           !address.Street.Value.empty() || !address.City.Value.empty() ||
           !address.Code.Value.empty();
}

/// Several given names, which version 3.0 separates by commas, become one text.
SimplifiedText NamesOf(std::string_view piece, VCardCharset charset) {
    if (piece.find_first_of(",\\") == std::string_view::npos) {
        return VCardLine(piece, charset);
    }
    std::string names;
    std::string room;
    while (!piece.empty()) {
        const std::string_view name = Unescaped(TakeVCardPiece(piece, ','), room);
        names.append(names.empty() || name.starts_with(' ') ? "" : " ").append(name);
    }
    return VCardLine(names, charset);
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

}  // namespace

VCardReader::VCardReader(InputStream& input, Charset characters)
    : lines_(input), preset_(CharsetNamed(characters)) {}

bool VCardReader::Next(VCardContact& contact) {
    if (std::exchange(hasBegun_, false)) {
        Begin(Place::Inside, contact);
    }
    while (lines_.Next(line_)) {
        const std::optional<VCardProperty> property = SplitVCardProperty(line_);
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
    contact = {};
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

VCardCharset VCardReader::CharsetOf(const VCardProperty& property) const {
    if (property.Parameters.empty()) {
        return charset_;
    }
    const VCardCharset declared = VCardCharsetOf(ParameterOf(property, "CHARSET"));
    return declared == VCardCharset::Undeclared ? charset_ : declared;
}

void VCardReader::TakeText(VCardName what, const VCardProperty& property, VCardContact& contact) {
    const VCardCharset charset = CharsetOf(property);
    const VCardTransfer transfer = TransferOf(property);
    std::string_view value = TransferredBytes(property.Value, transfer, transferred_);
    switch (what) {
    case VCardName::Version:
        if (charset_ == VCardCharset::Undeclared && TrimmedBytes(value).starts_with('4')) {
            charset_ = VCardCharset::Utf8;
        }
        break;
    case VCardName::Name:
        TakeName(value, charset, contact);
        break;
    case VCardName::FullName:
        TakeFirst(contact.FullName, VCardLine(Unescaped(value, unescaped_), charset));
        break;
    case VCardName::Nickname:
        TakeFirst(contact.Nickname, VCardLine(Unescaped(value, unescaped_), charset));
        break;
    case VCardName::Organisation:
        if (contact.Organisation.Value.empty()) {
            contact.Organisation = NextLine(value, charset);
            contact.Department = NextLine(value, charset);
        }
        break;
    case VCardName::Address:
        TakeAddress(property, value, charset, contact);
        break;
    case VCardName::Label:
        TakeFirst(contact.Label, VCardText(Unescaped(value, unescaped_), charset));
        break;
    case VCardName::Mail:
        TakeFirst(contact.Mail, VCardLine(Unescaped(value, unescaped_), charset));
        break;
    case VCardName::Note:
        Append(contact.Note, VCardText(Unescaped(value, unescaped_), charset));
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
    case VCardName::Begin:
    case VCardName::End:
    case VCardName::Agent:
        break;
    }
}

void VCardReader::TakeName(std::string_view value, VCardCharset charset, VCardContact& contact) {
    if (!contact.Family.Value.empty() || !contact.Given.Value.empty()) {
        return;
    }
    contact.Family = NamesOf(TakeVCardPiece(value, ';'), charset);
    contact.Given = NamesOf(TakeVCardPiece(value, ';'), charset);
    contact.Additional = NamesOf(TakeVCardPiece(value, ';'), charset);
}

/// The next component of a structured value.
SimplifiedText VCardReader::NextLine(std::string_view& rest, VCardCharset charset) {
    return VCardLine(Unescaped(TakeVCardPiece(rest, ';'), unescaped_), charset);
}

void VCardReader::TakeAddress(const VCardProperty& property, std::string_view value,
                              VCardCharset charset, VCardContact& contact) {
    const bool preferred = IsPreferred(property);
    if (hasAddress_ && (hasPreferred_ || !preferred)) {
        return;
    }
    VCardAddress address;
    for (SimplifiedText* part : {&address.Box, &address.Extension, &address.Street, &address.City,
                                 &address.Region, &address.Code, &address.Country}) {
        *part = NextLine(value, charset);
    }
    if (Says(address)) {
        contact.Address = std::move(address);
        hasAddress_ = true;
        hasPreferred_ = preferred;
    }
}

void VCardReader::TakeNumber(const VCardProperty& property, std::string_view value,
                             VCardCharset charset, VCardContact& contact) {
    Text number = VCardNumberText(Unescaped(value, unescaped_), charset).Value;
    if (number.empty()) {
        return;
    }
    if (contact.Numbers.size() == MostVCardNumbers) {
        ++contact.NumbersLeftOut;
        return;
    }
    number.resize(std::min(number.size(), LongestVCardNumber));
    contact.Numbers.push_back(
        {.Number = std::move(number),
         .Kind = NumberKindOf(property),
         .Group = LoweredAscii(property.Group.substr(0, LongestVCardGroup + 1))});
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
