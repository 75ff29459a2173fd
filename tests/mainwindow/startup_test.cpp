// Start-up without a start file: settings, command line, choice lists, the empty register.

#include "mainwindow/startup.h"

#include "base/runtimeerror.h"
#include "mainwindow/handlers.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using Transcript = std::vector<std::string>;

std::string MissingIniBox() {
    return OkBox(u"Ini-Datei nicht vorhanden. Bitte Einstellungen aufrufen und 1x speichern "
                 u"('Übernehmen')!");
}

/// The whole start-up without a start file; `afterIni` is what the reading of settings file and
/// command line shows.
Transcript PlainStart(const Transcript& afterIni) {
    Transcript transcript = {"status \"Lade Konstanten...\"", "status \"Lade Ini-Datei...\""};
    transcript.insert(transcript.end(), afterIni.begin(), afterIni.end());
    for (const char* line :
         {"status \"Lade Oberfläche...\"", "status \"Lade Klingeltöne...\"", "entry", "list",
          "file", "status \"Lade Startdatei...\"", "status \"OK\""}) {
        transcript.emplace_back(line);
    }
    return transcript;
}

/// A program in a folder of its own that starts and shows its entries in its fields.
class StartedProgram {
  public:
    StartedProgram() {
        Prog.Folder = folder_.Path();
        Screen.OnShowEntry = [this] { ShowEntry(Prog); };
        Screen.OnRebuildList = [this] { RebuildRows(Prog); };
    }
    void WriteSettings(std::string_view file) { folder_.Write("norvik.ini", file); }
    void Start(TextView commandLine = u"") { StartUp(Prog, commandLine, Screen); }
    [[nodiscard]] const TestFolder& Folder() const { return folder_; }

    Program Prog;
    ScriptedDesktop Screen;

  private:
    TestFolder folder_;
};

TEST(StartUp, WithoutASettingsFileTellsSoAndGoesOnWithEmptySettings) {
    StartedProgram started;
    started.Start();
    EXPECT_EQ(started.Screen.Transcript, PlainStart({MissingIniBox()}));
    EXPECT_EQ(started.Prog.Set.UnitPrice, 0);
    EXPECT_EQ(started.Prog.Set.InternationalPrefix, u"00");
    EXPECT_EQ(started.Prog.Set.AreaPrefix, u"0");
    EXPECT_EQ(started.Prog.Set.LanguageFlag, 0);
    EXPECT_EQ(started.Prog.Set.StartFile, u"");
    EXPECT_FALSE(started.Prog.Set.AutoloadFlag);
}

TEST(StartUp, WithoutTheProgramsFolderTheSettingsFileIsMissingToo) {
    StartedProgram started;
    started.Prog.Folder = started.Folder() / "share/norvik";
    started.Start();
    EXPECT_EQ(started.Screen.Transcript, PlainStart({MissingIniBox()}));
}

TEST(StartUp, WithASettingsFileShowsNoBox) {
    StartedProgram started;
    started.WriteSettings("[common]\r\nLanguage=english\r\nUnit=0,15\r\n[location]\r\n"
                          "CountryCode=49\r\nRegionCode=30\r\n[end]\r\n");
    started.Start();
    EXPECT_EQ(started.Screen.Transcript, PlainStart({}));
    EXPECT_EQ(started.Prog.Set.UnitPrice, 0.15);
    EXPECT_EQ(started.Prog.Set.InternationalPrefix, u"0049");
    EXPECT_EQ(started.Prog.Set.AreaPrefix, u"030");
    EXPECT_EQ(started.Prog.Set.LanguageFlag, 1);
    EXPECT_EQ(started.Prog.Set.Table.Value(Setting::CountryCode), u"49");
}

TEST(StartUp, EachStepIsDoneWhileItsStatusIsShown) {
    StartedProgram started;
    started.WriteSettings("Unit=0,15\r\n");
    started.Prog.State.Register(1).Name = u"left over";
    std::vector<std::string> seen;
    started.Screen.OnStatus = [&](TextView status) {
        const MainWindowFields& fields = started.Prog.Fields;
        seen.push_back(Utf8(status) + " " + std::to_string(fields.DDABItems.size()) + " " +
                       std::to_string(fields.DDTonItems.size()) + " " +
                       std::to_string(fields.DDMSNItems.size()) + " " +
                       std::to_string(started.Prog.State.AnzGes) +
                       (started.Prog.State.WarnLineAccessZero ? " warned" : ""));
    };
    started.Start();
    EXPECT_EQ(seen, (Transcript{"Lade Konstanten... 0 0 0 1", "Lade Ini-Datei... 0 0 0 1",
                                "Lade Oberfläche... 0 0 0 1", "Lade Klingeltöne... 8 0 0 1",
                                "Lade Startdatei... 8 81 7 1", "OK 8 81 7 1"}));
    EXPECT_EQ(started.Prog.State.Register(1).Name, u"");
    EXPECT_TRUE(started.Prog.State.WarnLineAccessZero);
}

