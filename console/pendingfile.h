// A file that bears its name only when it is complete, and that an interrupting signal removes.
#pragma once

#include "base/files.h"

namespace norvik {

class PendingFile {
  public:
    /// Makes an empty file in `folder`, under a name that nobody else uses, which the user alone
    /// may read. Raises what creating a file raises.
    explicit PendingFile(const FilePath& folder);
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    PendingFile(PendingFile&&) = delete;
    PendingFile& operator=(PendingFile&&) = delete;
    /// Removes the file unless it has become another.
    ~PendingFile();

    /// Where it is to be written.
    [[nodiscard]] const FilePath& Path() const { return path_; }

    /// Gives the file the name `target`, which must stand in its folder. With `replace` it takes
    /// the place and the permissions of a file of that name, and its owner as far as the user may
    /// give files away. Without, gives false when there is one, and leaves both as they are. Raises
    /// error 61, 64, 70, 75 or 57 when the system refuses.
    bool Become(const FilePath& target, bool replace);

  private:
    FilePath path_;
    std::filesystem::perms permissions_ = std::filesystem::perms::none;
};

/// Whether something bears the name, be it a link to nowhere. Raises as Become does.
bool Exists(const FilePath& path);

/// The file that `path` names at the end of all symbolic links; `path` itself where there is none.
/// Raises error 75 for something that is no regular file, and error 70 for one that is write
/// protected.
FilePath FileToReplace(const FilePath& path);

}  // namespace norvik
