// The characters of a vCard's values.
#pragma once

#include "base/simplify.h"

#include <string_view>

namespace norvik {

enum class VCardCharset {
    Undeclared,  ///< UTF-8 where the bytes are, else Windows-1252
    Utf8,
    Windows1252,
    Latin9,  ///< ISO-8859-15
};

/// The character set of that name; Undeclared for an unknown one.
VCardCharset VCardCharsetOf(std::string_view name);

/// Gives `text` the characters that the bytes stand for, spelled with those of Windows-1252. Line
/// ends become U+000A, other control characters and the hard blank a blank; blanks at the ends of
/// lines go, and so do several in a row.
void AssignVCardText(SimplifiedText& text, std::string_view bytes, VCardCharset charset);

/// The same, if the bytes need no more than a look: what most values are made of, in one line and
/// without "\". Else gives false, with anything in `text`.
bool AssignUsualVCardText(SimplifiedText& text, std::string_view bytes, VCardCharset charset);

/// The same in one line.
SimplifiedText VCardLine(std::string_view bytes, VCardCharset charset);
void AssignVCardLine(SimplifiedText& text, std::string_view bytes, VCardCharset charset);

/// How many more of the text's characters became "?" than are letters. Above 0 it is of another
/// script and tells nobody anything.
int Strangeness(const SimplifiedText& text);

/// A telephone number: digits, blanks and dashes of any script become those of ASCII.
SimplifiedText VCardNumberText(std::string_view bytes, VCardCharset charset);

}  // namespace norvik
