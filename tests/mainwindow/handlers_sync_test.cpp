// Loading the address database and taking an address over, seen from the main window.
#include "mainwindow/handlers.h"
#include "mainwindow/menu.h"
#include "tests/support/handlerfixture.h"
#include "tests/support/testfolder.h"

#include <algorithm>

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

const std::string Loading = "status \"Lade Adress-Synchronisationsdaten...\"";
const std::string Searching = "status \"Suche nach Adressdaten...\"";
const std::string Question =
    "box \"Suche nach 9301234567, gefunden:\\r\\nAnna Meier\\r\\nHauptstr. 1          \\r\\n10115 "
    "Berlin         \\r\\nP030 1234567\\r\\nSoll die Adresse dieses Eintrags übernommen werden?\" "
    "title \"Adresse gefunden?\" icon Question buttons Yes+No+Cancel default Yes -> ";
const Text Street = u"Hauptstr. 1          ";
const Text Place = u"10115 Berlin         ";
const Text Blanks(21, u' ');

/// Bernd and Anna, who is shown; the address file knows Anna's number.
class Sync : public HandlerFixture {
  protected:
    Sync() {
        SettingsTable& table = program.Set.Table;
        table.SetValue(Setting::CountryCode, u"49");
        table.SetValue(Setting::RegionCode, u"30");
        table.SetValue(Setting::SyncDatabase, TextFromPath(folder / "adressen.csv"));
        table.SetValue(Setting::SyncName, u"1");
        table.SetValue(Setting::SyncGiven, u"2");
        table.SetValue(Setting::SyncAdd, u"3");
        table.SetValue(Setting::SyncZip, u"4");
        table.SetValue(Setting::SyncCity, u"5");
        table.SetValue(Setting::SyncPrivate, u"6");
        ApplySettings(program.Set);
        folder.Write("adressen.csv",
                     "\"Meier\",\"Anna\",\"Hauptstr. 1\",\"10115\",\"Berlin\",\"030 1234567\"\r\n");
        Given(RegisterOf({Entry(u"Bernd", u"030 222", u"b"), Entry(u"Anna", u"1234567", u"old")}),
              2);
    }

    void Load() {
        mnuDateiLoadSync(program, desktop);
        desktop.Transcript.clear();
    }
    Lines Search(std::initializer_list<Button> answers) {
        for (const Button answer : answers) {
            desktop.AnswerBox(answer);
        }
        mnuSyncAdd(program, desktop);
        return desktop.Transcript;
    }
    const Text& AnnasInfo() { return program.State.Register(2).Info; }

    TestFolder folder;
};

TEST_F(Sync, LoadingShowsTheNumberOfRecordsAndTouchesNeitherRegisterNorFields) {
    Field(0) = u"being typed";
    program.Fields.btnSaveChange = EditState::Pending;
    const Contents before = ContentsOf(program.State);

    mnuDateiLoadSync(program, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{Loading, "status \"1 Adress-Einträge importiert\""}));
    EXPECT_TRUE(program.Sync.SyncLoaded);
    EXPECT_TRUE(ContentsOf(program.State) == before);
    EXPECT_EQ(Field(0), u"being typed");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
    EXPECT_TRUE(program.State.RegisterSaved);
    EXPECT_FALSE(program.State.WarnLineAccessZero);
    EXPECT_TRUE(program.State.File.Path.empty());
}

TEST_F(Sync, AMissingFileLeavesTheAddressMenuAsItIs) {
    const FilePath file = folder / "adressen.csv";
    std::filesystem::remove(file);
    mnuDateiLoadSync(program, desktop);
    EXPECT_FALSE(program.Sync.SyncLoaded);

    folder.Write("adressen.csv", "");
    mnuDateiLoadSync(program, desktop);
    EXPECT_TRUE(program.Sync.SyncLoaded);

    std::filesystem::remove(file);
    desktop.Transcript.clear();
    mnuDateiLoadSync(program, desktop);
    EXPECT_TRUE(program.Sync.SyncLoaded);
    EXPECT_EQ(
        desktop.Transcript,
        (Lines{Loading, OkBox(u"SyncDatei nicht gefunden, bitte prüfen!", u"Laden", "Critical"),
               "status \"Adress-Synchronisationsdaten nicht geladen\""}));
}

TEST_F(Sync, AfterALoadThatFailedTheSearchFindsNothingWithoutAMessage) {
    Load();
    std::filesystem::remove(folder / "adressen.csv");
    Load();
    EXPECT_EQ(Search({}), (Lines{Searching, "status \"Keine passenden Daten gefunden\""}));
    EXPECT_EQ(AnnasInfo(), u"old");
}

TEST_F(Sync, TheMappingIsThatOfTheSettingsAtTheLoad) {
    Load();
    program.Set.Table.SetValue(Setting::SyncPrivate, u"0");
    EXPECT_EQ(Search({Button::No}).size(), 3U);
    Load();
    EXPECT_EQ(Search({}).size(), 2U);
}

