// Pages as a PDF file, its fonts embedded. The same pages give the same bytes.
#pragma once

#include "base/outputfile.h"
#include "paper/page.h"

#include <string_view>

namespace norvik {

/// Names the file on the converter's command line, as the words of the register's formats do.
inline constexpr std::string_view PdfWord = "pdf";
inline constexpr std::string_view PdfEnding = ".pdf";
inline constexpr TextView PdfFilter = u"PDF-Datei|*.pdf|Alle Dateien|*.*";

/// Raises error 7 where memory runs out. A character that is none of Windows-1252 becomes "?".
Bytes PdfOf(const PaperDocument& document);

/// Writes the file; raises that, and what writing raises.
void WritePdf(const PaperDocument& document, const OutputTarget& target);

}  // namespace norvik
