// Bytes to be read, one block after the other or all at once, wherever they come from.
#pragma once

#include "base/windows1252.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <utility>

namespace norvik {

/// More than this is not read at once (run-time error 7).
inline constexpr std::uintmax_t MaximumFileSize = std::uintmax_t{64} * 1024 * 1024;
inline constexpr std::size_t InputBlockSize = std::size_t{64} * 1024;

class InputStream {
  public:
    /// Puts the next bytes into the block and gives their number, 0 at the end; raises what reading
    /// raises.
    using BlockReader = std::function<std::size_t(std::span<Byte> block)>;

    InputStream() = default;
    /// Bytes that are in memory already.
    explicit InputStream(Bytes bytes) : bytes_(std::move(bytes)), size_(bytes_.size()) {}
    /// `size` is how many bytes there are to come, where that is known.
    InputStream(BlockReader read, std::optional<std::uintmax_t> size)
        : read_(std::move(read)), size_(size) {}

    /// The next bytes, as the block reader gives them.
    std::size_t Read(std::span<Byte> block);
    /// All bytes that have not been read yet; raises error 7 for more than MaximumFileSize.
    Bytes ReadAll();
    /// How many bytes there were in all, where that was known beforehand.
    [[nodiscard]] std::optional<std::uintmax_t> Size() const { return size_; }

  private:
    BlockReader read_;  ///< none for bytes in memory
    Bytes bytes_;
    std::size_t taken_ = 0;  ///< of bytes_
    std::optional<std::uintmax_t> size_ = 0;
};

}  // namespace norvik
