#include "formats/phonebook175/phonebookfilemenu.h"

#include "formats/common/followload.h"
#include "formats/common/quietsave.h"
#include "formats/common/undefinederror.h"
#include "formats/phonebook175/phonebookfile.h"

namespace norvik {

void mnuDateiLoad175(RegisterState& state, Desktop& desktop) {
    const std::optional<FilePath> chosen =
        desktop.AskForFileToOpen({.filter = Text(phonebookfile::DialogFilter),
                                  .ending = std::string(phonebookfile::Ending)});
    if (chosen && Load175OrReport(state, WithEnding(*chosen, phonebookfile::Ending), desktop)) {
        FollowLoad(state, desktop);
    }
}

bool Load175OrReport(RegisterState& state, const FilePath& path, Desktop& desktop) {
    return Load175OrReport(
        state, [&path] { return OpenSourceFile(path); }, desktop);
}

bool Load175OrReport(RegisterState& state, const SourceReader& read, Desktop& desktop) {
    bool ofThisKind = false;
    const auto load = [&] { ofThisKind = LoadPhonebookFile(state, ReadWhole(read()), desktop); };
    const auto report = [&desktop](const RuntimeError& error) {
        desktop.SetPointer(Pointer::Normal);
        ReportUndefinedError(u"mnuDateiLoad175", error, desktop);
    };
    return LoadOrReport(state, load, report, desktop) && ofThisKind;
}

void mnuDateiSave175(RegisterState& state, Desktop& desktop) {
    const std::optional<FilePath> chosen =
        desktop.AskForFileToSave({.filter = Text(phonebookfile::DialogFilter),
                                  .ending = std::string(phonebookfile::Ending)});
    if (!chosen) {
        return;
    }
    const FilePath path = WithEnding(*chosen, phonebookfile::Ending);
    const SaveResult result = TrySave(
        path, [&](const OutputTarget& target) { WritePhonebookFile(state, target, desktop); },
        desktop);
    ShowFirstEntry(state, desktop);
    EndSave(state, result, desktop);
}

}  // namespace norvik
