// The source tree keeps its floors, and a tree that does not is found out.
#include "tests/project/sourcerules.h"
#include "tests/support/places.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

const fs::path Root = SourceFolder();

TEST(SourceTree, IsFoundWithAllItsFloors) {
    const std::set<std::string> folders = FoldersOfSources(Root);
    for (const char* const folder :
         {"base", "register", "formats", "losses", "mainwindow", "console", "tests"}) {
        EXPECT_EQ(folders.count(folder), 1U) << folder;
    }
}

TEST(SourceTree, EveryFolderHasAFloor) {
    EXPECT_THAT(FoldersWithoutAFloor(Root), IsEmpty());
}

TEST(SourceTree, NoFileIncludesAFloorAboveIt) {
    EXPECT_THAT(IncludesUpwards(Root), IsEmpty());
}

TEST(SourceTree, NoFormatIncludesAnother) {
    EXPECT_THAT(IncludesOfOtherRooms(Root), IsEmpty());
}

TEST(SourceTree, OnlyTheTopFloorIncludesTheToolkit) {
    EXPECT_THAT(ToolkitOutsideItsFloor(Root), IsEmpty());
}

TEST(SourceTree, TheCoreUsesTheStandardLibraryAlone) {
    EXPECT_THAT(OtherLibrariesOutsideTheirFolders(Root), IsEmpty());
}

TEST(SourceTree, NoFoldersIncludeEachOtherInACircle) {
    EXPECT_THAT(FoldersInACircle(Root), IsEmpty());
}

TEST(SourceTree, EveryCoreSourceHasItsTest) {
    EXPECT_THAT(SourcesWithoutATest(Root), IsEmpty());
}

TEST(SourceTree, NoProductFileIsTooLong) {
    EXPECT_THAT(ProductFilesThatAreTooLong(Root), IsEmpty());
}

TEST(SourceTree, EveryHeaderSaysWhatItIsFor) {
    EXPECT_THAT(HeadersWithoutAnOpening(Root), IsEmpty());
}

TEST(SourceTree, NoFileAsksForTheSystem) {
    EXPECT_THAT(FilesThatAskForTheSystem(Root), IsEmpty());
}

TEST(SourceTree, NoTwoHeadersDefineOneName) {
    EXPECT_THAT(NamesOfTwoHeaders(Root), IsEmpty());
}

/// A small tree in which everything is as it should be.
class PlantedTree : public testing::Test {
  protected:
    PlantedTree() {
        Plant("base/text.h", "// Texts.\n#pragma once\n#include <string>\n");
        Plant("base/text.cpp", "#include \"base/text.h\"\n");
        Plant("registertools/check.h", "// Checks.\n#include \"base/text.h\"\n");
        Plant("formats/common/bytes.h", "// Bytes.\n#include \"registertools/check.h\"\n");
        Plant("formats/csv/csv.h", "// CSV.\n#include \"formats/common/bytes.h\"\n");
        Plant("formats/table.h", "// All.\n#include \"formats/csv/csv.h\"\n");
        Plant("qt/window.h",
              "// Window.\n#include <QWidget>\n#include \"registertools/check.h\"\n");
        Plant("qt/window.cpp", "#include \"qt/window.h\"\n");
        Plant("paper/pdf.h", "// PDF.\n#include \"registertools/check.h\"\n#include <hpdf.h>\n");
        Plant("console/options.h", "// Options.\n#include \"registertools/check.h\"\n");
        Plant("tests/base/text_test.cpp", "#include \"base/text.h\"\n#include <gtest/gtest.h>\n");
        Plant("tests/qt/window_test.cpp", "#include <QTest>\n#include \"qt/window.h\"\n");
        Plant("build/CMakeFiles/probe.cpp", "#include <QWidget>\n");
        Plant(".git/hook.cpp", "#include <QWidget>\n");
    }

    void Plant(const std::string& path, const std::string& content) {
        folder.Write(path, std::string_view(content));
    }

    TestFolder folder;
};

TEST_F(PlantedTree, AsItShouldBeHasNoFindings) {
    EXPECT_THAT(FoldersWithoutAFloor(folder.Path()), IsEmpty());
    EXPECT_THAT(IncludesUpwards(folder.Path()), IsEmpty());
    EXPECT_THAT(ToolkitOutsideItsFloor(folder.Path()), IsEmpty());
    EXPECT_THAT(OtherLibrariesOutsideTheirFolders(folder.Path()), IsEmpty());
    EXPECT_THAT(FoldersInACircle(folder.Path()), IsEmpty());
    EXPECT_THAT(SourcesWithoutATest(folder.Path()), IsEmpty());
    EXPECT_THAT(ProductFilesThatAreTooLong(folder.Path()), IsEmpty());
    EXPECT_THAT(IncludesOfOtherRooms(folder.Path()), IsEmpty());
    EXPECT_THAT(HeadersWithoutAnOpening(folder.Path()), IsEmpty());
    EXPECT_THAT(NamesOfTwoHeaders(folder.Path()), IsEmpty());
    EXPECT_THAT(FilesThatAskForTheSystem(folder.Path()), IsEmpty());
}

