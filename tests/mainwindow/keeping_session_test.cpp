// The end of the user's session.
#include "tests/mainwindow/keepingfixture.h"

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(KeepingTest, TheEndOfTheSessionAsksNothingOfASavedRegister) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    EXPECT_TRUE(EndSession(program, session, false, desktop));
    EXPECT_THAT(session.Transcript, IsEmpty());
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_THAT(Kept(), IsEmpty());
}

TEST_F(KeepingTest, TheEndOfTheSessionKeepsWhatCountsAsSavedAndNoFileHolds) {
    Start(RegisterOf({Entry(u"Anna", u"1", u"Info"), Entry(u"Bert", u"2")}), 2);
    Erase();
    Save193(folder / "a.t9t", Button::No);
    desktop.Transcript.clear();
    EXPECT_TRUE(EndSession(program, session, false, desktop));
    EXPECT_THAT(session.Transcript, IsEmpty());
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_THAT(Kept(), ElementsAre("beim Beenden nicht gesichert: Anna"));
}

TEST_F(KeepingTest, TheEndOfTheSessionKeepsWithoutAQuestionWhereNoneIsAllowed) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Erase();
    desktop.Transcript.clear();
    session.Allows = false;
    EXPECT_TRUE(EndSession(program, session, false, desktop));
    EXPECT_THAT(session.Transcript, ElementsAre("ask"));
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_THAT(Kept(), ElementsAre("beim Beenden nicht gesichert: Bert"));
}

TEST_F(KeepingTest, TheEndOfTheSessionAsksNothingOfABusyProgram) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Erase();
    desktop.Transcript.clear();
    EXPECT_TRUE(EndSession(program, session, true, desktop));
    EXPECT_THAT(session.Transcript, IsEmpty());
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_THAT(Kept(), ElementsAre("beim Beenden nicht gesichert: Bert"));
}

TEST_F(KeepingTest, TheUserLetsTheSessionEndOrGoOn) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Erase();
    desktop.Transcript.clear();
    desktop.AnswerBox(Button::Cancel).AnswerBox(Button::Ok);
    EXPECT_FALSE(EndSession(program, session, false, desktop));
    EXPECT_THAT(session.Transcript, ElementsAre("ask", "cancel"));
    EXPECT_THAT(Kept(), ElementsAre("beim Beenden nicht gesichert: Bert"));
    EXPECT_TRUE(EndSession(program, session, false, desktop));
    EXPECT_THAT(session.Transcript, ElementsAre("ask", "cancel", "ask", "release"));
    const std::string question = "box \"Beenden ohne zu sichern?\" title \"Sicherheitsabfrage\" "
                                 "icon Question buttons Ok+Cancel default Cancel -> ";
    EXPECT_THAT(desktop.Transcript, ElementsAre(question + "Cancel", question + "Ok"));
    EXPECT_THAT(Kept(), SizeIs(1));
}

}  // namespace
}  // namespace norvik::test
