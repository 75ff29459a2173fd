// What files and processes need of the system beyond the standard library. Each system has two
// files of its own (platform_posix.cpp, platform_process_posix.cpp and those of Windows); nothing
// else below the window asks which one it is.
#pragma once

#include "base/numbers.h"
#include "base/paths.h"
#include "base/windows1252.h"

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace norvik::platform {

/// A file that is open for writing.
using Handle = std::intptr_t;
inline constexpr Handle NoHandle = -1;

/// The same error as one of std::errc, as far as these know it.
std::error_code Portable(const std::error_code& error);

/// Whether the system could have a file of that name at all.
bool IsPossibleName(const FilePath& path);

/// What a path leads to; file_type::none, and the error, when the system cannot tell.
std::filesystem::file_status StatusOf(const FilePath& path, std::error_code& error);

/// Whether the file stands in more than one place.
bool HasSeveralNames(const FilePath& path);

/// Where a path leads at the end of its links, even if nothing is there. There is no circle of
/// them.
FilePath EndOfLinks(const FilePath& path, std::error_code& error);

/// Whether names that differ in nothing but the case are different names.
bool DistinguishesCase();

/// Opens a file to be read in blocks; null, and errno, when it cannot be.
std::FILE* OpenToRead(const FilePath& path);

/// When the file was last changed; nothing where that cannot be told.
std::optional<FileTime> LastChange(const FilePath& path);

/// Whether the user may create files in the folder.
bool MayCreateIn(const FilePath& folder);

/// Whether the file is protected against being written by the user; false for a missing one.
bool IsProtected(const FilePath& path);

/// A file that was just made, for the user alone (on Windows see CreateBeside()), and the
/// permissions, there the attributes, that it is to have in the end.
struct NewFile {
    Handle File = NoHandle;
    unsigned Permissions = 0;
};

/// Makes a file that nobody has made before, never through a link; before Keep() it may go with its
/// handle. `like` is a file whose owner and permissions it is to have in the end, or empty for
/// those of any new file. Fails with errc::operation_not_permitted, and there is no file, when the
/// owner cannot be the same. On Windows it belongs to the user, whoever owns `like`, and has the
/// list of rights of `like`, or of its folder, from the beginning.
NewFile CreateBeside(const FilePath& path, const FilePath& like, std::error_code& error);

/// Has a file of CreateBeside() stay when it is closed.
void Keep(const NewFile& file, std::error_code& error);

/// Removes a file of CreateBeside(), unless it is still open, here or in another process.
void RemoveIfClosed(const FilePath& path);

/// Gives a file of CreateBeside() its permissions.
void GivePermissions(const NewFile& file, const FilePath& like, std::error_code& error);

/// Opens an existing file or device for writing from its beginning on, without emptying it.
Handle OpenExisting(const FilePath& path, std::error_code& error);

/// Writes all bytes behind those that are written already.
void Write(Handle file, ByteView bytes, std::error_code& error);

/// Goes back to the beginning and makes sure that `size` bytes have room, as far as the file system
/// can say so beforehand. The bytes that the file holds stay.
void Reserve(Handle file, std::uintmax_t size, std::error_code& error);

/// Cuts the file, or fills it up with zeros.
void Resize(Handle file, std::uintmax_t size, std::error_code& error);

/// Waits until the system has put the file on the disk. A device that knows no waiting is content.
void Synchronise(Handle file, std::error_code& error);

/// Closes the file, whether it fails or not.
void Close(Handle file, std::error_code& error);

/// Gives a file another name in its folder. A file of that name is replaced at one stroke.
void Replace(const FilePath& from, const FilePath& to, std::error_code& error);

/// The same for a name that must be free: errc::file_exists when it is not.
void RenameToFree(const FilePath& from, const FilePath& to, std::error_code& error);

/// Waits until the names in the folder are on the disk. A folder that may not be read is passed
/// over.
void SynchroniseFolder(const FilePath& folder, std::error_code& error);

/// Has the file removed when a signal or exit() ends the process, where CreateBeside() did not see
/// to that. Signals for which the process has other plans are left alone.
void RemoveWhenEnded(const FilePath& path);

/// Takes RemoveWhenEnded() back.
void KeepWhenEnded(const FilePath& path);

/// Opens a file, makes it for the user alone where it is missing (on Windows with the rights of its
/// folder), and locks it until Close() or the end of the process, however that ends. Fails with
/// errc::resource_unavailable_try_again while somebody else holds it.
Handle OpenLocked(const FilePath& path, std::error_code& error);

/// From now on a signal that asks the program to end (SIGTERM, SIGINT, SIGHUP) does not end it: for
/// each, a byte with its number can be read from the handle. NoHandle where there are none.
Handle ListenForEndSignals();

/// Ends the process by the signal, as if nobody had listened.
[[noreturn]] void EndBySignal(int signal);

/// What the user's clock showed then; nothing where the system cannot tell.
std::optional<std::tm> LocalTime(std::chrono::sys_seconds time);

/// A path as UTF-8, and back: whatever a name holds, it comes back the same.
std::string Utf8Of(const FilePath& path);
FilePath PathOfUtf8(std::string_view utf8);

/// Whether names of files are put in the place of a pattern such as "*.t9t", where the system
/// leaves that to the program.
enum class Patterns { Leave, Expand };

/// The arguments behind the program's name, in UTF-8 as far as they were characters at all. Those
/// of main() are passed over where the system has better ones.
std::vector<std::string> Arguments(int argc, char* argv[], Patterns patterns);

/// Shows a text on the stream's console, where that takes no UTF-8; false when there is no such
/// console.
bool ShowOnConsole(std::FILE* stream, std::string_view utf8, std::error_code& error);

/// To be called before anything else: makes the standard streams binary, lets a reader that goes
/// away be an error of writing, and sees to it that no file that is opened later takes the place of
/// a standard stream that was closed.
void PrepareStandardStreams();

/// A lock of OpenLocked() that is held as long as the object lives.
class FileLock {
  public:
    /// Test IsHeld() for success.
    explicit FileLock(const FilePath& path) : file_(OpenLocked(path, error_)) {}
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    FileLock(FileLock&&) = delete;
    FileLock& operator=(FileLock&&) = delete;
    ~FileLock() {
        if (IsHeld()) {
            Close(file_, error_);
        }
    }

    [[nodiscard]] bool IsHeld() const { return file_ != NoHandle; }
    /// Whether somebody else holds it; false, too, where the file cannot be locked at all.
    [[nodiscard]] bool IsHeldElsewhere() const {
        return error_ == std::errc::resource_unavailable_try_again;
    }

  private:
    std::error_code error_;
    Handle file_;
};

}  // namespace norvik::platform
