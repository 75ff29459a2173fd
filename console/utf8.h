// Texts as a console shows them and as its arguments hold them: UTF-8, whatever the locale.
#pragma once

#include "base/files.h"
#include "base/text.h"

#include <optional>
#include <string>
#include <string_view>

namespace norvik {

std::string ToUtf8(TextView text);

/// The text of a UTF-8 argument; nothing when it is no UTF-8 or holds a character outside
/// Windows-1252.
std::optional<Text> FromUtf8(std::string_view utf8);

/// Whether a character is a control character, which a terminal would act on instead of showing it.
bool IsControl(char16_t character);

/// `text` for one line of a terminal: every control character, line ends included, becomes "?".
Text Printable(TextView text);

/// The path of an argument: its bytes as they are.
FilePath PathOfArgument(std::string_view argument);

/// A path for one line of a terminal; characters outside Windows-1252 become "?", too.
Text PrintablePath(const FilePath& path);

}  // namespace norvik