TEST_F(PlantedTree, AFileThatAsksForTheSystemIsFound) {
    Plant("base/streams_posix.cpp", "#ifdef __linux__\n#endif\n");
    Plant("tests/base/streams_test.cpp", "#ifndef _WIN32\n#endif\n");
    Plant("base/text.cpp", "#ifdef EDQUOT\n#endif\n// not for _WIN32 alone\n");
    EXPECT_THAT(FilesThatAskForTheSystem(folder.Path()), IsEmpty());
    EXPECT_THAT(SourcesWithoutATest(folder.Path()), IsEmpty());
    Plant("base/text.cpp", "#ifdef _WIN32\n#elif defined(__APPLE__)\n#endif\n");
    Plant("qt/window.cpp", "  # if !defined(Q_OS_WIN) && 1\n#endif\n");
    EXPECT_THAT(FilesThatAskForTheSystem(folder.Path()),
                ElementsAre("base/text.cpp: #ifdef _WIN32",
                            "base/text.cpp: #elif defined(__APPLE__)",
                            "qt/window.cpp:   # if !defined(Q_OS_WIN) && 1"));
}

TEST_F(PlantedTree, AnIncludeOfAnotherRoomIsFound) {
    Plant("formats/csv/csv.cpp",
          "#include \"formats/csv/csv.h\"\n#include \"formats/ip286/ip286.h\"\n");
    Plant("formats/ip286/ip286.h", "#include \"formats/table.h\"\n");
    Plant("formats/common/bytes.cpp", "#include \"formats/csv/csv.h\"\n");
    EXPECT_THAT(IncludesOfOtherRooms(folder.Path()),
                ElementsAre("formats/common/bytes.cpp includes formats/csv/csv.h",
                            "formats/csv/csv.cpp includes formats/ip286/ip286.h",
                            "formats/ip286/ip286.h includes formats/table.h"));
    EXPECT_THAT(IncludesUpwards(folder.Path()), IsEmpty());
}

TEST_F(PlantedTree, AHeaderWithoutAnOpeningIsFound) {
    Plant("base/files.h", "#pragma once\n// Files.\n");
    Plant("base/empty.h", "");
    Plant("tests/support.h", "#pragma once\n");
    EXPECT_THAT(HeadersWithoutAnOpening(folder.Path()),
                ElementsAre("base/empty.h", "base/files.h"));
}

TEST_F(PlantedTree, ANameOfTwoHeadersIsFound) {
    Plant("base/a.h", "// A.\nnamespace norvik {\n"
                      "inline constexpr int Width = 21;\n"
                      "inline constexpr std::array<TextView, 2> Words = {\n    u\"a\"};\n"
                      "struct Box {\n    int Height = 1;\n};\n"
                      "enum Kind : int {\n    Round,\n    Square = 4,  ///< none\n};\n"
                      "using Bytes = int;\n"
                      "namespace inner {\ninline constexpr int Depth = 1;\n}  // namespace inner\n"
                      "enum class Shape {\n    Long,\n};\n"
                      "class Later;\nint Area(int);\n"
                      "}  // namespace norvik\n");
    Plant("qt/b.h", "// B.\nnamespace norvik {\n"
                    "constexpr bool Words = true;\n"
                    "inline constexpr FieldWords Width = {u\"x\"};\n"
                    "enum class Box { Open };\n"
                    "class Bytes final {\n    int Kind = 0;\n};\n"
                    "struct Square : Later {\n};\n"
                    "inline constexpr int Depth = 1;\n"
                    "inline constexpr int Long = 1;\ninline constexpr int Height = 1;\n"
                    "class Later;\nint Area(long);\n"
                    "}  // namespace norvik\n");
    EXPECT_THAT(NamesOfTwoHeaders(folder.Path()),
                ElementsAre("Box: base/a.h, qt/b.h", "Bytes: base/a.h, qt/b.h",
                            "Square: base/a.h, qt/b.h", "Width: base/a.h, qt/b.h",
                            "Words: base/a.h, qt/b.h"));
}

TEST_F(PlantedTree, AFolderWithoutAFloorIsFound) {
    Plant("helpers/misc.cpp", "");
    EXPECT_THAT(FoldersWithoutAFloor(folder.Path()), ElementsAre("helpers"));
}

