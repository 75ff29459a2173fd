#include "qt/highcontrast.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>

#include <utility>

namespace norvik {

namespace {

/// The toolkit's plainest style: it draws with nothing but the palette, frames and boxes too.
QString PaletteStyle() {
    return QStringLiteral("windows");
}

class Follower : public QObject {
  public:
    Follower(QApplication& application, std::function<bool()> isWanted)
        : QObject(&application), isWanted_(std::move(isWanted)) {
        application.installEventFilter(this);
        Follow();
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == qApp && (event->type() == QEvent::ApplicationPaletteChange ||
                               event->type() == QEvent::ThemeChange)) {
            // Not here: setting a style changes the palette, too.
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        }
        return false;
    }

  protected:
    void customEvent(QEvent* /*event*/) override { Follow(); }

  private:
    void Follow() {
        const bool wanted = isWanted_();
        if (wanted == isOn_) {
            return;
        }
        isOn_ = wanted;
        if (wanted) {
            usual_ = QApplication::style()->name();
        }
        QApplication::setStyle(wanted ? PaletteStyle() : usual_);
    }

    std::function<bool()> isWanted_;
    bool isOn_ = false;
    QString usual_;
};

}  // namespace

void FollowHighContrast(QApplication& application, std::function<bool()> isWanted) {
    new Follower(application, std::move(isWanted));  // it goes with the application
}

}  // namespace norvik
