#include "mainwindow/keeping.h"

#include "base/runtimeerror.h"
#include "mainwindow/startup.h"
#include "tests/mainwindow/keepingfixture.h"

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
namespace fs = std::filesystem;

TEST_F(KeepingTest, WhereItLies) {
    EXPECT_EQ(VersionFolder("/usb/norvik", "/usb/norvik", "/home/a/.local/state"),
              "/usb/norvik/staende");
    EXPECT_EQ(VersionFolder("/home/a/.local/share/norvik", "/usr/bin", "/home/a/.local/state"),
              "/home/a/.local/state/norvik/staende");
}

TEST_F(KeepingTest, ALoadKeepsWhatNoSaveHolds) {
    Start(RegisterOfNames({u"Anna", u"Bert", u"Carl"}));
    Save195(folder / "a.t9t");
    Erase();
    Load(folder / "a.t9t");
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bert", u"Carl"));
    EXPECT_THAT(Kept(), ElementsAre("beim Laden nicht gesichert: Bert Carl"));
}

TEST_F(KeepingTest, AFileThatIsGoneOrAnotherNowHoldsNothing) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Save195(folder / "a.t9t");
    Save195(folder / "b.t9t");
    folder.Write("b.t9t", "anders");
    Load(folder / "a.t9t");
    EXPECT_THAT(Kept(), ElementsAre("beim Laden nicht gesichert: Anna Bert"));
    fs::remove(folder / "a.t9t");
    EndKeeping(program, VersionReason::NotSavedAtQuit);
    EXPECT_THAT(Kept(), testing::UnorderedElementsAre("beim Beenden nicht gesichert: Anna Bert",
                                                      "beim Laden nicht gesichert: Anna Bert"));
}

TEST_F(KeepingTest, ALoadKeepsNothingThatAFileHolds) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Erase();
    Save195(folder / "a.t9t");
    Load(folder / "a.t9t");
    EXPECT_THAT(Kept(), IsEmpty());
}

TEST_F(KeepingTest, ALoadThatFailsInItsMidstKeepsWhatStoodThere) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Erase();
    Load(folder.Write("kaputt.t9t", Raw("06 0D 'TStCollection' 02 64 01 03 00 00 09")));
    EXPECT_THAT(Kept(), ElementsAre("beim Laden nicht gesichert: Bert"));
}

TEST_F(KeepingTest, TheEndKeepsWhatNoSaveHolds) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Erase();
    EndKeeping(program, VersionReason::NotSavedAtQuit);
    EXPECT_THAT(Kept(), ElementsAre("beim Beenden nicht gesichert: Bert"));
    EXPECT_THAT(FilesIn(Store()), SizeIs(1));
}

TEST_F(KeepingTest, TheEndKeepsNothingThatAFileHolds) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    EndKeeping(program, VersionReason::NotSavedAtQuit);
    EXPECT_FALSE(fs::exists(Store()));
    Erase();
    Save195(folder / "a.t9t");
    EndKeeping(program, VersionReason::NotSavedAtQuit);
    EXPECT_THAT(FilesIn(Store()), IsEmpty());
}

TEST_F(KeepingTest, ASaveOfMarkedEntriesAloneHoldsNothing) {
    RegisterState state = RegisterOfNames({u"Anna", u"Bert"});
    SetExportMark(state, 2, true);
    Start(std::move(state));
    Field(NameField) = u"Anja";
    Do([&] { btnSaveChange_Click(program, desktop); });
    Save193(folder / "a.t9t", Button::Yes);
    EXPECT_TRUE(program.State.RegisterSaved);
    EndKeeping(program, VersionReason::NotSavedAtQuit);
    EXPECT_THAT(Kept(), ElementsAre("beim Beenden nicht gesichert: Anja Bert"));
}

TEST_F(KeepingTest, ASaveThatLosesInfoTextsHoldsNothing) {
    Start(RegisterOf({Entry(u"Anna", u"1", u"Info"), Entry(u"Bert", u"2")}), 2);
    Erase();
    Save193(folder / "a.t9t", Button::No);
    EXPECT_TRUE(program.State.RegisterSaved);
    EndKeeping(program, VersionReason::NotSavedAtQuit);
    EXPECT_THAT(Kept(), ElementsAre("beim Beenden nicht gesichert: Anna"));
}

TEST_F(KeepingTest, ThisProcessHasAFileWhileNoSaveHoldsItsRegister) {
    Start(RegisterOfNames({u"Anna", u"Bert", u"Carl"}));
    EXPECT_EQ(Sessions(), 0);
    Erase();
    EXPECT_EQ(Sessions(), 1);
    EXPECT_TRUE(platform::FileLock(FilePath(program.Keep.SessionFile).replace_extension(".lock"))
                    .IsHeldElsewhere());
    Erase();
    EXPECT_EQ(Sessions(), 1);
    EXPECT_THAT(
        Names(DecodeRegister(ReadVersion(program.Keep.SessionFile).value().Content).value()),
        ElementsAre(u"Carl"));
    Save195(folder / "a.t9t");
    EXPECT_EQ(Sessions(), 0);
}

