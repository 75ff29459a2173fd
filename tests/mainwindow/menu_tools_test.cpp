// The items of the call list, the charges, the mobile export, the ring-tone names and the register
// list, run through the menu to their effect; loading while the register list is open.
#include "mainwindow/menu.h"

#include "mainwindow/registerlistwindow.h"
#include "tests/support/handlerfixture.h"
#include "tests/support/testfolder.h"

#include <algorithm>

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;
using Texts = std::vector<Text>;

void RunItem(std::string_view name, Program& program, ScriptedDesktop& desktop) {
    const auto rows = MenuTable();
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const MenuRow& row) { return row.Name == name; });
    if (found == rows.end()) {
        throw std::out_of_range(std::string(name));
    }
    found->Run(program, desktop, desktop);
}

class MenuOfTools : public HandlerFixture {
  protected:
    void Run(std::string_view name) { RunItem(name, program, desktop); }
};

RegisterEntry WithCharge(TextView name, std::int32_t units) {
    RegisterEntry entry = Entry(name, u"030");
    entry.MsnFilter = 0x1F;
    entry.GebEinh = units;
    return entry;
}

TEST_F(MenuOfTools, HandyexpShowsTheMobileExport) {
    Given(RegisterOfNames({u"Anna"}));
    Run("mnuDateiHandyexp");
    EXPECT_EQ(desktop.Transcript, Lines{"show NVHE"});
}

TEST_F(MenuOfTools, ConvCallListWritesATextFileBesideTheCallList) {
    const TestFolder folder;
    const FilePath path = folder.Write(
        "anrufe.t9a", Raw("'01234567890123456789' 02 0C 06 0A '0512241830' 06 03 '030' 02 01"));
    desktop.AnswerFile(path).AnswerText(u"4");

    Run("mnuDateiConvCallListCSV");

    EXPECT_EQ(ReadFile(folder / "anrufe.csv"), Raw("'11;24.12.2005 18:30;4;030' 0D 0A"));
    EXPECT_EQ(desktop.Transcript,
              (Lines{"open \"Anrufliste|*.t9a|Alle Dateien|*.*\" ending .t9a -> " + path.string(),
                     "input \"MSN zu 24.12.2005 18:30 030\" title \"Anruferliste-Ergänzung MSN\" "
                     "preset \"0\" -> \"4\"",
                     OkBox(u"Anruferliste wurde in Datei\r\n" +
                               TextFromPath(folder / "anrufe.csv") + u" gespeichert.",
                           u"Anruferliste", "Information"),
                     "status \"Gespeichert: " + (folder / "anrufe.csv").string() + "\""}));
}

TEST_F(MenuOfTools, ConvCallListCancelledEndsSilently) {
    desktop.AnswerFile(std::nullopt);
    Run("mnuDateiConvCallListCSV");
    EXPECT_EQ(desktop.Transcript,
              Lines{"open \"Anrufliste|*.t9a|Alle Dateien|*.*\" ending .t9a -> cancel"});
}

const std::string StatementQuestion =
    "box \"Diese Aktion speichert alle Gebühren in einer Textdatei.\" title \"Auszug\" icon "
    "Exclamation buttons Ok+Cancel default Ok -> ";

TEST_F(MenuOfTools, GebAuszugWritesTheStatementWithTheUnitPriceOfTheSettings) {
    const TestFolder folder;
    Given(RegisterOf({WithCharge(u"Anna", 12)}));
    program.Set.UnitPrice = 0.5;
    desktop.AnswerBox(Button::Ok).AnswerFile(folder / "neu");

    Run("mnuGebAuszug");

    EXPECT_EQ(ReadFile(folder / "neu.geb"),
              Raw("'Norvik Geb' FC 'hrenauszug' 0D 0A 'Typ:    Zeit: ' 0D 0A 'Quelle: ' 0D 0A"
                  "'EINZELGEB' DC 'HR' 09 'NAME' 0D 0A '6,00' 09 'Anna' 0D 0A 0D 0A"
                  "'6,00' 09 'GESAMTSUMME' 0D 0A"));
    EXPECT_EQ(desktop.Transcript,
              (Lines{StatementQuestion + "Ok",
                     "save \"norvik-Gebühren|*.geb|Alle Dateien|*.*\" ending .geb -> " +
                         (folder / "neu").string(),
                     "status \"Gebührenauszug wird erstellt...\"",
                     "status \"Gebührenauszug erstellt.\"", "entry"}));
}

