#include "formats/calllist/calllist.h"

#include "base/runtimeerror.h"
#include "tests/formats/calllist/calllistbytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string HeaderBox = OkBox(u"Header=RegisterHeader!", u"Anruferliste", "Exclamation");

class ConvertCalls : public testing::Test {
  protected:
    /// Converts a file of these bytes and gives what was written.
    Bytes Convert(const Bytes& list) {
        std::filesystem::remove(folder / "anrufe.csv");
        ConvertCallList(folder.Write("anrufe.t9a", list), desktop);
        return Written();
    }
    [[nodiscard]] Bytes Written() const { return ReadFile(folder / "anrufe.csv"); }
    [[nodiscard]] std::string Saved() const { return SavedBox(folder / "anrufe.csv"); }

    TestFolder folder;
    ScriptedDesktop desktop;
};

/// The first and the second column of a list of one call with these elements in front.
class OneCall : public ConvertCalls {
  protected:
    std::string Line(std::string_view numberAndDate) {
        desktop.AnswerText(u"0");
        const Bytes line =
            Convert(Join({CallListHeader(), Raw(numberAndDate), Raw("06 01 '1' 02 00 00")}));
        return {line.begin(), line.end()};
    }
    /// The line of a call at the date of this text.
    std::string LineAt(const std::string& date) {
        const Byte length = static_cast<Byte>(date.size());
        return Line("02 01 06 " + std::string(Utf8(Hex2(length))) + " '" + date + "'");
    }
};

TEST(CallListOutput, IsThePathUpToItsFirstPointAndCsv) {
    EXPECT_EQ(CallListOutput("/home/anna/anrufe.t9a"), FilePath("/home/anna/anrufe.csv"));
    EXPECT_EQ(CallListOutput("/home/anna/anrufe.alt.t9a"), FilePath("/home/anna/anrufe.csv"));
    EXPECT_EQ(CallListOutput("anrufe."), FilePath("anrufe.csv"));
}

TEST(CallListOutput, APathLikeMyDataCallsT9aWritesMyCsv) {
    EXPECT_EQ(CallListOutput("C:\\my.data\\calls.t9a"), FilePath("C:\\my.csv"));
    EXPECT_EQ(CallListOutput("/srv/my.data/calls.t9a"), FilePath("/srv/my.csv"));
}

TEST(CallListOutput, APathWithoutAPointGetsTheEndingAppended) {
    EXPECT_EQ(CallListOutput("/home/anna/anrufe"), FilePath("/home/anna/anrufe.csv"));
}

TEST_F(ConvertCalls, EachCallIsALineWithTheMsnThatWasAskedFor) {
    const FilePath input =
        folder.Write("anrufe.t9a", CallListOf("02 01 06 0A '0512241830' 06 07 '0301234' 02 07"
                                              "03 2C 01 06 0A '2503091405' 06 03 'i12' 01"
                                              "00"));
    desktop.AnswerText(u"2").AnswerText(u"MSN 5, privat");

    ConvertCallList(input, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(MsnQuestion(u"24.12.2005 18:30 0301234", "\"2\""),
                            MsnQuestion(u"09.03.2025 14:05 i12", "\"MSN 5, privat\""), Saved()));
    EXPECT_EQ(Written(), Raw("'00;24.12.2005 18:30;2;0301234' 0D 0A"
                             "'299;09.03.2025 14:05;MSN 5, privat;i12' 0D 0A"));
}

TEST_F(ConvertCalls, AListWithoutCallsGivesAnEmptyFile) {
    EXPECT_EQ(Convert(CallListOf("00")), Bytes());
    EXPECT_EQ(Convert(CallListOf("")), Bytes());
    EXPECT_THAT(desktop.Transcript, ElementsAre(Saved(), Saved()));
}

// The call number

TEST_F(OneCall, OfLengthByte2AndTheByte1Writes00) {
    EXPECT_EQ(Line("02 01 06 0A '0512241830'"), "00;24.12.2005 18:30;0;1\r\n");
}

TEST_F(OneCall, WithTheByte12Writes11) {
    EXPECT_EQ(Line("02 0C 06 0A '0512241830'"), "11;24.12.2005 18:30;0;1\r\n");
}

