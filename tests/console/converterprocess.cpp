#include "tests/console/converterprocess.h"

#include "base/platform.h"
#include "tests/support/places.h"

namespace norvik::test {

Outcome RunConverter(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    return RunProgram(platform::Utf8Of(ConverterProgramFile()), arguments, surroundings);
}

std::string StringOf(const Bytes& bytes) {
    return {bytes.begin(), bytes.end()};
}

}  // namespace norvik::test
