// UTF-8 to UTF-16 and back, for systems whose names and arguments are UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace norvik {

/// Half of a surrogate pair that stands alone, as a name may hold it, becomes three bytes, and
/// comes back from them. Any other byte that does not fit becomes ReplacementCharacter.
std::string Utf8OfUtf16(std::u16string_view utf16);
std::u16string Utf16OfUtf8(std::string_view utf8);

}  // namespace norvik
