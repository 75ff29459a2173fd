#include "base/platform.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/xattr.h>
#endif

namespace norvik::platform {

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

// What ends the process removes the unfinished files. A handler gets no arguments and may neither
// allocate nor lock, so these are the program's only globals.
constexpr std::size_t LongestPath = 4096;
struct UnfinishedFile {
    volatile std::sig_atomic_t Exists = 0;
    std::array<char, LongestPath> Path{};
};
std::array<UnfinishedFile, 4> unfinishedFiles;
constexpr std::array<int, 4> EndingSignals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

void RemoveUnfinished() {
    for (UnfinishedFile& file : unfinishedFiles) {
        if (file.Exists != 0) {
            unlink(file.Path.data());
        }
    }
}

extern "C" void RemoveUnfinishedAndEnd(int signal) {
    RemoveUnfinished();
    static_cast<void>(std::signal(signal, SIG_DFL));
    static_cast<void>(std::raise(signal));
}

volatile std::sig_atomic_t endSignals = -1;  ///< where TellOfSignal() writes to

extern "C" void TellOfSignal(int signal) {
    const int before = errno;
    const auto number = static_cast<unsigned char>(signal);
    static_cast<void>(write(static_cast<int>(endSignals), &number, 1) == 1);
    errno = before;
}

/// Puts `handler` in the place of `old`, where that is what the signal does.
void ChangeHandlers(void (*old)(int), void (*handler)(int)) {
    for (const int signal : EndingSignals) {
        struct sigaction now {};
        if (sigaction(signal, nullptr, &now) == 0 && (now.sa_flags & SA_SIGINFO) == 0 &&
            now.sa_handler == old) {
            static_cast<void>(std::signal(signal, handler));
        }
    }
}

bool IsAnyUnfinished() {
    return std::any_of(unfinishedFiles.begin(), unfinishedFiles.end(),
                       [](const UnfinishedFile& file) { return file.Exists != 0; });
}

}  // namespace

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

void RemoveWhenEnded(const FilePath& path) {
    static const bool registered = std::atexit(RemoveUnfinished) == 0;
    static_cast<void>(registered);
    const std::string& name = path.native();
    auto* const free = std::find_if(unfinishedFiles.begin(), unfinishedFiles.end(),
                                    [](const UnfinishedFile& file) { return file.Exists == 0; });
    if (name.size() >= LongestPath || free == unfinishedFiles.end()) {
        return;
    }
    *std::copy(name.begin(), name.end(), free->Path.begin()) = '\0';
    free->Exists = 1;
    ChangeHandlers(SIG_DFL, RemoveUnfinishedAndEnd);
}

void KeepWhenEnded(const FilePath& path) {
    for (UnfinishedFile& file : unfinishedFiles) {
        if (file.Exists != 0 && path.native() == file.Path.data()) {
            file.Exists = 0;
        }
    }
    if (!IsAnyUnfinished()) {
        ChangeHandlers(RemoveUnfinishedAndEnd, SIG_DFL);
    }
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

Handle ListenForEndSignals() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        return NoHandle;
    }
    for (const int end : ends) {
        static_cast<void>(fcntl(end, F_SETFD, FD_CLOEXEC));  // NOLINT(*-vararg)
        static_cast<void>(fcntl(end, F_SETFL, O_NONBLOCK));  // NOLINT(*-vararg)
    }
    endSignals = ends[1];
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction now {};
        // One that is ignored, as under nohup, stays so.
        if (sigaction(number, nullptr, &now) == 0 && now.sa_handler == SIG_DFL) {
            static_cast<void>(std::signal(number, TellOfSignal));
        }
    }
    return ends[0];
}

void EndBySignal(int signal) {
    RemoveUnfinishedAndEnd(signal);
    std::_Exit(EXIT_FAILURE);  // the signal is blocked
}

FilePath PathOfArgument(std::string_view argument) {
    return {argument};  // byte by byte: a name need not be valid in the locale's encoding
}

void PrepareStandardStreams() {
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    // Each is opened the wrong way round, so that using it fails as with a closed one.
    constexpr std::array<const char*, 3> Modes = {"w", "r", "r"};
    int number = 0;
    for (const char* const mode : Modes) {
        if (dup2(number, number) == -1) {
            // Takes the lowest free number, and keeps it to the end.
            static_cast<void>(std::fopen("/dev/null", mode));
        }
        ++number;
    }
}

}  // namespace norvik::platform