TEST_F(MenuOfTools, GebAuszugEndsWithACancelledQuestionAndWithACancelledFileDialog) {
    desktop.AnswerBox(Button::Cancel).AnswerBox(Button::Ok).AnswerFile(std::nullopt);
    Run("mnuGebAuszug");
    Run("mnuGebAuszug");
    EXPECT_EQ(desktop.Transcript,
              (Lines{StatementQuestion + "Cancel", StatementQuestion + "Ok",
                     "save \"norvik-Gebühren|*.geb|Alle Dateien|*.*\" ending .geb -> cancel"}));
}

TEST_F(MenuOfTools, GebDeleteClearsTheCountersOnceAccepted) {
    Given(RegisterOf({WithCharge(u"Anna", 100), WithCharge(u"Bernd", 7)}));
    desktop.AnswerBox(Button::Cancel).AnswerBox(Button::Ok);

    Run("mnuGebDelete");
    EXPECT_EQ(program.State.Register(1).GebEinh, 100);
    EXPECT_EQ(program.Fields.AnzGeb, u"12,00");

    Run("mnuGebDelete");
    EXPECT_EQ(program.State.Register(1).GebEinh, 0);
    EXPECT_EQ(program.State.Register(2).GebEinh, 0);
    EXPECT_EQ(program.Fields.AnzGeb, u"0,00");
}

TEST_F(MenuOfTools, NameRingtonesRenewsTheToneListOnceAccepted) {
    const TestFolder folder;
    program.Folder = folder.Path();
    folder.Write("tonruf/05Anruf.t9r", "");
    Given(RegisterOfNames({u"Anna"}));
    desktop.AnswerBox(Button::Cancel).AnswerBox(Button::Ok);

    Run("mnuNameRingtones");
    EXPECT_EQ(program.Fields.DDTonItems.at(25), u"Eigen 5");
    EXPECT_FALSE(std::filesystem::exists(folder / "rt.lng"));

    Run("mnuNameRingtones");
    EXPECT_EQ(program.Fields.DDTonItems.at(25), u"05Anruf");
    EXPECT_EQ(ReadToneNames(folder.Path()).at(25), u"05Anruf");
}

TEST_F(MenuOfTools, ListViewShowsTheRegisterList) {
    Given(RegisterOfNames({u"Anna"}));
    Run("mnuListView");
    EXPECT_EQ(desktop.Transcript, Lines{"show NVList"});
    EXPECT_TRUE(program.List.Open);
}

/// Loads while the list is open, the register before holding "Alt" and "Uralt" with announcements.
class LoadingWithAnOpenList : public MenuOfTools {
  protected:
    LoadingWithAnOpenList() {
        RegisterEntry old = Entry(u"Alt", u"010");
        old.AB = 1;
        RegisterEntry older = Entry(u"Uralt", u"020");
        older.AB = 2;
        RegisterEntry oldest = Entry(u"Methusalem", u"030", u"()");
        Given(RegisterOf({old, older, oldest}));
        Run("mnuListView");
        Click(Announcements);
        desktop.Transcript.clear();
    }

    static constexpr std::size_t Announcements = 0;
    static constexpr std::size_t Marked = 7;

    void Click(std::size_t box) {
        program.List.chkFi.at(box) = !program.List.chkFi.at(box);
        chkFi_Click(program, desktop, desktop);
    }

    void Load(std::string_view item, const FilePath& path) {
        desktop.AnswerFile(path);
        Run(item);
    }

    /// A text file of "Neu" with announcement 3, marked, and "Ohne".
    FilePath NewCsv() const {
        return folder.Write("neu.csv", "Name;Tel;Info1;2;3;4;5;6;AB\r\n"
                                       "Ohne;2\r\n"
                                       "Neu;1;()Info;;;;;;3\r\n");
    }

    void ExpectOldList() {
        EXPECT_EQ(program.List.ListResult,
                  (Texts{u"AB-Ansage 1:  Alt (010)", u"AB-Ansage 2:  Uralt (020)"}));
        EXPECT_EQ(program.List.AnzTreffer, u"2");
        EXPECT_EQ(ListedPlaces(), (std::vector<int>{1, 2}));
    }

    /// The table indices of all entries that are marked as listed, at shown positions or not.
    std::vector<int> ListedPlaces() {
        std::vector<int> places;
        for (int place = 1; place <= RegisterPlaces; ++place) {
            if (program.State.Register(place).Listed) {
                places.push_back(place);
            }
        }
        return places;
    }

    TestFolder folder;
};

TEST_F(LoadingWithAnOpenList, AddingShowsTheNewEntriesToo) {
    Load("mnuDateiAdd", NewCsv());
    EXPECT_EQ(program.List.ListResult,
              (std::vector<Text>{u"AB-Ansage 1:  Alt (010)", u"AB-Ansage 2:  Uralt (020)",
                                 u"AB-Ansage 3:  Neu (1)"}));
    EXPECT_EQ(program.List.AnzTreffer, u"3");
}

