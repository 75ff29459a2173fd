// Any bytes as a vCard file, in blocks of any size; with and without an own
// country, with and without a character set told.
// Sources: formats/vcard/vcardlines.cpp formats/vcard/vcardproperty.cpp formats/vcard/vcardtext.cpp
// Sources: formats/vcard/vcardkind.cpp formats/vcard/vcardcontact.cpp formats/vcard/vcardnumber.cpp
// Sources: formats/vcard/vcardentries.cpp formats/vcard/vcardreader.cpp
#include "formats/vcard/vcard.h"
#include "formats/vcard/vcardentries.h"
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

void VerifyEntry(const norvik::RegisterEntry& entry) {
    Verify(!entry.Name.empty() && entry.Name.size() <= norvik::FieldWidth);
    Verify(!entry.Tel.empty() && entry.Tel.size() <= norvik::FieldWidth);
    Verify(entry.Tel.find_first_not_of(u"i*#0123456789Apw") == norvik::Text::npos);
    Verify(entry.Info.size() <= norvik::InfoLines * norvik::InfoLineWidth);
    Verify(!norvik::IsMarked(entry));
    for (const norvik::Text& text : {entry.Name, entry.Tel, entry.Info}) {
        Verify(std::none_of(text.begin(), text.end(), norvik::IsControl));
        norvik::BytesFromText(text);  // raises for a character that no file holds
    }
}

/// What the contacts give, read in blocks of at most so many bytes.
norvik::VCardEntries EntriesOf(norvik::ByteView bytes, std::size_t most, norvik::Charset characters,
                               const norvik::Settings& settings) {
    norvik::InputStream input = InBlocks(bytes, most);
    norvik::VCardReader reader(input, characters);
    norvik::VCardEntries entries(settings);
    norvik::VCardContact contact;
    while (reader.Next(contact)) {
        entries.Take(contact);
    }
    return entries;
}

/// A load empties thousands of places, so not every input is worth it.
bool IsToBeLoaded(std::size_t size) {
    constexpr std::size_t Every = 64;
    return size % Every == 0;
}

void VerifyLoad(norvik::ByteView bytes, const norvik::Settings& settings,
                const std::vector<norvik::RegisterEntry>& entries) {
    static norvik::RegisterState state;
    norvik::test::IdleDesktop desktop;
    const bool loaded = norvik::LoadVCard(state, {InBlocks(bytes, bytes.size() + 1), "a.vcf", {}},
                                          settings, desktop);
    Verify(loaded == !entries.empty());
    if (!loaded) {
        return;
    }
    Verify(state.AnzGes == static_cast<int>(entries.size()));
    for (int position = 1; position <= state.AnzGes; ++position) {
        norvik::RegisterEntry entry = norvik::EntryAt(state, position);
        Verify(entry.RecIndex == position - 1);
        entry.RecIndex = 0;
        Verify(entry == entries[static_cast<std::size_t>(position) - 1]);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const norvik::ByteView bytes(data, size);
    norvik::Settings settings;
    settings.InternationalPrefix = size % 2 == 0 ? u"0049" : u"00";
    const auto characters = static_cast<norvik::Charset>(size / 2 % 3);
    const norvik::VCardEntries whole = EntriesOf(bytes, size + 1, characters, settings);
    std::for_each(whole.Entries.begin(), whole.Entries.end(), VerifyEntry);
    const norvik::VCardEntries inSmallBlocks = EntriesOf(bytes, 3, characters, settings);
    Verify(whole.Entries == inSmallBlocks.Entries);
    Verify(whole.Report == inSmallBlocks.Report.Shown());
    if (IsToBeLoaded(size)) {
        VerifyLoad(bytes, settings,
                   EntriesOf(bytes, 3, norvik::Charset::Automatic, settings).Entries);
    }
    return 0;
}
