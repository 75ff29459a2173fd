#include "base/files.h"

#include "base/platform.h"
#include "base/systemerrors.h"

#include <cerrno>
#include <memory>

namespace norvik {

namespace fs = std::filesystem;

namespace {

struct StreamCloser {
    void operator()(std::FILE* file) const {
        static_cast<void>(std::fclose(file));  // only of streams that are read: nothing can be lost
    }
};
using InputStream = std::unique_ptr<std::FILE, StreamCloser>;

InputStream OpenForReading(const FilePath& path) {
    EnsurePossibleName(path);
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
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
    if (fs::file_size(path, error) > MaximumFileSize && !error) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    errno = 0;
    InputStream file(platform::OpenToRead(path));
    if (!file) {
        RaiseSystemError(LastError(), path);
    }
    return file;
}

}  // namespace

Bytes ReadWholeFile(const FilePath& path) {
    const InputStream file = OpenForReading(path);
    constexpr std::size_t BlockSize = std::size_t{64} * 1024;
    std::error_code ignored;
    const std::uintmax_t expected = fs::file_size(path, ignored);
    Bytes bytes;
    bytes.reserve(ignored ? BlockSize : static_cast<std::size_t>(expected) + BlockSize);
    // Read until the end, not up to the size: the file may have grown since.
    for (std::size_t read = BlockSize; read == BlockSize;) {
        const std::size_t size = bytes.size();
        bytes.resize(size + BlockSize);
        errno = 0;
        read = std::fread(bytes.data() + size, 1, BlockSize, file.get());
        bytes.resize(size + read);
        if (std::ferror(file.get()) != 0) {
            RaiseSystemError(LastError(), path);
        }
        if (bytes.size() > MaximumFileSize) {
            throw RuntimeError(ErrorNumber::OutOfMemory);
        }
    }
    return bytes;
}

std::optional<FileTime> LastModified(const FilePath& path) {
    return platform::LastChange(path);
}

}  // namespace norvik
