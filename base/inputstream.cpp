#include "base/inputstream.h"

#include "base/runtimeerror.h"

#include <algorithm>
#include <utility>

namespace norvik {

std::size_t InputStream::Read(std::span<Byte> block) {
    if (read_) {
        return read_(block);
    }
    const ByteView next =
        ByteView(bytes_).subspan(taken_, std::min(block.size(), bytes_.size() - taken_));
    std::copy(next.begin(), next.end(), block.begin());
    taken_ += next.size();
    return next.size();
}

Bytes InputStream::ReadAll() {
    if (!read_ && taken_ == 0) {
        return std::exchange(bytes_, {});
    }
    if (size_.value_or(0) > MaximumFileSize) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    Bytes all;
    all.reserve(static_cast<std::size_t>(size_.value_or(0)) + InputBlockSize);
    // Read until the end, not up to the size: a file may have grown since.
    for (std::size_t read = InputBlockSize; read > 0;) {
        const std::size_t size = all.size();
        all.resize(size + InputBlockSize);
        read = Read(std::span(all).subspan(size));
        all.resize(size + read);
        if (all.size() > MaximumFileSize) {
            throw RuntimeError(ErrorNumber::OutOfMemory);
        }
    }
    return all;
}

}  // namespace norvik
