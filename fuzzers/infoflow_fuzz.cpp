// Any text, its line feeds between the fields, as the info fields of a line.
// Sources: formats/csv/infoflow.cpp
#include "base/windows1252.h"
#include "formats/csv/infoflow.h"
#include "register/entry.h"

#include <cstdlib>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const norvik::Text text = norvik::TextFromBytes(norvik::ByteView(data, size));
    std::vector<norvik::TextView> fields;
    norvik::TextView rest = text;
    while (fields.size() < norvik::InfoLines) {
        const std::size_t end = rest.find(u'\n');
        fields.push_back(rest.substr(0, end));
        if (end == norvik::TextView::npos) {
            break;
        }
        rest.remove_prefix(end + 1);
    }
    const norvik::Text info = norvik::AssembleInfo(fields);
    if (info.size() > norvik::InfoLines * norvik::InfoLineWidth || info.ends_with(u' ')) {
        std::abort();
    }
    return 0;
}
