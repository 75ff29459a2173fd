// Numbers from the environment, with which random tests work longer or elsewhere.
#pragma once

#include <cstdlib>

namespace norvik::test {

inline unsigned FromEnvironment(const char* name, unsigned usual) {
    const char* wanted = std::getenv(name);
    return wanted == nullptr ? usual : static_cast<unsigned>(std::atoi(wanted));
}

}  // namespace norvik::test
