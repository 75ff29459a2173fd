// What must not happen by itself: a list that chooses a row when it gets the focus, an undo that
// reaches into another entry.
#include "qt/messagedialog.h"
#include "tests/qt/windowfixture.h"

#include <QApplication>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTextBlock>

#include <algorithm>

namespace norvik::test {
namespace {

using testing::ElementsAre;
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
        // The field has no step of its own any more: the keys are the menu's.
        Press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(TextOf("Status"), "Rückgängig: norvik 195/193 laden") << field;
        Press(Qt::Key_Y, Qt::ControlModifier);
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
            EXPECT_TRUE(shown.contains("\n[… 500017 Zeichen ausgelassen …]\n"));
            EXPECT_TRUE(shown.endsWith("xxx\nSoll das so sein?"));
        })
        .Click(QMessageBox::Ok);
    ShowMessageBox({.text = text + u"Soll das so sein?"}, Window.get());
}

/// The length of the longest line of a box that scrolls.
int LongestShownLine(const QDialog& dialog) {
    const auto* view = dialog.findChild<QPlainTextEdit*>();
    int longest = 0;
    for (QTextBlock block = view->document()->begin(); block.isValid(); block = block.next()) {
        longest = std::max(longest, block.length() - 1);
    }
    return longest;
}

TEST_F(WindowFocus, ALongLineIsFoldedForShowing) {
    Open();
    Text text = u"Anfang\n";
    for (int i = 0; i < 100; ++i) {
        text += Text(999, u'x') + static_cast<char16_t>(u'0' + i % 10);
    }
    text += u"\n" + Text(1000, u'y') + u"\n" + Text(1001, u'z') + u"\nEnde";
    Dialogs
        .Look([](QDialog& dialog) {
            const QStringList lines =
                dialog.findChild<QPlainTextEdit*>()->toPlainText().split(u'\n');
            EXPECT_EQ(lines.size(), 1 + 100 + 1 + 2 + 1);
            EXPECT_EQ(lines.at(1), QString(999, u'x') + u'0');
            EXPECT_EQ(lines.at(100), QString(999, u'x') + u'9');
            EXPECT_EQ(lines.at(101), QString(1000, u'y'));
            EXPECT_EQ(lines.at(103), "z");
            EXPECT_EQ(lines.at(104), "Ende");
        })
        .Click(QMessageBox::Ok);
    ShowMessageBox({.text = text}, Window.get());
}

TEST_F(WindowFocus, AnyTextIsShownInLinesThatAreQuicklyLaidOut) {
    Open();
    for (const std::size_t size : {400'000U, 2'000'000U, 20'000'000U}) {
        Dialogs
            .Look([](QDialog& dialog) {
                EXPECT_LE(LongestShownLine(dialog), 1000);
                EXPECT_LE(dialog.findChild<QPlainTextEdit*>()->blockCount(), 2003);
            })
            .Click(QMessageBox::Ok);
        ShowMessageBox({.text = Text(size, u'x')}, Window.get());
    }
}

TEST_F(WindowFocus, ATextOfVeryManyLinesLosesItsMiddle) {
    Open();
    for (const char16_t lineEnd : {u'\n', u'\r'}) {
        Dialogs
            .Look([](QDialog& dialog) {
                const auto* view = dialog.findChild<QPlainTextEdit*>();
                EXPECT_LE(view->blockCount(), 200'005);
                EXPECT_TRUE(view->toPlainText().contains("[… 800000 Zeichen ausgelassen …]"));
            })
            .Click(QMessageBox::Ok);
        ShowMessageBox({.text = Text(1'000'000, lineEnd)}, Window.get());
    }
    // A long report of short lines stays whole.
    Text text;
    for (int i = 0; i < 90'000; ++i) {
        text += u"Zeile\r\n";
    }
    Dialogs
        .Look([](QDialog& dialog) {
            EXPECT_EQ(dialog.findChild<QPlainTextEdit*>()->blockCount(), 90'001);
        })
        .Click(QMessageBox::Ok);
    ShowMessageBox({.text = text}, Window.get());
}

TEST_F(WindowFocus, ALongPromptLosesItsMiddle) {
    Open();
    ScreenDesktop desktop(*Window);
    Dialogs
        .Look([](QDialog& dialog) {
            const QString prompt = dialog.findChild<QLabel*>()->text();
            EXPECT_LT(prompt.size(), 2100);
            EXPECT_TRUE(prompt.contains("[… 2999011 Zeichen ausgelassen …]"));
            EXPECT_TRUE(prompt.endsWith("wirklich?"));
        })
        .Cancel();
    desktop.AskForText({.prompt = Text(3'001'002, u'x') + u"wirklich?", .title = u""});
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(testing::HasSubstr(" title \" \" ")));
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
