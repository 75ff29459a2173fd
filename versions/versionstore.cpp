#include "versions/versionstore.h"

#include "base/files.h"
#include "base/outputfile.h"
#include "base/platform.h"
#include "base/runtimeerror.h"
#include "versions/bytes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <system_error>
#include <utility>

namespace norvik {

namespace {

namespace fs = std::filesystem;

/// "NORVIK" and what it is, then the number of the form. The forms differ in their hash.
constexpr std::array<Byte, 8> Magic = {'N', 'O', 'R', 'V', 'I', 'K', 'S', 'T'};
constexpr Byte FirstForm = 1;
constexpr Byte Form = 2;
/// Behind the name of a file that is being written.
constexpr std::string_view UnfinishedEnding = ".neu";
constexpr int FlagSize = 1;
constexpr int TimeSize = 8;
constexpr int HashSize = 8;
constexpr int LengthSize = 4;  // that of a block

/// Of the content alone: two versions of equal content are one.
std::uint64_t ContentHash(const Version& version) {
    return HashOf(version.Content) ^ (version.IsRegister ? 1U : 0U);
}

std::string Padded(std::string digits, std::size_t width) {
    digits.insert(0, digits.size() < width ? width - digits.size() : 0, '0');
    return digits;
}

std::string Hexadecimal(std::uint64_t value) {
    constexpr std::size_t Digits = 16;
    std::array<char, Digits> digits{};
    auto* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, Digits).ptr;
    return Padded({digits.data(), end}, Digits);
}

/// Names sort by time: so many digits of it come first.
constexpr std::size_t TimeDigits = 12;

FilePath NameOf(const Version& version) {
    return Padded(std::to_string(std::max<std::int64_t>(0, version.When)), TimeDigits) + "-" +
           Hexadecimal(ContentHash(version)) + std::string(VersionEnding);
}

/// Of two versions of one second the file system knows which was written first.
bool IsOlder(const FilePath& a, const FilePath& b) {
    const std::string second = platform::Utf8Of(a.filename()).substr(0, TimeDigits);
    if (second != platform::Utf8Of(b.filename()).substr(0, TimeDigits)) {
        return a < b;
    }
    const auto writtenA = LastModified(a);
    const auto writtenB = LastModified(b);
    return writtenA != writtenB ? writtenA < writtenB : a < b;
}

/// The kept files of the folder, the oldest first.
std::vector<FilePath> KeptFiles(const FilePath& folder) {
    std::vector<FilePath> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code ignored;
        const std::string name = platform::Utf8Of(entry->path().filename());
        if (name.ends_with(VersionEnding) && !name.empty() && name.front() >= '0' &&
            name.front() <= '9' && entry->is_regular_file(ignored)) {
            files.push_back(entry->path());
        }
    }
    std::sort(files.begin(), files.end(), IsOlder);
    return files;
}

void Remove(const FilePath& file) {
    std::error_code ignored;  // gone already, or in use: it goes another time
    fs::remove(file, ignored);
}

std::uintmax_t SizeOfFile(const FilePath& file) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    return error ? 0 : size;
}

/// The versions of the same content.
std::vector<FilePath> EqualTo(const Version& version, const FilePath& folder) {
    const std::string ending = "-" + Hexadecimal(ContentHash(version)) + std::string(VersionEnding);
    std::vector<FilePath> equal;
    for (const FilePath& file : KeptFiles(folder)) {
        if (!platform::Utf8Of(file.filename()).ends_with(ending)) {
            continue;
        }
        const std::optional<Version> other = ReadVersion(file);
        if (other && other->IsRegister == version.IsRegister && other->Content == version.Content) {
            equal.push_back(file);
        }
    }
    return equal;
}

/// Removes the oldest until the rest is within the limits; the newest always stays.
void RemoveOldest(const FilePath& folder) {
    const std::vector<FilePath> files = KeptFiles(folder);
    std::uintmax_t bytes = 0;
    for (const FilePath& file : files) {
        bytes += SizeOfFile(file);
    }
    std::size_t count = files.size();
    for (const FilePath& file : files) {
        if (count <= 1 || (count <= MostVersions && bytes <= MostVersionBytes)) {
            return;
        }
        bytes -= std::min(bytes, SizeOfFile(file));
        --count;
        Remove(file);
    }
}

/// Makes the file, for the user alone.
std::error_code WriteNewFile(const FilePath& path, ByteView bytes, Flush flush) {
    std::error_code error;
    const platform::NewFile file = platform::CreateBeside(path, {}, error);
    if (error) {
        return error;
    }
    platform::Keep(file, error);
    if (!error) {
        platform::Write(file.File, bytes, error);
    }
    if (!error && flush == Flush::Now) {
        platform::Synchronise(file.File, error);
    }
    std::error_code notClosed;
    platform::Close(file.File, notClosed);
    return error ? error : notClosed;
}

ByteView BytesOf(const std::string& utf8) {
    return {reinterpret_cast<const Byte*>(utf8.data()), utf8.size()};
}

}  // namespace

