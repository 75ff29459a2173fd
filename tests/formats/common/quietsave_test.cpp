#include "formats/common/quietsave.h"

#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TrySave, RunsTheWriteOnce) {
    ScriptedDesktop desktop;
    int runs = 0;
    EXPECT_FALSE(TrySave([&] { ++runs; }, desktop).has_value());
    EXPECT_EQ(runs, 1);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
}

TEST(TrySave, GivesTheErrorThatEndedTheWriteWithoutAMessage) {
    ScriptedDesktop desktop;
    const auto error = TrySave([] { throw RuntimeError(ErrorNumber::DiskFull); }, desktop);
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->Number(), ErrorNumber::DiskFull);
    EXPECT_THAT(desktop.Questions(), IsEmpty());
}

TEST(TrySave, ThePointerIsNormalAfterAnError) {
    ScriptedDesktop desktop;
    TrySave(
        [&] {
            desktop.SetPointer(Pointer::Hourglass);
            throw RuntimeError(ErrorNumber::DeviceError);
        },
        desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre("pointer Hourglass", "pointer Normal"));
}

TEST(TrySave, AHardStopIsNotHeld) {
    ScriptedDesktop desktop;
    EXPECT_THROW(TrySave([] { throw HardStop(); }, desktop), HardStop);
}

TEST(ReportNotSaved, SaysTheDescriptionInTheStatusLine) {
    ScriptedDesktop desktop;
    ReportNotSaved(RuntimeError(ErrorNumber::DiskFull), desktop);
    ReportNotSaved(RuntimeError(ErrorNumber::InvalidArgument), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre("status \"Nicht gespeichert: Datenträger voll\"",
                            "status \"Nicht gespeichert: Ungültiger Prozeduraufruf oder "
                            "ungültiges Argument\""));
}

TEST(ReportNotSaved, SaysNothingWithoutAnError) {
    ScriptedDesktop desktop;
    ReportNotSaved(std::nullopt, desktop);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
}

}  // namespace

}  // namespace norvik::test
