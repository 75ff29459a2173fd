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

/// Joins what there is of the texts.
SimplifiedText Joined(const SimplifiedText& first, TextView between, const SimplifiedText& second) {
    SimplifiedText joined = first;
    if (!first.Value.empty() && !second.Value.empty()) {
        joined.Value.append(between);
    }
    joined.Value.append(second.Value);
    joined.Replaced = first.Replaced || second.Replaced;
    return joined;
}

/// Organisation and department in one line, if they fit there.
SimplifiedText OrganisationOf(const VCardContact& contact) {
    SimplifiedText line = Joined(contact.Organisation, u", ", contact.Department);
    return line.Value.size() <= InfoLineWidth
               ? line
               : Joined(contact.Organisation, u"\n", contact.Department);
}

/// The address in lines: the street, then postcode and town.
SimplifiedText AddressOf(const VCardContact& contact) {
    const VCardAddress& address = contact.Address;
    const SimplifiedText all =
        Joined(VCardStreet(address), u"\n", Joined(address.Code, u" ", address.City));
    return all.Value.empty() ? contact.Label : all;
}

/// Puts words into lines of the info text.
class InfoLinesOf {
  public:
    explicit InfoLinesOf(VCardInfo& info) : info_(info) {}

    /// Takes a text, each line of which begins a new line.
    void Take(const SimplifiedText& text) {
        info_.Replaced = info_.Replaced || text.Replaced;
        const Text value = WithoutExportMark(text.Value);
        for (TextView rest = value; !rest.empty();) {
            const std::size_t end = std::min(rest.find(u'\n'), rest.size());
            TakeLine(rest.substr(0, end));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }

  private:
    void TakeLine(TextView line) {
        for (line = TrimBlanks(line); !line.empty() && !info_.IsCut; line = TrimBlanks(line)) {
            if (info_.Info.size() == InfoWidth) {
                info_.IsCut = true;
                return;
            }
            if (info_.Info.ends_with(u'(') && line.starts_with(u')')) {  // a mark over two lines
                line.remove_prefix(1);
            }
            const std::size_t length = LengthOfNext(line);
            info_.Info.append(PadOrCut(line.substr(0, length), InfoLineWidth));
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
};

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
    const bool hasGiven = !contact.Given.Value.empty();
    const SimplifiedText person =
        Joined(contact.Family, u", ", hasGiven ? contact.Given : contact.Additional);
    for (const SimplifiedText* name : {&person, &contact.FullName, &contact.Organisation,
                                       &contact.Department, &contact.Nickname, &contact.Mail}) {
        if (!name->Value.empty()) {
            return {WithoutExportMark(name->Value), name->Replaced};
        }
    }
    return {contact.Numbers.empty() ? Text() : contact.Numbers.front().Number};
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

VCardInfo VCardContactInfo(const VCardContact& contact, TextView name) {
    VCardInfo info;
    InfoLinesOf lines(info);
    const SimplifiedText organisation =
        contact.Organisation.Value == name && name.size() <= FieldWidth ? contact.Department
                                                                        : OrganisationOf(contact);
    lines.Take(organisation.Value == name ? SimplifiedText() : organisation);
    lines.Take(AddressOf(contact));
    lines.Take(contact.Note);
    info.Info.resize(RightTrim(info.Info).size());
    return info;
}

VCardEntries::VCardEntries(const Settings& settings) : ownCountry_(OwnCountryCode(settings)) {}

void VCardEntries::Reserve() {
    Entries.reserve(RegisterPlaces);
}

void VCardEntries::Take(const VCardContact& contact) {
    const SimplifiedText name = VCardContactName(contact);
    if (!contact.IsWhole) {
        Note(u"Karte ohne Ende: ", name.Value);
    }
    const std::vector<Number> numbers = NumbersOf(contact, name.Value);
    if (numbers.empty()) {
        return;
    }
    const VCardInfo info = VCardContactInfo(contact, name.Value);
    bool nameIsCut = false;
    bool taken = false;
    Brackets brackets;
    for (const Number& number : numbers) {
        const Text bracket = numbers.size() == 1 ? Text() : brackets.Next(number.Kind);
        if (Entries.size() == RegisterPlaces) {
            IsFull = true;
            Note(u"Kein Platz mehr: ", name.Value, number.Dialled);
            continue;
        }
        const TextView shown = TextView(name.Value).substr(0, FieldWidth - bracket.size());
        nameIsCut = nameIsCut || shown.size() < name.Value.size();
        taken = true;
        RegisterEntry& entry = Entries.emplace_back();
        entry.Name = Text(RightTrim(shown)) + bracket;
        entry.Tel = number.Dialled;
        entry.Info = info.Info;
    }
    if (nameIsCut) {
        Note(u"Name gekürzt: ", name.Value);
    }
    if (taken && info.IsCut) {
        Note(u"Infotext gekürzt: ", name.Value);
    }
    if (taken && (name.Replaced || info.Replaced)) {
        Note(u"Zeichen ersetzt: ", name.Value);
    }
}

std::vector<VCardEntries::Number> VCardEntries::NumbersOf(const VCardContact& contact,
                                                          TextView name) {
    std::vector<Number> numbers;
    PlacesOfNumbers places(contact.Numbers.size());
    for (const VCardNumber& number : contact.Numbers) {
        const DialledNumber dialled = Dialled(number.Number, ownCountry_);
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
        const std::size_t place = places.Of(dialled.Number, numbers);
        if (place == numbers.size()) {
            numbers.push_back({dialled.Number, number.Kind});
        } else if (numbers[place].Kind == NumberKind::Unknown) {
            numbers[place].Kind = number.Kind;
        }
    }
    if (contact.NumbersLeftOut > 0) {
        Note(u"Zu viele Rufnummern: ", name,
             Decimal(contact.NumbersLeftOut) + u" weitere weggelassen");
    }
    if (contact.Numbers.empty() && !contact.IsGroup && !name.empty()) {
        Note(u"Ohne Rufnummer: ", name);
    }
    return numbers;
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
