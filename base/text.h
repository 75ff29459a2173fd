// Texts of the system: UTF-16, holding characters of the Windows-1252 repertoire only.
// This file knows nothing of bytes; see windows1252.h for the way from and to them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace norvik {

using Text = std::u16string;
using TextView = std::u16string_view;

/// Ends every line of a text file or of a multi-line message.
inline constexpr TextView LineEnd = u"\r\n";
inline constexpr char16_t Tab = u'\t';

/// The lower-case form of a character of the Windows-1252 repertoire (A-Z, À-Þ without ×, Š, Œ, Ž,
/// Ÿ); any other character comes back as it is.
char16_t LowerCase(char16_t c);
/// The upper-case form; "ß" has none and comes back as it is.
char16_t UpperCase(char16_t c);
Text LowerCase(TextView text);
/// Lowers a text in its place.
void MakeLowerCase(Text& text);
Text UpperCase(TextView text);

/// Whether a character is a control character, which would act on a line instead of being shown.
bool IsControl(char16_t c);

/// `text` without the blanks (U+0020 alone) at its ends.
TextView TrimBlanks(TextView text);
/// `text` without the blanks at its end.
TextView RightTrim(TextView text);

/// At most `length` characters of `text` from the 0-based `start`; fewer, or none, where the text
/// is shorter. Never raises.
TextView Slice(TextView text, std::size_t start, std::size_t length = TextView::npos);

/// The first `width` characters of `text`, filled up with blanks to exactly `width`.
Text PadOrCut(TextView text, std::size_t width);

/// Whether `part` occurs in `text`, by character codes. An empty part occurs everywhere.
bool Contains(TextView text, TextView part);

/// `value` in plain decimal, with a minus sign when negative.
Text Decimal(long long value);

/// An ASCII literal as a text.
Text FromAscii(std::string_view ascii);

}  // namespace norvik
