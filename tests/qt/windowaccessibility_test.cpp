// What a screen reader finds in the window. What it is told, through the bus that it uses, is
// tested in the folder tests/screenreader/ with the running program.
#include "tests/qt/windowfixture.h"

#include <QAccessible>

namespace norvik::test {

namespace {

using testing::ElementsAre;

class WindowAccessibility : public WindowTest {
  protected:
    std::string Describes(const QString& name) const {
        const auto* widget = Find<QWidget>(name);
        EXPECT_EQ(widget->toolTip(), widget->accessibleDescription());
        return widget->accessibleDescription().toStdString();
    }
};

TEST_F(WindowAccessibility, TheNameOfALabelIsTheValueItShows) {
    Load({{.name = "Anna", .tel = "1", .gebEinh = 10}, {.name = "Bernd", .tel = "2"}});
    for (const char* name : {"Status", "AnzNr", "AnzGes", "AnzMarkiert", "AnzQuelle",
                             "AnzQuellZeit", "AnzGeb", "Index"}) {
        EXPECT_EQ(Find<QLabel>(name)->accessibleName(), Find<QLabel>(name)->text()) << name;
        EXPECT_FALSE(Find<QLabel>(name)->accessibleDescription().isEmpty()) << name;
    }
    EXPECT_EQ(TextOf("AnzGeb"), "1,20");
}

TEST_F(WindowAccessibility, ALabelWithoutAValueSaysThatItHasNone) {
    Make();
    EXPECT_EQ(Find<QLabel>("Status")->accessibleName(), "Statuszeile: leer");
    EXPECT_EQ(Find<QLabel>("Status")->accessibleDescription(), "Statuszeile");
}

TEST_F(WindowAccessibility, TheColourOfTheButtonIsSaidInWords) {
    Load({{.name = "Anna", .tel = "1"}});
    EXPECT_EQ(Describes("btnSaveChange"), "");
    Click("chkTon");
    EXPECT_EQ(Describes("btnSaveChange"), "Änderungen sind noch nicht übernommen");
    Click("btnSaveChange");
    EXPECT_EQ(Describes("btnSaveChange"), "Der Eintrag oder die Markierung ist übernommen");
}

TEST_F(WindowAccessibility, TheListKnowsItsRows) {
    Load(NumberedRegisterFile(3));
    const QAccessibleInterface* list = QAccessible::queryAccessibleInterface(List());
    EXPECT_EQ(list->role(), QAccessible::List);
    ASSERT_EQ(list->childCount(), 3);
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), "#2: Name 0002 (2)");
    EXPECT_TRUE(list->child(0)->state().selected);
    EXPECT_FALSE(list->child(1)->state().selected);
}

TEST_F(WindowAccessibility, ThePictureIsAButton) {
    Open();
    QAccessibleInterface* picture = QAccessible::queryAccessibleInterface(Find<QWidget>("Bild1"));
    EXPECT_EQ(picture->role(), QAccessible::Button);
    EXPECT_EQ(picture->text(QAccessible::Name), "Rufnummer umwandeln (Test)");
    Dialogs.Cancel();
    picture->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Dialogs.Transcript.empty(); }));
    EXPECT_THAT(Dialogs.Transcript, ElementsAre("input \"Testeingabe Internationalisierung\" title "
                                                "\"NORVIK\" preset \"\""));
}

}  // namespace

}  // namespace norvik::test
