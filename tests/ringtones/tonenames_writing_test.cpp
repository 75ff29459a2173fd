// Writing the tone-names file.
#include "base/runtimeerror.h"
#include "ringtones/tonenames.h"
#include "tests/support/filetext.h"
#include "tests/support/processlimits.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;

const std::string BuiltIn = "3Klang 1\r\n3Klang 2\r\n3Klang 3\r\n"
                            "2Klang 1\r\n2Klang 2\r\n2Klang 3\r\n2Klang 4\r\n2Klang 5\r\n"
                            "Ton 1\r\nTon 2\r\n"
                            "Klingel 1\r\nKlingel 2\r\nKlingel 3\r\nKlingel 4\r\nKlingel 5\r\n"
                            "Klingel 6\r\nKlingel 7\r\nKlingel 8\r\nKlingel 9\r\nKlingel 10\r\n";

const std::string OwnFrom3 =
    "Eigen 3\r\nEigen 4\r\nEigen 5\r\nEigen 6\r\nEigen 7\r\nEigen 8\r\nEigen 9\r\nEigen 10\r\n"
    "Eigen 11\r\nEigen 12\r\nEigen 13\r\nEigen 14\r\nEigen 15\r\nEigen 16\r\nEigen 17\r\n"
    "Eigen 18\r\nEigen 19\r\nEigen 20\r\nEigen 21\r\nEigen 22\r\nEigen 23\r\nEigen 24\r\n"
    "Eigen 25\r\nEigen 26\r\nEigen 27\r\nEigen 28\r\nEigen 29\r\nEigen 30\r\nEigen 31\r\n"
    "Eigen 32\r\nEigen 33\r\nEigen 34\r\nEigen 35\r\nEigen 36\r\nEigen 37\r\nEigen 38\r\n"
    "Eigen 39\r\nEigen 40\r\nEigen 41\r\nEigen 42\r\nEigen 43\r\nEigen 44\r\nEigen 45\r\n"
    "Eigen 46\r\nEigen 47\r\nEigen 48\r\nEigen 49\r\nEigen 50\r\nEigen 51\r\nEigen 52\r\n"
    "Eigen 53\r\nEigen 54\r\nEigen 55\r\nEigen 56\r\nEigen 57\r\nEigen 58\r\nEigen 59\r\n"
    "Eigen 60\r\n";

std::vector<Text> NamesWithOwn(const Text& first, const Text& second) {
    std::vector<Text> names = DefaultToneNames();
    names.at(21) = first;
    names.at(22) = second;
    return names;
}

int WriteError(const FilePath& folder, const std::vector<Text>& names) {
    try {
        WriteToneNames(folder, names);
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

TEST(WriteToneNames, WritesEightyLinesWithoutKein) {
    const TestFolder folder;
    WriteToneNames(folder.Path(), NamesWithOwn(u"01Hund", u"Eigen 2"));
    EXPECT_EQ(TextOf(folder / "rt.lng"), BuiltIn + "01Hund\r\nEigen 2\r\n" + OwnFrom3);
}

TEST(WriteToneNames, WritesWindows1252) {
    const TestFolder folder;
    WriteToneNames(folder.Path(), NamesWithOwn(u"01Glöckchen", u"02für 5 €"));
    EXPECT_EQ(TextOf(folder / "rt.lng"), BuiltIn +
                                             "01Gl\xF6"
                                             "ckchen\r\n02f\xFCr 5 \x80\r\n" +
                                             OwnFrom3);
}

TEST(WriteToneNames, WritesTheFileAnew) {
    const TestFolder folder;
    folder.Write("rt.lng", std::string(5000, 'x'));
    WriteToneNames(folder.Path(), DefaultToneNames());
    EXPECT_EQ(TextOf(folder / "rt.lng"), BuiltIn + "Eigen 1\r\nEigen 2\r\n" + OwnFrom3);
}

TEST(WriteToneNames, ReplacesTheFileWhateverItsCase) {
    const TestFolder folder;
    folder.Write("RT.LNG", "alt\r\n");
    WriteToneNames(folder.Path(), DefaultToneNames());
    EXPECT_EQ(TextOf(folder / "RT.LNG"), BuiltIn + "Eigen 1\r\nEigen 2\r\n" + OwnFrom3);
    EXPECT_FALSE(fs::exists(folder / "rt.lng"));
}

TEST(WriteToneNames, LeavesNothingElseInTheFolder) {
    const TestFolder folder;
    WriteToneNames(folder.Path(), DefaultToneNames());
    std::vector<FilePath> names;
    for (const auto& entry : fs::directory_iterator(folder.Path())) {
        names.push_back(entry.path().filename());
    }
    EXPECT_EQ(names, std::vector<FilePath>{"rt.lng"});
}

TEST(WriteToneNames, MakesTheFolderOnTheFirstWrite) {
    const TestFolder folder;
    WriteToneNames(folder / "share/norvik", DefaultToneNames());
    EXPECT_EQ(TextOf(folder / "share/norvik/rt.lng"),
              BuiltIn + "Eigen 1\r\nEigen 2\r\n" + OwnFrom3);
}

TEST(WriteToneNames, WhatIsWrittenIsReadBack) {
    const TestFolder folder;
    const std::vector<Text> names = NamesWithOwn(u"01Grüße; € „Ÿ“ ", u"2");
    WriteToneNames(folder.Path(), names);
    EXPECT_EQ(ReadToneNames(folder.Path()), names);
}

TEST(WriteToneNames, ANameThatTheFileCannotHoldRaises5AndKeepsTheOldFile) {
    const TestFolder folder;
    folder.Write("rt.lng", "alt\r\n");
    EXPECT_EQ(WriteError(folder.Path(), NamesWithOwn(u"01Жук", u"2")), 5);
    EXPECT_EQ(TextOf(folder / "rt.lng"), "alt\r\n");
}

TEST(WriteToneNames, AFolderInTheFilesPlaceRaises75) {
    const TestFolder folder;
    fs::create_directory(folder / "rt.lng");
    EXPECT_EQ(WriteError(folder.Path(), DefaultToneNames()), 75);
}

#ifndef _WIN32

TEST(WriteToneNames, AFolderThatMayNotBeWrittenRaises70AndKeepsTheOldFile) {
    const TestFolder folder;
    folder.Write("rt.lng", "alt\r\n");
    fs::permissions(folder.Path(), fs::perms(0555));
    {
        const AsAnyUser anyUser;
        EXPECT_EQ(WriteError(folder.Path(), DefaultToneNames()), 70);
    }
    fs::permissions(folder.Path(), fs::perms(0755));
    EXPECT_EQ(TextOf(folder / "rt.lng"), "alt\r\n");
}

TEST(WriteToneNames, AWriteThatFailsHalfWayKeepsTheOldFileAndLeavesNoPartOfTheNew) {
    const TestFolder folder;
    folder.Write("rt.lng", "alt\r\n");
    {
        const FileSizeLimit limit(100);
        EXPECT_EQ(WriteError(folder.Path(), DefaultToneNames()), 57);
    }
    EXPECT_EQ(TextOf(folder / "rt.lng"), "alt\r\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()), 1);
}

TEST(WriteToneNames, AFullDiskRaises61) {
    const TestFolder folder;
    fs::create_symlink("/dev/full", folder / "rt.lng");
    EXPECT_EQ(WriteError(folder.Path(), DefaultToneNames()), 61);
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"rt.lng"});
}

#endif

}  // namespace
}  // namespace norvik::test
