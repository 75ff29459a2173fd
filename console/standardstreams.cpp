#include "console/standardstreams.h"

#include "base/runtimeerror.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fstream>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <unistd.h>
#endif

namespace norvik {

namespace {

constexpr std::size_t BlockSize = std::size_t{64} * 1024;
using Block = std::array<Byte, BlockSize>;

[[noreturn]] void RaiseOutputError() {
    throw RuntimeError(errno == ENOSPC ? ErrorNumber::DiskFull : ErrorNumber::DeviceError);
}

}  // namespace

#ifdef _WIN32
void PrepareStandardStreams() {
    static_cast<void>(_setmode(_fileno(stdin), _O_BINARY));
    static_cast<void>(_setmode(_fileno(stdout), _O_BINARY));
}
#else
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
#endif

Bytes ReadStandardInput() {
    Bytes bytes;
    Block block{};
    std::size_t read = 0;
    do {
        read = std::fread(block.data(), 1, block.size(), stdin);
        bytes.insert(bytes.end(), block.begin(), block.begin() + static_cast<std::ptrdiff_t>(read));
        if (bytes.size() > MaximumFileSize) {
            throw RuntimeError(ErrorNumber::OutOfMemory);
        }
    } while (read == block.size());
    if (std::ferror(stdin) != 0) {
        throw RuntimeError(ErrorNumber::DeviceError);
    }
    return bytes;
}

void CopyToStandardOutput(const FilePath& path) {
    std::ifstream file(path, std::ios::binary);
    std::array<char, BlockSize> block{};
    do {
        file.read(block.data(), static_cast<std::streamsize>(block.size()));
        const auto count = static_cast<std::size_t>(file.gcount());
        if (std::fwrite(block.data(), 1, count, stdout) != count) {
            RaiseOutputError();
        }
    } while (file);
    if (!file.eof()) {
        throw RuntimeError(ErrorNumber::DeviceError);
    }
    if (std::fflush(stdout) != 0) {
        RaiseOutputError();
    }
}

}  // namespace norvik
