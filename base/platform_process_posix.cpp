#include "base/platform.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

namespace norvik::platform {

namespace {

// What ends the process removes the unfinished files. A handler gets no arguments and may neither
// allocate nor lock, so these are the program's only globals.
constexpr std::size_t LongestPath = 4096;
struct UnfinishedFile {
    volatile std::sig_atomic_t Exists = 0;
    std::array<char, LongestPath> Path{};
};
std::array<UnfinishedFile, 4> unfinishedFiles;
constexpr std::array<int, 4> EndingSignals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

void RemoveUnfinished() {
    for (UnfinishedFile& file : unfinishedFiles) {
        if (file.Exists != 0) {
            unlink(file.Path.data());
        }
    }
}

extern "C" void RemoveUnfinishedAndEnd(int signal) {
    RemoveUnfinished();
    static_cast<void>(std::signal(signal, SIG_DFL));
    static_cast<void>(std::raise(signal));
}

volatile std::sig_atomic_t endSignals = -1;  ///< where TellOfSignal() writes to

extern "C" void TellOfSignal(int signal) {
    const int before = errno;
    const auto number = static_cast<unsigned char>(signal);
    static_cast<void>(write(static_cast<int>(endSignals), &number, 1) == 1);
    errno = before;
}

/// Puts `handler` in the place of `old`, where that is what the signal does.
void ChangeHandlers(void (*old)(int), void (*handler)(int)) {
    for (const int signal : EndingSignals) {
        struct sigaction now {};
        if (sigaction(signal, nullptr, &now) == 0 && (now.sa_flags & SA_SIGINFO) == 0 &&
            now.sa_handler == old) {
            static_cast<void>(std::signal(signal, handler));
        }
    }
}

bool IsAnyUnfinished() {
    return std::any_of(unfinishedFiles.begin(), unfinishedFiles.end(),
                       [](const UnfinishedFile& file) { return file.Exists != 0; });
}

}  // namespace

void RemoveWhenEnded(const FilePath& path) {
    static const bool registered = std::atexit(RemoveUnfinished) == 0;
    static_cast<void>(registered);
    const std::string& name = path.native();
    auto* const free = std::find_if(unfinishedFiles.begin(), unfinishedFiles.end(),
                                    [](const UnfinishedFile& file) { return file.Exists == 0; });
    if (name.size() >= LongestPath || free == unfinishedFiles.end()) {
        return;
    }
    *std::copy(name.begin(), name.end(), free->Path.begin()) = '\0';
    free->Exists = 1;
    ChangeHandlers(SIG_DFL, RemoveUnfinishedAndEnd);
}

void KeepWhenEnded(const FilePath& path) {
    for (UnfinishedFile& file : unfinishedFiles) {
        if (file.Exists != 0 && path.native() == file.Path.data()) {
            file.Exists = 0;
        }
    }
    if (!IsAnyUnfinished()) {
        ChangeHandlers(RemoveUnfinishedAndEnd, SIG_DFL);
    }
}

Handle ListenForEndSignals() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        return NoHandle;
    }
    for (const int end : ends) {
        static_cast<void>(fcntl(end, F_SETFD, FD_CLOEXEC));  // NOLINT(*-vararg)
        static_cast<void>(fcntl(end, F_SETFL, O_NONBLOCK));  // NOLINT(*-vararg)
    }
    endSignals = ends[1];
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction now {};
        // One that is ignored, as under nohup, stays so.
        if (sigaction(number, nullptr, &now) == 0 && now.sa_handler == SIG_DFL) {
            static_cast<void>(std::signal(number, TellOfSignal));
        }
    }
    return ends[0];
}

void EndBySignal(int signal) {
    RemoveUnfinishedAndEnd(signal);
    std::_Exit(EXIT_FAILURE);  // the signal is blocked
}

// Byte by byte: a name need not be valid in any encoding.
std::optional<std::tm> LocalTime(std::chrono::sys_seconds time) {
    const std::time_t seconds = time.time_since_epoch().count();
    const std::tm* const local = std::localtime(&seconds);
    return local == nullptr ? std::nullopt : std::optional(*local);
}

std::string Utf8Of(const FilePath& path) {
    return path.native();
}

FilePath PathOfUtf8(std::string_view utf8) {
    return {utf8};
}

std::vector<std::string> Arguments(int argc, char* argv[], Patterns /*patterns*/) {
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

bool ShowOnConsole(std::FILE* /*stream*/, std::string_view /*utf8*/, std::error_code& /*error*/) {
    return false;
}

void PrepareStandardStreams() {
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    // Each is opened the wrong way round, so that using it fails as with a closed one.
    constexpr std::array<const char*, 3> Modes = {"w", "r", "r"};
    int number = 0;
    for (const char* const mode : Modes) {
        if (dup2(number, number) == -1) {
            // Takes the lowest free number, and keeps it to the end.
            static_cast<void>(std::fopen("/dev/null", mode));
        }
        ++number;
    }
}

}  // namespace norvik::platform
