// What a load reads: the bytes of a whole file, with where they came from. The source need not be a
// file on disk; standard input has a name to show and no date.
#pragma once

#include "base/files.h"

#include <functional>
#include <optional>

namespace norvik {

struct SourceFile {
    Bytes Content;
    FilePath Path;                     ///< as the current file shows it
    std::optional<FileTime> Modified;  ///< when the file was last changed, where that is known
};

/// Gives the source when a load is ready for it; raises what reading raises, so that the load can
/// report it as its own failure.
using SourceReader = std::function<SourceFile()>;

/// The file of that path. Raises what ReadWholeFile and LastModified raise.
SourceFile ReadSourceFile(const FilePath& path);

}  // namespace norvik
