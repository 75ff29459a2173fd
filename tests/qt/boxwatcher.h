// Answers whatever opens above a window, with a choice of its own.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QPointer>
#include <QTimer>

namespace norvik::test {

class BoxWatcher : public QObject {
  public:
    BoxWatcher() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* object, QEvent* event) override {
        auto* dialog = qobject_cast<QDialog*>(object);
        if (dialog != nullptr && event->type() == QEvent::Show && dialog->isModal()) {
            QTimer::singleShot(0, this, [this, shown = QPointer<QDialog>(dialog)] {
                if (shown != nullptr && shown->isVisible()) {
                    Answer(shown);
                }
            });
        }
        return QObject::eventFilter(object, event);
    }

  protected:
    virtual void Answer(const QPointer<QDialog>& dialog) = 0;
};

}  // namespace norvik::test
