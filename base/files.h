// Reading files. A failure becomes a RuntimeError, as systemerrors.h says; one of another kind than
// a regular file is 75, a file that is too large 7.
#pragma once

#include "base/numbers.h"
#include "base/paths.h"
#include "base/windows1252.h"

#include <cstdint>
#include <optional>

namespace norvik {

/// Files larger than this are not read (run-time error 7).
inline constexpr std::uintmax_t MaximumFileSize = std::uintmax_t{64} * 1024 * 1024;

/// The bytes of a regular file of at most MaximumFileSize.
Bytes ReadWholeFile(const FilePath& path);

/// When the file was last changed; nothing where that cannot be told. Raises nothing: a date never
/// keeps a file from being read.
std::optional<FileTime> LastModified(const FilePath& path);

}  // namespace norvik
