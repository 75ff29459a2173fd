// The pictures of the program: its own, and those of the desktop's theme in front of menu items.
#pragma once

#include <QIcon>

#include <string_view>

namespace norvik {

/// The theme's picture of the program, where it is installed, else the one that it brings along.
QIcon ProgramIcon();

/// What the desktop's theme shows for such a menu item; none where it has nothing.
QIcon MenuIcon(std::string_view item);

}  // namespace norvik
