#include "console/loadsource.h"

#include "base/runtimeerror.h"
#include "tests/console/examplefiles.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LoadSourceTest : public testing::Test {
  protected:
    bool Load(const ConverterOptions& options) {
        return LoadSource(options, Settings(), state, desktop);
    }

    const TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
};

TEST_F(LoadSourceTest, SortsAsTheWindowDoes) {
    EXPECT_TRUE(Load({.Source = folder.Write("a.t9t", Example195())}));
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bö", u"Zita"));
    EXPECT_TRUE(state.WarnLineAccessZero);
    EXPECT_EQ(state.AnzMarkiert, 1);
    EXPECT_EQ(state.File.Type, u"195");
    EXPECT_EQ(state.File.Path, folder / "a.t9t");
    EXPECT_TRUE(state.File.Modified);
}

TEST_F(LoadSourceTest, KeepsTheOrderOnRequest) {
    EXPECT_TRUE(Load({.Source = folder.Write("a.pbo", Example175()),
                      .From = FileFormat::Phonebook175,
                      .Sorted = false}));
    EXPECT_THAT(Names(state), ElementsAre(u"Zita", u"Bö"));
    EXPECT_TRUE(state.WarnLineAccessZero);
    EXPECT_EQ(state.AnzMarkiert, 1);
}

TEST_F(LoadSourceTest, ChangesTheZerosLast) {
    EXPECT_TRUE(Load({.Source = folder.Write("a.csv", ExampleCsv()),
                      .From = FileFormat::Csv,
                      .ZeroCode = u"i"}));
    EXPECT_EQ(EntryAt(state, 1).Tel, u"1711");
    EXPECT_EQ(EntryAt(state, 3).Tel, u"i**12");
    EXPECT_FALSE(state.WarnLineAccessZero);
    EXPECT_EQ(desktop.Statuses().back(), "Konvertierung beendet.");
}

TEST_F(LoadSourceTest, AsksNothing) {
    EXPECT_TRUE(Load({.Source = folder.Write("a.csv", ExampleCsv()),
                      .From = FileFormat::Csv,
                      .ZeroCode = u"0"}));
    EXPECT_THAT(desktop.Questions(), testing::Each(testing::AnyOf("file", "entry", "list")));
}

TEST_F(LoadSourceTest, SortsNoRegisterWithoutEntries) {
    EXPECT_TRUE(Load({.Source = folder.Write("a.t9t", EmptyRegisterFile())}));
    EXPECT_EQ(state.AnzGes, 0);
    EXPECT_TRUE(state.WarnLineAccessZero);
    EXPECT_THAT(desktop.Statuses(), IsEmpty());
}

TEST_F(LoadSourceTest, GivesFalseForAFailure) {
    EXPECT_FALSE(Load({.Source = folder / "a.t9t"}));
    EXPECT_FALSE(Load({.Source = folder / "a.pbo", .From = FileFormat::Phonebook175}));
    EXPECT_FALSE(Load({.Source = folder / "a.csv", .From = FileFormat::Csv}));
    EXPECT_EQ(desktop.Questions().size(), 3U);
    EXPECT_THROW(Load({.Source = folder.Write("a.t9t", BrokenRegisterFile())}), HardStop);
}

TEST_F(LoadSourceTest, LoadsNoRegisterFromACallList) {
    EXPECT_FALSE(
        Load({.Source = folder.Write("a.t9a", ExampleCalls()), .From = FileFormat::CallList}));
}

TEST(ReadConverterSettings, AreThoseOfAWindowWithoutAFile) {
    const Settings settings = ReadConverterSettings({});
    EXPECT_EQ(settings.UnitPrice, 0);
    EXPECT_EQ(settings.InternationalPrefix, u"00");
    EXPECT_EQ(settings.AreaPrefix, u"0");
}

TEST(ReadConverterSettings, AreThoseOfTheFile) {
    const TestFolder folder;
    const Settings settings = ReadConverterSettings(
        {.SettingsFile = folder.Write("x", "Unit=0,12\r\nCountryCode=49\r\nRegionCode=30\r\n")});
    EXPECT_EQ(settings.UnitPrice, 0.12);
    EXPECT_EQ(settings.InternationalPrefix, u"0049");
    EXPECT_EQ(settings.AreaPrefix, u"030");
    EXPECT_THROW(ReadConverterSettings({.SettingsFile = folder / "fehlt"}), RuntimeError);
}

}  // namespace
}  // namespace norvik::test
