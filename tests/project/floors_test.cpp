// The source tree keeps its floors: what may include what, what has a test, how long a file may be.
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

using Findings = std::vector<std::string>;

/// From the bottom up: a folder includes itself and the floors below, not its neighbour.
const std::vector<std::set<std::string>> Floors = {
    {"base"}, {"register"}, {"tools"},      {"devicefiles"},  {"textformats"},
    {"sync"}, {"dialogs"},  {"mainwindow"}, {"qt", "console"}};
const std::string ToolkitFloor = "qt";

/// Folders beside the floors, which are no part of the product.
const std::set<std::string> OtherFolders = {"tests", "fuzzers", "benchmarks"};

/// The folder of the tests of the window may include the toolkit, too.
const std::string ToolkitTests = "tests/qt";

constexpr int LongestFile = 500;

struct SourceFile {
    std::string Path;    ///< from the root, with "/"
    std::string Folder;  ///< its first part
    std::vector<std::string> Lines;
};

struct Include {
    bool Quoted = false;
    std::string Header;
};

std::vector<std::string> LinesOf(const fs::path& path) {
    std::vector<std::string> lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// Build folders and hidden ones hold no sources of ours.
bool IsSkipped(const std::string& folder) {
    return folder.starts_with("build") || folder.starts_with(".");
}

/// Every C++ file below `root` that stands in a folder, by path.
std::vector<SourceFile> SourceFiles(const fs::path& root) {
    std::vector<SourceFile> files;
    for (const fs::directory_entry& top : fs::directory_iterator(root)) {
        const std::string folder = top.path().filename().string();
        if (!top.is_directory() || IsSkipped(folder)) {
            continue;
        }
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(top.path())) {
            const std::string ending = entry.path().extension().string();
            if (entry.is_regular_file() && (ending == ".cpp" || ending == ".h")) {
                files.push_back({entry.path().lexically_relative(root).generic_string(), folder,
                                 LinesOf(entry.path())});
            }
        }
    }
    std::sort(files.begin(), files.end(),
              [](const SourceFile& a, const SourceFile& b) { return a.Path < b.Path; });
    return files;
}

std::vector<Include> IncludesOf(const SourceFile& file) {
    static const std::regex pattern(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"].*)");
    std::vector<Include> includes;
    for (const std::string& line : file.Lines) {
        std::smatch match;
        if (std::regex_match(line, match, pattern)) {
            includes.push_back({match[1] == "\"", match[2]});
        }
    }
    return includes;
}

/// 1 for the bottom; 0 for a folder that is no floor.
int FloorOf(const std::string& folder) {
    const auto found =
        std::find_if(Floors.begin(), Floors.end(), [&folder](const std::set<std::string>& floor) {
            return floor.count(folder) == 1;
        });
    return found == Floors.end() ? 0 : static_cast<int>(found - Floors.begin()) + 1;
}

std::string FolderOf(const std::string& header) {
    return header.substr(0, header.find('/'));
}

bool IsProduct(const SourceFile& file) {
    return FloorOf(file.Folder) > 0;
}

/// Folders with sources that have no floor and are none of the known others.
Findings FoldersWithoutAFloor(const fs::path& root) {
    std::set<std::string> folders;
    for (const SourceFile& file : SourceFiles(root)) {
        if (!IsProduct(file) && OtherFolders.count(file.Folder) == 0) {
            folders.insert(file.Folder);
        }
    }
    return {folders.begin(), folders.end()};
}

/// Product files that include something above or beside them, or by a path that does not begin with
/// a floor.
Findings IncludesUpwards(const fs::path& root) {
    Findings findings;
    for (const SourceFile& file : SourceFiles(root)) {
        if (!IsProduct(file)) {
            continue;
        }
        for (const Include& include : IncludesOf(file)) {
            const std::string folder = FolderOf(include.Header);
            const int floor = FloorOf(folder);
            const bool known = floor > 0 && fs::exists(root / include.Header) &&
                               include.Header.find("..") == std::string::npos;
            const bool beside = floor == FloorOf(file.Folder) && folder != file.Folder;
            if (floor > FloorOf(file.Folder) || beside || (include.Quoted && !known)) {
                findings.push_back(file.Path + " includes " + include.Header);
            }
        }
    }
    return findings;
}

