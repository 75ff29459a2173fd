#include "base/paths.h"

#include "base/platform.h"
#include "base/utf8.h"
#include "base/windows1252.h"

#include <algorithm>
#include <map>
#include <optional>
#include <system_error>
#include <vector>

namespace norvik {

namespace fs = std::filesystem;

namespace {

bool IsInRepertoire(char32_t point) {
    return point <= 0xFFFF && ByteOf(static_cast<char16_t>(point)).has_value();
}

std::u32string CodePointsOf(const FilePath& path) {
    const std::string utf8 = platform::Utf8Of(path);
    return CodePoints(std::u8string(utf8.begin(), utf8.end()));
}

std::u32string LoweredName(const FilePath& name) {
    std::u32string points = CodePointsOf(name);
    for (char32_t& point : points) {
        if (IsInRepertoire(point)) {
            point = LowerCase(static_cast<char16_t>(point));
        }
    }
    return points;
}

/// The components of a path without those that stay where they are.
std::vector<FilePath> StepsOf(const FilePath& path) {
    std::vector<FilePath> steps;
    for (const FilePath& step : path) {
        if (step != ".") {
            steps.push_back(step);
        }
    }
    return steps;
}

/// One look-up, with what it has cost.
class CaseSearch {
  public:
    explicit CaseSearch(std::vector<FilePath> steps) : steps_(std::move(steps)) {}

    /// The first existing path from `folder` on whose further components equal the steps from
    /// `step` on but for the case; at each step the exact name goes first.
    std::optional<FilePath> FindBelow(const FilePath& folder, std::size_t step) {
        if (step == steps_.size()) {
            return Exists(folder) ? std::optional(folder) : std::nullopt;
        }
        const FilePath& name = steps_[step];
        if (name == Up) {
            return FindBelow(Above(folder), step + 1);
        }
        if (Exists(folder / name)) {
            if (auto found = FindBelow(folder / name, step + 1)) {
                return found;
            }
        }
        for (const FilePath& entry : EntriesIgnoringCase(folder, name)) {
            if (auto found = FindBelow(folder / entry, step + 1)) {
                return found;
            }
        }
        return std::nullopt;
    }

  private:
    static constexpr const char* Up = "..";
    /// What a fraction of a second is enough for. A folder's entry costs 1, a question to the
    /// system more, and all the more the longer the path.
    static constexpr std::size_t MostCost = 100'000;
    static constexpr std::size_t QuestionCost = 4;
    static constexpr std::size_t CharactersPerCost = 16;

    static std::size_t CostOf(const FilePath& path) {
        return path.native().size() / CharactersPerCost;
    }

    bool Exists(const FilePath& path) {
        cost_ += QuestionCost + CostOf(path);
        std::error_code ignored;
        return cost_ < MostCost && fs::exists(path, ignored);
    }

    /// The folder above; by its own path, unless a link leads to `folder`.
    FilePath Above(const FilePath& folder) {
        cost_ += QuestionCost + CostOf(folder);
        std::error_code ignored;
        const bool plain = folder.has_filename() && folder.filename() != Up &&
                           fs::is_directory(fs::symlink_status(folder, ignored));
        return plain && folder.has_parent_path() ? folder.parent_path() : folder / Up;
    }

    /// The names in a folder, asked for once.
    const std::vector<FilePath>& NamesIn(const FilePath& folder) {
        const auto [listing, isNew] = listings_.try_emplace(folder.native());
        if (!isNew) {
            return listing->second;
        }
        cost_ += QuestionCost;
        std::error_code error;
        for (fs::directory_iterator entry(folder.empty() ? FilePath(".") : folder, error), end;
             !error && entry != end && cost_ < MostCost; entry.increment(error)) {
            cost_ += 1 + CostOf(folder);
            listing->second.push_back(entry->path().filename());
        }
        std::sort(listing->second.begin(), listing->second.end());
        return listing->second;
    }

    /// The names in `folder` that differ from `name` in nothing but the case, in the order of their
    /// codes.
    std::vector<FilePath> EntriesIgnoringCase(const FilePath& folder, const FilePath& name) {
        const std::u32string wanted = LoweredName(name);
        std::vector<FilePath> found;
        if (cost_ >= MostCost) {
            return found;
        }
        for (const FilePath& candidate : NamesIn(folder)) {
            // A letter takes as many bytes in upper as in lower case, so most names need no look.
            if (candidate.native().size() == name.native().size() && candidate != name &&
                LoweredName(candidate) == wanted) {
                found.push_back(candidate);
            }
        }
        cost_ += NamesIn(folder).size() / CharactersPerCost;
        return found;
    }

    std::vector<FilePath> steps_;
    std::map<FilePath::string_type, std::vector<FilePath>> listings_;
    std::size_t cost_ = 0;
};

}  // namespace

FilePath FindIgnoringCase(const FilePath& path) {
    return FindIgnoringCase({}, path);
}

FilePath FindIgnoringCase(const FilePath& folder, const FilePath& name) {
    if (name.empty()) {
        return {};
    }
    FilePath path = folder / name;
    std::error_code ignored;
    if (!platform::DistinguishesCase() || fs::exists(path, ignored)) {
        return path;
    }
    return CaseSearch(StepsOf(name)).FindBelow(folder, 0).value_or(path);
}

bool IsSamePath(const FilePath& a, const FilePath& b) {
    return a == b || (!platform::DistinguishesCase() && LoweredName(a) == LoweredName(b));
}

FilePath WithEnding(const FilePath& path, std::string_view ending) {
    FilePath result = path;
    if (path.filename().native().find('.') == FilePath::string_type::npos) {
        result += platform::PathOfUtf8(ending);
    }
    return result;
}

FilePath FullPath(const FilePath& path) {
    std::error_code error;
    const FilePath full = std::filesystem::absolute(path, error);
    return (error ? path : full).lexically_normal();
}

Text TextFromPath(const FilePath& path) {
    Text text;
    for (const char32_t point : CodePointsOf(path)) {
        text.push_back(IsInRepertoire(point) ? static_cast<char16_t>(point) : u'?');
    }
    return text;
}

FilePath PathFromText(TextView text) {
    return {Text(text)};
}

FilePath ProgramFolder(const FilePath& executableFolder, const FilePath& userDataFolder) {
    return IsWritableFolder(executableFolder) ? executableFolder : userDataFolder;
}

bool IsWritableFolder(const FilePath& folder) {
    return platform::MayCreateIn(folder);
}

}  // namespace norvik
