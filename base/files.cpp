#include "base/files.h"

#include "base/runtimeerror.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace norvik {

namespace fs = std::filesystem;

namespace {

/// So that a full register takes a few calls of the system, not a hundred.
constexpr std::size_t WriteBufferSize = 65536;

[[noreturn]] void RaiseForMissing(const FilePath& path) {
    std::error_code ignored;
    const FilePath folder = path.parent_path();
    const bool folderThere = folder.empty() || fs::is_directory(folder, ignored);
    throw RuntimeError(folderThere ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound);
}

/// Raises the run-time error of a system error (an errno value) that a call on `path` met.
[[noreturn]] void RaiseSystemError(int error, const FilePath& path) {
    switch (error) {
    case ENOENT:
        RaiseForMissing(path);
    case ENOTDIR:
        throw RuntimeError(ErrorNumber::PathNotFound);
    case EACCES:
    case EPERM:
    case EROFS:
        throw RuntimeError(ErrorNumber::AccessDenied);
    case EISDIR:
        throw RuntimeError(ErrorNumber::PathAccessError);
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ:
        throw RuntimeError(ErrorNumber::BadFileName);
    case ENOMEM:
        throw RuntimeError(ErrorNumber::OutOfMemory);
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
        throw RuntimeError(ErrorNumber::DiskFull);
    default:
        throw RuntimeError(ErrorNumber::DeviceError);
    }
}

void EnsurePossibleName(const FilePath& path) {
    const bool holdsNul =
        path.native().find(FilePath::value_type{0}) != FilePath::string_type::npos;
    if (path.empty() || holdsNul) {
        throw RuntimeError(ErrorNumber::BadFileName);
    }
}

std::FILE* OpenStream(const FilePath& path, bool forWriting) {
    errno = 0;
#ifdef _WIN32
    std::FILE* file = _wfopen(path.c_str(), forWriting ? L"wb" : L"rb");
#else
    std::FILE* file = std::fopen(path.c_str(), forWriting ? "wb" : "rb");
#endif
    if (file == nullptr) {
        RaiseSystemError(errno, path);
    }
    return file;
}

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
        RaiseForMissing(path);
    }
    if (status.type() == fs::file_type::none) {
        RaiseSystemError(error.value(), path);
    }
    if (!fs::is_regular_file(status)) {
        throw RuntimeError(ErrorNumber::PathAccessError);
    }
    if (fs::file_size(path, error) > MaximumFileSize && !error) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    return InputStream(OpenStream(path, false));
}

/// A pipe without a reader would block the opening for ever.
void EnsureNoPipe(const FilePath& path) {
    std::error_code ignored;
    if (fs::is_fifo(path, ignored)) {
        throw RuntimeError(ErrorNumber::PathAccessError);
    }
}

std::FILE* OpenForWriting(const FilePath& path) {
    EnsurePossibleName(path);
    EnsureNoPipe(path);
    return OpenStream(path, true);
}

#ifndef _WIN32
/// Waits until the system has put the stream's data on the disk. A device that knows no waiting is
/// content.
bool Synchronised(std::FILE* file) {
    return std::fflush(file) == 0 && (fsync(fileno(file)) == 0 || errno == EINVAL);
}
#else
bool Synchronised(std::FILE* file) {
    return std::fflush(file) == 0;
}
#endif

/// The number of bytes of the UTF-8 sequence that `lead` opens; 0 when none begins so.
std::size_t SequenceLength(unsigned lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return 0;
    }
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// The code point of a UTF-8 sequence, or nothing when it does not fit together.
std::optional<char32_t> CodePoint(std::u8string_view sequence) {
    const auto lead = static_cast<unsigned>(sequence.front());
    if (sequence.size() == 1) {
        return lead;
    }
    char32_t point = lead & (0x7FU >> sequence.size());
    for (const auto next : sequence.substr(1)) {
        if ((static_cast<unsigned>(next) & 0xC0U) != 0x80U) {
            return std::nullopt;
        }
        point = (point << 6U) | (static_cast<unsigned>(next) & 0x3FU);
    }
    // An overlong form of three or four bytes stands for nothing, nor does a point beyond the last.
    constexpr std::array<char32_t, 5> Least = {0, 0, 0x80, 0x800, 0x10000};
    constexpr char32_t Last = 0x10FFFF;
    if (point < Least.at(sequence.size()) || point > Last) {
        return std::nullopt;
    }
    return point;
}

/// The code points of a UTF-8 text; every byte that does not fit gives U+FFFD.
std::u32string CodePoints(std::u8string_view utf8) {
    constexpr char32_t Replacement = 0xFFFD;
    std::u32string result;
    while (!utf8.empty()) {
        const std::size_t length = SequenceLength(static_cast<unsigned>(utf8.front()));
        const bool whole = length > 0 && length <= utf8.size();
        const auto point = whole ? CodePoint(utf8.substr(0, length)) : std::nullopt;
        result.push_back(point.value_or(Replacement));
        utf8.remove_prefix(point ? length : 1);
    }
    return result;
}

bool IsInRepertoire(char32_t point) {
    return point <= 0xFFFF && ByteOf(static_cast<char16_t>(point)).has_value();
}

std::u32string LoweredName(const FilePath& name) {
    std::u32string points = CodePoints(name.u8string());
    for (char32_t& point : points) {
        if (IsInRepertoire(point)) {
            point = LowerCase(static_cast<char16_t>(point));
        }
    }
    return points;
}

