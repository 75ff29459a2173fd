#include "formats/registerfile/registerfile.h"

#include "base/runtimeerror.h"
#include "tests/formats/registerfile/registerfilebytes.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;

/// Writes the register as a 195 file and gives its bytes.
Bytes Written195(RegisterState& state) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    WriteRegisterFile195(state, folder / "a.t9t", desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre("pointer Hourglass", "pointer Normal"));
    return ReadFile(folder / "a.t9t");
}

Bytes Written193(RegisterState& state, bool onlyMarked) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    WriteRegisterFile193(state, folder / "a.t9t", onlyMarked, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre("pointer Hourglass", "pointer Normal"));
    return ReadFile(folder / "a.t9t");
}

/// The number of the error that writing raises, 0 for none; `left` gets the files that are then
/// there.
template <typename Write>
int ErrorOf(Write write, std::vector<std::string>& left) {
    const TestFolder folder;
    int number = 0;
    try {
        write(folder / "a.t9t");
    } catch (const RuntimeError& error) {
        number = static_cast<int>(error.Number());
    }
    left = FilesIn(folder.Path());
    return number;
}

RegisterEntry FullEntry() {
    RegisterEntry entry = Entry(u"Müller", u"030*1", u"Söhne");
    entry.Ton = 0x85;
    entry.MsnFilter = 0x51;
    entry.GebEinh = 200;
    entry.AB = 3;
    return entry;
}

// EncodeInteger

TEST(EncodeInteger, UpTo127OneValueByte) {
    EXPECT_EQ(EncodeInteger(0), Raw("02 00"));
    EXPECT_EQ(EncodeInteger(1), Raw("02 01"));
    EXPECT_EQ(EncodeInteger(100), Raw("02 64"));
    EXPECT_EQ(EncodeInteger(127), Raw("02 7F"));
}

TEST(EncodeInteger, From128OnTwoValueBytesLowByteFirst) {
    EXPECT_EQ(EncodeInteger(128), Raw("03 80 00"));
    EXPECT_EQ(EncodeInteger(200), Raw("03 C8 00"));
    EXPECT_EQ(EncodeInteger(255), Raw("03 FF 00"));
    EXPECT_EQ(EncodeInteger(256), Raw("03 00 01"));
    EXPECT_EQ(EncodeInteger(40000), Raw("03 40 9C"));
    EXPECT_EQ(EncodeInteger(65535), Raw("03 FF FF"));
}

TEST(EncodeInteger, ANegativeValueIsItsLowByte) {
    EXPECT_EQ(EncodeInteger(-1), Raw("02 FF"));
    EXPECT_EQ(EncodeInteger(-128), Raw("02 80"));
    EXPECT_EQ(EncodeInteger(-256), Raw("02 00"));
    EXPECT_EQ(EncodeInteger(-2147483647 - 1), Raw("02 00"));
}

TEST(EncodeInteger, From65536OnItRaisesError5) {
    for (const int value : {65536, 100000, 2147483647}) {
        try {
            EncodeInteger(value);
            ADD_FAILURE() << value;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::InvalidArgument) << value;
        }
    }
}

// The 195 file

TEST(WriteRegisterFile195, AnEmptyRegisterGivesTheHeaderAndOneZeroByte) {
    RegisterState state = RegisterOf({});
    EXPECT_EQ(Written195(state), Raw("06 0D 54 53 74 43 6F 6C 6C 65 63 74 69 6F 6E 02 64 01 00"));
}

TEST(WriteRegisterFile195, WritesTheNineItemsOfARecord) {
    RegisterState state = RegisterOf({FullEntry()});
    EXPECT_EQ(Written195(state),
              FileOf({Raw("02 00  02 01  06 06 'M' 81 'ller'  06 05 '030*1'  06 05 'S' 94 'hne'"
                          "03 85 00  02 51  03 C8 00  02 03")}));
}

TEST(WriteRegisterFile195, ChargesOf100TakeOneByteAnd200Two) {
    RegisterState state = RegisterOf({Entry(u"a"), Entry(u"b")});
    state.Register(1).GebEinh = 100;
    state.Register(2).GebEinh = 200;
    EXPECT_EQ(Written195(state),
              FileOf({Raw("0200 0201 06 01 'a' 06 00 06 00 0200 020F 02 64 0200"),
                      Raw("0201 0202 06 01 'b' 06 00 06 00 0200 020F 03 C8 00 0200")}));
}

