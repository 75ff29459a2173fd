// A frame around what has the keyboard's focus where styles hardly show it: lists, scroll bars, a
// dialog's default button, the first choice of a window that was just opened.
#pragma once

class QApplication;

namespace norvik {

/// Frames them in all windows of the application from now on.
void FrameFocus(QApplication& application);

}  // namespace norvik
