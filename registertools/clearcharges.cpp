#include "registertools/clearcharges.h"

namespace norvik {

bool ClearCharges(RegisterState& state, Desktop& desktop) {
    Text question = u"Diese Aktion löscht alle individuellen Gebührenzähler!";
    question.append(LineEnd);
    if (desktop.Ask({.text = question,
                     .title = u"Zähler löschen",
                     .icon = Icon::Exclamation,
                     .buttons = {Button::Ok, Button::Cancel}}) != Button::Ok) {
        return false;
    }
    for (int position = 1; position <= state.AnzGes; ++position) {
        EntryAt(state, position).GebEinh = 0;
    }
    desktop.SetStatus(u"Alle individuellen Gebührenzähler wurden gelöscht.");
    return true;
}

}  // namespace norvik
