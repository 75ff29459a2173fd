// CSV files written out by hand: read, written again, cut, and grown by a line too many.
#include "formats/csv/csvformat.h"

#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace norvik::test {

namespace {

using testing::ElementsAre;

constexpr std::string_view Plain =
    "Name;Tel;Info1;Info2;Info3;Info4;Info5;Info6;AB;Ton;EnTon;MSN;Filter;GebEinh;EnGeb\r\n"
    "M\xFCller, Hans;03023125101;privat;;12345 Musterstadt;;;;7;19;ja;01;VIP ;17;ja\r\n"
    "Konferenz Innung;00493023125199p123456;;;;;;;0;0;nein;00;Kein;0;nein\r\n"
    "C\xF4t\xE9, Andr\xE9;i12; H\xF4tel;b;c;d;e;abcdefghijklmnopqrstu;0;79;nein;06;CD  ;"
    "-2147483648;nein\r\n"
    ";;;;;;;;-32768;0;ja;02;Anr.;2147483647;ja\r\n";

constexpr std::string_view Quoted =
    "\"Name\";\"Tel\";\"Info1\";\"Info2\";\"Info3\";\"Info4\";\"Info5\";\"Info6\";\"AB\";\"Ton\";"
    "\"EnTon\";\"MSN\";\"Filter\";\"GebEinh\";\"EnGeb\"\r\n"
    "\"M\xFCller, Hans\";\"03023125101\";\"privat\";\"\";\"12345 Musterstadt\";\"\";\"\";\"\";"
    "\"7\";\"19\";\"ja\";\"01\";\"VIP \";\"17\";\"ja\"\r\n"
    "\"Konferenz Innung\";\"00493023125199p123456\";\"\";\"\";\"\";\"\";\"\";\"\";\"0\";\"0\";"
    "\"nein\";\"00\";\"Kein\";\"0\";\"nein\"\r\n"
    "\"C\xF4t\xE9, Andr\xE9\";\"i12\";\" H\xF4tel\";\"b\";\"c\";\"d\";\"e\";"
    "\"abcdefghijklmnopqrstu\";\"0\";\"79\";\"nein\";\"06\";\"CD  \";\"-2147483648\";\"nein\"\r\n"
    "\"\";\"\";\"\";\"\";\"\";\"\";\"\";\"\";\"-32768\";\"0\";\"ja\";\"02\";\"Anr.\";"
    "\"2147483647\";\"ja\"\r\n";

RegisterState GoldenRegister() {
    RegisterEntry hans = Entry(u"Müller, Hans", u"03023125101",
                               u"privat               "
                               u"                     "
                               u"12345 Musterstadt");
    hans.AB = 7;
    hans.Ton = 128 + 19;
    hans.MsnFilter = 0 + 16 + 128;
    hans.GebEinh = 17;
    RegisterEntry conference = Entry(u"Konferenz Innung", u"00493023125199p123456");
    RegisterEntry andre = Entry(u"Côté, André", u"i12",
                                u" Hôtel               "
                                u"b                    "
                                u"c                    "
                                u"d                    "
                                u"e                    "
                                u"abcdefghijklmnopqrstu");
    andre.Ton = 79;
    andre.MsnFilter = 5 + 192;
    andre.GebEinh = -2147483647 - 1;
    RegisterEntry nameless;
    nameless.AB = -32768;
    nameless.Ton = 128;
    nameless.MsnFilter = 1 + 16 + 64;
    nameless.GebEinh = 2147483647;
    return RegisterOf({hans, conference, andre, nameless});
}

RegisterState Load(const FilePath& path) {
    RegisterState state;
    ScriptedDesktop desktop;
    LoadCSV(state, path, Settings(), desktop);
    return state;
}

class GoldenCSV : public testing::TestWithParam<std::string_view> {
  protected:
    /// What the golden file's form needs as an answer.
    [[nodiscard]] Button Answer() const { return GetParam() == Quoted ? Button::Yes : Button::No; }
    TestFolder folder;
};

TEST_P(GoldenCSV, GivesTheListedEntries) {
    const RegisterState state = Load(folder.Write("a.csv", GetParam()));
    EXPECT_EQ(state.AnzGes, 4);
    EXPECT_TRUE(ContentsOf(state) == ContentsOf(GoldenRegister()));
    for (int place = 1; place <= 4; ++place) {
        EXPECT_EQ(state.Register(place), GoldenRegister().Register(place)) << place;
    }
}

TEST_P(GoldenCSV, SavingTheListedEntriesGivesTheFile) {
    RegisterState state = GoldenRegister();
    ScriptedDesktop desktop;
    desktop.AnswerBox(Answer());
    SaveCSV(state, folder / "a.csv", desktop);
    const Bytes bytes = ReadFile(folder / "a.csv");
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), GetParam());
}