/// Beside the window's own folder and tests, the benchmarks that measure the window.
bool MayUseToolkit(const SourceFile& file) {
    return file.Folder == ToolkitFloor || file.Path.starts_with(ToolkitTests + "/") ||
           file.Path.starts_with("benchmarks/window_");
}

/// Files of any folder but the toolkit's that include the toolkit or what is built on it.
Findings ToolkitOutsideItsFloor(const fs::path& root) {
    Findings findings;
    for (const SourceFile& file : SourceFiles(root)) {
        if (MayUseToolkit(file)) {
            continue;
        }
        for (const Include& include : IncludesOf(file)) {
            const std::string& header = include.Header;
            if (header.starts_with("Q") || header.starts_with(ToolkitFloor + "/") ||
                header.starts_with(ToolkitTests + "/")) {
                findings.push_back(file.Path + " includes " + header);
            }
        }
    }
    return findings;
}

using Graph = std::map<std::string, std::set<std::string>>;

/// Which folders each folder includes, itself left out.
Graph FolderGraph(const fs::path& root) {
    Graph graph;
    for (const SourceFile& file : SourceFiles(root)) {
        for (const Include& include : IncludesOf(file)) {
            const std::string folder = FolderOf(include.Header);
            if (folder != file.Folder && fs::is_directory(root / folder)) {
                graph[file.Folder].insert(folder);
            }
        }
    }
    return graph;
}

std::set<std::string> ReachableFrom(const std::string& start, const Graph& graph) {
    std::set<std::string> reached;
    std::vector<std::string> waiting = {start};
    while (!waiting.empty()) {
        const auto edges = graph.find(waiting.back());
        waiting.pop_back();
        if (edges == graph.end()) {
            continue;
        }
        for (const std::string& next : edges->second) {
            if (reached.insert(next).second) {
                waiting.push_back(next);
            }
        }
    }
    return reached;
}

/// The folders that include themselves by way of others.
Findings FoldersInACircle(const fs::path& root) {
    const Graph graph = FolderGraph(root);
    Findings findings;
    for (const auto& node : graph) {
        if (ReachableFrom(node.first, graph).count(node.first) == 1) {
            findings.push_back(node.first);
        }
    }
    return findings;
}

/// Core sources without a test file of their name.
Findings SourcesWithoutATest(const fs::path& root) {
    Findings findings;
    for (const SourceFile& file : SourceFiles(root)) {
        const fs::path path(file.Path);
        const fs::path test =
            root / "tests" / path.parent_path() / (path.stem().string() + "_test.cpp");
        if (IsProduct(file) && file.Folder != ToolkitFloor && path.extension() == ".cpp" &&
            !fs::exists(test)) {
            findings.push_back(file.Path);
        }
    }
    return findings;
}

Findings ProductFilesThatAreTooLong(const fs::path& root) {
    Findings findings;
    for (const SourceFile& file : SourceFiles(root)) {
        if (IsProduct(file) && file.Lines.size() > static_cast<std::size_t>(LongestFile)) {
            findings.push_back(file.Path + ": " + std::to_string(file.Lines.size()) + " lines");
        }
    }
    return findings;
}

const fs::path Root = NORVIK_SOURCE_FOLDER;

TEST(SourceTree, IsFoundWithAllItsFloors) {
    std::set<std::string> folders;
    for (const SourceFile& file : SourceFiles(Root)) {
        folders.insert(file.Folder);
    }
    for (const char* const folder :
         {"base", "register", "devicefiles", "mainwindow", "console", "tests"}) {
        EXPECT_EQ(folders.count(folder), 1U) << folder;
    }
}

TEST(SourceTree, EveryFolderHasAFloor) {
    EXPECT_THAT(FoldersWithoutAFloor(Root), IsEmpty());
}

TEST(SourceTree, NoFileIncludesAFloorAboveIt) {
    EXPECT_THAT(IncludesUpwards(Root), IsEmpty());
}

