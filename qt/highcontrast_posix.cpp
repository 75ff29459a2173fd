#include "qt/highcontrast.h"

namespace norvik {

// There a high contrast is a theme or a palette like any other, which the toolkit draws.
bool WantsHighContrast() {
    return false;
}

}  // namespace norvik
