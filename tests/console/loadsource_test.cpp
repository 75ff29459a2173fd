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
    LoadResult Load(const ConverterOptions& options) {
        return LoadSource(options, OpenSource(options), Settings(), state, desktop);
    }

    const TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
};

TEST_F(LoadSourceTest, SortsAsTheWindowDoes) {
    EXPECT_EQ(Load({.Source = folder.Write("a.t9t", Example195())}), LoadResult::Whole);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bö", u"Zita"));
    EXPECT_TRUE(state.WarnLineAccessZero);
    EXPECT_EQ(state.AnzMarkiert, 1);
    EXPECT_EQ(state.File.Type, u"195");
    EXPECT_EQ(state.File.Path, folder / "a.t9t");
    EXPECT_TRUE(state.File.Modified);
}

TEST_F(LoadSourceTest, KeepsTheOrderOnRequest) {
    EXPECT_EQ(Load({.Source = folder.Write("a.pbo", Example175()),
                    .From = FileFormat::Phonebook175,
                    .Sorted = false}),
              LoadResult::Whole);
    EXPECT_THAT(Names(state), ElementsAre(u"Zita", u"Bö"));
    EXPECT_TRUE(state.WarnLineAccessZero);
    EXPECT_EQ(state.AnzMarkiert, 1);
}

TEST_F(LoadSourceTest, ChangesTheZerosLast) {
    EXPECT_EQ(Load({.Source = folder.Write("a.csv", ExampleCsv()),
                    .From = FileFormat::Csv,
                    .ZeroCode = u"i"}),
              LoadResult::Whole);
    EXPECT_EQ(EntryAt(state, 1).Tel, u"1711");
    EXPECT_EQ(EntryAt(state, 3).Tel, u"i**12");
    EXPECT_FALSE(state.WarnLineAccessZero);
    EXPECT_EQ(desktop.Statuses().back(), "Konvertierung beendet.");
}

TEST_F(LoadSourceTest, AsksNothing) {
    EXPECT_EQ(Load({.Source = folder.Write("a.csv", ExampleCsv()),
                    .From = FileFormat::Csv,
                    .ZeroCode = u"0"}),
              LoadResult::Whole);
    EXPECT_THAT(desktop.Questions(), testing::Each(testing::AnyOf("file", "entry", "list")));
}

TEST_F(LoadSourceTest, SortsNoRegisterWithoutEntries) {
    EXPECT_EQ(Load({.Source = folder.Write("a.t9t", EmptyRegisterFile())}), LoadResult::Whole);
    EXPECT_EQ(state.AnzGes, 0);
    EXPECT_TRUE(state.WarnLineAccessZero);
    EXPECT_THAT(desktop.Statuses(), IsEmpty());
}

TEST_F(LoadSourceTest, TakesWhatWasReadOnRequestAlone) {
    const Bytes whole = Example195();
    const FilePath cut = folder.Write("a.t9t", Bytes(whole.begin(), whole.end() - 1));
    EXPECT_EQ(Load({.Source = cut}), LoadResult::Damaged);
    EXPECT_EQ(Load({.Source = cut, .DespiteDamage = true}), LoadResult::TakenDespiteDamage);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bö", u"Zita"));
    EXPECT_EQ(Load({.Source = folder.Write("b.t9t", BrokenRegisterFile()), .DespiteDamage = true}),
              LoadResult::NothingRead);
    EXPECT_EQ(Load({.Source = folder.Write("a.t9t", whole)}), LoadResult::Whole);
}

TEST_F(LoadSourceTest, LoadsNoRegisterOfAnotherKind) {
    EXPECT_EQ(Load({.Source = folder.Write("a.t9a", ExampleCalls()), .From = FileFormat::CallList}),
              LoadResult::OtherKind);
    EXPECT_EQ(Load({.Source = folder.Write("a.pbo", "x\r\n"), .From = FileFormat::Phonebook175}),
              LoadResult::OtherKind);
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
