#pragma once

#include "base/text.h"

namespace norvik {

/// The text with German umlauts spelled out: ä as "ae", Ü as "Ue", and ß as "sz".
Text Transliterate(TextView text);

}  // namespace norvik
