#include "paper/fonts.h"

#include "paper/fontfiles.h"

#include <array>
#include <cstddef>

namespace norvik {

namespace {

using Widths = std::array<std::int16_t, 256>;

constexpr std::array<Widths, 2> WidthsOfFonts = {{
#include "paper/fonts/widths.inc"
}};

constexpr double UnitsOfWidths = 1000;

/// What stands for a character that no font of ours has.
constexpr Byte Unknown = '?';

double WidthOf(char16_t character, bool bold, double size) {
    const Byte byte = ByteOf(character).value_or(Unknown);
    return WidthsOfFonts.at(bold ? 1 : 0).at(byte) * size / UnitsOfWidths;
}

/// How many of the text's first characters fit; one where none does.
std::size_t LengthThatFits(TextView text, bool bold, double size, double width) {
    double taken = 0;
    for (std::size_t length = 0; length < text.size(); ++length) {
        taken += WidthOf(text[length], bold, size);
        if (taken > width && length > 0) {
            return length;
        }
    }
    return text.size();
}

}  // namespace

ByteView ListFont(bool bold) {
    return bold ? BoldFontFile() : RegularFontFile();
}

double TextWidth(TextView text, bool bold, double size) {
    double width = 0;
    for (const char16_t character : text) {
        width += WidthOf(character, bold, size);
    }
    return width;
}

std::vector<Text> WrappedText(TextView text, bool bold, double size, double width) {
    std::vector<Text> lines;
    TextView rest = TrimBlanks(text);
    while (!rest.empty()) {
        std::size_t length = LengthThatFits(rest, bold, size, width);
        if (length < rest.size()) {
            // A blank may stand behind the last character that fits.
            const std::size_t blank = rest.rfind(u' ', length);
            length = blank == TextView::npos ? length : blank;
        }
        lines.emplace_back(RightTrim(rest.substr(0, length)));
        rest = TrimBlanks(rest.substr(length));
    }
    if (lines.empty()) {
        lines.emplace_back();
    }
    return lines;
}

Text CutText(TextView text, bool bold, double size, double width) {
    constexpr TextView Ellipsis = u"…";
    if (TextWidth(text, bold, size) <= width) {
        return Text(text);
    }
    const double room = width - TextWidth(Ellipsis, bold, size);
    return Text(RightTrim(text.substr(0, LengthThatFits(text, bold, size, room)))).append(Ellipsis);
}

}  // namespace norvik
