#include "formats/registerfile/registerfilemenu.h"

#include "base/runtimeerror.h"
#include "tests/formats/registerfile/registerfilebytes.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;

const std::string Dialog = "open \"NV-195-Datei|*.t9t|Alle Dateien|*.*\" ending .t9t -> ";
const std::string AccessFailed =
    OkBox(u"Dateizugriff fehlgeschlagen!", u"Zugriffsfehler", "Critical");

Bytes Record(const std::string& name) {
    return Raw("0200 0201 06 01 '" + name + "' 06 01 '1' 06 00 0200 020F 0200 0200");
}

RegisterState Old() {
    RegisterState state = RegisterOf({Entry(u"b", u"1"), Entry(u"a", u"2"), Entry(u"c", u"3")});
    state.AnzNr = 3;
    state.Satzwahl.Value = 3;
    state.LoadedModel = u"175";
    state.File.Type = u"175";
    state.LoadReport = LongReport(u"old\r\n");
    return state;
}

TEST(MnuDateiLoadNV, LoadsSortsAndShowsEntry1) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", FileOf({Record("c"), Record("a"), Record("b")}));
    RegisterState state = Old();
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);
    desktop.OnShowEntry = [&] { EXPECT_EQ(EntryAt(state, state.AnzNr).Name, u"a"); };

    mnuDateiLoadNV(state, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(), "pointer Hourglass", "pointer Normal", "list",
                            "file", "pointer Hourglass", "status \"Sortiere, Durchgang 1\"",
                            "status \"Sortiert: 2\"", "status \"Sortiere, Durchgang 2\"",
                            "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"",
                            "pointer Normal", "status \"Sortieren beendet\"", "entry", "list"));
    EXPECT_THAT(Names(state), ElementsAre(u"a", u"b", u"c"));
    EXPECT_THAT(Order(state, 4), ElementsAre(2, 3, 1, 4));
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(state.Satzwahl.Value, 1);
    EXPECT_TRUE(state.WarnLineAccessZero);
    EXPECT_EQ(state.LoadedModel, u"195");
}

TEST(MnuDateiLoadNV, AFileThatFailsWhileReadingLeavesTheRegister) {
    const FilePath unreadable = "/proc/self/mem";
    if (!std::filesystem::is_regular_file(unreadable)) {
        GTEST_SKIP() << "needs " << unreadable;
    }
    const TestFolder folder;
    std::filesystem::create_symlink(unreadable, folder / "a.t9t");
    RegisterState state = Old();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.t9t");

    mnuDateiLoadNV(state, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + (folder / "a.t9t").string(), AccessFailed));
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_EQ(state.AnzGes, 3);
    EXPECT_EQ(state.AnzNr, 3);
}

TEST(ReportLoadNVError, FourErrorsAreFailedAccesses) {
    for (const ErrorNumber number : {ErrorNumber::FileNotFound, ErrorNumber::FileAlreadyOpen,
                                     ErrorNumber::DeviceError, ErrorNumber::BadFileName}) {
        ScriptedDesktop desktop;
        ReportLoadNVError(RuntimeError(number), desktop);
        EXPECT_THAT(desktop.Transcript, ElementsAre(AccessFailed)) << static_cast<int>(number);
    }
}

TEST(ReportLoadNVError, AnyOtherIsUndefined) {
    ScriptedDesktop desktop;
    ReportLoadNVError(RuntimeError(ErrorNumber::Overflow), desktop);
    ReportLoadNVError(RuntimeError(ErrorNumber::AccessDenied), desktop);
    ReportLoadNVError(RuntimeError(ErrorNumber::PathNotFound), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(OkBox(u"Undef'd Error: mnuDateiLoadNV:6Überlauf"),
                            OkBox(u"Undef'd Error: mnuDateiLoadNV:70Zugriff verweigert"),
                            OkBox(u"Undef'd Error: mnuDateiLoadNV:76Pfad nicht gefunden")));
}

TEST(MnuDateiLoadNV, ACancelledDialogDoesNothing) {
    RegisterState state = Old();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    mnuDateiLoadNV(state, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + "cancel"));
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_EQ(state.AnzNr, 3);
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST(MnuDateiLoadNV, ANameWithoutAPointGetsTheEnding) {
    const TestFolder folder;
    folder.Write("telefon.t9t", FileOf({Record("a")}));
    folder.Write("telefon", FileOf({Record("b")}));
    RegisterState state;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "telefon");
    mnuDateiLoadNV(state, desktop);
    EXPECT_THAT(Names(state), ElementsAre(u"a"));
    EXPECT_EQ(state.File.Path, folder / "telefon.t9t");
}

TEST(MnuDateiLoadNV, ANameWithAPointIsTakenAsItIs) {
    const TestFolder folder;
    folder.Write("telefon.bak", FileOf({Record("a")}));
    RegisterState state;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "telefon.bak");
    mnuDateiLoadNV(state, desktop);
    EXPECT_THAT(Names(state), ElementsAre(u"a"));
}

TEST(MnuDateiLoadNV, APointInAFolderIsNoneInTheName) {
    const TestFolder folder;
    folder.Write("v1.2/telefon.t9t", FileOf({Record("a")}));
    RegisterState state;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "v1.2" / "telefon");
    mnuDateiLoadNV(state, desktop);
    EXPECT_THAT(Names(state), ElementsAre(u"a"));
}