TEST(WriteRegisterFile195, RemovesTrailingBlanksOnly) {
    RegisterState state = RegisterOf({Entry(u"  a b  ", u" 1 2 ", u" x\t  ")});
    EXPECT_EQ(Written195(state), FileOf({Raw("0200 0201 06 05 '  a b' 06 04 ' 1 2' 06 03 ' x' 09 "
                                             "0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile195, TextsOfBlanksBecomeEmpty) {
    RegisterState state = RegisterOf({Entry(u" ", u"  ", u"   ")});
    EXPECT_EQ(Written195(state), FileOf({Raw("0200 0201 06 00 06 00 06 00 0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile195, TheNumberIsNotConverted) {
    RegisterState state = RegisterOf({Entry(u"ä", u"ä", u"ä")});
    EXPECT_EQ(Written195(state),
              FileOf({Raw("0200 0201 06 01 84 06 01 E4 06 01 84 0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile195, OtherCharactersAreWindowsBytes) {
    RegisterState state = RegisterOf({Entry(u"€à")});
    EXPECT_EQ(Written195(state),
              FileOf({Raw("0200 0201 06 02 80 E0 06 00 06 00 0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile195, WritesInDisplayOrderWithFreshRunningNumbers) {
    RegisterState state = RegisterOf({Entry(u"b"), Entry(u"a"), Entry(u"c")});
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    for (int place = 1; place <= 3; ++place) {
        state.Register(place).RecIndex = 77;
        state.Register(place).RecNumber = 99;
    }
    EXPECT_EQ(Written195(state),
              FileOf({Raw("0200 0201 06 01 'a' 06 00 06 00 0200 020F 0200 0200"),
                      Raw("0201 0202 06 01 'b' 06 00 06 00 0200 020F 0200 0200"),
                      Raw("0202 0203 06 01 'c' 06 00 06 00 0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile195, WritesTheUsedPositionsOnly) {
    RegisterState state = RegisterOf({Entry(u"a"), Entry(u"b")});
    SetCount(state, 1);
    EXPECT_EQ(Written195(state),
              FileOf({Raw("0200 0201 06 01 'a' 06 00 06 00 0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile195, TheMarkIsPartOfTheInfo) {
    RegisterState state = RegisterOf({Entry(u"a", u"1", u"()")});
    EXPECT_EQ(Written195(state),
              FileOf({Raw("0200 0201 06 01 'a' 06 01 '1' 06 02 '()' 0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile195, RunningNumbersFrom128OnTakeTwoBytes) {
    RegisterState state = RegisterOf({});
    SetCount(state, 129);
    const Bytes bytes = Written195(state);
    const Bytes tail = Raw("03 80 00 03 81 00 06 00 06 00 06 00 0200 020F 0200 0200 00");
    const Bytes before = Raw("02 7F 03 80 00 06 00 06 00 06 00 0200 020F 0200 0200");
    ASSERT_GT(bytes.size(), tail.size() + before.size());
    EXPECT_EQ(
        Bytes(bytes.end() - static_cast<std::ptrdiff_t>(tail.size() + before.size()), bytes.end()),
        Join({before, tail}));
}

TEST(WriteRegisterFile195, ATextOf255CharactersIsTheLongest) {
    RegisterState state = RegisterOf({Entry(Text(255, u'x'), Text(255, u'1'), Text(255, u'y'))});
    EXPECT_EQ(Written195(state),
              FileOf({Raw("0200 0201 06 FF"), Bytes(255, 'x'), Raw("06 FF"), Bytes(255, '1'),
                      Raw("06 FF"), Bytes(255, 'y'), Raw("0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile195, BlanksBehindThe255thCharacterDoNotCount) {
    RegisterState state = RegisterOf({Entry(Text(255, u'x') + u"  ")});
    EXPECT_EQ(Written195(state), FileOf({Raw("0200 0201 06 FF"), Bytes(255, 'x'),
                                         Raw("06 00 06 00 0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile195, ATextOf256CharactersRaisesError5AndLeavesNoFile) {
    const Text tooLong(256, u'x');
    for (const RegisterEntry& entry :
         {Entry(tooLong), Entry(u"a", tooLong), Entry(u"a", u"1", tooLong)}) {
        RegisterState state = RegisterOf({entry});
        state.RegisterSaved = false;
        ScriptedDesktop desktop;
        std::vector<std::string> left = {"a.t9t"};
        EXPECT_EQ(ErrorOf([&](const FilePath& path) { WriteRegisterFile195(state, path, desktop); },
                          left),
                  5);
        EXPECT_EQ(left, std::vector<std::string>{});
        EXPECT_FALSE(state.RegisterSaved);
    }
}

TEST(WriteRegisterFile195, ANumberOf65536RaisesError5AndLeavesNoFile) {
    RegisterState state = RegisterOf({Entry(u"a"), Entry(u"b"), Entry(u"c")});
    state.Register(2).GebEinh = 65536;
    state.RegisterSaved = false;
    ScriptedDesktop desktop;
    std::vector<std::string> left = {"a.t9t"};
    EXPECT_EQ(
        ErrorOf([&](const FilePath& path) { WriteRegisterFile195(state, path, desktop); }, left),
        5);
    EXPECT_EQ(left, std::vector<std::string>{});
    EXPECT_FALSE(state.RegisterSaved);
}

TEST(WriteRegisterFile195, NegativeNumbersAreWrittenAsOneByte) {
    RegisterState state = RegisterOf({Entry(u"a")});
    state.Register(1).GebEinh = -2;
    state.Register(1).AB = -1;
    EXPECT_EQ(Written195(state),
              FileOf({Raw("0200 0201 06 01 'a' 06 00 06 00 0200 020F 02 FE 02 FF")}));
}

TEST(WriteRegisterFile195, OverwritesALongerFile) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", std::string(5000, 'z'));
    RegisterState state = RegisterOf({});
    ScriptedDesktop desktop;
    WriteRegisterFile195(state, path, desktop);
    EXPECT_EQ(ReadFile(path), FileOf({}));
}

TEST(WriteRegisterFile195, SetsRegisterSavedAndChangesNothingElse) {
    RegisterState state = RegisterOf({FullEntry(), Entry(u"a")});
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    state.RegisterSaved = false;
    state.LoadedModel = u"193";
    state.AnzNr = 2;
    const Contents before = ContentsOf(state);
    Written195(state);
    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_EQ(state.LoadedModel, u"193");
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_EQ(state.AnzGes, 2);
}

// The 193 file

TEST(WriteRegisterFile193, AnEmptyRegisterGivesTheHeaderAndOneZeroByte) {
    RegisterState state = RegisterOf({});
    EXPECT_EQ(Written193(state, false), FileOf({}));
}

TEST(WriteRegisterFile193, DropsTheInfoAndClearsToneAndAnnouncement) {
    RegisterState state = RegisterOf({FullEntry()});
    EXPECT_EQ(Written193(state, false),
              FileOf({Raw("02 00  02 01  06 06 'M' 81 'ller'  06 05 '030*1'"
                          "02 00  02 51  03 C8 00  02 00")}));
}

TEST(WriteRegisterFile193, CutsNamesOf21AndMoreCharactersTo20) {
    RegisterState state = RegisterOf(
        {Entry(u"12345678901234567890"), Entry(u"12345678901234567890x"), Entry(Text(300, u'ü'))});
    EXPECT_EQ(Written193(state, false),
              FileOf({Raw("0200 0201 06 14 '12345678901234567890' 06 00 0200 020F 0200 0200"),
                      Raw("0201 0202 06 14 '12345678901234567890' 06 00 0200 020F 0200 0200"),
                      Raw("0202 0203 06 14"), Bytes(20, 0x81), Raw("06 00 0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile193, ABlankThatTheCutLaysBareStays) {
    RegisterState state = RegisterOf({Entry(u"Hausmeister Block 7 B")});
    EXPECT_EQ(Written193(state, false),
              FileOf({Raw("0200 0201 06 14 'Hausmeister Block 7 ' 06 00 0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile193, TheNumberIsTrimmedButNotCut) {
    RegisterState state = RegisterOf({Entry(u"a", u"1234567890123456789012345 ")});
    EXPECT_EQ(
        Written193(state, false),
        FileOf({Raw("0200 0201 06 01 'a' 06 19 '1234567890123456789012345' 0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile193, ALongInfoIsNoErrorButALongNumberIs) {
    RegisterState state = RegisterOf({Entry(u"a", u"1", Text(300, u'i'))});
    EXPECT_EQ(Written193(state, false),
              FileOf({Raw("0200 0201 06 01 'a' 06 01 '1' 0200 020F 0200 0200")}));

    state.Register(1).Tel = Text(256, u'1');
    state.RegisterSaved = false;
    ScriptedDesktop desktop;
    std::vector<std::string> left = {"a.t9t"};
    EXPECT_EQ(
        ErrorOf([&](const FilePath& path) { WriteRegisterFile193(state, path, false, desktop); },
                left),
        5);
    EXPECT_EQ(left, std::vector<std::string>{});
    EXPECT_FALSE(state.RegisterSaved);
}

TEST(WriteRegisterFile193, OnlyTheMarkedOfThreeEntriesIsWrittenWithRunningNumbers0And1) {
    RegisterState state =
        RegisterOf({Entry(u"a", u"1"), Entry(u"b", u"2", u"x()y"), Entry(u"c", u"3", u"(x)")});
    EXPECT_EQ(Written193(state, true),
              FileOf({Raw("0200 0201 06 01 'b' 06 01 '2' 0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile193, WithoutTheReductionAllEntriesAreWrittenInDisplayOrder) {
    RegisterState state = RegisterOf({Entry(u"b", u"1"), Entry(u"a", u"2", u"()")});
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    EXPECT_EQ(Written193(state, false),
              FileOf({Raw("0200 0201 06 01 'a' 06 01 '2' 0200 020F 0200 0200"),
                      Raw("0201 0202 06 01 'b' 06 01 '1' 0200 020F 0200 0200")}));
}

TEST(WriteRegisterFile193, WithNoMarkedEntryItSaysSoAndCreatesNoFile) {
    const TestFolder folder;
    RegisterState state = RegisterOf({Entry(u"a")});
    state.RegisterSaved = false;
    ScriptedDesktop desktop;
    WriteRegisterFile193(state, folder / "a.t9t", true, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(OkBox(u"Keine Datensätze zum Exportieren!", u"Fehler", "Exclamation")));
    EXPECT_FALSE(std::filesystem::exists(folder / "a.t9t"));
    EXPECT_FALSE(state.RegisterSaved);
}

TEST(WriteRegisterFile193, TheShownNumberOfMarkedEntriesDecides) {
    RegisterState state = RegisterOf({Entry(u"a", u"1", u"()")});
    state.AnzMarkiert = 0;
    const TestFolder folder;
    ScriptedDesktop desktop;
    WriteRegisterFile193(state, folder / "a.t9t", true, desktop);
    EXPECT_FALSE(std::filesystem::exists(folder / "a.t9t"));

    RegisterState unmarked = RegisterOf({Entry(u"a")});
    unmarked.AnzMarkiert = 1;
    EXPECT_EQ(Written193(unmarked, true), FileOf({}));
}

TEST(WriteRegisterFile193, AnExistingFileStaysWhenNothingIsMarked) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", "old");
    RegisterState state = RegisterOf({Entry(u"a")});
    ScriptedDesktop desktop;
    WriteRegisterFile193(state, path, true, desktop);
    EXPECT_EQ(ReadFile(path), Raw("'old'"));
}

TEST(WriteRegisterFile193, SetsRegisterSavedAndChangesNothingElse) {
    RegisterState state = RegisterOf({FullEntry(), Entry(u"a", u"1", u"()")});
    state.RegisterSaved = false;
    state.LoadedModel = u"195";
    const Contents before = ContentsOf(state);
    Written193(state, true);
    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_EQ(state.LoadedModel, u"195");
}

}  // namespace

}  // namespace norvik::test
