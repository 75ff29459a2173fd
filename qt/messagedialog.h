// Message boxes on the screen.
#pragma once

#include "base/desktop.h"

#include <QString>

class QCheckBox;
class QWidget;

namespace norvik {

/// Shows a message box over `parent` and gives the button that the user chose. A text too long for
/// the screen stands in a part that scrolls.
Button ShowMessageBox(const MessageBox& box, QWidget* parent);

/// A text as a box shows it: with the toolkit's line ends, and of one of more than `longest`
/// characters the beginning and the end, where a question stands.
QString ShownText(TextView text, std::size_t longest);

/// A title as a box shows it: toolkits put the program's file name into an empty one.
QString ShownTitle(TextView title);

/// The check box of a box that offers to answer all further ones alike.
QCheckBox* MakeForAllBox(QWidget* parent);

}  // namespace norvik
