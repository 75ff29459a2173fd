// What a load reads: bytes, with where they came from. The source need not be a file on disk;
// standard input has a name to show and no date.
#pragma once

#include "base/files.h"

#include <functional>
#include <optional>
#include <utility>

namespace norvik {

/// A source that is in memory as a whole.
struct SourceFile {
    Bytes Content;
    FilePath Path;                     ///< as the current file shows it
    std::optional<FileTime> Modified;  ///< when the file was last changed, where that is known
};

/// A source that is about to be read, whole or block by block.
struct Source {
    Source() = default;
    Source(InputStream content, FilePath path, std::optional<FileTime> modified)
        : Content(std::move(content)), Path(std::move(path)), Modified(modified) {}
    /// What is in memory already can be read, too.
    Source(SourceFile file)  // NOLINT(*-explicit-*)
        : Source(InputStream(std::move(file.Content)), std::move(file.Path), file.Modified) {}

    InputStream Content;
    FilePath Path;
    std::optional<FileTime> Modified;
};

/// Opens the source when a load is ready for it; raises what opening raises, so that the load can
/// report it as its own failure.
using SourceReader = std::function<Source()>;

/// The file of that path. Raises what OpenFile raises.
Source OpenSourceFile(const FilePath& path);

/// The whole source. Raises what InputStream::ReadAll raises.
SourceFile ReadWhole(Source source);

/// Both at once.
SourceFile ReadSourceFile(const FilePath& path);

}  // namespace norvik
