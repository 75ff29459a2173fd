#include "formats/registerfile/registerfilemenu.h"

#include "formats/common/followload.h"
#include "formats/common/quietsave.h"
#include "formats/common/undefinederror.h"
#include "formats/registerfile/registerfile.h"

namespace norvik {

void ReportLoadNVError(const RuntimeError& error, Desktop& desktop) {
    switch (error.Number()) {
    case ErrorNumber::FileNotFound:
    case ErrorNumber::FileAlreadyOpen:
    case ErrorNumber::DeviceError:
    case ErrorNumber::BadFileName:
        desktop.Ask({.text = u"Dateizugriff fehlgeschlagen!",
                     .title = u"Zugriffsfehler",
                     .icon = Icon::Critical});
        return;
    default:
        ReportUndefinedError(u"mnuDateiLoadNV", error, desktop);
    }
}

void mnuDateiLoadNV(RegisterState& state, Desktop& desktop) {
    const std::optional<FilePath> chosen = desktop.AskForFileToOpen(
        {.filter = Text(registerfile::OpenFilter), .ending = std::string(registerfile::Ending)});
    if (!chosen) {
        return;
    }
    const FilePath path = WithEnding(*chosen, registerfile::Ending);
    try {
        LoadRegisterFile(state, ReadSourceFile(path), desktop);
        FollowLoad(state, desktop);
    } catch (const RuntimeError& error) {
        ReportLoadNVError(error, desktop);
    }
}

bool LoadNVOrReport(RegisterState& state, const SourceReader& read, Desktop& desktop) {
    try {
        return LoadRegisterFile(state, ReadWhole(read()), desktop);
    } catch (const RuntimeError& error) {
        ReportLoadNVError(error, desktop);
        return false;
    }
}

void mnuDateiSaveNV(RegisterState& state, Desktop& desktop) {
    const std::optional<FilePath> chosen = desktop.AskForFileToSave(
        {.filter = Text(registerfile::SaveFilter195), .ending = std::string(registerfile::Ending)});
    if (!chosen) {
        return;
    }
    const FilePath path = WithEnding(*chosen, registerfile::Ending);
    const SaveResult result = TrySave(
        path, [&](const OutputTarget& target) { WriteRegisterFile195(state, target, desktop); },
        desktop);
    RefreshStatus(state, desktop);
    EndSave(state, result, desktop);
}

namespace {

bool AskForReduction(const RegisterState& state, Desktop& desktop) {
    if (state.LoadedModel == u"193") {
        return false;
    }
    return desktop.Ask({.text = u"Nur markierte Datensätze abspeichern?",
                        .title = u"Datensatzreduktion",
                        .icon = Icon::Question,
                        .buttons = {Button::Yes, Button::No},
                        .defaultButton = Button::No}) == Button::Yes;
}

}  // namespace

void MNUDateiSave193(RegisterState& state, Desktop& desktop) {
    const std::optional<FilePath> chosen = desktop.AskForFileToSave(
        {.filter = Text(registerfile::SaveFilter193), .ending = std::string(registerfile::Ending)});
    if (!chosen) {
        return;
    }
    const FilePath path = WithEnding(*chosen, registerfile::Ending);
    const bool onlyMarked = AskForReduction(state, desktop);
    bool wanted = true;
    const SaveResult result = TrySave(
        path,
        [&](const OutputTarget& target) {
            wanted = WriteRegisterFile193(state, target, onlyMarked, desktop);
        },
        desktop);
    ShowFirstEntry(state, desktop);
    if (wanted) {
        EndSave(state, result, desktop);
    } else {
        desktop.SetStatus(u"Nicht gespeichert: kein Eintrag ist markiert");
    }
}

}  // namespace norvik