TEST_F(PlantedTree, AnIncludeOfAFloorAboveIsFound) {
    Plant("base/files.h",
          "  #  include \"registertools/check.h\"  // upwards\n#include <qt/window.h>\n");
    EXPECT_THAT(IncludesUpwards(folder.Path()),
                ElementsAre("base/files.h includes registertools/check.h",
                            "base/files.h includes qt/window.h"));
}

TEST_F(PlantedTree, AnIncludeOfTheOtherFolderOfTheTopFloorIsFound) {
    Plant("console/view.h", "#include \"qt/window.h\"\n#include \"console/options.h\"\n");
    Plant("qt/window.cpp", "#include \"console/options.h\"\n");
    EXPECT_THAT(IncludesUpwards(folder.Path()),
                ElementsAre("console/view.h includes qt/window.h",
                            "qt/window.cpp includes console/options.h"));
    EXPECT_THAT(ToolkitOutsideItsFloor(folder.Path()),
                ElementsAre("console/view.h includes qt/window.h"));
}

TEST_F(PlantedTree, AnIncludeThatHidesItsFolderIsFound) {
    Plant("base/files.h",
          "#include \"../registertools/check.h\"\n#include \"base/../registertools/check.h\"\n"
          "#include \"text.h\"\n#include \"tests/support.h\"\n");
    EXPECT_THAT(IncludesUpwards(folder.Path()),
                ElementsAre("base/files.h includes ../registertools/check.h",
                            "base/files.h includes base/../registertools/check.h",
                            "base/files.h includes text.h",
                            "base/files.h includes tests/support.h"));
}

TEST_F(PlantedTree, TheToolkitOutsideItsFolderIsFound) {
    Plant("registertools/view.h", "#include <QString>\n");
    Plant("tests/registertools/view_test.cpp",
          "#include <QtWidgets/QWidget>\n#include \"qt/window.h\"\n");
    Plant("fuzzers/view.cpp", "#include \"QString\"\n");
    Plant("console/view.h", "#include <QCoreApplication>\n");
    EXPECT_THAT(ToolkitOutsideItsFloor(folder.Path()),
                ElementsAre("console/view.h includes QCoreApplication",
                            "fuzzers/view.cpp includes QString",
                            "registertools/view.h includes QString",
                            "tests/registertools/view_test.cpp includes QtWidgets/QWidget",
                            "tests/registertools/view_test.cpp includes qt/window.h"));
}

TEST_F(PlantedTree, ALibraryOutsideItsFolderIsFound) {
    Plant("registertools/print.cpp", "#include <hpdf.h>\n#include <vector>\n#include <cstdio>\n");
    Plant("console/print.cpp", "#include <hpdf_doc.h>\n#include <boost/any.hpp>\n");
    Plant("paper/page.h", "// Pages.\n#include <hpdf_doc.h>\n#include <zlib.h>\n");
    Plant("base/platform_posix.cpp", "#include <unistd.h>\n");
    Plant("tests/base/text_test.cpp", "#include <unistd.h>\n");
    EXPECT_THAT(OtherLibrariesOutsideTheirFolders(folder.Path()),
                ElementsAre("console/print.cpp includes hpdf_doc.h",
                            "console/print.cpp includes boost/any.hpp",
                            "paper/page.h includes zlib.h",
                            "registertools/print.cpp includes hpdf.h"));
}

TEST_F(PlantedTree, ACircleOfFoldersIsFound) {
    Plant("base/files.h", "#include \"sync/a.h\"\n");
    Plant("sync/a.h", "#include \"registertools/check.h\"\n");
    EXPECT_THAT(FoldersInACircle(folder.Path()), ElementsAre("base", "registertools", "sync"));
}

TEST_F(PlantedTree, ASourceWithoutATestIsFound) {
    Plant("registertools/check.cpp", "");
    Plant("tests/registertools/check_story_test.cpp", "");  // a further story is no substitute
    Plant("tests/check_test.cpp", "");
    EXPECT_THAT(SourcesWithoutATest(folder.Path()), ElementsAre("registertools/check.cpp"));
    Plant("tests/registertools/check_test.cpp", "");
    EXPECT_THAT(SourcesWithoutATest(folder.Path()), IsEmpty());
}

TEST_F(PlantedTree, AFileOfMoreThanFourHundredLinesIsFound) {
    std::string lines;
    for (int line = 0; line < 400; ++line) {
        lines += "//\n";
    }
    Plant("base/long.h", lines);
    Plant("tests/base/text_test.cpp", lines + lines);
    EXPECT_THAT(ProductFilesThatAreTooLong(folder.Path()), IsEmpty());
    Plant("base/long.h", lines + "//\n");
    Plant("qt/window.cpp", lines + "// no line end");
    EXPECT_THAT(ProductFilesThatAreTooLong(folder.Path()),
                ElementsAre("base/long.h: 401 lines", "qt/window.cpp: 401 lines"));
}

}  // namespace
}  // namespace norvik::test
