#include "tests/qt/windowfixture.h"

#include <QStyle>
#include <QStyleOptionSlider>
#include <QTextDocument>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string Question = "box \"Änderungen am Datensatz verwerfen?\" title "
                             "\"Sicherheitsabfrage\" icon None buttons Ja+Nein default Nein";

class WindowSelection : public WindowTest {
  protected:
    WindowSelection() {
        Load({{.name = "Anna", .tel = "1"},
              {.name = "Bernd", .tel = "2"},
              {.name = "Carla", .tel = "3"},
              {.name = "Doris", .tel = "4"}});
    }

    /// The middle of the selector's box, shifted by some records.
    QPoint SliderPoint(int records) const {
        QStyleOptionSlider option;
        option.initFrom(Selector());
        option.orientation = Qt::Horizontal;
        option.minimum = Selector()->minimum();
        option.maximum = Selector()->maximum();
        option.pageStep = Selector()->pageStep();
        option.sliderPosition = Selector()->sliderPosition();
        option.sliderValue = Selector()->value();
        option.subControls = QStyle::SC_All;
        const QStyle* style = Selector()->style();
        const QRect box = style->subControlRect(QStyle::CC_ScrollBar, &option,
                                                QStyle::SC_ScrollBarSlider, Selector());
        const QRect groove = style->subControlRect(QStyle::CC_ScrollBar, &option,
                                                   QStyle::SC_ScrollBarGroove, Selector());
        const int range = option.maximum - option.minimum;
        return box.center() + QPoint((groove.width() - box.width()) * records / range, 0);
    }
};

TEST_F(WindowSelection, TheSelectorShowsTheEntryOfItsValue) {
    Selector()->setValue(3);
    EXPECT_EQ(TextOf("AnzNr"), "3");
    EXPECT_EQ(TextOfField(0), "Carla");
    EXPECT_EQ(TextOf("Index"), "3");
    EXPECT_EQ(SelectedRow(), "#3: Carla (3)");
}

TEST_F(WindowSelection, TheSelectorStopsAtItsEnds) {
    Selector()->setValue(99);
    EXPECT_EQ(TextOf("AnzNr"), "4");
    EXPECT_EQ(TextOfField(0), "Doris");
    Selector()->setValue(-5);
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOfField(0), "Anna");
}

TEST_F(WindowSelection, TheArrowKeysMoveTheSelectorTheWayTheyPoint) {
    Selector()->setFocus();
    Press(Qt::Key_Right);
    EXPECT_EQ(TextOfField(0), "Bernd");
    Press(Qt::Key_Left);
    EXPECT_EQ(TextOfField(0), "Anna");
}

TEST_F(WindowSelection, TheSelectorIsMovedByTheKeyboard) {
    Selector()->setFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(TextOfField(0), "Bernd");
    Press(Qt::Key_End);
    EXPECT_EQ(TextOfField(0), "Doris");
    EXPECT_EQ(TextOf("AnzNr"), "4");
    Press(Qt::Key_Up);
    EXPECT_EQ(TextOfField(0), "Carla");
    Press(Qt::Key_PageUp);
    EXPECT_EQ(TextOfField(0), "Anna");
    EXPECT_EQ(SelectedRow(), "#1: Anna (1)");
    EXPECT_EQ(Window->focusWidget(), Selector());
}

TEST_F(WindowSelection, WhileDraggingOnlyTheNumberFollows) {
    Type(0, "x");
    QTest::mousePress(Selector(), Qt::LeftButton, Qt::NoModifier, SliderPoint(0));
    QTest::mouseMove(Selector(), SliderPoint(2));
    EXPECT_EQ(TextOf("AnzNr"), "3");
    EXPECT_EQ(TextOfField(0), "Annax");
    EXPECT_EQ(TextOf("Index"), "1");
    EXPECT_EQ(SelectedRow(), "#1: Anna (1)");
    QTest::mouseRelease(Selector(), Qt::LeftButton, Qt::NoModifier, SliderPoint(2));
    EXPECT_EQ(TextOf("AnzNr"), "3");
    EXPECT_EQ(TextOfField(0), "Carla");
    EXPECT_EQ(SelectedRow(), "#3: Carla (3)");
}

