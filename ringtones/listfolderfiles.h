// The names of the files in a folder.
#pragma once

#include "base/paths.h"

#include <vector>

namespace norvik {

/// The names of the plain files in `folder` whose ending is `extension` (for example "t9r", in any
/// case), in the order of the names without regard to case. Folders, hidden files and names that no
/// text of the system can hold do not count. A folder that cannot be read gives no names.
std::vector<Text> ListFolderFiles(const FilePath& folder, TextView extension);

}  // namespace norvik
