// Any text made one of Windows-1252: composed, then spelled with the letters that there are.
#pragma once

#include "base/text.h"

#include <string_view>

namespace norvik {

struct SimplifiedText {
    Text Value;
    /// Something was spelled otherwise or became "?"; composing alone, and leaving out what shows
    /// nothing itself, is no replacement.
    bool Replaced = false;
};

/// A letter and the accents behind it become one letter; what Windows-1252 lacks is spelled with
/// the letters that it has ("ł" as "l", "ẞ" as "SS"), else "?".
/// Nothing becomes a semicolon, double quote, tab or line end, which divide the lines of files.
SimplifiedText Simplify(std::u32string_view points);

/// The same of UTF-8; every byte that fits nowhere becomes "?".
SimplifiedText SimplifyUtf8(std::u8string_view utf8);

}  // namespace norvik
