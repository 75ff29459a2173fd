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
    const SaveResult result = TrySave(
        "/a.t9t", [&](const OutputTarget& /*target*/) { ++runs; }, desktop);
    EXPECT_FALSE(result.Failure.has_value());
    EXPECT_EQ(result.Path, "/a.t9t");
    EXPECT_EQ(result.Remark, u"");
    EXPECT_EQ(runs, 1);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
}

TEST(TrySave, GivesTheErrorThatEndedTheWriteWithoutAMessage) {
    ScriptedDesktop desktop;
    const auto error =
        TrySave(
            "/a.t9t",
            [](const OutputTarget& /*target*/) { throw RuntimeError(ErrorNumber::DiskFull); },
            desktop)
            .Failure;
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->Number(), ErrorNumber::DiskFull);
    EXPECT_THAT(desktop.Questions(), IsEmpty());
}

TEST(TrySave, ThePointerIsNormalAfterAnError) {
    ScriptedDesktop desktop;
    TrySave(
        "/a.t9t",
        [&](const OutputTarget& /*target*/) {
            desktop.SetPointer(Pointer::Hourglass);
            throw RuntimeError(ErrorNumber::DeviceError);
        },
        desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre("pointer Hourglass", "pointer Normal"));
}

TEST(TrySave, AHardStopIsNotHeld) {
    ScriptedDesktop desktop;
    EXPECT_THROW(TrySave(
                     "/a.t9t", [](const OutputTarget& /*target*/) { throw HardStop(); }, desktop),
                 HardStop);
}

TEST(TrySave, TellsTheDesktopFirstAndTheStatusWhatThatSays) {
    ScriptedDesktop desktop;
    std::vector<std::string> order;
    desktop.OnBeforeReplacing = [&](const FilePath& path) {
        order.push_back("replaces " + path.string());
        return Text(u" (anders)");
    };
    RegisterState state;
    EndSave(
        state,
        TrySave(
            "/a.t9t",
            [&](const OutputTarget& target) { order.push_back("writes " + target.Path.string()); },
            desktop),
        desktop);
    EXPECT_THAT(order, ElementsAre("replaces /a.t9t", "writes /a.t9t"));
    EXPECT_THAT(desktop.Transcript, ElementsAre("status \"Gespeichert: /a.t9t (anders)\""));
}

TEST(TrySave, TellsTheDesktopWhenTheFileIsOverwrittenWhereItStands) {
    ScriptedDesktop desktop;
    std::vector<std::string> order;
    desktop.OnBeforeOverwriting = [&](const FilePath& path) {
        order.push_back("overwrites " + path.string());
        return Text(u" (nicht aufgehoben)");
    };
    const auto overwrite = [](const OutputTarget& target) { target.BeforeOverwriting("/b.t9t"); };
    EXPECT_EQ(TrySave("/a.t9t", overwrite, desktop).Remark, u" (nicht aufgehoben)");
    EXPECT_THAT(order, ElementsAre("overwrites /b.t9t"));
    desktop.OnBeforeOverwriting = nullptr;
    desktop.OnBeforeReplacing = [](const FilePath&) { return Text(u" (anders)"); };
    EXPECT_EQ(TrySave("/a.t9t", overwrite, desktop).Remark, u" (anders)");
}

TEST(ShowNotSaved, SaysTheDescriptionInTheStatusLine) {
    ScriptedDesktop desktop;
    ShowNotSaved(RuntimeError(ErrorNumber::DiskFull), desktop);
    ShowNotSaved(RuntimeError(ErrorNumber::InvalidArgument), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre("status \"Nicht gespeichert: Datenträger voll\"",
                            "status \"Nicht gespeichert: Ungültiger Prozeduraufruf oder "
                            "ungültiges Argument\""));
}

TEST(ShowNotSaved, SaysWhatIsAtFaultWhereThatIsKnown) {
    ScriptedDesktop desktop;
    ShowNotSaved(RuntimeError(ErrorNumber::Overflow, u"#1 B: 70000 Einheiten"), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre("status \"Nicht gespeichert: Überlauf (#1 B: 70000 Einheiten)\""));
}

TEST(ShowSaved, SaysThePath) {
    ScriptedDesktop desktop;
    ShowSaved(FilePath(u"/tmp/Жук ü.t9t"), desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre("status \"Gespeichert: /tmp/??? ü.t9t\""));
}

TEST(EndSave, AGoodSaveReplacesTheStatusOfAFailedOne) {
    RegisterState state;
    ScriptedDesktop desktop;
    EndSave(state, {.Path = "/a.t9t", .Failure = RuntimeError(ErrorNumber::DiskFull)}, desktop);
    EXPECT_FALSE(state.RegisterSaved);
    EndSave(state, {.Path = "/a.t9t"}, desktop);
    EXPECT_FALSE(state.RegisterSaved);  // that is the writers' to set
    EXPECT_THAT(desktop.Transcript, ElementsAre("status \"Nicht gespeichert: Datenträger voll\"",
                                                "status \"Gespeichert: /a.t9t\""));
}

TEST(SaveOrSay, SaysOfAnErrorThatNothingWasSavedAndLetsItGoOn) {
    ScriptedDesktop desktop;
    SaveOrSay([] {}, desktop);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_THROW(SaveOrSay([] { throw RuntimeError(ErrorNumber::DiskFull); }, desktop),
                 RuntimeError);
    EXPECT_THAT(desktop.Transcript, ElementsAre("status \"Nicht gespeichert: Datenträger voll\""));
}

}  // namespace

}  // namespace norvik::test
