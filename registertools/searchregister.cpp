#include "registertools/searchregister.h"

#include <algorithm>

namespace norvik {

namespace {

/// A search ends when it has come to an end of the register this many times.
constexpr int WrapsToEnd = 2;

bool Matches(const RegisterEntry& entry, TextView loweredTerm) {
    return Contains(LowerCase(entry.Name + entry.Info + entry.Tel), loweredTerm);
}

}  // namespace

void SearchRegister(RegisterState& state, TextView term, bool continueSearch, Desktop& desktop,
                    SearchDirection direction) {
    const Text lowered = LowerCase(term);
    int position = continueSearch ? state.AnzNr : 1;
    int wraps = 0;
    const auto advance = [&] {
        position += direction == SearchDirection::Forwards ? 1 : -1;
        if (position > state.AnzGes) {
            position = 1;
            ++wraps;
        } else if (position < 1) {
            position = std::max(1, state.AnzGes);
            ++wraps;
        }
    };

    if (continueSearch) {
        advance();
    }
    while (wraps < WrapsToEnd) {
        if (Matches(EntryAt(state, position), lowered)) {
            desktop.Beep();
            SelectRecord(state, position, desktop);
            return;
        }
        advance();
    }
    desktop.Ask({.text = u"Der Suchbegriff wurde nicht gefunden",
                 .title = u"Suche",
                 .icon = Icon::Information});
}

}  // namespace norvik