TEST_F(WindowSelection, DraggingBackToTheStartKeepsTheEntryAndWhatWasTyped) {
    Type(0, "x");
    Selector()->setSliderDown(true);
    Selector()->setSliderPosition(4);
    EXPECT_EQ(TextOf("AnzNr"), "4");
    Selector()->setSliderPosition(1);
    EXPECT_EQ(TextOf("AnzNr"), "1");
    Selector()->setSliderDown(false);
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOfField(0), "Annax");
}

TEST_F(WindowSelection, AClickOnARowShowsItsEntry) {
    ClickRow(2);
    EXPECT_EQ(TextOf("AnzNr"), "3");
    EXPECT_EQ(TextOfField(0), "Carla");
    EXPECT_EQ(Selector()->value(), 3);
    EXPECT_EQ(SelectedRow(), "#3: Carla (3)");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowSelection, AClickOnTheSelectedRowShowsItsEntryAgain) {
    Retype(0, "getippt");
    ClickRow(0);
    EXPECT_EQ(TextOfField(0), "Anna");
}

TEST_F(WindowSelection, AClickBelowTheRowsIsNoChoice) {
    Retype(0, "getippt");
    Click("chkTon");
    const QRect last = List()->visualRect(List()->model()->index(3, 0));
    const QPoint below(last.center().x(), last.bottom() + last.height());
    ASSERT_TRUE(List()->viewport()->rect().contains(below));
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, Qt::NoModifier, below);
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(ButtonColour(), Pending);
    EXPECT_EQ(SelectedRow(), "#1: Anna (1)");
}

TEST_F(WindowSelection, TheArrowKeysCountAsClicks) {
    List()->setFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(TextOfField(0), "Bernd");
    EXPECT_EQ(TextOf("AnzNr"), "2");
    Press(Qt::Key_End);
    EXPECT_EQ(TextOfField(0), "Doris");
    Press(Qt::Key_Up);
    EXPECT_EQ(TextOfField(0), "Carla");
    EXPECT_EQ(Selector()->value(), 3);
    EXPECT_EQ(Window->focusWidget(), List());
}

TEST_F(WindowSelection, PendingEditsAreDiscardedAfterYes) {
    Retype(0, "Xaver");
    Click("chkTon");
    Dialogs.Click(QMessageBox::Yes);
    ClickRow(2);
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Question));
    EXPECT_EQ(TextOfField(0), "Carla");
    EXPECT_EQ(ButtonColour(), NeutralColour());
    EXPECT_THAT(ShownNames(), ElementsAre("Anna", "Bernd", "Carla", "Doris"));
    EXPECT_TRUE(Window->close());
}

TEST_F(WindowSelection, PendingEditsAreStoredAfterNoWithoutSorting) {
    Retype(0, "Xaver");
    Click("chkCharge");
    Dialogs.Click(QMessageBox::No);
    ClickRow(2);
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Question));
    EXPECT_EQ(TextOf("AnzNr"), "3");
    EXPECT_EQ(TextOfField(0), "Carla");
    EXPECT_EQ(ButtonColour(), NeutralColour());
    EXPECT_THAT(Rows(),
                ElementsAre("#1: Xaver (1)", "#2: Bernd (2)", "#3: Carla (3)", "#4: Doris (4)"));
    EXPECT_EQ(SelectedRow(), "#3: Carla (3)");
    Selector()->setValue(1);
    EXPECT_TRUE(IsChecked("chkCharge"));
    Dialogs.Click(QMessageBox::Cancel);
    EXPECT_FALSE(Window->close());
}

TEST_F(WindowSelection, PendingEditsAreAskedForAtAnArrowKey) {
    Click("OptFilter(2)");
    List()->setFocus();
    Dialogs.Press(Qt::Key_Return);
    Press(Qt::Key_Down);
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Question));
    EXPECT_EQ(TextOfField(0), "Bernd");
    Selector()->setValue(1);
    EXPECT_TRUE(IsChecked("OptFilter(2)"));
}

