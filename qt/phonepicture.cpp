#include "qt/phonepicture.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace norvik {

namespace {

/// The drawing's own units: it is scaled to the widget.
constexpr qreal Side = 64;

void DrawBody(QPainter& painter) {
    QPainterPath body(QPointF(14, 26));
    body.lineTo(50, 26);
    body.cubicTo(54, 34, 58, 44, 58, 54);
    body.quadTo(58, 58, 54, 58);
    body.lineTo(10, 58);
    body.quadTo(6, 58, 6, 54);
    body.cubicTo(6, 44, 10, 34, 14, 26);
    painter.drawPath(body);
}

void DrawHandset(QPainter& painter) {
    QPainterPath handset(QPointF(4, 24));
    handset.cubicTo(2, 2, 62, 2, 60, 24);
    handset.lineTo(46, 24);
    handset.cubicTo(47, 16, 17, 16, 18, 24);
    handset.closeSubpath();
    painter.drawPath(handset);
}

void DrawKeys(QPainter& painter) {
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            painter.drawRoundedRect(QRectF(20 + 9.0 * column, 32 + 8.0 * row, 6, 5), 1.5, 1.5);
        }
    }
}

}  // namespace

PhonePicture::PhonePicture(QWidget* parent) : QPushButton(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::TabFocus);
    setAutoDefault(true);  // Return works, too
    setToolTip(QStringLiteral("Rufnummer umwandeln (Test)"));
}

QSize PhonePicture::sizeHint() const {
    const int side = fontMetrics().height() * 3;
    return {side, side};
}

void PhonePicture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal scale = std::min(width(), height()) / Side;
    painter.scale(scale, scale);
    painter.setPen(Qt::NoPen);
    // In a window that is not active some systems have colors that are hardly to be seen.
    painter.setBrush(palette().color(QPalette::Active, QPalette::Highlight));
    DrawBody(painter);
    DrawHandset(painter);
    painter.setBrush(palette().color(QPalette::Active, QPalette::HighlightedText));
    DrawKeys(painter);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        painter.resetTransform();
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

}  // namespace norvik
