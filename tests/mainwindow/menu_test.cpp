#include "mainwindow/menu.h"

#include "tests/support/filetext.h"
#include "tests/support/handlerfixture.h"
#include "tests/support/places.h"
#include "tests/support/testfolder.h"

#include <algorithm>
#include <map>
#include <regex>
#include <set>

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

struct NamedItem {
    std::string_view Menu;
    TextView MenuCaption;
    std::string_view Name;
    TextView Caption;
};

/// Every item of the menus, in their order.
// clang-format off
constexpr NamedItem AllItems[] = {
    {"mnuDatei", u"&Datei", "mnuDateiLoadNV", u"norvik 195/193 &laden..."},
    {"mnuDatei", u"&Datei", "mnuDateiLoad175", u"norvik 175 la&den..."},
    {"mnuDatei", u"&Datei", "mnuDateiLoadCSV", u"&CSV laden..."},
    {"mnuDatei", u"&Datei", "mnuDateiLoadVCard", u"&vCard laden..."},
    {"mnuDatei", u"&Datei", "mnuDateiAdd", u"Datei da&zuladen..."},
    {"mnuDatei", u"&Datei", "mnuDateiSaveNV", u"norvik 195 &speichern"},
    {"mnuDatei", u"&Datei", "MNUDateiSave193", u"norvik 19&3 speichern"},
    {"mnuDatei", u"&Datei", "mnuDateiSave175", u"norvik 1&75 speichern"},
    {"mnuDatei", u"&Datei", "mnuDateiSaveCSV", u"&Als CSV speichern"},
    {"mnuDatei", u"&Datei", "mnuDateiSaveVCard", u"Als vCa&rd speichern..."},
    {"mnuDatei", u"&Datei", "mnuDateiSaveIP286", u"CSV für &IP 286 exportieren..."},
    {"mnuDatei", u"&Datei", "mnuDateiHandyexp", u"&Handyexport..."},
    {"mnuDatei", u"&Datei", "mnuDateiConvCallListCSV", u"Anrufliste in CSV &konvertieren..."},
    {"mnuDatei", u"&Datei", "mnuDateiLoadSync", u"S&yncDatei laden"},
    {"mnuDatei", u"&Datei", "mnuDateiVersions", u"&Frühere Stände..."},
    {"mnuDatei", u"&Datei", "mnuDateiPrint", u"Dr&ucken..."},
    {"mnuDatei", u"&Datei", "mnuDateiSavePdf", u"Als &PDF speichern..."},
    {"mnuDatei", u"&Datei", "mnuDateiBeenden", u"&Beenden"},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenNullHinzu", u"Null zur Amtholung &hinzufügen..."},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenNullEntf", u"Null zur Amtholung &entfernen..."},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenKillMSN", u"Abgehende &MSN löschen..."},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuNameRingtones", u"&Klingeltonnamen erneuern..."},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenUndo", u"&Rückgängig"},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenRedo", u"&Wiederholen"},
    {"mnuList", u"&Liste", "mnuListView", u"&Registerliste..."},
    {"mnuList", u"&Liste", "mnuListDoubles", u"&Doppelte Rufnummern..."},
    {"mnuGeb", u"&Gebühren", "mnuGebAuszug", u"Gebühren&auszug..."},
    {"mnuGeb", u"&Gebühren", "mnuGebDelete", u"&Zähler löschen..."},
    {"mnuSync", u"&Synchronisation", "mnuSyncAdd", u"&Adresse suchen..."},
    {"mnuExtra", u"E&xtras", "mnuExtraDoubles", u"&Beim CSV-Einlesen Doubletten vermeiden"},
    {"mnuExtra", u"E&xtras", "mnuSettingsBasic", u"&Einstellungen..."},
    {"mnuHilfe", u"&Hilfe", "mnuHelpManual", u"&Handbuch"},
    {"mnuHilfe", u"&Hilfe", "mnuHilfeReadme", u"&README"},
    {"mnuHilfe", u"&Hilfe", "mnuHilfeWhatsNew", u"&Was ist neu?"},
    {"mnuHilfe", u"&Hilfe", "mnuHilfeAbout", u"Ü&ber das Programm"},
};
// clang-format on

