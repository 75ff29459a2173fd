// LoadRegisterFile as a whole: its messages, what it leaves behind, its failures.
#include "formats/registerfile/registerfile.h"
#include "formats/registerfile/registerfilereader.h"

#include "tests/formats/registerfile/registerfilebytes.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace norvik::test {

namespace {

using testing::ElementsAre;

const std::string DeviantHeader = OkBox(u"Abweichender Header", u"norvik 195 laden", "Exclamation");

Bytes Record(const std::string& name) {
    return Raw("0200 0201 06 01 '" + name + "' 06 01 '1' 06 00 0200 020F 0200 0200");
}

/// A register as another file left it.
RegisterState Loaded() {
    RegisterState state = RegisterOf({Entry(u"old1", u"1", u"()"), Entry(u"old2"), Entry(u"old3")});
    state.RegisterOrder(1) = 3;
    state.RegisterOrder(3) = 1;
    state.LoadedModel = u"175";
    state.File.Type = u"175";
    state.File.Path = "/old.pbo";
    state.LoadReport = LongReport(u"old\r\n");
    state.Register(1).Listed = true;
    return state;
}

TEST(LoadRegisterFile, ShowsItsWorkInThisOrder) {
    const TestFolder folder;
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    LoadRegisterFile(state, folder.Write("a.t9t", FileOf({Record("a"), Record("b")})), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre("pointer Hourglass", "pointer Normal", "list", "file"));
    EXPECT_EQ(state.AnzGes, 2);
    EXPECT_EQ(state.Satzwahl.Maximum, 2);
    EXPECT_EQ(state.AnzMarkiert, 0);
    EXPECT_THAT(Names(state), ElementsAre(u"a", u"b"));
}

TEST(LoadRegisterFile, ReplacesTheWholeRegister) {
    const TestFolder folder;
    RegisterState state = Loaded();
    state.Register(2000).Name = u"last";
    ScriptedDesktop desktop;
    LoadRegisterFile(state, folder.Write("a.t9t", FileOf({Record("a")})), desktop);

    RegisterEntry expected = Entry(u"a", u"1");
    expected.RecNumber = 1;
    EXPECT_EQ(state.Register(1), expected);
    for (int place = 2; place <= RegisterPlaces; ++place) {
        RegisterEntry empty;
        empty.RecIndex = static_cast<std::int16_t>(place - 1);
        ASSERT_EQ(state.Register(place), empty) << place;
        ASSERT_EQ(state.RegisterOrder(place), place);
    }
}

TEST(LoadRegisterFile, RemembersModelPathAndDateOfTheFile) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", FileOf({Record("a")}));
    const FileTime time{std::chrono::seconds{1'000'000'000}};
    std::filesystem::last_write_time(path, std::chrono::file_clock::from_sys(time));
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    desktop.OnRebuildList = [&] { EXPECT_EQ(state.AnzGes, 1); };

    LoadRegisterFile(state, path, desktop);

    EXPECT_EQ(state.LoadedModel, u"195");
    EXPECT_EQ(state.File.Modified, std::optional<FileTime>(time));
}

TEST(LoadRegisterFile, ShowsTheNewFileAndNotTheOldOne) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", FileOf({Record("a")}));
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    int shown = 0;
    desktop.OnShowCurrentFile = [&] {
        ++shown;
        EXPECT_EQ(state.File.Type, u"195");
        EXPECT_EQ(state.File.Path, path);
        EXPECT_EQ(state.File.Modified, LastModified(path));
    };
    LoadRegisterFile(state, path, desktop);
    EXPECT_EQ(shown, 1);
}

TEST(ShowFindings, AreShownOnceInABoxOfTheirOwn) {
    RegisterState state;
    state.LoadReport = LongReport(u"erstens\r\nzweitens\r\n");
    ScriptedDesktop desktop;
    ShowFindings(state, desktop);
    ShowFindings(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(OkBox(u"erstens\r\nzweitens\r\n", u"Debugs beim Einlesen")));
    EXPECT_EQ(state.LoadReport, u"");
}

TEST(LoadRegisterFile, A193FileIsShownAs193) {
    const TestFolder folder;
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    LoadRegisterFile(
        state,
        folder.Write("a.t9t", FileOf({Raw("0200 0201 06 01 'a' 06 00 0200 0200 0200 0200")})),
        desktop);
    EXPECT_EQ(state.LoadedModel, u"193");
    EXPECT_EQ(state.File.Type, u"193");
}

TEST(LoadRegisterFile, TheModelIsDecidedAnewByEveryFile) {
    const TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
    state.LoadedModel = u"193";
    LoadRegisterFile(state, folder.Write("a.t9t", FileOf({Record("a")})), desktop);
    EXPECT_EQ(state.LoadedModel, u"195");
}

TEST(LoadRegisterFile, AFileOfHeaderAndEndByteIsAnEmpty195Register) {
    const TestFolder folder;
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    LoadRegisterFile(state, folder.Write("a.t9t", FileOf({})), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre("pointer Hourglass", "pointer Normal", "list", "file"));
    EXPECT_EQ(state.AnzGes, 0);
    EXPECT_EQ(state.Satzwahl.Maximum, 1);
    EXPECT_EQ(state.LoadedModel, u"195");
}

TEST(LoadRegisterFile, ADeviantHeaderOnlyWarns) {
    for (std::size_t at = 0; at < 18; ++at) {
        const TestFolder folder;
        Bytes bytes = FileOf({Record("a")});
        bytes[at] ^= 0x20U;
        RegisterState state;
        ScriptedDesktop desktop;
        LoadRegisterFile(state, folder.Write("a.t9t", bytes), desktop);
        EXPECT_THAT(desktop.Transcript, ElementsAre(DeviantHeader, "pointer Hourglass",
                                                    "pointer Normal", "list", "file"))
            << at;
        EXPECT_THAT(Names(state), ElementsAre(u"a"));
    }
}

TEST(LoadRegisterFile, AShorterFileThanTheHeaderWarnsAndIsEmpty) {
    for (const std::string bytes : {"", "06", "06 0D 'TStCollection' 02 64"}) {
        const TestFolder folder;
        RegisterState state = Loaded();
        ScriptedDesktop desktop;
        LoadRegisterFile(state, folder.Write("a.t9t", Raw(bytes)), desktop);
        EXPECT_THAT(desktop.Transcript, ElementsAre(DeviantHeader, "pointer Hourglass",
                                                    "pointer Normal", "list", "file"));
        EXPECT_EQ(state.AnzGes, 0);
        EXPECT_EQ(state.LoadedModel, u"195");
    }
}

TEST(LoadRegisterFile, TheCheckComesBehindTheListAndBeforeTheFileIsShown) {
    const TestFolder folder;
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    LoadRegisterFile(
        state,
        folder.Write("a.t9t", FileOf({Raw("0207 0208 06 01 'a' 06 00 06 00 03 D5 00 020F "
                                          "03 40 9C 0209")})),
        desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre("pointer Hourglass", "pointer Normal", "list",
                                                OkBox(u"Es wurden 3 Fehler korrigiert\r\n\r\n"
                                                      u"#7[a] Gebührenzähler zu hoch: 40000\r\n"
                                                      u"#7[a] Ansage zu hoch: 9\r\n"
                                                      u"#7[a] Klang zu hoch: 213\r\n",
                                                      u"Fehlerprüfung", "Information"),
                                                "file"));
    EXPECT_EQ(state.Register(1).GebEinh, 40000);
    EXPECT_EQ(state.Register(1).AB, 0);
    EXPECT_EQ(state.Register(1).Ton, 0);
}

TEST(LoadRegisterFile, TheReportOfTheLoadBeforeIsForgotten) {
    const TestFolder folder;
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    LoadRegisterFile(state, folder.Write("a.t9t", FileOf({Record("a")})), desktop);
    EXPECT_EQ(state.LoadReport, u"");
}

TEST(LoadRegisterFile, LeavesRegisterSavedAndTheWarningFlagAsTheyAre) {
    for (const bool value : {true, false}) {
        const TestFolder folder;
        RegisterState state = Loaded();
        state.RegisterSaved = value;
        state.WarnLineAccessZero = value;
        ScriptedDesktop desktop;
        LoadRegisterFile(state, folder.Write("a.t9t", FileOf({Record("a")})), desktop);
        EXPECT_EQ(state.RegisterSaved, value);
        EXPECT_EQ(state.WarnLineAccessZero, value);
    }
}

// The trace

TEST(LoadRegisterFile, TheTraceHoldsTheLast15BytesAsHexadecimalDigits) {
    const TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
    LoadRegisterFile(
        state,
        folder.Write("a.t9t", FileOf({Raw("0200 0201 06 01 'a' 06 02 '1z' 06 00 0200 020F "
                                          "02 AB 0200")})),
        desktop);
    EXPECT_EQ(state.ReadTrace, u"0602317A06000200020F02AB020000");
}

TEST(LoadRegisterFile, BytesBehindTheEndByteAreNotReadAndNotTraced) {
    const TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
    LoadRegisterFile(state, folder.Write("a.t9t", Join({FileOf({}), Raw("DE AD BE EF")})), desktop);
    EXPECT_EQ(state.ReadTrace, u"74436F6C6C656374696F6E02640100");
}

TEST(LoadRegisterFile, AShortReadKeepsTheEndOfTheTraceBefore) {
    const TestFolder folder;
    RegisterState state;
    state.ReadTrace = u"00112233445566778899AABBCCDDEE";
    ScriptedDesktop desktop;
    LoadRegisterFile(state, folder.Write("a.t9t", Raw("01 02 FF")), desktop);
    EXPECT_EQ(state.ReadTrace, u"33445566778899AABBCCDDEE0102FF");
}

// Failures

std::string ReaderError(TextView numberAndDescription) {
    return OkBox(Text(u"mnuLade193195: ").append(numberAndDescription), u"");
}

TEST(LoadRegisterFile, AMissingFileEmptiesTheRegisterAndEndsTheReader) {
    const TestFolder folder;
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    LoadRegisterFile(state, folder / "a.t9t", desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(ReaderError(u"53Datei nicht gefunden")));
    EXPECT_EQ(state.AnzGes, 3);
    EXPECT_EQ(state.Register(1), RegisterEntry());
    EXPECT_EQ(state.RegisterOrder(1), 1);
    EXPECT_EQ(state.LoadReport, u"");
    EXPECT_EQ(state.LoadedModel, u"175");
    EXPECT_EQ(state.File.Path, FilePath("/old.pbo"));
}

TEST(LoadRegisterFile, AFolderAndAMissingFolderHaveNumbersOfTheirOwn) {
    const TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
    LoadRegisterFile(state, folder.Path(), desktop);
    LoadRegisterFile(state, folder / "x" / "a.t9t", desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(ReaderError(u"75Fehler beim Zugriff auf Pfad/Datei"),
                            ReaderError(u"76Pfad nicht gefunden")));
}

TEST(LoadRegisterFile, AnErrorWhileReadingIsADeviceError) {
    const FilePath unreadable = "/proc/self/mem";
    if (!std::filesystem::is_regular_file(unreadable)) {
        GTEST_SKIP() << "needs " << unreadable;
    }
    RegisterState state;
    ScriptedDesktop desktop;
    LoadRegisterFile(state, unreadable, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(ReaderError(u"57E/A-Fehler beim Zugriff auf ein Gerät")));
}

TEST(LoadRegisterFile, AValueTooLargeLeavesTheEntriesReadSoFarAndShowsTheWholeOnes) {
    const TestFolder folder;
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    const Bytes tooLarge = Raw("0201 0202 06 01 'b' 06 01 '2' 06 01 'i' 02 05 03 00 80 0200 0200");
    LoadRegisterFile(state, folder.Write("a.t9t", FileOf({Record("a"), tooLarge, Record("c")})),
                     desktop);

    EXPECT_THAT(desktop.Transcript, ElementsAre("pointer Hourglass", ReaderError(u"6Überlauf"),
                                                "file", "entry", "list"));
    EXPECT_EQ(state.File.Path, folder / "a.t9t");
    EXPECT_EQ(state.File.Modified, LastModified(folder / "a.t9t"));
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.Satzwahl.Maximum, 1);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_EQ(state.Register(1).Name, u"a");
    EXPECT_EQ(state.Register(2).Name, u"b");
    EXPECT_EQ(state.Register(2).Info, u"i");
    EXPECT_EQ(state.Register(2).Ton, 5);
    EXPECT_EQ(state.Register(3).Name, u"");
    EXPECT_EQ(state.File.Type, u"195");
    EXPECT_EQ(state.LoadedModel, u"195");
}

