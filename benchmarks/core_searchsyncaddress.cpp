// Searching an address database with four numbers a record (1000 records at most), none of which is
// the entry's, against making all those numbers international once.
#include "formats/common/globalize.h"
#include "sync/searchsyncaddress.h"
#include "tests/support/idledesktop.h"
#include "tests/support/settings.h"

#include <benchmark/benchmark.h>

namespace norvik::benchmarks {

namespace {

/// Telephone number `number` in one of the four forms that people write.
std::string Number(std::size_t number) {
    const std::string digits = std::to_string(2'000'000 + number);
    switch (number % SyncTables::PhoneColumns) {
    case SyncTables::Business:
        return "+49 (30) " + digits;
    case SyncTables::Private:
        return "030 " + digits;
    case SyncTables::Fax:
        return "0049-30-" + digits;
    default:
        return digits;
    }
}

/// A database of `records` records, each with an address and four numbers.
SyncState Database(std::size_t records) {
    std::string file;
    for (std::size_t record = 0; record < records; ++record) {
        file += R"("Hauptstr. 1","10115","Berlin")";
        for (std::size_t phone = 0; phone < SyncTables::PhoneColumns; ++phone) {
            file += ",\"" + Number(record * SyncTables::PhoneColumns + phone) + "\"";
        }
        file += "\r\n";
    }
    SettingsTable mapping;
    mapping.SetValue(Setting::SyncAdd, u"1");
    mapping.SetValue(Setting::SyncZip, u"2");
    mapping.SetValue(Setting::SyncCity, u"3");
    mapping.SetValue(Setting::SyncBusiness, u"4");
    mapping.SetValue(Setting::SyncPrivate, u"5");
    mapping.SetValue(Setting::SyncFax, u"6");
    mapping.SetValue(Setting::SyncOther, u"7");
    SyncState sync;
    ReadSyncRecords(ByteView(reinterpret_cast<const Byte*>(file.data()), file.size()), mapping,
                    sync.Tables);
    sync.SyncLoaded = true;
    return sync;
}

void RecordCounts(benchmark::internal::Benchmark* measured) {
    measured->Arg(125)->Arg(250)->Arg(500)->Arg(SyncRecords)->Unit(benchmark::kMicrosecond);
}

void SearchAddress(benchmark::State& run) {
    const SyncState sync = Database(static_cast<std::size_t>(run.range(0)));
    const Settings settings = test::Berlin();
    RegisterState state;
    state.Register(1).Tel = u"030 1999999";
    test::IdleDesktop desktop;
    for (auto _ : run) {
        SearchSyncAddress(state, sync, settings, desktop);
        benchmark::DoNotOptimize(state.Register(1).Info);
    }
}
BENCHMARK(SearchAddress)->Apply(RecordCounts);

void SearchAddress_Baseline(benchmark::State& run) {
    const SyncState sync = Database(static_cast<std::size_t>(run.range(0)));
    const Settings settings = test::Berlin();
    test::IdleDesktop desktop;
    const auto records = static_cast<std::size_t>(run.range(0));
    for (auto _ : run) {
        for (std::size_t record = 1; record <= records; ++record) {
            for (const TextView number : sync.Tables.SyncPhoneTable[record]) {
                benchmark::DoNotOptimize(
                    Globalize(number, GlobalizeMode::International, settings, desktop));
            }
        }
    }
}
BENCHMARK(SearchAddress_Baseline)->Apply(RecordCounts);

}  // namespace

}  // namespace norvik::benchmarks
