// The groups of the main window's entry panel.
#pragma once

#include "qt/mainwindowwidgets.h"

namespace norvik {

// Each makes its widgets, puts them into `widgets` and gives the box that holds them.

QWidget* MakeNameGroup(MainWindowWidgets& widgets, QWidget* parent);
QWidget* MakeInfoGroup(MainWindowWidgets& widgets, QWidget* parent);
QWidget* MakeToneGroup(MainWindowWidgets& widgets, QWidget* parent);
QWidget* MakeFilterGroup(MainWindowWidgets& widgets, QWidget* parent);
QWidget* MakeChargeGroup(MainWindowWidgets& widgets, QWidget* parent);

}  // namespace norvik
