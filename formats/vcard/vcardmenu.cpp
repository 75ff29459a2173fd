#include "formats/vcard/vcardmenu.h"

#include "formats/common/followload.h"
#include "formats/common/quietsave.h"
#include "formats/common/undefinederror.h"
#include "formats/vcard/vcard.h"
#include "formats/vcard/vcardwriter.h"

namespace norvik {

void mnuDateiLoadVCard(RegisterState& state, const Settings& settings, Desktop& desktop) {
    const std::optional<FilePath> chosen = desktop.AskForFileToOpen(
        {.filter = Text(vcard::DialogFilter), .ending = std::string(vcard::Ending)});
    if (!chosen) {
        return;
    }
    const FilePath path = WithEnding(*chosen, vcard::Ending);
    const auto open = [&path] { return OpenSourceFile(path); };
    if (LoadVCardOrReport(state, open, settings, desktop)) {
        FollowLoad(state, desktop);
    }
}

void mnuDateiSaveVCard(RegisterState& state, const Settings& settings, Desktop& desktop) {
    const std::optional<FilePath> chosen = desktop.AskForFileToSave(
        {.filter = Text(vcard::DialogFilter), .ending = std::string(vcard::Ending)});
    if (!chosen) {
        return;
    }
    const FilePath path = WithEnding(*chosen, vcard::Ending);
    const SaveResult result = TrySave(
        path, [&](const OutputTarget& target) { WriteVCard(state, target, settings); }, desktop);
    if (result.Failure) {
        ReportUndefinedError(u"mnuDateiSaveVCard", *result.Failure, desktop);
        ShowNotSaved(*result.Failure, desktop);
        return;
    }
    ShowSaved(path, desktop, result.Remark);
}

bool LoadVCardOrReport(RegisterState& state, const SourceReader& open, const Settings& settings,
                       Desktop& desktop, Charset characters) {
    bool hasNumbers = false;
    const auto load = [&] { hasNumbers = LoadVCard(state, open(), settings, desktop, characters); };
    const auto report = [&desktop](const RuntimeError& error) {
        ReportUndefinedError(u"mnuDateiLoadVCard", error, desktop);
    };
    return LoadOrReport(state, load, report, desktop) && hasNumbers;
}

}  // namespace norvik
