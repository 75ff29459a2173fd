#include "formats/common/followload.h"

#include "registertools/sortregister.h"

#include <algorithm>

namespace norvik {

void FollowLoad(RegisterState& state, Desktop& desktop) {
    state.WarnLineAccessZero = true;
    int place = 1;
    SortRegister(state, place, desktop);
    ShowFirstEntry(state, desktop);
}

void ShowFirstEntry(RegisterState& state, Desktop& desktop) {
    SelectRecord(state, 1, desktop);
    RefreshStatus(state, desktop);
}

namespace {

void ShowAbortedLoad(RegisterState& state, Desktop& desktop) {
    SetCount(state, std::max(1, state.RecordsRead));
    state.RegisterSaved = false;
    desktop.ShowCurrentFile();
    ShowFirstEntry(state, desktop);
}

}  // namespace

bool LoadOrReport(RegisterState& state, const std::function<void()>& load,
                  const std::function<void(const RuntimeError&)>& report, Desktop& desktop) {
    const unsigned before = state.Generation;
    std::optional<RuntimeError> failure;
    try {
        load();
        if (state.Generation != before) {
            state.SavedAs = state.File.Type;
            ++state.WholeFiles;
        }
        return true;
    } catch (const RuntimeError& error) {
        failure = error;
    } catch (const std::exception&) {  // memory ran out
        if (state.Generation != before) {
            ShowAbortedLoad(state, desktop);
        }
        throw;
    }
    report(*failure);
    if (state.Generation != before) {
        state.Damage.Failure = failure;
        ShowAbortedLoad(state, desktop);
    }
    return false;
}

}  // namespace norvik
