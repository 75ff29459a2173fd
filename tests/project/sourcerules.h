// What must hold for the source tree: what may include what, what has a test, how long a file may
// be, what a header says of itself. Each rule gives its findings below a root.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace norvik::test {

using Findings = std::vector<std::string>;

/// The folders below `root` that hold sources.
std::set<std::string> FoldersOfSources(const std::filesystem::path& root);

/// Folders with sources that have no floor and are none of the known others.
Findings FoldersWithoutAFloor(const std::filesystem::path& root);

/// Product files that include something above or beside them, or by a path that does not begin with
/// a floor.
Findings IncludesUpwards(const std::filesystem::path& root);

/// Files of a room that include another one than the common room.
Findings IncludesOfOtherRooms(const std::filesystem::path& root);

/// Files of any folder but the toolkit's that include the toolkit or what is built on it.
Findings ToolkitOutsideItsFloor(const std::filesystem::path& root);

/// Product files outside the toolkit's floor that include neither ours nor the standard library,
/// whose headers have no ending and no folder, or a library that is another folder's.
Findings OtherLibrariesOutsideTheirFolders(const std::filesystem::path& root);

/// The folders that include themselves by way of others.
Findings FoldersInACircle(const std::filesystem::path& root);

/// Product files that ask which system they are compiled for, in place of one that stands for it.
Findings FilesThatAskForTheSystem(const std::filesystem::path& root);

/// Core sources without a test file of their name.
Findings SourcesWithoutATest(const std::filesystem::path& root);

Findings ProductFilesThatAreTooLong(const std::filesystem::path& root);

/// Headers whose first line does not say what they are for.
Findings HeadersWithoutAnOpening(const std::filesystem::path& root);

/// Names that two headers of the product define: the linker sees one symbol and says nothing.
Findings NamesOfTwoHeaders(const std::filesystem::path& root);

}  // namespace norvik::test
