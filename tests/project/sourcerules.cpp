#include "tests/project/sourcerules.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>

namespace norvik::test {

namespace fs = std::filesystem;

namespace {

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

/// The room of a path of the floor with rooms; empty for what stands beside them.
std::string RoomOf(const std::string& path) {
    const std::string below = path.substr(RoomsFloor.size() + 1);
    const std::size_t end = below.find('/');
    return end == std::string::npos ? std::string() : below.substr(0, end);
}

/// Beside the window's own folder and tests, the benchmarks that measure the window.
bool MayUseToolkit(const SourceFile& file) {
    return file.Folder == ToolkitFloor || file.Path.starts_with(ToolkitTests + "/") ||
           file.Path.starts_with("benchmarks/window_");
}

/// The libraries beside the standard's: what their headers' names begin with, and the folder that
/// may include them.
const std::map<std::string, std::string> OtherLibraries = {{"hpdf", "paper"}};

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

/// A file that holds the calls of one system; its test bears the name without the system's.
std::string WithoutSystem(const std::string& stem) {
    static const std::regex system("(.*)_(?:posix|windows)");
    return std::regex_replace(stem, system, "$1");
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

}  // namespace

std::set<std::string> FoldersOfSources(const fs::path& root) {
    std::set<std::string> folders;
    for (const SourceFile& file : SourceFiles(root)) {
        folders.insert(file.Folder);
    }
    return folders;
}

Findings FoldersWithoutAFloor(const fs::path& root) {
    std::set<std::string> folders;
    for (const SourceFile& file : SourceFiles(root)) {
        if (!IsProduct(file) && OtherFolders.count(file.Folder) == 0) {
            folders.insert(file.Folder);
        }
    }
    return {folders.begin(), folders.end()};
}

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

}  // namespace norvik::test
