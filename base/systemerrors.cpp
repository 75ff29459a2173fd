#include "base/systemerrors.h"

#include "base/platform.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace norvik {

namespace {

struct ErrorRow {
    std::errc Error;
    ErrorNumber Number;
};
constexpr std::array<ErrorRow, 13> Rows = {
    {{std::errc::not_a_directory, ErrorNumber::PathNotFound},
     {std::errc::permission_denied, ErrorNumber::AccessDenied},
     {std::errc::operation_not_permitted, ErrorNumber::AccessDenied},
     {std::errc::read_only_file_system, ErrorNumber::AccessDenied},
     {std::errc::is_a_directory, ErrorNumber::PathAccessError},
     {std::errc::file_exists, ErrorNumber::PathAccessError},
     {std::errc::filename_too_long, ErrorNumber::BadFileName},
     {std::errc::invalid_argument, ErrorNumber::BadFileName},
     {std::errc::illegal_byte_sequence, ErrorNumber::BadFileName},
     {std::errc::too_many_symbolic_link_levels, ErrorNumber::BadFileName},
     {std::errc::not_enough_memory, ErrorNumber::OutOfMemory},
     {std::errc::no_space_on_device, ErrorNumber::DiskFull},
     {std::errc::directory_not_empty, ErrorNumber::PathAccessError}}};

ErrorNumber NumberOfMissing(const FilePath& path) {
    std::error_code ignored;
    const FilePath folder = path.parent_path();
    const bool folderThere = folder.empty() || std::filesystem::is_directory(folder, ignored);
    return folderThere ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound;
}

}  // namespace

ErrorNumber NumberOfSystemError(const std::error_code& error, const FilePath& path) {
    const std::error_code portable = platform::Portable(error);
    if (portable == std::errc::no_such_file_or_directory) {
        return NumberOfMissing(path);
    }
    const auto* const row =
        std::find_if(Rows.begin(), Rows.end(),
                     [&portable](const ErrorRow& known) { return portable == known.Error; });
    return row == Rows.end() ? ErrorNumber::DeviceError : row->Number;
}

void RaiseSystemError(const std::error_code& error, const FilePath& path) {
    throw RuntimeError(NumberOfSystemError(error, path));
}

void RaiseIfFailed(const std::error_code& error, const FilePath& path) {
    if (error) {
        RaiseSystemError(error, path);
    }
}

std::error_code LastError() {
    return {errno, std::generic_category()};
}

void EnsurePossibleName(const FilePath& path) {
    if (path.empty() || !platform::IsPossibleName(path)) {
        throw RuntimeError(ErrorNumber::BadFileName);
    }
}

}  // namespace norvik