TEST(SourceTree, OnlyTheTopFloorIncludesTheToolkit) {
    EXPECT_THAT(ToolkitOutsideItsFloor(Root), IsEmpty());
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

/// A small tree in which everything is as it should be.
class PlantedTree : public testing::Test {
  protected:
    PlantedTree() {
        Plant("base/text.h", "#pragma once\n#include <string>\n");
        Plant("base/text.cpp", "#include \"base/text.h\"\n");
        Plant("tools/check.h", "#include \"base/text.h\"\n");
        Plant("qt/window.h", "#include <QWidget>\n#include \"tools/check.h\"\n");
        Plant("qt/window.cpp", "#include \"qt/window.h\"\n");
        Plant("console/options.h", "#include \"tools/check.h\"\n");
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
    EXPECT_THAT(FoldersInACircle(folder.Path()), IsEmpty());
    EXPECT_THAT(SourcesWithoutATest(folder.Path()), IsEmpty());
    EXPECT_THAT(ProductFilesThatAreTooLong(folder.Path()), IsEmpty());
}

TEST_F(PlantedTree, AFolderWithoutAFloorIsFound) {
    Plant("helpers/misc.cpp", "");
    EXPECT_THAT(FoldersWithoutAFloor(folder.Path()), ElementsAre("helpers"));
}

TEST_F(PlantedTree, AnIncludeOfAFloorAboveIsFound) {
    Plant("base/files.h", "  #  include \"tools/check.h\"  // upwards\n#include <qt/window.h>\n");
    EXPECT_THAT(IncludesUpwards(folder.Path()), ElementsAre("base/files.h includes tools/check.h",
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
    Plant("base/files.h", "#include \"../tools/check.h\"\n#include \"base/../tools/check.h\"\n"
                          "#include \"text.h\"\n#include \"tests/support.h\"\n");
    EXPECT_THAT(IncludesUpwards(folder.Path()),
                ElementsAre("base/files.h includes ../tools/check.h",
                            "base/files.h includes base/../tools/check.h",
                            "base/files.h includes text.h",
                            "base/files.h includes tests/support.h"));
}

TEST_F(PlantedTree, TheToolkitOutsideItsFolderIsFound) {
    Plant("tools/view.h", "#include <QString>\n");
    Plant("tests/tools/view_test.cpp", "#include <QtWidgets/QWidget>\n#include \"qt/window.h\"\n");
    Plant("fuzzers/view.cpp", "#include \"QString\"\n");
    Plant("console/view.h", "#include <QCoreApplication>\n");
    EXPECT_THAT(ToolkitOutsideItsFloor(folder.Path()),
                ElementsAre("console/view.h includes QCoreApplication",
                            "fuzzers/view.cpp includes QString",
                            "tests/tools/view_test.cpp includes QtWidgets/QWidget",
                            "tests/tools/view_test.cpp includes qt/window.h",
                            "tools/view.h includes QString"));
}

TEST_F(PlantedTree, ACircleOfFoldersIsFound) {
    Plant("base/files.h", "#include \"sync/a.h\"\n");
    Plant("sync/a.h", "#include \"tools/check.h\"\n");
    EXPECT_THAT(FoldersInACircle(folder.Path()), ElementsAre("base", "sync", "tools"));
}

TEST_F(PlantedTree, ASourceWithoutATestIsFound) {
    Plant("tools/check.cpp", "");
    Plant("tests/tools/check_story_test.cpp", "");  // a further story is no substitute
    Plant("tests/check_test.cpp", "");
    EXPECT_THAT(SourcesWithoutATest(folder.Path()), ElementsAre("tools/check.cpp"));
    Plant("tests/tools/check_test.cpp", "");
    EXPECT_THAT(SourcesWithoutATest(folder.Path()), IsEmpty());
}

TEST_F(PlantedTree, AFileOfMoreThanFiveHundredLinesIsFound) {
    std::string lines;
    for (int line = 0; line < 500; ++line) {
        lines += "//\n";
    }
    Plant("base/long.h", lines);
    Plant("tests/base/text_test.cpp", lines + lines);
    EXPECT_THAT(ProductFilesThatAreTooLong(folder.Path()), IsEmpty());
    Plant("base/long.h", lines + "//\n");
    Plant("qt/window.cpp", lines + "// no line end");
    EXPECT_THAT(ProductFilesThatAreTooLong(folder.Path()),
                ElementsAre("base/long.h: 501 lines", "qt/window.cpp: 501 lines"));
}

}  // namespace
}  // namespace norvik::test
