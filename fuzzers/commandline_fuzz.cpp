// Any bytes as a command line.
// Sources: mainwindow/commandline.cpp
#include "base/numbers.h"
#include "mainwindow/commandline.h"
#include "tests/support/idledesktop.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const norvik::Text line = norvik::TextFromBytes(norvik::ByteView(data, size));
    for (const norvik::Text& word : norvik::CommandLineWords(line)) {
        if (word.empty() || norvik::Contains(word, u" ")) {
            std::abort();
        }
    }
    norvik::Settings settings;
    norvik::test::IdleDesktop desktop;
    norvik::ReadCommandLine(line, settings, desktop);
    if (norvik::FormatAmount(settings.UnitPrice).size() < 4) {
        std::abort();
    }
    return 0;
}
