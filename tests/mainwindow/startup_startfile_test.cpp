// The start file that start-up loads: from the settings file, from the command line, and what
// happens when it cannot be loaded.

#include "mainwindow/startup.h"

#include "base/runtimeerror.h"
#include "tests/mainwindow/startuptranscript.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <ctime>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#endif

namespace norvik::test {
namespace {

using NameList = std::vector<Text>;

const Bytes Header = Raw("06 0D 'TStCollection' 02 64 01");
const Bytes End = Raw("00");

/// Records of a 195 file.
const Bytes Bernd = Raw("02 00 02 01 06 05 'Bernd' 06 03 '222' 06 00 02 00 02 0F 02 00 02 00");
const Bytes Anna = Raw("02 01 02 02 06 04 'Anna' 06 03 '111' 06 02 '()' 02 85 02 0F 02 07 02 01");
/// One of a 193 file.
const Bytes Carl = Raw("02 00 02 01 06 04 'Carl' 06 03 '333' 02 00 02 C0 02 00 02 03");

std::string AutoloadBox(TextView path) {
    return OkBox(Text(path).append(u" kann nicht automatisch geladen werden"), u"Autoload",
                 "Critical");
}

/// The reading of a register file without findings.
const Transcript Reading = {"pointer Hourglass", "pointer Normal", "list", "file"};

class StartFile : public testing::Test {
  protected:
    StartFile() { Prog.Folder = Folder.Path(); }

    /// Starts with a settings file that names a start file, by its full path.
    void StartWith(const FilePath& name, TextView commandLine = u"") {
        Folder.Write("norvik.ini", "LoadFile = " + (Folder / name).string() + " \r\n");
        StartUp(Prog, commandLine, Desktop);
    }

    void ExpectOneEmptyEntry() {
        EXPECT_EQ(ContentsOf(Prog.State), ContentsOf(RegisterState()));
        EXPECT_EQ(Prog.State.AnzGes, 1);
        EXPECT_EQ(Prog.State.AnzNr, 1);
    }

    /// The path in a message: lowered, as every path of the settings file.
    [[nodiscard]] Text Lowered(const FilePath& name) const {
        return LowerCase(TextFromPath(Folder / name));
    }

