#include "sync/loadsyncdatabase.h"

#include "base/runtimeerror.h"

namespace norvik {

namespace {

/// The file's bytes, or nothing when it does not exist. One that cannot be read counts as empty.
std::optional<Bytes> ReadDatabase(TextView path) {
    try {
        return ReadWholeFile(FindIgnoringCase(PathFromText(path)));
    } catch (const RuntimeError& error) {
        if (error.Number() == ErrorNumber::FileNotFound ||
            error.Number() == ErrorNumber::PathNotFound ||
            error.Number() == ErrorNumber::BadFileName) {
            return std::nullopt;
        }
        return Bytes();
    }
}

}  // namespace

void LoadSyncDatabase(const SettingsTable& settings, SyncState& sync, Desktop& desktop) {
    desktop.SetStatus(u"Lade Adress-Synchronisationsdaten...");
    sync.Tables = SyncTables();
    const std::optional<Bytes> file = ReadDatabase(settings.Value(Setting::SyncDatabase));
    if (!file) {
        desktop.Ask({.text = u"SyncDatei nicht gefunden, bitte prüfen!",
                     .title = u"Laden",
                     .icon = Icon::Critical});
        return;
    }
    const std::size_t records = ReadSyncRecords(*file, settings, sync.Tables);
    desktop.SetStatus(Decimal(static_cast<long long>(records)) + u" Adress-Einträge importiert");
    sync.SyncLoaded = true;
}

}  // namespace norvik
