// Putting an entry's info text together from the info fields of a text file.
#pragma once

#include "base/text.h"

#include <span>

namespace norvik {

/// The info text of up to six info fields, right-trimmed. Fields of at most 21 characters are taken
/// as lines, one each. Where any is longer, as in files of other programs, all text is flowed into
/// lines of 21 characters; what is then longer than 126 characters is cut to 123 and "...".
Text AssembleInfo(std::span<const TextView> fields);

}  // namespace norvik
