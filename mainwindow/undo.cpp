#include "mainwindow/undo.h"

#include "mainwindow/doubleswindow.h"
#include "mainwindow/keeping.h"
#include "mainwindow/operations.h"
#include "mainwindow/versionswindow.h"

#include <new>

namespace norvik {

namespace {

constexpr TextView Typing = u"Eingabe";
constexpr TextView TypingLeft = u"Eingabe verworfen";

/// What the fields hold of the shown entry.
TypedEntry TypedNow(const Program& program) {
    return {program.Fields.Index, BufferOf(program.Fields)};
}

/// The position that shows a table index; the present one where none does.
int PositionOfPlace(const RegisterState& state, int place) {
    for (int position = 1; position <= state.AnzGes; ++position) {
        if (state.RegisterOrder(position) == place) {
            return position;
        }
    }
    return state.AnzNr;
}

/// Shows the entry with what was typed for it, as if it were being typed.
void ShowTyped(Program& program, const TypedEntry& typed, Desktop& desktop) {
    SelectRecord(program.State, PositionOfPlace(program.State, typed.Place), desktop);
    PutBuffer(typed.Buffer, program.Fields);
    program.Fields.btnSaveChange = EditState::Pending;
}

void ShowRegister(Program& program, bool loaded, Desktop& desktop) {
    SelectRecord(program.State, program.State.AnzNr, desktop);
    RefreshStatus(program.State, desktop);
    if (loaded) {
        desktop.ShowCurrentFile();
    }
}

/// Takes the next step in one direction and shows what it brought back.
void Step(Program& program, const HistoryStep* step,
          std::optional<TypedEntry> (*take)(History&, RegisterState&), TextView word,
          Desktop& desktop) {
    if (step == nullptr) {
        return;
    }
    const Text status = Text(word).append(step->What);
    const bool loaded = step->Loaded;
    if (const std::optional<TypedEntry> typed = take(program.Past, program.State)) {
        ShowTyped(program, *typed, desktop);
    } else {
        ShowRegister(program, loaded, desktop);
    }
    desktop.SetStatus(status);
}

Text Caption(TextView word, const TextView what) {
    Text caption(word);
    if (!what.empty()) {
        caption.append(u": ");
        // A "&" would be taken for a mark of the menu.
        for (const char16_t character : what) {
            caption.append(character == u'&' ? 2 : 1, character);
        }
    }
    return caption;
}

/// Gives whether there was a step. Where memory runs out, undoing ends here: better no step than a
/// wrong one.
bool Record(Program& program, TextView what) {
    try {
        return RecordStep(program.Past, program.State, what);
    } catch (const std::bad_alloc&) {
        StartHistory(program.Past, program.State);
        return true;
    }
}

/// The register was loaded whole, or all of it saved.
void FollowFile(Program& program, bool loaded) {
    const bool held = loaded || LosesNothing(program.State);
    NoteFile(program.Past, program.State, held);
    const FilePath& saved = program.Keep.Target;
    RememberFile(program, saved.empty() ? program.State.File.Path : saved, held);
    if (saved.empty()) {
        AddRecent(program.Recent, program.State.File.Path, program.Keep.Folder);
    }
}

}  // namespace

bool IsNotStored(const Program& program) {
    return !(BufferOf(program.Fields) == program.Shown);
}

void RunStep(Program& program, TextView what, const std::function<void()>& operation,
             Desktop& desktop) {
    std::optional<TypedEntry> typed;
    if (program.Shows > 0 && IsNotStored(program)) {
        typed = TypedNow(program);
    }
    const unsigned shows = program.Shows;
    const unsigned kept = program.Kept;
    const unsigned wholeFiles = program.State.WholeFiles;
    const std::size_t done = program.Past.Done;
    RunOperation(operation, desktop);
    if (typed && program.Shows != shows && program.Kept == kept) {
        RecordTyped(program.Past, done, std::move(*typed), TypingLeft);
        ++program.Kept;
    }
    const bool loaded = program.Past.Last.Generation != program.State.Generation;
    if (loaded) {
        KeepUnsaved(program, VersionReason::NotSavedAtLoad);
    }
    const bool changed = Record(program, what) || program.Past.Done != done;
    if (program.State.WholeFiles != wholeFiles) {
        FollowFile(program, loaded);
    }
    const bool saved = program.State.WholeFiles != wholeFiles || !program.Keep.Target.empty();
    if (changed || saved || IsKeepingBehind(program)) {
        KeepSession(program);
    }
    const FilePath target = program.Keep.Target;
    const bool wrote = RememberTarget(program) || program.State.WholeFiles != wholeFiles;
    program.SavedTo = wrote ? target : FilePath();
    FollowVersions(program);
    FollowDoubles(program);
}

bool CanUndo(const Program& program) {
    return IsNotStored(program) || StepToUndo(program.Past) != nullptr;
}

bool CanRedo(const Program& program) {
    return StepToRedo(program.Past) != nullptr;
}

Text UndoCaption(const Program& program) {
    const HistoryStep* step = StepToUndo(program.Past);
    return Caption(u"&Rückgängig", IsNotStored(program) ? Typing
                                   : step == nullptr    ? TextView()
                                                        : TextView(step->What));
}

Text RedoCaption(const Program& program) {
    const HistoryStep* step = StepToRedo(program.Past);
    return Caption(u"&Wiederholen", step == nullptr ? TextView() : TextView(step->What));
}

void mnuBearbeitenUndo(Program& program, Desktop& desktop) {
    if (IsNotStored(program)) {
        RecordTypedAsUndone(program.Past, TypedNow(program), Typing);
        ++program.Kept;
        desktop.ShowEntry();
        desktop.SetStatus(Text(u"Rückgängig: ").append(Typing));
        return;
    }
    Step(program, StepToUndo(program.Past), Undo, u"Rückgängig: ", desktop);
}

void mnuBearbeitenRedo(Program& program, Desktop& desktop) {
    Step(program, StepToRedo(program.Past), Redo, u"Wiederholt: ", desktop);
}

}  // namespace norvik
