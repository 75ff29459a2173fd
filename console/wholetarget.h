// A target that is complete or not there.
#pragma once

#include "base/files.h"

#include <functional>

namespace norvik {

enum class WriteResult {
    Written,
    NothingToWrite,
    NameTaken,  ///< and nothing was to be replaced
};

/// Whether the target stands there already, whatever it may be; standard output never does. Raises
/// an error when the system cannot tell.
bool IsTaken(const FilePath& target);

/// Has `write` fill a file of another name, which is handed to the target when it is complete: by
/// renaming it, or by copying it to standard output ("-"). `write` gives false when there is
/// nothing to write. Until then, and after any failure, the target is as it was. With `replace` a
/// file of the target's name is replaced. Raises what `write`, creating and renaming raise.
WriteResult WriteWhole(const FilePath& target, bool replace,
                       const std::function<bool(const FilePath&)>& write);

}  // namespace norvik
