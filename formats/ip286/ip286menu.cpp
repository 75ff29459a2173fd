#include "formats/ip286/ip286menu.h"

#include "formats/common/quietsave.h"
#include "formats/common/undefinederror.h"
#include "formats/ip286/ip286.h"

namespace norvik {

namespace {

/// The texts that the user types until an empty one, joined by "|".
Text AskForExclusions(Desktop& desktop) {
    Text exclusions;
    for (;;) {
        const Text answer = desktop
                                .AskForText({.prompt = u"Texte ausschließen (leer für beenden)",
                                             .title = u"Exportbeschränkung"})
                                .value_or(Text());
        if (answer.empty()) {
            return exclusions.substr(exclusions.empty() ? 0 : 1);
        }
        exclusions.append(u"|").append(answer);
    }
}

}  // namespace

void WarnOfLargeRegister(const RegisterState& state, Desktop& desktop) {
    if (state.AnzGes > LargestIP286Register) {
        desktop.Ask({.text = u"Der Datensatz wird " + Decimal(state.AnzGes) +
                             u" Datensätze beinhalten, ein Yealink T28 speichert jedoch maximal "
                             u"300 Datensätze. Der Import wird einige Datensätze ignorieren!",
                     .title = u"WARNHINWEIS",
                     .icon = Icon::Critical});
    }
}

void mnuDateiSaveIP286(RegisterState& state, Desktop& desktop) {
    WarnOfLargeRegister(state, desktop);
    const std::optional<FilePath> chosen = desktop.AskForFileToSave(
        {.filter = Text(ip286::DialogFilter), .ending = std::string(ip286::Ending)});
    if (!chosen) {
        return;
    }
    const Text exclusions = AskForExclusions(desktop);
    const FilePath path = WithEnding(*chosen, ip286::Ending);
    Text remark = desktop.BeforeReplacing(path);
    try {
        ExportIP286(state, TargetOf(path, desktop, remark), exclusions, desktop);
    } catch (const RuntimeError& error) {
        ReportUndefinedError(u"mnuDateiSaveIP286", error, desktop);
        ShowNotSaved(error, desktop);
        return;
    }
    desktop.ShowEntry();
    ShowSaved(path, desktop, remark);
}

}  // namespace norvik
