#include "tests/qt/windowfixture.h"

#include <QWheelEvent>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WindowEdit : public WindowTest {
  protected:
    WindowEdit() {
        Load({{.name = "Anna", .tel = "1", .gebEinh = 100},
              {.name = "Bernd", .tel = "2", .info = "()", .ton = 0x85, .msnFilter = 0xD3, .ab = 3},
              {.name = "Carla", .tel = "3", .ton = 0x80, .msnFilter = 7}});
    }

    /// The colour after leaving the entry and coming back.
    void ShowAgain() {
        Selector()->setValue(2);
        Selector()->setValue(1);
        ASSERT_EQ(ButtonColour(), NeutralColour());
    }
    std::string Diagnostics() const {
        std::string values;
        for (int field = 2; field <= 7; ++field) {
            values += (field == 2 ? "" : ", ") + TextOfField(field);
        }
        return values;
    }
};

TEST_F(WindowEdit, ShowsAllFieldsOfAnEntry) {
    Selector()->setValue(2);
    EXPECT_EQ(TextOfField(0), "Bernd");
    EXPECT_EQ(TextOfField(1), "2");
    EXPECT_EQ(TextOfField(8), Line("()"));
    EXPECT_EQ(TextOf("DDTon"), "2Klang 3");
    EXPECT_TRUE(IsChecked("chkTon"));
    EXPECT_EQ(TextOf("DDAB"), "Ansage 3");
    EXPECT_EQ(TextOf("DDMSN"), "MSN 4");
    EXPECT_TRUE(IsChecked("chkCharge"));
    EXPECT_TRUE(IsChecked("OptFilter(3)"));
    EXPECT_TRUE(IsChecked("chkExport"));
    EXPECT_EQ(Diagnostics(), "85, 0, 03, D3, 01 (2), 02 (2)");
    EXPECT_EQ(ButtonColour(), NeutralColour());
}

TEST_F(WindowEdit, TheNextEntryResetsWhatThePreviousShowed) {
    Selector()->setValue(2);
    Selector()->setValue(1);
    EXPECT_EQ(TextOf("DDTon"), "kein");
    EXPECT_FALSE(IsChecked("chkTon"));
    EXPECT_EQ(TextOf("DDAB"), "(normal)");
    EXPECT_EQ(TextOf("DDMSN"), "(lt. Telefon)");
    EXPECT_FALSE(IsChecked("chkCharge"));
    EXPECT_TRUE(IsChecked("OptFilter(0)"));
    EXPECT_FALSE(IsChecked("chkExport"));
}

TEST_F(WindowEdit, AToneOf128IsTheFirstToneWithTheBoxTicked) {
    Selector()->setValue(3);
    EXPECT_EQ(TextOf("DDTon"), "3Klang 1");
    EXPECT_TRUE(IsChecked("chkTon"));
}

TEST_F(WindowEdit, AnMsnOf6To14ShowsTheTelephones) {
    Selector()->setValue(3);
    EXPECT_EQ(TextOf("DDMSN"), "(lt. Telefon)");
}

TEST_F(WindowEdit, AHundredUnitsAt12CentAre12) {
    EXPECT_EQ(TextOf("AnzGeb"), "12,00");
    EXPECT_EQ(TextOfField(3), "100");
}

TEST_F(WindowEdit, ShowingAnEntryIsNoEdit) {
    for (int position = 1; position <= 3; ++position) {
        Selector()->setValue(position);
        EXPECT_EQ(ButtonColour(), NeutralColour()) << position;
        ClickRow(position - 1);
        EXPECT_EQ(ButtonColour(), NeutralColour()) << position;
    }
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowEdit, EveryChangeOfAChoiceControlIsAnEdit) {
    for (const char* box :
         {"chkTon", "chkCharge", "OptFilter(1)", "OptFilter(2)", "OptFilter(3)"}) {
        Click(box);
        EXPECT_TRUE(IsChecked(box)) << box;
        EXPECT_EQ(ButtonColour(), Pending) << box;
        ShowAgain();
    }
    for (const char* list : {"DDTon", "DDAB", "DDMSN"}) {
        Choose(list, 1);
        EXPECT_EQ(ButtonColour(), Pending) << list;
        ShowAgain();
    }
}

TEST_F(WindowEdit, AClickOnTheCallFilterThatIsOnAlreadyIsNoEdit) {
    Click("OptFilter(0)");
    Press(Qt::Key_Space);
    EXPECT_EQ(ButtonColour(), NeutralColour());
    Click("OptFilter(2)");
    EXPECT_EQ(ButtonColour(), Pending);
    Click("btnSaveChange");
    ASSERT_EQ(ButtonColour(), Stored);
    Click("OptFilter(2)");
    Press(Qt::Key_Space);
    EXPECT_EQ(ButtonColour(), Stored);
}

