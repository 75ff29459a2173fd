// What the reader makes of a line.
#include "formats/csv/csvformat.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Text Header = u"Name;Tel;Info1;Info2;Info3;Info4;Info5;Info6;AB;Ton;EnTon;MSN;Filter;"
                    u"GebEinh;EnGeb\r\n";

/// Reads the text of a file into an empty register.
RegisterState Read(const Text& file) {
    RegisterState state;
    ScriptedDesktop desktop;
    SetCount(state, ReadCSV(state, BytesFromText(file), {}, Settings(), desktop));
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    return state;
}

/// The only entry of a file with this line.
RegisterEntry ReadLine(TextView line) {
    const RegisterState state = Read(Header + Text(line));
    EXPECT_EQ(state.AnzGes, 1);
    return state.Register(1);
}

/// The entry of a line with a name and these last seven columns, AB to EnGeb.
RegisterEntry ReadNumbers(TextView columns) {
    Text line = u"Anna;;;;;;;;";
    return ReadLine(line.append(columns));
}

void ExpectOverflow(const Text& line) {
    RegisterState state;
    ScriptedDesktop desktop;
    try {
        ReadCSV(state, BytesFromText(Header + line), {}, Settings(), desktop);
        FAIL() << "no error for " << Utf8(line);
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::Overflow) << Utf8(line);
    }
}

// A whole line

TEST(ReadCSV, TakesEveryColumn) {
    RegisterEntry expected;
    expected.Name = u"Müller, Hans";
    expected.Tel = u"03023125101";
    expected.Info = u"privat               "
                    u"                     "
                    u"Lindenallee 12       "
                    u"                     "
                    u"                     "
                    u"12345 Musterstadt";
    expected.AB = 3;
    expected.Ton = 128 + 10;
    expected.MsnFilter = 2 + 16 + 2 * 64;
    expected.GebEinh = 4711;
    EXPECT_EQ(ReadLine(u"Müller, Hans;03023125101;privat;;Lindenallee 12;;;12345 Musterstadt;3;10;"
                       u"ja;03;VIP ;4711;ja"),
              expected);
}

TEST(ReadCSV, TakesEveryColumnOfTheQuotedForm) {
    RegisterEntry expected;
    expected.Name = u"Müller; Hans";
    expected.Tel = u"030";
    expected.Info = u"a                    b";
    expected.AB = 3;
    expected.Ton = 128 + 10;
    expected.MsnFilter = 5 + 16 + 3 * 64;
    expected.GebEinh = -7;
    const RegisterState state =
        Read(u"\"Name\";\"Tel\"\r\n"
             u"\"Müller; Hans\";\"030\";\"a\";\"b\";\"\";\"\";\"\";\"\";\"3\";\"10\";\"ja\";"
             u"\"06\";\"CD  \";\"-7\";\"ja\"\r\n");
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.Register(1), expected);
}

TEST(ReadCSV, TheHeadersNamesDoNotMatter) {
    const RegisterState state = Read(u"Tel;Name\r\nAnna;1\r\n");
    EXPECT_EQ(state.Register(1), Entry(u"Anna", u"1"));
}

TEST(ReadCSV, TheNumberFieldCountsFrom0) {
    const RegisterState state = Read(Header + u"a;1\r\nb;2\r\nc;3\r\n");
    EXPECT_EQ(state.AnzGes, 3);
    for (int place = 1; place <= 3; ++place) {
        EXPECT_EQ(state.Register(place).RecIndex, place - 1);
        EXPECT_EQ(state.Register(place).RecNumber, 0);
    }
}

// Name and number

TEST(ReadCSV, ANameOf22CharactersIsItsFirst20AndAPoint) {
    EXPECT_EQ(ReadLine(u"ABCDEFGHIJKLMNOPQRSTUV;1").Name, u"ABCDEFGHIJKLMNOPQRST.");
}

TEST(ReadCSV, ANameOf21CharactersStays) {
    EXPECT_EQ(ReadLine(u"ABCDEFGHIJKLMNOPQRSTU;1").Name, u"ABCDEFGHIJKLMNOPQRSTU");
}

TEST(ReadCSV, TheNumberIsCleanedForTheTelephone) {
    EXPECT_EQ(ReadLine(u"a;0049 (30) 123-456/7").Tel, u"0049(30)123-4567");
    EXPECT_EQ(ReadLine(u"a;i12").Tel, u"i12");
    EXPECT_EQ(ReadLine(u"a;1i2").Tel, u"12");
    EXPECT_EQ(ReadLine(u"a;+49 30").Tel, u"4930");
}

TEST(ReadCSV, TheNumbersFirst21CharactersAreTakenBeforeItIsCleaned) {
    EXPECT_EQ(ReadLine(u"a;0 0 4 9 3 0 1 2 3 4 5 6 7 8").Tel, u"00493012345");
    EXPECT_EQ(ReadLine(u"a;1234567890123456789012").Tel, u"123456789012345678901");
}

// The info text

