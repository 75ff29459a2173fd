// Spelling out the characters that a telephone of another make does not show.
#pragma once

#include "base/text.h"

namespace norvik {

/// The text with German umlauts spelled out: ä as "ae", Ü as "Ue", and ß as "sz".
Text Transliterate(TextView text);

}  // namespace norvik