TEST_F(WindowEdit, ChoosingTheToneThatIsChosenAlreadyIsNoEdit) {
    auto* tones = Find<QComboBox>("DDTon");
    QTest::keyClick(tones, Qt::Key_Home);
    EXPECT_EQ(ButtonColour(), NeutralColour());
}

TEST_F(WindowEdit, TheWheelChangesNoChoice) {
    for (const char* name : {"DDTon", "DDAB", "DDMSN"}) {
        auto* list = Find<QComboBox>(name);
        const QPointF middle = QRectF(list->rect()).center();
        QWheelEvent wheel(middle, list->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(list, &wheel);
        EXPECT_EQ(list->currentIndex(), 0) << name;
    }
    EXPECT_EQ(ButtonColour(), NeutralColour());
}

TEST_F(WindowEdit, TypingIsNoEditAndChangesNothingInTheRegister) {
    Type(0, "x");
    Type(1, "9");
    Type(8, "y");
    EXPECT_EQ(ButtonColour(), NeutralColour());
    EXPECT_EQ(Rows().front(), "#1: Anna (1)");
    EXPECT_TRUE(Window->close());
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowEdit, AChoiceKeepsWhatWasTyped) {
    Retype(0, "Xaver");
    Type(13, "letzte");
    Click("chkTon");
    EXPECT_EQ(TextOfField(0), "Xaver");
    EXPECT_EQ(TextOfField(13), Line("letzte"));
}

TEST_F(WindowEdit, StoringTurnsTheButtonLightGreen) {
    Click("chkCharge");
    Click("btnSaveChange");
    EXPECT_EQ(ButtonColour(), Stored);
    Click("chkCharge");
    EXPECT_EQ(ButtonColour(), Pending);
    Click("btnSaveChange");
    EXPECT_EQ(ButtonColour(), Stored);
    Selector()->setValue(2);
    EXPECT_EQ(ButtonColour(), NeutralColour());
}

TEST_F(WindowEdit, StoringMovesTheDisplayToTheEntrysNewPosition) {
    Retype(0, "zoe");
    Retype(1, "0815");
    Type(8, "eins");
    Type(13, "sechs");
    Click("btnSaveChange");
    EXPECT_EQ(TextOf("AnzNr"), "3");
    EXPECT_EQ(Selector()->value(), 3);
    EXPECT_EQ(TextOf("Index"), "1");
    EXPECT_EQ(TextOfField(0), "zoe");
    EXPECT_EQ(TextOfField(8), Line("eins"));
    EXPECT_EQ(TextOfField(13), Line("sechs"));
    EXPECT_THAT(Rows(), ElementsAre("#1: Bernd (2) ()", "#2: Carla (3)",
                                    "#3: zoe (0815) eins" + std::string(101, ' ') + "sechs"));
    EXPECT_EQ(SelectedRow(), Rows().back());
    EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
}

TEST_F(WindowEdit, TickingTheToneBoxWithoutAToneIsDropped) {
    Click("chkTon");
    Click("btnSaveChange");
    EXPECT_FALSE(IsChecked("chkTon"));
    EXPECT_EQ(TextOfField(2), "00");
}

TEST_F(WindowEdit, Klingel1WithTheToneBoxTickedIs138) {
    Choose("DDTon", 11);
    ASSERT_EQ(TextOf("DDTon"), "Klingel 1");
    Click("chkTon");
    Click("btnSaveChange");
    EXPECT_EQ(TextOfField(2), "8A");
    EXPECT_TRUE(IsChecked("chkTon"));
}

TEST_F(WindowEdit, FilterVipWithTheCounterOnAndMsn3Is146) {
    Click("OptFilter(2)");
    Click("chkCharge");
    Choose("DDMSN", 3);
    Choose("DDAB", 7);
    Click("btnSaveChange");
    EXPECT_EQ(TextOfField(5), "92");
    EXPECT_EQ(TextOfField(4), "07");
}

TEST_F(WindowEdit, ErasingTheChargeCounterTakesEffectWhenTheEntryIsStored) {
    Click("btnEraseCharge");
    EXPECT_EQ(TextOf("AnzGeb"), "0,00");
    EXPECT_EQ(TextOfField(3), "100");
    EXPECT_EQ(ButtonColour(), Pending);
    Click("btnSaveChange");
    EXPECT_EQ(TextOfField(3), "0");
    EXPECT_EQ(TextOf("AnzGeb"), "0,00");
}

TEST_F(WindowEdit, ErasingTheChargeCounterAndMovingOnKeepsIt) {
    Click("btnEraseCharge");
    ShowAgain();
    EXPECT_EQ(TextOf("AnzGeb"), "12,00");
    EXPECT_EQ(TextOfField(3), "100");
}

TEST_F(WindowEdit, NewShowsAnEmptyEntryAtTheEndAndTheFocusGoesToItsName) {
    Enter(9);
    Click("btnNew");
    EXPECT_EQ(TextOf("AnzGes"), "4");
    EXPECT_EQ(TextOf("AnzNr"), "4");
    EXPECT_EQ(Selector()->maximum(), 4);
    EXPECT_EQ(Selector()->value(), 4);
    EXPECT_EQ(TextOfField(0), "");
    EXPECT_EQ(Diagnostics(), "00, 0, 00, 0F, 03 (4), 00 (4)");
    EXPECT_EQ(FocusedField(), 0);
    EXPECT_EQ(ButtonColour(), NeutralColour());
    TypeText(Window->focusWidget(), "Dora");
    Click("btnSaveChange");
    EXPECT_EQ(Rows().back(), "#4: Dora ()");
}

TEST_F(WindowEdit, NewAfterErasingReusesTheFreedPlace) {
    Click("btnErase");
    EXPECT_EQ(TextOf("AnzGes"), "2");
    Click("btnNew");
    EXPECT_EQ(TextOf("Index"), "1");
    EXPECT_EQ(TextOfField(6), "00 (3)");
    EXPECT_THAT(ShownNames(), ElementsAre("Bernd", "Carla", ""));
}

TEST_F(WindowEdit, NewOnAFullRegisterFailsBeforeAnythingIsChanged) {
    Load(NumberedRegisterFile(2000));
    Selector()->setValue(7);
    Dialogs.Click(QMessageBox::Ok);
    Click("btnNew");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OkBox("Laufzeitfehler '9':\n\nIndex außerhalb des gültigen Bereichs",
                                  "NORVIK", "Critical")));
    EXPECT_EQ(TextOf("AnzGes"), "2000");
    EXPECT_EQ(TextOf("AnzNr"), "7");
    EXPECT_EQ(Rows().size(), 2000U);
    EXPECT_TRUE(Window->close());
}

