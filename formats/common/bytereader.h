// Reading a device file byte by byte.
#pragma once

#include "base/windows1252.h"

#include <optional>

namespace norvik {

/// A device file held in memory, read byte by byte. Nothing is ever read beyond its end: what is
/// missing comes back shorter.
class ByteReader {
  public:
    explicit ByteReader(ByteView file) : file_(file) {}

    [[nodiscard]] bool AtEnd() const { return position_ == file_.size(); }

    /// Up to `count` bytes; fewer at the end of the file.
    ByteView ReadBytes(std::size_t count);

    /// The next byte, or nothing at the end.
    std::optional<Byte> ReadByte();

    /// Everything read so far.
    [[nodiscard]] ByteView Read() const { return file_.first(position_); }
    /// Everything that has not been read yet.
    [[nodiscard]] ByteView Rest() const { return file_.subspan(position_); }
    /// Whether more was to be read than the file holds.
    [[nodiscard]] bool IsShort() const { return short_; }

  private:
    ByteView file_;
    std::size_t position_ = 0;
    bool short_ = false;
};

}  // namespace norvik
