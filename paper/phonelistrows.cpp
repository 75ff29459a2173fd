#include "paper/phonelist.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace norvik {

namespace {

/// The text without what does not show: each run of blanks and control characters is one blank, and
/// none stands at an end.
Text Tidied(TextView text) {
    constexpr char16_t FixedBlank = 0xA0;
    Text tidied;
    for (const char16_t character : text) {
        if (character != u' ' && character != FixedBlank && !IsControl(character)) {
            tidied.push_back(character);
        } else if (!tidied.empty() && tidied.back() != u' ') {
            tidied.push_back(u' ');
        }
    }
    return Text(RightTrim(tidied));
}

/// The letter without its mark: "A" of "ä".
char16_t BaseLetter(char16_t character) {
    struct Row {
        char16_t First;
        char16_t Last;
        char16_t Base;
    };
    constexpr Row Rows[] = {
        {u'À', u'Æ', u'A'}, {u'Ç', u'Ç', u'C'}, {u'È', u'Ë', u'E'}, {u'Ì', u'Ï', u'I'},
        {u'Ð', u'Ð', u'D'}, {u'Ñ', u'Ñ', u'N'}, {u'Ò', u'Ö', u'O'}, {u'Ø', u'Ø', u'O'},
        {u'Ù', u'Ü', u'U'}, {u'Ý', u'Ý', u'Y'}, {u'Þ', u'Þ', u'T'}, {u'ß', u'ß', u'S'},
        {u'Œ', u'Œ', u'O'}, {u'Š', u'Š', u'S'}, {u'Ÿ', u'Ÿ', u'Y'}, {u'Ž', u'Ž', u'Z'}};
    const char16_t upper = UpperCase(character);
    for (const Row& row : Rows) {
        if (upper >= row.First && upper <= row.Last) {
            return row.Base;
        }
    }
    return upper;
}

char16_t InitialOf(TextView name) {
    const char16_t letter = name.empty() ? u'#' : BaseLetter(name.front());
    return letter >= u'A' && letter <= u'Z' ? letter : u'#';
}

std::vector<Text> InfoLinesOf(const RegisterEntry& entry) {
    // The mark in front is the register's own, and shifts the lines behind it.
    const bool isMarked = entry.Info.starts_with(ExportMark);
    const TextView info = TextView(entry.Info).substr(isMarked ? ExportMark.size() : 0);
    std::vector<Text> lines;
    for (std::size_t start = 0; start < info.size(); start += InfoLineWidth) {
        Text line = Tidied(Slice(info, start, InfoLineWidth));
        if (!line.empty()) {
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

bool IsWanted(const RegisterEntry& entry, ListedEntries which) {
    switch (which) {
    case ListedEntries::Marked:
        return IsMarked(entry);
    case ListedEntries::Filtered:
        return entry.Listed && !entry.Name.empty();
    case ListedEntries::All:
        break;
    }
    return true;
}

PhoneListRow RowOfEntry(const RegisterEntry& entry) {
    const Text name = Tidied(entry.Name);
    return {.Initial = InitialOf(name),
            .Name = name,
            .Tel = Tidied(entry.Tel),
            .Info = InfoLinesOf(entry)};
}

/// The row of an entry that the list shows; an entry that shows nothing has none.
std::optional<PhoneListRow> ShownRow(const RegisterEntry& entry, ListedEntries which) {
    if (!IsWanted(entry, which)) {
        return std::nullopt;
    }
    PhoneListRow row = RowOfEntry(entry);
    const bool isEmpty = row.Name.empty() && row.Tel.empty() && row.Info.empty();
    return isEmpty ? std::nullopt : std::optional(std::move(row));
}

}  // namespace

std::vector<PhoneListRow> PhoneListRows(const RegisterState& state, ListedEntries which) {
    std::vector<PhoneListRow> rows;
    bool isSorted = true;
    Text before;
    for (int position = 1; position <= state.AnzGes; ++position) {
        const RegisterEntry& entry = EntryAt(state, position);
        if (std::optional<PhoneListRow> row = ShownRow(entry, which)) {
            Text key = LowerCase(entry.Name);
            isSorted = isSorted && before <= key;
            before = std::move(key);
            rows.push_back(*std::move(row));
        }
    }
    if (isSorted) {  // "#" is less than any letter
        std::stable_sort(
            rows.begin(), rows.end(),
            [](const PhoneListRow& a, const PhoneListRow& b) { return a.Initial < b.Initial; });
    }
    return rows;
}

int CountPhoneListRows(const RegisterState& state, ListedEntries which) {
    int count = 0;
    for (int position = 1; position <= state.AnzGes; ++position) {
        count += ShownRow(EntryAt(state, position), which) ? 1 : 0;
    }
    return count;
}

}  // namespace norvik
