// Where earlier versions cannot be kept, and files that are overwritten where they stand.
#include "base/runtimeerror.h"
#include "dialogs/mobileexportfields.h"
#include "formats/calllist/calllist.h"
#include "formats/charges/chargestatement.h"
#include "formats/csv/csvmenu.h"
#include "formats/ip286/ip286menu.h"
#include "formats/phonebook175/phonebookfilemenu.h"
#include "mainwindow/startup.h"
#include "mainwindow/versionswindow.h"
#include "tests/mainwindow/keepingfixture.h"
#include "tests/support/processlimits.h"
#include "tests/support/smalldisk.h"

#include <fstream>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

constexpr std::string_view NotKept = " (der frühere Stand konnte nicht aufgehoben werden)";

class KeepingFaults : public KeepingTest {
  protected:
    /// A session in which something of every kind would be kept; gives the status of its save.
    std::string StatusOfASession() {
        Start(RegisterOfNames({u"Anna", u"Bert", u"Carl"}));
        EXPECT_EQ(StartKeeping(program), 0);
        Erase();
        Save195(folder.Write("a.t9t", Bytes(30'000, 'x')));
        const std::string status = desktop.Statuses().back();
        Erase();
        Load(folder / "a.t9t");
        EndKeepingEarly(program, Ending::Signal);
        for (const std::string& line : desktop.Transcript) {
            EXPECT_FALSE(line.starts_with("box")) << line;
        }
        EXPECT_THAT(Names(program.State), ElementsAre(u"Bert", u"Carl"));
        return status;
    }
    [[nodiscard]] std::string Saved() const {
        return "Gespeichert: " + (folder / "a.t9t").string();
    }
};

TEST_F(KeepingFaults, AFileInTheFoldersPlaceStopsNothing) {
    folder.Write("staende", "eine Datei");
    EXPECT_EQ(StatusOfASession(), Saved().append(NotKept));
    EXPECT_EQ(ReadFile(Store()), Raw("'eine Datei'"));
}

TEST_F(KeepingFaults, ALinkToNowhereStopsNothing) {
    fs::create_symlink(folder / "fort", Store());
    EXPECT_EQ(StatusOfASession(), Saved().append(NotKept));
    EXPECT_FALSE(fs::exists(folder / "fort"));
}

#ifndef _WIN32
TEST_F(KeepingFaults, AFolderThatMayNotBeWrittenStopsNothing) {
    fs::create_directory(Store());
    fs::permissions(Store(), fs::perms(0555));
    fs::permissions(folder.Path(), fs::perms(0777));
    const AsAnyUser user;
    EXPECT_EQ(StatusOfASession(), Saved().append(NotKept));
    EXPECT_THAT(FilesIn(Store()), IsEmpty());
}

TEST_F(KeepingFaults, AFullDiskStopsNothing) {
    fs::create_directory(Store());
    const SmallDisk disk(Store());
    if (!disk.IsMounted()) {
        GTEST_SKIP() << "no disk may be mounted here";
    }
    std::ofstream(Store() / "voll") << std::string(100'000, 'x');
    EXPECT_EQ(StatusOfASession(), Saved().append(NotKept));
    EXPECT_THAT(FilesIn(Store()), ElementsAre("voll"));
}

TEST_F(KeepingFaults, AnOldFileForWhichThereIsNoRoomIsReplacedAllTheSame) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    const FilePath path = folder.Write("a.t9t", Bytes(30'000, 'x'));
    {
        const FileSizeLimit limit(10'000);
        Save195(path);
    }
    EXPECT_EQ(desktop.Statuses().back(), Saved().append(NotKept));
    EXPECT_THAT(FilesIn(Store()), IsEmpty());
    Load(path);
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bert"));
}

TEST_F(KeepingFaults, AVersionThatIsKeptAlreadyNeedsNoRoom) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    const FilePath path = folder.Write("a.t9t", Bytes(30'000, 'x'));
    Save195(path);
    folder.Write("a.t9t", Bytes(30'000, 'x'));
    {
        const FileSizeLimit limit(10'000);
        Save195(path);
    }
    EXPECT_EQ(desktop.Statuses().back(),
              Saved().append(" (inzwischen geändert; der andere Stand ist aufgehoben)"));
    EXPECT_THAT(Kept(), ElementsAre("ersetzt: 30000 bytes of a.t9t"));
}
#endif

/// A save of the window, onto a file that has two names and so is overwritten where it stands.
struct OverwritingSave {
    std::string_view File;
    std::function<void(Program&, ScriptedDesktop&, const FilePath&)> Run;
    std::string_view Status;  ///< "" for "Gespeichert: " and the path
};

class KeepingOverwritten : public KeepingFaults {
  protected:
    void Plant(const FilePath& path) const {
        fs::remove(path);
        fs::remove(folder / "anderer Name");
        folder.Write(path.filename().string(), Bytes(30'000, 'x'));
        fs::create_hard_link(path, folder / "anderer Name");
    }
    void RunSave(const OverwritingSave& save) {
        desktop.Transcript.clear();
        Do([&] { save.Run(program, desktop, folder / save.File); });
    }
};

const std::vector<OverwritingSave> OverwritingSaves = {
    {"a.t9t",
     [](Program& program, ScriptedDesktop& desktop, const FilePath& path) {
         desktop.AnswerFile(path);
         mnuDateiSaveNV(program.State, desktop);
     },
     ""},
    {"b.t9t",
     [](Program& program, ScriptedDesktop& desktop, const FilePath& path) {
         desktop.AnswerFile(path).AnswerBox(Button::No);
         MNUDateiSave193(program.State, desktop);
     },
     ""},
    {"a.pbo",
     [](Program& program, ScriptedDesktop& desktop, const FilePath& path) {
         desktop.AnswerFile(path);
         mnuDateiSave175(program.State, desktop);
     },
     ""},
    {"a.csv",
     [](Program& program, ScriptedDesktop& desktop, const FilePath& path) {
         desktop.AnswerFile(path).AnswerBox(Button::No);
         mnuDateiSaveCSV(program.State, desktop);
     },
     ""},
    {"ip.csv",
     [](Program& program, ScriptedDesktop& desktop, const FilePath& path) {
         desktop.AnswerFile(path).AnswerText(std::nullopt);
         mnuDateiSaveIP286(program.State, desktop);
     },
     ""},
    {"a.pbb",
     [](Program& program, ScriptedDesktop& desktop, const FilePath& path) {
         desktop.AnswerFile(path).AnswerBox(Button::Ok);
         MobileExportFields fields = NVHE_Load(program.Set);
         fields.chkHE[UseReductionFlagsBox] = true;
         btnExport_Click(fields, program.State, program.Set, desktop);
     },
     "Telefonbuch exportiert"},
    {"a.geb",
     [](Program& program, ScriptedDesktop& desktop, const FilePath& path) {
         desktop.AnswerBox(Button::Ok).AnswerFile(path);
         mnuGebAuszug(program.State, program.Set, desktop);
     },
     "Gebührenauszug erstellt."},
    {"norvik.ini",
     [](Program& program, ScriptedDesktop& desktop, const FilePath& path) {
         program.Folder = path.parent_path();
         StoreSettings(program, NVSET_Load(program.Set), desktop);
     },
     "Einstellungen gespeichert"},
    {"norvik.ini",
     [](Program& program, ScriptedDesktop& desktop, const FilePath& path) {
         btnSaveSettings_Click(NVHE_Load(program.Set), program.Set, path.parent_path(), desktop);
     },
     "Einstellungen gespeichert"},
};

TEST_F(KeepingOverwritten, TheOldBytesAreKeptFirst) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    for (const OverwritingSave& save : OverwritingSaves) {
        fs::remove_all(Store());
        Plant(folder / save.File);
        RunSave(save);
        EXPECT_THAT(Kept(), ElementsAre("ersetzt: 30000 bytes of " + std::string(save.File)));
        EXPECT_NE(ReadFile(folder / "anderer Name"), Bytes(30'000, 'x')) << save.File;
        EXPECT_EQ(desktop.Statuses().back(), save.Status.empty()
                                                 ? "Gespeichert: " + (folder / save.File).string()
                                                 : std::string(save.Status))
            << save.File;
    }
}

TEST_F(KeepingOverwritten, WhereThatIsNotPossibleTheStatusSaysSo) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    folder.Write("staende", "eine Datei");
    for (const OverwritingSave& save : OverwritingSaves) {
        Plant(folder / save.File);
        RunSave(save);
        EXPECT_NE(ReadFile(folder / "anderer Name"), Bytes(30'000, 'x')) << save.File;
        EXPECT_EQ(desktop.Statuses().back(),
                  (save.Status.empty() ? "Gespeichert: " + (folder / save.File).string()
                                       : std::string(save.Status))
                      .append(NotKept))
            << save.File;
    }
}

TEST_F(KeepingOverwritten, AFileThatIsReplacedByAnotherIsKeptOnlyForARegister) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    for (const OverwritingSave& save : OverwritingSaves) {
        folder.Write(std::string(save.File), "alt");
        RunSave(save);
    }
    EXPECT_THAT(Kept(), ElementsAre(testing::MatchesRegex("ersetzt: 3 bytes of .*")));
}

TEST_F(KeepingOverwritten, TheCallsOfAList) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    const FilePath list = folder.Write("anrufe.t9a", Bytes(calllist::HeaderLength));
    const FilePath path = folder / "anrufe.csv";
    Plant(path);
    desktop.AnswerFile(list).AnswerReplace(true);
    Do([&] { mnuDateiConvCallListCSV(desktop); });
    EXPECT_THAT(Kept(), ElementsAre("ersetzt: 30000 bytes of anrufe.csv"));
    EXPECT_EQ(desktop.Statuses().back(), "Gespeichert: " + path.string());
}

TEST_F(KeepingOverwritten, TheNamesOfTheTones) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    program.Folder = folder.Path();
    folder.Write(FilePath("tonruf") / "01Hund.t9r", "");
    Plant(folder / "rt.lng");
    desktop.AnswerBox(Button::Ok);
    Do([&] { mnuNameRingtones(program, desktop); });
    EXPECT_THAT(Kept(), ElementsAre("ersetzt: 30000 bytes of rt.lng"));
    EXPECT_THAT(desktop.Statuses(), IsEmpty());
    Plant(folder / "rt.lng");
    fs::remove_all(Store());
    folder.Write("staende", "eine Datei");
    desktop.AnswerBox(Button::Ok);
    Do([&] { mnuNameRingtones(program, desktop); });
    EXPECT_THAT(desktop.Statuses(),
                ElementsAre(std::string("Klingeltonnamen gespeichert").append(NotKept)));
}

}  // namespace
}  // namespace norvik::test