const MenuRow& RowNamed(std::string_view name) {
    const auto rows = MenuTable();
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const MenuRow& row) { return row.Name == name; });
    if (found == rows.end()) {
        throw std::out_of_range(std::string(name));
    }
    return *found;
}

Text WithoutMnemonic(TextView caption) {
    Text text(caption);
    text.erase(std::remove(text.begin(), text.end(), u'&'), text.end());
    return text;
}

TEST(MenuTable, HoldsExactlyTheseItemsInThisOrder) {
    std::vector<std::string_view> expected;
    for (const NamedItem& item : AllItems) {
        expected.push_back(item.Name);
    }
    std::vector<std::string_view> names;
    for (const MenuRow& row : MenuTable()) {
        names.push_back(row.Name);
    }
    EXPECT_EQ(names, expected);
}

TEST(MenuTable, EveryRowHasItsMenuAndCaption) {
    for (const NamedItem& item : AllItems) {
        const MenuRow& row = RowNamed(item.Name);
        EXPECT_EQ(row.Menu, item.Menu) << row.Name;
        EXPECT_EQ(row.MenuCaption, item.MenuCaption) << row.Name;
        EXPECT_EQ(WithoutMnemonic(row.Caption), WithoutMnemonic(item.Caption)) << row.Name;
    }
}

TEST(MenuTable, TheSevenMenusStandInTheirOrder) {
    std::vector<std::string_view> menus;
    for (const MenuRow& row : MenuTable()) {
        if (menus.empty() || menus.back() != row.Menu) {
            menus.push_back(row.Menu);
        }
    }
    EXPECT_EQ(menus, (std::vector<std::string_view>{"mnuDatei", "mnuBearbeiten", "mnuList",
                                                    "mnuGeb", "mnuSync", "mnuExtra", "mnuHilfe"}));
}

TEST(MenuTable, EveryRowHasAnOperation) {
    for (const MenuRow& row : MenuTable()) {
        EXPECT_NE(row.Run, nullptr) << row.Name;
    }
}

