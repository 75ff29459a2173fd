// Where the tests find what they look at: the sources and the programs built from them.
#pragma once

#include "base/files.h"

namespace norvik::test {

/// The project's folder.
FilePath SourceFolder();

/// The converter's program.
FilePath ConverterProgramFile();

/// The editor's program; empty in a build without the window.
FilePath EditorProgramFile();

}  // namespace norvik::test
