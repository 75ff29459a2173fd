#include "qt/systemshell.h"

#include <array>
#include <cstdint>
#include <string>

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <shellapi.h>

namespace norvik {

namespace {

int Open(const FilePath& document, int show) {
    const HINSTANCE returned =
        ShellExecuteW(nullptr, L"open", document.c_str(), nullptr, nullptr, show);
    return static_cast<int>(reinterpret_cast<std::intptr_t>(returned));
}

/// The system's own editor, wherever the working folder is and whatever lies there.
std::wstring Notepad() {
    std::array<wchar_t, MAX_PATH> folder{};
    const UINT length = GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
    return std::wstring(folder.data(), length) + L"\\notepad.exe";
}

}  // namespace

int OpenWithItsProgram(const FilePath& document) {
    return Open(document, SW_SHOWNORMAL);
}

bool PrintsWithoutPrinter() {
    return false;  // nor does the toolkit say why
}

void OpenAsText(const FilePath& document) {
    const std::wstring notepad = Notepad();
    // No name of a file holds quotation marks.
    std::wstring command = L"notepad.exe \"" + document.native() + L"\"";
    STARTUPINFOW how{};
    how.cb = sizeof how;
    how.dwFlags = STARTF_USESHOWWINDOW;
    how.wShowWindow = SW_SHOWMAXIMIZED;
    PROCESS_INFORMATION started{};
    if (CreateProcessW(notepad.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       nullptr, &how, &started) == 0) {
        Open(document, SW_SHOWMAXIMIZED);
        return;
    }
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
}

}  // namespace norvik
