// Files and their paths. A failure becomes a RuntimeError: a missing file 53, a missing folder in
// its path 76, no permission 70, something that is no regular file 75, an impossible name 64, a
// file that is too large 7, a full disk 61, anything else 57.
#pragma once

#include "base/numbers.h"
#include "base/text.h"
#include "base/windows1252.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>

namespace norvik {

/// A path is never a Text: the file system's names know more characters than Windows-1252.
using FilePath = std::filesystem::path;

/// Files larger than this are not read (run-time error 7).
inline constexpr std::uintmax_t MaximumFileSize = std::uintmax_t{64} * 1024 * 1024;

/// The bytes of a regular file of at most MaximumFileSize.
Bytes ReadWholeFile(const FilePath& path);

/// When the file was last changed.
FileTime LastModified(const FilePath& path);

/// A file being written from its beginning. What was written before a failure stays in the file.
/// Only Close() proves that the file is complete on disk.
class OutputFile {
  public:
    /// Creates the file, or empties the one that stands there.
    explicit OutputFile(const FilePath& path);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    OutputFile(OutputFile&&) = delete;
    OutputFile& operator=(OutputFile&&) = delete;
    /// Closes a file that a failure left open.
    ~OutputFile();

    /// Raises on a failed write; since writing is buffered, a failure may come with a later call.
    void Write(ByteView bytes);
    /// Hands everything to the system and closes; raises when anything of it failed.
    void Close();

  private:
    std::vector<char> buffer_;  ///< outlives the stream
    std::FILE* file_;
};

/// Raises error 70 for a file that is write protected: renaming onto it would pass over that.
void EnsureNotProtected(const FilePath& path);

/// Puts `bytes` into the file so that there is always a whole one, the old or the new: they are
/// written beside it and the result is renamed. On an error the old file is untouched. A missing
/// folder is made. A link to a file stays one, and the file keeps its permissions; one that is
/// write protected raises error 70.
void ReplaceFile(const FilePath& path, ByteView bytes);

/// `path` itself where it exists, else the existing path that equals it but for upper and lower
/// case, folder by folder; `path` again where there is none.
FilePath FindIgnoringCase(const FilePath& path);

/// The same for `name` in `folder`, which is taken as it is written.
FilePath FindIgnoringCase(const FilePath& folder, const FilePath& name);

/// `path` with `ending` (for example ".t9t") appended when the file's name holds no ".".
FilePath WithEnding(const FilePath& path, std::string_view ending);

/// A path for showing: characters outside Windows-1252 become "?".
Text TextFromPath(const FilePath& path);

/// The path that a text of a settings file or of the command line names.
FilePath PathFromText(TextView text);

/// Whether the user may create files in the folder.
bool IsWritableFolder(const FilePath& folder);

/// The folder of the settings and the optional companion files: the executable's own, or the user's
/// data folder where the user may not write there, as in a system-wide installation.
FilePath ProgramFolder(const FilePath& executableFolder, const FilePath& userDataFolder);

}  // namespace norvik
