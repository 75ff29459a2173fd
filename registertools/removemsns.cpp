#include "registertools/removemsns.h"

namespace norvik {

bool RemoveMsns(RegisterState& state, Desktop& desktop) {
    Text question = u"Diese Aktion löscht alle Einstellungen zu abgehenden MSN!";
    question.append(LineEnd);
    if (desktop.Ask({.text = question,
                     .title = u"MSN löschen",
                     .icon = Icon::Exclamation,
                     .buttons = {Button::Ok, Button::Cancel},
                     .defaultButton = Button::Cancel}) != Button::Ok) {
        return false;
    }
    int removed = 0;
    for (const int index : UsedIndices(state)) {
        RegisterEntry& entry = state.Register(index);
        if (MsnOf(entry) <= LastMsn) {
            entry.MsnFilter |= MsnOfTelephone;
            ++removed;
        }
    }
    // Without a blank behind the number.
    desktop.SetStatus(Decimal(removed) + u"abgehende MSN-Einträge wurden gelöscht.");
    return true;
}

}  // namespace norvik
