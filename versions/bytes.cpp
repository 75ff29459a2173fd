#include "versions/bytes.h"

#include <algorithm>
#include <array>

namespace norvik {

namespace {

constexpr int BitsOfByte = 8;
constexpr int BitsOfNumber = 64;
constexpr int LengthSize = 4;
constexpr std::size_t LargestNumber = 8;
constexpr std::int64_t LongestBlock = 0x7FFFFFFF;

/// The first eight bytes, or as many as there are, as a little-endian number.
std::uint64_t WordOf(ByteView bytes) {
    std::uint64_t word = 0;
    for (std::size_t i = std::min(bytes.size(), LargestNumber); i-- > 0;) {
        word = word << static_cast<unsigned>(BitsOfByte) | bytes[i];
    }
    return word;
}

}  // namespace

void ByteAppender::Number(std::int64_t value, int size) {
    auto bits = static_cast<std::uint64_t>(value);
    std::array<Byte, LargestNumber> digits{};
    for (Byte& digit : digits) {
        digit = static_cast<Byte>(bits & 0xFFU);
        bits >>= static_cast<unsigned>(BitsOfByte);
    }
    bytes_.insert(bytes_.end(), digits.begin(), digits.begin() + size);
}

void ByteAppender::Block(ByteView block) {
    Number(static_cast<std::int64_t>(block.size()), LengthSize);
    bytes_.insert(bytes_.end(), block.begin(), block.end());
}

void ByteAppender::String(TextView text) {
    Number(static_cast<std::int64_t>(text.size()), LengthSize);
    AppendBytes(bytes_, text);
}

ByteView ByteTaker::Take(std::uint64_t count) {
    if (failed_ || count > rest_.size()) {
        failed_ = true;
        return {};
    }
    const ByteView taken = rest_.first(static_cast<std::size_t>(count));
    rest_ = rest_.subspan(static_cast<std::size_t>(count));
    return taken;
}

std::int64_t ByteTaker::Number(int size, std::int64_t least, std::int64_t most) {
    std::uint64_t bits = 0;
    unsigned shift = 0;
    for (const Byte byte : Take(static_cast<std::uint64_t>(size))) {
        bits |= std::uint64_t{byte} << shift;
        shift += static_cast<unsigned>(BitsOfByte);
    }
    // The highest bit of the bytes is the sign.
    const auto unused = static_cast<unsigned>(BitsOfNumber - size * BitsOfByte);
    const auto value = static_cast<std::int64_t>(bits << unused) >> unused;
    if (failed_ || value < least || value > most) {
        failed_ = true;
        return 0;
    }
    return value;
}

ByteView ByteTaker::Block() {
    return Take(static_cast<std::uint64_t>(Number(LengthSize, 0, LongestBlock)));
}

Text ByteTaker::String() {
    return TextFromBytes(Block());
}

std::uint64_t HashOf(ByteView bytes) {
    constexpr std::uint64_t Factor = 0x9E3779B97F4A7C15;  // 2^64 divided by the golden ratio, odd
    constexpr unsigned HalfOfNumber = BitsOfNumber / 2;
    std::uint64_t hash = bytes.size();
    const auto take = [&hash](std::uint64_t word) {
        hash = (hash ^ word) * Factor;
        hash ^= hash >> HalfOfNumber;
    };
    std::size_t i = 0;
    for (; i + LargestNumber <= bytes.size(); i += LargestNumber) {
        take(WordOf(bytes.subspan(i).first<LargestNumber>()));
    }
    if (i < bytes.size()) {
        take(WordOf(bytes.subspan(i)));
    }
    return hash;
}

std::uint64_t Fnv1aOf(ByteView bytes) {
    constexpr std::uint64_t OffsetBasis = 0xCBF29CE484222325;
    constexpr std::uint64_t Prime = 0x100000001B3;
    std::uint64_t hash = OffsetBasis;
    for (const Byte byte : bytes) {
        hash = (hash ^ byte) * Prime;
    }
    return hash;
}

}  // namespace norvik
