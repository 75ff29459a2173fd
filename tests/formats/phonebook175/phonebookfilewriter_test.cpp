#include "formats/phonebook175/phonebookfile.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string Identification = "norvik 175 phonebook\r\n";

std::string Written(RegisterState& state) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    WritePhonebookFile(state, folder / "a.pbo", desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre("pointer Hourglass", "pointer Normal"));
    const Bytes bytes = ReadFile(folder / "a.pbo");
    return {bytes.begin(), bytes.end()};
}

TEST(WritePhonebookFile, WritesTheIdentificationAndEightLinesPerEntry) {
    RegisterState state = RegisterOf({Entry(u"Müller", u"030 12",
                                            u"Zeile 1              "
                                            u"  Zeile 2            "
                                            u"                     "
                                            u"einundzwanzig Zeichen"
                                            u"fünf")});
    EXPECT_EQ(Written(state), Identification + "N=M\xFCller\r\nP=030 12\r\n"
                                               "I=Zeile 1              \r\n"
                                               "I=  Zeile 2            \r\n"
                                               "I=                     \r\n"
                                               "I=einundzwanzig Zeichen\r\n"
                                               "I=f\xFCnf\r\n"
                                               "I=\r\n");
}

TEST(WritePhonebookFile, AnInfoOfOneWordGivesOneLineOfItAndFiveOfTheKeyAlone) {
    RegisterState state = RegisterOf({Entry(u"a", u"1", u"Büro")});
    EXPECT_EQ(Written(state), Identification + "N=a\r\nP=1\r\nI=B\xFCro\r\n"
                                               "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\n");
}

TEST(WritePhonebookFile, NameAndNumberAreNeitherTrimmedNorCut) {
    RegisterState state = RegisterOf(
        {Entry(u" ein Name von mehr als einundzwanzig Zeichen ", u" " + Text(30, u'7'))});
    EXPECT_EQ(Written(state), Identification + "N= ein Name von mehr als einundzwanzig Zeichen \r\n"
                                               "P= 777777777777777777777777777777\r\n"
                                               "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\n");
}

TEST(WritePhonebookFile, TrimsInfoInTheRegisterToo) {
    RegisterState state =
        RegisterOf({Entry(u"a", u"1", u"  x  y  "), Entry(u" b ", u" 2 ", u"  ")});
    EXPECT_EQ(Written(state), Identification + "N=a\r\nP=1\r\nI=x  y\r\n"
                                               "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\n"
                                               "N= b \r\nP= 2 \r\nI=\r\n"
                                               "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\n");
    EXPECT_EQ(state.Register(1), Entry(u"a", u"1", u"x  y"));
    EXPECT_EQ(state.Register(2).Name, u" b ");
    EXPECT_EQ(state.Register(2).Tel, u" 2 ");
    EXPECT_EQ(state.Register(2).Info, u"");
}

TEST(WritePhonebookFile, LeadingBlanksThatGoMoveTheLinesUp) {
    RegisterState state =
        RegisterOf({Entry(u"a", u"1", Text(21, u' ') + u"zweite Zeile, jetzt d" + u"ritte")});
    EXPECT_EQ(Written(state), Identification + "N=a\r\nP=1\r\nI=zweite Zeile, jetzt d\r\n"
                                               "I=ritte\r\nI=\r\nI=\r\nI=\r\nI=\r\n");
}

TEST(WritePhonebookFile, OfALongerInfoOnlySixLinesAreWritten) {
    const Text info = Text(126, u'i') + u"Rest";
    RegisterState state = RegisterOf({Entry(u"a", u"1", info)});
    const std::string line = "I=" + std::string(21, 'i') + "\r\n";
    EXPECT_EQ(Written(state),
              Identification + "N=a\r\nP=1\r\n" + line + line + line + line + line + line);
    EXPECT_EQ(state.Register(1).Info, info);
}