TEST_F(OneCall, HasANumberOfAtLeastTwoDigits) {
    EXPECT_EQ(Line("02 0A 06 00"), "09;..20 :;0;1\r\n");
    EXPECT_EQ(Line("02 0B 06 00"), "10;..20 :;0;1\r\n");
    EXPECT_EQ(Line("02 64 06 00"), "99;..20 :;0;1\r\n");
    EXPECT_EQ(Line("02 65 06 00"), "100;..20 :;0;1\r\n");
    EXPECT_EQ(Line("02 FF 06 00"), "254;..20 :;0;1\r\n");
}

TEST_F(OneCall, HasItsNumberLeastSignificantByteFirst) {
    EXPECT_EQ(Line("03 01 02 06 00"), "512;..20 :;0;1\r\n");
    EXPECT_EQ(Line("04 01 00 02 06 00"), "131072;..20 :;0;1\r\n");
    EXPECT_EQ(Line("05 01 00 00 80 06 00"), "2147483648;..20 :;0;1\r\n");
}

TEST_F(OneCall, OfTheNumber0IsOneBelowZero) {
    EXPECT_EQ(Line("02 00 06 00"), "-01;..20 :;0;1\r\n");
}

TEST_F(OneCall, OfLengthByte1HasTheNumber0) {
    EXPECT_EQ(Line("01 06 00"), "-01;..20 :;0;1\r\n");
}

TEST_F(OneCall, MayHaveANumberOfEightBytes) {
    EXPECT_EQ(Line("09 FF FF FF FF FF FF FF 7F 06 00"), "9223372036854775806;..20 :;0;1\r\n");
}

TEST_F(OneCall, MayHaveANumberOfMoreThanEightBytesWhenTheyAreZero) {
    EXPECT_EQ(Line("0A 05 00 00 00 00 00 00 00 00 06 00"), "04;..20 :;0;1\r\n");
    std::string longest = "FF 05";
    for (int byte = 0; byte < 253; ++byte) {
        longest += " 00";
    }
    EXPECT_EQ(Line(longest + " 06 00"), "04;..20 :;0;1\r\n");
}

TEST_F(ConvertCalls, ANumberTooLargeRaisesError6AndLeavesNoCallBefore) {
    const std::string before = "02 01 06 0A '0512241830' 06 01 '1' 01";
    for (const std::string number : {"09 00 00 00 00 00 00 00 80", "0A 00 00 00 00 00 00 00 00 01",
                                     "11 FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF"}) {
        desktop.Transcript.clear();
        desktop.AnswerText(u"3");
        try {
            Convert(CallListOf(before + number + "06 00 06 00 01"));
            ADD_FAILURE() << number;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
        }
        EXPECT_THAT(desktop.Transcript, ElementsAre(MsnQuestion(u"24.12.2005 18:30 1", "\"3\"")));
        EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"anrufe.t9a"});
    }
}

// The date

TEST_F(OneCall, TheDateText0512241830Gives24_12_2005_18_30) {
    EXPECT_EQ(LineAt("0512241830"), "00;24.12.2005 18:30;0;1\r\n");
}

TEST_F(OneCall, TheDateText9901010000Gives01_01_1999_00_00) {
    EXPECT_EQ(LineAt("9901010000"), "00;01.01.1999 00:00;0;1\r\n");
}

TEST_F(OneCall, Year89Gives2089) {
    EXPECT_EQ(LineAt("8912312359"), "00;31.12.2089 23:59;0;1\r\n");
}

TEST_F(OneCall, Year90Gives1990) {
    EXPECT_EQ(LineAt("9012312359"), "00;31.12.1990 23:59;0;1\r\n");
}

TEST_F(OneCall, AYearThatIsNoNumberCountsAs0) {
    EXPECT_EQ(LineAt("xy01020304"), "00;02.01.20xy 03:04;0;1\r\n");
    EXPECT_EQ(LineAt("9x01020304"), "00;02.01.209x 03:04;0;1\r\n");
    EXPECT_EQ(LineAt("-901020304"), "00;02.01.20-9 03:04;0;1\r\n");
}

