// A command line that comes as one text, taken apart into its arguments.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace norvik {

struct CommandWord {
    std::u16string Text;
    bool IsPattern = false;  ///< holds a "*" or "?" that stands outside of quotes
};

/// The words behind the program's name, by the rules that programs on Windows share: blanks and
/// tabs part words, quotes keep them together, two quotes within quotes are one, and backslashes
/// mean something only in front of a quote, where two stand for one and an odd one takes the
/// quote's meaning away.
std::vector<CommandWord> CommandWords(std::u16string_view line);

}  // namespace norvik
