// A folder of its own for each test, and what tests do with files.
#pragma once

#include "base/files.h"

#include <string>
#include <string_view>
#include <vector>

namespace norvik::test {

/// An empty folder that exists as long as the object.
class TestFolder {
  public:
    TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    TestFolder(TestFolder&&) = delete;
    TestFolder& operator=(TestFolder&&) = delete;
    ~TestFolder();

    [[nodiscard]] const FilePath& Path() const { return path_; }
    FilePath operator/(const FilePath& name) const { return path_ / name; }

    /// Writes a file with the toolkit-free means of the standard library and gives its path.
    FilePath Write(const FilePath& name, ByteView bytes) const;
    FilePath Write(const FilePath& name, std::string_view bytes) const;

  private:
    FilePath path_;
};

/// Changes the working folder as long as it exists.
class WorkingFolder {
  public:
    explicit WorkingFolder(const FilePath& folder) : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;
    WorkingFolder(WorkingFolder&&) = delete;
    WorkingFolder& operator=(WorkingFolder&&) = delete;
    ~WorkingFolder() { std::filesystem::current_path(before_); }

  private:
    FilePath before_;
};

/// The names of all files in a folder, sorted, hidden ones included.
std::vector<std::string> FilesIn(const FilePath& folder);

/// The bytes of a file, read without the code under test; fails the test when there is none.
Bytes ReadFile(const FilePath& path);

/// Bytes written out: text in quotes as it is, anything else as hexadecimal digits, blanks between
/// them ignored: Raw("06 04 'Anna' 00") is 06 04 41 6E 6E 61 00.
Bytes Raw(std::string_view notation);

/// The bytes of several pieces, one after the other.
Bytes Join(std::initializer_list<Bytes> pieces);

}  // namespace norvik::test
