// What keeps every window usable on a screen that is too small for it: the part that scrolls then,
// and the size that a window gets.
#pragma once

#include <QScrollArea>

class QDialog;
class QLayout;

namespace norvik {

/// Shows a whole panel, or where there is no room a part that scrolls.
class PanelArea : public QScrollArea {
  public:
    PanelArea(QWidget* panel, QWidget* parent);

    /// As much of the panel as a screen has room for; `beside` is what the window needs beside it.
    void KeepWhole(QSize beside);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  private:
    [[nodiscard]] QSize OnScreen(QSize whole) const;

    QSize beside_;
    bool keptWhole_ = false;
};

/// Lays out a dialog: `panel` scrolls where the screen is too small, the buttons below it stay.
void LayOut(QDialog& dialog, QWidget* panel, QLayout* buttons);

/// How large a window can be on its screen, with a frame around it.
QSize RoomFor(const QWidget& window);

/// Gives a window that is not shown yet the size that it wants, if the screen has room for it.
void Resize(QWidget& window, QSize wanted);

}  // namespace norvik
