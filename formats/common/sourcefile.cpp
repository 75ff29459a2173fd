#include "formats/common/sourcefile.h"

namespace norvik {

Source OpenSourceFile(const FilePath& path) {
    return {OpenFile(path), path, LastModified(path)};
}

SourceFile ReadWhole(Source source) {
    return {.Content = source.Content.ReadAll(),
            .Path = std::move(source.Path),
            .Modified = source.Modified};
}

SourceFile ReadSourceFile(const FilePath& path) {
    return ReadWhole(OpenSourceFile(path));
}

}  // namespace norvik
