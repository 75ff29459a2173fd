#include "qt/highcontrast.h"

#include "tests/qt/windowfixture.h"

#include <QStyle>

namespace norvik::test {

namespace {

class WindowHighContrast : public WindowTest {
  protected:
    /// The system tells of other colours.
    static void ChangeColours(QEvent::Type type = QEvent::ApplicationPaletteChange) {
        QEvent event(type);
        QApplication::sendEvent(qApp, &event);
        QCoreApplication::processEvents();
    }
    static QString StyleOf(const QWidget& widget) { return widget.style()->name(); }
};

TEST_F(WindowHighContrast, IsDrawnInTheColoursOfThePaletteAloneAsLongAsItIsWanted) {
    Open();
    static bool wanted = false;  // as long as the application asks
    const QString usual = StyleOf(*Window);
    ASSERT_NE(usual, "windows");
    FollowHighContrast(*qApp, [] { return wanted; });
    EXPECT_EQ(StyleOf(*Window), usual);
    wanted = true;
    EXPECT_EQ(StyleOf(*Window), usual) << "nobody has told of it";
    ChangeColours();
    EXPECT_EQ(StyleOf(*Window), "windows");
    ChangeColours(QEvent::ThemeChange);
    EXPECT_EQ(StyleOf(*Window), "windows");
    wanted = false;
    ChangeColours(QEvent::ThemeChange);
    EXPECT_EQ(StyleOf(*Window), usual);
    ChangeColours();
    EXPECT_EQ(StyleOf(*Window), usual);
}

TEST_F(WindowHighContrast, IsThereFromTheStartWhereItIsWanted) {
    Open();
    static bool wanted = true;
    const QString usual = StyleOf(*Window);
    FollowHighContrast(*qApp, [] { return wanted; });
    EXPECT_EQ(StyleOf(*Window), "windows");
    wanted = false;
    ChangeColours();
    EXPECT_EQ(StyleOf(*Window), usual);
}

}  // namespace

}  // namespace norvik::test
