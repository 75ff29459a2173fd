// One run of the converter: a source is loaded, checked and sorted by the operations of the window,
// and written by them.
#pragma once

#include "console/options.h"

namespace norvik {

/// How the process ends.
enum class ExitStatus {
    Done = 0,
    Reported = 1,    ///< done, but something was reported or will be lost
    Usage = 2,       ///< the command line makes no sense
    FileFailed = 3,  ///< something cannot be read or written; there is no target
    Damaged = 4,     ///< the source was not read whole; there is no target
};

/// Does what the options say and prints what there is to say. Raises run-time errors that none of
/// the operations handles; throws HardStop for a broken call list.
ExitStatus Convert(const ConverterOptions& options);

/// The whole program: reads the arguments behind its name and runs, source by source; the gravest
/// status counts. Raises and throws nothing.
ExitStatus RunConverter(std::span<const std::string_view> arguments);

}  // namespace norvik
