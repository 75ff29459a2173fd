#include "tests/qt/windowfixture.h"

#include "qt/entryfield.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QSignalSpy>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString TwentyOne = "abcdefghijklmnopqrstu";
const QString Cyrillic = "Анна";
const QString Emoji = QString::fromUtf8("\xF0\x9F\x93\x9E");

class WindowTyping : public WindowTest {
  protected:
    WindowTyping() { Open(); }
};

/// A field of each kind: name, number, first and last info line.
class EachTextField : public WindowTyping, public testing::WithParamInterface<int> {
  protected:
    /// The text as the field holds it.
    std::string Held(const QString& text) const {
        return GetParam() >= 8 ? Line(text.toStdString()) : text.toStdString();
    }
    QLineEdit* Own() const { return Field(GetParam()); }
};

INSTANTIATE_TEST_SUITE_P(Fields, EachTextField, testing::Values(0, 1, 8, 13));

TEST_P(EachTextField, Holds21TypedCharacters) {
    const QSignalSpy beeps(Own(), SIGNAL(beeped()));
    Type(GetParam(), TwentyOne);
    EXPECT_EQ(Own()->text(), TwentyOne);
    EXPECT_EQ(beeps.count(), 0);
}

TEST_P(EachTextField, The22ndTypedCharacterIsCutWithABeep) {
    Type(GetParam(), TwentyOne);
    const QSignalSpy beeps(Own(), SIGNAL(beeped()));
    TypeText(Own(), "X");
    EXPECT_EQ(Own()->text(), TwentyOne);
    EXPECT_EQ(beeps.count(), 1);
}

TEST_P(EachTextField, PastedTextIsCutAt21WithOneBeep) {
    const QSignalSpy beeps(Own(), SIGNAL(beeped()));
    Enter(GetParam());
    Paste(Own(), TwentyOne + "vwxyz");
    EXPECT_EQ(Own()->text(), TwentyOne);
    EXPECT_EQ(beeps.count(), 1);
}

TEST_P(EachTextField, TextPastedIntoTheMiddlePushesTheRestOut) {
    Type(GetParam(), "abcdefghijklmnopqrst");
    const QSignalSpy beeps(Own(), SIGNAL(beeped()));
    Own()->setCursorPosition(3);
    Paste(Own(), "123");
    EXPECT_EQ(Own()->text(), "abc123defghijklmnopqr");
    EXPECT_EQ(beeps.count(), 1);
}

TEST_P(EachTextField, PastedLineEndsAndControlCharactersBecomeBlanks) {
    const QSignalSpy beeps(Own(), SIGNAL(beeped()));
    Enter(GetParam());
    Paste(Own(), QString::fromUtf8("a\r\nb\nc\td\x01"
                                   "e\x7F\xC2\x81"
                                   "f"));
    EXPECT_EQ(Own()->text().toStdString(), Held("a b c d e  f"));
    EXPECT_EQ(beeps.count(), 0);
}

TEST_P(EachTextField, PastedCharactersOutsideTheRepertoireAreRefusedWithABeep) {
    Type(GetParam(), "Anna");
    for (const QString& text : {Cyrillic, Emoji, QString("x") + Emoji + "y"}) {
        const QSignalSpy beeps(Own(), SIGNAL(beeped()));
        Paste(Own(), text);
        EXPECT_EQ(Own()->text().toStdString(), Held("Anna")) << text.toStdString();
        EXPECT_EQ(beeps.count(), 1) << text.toStdString();
    }
    TypeText(Own(), "x");
    EXPECT_EQ(Own()->text().toStdString(), Held("Annax"));
}

TEST_P(EachTextField, ARefusedPasteOverASelectionKeepsTheSelectedText) {
    Type(GetParam(), "Anna");
    Own()->setSelection(1, 2);
    Paste(Own(), Cyrillic);
    EXPECT_EQ(Own()->text().toStdString(), Held("Anna"));
}

TEST_P(EachTextField, TypedCharactersOutsideTheRepertoireAreRefusedWithABeep) {
    Type(GetParam(), "An");
    const QSignalSpy beeps(Own(), SIGNAL(beeped()));
    TypeText(Own(), "ж");
    EXPECT_EQ(Own()->text().toStdString(), Held("An"));
    EXPECT_EQ(beeps.count(), 1);
    EXPECT_EQ(Own()->cursorPosition(), 2);
}

TEST_P(EachTextField, TakesEveryCharacterOfTheRepertoire) {
    Enter(GetParam());
    TypeText(Own(), "äß€Žÿ°§");
    EXPECT_EQ(Own()->text().toStdString(), Held("äß€Žÿ°§"));
}

