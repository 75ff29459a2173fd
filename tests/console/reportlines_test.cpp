#include "console/reportlines.h"

#include "tests/support/builders.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

ConverterOptions OptionsOf(std::optional<FileFormat> to) {
    ConverterOptions options;
    options.Source = "a.csv";
    options.To = to;
    return options;
}

TEST(LossLines, NameTheSourceAndWithoutATargetTheFormat) {
    const RegisterState state = RegisterOf({Entry(u"Anna", u"1", u"Info")});
    EXPECT_EQ(LossLines(OptionsOf(FileFormat::Register195), Settings(), state), u"");
    const Text one = LossLines(OptionsOf(FileFormat::Register193), Settings(), state);
    EXPECT_TRUE(one.starts_with(u"a.csv: #1 Anna: ")) << testing::PrintToString(one);
    const Text all = LossLines(OptionsOf(std::nullopt), Settings(), state);
    EXPECT_TRUE(all.starts_with(u"a.csv: 193: #1 Anna: ")) << testing::PrintToString(all);
}

TEST(DoubleLines, NameTheEntriesOfANumber) {
    const RegisterState state =
        RegisterOf({Entry(u"Anna", u"030 1"), Entry(u"B\n", u"2"), Entry(u"Carl", u"0301")});
    EXPECT_EQ(DoubleLines(OptionsOf(std::nullopt), Settings(), state).substr(0, 15),
              u"a.csv: doppelt ");
    EXPECT_TRUE(DoubleLines(OptionsOf(std::nullopt), Settings(), state)
                    .ends_with(u": Anna (030 1), Carl (0301)\r\n"));
}

}  // namespace
}  // namespace norvik::test
