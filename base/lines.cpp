#include "base/lines.h"

#include "base/runtimeerror.h"

#include <algorithm>

namespace norvik {

namespace {
constexpr Byte CarriageReturn = 0x0D;
constexpr Byte LineFeed = 0x0A;
}  // namespace

LineReader::LineReader(ByteView file)
    : rest_(file),
      lineEnd_(std::find(file.begin(), file.end(), CarriageReturn) != file.end() ? CarriageReturn
                                                                                 : LineFeed) {}

Text LineReader::Next() {
    const auto end = std::find(rest_.begin(), rest_.end(), lineEnd_);
    const auto length = static_cast<std::size_t>(end - rest_.begin());
    Text line = TextFromBytes(rest_.first(length));
    rest_ = rest_.subspan(std::min(length + 1, rest_.size()));
    if (lineEnd_ == CarriageReturn && !rest_.empty() && rest_.front() == LineFeed) {
        rest_ = rest_.subspan(1);
    }
    return line;
}

Text LineReader::NextOrRaise() {
    if (AtEnd()) {
        throw RuntimeError(ErrorNumber::ReadPastEnd);
    }
    return Next();
}

}  // namespace norvik
