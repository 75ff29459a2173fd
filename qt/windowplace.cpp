#include "qt/windowplace.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace norvik {

void PlaceBeside(QWidget& window, const QWidget& main) {
    const QRect screen = main.screen()->availableGeometry();
    const QRect frame = main.frameGeometry();
    QRect place(QPoint(frame.right() + 1, frame.top()), window.size());
    if (place.right() > screen.right() && frame.left() - place.width() >= screen.left()) {
        place.moveRight(frame.left() - 1);
    } else if (place.right() > screen.right()) {
        place.moveRight(screen.right());
        place.moveTop(frame.top() + window.fontMetrics().height() * 3);
    }
    place.moveBottom(std::min(place.bottom(), screen.bottom()));
    place.moveTopLeft({std::max(place.left(), screen.left()), std::max(place.top(), screen.top())});
    window.move(place.topLeft());
}

}  // namespace norvik
