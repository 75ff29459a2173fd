#include "qt/widgetmakers.h"

#include "qt/display.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace norvik {

QString IndexedName(const char* name, int index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

void Name(QWidget* widget, const char* objectName, const QString& accessibleName) {
    widget->setObjectName(QLatin1String(objectName));
    widget->setAccessibleName(accessibleName);
}

QLabel* MakeLabel(const QString& caption, QWidget* buddy, QWidget* parent) {
    auto* label = new QLabel(caption, parent);
    label->setBuddy(buddy);
    return label;
}

Display* MakeDisplay(const char* objectName, const QString& meaning, QWidget* parent) {
    auto* display = new Display(meaning, parent);
    display->setObjectName(QLatin1String(objectName));
    return display;
}

QPushButton* MakeButton(const char* objectName, const QString& caption,
                        const QString& accessibleName, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    Name(button, objectName, accessibleName);
    button->setAutoDefault(true);  // Return works on the button that has the focus
    return button;
}

void TabToChosen(const QButtonGroup& group) {
    for (QAbstractButton* button : group.buttons()) {
        button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

QCheckBox* MakeCheckBox(const char* objectName, const QString& caption,
                        const QString& accessibleName, QWidget* parent) {
    auto* box = new QCheckBox(caption, parent);
    Name(box, objectName, accessibleName);
    return box;
}

}  // namespace norvik
