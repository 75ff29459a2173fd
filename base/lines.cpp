#include "base/lines.h"

#include "base/runtimeerror.h"

#include <algorithm>
#include <cstring>

namespace norvik {

namespace {
constexpr Byte CarriageReturn = 0x0D;
constexpr Byte LineFeed = 0x0A;

/// The place of the first `byte`, or the size where there is none.
std::size_t Find(ByteView bytes, Byte byte) {
    if (bytes.empty()) {  // may have no address to look at
        return 0;
    }
    const void* found = std::memchr(bytes.data(), byte, bytes.size());
    return found == nullptr
               ? bytes.size()
               : static_cast<std::size_t>(static_cast<const Byte*>(found) - bytes.data());
}

}  // namespace

LineReader::LineReader(ByteView file)
    : rest_(file), lineEnd_(Find(file, CarriageReturn) < file.size() ? CarriageReturn : LineFeed) {}

Text LineReader::Next() {
    return TextFromBytes(NextBytes());
}

ByteView LineReader::NextBytes() {
    const std::size_t length = Find(rest_, lineEnd_);
    const ByteView line = rest_.first(length);
    rest_ = rest_.subspan(std::min(length + 1, rest_.size()));
    if (lineEnd_ == CarriageReturn && !rest_.empty() && rest_.front() == LineFeed) {
        rest_ = rest_.subspan(1);
    }
    return line;
}

Text LineReader::NextOrRaise() {
    return TextFromBytes(NextBytesOrRaise());
}

ByteView LineReader::NextBytesOrRaise() {
    if (AtEnd()) {
        throw RuntimeError(ErrorNumber::ReadPastEnd);
    }
    return NextBytes();
}

bool IsFilled(ByteView line) {
    return std::any_of(line.begin(), line.end(),
                       [](Byte byte) { return byte != Byte{' '} && byte != Byte{'\t'}; });
}

bool HasFilledLine(LineReader& lines) {
    while (!lines.AtEnd()) {
        if (IsFilled(lines.NextBytes())) {
            return true;
        }
    }
    return false;
}

}  // namespace norvik
