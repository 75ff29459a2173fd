#include "base/platform.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/xattr.h>
#endif

namespace norvik::platform {

namespace fs = std::filesystem;

namespace {

constexpr mode_t ForTheUserAlone = S_IRUSR | S_IWUSR;
/// What the permissions of a new file are taken from, less what the user's mask takes away.
constexpr mode_t ForEverybody = ForTheUserAlone | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
constexpr mode_t PermissionBits = 07777;

void SetError(bool succeeded, std::error_code& error) {
    error = succeeded ? std::error_code() : std::error_code(errno, std::generic_category());
}

/// Runs a call until no signal interrupts it.
template <typename Call>
auto Uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

int Descriptor(Handle file) {
    return static_cast<int>(file);
}

Handle Open(const FilePath& path, int flags, mode_t mode, std::error_code& error) {
    const int file = Uninterrupted([&] {
        return open(path.c_str(), flags | O_CLOEXEC, mode);  // NOLINT(*-vararg)
    });
    SetError(file >= 0, error);
    return file;
}

#ifdef __linux__
constexpr const char* AccessList = "system.posix_acl_access";

/// Lets the file have the list of further users and groups that `like` has, or none.
bool HasTheAccessListOf(const FilePath& like, int file) {
    std::array<char, 65536> list{};
    const ssize_t size = getxattr(like.c_str(), AccessList, list.data(), list.size());
    if (size <= 0) {
        fremovexattr(file, AccessList);  // one that the folder gives to new files
        return true;
    }
    return fsetxattr(file, AccessList, list.data(), static_cast<std::size_t>(size), 0) == 0;
}
#else
bool HasTheAccessListOf(const FilePath& /*like*/, int /*file*/) {
    return true;
}
#endif

/// Whether the file belongs to those whom `wanted` belongs to, or could be given to them.
bool HasTheOwnersOf(const struct stat& wanted, int file) {
    struct stat own {};
    return fstat(file, &own) == 0 &&
           ((wanted.st_uid == own.st_uid && wanted.st_gid == own.st_gid) ||
            fchown(file, wanted.st_uid, wanted.st_gid) == 0);
}

}  // namespace

std::error_code Portable(const std::error_code& error) {
    const bool isShareUsedUp = error == std::error_code(EDQUOT, std::generic_category()) ||
                               error == std::error_code(EDQUOT, std::system_category());
    return isShareUsedUp ? std::make_error_code(std::errc::no_space_on_device) : error;
}

bool IsPossibleName(const FilePath& path) {
    return path.native().find('\0') == std::string::npos;
}

fs::file_status StatusOf(const FilePath& path, std::error_code& error) {
    return fs::status(path, error);
}

bool HasSeveralNames(const FilePath& path) {
    std::error_code error;
    const std::uintmax_t names = fs::hard_link_count(path, error);
    return !error && names > 1;
}

FilePath EndOfLinks(const FilePath& path, std::error_code& error) {
    constexpr int MostLinks = 100;
    FilePath end = path;
    for (int i = 0; i < MostLinks && fs::is_symlink(fs::symlink_status(end, error)); ++i) {
        end = end.parent_path() / fs::read_symlink(end, error);
        if (error) {
            return end;
        }
    }
    error.clear();
    return end;
}

bool DistinguishesCase() {
    return true;
}

std::FILE* OpenToRead(const FilePath& path) {
    return std::fopen(path.c_str(), "rb");
}

std::optional<FileTime> LastChange(const FilePath& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        return std::nullopt;
    }
    constexpr long long NanosecondsEach = 1000;
    return FileTimeOf(status.st_mtim.tv_sec, status.st_mtim.tv_nsec / NanosecondsEach);
}

bool MayCreateIn(const FilePath& folder) {
    return access(folder.c_str(), W_OK | X_OK) == 0;
}

bool IsProtected(const FilePath& path) {
    return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0 &&
           (errno == EACCES || errno == EROFS || errno == EPERM);
}

NewFile CreateBeside(const FilePath& path, const FilePath& like, std::error_code& error) {
    const Handle file = Open(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW,
                             like.empty() ? ForEverybody : ForTheUserAlone, error);
    if (file == NoHandle) {
        return {};
    }
    struct stat wanted {};
    const bool made =
        like.empty() ? fstat(Descriptor(file), &wanted) == 0 &&
                           fchmod(Descriptor(file), ForTheUserAlone) == 0
                     : stat(like.c_str(), &wanted) == 0 && HasTheOwnersOf(wanted, Descriptor(file));
    if (!made) {
        std::error_code ignored;
        Close(file, ignored);
        unlink(path.c_str());
        error = std::make_error_code(std::errc::operation_not_permitted);
        return {};
    }
    // Tells RemoveIfClosed() that somebody has it; where nothing can be locked, that removes
    // nothing.
    static_cast<void>(flock(Descriptor(file), LOCK_EX | LOCK_NB));
    return {.File = file, .Permissions = wanted.st_mode & PermissionBits};
}

