// Any bytes as a vCard file, in blocks of any size; with and without an own country.
// Sources: formats/vcard/vcardlines.cpp formats/vcard/vcardproperty.cpp formats/vcard/vcardtext.cpp
// formats/vcard/vcardkind.cpp formats/vcard/vcardcontact.cpp formats/vcard/vcardnumber.cpp
// formats/vcard/vcardentries.cpp formats/vcard/vcardreader.cpp
#include "formats/vcard/vcard.h"
#include "register/register.h"
#include "tests/support/idledesktop.h"

#include <algorithm>
#include <cstdlib>

namespace {

void Verify(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// The bytes, `most` at a time.
norvik::InputStream InBlocks(norvik::ByteView bytes, std::size_t most) {
    const auto read = [bytes, most](std::span<norvik::Byte> block) mutable {
        const norvik::ByteView next = bytes.first(std::min({most, block.size(), bytes.size()}));
        std::copy(next.begin(), next.end(), block.begin());
        bytes = bytes.subspan(next.size());
        return next.size();
    };
    return {read, bytes.size()};
}

void VerifyEntries(const norvik::RegisterState& state) {
    for (int position = 1; position <= state.AnzGes; ++position) {
        const norvik::RegisterEntry& entry = norvik::EntryAt(state, position);
        Verify(!entry.Name.empty() && entry.Name.size() <= norvik::FieldWidth);
        Verify(!entry.Tel.empty() && entry.Tel.size() <= norvik::FieldWidth);
        Verify(entry.Tel.find_first_not_of(u"i*#0123456789Apw") == norvik::Text::npos);
        Verify(entry.Info.size() <= norvik::InfoLines * norvik::InfoLineWidth);
        Verify(!norvik::IsMarked(entry));
        Verify(entry.RecIndex == position - 1);
        for (const norvik::Text& text : {entry.Name, entry.Tel, entry.Info}) {
            Verify(std::none_of(text.begin(), text.end(), norvik::IsControl));
            norvik::BytesFromText(text);  // raises for a character that no file holds
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static norvik::RegisterState state;
    static norvik::RegisterState inSmallBlocks;
    norvik::Settings settings;
    norvik::test::IdleDesktop desktop;
    for (const bool hasCountry : {false, true}) {
        settings.InternationalPrefix = hasCountry ? u"0049" : u"00";
        const norvik::ByteView bytes(data, size);
        const bool loaded =
            norvik::LoadVCard(state, {InBlocks(bytes, size + 1), "a.vcf", {}}, settings, desktop);
        if (!loaded) {
            continue;
        }
        VerifyEntries(state);
        Verify(
            norvik::LoadVCard(inSmallBlocks, {InBlocks(bytes, 3), "a.vcf", {}}, settings, desktop));
        Verify(state.AnzGes == inSmallBlocks.AnzGes);
        for (int position = 1; position <= state.AnzGes; ++position) {
            Verify(norvik::EntryAt(state, position) == norvik::EntryAt(inSmallBlocks, position));
        }
    }
    return 0;
}
