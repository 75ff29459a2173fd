#include "console/standardstreams.h"

#include "base/files.h"
#include "base/systemerrors.h"

#include <array>
#include <cerrno>
#include <cstdio>

namespace norvik {

namespace {

constexpr std::size_t BlockSize = std::size_t{64} * 1024;
using Block = std::array<Byte, BlockSize>;

}  // namespace

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

void WriteToStandardOutput(ByteView bytes) {
    errno = 0;
    const bool taken =
        bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size();
    if (std::fflush(stdout) != 0 || !taken) {
        RaiseSystemError(LastError(), {});
    }
}

}  // namespace norvik