TEST_F(LoadingWithAnOpenList, ATickedBoxListsTheNewRegister) {
    Load("mnuDateiLoadCSV", NewCsv());
    EXPECT_EQ(program.List.ListResult, Texts{u"AB-Ansage 3:  Neu (1)"});
    EXPECT_EQ(program.List.AnzTreffer, u"1");
    EXPECT_EQ(ListedPlaces(), std::vector<int>{2});
    EXPECT_TRUE(program.List.Open);
    EXPECT_TRUE(program.List.chkFi.at(Announcements));
    EXPECT_EQ(Rows(), (Texts{u"#1: Neu (1) ()Info", u"#2: Ohne (2)"}));
}

TEST_F(LoadingWithAnOpenList, NoTickedBoxEmptiesIt) {
    Click(Announcements);
    Load("mnuDateiLoadCSV", NewCsv());
    EXPECT_EQ(program.List.ListResult, Texts());
    EXPECT_EQ(program.List.AnzTreffer, u"-");
    EXPECT_EQ(ListedPlaces(), std::vector<int>());
    EXPECT_TRUE(program.List.Open);
}

TEST_F(LoadingWithAnOpenList, ARegisterFileAndA175FileListTheNewRegister) {
    Load("mnuDateiLoadNV",
         folder.Write("neu.t9t", Raw("06 0D 'TStCollection' 02 64 01"
                                     "02 00 02 01 06 03 'Neu' 06 01 '1' 06 00 02 05 02 0F 02 07"
                                     "02 04 00")));
    EXPECT_EQ(program.List.ListResult, Texts{u"AB-Ansage 4:  Neu (1)"});
    EXPECT_EQ(ListedPlaces(), std::vector<int>{1});

    Click(Marked);
    Load("mnuDateiLoad175",
         folder.Write("neu.pbo", "norvik 175 phonebook\r\nN=Anna\r\nP=030\r\nI=()\r\nI=\r\nI=\r\n"
                                 "I=\r\nI=\r\nI=\r\n"));
    EXPECT_EQ(program.List.ListResult, Texts{u"Markiert :  Anna (030)"});
    EXPECT_EQ(program.List.AnzTreffer, u"1");
}

TEST_F(LoadingWithAnOpenList, ALargerRegisterIsListedWhole) {
    std::string file = "Name;Tel;1;2;3;4;5;6;AB\r\n";
    for (int entry = 0; entry < 2500; ++entry) {
        file += "a;1;;;;;;;1\r\n";
    }
    Load("mnuDateiLoadCSV", folder.Write("voll.csv", file));
    EXPECT_EQ(program.List.AnzTreffer, u"2000");
    EXPECT_EQ(program.List.ListResult, Texts(2000, u"AB-Ansage 1:  a (1)"));
}

TEST_F(LoadingWithAnOpenList, AFilteredMainListFollows) {
    program.Fields.chkListFilter = true;
    Load("mnuDateiLoadCSV", NewCsv());
    EXPECT_EQ(Rows(), Texts{u"#1: Neu (1) ()Info"});
    EXPECT_TRUE(program.Fields.chkListFilter);
    EXPECT_EQ(desktop.Transcript.back(), "list");
}

TEST_F(LoadingWithAnOpenList, AFilteredMainListIsEmptyWithoutATickedBox) {
    Click(Announcements);
    program.Fields.chkListFilter = true;
    Load("mnuDateiLoadCSV", NewCsv());
    EXPECT_EQ(Rows(), Texts());
}

TEST_F(LoadingWithAnOpenList, ACancelledFileDialogChangesNothing) {
    Click(Announcements);  // without a box the lines stay until another register is loaded
    for (const char* item : {"mnuDateiLoadNV", "mnuDateiLoad175", "mnuDateiLoadCSV"}) {
        desktop.AnswerFile(std::nullopt);
        desktop.Transcript.clear();
        Run(item);
        EXPECT_EQ(desktop.Transcript.size(), 1U) << item;
        ExpectOldList();
    }
}

TEST_F(LoadingWithAnOpenList, ACancelledFileDialogDoesNotRefillItEither) {
    program.State.Register(1).AB = 7;
    desktop.AnswerFile(std::nullopt);
    Run("mnuDateiLoadCSV");
    ExpectOldList();
}

TEST_F(LoadingWithAnOpenList, AFileThatCannotBeOpenedChangesNothing) {
    Click(Announcements);
    for (const char* item : {"mnuDateiLoadNV", "mnuDateiLoad175", "mnuDateiLoadCSV"}) {
        Load(item, folder / "fehlt.xyz");
        ExpectOldList();
    }
}

