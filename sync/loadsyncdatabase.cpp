#include "sync/loadsyncdatabase.h"

#include "base/files.h"
#include "base/runtimeerror.h"
#include "sync/synccontacts.h"

namespace norvik {

namespace {

void ShowNotLoaded(Desktop& desktop) {
    desktop.SetStatus(u"Adress-Synchronisationsdaten nicht geladen");
}

/// Fills the tables as far as the file can be read; gives the number of records.
std::size_t ReadDatabase(const SettingsTable& settings, SyncTables& tables, Desktop& desktop,
                         const Clock& clock) {
    const TextView name = settings.Value(Setting::SyncDatabase);
    const FilePath path = FindIgnoringCase(settings.Folder(), PathFromText(name));
    if (NamesVCard(name)) {
        InputStream input = OpenFile(path);
        return ReadSyncContacts(input, tables, desktop, clock);
    }
    return ReadSyncRecords(ReadWholeFile(path), settings, tables);
}

/// Fills the emptied tables; gives the number of records, or nothing when there is no file. One
/// that cannot be read counts as empty.
std::optional<std::size_t> FillTables(const SettingsTable& settings, SyncTables& tables,
                                      Desktop& desktop, const Clock& clock) {
    tables = SyncTables();
    try {
        return ReadDatabase(settings, tables, desktop, clock);
    } catch (const RuntimeError& error) {
        if (error.Number() == ErrorNumber::FileNotFound ||
            error.Number() == ErrorNumber::PathNotFound ||
            error.Number() == ErrorNumber::BadFileName) {
            return std::nullopt;
        }
        return 0;
    }
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

void LoadSyncDatabase(const SettingsTable& settings, SyncState& sync, Desktop& desktop,
                      const Clock& clock) {
    desktop.SetStatus(u"Lade Adress-Synchronisationsdaten...");
    std::optional<std::size_t> records;
    try {
        records = FillTables(settings, sync.Tables, desktop, clock);
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
