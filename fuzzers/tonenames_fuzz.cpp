// Any bytes as a tone-names file.
// Sources: ringtones/tonenames.cpp
#include "ringtones/tonenames.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<norvik::Text> names = norvik::ToneNamesFrom(norvik::ByteView(data, size));
    if (names.size() != norvik::ToneItems || names.front() != u"kein") {
        std::abort();
    }
    return 0;
}
