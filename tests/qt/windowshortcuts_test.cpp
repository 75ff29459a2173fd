// The keys of the window beside those of its text fields.
#include "tests/qt/windowfixture.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string Save195 = "save \"norvik-195-Datei (*.t9t)|Alle Dateien (*)\" name \"\"";
const std::string Save193 = "save \"norvik-193/5-Datei (*.t9t)|Alle Dateien (*)\" name \"\"";
const std::string Save175 = "save \"norvik-175-Datei (*.pbo)|Alle Dateien (*)\" name \"\"";

class WindowShortcuts : public WindowTest {
  protected:
    WindowShortcuts() {
        Load({{.name = "Anna", .tel = "1"},
              {.name = "Bernd", .tel = "2"},
              {.name = "Carla", .tel = "3"},
              {.name = "Dora B", .tel = "4"},
              {.name = "Dora C", .tel = "5"}});
    }

    /// Presses Ctrl+S in the name's field and cancels the dialog; gives what it was.
    std::string SaveDialog() {
        Dialogs.Transcript.clear();
        Enter(0);
        Dialogs.Cancel();
        Press(Qt::Key_S, Qt::ControlModifier);
        return Dialogs.Transcript.empty() ? std::string() : Dialogs.Transcript.front();
    }

    void LoadAs(const char* item, const char* name, const Bytes& content) {
        Folder.Write(name, content);
        Dialogs.ChooseFile(PathIn(name));
        Trigger(item);
    }

    std::string Shown() const { return TextOf("AnzNr") + " " + TextOfField(0); }
};

TEST_F(WindowShortcuts, CtrlSSavesForTheLoadedModel) {
    EXPECT_EQ(SaveDialog(), Save195);
    LoadAs("mnuDateiLoadNV", "193.t9t",
           Join({Raw("06 0D 'TStCollection' 02 64 01"),
                 Raw("02 00 02 01 06 04 'Anna' 06 02 '11' 02 00 02 0F 02 64 02 00"), Raw("00")}));
    ASSERT_EQ(TextOf("AnzQuelle"), "193");
    EXPECT_EQ(SaveDialog(), Save193);
    LoadAs("mnuDateiLoad175", "a.pbo",
           Raw("'norvik 175 phonebook' 0D 0A 'N=Anna' 0D 0A 'P=11' 0D 0A 'I=' 0D 0A 'I=' 0D 0A "
               "'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A"));
    ASSERT_EQ(TextOf("AnzQuelle"), "175");
    EXPECT_EQ(SaveDialog(), Save175);
    LoadAs("mnuDateiLoadCSV", "a.csv", Raw("'Name;Tel' 0D 0A 'Anna;11' 0D 0A"));
    ASSERT_EQ(TextOf("AnzQuelle"), "CSV");
    EXPECT_EQ(SaveDialog(), Save195);
}

TEST_F(WindowShortcuts, CtrlSSaves) {
    Dialogs.ChooseFile(PathIn("neu"));
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(TextOf("Status"), "Gespeichert: " + PathIn("neu.t9t").toStdString());
    EXPECT_FALSE(FileText("neu.t9t").empty());
}

TEST_F(WindowShortcuts, CtrlSAsksForTheReductionAsItsItemDoes) {
    LoadAs("mnuDateiLoadNV", "193.t9t",
           Join({Raw("06 0D 'TStCollection' 02 64 01"),
                 Raw("02 00 02 01 06 04 'Anna' 06 02 '11' 02 00 02 0F 02 64 02 00"), Raw("00")}));
    Dialogs.Transcript.clear();
    Dialogs.ChooseFile(PathIn("neu"));
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Save193));  // it came from one: no question
    EXPECT_EQ(TextOf("Status"), "Gespeichert: " + PathIn("neu.t9t").toStdString());
}

TEST_F(WindowShortcuts, OnlyOneItemShowsCtrlS) {
    std::vector<std::string> items;
    for (const QAction* action : Find<QMenu>("mnuDatei")->actions()) {
        if (action->shortcut() == QKeySequence("Ctrl+S")) {
            items.push_back(action->objectName().toStdString());
        }
    }
    EXPECT_THAT(items, ElementsAre("mnuDateiSaveNV"));
}

TEST_F(WindowShortcuts, CtrlQEndsTheProgramLikeItsItem) {
    Click("btnNew");
    Enter(0);
    Dialogs.Cancel();
    Press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre("box \"Beenden ohne zu sichern?\" title \"Sicherheitsabfrage\" icon "
                            "Question buttons OK+Abbrechen default Abbrechen"));
    EXPECT_TRUE(Window->isVisible());
    Activate();
    Dialogs.Click(QMessageBox::Ok);
    Press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(Window->isVisible());
}

TEST_F(WindowShortcuts, F1OpensTheGuide) {
    Enter(0);
    Press(Qt::Key_F1);
    // There is none in the test's folder, and the status line says so.
    EXPECT_THAT(TextOf("Status"), testing::EndsWith("2"));
}

TEST_F(WindowShortcuts, ShiftF3SearchesBackwards) {
    Enter(0);
    Press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Shown(), "1 Anna");  // there is no term yet
    Dialogs.Type("a");
    Press(Qt::Key_F, Qt::ControlModifier);
    Activate();
    Press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Shown(), "5 Dora C");
    Press(Qt::Key_F3, Qt::ShiftModifier);
    Press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Shown(), "3 Carla");
    Press(Qt::Key_F3);
    EXPECT_EQ(Shown(), "4 Dora B");
    Press(Qt::Key_F3, Qt::ShiftModifier);
    Press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Shown(), "1 Anna");
    EXPECT_EQ(Dialogs.Transcript.size(), 1U);
}