TEST_F(LoadingWithAnOpenList, AFileThatIsNo175FileChangesNothing) {
    Click(Announcements);
    Load("mnuDateiLoad175", folder.Write("a.pbo", "etwas anderes\r\n"));
    ExpectOldList();
}

TEST_F(LoadingWithAnOpenList, ALoadThatIsAbortedInTheMiddleListsWhatWasRead) {
    program.Fields.chkListFilter = true;
    Load("mnuDateiLoadCSV", folder.Write("a.csv", "Name;Tel;1;2;3;4;5;6;AB\r\n"
                                                  "Neu;1;;;;;;;3\r\n"
                                                  "Krank;2;;;;;;;40000\r\n"
                                                  "Neuer;3;;;;;;;4\r\n"));
    EXPECT_EQ(desktop.Questions().at(1),
              OkBox(u"Undef'd Error: mnuDateiLoadCSV:6Überlauf", u"NORVIK", "None"));
    EXPECT_EQ(program.List.ListResult, Texts{u"AB-Ansage 3:  Neu (1)"});
    EXPECT_EQ(program.List.AnzTreffer, u"1");
    EXPECT_EQ(ListedPlaces(), std::vector<int>{1});
    EXPECT_EQ(Rows(), Texts{u"#1: Neu (1)"});
}

TEST_F(LoadingWithAnOpenList, A175LoadThatIsAbortedInTheMiddleListsWhatWasRead) {
    Click(Marked);
    Load("mnuDateiLoad175",
         folder.Write("a.pbo", "norvik 175 phonebook\r\nN=Neu\r\nP=1\r\nI=()\r\nI=\r\nI=\r\nI=\r\n"
                               "I=\r\nI=\r\nN=Halb\r\n"));
    EXPECT_EQ(program.List.ListResult, Texts{u"Markiert :  Neu (1)"});
    EXPECT_EQ(ListedPlaces(), std::vector<int>{1});
}

TEST_F(LoadingWithAnOpenList, AnAbortedRegisterFileListsWhatWasRead) {
    Load("mnuDateiLoadNV",
         folder.Write("a.t9t", Raw("06 0D 'TStCollection' 02 64 01"
                                   "02 00 02 01 06 03 'Neu' 06 01 '1' 06 00 02 05 02 0F 02 07"
                                   "02 04"
                                   "02 01 02 02 06 03 'Alt' 06 01 '2' 06 00 02 05 02 0F 02 07"
                                   "03 FF FF 00")));
    EXPECT_EQ(program.List.ListResult, Texts{u"AB-Ansage 4:  Neu (1)"});
    EXPECT_EQ(ListedPlaces(), std::vector<int>{1});
}

TEST_F(LoadingWithAnOpenList, AnAbortedLoadEmptiesTheListWithoutATickedBox) {
    Click(Announcements);
    Load("mnuDateiLoadCSV",
         folder.Write("a.csv", "Name;Tel;1;2;3;4;5;6;AB\r\nKrank;2;;;;;;;40000\r\n"));
    EXPECT_EQ(program.List.ListResult, Texts());
    EXPECT_EQ(program.List.AnzTreffer, u"-");
    EXPECT_EQ(ListedPlaces(), std::vector<int>());
}

TEST_F(LoadingWithAnOpenList, ALoadThatRunsOutOfMemoryListsWhatWasRead) {
    desktop.OnShowEntry = [] { throw std::bad_alloc(); };
    EXPECT_THROW(Load("mnuDateiLoadCSV", NewCsv()), std::bad_alloc);
    EXPECT_EQ(program.List.ListResult, Texts{u"AB-Ansage 3:  Neu (1)"});
}

TEST_F(LoadingWithAnOpenList, TheFilterSetAfterwardsIsThatOfTheNewRegister) {
    Load("mnuDateiLoadCSV", NewCsv());
    NVList_btnExit_Click(program, desktop, desktop);
    EXPECT_EQ(Rows(), Texts{u"#1: Neu (1) ()Info"});
}

TEST_F(LoadingWithAnOpenList, AClosedListStaysClosed) {
    NVList_btnCancel_Click(program, desktop);
    desktop.Transcript.clear();
    Load("mnuDateiLoadCSV", NewCsv());
    EXPECT_FALSE(program.List.Open);
    EXPECT_EQ(program.List.ListResult, Texts());
    EXPECT_EQ(ListedPlaces(), std::vector<int>());
    EXPECT_EQ(std::count(desktop.Transcript.begin(), desktop.Transcript.end(), "show NVList"), 0);
}

}  // namespace
}  // namespace norvik::test
