#include "tests/support/testfolder.h"

#include "base/platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

#ifdef __linux__
#include <sys/statvfs.h>
#include <unistd.h>
#endif

namespace norvik::test {

namespace fs = std::filesystem;

namespace {

/// Whether the folder is a place for tests: with room for their largest files, and for programs,
/// too.
bool IsFit(const char* folder) {
#ifdef __linux__
    constexpr std::uintmax_t EnoughRoom = 1U << 30U;
    struct statvfs system {};
    return statvfs(folder, &system) == 0 && access(folder, W_OK | X_OK) == 0 &&
           (system.f_flag & static_cast<unsigned long>(ST_NOEXEC)) == 0 &&
           std::uintmax_t{system.f_bavail} * system.f_frsize >= EnoughRoom;
#else
    return folder == nullptr;
#endif
}

/// The memory's own file system, which waits for no disk, unless the environment names a folder.
FilePath TemporaryFolder() {
    constexpr const char* Memory = "/dev/shm";
    if (std::getenv("TMPDIR") == nullptr && IsFit(Memory)) {
        return Memory;
    }
    // Of small letters, where these are the same, since the program lowers the paths of settings.
    const FilePath usual = fs::temp_directory_path();
    std::string lowered = usual.string();
    std::transform(lowered.begin(), lowered.end(), lowered.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return fs::exists(lowered) ? FilePath(lowered) : usual;
}

}  // namespace

TestFolder::TestFolder() {
    static const FilePath temporary = TemporaryFolder();
    std::random_device random;
    do {
        // Of one length: how much of a file with a path in it has room must not be luck.
        constexpr std::uint32_t TenDigits = 1'000'000'000;
        path_ = temporary / ("norvik-test-" + std::to_string(TenDigits + random() % TenDigits));
    } while (!fs::create_directory(path_));
}

TestFolder::~TestFolder() {
    std::error_code ignored;
#ifdef _WIN32
    // What is still open stays for a while, and remove_all() would wait for it for ever.
    std::vector<FilePath> all = {path_};
    for (fs::recursive_directory_iterator entry(path_, ignored), end; entry != end;
         entry.increment(ignored)) {
        all.push_back(entry->path());
        fs::permissions(entry->path(), fs::perms::owner_write, fs::perm_options::add, ignored);
    }
    std::for_each(all.rbegin(), all.rend(),
                  [&](const FilePath& path) { fs::remove(path, ignored); });
#else
    fs::remove_all(path_, ignored);
#endif
}

FilePath TestFolder::Write(const FilePath& name, ByteView bytes) const {
    const FilePath path = path_ / name;
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    file.close();
    EXPECT_TRUE(file) << path;
    return path;
}

FilePath TestFolder::Write(const FilePath& name, std::string_view bytes) const {
    return Write(name, ByteView(reinterpret_cast<const Byte*>(bytes.data()), bytes.size()));
}

Bytes ReadFile(const FilePath& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << "cannot read " << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

Bytes Raw(std::string_view notation) {
    Bytes bytes;
    for (std::size_t i = 0; i < notation.size();) {
        if (notation[i] == ' ' || notation[i] == '\n') {
            ++i;
        } else if (notation[i] == '\'') {
            const std::size_t end = notation.find('\'', i + 1);
            bytes.insert(bytes.end(), notation.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                         notation.begin() + static_cast<std::ptrdiff_t>(end));
            i = end + 1;
        } else {
            const std::string digits(notation.substr(i, 2));
            std::size_t used = 0;
            bytes.push_back(static_cast<Byte>(std::stoi(digits, &used, 16)));
            if (used != 2) {
                throw std::invalid_argument("two digits a byte: " + digits);
            }
            i += 2;
        }
    }
    return bytes;
}

Bytes Join(std::initializer_list<Bytes> pieces) {
    Bytes bytes;
    for (const Bytes& piece : pieces) {
        bytes.insert(bytes.end(), piece.begin(), piece.end());
    }
    return bytes;
}

std::vector<std::string> FilesIn(const FilePath& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(platform::Utf8Of(entry.path().filename()));
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace norvik::test
