#include "sync/loadsyncdatabase.h"

#include "base/files.h"
#include "base/runtimeerror.h"

namespace norvik {

namespace {

/// The file's bytes, or nothing when it does not exist. One that cannot be read counts as empty.
std::optional<Bytes> ReadDatabase(const SettingsTable& settings) {
    try {
        const FilePath path = PathFromText(settings.Value(Setting::SyncDatabase));
        return ReadWholeFile(FindIgnoringCase(settings.Folder(), path));
    } catch (const RuntimeError& error) {
        if (error.Number() == ErrorNumber::FileNotFound ||
            error.Number() == ErrorNumber::PathNotFound ||
            error.Number() == ErrorNumber::BadFileName) {
            return std::nullopt;
        }
        return Bytes();
    }
}

void ShowNotLoaded(Desktop& desktop) {
    desktop.SetStatus(u"Adress-Synchronisationsdaten nicht geladen");
}

/// Fills the emptied tables; gives the number of records, or nothing when there is no file.
std::optional<std::size_t> FillTables(const SettingsTable& settings, SyncTables& tables) {
    tables = SyncTables();
    const std::optional<Bytes> file = ReadDatabase(settings);
    if (!file) {
        return std::nullopt;
    }
    return ReadSyncRecords(*file, settings, tables);
}

/// What the status line says of a load: it has no report.
Text Imported(std::size_t records, const SyncTables& tables) {
    Text status = Decimal(static_cast<long long>(records)) + u" Adress-Einträge importiert";
    if (tables.ReplacedRecords > 0) {
        constexpr std::size_t LongestName = 40;
        status.append(u"; Zeichen ersetzt: ").append(Slice(tables.FirstReplaced, 0, LongestName));
    }
    if (tables.ReplacedRecords > 1) {
        status +=
            u" und " + Decimal(static_cast<long long>(tables.ReplacedRecords - 1)) + u" weitere";
    }
    return status;
}

}  // namespace

void LoadSyncDatabase(const SettingsTable& settings, SyncState& sync, Desktop& desktop) {
    desktop.SetStatus(u"Lade Adress-Synchronisationsdaten...");
    std::optional<std::size_t> records;
    try {
        records = FillTables(settings, sync.Tables);
    } catch (const std::exception&) {  // memory ran out
        ShowNotLoaded(desktop);
        throw;
    }
    if (!records) {
        desktop.Ask({.text = u"SyncDatei nicht gefunden, bitte prüfen!",
                     .title = u"Laden",
                     .icon = Icon::Critical});
        ShowNotLoaded(desktop);
        return;
    }
    desktop.SetStatus(Imported(*records, sync.Tables));
    sync.SyncLoaded = true;
}

}  // namespace norvik