TEST_F(WindowSelection, ClosingTheQuestionStoresAsNoDoes) {
    Click("OptFilter(3)");
    Dialogs.Press(Qt::Key_Escape);
    ClickRow(1);
    EXPECT_EQ(TextOfField(0), "Bernd");
    Selector()->setValue(1);
    EXPECT_TRUE(IsChecked("OptFilter(3)"));
}

TEST_F(WindowSelection, TheSelectorLosesPendingEditsWithoutAQuestion) {
    Retype(0, "Xaver");
    Click("chkTon");
    Selector()->setValue(2);
    Selector()->setValue(1);
    EXPECT_EQ(TextOfField(0), "Anna");
    EXPECT_FALSE(IsChecked("chkTon"));
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowSelection, TypedTextsAndStoredEntriesAreLeftWithoutAQuestion) {
    Retype(0, "Xaver");
    ClickRow(1);
    Click("chkTon");
    Choose("DDTon", 4);
    Click("btnSaveChange");
    ASSERT_EQ(ButtonColour(), Stored);
    ClickRow(3);
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
    EXPECT_EQ(TextOfField(0), "Doris");
}

TEST_F(WindowSelection, AnActiveFilterShowsListedEntriesOnly) {
    Click("chkListFilter");
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_EQ(TextOfField(0), "Anna");
    Click("chkListFilter");
    EXPECT_THAT(Rows(),
                ElementsAre("#1: Anna (1)", "#2: Bernd (2)", "#3: Carla (3)", "#4: Doris (4)"));
    EXPECT_EQ(SelectedRow(), "#1: Anna (1)");
}

TEST_F(WindowSelection, ChangingTheFilterKeepsWhatWasTypedAndTheEditState) {
    Retype(0, "getippt");
    Click("chkTon");
    Click("chkListFilter");
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_TRUE(IsChecked("chkTon"));
    EXPECT_EQ(ButtonColour(), Pending);
}

TEST_F(WindowSelection, AnEntryWithoutANameHasNoRowAndSelectsNone) {
    Click("btnNew");
    EXPECT_EQ(TextOf("AnzNr"), "5");
    EXPECT_EQ(SelectedRow(), "");
    EXPECT_EQ(Rows().size(), 4U);
    ClickRow(3);
    EXPECT_EQ(TextOfField(0), "Doris");
}

TEST_F(WindowSelection, RowsShowTheInfoAsItIsStored) {
    Load({{.name = "Anna", .tel = "1", .info = "eins   zwei"}, {.name = "B: (x)", .tel = ""}});
    EXPECT_THAT(Rows(), ElementsAre("#1: Anna (1) eins   zwei", "#2: B: (x) ()"));
    ClickRow(1);
    EXPECT_EQ(TextOfField(0), "B: (x)");
}

TEST_F(WindowSelection, ATooltipShowsMarkupInANameAsItStands) {
    Load({{.name = "<b>Anna</b>", .tel = "1"}});
    const QString tooltip = List()->model()->index(0, 0).data(Qt::ToolTipRole).toString();
    QTextDocument shown;
    if (Qt::mightBeRichText(tooltip)) {
        shown.setHtml(tooltip);
    } else {
        shown.setPlainText(tooltip);
    }
    EXPECT_EQ(shown.toPlainText().toStdString(), "#1: <b>Anna</b> (1)");
}

TEST_F(WindowSelection, AFullRegisterHasAllItsRows) {
    Load(NumberedRegisterFile(2000));
    EXPECT_EQ(TextOf("AnzGes"), "2000");
    EXPECT_EQ(Selector()->maximum(), 2000);
    EXPECT_EQ(Rows().size(), 2000U);
    ClickRow(1999);
    EXPECT_EQ(TextOf("AnzNr"), "2000");
    EXPECT_EQ(TextOfField(0), "Name 2000");
    Retype(0, "Aachen");
    Click("btnSaveChange");
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(Rows().front(), "#1: Aachen (2000)");
    EXPECT_EQ(Rows().back(), "#2000: Name 1999 (1999)");
    EXPECT_EQ(SelectedRow(), "#1: Aachen (2000)");
}

}  // namespace

}  // namespace norvik::test
