#include "console/pendingfile.h"

#include "base/runtimeerror.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <random>
#include <system_error>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace norvik {

namespace fs = std::filesystem;

namespace {

/// The run-time error of what the standard library reports about a name.
[[noreturn]] void Raise(const std::error_code& error) {
    if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
        error == std::errc::read_only_file_system) {
        throw RuntimeError(ErrorNumber::AccessDenied);
    }
    if (error == std::errc::is_a_directory || error == std::errc::file_exists) {
        throw RuntimeError(ErrorNumber::PathAccessError);
    }
    if (error == std::errc::not_a_directory) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    if (error == std::errc::filename_too_long || error == std::errc::invalid_argument ||
        error == std::errc::too_many_symbolic_link_levels) {
        throw RuntimeError(ErrorNumber::BadFileName);
    }
    if (error == std::errc::no_space_on_device) {
        throw RuntimeError(ErrorNumber::DiskFull);
    }
    throw RuntimeError(ErrorNumber::DeviceError);
}

void RaiseIf(const std::error_code& error) {
    if (error) {
        Raise(error);
    }
}

/// A name that cannot be guessed, so that nobody else can have put anything there.
FilePath UnusedName(const FilePath& folder) {
    std::random_device random;
    FilePath path;
    do {
        path = folder /
               (".norvik-" + std::to_string(random()) + "-" + std::to_string(random()) + ".neu");
    } while (Exists(path));
    return path;
}

#ifndef _WIN32
// What a signal needs to remove an unfinished file. A handler gets no arguments and may neither
// allocate nor lock, so these are the program's only globals.
constexpr std::size_t LongestPath = 4096;
std::array<char, LongestPath> pendingName{};
volatile std::sig_atomic_t isPending = 0;

extern "C" void RemovePendingAndEnd(int signal) {
    if (isPending != 0) {
        unlink(pendingName.data());
    }
    static_cast<void>(std::signal(signal, SIG_DFL));
    static_cast<void>(std::raise(signal));
}

void RemoveOnSignals(const FilePath& path) {
    const std::string& name = path.native();
    if (name.size() >= LongestPath) {
        return;
    }
    *std::copy(name.begin(), name.end(), pendingName.begin()) = '\0';
    isPending = 1;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        if (std::signal(signal, RemovePendingAndEnd) == SIG_IGN) {
            static_cast<void>(std::signal(signal, SIG_IGN));  // as nohup wants it
        }
    }
}

void ForgetOnSignals() {
    isPending = 0;
}

/// Where the user may not give files away, the owner is the user.
void KeepOwner(const FilePath& path, const FilePath& old) {
    struct stat status {};
    if (stat(old.c_str(), &status) == 0 && chown(path.c_str(), status.st_uid, status.st_gid) != 0) {
        static_cast<void>(chown(path.c_str(), static_cast<uid_t>(-1), status.st_gid) != 0);
    }
}
#else
void RemoveOnSignals(const FilePath& /*path*/) {}
void ForgetOnSignals() {}
void KeepOwner(const FilePath& /*path*/, const FilePath& /*old*/) {}
#endif

/// Gives a file a name that must be free; false when it is not.
bool RenameToFree(const FilePath& path, const FilePath& target) {
    std::error_code error;
    fs::create_hard_link(path, target, error);  // unlike renaming, it never replaces anything
    if (error == std::errc::file_exists) {
        return false;
    }
    if (!error) {
        fs::remove(path, error);
        return true;
    }
    if (Exists(target)) {  // a file system without hard links
        return false;
    }
    error.clear();
    fs::rename(path, target, error);
    RaiseIf(error);
    return true;
}

}  // namespace

PendingFile::PendingFile(const FilePath& folder) : path_(UnusedName(folder)) {
    RemoveOnSignals(path_);
    const OutputFile empty(path_);
    std::error_code ignored;  // where there are no permissions, there is nothing to keep
    permissions_ = fs::status(path_, ignored).permissions();
    fs::permissions(path_, fs::perms::owner_read | fs::perms::owner_write, ignored);
}

PendingFile::~PendingFile() {
    std::error_code ignored;  // already under its new name
    if (!path_.empty()) {
        fs::remove(path_, ignored);
        ForgetOnSignals();
    }
}

bool PendingFile::Become(const FilePath& target, bool replace) {
    std::error_code ignored;
    const fs::file_status old = fs::status(target, ignored);
    if (fs::exists(old)) {
        KeepOwner(path_, target);  // first: a change of the owner takes permissions away
    }
    fs::permissions(path_, fs::exists(old) ? old.permissions() : permissions_, ignored);
    if (!replace) {
        if (!RenameToFree(path_, target)) {
            return false;
        }
    } else {
        std::error_code error;
        fs::rename(path_, target, error);
        RaiseIf(error);
    }
    path_.clear();
    ForgetOnSignals();
    return true;
}

bool Exists(const FilePath& path) {
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path, error);
    if (status.type() == fs::file_type::none) {
        Raise(error);
    }
    return fs::exists(status);
}

FilePath FileToReplace(const FilePath& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::none) {
        Raise(error);
    }
    if (!fs::exists(status)) {
        return path;
    }
    if (!fs::is_regular_file(status)) {
        throw RuntimeError(ErrorNumber::PathAccessError);
    }
    EnsureNotProtected(path);
    if (!fs::is_symlink(fs::symlink_status(path, error))) {
        return path;
    }
    FilePath file = fs::canonical(path, error);
    RaiseIf(error);
    return file;
}

}  // namespace norvik
