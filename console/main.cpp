#include "base/platform.h"
#include "console/convert.h"

int main(int argc, char* argv[]) {
    norvik::platform::PrepareStandardStreams();
    const std::vector<std::string_view> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return static_cast<int>(norvik::RunConverter(arguments));
}
