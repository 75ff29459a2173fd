#include "formats/vcard/vcardwriter.h"

#include "base/utf8.h"
#include "formats/vcard/vcardentries.h"
#include "formats/vcard/vcardnumber.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>

namespace norvik {

namespace {

constexpr std::string_view CardLineEnd = "\r\n";
/// A line of a card has no more bytes, its end not counted.
constexpr std::size_t FoldedWidth = 75;

bool IsDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}

bool IsService(TextView number) {
    constexpr std::size_t LongestShort = 3;
    const TextView digits = number.substr(0, number.find_first_not_of(u"0123456789"));
    return digits.size() <= LongestShort || digits.starts_with(u"11");
}

/// The parameter of a number of that kind; empty where the bracket tells none.
std::string_view TypeOf(TextView bracket) {
    struct Row {
        TextView Bracket;
        std::string_view Type;
    };
    constexpr std::array<Row, 4> Rows = {
        {{u"p", ";TYPE=HOME"}, {u"g", ";TYPE=WORK"}, {u"m", ";TYPE=CELL"}, {u"f", ";TYPE=FAX"}}};
    const auto* const found = std::find_if(
        Rows.begin(), Rows.end(), [bracket](const Row& row) { return row.Bracket == bracket; });
    return found == Rows.end() ? std::string_view() : found->Type;
}

/// What stands behind a person's name for one of several numbers.
struct Bracketed {
    TextView Person;
    TextView Bracket;  ///< "p" of " (p)"; empty where there is none
};

Bracketed SplitName(TextView name) {
    const std::size_t open = name.rfind(u" (");
    if (open == TextView::npos || open == 0 || !name.ends_with(u')')) {
        return {name, {}};
    }
    const TextView bracket = name.substr(open + 2, name.size() - open - 3);
    const bool isLetter = !TypeOf(bracket).empty();
    const bool isNumber = !bracket.empty() && std::all_of(bracket.begin(), bracket.end(), IsDigit);
    return isLetter || isNumber ? Bracketed{name.substr(0, open), bracket} : Bracketed{name, {}};
}

/// The order in which reading gives the brackets: none, the kinds, then the running numbers.
bool ComesBefore(const RegisterEntry& a, const RegisterEntry& b) {
    const auto rank = [](const RegisterEntry& entry) {
        const TextView bracket = SplitName(entry.Name).Bracket;
        const bool isNumber = !bracket.empty() && IsDigit(bracket.front());
        return std::pair(bracket.empty() ? 0 : isNumber ? 2 : 1, isNumber ? bracket.size() : 0);
    };
    const auto left = rank(a);
    const auto right = rank(b);
    return left != right ? left < right : left.first == 2 && a.Name < b.Name;
}

/// A value in which nothing ends it before its end.
std::string Escaped(TextView text) {
    Text escaped;
    for (const char16_t character : text) {
        if (character == u'\n') {
            escaped.append(u"\\n");
            continue;
        }
        if (Contains(u"\\,;", {&character, 1})) {
            escaped.push_back(u'\\');
        }
        escaped.push_back(character);
    }
    return ToUtf8(escaped);
}

/// With the pauses that other telephones know: "," takes a while, at ";" the user goes on.
Text WithPauses(Text number) {
    const auto isPause = [](char16_t character) { return character == u'p' || character == u'w'; };
    const auto isDialled = [](char16_t character) {
        return IsDigit(character) || Contains(u"*#A", {&character, 1});
    };
    for (auto place = number.begin(); place != number.end();) {
        const auto end = std::find_if_not(place, number.end(), isPause);
        if (end == place) {
            ++place;
            continue;
        }
        if (place != number.begin() && isDialled(*std::prev(place)) && end != number.end() &&
            isDialled(*end)) {
            std::transform(place, end, place,
                           [](char16_t pause) { return pause == u'p' ? u',' : u';'; });
        }
        place = end;
    }
    return number;
}

/// The bytes of a line that go together: at most `width`, no character of UTF-8 torn.
std::size_t LengthOfPiece(std::string_view rest, std::size_t width) {
    std::size_t length = std::min(width, rest.size());
    const auto isFurther = [rest](std::size_t place) {
        return (static_cast<unsigned char>(rest[place]) & 0xC0U) == 0x80U;
    };
    while (length < rest.size() && length > 1 && isFurther(length)) {
        --length;
    }
    return length;
}

void AppendLine(std::string& card, std::string_view line) {
    std::size_t width = FoldedWidth;
    for (bool first = true; first || !line.empty(); first = false) {
        card.append(first ? "" : " ");
        const std::size_t length = LengthOfPiece(line, width);
        card.append(line.substr(0, length)).append(CardLineEnd);
        line.remove_prefix(length);
        width = FoldedWidth - 1;  // the blank in front
    }
}

/// The filled lines of an info text, without the blanks that fill them. The export mark in front is
/// the register's own.
Text NoteOf(const RegisterEntry& entry) {
    const bool isMarked = entry.Info.starts_with(ExportMark);
    const TextView info = TextView(entry.Info).substr(isMarked ? ExportMark.size() : 0);
    Text note;
    for (std::size_t start = 0; start < info.size(); start += InfoLineWidth) {
        const TextView line = RightTrim(Slice(info, start, InfoLineWidth));
        note.append(note.empty() || line.empty() ? u"" : u"\n").append(line);
    }
    return note;
}

/// What the cards of a file give when they are loaded.
std::vector<RegisterEntry> ReadBack(const std::string& cards, const Settings& settings) {
    InputStream input(Bytes(cards.begin(), cards.end()));
    VCardReader reader(input);
    VCardEntries entries(settings);
    VCardContact contact;
    while (reader.Next(contact)) {
        entries.Take(contact);
    }
    return std::move(entries.Entries);
}

/// Whether the entries come back from one card as they do from a card each.
bool ShareACard(const std::vector<RegisterEntry>& entries, const Settings& settings) {
    std::string single;
    for (const RegisterEntry& entry : entries) {
        single.append(VCardOf({entry}, settings));
    }
    return ReadBack(VCardOf(entries, settings), settings) == ReadBack(single, settings);
}

/// The entries card by card, in the order of the first ones.
std::vector<std::vector<RegisterEntry>> CardsOf(const RegisterState& state,
                                                const Settings& settings) {
    std::vector<std::vector<RegisterEntry>> persons;
    std::map<Text, std::size_t, std::less<>> places;
    for (int position = 1; position <= state.AnzGes; ++position) {
        const RegisterEntry& entry = EntryAt(state, position);
        const auto [place, isNew] =
            places.try_emplace(Text(SplitName(entry.Name).Person), persons.size());
        if (isNew) {
            persons.emplace_back();
        }
        persons[place->second].push_back(entry);
    }
    std::vector<std::vector<RegisterEntry>> cards;
    for (std::vector<RegisterEntry>& person : persons) {
        std::stable_sort(person.begin(), person.end(), ComesBefore);
        if (person.size() == 1 || ShareACard(person, settings)) {
            cards.push_back(std::move(person));
            continue;
        }
        for (const RegisterEntry& entry : person) {
            cards.push_back({entry});
        }
    }
    return cards;
}

}  // namespace