TEST(StartUp, FindsTheSettingsFileWhateverItsCase) {
    StartedProgram started;
    started.Folder().Write("NORVIK.Ini", "Unit=0,15\r\n");
    started.Start();
    EXPECT_EQ(started.Screen.Transcript, PlainStart({}));
    EXPECT_EQ(started.Prog.Set.UnitPrice, 0.15);
}

TEST(StartUp, AnEmptySettingsFileIsNoMissingOne) {
    StartedProgram started;
    started.WriteSettings("");
    started.Start();
    EXPECT_EQ(started.Screen.Transcript, PlainStart({}));
    EXPECT_EQ(started.Prog.Set.UnitPrice, 0);
}

TEST(StartUp, ASettingsFileThatIsAFolderIsReportedAndTheStartGoesOn) {
    StartedProgram started;
    std::filesystem::create_directory(started.Folder() / "norvik.ini");
    started.Start(u"/g0,2");
    EXPECT_EQ(started.Screen.Transcript,
              PlainStart({OkBox(u"Laufzeitfehler '75':\r\n\r\nFehler beim Zugriff auf Pfad/Datei",
                                u"NORVIK", "Critical")}));
    EXPECT_EQ(started.Prog.Set.UnitPrice, 0.2);
}

TEST(StartUp, TheKeyForTheAddressFileIsReadWhateverItsCase) {
    StartedProgram started;
    started.WriteSettings("LOADSYNCONSTART=YES\r\n");
    started.Start();
    EXPECT_EQ(started.Prog.Set.Table.Value(Setting::LoadSyncOnStart), u"yes");
}

TEST(StartUp, ThePriceOfTheCommandLineOverridesTheSettings) {
    StartedProgram started;
    started.WriteSettings("Unit=0,12\r\n");
    started.Start(u"/g0,15");
    EXPECT_EQ(started.Screen.Transcript, PlainStart({}));
    EXPECT_EQ(started.Prog.Set.UnitPrice, 0.15);
    EXPECT_EQ(started.Prog.Set.Table.Value(Setting::Unit), u"0,12");
}

TEST(StartUp, UnknownWordsOfTheCommandLineAreReportedBehindTheSettingsFile) {
    StartedProgram started;
    started.Start(u"/X hilfe");
    EXPECT_EQ(started.Screen.Transcript,
              PlainStart({MissingIniBox(),
                          OkBox(u"Kommandozeilenparameter unbekannt: /x", u"NORVIK Programmstart",
                                "Exclamation"),
                          OkBox(u"Kommandozeilenparameter unbekannt: hilfe",
                                u"NORVIK Programmstart", "Exclamation")}));
}

TEST(StartUp, LeavesOneEmptySavedEntry) {
    StartedProgram started;
    RegisterState& state = started.Prog.State;
    state = RegisterOfNames({u"A", u"B", u"C"});
    state.RegisterSaved = false;
    state.RegisterOrder(1) = 3;
    state.AnzNr = 2;
    started.Start();
    EXPECT_EQ(ContentsOf(state), ContentsOf(RegisterState()));
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(state.Satzwahl.Maximum, 1);
    EXPECT_EQ(state.Satzwahl.Value, 1);
    EXPECT_EQ(state.AnzMarkiert, 0);
    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_EQ(state.LoadedModel, u"");
}

TEST(StartUp, SetsTheWarningForLineAccessZeros) {
    StartedProgram started;
    ASSERT_FALSE(started.Prog.State.WarnLineAccessZero);
    started.Start();
    EXPECT_TRUE(started.Prog.State.WarnLineAccessZero);
}

TEST(StartUp, NamesNoFileAndEnablesTheSaveMenus) {
    StartedProgram started;
    started.Prog.Fields.btnSearchMoreEnabled = true;
    started.Start();
    EXPECT_EQ(CaptionOf(started.Prog.State.File), u"norvik Telefonregister - Datei: [keine]");
    EXPECT_EQ(started.Prog.State.File.Type, u"");
    EXPECT_EQ(SourceTimeOf(started.Prog.State.File), u"");
    EXPECT_TRUE(started.Prog.Fields.SaveMenusEnabled);
    EXPECT_FALSE(started.Prog.Fields.btnSearchMoreEnabled);
}

