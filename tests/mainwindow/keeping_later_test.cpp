// What could not be kept, or stands in a file no longer, is kept as soon as that works.
#include "dialogs/mobileexportfields.h"
#include "formats/calllist/calllist.h"
#include "formats/charges/chargestatement.h"
#include "formats/ip286/ip286menu.h"
#include "formats/registerfile/registerfilemenu.h"
#include "mainwindow/keeping.h"
#include "mainwindow/undo.h"
#include "tests/support/handlerfixture.h"
#include "tests/support/testfolder.h"
#include "versions/keptregister.h"

#include <gmock/gmock.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

class KeepingLater : public HandlerFixture {
  protected:
    KeepingLater() {
        program.Keep.Folder = folder / "staende";
        desktop.OnBeforeReplacing = [this](const FilePath& path) {
            return KeepReplaced(program, path);
        };
        Given(RegisterOfNames({u"Anna", u"Bert", u"Carl"}));
        StartHistory(program.Past, program.State);
        Save(folder / "a.t9t");
    }

    void Do(const std::function<void()>& operation) {
        RunStep(program, u"Änderung", operation, desktop);
    }
    void Erase() {
        Do([&] { btnErase_Click(program, desktop); });
    }
    void Look() {
        Do([&] { Satzwahl_Change(program, 2, desktop); });
    }
    void Save(const FilePath& path) {
        desktop.AnswerFile(path);
        Do([&] { mnuDateiSaveNV(program.State, desktop); });
    }
    void Load(const FilePath& path) {
        desktop.AnswerFile(path);
        Do([&] { mnuDateiLoadNV(program.State, desktop); });
    }
    void BlockFolder() { folder.Write("staende", "eine Datei"); }
    void FreeFolder() { fs::remove(folder / "staende"); }

    /// "why: names" or "why: file" of every version, the newest first.
    [[nodiscard]] std::vector<std::string> Kept() const {
        std::vector<std::string> kept;
        for (const Version& version : ListVersions(program.Keep.Folder)) {
            std::string line = Utf8(DescriptionOf(version.Why)) + ":";
            if (version.IsRegister) {
                for (const Text& name :
                     Names(DecodeRegister(ReadVersion(version.File).value().Content).value())) {
                    line += " " + Utf8(name);
                }
            } else {
                line += " " + version.Original.filename().string();
            }
            kept.push_back(line);
        }
        return kept;
    }
    /// The same after a death of the process and the next start.
    std::vector<std::string> KeptAfterADeath() {
        program.Keep.Lock.reset();
        Program next;
        next.Keep.Folder = program.Keep.Folder;
        StartKeeping(next);
        return Kept();
    }

    TestFolder folder;
};

TEST_F(KeepingLater, WhatALoadReplacesIsKeptByTheNextOperation) {
    BlockFolder();
    Erase();
    Load(folder / "a.t9t");
    FreeFolder();
    Look();
    EXPECT_THAT(Kept(), ElementsAre("beim Laden nicht gesichert: Bert Carl"));
    EXPECT_FALSE(IsKeepingBehind(program));
}

TEST_F(KeepingLater, OrAtTheEnd) {
    BlockFolder();
    Erase();
    Load(folder / "a.t9t");
    FreeFolder();
    EndKeeping(program, VersionReason::NotSavedAtQuit);
    EXPECT_THAT(Kept(), ElementsAre("beim Laden nicht gesichert: Bert Carl"));
}

TEST_F(KeepingLater, TheFileOfTheProcessIsWrittenByTheNextOperation) {
    BlockFolder();
    Erase();
    EXPECT_TRUE(IsKeepingBehind(program));
    FreeFolder();
    Look();
    EXPECT_FALSE(IsKeepingBehind(program));
    EXPECT_THAT(KeptAfterADeath(), ElementsAre("Programmabbruch: Bert Carl"));
}

TEST_F(KeepingLater, AReplacedFileIsKeptByTheNextOperation) {
    BlockFolder();
    Save(folder.Write("b.t9t", "alt"));
    EXPECT_EQ(desktop.Statuses().back(), "Gespeichert: " + (folder / "b.t9t").string() +
                                             " (der frühere Stand konnte nicht aufgehoben werden)");
    FreeFolder();
    Look();
    EXPECT_THAT(Kept(), ElementsAre("ersetzt: b.t9t"));
}

TEST_F(KeepingLater, NoMoreThanTenWait) {
    BlockFolder();
    for (int i = 10; i < 22; ++i) {
        Save(folder.Write("b.t9t", std::to_string(i)));
    }
    EXPECT_EQ(program.Keep.NotKept.size(), 10U);
    EXPECT_EQ(program.Keep.NotKept.front().Content, Raw("'12'"));
}

TEST_F(KeepingLater, ASaveThatHoldsLessOverTheOnlyFileLeavesTheRegisterToTheProcess) {
    Do([&] { EntryAt(program.State, 1).Info = u"im Garten"; });
    Save(folder / "a.t9t");
    EXPECT_FALSE(program.Keep.SessionFileStands);
    desktop.AnswerFile(folder / "a.t9t").AnswerBox(Button::No);
    Do([&] { MNUDateiSave193(program.State, desktop); });
    EXPECT_TRUE(program.Keep.SessionFileStands);
}

TEST_F(KeepingLater, AnExportKeepsTheFileThatItReplaces) {
    const FilePath file = folder.Write("b.csv", "alt");
    desktop.AnswerFile(file).AnswerText(u"");
    Do([&] { mnuDateiSaveIP286(program.State, desktop); });
    EXPECT_THAT(Kept(), ElementsAre("ersetzt: b.csv"));
}

TEST_F(KeepingLater, TheMobileExportToo) {
    desktop.AnswerFile(folder.Write("b.pbb", "alt")).AnswerBox(Button::Ok);
    desktop.AnswerBox(Button::Cancel);
    Do([&] { btnExport_Click({}, program.State, program.Set, desktop); });
    EXPECT_THAT(Kept(), ElementsAre("ersetzt: b.pbb"));
}

TEST_F(KeepingLater, TheChargesToo) {
    desktop.AnswerBox(Button::Ok).AnswerFile(folder.Write("b.geb", "alt"));
    Do([&] { mnuGebAuszug(program.State, program.Set, desktop); });
    EXPECT_THAT(Kept(), ElementsAre("ersetzt: b.geb"));
}

TEST_F(KeepingLater, TheCallListToo) {
    folder.Write("b.csv", "alt");
    const FilePath calls =
        folder.Write("b.t9a", Raw("'12345678901234567890' 02 01 06 0A '0512241830' 06 07 '0301234'"
                                  "01"));
    desktop.AnswerReplace(true).AnswerText(u"1");
    Do([&] { ConvertCallList(calls, desktop); });
    EXPECT_THAT(Kept(), ElementsAre("ersetzt: b.csv"));
}

}  // namespace
}  // namespace norvik::test
