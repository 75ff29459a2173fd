// The first bytes of a register file, which tell one from a call list.
#pragma once

#include "base/windows1252.h"

#include <array>
#include <string_view>

namespace norvik {

/// The bytes that two hexadecimal digits each of `digits` stand for.
template <std::size_t Size>
constexpr std::array<Byte, Size> BytesFromHex(std::string_view digits) {
    const auto value = [](char digit) {
        return static_cast<Byte>(digit <= '9' ? digit - '0' : digit - 'A' + 10);
    };
    std::array<Byte, Size> bytes{};
    for (std::size_t i = 0; i < Size; ++i) {
        bytes[i] = static_cast<Byte>(value(digits[2 * i]) * 16 + value(digits[2 * i + 1]));
    }
    return bytes;
}

/// Opens every register file: a short string, the name of the list's type, and two bytes of an
/// integer item.
inline constexpr std::array<Byte, 18> RegisterFileHeader =
    BytesFromHex<18>("060D545374436F6C6C656374696F6E026401");

}  // namespace norvik
