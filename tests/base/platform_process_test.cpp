#include "base/platform.h"

#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace norvik::test {
namespace {

TEST(PathOfUtf8, NamesWhateverTheSystemCallsSo) {
    const TestFolder folder;
    const FilePath path = folder.Write(u8"a b,\u00FC\u03A9\U0001F600.t9t", "x");
    EXPECT_EQ(platform::Utf8Of(path.filename()), "a b,\xC3\xBC\xCE\xA9\xF0\x9F\x98\x80.t9t");
    EXPECT_EQ(platform::PathOfUtf8(platform::Utf8Of(path)), path);
    EXPECT_EQ(ReadFile(platform::PathOfUtf8(platform::Utf8Of(path))), Raw("'x'"));
    EXPECT_EQ(platform::PathOfUtf8(""), FilePath());
    EXPECT_EQ(platform::Utf8Of({}), "");
}

TEST(ShowOnConsole, LeavesAFileAlone) {
    const TestFolder folder;
    std::FILE* const file = std::tmpfile();
    ASSERT_NE(file, nullptr);
    std::error_code error;
    EXPECT_FALSE(platform::ShowOnConsole(file, "x", error));
    EXPECT_EQ(std::ftell(file), 0);
    std::fclose(file);
}

#ifndef _WIN32
TEST(PathOfUtf8, KeepsEveryByte) {
    EXPECT_EQ(platform::PathOfUtf8("a b,\xFF\xC3.t9t").native(), "a b,\xFF\xC3.t9t");
    EXPECT_EQ(platform::Utf8Of("a b,\xFF\xC3.t9t"), "a b,\xFF\xC3.t9t");
}

TEST(Arguments, AreThoseBehindTheProgramsName) {
    std::string name = "norvik";
    std::string first = "a*";
    std::string second = "\xFF";
    std::array<char*, 4> words = {name.data(), first.data(), second.data(), nullptr};
    for (const auto patterns : {platform::Patterns::Leave, platform::Patterns::Expand}) {
        EXPECT_THAT(platform::Arguments(3, words.data(), patterns),
                    testing::ElementsAre("a*", "\xFF"));
    }
    EXPECT_THAT(platform::Arguments(0, words.data() + 3, platform::Patterns::Leave),
                testing::IsEmpty());
}
#endif

}  // namespace
}  // namespace norvik::test
