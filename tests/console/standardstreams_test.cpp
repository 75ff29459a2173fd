// The streams of a process are seen from outside in main_test.cpp; here is what can be seen inside.
#include "console/standardstreams.h"

#include "tests/console/converterprocess.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

Bytes BytesUpTo(std::size_t count) {
    Bytes bytes(count);
    for (std::size_t i = 0; i < count; ++i) {
        bytes[i] = static_cast<Byte>(i % 251);
    }
    return bytes;
}

TEST(WriteToStandardOutput, WritesEveryByte) {
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 200000U}) {
        const Bytes bytes = BytesUpTo(size);
        testing::internal::CaptureStdout();
        WriteToStandardOutput(bytes);
        const std::string written = testing::internal::GetCapturedStdout();
        EXPECT_EQ(Bytes(written.begin(), written.end()), bytes) << size;
    }
}

TEST(StandardStreams, AreBinary) {
    // A number may hold any byte; the 195 file keeps it.
    Bytes number = BytesUpTo(251);
    const Bytes file = Join({Raw("06 0D 'TStCollection' 02 64 01 0200 0201 06 01 'x' 06 FB"),
                             number, Raw("06 00 0200 020F 0200 0200 00")});
    const Outcome outcome = RunConverter({"--von=195", "--nach=195", "-", "-"}, {.Input = file});
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Output, file);
}

}  // namespace
}  // namespace norvik::test
