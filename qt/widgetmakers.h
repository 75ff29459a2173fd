// Makes widgets with their names, for the windows' layouts.
#pragma once

#include <QString>

class QButtonGroup;
class QCheckBox;
class QLabel;
class QPushButton;
class QWidget;

namespace norvik {

class Display;

/// "Anzeigefeld(3)": the name of one of several controls of a kind.
QString IndexedName(const char* name, int index);

/// Sets the names by which programs and screen readers find a widget.
void Name(QWidget* widget, const char* objectName, const QString& accessibleName);

/// A caption; its mnemonic moves the focus to `buddy`.
QLabel* MakeLabel(const QString& caption, QWidget* buddy, QWidget* parent);

/// A label that shows a value of the register; `meaning` says what value it is.
Display* MakeDisplay(const char* objectName, const QString& meaning, QWidget* parent);

/// Lets the Tab key stop at the chosen one of the buttons, whichever had the focus last.
void TabToChosen(const QButtonGroup& group);

QPushButton* MakeButton(const char* objectName, const QString& caption,
                        const QString& accessibleName, QWidget* parent);

QCheckBox* MakeCheckBox(const char* objectName, const QString& caption,
                        const QString& accessibleName, QWidget* parent);

}  // namespace norvik
