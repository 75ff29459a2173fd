// The source tree keeps its floors: what may include what, what has a test, how long a file may be,
// what a header says of itself.
#include "tests/support/places.h"
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
const std::vector<std::set<std::string>> Floors = {{"base"},
                                                   {"register", "ringtones"},
                                                   {"registertools"},
                                                   {"formats"},
                                                   {"sync", "losses", "versions", "paper"},
                                                   {"dialogs"},
                                                   {"mainwindow"},
                                                   {"qt", "console"}};
const std::string ToolkitFloor = "qt";

/// The floor that is divided into rooms. A room includes itself and the common one; only what
/// stands beside the rooms, the table of all of them, includes them all.
const std::string RoomsFloor = "formats";
const std::string CommonRoom = "common";

/// Folders beside the floors, which are no part of the product.
const std::set<std::string> OtherFolders = {"tests", "fuzzers", "benchmarks"};

/// The folder of the tests of the window may include the toolkit, too.
const std::string ToolkitTests = "tests/qt";

constexpr int LongestFile = 400;

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

/// The room of a path of the floor with rooms; empty for what stands beside them.
std::string RoomOf(const std::string& path) {
    const std::string below = path.substr(RoomsFloor.size() + 1);
    const std::size_t end = below.find('/');
    return end == std::string::npos ? std::string() : below.substr(0, end);
}

/// Files of a room that include another one than the common room.
Findings IncludesOfOtherRooms(const fs::path& root) {
    Findings findings;
    for (const SourceFile& file : SourceFiles(root)) {
        const std::string room = file.Folder == RoomsFloor ? RoomOf(file.Path) : std::string();
        if (room.empty()) {
            continue;
        }
        for (const Include& include : IncludesOf(file)) {
            const std::string other =
                FolderOf(include.Header) == RoomsFloor ? RoomOf(include.Header) : CommonRoom;
            if (other != room && other != CommonRoom) {
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

/// The libraries beside the standard's: what their headers' names begin with, and the folder that
/// may include them.
const std::map<std::string, std::string> OtherLibraries = {{"hpdf", "paper"}};

/// Product files outside the toolkit's floor that include neither ours nor the standard library,
/// whose headers have no ending and no folder, or a library that is another folder's.
Findings OtherLibrariesOutsideTheirFolders(const fs::path& root) {
    static const std::regex standard("[a-z_]+");
    Findings findings;
    for (const SourceFile& file : SourceFiles(root)) {
        if (!IsProduct(file) || file.Folder == ToolkitFloor ||
            file.Path.starts_with("base/platform_")) {
            continue;
        }
        for (const Include& include : IncludesOf(file)) {
            const auto library =
                std::find_if(OtherLibraries.begin(), OtherLibraries.end(), [&](const auto& row) {
                    return include.Header.starts_with(row.first) && row.second == file.Folder;
                });
            if (!include.Quoted && !std::regex_match(include.Header, standard) &&
                library == OtherLibraries.end()) {
                findings.push_back(file.Path + " includes " + include.Header);
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

/// A file that holds the calls of one system; its test bears the name without the system's.
std::string WithoutSystem(const std::string& stem) {
    static const std::regex system("(.*)_(?:posix|windows)");
    return std::regex_replace(stem, system, "$1");
}

/// Product files that ask which system they are compiled for, in place of one that stands for it.
Findings FilesThatAskForTheSystem(const fs::path& root) {
    static const std::regex question(
        R"(^\s*#\s*(?:if|ifdef|ifndef|elif)\b.*\b_*(?:WIN32|WIN64|MSC_VER|MINGW\w*|CYGWIN|)"
        R"(linux|LINUX|APPLE|unix|UNIX|Q_OS_\w+)_*\b.*)");
    Findings findings;
    for (const SourceFile& file : SourceFiles(root)) {
        const std::string stem = fs::path(file.Path).stem().string();
        if (!IsProduct(file) || WithoutSystem(stem) != stem) {
            continue;
        }
        for (const std::string& line : file.Lines) {
            if (std::regex_match(line, question)) {
                findings.push_back(file.Path + ": " + line);
            }
        }
    }
    return findings;
}

/// Core sources without a test file of their name.
Findings SourcesWithoutATest(const fs::path& root) {
    Findings findings;
    for (const SourceFile& file : SourceFiles(root)) {
        const fs::path path(file.Path);
        const fs::path test = root / "tests" / path.parent_path() /
                              (WithoutSystem(path.stem().string()) + "_test.cpp");
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

/// Headers whose first line does not say what they are for.
Findings HeadersWithoutAnOpening(const fs::path& root) {
    Findings findings;
    for (const SourceFile& file : SourceFiles(root)) {
        if (IsProduct(file) && file.Path.ends_with(".h") &&
            (file.Lines.empty() || !file.Lines.front().starts_with("// "))) {
            findings.push_back(file.Path);
        }
    }
    return findings;
}

/// The names that a header defines in the program's namespace itself: types, aliases, constants and
/// the enumerators of enumerations without a scope. Overloaded functions may share a name.
std::set<std::string> NamesDefinedBy(const SourceFile& header) {
    static const std::regex type(
        R"(^(?:class|struct|enum(?:\s+class)?)\s+(?!class\b)(\w+)[^;]*\{.*)");
    static const std::regex alias(R"(^using\s+(\w+)\s*=.*)");
    static const std::regex constant(R"(^(?:inline\s+)?constexpr\s+[^=({]*?(\w+)\s*(?:=|\{).*)");
    static const std::regex openEnumeration(R"(^enum\s+(?!class\b)\w[^;]*\{(.*))");
    static const std::regex enumerator(R"(^\s+(\w+)\s*(?:=[^,]*)?(?:,.*|//.*)?$)");
    static const std::regex nested(R"(^namespace\s+(?!norvik\b)\w+\s*\{.*)");
    std::set<std::string> names;
    bool inNested = false;
    bool inEnumeration = false;
    for (const std::string& line : header.Lines) {
        std::smatch match;
        if (std::regex_match(line, match, nested)) {
            inNested = true;
        } else if (inNested) {
            inNested = !line.starts_with("}  // namespace");
        } else if (inEnumeration) {
            inEnumeration = !line.starts_with("};");
            if (std::regex_match(line, match, enumerator)) {
                names.insert(match[1]);
            }
        } else if (std::regex_match(line, match, type) || std::regex_match(line, match, alias) ||
                   std::regex_match(line, match, constant)) {
            names.insert(match[1]);
            inEnumeration =
                std::regex_match(line, openEnumeration) && line.find('}') == std::string::npos;
        }
    }
    return names;
}

/// Names that two headers of the product define: the linker sees one symbol and says nothing.
Findings NamesOfTwoHeaders(const fs::path& root) {
    std::map<std::string, std::string> headerOf;
    Findings findings;
    for (const SourceFile& file : SourceFiles(root)) {
        if (!IsProduct(file) || !file.Path.ends_with(".h")) {
            continue;
        }
        for (const std::string& name : NamesDefinedBy(file)) {
            const auto [other, isNew] = headerOf.emplace(name, file.Path);
            if (!isNew) {
                findings.push_back(name + ": " + other->second + ", " + file.Path);
            }
        }
    }
    return findings;
}

const fs::path Root = SourceFolder();

TEST(SourceTree, IsFoundWithAllItsFloors) {
    std::set<std::string> folders;
    for (const SourceFile& file : SourceFiles(Root)) {
        folders.insert(file.Folder);
    }
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