TEST_F(Sync, TakingOverShowsTheAddressInTheFieldsAndInTheEntrysRow) {
    Load();
    EXPECT_EQ(Search({Button::Yes}),
              (Lines{Searching, Question + "Yes", "entry", "list", "status \"OK\""}));
    EXPECT_EQ(AnnasInfo(), Street + Place + u"old");
    EXPECT_EQ(Field(0), u"Anna");
    EXPECT_EQ(Field(1), u"1234567");
    EXPECT_EQ(Field(8), Street);
    EXPECT_EQ(Field(9), Place);
    EXPECT_EQ(Field(10), u"old                  ");
    EXPECT_EQ(Field(11), Blanks);
    EXPECT_EQ(Rows(), (std::vector<Text>{u"#1: Bernd (030 222) b",
                                         u"#2: Anna (1234567) " + Street + Place + u"old"}));
    EXPECT_EQ(program.State.AnzNr, 2);
}

TEST_F(Sync, TakingOverLeavesNothingPendingAndTheRegisterAsSavedAsItWas) {
    Load();
    Search({Button::Yes});
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Neutral);
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(Sync, TheStoredNumberIsSearchedNotTheTypedOne) {
    Load();
    Field(1) = u"999";
    Search({Button::No});
    EXPECT_EQ(desktop.Transcript.at(1), Question + "No");
    EXPECT_EQ(Field(1), u"999");
}

TEST_F(Sync, TakingOverShowsTheStoredEntryInsteadOfWhatIsBeingTyped) {
    Load();
    Field(0) = u"being typed";
    program.Fields.btnSaveChange = EditState::Pending;
    Search({Button::Yes});
    EXPECT_EQ(Field(0), u"Anna");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Neutral);
    EXPECT_EQ(program.State.Register(2).Name, u"Anna");
}

TEST_F(Sync, WithoutATakeOverWhatIsBeingTypedStays) {
    Load();
    Field(0) = u"being typed";
    program.Fields.btnSaveChange = EditState::Pending;
    EXPECT_EQ(Search({Button::Cancel}),
              (Lines{Searching, Question + "Cancel", "status \"Keine passenden Daten gefunden\""}));
    EXPECT_EQ(Field(0), u"being typed");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
}

TEST_F(Sync, AnAddressInFrontOfSixFullLinesShowsTheFirstSixUntilTheEntryIsStored) {
    Text full;
    for (const char16_t letter : TextView(u"abcdef")) {
        full.append(21, letter);
    }
    program.State.Register(2).Info = full;
    Load();
    Search({Button::Yes});
    EXPECT_EQ(AnnasInfo(), Street + Place + full);
    EXPECT_EQ(Field(8), Street);
    EXPECT_EQ(Field(9), Place);
    EXPECT_EQ(Field(10), Text(21, u'a'));
    EXPECT_EQ(Field(13), Text(21, u'd'));

    btnSaveChange_Click(program, desktop);
    EXPECT_EQ(program.State.Register(2).Info,
              Street + Place + Text(21, u'a') + Text(21, u'b') + Text(21, u'c') + Text(21, u'd'));
}

TEST_F(Sync, LoadingARegisterBringsTheIgnoredWarningBack) {
    Load();
    program.State.WarnLineAccessZero = true;
    Search({Button::Ignore, Button::No});
    ASSERT_FALSE(program.State.WarnLineAccessZero);
    folder.Write("b.csv", "Name;Tel\r\nCarl;1234567\r\n");
    const auto rows = MenuTable();
    const auto load = std::find_if(
        rows.begin(), rows.end(), [](const MenuRow& row) { return row.Name == "mnuDateiLoadCSV"; });
    ASSERT_NE(load, rows.end());
    desktop.AnswerFile(folder / "b.csv");
    load->Run(program, desktop, desktop);
    desktop.Transcript.clear();

    EXPECT_TRUE(program.State.WarnLineAccessZero);
    EXPECT_EQ(Search({Button::Abort}).size(), 1U);
}

TEST_F(Sync, TheMenusItemsRunThem) {
    const auto rows = MenuTable();
    for (const MenuRow& row : rows) {
        if (row.Name == "mnuDateiLoadSync") {
            EXPECT_EQ(row.Menu, "mnuDatei");
            EXPECT_EQ(row.Caption, u"S&yncDatei laden");
            row.Run(program, desktop, desktop);
        }
    }
    ASSERT_TRUE(program.Sync.SyncLoaded);
    desktop.AnswerBox(Button::Yes);
    for (const MenuRow& row : rows) {
        if (row.Name == "mnuSyncAdd") {
            EXPECT_EQ(row.Menu, "mnuSync");
            row.Run(program, desktop, desktop);
        }
    }
    EXPECT_EQ(AnnasInfo(), Street + Place + u"old");
}

}  // namespace
}  // namespace norvik::test
