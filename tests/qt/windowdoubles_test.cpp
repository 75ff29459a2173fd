#include "tests/qt/windowfixture.h"

#include <QLabel>
#include <QTableWidget>

namespace norvik::test {

namespace {

using testing::ElementsAre;

class WindowDoubledNumbers : public WindowTest {
  protected:
    WindowDoubledNumbers() {
        Load({{.name = "Anna", .tel = "030"},
              {.name = "Bernd", .tel = "031"},
              {.name = "Carla", .tel = "030"},
              {.name = "Dora", .tel = "031"},
              {.name = "Emil", .tel = "032"}});
        Trigger("mnuListDoubles");
    }

    /// The window on the screen; null when there is none.
    QDialog* Doubles() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return Window->findChild<QDialog*>("DOUBLES");
    }
    QTableWidget* Table() const { return Find<QTableWidget>("ListDoubles"); }
    QPushButton* Button(const char* name) const { return Doubles()->findChild<QPushButton*>(name); }
    std::vector<std::string> Column(int column) const {
        std::vector<std::string> texts;
        for (int row = 0; row < Table()->rowCount(); ++row) {
            texts.push_back(Table()->item(row, column)->text().toStdString());
        }
        return texts;
    }
    void ClickRow(int row) const {
        QTest::mouseClick(Table()->viewport(), Qt::LeftButton, {},
                          Table()->visualItemRect(Table()->item(row, 1)).center());
    }
};

TEST_F(WindowDoubledNumbers, StandsBesideTheMainWindow) {
    ASSERT_NE(Doubles(), nullptr);
    EXPECT_FALSE(Doubles()->isModal());
    EXPECT_EQ(Doubles()->windowTitle(), "Doppelte Rufnummern");
    EXPECT_THAT(Column(0), ElementsAre("0030", "0030", "0031", "0031"));
    EXPECT_THAT(Column(1), ElementsAre("Anna", "Carla", "Bernd", "Dora"));
    EXPECT_THAT(Column(2), ElementsAre("030", "030", "031", "031"));
    EXPECT_THAT(Column(3), ElementsAre("1", "3", "2", "4"));
    EXPECT_FALSE(Button("btnErase")->isEnabled());
    Trigger("mnuListDoubles");
    EXPECT_EQ(Window->findChildren<QDialog*>("DOUBLES").size(), 1);
}

TEST_F(WindowDoubledNumbers, AClickShowsTheEntryAndTheButtonErasesIt) {
    ClickRow(1);
    EXPECT_EQ(TextOf("AnzNr"), "3");
    EXPECT_EQ(Field(0)->text().toStdString(), "Carla");
    Button("btnErase")->click();
    EXPECT_THAT(ShownNames(), ElementsAre("Anna", "Bernd", "Dora", "Emil"));
    EXPECT_THAT(Column(1), ElementsAre("Bernd", "Dora"));
    Trigger("mnuBearbeitenUndo");
    EXPECT_THAT(Column(1), ElementsAre("Anna", "Carla", "Bernd", "Dora"));
}

TEST_F(WindowDoubledNumbers, TheKeysShowTheEntriesToo) {
    Table()->setFocus();
    EXPECT_FALSE(Button("btnErase")->isEnabled());
    QTest::keyClick(Table(), Qt::Key_Home);
    EXPECT_EQ(TextOf("AnzNr"), "1");
    QTest::keyClick(Table(), Qt::Key_Down);
    EXPECT_EQ(TextOf("AnzNr"), "3");
    QTest::keyClick(Table(), Qt::Key_Down);
    EXPECT_EQ(TextOf("AnzNr"), "2");
}

TEST_F(WindowDoubledNumbers, ClosesWithItsButtonWithEscapeAndWithTheMainWindow) {
    Button("btnClose")->click();
    EXPECT_EQ(Doubles(), nullptr);
    Trigger("mnuListDoubles");
    QTest::keyClick(Doubles(), Qt::Key_Escape);
    EXPECT_EQ(Doubles(), nullptr);
    Trigger("mnuListDoubles");
    Window->close();
    EXPECT_EQ(Doubles(), nullptr);
}

}  // namespace

}  // namespace norvik::test
