// The handlers of the tools: the test of the number conversion, the MSN removal, the option for
// doubled lines.
#include "mainwindow/handlers.h"

#include "tests/support/handlerfixture.h"

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

const std::string NumberInput =
    "input \"Testeingabe Internationalisierung\" title \"NORVIK\" preset \"\" -> ";

std::string ConvertedBox(TextView text) {
    return OkBox(text, u"Internationalisierung", "Information");
}

class NumberTest : public HandlerFixture {
  protected:
    NumberTest() {
        program.Set.InternationalPrefix = u"0049";
        program.Set.AreaPrefix = u"030";
        Given(RegisterOfNames({u"Anna", u"Bernd"}), 2);
    }
};

class KillMSN : public HandlerFixture {};
class ExtraDoubles : public HandlerFixture {};

TEST_F(NumberTest, ShowsTheInputAndTheInternationalNumber) {
    desktop.AnswerText(u"030 123-45");
    Bild1_Click(program, desktop);
    EXPECT_EQ(desktop.Transcript,
              (Lines{NumberInput + "\"030 123-45\"", ConvertedBox(u"030 123-45: 00493012345")}));
}

TEST_F(NumberTest, ConvertsWithTheLeadingZerosAndNotWithAPlus) {
    const std::vector<std::pair<TextView, TextView>> cases = {{u"12345", u"12345: 00493012345"},
                                                              {u"0171 1", u"0171 1: 00491711"},
                                                              {u"+43 1 2", u"+43 1 2: 004312"},
                                                              {u"0043 12", u"0043 12: 004312"}};
    for (const auto& example : cases) {
        desktop.Transcript.clear();
        desktop.AnswerText(Text(example.first));
        Bild1_Click(program, desktop);
        EXPECT_EQ(desktop.Transcript.at(1), ConvertedBox(example.second));
    }
}

TEST_F(NumberTest, AnEmptyOrCancelledAnswerEndsItSilently) {
    desktop.AnswerText(u"").AnswerText(std::nullopt);
    Bild1_Click(program, desktop);
    Bild1_Click(program, desktop);
    EXPECT_EQ(desktop.Transcript, (Lines{NumberInput + "\"\"", NumberInput + "cancel"}));
}

TEST_F(NumberTest, ShowsTheInputAsItWasTyped) {
    desktop.AnswerText(u"  Tel: 1 ");
    Bild1_Click(program, desktop);
    EXPECT_EQ(desktop.Transcript.at(1), ConvertedBox(u"  Tel: 1 : 0049301"));
}

TEST_F(NumberTest, StoresNothing) {
    const Contents before = ContentsOf(program.State);
    desktop.AnswerText(u"1");
    Bild1_Click(program, desktop);
    EXPECT_TRUE(ContentsOf(program.State) == before);
    EXPECT_TRUE(program.State.RegisterSaved);
    EXPECT_EQ(program.State.AnzNr, 2);
    EXPECT_EQ(Field(1), u"2");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Neutral);
}

const std::string MsnQuestion =
    "box \"Diese Aktion löscht alle Einstellungen zu abgehenden MSN!\\r\\n\" title \"MSN löschen\" "
    "icon Exclamation buttons Ok+Cancel default Cancel -> ";

RegisterState TwoWithMsn() {
    RegisterState state = RegisterOfNames({u"Anna", u"Bernd"});
    state.Register(1).MsnFilter = 0x93;  // MSN 4, counter on, VIP
    state.Register(2).MsnFilter = 0;
    return state;
}

TEST_F(KillMSN, ShowsTheMsnOfTheTelephoneAtOnceAndNothingElseAnew) {
    Given(TwoWithMsn());
    ASSERT_EQ(program.Fields.DDMSN, 4);
    Field(0) = u"being typed";
    program.Fields.btnSaveChange = EditState::Pending;
    desktop.AnswerBox(Button::Ok);

    mnuBearbeitenKillMSN(program, desktop);

    EXPECT_EQ(desktop.Transcript,
              (Lines{MsnQuestion + "Ok", "status \"2abgehende MSN-Einträge wurden gelöscht.\""}));
    EXPECT_EQ(program.Fields.DDMSN, 0);
    EXPECT_EQ(Field(0), u"being typed");
    EXPECT_EQ(Field(5), u"9F");
    EXPECT_TRUE(program.Fields.chkCharge);
    EXPECT_EQ(program.Fields.OptFilter, 2);
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
    EXPECT_EQ(program.State.Register(1).MsnFilter, 0x9F);
    EXPECT_EQ(program.State.Register(2).MsnFilter, 0x0F);
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(KillMSN, StoringTheShownEntryAfterwardsDoesNotBringTheMsnBack) {
    Given(TwoWithMsn());
    desktop.AnswerBox(Button::Ok);
    mnuBearbeitenKillMSN(program, desktop);
    btnSaveChange_Click(program, desktop);
    EXPECT_EQ(program.State.Register(1).MsnFilter, 0x9F);
}

TEST_F(KillMSN, CancelKeepsTheShownMsn) {
    Given(TwoWithMsn());
    const Contents before = ContentsOf(program.State);
    desktop.AnswerBox(Button::Cancel);
    mnuBearbeitenKillMSN(program, desktop);
    EXPECT_EQ(desktop.Transcript, Lines{MsnQuestion + "Cancel"});
    EXPECT_EQ(program.Fields.DDMSN, 4);
    EXPECT_TRUE(ContentsOf(program.State) == before);
}

TEST_F(ExtraDoubles, IsOffAtStart) {
    EXPECT_FALSE(Program().Fields.mnuExtraDoubles);
}

TEST_F(ExtraDoubles, EachClickReversesTheCheckMarkAndNothingElseHappens) {
    Given(RegisterOfNames({u"Anna"}));
    const Contents before = ContentsOf(program.State);
    mnuExtraDoubles(program);
    EXPECT_TRUE(program.Fields.mnuExtraDoubles);
    mnuExtraDoubles(program);
    EXPECT_FALSE(program.Fields.mnuExtraDoubles);
    EXPECT_EQ(desktop.Transcript, Lines());
    EXPECT_TRUE(ContentsOf(program.State) == before);
    EXPECT_TRUE(program.State.RegisterSaved);
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Neutral);
}

TEST_F(ExtraDoubles, ShowingAnEntryKeepsTheCheckMark) {
    Given(RegisterOfNames({u"Anna"}));
    mnuExtraDoubles(program);
    Satzwahl_Change(program, 1, desktop);
    EXPECT_TRUE(program.Fields.mnuExtraDoubles);
}

}  // namespace
}  // namespace norvik::test
