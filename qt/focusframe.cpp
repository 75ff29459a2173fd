#include "qt/focusframe.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QFocusFrame>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
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

/// Styles show the focus of a choice only after the Tab key was pressed; a window that was just
/// opened is to show it, too.
void ShowFirstFocus(QWidget* old, QWidget* now) {
    const bool isChoice =
        qobject_cast<QRadioButton*>(now) != nullptr || qobject_cast<QCheckBox*>(now) != nullptr;
    if (isChoice && (old == nullptr || old->window() != now->window())) {
        now->window()->setAttribute(Qt::WA_KeyboardFocusChange);
        now->update();
    }
}

}  // namespace

void FrameFocus(QApplication& application) {
    QObject::connect(&application, &QApplication::focusChanged, &application,
                     [frame = QPointer<FocusFrame>()](QWidget* old, QWidget* now) mutable {
                         ShowFirstFocus(old, now);
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
