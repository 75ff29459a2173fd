#include "formats/common/sourcefile.h"

namespace norvik {

SourceFile ReadSourceFile(const FilePath& path) {
    return {.Content = ReadWholeFile(path), .Path = path, .Modified = LastModified(path)};
}

}  // namespace norvik