    TestFolder Folder;
    Program Prog;
    ScriptedDesktop Desktop;
};

TEST_F(StartFile, OfThe195IsLoadedSortedAndItsFirstEntryShown) {
    const FilePath path = Folder.Write("reg.t9t", Join({Header, Bernd, Anna, End}));
    StartWith("reg.t9t");
    EXPECT_EQ(Desktop.Transcript,
              Concat({BeforeStartFile, Reading, SortWithOneSwap, FirstEntry, Ok}));
    EXPECT_EQ(Names(Prog.State), (NameList{u"Anna", u"Bernd"}));
    EXPECT_EQ(Order(Prog.State, 3), (std::vector<int>{2, 1, 3}));
    RegisterEntry anna = Entry(u"Anna", u"111", u"()");
    anna.RecIndex = 1;
    anna.RecNumber = 2;
    anna.Ton = 0x85;
    anna.GebEinh = 7;
    anna.AB = 1;
    EXPECT_EQ(Prog.State.Register(2), anna);
    EXPECT_EQ(Prog.State.AnzNr, 1);
    EXPECT_EQ(Prog.State.AnzMarkiert, 1);
    EXPECT_EQ(Prog.State.LoadedModel, u"195");
    EXPECT_EQ(Prog.State.File.Type, u"195");
    EXPECT_EQ(Prog.State.File.Path, path);
}

TEST_F(StartFile, OfThe193IsLoadedToo) {
    Folder.Write("reg.t9t", Join({Header, Carl, End}));
    StartWith("reg.t9t");
    EXPECT_EQ(Desktop.Transcript, Concat({BeforeStartFile, Reading, SortInOrder, FirstEntry, Ok}));
    EXPECT_EQ(Prog.State.LoadedModel, u"193");
    EXPECT_EQ(Prog.State.Register(1).MsnFilter, 0xCF);
    EXPECT_EQ(Prog.State.Register(1).AB, 0);
}

TEST_F(StartFile, IsLoadedOnceAndForgotten) {
    Folder.Write("reg.t9t", Join({Header, Anna, End}));
    StartWith("reg.t9t");
    EXPECT_EQ(Prog.Set.StartFile, u"");
    EXPECT_FALSE(Prog.Set.AutoloadFlag);
    EXPECT_EQ(Prog.Set.Table.Value(Setting::LoadFile), Lowered("reg.t9t"));
}

TEST_F(StartFile, LeavesTheRegisterSavedAndSetsTheWarning) {
    Folder.Write("reg.t9t", Join({Header, Anna, End}));
    StartWith("reg.t9t");
    EXPECT_TRUE(Prog.State.RegisterSaved);
    EXPECT_TRUE(Prog.State.WarnLineAccessZero);
}

TEST_F(StartFile, InUpperCaseIsFoundAndItsEndingAccepted) {
    const FilePath path = Folder.Write(u8"Daten/Büro/REG.T9T", Join({Header, Anna, End}));
    Folder.Write("norvik.ini", Join({Raw("'LoadFile = '"), BytesFromText(TextFromPath(path)),
                                     Raw("'  ' 0D 0A")}));
    StartUp(Prog, u"", Desktop);
    EXPECT_EQ(Desktop.Transcript, Concat({BeforeStartFile, Reading, SortInOrder, FirstEntry, Ok}));
    EXPECT_EQ(Prog.State.File.Path, path);
    EXPECT_EQ(CaptionOf(Prog.State.File), u"norvik Telefonregister - Datei: " + TextFromPath(path));
}

TEST_F(StartFile, WithARelativePathCountsFromTheFolderOfTheSettings) {
    const TestFolder elsewhere;
    const WorkingFolder working(elsewhere.Path());
    elsewhere.Write("reg.t9t", Join({Header, Bernd, End}));
    const FilePath path = Folder.Write("Daten/Reg.t9t", Join({Header, Anna, End}));
    Folder.Write("reg.t9t", Join({Header, Carl, End}));
    Folder.Write("norvik.ini", "LoadFile=daten/reg.t9t\r\n");
    StartUp(Prog, u"", Desktop);
    EXPECT_EQ(Names(Prog.State), NameList{u"Anna"});
    EXPECT_EQ(Prog.State.File.Path, path);
}

TEST_F(StartFile, OfTheCommandLineCountsFromTheWorkingFolder) {
    const TestFolder elsewhere;
    const WorkingFolder working(elsewhere.Path());
    elsewhere.Write("reg.t9t", Join({Header, Bernd, End}));
    Folder.Write("reg.t9t", Join({Header, Anna, End}));
    StartWith("reg.t9t", u"/lreg.t9t");
    EXPECT_EQ(Names(Prog.State), NameList{u"Bernd"});
    EXPECT_EQ(Prog.State.File.Path, FilePath("reg.t9t"));
}

TEST_F(StartFile, OfAThousandStepsOnTheSpotBesideAThousandFilesIsMissedAtOnce) {
    std::string path;
    for (int i = 0; i < 1000; ++i) {
        Folder.Write("datei" + std::to_string(i), "");
        path += "./";
    }
    Folder.Write("norvik.ini", "LoadFile=" + path + "fehlt.t9t\r\n");
    const std::clock_t start = std::clock();
    StartUp(Prog, u"", Desktop);
    // Of the processor's time, so that what runs beside does not count.
    EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC);
}

#ifndef _WIN32
TEST_F(StartFile, OfAnyDateIsLoaded) {
    const FilePath path = Folder.Write("reg.t9t", Join({Header, Anna, End}));
    for (const long long seconds : {-62'135'596'800LL, -9'300'000'000LL, 9'300'000'000LL}) {
        const std::array<timespec, 2> times = {{{seconds, 0}, {seconds, 0}}};
        ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times.data(), 0), 0);
        StartWith("reg.t9t");
        EXPECT_EQ(Names(Prog.State), NameList{u"Anna"});
    }
}
#endif

TEST_F(StartFile, WithADriveInItsPathIsLoadedAsARegisterFile) {
    Folder.Write("norvik.ini", "  LoadFile = C:\\Daten\\Reg.T9T  \r\n");
    // Where there are no drives it is a name in the program's folder.
    const Text missing =
        FilePath("C:\\Daten").is_absolute() ? u"76Pfad nicht gefunden" : u"53Datei nicht gefunden";
    StartUp(Prog, u"", Desktop);
    EXPECT_EQ(Desktop.Questions(),
              (Transcript{"entry", "list", "file", OkBox(u"mnuLade193195: " + missing, u""),
                          "entry", "list"}));
}