TextView DescriptionOf(VersionReason reason) {
    switch (reason) {
    case VersionReason::Replaced:
        return u"ersetzt";
    case VersionReason::NotSavedAtLoad:
        return u"beim Laden nicht gesichert";
    case VersionReason::NotSavedAtQuit:
        return u"beim Beenden nicht gesichert";
    case VersionReason::Aborted:
        break;
    }
    return u"Programmabbruch";
}

bool PrepareVersionFolder(const FilePath& folder) {
    std::error_code error;
    if (fs::create_directories(folder, error)) {
        fs::permissions(folder, fs::perms::owner_all, error);
    }
    return fs::is_directory(folder, error);
}

Bytes EncodeVersion(Version version) {
    Bytes header(Magic.begin(), Magic.end());
    ByteAppender numbers(header);
    numbers.Number(Form, FlagSize);
    numbers.Number(static_cast<std::int64_t>(version.Why), FlagSize);
    numbers.Number(version.When, TimeSize);
    numbers.Number(version.IsRegister ? 1 : 0, FlagSize);
    numbers.Block(BytesOf(platform::Utf8Of(version.Original)));
    numbers.Number(static_cast<std::int64_t>(version.Content.size()), LengthSize);
    Bytes result = std::move(version.Content);
    result.insert(result.begin(), header.begin(), header.end());
    ByteAppender(result).Number(static_cast<std::int64_t>(HashOf(result)), HashSize);
    return result;
}

std::optional<Version> DecodeVersion(ByteView bytes) {
    using Int64 = std::numeric_limits<std::int64_t>;
    if (bytes.size() < Magic.size() + FlagSize + HashSize ||
        !std::equal(Magic.begin(), Magic.end(), bytes.begin())) {
        return std::nullopt;
    }
    const ByteView hashed = bytes.first(bytes.size() - HashSize);
    ByteTaker taker(hashed.subspan(Magic.size()));
    const bool isFirstForm = taker.Number(FlagSize, FirstForm, Form) == FirstForm;
    ByteTaker hash(bytes.last(HashSize));
    if (taker.Failed() ||
        hash.Number(HashSize, Int64::min(), Int64::max()) !=
            static_cast<std::int64_t>(isFirstForm ? Fnv1aOf(hashed) : HashOf(hashed))) {
        return std::nullopt;
    }
    Version version;
    version.Why = static_cast<VersionReason>(
        taker.Number(FlagSize, static_cast<std::int64_t>(VersionReason::Replaced),
                     static_cast<std::int64_t>(VersionReason::Aborted)));
    version.When = taker.Number(TimeSize, 0, Int64::max());
    version.IsRegister = taker.Number(FlagSize, 0, 1) == 1;
    const ByteView original = taker.Block();
    version.Original = platform::PathOfUtf8(std::string(original.begin(), original.end()));
    const ByteView content = taker.Block();
    version.Content.assign(content.begin(), content.end());
    return taker.IsDone() ? std::optional(std::move(version)) : std::nullopt;
}

bool IsInFolder(const FilePath& path, const FilePath& folder) {
    std::error_code error;
    const FilePath whole = folder.empty() ? folder : fs::weakly_canonical(folder, error);
    const FilePath asked = error ? path : fs::weakly_canonical(path, error);
    return !whole.empty() && !error &&
           std::mismatch(whole.begin(), whole.end(), asked.begin(), asked.end()).first ==
               whole.end();
}

bool WriteKeptFile(const FilePath& file, ByteView bytes, Flush flush) {
    FilePath beside = file;
    beside += UnfinishedEnding;
    Remove(beside);  // of a process that died in the midst of it
    std::error_code error = WriteNewFile(beside, bytes, flush);
    if (!error) {
        fs::rename(beside, file, error);
    }
    if (error) {
        Remove(beside);
        return false;
    }
    if (flush == Flush::Now) {
        platform::SynchroniseFolder(file.parent_path(), error);
    }
    return !error;
}

bool KeepVersion(const FilePath& folder, const Version& version, Flush flush) {
    try {
        const FilePath file = folder / NameOf(version);
        if (!PrepareVersionFolder(folder)) {
            return false;
        }
        if (!WriteKeptFile(file, EncodeVersion(version), flush)) {
            return !EqualTo(version, folder).empty();
        }
        for (const FilePath& equal : EqualTo(version, folder)) {
            if (equal != file) {
                Remove(equal);
            }
        }
        RemoveOldest(folder);
        return true;
    } catch (const std::exception&) {  // no memory, or a name that no path can hold
        return false;
    }
}

void RemoveUnfinishedVersions(const FilePath& folder) {
    RemoveAbandoned(folder,
                    [](const FilePath& name) { return name.extension() == UnfinishedEnding; });
}

std::vector<Version> ListVersions(const FilePath& folder) {
    std::vector<Version> versions;
    for (const FilePath& file : KeptFiles(folder)) {
        if (std::optional<Version> version = ReadVersion(file)) {
            version->Content = {};
            versions.push_back(std::move(*version));
        }
    }
    std::reverse(versions.begin(), versions.end());
    return versions;
}

std::optional<Version> ReadVersion(const FilePath& file) {
    try {
        std::optional<Version> version = DecodeVersion(ReadWholeFile(file));
        if (version) {
            version->File = file;
        }
        return version;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

}  // namespace norvik