TEST_F(OneCall, ADateIsTakenByItsPlacesWhateverStandsThere) {
    EXPECT_EQ(LineAt("059913998877"), "00;13.99.2005 99:88;0;1\r\n");
    EXPECT_EQ(LineAt("05122418"), "00;24.12.2005 18:;0;1\r\n");
    EXPECT_EQ(LineAt(""), "00;..20 :;0;1\r\n");
}

// The MSN

TEST_F(ConvertCalls, AnInputBoxAnsweredWithNothingWritesAnEmptyThirdColumn) {
    for (const std::optional<Text>& nothing : {std::optional<Text>(u""), std::optional<Text>()}) {
        desktop.AnswerText(nothing);
        EXPECT_EQ(Convert(CallListOf("02 01 06 0A '0512241830' 06 03 '030' 01 00")),
                  Raw("'00;24.12.2005 18:30;;030' 0D 0A"));
    }
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(MsnQuestion(u"24.12.2005 18:30 030", "\"\""), Saved(),
                            MsnQuestion(u"24.12.2005 18:30 030", "cancel"), Saved()));
}

TEST_F(ConvertCalls, TheMsnIsWrittenAsItWasTyped) {
    desktop.AnswerText(u" ;\"7\" für Büro € ");
    EXPECT_EQ(Convert(CallListOf("02 01 06 0A '0512241830' 06 03 '030' 01 00")),
              Raw("'00;24.12.2005 18:30; ;\"7\" f' FC 'r B' FC 'ro ' 80 ' ;030' 0D 0A"));
}

TEST_F(ConvertCalls, AnMsnThatTheFileCannotHoldRaisesError5) {
    desktop.AnswerText(u"Жук");
    try {
        Convert(CallListOf("02 01 06 0A '0512241830' 06 03 '030' 01 00"));
        ADD_FAILURE() << "nothing was raised";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::InvalidArgument);
    }
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"anrufe.t9a"});
}

// The caller's number

TEST_F(ConvertCalls, TheCallersNumberIsTranslatedFromTheTelephonesCharacters) {
    desktop.AnswerText(u"0");
    EXPECT_EQ(Convert(CallListOf("02 01 06 0A '0512241830'"
                                 "06 0F 84 94 81 E1 8E 99 9A 82 8A 5E F8 F5 83 88 93 01 00")),
              Raw("'00;24.12.2005 18:30;0;' E4 F6 FC DF C4 D6 DC E9 E8 5E B0 A7 E2 EA F4 0D 0A"));
    EXPECT_EQ(desktop.Transcript.at(0), MsnQuestion(u"24.12.2005 18:30 äöüßÄÖÜéè^°§âêô"));
}

TEST_F(ConvertCalls, OtherCharactersOfTheNumberStay) {
    desktop.AnswerText(u"0");
    EXPECT_EQ(Convert(CallListOf("02 01 06 0A '0512241830' 06 08 '+*#;\"' E4 80 81 01 00")),
              Raw("'00;24.12.2005 18:30;0;+*#;\"' E4 80 FC 0D 0A"));
}

TEST_F(ConvertCalls, ACallerWithoutANumberHasAnEmptyLastColumn) {
    desktop.AnswerText(u"1");
    EXPECT_EQ(Convert(CallListOf("02 01 06 0A '0512241830' 06 00 01 00")),
              Raw("'00;24.12.2005 18:30;1;' 0D 0A"));
    EXPECT_EQ(desktop.Transcript.at(0), MsnQuestion(u"24.12.2005 18:30 ", "\"1\""));
}

TEST_F(ConvertCalls, ANumberMayHave255Characters) {
    desktop.AnswerText(u"1");
    const Bytes digits(255, '4');
    EXPECT_EQ(Convert(Join({CallListOf("02 01 06 00 06 FF"), digits, Raw("01 00")})),
              Join({Raw("'00;..20 :;1;'"), digits, Raw("0D 0A")}));
}

// The trailing element and the end

