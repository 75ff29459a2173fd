// Any bytes as a vCard file of addresses.
// Sources: sync/synccontacts.cpp formats/vcard/vcardlines.cpp formats/vcard/vcardcontact.cpp
#include "sync/synccontacts.h"

#include "formats/vcard/vcardcontact.h"
#include "formats/vcard/vcardnumber.h"
#include "register/entry.h"
#include "tests/support/idledesktop.h"

#include <algorithm>
#include <cstdlib>

namespace {

using namespace norvik;

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

InputStream StreamOf(ByteView bytes) {
    return InputStream(Bytes(bytes.begin(), bytes.end()));
}

template <typename Row>
void RequireShortTexts(const Row& row) {
    for (const TextView cell : row) {
        constexpr std::size_t Longest = 1000;
        Require(cell.size() <= Longest && std::none_of(cell.begin(), cell.end(), IsControl));
        BytesFromText(cell);  // raises for a character that no file holds
    }
}

std::size_t Filled(const SyncTables& tables) {
    std::size_t filled = 0;
    for (std::size_t record = 0; record < tables.SyncPhoneTable.size(); ++record) {
        RequireShortTexts(tables.SyncNameTable.at(record));
        RequireShortTexts(tables.SyncAddressTable.at(record));
        for (const TextView cell : tables.SyncAddressTable.at(record)) {
            Require(cell.find(ExportMark) == TextView::npos);
        }
        for (const TextView number : tables.SyncPhoneTable.at(record)) {
            Require(number.empty() || !Dialled(number, u"49").Number.empty());
            filled += number.empty() ? 0 : 1;
        }
    }
    return filled;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView bytes(data, size);
    InputStream input = StreamOf(bytes);
    SyncTables tables;
    test::IdleDesktop desktop;
    const std::size_t contacts =
        ReadSyncContacts(input, tables, desktop, std::chrono::steady_clock::now);
    Require(contacts <= SyncRecords && tables.SyncPhoneTable.size() <= MostContactRecords + 1);
    const std::size_t filled = Filled(tables);

    InputStream again = StreamOf(bytes);
    VCardReader reader(again);
    std::size_t cards = 0;
    std::size_t numbers = 0;
    for (VCardContact contact; reader.Next(contact); ++cards) {
        numbers += static_cast<std::size_t>(
            std::count_if(contact.Numbers.begin(), contact.Numbers.end(), [](const auto& number) {
                return !Dialled(number.Number, {}).Number.empty();
            }));
    }
    Require(contacts <= cards && filled <= numbers);
    Require(filled > 0 || numbers == 0 || cards > SyncRecords);
    return 0;
}
