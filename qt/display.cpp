#include "qt/display.h"

#include <QAccessible>

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