TEST_F(ConvertCalls, TheTrailingElementIsPassedOver) {
    const Bytes call = Raw("02 02 06 00 06 00 01");
    for (const Bytes& element :
         {Raw("01"), Raw("02 06"), Raw("05 00 00 00 00"), Join({Raw("FF"), Bytes(254, 0xFF)})}) {
        desktop.AnswerText(u"a").AnswerText(u"b");
        EXPECT_EQ(Convert(Join({CallListOf("02 01 06 00 06 00"), element, call})),
                  Raw("'00;..20 :;a;' 0D 0A '01;..20 :;b;' 0D 0A"));
    }
}

TEST_F(ConvertCalls, ALength0InsteadOfACallNumberEndsTheList) {
    desktop.AnswerText(u"0");
    EXPECT_EQ(Convert(CallListOf("02 01 06 00 06 00 01 00 02 02 06 00 06 00 01 05")),
              Raw("'00;..20 :;0;' 0D 0A"));
    EXPECT_EQ(desktop.Transcript.back(), Saved());
}

TEST_F(ConvertCalls, ALength0OfTheTrailingElementEndsTheListBehindItsCall) {
    desktop.AnswerText(u"0");
    EXPECT_EQ(Convert(CallListOf("02 01 06 00 06 00 00 02 02 06 00 06 00 01 00")),
              Raw("'00;..20 :;0;' 0D 0A"));
    EXPECT_THAT(desktop.Transcript, ElementsAre(MsnQuestion(u"..20 : "), Saved()));
}

// The header

TEST_F(ConvertCalls, TheHeadersTwentyBytesMayBeAnything) {
    EXPECT_EQ(Convert(Bytes(20, 0)), Bytes());
    EXPECT_EQ(Convert(Bytes(20, 6)), Bytes());
    EXPECT_THAT(desktop.Transcript, ElementsAre(Saved(), Saved()));
}

TEST_F(ConvertCalls, TheHeaderOfARegisterFileIsWarnedAboutWhateverItsLastTwoBytesAre) {
    for (const char* last : {"00 00", "02 00", "FF FE"}) {
        desktop.Transcript.clear();
        desktop.AnswerText(u"0");
        EXPECT_EQ(Convert(Join({Raw("06 0D 'TStCollection' 02 64 01"), Raw(last),
                                Raw("02 01 06 0A '0512241830' 06 03 '030' 01 00")})),
                  Raw("'00;24.12.2005 18:30;0;030' 0D 0A"));
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(HeaderBox, MsnQuestion(u"24.12.2005 18:30 030"), Saved()));
    }
}

TEST_F(ConvertCalls, AHeaderThatDiffersInOneOfTheFirstEighteenBytesIsNotWarnedAbout) {
    for (std::size_t place = 0; place < 18; ++place) {
        Bytes header = Raw("06 0D 'TStCollection' 02 64 01 02 00");
        header[place] = static_cast<Byte>(header[place] + 1);
        desktop.Transcript.clear();
        EXPECT_EQ(Convert(header), Bytes());
        EXPECT_THAT(desktop.Transcript, ElementsAre(Saved())) << place;
    }
}

TEST_F(ConvertCalls, ARegisterFileWithoutEntriesIsWarnedAbout) {
    EXPECT_EQ(Convert(Raw("06 0D 'TStCollection' 02 64 01 00")), Bytes());
    EXPECT_EQ(Convert(Raw("06 0D 'TStCollection' 02 64 01")), Bytes());
    EXPECT_THAT(desktop.Transcript, ElementsAre(HeaderBox, Saved(), HeaderBox, Saved()));
}

TEST_F(ConvertCalls, TheEntriesOfARegisterFileAreReadAsCalls) {
    // Behind 20 bytes stands the entry's second integer, the call number; tag and length of its
    // info text begin the trailing element; its tone is the next call number.
    desktop.AnswerText(u"0");
    EXPECT_THROW(Convert(Raw("06 0D 'TStCollection' 02 64 01"
                             "02 00 02 01 06 04 'Anna' 06 03 '030' 06 04 'Info' 02 05 02 0F"
                             "02 07 02 01 00")),
                 HardStop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(HeaderBox, MsnQuestion(u".na.20An : 030")));
    EXPECT_FALSE(std::filesystem::exists(folder / "anrufe.csv"));
}

}  // namespace
}  // namespace norvik::test
