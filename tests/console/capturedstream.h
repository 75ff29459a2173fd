// A stream that keeps what is printed to it.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace norvik::test {

class CapturedStream {
  public:
    CapturedStream() : file_(std::tmpfile()) { EXPECT_NE(file_, nullptr); }
    CapturedStream(const CapturedStream&) = delete;
    CapturedStream& operator=(const CapturedStream&) = delete;
    CapturedStream(CapturedStream&&) = delete;
    CapturedStream& operator=(CapturedStream&&) = delete;
    ~CapturedStream() { std::fclose(file_); }

    [[nodiscard]] std::FILE* File() const { return file_; }

    [[nodiscard]] std::string Content() const {
        std::string content(static_cast<std::size_t>(std::ftell(file_)), '\0');
        std::rewind(file_);
        content.resize(std::fread(content.data(), 1, content.size(), file_));
        std::fseek(file_, 0, SEEK_END);  // what is written next needs it, behind what was read
        return content;
    }

  private:
    std::FILE* file_;
};

}  // namespace norvik::test
