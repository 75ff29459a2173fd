#include "mainwindow/menu.h"

#include "tests/support/handlerfixture.h"
#include "tests/support/testfolder.h"

#include <algorithm>
#include <map>
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

/// Every item that the menus may hold, in their order.
// clang-format off
constexpr NamedItem AllItems[] = {
    {"mnuDatei", u"&Datei", "mnuDateiLoadNV", u"norvik 195/193 &laden..."},
    {"mnuDatei", u"&Datei", "mnuDateiLoad175", u"norvik 175 la&den..."},
    {"mnuDatei", u"&Datei", "mnuDateiLoadCSV", u"&CSV laden..."},
    {"mnuDatei", u"&Datei", "mnuDateiSaveNV", u"norvik 195 &speichern"},
    {"mnuDatei", u"&Datei", "MNUDateiSave193", u"norvik 19&3 speichern"},
    {"mnuDatei", u"&Datei", "mnuDateiSave175", u"norvik 1&75 speichern"},
    {"mnuDatei", u"&Datei", "mnuDateiSaveCSV", u"&Als CSV speichern"},
    {"mnuDatei", u"&Datei", "mnuDateiSaveIP286", u"CSV für &IP 286 exportieren..."},
    {"mnuDatei", u"&Datei", "mnuDateiHandyexp", u"&Handyexport..."},
    {"mnuDatei", u"&Datei", "mnuDateiConvCallListCSV", u"Anrufliste in CSV &konvertieren..."},
    {"mnuDatei", u"&Datei", "mnuDateiLoadSync", u"SyncDatei laden"},
    {"mnuDatei", u"&Datei", "mnuDateiBeenden", u"&Beenden"},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenNullHinzu", u"Null zur Amtholung &hinzufügen..."},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenNullEntf", u"Null zur Amtholung &entfernen..."},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenKillMSN", u"Abgehende &MSN löschen..."},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuNameRingtones", u"&Klingeltonnamen erneuern..."},
    {"mnuList", u"&Liste", "mnuListView", u"&Registerliste..."},
    {"mnuGeb", u"&Gebühren", "mnuGebAuszug", u"Gebühren&auszug..."},
    {"mnuGeb", u"&Gebühren", "mnuGebDelete", u"&Zähler löschen..."},
    {"mnuSync", u"&Synchronisation", "mnuSyncAdd", u"&Adresse suchen..."},
    {"mnuExtra", u"E&xtras", "mnuExtraDoubles", u"Beim CSV-Einlesen Doubletten vermeiden"},
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

TEST(MenuTable, EveryRowHasTheAgreedNameMenuAndCaptionInTheAgreedOrder) {
    const auto* item = std::begin(AllItems);
    for (const MenuRow& row : MenuTable()) {
        while (item != std::end(AllItems) && item->Name != row.Name) {
            ++item;
        }
        ASSERT_NE(item, std::end(AllItems)) << row.Name << " is unknown or out of order";
        EXPECT_EQ(row.Menu, item->Menu) << row.Name;
        EXPECT_EQ(WithoutMnemonic(row.MenuCaption), WithoutMnemonic(item->MenuCaption)) << row.Name;
        EXPECT_EQ(WithoutMnemonic(row.Caption), WithoutMnemonic(item->Caption)) << row.Name;
    }
}

TEST(MenuTable, HoldsTheItemsOfTheRegisterFile) {
    for (const std::string_view name :
         {"mnuDateiLoadNV", "mnuDateiSaveNV", "MNUDateiSave193", "mnuDateiBeenden"}) {
        EXPECT_NO_THROW(RowNamed(name));
    }
}

TEST(MenuTable, TheFixedCaptionsKeepTheirMnemonics) {
    EXPECT_EQ(RowNamed("mnuDateiSaveNV").Caption, u"norvik 195 &speichern");
    EXPECT_EQ(RowNamed("MNUDateiSave193").Caption, u"norvik 19&3 speichern");
    EXPECT_EQ(RowNamed("mnuDateiBeenden").Caption, u"&Beenden");
}

TEST(MenuTable, OnlyTheFourSavesOfTheRegisterAreEnabledTogether) {
    const std::set<std::string_view> saves = {"mnuDateiSaveNV", "MNUDateiSave193",
                                              "mnuDateiSave175", "mnuDateiSaveCSV"};
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
    void Run(std::string_view name) { RowNamed(name).Run(program, desktop); }
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

TEST_F(Menu, BeendenClosesTheWindow) {
    Given(RegisterOfNames({u"Anna"}));
    program.State.RegisterSaved = false;  // the question is the closing window's

    Run("mnuDateiBeenden");

    EXPECT_EQ(desktop.Transcript, Lines{"close"});
}

}  // namespace
}  // namespace norvik::test
