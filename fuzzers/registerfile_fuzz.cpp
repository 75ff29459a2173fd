// Any bytes as a register file: read, checked, sorted, searched, shown and written again.
// Sources: formats/registerfile/registerfilereader.cpp
#include "formats/registerfile/registerfilereader.h"
#include "mainwindow/listrows.h"
#include "mainwindow/showentry.h"
#include "registertools/checkregister.h"
#include "registertools/searchregister.h"
#include "registertools/sortregister.h"
#include "tests/support/idledesktop.h"

#include <cstdlib>

namespace {

/// The invariants that hold after any file.
void Verify(bool holds) {
    if (!holds) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static norvik::RegisterState state;
    norvik::test::IdleDesktop desktop;
    norvik::ResetRegister(state);
    state.LoadReport.Clear();
    try {
        const int count = norvik::ReadRegisterFile(state, norvik::ByteView(data, size), desktop);
        Verify(count >= 0 && count <= norvik::RegisterPlaces);
        norvik::SetCount(state, count);
        norvik::CountMarked(state);
        norvik::CheckRegister(state, desktop);
        Verify(state.LoadedModel == u"195" || state.LoadedModel == u"193");
        int place = 1;
        norvik::SortRegister(state, place, desktop);
        norvik::SearchRegister(state, u"\u00FC1", false, desktop);
        norvik::MainWindowFields fields;
        norvik::ShowEntry(state, 0.12, fields);
        norvik::StoreEntry(fields, state);
        Verify(norvik::ListRows(state, false).size() <= static_cast<std::size_t>(count));
    } catch (const norvik::RuntimeError&) {
    } catch (const norvik::HardStop&) {
    }
    Verify(state.ReadTrace.size() <= 30);
    return 0;
}
