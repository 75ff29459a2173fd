#include "console/messages.h"

#include "base/platform.h"
#include "base/utf8.h"
#include "console/printable.h"

#include <algorithm>
#include <cerrno>

namespace norvik {

namespace {

std::error_code PrintUtf8(std::FILE* output, const std::string& utf8) {
    std::error_code error;
    if (platform::ShowOnConsole(output, utf8, error)) {
        return error;
    }
    errno = 0;
    const bool taken = std::fwrite(utf8.data(), 1, utf8.size(), output) == utf8.size();
    if (std::fflush(output) == 0 && taken) {
        return {};
    }
    return {errno == 0 ? EIO : errno, std::generic_category()};
}

}  // namespace

std::error_code PrintLines(std::FILE* output, TextView text) {
    std::string lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(LineEnd), text.size());
        lines += ToUtf8(Printable(text.substr(0, end))) + "\n";
        text.remove_prefix(std::min(end + LineEnd.size(), text.size()));
    }
    return PrintUtf8(output, lines);
}

void Say(TextView message) {
    Text line(ConverterName);
    line.append(u": ").append(Printable(message));
    PrintLines(stderr, line);
}

}  // namespace norvik
