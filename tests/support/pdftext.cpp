#include "tests/support/pdftext.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

namespace norvik::test {

std::string OutputOf(const std::string& command) {
    std::string output;
    std::FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        ADD_FAILURE() << command;
        return output;
    }
    std::array<char, 4096> block{};
    for (std::size_t size = 0; (size = std::fread(block.data(), 1, block.size(), pipe)) > 0;) {
        output.append(block.data(), size);
    }
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

std::string TextOfPdf(const FilePath& file) {
    return OutputOf("pdftotext -raw '" + file.string() + "' -");
}

}  // namespace norvik::test
