#include "qt/recordscrollbar.h"

#include <QKeyEvent>

namespace norvik {

RecordScrollBar::RecordScrollBar(QWidget* parent) : QScrollBar(Qt::Horizontal, parent) {
    constexpr int RecordsPerPage = 10;
    setFocusPolicy(Qt::StrongFocus);
    setPageStep(RecordsPerPage);
}

void RecordScrollBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
        triggerAction(SliderSingleStepSub);
        return;
    case Qt::Key_Right:
        triggerAction(SliderSingleStepAdd);
        return;
    default:
        QScrollBar::keyPressEvent(event);
    }
}

}  // namespace norvik
