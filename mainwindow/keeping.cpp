#include "mainwindow/keeping.h"

#include "base/platform.h"
#include "base/runtimeerror.h"
#include "losses/lossreport.h"
#include "mainwindow/handlers.h"
#include "versions/bytes.h"
#include "versions/keptregister.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <exception>
#include <random>
#include <set>
#include <system_error>
#include <utility>

namespace norvik {

namespace {

namespace fs = std::filesystem;

constexpr TextView NotKept = u" (der frühere Stand konnte nicht aufgehoben werden)";
constexpr std::string_view FolderName = "staende";
constexpr std::string_view SessionName = "sitzung-";
constexpr std::string_view LockEnding = ".lock";
/// Stands in the folder from an early end of the program to the next start.
constexpr std::string_view NoteName = "abbruch";

std::int64_t SecondsNow() {
    using Clock = std::chrono::system_clock;
    return std::chrono::duration_cast<std::chrono::seconds>(Clock::now().time_since_epoch())
        .count();
}

/// The register as a version, in the name of the file that it came from.
Version VersionOf(const RegisterState& state, VersionReason why) {
    return {.When = SecondsNow(),
            .Why = why,
            .Original = state.File.Path,
            .IsRegister = true,
            .Content = EncodeRegister(state)};
}

/// Runs what must never make an operation fail; gives whether it worked.
template <typename Action>
bool Quietly(const Action& action) {
    try {
        return action();
    } catch (const RuntimeError&) {
        return false;
    } catch (const std::exception&) {  // no memory
        return false;
    }
}

std::optional<FileFormat> FormatOfType(TextView type) {
    if (type == u"195") {
        return FileFormat::Register195;
    }
    if (type == u"193") {
        return FileFormat::Register193;
    }
    if (type == u"175") {
        return FileFormat::Phonebook175;
    }
    return type == u"CSV" ? std::optional(FileFormat::Csv) : std::nullopt;
}

void Remove(const FilePath& file) {
    std::error_code ignored;  // another start finds it, and keeps it: nothing is lost
    fs::remove(file, ignored);
}

void RemoveSessionFile(Keeping& keep) {
    Remove(keep.SessionFile);
    keep.SessionFileStands = false;
}

FilePath LockOf(FilePath sessionFile) {
    return sessionFile.replace_extension(LockEnding);
}

/// A name that nobody else thinks of.
FilePath NewSessionFile(const FilePath& folder) {
    constexpr std::string_view Digits = "0123456789abcdef";
    constexpr std::size_t Length = 16;
    std::random_device random;
    std::string name(SessionName);
    for (std::size_t i = 0; i < Length; ++i) {
        name.push_back(Digits[random() % Digits.size()]);
    }
    return folder / name.append(VersionEnding);
}

/// Gives this process its file, locked; where nothing can be locked, without a lock.
bool BeginSession(Keeping& keep) {
    if (!keep.SessionFile.empty()) {
        return true;
    }
    if (!PrepareVersionFolder(keep.Folder)) {
        return false;
    }
    constexpr int Tries = 3;  // a start of another process may just be looking at the lock
    for (int i = 0; i < Tries; ++i) {
        keep.SessionFile = NewSessionFile(keep.Folder);
        keep.Lock = std::make_shared<platform::FileLock>(LockOf(keep.SessionFile));
        std::error_code error;
        if (keep.Lock->IsHeld() && fs::exists(LockOf(keep.SessionFile), error)) {
            break;
        }
    }
    return true;
}

/// The files of all processes, whether they stand or only their locks do.
std::set<FilePath> SessionFiles(const FilePath& folder) {
    std::set<FilePath> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = platform::Utf8Of(entry->path().filename());
        if (name.starts_with(SessionName)) {
            files.insert(folder / platform::PathOfUtf8(name.substr(0, name.find('.')) +
                                                       std::string(VersionEnding)));
        }
    }
    return files;
}

/// Makes a version of what a process that died held. Gives whether there was one.
bool KeepOfDead(const FilePath& folder, const FilePath& sessionFile) {
    const platform::FileLock lock(LockOf(sessionFile));
    if (lock.IsHeldElsewhere()) {
        return false;
    }
    std::optional<Version> version = ReadVersion(sessionFile);
    if (version) {
        version->Why = VersionReason::Aborted;
        if (!KeepVersion(folder, *version)) {
            return false;
        }
    }
    Remove(sessionFile);
    Remove(FilePath(sessionFile) += ".neu");
    Remove(LockOf(sessionFile));
    return version.has_value();
}

/// Why the program ended early the last time; the note goes.
Text TakeNote(const FilePath& folder) {
    const FilePath file = folder / NoteName;
    std::error_code error;
    if (!fs::exists(file, error)) {
        return {};
    }
    const Bytes note = ReadWholeFile(file);
    Remove(file);
    return TextFromBytes(note);
}

/// Whether the file that holds the register is still there and nobody else has changed it.
bool StandsStill(const Keeping& keep) {
    return keep.HeldFile.empty() ||
           Quietly([&] { return HashOf(ReadWholeFile(keep.HeldFile)) == keep.HeldHash; });
}

/// So much waits at most for a disk that has room again; it can be undone all the same.
constexpr std::size_t MostNotKept = 10;

/// Writes the version, now or as soon as that works. Gives whether it is written.
bool KeepOrWait(Keeping& keep, Version version) {
    if (KeepVersion(keep.Folder, version)) {
        return true;
    }
    std::erase_if(keep.NotKept,
                  [&](const Version& other) { return other.Content == version.Content; });
    if (keep.NotKept.size() == MostNotKept) {
        keep.NotKept.erase(keep.NotKept.begin());
    }
    keep.NotKept.push_back(std::move(version));
    return false;
}

void KeepWaiting(Keeping& keep) {
    std::erase_if(keep.NotKept, [&](const Version& version) {
        const bool kept = KeepVersion(keep.Folder, version);
        keep.Changes += kept ? 1 : 0;
        return kept;
    });
}

FilePath KeyOf(const FilePath& path) {
    std::error_code error;
    FilePath key = fs::weakly_canonical(path, error);
    return error ? path : key;
}

}  // namespace

