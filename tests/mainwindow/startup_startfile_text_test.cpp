// Start files of the 175, CSV and vCard files as start files: loaded as by their menu items, and
// reported as by them.

#include "mainwindow/startup.h"

#include "base/runtimeerror.h"
#include "tests/mainwindow/startuptranscript.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using NameList = std::vector<Text>;

const std::string Identification = "norvik 175 phonebook\r\n";
const std::string NoInfo = "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\n";
const std::string Bernd = "N=Bernd\r\nP=2\r\n" + NoInfo;
const std::string Anna = "N=Anna\r\nP=1\r\nI=()\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\n";
const std::string Cards = "BEGIN:VCARD\nFN:Bernd\nTEL:2\nEND:VCARD\n"
                          "BEGIN:VCARD\nFN:Anna\nTEL:1\nEND:VCARD\n";
const std::string Table = "Name;Tel;Info1\r\nBernd;2\r\nAnna;1;()\r\n";

/// The reading of a phonebook file, and of a CSV file, without findings.
const Transcript Reading175 = {"pointer Hourglass", "pointer Normal", "file", "list"};
const Transcript ReadingCSV = {"file"};

std::string Undefined(TextView rest) {
    return OkBox(Text(u"Undef'd Error: ").append(rest));
}

/// The working folder, for paths that stand in no folder.
class WorkingFolder {
  public:
    explicit WorkingFolder(const FilePath& folder) : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;
    WorkingFolder(WorkingFolder&&) = delete;
    WorkingFolder& operator=(WorkingFolder&&) = delete;
    ~WorkingFolder() { std::filesystem::current_path(before_); }

  private:
    FilePath before_;
};

class TextStartFile : public testing::Test {
  protected:
    TextStartFile() { Prog.Folder = Folder.Path(); }

    /// Starts with a settings file that names a start file, by its full path.
    void StartWith(const FilePath& name) {
        Folder.Write("norvik.ini", "LoadFile=" + (Folder / name).string() + "\r\n");
        StartUp(Prog, u"", Desktop);
    }

    /// Starts with a file of these bytes and expects what stands between "Lade Startdatei..." and
    /// "OK".
    void ExpectAt(const FilePath& name, const std::string& bytes, const Transcript& expected) {
        Folder.Write(name, bytes);
        StartWith(name);
        EXPECT_EQ(Desktop.Transcript, Concat({BeforeStartFile, expected, Ok}));
    }

    void ExpectOneEmptyEntry() {
        EXPECT_EQ(ContentsOf(Prog.State), ContentsOf(RegisterState()));
        EXPECT_EQ(Prog.State.AnzGes, 1);
        EXPECT_EQ(Prog.State.AnzNr, 1);
        EXPECT_EQ(CaptionOf(Prog.State.File), u"norvik Telefonregister - Datei: [keine]");
    }

    TestFolder Folder;
    Program Prog;
    ScriptedDesktop Desktop;
};

TEST_F(TextStartFile, OfThe175IsLoadedSortedAndItsFirstEntryShown) {
    ExpectAt("reg.pbo", Identification + Bernd + Anna,
             Concat({Reading175, SortWithOneSwap, FirstEntry}));
    EXPECT_EQ(Names(Prog.State), (NameList{u"Anna", u"Bernd"}));
    EXPECT_EQ(Order(Prog.State, 3), (std::vector<int>{2, 1, 3}));
    EXPECT_EQ(Prog.State.AnzNr, 1);
    EXPECT_EQ(Prog.State.AnzMarkiert, 1);
    EXPECT_EQ(Prog.State.LoadedModel, u"175");
    EXPECT_EQ(Prog.State.File.Type, u"175");
    EXPECT_EQ(Prog.State.File.Path, Folder / "reg.pbo");
    EXPECT_TRUE(Prog.State.RegisterSaved);
    EXPECT_TRUE(Prog.State.WarnLineAccessZero);
    EXPECT_EQ(Prog.Set.StartFile, u"");
    EXPECT_FALSE(Prog.Set.AutoloadFlag);
}

TEST_F(TextStartFile, OfCsvIsLoadedSortedAndItsFirstEntryShown) {
    ExpectAt("reg.csv", Table, Concat({ReadingCSV, SortWithOneSwap, FirstEntry}));
    EXPECT_EQ(Names(Prog.State), (NameList{u"Anna", u"Bernd"}));
    EXPECT_EQ(Order(Prog.State, 3), (std::vector<int>{2, 1, 3}));
    EXPECT_EQ(Prog.State.AnzNr, 1);
    EXPECT_EQ(Prog.State.AnzMarkiert, 1);
    EXPECT_EQ(Prog.State.LoadedModel, u"");
    EXPECT_EQ(Prog.State.File.Type, u"CSV");
    EXPECT_EQ(Prog.State.File.Path, Folder / "reg.csv");
    EXPECT_TRUE(Prog.State.RegisterSaved);
    EXPECT_TRUE(Prog.State.WarnLineAccessZero);
    EXPECT_EQ(Prog.Set.StartFile, u"");
}