TEST(WritePhonebookFile, WritesThePositionsInTheirOrderAndTrimsOnlyThose) {
    RegisterState state = RegisterOf({Entry(u"B", u"2", u" "), Entry(u"A", u"1"), Entry(u"C")});
    state.Register(3).Info = u" C ";
    SetCount(state, 2);
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    EXPECT_EQ(Written(state), Identification + "N=A\r\nP=1\r\n"
                                               "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\n"
                                               "N=B\r\nP=2\r\n"
                                               "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\n");
    EXPECT_EQ(state.Register(3).Info, u" C ");
}

TEST(WritePhonebookFile, CarriesNoToneNoMsnNoChargeAndNoAnnouncement) {
    RegisterEntry entry = Entry(u"a", u"1");
    RegisterState plain = RegisterOf({entry});
    entry.RecIndex = 5;
    entry.RecNumber = 6;
    entry.Ton = 0x85;
    entry.MsnFilter = 0xD2;
    entry.GebEinh = 100;
    entry.AB = 3;
    entry.Listed = true;
    RegisterState rich = RegisterOf({});
    rich.Register(1) = entry;
    SetCount(rich, 1);
    EXPECT_EQ(Written(rich), Written(plain));
    EXPECT_EQ(rich.Register(1), entry);
}

TEST(WritePhonebookFile, CharactersAreWindows1252WithoutConversion) {
    RegisterState state = RegisterOf({Entry(u"äöüßÄÖÜéè^°§âêô€", u"ü", u"ß\u0081")});
    EXPECT_EQ(Written(state), Identification + "N=\xE4\xF6\xFC\xDF\xC4\xD6\xDC\xE9\xE8^\xB0\xA7"
                                               "\xE2\xEA\xF4\x80\r\nP=\xFC\r\nI=\xDF\x81\r\n"
                                               "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\n");
}

TEST(WritePhonebookFile, ARegisterWithoutEntriesIsTheIdentificationAlone) {
    RegisterState state = RegisterOf({});
    EXPECT_EQ(Written(state), Identification);
}

TEST(WritePhonebookFile, AFullRegisterIsWrittenWhole) {
    RegisterState state;
    SetCount(state, RegisterPlaces);
    const std::string file = Written(state);
    EXPECT_EQ(file.size(), Identification.size() + 2000 * 8 * std::string_view("N=\r\n").size());
}

TEST(WritePhonebookFile, MarksTheRegisterAsSavedAndLeavesTheCurrentFile) {
    RegisterState state = RegisterOf({Entry(u"a", u"1", u"x")});
    state.RegisterSaved = false;
    state.LoadedModel = u"195";
    state.File.Type = u"195";
    state.File.Path = "/alt.t9t";
    const Contents before = ContentsOf(state);
    Written(state);
    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_EQ(state.LoadedModel, u"195");
    EXPECT_EQ(state.File.Type, u"195");
    EXPECT_EQ(state.File.Path, FilePath("/alt.t9t"));
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST(WritePhonebookFile, OverwritesTheFile) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.pbo", std::string(9000, 'x'));
    RegisterState state = RegisterOf({});
    ScriptedDesktop desktop;
    WritePhonebookFile(state, path, desktop);
    EXPECT_EQ(ReadFile(path), Raw("'norvik 175 phonebook' 0D 0A"));
}

TEST(WritePhonebookFile, ATextThatTheFileCannotHoldRaisesError5AndIsNoSave) {
    const TestFolder folder;
    RegisterState state = RegisterOf({Entry(u"Жук")});
    state.RegisterSaved = false;
    ScriptedDesktop desktop;
    try {
        WritePhonebookFile(state, folder / "a.pbo", desktop);
        ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::InvalidArgument);
    }
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{});
}

TEST(WritePhonebookFile, AFileThatCannotBeCreatedLeavesInfoAsItIs) {
    const TestFolder folder;
    RegisterState state = RegisterOf({Entry(u"a", u"1", u" x ")});
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    EXPECT_THROW(WritePhonebookFile(state, folder.Path(), desktop), RuntimeError);
    EXPECT_TRUE(ContentsOf(state) == before);
}

}  // namespace
}  // namespace norvik::test
