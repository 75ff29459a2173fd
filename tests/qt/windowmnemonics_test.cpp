// The letters that go to a menu, a field or a button with the Alt key, and that the focus can be
// seen: in the main window and in every other one.
#include "tests/qt/windowfixture.h"

#include <QGroupBox>
#include <QMenu>
#include <QMenuBar>

#include <map>
#include <set>

namespace norvik::test {

namespace {

using testing::IsEmpty;

std::string Join(const std::map<QString, QStringList>& found) {
    std::string all;
    for (const auto& [mnemonic, captions] : found) {
        if (captions.size() > 1) {
            all += mnemonic.toStdString() + ": " + captions.join(" | ").toStdString() + "\n";
        }
    }
    return all;
}

/// The captions of a window that share a letter.
std::string SharedLetters(const QStringList& captions) {
    std::map<QString, QStringList> found;
    for (const QString& caption : captions) {
        const QKeySequence mnemonic = QKeySequence::mnemonic(caption);
        if (!mnemonic.isEmpty()) {
            found[mnemonic.toString()] << caption;
        }
    }
    return Join(found);
}

QStringList CaptionsOf(const QWidget& window) {
    QStringList captions;
    const auto isOfWindow = [&window](const QWidget* widget) {
        return widget->window() == &window && widget->isVisible();
    };
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (isOfWindow(button)) {
            captions << button->text();
        }
    }
    for (const QGroupBox* group : window.findChildren<QGroupBox*>()) {
        if (isOfWindow(group)) {
            captions << group->title();
        }
    }
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr && isOfWindow(label)) {
            captions << label->text();
        }
    }
    if (const auto* bar = window.findChild<QMenuBar*>()) {
        for (const QAction* menu : bar->actions()) {
            captions << menu->text();
        }
    }
    return captions;
}

class WindowMnemonics : public WindowTest {
  protected:
    WindowMnemonics() {
        VersionFolder = Folder / "staende";
        Load({{.name = "Anna", .tel = "1", .info = "()"}, {.name = "Bernd", .tel = "1"}});
    }

    /// Calls `look` with the main window and with every other one.
    void InEveryWindow(const std::function<void(QWidget&)>& look) {
        look(*Window);
        for (const char* item : {"mnuDateiHandyexp", "mnuSettingsBasic"}) {
            Dialogs.Drive(look);
            Trigger(item);
        }
        for (const auto& [item, window] :
             {std::pair("mnuListView", "NVList"), std::pair("mnuDateiVersions", "VERSIONS"),
              std::pair("mnuListDoubles", "DOUBLES")}) {
            Trigger(item);
            auto* opened = Find<QDialog>(window);
            opened->activateWindow();
            ASSERT_TRUE(BecomesActive(*opened));
            look(*opened);
            opened->close();
        }
    }
};

TEST_F(WindowMnemonics, NoLetterStandsForTwoThingsOfAWindow) {
    int windows = 0;
    InEveryWindow([&windows](QWidget& window) {
        ++windows;
        const QStringList captions = CaptionsOf(window);
        EXPECT_GE(captions.size(), 3) << window.objectName().toStdString();
        EXPECT_EQ(SharedLetters(captions), "") << window.objectName().toStdString();
    });
    EXPECT_EQ(windows, 6);
}

TEST_F(WindowMnemonics, NoLetterStandsForTwoItemsOfAMenu) {
    Click("btnNew");  // gives "Rückgängig" its longer caption
    for (const QMenu* menu : Window->menuBar()->findChildren<QMenu*>()) {
        QStringList captions;
        for (const QAction* item : menu->actions()) {
            captions << item->text();
            if (!item->isSeparator()) {
                EXPECT_FALSE(QKeySequence::mnemonic(item->text()).isEmpty())
                    << item->text().toStdString();
            }
        }
        EXPECT_EQ(SharedLetters(captions), "") << menu->objectName().toStdString();
    }
}

TEST_F(WindowMnemonics, ThoseOfStoringAndErasingAreNoNeighbours) {
    EXPECT_EQ(Find<QAbstractButton>("btnErase")->text().toStdString(), "Lös&chen");
    EXPECT_EQ(Find<QAbstractButton>("btnSaveChange")->text().toStdString(), "&Übernehmen");
    EXPECT_EQ(Find<QAbstractButton>("OptFilter(0)")->text().toStdString(), "aus");
    EXPECT_EQ(Find<QAbstractButton>("OptFilter(3)")->text().toStdString(), "CD");
    Press(Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(Window->focusWidget()->objectName(), "DDAB");
    Press(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return TextOf("AnzGes") == "1"; }));
}

TEST_F(WindowMnemonics, TheFocusCanBeSeenWhereverTabGoes) {
    InEveryWindow([](QWidget& window) {
        std::vector<std::string> unseen;
        std::set<const QWidget*> seen;
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        while (seen.insert(window.focusWidget()).second) {
            QWidget* focused = window.focusWidget();
            // Some draw it around themselves.
            const QRect place =
                QRect(focused->mapTo(&window, QPoint()), focused->size()).adjusted(-3, -3, 3, 3);
            const QImage with = window.grab(place).toImage();
            QTest::keyClick(focused, Qt::Key_Tab);
            const QImage without = window.grab(place).toImage();
            // A text field's cursor blinks, and may be off.
            if (qobject_cast<QLineEdit*>(focused) == nullptr && with == without) {
                unseen.push_back(focused->objectName().toStdString());
            }
        }
        EXPECT_GE(seen.size(), 2U) << window.objectName().toStdString();
        EXPECT_THAT(unseen, IsEmpty()) << window.objectName().toStdString();
    });
}

}  // namespace

}  // namespace norvik::test