void Keep(const NewFile& /*file*/, std::error_code& error) {
    error.clear();
}

void RemoveIfClosed(const FilePath& path) {
    std::error_code ignored;
    const Handle file = Open(path, O_RDWR | O_NOFOLLOW | O_NONBLOCK, 0, ignored);
    if (file == NoHandle) {
        return;
    }
    if (flock(Descriptor(file), LOCK_EX | LOCK_NB) == 0) {
        unlink(path.c_str());
    }
    Close(file, ignored);
}

void GivePermissions(const NewFile& file, const FilePath& like, std::error_code& error) {
    const int descriptor = Descriptor(file.File);
    SetError((like.empty() || HasTheAccessListOf(like, descriptor)) &&
                 fchmod(descriptor, static_cast<mode_t>(file.Permissions)) == 0,
             error);
}

Handle OpenExisting(const FilePath& path, std::error_code& error) {
    return Open(path, O_WRONLY | O_NOCTTY, 0, error);
}

void Write(Handle file, ByteView bytes, std::error_code& error) {
    error.clear();
    while (!bytes.empty() && !error) {
        const ssize_t count =
            Uninterrupted([&] { return write(Descriptor(file), bytes.data(), bytes.size()); });
        SetError(count >= 0, error);
        bytes = bytes.subspan(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
}

void Reserve(Handle file, std::uintmax_t size, std::error_code& error) {
    SetError(lseek(Descriptor(file), 0, SEEK_SET) == 0, error);
    if (error || size == 0) {
        return;
    }
    const int failure = posix_fallocate(Descriptor(file), 0, static_cast<off_t>(size));
    if (failure != 0 && failure != EINVAL && failure != EOPNOTSUPP && failure != ENODEV) {
        error = std::error_code(failure, std::generic_category());
    }
}

void Resize(Handle file, std::uintmax_t size, std::error_code& error) {
    SetError(Uninterrupted([&] { return ftruncate(Descriptor(file), static_cast<off_t>(size)); }) ==
                 0,
             error);
}

void Synchronise(Handle file, std::error_code& error) {
    const bool done = Uninterrupted([&] { return fsync(Descriptor(file)); }) == 0;
    SetError(done || errno == EINVAL || errno == EROFS || errno == EOPNOTSUPP, error);
}

void Close(Handle file, std::error_code& error) {
    // An interrupted close has closed the file; what it might still report, Synchronise() did.
    SetError(close(Descriptor(file)) == 0 || errno == EINTR, error);
}

void Replace(const FilePath& from, const FilePath& to, std::error_code& error) {
    SetError(rename(from.c_str(), to.c_str()) == 0, error);
}

void RenameToFree(const FilePath& from, const FilePath& to, std::error_code& error) {
    // Unlike a rename, a link never replaces anything.
    SetError(link(from.c_str(), to.c_str()) == 0, error);
    if (!error) {
        unlink(from.c_str());
        return;
    }
    struct stat status {};
    if (error == std::errc::file_exists || lstat(to.c_str(), &status) == 0) {
        error = std::make_error_code(std::errc::file_exists);
        return;
    }
    Replace(from, to, error);  // a file system without hard links
}

void SynchroniseFolder(const FilePath& folder, std::error_code& error) {
    const Handle file = Open(folder, O_RDONLY | O_DIRECTORY, 0, error);
    if (file == NoHandle) {
        error.clear();
        return;
    }
    Synchronise(file, error);
    std::error_code ignored;
    Close(file, ignored);
}

Handle OpenLocked(const FilePath& path, std::error_code& error) {
    const Handle file = Open(path, O_RDWR | O_CREAT | O_NOFOLLOW, ForTheUserAlone, error);
    if (file == NoHandle) {
        return NoHandle;
    }
    SetError(Uninterrupted([&] { return flock(Descriptor(file), LOCK_EX | LOCK_NB); }) == 0, error);
    if (error) {
        std::error_code ignored;
        Close(file, ignored);
        return NoHandle;
    }
    return file;
}

}  // namespace norvik::platform