TEST_F(WindowEdit, EraseRemovesTheShownEntryWithoutAQuestion) {
    Selector()->setValue(2);
    Click("btnErase");
    EXPECT_EQ(TextOf("AnzGes"), "2");
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_EQ(TextOfField(0), "Carla");
    EXPECT_THAT(Rows(), ElementsAre("#1: Anna (1)", "#2: Carla (3)"));
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowEdit, ErasingTheLastEntryShowsTheNewLast) {
    Selector()->setValue(3);
    Click("btnErase");
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_EQ(Selector()->value(), 2);
    EXPECT_EQ(TextOfField(0), "Bernd");
}

TEST_F(WindowEdit, TheOnlyEntryStays) {
    Click("btnErase");
    Click("btnErase");
    Click("btnErase");
    EXPECT_EQ(TextOf("AnzGes"), "1");
    EXPECT_EQ(TextOfField(0), "Carla");
}

TEST_F(WindowEdit, ExportStoresTheEntryWithItsMark) {
    Retype(0, "Zoe");
    Click("chkTon");
    Choose("DDTon", 2);
    Click("chkExport");
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOf("AnzMarkiert"), "2");
    EXPECT_EQ(TextOfField(8), Line("()"));
    EXPECT_EQ(TextOfField(2), "81");
    EXPECT_TRUE(IsChecked("chkExport"));
    EXPECT_EQ(ButtonColour(), Stored);
    EXPECT_EQ(Rows().front(), "#1: Zoe (1) ()");
    Click("chkExport");
    EXPECT_EQ(TextOf("AnzMarkiert"), "1");
    EXPECT_EQ(TextOfField(8), Line(""));
    EXPECT_FALSE(IsChecked("chkExport"));
    EXPECT_EQ(ButtonColour(), Stored);
}

TEST_F(WindowEdit, UnmarkingAnEntryMarkedTwiceLeavesItMarked) {
    Retype(8, "()()");
    Click("btnSaveChange");
    ASSERT_TRUE(IsChecked("chkExport"));
    Click("chkExport");
    EXPECT_TRUE(IsChecked("chkExport"));
    EXPECT_EQ(TextOfField(8), Line("()"));
    EXPECT_EQ(TextOf("AnzMarkiert"), "2");
}

TEST_F(WindowEdit, ALongNameFromAFileIsShownCutAndStaysWholeUntilItIsStored) {
    Load({{.name = "Abcdefghijklmnopqrstuvwxyz", .tel = "1234567890123456789012345"}});
    const std::string row = "#1: Abcdefghijklmnopqrstuvwxyz (1234567890123456789012345)";
    EXPECT_EQ(TextOfField(0), "Abcdefghijklmnopqrstu");
    EXPECT_EQ(TextOfField(1), "123456789012345678901");
    EXPECT_THAT(Rows(), ElementsAre(row));
    Selector()->setValue(1);
    Click("chkListFilter");
    Click("chkListFilter");
    EXPECT_THAT(Rows(), ElementsAre(row));
    Click("btnSaveChange");
    EXPECT_THAT(Rows(), ElementsAre("#1: Abcdefghijklmnopqrstu (123456789012345678901)"));
}

}  // namespace

}  // namespace norvik::test