FilePath VersionFolder(const FilePath& programFolder, const FilePath& executableFolder,
                       const FilePath& stateFolder) {
    return (programFolder == executableFolder ? programFolder : stateFolder / "norvik") /
           FolderName;
}

bool LosesNothing(const RegisterState& state) {
    const auto format = FormatOfType(state.SavedAs);
    try {
        return format && LossReport(state, *format).empty();
    } catch (const RuntimeError&) {  // a character that no file holds
        return false;
    }
}

int StartKeeping(Program& program) {
    Keeping& keep = program.Keep;
    if (keep.Folder.empty()) {
        return 0;
    }
    int dead = 0;
    Quietly([&] {
        for (const FilePath& file : SessionFiles(keep.Folder)) {
            dead += KeepOfDead(keep.Folder, file) ? 1 : 0;
        }
        RemoveUnfinishedVersions(keep.Folder);
        keep.Note = TakeNote(keep.Folder);
        return true;
    });
    if (dead > 0 && keep.Note.empty()) {
        keep.Note = u"Das Programm wurde abgebrochen. Was nicht gesichert war, steht unter Datei, "
                    u"Frühere Stände.";
    }
    return dead;
}

bool KeepUnsaved(Program& program, VersionReason why) {
    const RegisterState& before = program.Past.Last;
    // Nothing is recorded before the program has started.
    if (program.Keep.Folder.empty() || program.Past.Held == nullptr ||
        (IsHeld(program.Past, before) && StandsStill(program.Keep))) {
        return true;
    }
    ++program.Keep.Changes;
    return Quietly([&] { return KeepOrWait(program.Keep, VersionOf(before, why)); });
}

void KeepSession(Program& program) {
    Keeping& keep = program.Keep;
    if (keep.Folder.empty()) {
        return;
    }
    KeepWaiting(keep);
    if (!IsHeld(program.Past, program.State) || !StandsStill(keep)) {
        keep.SessionFileStands = true;
        keep.SessionFileLags = !Quietly([&] {
            return BeginSession(keep) &&
                   WriteKeptFile(keep.SessionFile,
                                 EncodeVersion(VersionOf(program.State, VersionReason::Aborted)));
        });
    } else {
        keep.SessionFileLags = false;
        // What waits may stand in it.
        if (keep.SessionFileStands && keep.NotKept.empty()) {
            RemoveSessionFile(keep);
        }
    }
}

