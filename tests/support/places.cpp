#include "tests/support/places.h"

namespace norvik::test {

// The only file that is told absolute paths: all others compile alike in every checkout, so that a
// compiler cache knows them again.

FilePath SourceFolder() {
    return NORVIK_SOURCE_FOLDER;
}

FilePath ConverterProgramFile() {
    return NORVIK_CONVERTER;
}

FilePath EditorProgramFile() {
    return NORVIK_EXECUTABLE;
}

}  // namespace norvik::test