TEST(LoadRegisterFile, AFirstRecordThatFailsIsTheOneEntryShown) {
    const TestFolder folder;
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    const Bytes tooLarge = Raw("0200 0201 06 01 'a' 06 01 '1' 02 05 03 00 80 0200 0200");
    LoadRegisterFile(state, folder.Write("a.t9t", FileOf({tooLarge})), desktop);
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_THAT(Names(state), ElementsAre(u"a"));
    EXPECT_EQ(state.File.Type, u"193");
}

TEST(LoadRegisterFile, TwoThousandRecordsLoadWithoutAnError) {
    const TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
    LoadRegisterFile(state, folder.Write("a.t9t", FileOfMany(2000)), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre("pointer Hourglass", "pointer Normal", "list", "file"));
    EXPECT_EQ(state.AnzGes, 2000);
    EXPECT_EQ(state.Register(2000).Name, u"x");
}

TEST(LoadRegisterFile, TwoThousandRecordsWithoutTheEndByteLoadToo) {
    const TestFolder folder;
    Bytes bytes = FileOfMany(2000);
    bytes.pop_back();
    RegisterState state;
    ScriptedDesktop desktop;
    LoadRegisterFile(state, folder.Write("a.t9t", bytes), desktop);
    EXPECT_EQ(desktop.Transcript.back(), "file");
    EXPECT_EQ(state.AnzGes, 2000);
}

TEST(LoadRegisterFile, The2001stRecordRaisesError9AndTheFirst2000Remain) {
    const TestFolder folder;
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    LoadRegisterFile(state, folder.Write("a.t9t", FileOfMany(2001)), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre("pointer Hourglass",
                            ReaderError(u"9Index außerhalb des gültigen Bereichs"), "file", "entry",
                            "list"));
    EXPECT_EQ(state.AnzGes, 2000);
    for (int place = 1; place <= RegisterPlaces; ++place) {
        ASSERT_EQ(state.Register(place).Name, u"x") << place;
    }
}

TEST(LoadRegisterFile, AWrongStringTagEndsTheProgramWithoutAMessage) {
    for (const std::string record :
         {"0200 0201 05 01 'a' 06 00 06 00", "0200 0201 06 01 'a' 02 00"}) {
        const TestFolder folder;
        RegisterState state;
        ScriptedDesktop desktop;
        EXPECT_THROW(LoadRegisterFile(state, folder.Write("a.t9t", FileOf({Raw(record)})), desktop),
                     HardStop);
        EXPECT_THAT(desktop.Questions(), testing::IsEmpty());
    }
}

}  // namespace

}  // namespace norvik::test
