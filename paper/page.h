// Printed pages as plain records: what stands where, in points from the sheet's upper left corner.
#pragma once

#include "base/text.h"

#include <vector>

namespace norvik {

/// A sheet's size in points, 72 to an inch.
struct PaperSize {
    double Width = 0;
    double Height = 0;
    bool operator==(const PaperSize&) const = default;
};

/// A text on one line.
struct PaperText {
    double X = 0;  ///< its left end
    double Y = 0;  ///< the line that its letters stand on
    double Size = 0;
    bool Bold = false;
    double Grey = 0;  ///< 0 is black, 1 is white
    Text Content = {};
    bool operator==(const PaperText&) const = default;
};

struct PaperLine {
    double X1 = 0;
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;
    double Thickness = 0;
    double Grey = 0;
    bool operator==(const PaperLine&) const = default;
};

struct PaperPage {
    std::vector<PaperText> Texts;
    std::vector<PaperLine> Lines;
    bool operator==(const PaperPage&) const = default;
};

struct PaperDocument {
    Text Title;
    PaperSize Size;
    std::vector<PaperPage> Pages;
    bool operator==(const PaperDocument&) const = default;
};

}  // namespace norvik
