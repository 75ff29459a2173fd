#include "mainwindow/menu.h"

#include "dialogs/help.h"
#include "formats/calllist/calllist.h"
#include "formats/charges/chargestatement.h"
#include "formats/csv/csvmenu.h"
#include "formats/ip286/ip286menu.h"
#include "formats/phonebook175/phonebookfilemenu.h"
#include "formats/registerfile/registerfilemenu.h"
#include "mainwindow/handlers.h"
#include "mainwindow/registerlistwindow.h"
#include "registertools/lineaccesszero.h"

#include <exception>

namespace norvik {

namespace {

/// Adapts an operation on the register's state to a row.
template <void (*Operation)(RegisterState&, Desktop&)>
void OnState(Program& program, Desktop& desktop) {
    Operation(program.State, desktop);
}

/// Adapts a load: an open register list must not go on showing the register that was before.
template <void (*Load)(Program&, Desktop&)>
void Loading(Program& program, Desktop& desktop) {
    const auto renew = [&program, &desktop, before = program.State.Generation] {
        if (program.State.Generation != before) {
            RenewRegisterList(program, desktop);
        }
    };
    try {
        Load(program, desktop);
    } catch (const std::exception&) {  // memory ran out in the midst of it
        renew();
        throw;
    }
    renew();
}

void LoadCSVWithOption(Program& program, Desktop& desktop) {
    mnuDateiLoadCSV(program.State, program.Set, program.Fields.mnuExtraDoubles, desktop);
}

void mnuDateiHandyexp(Program& /*program*/, Desktop& desktop) {
    desktop.ShowMobileExport();
}

void ConvertCallListOfMenu(Program& /*program*/, Desktop& desktop) {
    mnuDateiConvCallListCSV(desktop);
}

void StatementWithUnitPrice(Program& program, Desktop& desktop) {
    mnuGebAuszug(program.State, program.Set.UnitPrice, desktop);
}

void mnuSettingsBasic(Program& /*program*/, Desktop& desktop) {
    desktop.ShowSettings();
}

/// Adapts an item that opens a document.
template <void (*Open)(const HelpFolders&, Desktop&)>
void OpenHelp(Program& program, Desktop& desktop) {
    Open({program.Folder, program.DocumentFolder}, desktop);
}

void About(Program& /*program*/, Desktop& desktop) {
    mnuHilfeAbout(desktop);
}

void mnuDateiBeenden(Program& /*program*/, Desktop& desktop) {
    desktop.CloseMainWindow();
}

void ToggleDoubles(Program& program, Desktop& /*desktop*/) {
    mnuExtraDoubles_Click(program);
}

// clang-format off
constexpr MenuRow Rows[] = {
    {"mnuDatei", u"&Datei", "mnuDateiLoadNV",    u"norvik 195/193 &laden...",            "Ctrl+O", 1, false, Loading<OnState<mnuDateiLoadNV>>},
    {"mnuDatei", u"&Datei", "mnuDateiLoad175",   u"norvik 175 la&den...",                "",       1, false, Loading<OnState<mnuDateiLoad175>>},
    {"mnuDatei", u"&Datei", "mnuDateiLoadCSV",   u"&CSV laden...",                       "",       1, false, Loading<LoadCSVWithOption>},
    {"mnuDatei", u"&Datei", "mnuDateiSaveNV",    u"norvik 195 &speichern",               "",       2, true,  OnState<mnuDateiSaveNV>},
    {"mnuDatei", u"&Datei", "MNUDateiSave193",   u"norvik 19&3 speichern",               "",       2, true,  OnState<MNUDateiSave193>},
    {"mnuDatei", u"&Datei", "mnuDateiSave175",   u"norvik 1&75 speichern",               "",       2, true,  OnState<mnuDateiSave175>},
    {"mnuDatei", u"&Datei", "mnuDateiSaveCSV",   u"&Als CSV speichern",                  "",       2, true,  OnState<mnuDateiSaveCSV>},
    {"mnuDatei", u"&Datei", "mnuDateiSaveIP286", u"CSV für &IP 286 exportieren...",      "",       3, false, OnState<mnuDateiSaveIP286>},
    {"mnuDatei", u"&Datei", "mnuDateiHandyexp",  u"&Handyexport...", "", 3, false, mnuDateiHandyexp},
    {"mnuDatei", u"&Datei", "mnuDateiConvCallListCSV", u"Anrufliste in CSV &konvertieren...", "", 3, false, ConvertCallListOfMenu},
    {"mnuDatei", u"&Datei", "mnuDateiLoadSync",  u"SyncDatei laden",                    "",       4, false, mnuDateiLoadSync_Click},
    {"mnuDatei", u"&Datei", "mnuDateiBeenden",   u"&Beenden",                            "",       5, false, mnuDateiBeenden},

    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenNullHinzu", u"Null zur Amtholung &hinzufügen...", "", 1, false, OnState<mnuBearbeitenNullHinzu>},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenNullEntf",  u"Null zur Amtholung &entfernen...",  "", 1, false, OnState<mnuBearbeitenNullEntf>},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenKillMSN",   u"Abgehende &MSN löschen...",         "", 2, false, mnuBearbeitenKillMSN_Click},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuNameRingtones",       u"&Klingeltonnamen erneuern...",      "", 3, false, mnuNameRingtones_Click},

    {"mnuList", u"&Liste", "mnuListView", u"&Registerliste...", "", 1, false, mnuListView_Click},

    {"mnuGeb", u"&Gebühren", "mnuGebAuszug", u"Gebühren&auszug...",  "", 1, false, StatementWithUnitPrice},
    {"mnuGeb", u"&Gebühren", "mnuGebDelete", u"&Zähler löschen...", "", 1, false, mnuGebDelete_Click},

    {"mnuSync", u"&Synchronisation", "mnuSyncAdd", u"&Adresse suchen...", "", 1, false, mnuSyncAdd_Click},

    {"mnuExtra", u"E&xtras", "mnuExtraDoubles", u"Beim CSV-Einlesen Doubletten vermeiden", "", 1, false, ToggleDoubles, &MainWindowFields::mnuExtraDoubles},
    {"mnuExtra", u"E&xtras", "mnuSettingsBasic", u"&Einstellungen...", "", 2, false, mnuSettingsBasic},

    {"mnuHilfe", u"&Hilfe", "mnuHelpManual",    u"&Handbuch",            "", 1, false, OpenHelp<mnuHelpManual>},
    {"mnuHilfe", u"&Hilfe", "mnuHilfeReadme",   u"&README",              "", 1, false, OpenHelp<mnuHilfeReadme>},
    {"mnuHilfe", u"&Hilfe", "mnuHilfeWhatsNew", u"&Was ist neu?",        "", 1, false, OpenHelp<mnuHilfeWhatsNew>},
    {"mnuHilfe", u"&Hilfe", "mnuHilfeAbout",    u"Ü&ber das Programm",   "", 2, false, About},
};
// clang-format on

}  // namespace

std::span<const MenuRow> MenuTable() {
    return Rows;
}

}  // namespace norvik