TEST_F(WindowShortcuts, CtrlHomeAndCtrlEndShowTheFirstAndTheLastEntry) {
    const std::vector<QWidget*> places = {Field(0),
                                          Field(1),
                                          Field(8),
                                          Field(13),
                                          Selector(),
                                          List(),
                                          Find<QWidget>("btnNew"),
                                          Find<QWidget>("DDTon"),
                                          Find<QWidget>("OptFilter(0)"),
                                          Find<QWidget>("Bild1")};
    for (QWidget* place : places) {
        Selector()->setValue(2);
        place->setFocus(Qt::TabFocusReason);
        Press(Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(Shown(), "5 Dora C") << place->objectName().toStdString();
        Press(Qt::Key_Home, Qt::ControlModifier);
        EXPECT_EQ(Shown(), "1 Anna") << place->objectName().toStdString();
        EXPECT_EQ(Window->focusWidget(), place) << place->objectName().toStdString();
    }
}

TEST_F(WindowShortcuts, HomeAndEndAloneStayInTheField) {
    Enter(0);
    Press(Qt::Key_Home);
    EXPECT_EQ(Field(0)->cursorPosition(), 0);
    Press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(Field(0)->selectedText(), "Anna");
    EXPECT_EQ(Shown(), "1 Anna");
}

TEST_F(WindowShortcuts, DelInTheListErasesTheChosenEntryLikeItsButton) {
    ClickRow(1);
    List()->setFocus();
    Press(Qt::Key_Delete);
    EXPECT_THAT(Rows(),
                ElementsAre("#1: Anna (1)", "#2: Carla (3)", "#3: Dora B (4)", "#4: Dora C (5)"));
    EXPECT_EQ(Shown(), "2 Carla");
    EXPECT_EQ(SelectedRow(), "#2: Carla (3)");
    EXPECT_EQ(Window->focusWidget(), List());
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(TextOf("Status"), "Rückgängig: Eintrag löschen");
    EXPECT_EQ(Rows().size(), 5U);
}

TEST_F(WindowShortcuts, DelHeldDownErasesOneEntry) {
    List()->setFocus();
    for (const bool repeats : {false, true, true}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, {}, {}, repeats);
        QApplication::sendEvent(List(), &press);
    }
    EXPECT_EQ(Rows().size(), 4U);
}

TEST_F(WindowShortcuts, DelErasesNothingWhereNoRowIsChosenOrInAField) {
    Click("btnNew");  // has no name and so no row
    ASSERT_EQ(SelectedRow(), "");
    List()->setFocus();
    Press(Qt::Key_Delete);
    EXPECT_EQ(TextOf("AnzGes"), "6");
    Selector()->setValue(1);
    Enter(0);
    Press(Qt::Key_Delete);
    EXPECT_EQ(TextOf("AnzGes"), "6");
    List()->setFocus();
    Press(Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(TextOf("AnzGes"), "6");
}

class WindowTypeAhead : public WindowShortcuts {
  protected:
    WindowTypeAhead() { List()->setFocus(); }

    void TypeIntoList(const QString& text) { TypeText(List(), text); }
    /// As if so much time had passed that a new name begins.
    static void Pause() { QTest::qWait(QApplication::keyboardInputInterval() + 50); }
};

TEST_F(WindowTypeAhead, FindsTheName) {
    TypeIntoList("c");
    EXPECT_EQ(Shown(), "3 Carla");
    EXPECT_EQ(SelectedRow(), "#3: Carla (3)");
    Pause();
    TypeIntoList("DORA C");
    EXPECT_EQ(Shown(), "5 Dora C");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowTypeAhead, TheSameLetterGoesOnToTheNextName) {
    TypeIntoList("d");
    EXPECT_EQ(Shown(), "4 Dora B");
    EXPECT_EQ(List()->currentIndex().row(), 3);
    TypeIntoList("d");
    EXPECT_EQ(Shown(), "5 Dora C");
    TypeIntoList("d");
    EXPECT_EQ(Shown(), "4 Dora B");
}

TEST_F(WindowTypeAhead, WhatNoNameBeginsWithChoosesNothing) {
    TypeIntoList("#1");
    EXPECT_EQ(Shown(), "1 Anna");
    Pause();
    TypeIntoList("z");
    EXPECT_EQ(Shown(), "1 Anna");
}

TEST_F(WindowTypeAhead, AsksAboutAPendingChoiceOnceForEachChosenEntry) {
    Click("chkTon");
    List()->setFocus();
    Dialogs.Click(QMessageBox::Yes);
    TypeIntoList("b");
    Activate();
    EXPECT_EQ(Shown(), "2 Bernd");
    EXPECT_EQ(Dialogs.Transcript.size(), 1U);
}

TEST_F(WindowShortcuts, TheRawValuesCanBeCopiedWithoutBeingTabStops) {
    auto* value = Field(6);
    ASSERT_EQ(value->text(), "00 (1)");
    EXPECT_FALSE(value->focusPolicy() & Qt::TabFocus);
    EXPECT_EQ(value->contextMenuPolicy(), Qt::DefaultContextMenu);
    QTest::mouseDClick(value, Qt::LeftButton, {}, QPoint(6, value->height() / 2));
    ASSERT_TRUE(value->hasFocus());
    QTest::keyClick(value, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(value, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "00 (1)");
}

}  // namespace

}  // namespace norvik::test
