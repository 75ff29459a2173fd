#include "tests/qt/windowfixture.h"

namespace norvik::test {

namespace {

using testing::ElementsAre;

class WindowUndo : public WindowTest {
  protected:
    WindowUndo() {
        Load({{.name = "Anna", .tel = "1", .gebEinh = 100},
              {.name = "Bernd", .tel = "2", .msnFilter = 2},
              {.name = "Carla", .tel = "3", .msnFilter = 3}});
    }

    std::string Item(const char* name) const {
        return Window->findChild<QAction*>(name)->text().remove(u'&').toStdString();
    }
    bool IsEnabled(const char* name) const {
        return Window->findChild<QAction*>(name)->isEnabled();
    }
    bool NotStored() const { return Find<QLabel>("NotStored")->isVisibleTo(Window.get()); }
};

TEST_F(WindowUndo, TheLoadIsTheFirstStep) {
    EXPECT_EQ(Item("mnuBearbeitenUndo"), "Rückgängig: norvik 195/193 laden");
    EXPECT_EQ(Item("mnuBearbeitenRedo"), "Wiederholen");
    EXPECT_FALSE(IsEnabled("mnuBearbeitenRedo"));
    const std::string caption = Caption();
    Trigger("mnuBearbeitenUndo");
    EXPECT_EQ(TextOf("AnzGes"), "1");
    EXPECT_EQ(TextOfField(0), "");
    EXPECT_EQ(Caption(), "norvik Telefonregister - Datei: [keine]");
    EXPECT_EQ(TextOf("AnzQuelle"), "");
    EXPECT_FALSE(IsEnabled("mnuBearbeitenUndo"));
    Trigger("mnuBearbeitenRedo");
    EXPECT_EQ(Caption(), caption);
    EXPECT_EQ(TextOf("AnzQuelle"), "195");
    EXPECT_THAT(ShownNames(), ElementsAre("Anna", "Bernd", "Carla"));
}

TEST_F(WindowUndo, TheKeysTakeAnErasedEntryBackAndEraseItAgain) {
    Selector()->setValue(2);
    Click("btnErase");
    EXPECT_THAT(ShownNames(), ElementsAre("Anna", "Carla"));
    Selector()->setValue(1);
    List()->setFocus();
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_EQ(TextOfField(0), "Bernd");
    EXPECT_EQ(TextOf("Status"), "Rückgängig: Eintrag löschen");
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_THAT(ShownNames(), ElementsAre("Anna", "Carla"));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_THAT(ShownNames(), ElementsAre("Anna", "Bernd", "Carla"));
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_THAT(ShownNames(), ElementsAre("Anna", "Carla"));
}

TEST_F(WindowUndo, AFieldTakesTheKeysWhileItHasStepsOfItsOwn) {
    Selector()->setValue(2);
    Click("btnErase");
    Selector()->setValue(1);
    Enter(0);
    Type(0, "b");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(TextOfField(0), "Anna");
    EXPECT_THAT(Rows().size(), 2U);
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(TextOfField(0), "Annab");
    Press(Qt::Key_Z, Qt::ControlModifier);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_THAT(Rows().size(), 3U);
    EXPECT_EQ(TextOfField(0), "Bernd");
}

TEST_F(WindowUndo, ANoteTellsThatSomethingIsNotStored) {
    EXPECT_FALSE(NotStored());
    Enter(0);
    Type(0, "b");
    EXPECT_TRUE(NotStored());
    EXPECT_EQ(ButtonColour(), NeutralColour());
    EXPECT_EQ(Item("mnuBearbeitenUndo"), "Rückgängig: Eingabe");
    Press(Qt::Key_Backspace);
    EXPECT_FALSE(NotStored());
    Type(8, "x");
    EXPECT_TRUE(NotStored());
    Click("btnSaveChange");
    EXPECT_FALSE(NotStored());
    Choose("DDAB", 3);
    EXPECT_TRUE(NotStored());
    Choose("DDAB", 0);
    EXPECT_FALSE(NotStored());
    Click("btnEraseCharge");
    EXPECT_TRUE(NotStored());
    Click("chkExport");
    EXPECT_FALSE(NotStored());
}

TEST_F(WindowUndo, WhatWasTypedAndLeftComesBackIntoItsFields) {
    Retype(0, "Annabel");
    Type(9, "zweite");
    Selector()->setValue(3);
    EXPECT_FALSE(NotStored());
    EXPECT_EQ(Item("mnuBearbeitenUndo"), "Rückgängig: Eingabe verworfen");
    Trigger("mnuBearbeitenUndo");
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOfField(0), "Annabel");
    EXPECT_EQ(TextOfField(9), Line("zweite"));
    EXPECT_TRUE(NotStored());
    Click("btnSaveChange");
    EXPECT_THAT(ShownNames(), ElementsAre("Annabel", "Bernd", "Carla"));
}

TEST_F(WindowUndo, ABulkToolIsOneStep) {
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuBearbeitenKillMSN");
    EXPECT_EQ(Item("mnuBearbeitenUndo"), "Rückgängig: MSN löschen (2 Einträge)");
    Trigger("mnuBearbeitenUndo");
    Selector()->setValue(3);
    EXPECT_EQ(TextOf("DDMSN"), "MSN 4");
}

TEST_F(WindowUndo, UndoingBackToWhatWasLoadedCountsAsSaved) {
    Click("btnErase");
    EXPECT_FALSE(Window->State().RegisterSaved);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(Window->State().RegisterSaved);
}

}  // namespace
}  // namespace norvik::test
