#include "formats/common/bytereader.h"

#include <algorithm>

namespace norvik {

ByteView ByteReader::ReadBytes(std::size_t count) {
    const std::size_t available = std::min(count, file_.size() - position_);
    const ByteView bytes = file_.subspan(position_, available);
    position_ += available;
    short_ = short_ || available < count;
    return bytes;
}

std::optional<Byte> ByteReader::ReadByte() {
    const ByteView byte = ReadBytes(1);
    return byte.empty() ? std::nullopt : std::optional<Byte>(byte.front());
}

}  // namespace norvik
