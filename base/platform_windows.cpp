#include "base/platform.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string>

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <fcntl.h>
#include <io.h>

namespace norvik::platform {

namespace {

void SetError(bool succeeded, std::error_code& error) {
    error = succeeded ? std::error_code()
                      : std::error_code(static_cast<int>(GetLastError()), std::system_category());
}

HANDLE SystemHandle(Handle file) {
    return reinterpret_cast<HANDLE>(file);  // NOLINT(performance-no-int-to-ptr)
}

/// While it is written, nobody else writes it.
Handle Open(const FilePath& path, DWORD creation, DWORD attributes, std::error_code& error) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, creation,
                                    attributes, nullptr);
    SetError(file != INVALID_HANDLE_VALUE, error);
    return error ? NoHandle : reinterpret_cast<Handle>(file);
}

LARGE_INTEGER Position(std::uintmax_t bytes) {
    LARGE_INTEGER position{};
    position.QuadPart = static_cast<LONGLONG>(bytes);
    return position;
}

}  // namespace

std::FILE* OpenToRead(const FilePath& path) {
    return _wfopen(path.c_str(), L"rb");
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
    const HANDLE file = CreateFileW(probe.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return false;
    }
    CloseHandle(file);
    return true;
}

bool IsProtected(const FilePath& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

NewFile CreateBeside(const FilePath& path, const FilePath& /*like*/, std::error_code& error) {
    // The folder hands its rights down; ReplaceFileW takes over those of the replaced file.
    return {.File = Open(path, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, error)};
}

void RemoveIfClosed(const FilePath& path) {
    DeleteFileW(path.c_str());  // fails while it is open
}

void GivePermissions(const NewFile& /*file*/, const FilePath& /*like*/, std::error_code& error) {
    error.clear();
}

Handle OpenExisting(const FilePath& path, std::error_code& error) {
    return Open(path, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, error);
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
    const bool done = FlushFileBuffers(SystemHandle(file)) != 0;
    SetError(done || GetLastError() == ERROR_INVALID_FUNCTION, error);  // a device
}

void Close(Handle file, std::error_code& error) {
    SetError(CloseHandle(SystemHandle(file)) != 0, error);
}

void Replace(const FilePath& from, const FilePath& to, std::error_code& error) {
    // Keeps owner, rights and streams of the old file; there must be one.
    const DWORD attributes = GetFileAttributesW(to.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES &&
        ReplaceFileW(to.c_str(), from.c_str(), nullptr, REPLACEFILE_WRITE_THROUGH, nullptr,
                     nullptr) != 0) {
        error.clear();
        return;
    }
    // A new name, or a file system that knows no such exchange.
    SetError(MoveFileExW(from.c_str(), to.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0,
             error);
}

void RenameToFree(const FilePath& from, const FilePath& to, std::error_code& error) {
    SetError(MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0, error);
    if (error.value() == ERROR_ALREADY_EXISTS || error.value() == ERROR_FILE_EXISTS) {
        error = std::make_error_code(std::errc::file_exists);
    }
}

void SynchroniseFolder(const FilePath& /*folder*/, std::error_code& error) {
    error.clear();  // the moves above wait themselves
}

// No signal ends a program here without its say.
void RemoveWhenEnded(const FilePath& /*path*/) {}
void KeepWhenEnded(const FilePath& /*path*/) {}

Handle OpenLocked(const FilePath& path, std::error_code& error) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    SetError(file != INVALID_HANDLE_VALUE, error);
    if (error.value() == ERROR_SHARING_VIOLATION) {
        error = std::make_error_code(std::errc::resource_unavailable_try_again);
    }
    return error ? NoHandle : reinterpret_cast<Handle>(file);
}

// No signal asks a program with a window to end here.
Handle ListenForEndSignals() {
    return NoHandle;
}

void EndBySignal(int /*signal*/) {
    ExitProcess(EXIT_FAILURE);
}

FilePath PathOfArgument(std::string_view argument) {
    const int size = static_cast<int>(argument.size());
    const int length = MultiByteToWideChar(CP_ACP, 0, argument.data(), size, nullptr, 0);
    std::wstring path(static_cast<std::size_t>(std::max(length, 0)), L'\0');
    MultiByteToWideChar(CP_ACP, 0, argument.data(), size, path.data(), length);
    return path;
}

void PrepareStandardStreams() {
    static_cast<void>(_setmode(_fileno(stdin), _O_BINARY));
    static_cast<void>(_setmode(_fileno(stdout), _O_BINARY));
}

}  // namespace norvik::platform