TEST_F(TextStartFile, OfContactsIsLoadedSortedAndItsFirstEntryShown) {
    ExpectAt("reg.vcf", Cards, Concat({ReadingCSV, SortWithOneSwap, FirstEntry}));
    EXPECT_EQ(Names(Prog.State), (NameList{u"Anna", u"Bernd"}));
    EXPECT_EQ(Prog.State.AnzNr, 1);
    EXPECT_EQ(Prog.State.LoadedModel, u"");
    EXPECT_EQ(Prog.State.File.Type, u"vCard");
    EXPECT_EQ(Prog.State.File.Path, Folder / "reg.vcf");
    EXPECT_TRUE(Prog.State.RegisterSaved);
    EXPECT_TRUE(Prog.State.WarnLineAccessZero);
    EXPECT_EQ(Prog.Set.StartFile, u"");
}

TEST_F(TextStartFile, OfTheCommandLineMayBeOfContacts) {
    const FilePath path = Folder.Write("reg.vcf", Cards);
    StartUp(Prog, u"/l" + TextFromPath(path), Desktop);
    EXPECT_EQ(Names(Prog.State), (NameList{u"Anna", u"Bernd"}));
    EXPECT_EQ(Prog.State.File.Type, u"vCard");
}

TEST_F(TextStartFile, MayHaveItsEndingInAnyCase) {
    for (const char* name : {"REG.PBO", "Reg.Pbo"}) {
        Program program;
        program.Folder = Folder.Path();
        Folder.Write(name, Identification + Anna);
        Folder.Write("norvik.ini", "LoadFile=" + (Folder / name).string());
        ScriptedDesktop desktop;
        StartUp(program, u"", desktop);
        EXPECT_EQ(desktop.Transcript,
                  Concat({BeforeStartFile, Reading175, SortInOrder, FirstEntry, Ok}));
    }
    Folder.Write("REG.CSV", Table);
    StartWith("Reg.Csv");
    EXPECT_EQ(Names(Prog.State), (NameList{u"Anna", u"Bernd"}));
    EXPECT_EQ(Prog.State.File.Path, Folder / "REG.CSV");
}

TEST_F(TextStartFile, OfTheCommandLineStandsBesideThePrice) {
    const FilePath path = Folder.Write("C:\\X\\Y.pbo", Identification + Anna);
    const WorkingFolder here(Folder.Path());
    Folder.Write("norvik.ini", "Unit=7\r\n");
    StartUp(Prog, u"/lc:\\x\\y.pbo /g0,15", Desktop);
    EXPECT_EQ(Desktop.Transcript,
              Concat({BeforeStartFile, Reading175, SortInOrder, FirstEntry, Ok}));
    EXPECT_EQ(Names(Prog.State), NameList{u"Anna"});
    EXPECT_EQ(Prog.State.File.Path, path.filename());
    EXPECT_EQ(Prog.Set.UnitPrice, 0.15);
}

TEST_F(TextStartFile, OfCsvInTheWorkingFolderMayBeNamedLikeTheOptionForDoubles) {
    const WorkingFolder working(Folder.Path());
    Folder.Write("#Daten.csv", "Name;Tel\r\nAnna;1\r\nAnna;1\r\n");
    Folder.Write("norvik.ini", "LoadFile=#Daten.csv\r\n");
    StartUp(Prog, u"", Desktop);
    EXPECT_EQ(Names(Prog.State), (NameList{u"Anna", u"Anna"}));
}

TEST_F(TextStartFile, TakesDoubledLinesOfACsvFile) {
    ExpectAt("reg.csv", "Name;Tel\r\nAnna;1\r\nAnna;1\r\n",
             Concat({{OkBox(u"Doppelter Name: Anna\r\n", u"LadeCSV: Doubletten entfernt/Hinweise"),
                      OkBox(u"Es wurden 0 Fehler korrigiert\r\n\r\nDoppelter Name: Anna\r\n",
                            u"Fehlerprüfung", "Information")},
                     ReadingCSV,
                     SortInOrder,
                     FirstEntry}));
    EXPECT_EQ(Prog.State.AnzGes, 2);
}

// Files without entries

TEST_F(TextStartFile, OfThe175WithoutEntriesIsNotSorted) {
    ExpectAt("reg.pbo", Identification, Concat({Reading175, FirstEntry}));
    EXPECT_EQ(Prog.State.AnzGes, 0);
    EXPECT_EQ(Prog.State.AnzNr, 1);
    EXPECT_EQ(Prog.State.LoadedModel, u"175");
    EXPECT_TRUE(Prog.State.WarnLineAccessZero);
}

TEST_F(TextStartFile, OfCsvWithoutEntriesIsNotSorted) {
    ExpectAt("reg.csv", "Name;Tel\r\n", Concat({ReadingCSV, FirstEntry}));
    EXPECT_EQ(Prog.State.AnzGes, 0);
    EXPECT_EQ(Prog.State.AnzNr, 1);
    EXPECT_EQ(Prog.State.File.Type, u"CSV");
}

