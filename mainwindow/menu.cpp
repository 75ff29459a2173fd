#include "mainwindow/menu.h"

#include "devicefiles/mnudateiloadnv.h"
#include "devicefiles/mnudateisave193.h"
#include "devicefiles/mnudateisavenv.h"

namespace norvik {

namespace {

/// Adapts an operation on the register's state to a row.
template <void (*Operation)(RegisterState&, Desktop&)>
void OnState(Program& program, Desktop& desktop) {
    Operation(program.State, desktop);
}

void mnuDateiBeenden(Program& /*program*/, Desktop& desktop) {
    desktop.CloseMainWindow();
}

// clang-format off
constexpr MenuRow Rows[] = {
    {"mnuDatei", u"&Datei", "mnuDateiLoadNV",  u"norvik 195/193 &laden...", "Ctrl+O", 1, false, OnState<mnuDateiLoadNV>},
    {"mnuDatei", u"&Datei", "mnuDateiSaveNV",  u"norvik 195 &speichern",    "",       2, true,  OnState<mnuDateiSaveNV>},
    {"mnuDatei", u"&Datei", "MNUDateiSave193", u"norvik 19&3 speichern",    "",       2, true,  OnState<MNUDateiSave193>},
    {"mnuDatei", u"&Datei", "mnuDateiBeenden", u"&Beenden",                 "",       3, false, mnuDateiBeenden},
};
// clang-format on

}  // namespace

std::span<const MenuRow> MenuTable() {
    return Rows;
}

}  // namespace norvik
