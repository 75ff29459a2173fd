// Any bytes as an address database, with a mapping that names fields, none and impossible ones.
#include "sync/synctables.h"

#include <cstdlib>

namespace {

norvik::SettingsTable Mapping() {
    norvik::SettingsTable table;
    int field = 1;
    for (int item = 0; item < static_cast<int>(norvik::SyncItems); ++item) {
        const auto setting =
            static_cast<norvik::Setting>(static_cast<int>(norvik::Setting::SyncName) + item);
        table.SetValue(setting, item == 8 ? norvik::Text(u"41") : norvik::Decimal(field++));
    }
    table.SetValue(norvik::Setting::SyncCompany, u"x");
    return table;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const norvik::SettingsTable settings = Mapping();
    norvik::SyncTables tables;
    const std::size_t records =
        norvik::ReadSyncRecords(norvik::ByteView(data, size), settings, tables);
    std::size_t characters = 0;
    for (std::size_t record = 0; record <= norvik::SyncRecords; ++record) {
        for (const norvik::TextView cell : tables.SyncNameTable.at(record)) {
            characters += cell.size();
            if (cell.find(u'"') != norvik::TextView::npos) {
                std::abort();
            }
        }
        const bool filled = !tables.SyncPhoneTable.at(record)[norvik::SyncTables::Private].empty();
        if ((filled && (record == 0 || record > records)) ||
            !tables.SyncPhoneTable.at(record)[norvik::SyncTables::Fax].empty()) {
            std::abort();
        }
    }
    if (characters > size) {
        std::abort();
    }
    return 0;
}