TEST(MnuDateiLoadNV, LeavesRegisterSavedAsItIs) {
    for (const bool saved : {true, false}) {
        const TestFolder folder;
        RegisterState state = Old();
        state.RegisterSaved = saved;
        ScriptedDesktop desktop;
        desktop.AnswerFile(folder.Write("a.t9t", FileOf({Record("a")})));
        mnuDateiLoadNV(state, desktop);
        EXPECT_EQ(state.RegisterSaved, saved);
    }
}

/// Loads `path`, which cannot be opened, and expects `message` and a register as it was.
void ExpectRefused(const FilePath& path, const std::string& message) {
    RegisterState state = Old();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);
    mnuDateiLoadNV(state, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + path.string(), message));
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_EQ(state.AnzGes, 3);
    EXPECT_EQ(state.AnzNr, 3);
    EXPECT_EQ(state.LoadedModel, u"175");
    EXPECT_EQ(state.File.Type, u"175");
    EXPECT_EQ(state.LoadReport, u"old\r\n");
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST(MnuDateiLoadNV, AMissingFileFailsToBeAccessed) {
    const TestFolder folder;
    ExpectRefused(folder / "a.t9t", AccessFailed);
}

TEST(MnuDateiLoadNV, AnImpossibleNameFailsToBeAccessed) {
    const TestFolder folder;
    ExpectRefused(folder / (std::string(300, 'n') + ".t9t"), AccessFailed);
}

TEST(MnuDateiLoadNV, ADeviceErrorFailsToBeAccessed) {
    const TestFolder folder;
    std::filesystem::create_symlink(folder / "loop.t9t", folder / "loop.t9t");
    ExpectRefused(folder / "loop.t9t", AccessFailed);
}

TEST(MnuDateiLoadNV, AFolderIsAnotherError) {
    const TestFolder folder;
    std::filesystem::create_directory(folder / "a.t9t");
    ExpectRefused(folder / "a.t9t",
                  OkBox(u"Undef'd Error: mnuDateiLoadNV:75Fehler beim Zugriff auf Pfad/Datei"));
}

TEST(MnuDateiLoadNV, AMissingFolderIsAnotherError) {
    const TestFolder folder;
    ExpectRefused(folder / "x" / "a.t9t",
                  OkBox(u"Undef'd Error: mnuDateiLoadNV:76Pfad nicht gefunden"));
}

TEST(MnuDateiLoadNV, AFileThatIsTooLargeIsAnotherError) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", "");
    std::filesystem::resize_file(path, 64U * 1024U * 1024U + 1U);
    ExpectRefused(path, OkBox(u"Undef'd Error: mnuDateiLoadNV:7Nicht genügend Speicher"));
}

TEST(MnuDateiLoadNV, AfterAFailedLoadTheOperationGoesOnWithTheEntriesReadWhole) {
    const TestFolder folder;
    const Bytes tooLarge = Raw("0201 0202 06 01 'z' 06 01 '2' 06 00 02 05 03 00 80 0200 0200");
    const FilePath path = folder.Write("a.t9t", FileOf({Record("c"), Record("b"), tooLarge}));
    RegisterState state = Old();
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);

    mnuDateiLoadNV(state, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(), "pointer Hourglass",
                            OkBox(u"mnuLade193195: 6Überlauf", u""), "file", "entry", "list",
                            "pointer Hourglass", "status \"Sortiere, Durchgang 1\"",
                            "status \"Sortiert: 1\"", "status \"Sortiere, Durchgang 2\"",
                            "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"",
                            "pointer Normal", "status \"Sortieren beendet\"", "entry", "list"));
    EXPECT_EQ(state.AnzGes, 2);
    EXPECT_THAT(Names(state), ElementsAre(u"b", u"c"));
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_TRUE(state.WarnLineAccessZero);
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_EQ(state.File.Type, u"195");
    EXPECT_EQ(state.File.Path, path);
}

TEST(MnuDateiLoadNV, AFailedLoadIsNotChecked) {
    const TestFolder folder;
    const Bytes badAnnouncement = Raw("0200 0201 06 01 'a' 06 00 06 00 0200 020F 0200 0209");
    const Bytes tooLarge = Raw("03 00 80");
    RegisterState state;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder.Write("a.t9t", FileOf({badAnnouncement, tooLarge})));
    mnuDateiLoadNV(state, desktop);
    EXPECT_EQ(desktop.Questions()[1], OkBox(u"mnuLade193195: 6Überlauf", u""));
    EXPECT_EQ(desktop.Questions().size(), 7U);
    EXPECT_EQ(state.Register(1).AB, 9);
}

TEST(MnuDateiLoadNV, AFileWithoutEntriesTakesTheSortierfehlerPath) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", FileOf({}));
    RegisterState state = Old();
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);
    EXPECT_THROW(mnuDateiLoadNV(state, desktop), HardStop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(), "pointer Hourglass", "pointer Normal", "list",
                            "file", "pointer Hourglass", "status \"Sortiere, Durchgang 1\"",
                            "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"",
                            OkBox(u"Sortierfehler", u"")));
}

TEST(MnuDateiLoadNV, AWrongStringTagStopsTheProgram) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", FileOf({Raw("0200 0201 02 00")}));
    RegisterState state;
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);
    EXPECT_THROW(mnuDateiLoadNV(state, desktop), HardStop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + path.string(), "pointer Hourglass"));
}

}  // namespace

}  // namespace norvik::test
