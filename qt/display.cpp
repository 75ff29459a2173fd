#include "qt/display.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace norvik {

Display::Display(const QString& meaning, QWidget* parent) : QLabel(parent), meaning_(meaning) {
    setTextFormat(Qt::PlainText);
    // The toolkit tells of each text of a label that has no accessible name.
    setAccessibleName(NameNow());
    setAccessibleDescription(meaning);
}

void Display::Show(const QString& text) {
    if (text != this->text()) {
        ShowInPassing(text);
        Tell();
    }
}

void Display::ShowInPassing(const QString& text) {
    setText(text);
}

void Display::Tell() {
    if (NameNow() != accessibleName()) {
        setAccessibleName(NameNow());  // tells of it
        return;
    }
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void Display::LeaveRoom() {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QString Display::Fitting() const {
    const int room = contentsRect().width() - std::max(indent(), 0);
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, room);
}

bool Display::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && Fitting() != text()) {
        const QString remark = toolTip().isEmpty() ? QString() : u'\n' + toolTip();
        // A tool tip knows markup, a text holds none.
        QToolTip::showText(dynamic_cast<QHelpEvent*>(event)->globalPos(),
                           QStringLiteral("<p style='white-space:pre-wrap'>%1</p>")
                               .arg((text() + remark).toHtmlEscaped()),
                           this);
        return true;
    }
    return QLabel::event(event);
}

void Display::paintEvent(QPaintEvent* event) {
    const QString fitting = Fitting();
    if (fitting == text()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect().adjusted(std::max(indent(), 0), 0, 0, 0),
                          static_cast<int>(alignment()) | Qt::TextSingleLine, palette(),
                          isEnabled(), fitting, foregroundRole());
}

QString Display::NameNow() const {
    return text().isEmpty() ? meaning_ + QStringLiteral(": leer") : text();
}

void Display::SetRemark(const QString& remark) {
    Describe(*this, remark.isEmpty() ? meaning_ : meaning_ + QStringLiteral(". ") + remark, remark);
}

void Describe(QWidget& widget, const QString& description, const QString& toolTip) {
    widget.setToolTip(toolTip);
    if (widget.accessibleDescription() != description) {
        widget.setAccessibleDescription(description);
    }
}

}  // namespace norvik