TEST(MenuTable, EveryRowRunsTheOperationOfItsName) {
    const std::string source = TextOf(SourceFolder() / "mainwindow/menu.cpp");
    const std::regex row(R"re(\{"\w+",\s+u"[^"]*",\s+"(\w+)",[^\n]*Run<(\w+)>)re");
    std::size_t rows = 0;
    for (auto match = std::sregex_iterator(source.begin(), source.end(), row);
         match != std::sregex_iterator(); ++match) {
        EXPECT_EQ((*match)[1], (*match)[2]);
        ++rows;
    }
    EXPECT_EQ(rows, MenuTable().size());
}

TEST(MenuTable, TheFixedCaptionsKeepTheirMnemonics) {
    EXPECT_EQ(RowNamed("mnuDateiSaveNV").Caption, u"norvik 195 &speichern");
    EXPECT_EQ(RowNamed("MNUDateiSave193").Caption, u"norvik 19&3 speichern");
    EXPECT_EQ(RowNamed("mnuDateiSave175").Caption, u"norvik 1&75 speichern");
    EXPECT_EQ(RowNamed("mnuDateiSaveCSV").Caption, u"&Als CSV speichern");
    EXPECT_EQ(RowNamed("mnuDateiBeenden").Caption, u"&Beenden");
}

TEST(MenuTable, OnlyTheOptionForDoubledLinesHasACheckMark) {
    for (const MenuRow& row : MenuTable()) {
        const bool isOption = row.Name == "mnuExtraDoubles";
        EXPECT_EQ(row.Check == &MainWindowFields::mnuExtraDoubles, isOption) << row.Name;
        EXPECT_EQ(row.Check == nullptr, !isOption) << row.Name;
    }
}

TEST(MenuTable, OnlyTheSavesOfTheRegisterAreEnabledTogether) {
    const std::set<std::string_view> saves = {"mnuDateiSaveNV", "MNUDateiSave193",
                                              "mnuDateiSave175", "mnuDateiSaveCSV",
                                              "mnuDateiSaveVCard"};
    for (const MenuRow& row : MenuTable()) {
        EXPECT_EQ(row.SavesRegister, saves.count(row.Name) == 1) << row.Name;
    }
}

TEST(MenuTable, MnemonicsAndShortcutsAreUnambiguous) {
    std::set<std::pair<std::string_view, char16_t>> mnemonics;
    std::map<char16_t, std::string_view> menus;
    std::set<std::string_view> shortcuts;
    for (const MenuRow& row : MenuTable()) {
        const auto mnemonic = row.Caption.find(u'&');
        if (mnemonic != TextView::npos) {
            const char16_t letter = LowerCase(row.Caption.at(mnemonic + 1));
            EXPECT_TRUE(mnemonics.emplace(row.Menu, letter).second) << row.Name;
        }
        const char16_t menuLetter = LowerCase(row.MenuCaption.at(row.MenuCaption.find(u'&') + 1));
        EXPECT_EQ(menus.emplace(menuLetter, row.Menu).first->second, row.Menu) << row.Name;
        if (!row.Shortcut.empty()) {
            EXPECT_TRUE(shortcuts.insert(row.Shortcut).second) << row.Name;
        }
    }
}

TEST(MenuTable, ARowIsFoundByItsName) {
    for (const MenuRow& row : MenuTable()) {
        EXPECT_EQ(&MenuRowOf(row.Name), &row);
    }
    EXPECT_THROW(MenuRowOf("mnu"), std::out_of_range);
}

TEST(SaveItemOf, IsTheOneOfTheLoadedModel) {
    RegisterState state;
    EXPECT_EQ(SaveItemOf(state).Name, "mnuDateiSaveNV");
    state.LoadedModel = u"193";
    EXPECT_EQ(SaveItemOf(state).Name, "MNUDateiSave193");
    state.LoadedModel = u"175";
    EXPECT_EQ(SaveItemOf(state).Name, "mnuDateiSave175");
    state.LoadedModel = u"195";
    EXPECT_EQ(SaveItemOf(state).Name, "mnuDateiSaveNV");
}

TEST(MenuTable, TheGroupsOfAMenuFollowEachOther) {
    std::string_view menu;
    int group = 0;
    for (const MenuRow& row : MenuTable()) {
        if (row.Menu == menu) {
            EXPECT_GE(row.Group, group) << row.Name;
        }
        menu = row.Menu;
        group = row.Group;
    }
}

class Menu : public HandlerFixture {
  protected:
    void Run(std::string_view name) { RowNamed(name).Run(program, desktop, desktop); }
};

constexpr std::string_view OneRecord =
    "06 0D 'TStCollection' 02 64 01"
    " 02 00 02 01 06 04 'Anna' 06 03 '030' 06 04 'Info' 02 05 02 0F 02 07 02 01"
    " 00";
constexpr std::string_view OneRecord193 =
    "06 0D 'TStCollection' 02 64 01"
    " 02 00 02 01 06 04 'Anna' 06 03 '030' 02 00 02 0F 02 07 02 00"
    " 00";

RegisterEntry Anna() {
    RegisterEntry entry = Entry(u"Anna", u"030", u"Info");
    entry.RecNumber = 1;
    entry.Ton = 5;
    entry.GebEinh = 7;
    entry.AB = 1;
    return entry;
}

TEST_F(Menu, EachRowWhoseFileDialogIsCancelledEndsSilently) {
    const std::map<std::string_view, std::string> dialogs = {
        {"mnuDateiLoad175",
         "open \"norvik-175-Datei|*.pbo|Alle Dateien|*.*\" ending .pbo -> cancel"},
        {"mnuDateiLoadCSV", "open \"CSV-Datei|*.csv|Alle Dateien|*.*\" ending .csv -> cancel"},
        {"mnuDateiLoadVCard", "open \"vCard-Datei|*.vcf|Alle Dateien|*.*\" ending .vcf -> cancel"},
        {"mnuDateiSave175",
         "save \"norvik-175-Datei|*.pbo|Alle Dateien|*.*\" ending .pbo -> cancel"},
        {"mnuDateiSaveVCard", "save \"vCard-Datei|*.vcf|Alle Dateien|*.*\" ending .vcf -> cancel"},
        {"mnuDateiSaveCSV", "save \"CSV-Datei|*.csv|Alle Dateien|*.*\" ending .csv -> cancel"},
        {"mnuDateiSaveIP286",
         "save \"CSV-Datei(IP286)|*.csv|Alle Dateien|*.*\" ending .csv -> cancel"},
        {"mnuDateiLoadNV", "open \"NV-195-Datei|*.t9t|Alle Dateien|*.*\" ending .t9t -> cancel"},
        {"mnuDateiSaveNV",
         "save \"norvik-195-Datei|*.t9t|Alle Dateien|*.*\" ending .t9t -> cancel"},
        {"MNUDateiSave193",
         "save \"norvik-193/5-Datei|*.t9t|Alle Dateien|*.*\" ending .t9t -> cancel"}};
    Given(RegisterOfNames({u"Bernd", u"Anna"}), 2);
    program.State.RegisterSaved = false;
    const Contents before = ContentsOf(program.State);
    for (const auto& dialog : dialogs) {
        desktop.Transcript.clear();
        desktop.AnswerFile(std::nullopt);

        Run(dialog.first);

        EXPECT_EQ(desktop.Transcript, Lines{dialog.second});
        EXPECT_TRUE(ContentsOf(program.State) == before) << dialog.first;
        EXPECT_EQ(program.State.AnzNr, 2);
        EXPECT_FALSE(program.State.RegisterSaved);
    }
}

TEST_F(Menu, LoadNVLoadsARegisterFile) {
    const TestFolder folder;
    desktop.AnswerFile(folder.Write("anna.t9t", Raw(OneRecord)));

    Run("mnuDateiLoadNV");

    EXPECT_EQ(program.State.AnzGes, 1);
    EXPECT_EQ(program.State.Register(1), Anna());
    EXPECT_EQ(Field(0), u"Anna");
    EXPECT_EQ(program.State.File.Type, u"195");
    EXPECT_EQ(Rows(), std::vector<Text>{u"#1: Anna (030) Info"});
}

TEST_F(Menu, SaveNVSavesA195File) {
    const TestFolder folder;
    Given(RegisterOf({Anna()}));
    program.State.RegisterSaved = false;
    desktop.AnswerFile(folder / "neu");

    Run("mnuDateiSaveNV");

    EXPECT_EQ(ReadFile(folder / "neu.t9t"), Raw(OneRecord));
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(Menu, Save193SavesA193File) {
    const TestFolder folder;
    Given(RegisterOf({Anna()}));
    program.State.RegisterSaved = false;
    desktop.AnswerFile(folder / "neu").AnswerBox(Button::No);

    Run("MNUDateiSave193");

    EXPECT_EQ(ReadFile(folder / "neu.t9t"), Raw(OneRecord193));
    EXPECT_TRUE(program.State.RegisterSaved);
}

RegisterEntry AnnaOf175() {
    RegisterEntry entry = Entry(u"Anna", u"030", u"Info");
    entry.RecIndex = 1;
    return entry;
}

const std::string PhonebookOfAnna = "norvik 175 phonebook\r\nN=Anna\r\nP=030\r\nI=Info\r\n"
                                    "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\n";

TEST_F(Menu, Load175LoadsAPhonebookFile) {
    const TestFolder folder;
    desktop.AnswerFile(folder.Write("anna.pbo", PhonebookOfAnna));

    Run("mnuDateiLoad175");

    EXPECT_EQ(program.State.AnzGes, 1);
    EXPECT_EQ(program.State.Register(1), AnnaOf175());
    EXPECT_EQ(Field(0), u"Anna");
    EXPECT_EQ(program.State.File.Type, u"175");
    EXPECT_EQ(Rows(), std::vector<Text>{u"#1: Anna (030) Info"});
}

TEST_F(Menu, Save175SavesAPhonebookFile) {
    const TestFolder folder;
    Given(RegisterOf({Anna()}));
    program.State.RegisterSaved = false;
    desktop.AnswerFile(folder / "neu");

    Run("mnuDateiSave175");

    const Bytes file = ReadFile(folder / "neu.pbo");
    EXPECT_EQ(std::string(file.begin(), file.end()), PhonebookOfAnna);
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(Menu, LoadCSVTakesDoubledLinesOrNotAsTheOptionSays) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.csv", "Name;Tel\r\nAnna;030\r\nAnna;030\r\n");
    desktop.AnswerFile(path).AnswerFile(path).AnswerFile(path);

    Run("mnuDateiLoadCSV");
    EXPECT_EQ(Rows(), (std::vector<Text>{u"#1: Anna (030)", u"#2: Anna (030)"}));

    Run("mnuExtraDoubles");
    Run("mnuDateiLoadCSV");
    EXPECT_EQ(Rows(), std::vector<Text>{u"#1: Anna (030)"});
    EXPECT_EQ(program.State.File.Path, path);

    Run("mnuExtraDoubles");
    Run("mnuDateiLoadCSV");
    EXPECT_EQ(program.State.AnzGes, 2);
}

TEST_F(Menu, SaveCSVSavesATextFile) {
    const TestFolder folder;
    Given(RegisterOf({Anna()}));
    program.State.RegisterSaved = false;
    desktop.AnswerFile(folder / "neu").AnswerBox(Button::No);

    Run("mnuDateiSaveCSV");

    EXPECT_EQ(ReadFile(folder / "neu.csv"),
              Raw("'Name;Tel;Info1;Info2;Info3;Info4;Info5;Info6;AB;Ton;EnTon;MSN;Filter;GebEinh;"
                  "EnGeb' 0D 0A 'Anna;030;Info;;;;;;1;5;nein;00;Kein;7;nein' 0D 0A"));
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(Menu, SaveIP286ExportsNameAndNumber) {
    const TestFolder folder;
    Given(RegisterOf({Anna()}));
    desktop.AnswerFile(folder / "neu").AnswerText(std::nullopt);

    Run("mnuDateiSaveIP286");

    EXPECT_EQ(ReadFile(folder / "neu.csv"), Raw("'\"Name\",\"Telefonnummer\",\"Konto\"' 0D 0A"
                                                "'\"Anna\",\"030\",\"1\"' 0D 0A"));
}

TEST_F(Menu, TheZeroIsAddedAndRemoved) {
    Given(RegisterOfNames({u"Anna"}));
    desktop.AnswerBox(Button::Yes).AnswerBox(Button::Yes).AnswerBox(Button::Yes);

    Run("mnuBearbeitenNullHinzu");
    EXPECT_EQ(Field(1), u"01");
    EXPECT_EQ(Rows(), std::vector<Text>{u"#1: Anna (01)"});

    Run("mnuBearbeitenNullEntf");
    EXPECT_EQ(Field(1), u"1");

    Run("mnuBearbeitenNullEntf");
    EXPECT_EQ(Field(1), u"i1");
    EXPECT_EQ(Rows(), std::vector<Text>{u"#1: Anna (i1)"});
}

TEST_F(Menu, KillMSNRemovesTheMsnInTheRegisterAndOnScreen) {
    RegisterState state = RegisterOfNames({u"Anna"});
    state.Register(1).MsnFilter = 2;
    Given(state);
    ASSERT_EQ(program.Fields.DDMSN, 3);
    desktop.AnswerBox(Button::Ok);

    Run("mnuBearbeitenKillMSN");

    EXPECT_EQ(program.State.Register(1).MsnFilter, 15);
    EXPECT_EQ(program.Fields.DDMSN, 0);
}

TEST_F(Menu, BeendenClosesTheWindow) {
    Given(RegisterOfNames({u"Anna"}));
    program.State.RegisterSaved = false;  // the question is the closing window's

    Run("mnuDateiBeenden");

    EXPECT_EQ(desktop.Transcript, Lines{"close"});
}

}  // namespace
}  // namespace norvik::test
