// The small drawing of a telephone in the main window.
#pragma once

#include <QWidget>

namespace norvik {

class PhonePicture : public QWidget {
    Q_OBJECT
  public:
    explicit PhonePicture(QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

  signals:
    /// By the mouse, or by Space or Return.
    void clicked();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace norvik
