// The two fonts of printed pages, which the program brings with it, and how wide texts are in them.
#pragma once

#include "base/windows1252.h"

#include <vector>

namespace norvik {

/// The TrueType font, with the characters of Windows-1252 alone.
ByteView ListFont(bool bold);

/// How wide a text is, in the unit of the font's size.
double TextWidth(TextView text, bool bold, double size);

/// The text in lines no wider than `width`, broken at blanks, which go, else behind any character;
/// a line holds one character at least. There is at least one line.
std::vector<Text> WrappedText(TextView text, bool bold, double size, double width);

/// The text, or as much of its beginning as leaves room for "…" behind it.
Text CutText(TextView text, bool bold, double size, double width);

}  // namespace norvik