TEST_P(GoldenCSV, CutAtEveryByteItGivesAllWholeLines) {
    const RegisterState whole = GoldenRegister();
    const Bytes bytes = ReadFile(folder.Write("a.csv", GetParam()));
    RegisterState state;
    ScriptedDesktop desktop;
    for (std::size_t length = 0; length <= bytes.size(); ++length) {
        const ByteView file = ByteView(bytes).first(length);
        const auto ends = static_cast<int>(std::count(file.begin(), file.end(), '\r'));
        const int entries = std::max(0, ends - 1);
        for (int place = 1; place <= whole.AnzGes; ++place) {
            state.Register(place) = RegisterEntry();
        }
        const int count = ReadCSV(state, file, {}, Settings(), desktop);
        ASSERT_GE(count, entries) << length;
        ASSERT_LE(count, ends) << length;
        for (int place = 1; place <= entries; ++place) {
            ASSERT_EQ(state.Register(place), whole.Register(place)) << length;
        }
    }
}

TEST_P(GoldenCSV, TheCutLineIsAnEntryAsSoonAsItHasTwoFields) {
    const std::size_t start = GetParam().find("Konferenz");
    const std::size_t end = GetParam().find(';', start);
    // Of the quoted form, the name's own quotes are enough.
    const std::size_t enough = GetParam() == Quoted ? end : end + 1;
    EXPECT_EQ(Load(folder.Write("a.csv", GetParam().substr(0, enough - 1))).AnzGes, 1);
    const RegisterState state = Load(folder.Write("b.csv", GetParam().substr(0, enough)));
    EXPECT_THAT(Names(state), ElementsAre(u"Müller, Hans", u"Konferenz Innung"));
    EXPECT_EQ(state.Register(2).Tel, u"");
    EXPECT_EQ(state.Register(2).MsnFilter, 15);
}

TEST_P(GoldenCSV, TheLastLineNeedsNoLineEnd) {
    const RegisterState state =
        Load(folder.Write("a.csv", GetParam().substr(0, GetParam().size() - 2)));
    EXPECT_TRUE(ContentsOf(state) == ContentsOf(GoldenRegister()));
}

TEST_P(GoldenCSV, OneEntryTooManyIsIgnored) {
    RegisterState full = RegisterOf({});
    SetCount(full, 2000);
    for (int place = 1; place <= 2000; ++place) {
        full.Register(place).Name = u"Name " + Decimal(place);
    }
    ScriptedDesktop desktop;
    desktop.AnswerBox(Answer());
    SaveCSV(full, folder / "a.csv", desktop);
    const Bytes more = Join({ReadFile(folder / "a.csv"), Raw("'\"One\";\"too many\"' 0D0A")});
    const FilePath path = folder.Write("a.csv", more);

    const RegisterState state = Load(path);

    EXPECT_EQ(state.AnzGes, 2000);
    EXPECT_TRUE(ContentsOf(state) == ContentsOf(full));
}

INSTANTIATE_TEST_SUITE_P(BothForms, GoldenCSV, testing::Values(Plain, Quoted),
                         [](const testing::TestParamInfo<std::string_view>& form) {
                             return form.param == Quoted ? "Quoted" : "Plain";
                         });

}  // namespace

}  // namespace norvik::test