TEST_F(TextStartFile, OfCsvWithoutAnyByteIsNotSorted) {
    ExpectAt("reg.csv", "", Concat({ReadingCSV, FirstEntry}));
    EXPECT_EQ(Prog.State.AnzGes, 0);
}

// Files that fail

TEST_F(TextStartFile, OfThe175WithoutAnyByteGivesTheMessageOfItsMenuItem) {
    ExpectAt("reg.pbo", "",
             Concat({{"pointer Normal", Undefined(u"mnuDateiLoad175:62Einlesen hinter Dateiende")},
                     FirstEntry}));
    ExpectOneEmptyEntry();
}

TEST_F(TextStartFile, OfThe175ThatIsMissingGivesTheMessageOfItsMenuItem) {
    StartWith("fehlt.pbo");
    EXPECT_EQ(Desktop.Transcript,
              Concat({BeforeStartFile,
                      {"pointer Normal", Undefined(u"mnuDateiLoad175:53Datei nicht gefunden")},
                      FirstEntry,
                      Ok}));
    ExpectOneEmptyEntry();
    EXPECT_EQ(Prog.Set.StartFile, u"");
    EXPECT_TRUE(Prog.State.WarnLineAccessZero);
}

TEST_F(TextStartFile, OfCsvThatIsMissingGivesTheMessageOfItsMenuItem) {
    StartWith("fehlt/fehlt.csv");
    EXPECT_EQ(Desktop.Transcript, Concat({BeforeStartFile,
                                          {Undefined(u"mnuDateiLoadCSV:76Pfad nicht gefunden")},
                                          FirstEntry,
                                          Ok}));
    ExpectOneEmptyEntry();
    EXPECT_EQ(Prog.Set.StartFile, u"");
}

TEST_F(TextStartFile, ThatIsAFolderGivesTheMessageOfItsMenuItem) {
    std::filesystem::create_directory(Folder / "reg.csv");
    StartWith("reg.csv");
    EXPECT_EQ(Desktop.Transcript,
              Concat({BeforeStartFile,
                      {Undefined(u"mnuDateiLoadCSV:75Fehler beim Zugriff auf Pfad/Datei")},
                      FirstEntry,
                      Ok}));
    ExpectOneEmptyEntry();
}

TEST_F(TextStartFile, OfThe175WithAWrongFirstLineGivesItsMessageAndLeavesOneEmptyEntry) {
    ExpectAt("reg.pbo", "Name;Tel\r\n" + Anna,
             Concat({{OkBox(u"Dies ist keine Norvik-175-Registerdatei!\r\n(Name;Tel)",
                            u"Fehlermeldung", "Critical")},
                     FirstEntry}));
    ExpectOneEmptyEntry();
}

TEST_F(TextStartFile, OfThe175ThatEndsInsideAnEntryShowsWhatWasReadWhole) {
    ExpectAt("reg.pbo", Identification + Anna + Bernd + "N=Carl\r\n",
             Concat({{"pointer Hourglass", "pointer Normal",
                      Undefined(u"mnuDateiLoad175:62Einlesen hinter Dateiende"), "file"},
                     FirstEntry,
                     FirstEntry}));
    EXPECT_EQ(Names(Prog.State), (NameList{u"Anna", u"Bernd"}));
    EXPECT_EQ(Prog.State.LoadedModel, u"175");
    EXPECT_EQ(CaptionOf(Prog.State.File),
              u"norvik Telefonregister - Datei: " + TextFromPath(Folder / "reg.pbo"));
    EXPECT_FALSE(Prog.State.RegisterSaved);
    EXPECT_EQ(Prog.State.AnzMarkiert, 1);
}

TEST_F(TextStartFile, OfThe175ThatIsCorruptBringsItsMessagesAndIsLoaded) {
    const std::string box =
        OkBox(u"175-Datei korrupt, Lesen abgebrochen", u"Fehlermeldung", "Critical");
    ExpectAt("reg.pbo", Identification + Anna + "?\r\n?\r\n",
             Concat({{"pointer Hourglass", box, box, "pointer Normal", "file", "list"},
                     SortInOrder,
                     FirstEntry}));
    EXPECT_EQ(Names(Prog.State), NameList{u"Anna"});
}

TEST_F(TextStartFile, OfCsvWithAValueTooLargeGivesTheMessageOfItsMenuItem) {
    ExpectAt("reg.csv", "Name;Tel\r\nAnna;1\r\nBernd;2;;;;;;;32768\r\n",
             Concat({{Undefined(u"mnuDateiLoadCSV:6Überlauf"), "file"}, FirstEntry, FirstEntry}));
    EXPECT_EQ(Names(Prog.State), NameList{u"Anna"});
    EXPECT_EQ(Prog.State.AnzGes, 1);
    EXPECT_EQ(Prog.State.File.Type, u"CSV");
    EXPECT_FALSE(Prog.State.RegisterSaved);
}

}  // namespace
}  // namespace norvik::test
