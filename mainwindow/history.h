// The steps that can be undone and redone, as plain records: each holds what an operation changed,
// not the whole register.
#pragma once

#include "mainwindow/editbuffer.h"
#include "register/register.h"

#include <deque>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace norvik {

/// What a step restores beside entries and order.
struct RegisterRest {
    int AnzGes = 1;
    int AnzNr = 1;
    int AnzMarkiert = 0;
    Text LoadedModel;
    CurrentFile File;
    bool WarnLineAccessZero = false;
};

/// What was typed for an entry and not stored.
struct TypedEntry {
    int Place = 1;  ///< the entry's table index
    EditBuffer Buffer;
};

/// One step. Its values are those of the other side: what stood before while the step is done, what
/// stood behind while it is undone. Undoing and redoing swap them with the register's.
struct HistoryStep {
    Text What;                                           ///< for the user: "Eintrag löschen"
    std::vector<std::pair<int, RegisterEntry>> Entries;  ///< by table index
    std::vector<std::pair<int, std::int16_t>> Order;     ///< by position
    RegisterRest Rest;
    bool Loaded = false;  ///< another register took the place of the one before
    /// Such a step changes nothing in the register. Done, it is what was typed and left; undone,
    /// what was typed and taken back. When it is undone or redone the text is being typed again,
    /// and the step is gone.
    std::optional<TypedEntry> Typed;
    std::size_t Bytes = 0;  ///< the memory that it takes, about
};

/// No more steps are kept than this, and of more than HistoryBytes the oldest go; the last step
/// always stays.
inline constexpr std::size_t HistorySteps = 200;
inline constexpr std::size_t HistoryBytes = std::size_t{32} * 1024 * 1024;

struct History {
    std::deque<HistoryStep> Steps;
    std::size_t Done = 0;  ///< the first so many steps are done, the others undone
    RegisterState Last;    ///< the register as it was recorded last
    /// The entries in their order as they were loaded or saved last.
    std::shared_ptr<const std::vector<RegisterEntry>> Saved;
    /// The same of the last file that lost nothing of them: a 193 file holds no info texts.
    std::shared_ptr<const std::vector<RegisterEntry>> Held;
};

/// Forgets all steps: the register as it is now is where undoing ends, and counts as saved.
void StartHistory(History& history, const RegisterState& state);

/// Notes what has changed since the register was recorded last as one step; "#" in `what` stands
/// for the number of changed entries. Undone steps are forgotten then. A change of position or of
/// the listed marks alone is no step. Gives whether there was one.
bool RecordStep(History& history, const RegisterState& state, TextView what);

/// Notes what was typed and left, behind the first `done` steps. Undone steps stay.
void RecordTyped(History& history, std::size_t done, TypedEntry typed, TextView what);

/// Notes what is typed right now as undone, so that redoing brings it back.
void RecordTypedAsUndone(History& history, TypedEntry typed, TextView what);

/// The register as it is now is the one last loaded or saved, with `held` one that the file holds
/// without a loss.
void NoteFile(History& history, const RegisterState& state, bool held);

/// Whether a register's entries are those that were loaded or saved last, in their order.
bool IsAsSaved(const History& history, const RegisterState& state);
/// Whether they are those that a file holds without a loss.
bool IsHeld(const History& history, const RegisterState& state);

/// The step that undoing or redoing would take; nullptr when there is none.
const HistoryStep* StepToUndo(const History& history);
const HistoryStep* StepToRedo(const History& history);

/// Takes back the last step that is done, or does the first one that is undone again: changes the
/// register's entries, order, count, position, marks, source, model and warning flag, and sets
/// RegisterSaved to whether the register equals the one last loaded or saved whole. There must be
/// such a step. A typed one changes nothing in the register; what was typed is given back.
std::optional<TypedEntry> Undo(History& history, RegisterState& state);
std::optional<TypedEntry> Redo(History& history, RegisterState& state);

/// The memory that the steps take, in bytes, about.
std::size_t SizeOf(const History& history);

}  // namespace norvik