TEST_F(KeepingTest, UndoingEverythingNeedsNoFile) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Erase();
    Do([&] { mnuBearbeitenUndo(program, desktop); });
    EXPECT_EQ(Sessions(), 0);
}

TEST_F(KeepingTest, WhatADeadProcessHeldBecomesAVersion) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Erase();
    program.Keep.Lock.reset();  // as the death of the process does
    Program next;
    next.Keep.Folder = Store();
    EXPECT_EQ(StartKeeping(next), 1);
    EXPECT_THAT(Kept(), ElementsAre("Programmabbruch: Bert"));
    EXPECT_THAT(FilesIn(Store()), SizeIs(1));
    EXPECT_EQ(next.Keep.Note, u"Das Programm wurde abgebrochen. Was nicht gesichert war, steht "
                              u"unter Datei, Frühere Stände.");
    EXPECT_EQ(StartKeeping(next), 0);
    EXPECT_EQ(next.Keep.Note, u"");
}

TEST_F(KeepingTest, ALivingProcessKeepsItsFile) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Erase();
    Program other;
    other.Keep.Folder = Store();
    EXPECT_EQ(StartKeeping(other), 0);
    EXPECT_EQ(other.Keep.Note, u"");
    EXPECT_EQ(Sessions(), 1);
    EXPECT_THAT(Kept(), IsEmpty());
}

TEST_F(KeepingTest, TheNextStartTellsOfAHardStop) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Erase();
    EndKeepingEarly(program, Ending::HardStop);
    EXPECT_THAT(Kept(), ElementsAre("Programmabbruch: Bert"));
    Program next;
    next.Keep.Folder = Store();
    EXPECT_EQ(StartKeeping(next), 0);
    EXPECT_EQ(next.Keep.Note, u"Das Programm hat sich an einer beschädigten Datei beendet. Was "
                              u"nicht gesichert war, steht unter Datei, Frühere Stände.");
    StartKeeping(next);
    EXPECT_EQ(next.Keep.Note, u"");
}

TEST_F(KeepingTest, AHardStopBeforeTheStartIsOverKeepsNoEmptyRegister) {
    ResetRegister(program.State);
    EndKeepingEarly(program, Ending::HardStop);
    EXPECT_THAT(Kept(), IsEmpty());
}

TEST_F(KeepingTest, TheNextStartTellsOfASignal) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Erase();
    EndKeepingEarly(program, Ending::Signal);
    EXPECT_THAT(Kept(), ElementsAre("beim Beenden nicht gesichert: Bert"));
    Program next;
    next.Keep.Folder = Store();
    StartKeeping(next);
    EXPECT_EQ(next.Keep.Note, u"Das Programm wurde von außen beendet. Was nicht gesichert war, "
                              u"steht unter Datei, Frühere Stände.");
}

TEST_F(KeepingTest, ASaveKeepsTheBytesThatItReplaces) {
    Start(RegisterOfNames({u"Anna"}));
    Save195(folder.Write("a.t9t", "alt"));
    EXPECT_THAT(Kept(), ElementsAre("ersetzt: 3 bytes of a.t9t"));
    EXPECT_EQ(desktop.Statuses().back(), "Gespeichert: " + (folder / "a.t9t").string());
}

TEST_F(KeepingTest, ASaveSaysThatTheFileHasChangedMeanwhile) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    const FilePath path = folder / "a.t9t";
    Save195(path);
    Save195(path);
    EXPECT_EQ(desktop.Statuses().back(), "Gespeichert: " + path.string());
    folder.Write("a.t9t", "fremd");
    Save195(path);
    EXPECT_EQ(desktop.Statuses().back(),
              "Gespeichert: " + path.string() +
                  " (inzwischen geändert; der andere Stand ist aufgehoben)");
    Save195(path);
    EXPECT_EQ(desktop.Statuses().back(), "Gespeichert: " + path.string());
}

TEST_F(KeepingTest, ASaveOfMarkedEntriesKnowsItsOwnFileAgain) {
    RegisterState state = RegisterOfNames({u"Anna", u"Bert"});
    SetExportMark(state, 2, true);
    Start(std::move(state));
    const FilePath path = folder / "a.t9t";
    Save195(path);
    Save193(path, Button::Yes);
    Save195(path);
    EXPECT_EQ(desktop.Statuses().back(), "Gespeichert: " + path.string());
}

TEST_F(KeepingTest, ALoadedFileThatChangedIsNoticed) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    const FilePath path = folder / "a.t9t";
    Save195(path);
    Program other = program;
    std::swap(program, other);
    program.Keep.Known.clear();
    Load(path);
    Erase();
    std::swap(program, other);
    Erase();
    Save195(path);
    std::swap(program, other);
    Save195(path);
    EXPECT_EQ(desktop.Statuses().back(),
              "Gespeichert: " + path.string() +
                  " (inzwischen geändert; der andere Stand ist aufgehoben)");
}

TEST_F(KeepingTest, WithoutAFolderNothingIsKept) {
    program.Keep.Folder.clear();
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    Erase();
    Save195(folder.Write("a.t9t", "alt"));
    EndKeepingEarly(program, Ending::HardStop);
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.t9t"));
}

}  // namespace
}  // namespace norvik::test
