// The rules for what may be typed or pasted into the entry's text fields.
#pragma once

#include "base/text.h"

#include <cstddef>
#include <limits>

namespace norvik {

/// How long a field's text may become.
struct FieldRule {
    std::size_t Width = std::numeric_limits<std::size_t>::max();
    /// The text always has exactly `Width` characters.
    bool Padded = false;
    /// A tab that is put in stays one; it is a blank elsewhere.
    bool TakesTab = false;
};

/// Name and number: up to 21 characters; an info line: always 21; an input box: any length.
FieldRule RuleOfField(int field);

struct FieldEdit {
    Text FieldText;
    std::size_t Cursor = 0;
    bool Beep = false;
};

/// What a field holds after the user changed it from `before` to `after`, the cursor standing
/// behind `cursor` characters of `after`, which may hold any UTF-16. Line ends and control
/// characters that were put in become blanks. A character outside Windows-1252 refuses the whole
/// change: the field keeps `before`, with a beep. What does not fit is cut off at the end, with a
/// beep unless only padding was cut.
FieldEdit ChangeField(TextView before, std::u16string_view after, std::size_t cursor,
                      const FieldRule& rule);

/// Where the cursor goes when a field is entered: behind the last character that is no blank.
std::size_t CursorAtEntering(TextView fieldText);

}  // namespace norvik
