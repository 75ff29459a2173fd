// A file as text.
#pragma once

#include "tests/support/testfolder.h"

namespace norvik::test {

/// The bytes of a file, none of them changed.
inline std::string TextOf(const FilePath& path) {
    const Bytes bytes = ReadFile(path);
    return {bytes.begin(), bytes.end()};
}

}  // namespace norvik::test
