#include "base/simplify.h"

#include "base/utf8.h"
#include "base/windows1252.h"

#include <algorithm>
#include <array>
#include <limits>

namespace norvik {

namespace {

/// The length of scripts/simplify_table.py, and the end of the literal.
constexpr std::size_t SpellingRoom = 6 + 1;

struct Composition {
    char16_t Letter;
    char32_t Mark;
    char16_t Composed;
};

struct Spelling {
    char32_t Point;
    char16_t Characters[SpellingRoom];
};

struct Span {
    char32_t First;
    char32_t Last;
};

#include "base/simplifytable.inc"

template <std::size_t size>
const Spelling* Find(const std::array<Spelling, size>& spellings, char32_t point) {
    const auto* found = std::lower_bound(
        spellings.begin(), spellings.end(), point,
        [](const Spelling& spelling, char32_t sought) { return spelling.Point < sought; });
    return found == spellings.end() || found->Point != point ? nullptr : found;
}

template <std::size_t size>
bool IsIn(const std::array<Span, size>& spans, char32_t point) {
    const auto* found =
        std::lower_bound(spans.begin(), spans.end(), point,
                         [](const Span& span, char32_t sought) { return span.Last < sought; });
    return found != spans.end() && found->First <= point;
}

/// Puts a mark onto the text's last character; false when the mark is lost.
bool Compose(Text& text, char32_t mark) {
    const auto* found = std::find_if(
        Compositions.begin(), Compositions.end(), [&text, mark](const Composition& composition) {
            return composition.Letter == text.back() && composition.Mark == mark;
        });
    if (found == Compositions.end()) {
        return false;
    }
    text.back() = found->Composed;
    return true;
}

void AppendPoint(SimplifiedText& text, char32_t point) {
    constexpr char32_t LastUtf16 = std::numeric_limits<char16_t>::max();
    if (point <= LastUtf16 && ByteOf(static_cast<char16_t>(point))) {
        text.Value.push_back(static_cast<char16_t>(point));
    } else if (IsIn(Invisible, point)) {
        return;
    } else if (IsIn(Marks, point) && !text.Value.empty() && !IsControl(text.Value.back())) {
        text.Replaced |= !Compose(text.Value, point);
    } else if (const Spelling* same = Find(SameCharacters, point)) {
        text.Value.append(same->Characters);
    } else {
        const Spelling* spelling = Find(Spellings, point);
        text.Value.append(spelling == nullptr ? u"?" : spelling->Characters);
        text.Replaced = true;
    }
}

}  // namespace

SimplifiedText Simplify(std::u32string_view points) {
    SimplifiedText text;
    text.Value.reserve(points.size());
    for (const char32_t point : points) {
        AppendPoint(text, point);
    }
    return text;
}

SimplifiedText SimplifyUtf8(std::u8string_view utf8) {
    SimplifiedText text;
    text.Value.reserve(utf8.size());
    while (!utf8.empty()) {
        const std::optional<char32_t> point = TakeCodePoint(utf8);
        if (!point) {
            utf8.remove_prefix(1);
        }
        AppendPoint(text, point.value_or(ReplacementCharacter));
    }
    return text;
}

}  // namespace norvik
