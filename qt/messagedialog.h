// Message boxes on the screen.
#pragma once

#include "base/desktop.h"

class QWidget;

namespace norvik {

/// Shows a message box over `parent` and gives the button that the user chose. A text too long for
/// the screen stands in a part that scrolls.
Button ShowMessageBox(const MessageBox& box, QWidget* parent);

}  // namespace norvik