TEST(ReadCSV, ALineWithTwoFieldsHasNoInfo) {
    EXPECT_EQ(ReadLine(u"Anna;1"), Entry(u"Anna", u"1"));
}

TEST(ReadCSV, OnlyTheInfoFieldsThatTheLineHasAreUsed) {
    EXPECT_EQ(ReadLine(u"Anna;1;one;two").Info, u"one                  two");
}

TEST(ReadCSV, ALongInfoFieldIsFlowed) {
    EXPECT_EQ(ReadLine(u"Anna;1;abcdefghijklmnopqrstuvwxy;;end").Info, u"abcdefghijklmnopqrstu"
                                                                       u"vwxy                 "
                                                                       u"end");
}

TEST(ReadCSV, ALongSixthInfoFieldIsFlowedToo) {
    EXPECT_EQ(ReadLine(u"Anna;1;a;;;;;the key is under the red stone").Info,
              u"a                    "
              u"the key is under the "
              u" red stone");
}

TEST(ReadCSV, ALongFieldBehindTheInfoFieldsIsNotInfo) {
    EXPECT_EQ(ReadLine(u"Anna;1;a;;;b;;;1                          ;"
                       u"2 and more text than a line holds")
                  .Info,
              u"a                    "
              u"                     "
              u"                     "
              u"b");
}

TEST(ReadCSV, LongInfoIsCutTo123CharactersAndThreePoints) {
    EXPECT_EQ(ReadLine(u"Anna;1;" + Text(200, u'x')).Info, Text(123, u'x') + u"...");
}

// Numbers

TEST(ReadCSV, NumericColumnsReadTheirLeadingNumber) {
    const RegisterEntry entry = ReadNumbers(u"12abc;  7 ;nein;00;;34 units;nein");
    EXPECT_EQ(entry.AB, 12);
    EXPECT_EQ(entry.Ton, 7);
    EXPECT_EQ(entry.GebEinh, 34);
}

TEST(ReadCSV, WithoutDigitsANumberIs0) {
    const RegisterEntry entry = ReadNumbers(u"abc;;nein;00;;x1;nein");
    EXPECT_EQ(entry.AB, 0);
    EXPECT_EQ(entry.Ton, 0);
    EXPECT_EQ(entry.GebEinh, 0);
}

TEST(ReadCSV, ALeadingSignIsRead) {
    const RegisterEntry entry = ReadNumbers(u"-1;+5;nein;00;;-2147483648;nein");
    EXPECT_EQ(entry.AB, -1);
    EXPECT_EQ(entry.Ton, 5);
    EXPECT_EQ(entry.GebEinh, -2147483647 - 1);
}

TEST(ReadCSV, AnExponentIsNotRead) {
    EXPECT_EQ(ReadNumbers(u"1e1;0;nein;00;;2e3;nein").AB, 1);
    EXPECT_EQ(ReadNumbers(u"1e1;0;nein;00;;2e3;nein").GebEinh, 2);
}

TEST(ReadCSV, TheLargestValuesOfTheFieldsAreTaken) {
    const RegisterEntry entry = ReadNumbers(u"32767;32767;nein;32767;;2147483647;nein");
    EXPECT_EQ(entry.AB, 32767);
    EXPECT_EQ(entry.Ton, 32767);
    EXPECT_EQ(entry.MsnFilter, 32766);
    EXPECT_EQ(entry.GebEinh, 2147483647);
}

TEST(ReadCSV, AValueTooLargeForItsFieldOverflows) {
    ExpectOverflow(u"Anna;;;;;;;;32768");
    ExpectOverflow(u"Anna;;;;;;;;-32769");
    ExpectOverflow(u"Anna;;;;;;;;;32768");
    ExpectOverflow(u"Anna;;;;;;;;;32767;ja");
    ExpectOverflow(u"Anna;;;;;;;;;;;40000");
    ExpectOverflow(u"Anna;;;;;;;;;;;32767;CD");
    ExpectOverflow(u"Anna;;;;;;;;;;;32760;;;ja");
    ExpectOverflow(u"Anna;;;;;;;;;;;;;2147483648");
    ExpectOverflow(u"Anna;;;;;;;;;;;;;99999999999999999999999999");
}

// Yes and no

TEST(ReadCSV, YesIsAFirstCharacterOf1YAndJ) {
    for (const TextView yes : {u"1", u"y", u"Y", u"j", u"J", u"ja", u"yes", u"1x", u"jein"}) {
        const RegisterEntry entry = ReadNumbers(u"0;5;" + Text(yes) + u";15;;0;" + Text(yes));
        EXPECT_EQ(entry.Ton, 128 + 5) << Utf8(yes);
        EXPECT_EQ(entry.MsnFilter, 14 + 16) << Utf8(yes);
    }
}

