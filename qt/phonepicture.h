// The small drawing of a telephone in the main window, a button.
#pragma once

#include <QPushButton>

namespace norvik {

class PhonePicture : public QPushButton {
    Q_OBJECT
  public:
    explicit PhonePicture(QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace norvik
