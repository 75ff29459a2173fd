// The PC's 8-bit character set, Windows-1252, mapped one to one onto UTF-16.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace norvik {

using Byte = std::uint8_t;
using Bytes = std::vector<Byte>;
using ByteView = std::span<const Byte>;

/// The character of a byte. The five bytes that Windows-1252 leaves undefined (0x81, 0x8D, 0x8F,
/// 0x90, 0x9D) give the control characters of the same code.
char16_t CharacterOf(Byte byte);

/// The byte of a character; nothing for a character outside the repertoire.
std::optional<Byte> ByteOf(char16_t character);

/// The text that the bytes stand for. Every byte has a character.
Text TextFromBytes(ByteView bytes);

/// Makes `text`, whose room it uses again, the text that the bytes stand for.
void AssignFromBytes(Text& text, ByteView bytes);

/// The bytes of a text. Raises run-time error 5 for a character outside the repertoire.
Bytes BytesFromText(TextView text);

/// Appends the bytes of a text; raises what BytesFromText raises.
void AppendBytes(Bytes& bytes, TextView text);

}  // namespace norvik
