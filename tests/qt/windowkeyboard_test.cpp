#include "tests/qt/windowfixture.h"

#include <QMenuBar>
#include <QShortcut>

#include <map>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WindowKeyboard : public WindowTest {
  protected:
    WindowKeyboard() {
        Load({{.name = "Anna", .tel = "1"},
              {.name = "Bernd", .tel = "2"},
              {.name = "Carla", .tel = "3"}});
    }

    /// The fields that get the focus when a key is pressed again and again, from the name on.
    std::vector<int> Walk(Qt::Key key, int times, Qt::KeyboardModifiers modifiers = {}) {
        Enter(0);
        std::vector<int> fields;
        for (int i = 0; i < times; ++i) {
            Press(key, modifiers);
            fields.push_back(FocusedField());
        }
        return fields;
    }
};

TEST_F(WindowKeyboard, ReturnGoesThroughTheFieldsAndBackToTheName) {
    EXPECT_THAT(Walk(Qt::Key_Return, 9), ElementsAre(1, 8, 9, 10, 11, 12, 13, 0, 1));
}

TEST_F(WindowKeyboard, EnterOnTheKeypadIsReturn) {
    EXPECT_THAT(Walk(Qt::Key_Enter, 2, Qt::KeypadModifier), ElementsAre(1, 8));
}

TEST_F(WindowKeyboard, DownGoesThroughTheFieldsAndBackToTheName) {
    EXPECT_THAT(Walk(Qt::Key_Down, 9), ElementsAre(1, 8, 9, 10, 11, 12, 13, 0, 1));
}

TEST_F(WindowKeyboard, UpGoesBackwardsInTheSameCycle) {
    EXPECT_THAT(Walk(Qt::Key_Up, 9), ElementsAre(13, 12, 11, 10, 9, 8, 1, 0, 13));
}

TEST_F(WindowKeyboard, TheseKeysStoreNothing) {
    Retype(0, "Xaver");
    Press(Qt::Key_Return);
    Press(Qt::Key_Down);
    Press(Qt::Key_Up);
    Press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(FocusedField(), 0);
    EXPECT_EQ(TextOfField(0), "Xaver");
    EXPECT_EQ(Rows().front(), "#1: Anna (1)");
    EXPECT_EQ(ButtonColour(), NeutralColour());
    EXPECT_TRUE(Window->close());
}

TEST_F(WindowKeyboard, ShiftReturnStoresAndMovesOn) {
    Retype(0, "Xaver");
    Press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(FocusedField(), 1);
    EXPECT_EQ(TextOf("AnzNr"), "3");
    EXPECT_THAT(Rows(), ElementsAre("#1: Bernd (2)", "#2: Carla (3)", "#3: Xaver (1)"));
    EXPECT_EQ(ButtonColour(), Stored);
    Dialogs.Cancel();
    EXPECT_FALSE(Window->close());
}

TEST_F(WindowKeyboard, ShiftDownStoresAndMovesOn) {
    Retype(13, "sechs");
    Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(FocusedField(), 0);
    EXPECT_EQ(Rows().front(), "#1: Anna (1) " + std::string(105, ' ') + "sechs");
    EXPECT_EQ(ButtonColour(), Stored);
}

TEST_F(WindowKeyboard, ShiftReturnStoresFromEveryField) {
    for (const int field : {0, 1, 8, 9, 10, 11, 12, 13}) {
        Selector()->setValue(1);
        Enter(field);
        Press(Qt::Key_Return, Qt::ShiftModifier);
        EXPECT_EQ(ButtonColour(), Stored) << field;
    }
}

TEST_F(WindowKeyboard, PageUpAndPageDownStepThroughTheEntries) {
    for (const int field : {0, 1, 8, 13}) {
        Selector()->setValue(1);
        Enter(field);
        Press(Qt::Key_PageDown);
        EXPECT_EQ(TextOfField(0), "Bernd") << field;
        Press(Qt::Key_PageDown);
        Press(Qt::Key_PageDown);
        EXPECT_EQ(TextOfField(0), "Carla") << field;
        Press(Qt::Key_PageUp);
        EXPECT_EQ(TextOf("AnzNr"), "2") << field;
        EXPECT_EQ(FocusedField(), field);
    }
}

TEST_F(WindowKeyboard, CtrlOLoads) {
    Enter(0);
    Dialogs.Cancel();
    Press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre("open \"NV-195-Datei (*.t9t)|Alle Dateien (*)\" name \"\""));
}

