// Any bytes as a call list's file, of which every question is answered.
// Sources: formats/calllist/calllist.cpp
#include "base/runtimeerror.h"
#include "formats/calllist/calllist.h"
#include "tests/support/idledesktop.h"

#include <algorithm>
#include <cstdlib>

namespace {

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

enum class End { Whole, Broken };

End Convert(norvik::ByteView calls, norvik::Bytes& output, norvik::Desktop& desktop) {
    norvik::OutputTarget target(norvik::FilePath("anrufe.csv"));
    target.Memory = &output;
    try {
        norvik::WriteCallList(calls, target, desktop);
        return End::Whole;
    } catch (const norvik::RuntimeError&) {
        return End::Broken;
    } catch (const norvik::HardStop&) {
        return End::Broken;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::size_t used = std::min(size, MostBytes);
    AnsweringDesktop desktop;
    norvik::Bytes output;
    const End end = Convert(norvik::ByteView(data, used), output, desktop);

    // Of the last call alone some bytes may be missing.
    const std::size_t behindHeader = used - std::min(used, HeaderLength);
    Verify(desktop.Questions <= behindHeader / SmallestCall + 1);
    if (end != End::Whole) {
        Verify(output.empty());  // whole or not at all
        return 0;
    }
    const norvik::Text lines = norvik::TextFromBytes(output);
    std::size_t answers = 0;
    for (std::size_t at = lines.find(u";MSN 2;"); at != norvik::Text::npos;
         at = lines.find(u";MSN 2;", at + 1)) {
        ++answers;
    }
    Verify(answers >= desktop.Questions);
    Verify(desktop.Questions == 0 ? lines.empty() : lines.ends_with(norvik::LineEnd));
    return 0;
}
