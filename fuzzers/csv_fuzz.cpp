// Any bytes as a CSV file, with and without the removal of doubled lines; the header's quotes
// decide which splitter is at work.
// Sources: formats/csv/csvreader.cpp formats/csv/csvsplit.cpp base/charset.cpp base/simplify.cpp
#include "formats/csv/csvformat.h"
#include "register/register.h"
#include "tests/support/idledesktop.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static norvik::RegisterState state;
    const norvik::Settings settings;
    norvik::test::IdleDesktop desktop;
    for (const bool removeDoubles : {false, true}) {
        norvik::ResetRegister(state);
        state.LoadReport.Clear();
        try {
            const int count = norvik::ReadCSV(state, norvik::ByteView(data, size),
                                              {.AvoidDoubles = removeDoubles}, settings, desktop);
            for (int position = 1; position <= count; ++position) {
                const norvik::RegisterEntry& entry = norvik::EntryAt(state, position);
                if (entry.Name.size() > norvik::FieldWidth ||
                    entry.Tel.size() > norvik::FieldWidth || entry.Info.size() > 126 ||
                    entry.RecIndex != position - 1) {
                    std::abort();
                }
            }
        } catch (const norvik::RuntimeError&) {
        }
    }
    return 0;
}
