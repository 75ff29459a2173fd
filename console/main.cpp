#include "console/convert.h"
#include "console/standardstreams.h"

int main(int argc, char* argv[]) {
    norvik::PrepareStandardStreams();
    const std::vector<std::string_view> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return static_cast<int>(norvik::RunConverter(arguments));
}