bool IsKeepingBehind(const Program& program) {
    return program.Keep.SessionFileLags || !program.Keep.NotKept.empty();
}

void EndKeeping(Program& program, VersionReason why) {
    Keeping& keep = program.Keep;
    KeepWaiting(keep);
    const bool kept = KeepUnsaved(program, why) && keep.NotKept.empty();
    std::error_code error;
    if (!kept && fs::exists(keep.SessionFile, error)) {
        return;  // the next start makes a version of this process's file
    }
    if (keep.SessionFileStands) {
        RemoveSessionFile(keep);
    }
    if (keep.Lock != nullptr) {
        Remove(LockOf(keep.SessionFile));
        keep.Lock.reset();
        keep.SessionFile.clear();
    }
}

void EndKeepingEarly(Program& program, Ending ending) {
    const FilePath& folder = program.Keep.Folder;
    EndKeeping(program,
               ending == Ending::HardStop ? VersionReason::Aborted : VersionReason::NotSavedAtQuit);
    if (folder.empty()) {
        return;
    }
    const TextView why =
        ending == Ending::HardStop
            ? u"Das Programm hat sich an einer beschädigten Datei beendet. Was nicht gesichert "
              u"war, steht unter Datei, Frühere Stände."
            : u"Das Programm wurde von außen beendet. Was nicht gesichert war, steht unter Datei, "
              u"Frühere Stände.";
    Quietly([&] {
        return PrepareVersionFolder(folder) && WriteKeptFile(folder / NoteName, BytesFromText(why));
    });
}

bool EndSession(Program& program, SessionManager& manager, bool busy, Desktop& desktop) {
    KeepUnsaved(program, VersionReason::NotSavedAtQuit);
    if (program.State.RegisterSaved || busy || !manager.AllowsQuestion()) {
        return true;
    }
    if (MayClose(program, desktop)) {
        manager.Release();
        return true;
    }
    manager.Cancel();
    return false;
}

Text KeepReplaced(Program& program, const FilePath& path) {
    Keeping& keep = program.Keep;
    keep.Target = path;
    keep.Replaced = 0;
    std::error_code error;
    if (keep.Folder.empty() || !fs::is_regular_file(path, error)) {
        return {};
    }
    bool changed = false;
    ++keep.Changes;
    const bool kept = Quietly([&] {
        Version version = {.When = SecondsNow(),
                           .Why = VersionReason::Replaced,
                           .Original = path,
                           .Content = ReadWholeFile(path)};
        keep.Replaced = HashOf(version.Content);
        const auto known = keep.Known.find(KeyOf(path));
        changed = known != keep.Known.end() && known->second != keep.Replaced;
        return KeepOrWait(keep, std::move(version));
    });
    if (!kept) {
        return Text(NotKept);
    }
    return changed ? u" (inzwischen geändert; der andere Stand ist aufgehoben)" : Text();
}

Text KeepOverwritten(Program& program, const FilePath& path) {
    Keeping& keep = program.Keep;
    if (keep.Folder.empty()) {
        return {};
    }
    ++keep.Changes;
    const bool kept = Quietly([&] {
        return KeepVersion(keep.Folder,
                           {.When = SecondsNow(),
                            .Why = VersionReason::Replaced,
                            .Original = path,
                            .Content = ReadWholeFile(path)},
                           Flush::Now);
    });
    return kept ? Text() : Text(NotKept);
}

void RememberFile(Program& program, const FilePath& path, bool held) {
    Keeping& keep = program.Keep;
    Quietly([&] {
        const std::uint64_t hash = HashOf(ReadWholeFile(path));
        keep.Known.insert_or_assign(KeyOf(path), hash);
        if (held) {
            keep.HeldFile = path;
            keep.HeldHash = hash;
        }
        return true;
    });
}

bool RememberTarget(Program& program) {
    const FilePath target = std::exchange(program.Keep.Target, FilePath());
    return !target.empty() && Quietly([&] {
        const std::uint64_t now = HashOf(ReadWholeFile(target));
        if (now == program.Keep.Replaced) {
            return false;
        }
        program.Keep.Known.insert_or_assign(KeyOf(target), now);
        return true;
    });
}

}  // namespace norvik
