#include "console/messages.h"

#include "tests/console/capturedstream.h"

namespace norvik::test {
namespace {

std::string Printed(TextView text) {
    const CapturedStream stream;
    EXPECT_FALSE(PrintLines(stream.File(), text));
    return stream.Content();
}

TEST(PrintLines, PrintsALineForEachLine) {
    EXPECT_EQ(Printed(u"eine"), "eine\n");
    EXPECT_EQ(Printed(u"eine\r\nzwei"), "eine\nzwei\n");
    EXPECT_EQ(Printed(u"über\r\n\r\ndrei\r\n"), "über\n\ndrei\n");
    EXPECT_EQ(Printed(u"\r\n"), "\n");
    EXPECT_EQ(Printed(u""), "");
}

TEST(PrintLines, TakesOtherLineEndsForControlCharacters) {
    EXPECT_EQ(Printed(u"a\nb\rc\r\r\nd\x1B"), "a?b?c?\nd?\n");
}

TEST(PrintLines, TellsWhetherTheOutputTookIt) {
    std::FILE* full = std::fopen("/dev/full", "w");
    ASSERT_NE(full, nullptr);
    EXPECT_EQ(PrintLines(full, u"a"), std::errc::no_space_on_device);
    std::fclose(full);
}

TEST(Say, PutsTheProgramsNameInFront) {
    testing::internal::CaptureStderr();
    Say(u"grün\r\nund\x7F");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "norvik-konverter: grün??und?\n");
}

}  // namespace
}  // namespace norvik::test