TEST_F(StartFile, OfTheCommandLineOverridesTheSettings) {
    Folder.Write("alt.t9t", Join({Header, Bernd, End}));
    Folder.Write("Neu.t9t", Join({Header, Anna, End}));
    StartWith("alt.t9t", u"/g0,15 /L" + TextFromPath(Folder / "Neu.t9t"));
    EXPECT_EQ(Desktop.Transcript, Concat({BeforeStartFile, Reading, SortInOrder, FirstEntry, Ok}));
    EXPECT_EQ(Names(Prog.State), NameList{u"Anna"});
    EXPECT_EQ(Prog.Set.UnitPrice, 0.15);
}

TEST_F(StartFile, OfTheCommandLineNeedsNoSettingsFile) {
    Folder.Write("reg.t9t", Join({Header, Anna, End}));
    StartUp(Prog, u"/l" + TextFromPath(Folder / "reg.t9t"), Desktop);
    EXPECT_EQ(Names(Prog.State), NameList{u"Anna"});
}

TEST_F(StartFile, WithAnUnknownEndingGivesAMessageAndLeavesOneEmptyEntry) {
    Folder.Write("reg.txt", Join({Header, Anna, End}));
    StartWith("reg.txt");
    EXPECT_EQ(Desktop.Transcript,
              Concat({BeforeStartFile, {AutoloadBox(Lowered("reg.txt"))}, FirstEntry, Ok}));
    ExpectOneEmptyEntry();
    EXPECT_EQ(Prog.Set.StartFile, u"");
}

TEST_F(StartFile, WithoutAnEndingGivesTheSameMessage) {
    Folder.Write("norvik.ini", "LoadFile=t9\r\n");
    StartUp(Prog, u"", Desktop);
    EXPECT_EQ(Desktop.Transcript, Concat({BeforeStartFile, {AutoloadBox(u"t9")}, FirstEntry, Ok}));
    ExpectOneEmptyEntry();
}

TEST_F(StartFile, WithoutAPathGivesTheSameMessage) {
    Folder.Write("norvik.ini", "Unit=1\r\n");
    StartUp(Prog, u"/l", Desktop);
    EXPECT_EQ(Desktop.Transcript, Concat({BeforeStartFile, {AutoloadBox(u"")}, FirstEntry, Ok}));
    ExpectOneEmptyEntry();
}

TEST_F(StartFile, ThatIsMissingGivesTheReadersMessageAndLeavesOneEmptyEntry) {
    StartWith("fehlt.t9t");
    EXPECT_EQ(Desktop.Transcript, Concat({BeforeStartFile,
                                          {OkBox(u"mnuLade193195: 53Datei nicht gefunden", u"")},
                                          SortInOrder,
                                          FirstEntry,
                                          Ok}));
    ExpectOneEmptyEntry();
    EXPECT_EQ(CaptionOf(Prog.State.File), u"norvik Telefonregister - Datei: [keine]");
}

TEST_F(StartFile, InAMissingFolderGivesTheReadersMessage) {
    StartWith("fehlt/reg.t9t");
    EXPECT_EQ(Desktop.Transcript, Concat({BeforeStartFile,
                                          {OkBox(u"mnuLade193195: 76Pfad nicht gefunden", u"")},
                                          SortInOrder,
                                          FirstEntry,
                                          Ok}));
}

TEST_F(StartFile, ThatIsAFolderGivesTheReadersMessage) {
    std::filesystem::create_directory(Folder / "reg.t9t");
    StartWith("reg.t9t");
    EXPECT_EQ(Desktop.Transcript,
              Concat({BeforeStartFile,
                      {OkBox(u"mnuLade193195: 75Fehler beim Zugriff auf Pfad/Datei", u"")},
                      SortInOrder,
                      FirstEntry,
                      Ok}));
}

