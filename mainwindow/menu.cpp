#include "mainwindow/menu.h"

#include "dialogs/help.h"
#include "dialogs/mobileexportfields.h"
#include "dialogs/settingsfields.h"
#include "formats/addfile.h"
#include "formats/calllist/calllist.h"
#include "formats/charges/chargestatement.h"
#include "formats/csv/csvmenu.h"
#include "formats/ip286/ip286menu.h"
#include "formats/phonebook175/phonebookfilemenu.h"
#include "formats/registerfile/registerfilemenu.h"
#include "formats/vcard/vcardmenu.h"
#include "mainwindow/doubleswindow.h"
#include "mainwindow/handlers.h"
#include "mainwindow/phonelistwindow.h"
#include "mainwindow/registerlistwindow.h"
#include "mainwindow/undo.h"
#include "mainwindow/versionswindow.h"
#include "registertools/lineaccesszero.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>

namespace norvik {

namespace {

/// What is made for a call, for the operation to read.
template <typename Part>
constexpr bool IsComputed =
    std::is_same_v<Part, HelpFolders> || std::is_same_v<Part, CsvLoadOptions>;

/// Calls an operation with what its parameters ask for, each found by its type.
template <typename... Wanted>
void Call(void (*operation)(Wanted...), Program& program, Desktop& desktop, Windows& windows) {
    const HelpFolders helpFolders = {program.Folder, program.DocumentFolder};
    const CsvLoadOptions csvOptions = {.AvoidDoubles = program.Fields.mnuExtraDoubles};
    const auto parts =
        std::tie(program, program.State, program.Set, helpFolders, csvOptions, desktop, windows);
    const auto part = [&parts]<typename Part>(std::type_identity<Part&> /*wanted*/) -> Part& {
        using Plain = std::remove_const_t<Part>;
        if constexpr (IsComputed<Plain>) {
            return std::get<const Plain&>(parts);
        } else {
            return std::get<Plain&>(parts);
        }
    };
    operation(part(std::type_identity<Wanted>())...);
}

/// Adapts an operation to a row. When it loads a register or adds to it, an open register list must
/// not go on showing the one that was before.
template <auto Operation>
void Run(Program& program, Desktop& desktop, Windows& windows) {
    const auto content = [&program] {
        return std::pair(program.State.Generation, program.State.AnzGes);
    };
    const auto renew = [&, before = content()] {
        if (content() != before) {
            RenewRegisterList(program, desktop, windows);
        }
    };
    try {
        Call(Operation, program, desktop, windows);
    } catch (const std::exception&) {  // memory ran out in the midst of it
        renew();
        throw;
    }
    renew();
}

// clang-format off
constexpr MenuRow Rows[] = {
    {"mnuDatei", u"&Datei", "mnuDateiLoadNV",    u"norvik 195/193 &laden...",            "Ctrl+O", 1, false, Run<mnuDateiLoadNV>, nullptr, u"norvik 195/193 laden"},
    {"mnuDatei", u"&Datei", "mnuDateiLoad175",   u"norvik 175 la&den...",                "",       1, false, Run<mnuDateiLoad175>, nullptr, u"norvik 175 laden"},
    {"mnuDatei", u"&Datei", "mnuDateiLoadCSV",   u"&CSV laden...",                       "",       1, false, Run<mnuDateiLoadCSV>, nullptr, u"CSV laden"},
    {"mnuDatei", u"&Datei", "mnuDateiLoadVCard", u"&vCard laden...",                     "",       1, false, Run<mnuDateiLoadVCard>, nullptr, u"vCard laden"},
    {"mnuDatei", u"&Datei", "mnuDateiAdd",       u"Datei da&zuladen...",                "",       1, false, Run<mnuDateiAdd>, nullptr, u"Datei dazugeladen (# Einträge)"},
    {"mnuDatei", u"&Datei", "mnuDateiSaveNV",    u"norvik 195 &speichern",               "",       2, true,  Run<mnuDateiSaveNV>},
    {"mnuDatei", u"&Datei", "MNUDateiSave193",   u"norvik 19&3 speichern",               "",       2, true,  Run<MNUDateiSave193>},
    {"mnuDatei", u"&Datei", "mnuDateiSave175",   u"norvik 1&75 speichern",               "",       2, true,  Run<mnuDateiSave175>, nullptr, u"norvik 175 speichern"},
    {"mnuDatei", u"&Datei", "mnuDateiSaveCSV",   u"&Als CSV speichern",                  "",       2, true,  Run<mnuDateiSaveCSV>},
    {"mnuDatei", u"&Datei", "mnuDateiSaveVCard", u"Als vCa&rd speichern...",             "",       2, true,  Run<mnuDateiSaveVCard>},
    {"mnuDatei", u"&Datei", "mnuDateiSaveIP286", u"CSV für &IP 286 exportieren...",      "",       3, false, Run<mnuDateiSaveIP286>},
    {"mnuDatei", u"&Datei", "mnuDateiHandyexp",  u"&Handyexport...", "", 3, false, Run<mnuDateiHandyexp>},
    {"mnuDatei", u"&Datei", "mnuDateiConvCallListCSV", u"Anrufliste in CSV &konvertieren...", "", 3, false, Run<mnuDateiConvCallListCSV>},
    {"mnuDatei", u"&Datei", "mnuDateiLoadSync",  u"S&yncDatei laden",                   "",       4, false, Run<mnuDateiLoadSync>},
    {"mnuDatei", u"&Datei", "mnuDateiVersions",  u"&Frühere Stände...",                  "",       5, false, Run<mnuDateiVersions>, nullptr, {}, VersionsCaption},
    {"mnuDatei", u"&Datei", "mnuDateiPrint",     u"Dr&ucken...",                         "Ctrl+P", 6, false, Run<mnuDateiPrint>},
    {"mnuDatei", u"&Datei", "mnuDateiSavePdf",   u"Als &PDF speichern...",               "",       6, false, Run<mnuDateiSavePdf>},
    {"mnuDatei", u"&Datei", "mnuDateiBeenden",   u"&Beenden",                            "Ctrl+Q", 7, false, Run<mnuDateiBeenden>},

    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenNullHinzu", u"Null zur Amtholung &hinzufügen...", "", 1, false, Run<mnuBearbeitenNullHinzu>, nullptr, u"Null hinzufügen (# Einträge)"},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenNullEntf",  u"Null zur Amtholung &entfernen...",  "", 1, false, Run<mnuBearbeitenNullEntf>, nullptr, u"Null entfernen (# Einträge)"},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenKillMSN",   u"Abgehende &MSN löschen...",         "", 2, false, Run<mnuBearbeitenKillMSN>, nullptr, u"MSN löschen (# Einträge)"},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuNameRingtones",       u"&Klingeltonnamen erneuern...",      "", 3, false, Run<mnuNameRingtones>},

    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenUndo", u"&Rückgängig",  "Ctrl+Z", 4, false, Run<mnuBearbeitenUndo>, nullptr, {}, UndoCaption, CanUndo},
    {"mnuBearbeiten", u"&Bearbeiten", "mnuBearbeitenRedo", u"&Wiederholen", "Ctrl+Shift+Z; Ctrl+Y", 4, false, Run<mnuBearbeitenRedo>, nullptr, {}, RedoCaption, CanRedo},

    {"mnuList", u"&Liste", "mnuListView", u"&Registerliste...", "", 1, false, Run<mnuListView>},
    {"mnuList", u"&Liste", "mnuListDoubles", u"&Doppelte Rufnummern...", "", 1, false, Run<mnuListDoubles>},

    {"mnuGeb", u"&Gebühren", "mnuGebAuszug", u"Gebühren&auszug...",  "", 1, false, Run<mnuGebAuszug>},
    {"mnuGeb", u"&Gebühren", "mnuGebDelete", u"&Zähler löschen...", "", 1, false, Run<mnuGebDelete>, nullptr, u"Zähler löschen (# Einträge)"},

    {"mnuSync", u"&Synchronisation", "mnuSyncAdd", u"&Adresse suchen...", "", 1, false, Run<mnuSyncAdd>, nullptr, u"Adresse übernommen"},

    {"mnuExtra", u"E&xtras", "mnuExtraDoubles", u"&Beim CSV-Einlesen Doubletten vermeiden", "", 1, false, Run<mnuExtraDoubles>, &MainWindowFields::mnuExtraDoubles},
    {"mnuExtra", u"E&xtras", "mnuSettingsBasic", u"&Einstellungen...", "", 2, false, Run<mnuSettingsBasic>},

    {"mnuHilfe", u"&Hilfe", "mnuHelpManual",    u"&Handbuch",            "", 1, false, Run<mnuHelpManual>},
    {"mnuHilfe", u"&Hilfe", "mnuHilfeReadme",   u"&README",              "F1", 1, false, Run<mnuHilfeReadme>},
    {"mnuHilfe", u"&Hilfe", "mnuHilfeWhatsNew", u"&Was ist neu?",        "", 1, false, Run<mnuHilfeWhatsNew>},
    {"mnuHilfe", u"&Hilfe", "mnuHilfeAbout",    u"Ü&ber das Programm",   "", 2, false, Run<mnuHilfeAbout>},
};
// clang-format on

}  // namespace

std::span<const MenuRow> MenuTable() {
    return Rows;
}

const MenuRow& MenuRowOf(std::string_view name) {
    const auto* const found = std::find_if(std::begin(Rows), std::end(Rows),
                                           [name](const MenuRow& row) { return row.Name == name; });
    if (found == std::end(Rows)) {
        throw std::out_of_range(std::string(name));
    }
    return *found;
}

const MenuRow& SaveItemOf(const RegisterState& state) {
    return MenuRowOf(state.LoadedModel == u"193"   ? "MNUDateiSave193"
                     : state.LoadedModel == u"175" ? "mnuDateiSave175"
                                                   : "mnuDateiSaveNV");
}

}  // namespace norvik
