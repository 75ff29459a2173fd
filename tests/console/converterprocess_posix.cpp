#include "tests/console/converterprocess.h"

#include "tests/support/places.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace norvik::test {

namespace {

struct Pipe {
    Pipe() { EXPECT_EQ(pipe2(Ends.data(), O_CLOEXEC), 0); }
    std::array<int, 2> Ends{};
    [[nodiscard]] int ReadEnd() const { return Ends[0]; }
    [[nodiscard]] int WriteEnd() const { return Ends[1]; }
};

/// Reads all, or the first byte alone.
Bytes ReadFrom(int end, bool leaves = false) {
    Bytes bytes;
    std::array<Byte, 65536> block{};
    for (ssize_t count = 1; count > 0 && !(leaves && !bytes.empty());) {
        count = read(end, block.data(), leaves ? 1 : block.size());
        bytes.insert(bytes.end(), block.begin(),
                     block.begin() + std::max<std::ptrdiff_t>(count, 0));
    }
    close(end);
    return bytes;
}

void WriteToEnd(int end, const Bytes& bytes) {
    for (std::size_t written = 0; written < bytes.size();) {
        const ssize_t count = write(end, bytes.data() + written, bytes.size() - written);
        if (count <= 0) {
            break;  // the program reads no further
        }
        written += static_cast<std::size_t>(count);
    }
    close(end);
}

/// In the new process: everything between fork and exec.
[[noreturn]] void Become(const std::string& program, const std::vector<std::string>& arguments,
                         const Surroundings& surroundings) {
    if (chdir(surroundings.Folder.c_str()) != 0) {
        _exit(126);
    }
    setenv("LC_ALL", surroundings.Locale.c_str(), 1);
    for (const auto& variable : surroundings.Variables) {
        setenv(variable.first.c_str(), variable.second.c_str(), 1);
    }
    std::signal(SIGPIPE, SIG_DFL);
    if (surroundings.LongestFile) {
        std::signal(SIGXFSZ, SIG_IGN);
        CountAside();
        const rlimit limit = {*surroundings.LongestFile, *surroundings.LongestFile};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    for (const int stream : surroundings.Closed) {
        close(stream);
    }
    std::vector<char*> words = {const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);
    execv(program.c_str(), words.data());
    _exit(127);
}

}  // namespace

void CountAside() {
    const FilePath aside = std::filesystem::temp_directory_path() / "norvik-counters";
    setenv("GCOV_PREFIX", aside.c_str(), 1);
}

std::string ConverterInShell() {
    return "'" + ConverterProgramFile().string() + "'";
}

Outcome RunInShell(const std::string& line, const Surroundings& surroundings) {
    return RunProgram("/bin/sh", {"-c", line}, surroundings);
}

Outcome RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const Surroundings& surroundings) {
    const Pipe input;
    const Pipe output;
    const Pipe errors;
    std::signal(SIGPIPE, SIG_IGN);
    const pid_t process = fork();
    if (process == 0) {
        dup2(input.ReadEnd(), STDIN_FILENO);
        dup2(surroundings.Output.empty() ? output.WriteEnd()
                                         : open(surroundings.Output.c_str(), O_WRONLY),
             STDOUT_FILENO);
        dup2(errors.WriteEnd(), STDERR_FILENO);
        Become(program, arguments, surroundings);
    }
    close(input.ReadEnd());
    close(output.WriteEnd());
    close(errors.WriteEnd());
    std::thread feeder([&] { WriteToEnd(input.WriteEnd(), surroundings.Input); });
    Bytes errorBytes;
    std::thread listener([&] { errorBytes = ReadFrom(errors.ReadEnd()); });
    Outcome outcome;
    outcome.Output = ReadFrom(output.ReadEnd(), surroundings.ReaderLeaves);
    feeder.join();
    listener.join();
    int status = 0;
    EXPECT_EQ(waitpid(process, &status, 0), process);
    EXPECT_TRUE(WIFEXITED(status)) << "signal " << WTERMSIG(status);
    outcome.Status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    outcome.Errors = StringOf(errorBytes);
    return outcome;
}

}  // namespace norvik::test
