#include "tests/qt/windowfixture.h"

#include <QWindow>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The test of the number conversion, in the area 030 of the country 49.
class WindowConversion : public WindowTest {
  protected:
    WindowConversion() {
        Folder.Write("norvik.ini", "CountryCode=49\r\nRegionCode=30\r\n");
        Load({{.name = "Anna", .tel = "1"}});
        Retype(0, "getippt");
    }
    ~WindowConversion() override {
        EXPECT_EQ(TextOfField(0), "getippt");
        EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
        EXPECT_EQ(ButtonColour(), NeutralColour());
        EXPECT_TRUE(Window->close()) << "nothing is stored";
    }

    /// Presses or releases the mouse as the screen does.
    void ClickPicture(Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(Window->windowHandle(), button, Qt::NoModifier, MiddleOfPicture());
        Activate();
    }
    QPoint MiddleOfPicture() const {
        const auto* picture = Find<QWidget>("Bild1");
        return picture->mapTo(Window.get(), picture->rect().center());
    }
    void TabToPicture() {
        const QWidget* picture = Find<QWidget>("Bild1");
        for (int i = 0; i < 60 && Window->focusWidget() != picture; ++i) {
            Press(Qt::Key_Tab);
        }
        ASSERT_EQ(Window->focusWidget(), picture);
    }

    const std::string Question =
        "input \"Testeingabe Internationalisierung\" title \"NORVIK\" preset \"\"";
    static std::string Answer(const QString& text) {
        return OkBox(text, "Internationalisierung", "Information");
    }
};

TEST_F(WindowConversion, AMouseClickConvertsANumber) {
    Dialogs.Type("0171/12 34").Click(QMessageBox::Ok);
    ClickPicture();
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Question, Answer("0171/12 34: 00491711234")));
}

TEST_F(WindowConversion, NumbersWithoutAnAreaOrWithACountry) {
    for (const char* number : {"1234", "+43 1", "0043 1"}) {
        Dialogs.Type(number).Click(QMessageBox::Ok);
        ClickPicture();
    }
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(Question, Answer("1234: 0049301234"), Question, Answer("+43 1: 00431"),
                            Question, Answer("0043 1: 00431")));
}

TEST_F(WindowConversion, SpaceAndReturnAndEnterConvertANumber) {
    TabToPicture();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        Dialogs.Transcript.clear();
        Dialogs.Type("1").Press(Qt::Key_Return);
        Press(key);
        Activate();
        EXPECT_THAT(Dialogs.Transcript, ElementsAre(Question, Answer("1: 0049301")));
        EXPECT_EQ(Window->focusWidget(), Find<QWidget>("Bild1")) << "the focus comes back";
    }
}

TEST_F(WindowConversion, NoOtherKeyOrMouseButtonDoes) {
    ClickPicture(Qt::RightButton);
    QTest::mousePress(Window->windowHandle(), Qt::LeftButton, Qt::NoModifier, MiddleOfPicture());
    QTest::mouseRelease(Window->windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
    TabToPicture();
    Press(Qt::Key_A);
    Press(Qt::Key_Escape);
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowConversion, NoAnswerEndsItSilently) {
    Dialogs.Cancel().Type("").Press(Qt::Key_Escape).Close();
    for (int i = 0; i < 4; ++i) {
        ClickPicture();
    }
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Question, Question, Question, Question));
}

TEST_F(WindowConversion, AnAnswerThatLooksLikeMarkupIsShownAsItStands) {
    Dialogs.Type("<b>1</b>").Click(QMessageBox::Ok);
    ClickPicture();
    EXPECT_EQ(Dialogs.Transcript.back(), Answer("<b>1</b>: 0049301"));
}

}  // namespace

}  // namespace norvik::test
