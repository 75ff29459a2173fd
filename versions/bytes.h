// Numbers, bytes and texts one behind the other, little-endian, as kept versions hold them.
#pragma once

#include "base/windows1252.h"

#include <optional>

namespace norvik {

/// Puts values at the end of `bytes`.
class ByteAppender {
  public:
    explicit ByteAppender(Bytes& bytes) : bytes_(bytes) {}

    /// `value` in `size` bytes, 1 to 8; a negative one as its two's complement.
    void Number(std::int64_t value, int size);
    /// The length in four bytes and the bytes.
    void Block(ByteView block);
    /// The text's Windows-1252 bytes as a block. Raises error 5 for any other character.
    void String(TextView text);

  private:
    Bytes& bytes_;
};

/// Takes values from the front. Where too few bytes are left, or a number is out of its range, it
/// gives 0 or nothing from then on and has failed.
class ByteTaker {
  public:
    explicit ByteTaker(ByteView bytes) : rest_(bytes) {}

    [[nodiscard]] bool Failed() const { return failed_; }
    /// Whether everything was taken and nothing was missing.
    [[nodiscard]] bool IsDone() const { return !failed_ && rest_.empty(); }

    /// A signed number of `size` bytes that must lie between `least` and `most`.
    std::int64_t Number(int size, std::int64_t least, std::int64_t most);
    ByteView Block();
    Text String();

  private:
    ByteView Take(std::uint64_t count);

    ByteView rest_;
    bool failed_ = false;
};

/// A 64-bit hash that takes eight bytes at a time; one changed byte always changes it.
/// docs/formats/keptversion.md defines it.
std::uint64_t HashOf(ByteView bytes);

/// The 64-bit FNV-1a hash (Fowler, Noll, Vo): that of kept versions of the first form.
std::uint64_t Fnv1aOf(ByteView bytes);

}  // namespace norvik
