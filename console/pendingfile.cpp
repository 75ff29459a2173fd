#include "console/pendingfile.h"

#include "base/runtimeerror.h"

#include <random>
#include <system_error>

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
    const OutputFile empty(path_);
    std::error_code ignored;  // where there are no permissions, there is nothing to keep
    permissions_ = fs::status(path_, ignored).permissions();
    fs::permissions(path_, fs::perms::owner_read | fs::perms::owner_write, ignored);
}

PendingFile::~PendingFile() {
    std::error_code ignored;  // already under its new name
    if (!path_.empty()) {
        fs::remove(path_, ignored);
    }
}

bool PendingFile::Become(const FilePath& target, bool replace) {
    std::error_code ignored;
    const fs::file_status old = fs::status(target, ignored);
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
    if (!fs::is_symlink(fs::symlink_status(path, error))) {
        return path;
    }
    FilePath file = fs::canonical(path, error);
    RaiseIf(error);
    return file;
}

}  // namespace norvik
