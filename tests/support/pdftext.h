// What other programs read in a PDF file.
#pragma once

#include "base/files.h"

#include <string>

namespace norvik::test {

/// What a command line prints; fails the test where its status is another than 0.
std::string OutputOf(const std::string& command);

/// The texts of a PDF file, in the order in which they are drawn, each in a line; a form feed ends
/// a page.
std::string TextOfPdf(const FilePath& file);

}  // namespace norvik::test
