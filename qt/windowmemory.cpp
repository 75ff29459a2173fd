#include "qt/windowmemory.h"

#include "qt/textconversion.h"

#include <QEvent>
#include <QSettings>
#include <QSplitter>

namespace norvik {

namespace {

/// With texts of another size a window needs another one.
QString KeyOf(const QWidget& window, const char* what) {
    return QStringLiteral("Fenster-%1/%2-%3")
        .arg(window.fontMetrics().height())
        .arg(window.objectName(), QLatin1String(what));
}

QSplitter* SplitterOf(const QWidget& window) {
    return window.findChild<QSplitter*>(QStringLiteral("Teilung"));
}

}  // namespace

void WindowMemory::Follow(QWidget& window) {
    if (settingsFile_.empty()) {
        return;
    }
    const QSettings settings(FromFilePath(settingsFile_), QSettings::IniFormat);
    window.restoreGeometry(settings.value(KeyOf(window, "Platz")).toByteArray());
    if (QSplitter* splitter = SplitterOf(window)) {
        splitter->restoreState(settings.value(KeyOf(window, "Teilung")).toByteArray());
    }
    window.installEventFilter(this);
}

bool WindowMemory::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Hide && !event->spontaneous()) {
        Remember(*qobject_cast<QWidget*>(object));
    }
    return QObject::eventFilter(object, event);
}

void WindowMemory::Remember(const QWidget& window) const {
    QSettings settings(FromFilePath(settingsFile_), QSettings::IniFormat);
    settings.setValue(KeyOf(window, "Platz"), window.saveGeometry());
    if (const QSplitter* splitter = SplitterOf(window)) {
        settings.setValue(KeyOf(window, "Teilung"), splitter->saveState());
    }
}

}  // namespace norvik
