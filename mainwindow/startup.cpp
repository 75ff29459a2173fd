#include "mainwindow/startup.h"

#include "base/runtimeerror.h"
#include "formats/common/followload.h"
#include "formats/formattable.h"
#include "mainwindow/commandline.h"
#include "mainwindow/operations.h"
#include "ringtones/tonenames.h"

#include <utility>

namespace norvik {

namespace {

void ReadSettingsOrReport(Program& program, Desktop& desktop) {
    try {
        ReadSettingsFile(program.Folder, program.Set.Table);
    } catch (const RuntimeError& error) {
        if (error.Number() == ErrorNumber::FileNotFound ||
            error.Number() == ErrorNumber::PathNotFound) {
            desktop.Ask({.text = u"Ini-Datei nicht vorhanden. Bitte Einstellungen aufrufen und 1x "
                                 u"speichern ('Übernehmen')!"});
        } else {
            ReportUnhandled(error, desktop);
        }
    }
}

void ShowEmptyRegister(Program& program, Desktop& desktop) {
    ClearEntry(program.State, 1);
    program.Fields.btnSearchMoreEnabled = false;
    SetCount(program.State, 1);
    SelectRecord(program.State, 1, desktop);
    RefreshStatus(program.State, desktop);
}

/// A start file with the text that names it.
struct StartFile {
    FilePath Path;
    Text Name;
};

/// The start file of the settings or the command line, whose path has been lowered; a relative one
/// counts from `folder`.
StartFile NamedStartFile(const Text& name, const FilePath& folder) {
    const FilePath path = PathFromText(name);
    return {FindIgnoringCase(folder, path), TextFromPath(path)};
}

/// Loads the start file as its ending says; a failure was reported when this gives false.
bool LoadByEnding(Program& program, const StartFile& file, Desktop& desktop) {
    if (const FormatRow* row = RowOfStartFile(file.Name)) {
        return row->LoadStartFile(program.State, file.Path, program.Set, desktop);
    }
    desktop.Ask({.text = file.Name + u" kann nicht automatisch geladen werden",
                 .title = u"Autoload",
                 .icon = Icon::Critical});
    return false;
}

void LoadStartFile(Program& program, const StartFile& file, Desktop& desktop) {
    RegisterState& state = program.State;
    if (!LoadByEnding(program, file, desktop)) {
        ShowFirstEntry(state, desktop);
    } else if (state.AnzGes > 0) {
        FollowLoad(state, desktop);
    } else {
        state.WarnLineAccessZero = true;
        ShowFirstEntry(state, desktop);
    }
}

/// Loads the given file, or the named start file where none is given. Forgets the named one.
void Autoload(Program& program, const FilePath& given, Desktop& desktop) {
    const bool named = std::exchange(program.Set.AutoloadFlag, false);
    const Text name = std::exchange(program.Set.StartFile, Text());
    const FilePath folder = std::exchange(program.Set.StartFolder, FilePath());
    if (!given.empty()) {
        LoadStartFile(program, {given, TextFromPath(given)}, desktop);
    } else if (named) {
        LoadStartFile(program, NamedStartFile(name, folder), desktop);
    }
}

}  // namespace

void LoadSettings(Program& program, TextView commandLine, Desktop& desktop) {
    program.Set = Settings();
    desktop.SetStatus(u"Lade Ini-Datei...");
    ReadSettingsOrReport(program, desktop);
    ApplySettings(program.Set);
    ReadCommandLine(commandLine, program.Set, desktop);
    ResetRegister(program.State);
}

void StartUp(Program& program, TextView commandLine, Desktop& desktop, const FilePath& file) {
    desktop.SetStatus(u"Lade Konstanten...");
    LoadSettings(program, commandLine, desktop);
    desktop.SetStatus(u"Lade Oberfläche...");
    FillAnnouncements(program.Fields);
    desktop.SetStatus(u"Lade Klingeltöne...");
    FillTones(program.Fields, ReadToneNames(program.Folder));
    FillMsns(program.Fields);
    ShowEmptyRegister(program, desktop);
    desktop.ShowCurrentFile();
    EnableSaveMenus(program.Fields, true);
    program.State.RegisterSaved = true;
    desktop.SetStatus(u"Lade Startdatei...");
    Autoload(program, file, desktop);
    if (program.Set.Table.Value(Setting::LoadSyncOnStart) == u"yes") {
        LoadSyncDatabase(program.Set.Table, program.Sync, desktop);
    }
    desktop.SetStatus(u"OK");
    program.State.WarnLineAccessZero = true;
    StartHistory(program.Past, program.State);
}

}  // namespace norvik
