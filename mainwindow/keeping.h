// What is about to vanish is kept: the register when a load or the program's end drops it, a file
// when a save replaces it. Nothing here asks, shows a box or makes an operation fail.
#pragma once

#include "mainwindow/program.h"

namespace norvik {

/// Where the versions lie: beside the program where that is where its settings lie, else in the
/// user's state folder, which is `stateFolder`.
FilePath VersionFolder(const FilePath& programFolder, const FilePath& executableFolder,
                       const FilePath& stateFolder);

/// Makes versions of what the processes that died held, and notes in program.Keep.Note why the
/// program ended the last time. Without a folder in program.Keep nothing is kept, here and below.
/// Gives how many such processes there were.
int StartKeeping(Program& program);

/// Whether a file of the type that holds all entries now holds them without a loss.
bool LosesNothing(const RegisterState& state);

/// Keeps the register as it was before the running operation, unless a file holds it without a
/// loss. Gives false when it could not be kept.
bool KeepUnsaved(Program& program, VersionReason why);

/// Brings this process's file up to date: it holds the register while no save does. Tries again
/// to keep what could not be kept before.
void KeepSession(Program& program);
/// Whether something is to be kept that could not be.
bool IsKeepingBehind(const Program& program);

/// The program ends: keeps what no save holds, and this process's file goes.
void EndKeeping(Program& program, VersionReason why);

/// What else than its user ends the program.
enum class Ending { HardStop, Signal };
/// The same, and the next start tells of it.
void EndKeepingEarly(Program& program, Ending ending);

/// The session manager, as far as the end of the session has to do with it.
class SessionManager {
  public:
    SessionManager() = default;
    SessionManager(const SessionManager&) = delete;
    SessionManager& operator=(const SessionManager&) = delete;
    SessionManager(SessionManager&&) = delete;
    SessionManager& operator=(SessionManager&&) = delete;
    virtual ~SessionManager() = default;

    /// Whether the program may ask its user now. Waits until it is its turn; another program's
    /// comes when one of the two below has been called.
    virtual bool AllowsQuestion() = 0;
    /// The question is answered, and the session may end.
    virtual void Release() = 0;
    /// The session is to go on.
    virtual void Cancel() = 0;
};

/// The user's session ends: keeps what no save holds. Asks as closing the window does where there
/// is something to ask, it is allowed and the program is not `busy` with an operation. Gives false
/// when the session is to go on.
bool EndSession(Program& program, SessionManager& manager, bool busy, Desktop& desktop);

/// Keeps the bytes of a file that a save is about to replace. Gives what the status is to add
/// behind the path: nothing, " (inzwischen geändert; der andere Stand ist aufgehoben)", or that it
/// could not be kept.
Text KeepReplaced(Program& program, const FilePath& path);

/// Keeps the bytes of a file that is about to be overwritten where it stands, and waits until they
/// are on the disk. Gives what the status is to add when that was not possible.
Text KeepOverwritten(Program& program, const FilePath& path);

/// Remembers what the file that was just loaded or saved holds, so that a later change by somebody
/// else is noticed; with `held`, that it holds the register without a loss.
void RememberFile(Program& program, const FilePath& path, bool held);

/// The operation has ended: remembers what the file holds that it wrote, if any. Gives whether it
/// wrote one; a file that held just that before does not count.
bool RememberTarget(Program& program);

}  // namespace norvik
