// What kind of a number it is, by what its card says of it.
#pragma once

#include "formats/vcard/vcardproperty.h"

namespace norvik {

/// Of several kinds the last one of this order counts: a fax at work is a fax, a mobile at work a
/// mobile.
enum class NumberKind { Unknown, Home, Work, Mobile, Fax };

/// The kind that a type or a label tells, German ones included.
NumberKind NumberKindOf(std::string_view words);

/// The kind that a number's parameters tell.
NumberKind NumberKindOf(const VCardProperty& property);

}  // namespace norvik
