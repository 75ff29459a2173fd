// UTF-8, the way in and out: names of files, arguments and what a console shows.
#pragma once

#include "base/text.h"

#include <optional>
#include <string>
#include <string_view>

namespace norvik {

/// What stands in place of a byte that fits nowhere.
inline constexpr char32_t ReplacementCharacter = 0xFFFD;

/// Takes the first code point off a UTF-8 text that is not empty. Nothing, and the text stays as it
/// is, when it does not begin with a whole sequence; overlong forms, halves of surrogate pairs and
/// points beyond the last one are none.
std::optional<char32_t> TakeCodePoint(std::u8string_view& utf8);

/// The code points of a UTF-8 text; every byte that does not fit gives ReplacementCharacter.
std::u32string CodePoints(std::u8string_view utf8);

/// Appends a code point; half of a surrogate pair takes three bytes like its neighbours.
void AppendUtf8(std::string& utf8, char32_t point);

std::string ToUtf8(TextView text);

/// The text of a UTF-8 string; nothing when it is no UTF-8 or holds a character outside
/// Windows-1252.
std::optional<Text> FromUtf8(std::string_view utf8);

}  // namespace norvik
