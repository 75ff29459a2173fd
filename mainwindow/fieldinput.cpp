#include "mainwindow/fieldinput.h"

#include "base/windows1252.h"
#include "mainwindow/fields.h"

#include <algorithm>
#include <optional>

namespace norvik {

namespace {

bool IsLineSeparator(char16_t c) {
    return c == u'\u2028' || c == u'\u2029';
}

/// Text put into a field by the user, made fit for it: a CR LF or any other control character is
/// one blank, a tab only where it is not wanted. Nothing for a text with a character outside the
/// repertoire.
std::optional<Text> Cleaned(std::u16string_view inserted, bool takesTab) {
    Text cleaned;
    for (std::size_t i = 0; i < inserted.size(); ++i) {
        const char16_t c = inserted[i];
        if (!ByteOf(c) && !IsLineSeparator(c)) {
            return std::nullopt;
        }
        const bool secondOfLineEnd = c == u'\n' && i > 0 && inserted[i - 1] == u'\r';
        if (!secondOfLineEnd) {
            const bool blank = IsLineSeparator(c) || (IsControl(c) && !(takesTab && c == Tab));
            cleaned.push_back(blank ? u' ' : c);
        }
    }
    return cleaned;
}

std::size_t CommonStart(std::u16string_view a, std::u16string_view b) {
    return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first -
                                    a.begin());
}

std::size_t CommonEnd(std::u16string_view a, std::u16string_view b) {
    return static_cast<std::size_t>(
        std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend()).first - a.rbegin());
}

}  // namespace

FieldRule RuleOfField(int field) {
    return {.Width = FieldWidth, .Padded = field >= FirstInfoField};
}

FieldEdit ChangeField(TextView before, std::u16string_view after, std::size_t cursor,
                      const FieldRule& rule) {
    // Only what was put in is cleaned: a loaded text stays as it is.
    const std::size_t start = std::min(CommonStart(before, after), cursor);
    const std::size_t end =
        CommonEnd(before.substr(std::min(start, before.size())), after.substr(start));
    const std::u16string_view inserted = after.substr(start, after.size() - start - end);
    const std::optional<Text> cleaned = Cleaned(inserted, rule.TakesTab);
    if (!cleaned) {
        return {.FieldText = Text(before), .Cursor = std::min(start, before.size()), .Beep = true};
    }
    FieldEdit edit;
    edit.FieldText.append(after.substr(0, start))
        .append(*cleaned)
        .append(after.substr(after.size() - end));
    edit.Cursor = cursor - std::min(cursor, inserted.size() - cleaned->size());

    const TextView surplus = Slice(edit.FieldText, rule.Width);
    edit.Beep = !(rule.Padded ? RightTrim(surplus) : surplus).empty();
    if (rule.Padded) {
        edit.FieldText = PadOrCut(edit.FieldText, rule.Width);
    } else if (!surplus.empty()) {
        edit.FieldText.resize(rule.Width);
    }
    edit.Cursor = std::min(edit.Cursor, edit.FieldText.size());
    return edit;
}

std::size_t CursorAtEntering(TextView fieldText) {
    return RightTrim(fieldText).size();
}

}  // namespace norvik
