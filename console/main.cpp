#include "base/platform.h"
#include "console/convert.h"

int main(int argc, char* argv[]) {
    norvik::platform::PrepareStandardStreams();
    const std::vector<std::string> words =
        norvik::platform::Arguments(argc, argv, norvik::platform::Patterns::Expand);
    const std::vector<std::string_view> arguments(words.begin(), words.end());
    return static_cast<int>(norvik::RunConverter(arguments));
}