TEST(StartUp, FillsTheAnnouncementsAndTheMsns) {
    StartedProgram started;
    started.Start();
    const MainWindowFields& fields = started.Prog.Fields;
    EXPECT_EQ(fields.DDABItems,
              (std::vector<Text>{u"(normal)", u"Ansage 1", u"Ansage 2", u"Ansage 3", u"Ansage 4",
                                 u"Ansage 5", u"Ansage 6", u"Ansage 7"}));
    EXPECT_EQ(fields.DDMSNItems, (std::vector<Text>{u"(lt. Telefon)", u"MSN 1", u"MSN 2", u"MSN 3",
                                                    u"MSN 4", u"MSN 5", u"MSN 6"}));
    EXPECT_EQ(fields.DDAB, 0);
    EXPECT_EQ(fields.DDMSN, 0);
}

TEST(StartUp, FillsTheTonesFromRtLng) {
    StartedProgram started;
    started.Folder().Write("RT.LNG", ";Namen\r\nGlocke\r\n");
    started.Start();
    const MainWindowFields& fields = started.Prog.Fields;
    ASSERT_EQ(fields.DDTonItems.size(), 81U);
    EXPECT_EQ(fields.DDTonItems[0], u"kein");
    EXPECT_EQ(fields.DDTonItems[1], u"Glocke");
    EXPECT_EQ(fields.DDTonItems[2], u"3Klang 2");
    EXPECT_EQ(fields.DDTonItems[80], u"Eigen 60");
    EXPECT_EQ(fields.DDTon, 0);
}

TEST(StartUp, TheChoiceListsAreFilledBeforeTheEntryIsShown) {
    StartedProgram started;
    std::vector<std::size_t> sizes;
    started.Screen.OnShowEntry = [&] {
        sizes = {started.Prog.Fields.DDTonItems.size(), started.Prog.Fields.DDABItems.size(),
                 started.Prog.Fields.DDMSNItems.size()};
    };
    started.Start();
    EXPECT_EQ(sizes, (std::vector<std::size_t>{81, 8, 7}));
}

TEST(StartUp, AFreshEntryReadsAsTheTelephonesMsnWithoutCounterAndFilter) {
    StartedProgram started;
    started.Start();
    const MainWindowFields& fields = started.Prog.Fields;
    EXPECT_EQ(started.Prog.State.Register(1).MsnFilter, 15);
    EXPECT_EQ(fields.DDMSNItems[static_cast<std::size_t>(fields.DDMSN)], u"(lt. Telefon)");
    EXPECT_FALSE(fields.chkCharge);
    EXPECT_EQ(fields.OptFilter, 0);
}

TEST(StartUp, Tone0WithTheIndividualToneIsTheFirstChordAndAValueOf0IsNone) {
    StartedProgram started;
    started.Start();
    const MainWindowFields& fields = started.Prog.Fields;
    started.Prog.State.Register(1).Ton = 128;
    ShowEntry(started.Prog);
    EXPECT_EQ(fields.DDTonItems[static_cast<std::size_t>(fields.DDTon)], u"3Klang 1");
    EXPECT_TRUE(fields.chkTon);
    started.Prog.State.Register(1).Ton = 0;
    ShowEntry(started.Prog);
    EXPECT_EQ(fields.DDTonItems[static_cast<std::size_t>(fields.DDTon)], u"kein");
    EXPECT_FALSE(fields.chkTon);
}

TEST(LoadSettings, AppliesTheCommandLineBehindTheSettingsFileAndEmptiesTheRegister) {
    StartedProgram started;
    started.WriteSettings("LoadFile=alt.t9t\r\nUnit=0,12\r\n");
    started.Prog.State.Register(5).Name = u"alt";
    LoadSettings(started.Prog, u"/lneu.t9t /g0,15", started.Screen);
    EXPECT_EQ(started.Prog.Set.StartFile, u"neu.t9t");
    EXPECT_TRUE(started.Prog.Set.AutoloadFlag);
    EXPECT_EQ(started.Prog.Set.UnitPrice, 0.15);
    EXPECT_EQ(started.Prog.State.Register(5).Name, u"");
    EXPECT_EQ(started.Screen.Transcript, Transcript{"status \"Lade Ini-Datei...\""});
}

}  // namespace
}  // namespace norvik::test
