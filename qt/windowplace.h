// Where a window stands that is used beside the main window.
#pragma once

class QWidget;

namespace norvik {

/// Moves a window that is not shown yet to the right of `main` where there is room, else to its
/// left, else as far right as the screen reaches.
void PlaceBeside(QWidget& window, const QWidget& main);

}  // namespace norvik
