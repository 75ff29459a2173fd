// The items of the addresses, the settings and the help, run through the menu to their effect.
#include "mainwindow/menu.h"

#include "tests/support/handlerfixture.h"
#include "tests/support/testfolder.h"

#include <algorithm>

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

class MenuOfHelp : public HandlerFixture {
  protected:
    MenuOfHelp() {
        program.Folder = folder.Path();
        program.DocumentFolder = installed.Path();
        Given(RegisterOf({Entry(u"Anna", u"030 1"), Entry(u"Bernd", u"0172")}));
    }

    void Run(std::string_view name) {
        const auto rows = MenuTable();
        const auto found = std::find_if(rows.begin(), rows.end(),
                                        [&](const MenuRow& row) { return row.Name == name; });
        ASSERT_NE(found, rows.end()) << name;
        found->Run(program, desktop, desktop);
    }

    /// An address file of one record, which the settings name.
    void GivenAddress() {
        SettingsTable& table = program.Set.Table;
        table.SetValue(Setting::SyncDatabase,
                       TextFromPath(folder.Write(
                           "adressen.csv", "\"Adler\",\"Anna\",\"Am Markt 1\",\"10115\",\"Berlin\","
                                           "\"030 1\"\r\n")));
        table.SetValue(Setting::SyncName, u"1");
        table.SetValue(Setting::SyncGiven, u"2");
        table.SetValue(Setting::SyncAdd, u"3");
        table.SetValue(Setting::SyncZip, u"4");
        table.SetValue(Setting::SyncCity, u"5");
        table.SetValue(Setting::SyncPrivate, u"6");
    }

    TestFolder folder;
    TestFolder installed;
};

// Addresses

TEST_F(MenuOfHelp, LoadSyncLoadsTheAddressesThatTheSettingsName) {
    GivenAddress();

    Run("mnuDateiLoadSync");

    EXPECT_EQ(desktop.Transcript, (Lines{"status \"Lade Adress-Synchronisationsdaten...\"",
                                         "status \"1 Adress-Einträge importiert\""}));
    EXPECT_TRUE(program.Sync.SyncLoaded);
    EXPECT_EQ(program.Sync.Tables.SyncNameTable.at(1).at(SyncTables::Surname), u"Adler");
}

TEST_F(MenuOfHelp, LoadSyncReportsAMissingFile) {
    Run("mnuDateiLoadSync");
    EXPECT_EQ(desktop.Transcript,
              (Lines{"status \"Lade Adress-Synchronisationsdaten...\"",
                     OkBox(u"SyncDatei nicht gefunden, bitte prüfen!", u"Laden", "Critical"),
                     "status \"Adress-Synchronisationsdaten nicht geladen\""}));
    EXPECT_FALSE(program.Sync.SyncLoaded);
}

TEST_F(MenuOfHelp, SyncAddTakesAnAddressOverIntoTheShownEntry) {
    GivenAddress();
    program.State.WarnLineAccessZero = false;
    Run("mnuDateiLoadSync");
    desktop.AnswerBox(Button::Yes);

    Run("mnuSyncAdd");

    EXPECT_EQ(program.State.Register(1).Info, u"Am Markt 1           10115 Berlin         ");
    EXPECT_EQ(Field(8), u"Am Markt 1           ");
    EXPECT_EQ(Field(9), u"10115 Berlin         ");
    EXPECT_EQ(desktop.Transcript.back(), "status \"OK\"");
}

// Settings

TEST_F(MenuOfHelp, SettingsBasicShowsTheSettings) {
    Run("mnuSettingsBasic");
    EXPECT_EQ(desktop.Transcript, Lines{"show NVSET"});
}

// Help

TEST_F(MenuOfHelp, ManualOpensTheManualOfTheProgramsFolder) {
    const FilePath manual = folder.Write("NorvikRegister-Handbuch.pdf", "");
    installed.Write("NorvikRegister-Handbuch.pdf", "");

    Run("mnuHelpManual");

    EXPECT_EQ(desktop.Transcript,
              (Lines{OkBox(u"Sorry, es ist noch kein Handbuch verfügbar. Alles wesentliche steht "
                           u"in README!",
                           u"Entschuldigung", "Information"),
                     "document " + manual.string() + " -> 33",
                     "status \"Start des Handbuchs (Testfunktion) Returncode ShellExecute: 33\""}));
}

TEST_F(MenuOfHelp, ReadmeOpensTheInstalledPageWhereTheProgramsFolderHasNone) {
    const FilePath page = installed.Write("nvreadme.htm", "");
    desktop.ShellResult = 31;

    Run("mnuHilfeReadme");

    EXPECT_EQ(desktop.Transcript,
              (Lines{"document " + page.string() + " -> 31",
                     "status \"Start von README im Webbrowser (Testfunktion) Returncode "
                     "ShellExecute: 31\""}));
}

TEST_F(MenuOfHelp, ReadmeThatIsMissingShowsTheReturnValueAlone) {
    desktop.ShellResult = 2;
    Run("mnuHilfeReadme");
    EXPECT_EQ(desktop.Transcript,
              (Lines{"document " + (folder / "nvreadme.htm").string() + " -> 2",
                     "status \"Start von README im Webbrowser (Testfunktion) Returncode "
                     "ShellExecute: 2\""}));
}

TEST_F(MenuOfHelp, WhatsNewOpensTheTextEditor) {
    const FilePath text = installed.Write("whatsnew.txt", "");
    Run("mnuHilfeWhatsNew");
    EXPECT_EQ(desktop.Transcript, Lines{"editor " + text.string()});
}

TEST_F(MenuOfHelp, AboutAsksForTheHistoryAndShowsIt) {
    desktop.AnswerBox(Button::Yes).AnswerBox(Button::No);

    Run("mnuHilfeAbout");
    ASSERT_EQ(desktop.Transcript.size(), 2U);
    EXPECT_NE(desktop.Transcript[0].find("title \"Über das Programm\""), std::string::npos);
    EXPECT_NE(desktop.Transcript[1].find("title \"Versionsgeschichte\""), std::string::npos);

    Run("mnuHilfeAbout");
    EXPECT_EQ(desktop.Transcript.size(), 3U);
}

TEST_F(MenuOfHelp, NoItemOfTheHelpTouchesTheRegisterOrWhatIsTyped) {
    Field(0) = u"being typed";
    program.State.RegisterSaved = false;
    const Contents before = ContentsOf(program.State);
    desktop.AnswerBox(Button::No);
    for (const char* item :
         {"mnuHelpManual", "mnuHilfeReadme", "mnuHilfeWhatsNew", "mnuHilfeAbout"}) {
        Run(item);
    }
    EXPECT_TRUE(ContentsOf(program.State) == before);
    EXPECT_EQ(Field(0), u"being typed");
    EXPECT_FALSE(program.State.RegisterSaved);
    EXPECT_EQ(program.State.AnzNr, 1);
}

}  // namespace
}  // namespace norvik::test
