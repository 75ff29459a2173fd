// What must not happen by itself: a list that chooses a row when it gets the focus, an undo that
// reaches into another entry.
#include "qt/messagedialog.h"
#include "tests/qt/windowfixture.h"

#include <QApplication>
#include <QMessageBox>
#include <QPlainTextEdit>

namespace norvik::test {
namespace {

using testing::IsEmpty;

class WindowFocus : public WindowTest {
  protected:
    /// Presses Tab until the list has the focus.
    void TabToTheList() {
        Activate();
        constexpr int MoreThanAllWidgets = 60;
        for (int i = 0; i < MoreThanAllWidgets && !List()->hasFocus(); ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        ASSERT_TRUE(List()->hasFocus());
    }

    /// A nameless entry, which has no row, in front of Anna's; it is shown.
    void LoadNameless() { Load({{.name = "Anna", .tel = "1"}, {.name = "", .tel = "99"}}); }
};

TEST_F(WindowFocus, TabIntoAListWithoutASelectedRowKeepsTheEntryAndWhatWasTyped) {
    LoadNameless();
    ASSERT_EQ(SelectedRow(), "");
    Type(1, "55");

    TabToTheList();

    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOfField(1), "9955");
    EXPECT_EQ(SelectedRow(), "");
}

TEST_F(WindowFocus, TabIntoTheListAsksNothingAboutAPendingChoice) {
    LoadNameless();
    Click("chkTon");
    TabToTheList();
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
    EXPECT_EQ(ButtonColour(), Pending);
}

TEST_F(WindowFocus, AListThatIsEnteredAfterANewEntryBehindAFilterKeepsTheEntry) {
    Load({{.name = "Anna", .tel = "1"}, {.name = "Bernd", .tel = "2"}});
    Click("chkListFilter");
    Click("btnNew");
    Click("chkListFilter");
    Retype(0, "Neu");

    TabToTheList();

    EXPECT_EQ(TextOf("AnzNr"), "3");
    EXPECT_EQ(TextOfField(0), "Neu");
}

TEST_F(WindowFocus, TheListOfAWindowThatBecomesActiveAgainChoosesNothing) {
    LoadNameless();
    Type(1, "55");
    List()->setFocus(Qt::ActiveWindowFocusReason);
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOfField(1), "9955");
}

TEST_F(WindowFocus, TheFirstArrowKeyInAListWithoutASelectedRowChoosesOne) {
    LoadNameless();
    TabToTheList();
    Press(Qt::Key_Down);
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_EQ(TextOfField(0), "Anna");
    EXPECT_EQ(SelectedRow(), "#2: Anna (1)");
}

TEST_F(WindowFocus, OtherMouseButtonsChooseNoRow) {
    Load({{.name = "Anna", .tel = "1"}, {.name = "Bernd", .tel = "2"}});
    const QPoint second = List()->visualRect(List()->model()->index(1, 0)).center();
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mouseClick(List()->viewport(), button, {}, second);
        EXPECT_EQ(SelectedRow(), "#1: Anna (1)");
        EXPECT_EQ(TextOf("AnzNr"), "1");
        EXPECT_EQ(TextOfField(0), "Anna");
    }
}

TEST_F(WindowFocus, UndoDoesNotReachIntoAnotherEntryWithTheSameText) {
    Load({{.name = "Anna", .tel = "123", .info = "abc"},
          {.name = "Anna", .tel = "123", .info = "abc"}});
    for (const int field : {0, 1, 8}) {
        Selector()->setValue(1);
        const std::string text = TextOfField(field);
        Type(field, "4");
        Press(Qt::Key_Backspace);
        ASSERT_EQ(TextOfField(field), text);
        Selector()->setValue(2);
        Press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(TextOfField(field), text) << field;
    }
}

TEST_F(WindowFocus, AnotherEntryKeepsTheCursorWhereTheTextIsTheSame) {
    Load({{.name = "Anna", .tel = "123"}, {.name = "Anna", .tel = "123"}});
    Enter(0);
    Field(0)->setSelection(1, 2);
    Field(1)->setCursorPosition(2);
    Selector()->setValue(2);
    EXPECT_EQ(Field(0)->selectedText().toStdString(), "nn");
    EXPECT_EQ(Field(0)->cursorPosition(), 3);
    EXPECT_EQ(Field(1)->cursorPosition(), 2);
}

TEST_F(WindowFocus, TheTextOnAColouredButtonIsBlack) {
    Load({{.name = "Anna", .tel = "1"}});
    const auto textColour = [this] {
        return Find<QPushButton>("btnSaveChange")->palette().color(QPalette::ButtonText);
    };
    Click("chkTon");
    EXPECT_EQ(textColour(), QColor(Qt::black));
    Click("btnSaveChange");
    ASSERT_EQ(ButtonColour(), Stored);
    EXPECT_EQ(textColour(), QColor(Qt::black));
}

TEST_F(WindowFocus, AToneNameOfAnyLengthIsShownCut) {
    Folder.Write("rt.lng", std::string(100000, 'x') + "\r\n");
    Open();
    auto* tones = Find<QComboBox>("DDTon");
    EXPECT_EQ(tones->itemText(1).toStdString(), std::string(200, 'x'));
    EXPECT_EQ(tones->count(), 81);
}

TEST_F(WindowFocus, AMessageLongerThanAnyReportKeepsItsEnd) {
    Open();
    Text text;
    for (int i = 0; i < 25000; ++i) {
        text += Text(99, u'x') + u"\n";
    }
    Dialogs
        .Look([](QDialog& dialog) {
            const QString shown = dialog.findChild<QPlainTextEdit*>()->toPlainText();
            EXPECT_LT(shown.size(), 2'000'100);
            EXPECT_TRUE(shown.startsWith("xxx"));
            EXPECT_TRUE(shown.contains("\n…\n"));
            EXPECT_TRUE(shown.endsWith("xxx\nSoll das so sein?"));
        })
        .Click(QMessageBox::Ok);
    ShowMessageBox({.text = text + u"Soll das so sein?"}, Window.get());
}

TEST_F(WindowFocus, TheCountsOfANewRegisterStandWhileItsCheckAsks) {
    Load({{.name = "Anna", .tel = "1"}, {.name = "Bernd", .tel = "2"}});
    // An impossible announcement, which the check reports.
    Folder.Write("neu.t9t", RegisterFile({{.name = "Carla", .tel = "3", .info = "()", .ab = 9}}));
    Dialogs.ChooseFile(PathIn("neu.t9t"))
        .Look([this](QDialog&) {
            EXPECT_EQ(TextOf("AnzGes"), "1");
            EXPECT_EQ(TextOf("AnzMarkiert"), "1");
        })
        .Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadNV");
    EXPECT_EQ(Dialogs.Transcript.size(), 2U);
}

}  // namespace
}  // namespace norvik::test
