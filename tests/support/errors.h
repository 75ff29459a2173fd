// What an operation raises.
#pragma once

#include "base/runtimeerror.h"

namespace norvik::test {

/// The number of the run-time error that `action` raises; 0 for none.
template <typename Action>
int ErrorOf(Action action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

}  // namespace norvik::test
