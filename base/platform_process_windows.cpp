#include "base/commandwords.h"
#include "base/platform.h"
#include "base/utf16.h"

#include <algorithm>
#include <cstdlib>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <fcntl.h>
#include <io.h>

namespace norvik::platform {

namespace {

std::wstring WideOf(std::string_view utf8) {
    const std::u16string units = Utf16OfUtf8(utf8);
    return {units.begin(), units.end()};
}

/// The console that a stream leads to; null when it leads elsewhere.
HANDLE ConsoleOf(std::FILE* stream) {
    const int descriptor = _fileno(stream);
    const std::intptr_t handle = descriptor < 0 ? -1 : _get_osfhandle(descriptor);
    auto* const console = reinterpret_cast<HANDLE>(handle);  // NOLINT(performance-no-int-to-ptr)
    DWORD mode = 0;
    return handle >= 0 && GetConsoleMode(console, &mode) != 0 ? console : nullptr;
}

/// A pattern is compared with a file's short name, too, which has but three letters of its ending:
/// "*.csv" finds "a.csv_old".
bool HasEndingOf(const FilePath& pattern, const FilePath& name) {
    const std::wstring ending = pattern.extension().native();
    return ending.size() <= 1 || ending.find_first_of(L"*?") != std::wstring::npos ||
           name.extension().native().size() == ending.size();
}

/// The files that a pattern in the last step of a path stands for, in the order of their names.
std::vector<FilePath> Matching(const std::u16string& pattern) {
    const FilePath path = std::wstring(pattern.begin(), pattern.end());
    WIN32_FIND_DATAW data{};
    const HANDLE search = FindFirstFileW(path.c_str(), &data);
    std::vector<FilePath> files;
    for (bool found = search != INVALID_HANDLE_VALUE; found;
         found = FindNextFileW(search, &data) != 0) {
        constexpr DWORD PassedOver = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN;
        if ((data.dwFileAttributes & PassedOver) == 0 && HasEndingOf(path, data.cFileName)) {
            files.push_back(path.parent_path() / data.cFileName);
        }
    }
    if (search != INVALID_HANDLE_VALUE) {
        FindClose(search);
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

bool IsPossibleName(const FilePath& path) {
    constexpr std::wstring_view Never = L"<>:\"|?*";  // a colon would name a hidden part of a file
    constexpr std::size_t LongestName = 255;
    const FilePath below = path.relative_path();
    return std::all_of(below.begin(), below.end(), [&](const FilePath& name) {
        const std::wstring& text = name.native();
        return text.size() <= LongestName && text.find_first_of(Never) == std::wstring::npos &&
               std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= L' '; });
    });
}

bool DistinguishesCase() {
    return false;
}

// CreateBeside() has seen to this.
void RemoveWhenEnded(const FilePath& /*path*/) {}
void KeepWhenEnded(const FilePath& /*path*/) {}

// No signal asks a program with a window to end here.
Handle ListenForEndSignals() {
    return NoHandle;
}

void EndBySignal(int /*signal*/) {
    ExitProcess(EXIT_FAILURE);
}

std::optional<std::tm> LocalTime(std::chrono::sys_seconds time) {
    // Not localtime(): it knows nothing before 1970, and takes a variable of the environment
    // that some shells leave there for their own programs for the zone.
    using namespace std::chrono;
    constexpr sys_days First = year(1601) / January / 1;
    constexpr sys_days Last = year(10000) / January / 2;
    if (time < First || time > Last) {
        return std::nullopt;
    }
    const sys_days day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(time - day);
    SYSTEMTIME utc{};
    utc.wYear = static_cast<WORD>(static_cast<int>(date.year()));
    utc.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
    utc.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
    utc.wHour = static_cast<WORD>(clock.hours().count());
    utc.wMinute = static_cast<WORD>(clock.minutes().count());
    utc.wSecond = static_cast<WORD>(clock.seconds().count());
    SYSTEMTIME shown{};
    if (SystemTimeToTzSpecificLocalTime(nullptr, &utc, &shown) == 0) {
        return std::nullopt;
    }
    constexpr int YearsBefore = 1900;
    std::tm local{};
    local.tm_year = shown.wYear - YearsBefore;
    local.tm_mon = shown.wMonth - 1;
    local.tm_mday = shown.wDay;
    local.tm_hour = shown.wHour;
    local.tm_min = shown.wMinute;
    local.tm_sec = shown.wSecond;
    return local;
}

std::string Utf8Of(const FilePath& path) {
    return Utf8OfUtf16(std::u16string(path.native().begin(), path.native().end()));
}

FilePath PathOfUtf8(std::string_view utf8) {
    return WideOf(utf8);
}

std::vector<std::string> Arguments(int /*count*/, char* /*words*/[], Patterns patterns) {
    // What main() is given has been through the old character set.
    const std::wstring line = GetCommandLineW();
    std::vector<std::string> arguments;
    for (const CommandWord& word : CommandWords(std::u16string(line.begin(), line.end()))) {
        std::vector<FilePath> files;
        // One without a point is a code such as "**": PowerShell takes quotes away.
        if (patterns == Patterns::Expand && word.IsPattern &&
            word.Text.find(u'.') != std::u16string::npos) {
            files = Matching(word.Text);
        }
        for (const FilePath& file : files) {
            arguments.push_back(Utf8Of(file));
        }
        if (files.empty()) {
            arguments.push_back(Utf8OfUtf16(word.Text));
        }
    }
    return arguments;
}

bool ShowOnConsole(std::FILE* stream, std::string_view utf8, std::error_code& error) {
    HANDLE const console = ConsoleOf(stream);
    if (console == nullptr) {
        return false;
    }
    constexpr std::size_t Most = 8192;  // no console takes everything at once
    const std::wstring text = WideOf(utf8);
    error.clear();
    for (std::size_t shown = 0; shown < text.size() && !error;) {
        DWORD count = 0;
        if (WriteConsoleW(console, text.data() + shown,
                          static_cast<DWORD>(std::min(text.size() - shown, Most)), &count,
                          nullptr) == 0 ||
            count == 0) {
            error = std::make_error_code(std::errc::io_error);
        }
        shown += count;
    }
    return true;
}

void PrepareStandardStreams() {
    for (std::FILE* const stream : {stdin, stdout, stderr}) {
        if (_fileno(stream) >= 0) {
            _setmode(_fileno(stream), _O_BINARY);
        }
    }
}

}  // namespace norvik::platform
