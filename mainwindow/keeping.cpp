#include "mainwindow/keeping.h"

#include "base/runtimeerror.h"
#include "losses/lossreport.h"
#include "versions/bytes.h"
#include "versions/keptregister.h"

#include <chrono>
#include <exception>
#include <system_error>

namespace norvik {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view FolderName = "staende";

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

void RemoveSessionFile(Keeping& keep) {
    std::error_code ignored;  // another start finds it, and keeps it: nothing is lost
    fs::remove(keep.SessionFile, ignored);
    keep.SessionFileStands = false;
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

void KeepUnsaved(Program& program, VersionReason why) {
    const RegisterState& before = program.Past.Last;
    if (program.Keep.Folder.empty() || IsHeld(program.Past, before)) {
        return;
    }
    Quietly([&] { return KeepVersion(program.Keep.Folder, VersionOf(before, why)); });
}

void KeepSession(Program& program) {
    Keeping& keep = program.Keep;
    if (keep.SessionFile.empty()) {
        return;
    }
    if (!IsHeld(program.Past, program.State)) {
        keep.SessionFileStands = true;
        Quietly([&] {
            return PrepareVersionFolder(keep.Folder) &&
                   WriteKeptFile(keep.SessionFile,
                                 EncodeVersion(VersionOf(program.State, VersionReason::Aborted)));
        });
    } else if (keep.SessionFileStands) {
        RemoveSessionFile(keep);
    }
}

void EndKeeping(Program& program, VersionReason why) {
    KeepUnsaved(program, why);
    if (program.Keep.SessionFileStands) {
        RemoveSessionFile(program.Keep);
    }
}

Text KeepReplaced(Program& program, const FilePath& path) {
    Keeping& keep = program.Keep;
    keep.Target = path;
    std::error_code error;
    if (keep.Folder.empty() || !fs::is_regular_file(path, error)) {
        return {};
    }
    bool changed = false;
    const bool kept = Quietly([&] {
        Version version = {.When = SecondsNow(),
                           .Why = VersionReason::Replaced,
                           .Original = path,
                           .Content = ReadWholeFile(path)};
        const auto known = keep.Known.find(path);
        changed = known != keep.Known.end() && known->second != HashOf(version.Content);
        return KeepVersion(keep.Folder, version);
    });
    if (!kept) {
        return u" (der frühere Stand konnte nicht aufgehoben werden)";
    }
    return changed ? u" (inzwischen geändert; der andere Stand ist aufgehoben)" : Text();
}

void RememberFile(Program& program, const FilePath& path) {
    Quietly([&] {
        program.Keep.Known.insert_or_assign(path, HashOf(ReadWholeFile(path)));
        return true;
    });
}

}  // namespace norvik
