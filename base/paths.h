// Paths of files: how they are shown, looked up and completed.
#pragma once

#include "base/text.h"

#include <filesystem>
#include <string_view>

namespace norvik {

/// A path is never a Text: the file system's names know more characters than Windows-1252.
using FilePath = std::filesystem::path;

/// `path` itself where it exists, else the existing path that equals it but for upper and lower
/// case, folder by folder; `path` again where there is none. Folders in which a search could take
/// longer than half a second are given up half-way, as if there were none.
FilePath FindIgnoringCase(const FilePath& path);

/// The same for `name` in `folder`, which is taken as it is written; for `name` alone where that is
/// an absolute path. An empty name is no path in any folder.
FilePath FindIgnoringCase(const FilePath& folder, const FilePath& name);

/// Whether two full paths name the same file by how they are spelled. Links are not followed.
bool IsSamePath(const FilePath& a, const FilePath& b);

/// `path` with `ending` (for example ".t9t", in UTF-8) appended when the file's name holds no ".".
FilePath WithEnding(const FilePath& path, std::string_view ending);

/// The path from the root on, without "." and ".."; the path itself where that cannot be told.
FilePath FullPath(const FilePath& path);

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
