// The small drawing of a telephone in the main window.
#pragma once

#include <QWidget>

namespace norvik {

class PhonePicture : public QWidget {
    Q_OBJECT
  public:
    explicit PhonePicture(QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace norvik
