// What the user is told of a source that was not read whole.
#pragma once

#include "formats/calllist/calllist.h"
#include "register/register.h"

#include <vector>

namespace norvik {

/// A sentence behind the source's name for each thing that is amiss: "ist beschädigt: …". Empty
/// when the source was read whole.
std::vector<Text> DamageOf(const RegisterState& state);

/// The same of a call list.
std::vector<Text> DamageOf(const CallListExtent& calls);

/// The same for what no reader takes, which is no damage.
std::vector<Text> PassedOver(const LoadDamage& damage);

}  // namespace norvik
