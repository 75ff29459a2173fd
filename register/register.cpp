#include "register/register.h"

#include <algorithm>
#include <array>

namespace norvik {

namespace {

/// The lowest table index that no position 1 to count names; there is one while count < 2000.
int LowestFreeIndex(const RegisterState& state) {
    std::array<bool, RegisterPlaces + 1> used{};
    for (int position = 1; position <= state.AnzGes; ++position) {
        used.at(static_cast<std::size_t>(state.RegisterOrder(position))) = true;
    }
    const auto* free = std::find(used.begin() + 1, used.end(), false);
    return static_cast<int>(free - used.begin());
}

bool IsShown(const RegisterState& state, int index) {
    for (int position = 1; position <= state.AnzGes; ++position) {
        if (state.RegisterOrder(position) == index) {
            return true;
        }
    }
    return false;
}

}  // namespace

RegisterState::RegisterState() {
    ResetRegister(*this);
}

RegisterEntry& EntryAt(RegisterState& state, int position) {
    return state.Register(state.RegisterOrder(position));
}

const RegisterEntry& EntryAt(const RegisterState& state, int position) {
    return state.Register(state.RegisterOrder(position));
}

void NoteSaved(RegisterState& state, TextView type) {
    state.RegisterSaved = true;
    state.SavedAs = Text(type);
    ++state.WholeFiles;
}

void ResetRegister(RegisterState& state) {
    ++state.Generation;
    state.Damage = {};
    for (int place = 1; place <= RegisterPlaces; ++place) {
        ClearEntry(state, place);
        state.Register(place).Listed = false;
        state.RegisterOrder(place) = static_cast<std::int16_t>(place);
    }
}

void ClearEntry(RegisterState& state, int index) {
    RegisterEntry& entry = state.Register(index);
    const bool listed = entry.Listed;
    entry = RegisterEntry();
    entry.RecIndex = static_cast<std::int16_t>(index - 1);
    entry.Listed = listed;
}

std::vector<int> UsedIndices(const RegisterState& state) {
    std::vector<int> indices;
    indices.reserve(static_cast<std::size_t>(std::max(0, state.AnzGes)));
    for (int position = 1; position <= state.AnzGes; ++position) {
        indices.push_back(state.RegisterOrder(position));
    }
    std::sort(indices.begin(), indices.end());
    return indices;
}

void SetCount(RegisterState& state, int count) {
    state.AnzGes = count;
    state.Satzwahl.Maximum = std::max(1, count);
}

void SelectRecord(RegisterState& state, int position, Desktop& desktop) {
    state.Satzwahl.Value = std::clamp(position, 1, state.Satzwahl.Maximum);
    state.AnzNr = state.Satzwahl.Value;
    desktop.ShowEntry();
}

void DeleteEntryAt(RegisterState& state, int position, Desktop& desktop) {
    if (state.AnzGes > 1) {
        const int count = state.AnzGes - 1;
        for (int i = position; i <= count; ++i) {
            state.RegisterOrder(i) = state.RegisterOrder(i + 1);
        }
        // The position number, not the freed table index: kept as it has always been.
        state.RegisterOrder(count + 1) = static_cast<std::int16_t>(position);
        SetCount(state, count);
    }
    // Erasing the last position leaves `position` behind the range; the selector limits it.
    SelectRecord(state, position, desktop);
    RefreshStatus(state, desktop);
}

int AppendEntry(RegisterState& state) {
    const int position = state.AnzGes + 1;
    int index = state.RegisterOrder(position);
    // After an erase in a sorted register the place behind the range may name a live entry.
    if (IsShown(state, index)) {
        index = LowestFreeIndex(state);
        state.RegisterOrder(position) = static_cast<std::int16_t>(index);
    }
    SetCount(state, position);
    ClearEntry(state, index);
    return position;
}

void SetExportMark(RegisterState& state, int index, bool on) {
    Text& info = state.Register(index).Info;
    const std::size_t mark = info.find(ExportMark);
    if (on && mark == Text::npos) {
        info.insert(0, ExportMark);
        CountMarked(state);
    } else if (!on && mark != Text::npos) {
        info.erase(mark, ExportMark.size());
        CountMarked(state);
    }
}

void CountMarked(RegisterState& state) {
    int marked = 0;
    for (int index = 1; index <= state.AnzGes; ++index) {
        if (IsMarked(state.Register(index))) {
            ++marked;
        }
    }
    state.AnzMarkiert = marked;
}

void RefreshStatus(RegisterState& state, Desktop& desktop) {
    CountMarked(state);
    desktop.RebuildList();
}

}  // namespace norvik
