// Any bytes as an address database, with a mapping that names fields, none and impossible ones.
// Sources: sync/synctables.cpp sync/quotedfields.cpp base/charset.cpp base/simplify.cpp
#include "sync/synctables.h"

#include <cstdlib>

namespace {

using namespace norvik;

/// Fields 1 to 8 for the items, but an impossible one for the company and one too large for the
/// fax.
SettingsTable Mapping() {
    SettingsTable table;
    table.SetValue(Setting::SyncName, u"1");
    table.SetValue(Setting::SyncGiven, u"2");
    table.SetValue(Setting::SyncCompany, u"x");
    table.SetValue(Setting::SyncAdd, u"3");
    table.SetValue(Setting::SyncZip, u"4");
    table.SetValue(Setting::SyncCity, u"5");
    table.SetValue(Setting::SyncBusiness, u"6");
    table.SetValue(Setting::SyncPrivate, u"7");
    table.SetValue(Setting::SyncFax, u"41");
    table.SetValue(Setting::SyncOther, u"40");
    return table;
}

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// The number of characters in a row's cells, none of which holds a quote.
template <typename Row>
std::size_t Characters(const Row& row) {
    std::size_t characters = 0;
    for (const TextView cell : row) {
        Require(cell.find(u'"') == TextView::npos);
        characters += cell.size();
    }
    return characters;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const SettingsTable settings = Mapping();
    SyncTables tables;
    const std::size_t records = ReadSyncRecords(ByteView(data, size), settings, tables);
    constexpr std::size_t ByteOrderMark = 3;
    Require(records <= SyncRecords);
    Require(size > 0 || records == 0);
    Require(size <= ByteOrderMark || records > 0);
    std::size_t all = 0;
    for (std::size_t record = 0; record <= SyncRecords; ++record) {
        const auto& names = tables.SyncNameTable.at(record);
        const auto& phones = tables.SyncPhoneTable.at(record);
        Require(names[SyncTables::Company].empty() && phones[SyncTables::Fax].empty());
        const std::size_t characters =
            Characters(names) + Characters(phones) + Characters(tables.SyncAddressTable.at(record));
        Require(characters == 0 || (record > 0 && record <= records));
        all += characters;
    }
    constexpr std::size_t LongestSpelling = 2;  // for each byte of a character
    Require(all <= size * LongestSpelling);
    return 0;
}