TEST_F(WindowKeyboard, CtrlNMakesANewEntry) {
    Enter(9);
    Press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(TextOf("AnzNr"), "4");
    EXPECT_EQ(FocusedField(), 0);
}

TEST_F(WindowKeyboard, CtrlFSearchesAndF3SearchesOn) {
    Enter(0);
    Dialogs.Type("a");
    Press(Qt::Key_F, Qt::ControlModifier);
    Activate();
    EXPECT_THAT(
        Dialogs.Transcript,
        ElementsAre("input \"Bitte Suchbegriff angeben\" title \"Suche nach\" preset \"\""));
    EXPECT_EQ(TextOfField(0), "Anna");
    Press(Qt::Key_F3);
    EXPECT_EQ(TextOfField(0), "Carla");
}

TEST_F(WindowKeyboard, F3WithoutATermDoesNothing) {
    Selector()->setValue(2);
    Enter(0);
    Press(Qt::Key_F3);
    EXPECT_EQ(TextOfField(0), "Bernd");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowKeyboard, TabReachesEveryInputInReadingOrder) {
    Dialogs.Type("a");
    Click("btnSearch");
    Activate();
    Selector()->setFocus();
    std::vector<std::string> order;
    do {
        order.push_back(Window->focusWidget()->objectName().toStdString());
        QTest::keyClick(Window->focusWidget(), Qt::Key_Tab);
    } while (Window->focusWidget() != Selector() && order.size() < 100);
    EXPECT_THAT(order, ElementsAre("Satzwahl", "Anzeigefeld(0)", "Anzeigefeld(1)", "Anzeigefeld(8)",
                                   "Anzeigefeld(9)", "Anzeigefeld(10)", "Anzeigefeld(11)",
                                   "Anzeigefeld(12)", "Anzeigefeld(13)", "DDTon", "chkTon", "DDAB",
                                   "DDMSN", "OptFilter(0)", "chkCharge", "btnEraseCharge",
                                   "chkExport", "btnSaveChange", "btnNew", "btnErase", "btnSearch",
                                   "btnSearchMore", "TelRegListe", "chkListFilter", "Bild1"));
}

TEST_F(WindowKeyboard, TheArrowKeysReachEveryFilter) {
    Find<QWidget>("OptFilter(0)")->setFocus();
    for (const char* filter : {"OptFilter(1)", "OptFilter(2)", "OptFilter(3)"}) {
        Press(Qt::Key_Right);
        EXPECT_EQ(Window->focusWidget()->objectName(), filter);
        EXPECT_TRUE(IsChecked(filter)) << filter;
        EXPECT_EQ(ButtonColour(), Pending) << filter;
    }
}

TEST_F(WindowKeyboard, EveryMnemonicIsTheOnlyOne) {
    QStringList captions;
    for (const QAbstractButton* button : Window->findChildren<QAbstractButton*>()) {
        captions << button->text();
    }
    for (const QLabel* label : Window->findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) {
            captions << label->text();
        }
    }
    for (const QAction* menu : Window->menuBar()->actions()) {
        captions << menu->text();
    }
    std::map<QString, QStringList> byMnemonic;
    for (const QString& caption : captions) {
        const QKeySequence mnemonic = QKeySequence::mnemonic(caption);
        if (!mnemonic.isEmpty()) {
            byMnemonic[mnemonic.toString()] << caption;
        }
    }
    EXPECT_GE(byMnemonic.size(), 20U);
    for (const auto& [mnemonic, found] : byMnemonic) {
        EXPECT_EQ(found.size(), 1)
            << mnemonic.toStdString() << ": " << found.join(" | ").toStdString();
    }
}

TEST_F(WindowKeyboard, TheMnemonicsOfTheMenuItemsAreUniqueInTheirMenu) {
    for (const QAction* menu : Window->menuBar()->actions()) {
        std::map<QString, int> times;
        for (const QAction* item : menu->menu()->actions()) {
            ++times[QKeySequence::mnemonic(item->text()).toString()];
        }
        times.erase(QString());
        for (const auto& [mnemonic, count] : times) {
            EXPECT_EQ(count, 1) << mnemonic.toStdString();
        }
    }
}

TEST_F(WindowKeyboard, AMnemonicMovesTheFocusToItsField) {
    Enter(13);
    Press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(FocusedField(), 0);
    Press(Qt::Key_3, Qt::AltModifier);
    EXPECT_EQ(FocusedField(), 10);
    Press(Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(FocusedField(), 1);
    Press(Qt::Key_W, Qt::AltModifier);
    EXPECT_EQ(Window->focusWidget(), List());
}

}  // namespace

}  // namespace norvik::test
