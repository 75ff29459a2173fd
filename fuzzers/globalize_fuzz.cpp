// A mode and any text as a number, with prefixes taken from the input as well.
// Sources: formats/common/globalize.cpp
#include "formats/common/globalize.h"
#include "tests/support/idledesktop.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    constexpr unsigned Modes = 5;
    const auto mode = static_cast<norvik::GlobalizeMode>(data[0] % Modes);
    const std::size_t prefix = data[1] % 5U;
    const norvik::Text text = norvik::TextFromBytes(norvik::ByteView(data + 2, size - 2));
    norvik::Settings settings;
    settings.AreaPrefix = u"0" + norvik::Text(norvik::Slice(text, 0, prefix));
    settings.InternationalPrefix = u"00" + norvik::Text(norvik::Slice(text, prefix, prefix));
    norvik::test::IdleDesktop desktop;
    const norvik::Text number = norvik::Text(norvik::Slice(text, 2 * prefix));
    const norvik::Text result = norvik::Globalize(number, mode, settings, desktop);
    if (mode == norvik::GlobalizeMode::International && !result.starts_with(u"00")) {
        std::abort();
    }
    if (mode == norvik::GlobalizeMode::CleanForTelephone && result.size() > number.size()) {
        std::abort();
    }
    return 0;
}
