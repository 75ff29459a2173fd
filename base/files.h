// Reading files. A failure becomes a RuntimeError, as systemerrors.h says; one of another kind than
// a regular file is 75, a file that is too large 7.
#pragma once

#include "base/inputstream.h"
#include "base/numbers.h"
#include "base/paths.h"

#include <optional>

namespace norvik {

/// Opens a regular file of any size.
InputStream OpenFile(const FilePath& path);

/// The bytes of a regular file of at most MaximumFileSize.
Bytes ReadWholeFile(const FilePath& path);

/// When the file was last changed; nothing where that cannot be told. Raises nothing: a date never
/// keeps a file from being read.
std::optional<FileTime> LastModified(const FilePath& path);

}  // namespace norvik
