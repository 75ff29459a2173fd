// Which entries stand where: in a register, in what can be undone, in the files of a folder. An
// entry is all of its fields but the running numbers, which each load sets anew.
#pragma once

#include "base/paths.h"
#include "mainwindow/history.h"

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace norvik::test {

/// Entries, each written as one line. One without any text is none.
using EntrySet = std::set<std::string>;

std::string LineOf(const RegisterEntry& entry);

EntrySet EntriesOf(const RegisterState& state);
/// All that undoing and redoing would show.
EntrySet UndoableEntries(const RegisterState& state, const History& history);

/// Reads files as their kind is read, kept versions too, each content once.
class FileReader {
  public:
    /// The entries that a load of the file can show, also of a damaged one that it reports.
    const EntrySet& EntriesIn(const FilePath& file);
    /// Those of all files in a folder and in its folders, but for locks and names that begin with
    /// `but`.
    EntrySet EntriesBelow(const FilePath& folder, std::string_view but = {});

  private:
    std::map<std::uint64_t, EntrySet> read_;
};

/// Those of `entries` that are not in `others`.
EntrySet Without(const EntrySet& entries, const EntrySet& others);

}  // namespace norvik::test
