// The records of an address file as samples for the settings dialog.
#pragma once

#include "base/files.h"

#include <optional>
#include <vector>

namespace norvik {

/// Keeps the beginning of a file so that going through its records does not read it each time.
class SyncSample {
  public:
    SyncSample() = default;
    /// Relative paths count from `folder`.
    explicit SyncSample(FilePath folder) : folder_(std::move(folder)) {}

    /// Line `record`, counted from 1, of the file, or its last line when it has fewer; an empty
    /// line for an empty file. Nothing when the file cannot be read.
    std::optional<Text> Line(TextView file, int record);

    /// Whether the file is there and may be read; nothing is read of it.
    [[nodiscard]] bool CanBeOpened(TextView file) const;

  private:
    void Read(const FilePath& path);

    FilePath folder_;
    FilePath path_;
    std::optional<FileTime> modified_;
    std::uintmax_t size_ = 0;
    std::vector<Text> lines_;
};

}  // namespace norvik
