// Where a window stands that is used beside the main window.
#pragma once

class QWidget;

namespace norvik {

/// Moves a window that is not shown yet to the right of `main`, else to its left, below or above
/// it; where the screen has no such room, to where it covers neither the fields nor the list, and
/// makes it up to a half smaller for that. Where that cannot be, it covers as little of them as it
/// can.
void PlaceBeside(QWidget& window, const QWidget& main);

}  // namespace norvik
