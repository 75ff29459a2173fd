#include "ringtones/listfolderfiles.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace norvik {

namespace {

/// Fewer than the control characters: a name with one of the others stays on its line.
bool MayBreakTheLine(char16_t c) {
    return c < u' ';
}

/// The name as a text, or nothing where a text cannot hold it. A line break in a name would break
/// the lines of the tone-names file.
std::optional<Text> ExactText(const FilePath& name) {
    Text text = TextFromPath(name);
    if (PathFromText(text) != name || std::any_of(text.begin(), text.end(), MayBreakTheLine)) {
        return std::nullopt;
    }
    return text;
}

bool IsListed(const std::filesystem::directory_entry& entry, TextView ending, TextView name) {
    std::error_code failure;
    return !name.starts_with(u'.') && LowerCase(name).ends_with(ending) &&
           entry.is_regular_file(failure);
}

}  // namespace

std::vector<Text> ListFolderFiles(const FilePath& folder, TextView extension) {
    const Text ending = u"." + LowerCase(extension);
    std::vector<std::pair<Text, Text>> names;  // lowered and as it is
    std::error_code failure;
    using Entries = std::filesystem::directory_iterator;
    for (Entries entry(folder, failure); !failure && entry != Entries(); entry.increment(failure)) {
        const std::optional<Text> name = ExactText(entry->path().filename());
        if (name && IsListed(*entry, ending, *name)) {
            names.emplace_back(LowerCase(*name), *name);
        }
    }
    std::sort(names.begin(), names.end());
    std::vector<Text> files;
    files.reserve(names.size());
    for (const auto& [lowered, name] : names) {
        files.push_back(name);
    }
    return files;
}

}  // namespace norvik
