// Renewing the names of the own melodies from the tone folder.
#pragma once

#include "base/desktop.h"

#include <vector>

namespace norvik {

/// The names of the user's tone files lie in this subfolder of the program's folder.
inline constexpr TextView ToneFolderName = u"tonruf";

/// Asks, then gives the 81 tone names with those of the files in the tone folder in place of the
/// own melodies: a file's name begins with its slot, 1 to 60, and ends with ".t9r", in any case.
/// Gives nothing when the user cancels or when no file is usable, which is reported.
std::optional<std::vector<Text>> RenameRingtones(const FilePath& folder, Desktop& desktop);

}  // namespace norvik
