// Earlier versions of files and registers, kept in a folder of the user's own. Nothing here shows a
// box or raises an error: what cannot be kept is reported by the return value.
// docs/formats/keptversion.md describes the files.
#pragma once

#include "base/files.h"
#include "register/register.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace norvik {

/// Why a version was kept; the numbers stand in its file.
enum class VersionReason {
    Replaced = 1,        ///< a save replaced the file
    NotSavedAtLoad = 2,  ///< a load replaced the register
    NotSavedAtQuit = 3,  ///< the program ended
    Aborted = 4,         ///< the program died
};

/// The reason as the list of versions shows it: "ersetzt", "beim Laden nicht gesichert".
TextView DescriptionOf(VersionReason reason);

struct Version {
    FilePath File = {};     ///< where it is kept
    std::int64_t When = 0;  ///< seconds since 1970, UTC
    VersionReason Why = VersionReason::Replaced;
    FilePath Original = {};  ///< the file that it is a version of
    /// The form of EncodeRegister; otherwise the bytes of the file.
    bool IsRegister = false;
    Bytes Content = {};
};

/// When a version is on the disk: before the call returns, or when the system likes to.
enum class Flush { Now, Later };

/// The endings of the files of a store.
inline constexpr std::string_view VersionEnding = ".stand";

/// More versions than this, or more bytes, are not kept: the oldest go.
inline constexpr std::size_t MostVersions = 100;
inline constexpr std::uintmax_t MostVersionBytes = std::uintmax_t{50} * 1024 * 1024;

/// Makes the folder where it is missing, for the user alone. Gives whether it can be used.
bool PrepareVersionFolder(const FilePath& folder);

/// Keeps a version (File does not matter) under a name made of its time and content; one of equal
/// content goes, and so do the oldest beyond the limits. Gives false when it could not be kept;
/// the folder then is as it was.
bool KeepVersion(const FilePath& folder, const Version& version, Flush flush = Flush::Later);

/// Whether the path is that of the folder or of something in it, links followed. Without a folder
/// nothing is.
bool IsInFolder(const FilePath& path, const FilePath& folder);

/// Removes what processes left in the folder that died while they kept something.
void RemoveUnfinishedVersions(const FilePath& folder);

/// The whole versions of the folder, the newest first, without their contents.
std::vector<Version> ListVersions(const FilePath& folder);

/// The version that a file holds; nothing when it is damaged or none.
std::optional<Version> ReadVersion(const FilePath& file);

/// The bytes of a version's file and back. Those of its content become part of them where they lie.
Bytes EncodeVersion(Version version);
std::optional<Version> DecodeVersion(ByteView bytes);

/// Puts `bytes` into the file, whole or not at all; the user alone may read it. Gives whether that
/// worked.
bool WriteKeptFile(const FilePath& file, ByteView bytes, Flush flush = Flush::Later);

}  // namespace norvik
