#include "console/gatheredmessages.h"

#include "tests/console/capturedstream.h"

#include <optional>

namespace norvik::test {
namespace {

TEST(GatheredMessages, ArePrintedOnceWithHowOftenTheyCame) {
    const CapturedStream stream;
    GatheredMessages messages(stream.File(), u"a.pbo");
    for (int i = 0; i < 3; ++i) {
        messages.Add(u"eins\r\nzwei");
        messages.Add(u"drei");
    }
    messages.Add(u"");
    messages.Print();
    messages.Add(u"drei");
    messages.Print();
    messages.Print();
    EXPECT_EQ(stream.Content(),
              "a.pbo: eins\na.pbo: zwei (3-mal)\na.pbo: drei (3-mal)\na.pbo: drei\n");
}

TEST(GatheredMessages, AreNoMoreThanCanBeHeld) {
    const CapturedStream stream;
    std::optional<GatheredMessages> messages(std::in_place, stream.File(), Text());
    std::string expected;
    for (int i = 0; i < 10'000; ++i) {
        messages->Add(Decimal(i));
        expected += std::to_string(i) + "\n";
    }
    EXPECT_EQ(stream.Content(), "");
    messages->Add(u"noch eine");
    EXPECT_EQ(stream.Content(), expected);
    expected += "noch eine\n";
    messages->Add(Text(3'999'990, u'x'));
    messages->Add(u"y");
    EXPECT_NE(stream.Content(), expected + std::string(3'999'990, 'x') + "\ny\n");
    messages->Add(Text(20, u'z'));
    expected += std::string(3'999'990, 'x') + "\ny\n";
    EXPECT_EQ(stream.Content(), expected);
    messages.reset();
    EXPECT_EQ(stream.Content(), expected + std::string(20, 'z') + "\n");
}

TEST(OnceEach, CountsEqualLines) {
    EXPECT_EQ(OnceEach(u"a\r\n\r\nb\r\na\r\n\r\na"), u"a (3-mal)\r\n\r\nb\r\n\r\n");
    EXPECT_EQ(OnceEach(u""), u"");
    const CapturedStream stream;
    GatheredMessages messages(stream.File(), u"a.csv");
    messages.Add(u"Doublette entfernt: A\r\nDoublette entfernt: A\r\n");
    messages.Print();
    EXPECT_EQ(stream.Content(), "a.csv: Doublette entfernt: A (2-mal)\n");
}

TEST(WithSource, StandsInFrontOfEachFilledLine) {
    EXPECT_EQ(WithSource(u"a", u"eins\r\n\r\nzwei"), u"a: eins\r\na: zwei\r\n");
    EXPECT_EQ(WithSource(u"", u"eins"), u"eins\r\n");
    EXPECT_EQ(WithSource(u"a", u""), u"");
}

}  // namespace
}  // namespace norvik::test
