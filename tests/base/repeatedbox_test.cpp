#include "base/repeatedbox.h"

#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;

const std::string Shown = "box \"Frage?\" title \"NORVIK\" icon None buttons Yes+No default Yes";
const std::string Asked = "input \"MSN\" title \"Titel\" preset \"0\"";

MessageBox Question() {
    return {.text = u"Frage?", .buttons = {Button::Yes, Button::No}, .defaultButton = Button::Yes};
}

TEST(RepeatedBox, OffersToAnswerAllFurtherOnesAlikeFromTheFourthOn) {
    ScriptedDesktop desktop;
    RepeatedBox box(desktop);
    for (int i = 0; i < 5; ++i) {
        desktop.AnswerBox(Button::Yes);
        EXPECT_EQ(box.Ask(Question()), Button::Yes);
    }
    const std::string offering = Shown + " offering for all -> Yes";
    EXPECT_THAT(desktop.Transcript, ElementsAre(Shown + " -> Yes", Shown + " -> Yes",
                                                Shown + " -> Yes", offering, offering));
}

TEST(RepeatedBox, TheAnswerGivenForAllHoldsWithoutAnotherBox) {
    ScriptedDesktop desktop;
    desktop.TickedOffer = 2;
    RepeatedBox box(desktop);
    for (const Button answer : {Button::Yes, Button::Yes, Button::No, Button::Yes, Button::No}) {
        desktop.AnswerBox(answer);
    }
    std::vector<Button> answers;
    for (int i = 0; i < 7; ++i) {
        answers.push_back(box.Ask(Question()));
    }
    EXPECT_THAT(answers, ElementsAre(Button::Yes, Button::Yes, Button::No, Button::Yes, Button::No,
                                     Button::No, Button::No));
    EXPECT_EQ(desktop.Transcript.size(), 5U);
    EXPECT_EQ(desktop.Transcript.back(), Shown + " offering for all -> No for all");
}

TEST(RepeatedBox, AnotherOperationAsksAnew) {
    ScriptedDesktop desktop;
    desktop.TickedOffer = 1;
    for (int operation = 0; operation < 2; ++operation) {
        RepeatedBox box(desktop);
        for (int i = 0; i < 6; ++i) {
            box.Ask({.text = u"Hinweis"});
        }
    }
    // The second operation's offers are not ticked.
    EXPECT_EQ(desktop.Transcript.size(), 4U + 6U);
}

TEST(RepeatedInput, ATextForAllHoldsAndSoDoesACancelledOne) {
    const std::vector<std::optional<Text>> cases = {u"7", std::nullopt};
    for (const std::optional<Text>& answer : cases) {
        ScriptedDesktop desktop;
        desktop.TickedOffer = 1;
        RepeatedInput input(desktop);
        for (int i = 0; i < 3; ++i) {
            desktop.AnswerText(u"1");
            EXPECT_EQ(input.Ask({.prompt = u"MSN", .title = u"Titel", .preset = u"0"}), u"1");
        }
        desktop.AnswerText(answer);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(input.Ask({.prompt = u"MSN", .title = u"Titel", .preset = u"0"}), answer);
        }
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(Asked + " -> \"1\"", Asked + " -> \"1\"", Asked + " -> \"1\"",
                                Asked + " offering for all -> " + (answer ? "\"7\"" : "cancel") +
                                    " for all"));
    }
}

}  // namespace

}  // namespace norvik::test
