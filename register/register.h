// The telephone register in memory: the table of entries, the order in which they are shown, and
// the small set of operations that keep both consistent.
#pragma once

#include "base/desktop.h"
#include "base/longreport.h"
#include "base/numbers.h"
#include "base/runtimeerror.h"
#include "register/entry.h"
#include "register/placetable.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace norvik {

/// The scroll bar that chooses the shown entry. Its range is 1 to max(1, Maximum).
struct RecordSelector {
    int Maximum = 1;
    int Value = 1;
};

/// What the main window shows of the file last loaded.
struct CurrentFile {
    Text Type;  ///< "195", "193", "175", "CSV", "vCard", or empty
    FilePath Path;
    std::optional<FileTime> Modified;
};

/// What a load did not take of its file. The window shows none of it; who goes on without looking
/// at the register has to know.
struct LoadDamage {
    bool EndsEarly = false;               ///< there is no end mark behind the last entry
    bool LastEntryIsCut = false;          ///< the last entry read is not all there
    bool BrokenEntry = false;             ///< the entry behind those read is not one
    long long CorruptLines = 0;           ///< lines that were reported as such
    bool IsFull = false;                  ///< entries behind the last place of the register
    long long LinesPassedOver = 0;        ///< filled lines that are no entry
    std::size_t BytesBehindEnd = 0;       ///< behind the end mark, when they hold anything
    std::optional<RuntimeError> Failure;  ///< ended the load
    bool NothingToDial = false;           ///< contacts, but no number that can be dialled
};

struct RegisterState {
    RegisterState();

    PlaceTable<RegisterEntry> Register;
    /// Position p of the register is the entry Register(RegisterOrder(p)).
    PlaceTable<std::int16_t> RegisterOrder;
    int AnzGes = 1;       ///< number of used positions
    int AnzNr = 1;        ///< the shown position
    int AnzMarkiert = 0;  ///< number of marked entries, as last counted
    RecordSelector Satzwahl;
    /// True while the register need not be saved before quitting.
    bool RegisterSaved = true;
    Text LoadedModel;  ///< "195", "193", "175"; empty before the first device file, after others
    CurrentFile File;
    LongReport LoadReport;  ///< findings of a load, lines ended by CR LF
    Text ReadTrace;         ///< the last 15 bytes read from a register file, as hexadecimal digits
    int RecordsRead = 0;    ///< whole entries that the last load read before it ended
    LoadDamage Damage;      ///< of the last load
    /// The register may hold zeros for the outside line.
    bool WarnLineAccessZero = false;
    /// Changes whenever the register is emptied: what was taken from it before is stale then.
    unsigned Generation = 0;
    /// Changes whenever the register was loaded whole, or all of its entries saved.
    unsigned WholeFiles = 0;
    Text SavedAs;  ///< the type of the file that holds them then, as CurrentFile has it
};

/// The entry at a position; raises error 9 for a position outside 1 to 2000.
RegisterEntry& EntryAt(RegisterState& state, int position);
const RegisterEntry& EntryAt(const RegisterState& state, int position);

/// A file of the given type now holds all entries of the register: sets RegisterSaved.
void NoteSaved(RegisterState& state, TextView type);

/// Empties all 2000 places and puts entry i at position i; no damage is known of. Count and
/// position stay.
void ResetRegister(RegisterState& state);

/// Makes the entry at table index `index` an empty one; its listed mark stays.
void ClearEntry(RegisterState& state, int index);

/// The table indices that positions 1 to count name, in ascending order: the order in which the
/// operations that go through the table itself visit the shown entries.
std::vector<int> UsedIndices(const RegisterState& state);

/// Sets the count and with it the selector's maximum. Does not touch the shown position.
void SetCount(RegisterState& state, int count);

/// Sets the record selector to `position`, limited to its range; AnzNr follows and the entry is
/// shown.
void SelectRecord(RegisterState& state, int position, Desktop& desktop);

/// Removes the entry at `position` from the used range, unless it is the only one, and shows what
/// stands there now. The freed place of the order list holds the position number afterwards.
void DeleteEntryAt(RegisterState& state, int position, Desktop& desktop);

/// Makes an empty entry behind the last one and gives its position. Raises error 9 on a full
/// register before anything is changed.
int AppendEntry(RegisterState& state);

/// Sets or clears the export mark of the entry at table index `index`; recounts the marked entries
/// when that changed anything.
void SetExportMark(RegisterState& state, int index, bool on);

/// Counts the marked entries into AnzMarkiert: those of the table indices 1 to count, not of the
/// positions.
void CountMarked(RegisterState& state);

/// Brings the status fields and the list up to date after a change of the register.
void RefreshStatus(RegisterState& state, Desktop& desktop);

}  // namespace norvik
