#include "mainwindow/handlers.h"

#include "formats/common/globalize.h"
#include "formats/common/quietsave.h"
#include "mainwindow/listrows.h"
#include "mainwindow/showentry.h"
#include "registertools/clearcharges.h"
#include "registertools/removemsns.h"
#include "registertools/searchregister.h"
#include "registertools/sortregister.h"
#include "ringtones/renameringtones.h"
#include "ringtones/tonenames.h"
#include "sync/searchsyncaddress.h"

#include <utility>

namespace norvik {

namespace {

/// The text fields that the keyboard walks through, in their cycle.
constexpr std::array<int, 2 + InfoLines> FieldCycle = {
    NameField,          TelField,           FirstInfoField,     FirstInfoField + 1,
    FirstInfoField + 2, FirstInfoField + 3, FirstInfoField + 4, FirstInfoField + 5};

std::size_t PlaceInCycle(int field) {
    std::size_t place = 0;
    while (place + 1 < FieldCycle.size() && FieldCycle.at(place) != field) {
        ++place;
    }
    return place;
}

/// A start file may hold no entry at all; what the user stores then becomes the first one.
void EnsureAnEntry(RegisterState& state) {
    if (state.AnzGes == 0) {
        SetCount(state, 1);
    }
}

/// Writes the fields into the shown entry: what they hold is typed no longer.
void Store(Program& program) {
    StoreEntry(program.Fields, program.State);
    program.Shown = BufferOf(program.Fields);
    ++program.Kept;
}

bool ConfirmsDiscarding(Desktop& desktop) {
    return desktop.Ask({.text = u"Änderungen am Datensatz verwerfen?",
                        .title = u"Sicherheitsabfrage",
                        .buttons = {Button::Yes, Button::No},
                        .defaultButton = Button::No}) == Button::Yes;
}

}  // namespace

void ShowEntry(Program& program) {
    ShowEntry(program.State, program.Set.UnitPrice, program.Fields);
    program.Shown = BufferOf(program.Fields);
    ++program.Shows;
}

void RebuildRows(Program& program) {
    program.Fields.TelRegListe = ListRows(program.State, program.Fields.chkListFilter);
}

void btnSaveChange_Click(Program& program, Desktop& desktop) {
    RegisterState& state = program.State;
    EnsureAnEntry(state);
    Store(program);
    int place = state.AnzNr;
    SortRegister(state, place, desktop);
    state.AnzNr = place;
    RefreshStatus(state, desktop);
    SelectRecord(state, place, desktop);
    program.Fields.btnSaveChange = EditState::Stored;
    state.RegisterSaved = false;
}

void btnNew_Click(Program& program, Desktop& desktop) {
    const int position = AppendEntry(program.State);
    SelectRecord(program.State, position, desktop);
    desktop.FocusField(NameField);
    program.State.RegisterSaved = false;
    RefreshStatus(program.State, desktop);
}

void btnErase_Click(Program& program, Desktop& desktop) {
    DeleteEntryAt(program.State, program.State.AnzNr, desktop);
    program.State.RegisterSaved = false;
}

void btnEraseCharge_Click(Program& program) {
    program.Fields.AnzGeb = FormatAmount(0);
    program.Fields.ChargeErased = true;
    program.Fields.btnSaveChange = EditState::Pending;
}

void chkExport_Click(Program& program, Desktop& desktop) {
    RegisterState& state = program.State;
    const bool on = program.Fields.chkExport;
    EnsureAnEntry(state);
    Store(program);
    SetExportMark(state, state.RegisterOrder(state.AnzNr), on);
    desktop.ShowEntry();
    state.RegisterSaved = false;
    program.Fields.btnSaveChange = EditState::Stored;
    RefreshStatus(state, desktop);
}

void Choice_Change(Program& program) {
    program.Fields.btnSaveChange = EditState::Pending;
}

void btnSearch_Click(Program& program, Desktop& desktop) {
    program.SearchTerm =
        desktop.AskForText({.prompt = u"Bitte Suchbegriff angeben", .title = u"Suche nach"})
            .value_or(Text());
    program.Fields.btnSearchMoreEnabled = !program.SearchTerm.empty();
    if (program.Fields.btnSearchMoreEnabled) {
        SearchRegister(program.State, program.SearchTerm, false, desktop);
    }
}

void btnSearchMore_Click(Program& program, Desktop& desktop) {
    SearchRegister(program.State, program.SearchTerm, true, desktop);
    desktop.ShowEntry();
}

void SearchBackwards(Program& program, Desktop& desktop) {
    SearchRegister(program.State, program.SearchTerm, true, desktop, SearchDirection::Backwards);
    desktop.ShowEntry();
}

void Satzwahl_Change(Program& program, int value, Desktop& desktop) {
    SelectRecord(program.State, value, desktop);
}

void ChooseEntry(Program& program, int position, Desktop& desktop) {
    if (program.Fields.btnSaveChange == EditState::Pending && !ConfirmsDiscarding(desktop)) {
        // Stored without sorting, so that the row's number stays right.
        Store(program);
        program.State.RegisterSaved = false;
        RefreshStatus(program.State, desktop);
    }
    SelectRecord(program.State, position, desktop);
}

void TelRegListe_Click(Program& program, TextView row, Desktop& desktop) {
    ChooseEntry(program, PositionOfRow(row), desktop);
}

void chkListFilter_Click(Program& program, Desktop& desktop) {
    RefreshStatus(program.State, desktop);
}

void Anzeigefeld_KeyDown(Program& program, int field, FieldKey key, bool shift, Desktop& desktop) {
    if (shift && key != FieldKey::Up) {
        btnSaveChange_Click(program, desktop);
    }
    const std::size_t step = key == FieldKey::Up ? FieldCycle.size() - 1 : 1;
    desktop.FocusField(FieldCycle.at((PlaceInCycle(field) + step) % FieldCycle.size()));
}

void Bild1_Click(const Program& program, Desktop& desktop) {
    const Text number = desktop
                            .AskForText({.prompt = u"Testeingabe Internationalisierung",
                                         .title = Text(ProgramName)})
                            .value_or(Text());
    if (number.empty()) {
        return;
    }
    const Text converted = Globalize(number, GlobalizeMode::International, program.Set, desktop);
    desktop.Ask({.text = number + u": " + converted,
                 .title = u"Internationalisierung",
                 .icon = Icon::Information});
}

void mnuBearbeitenKillMSN(Program& program, Desktop& desktop) {
    if (RemoveMsns(program.State, desktop)) {
        // What is stored is shown at once; the other fields keep what the user typed.
        program.Fields.DDMSN = 0;
        program.Shown.DDMSN = 0;
        const RegisterEntry& entry = EntryAt(program.State, program.State.AnzNr);
        program.Fields.Anzeigefeld[MsnFilterField] = Hex2(entry.MsnFilter);
    }
}

void mnuGebDelete(Program& program, Desktop& desktop) {
    if (ClearCharges(program.State, desktop)) {
        program.Fields.AnzGeb = FormatAmount(0);
        program.Shown.AnzGeb = program.Fields.AnzGeb;
        program.Fields.Anzeigefeld[ChargeUnitsField] = Decimal(0);
    }
}

void mnuNameRingtones(Program& program, Desktop& desktop) {
    const std::optional<std::vector<Text>> names = RenameRingtones(program.Folder, desktop);
    if (!names) {
        return;
    }
    FillTones(program.Fields, *names);
    program.Fields.DDTon = 0;
    desktop.ShowEntry();  // its tone stays selected, also when the names cannot be written
    Text remark;
    WriteToneNames(program.Folder, *names, TellDesktop(desktop, remark));
    if (!remark.empty()) {
        desktop.SetStatus(u"Klingeltonnamen gespeichert" + remark);
    }
    program.Fields.btnSaveChange = EditState::Neutral;
}

void mnuDateiLoadSync(Program& program, Desktop& desktop) {
    LoadSyncDatabase(program.Set.Table, program.Sync, desktop);
}

void mnuSyncAdd(Program& program, Desktop& desktop) {
    SearchSyncAddress(program.State, program.Sync, program.Set, desktop);
}

void StoreSettings(Program& program, const SettingsFields& fields, Desktop& desktop) {
    Settings changed = program.Set;
    btnMakeChanges_Click(fields, changed, program.Folder, desktop);
    program.Set = std::move(changed);
    const int units = EntryAt(program.State, program.State.AnzNr).GebEinh;
    program.Shown.AnzGeb = FormatAmount(units * program.Set.UnitPrice);
    if (!program.Fields.ChargeErased) {
        program.Fields.AnzGeb = program.Shown.AnzGeb;
    }
}

void mnuExtraDoubles(Program& program) {
    program.Fields.mnuExtraDoubles = !program.Fields.mnuExtraDoubles;
}

void mnuDateiBeenden(Windows& windows) {
    windows.CloseMainWindow();
}

bool MayClose(const Program& program, Desktop& desktop) {
    return program.State.RegisterSaved ||
           desktop.Ask({.text = u"Beenden ohne zu sichern?",
                        .title = u"Sicherheitsabfrage",
                        .icon = Icon::Question,
                        .buttons = {Button::Ok, Button::Cancel},
                        .defaultButton = Button::Cancel}) == Button::Ok;
}

}  // namespace norvik
