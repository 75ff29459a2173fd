// Any bytes as a settings file: read, applied, its price shown; what is written of it reads the
// same.
// Sources: register/settings.cpp
#include "base/numbers.h"
#include "register/settings.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    norvik::Settings settings;
    norvik::ReadSettings(norvik::ByteView(data, size), settings.Table);
    norvik::ApplySettings(settings);
    for (int row = 26; row <= norvik::SettingsRows; ++row) {
        if (!settings.Table.At(row).Value.empty()) {
            std::abort();
        }
    }
    norvik::SettingsTable again;
    norvik::ReadSettings(norvik::BytesFromText(norvik::SettingsText(settings.Table)), again);
    for (int row = 1; row <= norvik::SettingsRows; ++row) {
        if (again.At(row).Value != settings.Table.At(row).Value) {
            std::abort();
        }
    }
    if (norvik::FormatAmount(settings.UnitPrice * 32768).size() < 4) {
        std::abort();
    }
    return 0;
}