TEST(ReadCSV, EverythingElseIsNo) {
    for (const TextView no : {u"", u"nein", u"0", u" ja", u"x", u"true", u"+1"}) {
        const RegisterEntry entry = ReadNumbers(u"0;5;" + Text(no) + u";15;;0;" + Text(no));
        EXPECT_EQ(entry.Ton, 5) << Utf8(no);
        EXPECT_EQ(entry.MsnFilter, 14) << Utf8(no);
    }
}

TEST(ReadCSV, TheOwnToneIsAddedToTheTonesValue) {
    EXPECT_EQ(ReadNumbers(u"0;200;ja").Ton, 328);
    EXPECT_EQ(ReadNumbers(u"0;128;ja").Ton, 256);
    EXPECT_EQ(ReadNumbers(u"0;;ja").Ton, 128);
}

// MSN, filter and charge counter

TEST(ReadCSV, TheMsnIsTheValueMinus1) {
    EXPECT_EQ(ReadNumbers(u"0;0;nein;03").MsnFilter, 2);
    EXPECT_EQ(ReadNumbers(u"0;0;nein;1").MsnFilter, 0);
    EXPECT_EQ(ReadNumbers(u"0;0;nein;06").MsnFilter, 5);
}

TEST(ReadCSV, AnMsnBelow1IsNone) {
    for (const TextView msn : {u"00", u"", u"0", u"-3", u"x"}) {
        EXPECT_EQ(ReadNumbers(u"0;0;nein;" + Text(msn) + u";;0;nein").MsnFilter, 15) << Utf8(msn);
    }
}

TEST(ReadCSV, TheMsnIsNotRangeChecked) {
    const RegisterEntry entry = ReadNumbers(u"0;0;nein;18;;0;nein");
    EXPECT_EQ(entry.MsnFilter, 17);
    EXPECT_EQ(MsnOf(entry), 1);
    EXPECT_TRUE(HasChargeCounter(entry));
    EXPECT_EQ(ReadNumbers(u"0;0;nein;18;;0;ja").MsnFilter, 33);
}

TEST(ReadCSV, TheFilterIsItsFirstLetterWhateverItsCase) {
    EXPECT_EQ(ReadNumbers(u"0;0;nein;01;Anr.").MsnFilter, 64);
    EXPECT_EQ(ReadNumbers(u"0;0;nein;01;a").MsnFilter, 64);
    EXPECT_EQ(ReadNumbers(u"0;0;nein;01;VIP ").MsnFilter, 128);
    EXPECT_EQ(ReadNumbers(u"0;0;nein;01;vip").MsnFilter, 128);
    EXPECT_EQ(ReadNumbers(u"0;0;nein;01;CD  ").MsnFilter, 192);
    EXPECT_EQ(ReadNumbers(u"0;0;nein;01;cd").MsnFilter, 192);
}

TEST(ReadCSV, AnUnknownFilterIs0) {
    for (const TextView filter : {u"Kein", u"x", u"", u" VIP", u"1"}) {
        EXPECT_EQ(ReadNumbers(u"0;0;nein;01;" + Text(filter)).MsnFilter, 0) << Utf8(filter);
    }
    for (int byte = 1; byte <= 255; ++byte) {
        const char16_t first = CharacterOf(static_cast<Byte>(byte));
        if (Text(u"aAvVcC;\r\n\"\x1A").find(first) == Text::npos) {
            EXPECT_EQ(ReadNumbers(Text(u"0;0;nein;01;") + first).MsnFilter, 0) << byte;
        }
    }
}

TEST(ReadCSV, ALineWithoutAnMsnHasFlagWord15) {
    EXPECT_EQ(ReadNumbers(u"1;2;ja").MsnFilter, 15);
    EXPECT_EQ(ReadNumbers(u"1;2;ja").Ton, 130);
}

TEST(ReadCSV, ALineThatEndsWithItsMsnHasNoFilterAndNoCounter) {
    EXPECT_EQ(ReadNumbers(u"1;2;ja;04").MsnFilter, 3);
}

TEST(ReadCSV, AnMsnOfNoneKeepsFilterAndCounter) {
    EXPECT_EQ(ReadNumbers(u"0;0;nein;00;VIP;0;ja").MsnFilter, 15 + 16 + 128);
}

TEST(ReadCSV, FieldsAfterTheFifteenthAreIgnored) {
    const RegisterEntry entry = ReadNumbers(u"1;2;nein;03;VIP;4;nein;ja;more text;5");
    EXPECT_EQ(entry.AB, 1);
    EXPECT_EQ(entry.MsnFilter, 2 + 128);
    EXPECT_EQ(entry.GebEinh, 4);
}

TEST(ReadCSV, AQuotedLineIsTakenEvenWithoutItsLastColumns) {
    const RegisterState state = Read(u"\"Name\"\r\n\"Anna\"\r\n\"Bert\";\"1\";\"i\";\"\"\r\n");
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bert"));
    EXPECT_EQ(state.Register(1), Entry(u"Anna"));
    EXPECT_EQ(state.Register(2).Info, u"i");
    EXPECT_EQ(state.Register(2).MsnFilter, 15);
}

}  // namespace

}  // namespace norvik::test
