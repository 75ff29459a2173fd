#include "mainwindow/operations.h"

#include "tests/support/handlerfixture.h"

#include <gtest/gtest.h>

#include <new>

namespace norvik::test {
namespace {

std::string ErrorBox(TextView text) {
    return OkBox(text, u"NORVIK", "Critical");
}

TEST(ReportUnhandled, ShowsNumberAnEmptyLineAndTheDescription) {
    ScriptedDesktop desktop;
    ReportUnhandled(RuntimeError(ErrorNumber::DiskFull), desktop);
    EXPECT_EQ(desktop.Transcript,
              std::vector<std::string>{ErrorBox(u"Laufzeitfehler '61':\r\n\r\nDatenträger voll")});
}

TEST(RunOperation, RunsTheOperationOnceAndLeavesTheNormalPointer) {
    ScriptedDesktop desktop;
    RunOperation([&] { desktop.SetStatus(u"läuft"); }, desktop);
    EXPECT_EQ(desktop.Transcript, (std::vector<std::string>{"status \"läuft\"", "pointer Normal"}));
}

TEST(RunOperation, ARunTimeErrorBecomesABoxUnderTheNormalPointer) {
    ScriptedDesktop desktop;
    RunOperation(
        [&] {
            desktop.SetPointer(Pointer::Hourglass);
            throw RuntimeError(ErrorNumber::IndexOutOfRange);
        },
        desktop);
    EXPECT_EQ(desktop.Transcript,
              (std::vector<std::string>{
                  "pointer Hourglass", "pointer Normal",
                  ErrorBox(u"Laufzeitfehler '9':\r\n\r\nIndex außerhalb des gültigen Bereichs")}));
}

TEST(RunOperation, MemoryRunningOutIsErrorSeven) {
    ScriptedDesktop desktop;
    RunOperation([] { throw std::bad_alloc(); }, desktop);
    EXPECT_EQ(
        desktop.Transcript,
        (std::vector<std::string>{
            "pointer Normal", ErrorBox(u"Laufzeitfehler '7':\r\n\r\nNicht genügend Speicher")}));
}

TEST(RunOperation, AHardStopPassesThroughWithoutAMessage) {
    ScriptedDesktop desktop;
    EXPECT_THROW(RunOperation([] { throw HardStop(); }, desktop), HardStop);
    EXPECT_EQ(desktop.Questions(), std::vector<std::string>());
}

TEST(RunOperation, AfterAnErrorTheNextOperationRuns) {
    ScriptedDesktop desktop;
    RunOperation([] { throw RuntimeError(ErrorNumber::Overflow); }, desktop);
    desktop.Transcript.clear();
    RunOperation([&] { desktop.Beep(); }, desktop);
    EXPECT_EQ(desktop.Transcript, (std::vector<std::string>{"beep", "pointer Normal"}));
}

class RunOperationOnWindow : public HandlerFixture {};

TEST_F(RunOperationOnWindow, NewOnAFullRegisterShowsErrorNineAndTheProgramGoesOn) {
    RegisterState full = RegisterOf({});
    SetCount(full, 2000);
    Given(full, 1);

    RunOperation([&] { btnNew_Click(program, desktop); }, desktop);
    RunOperation([&] { Satzwahl_Change(program, 2000, desktop); }, desktop);

    EXPECT_EQ(desktop.Transcript,
              (std::vector<std::string>{
                  "pointer Normal",
                  ErrorBox(u"Laufzeitfehler '9':\r\n\r\nIndex außerhalb des gültigen Bereichs"),
                  "entry", "pointer Normal"}));
    EXPECT_EQ(program.State.AnzGes, 2000);
    EXPECT_EQ(program.State.AnzNr, 2000);
}

}  // namespace
}  // namespace norvik::test
