#include "formats/vcard/vcardentries.h"

#include "formats/vcard/vcardnumber.h"
#include "register/placetable.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

namespace norvik {

namespace {

constexpr std::size_t InfoWidth = InfoLines * InfoLineWidth;

void Append(SimplifiedText& text, TextView between, const SimplifiedText& further) {
    if (!text.Value.empty() && !further.Value.empty()) {
        text.Value.append(between);
    }
    text.Value.append(further.Value);
    text.Replaced = text.Replaced || further.Replaced;
}

/// Joins what there is of the texts.
SimplifiedText Joined(const SimplifiedText& first, TextView between, const SimplifiedText& second) {
    SimplifiedText joined = first;
    Append(joined, between, second);
    return joined;
}

/// Puts words into lines of the info text.
class InfoLinesOf {
  public:
    /// `room` is there for texts that are made on the way.
    InfoLinesOf(VCardInfo& info, SimplifiedText& room) : info_(info), room_(room) {}

    /// Takes a text, each line of which begins a new line.
    void Take(const SimplifiedText& text) {
        info_.Replaced = info_.Replaced || text.Replaced;
        if (std::none_of(text.Value.begin(), text.Value.end(), [](char16_t character) {
                return character == u'\n' || character == u'(';
            })) {
            TakeLine(text.Value);
            return;
        }
        const bool isMarked = Contains(text.Value, ExportMark);
        const Text unmarked = isMarked ? WithoutExportMark(text.Value) : Text();
        for (TextView rest = isMarked ? unmarked : text.Value; !rest.empty();) {
            const std::size_t end = std::min(rest.find(u'\n'), rest.size());
            TakeLine(rest.substr(0, end));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    /// Takes what there is of two texts in one.
    void Take(const SimplifiedText& first, TextView between, const SimplifiedText& second) {
        if (first.Value.empty() || second.Value.empty()) {
            Take(first.Value.empty() ? second : first);
        } else {
            room_ = first;
            Append(room_, between, second);
            Take(room_);
        }
    }

  private:
    void TakeLine(TextView line) {
        Text& info = info_.Info;
        for (line = TrimBlanks(line); !line.empty() && !info_.IsCut; line = TrimBlanks(line)) {
            if (info.size() == InfoWidth) {
                info_.IsCut = true;
                return;
            }
            if (info.ends_with(u'(') && line.starts_with(u')')) {  // a mark over two lines
                line.remove_prefix(1);
            }
            const std::size_t length = LengthOfNext(line);
            info.append(line.substr(0, length)).append(InfoLineWidth - length, u' ');
            line.remove_prefix(length);
        }
    }

    /// How much of the text stands in the next line: whole words, unless the first one is too long.
    static std::size_t LengthOfNext(TextView line) {
        if (line.size() <= InfoLineWidth) {
            return line.size();
        }
        std::size_t length = line.rfind(u' ', InfoLineWidth);
        if (length == TextView::npos) {
            length = InfoLineWidth;
        }
        return length;
    }

    VCardInfo& info_;
    SimplifiedText& room_;
};

/// Organisation and department, in one line if they fit there.
void TakeOrganisation(const VCardContact& contact, TextView name, InfoLinesOf& lines) {
    const SimplifiedText& organisation = contact.Organisation;
    const SimplifiedText& department = contact.Department;
    if (organisation.Value.empty() && department.Value.empty()) {
        return;
    }
    const bool isName = organisation.Value == name && name.size() <= FieldWidth;
    SimplifiedText text = isName ? department : Joined(organisation, u", ", department);
    if (!isName && text.Value.size() > InfoLineWidth) {
        text = Joined(organisation, u"\n", department);
    }
    if (text.Value != name) {
        lines.Take(text);
    }
}

/// The address in lines: the street, then postcode and town.
void TakeAddress(const VCardContact& contact, InfoLinesOf& lines) {
    const VCardAddress& address = contact.Address;
    const bool hasStreet = !address.Street.Value.empty() || !address.Extension.Value.empty();
    if (!hasStreet && address.Box.Value.empty() && address.Code.Value.empty() &&
        address.City.Value.empty()) {
        lines.Take(contact.Label);
        return;
    }
    if (hasStreet) {
        lines.Take(address.Street, u", ", address.Extension);
    } else {
        lines.Take(address.Box);
    }
    lines.Take(address.Code, u" ", address.City);
}

/// The contact's info text: organisation, address and note in lines of 21 characters, as far as
/// the six lines go. The organisation is left out where it is the name.
void AssignInfo(VCardInfo& info, SimplifiedText& room, const VCardContact& contact, TextView name) {
    info.Info.clear();
    info.IsCut = false;
    info.Replaced = false;
    InfoLinesOf lines(info, room);
    TakeOrganisation(contact, name, lines);
    TakeAddress(contact, lines);
    lines.Take(contact.Note);
    info.Info.resize(RightTrim(info.Info).size());
}

/// Another name in place of one of another script, if one can be read; gives whether one can.
bool ReplaceStrangeName(SimplifiedText& name, const VCardContact& contact) {
    const SimplifiedText phonetic = Joined(contact.PhoneticFamily, u", ", contact.PhoneticGiven);
    for (const SimplifiedText* other :
         {&contact.FullName, &phonetic, &contact.SortName, &contact.Nickname, &contact.Organisation,
          &contact.Department, &contact.Mail}) {
        if (Strangeness(*other) < 0) {
            name = *other;
            return true;
        }
    }
    return false;
}

/// "Nachname, Vorname", else another name; at last the first number. Gives whether the name that
/// would come first is of another script and gave way.
bool AssignName(SimplifiedText& name, const VCardContact& contact) {
    const bool hasGiven = !contact.Given.Value.empty();
    name = contact.Family;
    if (Strangeness(contact.Family) <= 0 || Strangeness(contact.Given) >= 0) {
        Append(name, u", ", hasGiven ? contact.Given : contact.Additional);
    } else {  // a sign alone, or half of a name, is none
        name.Value = contact.Given.Value;
    }
    for (const SimplifiedText* other : {&contact.FullName, &contact.Organisation,
                                        &contact.Department, &contact.Nickname, &contact.Mail}) {
        if (!name.Value.empty()) {
            break;
        }
        name = *other;
    }
    const bool isOther =
        Strangeness(name) > 0 ? ReplaceStrangeName(name, contact) : contact.NameGaveWay;
    if (name.Value.empty() && !contact.Numbers.empty()) {
        name.Value = contact.Numbers.front().Number;
        name.Replaced = false;
    } else if (Contains(name.Value, ExportMark)) {
        name.Value = WithoutExportMark(std::move(name.Value));
    }
    return isOther;
}

/// The letter of a kind; empty for one that is not known.
TextView LetterOf(NumberKind kind) {
    constexpr std::array<TextView, 5> Letters = {u"", u"p", u"g", u"m", u"f"};
    return Letters.at(static_cast<std::size_t>(kind));
}

/// What stands behind the name of each number of a contact that has several: the letter of its
/// kind, or a running number where the kind is not known or has come before. The first number needs
/// none.
class Brackets {
  public:
    Text Next(NumberKind kind) {
        const bool isFirst = std::exchange(isFirst_, false);
        const bool isNew = !std::exchange(used_.at(static_cast<std::size_t>(kind)), true);
        if (kind != NumberKind::Unknown && isNew) {
            return u" (" + Text(LetterOf(kind)) + u")";
        }
        return isFirst ? Text() : u" (" + Decimal(++last_) + u")";
    }

  private:
    std::array<bool, 5> used_{};
    bool isFirst_ = true;
    long long last_ = 1;
};

/// Finds a number among those that have been taken. A few are looked through, more have a table.
class PlacesOfNumbers {
  public:
    explicit PlacesOfNumbers(std::size_t most) : areFew_(most <= Few) {}

    /// The place of the number; that of a new one is behind all others.
    template <typename Numbers>
    std::size_t Of(const Text& dialled, const Numbers& numbers) {
        if (!areFew_) {
            return table_.try_emplace(dialled, numbers.size()).first->second;
        }
        const auto found =
            std::find_if(numbers.begin(), numbers.end(),
                         [&dialled](const auto& number) { return number.Dialled == dialled; });
        return static_cast<std::size_t>(found - numbers.begin());
    }

  private:
    static constexpr std::size_t Few = 8;
    bool areFew_;
    std::unordered_map<Text, std::size_t> table_;
};

}  // namespace

SimplifiedText VCardContactName(const VCardContact& contact) {
    SimplifiedText name;
    AssignName(name, contact);
    return name;
}

SimplifiedText VCardStreet(const VCardAddress& address) {
    const SimplifiedText street = Joined(address.Street, u", ", address.Extension);
    return street.Value.empty() ? address.Box : street;
}

Text WithoutExportMark(Text text) {
    for (std::size_t place = 0; (place = text.find(ExportMark, place)) != Text::npos;) {
        text.insert(place + 1, u" ");
    }
    return text;
}

VCardEntries::VCardEntries(const Settings& settings) : ownCountry_(OwnCountryCode(settings)) {}

void VCardEntries::Reserve() {
    Entries.reserve(RegisterPlaces);
}

void VCardEntries::Take(const VCardContact& contact) {
    const bool isOtherName = AssignName(name_, contact);
    const TextView name = name_.Value;
    if (!contact.IsWhole) {
        Note(u"Karte ohne Ende: ", name);
    }
    TakeNumbers(contact, name);
    if (numbers_.empty()) {
        return;
    }
    AssignInfo(info_, joined_, contact, name);
    bool nameIsCut = false;
    bool taken = false;
    Brackets brackets;
    for (Number& number : numbers_) {
        const Text bracket = numbers_.size() == 1 ? Text() : brackets.Next(number.Kind);
        if (Entries.size() == RegisterPlaces) {
            IsFull = true;
            Note(u"Kein Platz mehr: ", name, number.Dialled);
            continue;
        }
        nameIsCut = nameIsCut || name.size() > FieldWidth - bracket.size();
        taken = true;
        AppendEntry(name, bracket, number);
    }
    if (taken && isOtherName) {
        Note(u"Name in fremder Schrift, dafür: ", name);
    }
    if (nameIsCut) {
        Note(u"Name gekürzt: ", name);
    }
    if (taken && info_.IsCut) {
        Note(u"Infotext gekürzt: ", name);
    }
    if (taken && (name_.Replaced || info_.Replaced)) {
        Note(u"Zeichen ersetzt: ", name);
    }
}

void VCardEntries::AppendEntry(TextView name, TextView bracket, Number& number) {
    RegisterEntry& entry = Entries.emplace_back();
    entry.Name.reserve(FieldWidth);
    entry.Name.append(RightTrim(name.substr(0, FieldWidth - bracket.size()))).append(bracket);
    entry.Tel = std::move(number.Dialled);
    entry.Info = info_.Info;
}

/// Puts the numbers that the telephone dials into `numbers_`, each once.
void VCardEntries::TakeNumbers(const VCardContact& contact, TextView name) {
    numbers_.clear();
    PlacesOfNumbers places(contact.Numbers.size());
    for (const VCardNumber& number : contact.Numbers) {
        DialledNumber dialled = Dialled(number.Number, ownCountry_);
        if (dialled.Number.empty()) {
            Note(u"Nicht wählbar: ", name, number.Number);
            continue;
        }
        if (dialled.Number.size() > FieldWidth) {
            Note(u"Rufnummer zu lang: ", name, number.Number);
            continue;
        }
        if (dialled.PlusWithoutCountry && !std::exchange(plusIsReported_, true)) {
            Report.Append(u"Die Einstellungen haben keine Landesvorwahl: jedes \"+\" wurde \"00\"")
                .Append(LineEnd);
        }
        if (dialled.LettersAsDigits) {
            Note(u"Buchstaben als Ziffern: ", name, number.Number);
        }
        if (dialled.LeftOut) {
            Note(u"Zusatz der Rufnummer weggelassen: ", name, number.Number);
        }
        const std::size_t place = places.Of(dialled.Number, numbers_);
        if (place == numbers_.size()) {
            numbers_.push_back({std::move(dialled.Number), number.Kind});
        } else if (numbers_[place].Kind == NumberKind::Unknown) {
            numbers_[place].Kind = number.Kind;
        }
    }
    if (contact.NumbersLeftOut > 0) {
        Note(u"Zu viele Rufnummern: ", name,
             Decimal(contact.NumbersLeftOut) + u" weitere weggelassen");
    }
    if (contact.Numbers.empty() && !contact.IsGroup && !name.empty()) {
        Note(u"Ohne Rufnummer: ", name);
    }
}

void VCardEntries::Note(TextView finding, TextView name, TextView number) {
    constexpr std::size_t LongestShown = 60;
    Report.Append(finding).Append(name.substr(0, LongestShown));
    if (name.size() > LongestShown) {
        Report.Append(u"…");
    }
    if (!number.empty()) {
        Report.Append(u": ").Append(number);
    }
    Report.Append(LineEnd);
}

}  // namespace norvik
