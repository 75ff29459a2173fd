#include "qt/focusframe.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusFrame>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>

namespace norvik {

namespace {

/// Follows the widget wherever it goes, as the toolkit's own frame, but looks alike in all styles.
class FocusFrame : public QFocusFrame {
  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        constexpr int Line = 2;
        QPainter painter(this);
        painter.setPen(QPen(palette().color(QPalette::Highlight), Line, Qt::SolidLine,
                            Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(rect().adjusted(Line / 2, Line / 2, -Line / 2, -Line / 2));
    }
};

bool NeedsFrame(const QWidget* widget) {
    if (const auto* button = qobject_cast<const QPushButton*>(widget)) {
        return button->isDefault() && button->window()->testAttribute(Qt::WA_KeyboardFocusChange);
    }
    return (qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
            qobject_cast<const QScrollBar*>(widget) != nullptr) &&
           widget->window()->windowType() != Qt::Popup;
}

}  // namespace

void FrameFocus(QApplication& application) {
    QObject::connect(&application, &QApplication::focusChanged, &application,
                     [frame = QPointer<FocusFrame>()](QWidget* /*old*/, QWidget* now) mutable {
                         if (NeedsFrame(now)) {
                             if (frame == nullptr) {  // it goes with the window that it is in
                                 frame = new FocusFrame;
                             }
                             frame->setWidget(now);
                         } else if (frame != nullptr) {
                             frame->setWidget(nullptr);
                         }
                     });
}

}  // namespace norvik
