#include "console/standardstreams.h"

#include "base/systemerrors.h"

#include <cerrno>
#include <cstdio>

namespace norvik {

InputStream OpenStandardInput() {
    const auto read = [](std::span<Byte> block) {
        const std::size_t count = std::fread(block.data(), 1, block.size(), stdin);
        if (std::ferror(stdin) != 0) {
            throw RuntimeError(ErrorNumber::DeviceError);
        }
        return count;
    };
    return {read, std::nullopt};
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
