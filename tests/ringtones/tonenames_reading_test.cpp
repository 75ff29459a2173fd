#include "ringtones/tonenames.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

/// The default names, which tonenames_test.cpp writes out, with one in front.
std::vector<Text> NamesWith(const Text& first) {
    std::vector<Text> names = DefaultToneNames();
    names.at(1) = first;
    return names;
}

TEST(ReadToneNames, ReadsRtLngInTheProgramsFolder) {
    const TestFolder folder;
    folder.Write("rt.lng", "Glocke\r\n");
    EXPECT_EQ(ReadToneNames(folder.Path()), NamesWith(u"Glocke"));
}

TEST(ReadToneNames, FindsItWhateverItsCase) {
    const TestFolder folder;
    folder.Write("RT.Lng", "Glocke\r\n");
    EXPECT_EQ(ReadToneNames(folder.Path()), NamesWith(u"Glocke"));
}

TEST(ReadToneNames, WithoutTheFileTheNamesAreTheFixedOnes) {
    const TestFolder folder;
    EXPECT_EQ(ReadToneNames(folder.Path()), DefaultToneNames());
    EXPECT_EQ(ReadToneNames(folder / "fehlt"), DefaultToneNames());
}

TEST(ReadToneNames, AFileThatCannotBeReadIsAsGoodAsNone) {
    const TestFolder folder;
    std::filesystem::create_directory(folder / "rt.lng");
    EXPECT_EQ(ReadToneNames(folder.Path()), DefaultToneNames());
}

}  // namespace
}  // namespace norvik::test
