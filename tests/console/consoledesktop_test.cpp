#include "console/consoledesktop.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

/// What the box puts out, and the answer.
std::pair<std::string, Button> Asked(ConsoleDesktop& desktop, const MessageBox& box) {
    testing::internal::CaptureStderr();
    const Button answer = desktop.Ask(box);
    desktop.PrintMessages();
    return {testing::internal::GetCapturedStderr(), answer};
}

TEST(ConsoleDesktop, PrintsWhatABoxTells) {
    ConsoleDesktop desktop;
    using Pair = std::pair<std::string, Button>;
    EXPECT_EQ(Asked(desktop, {.text = u"Abweichender Header", .icon = Icon::Exclamation}),
              Pair("Abweichender Header\n", Button::Ok));
    EXPECT_EQ(Asked(desktop, {.text = u"eins\r\nzwei\r\n"}), Pair("eins\nzwei\n", Button::Ok));
    EXPECT_EQ(desktop.Findings(), 2);
}

TEST(ConsoleDesktop, PrintsAWarningAndGoesOn) {
    ConsoleDesktop desktop;
    const auto asked = Asked(desktop, {.text = u"Vorsicht",
                                       .icon = Icon::Exclamation,
                                       .buttons = {Button::Cancel, Button::Ok},
                                       .defaultButton = Button::Cancel});
    EXPECT_EQ(asked.first, "Vorsicht\n");
    EXPECT_EQ(desktop.Findings(), 0);  // it asks whether to go on
    EXPECT_EQ(asked.second, Button::Ok);
}

TEST(ConsoleDesktop, AgreesToAQuestionInSilence) {
    ConsoleDesktop desktop;
    const auto asked = Asked(desktop, {.text = u"Diesen Eintrag exportieren?",
                                       .icon = Icon::Question,
                                       .buttons = {Button::Yes, Button::No, Button::Cancel},
                                       .defaultButton = Button::Cancel});
    EXPECT_EQ(asked.first, "");
    EXPECT_EQ(asked.second, Button::Yes);
    EXPECT_EQ(desktop.Findings(), 0);
}

TEST(ConsoleDesktop, TakesTheDefaultWhereThereIsNoWayToAgree) {
    ConsoleDesktop desktop;
    EXPECT_EQ(Asked(desktop, {.text = u"x",
                              .icon = Icon::Question,
                              .buttons = {Button::Abort, Button::Retry, Button::Ignore},
                              .defaultButton = Button::Ignore})
                  .second,
              Button::Ignore);
}

TEST(ConsoleDesktop, AnswersWithTheMsn) {
    EXPECT_EQ(ConsoleDesktop().AskForText({.prompt = u"MSN zu", .title = u""}), u"0");
    EXPECT_EQ(ConsoleDesktop({.Msn = u"7"}).AskForText({.prompt = u"MSN zu", .title = u""}), u"7");
}

TEST(ConsoleDesktop, ChoosesNoFileAndShowsNothing) {
    ConsoleDesktop desktop;
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    EXPECT_EQ(desktop.AskForFileToOpen({}), std::nullopt);
    EXPECT_EQ(desktop.AskForFileToSave({}), std::nullopt);
    desktop.SetStatus(u"Sortiere, Durchgang 1");
    desktop.Beep();
    desktop.SetPointer(Pointer::Hourglass);
    desktop.ShowEntry();
    desktop.RebuildList();
    desktop.ShowCurrentFile();
    desktop.FocusField(0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(ConsoleDesktop, PrintsEachMessageOnceWithHowOftenItCame) {
    ConsoleDesktop desktop({.Source = u"a.pbo"});
    testing::internal::CaptureStderr();
    for (int i = 0; i < 3; ++i) {
        desktop.Ask({.text = u"eins\r\nzwei"});
        desktop.Ask({.text = u"drei"});
    }
    desktop.Ask({.text = u"vier\r\n\r\n"});
    desktop.PrintMessages();
    desktop.Ask({.text = u"drei"});
    desktop.PrintMessages();
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "a.pbo: eins\na.pbo: zwei (3-mal)\na.pbo: drei (3-mal)\na.pbo: vier\na.pbo: drei\n");
    EXPECT_EQ(desktop.Findings(), 8);
}

TEST(ConsoleDesktop, SaysNothingWhenItIsSilent) {
    ConsoleDesktop desktop({.Silent = true});
    EXPECT_EQ(Asked(desktop, {.text = u"x", .icon = Icon::Critical}).first, "");
    EXPECT_EQ(desktop.Findings(), 1);
}

TEST(ConsoleDesktop, TakesNoResultForAFinding) {
    ConsoleDesktop desktop;
    EXPECT_EQ(Asked(desktop, {.text = u"3", .title = u"Exportergebnis"}).first, "3\n");
    EXPECT_EQ(desktop.Findings(), 0);
}

}  // namespace
}  // namespace norvik::test