TEST_F(StartFile, WithoutEntriesIsNotSorted) {
    Folder.Write("reg.t9t", Join({Header, End}));
    StartWith("reg.t9t");
    EXPECT_EQ(Desktop.Transcript, Concat({BeforeStartFile, Reading, FirstEntry, Ok}));
    EXPECT_EQ(Prog.State.AnzGes, 0);
    EXPECT_EQ(Prog.State.AnzNr, 1);
    EXPECT_EQ(Prog.State.LoadedModel, u"195");
    EXPECT_TRUE(Prog.State.WarnLineAccessZero);
}

TEST_F(StartFile, OfNoByteAtAllOnlyHasADeviantHeader) {
    Folder.Write("reg.t9t", Bytes());
    StartWith("reg.t9t");
    EXPECT_EQ(Desktop.Transcript,
              Concat({BeforeStartFile,
                      {OkBox(u"Abweichender Header", u"norvik 195 laden", "Exclamation")},
                      Reading,
                      FirstEntry,
                      Ok}));
    EXPECT_EQ(Prog.State.AnzGes, 0);
}

TEST_F(StartFile, CutInTheMiddleKeepsWhatWasRead) {
    Bytes file = Join({Header, Bernd, Anna});
    file.resize(Header.size() + Bernd.size() + 8);  // behind "An"
    Folder.Write("reg.t9t", file);
    StartWith("reg.t9t");
    EXPECT_EQ(Desktop.Transcript,
              Concat({BeforeStartFile, Reading, SortWithOneSwap, FirstEntry, Ok}));
    EXPECT_EQ(Names(Prog.State), (NameList{u"An", u"Bernd"}));
    EXPECT_EQ(Prog.State.LoadedModel, u"195");
}

TEST_F(StartFile, CutAnywhereIsStillLoaded) {
    const Bytes whole = Join({Header, Bernd, Anna, End});
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        Folder.Write("reg.t9t", ByteView(whole).first(length));
        Folder.Write("norvik.ini", "LoadFile=" + (Folder / "reg.t9t").string());
        Program program;
        program.Folder = Folder.Path();
        ScriptedDesktop desktop;
        ASSERT_NO_THROW(StartUp(program, u"", desktop)) << length;
        const int records = length <= Header.size()                  ? 0
                            : length <= Header.size() + Bernd.size() ? 1
                                                                     : 2;
        EXPECT_EQ(program.State.AnzGes, records) << length;
        EXPECT_EQ(program.State.LoadedModel, u"195") << length;
        EXPECT_EQ(desktop.Statuses().back(), "OK") << length;
    }
}

TEST_F(StartFile, WithAValueTooLargeGivesTheReadersMessageAndTheStartGoesOn) {
    Folder.Write("reg.t9t", Join({Header, Raw("03 FF FF"), End}));
    StartWith("reg.t9t");
    EXPECT_EQ(Desktop.Transcript,
              Concat({BeforeStartFile,
                      {"pointer Hourglass", OkBox(u"mnuLade193195: 6Überlauf", u""), "file"},
                      FirstEntry,
                      SortInOrder,
                      FirstEntry,
                      Ok}));
    EXPECT_EQ(Prog.State.AnzGes, 1);
    EXPECT_FALSE(Prog.State.RegisterSaved);
}

TEST_F(StartFile, WithImpossibleValuesIsRepaired) {
    Folder.Write(
        "reg.t9t",
        Join({Header, Raw("02 00 02 01 06 04 'Anna' 06 03 '111' 06 00 02 00 02 0F 02 00 02 09"),
              End}));
    StartWith("reg.t9t");
    EXPECT_EQ(Desktop.Transcript,
              Concat({BeforeStartFile,
                      {"pointer Hourglass", "pointer Normal", "list",
                       OkBox(u"Es wurden 1 Fehler korrigiert\r\n\r\n#0[Anna] Ansage zu hoch: 9\r\n",
                             u"Fehlerprüfung", "Information"),
                       "file"},
                      SortInOrder,
                      FirstEntry,
                      Ok}));
    EXPECT_EQ(Prog.State.Register(1).AB, 0);
}

TEST_F(StartFile, WithABrokenRecordEndsTheProgram) {
    Folder.Write("reg.t9t", Join({Header, Raw("02 00 02 01 07 04 'Anna'"), End}));
    EXPECT_THROW(StartWith("reg.t9t"), HardStop);
    EXPECT_EQ(Desktop.Transcript, Concat({BeforeStartFile, {"pointer Hourglass"}}));
}

}  // namespace
}  // namespace norvik::test
