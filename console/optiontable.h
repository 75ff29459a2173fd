// The options of the command line, a row for each.
#pragma once

#include "console/options.h"

namespace norvik {

/// What has been read of the command line so far.
struct Reading {
    ConverterOptions Options = {};
    std::optional<FileFormat> From = {};
    std::optional<FileFormat> To = {};
    bool ToPaper = false;
    std::vector<FilePath> Files = {};
    std::vector<std::string_view> Used = {};  ///< the names of the options that occurred
};

struct OptionRow {
    std::string_view Name;
    bool TakesValue;
    void (*Take)(Reading& reading, std::string_view value);
    bool (*Applies)(const ConverterOptions& options);
    TextView Where;  ///< completes "--name gilt nur "
    /// Of several sources that become one register it is enough that it applies to one.
    bool IsForSomeSources = false;
};

/// The row of an option, which may have another name; null for an unknown one.
const OptionRow* FindRow(std::string_view name);

/// An argument as a message shows it.
Text ShownArgument(std::string_view argument);
[[noreturn]] void Fail(Text message);

}  // namespace norvik
