#include "tests/console/converterprocess.h"

#include "base/platform.h"
#include "base/utf16.h"
#include "tests/support/places.h"
#include "tests/support/windowsheader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <thread>

namespace norvik::test {

namespace {

std::wstring Wide(std::string_view utf8) {
    const std::u16string units = Utf16OfUtf8(utf8);
    return {units.begin(), units.end()};
}

/// The program takes one end over, the test keeps the other.
struct Pipe {
    Pipe() { EXPECT_NE(CreatePipe(&ReadEnd, &WriteEnd, nullptr, 0), 0); }
    HANDLE ReadEnd = nullptr;
    HANDLE WriteEnd = nullptr;
};

void LetInherit(HANDLE handle) {
    EXPECT_NE(SetHandleInformation(handle, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT), 0);
}

/// Reads all, or the first byte alone.
Bytes ReadFrom(HANDLE end, bool leaves = false) {
    Bytes bytes;
    std::array<Byte, 65536> block{};
    const auto most = leaves ? DWORD{1} : static_cast<DWORD>(block.size());
    DWORD count = 0;
    while (!(leaves && !bytes.empty()) &&
           ::ReadFile(end, block.data(), most, &count, nullptr) != 0 && count > 0) {
        bytes.insert(bytes.end(), block.begin(), block.begin() + count);
    }
    CloseHandle(end);
    return bytes;
}

void WriteToEnd(HANDLE end, const Bytes& bytes) {
    DWORD count = 0;
    for (std::size_t written = 0; written < bytes.size(); written += count) {
        if (::WriteFile(end, bytes.data() + written, static_cast<DWORD>(bytes.size() - written),
                        &count, nullptr) == 0) {
            break;  // the program reads no further
        }
    }
    CloseHandle(end);
}

/// As a program takes it apart again.
std::string Quoted(const std::string& argument) {
    std::string quoted = "\"";
    std::size_t backslashes = 0;
    for (const char character : argument) {
        if (character == '\\') {
            ++backslashes;
            continue;
        }
        quoted.append(character == '"' ? backslashes * 2 + 1 : backslashes, '\\');
        quoted.push_back(character);
        backslashes = 0;
    }
    return quoted.append(backslashes * 2, '\\') + "\"";
}

std::wstring CommandLine(const std::string& program, const std::vector<std::string>& arguments) {
    std::string line = Quoted(program);
    for (const std::string& argument : arguments) {
        line += " " + Quoted(argument);
    }
    return Wide(line);
}

/// The variables of this process, with the further ones.
std::wstring Environment(const Surroundings& surroundings) {
    std::wstring block;
    wchar_t* const own = GetEnvironmentStringsW();
    for (const wchar_t* variable = own; *variable != L'\0';
         variable += std::wstring_view(variable).size() + 1) {
        block.append(variable).push_back(L'\0');
    }
    FreeEnvironmentStringsW(own);
    for (const auto& variable : surroundings.Variables) {
        block.append(Wide(variable.first + "=" + variable.second)).push_back(L'\0');
    }
    block.push_back(L'\0');
    return block;
}

HANDLE OpenToWrite(const FilePath& path) {
    return CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0,
                       nullptr);
}

bool IsClosed(const Surroundings& surroundings, int stream) {
    return std::count(surroundings.Closed.begin(), surroundings.Closed.end(), stream) > 0;
}

/// Starts the program with the three streams, which are closed here.
HANDLE Start(std::wstring line, const Surroundings& surroundings, std::array<HANDLE, 3> streams) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = IsClosed(surroundings, 0) ? nullptr : streams[0];
    startup.hStdOutput = IsClosed(surroundings, 1) ? nullptr : streams[1];
    startup.hStdError = IsClosed(surroundings, 2) ? nullptr : streams[2];
    for (const HANDLE stream : streams) {
        LetInherit(stream);
    }
    std::wstring environment = Environment(surroundings);
    PROCESS_INFORMATION process{};
    // On a busy machine wine now and then starts none and calls that an internal error.
    constexpr int Tries = 5;
    BOOL started = FALSE;
    DWORD error = ERROR_INTERNAL_ERROR;
    for (int i = 0; i < Tries && started == FALSE && error == ERROR_INTERNAL_ERROR; ++i) {
        started =
            CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_UNICODE_ENVIRONMENT,
                           environment.data(), surroundings.Folder.c_str(), &startup, &process);
        error = GetLastError();
    }
    EXPECT_NE(started, FALSE) << error;
    for (const HANDLE stream : streams) {
        CloseHandle(stream);
    }
    CloseHandle(process.hThread);
    return process.hProcess;
}

Outcome RunLine(const std::wstring& line, const Surroundings& surroundings) {
    if (surroundings.LongestFile) {
        throw std::logic_error("no limit of files here");
    }
    const Pipe input;
    const Pipe output;
    const Pipe errors;
    HANDLE standardOutput = output.WriteEnd;
    if (!surroundings.Output.empty()) {
        CloseHandle(output.WriteEnd);
        standardOutput = OpenToWrite(surroundings.Output);
    }
    const HANDLE process =
        Start(line, surroundings, {input.ReadEnd, standardOutput, errors.WriteEnd});
    std::thread feeder([&] { WriteToEnd(input.WriteEnd, surroundings.Input); });
    Bytes errorBytes;
    std::thread listener([&] { errorBytes = ReadFrom(errors.ReadEnd); });
    Outcome outcome;
    outcome.Output = ReadFrom(output.ReadEnd, surroundings.ReaderLeaves);
    feeder.join();
    listener.join();
    WaitForSingleObject(process, INFINITE);
    DWORD status = 0;
    EXPECT_NE(GetExitCodeProcess(process, &status), 0);
    CloseHandle(process);
    outcome.Status = static_cast<int>(status);
    outcome.Errors = StringOf(errorBytes);
    return outcome;
}

}  // namespace

void CountAside() {}

Outcome RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const Surroundings& surroundings) {
    return RunLine(CommandLine(program, arguments), surroundings);
}

std::string ConverterInShell() {
    return "\"" +
           platform::Utf8Of(std::filesystem::absolute(ConverterProgramFile()).make_preferred()) +
           "\"";
}

Outcome RunInShell(const std::string& line, const Surroundings& surroundings) {
    return RunLine(Wide("cmd.exe /d /c \"" + line + "\""), surroundings);
}

}  // namespace norvik::test
