#include "formats/common/undefinederror.h"

namespace norvik {

void ReportUndefinedError(TextView menuItem, const RuntimeError& error, Desktop& desktop) {
    Text text = u"Undef'd Error: ";
    text.append(menuItem).append(u":").append(error.NumberAndDescription());
    desktop.Ask({.text = text});
}

}  // namespace norvik
