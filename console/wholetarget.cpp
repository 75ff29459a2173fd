#include "console/wholetarget.h"

#include "base/runtimeerror.h"
#include "console/options.h"
#include "console/pendingfile.h"
#include "console/standardstreams.h"

#include <system_error>

namespace norvik {

namespace {

bool IsStandardOutput(const FilePath& target) {
    return target == FilePath(StandardStream);
}

FilePath TemporaryFolder() {
    std::error_code error;
    FilePath folder = std::filesystem::temp_directory_path(error);
    if (error) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    return folder;
}

WriteResult WriteToStandardOutput(const std::function<bool(const FilePath&)>& write) {
    const PendingFile file(TemporaryFolder());
    if (!write(file.Path())) {
        return WriteResult::NothingToWrite;
    }
    CopyToStandardOutput(file.Path());
    return WriteResult::Written;
}

}  // namespace

bool IsTaken(const FilePath& target) {
    return !IsStandardOutput(target) && Exists(target);
}

WriteResult WriteWhole(const FilePath& target, bool replace,
                       const std::function<bool(const FilePath&)>& write) {
    if (IsStandardOutput(target)) {
        return WriteToStandardOutput(write);
    }
    const FilePath place = replace ? FileToReplace(target) : target;
    const FilePath folder = place.parent_path();
    PendingFile file(folder.empty() ? FilePath(".") : folder);
    if (!write(file.Path())) {
        return WriteResult::NothingToWrite;
    }
    return file.Become(place, replace) ? WriteResult::Written : WriteResult::NameTaken;
}

}  // namespace norvik
