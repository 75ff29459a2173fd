// Any bytes as a call list's file, of which every question is answered.
// Sources: formats/calllist/calllist.cpp
#include "base/runtimeerror.h"
#include "formats/calllist/calllist.h"
#include "tests/support/idledesktop.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <random>

namespace {

namespace fs = std::filesystem;

/// Bounds the questions that one input can lead to.
constexpr std::size_t MostBytes = 4096;
constexpr std::size_t HeaderLength = 20;
/// Two elements of a length byte alone, two strings without characters.
constexpr std::size_t SmallestCall = 6;

void Verify(bool holds) {
    if (!holds) {
        std::abort();
    }
}

class AnsweringDesktop : public norvik::test::IdleDesktop {
  public:
    std::optional<norvik::Text> AskForText(const norvik::InputBox& box) override {
        Verify(box.prompt.starts_with(u"MSN zu ") && box.preset == u"0");
        ++Questions;
        return norvik::Text(u"MSN 2");
    }

    std::size_t Questions = 0;
};

/// A folder that exists as long as the process.
class WorkFolder {
  public:
    WorkFolder()
        : path_(fs::temp_directory_path() /
                ("norvik-fuzz-" + std::to_string(std::random_device()()))) {
        fs::create_directory(path_);
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    WorkFolder(WorkFolder&&) = delete;
    WorkFolder& operator=(WorkFolder&&) = delete;
    ~WorkFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }

    [[nodiscard]] const norvik::FilePath& Path() const { return path_; }

  private:
    norvik::FilePath path_;
};

enum class End { Whole, HardStop, Error };

End Convert(const norvik::FilePath& file, norvik::Desktop& desktop) {
    try {
        norvik::ConvertCallList(file, desktop);
        return End::Whole;
    } catch (const norvik::RuntimeError&) {
        return End::Error;
    } catch (const norvik::HardStop&) {
        return End::HardStop;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const WorkFolder folder;
    const norvik::FilePath file = folder.Path() / "anrufe.t9a";
    const std::size_t used = std::min(size, MostBytes);
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(used));

    AnsweringDesktop desktop;
    const End end = Convert(file, desktop);

    // Of the last call alone some bytes may be missing.
    const std::size_t behindHeader = used - std::min(used, HeaderLength);
    Verify(desktop.Questions <= behindHeader / SmallestCall + 1);
    const norvik::Text lines =
        norvik::TextFromBytes(norvik::ReadWholeFile(norvik::CallListOutput(file)));
    std::size_t answers = 0;
    for (std::size_t at = lines.find(u";MSN 2;"); at != norvik::Text::npos;
         at = lines.find(u";MSN 2;", at + 1)) {
        ++answers;
    }
    Verify(answers >= desktop.Questions);
    if (end == End::HardStop) {  // always in the middle of a line
        Verify(lines.ends_with(u';'));
    } else {  // an error is a call number, which begins a line
        Verify(desktop.Questions == 0 ? lines.empty() : lines.ends_with(norvik::LineEnd));
    }
    return 0;
}
