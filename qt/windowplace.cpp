#include "qt/windowplace.h"

#include "qt/entryfield.h"
#include "qt/entrylist.h"
#include "qt/panelarea.h"

#include <QScreen>

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

namespace norvik {

namespace {

QRect OnScreen(const QWidget& widget) {
    return {widget.mapToGlobal(QPoint()), widget.size()};
}

/// What the user works with in the main window: the fields of the entry, and the list.
std::vector<QRect> Workplaces(const QWidget& main) {
    QRect fields;
    for (const auto* field : main.findChildren<EntryField*>()) {
        fields |= OnScreen(*field);
    }
    std::vector<QRect> places = {fields & OnScreen(main)};
    for (const auto* list : main.findChildren<EntryListView*>()) {
        places.push_back(OnScreen(*list) & OnScreen(main));
    }
    return places;
}

int Area(const QRect& rect) {
    return rect.isEmpty() ? 0 : rect.width() * rect.height();
}

/// How much of the workplaces a window covers, and how much of the main window.
std::pair<int, int> Covered(const QRect& place, const std::vector<QRect>& workplaces,
                            const QRect& main) {
    int covered = 0;
    for (const QRect& workplace : workplaces) {
        covered += Area(place & workplace);
    }
    return {covered, Area(place & main)};
}

/// Where a window of a size covers least; beside the main window comes first.
QRect BestPlace(const QSize& size, const QWidget& main, const QRect& screen) {
    const std::vector<QRect> workplaces = Workplaces(main);
    const QRect frame = main.frameGeometry();
    std::vector<int> lefts = {frame.right() + 1, frame.left() - size.width()};
    std::vector<int> tops = {frame.top(), frame.bottom() + 1, frame.top() - size.height()};
    for (const QRect& workplace : workplaces) {
        lefts.insert(lefts.end(), {workplace.right() + 1, workplace.left() - size.width()});
        tops.insert(tops.end(), {workplace.bottom() + 1, workplace.top() - size.height()});
    }
    const QPoint last(std::max(screen.left(), screen.right() + 1 - size.width()),
                      std::max(screen.top(), screen.bottom() + 1 - size.height()));
    lefts.insert(lefts.end(), {last.x(), screen.left()});
    tops.insert(tops.end(), {last.y(), screen.top()});
    QRect best;
    std::pair<int, int> least;
    for (const int left : lefts) {
        for (const int top : tops) {
            const QRect place(QPoint(std::clamp(left, screen.left(), last.x()),
                                     std::clamp(top, screen.top(), last.y())),
                              size);
            const auto covered = Covered(place, workplaces, frame);
            if (best.isNull() || covered < least) {
                best = place;
                least = covered;
            }
        }
    }
    return best;
}

}  // namespace

void PlaceBeside(QWidget& window, const QWidget& main) {
    const QRect screen = main.screen()->availableGeometry();
    const std::vector<QRect> workplaces = Workplaces(main);
    const QSize wanted = window.size();
    const QSize least = window.minimumSizeHint().expandedTo(wanted / 2).boundedTo(wanted);
    const QSize frame = screen.size() - RoomFor(window);
    const std::initializer_list<QSize> sizes = {wanted, QSize(least.width(), wanted.height()),
                                                QSize(wanted.width(), least.height()), least};
    // Rather smaller than in the way: of the whole main window, then of what one works with there.
    for (const QRect& inTheWay : {main.frameGeometry(), QRect()}) {
        for (const QSize& size : sizes) {
            const QRect place = BestPlace(size + frame, main, screen);
            window.resize(size);
            window.move(place.topLeft());
            if (Covered(place, workplaces, inTheWay) == std::pair(0, 0)) {
                return;
            }
        }
    }
    window.resize(wanted);
    window.move(BestPlace(wanted + frame, main, screen).topLeft());
}

}  // namespace norvik
