// A horizontal scroll bar that chooses one of the records 1, 2, 3, …
#pragma once

#include <QScrollBar>

namespace norvik {

class RecordScrollBar : public QScrollBar {
  public:
    explicit RecordScrollBar(QWidget* parent);

  protected:
    /// Left and Right move the scroll box the way they point.
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace norvik
