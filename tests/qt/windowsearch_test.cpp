#include "tests/qt/windowfixture.h"

namespace norvik::test {

namespace {

using testing::ElementsAre;

const std::string Input = "input \"Bitte Suchbegriff angeben\" title \"Suche nach\" preset \"\"";
const std::string NotFound = OkBox("Der Suchbegriff wurde nicht gefunden", "Suche", "Information");

class WindowSearch : public WindowTest {
  protected:
    WindowSearch() {
        Load({{.name = "Anna", .tel = "11"},
              {.name = "Meier, Hans", .tel = "22"},
              {.name = "Otto", .tel = "33", .info = "bei MEIER"},
              {.name = "Zoe", .tel = "44"}});
    }

    void Search(const QString& term) {
        Dialogs.Type(term);
        Click("btnSearch");
    }
    bool CanContinue() const { return Find<QAbstractButton>("btnSearchMore")->isEnabled(); }
};

TEST_F(WindowSearch, FindsATermRegardlessOfItsCase) {
    Search("mei");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Input));
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_EQ(TextOfField(0), "Meier, Hans");
    EXPECT_EQ(Selector()->value(), 2);
    EXPECT_EQ(SelectedRow(), "#2: Meier, Hans (22)");
    EXPECT_TRUE(CanContinue());
}

TEST_F(WindowSearch, ContinuesBehindTheShownEntryAndWrapsAtTheEnd) {
    Search("mei");
    Click("btnSearchMore");
    EXPECT_EQ(TextOfField(0), "Otto");
    Click("btnSearchMore");
    EXPECT_EQ(TextOfField(0), "Meier, Hans");
    Selector()->setValue(4);
    Click("btnSearchMore");
    EXPECT_EQ(TextOfField(0), "Meier, Hans");
}

TEST_F(WindowSearch, ANewSearchStartsAtEntryOne) {
    Selector()->setValue(3);
    Search("meier");
    EXPECT_EQ(TextOfField(0), "Meier, Hans");
}

TEST_F(WindowSearch, ATermThatOccursNowhereIsReportedAndTheEntryStays) {
    Selector()->setValue(3);
    Dialogs.Type("xyz").Click(QMessageBox::Ok);
    Click("btnSearch");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Input, NotFound));
    EXPECT_EQ(TextOf("AnzNr"), "3");
    EXPECT_EQ(TextOfField(0), "Otto");
    EXPECT_TRUE(CanContinue());
    Dialogs.Click(QMessageBox::Ok);
    Click("btnSearchMore");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Input, NotFound, NotFound));
}

TEST_F(WindowSearch, AnEmptyAnswerSearchesNothingAndDisablesContinuing) {
    Selector()->setValue(3);
    Search("mei");
    Selector()->setValue(3);
    Search("");
    EXPECT_FALSE(CanContinue());
    EXPECT_EQ(TextOfField(0), "Otto");
}

TEST_F(WindowSearch, ACancelledInputBoxDisablesContinuing) {
    Search("mei");
    Dialogs.Cancel();
    Click("btnSearch");
    EXPECT_FALSE(CanContinue());
    EXPECT_EQ(TextOfField(0), "Meier, Hans");
}

TEST_F(WindowSearch, ACancelledInputBoxKeepsWhatWasTyped) {
    Retype(0, "getippt");
    Click("chkTon");
    Dialogs.Press(Qt::Key_Escape);
    Click("btnSearch");
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(ButtonColour(), Pending);
}

TEST_F(WindowSearch, ReturnInTheInputBoxIsOk) {
    Dialogs.Look([](QDialog& dialog) { TypeText(dialog.findChild<QLineEdit*>(), "zoe"); })
        .Press(Qt::Key_Return);
    Click("btnSearch");
    EXPECT_EQ(TextOfField(0), "Zoe");
}

TEST_F(WindowSearch, TheInputBoxIsGerman) {
    Dialogs
        .Look([](QDialog& dialog) {
            std::vector<std::string> captions;
            for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
                captions.push_back(WithoutMnemonic(button->text()).toStdString());
            }
            EXPECT_THAT(captions, testing::UnorderedElementsAre("OK", "Abbrechen"));
        })
        .Cancel();
    Click("btnSearch");
}

TEST_F(WindowSearch, FindsAcrossTheEndsOfTheFields) {
    Search("ottobei");
    EXPECT_EQ(TextOfField(0), "Otto");
    Search("meier33");
    EXPECT_EQ(TextOfField(0), "Otto");
}

TEST_F(WindowSearch, FindsUmlauts) {
    Load({{.name = "\x8Erger", .tel = "1"}, {.name = "Bernd", .tel = "2"}});
    Search("äRG");
    EXPECT_EQ(TextOfField(0), "Ärger");
}

TEST_F(WindowSearch, ContinuingShowsTheEntryAnew) {
    Search("zoe");
    Retype(0, "getippt");
    Click("btnSearchMore");
    EXPECT_EQ(TextOfField(0), "Zoe");
}

}  // namespace

}  // namespace norvik::test
