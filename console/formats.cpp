#include "console/formats.h"

#include "formats/calllist/calllist.h"
#include "formats/csv/csvformat.h"
#include "formats/phonebook175/phonebookfile.h"
#include "formats/registerfile/registerfile.h"

#include <algorithm>
#include <array>

namespace norvik {

namespace {

constexpr std::array<std::string_view, 4> SourceWords = {"195", "193", "175", "csv"};
constexpr std::array<SourceFormat, SourceWords.size()> SourcesOfWords = {
    SourceFormat::RegisterFile, SourceFormat::RegisterFile, SourceFormat::Phonebook175,
    SourceFormat::Csv};

constexpr std::array<std::string_view, 7> TargetWords = {"195",   "193",     "175",      "csv",
                                                         "ip286", "simsurf", "gebuehren"};
constexpr std::array<TargetFormat, TargetWords.size()> TargetsOfWords = {
    TargetFormat::Register195,    TargetFormat::Register193,
    TargetFormat::Phonebook175,   TargetFormat::Csv,
    TargetFormat::Ip286,          TargetFormat::MobileExport,
    TargetFormat::ChargeStatement};

/// The endings that the dialogs of the two exports append.
constexpr std::string_view MobileExportEnding = ".pbb";
constexpr std::string_view ChargeStatementEnding = ".geb";

template <typename Format>
struct EndingRow {
    std::string_view Ending;
    Format Means;
};
constexpr std::array<EndingRow<SourceFormat>, 4> SourceEndings = {
    {{RegisterFileEnding, SourceFormat::RegisterFile},
     {phonebookfile::Ending, SourceFormat::Phonebook175},
     {csvformat::Ending, SourceFormat::Csv},
     {calllist::Ending, SourceFormat::CallList}}};
constexpr std::array<EndingRow<TargetFormat>, 5> TargetEndings = {
    {{RegisterFileEnding, TargetFormat::Register195},
     {phonebookfile::Ending, TargetFormat::Phonebook175},
     {csvformat::Ending, TargetFormat::Csv},
     {MobileExportEnding, TargetFormat::MobileExport},
     {ChargeStatementEnding, TargetFormat::ChargeStatement}}};

template <std::size_t Size, typename Format>
std::optional<Format> OfName(const std::array<std::string_view, Size>& names,
                             const std::array<Format, Size>& formats, std::string_view name) {
    const auto* found = std::find(names.begin(), names.end(), name);
    return found == names.end()
               ? std::nullopt
               : std::optional(formats.at(static_cast<std::size_t>(found - names.begin())));
}

template <typename Format, std::size_t Size>
std::optional<Format> OfEnding(const std::array<EndingRow<Format>, Size>& rows,
                               const FilePath& path) {
    const Text name = LowerCase(TextFromPath(path.filename()));
    for (const EndingRow<Format>& row : rows) {
        if (name.ends_with(FromAscii(row.Ending))) {
            return row.Means;
        }
    }
    return std::nullopt;
}

}  // namespace

std::span<const std::string_view> SourceNames() {
    return SourceWords;
}

std::span<const std::string_view> TargetNames() {
    return TargetWords;
}

std::optional<SourceFormat> SourceOfName(std::string_view name) {
    return OfName(SourceWords, SourcesOfWords, name);
}

std::optional<TargetFormat> TargetOfName(std::string_view name) {
    return OfName(TargetWords, TargetsOfWords, name);
}

std::optional<SourceFormat> SourceOfEnding(const FilePath& path) {
    return OfEnding(SourceEndings, path);
}

std::optional<TargetFormat> TargetOfEnding(const FilePath& path) {
    return OfEnding(TargetEndings, path);
}

std::string_view NameOf(TargetFormat format) {
    const auto* found = std::find(TargetsOfWords.begin(), TargetsOfWords.end(), format);
    return TargetWords.at(static_cast<std::size_t>(found - TargetsOfWords.begin()));
}

std::span<const TargetFormat> TargetFormats() {
    return TargetsOfWords;
}

}  // namespace norvik
