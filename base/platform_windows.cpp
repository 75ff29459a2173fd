#include "base/platform.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <string>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <fcntl.h>
#include <io.h>

namespace norvik::platform {

namespace fs = std::filesystem;

namespace {

constexpr DWORD DiskQuotaExceeded = 1295;  // not in every winerror.h

struct ErrorRow {
    std::errc Error;
    std::array<DWORD, 12> Codes;
};
/// What the calls of this file and of the standard library meet, as the other systems say it.
constexpr std::array<ErrorRow, 15> Errors = {{
    {std::errc::no_such_file_or_directory,
     {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_DRIVE, ERROR_BAD_UNIT,
      ERROR_BAD_NETPATH, ERROR_BAD_NET_NAME}},
    {std::errc::not_a_directory, {ERROR_DIRECTORY}},
    {std::errc::permission_denied,
     {ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION,
      ERROR_NETWORK_ACCESS_DENIED, ERROR_CANNOT_MAKE, ERROR_DELETE_PENDING, ERROR_USER_MAPPED_FILE,
      ERROR_PRIVILEGE_NOT_HELD, ERROR_UNABLE_TO_REMOVE_REPLACED, ERROR_UNABLE_TO_MOVE_REPLACEMENT,
      ERROR_UNABLE_TO_MOVE_REPLACEMENT_2}},
    {std::errc::read_only_file_system, {ERROR_WRITE_PROTECT}},
    {std::errc::device_or_resource_busy, {ERROR_BUSY}},
    {std::errc::file_exists, {ERROR_FILE_EXISTS, ERROR_ALREADY_EXISTS}},
    {std::errc::directory_not_empty, {ERROR_DIR_NOT_EMPTY}},
    {std::errc::filename_too_long, {ERROR_FILENAME_EXCED_RANGE}},
    {std::errc::invalid_argument,
     {ERROR_INVALID_NAME, ERROR_BAD_PATHNAME, ERROR_INVALID_PARAMETER}},
    {std::errc::too_many_symbolic_link_levels, {ERROR_CANT_RESOLVE_FILENAME}},
    {std::errc::not_enough_memory,
     {ERROR_NOT_ENOUGH_MEMORY, ERROR_OUTOFMEMORY, ERROR_NOT_ENOUGH_QUOTA}},
    {std::errc::no_space_on_device, {ERROR_DISK_FULL, ERROR_HANDLE_DISK_FULL, DiskQuotaExceeded}},
    {std::errc::broken_pipe, {ERROR_BROKEN_PIPE, ERROR_NO_DATA}},
    {std::errc::bad_file_descriptor, {ERROR_INVALID_HANDLE}},
    {std::errc::too_many_files_open, {ERROR_TOO_MANY_OPEN_FILES}},
}};

std::error_code ErrorOfCode(DWORD code) {
    const auto* const row =
        std::find_if(Errors.begin(), Errors.end(), [code](const ErrorRow& known) {
            return code != ERROR_SUCCESS &&
                   std::find(known.Codes.begin(), known.Codes.end(), code) != known.Codes.end();
        });
    return std::make_error_code(row == Errors.end() ? std::errc::io_error : row->Error);
}

void SetError(bool succeeded, std::error_code& error) {
    error = succeeded ? std::error_code() : ErrorOfCode(GetLastError());
}

HANDLE SystemHandle(Handle file) {
    return reinterpret_cast<HANDLE>(file);  // NOLINT(performance-no-int-to-ptr)
}

constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Opens what is there, a folder too.
HANDLE OpenThere(const FilePath& path, DWORD access) {
    return CreateFileW(path.c_str(), access, ShareAll, nullptr, OPEN_EXISTING,
                       FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

/// A handle that is closed with the object.
class Opened {
  public:
    explicit Opened(HANDLE file) : file_(file) {}
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    Opened(Opened&&) = delete;
    Opened& operator=(Opened&&) = delete;
    ~Opened() {
        if (IsOpen()) {
            CloseHandle(file_);
        }
    }
    [[nodiscard]] bool IsOpen() const { return file_ != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE Get() const { return file_; }

  private:
    HANDLE file_;
};

LARGE_INTEGER Position(std::uintmax_t bytes) {
    LARGE_INTEGER position{};
    position.QuadPart = static_cast<LONGLONG>(bytes);
    return position;
}

fs::file_type TypeOf(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? fs::file_type::directory
                                                        : fs::file_type::regular;
}

bool IsLink(const FilePath& path) {
    WIN32_FIND_DATAW data{};
    const HANDLE search = FindFirstFileW(path.c_str(), &data);
    if (search == INVALID_HANDLE_VALUE) {
        return false;
    }
    FindClose(search);
    return (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           data.dwReserved0 == IO_REPARSE_TAG_SYMLINK;
}

/// Marks an open file as one that goes when it is closed, by whomever, or as one that stays.
bool SetGoes(HANDLE file, bool goes) {
    FILE_DISPOSITION_INFO disposition{};
    disposition.DeleteFile = goes ? TRUE : FALSE;
    return SetFileInformationByHandle(file, FileDispositionInfo, &disposition,
                                      sizeof disposition) != 0;
}

bool SetAttributes(HANDLE file, DWORD attributes) {
    FILE_BASIC_INFO info{};  // a time of 0 stays as it is
    info.FileAttributes = attributes;
    return SetFileInformationByHandle(file, FileBasicInfo, &info, sizeof info) != 0;
}

/// Gives the file the list of those who may do what that `like` has. Without one, or on a disk that
/// knows none, it keeps that of the folder.
void TakeRights(const FilePath& like, HANDLE file) {
    DWORD size = 0;
    GetFileSecurityW(like.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<std::byte> rights(size);
    if (size > 0 && GetFileSecurityW(like.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size,
                                     &size) != 0) {
        SetKernelObjectSecurity(file, DACL_SECURITY_INFORMATION, rights.data());
    }
}

}  // namespace

std::error_code Portable(const std::error_code& error) {
    return error.category() == std::system_category()
               ? ErrorOfCode(static_cast<DWORD>(error.value()))
               : error;
}

fs::file_status StatusOf(const FilePath& path, std::error_code& error) {
    const Opened file(OpenThere(path, FILE_READ_ATTRIBUTES));
    SetError(file.IsOpen(), error);
    if (!file.IsOpen()) {
        const DWORD attributes = GetFileAttributesW(path.c_str());  // even of what nobody may open
        if (attributes != INVALID_FILE_ATTRIBUTES) {
            error.clear();
            return fs::file_status(TypeOf(attributes));
        }
        const bool isMissing =
            error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
        return fs::file_status(isMissing ? fs::file_type::not_found : fs::file_type::none);
    }
    BY_HANDLE_FILE_INFORMATION info{};
    switch (GetFileType(file.Get())) {
    case FILE_TYPE_DISK:
        SetError(GetFileInformationByHandle(file.Get(), &info) != 0, error);
        return fs::file_status(error ? fs::file_type::none : TypeOf(info.dwFileAttributes));
    case FILE_TYPE_CHAR:
        return fs::file_status(fs::file_type::character);
    case FILE_TYPE_PIPE:
        return fs::file_status(fs::file_type::fifo);
    default:
        return fs::file_status(fs::file_type::unknown);
    }
}

bool HasSeveralNames(const FilePath& path) {
    const Opened file(OpenThere(path, FILE_READ_ATTRIBUTES));
    BY_HANDLE_FILE_INFORMATION info{};
    return file.IsOpen() && GetFileInformationByHandle(file.Get(), &info) != 0 &&
           info.nNumberOfLinks > 1;
}

FilePath EndOfLinks(const FilePath& path, std::error_code& error) {
    error.clear();
    if (!IsLink(path)) {
        return path;
    }
    const Opened file(OpenThere(path, FILE_READ_ATTRIBUTES));
    std::array<wchar_t, 32768> end{};
    const DWORD length = file.IsOpen() ? GetFinalPathNameByHandleW(file.Get(), end.data(),
                                                                   static_cast<DWORD>(end.size()),
                                                                   FILE_NAME_NORMALIZED)
                                       : 0;
    SetError(length > 0 && length < end.size(), error);
    return error ? path : FilePath(end.data());
}

std::FILE* OpenToRead(const FilePath& path) {
    // Whoever replaces the file meanwhile is not kept from it.
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, ShareAll, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        errno = ErrorOfCode(GetLastError()).value();
        return nullptr;
    }
    const int descriptor =
        _open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_RDONLY | _O_BINARY);
    std::FILE* const stream = descriptor < 0 ? nullptr : _fdopen(descriptor, "rb");
    if (stream == nullptr) {
        static_cast<void>(descriptor < 0 ? CloseHandle(file) : _close(descriptor));
    }
    return stream;
}

std::optional<FileTime> LastChange(const FilePath& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == 0) {
        return std::nullopt;
    }
    // Steps of 100 nanoseconds since 1 January 1601.
    constexpr unsigned HalfBits = 32;
    constexpr unsigned long long StepsEach = 10'000'000;
    constexpr unsigned long long StepsPerMicrosecond = 10;
    constexpr long long SecondsTo1970 = 11'644'473'600;
    const unsigned long long steps =
        (static_cast<unsigned long long>(data.ftLastWriteTime.dwHighDateTime) << HalfBits) |
        data.ftLastWriteTime.dwLowDateTime;
    return FileTimeOf(static_cast<long long>(steps / StepsEach) - SecondsTo1970,
                      static_cast<long long>(steps % StepsEach / StepsPerMicrosecond));
}

bool MayCreateIn(const FilePath& folder) {
    // Only the attempt can tell: rights here are more than a few bits. The file goes by itself.
    const FilePath probe = folder / (L".norvik-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                                     std::to_wstring(GetTickCount64()) + L".neu");
    const Opened file(CreateFileW(probe.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    return file.IsOpen();
}

bool IsProtected(const FilePath& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return false;
    }
    const Opened file(OpenThere(path, GENERIC_WRITE));
    const DWORD code = file.IsOpen() ? ERROR_SUCCESS : GetLastError();
    return (attributes & FILE_ATTRIBUTE_READONLY) != 0 || code == ERROR_ACCESS_DENIED ||
           code == ERROR_WRITE_PROTECT;
}

NewFile CreateBeside(const FilePath& path, const FilePath& like, std::error_code& error) {
    // Nobody else writes it meanwhile.
    const auto create = [&path](DWORD access) {
        return CreateFileW(path.c_str(), GENERIC_WRITE | DELETE | access, FILE_SHARE_READ, nullptr,
                           CREATE_NEW, FILE_ATTRIBUTE_HIDDEN, nullptr);
    };
    HANDLE file = create(like.empty() ? 0 : WRITE_DAC);
    if (file == INVALID_HANDLE_VALUE && !like.empty() && GetLastError() == ERROR_ACCESS_DENIED) {
        file = create(0);  // in a share whose rights nobody may change, they are the folder's
    }
    SetError(file != INVALID_HANDLE_VALUE, error);
    if (error) {
        return {};
    }
    // So it goes however the process ends. A disk that cannot do this leaves it to
    // RemoveIfClosed().
    SetGoes(file, true);
    TakeRights(like, file);
    constexpr DWORD Kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                           FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    const DWORD wanted = like.empty() ? FILE_ATTRIBUTE_ARCHIVE : GetFileAttributesW(like.c_str());
    const bool isKnown = wanted != INVALID_FILE_ATTRIBUTES && (wanted & Kept) != 0;
    return {.File = reinterpret_cast<Handle>(file),
            .Permissions = isKnown ? wanted & Kept : FILE_ATTRIBUTE_NORMAL};
}

void Keep(const NewFile& file, std::error_code& error) {
    SetGoes(SystemHandle(file.File), false);
    SetError(SetAttributes(SystemHandle(file.File), file.Permissions), error);
}

void RemoveIfClosed(const FilePath& path) {
    DeleteFileW(path.c_str());  // fails while it is open
}

void GivePermissions(const NewFile& /*file*/, const FilePath& /*like*/, std::error_code& error) {
    error.clear();  // Keep() has given the attributes
}

Handle OpenExisting(const FilePath& path, std::error_code& error) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    SetError(file != INVALID_HANDLE_VALUE, error);
    return error ? NoHandle : reinterpret_cast<Handle>(file);
}

void Write(Handle file, ByteView bytes, std::error_code& error) {
    constexpr std::size_t Most = std::size_t{1} << 30U;
    error.clear();
    while (!bytes.empty() && !error) {
        DWORD count = 0;
        SetError(WriteFile(SystemHandle(file), bytes.data(),
                           static_cast<DWORD>(std::min(bytes.size(), Most)), &count, nullptr) != 0,
                 error);
        bytes = bytes.subspan(count);
    }
}

void Reserve(Handle file, std::uintmax_t size, std::error_code& error) {
    LARGE_INTEGER now{};
    SetError(GetFileSizeEx(SystemHandle(file), &now) != 0, error);
    if (!error && static_cast<std::uintmax_t>(now.QuadPart) < size) {
        Resize(file, size, error);
    }
    if (!error) {
        SetError(SetFilePointerEx(SystemHandle(file), Position(0), nullptr, FILE_BEGIN) != 0,
                 error);
    }
}

void Resize(Handle file, std::uintmax_t size, std::error_code& error) {
    SetError(SetFilePointerEx(SystemHandle(file), Position(size), nullptr, FILE_BEGIN) != 0 &&
                 SetEndOfFile(SystemHandle(file)) != 0,
             error);
}

void Synchronise(Handle file, std::error_code& error) {
    const bool isDevice = GetFileType(SystemHandle(file)) != FILE_TYPE_DISK;
    SetError(isDevice || FlushFileBuffers(SystemHandle(file)) != 0, error);
}

void Close(Handle file, std::error_code& error) {
    SetError(CloseHandle(SystemHandle(file)) != 0, error);
}

void Replace(const FilePath& from, const FilePath& to, std::error_code& error) {
    // Not ReplaceFileW: for a moment there is no file of that name then. What looks at new files,
    // as against viruses, holds them open for a moment.
    constexpr int MostAttempts = 5;
    constexpr DWORD Pause = 40;
    for (int attempt = 1;; ++attempt) {
        SetError(MoveFileExW(from.c_str(), to.c_str(),
                             MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0,
                 error);
        if (error != std::errc::permission_denied || attempt == MostAttempts) {
            return;
        }
        Sleep(Pause);
    }
}

void RenameToFree(const FilePath& from, const FilePath& to, std::error_code& error) {
    SetError(MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0, error);
}

void SynchroniseFolder(const FilePath& folder, std::error_code& error) {
    error.clear();
    const Opened file(OpenThere(folder, GENERIC_WRITE));
    if (file.IsOpen()) {
        FlushFileBuffers(file.Get());  // where folders know no waiting, the moves have waited
    }
}

Handle OpenLocked(const FilePath& path, std::error_code& error) {
    // It may be removed while it is locked.
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_DELETE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    const DWORD code = file == INVALID_HANDLE_VALUE ? GetLastError() : ERROR_SUCCESS;
    if (code == ERROR_SUCCESS) {
        error.clear();
        return reinterpret_cast<Handle>(file);
    }
    error = code == ERROR_SHARING_VIOLATION
                ? std::make_error_code(std::errc::resource_unavailable_try_again)
                : ErrorOfCode(code);
    return NoHandle;
}

}  // namespace norvik::platform
