#include "base/files.h"

#include "base/platform.h"
#include "base/systemerrors.h"

#include <cerrno>
#include <memory>

namespace norvik {

namespace fs = std::filesystem;

namespace {

/// Closes itself; of streams that are read nothing can be lost by that.
using OpenedFile = std::shared_ptr<std::FILE>;

OpenedFile OpenForReading(const FilePath& path) {
    EnsurePossibleName(path);
    std::error_code error;
    const fs::file_status status = platform::StatusOf(path, error);
    if (status.type() == fs::file_type::not_found) {
        error = std::make_error_code(std::errc::no_such_file_or_directory);
        RaiseSystemError(error, path);
    }
    if (status.type() == fs::file_type::none) {
        RaiseSystemError(error, path);
    }
    if (!fs::is_regular_file(status)) {
        throw RuntimeError(ErrorNumber::PathAccessError);
    }
    errno = 0;
    std::FILE* const file = platform::OpenToRead(path);
    if (file == nullptr) {
        RaiseSystemError(LastError(), path);
    }
    return {file, [](std::FILE* opened) { static_cast<void>(std::fclose(opened)); }};
}

}  // namespace

InputStream OpenFile(const FilePath& path) {
    const OpenedFile file = OpenForReading(path);
    const auto read = [file, path](std::span<Byte> block) {
        errno = 0;
        const std::size_t count = std::fread(block.data(), 1, block.size(), file.get());
        if (std::ferror(file.get()) != 0) {
            RaiseSystemError(LastError(), path);
        }
        return count;
    };
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    return {read, error ? std::nullopt : std::optional(size)};
}

Bytes ReadWholeFile(const FilePath& path) {
    return OpenFile(path).ReadAll();
}

std::optional<FileTime> LastModified(const FilePath& path) {
    return platform::LastChange(path);
}

}  // namespace norvik
