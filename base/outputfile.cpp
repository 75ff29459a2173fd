#include "base/outputfile.h"

#include "base/files.h"
#include "base/systemerrors.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <random>
#include <string>
#include <utility>

namespace norvik {

namespace fs = std::filesystem;

namespace {

/// So that a full register takes a few calls of the system, not a hundred.
constexpr std::size_t WriteBufferSize = 65536;

/// Raises what keeps the system from telling.
fs::file_status Known(const fs::file_status& status, const std::error_code& error,
                      const FilePath& path) {
    if (status.type() == fs::file_type::none) {
        RaiseSystemError(error, path);
    }
    return status;
}

FilePath EndOfLinks(const FilePath& path) {
    std::error_code error;
    FilePath end = platform::EndOfLinks(path, error);
    RaiseIfFailed(error, path);
    return end;
}

FilePath FolderOf(const FilePath& path) {
    const FilePath folder = path.parent_path();
    return folder.empty() ? FilePath(".") : folder;
}

// The name of an unfinished file: ".norvik-", digits, ".neu".
constexpr std::string_view UnfinishedBeginning = ".norvik-";
constexpr std::size_t UnfinishedDigits = 32;
constexpr std::string_view UnfinishedEnding = ".neu";

/// A name that cannot be guessed, so that nobody can have put anything there.
std::string UnguessableName() {
    constexpr std::string_view Digits = "0123456789abcdef";
    std::random_device random;
    std::string name(UnfinishedBeginning);
    while (name.size() < UnfinishedBeginning.size() + UnfinishedDigits) {
        for (unsigned bits = random(), k = 0; k < 8; ++k, bits /= 16) {
            name.push_back(Digits[bits % 16]);
        }
    }
    return name.append(UnfinishedEnding);
}

bool IsUnguessableName(const FilePath& name) {
    const FilePath::string_type& text = name.native();
    return text.size() == UnfinishedBeginning.size() + UnfinishedDigits + UnfinishedEnding.size() &&
           std::equal(UnfinishedBeginning.begin(), UnfinishedBeginning.end(), text.begin()) &&
           std::equal(UnfinishedEnding.rbegin(), UnfinishedEnding.rend(), text.rbegin());
}

/// Whether the error forbids to put a file beside or in place of another, which may be writable
/// itself all the same: no right to the folder, a sticky one, a file that a system is mounted on,
/// no room for a longer name.
bool ForbidsOtherNames(const std::error_code& error) {
    constexpr std::array Errors = {std::errc::permission_denied, std::errc::operation_not_permitted,
                                   std::errc::read_only_file_system,
                                   std::errc::device_or_resource_busy,
                                   std::errc::filename_too_long};
    return std::any_of(Errors.begin(), Errors.end(),
                       [&error](std::errc forbidding) { return error == forbidding; });
}

/// The bytes that a failure would have to bring back; none where they cannot be had.
std::optional<Bytes> OldBytes(const FilePath& path) {
    try {
        return ReadWholeFile(path);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

/// Makes `bytes` the content of the file, from its beginning to its end.
std::error_code WriteOver(platform::Handle file, ByteView bytes) {
    std::error_code error;
    platform::Reserve(file, bytes.size(), error);
    if (!error) {
        platform::Write(file, bytes, error);
    }
    if (!error) {
        platform::Resize(file, bytes.size(), error);
    }
    if (!error) {
        platform::Synchronise(file, error);
    }
    return error;
}

}  // namespace

OutputFile::OutputFile(OutputTarget target) : target_(std::move(target)) {
    if (target_.Memory != nullptr) {
        collects_ = true;
        return;
    }
    EnsurePossibleName(target_.Path);
    if (!target_.Replace && IsNameTaken(target_.Path)) {
        throw FileExists();
    }
    std::error_code error;
    const fs::file_status status =
        Known(platform::StatusOf(target_.Path, error), error, target_.Path);
    place_ = EndOfLinks(target_.Path);
    if (!fs::exists(status)) {
        if (target_.MakeFolder) {
            fs::create_directories(FolderOf(place_), error);  // where it fails, creating tells why
        }
        CreateBeside(false);
    } else if (fs::is_regular_file(status)) {
        if (platform::IsProtected(place_)) {
            throw RuntimeError(ErrorNumber::AccessDenied);
        }
        collects_ = platform::HasSeveralNames(place_);
        if (!collects_) {
            CreateBeside(true);
        }
    } else if (!target_.OnlyFiles && (fs::is_character_file(status) || fs::is_block_file(status))) {
        OpenDevice();
    } else {
        throw RuntimeError(ErrorNumber::PathAccessError);  // a pipe would block for ever
    }
}

OutputFile::~OutputFile() {
    std::error_code ignored;  // whatever it is, the target is as it was
    if (IsOpen()) {
        platform::Close(file_.File, ignored);
    }
    if (!beside_.empty()) {
        fs::remove(beside_, ignored);
        ForgetBeside();
    }
}

void OutputFile::CreateBeside(bool exists) {
    constexpr int MostAttempts = 100;
    like_ = exists ? place_ : FilePath();
    RemoveAbandoned(FolderOf(place_), IsUnguessableName);
    std::error_code error = std::make_error_code(std::errc::file_exists);
    for (int i = 0; i < MostAttempts && error == std::errc::file_exists; ++i) {
        beside_ = FolderOf(place_) / UnguessableName();
        platform::RemoveWhenEnded(beside_);
        file_ = platform::CreateBeside(beside_, like_, error);
        if (!error) {
            return;
        }
        ForgetBeside();
    }
    collects_ = exists && ForbidsOtherNames(error);
    if (!collects_) {
        RaiseSystemError(error, place_);
    }
}

void OutputFile::OpenDevice() {
    std::error_code error;
    file_.File = platform::OpenExisting(place_, error);
    RaiseIfFailed(error, place_);
}

void OutputFile::Write(ByteView bytes) {
    buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
    if (!collects_ && buffer_.size() >= WriteBufferSize) {
        Flush();
    }
}

void OutputFile::Close() {
    if (target_.Memory != nullptr) {
        *target_.Memory = std::move(buffer_);
        return;
    }
    if (collects_) {
        Overwrite(buffer_);
        return;
    }
    Flush();
    std::error_code error;
    if (!beside_.empty()) {
        platform::GivePermissions(file_, like_, error);
        RaiseIfFailed(error, place_);
    }
    platform::Synchronise(file_.File, error);
    RaiseIfFailed(error, place_);
    if (!beside_.empty()) {
        platform::Keep(file_, error);  // as late as can be: from now on an end would leave it
        RaiseIfFailed(error, place_);
    }
    platform::Close(std::exchange(file_.File, platform::NoHandle), error);
    RaiseIfFailed(error, place_);
    if (!beside_.empty()) {
        PutInPlace();
    }
}

void OutputFile::Flush() {
    std::error_code error;
    platform::Write(file_.File, buffer_, error);
    buffer_.clear();
    RaiseIfFailed(error, place_);
}

void OutputFile::PutInPlace() {
    std::error_code error;
    if (target_.Replace) {
        platform::Replace(beside_, place_, error);
        if (!like_.empty() && ForbidsOtherNames(error)) {
            Overwrite(ReadWholeFile(beside_));
            return;
        }
    } else {
        platform::RenameToFree(beside_, place_, error);
        if (error == std::errc::file_exists) {
            throw FileExists();
        }
    }
    RaiseIfFailed(error, place_);
    ForgetBeside();
    platform::SynchroniseFolder(FolderOf(place_), error);
    RaiseIfFailed(error, place_);
}

void OutputFile::Overwrite(ByteView bytes) {
    if (target_.BeforeOverwriting) {
        target_.BeforeOverwriting(place_);
    }
    const std::optional<Bytes> old = OldBytes(place_);
    std::error_code error;
    const platform::Handle file = platform::OpenExisting(place_, error);
    RaiseIfFailed(error, place_);
    error = WriteOver(file, bytes);
    if (error && old) {
        WriteOver(file, *old);
    }
    std::error_code notClosed;
    platform::Close(file, notClosed);
    RaiseIfFailed(error ? error : notClosed, place_);
}

void OutputFile::ForgetBeside() {
    platform::KeepWhenEnded(beside_);
    beside_.clear();
}

void ReplaceFile(OutputTarget target, ByteView bytes) {
    target.MakeFolder = true;
    OutputFile file(std::move(target));
    file.Write(bytes);
    file.Close();
}

void RemoveAbandoned(const FilePath& folder, bool (*unfinished)(const FilePath& name)) {
    constexpr int MostLooks = 1000;  // a large folder is not worth the time of a save
    constexpr std::chrono::minutes Age(10);
    const auto oldest = fs::file_time_type::clock::now() - Age;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (int looks = 0; !error && looks < MostLooks && entry != fs::directory_iterator();
         ++looks, entry.increment(error)) {
        std::error_code unknown;
        if (unfinished(entry->path().filename()) &&
            fs::is_regular_file(entry->symlink_status(unknown)) &&
            entry->last_write_time(unknown) < oldest && !unknown) {
            platform::RemoveIfClosed(entry->path());
        }
    }
}

bool IsNameTaken(const FilePath& path) {
    std::error_code error;
    return fs::exists(Known(fs::symlink_status(path, error), error, path));
}

}  // namespace norvik
