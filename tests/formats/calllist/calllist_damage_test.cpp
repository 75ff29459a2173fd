// Call lists that end too early or hold a wrong tag.
#include "formats/calllist/calllist.h"

#include "base/runtimeerror.h"
#include "tests/formats/calllist/calllistbytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DamagedCallList : public testing::Test {
  protected:
    /// Converts a list of these bytes into a new file.
    void Convert(const Bytes& list) {
        std::filesystem::remove(folder / "anrufe.csv");
        ConvertCallList(folder.Write("anrufe.t9a", list), desktop);
    }
    [[nodiscard]] bool IsWritten() const { return std::filesystem::exists(folder / "anrufe.csv"); }
    [[nodiscard]] Bytes Written() const { return ReadFile(folder / "anrufe.csv"); }

    TestFolder folder;
    ScriptedDesktop desktop;
};

Bytes FirstOf(const Bytes& bytes, std::size_t count) {
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count)};
}

constexpr std::string_view WholeCall = "02 0C 06 0A '0512241830' 06 03 '030' 02 01";

TEST_F(DamagedCallList, ThatEndsInItsHeaderHasNoCall) {
    for (std::size_t size = 0; size <= 20; ++size) {
        desktop.Transcript.clear();
        Convert(FirstOf(CallListHeader(), size));
        EXPECT_THAT(desktop.Transcript, ElementsAre(SavedBox(folder / "anrufe.csv"))) << size;
        EXPECT_EQ(Written(), Bytes()) << size;
    }
}

TEST_F(DamagedCallList, ThatEndsInACallGivesShortValuesAndEndsThere) {
    struct Cut {
        std::size_t Bytes;  // of the call
        const char* Number;
        const char* Date;
        const char* Caller;
    };
    const std::vector<Cut> cuts = {
        {1, "-01", "..20 :", ""},
        {2, "11", "..20 :", ""},  // instead of the date's tag
        {3, "11", "..20 :", ""},
        {4, "11", "..20 :", ""},
        {5, "11", "..200 :", ""},
        {6, "11", "..2005 :", ""},
        {7, "11", ".1.2005 :", ""},
        {8, "11", ".12.2005 :", ""},
        {9, "11", "2.12.2005 :", ""},
        {10, "11", "24.12.2005 :", ""},
        {11, "11", "24.12.2005 1:", ""},
        {12, "11", "24.12.2005 18:", ""},
        {13, "11", "24.12.2005 18:3", ""},
        {14, "11", "24.12.2005 18:30", ""},  // instead of the number's tag
        {15, "11", "24.12.2005 18:30", ""},
        {16, "11", "24.12.2005 18:30", ""},
        {17, "11", "24.12.2005 18:30", "0"},
        {18, "11", "24.12.2005 18:30", "03"},
        {19, "11", "24.12.2005 18:30", "030"},  // instead of the trailing element
        {20, "11", "24.12.2005 18:30", "030"},
        {21, "11", "24.12.2005 18:30", "030"}};  // instead of the end of the list
    const Bytes whole = CallListOf(WholeCall);
    ASSERT_EQ(whole.size(), 20U + cuts.size());
    for (const Cut& cut : cuts) {
        SCOPED_TRACE(cut.Bytes);
        desktop.Transcript.clear();
        desktop.AnswerText(u"2");
        Convert(FirstOf(whole, 20 + cut.Bytes));
        const std::string date = cut.Date;
        const std::string caller = cut.Caller;
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(MsnQuestion(FromAscii(date + " " + caller), "\"2\""),
                                SavedBox(folder / "anrufe.csv")));
        const Bytes written = Written();
        EXPECT_EQ(std::string(written.begin(), written.end()),
                  cut.Number + (";" + date) + ";2;" + caller + "\r\n");
    }
}

TEST_F(DamagedCallList, ThatEndsInALongNumberCountsTheMissingBytesAs0) {
    desktop.AnswerText(u"0");
    Convert(CallListOf("FF 02 01"));
    EXPECT_EQ(Written(), Raw("'257;..20 :;0;' 0D 0A"));
}

TEST_F(DamagedCallList, ThatEndsInItsSecondCallKeepsTheFirst) {
    desktop.AnswerText(u"1").AnswerText(u"2");
    Convert(Join({CallListOf(WholeCall), Raw("02")}));
    EXPECT_EQ(Written(), Raw("'11;24.12.2005 18:30;1;030' 0D 0A '-01;..20 :;2;' 0D 0A"));
}

TEST_F(DamagedCallList, AWrongTagOfTheDateEndsTheProgramBehindTheCallNumber) {
    for (int tag = 0; tag <= 0xFF; ++tag) {
        if (tag != 6) {
            EXPECT_THROW(Convert(Join({CallListOf("02 0C"),
                                       {static_cast<Byte>(tag)},
                                       Raw("0A '0512241830' 06 03 '030' 01 00")})),
                         HardStop)
                << tag;
            EXPECT_FALSE(IsWritten()) << tag;
        }
    }
    EXPECT_THAT(desktop.Transcript, IsEmpty());
}

TEST_F(DamagedCallList, AWrongTagOfTheNumberEndsTheProgramBehindTheDate) {
    for (int tag = 0; tag <= 0xFF; ++tag) {
        if (tag != 6) {
            EXPECT_THROW(Convert(Join({CallListOf("02 0C 06 0A '0512241830'"),
                                       {static_cast<Byte>(tag)},
                                       Raw("03 '030' 01 00")})),
                         HardStop)
                << tag;
            EXPECT_FALSE(IsWritten()) << tag;
        }
    }
    EXPECT_THAT(desktop.Transcript, IsEmpty());
}

TEST_F(DamagedCallList, AWrongTagAsTheLastByteEndsTheProgramToo) {
    EXPECT_THROW(Convert(CallListOf("02 0C 05")), HardStop);
    EXPECT_FALSE(IsWritten());
}

TEST_F(DamagedCallList, AHardStopLeavesNoneOfTheCallsBeforeIt) {
    desktop.AnswerText(u"4");
    EXPECT_THROW(Convert(Join({CallListOf(WholeCall), Raw("02 0D 07 0A '0512241830'")})), HardStop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(MsnQuestion(u"24.12.2005 18:30 030", "\"4\"")));
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"anrufe.t9a"});
}

TEST_F(DamagedCallList, AHardStopLeavesAnOldFileAsItWas) {
    folder.Write("anrufe.csv", "ein alter Text");
    desktop.AnswerReplace(true);
    EXPECT_THROW(ConvertCallList(folder.Write("anrufe.t9a", CallListOf("02 0C 05")), desktop),
                 HardStop);
    EXPECT_EQ(Written(), Raw("'ein alter Text'"));
}

}  // namespace
}  // namespace norvik::test
