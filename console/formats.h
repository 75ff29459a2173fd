// The formats that the converter reads and writes, with their names on the command line and their
// endings.
#pragma once

#include "base/files.h"
#include "losses/lossreport.h"

#include <optional>
#include <span>
#include <string_view>

namespace norvik {

enum class SourceFormat {
    RegisterFile,  ///< of the 195 or the 193: the reader tells them apart
    Phonebook175,
    Csv,
    CallList,
};

/// The words that "--von" and "--nach" take.
std::span<const std::string_view> SourceNames();
std::span<const std::string_view> TargetNames();

/// The format of such a word, or of a file's ending (in any case); nothing for an unknown one.
std::optional<SourceFormat> SourceOfName(std::string_view name);
std::optional<TargetFormat> TargetOfName(std::string_view name);
std::optional<SourceFormat> SourceOfEnding(const FilePath& path);
std::optional<TargetFormat> TargetOfEnding(const FilePath& path);

/// The word of a target format.
std::string_view NameOf(TargetFormat format);

/// All target formats in the order of their words.
std::span<const TargetFormat> TargetFormats();

}  // namespace norvik