TEST_P(EachTextField, UndoTakesTypedTextBack) {
    Type(GetParam(), "ab");
    for (int i = 0; i < 2; ++i) {
        QTest::keyClick(Own(), Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_EQ(Own()->text().toStdString(), Held(""));
}

TEST_P(EachTextField, UndoWorksAfterARefusedCharacter) {
    for (const char* refused : {"X", "ж"}) {
        Enter(GetParam());
        Paste(Own(), "abcdefghijklmnopqr");
        TypeText(Own(), "stu");
        TypeText(Own(), refused);
        ASSERT_EQ(Own()->text(), TwentyOne);
        int steps = 0;
        while (Own()->text().trimmed() != "" && steps < 30) {
            QTest::keyClick(Own(), Qt::Key_Z, Qt::ControlModifier);
            ++steps;
        }
        EXPECT_EQ(Own()->text().toStdString(), Held("")) << refused;
        EXPECT_LE(steps, 4) << refused;
    }
}

TEST_P(EachTextField, UndoWorksAfterATextWasCut) {
    Type(GetParam(), "abcdefghijklmnopqr");
    Paste(Own(), "stu");
    Own()->setCursorPosition(3);
    TypeText(Own(), "X");
    ASSERT_EQ(Own()->text(), "abcXdefghijklmnopqrst");
    QTest::keyClick(Own(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Own()->text(), TwentyOne);
    QTest::keyClick(Own(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Own()->text().toStdString(), Held("abcdefghijklmnopqr"));
    TypeText(Own(), "y");
    QTest::keyClick(Own(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Own()->text().toStdString(), Held("abcdefghijklmnopqr"));
}

TEST_F(WindowTyping, TheInfoLinesBetweenAreOfTheSameKind) {
    for (const int index : {9, 10, 11, 12}) {
        SCOPED_TRACE(index);
        QLineEdit* const field = Field(index);
        const QSignalSpy beeps(field, SIGNAL(beeped()));
        Enter(index);
        Paste(field, TwentyOne + "v");
        EXPECT_EQ(field->text(), TwentyOne);
        EXPECT_EQ(beeps.count(), 1);
        QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
        TypeText(field, "äж");
        EXPECT_EQ(TextOfField(index), Line("ä"));
        EXPECT_EQ(beeps.count(), 2);
    }
}

/// The keys in a field that always holds 21 characters.
using WindowInfoLine = WindowTyping;

TEST_F(WindowInfoLine, IsAlways21CharactersLong) {
    Enter(8);
    EXPECT_EQ(TextOfField(8), Line(""));
    TypeText(Field(8), "ab");
    EXPECT_EQ(TextOfField(8), Line("ab"));
    Press(Qt::Key_Backspace);
    EXPECT_EQ(TextOfField(8), Line("a"));
    Press(Qt::Key_Home);
    Press(Qt::Key_Delete);
    EXPECT_EQ(TextOfField(8), Line(""));
    Press(Qt::Key_Backspace);
    EXPECT_EQ(TextOfField(8), Line(""));
}

TEST_F(WindowInfoLine, EnteringItPutsTheCursorBehindTheLastCharacterThatIsNoBlank) {
    Type(8, "ab c");
    Enter(9);
    EXPECT_EQ(Field(9)->cursorPosition(), 0);
    Enter(8);
    EXPECT_EQ(Field(8)->cursorPosition(), 4);
    EXPECT_FALSE(Field(8)->hasSelectedText());
    TypeText(Field(8), "d");
    EXPECT_EQ(TextOfField(8), Line("ab cd"));
}

TEST_F(WindowInfoLine, EnteringItByAClickBehindTheTextPutsTheCursorAtItsEnd) {
    Type(8, "ab");
    Enter(9);
    QTest::mouseClick(Field(8), Qt::LeftButton, Qt::NoModifier,
                      QPoint(Field(8)->width() - 5, Field(8)->height() / 2));
    EXPECT_EQ(FocusedField(), 8);
    EXPECT_EQ(Field(8)->cursorPosition(), 2);
}

TEST_F(WindowInfoLine, TypingInTheMiddlePushesTheRestAlong) {
    Type(8, "ad");
    Press(Qt::Key_Left);
    TypeText(Field(8), "bc");
    EXPECT_EQ(TextOfField(8), Line("abcd"));
    EXPECT_EQ(Field(8)->cursorPosition(), 3);
}

TEST_F(WindowInfoLine, TypingInTheMiddleOfAFullLineBeepsAndCutsItsEnd) {
    Type(8, TwentyOne);
    const QSignalSpy beeps(Field(8), SIGNAL(beeped()));
    Press(Qt::Key_Home);
    TypeText(Field(8), "X");
    EXPECT_EQ(TextOfField(8), "Xabcdefghijklmnopqrst");
    EXPECT_EQ(Field(8)->cursorPosition(), 1);
    EXPECT_EQ(beeps.count(), 1);
}

TEST_F(WindowInfoLine, BlanksPushedOutGiveNoBeep) {
    Type(8, "abc");
    const QSignalSpy beeps(Field(8), SIGNAL(beeped()));
    Press(Qt::Key_Home);
    TypeText(Field(8), "X");
    EXPECT_EQ(TextOfField(8), Line("Xabc"));
    EXPECT_EQ(beeps.count(), 0);
}

TEST_F(WindowInfoLine, EndGoesBehindTheLastCharacterThatIsNoBlank) {
    Type(8, "ab cd");
    Press(Qt::Key_Home);
    EXPECT_EQ(Field(8)->cursorPosition(), 0);
    Press(Qt::Key_End);
    EXPECT_EQ(Field(8)->cursorPosition(), 5);
    Press(Qt::Key_Home);
    Press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(Field(8)->selectedText(), "ab cd");
}

TEST_F(WindowInfoLine, SelectAllTakesTheTextWithoutItsPadding) {
    Type(8, "ab cd");
    Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Field(8)->selectedText(), "ab cd");
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(TextOfField(8), Line(""));
    EXPECT_EQ(QApplication::clipboard()->text(), "ab cd");
}

TEST_F(WindowInfoLine, TypedBlanksMoveTheCursor) {
    Type(8, "a  b");
    EXPECT_EQ(TextOfField(8), Line("a  b"));
}

TEST_F(WindowInfoLine, UndoGoesBackStepByStep) {
    Type(8, "abc");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(TextOfField(8), Line("abc"));
    EXPECT_EQ(Field(8)->cursorPosition(), 3);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(TextOfField(8), Line("ab"));
}

TEST_F(WindowInfoLine, AnotherEntryCannotBeUndoneIntoThePrevious) {
    Type(8, "abc");
    Click("btnSaveChange");
    Click("btnNew");
    Enter(8);
    EXPECT_EQ(TextOf("AnzNr"), "2");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(TextOf("Status"), "Rückgängig: Neuer Eintrag");
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOfField(8), Line("abc"));
}

TEST_F(WindowTyping, ATextLoadedFromAFileMayHoldControlCharactersAndKeepsThem) {
    Load({{.name = "An\x01na", .tel = "1"}});
    Type(0, "x");
    EXPECT_EQ(TextOfField(0), "An\x01nax");
}

TEST_F(WindowTyping, TheContextMenuOfAFieldIsGerman) {
    const std::unique_ptr<QMenu> menu(Field(0)->createStandardContextMenu());
    std::vector<std::string> captions;
    for (const QAction* action : menu->actions()) {
        if (!action->isSeparator()) {
            captions.push_back(WithoutMnemonic(action->text().section('\t', 0, 0)).toStdString());
        }
    }
    EXPECT_THAT(captions, ElementsAre("Rückgängig", "Wiederherstellen", "Ausschneiden", "Kopieren",
                                      "Einfügen", "Löschen", "Alles auswählen"));
}

TEST_F(WindowTyping, TheSearchBoxRefusesCharactersOutsideTheRepertoire) {
    Load({{.name = "Anna", .tel = "1"}});
    Dialogs
        .Look([this](QDialog& dialog) {
            auto* input = dialog.findChild<QLineEdit*>();
            TypeText(input, "an");
            Paste(input, Cyrillic);
            EXPECT_EQ(input->text(), "an");
            Paste(input, Emoji);
            EXPECT_EQ(input->text(), "an");
            TypeText(input, "ж");
            EXPECT_EQ(input->text(), "an");
            Paste(input, "\r\nx");
            EXPECT_EQ(input->text(), "an x");
            Paste(input, QString(40, 'y'));
            EXPECT_EQ(input->text(), "an x" + QString(40, 'y'));
        })
        .Cancel();
    Click("btnSearch");
}

TEST_F(WindowTyping, TheDiagnosticFieldsAreNotEdited) {
    for (int field = 2; field <= 7; ++field) {
        const std::string before = TextOfField(field);
        EXPECT_TRUE(Field(field)->isReadOnly()) << field;
        Type(field, "9");
        EXPECT_EQ(TextOfField(field), before) << field;
    }
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

}  // namespace

}  // namespace norvik::test
