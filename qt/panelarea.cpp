#include "qt/panelarea.h"

#include <QApplication>
#include <QDialog>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

namespace norvik {

PanelArea::PanelArea(QWidget* panel, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setWidget(panel);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    // The toolkit follows the Tab key within the panel only.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*old*/, QWidget* now) {
        if (now != nullptr && isAncestorOf(now)) {
            ensureWidgetVisible(now);
        }
    });
}

void PanelArea::KeepWhole(QSize beside) {
    beside_ = beside;
    keptWhole_ = true;
}

QSize PanelArea::OnScreen(QSize whole) const {
    const QSize room = RoomFor(*window()) - beside_;
    QSize size = whole;
    if (whole.height() > room.height()) {
        size.rwidth() += verticalScrollBar()->sizeHint().width();
    }
    if (size.width() > room.width()) {
        size.rheight() += horizontalScrollBar()->sizeHint().height();
    }
    return size.boundedTo(room);
}

QSize PanelArea::sizeHint() const {
    if (widget() == nullptr) {
        return QScrollArea::sizeHint();
    }
    return keptWhole_ ? OnScreen(widget()->sizeHint()) : widget()->sizeHint();
}

QSize PanelArea::minimumSizeHint() const {
    return keptWhole_ && widget() != nullptr ? OnScreen(widget()->minimumSizeHint())
                                             : QScrollArea::minimumSizeHint();
}

void LayOut(QDialog& dialog, QWidget* panel, QLayout* buttons) {
    auto* layout = new QVBoxLayout(&dialog);
    auto* area = new PanelArea(panel, &dialog);
    // The frame of what has the focus is drawn around it.
    const int frame = dialog.style()->pixelMetric(QStyle::PM_FocusFrameHMargin);
    panel->layout()->setContentsMargins(frame, frame, frame, frame);
    layout->addWidget(area, 1);
    layout->addLayout(buttons);
    const QMargins margins = layout->contentsMargins();
    area->KeepWhole(
        {margins.left() + margins.right(),
         margins.top() + layout->spacing() + buttons->sizeHint().height() + margins.bottom()});
}

QSize RoomFor(const QWidget& window) {
    constexpr int Side = 4;
    const QSize screen = window.screen()->availableSize();
    return screen - QSize(2 * Side, window.fontMetrics().height() * 2 + Side);
}

void Resize(QWidget& window, QSize wanted) {
    window.resize(wanted.expandedTo(window.minimumSizeHint()).boundedTo(RoomFor(window)));
}

}  // namespace norvik