/// The entries of `folder` whose names differ from `name` in nothing but the case, in the order of
/// their codes.
std::vector<FilePath> EntriesIgnoringCase(const FilePath& folder, const FilePath& name) {
    const std::u32string wanted = LoweredName(name);
    std::vector<FilePath> found;
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? FilePath(".") : folder, error), end;
         !error && entry != end; entry.increment(error)) {
        const FilePath candidate = entry->path().filename();
        if (candidate != name && LoweredName(candidate) == wanted) {
            found.push_back(folder / candidate);
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

/// The first existing path from `folder` on whose further components equal those of `next` to `end`
/// but for the case; at each step the exact name goes first.
std::optional<FilePath> FindBelow(const FilePath& folder, FilePath::iterator next,
                                  FilePath::iterator end) {
    std::error_code ignored;
    if (next == end) {
        return fs::exists(folder, ignored) ? std::optional(folder) : std::nullopt;
    }
    const FilePath& name = *next;
    ++next;
    if (fs::exists(folder / name, ignored)) {
        if (auto found = FindBelow(folder / name, next, end)) {
            return found;
        }
    }
    for (const FilePath& entry : EntriesIgnoringCase(folder, name)) {
        if (auto found = FindBelow(entry, next, end)) {
            return found;
        }
    }
    return std::nullopt;
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
            RaiseSystemError(errno, path);
        }
        if (bytes.size() > MaximumFileSize) {
            throw RuntimeError(ErrorNumber::OutOfMemory);
        }
    }
    return bytes;
}

FileTime LastModified(const FilePath& path) {
    std::error_code error;
    const fs::file_time_type time = fs::last_write_time(path, error);
    if (error) {
        RaiseSystemError(error.value(), path);
    }
    return std::chrono::time_point_cast<FileTime::duration>(std::chrono::file_clock::to_sys(time));
}

OutputFile::OutputFile(const FilePath& path)
    : buffer_(WriteBufferSize), file_(OpenForWriting(path)) {
    // Where it is refused, the stream keeps a buffer of its own.
    static_cast<void>(std::setvbuf(file_, buffer_.data(), _IOFBF, buffer_.size()));
}

OutputFile::~OutputFile() {
    if (file_ != nullptr) {
        // A failure is already under way; what it left is as far as it got.
        static_cast<void>(std::fclose(file_));
    }
}

void OutputFile::Write(ByteView bytes) {
    if (bytes.empty()) {  // may have no address to write from
        return;
    }
    errno = 0;
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size()) {
        RaiseSystemError(errno, {});
    }
}

void OutputFile::Close() {
    errno = 0;
    const bool flushed = Synchronised(file_);
    const int flushError = errno;
    const bool closed = std::fclose(std::exchange(file_, nullptr)) == 0;
    if (!flushed || !closed) {
        RaiseSystemError(flushed ? errno : flushError, {});
    }
}

void EnsureNotProtected(const FilePath& path) {
#ifndef _WIN32
    if (faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0 &&
        (errno == EACCES || errno == EROFS)) {
        throw RuntimeError(ErrorNumber::AccessDenied);
    }
#else
    std::error_code error;
    const fs::perms permissions = fs::status(path, error).permissions();
    if (!error && (permissions & fs::perms::owner_write) == fs::perms::none) {
        throw RuntimeError(ErrorNumber::AccessDenied);
    }
#endif
}

void ReplaceFile(const FilePath& path, ByteView bytes) {
    EnsurePossibleName(path);
    std::error_code error;
    // A link stays one: the file that it leads to is replaced.
    const FilePath existing = fs::canonical(path, error);
    const FilePath target = error ? path : existing;
    const fs::perms permissions =
        error ? fs::perms::unknown : fs::status(target, error).permissions();
    EnsureNotProtected(target);
    FilePath beside = target;
    beside += ".neu";
    fs::create_directories(target.parent_path(), error);  // where it fails, opening tells why
    OutputFile file(beside);
    try {
        file.Write(bytes);
        file.Close();
        if (permissions != fs::perms::unknown) {
            fs::permissions(beside, permissions, error);
        }
        fs::rename(beside, target, error);
        if (error) {
            RaiseSystemError(error.value(), path);
        }
    } catch (const RuntimeError&) {
        fs::remove(beside, error);
        throw;
    }
}

FilePath FindIgnoringCase(const FilePath& path) {
    return FindIgnoringCase({}, path);
}

FilePath FindIgnoringCase(const FilePath& folder, const FilePath& name) {
    FilePath path = folder / name;
    std::error_code ignored;
    if (fs::exists(path, ignored)) {
        return path;
    }
    return FindBelow(folder, name.begin(), name.end()).value_or(path);
}

FilePath WithEnding(const FilePath& path, std::string_view ending) {
    FilePath result = path;
    if (path.filename().native().find('.') == FilePath::string_type::npos) {
        result += ending;
    }
    return result;
}

Text TextFromPath(const FilePath& path) {
    Text text;
    for (const char32_t point : CodePoints(path.u8string())) {
        text.push_back(IsInRepertoire(point) ? static_cast<char16_t>(point) : u'?');
    }
    return text;
}

FilePath PathFromText(TextView text) {
    return {Text(text)};
}

FilePath ProgramFolder(const FilePath& executableFolder, const FilePath& userDataFolder) {
    return IsWritableFolder(executableFolder) ? executableFolder : userDataFolder;
}

bool IsWritableFolder(const FilePath& folder) {
#ifdef _WIN32
    std::error_code ignored;
    return fs::is_directory(folder, ignored);
#else
    return access(folder.c_str(), W_OK | X_OK) == 0;
#endif
}

}  // namespace norvik
