// Any bytes as the lines behind the identification line of a 175 phonebook file.
// Sources: formats/phonebook175/phonebookfilereader.cpp base/lines.cpp
#include "base/lines.h"
#include "formats/phonebook175/phonebookfile.h"
#include "tests/support/idledesktop.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static norvik::RegisterState state;
    norvik::test::IdleDesktop desktop;
    norvik::ResetRegister(state);
    norvik::LineReader lines(norvik::ByteView(data, size));
    try {
        const int count = norvik::ReadPhonebookEntries(state, lines, desktop);
        for (int position = 1; position <= count; ++position) {
            const norvik::RegisterEntry& entry = norvik::EntryAt(state, position);
            if (entry.Name.size() > norvik::FieldWidth || entry.Tel.size() > norvik::FieldWidth ||
                entry.Info.size() > 126 || entry.MsnFilter != norvik::MsnOfTelephone) {
                std::abort();
            }
        }
    } catch (const norvik::RuntimeError&) {
    }
    return 0;
}
