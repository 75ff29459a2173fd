// The records of an address database: fields in double quotes with anything between them.
#pragma once

#include "base/text.h"

#include <vector>

namespace norvik {

/// The fields of a record, at most `room`: what stands between an opening double quote and the
/// next one. What stands between the fields does not count; a quote without a closing one ends the
/// record. The views point into `record`.
std::vector<TextView> SplitQuotedFields(TextView record, std::size_t room);

}  // namespace norvik
