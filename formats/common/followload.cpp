#include "formats/common/followload.h"

#include "registertools/sortregister.h"

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

}  // namespace norvik