Text InternationalNumber(TextView number, const Settings& settings) {
    const Text country = OwnCountryCode(settings);
    const Text dialled = Dialled(number, country).Number;
    if (country.empty() || dialled.empty() || !IsDigit(dialled.front()) ||
        dialled.find_first_of(u"*#A") != Text::npos) {
        return Text(number);
    }
    if (dialled.starts_with(u"00")) {
        return u"+" + dialled.substr(2);
    }
    if (dialled.starts_with(u'0')) {
        return u"+" + country + dialled.substr(1);
    }
    const bool hasArea = settings.AreaPrefix.size() > 1;
    return !hasArea || IsService(dialled)
               ? Text(number)
               : u"+" + country + settings.AreaPrefix.substr(1) + dialled;
}

std::string VCardOf(const std::vector<RegisterEntry>& entries, const Settings& settings) {
    const RegisterEntry& first = entries.front();
    const Text person(entries.size() == 1 ? TextView(first.Name) : SplitName(first.Name).Person);
    constexpr TextView Comma = u", ";
    const std::size_t comma = std::min(person.find(Comma), person.size());
    const TextView family = TextView(person).substr(0, comma);
    const TextView given = Slice(person, comma + Comma.size());
    const Text full = person.empty()  ? first.Tel
                      : given.empty() ? person
                                      : Text(given) + u" " + Text(family);
    std::string card;
    AppendLine(card, "BEGIN:VCARD");
    AppendLine(card, "VERSION:3.0");
    AppendLine(card, given.empty() ? "N:" + Escaped(person) + ";;;;"
                                   : "N:" + Escaped(family) + ";" + Escaped(given) + ";;;");
    AppendLine(card, "FN:" + Escaped(full));
    for (const RegisterEntry& entry : entries) {
        if (!entry.Tel.empty()) {
            AppendLine(card, "TEL" + std::string(TypeOf(SplitName(entry.Name).Bracket)) + ":" +
                                 Escaped(WithPauses(InternationalNumber(entry.Tel, settings))));
        }
    }
    if (const Text note = NoteOf(first); !note.empty()) {
        AppendLine(card, "NOTE:" + Escaped(note));
    }
    AppendLine(card, "END:VCARD");
    return card;
}

std::optional<RegisterEntry> ThroughCard(const RegisterEntry& entry, const Settings& settings) {
    const std::vector<RegisterEntry> read = ReadBack(VCardOf({entry}, settings), settings);
    return read.empty() ? std::nullopt : std::optional(read.front());
}

void WriteVCard(const RegisterState& state, const OutputTarget& target, const Settings& settings) {
    OutputFile output(target);
    for (const std::vector<RegisterEntry>& card : CardsOf(state, settings)) {
        const std::string text = VCardOf(card, settings);
        output.Write(Bytes(text.begin(), text.end()));
    }
    output.Close();
}

}  // namespace norvik
