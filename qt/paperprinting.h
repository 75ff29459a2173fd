// Pages of the phone list on the toolkit's printers and in its preview.
#pragma once

#include "paper/page.h"

#include <functional>
#include <optional>

class QPainter;
class QPrinter;

namespace norvik {

/// Draws a page so that its points are those of the paper in the painter's device.
void DrawPaperPage(QPainter& painter, const PaperPage& page);

/// Prints the pages that `layOut` gives for the printer's paper, those that the user chose in its
/// dialog alone. Gives how many, nothing when the printer takes none.
std::optional<int> PrintPaper(QPrinter& printer,
                              const std::function<PaperDocument(const PaperSize&)>& layOut);

}  // namespace norvik
