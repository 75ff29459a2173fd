// Files that are dragged from another program.
#pragma once

#include "base/paths.h"

#include <vector>

class QMimeData;

namespace norvik {

/// The files of this machine among what is dragged, in their order.
std::vector<FilePath> FilesOf(const QMimeData& data);

}  // namespace norvik
