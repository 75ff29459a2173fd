// The main window's keys beside those of the menu's items and of the fields themselves.
#include "mainwindow/handlers.h"
#include "qt/mainwindow.h"

#include <QAction>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>

namespace norvik {

void MainWindow::MakeShortcuts() {
    const auto bind = [this](const char* keys, const auto& act) {
        auto* shortcut = new QShortcut(QKeySequence(QLatin1String(keys)), this);
        connect(shortcut, &QShortcut::activated, this, act);
        return shortcut;
    };
    bind("Ctrl+F", [this] { widgets_.btnSearch->click(); });
    bind("F3", [this] { widgets_.btnSearchMore->click(); });
    bind("Shift+F3", [this] {
        if (widgets_.btnSearchMore->isEnabled()) {
            Run([&] { SearchBackwards(program_, desktop_); });
        }
    });
    bind("Ctrl+N", [this] { widgets_.btnNew->click(); });
    bind("Ctrl+Home", [this] { widgets_.Satzwahl->setValue(widgets_.Satzwahl->minimum()); });
    bind("Ctrl+End", [this] { widgets_.Satzwahl->setValue(widgets_.Satzwahl->maximum()); });
}

void MainWindow::DrawSaveShortcut() const {
    const std::string_view name = SaveItemOf(program_.State).Name;
    const QLatin1String item(name.data(), static_cast<int>(name.size()));
    for (QAction* action : saveActions_) {
        const QKeySequence keys =
            action->objectName() == item ? QKeySequence(QStringLiteral("Ctrl+S")) : QKeySequence();
        if (action->shortcut() != keys) {
            action->setShortcut(keys);
        }
    }
}

}  // namespace norvik
