// The entries of phonebook files with wrong keys, and of files cut short.
#include "formats/phonebook175/phonebookfile.h"

#include "base/lines.h"
#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/stepclock.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using Lines = std::vector<std::string>;

const std::string Identification = "norvik 175 phonebook\r\n";
const std::string Anna = "N=Anna\r\nP=1\r\nI=a1\r\nI=a2\r\nI=a3\r\nI=a4\r\nI=a5\r\nI=a6\r\n";
const std::string Bernd = "N=Bernd\r\nP=2\r\nI=b1\r\nI=b2\r\nI=b3\r\nI=b4\r\nI=b5\r\nI=b6\r\n";

const std::string CorruptBoxWithoutAnswer =
    "box \"175-Datei korrupt, Lesen abgebrochen\" title \"Fehlermeldung\" icon Critical "
    "buttons Ok default Ok";
const std::string CorruptBox = CorruptBoxWithoutAnswer + " -> Ok";

/// From the fourth on each offers to answer the others alike.
Lines CorruptBoxes(std::size_t count) {
    Lines lines(count, CorruptBoxWithoutAnswer + " offering for all -> Ok");
    std::fill_n(lines.begin(), std::min<std::size_t>(count, 3), CorruptBox);
    return lines;
}

RegisterState Loaded() {
    RegisterState state =
        RegisterOf({Entry(u"old1", u"1", u" x "), Entry(u"old2"), Entry(u"old3")});
    state.LoadedModel = u"195";
    state.File.Type = u"195";
    state.File.Path = "/old.t9t";
    state.AnzNr = 2;
    state.Satzwahl.Value = 2;
    return state;
}

RegisterEntry Entry175(int place, TextView name, TextView tel, TextView info) {
    RegisterEntry entry = Entry(name, tel, info);
    entry.RecIndex = static_cast<std::int16_t>(place);
    return entry;
}

Text InfoOf(std::initializer_list<TextView> lines) {
    Text info;
    for (const TextView line : lines) {
        info += PadOrCut(line, 21);
    }
    return info;
}

RegisterEntry WholeAnna() {
    return Entry175(1, u"Anna", u"1", InfoOf({u"a1", u"a2", u"a3", u"a4", u"a5"}) + u"a6");
}

/// What a whole load shows that brings the message `boxes` times.
Lines ReadingWith(std::size_t boxes) {
    Lines lines = {"pointer Hourglass"};
    for (const std::string& box : CorruptBoxes(boxes)) {
        lines.push_back(box);
    }
    for (const char* line : {"pointer Normal", "file", "list"}) {
        lines.emplace_back(line);
    }
    return lines;
}

/// Loads a file that is read to its end and gives the register, the transcript being as expected.
RegisterState Read(const std::string& file, std::size_t boxes) {
    const TestFolder folder;
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    EXPECT_TRUE(LoadPhonebookFile(state, folder.Write("a.pbo", file), desktop));
    EXPECT_EQ(desktop.Transcript, ReadingWith(boxes));
    EXPECT_EQ(state.LoadedModel, u"175");
    return state;
}

// Wrong keys

TEST(ACorruptPhonebookFile, WithAWrongNameKeyTakesEveryFurtherLineForAName) {
    const RegisterState state =
        Read(Identification + "X=Anna\r\nP=1\r\nI=1\r\nI=2\r\nI=3\r\nI=4\r\nI=5\r\nI=6\r\n", 8);
    EXPECT_EQ(state.AnzGes, 0);
    EXPECT_EQ(state.Register(1), RegisterEntry());
}

TEST(ACorruptPhonebookFile, WithAWrongNumberKeyKeepsTheEntriesBefore) {
    const RegisterState state = Read(
        Identification + Anna + "N=Carl\r\nQ=2\r\nI=1\r\nI=2\r\nI=3\r\nI=4\r\nI=5\r\nI=6\r\n", 7);
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.Register(1), WholeAnna());
}

TEST(ACorruptPhonebookFile, BringsTheMessageOncePerLaterRecordThatReachesItsFirstInfoLine) {
    // The wrong line, the three lines behind it, then in Bernd the first info line and the five
    // behind it.
    const RegisterState state =
        Read(Identification + Anna +
                 "N=Carl\r\nP=3\r\nI=c1\r\nI=c2\r\nJ=c3\r\nI=c4\r\nI=c5\r\nI=c6\r\n" + Bernd,
             1 + 3 + 1 + 5);
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.Register(1), WholeAnna());
    EXPECT_THAT(Order(state, 4), ElementsAre(1, 2, 3, 4));
}

TEST(ACorruptPhonebookFile, TakesNoFurtherEntryAfterTheFirstBadLine) {
    EXPECT_EQ(Read(Identification + "?\r\n" + Anna + Bernd, 1 + 6 + 6).AnzGes, 0);
    EXPECT_EQ(Read(Identification + Anna + "?\r\n" + Bernd, 1 + 6).AnzGes, 1);
    EXPECT_EQ(Read(Identification + Anna + Bernd + "?\r\n", 1).AnzGes, 2);
}

TEST(ACorruptPhonebookFile, IsOneWithAnEmptyLine) {
    EXPECT_EQ(Read(Identification + Anna + "\r\n", 1).AnzGes, 1);
    EXPECT_EQ(Read(Identification + "\r\n\r\n\r\n", 3).AnzGes, 0);
}

TEST(ACorruptPhonebookFile, IsOneWithAKeyOfAnotherSpelling) {
    for (const std::string line : {"n=Anna", " N=Anna", "N Anna", "N", "=N", "P=1", "I=x"}) {
        EXPECT_EQ(Read(Identification + line, 1).AnzGes, 0) << line;
    }
    EXPECT_EQ(Read(Identification + "N=a\r\np=1\r\n", 1).AnzGes, 0);
    EXPECT_EQ(Read(Identification + "N=a\r\nP=1\r\ni=\r\n", 1).AnzGes, 0);
}

TEST(ACorruptPhonebookFile, WithASeventhInfoLineIsCorruptFromThereOn) {
    const RegisterState state = Read(Identification + Anna + "I=a7\r\n" + Bernd, 1 + 6);
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.Register(1), WholeAnna());
}

TEST(ACorruptPhonebookFile, BegunAgainAndAgainKeepsAnInfoTextOf126Characters) {
    std::string file = Identification + "?\r\n";
    for (int i = 1; i <= 8; ++i) {
        file += "N=n\r\nP=1\r\nI=" + std::to_string(i) + "\r\n";
    }
    const RegisterState state = Read(file, 1 + 8);
    EXPECT_EQ(state.AnzGes, 0);
    EXPECT_EQ(state.Register(1).Info, InfoOf({u"1", u"2", u"3", u"4", u"5", u"6"}));
}

TEST(ACorruptPhonebookFile, BringsTheMessageForEveryOneOfManyLines) {
    std::string file = Identification;
    for (int i = 0; i < 3000; ++i) {
        file += "?\r\n";
    }
    EXPECT_EQ(Read(file, 3000).AnzGes, 0);
}

TEST(ACorruptPhonebookFile, BringsNoFurtherMessageOnceAllAreAnsweredAlike) {
    const TestFolder folder;
    std::string file = Identification + Anna;
    for (int i = 0; i < 3000; ++i) {
        file += "?\r\n";
    }
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    desktop.TickedOffer = 2;
    EXPECT_TRUE(LoadPhonebookFile(state, folder.Write("a.pbo", file), desktop));
    EXPECT_EQ(desktop.Questions().size(), 5U + 2U);
    EXPECT_EQ(desktop.Questions()[4], CorruptBoxWithoutAnswer + " offering for all -> Ok for all");
    EXPECT_EQ(state.AnzGes, 1);
}

// Cut short

/// The number of the error that loading raises, 0 for none; the file's register in `state`.
int ErrorOf(const std::string& file, RegisterState& state, ScriptedDesktop& desktop) {
    const TestFolder folder;
    try {
        LoadPhonebookFile(state, folder.Write("a.pbo", file), desktop);
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

TEST(APhonebookFile, ThatIsEmptyRaisesError62AndLeavesTheRegister) {
    RegisterState state = Loaded();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    EXPECT_EQ(ErrorOf("", state, desktop), 62);
    EXPECT_THAT(desktop.Transcript, testing::IsEmpty());
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_EQ(state.LoadedModel, u"195");
}

TEST(APhonebookFile, ThatEndsInsideAnEntryRaisesError62AndKeepsTheEntriesReadSoFar) {
    const Lines lines = {"N=Bernd\r\n", "P=2\r\n",  "I=b1\r\n", "I=b2\r\n",
                         "I=b3\r\n",    "I=b4\r\n", "I=b5\r\n"};
    std::string file = Identification + Anna;
    for (const std::string& line : lines) {
        file += line;
        RegisterState state = Loaded();
        ScriptedDesktop desktop;
        EXPECT_EQ(ErrorOf(file, state, desktop), 62) << line;
        EXPECT_THAT(desktop.Transcript, ElementsAre("pointer Hourglass"));
        EXPECT_EQ(state.Register(1), WholeAnna());
        EXPECT_EQ(state.Register(2).Name, u"Bernd");
        EXPECT_EQ(state.Register(3), [] {
            RegisterEntry empty;
            empty.RecIndex = 2;
            return empty;
        }());
        EXPECT_EQ(state.AnzGes, 3);
        EXPECT_EQ(state.Satzwahl.Maximum, 3);
        EXPECT_EQ(state.AnzNr, 2);
        EXPECT_EQ(state.LoadedModel, u"175");
        EXPECT_EQ(state.RecordsRead, 1);
        EXPECT_EQ(state.File.Type, u"175");
    }
}

TEST(APhonebookFile, ThatEndsInsideAKeyIsCorruptInstead) {
    EXPECT_EQ(Read(Identification + Anna + "N", 1).AnzGes, 1);
    EXPECT_EQ(Read(Identification + Anna + "N=Bernd\r\nP", 1).AnzGes, 1);
    EXPECT_EQ(Read(Identification + Anna + "N=Bernd\r\nP=2\r\nI", 1).AnzGes, 1);
}

TEST(ACorruptPhonebookFile, ThatEndsInsideAnEntryRaisesError62AfterItsMessages) {
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    EXPECT_EQ(ErrorOf(Identification + "?\r\nN=Anna\r\nP=1\r\n", state, desktop), 62);
    EXPECT_THAT(desktop.Transcript, ElementsAre("pointer Hourglass", CorruptBox));
    EXPECT_EQ(state.AnzGes, 3);
}

TEST(APhonebookFile, CutAtEveryByteIsReadOrRaisesError62) {
    const std::string whole = Identification + Anna + Bernd;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        RegisterState state = Loaded();
        ScriptedDesktop desktop;
        const int error = ErrorOf(whole.substr(0, length), state, desktop);
        ASSERT_TRUE(error == 0 || error == 62) << length;
        const bool bernd =
            state.Register(2) ==
            Entry175(2, u"Bernd", u"2", InfoOf({u"b1", u"b2", u"b3", u"b4", u"b5"}) + u"b6");
        ASSERT_EQ(bernd, length + 2 >= whole.size()) << length;
        if (length >= Identification.size() + Anna.size()) {
            ASSERT_EQ(state.Register(1), WholeAnna()) << length;
        }
    }
}

TEST(ReadPhonebookEntries, GivesTheNumberOfWholeEntries) {
    RegisterState state;
    ScriptedDesktop desktop;
    const std::string file = Anna + Bernd + "?\r\n" + Anna;
    LineReader lines(ByteView(reinterpret_cast<const Byte*>(file.data()), file.size()));
    EXPECT_EQ(ReadPhonebookEntries(state, lines, desktop), 2);
    EXPECT_EQ(desktop.Transcript, CorruptBoxes(1 + 6));
}

TEST(ReadPhonebookEntries, ALongLoadShowsHowFarItHasCome) {
    const std::string line = "I=" + std::string(32767, 'x') + "\r";
    std::string file;
    for (int entry = 0; entry < 2; ++entry) {
        file += "N=Anna\rP=1\r" + line + line + line + line + line + line;
    }
    RegisterState state;
    ScriptedDesktop desktop;
    LineReader lines(ByteView(reinterpret_cast<const Byte*>(file.data()), file.size()));
    EXPECT_EQ(ReadPhonebookEntries(state, lines, desktop, StepClock(std::chrono::seconds(1))), 2);
    EXPECT_THAT(desktop.Transcript, ElementsAre("status \"175-Datei wird gelesen... 50 %\"",
                                                "status \"175-Datei gelesen\""));
}

TEST(ReadPhonebookEntries, ALongLoadThatIsAbortedSaysSo) {
    const std::string line = "I=" + std::string(32767, 'x') + "\r";
    const std::string file =
        "N=Anna\rP=1\r" + line + line + line + line + line + line + "N=Bernd\r";
    RegisterState state;
    ScriptedDesktop desktop;
    LineReader lines(ByteView(reinterpret_cast<const Byte*>(file.data()), file.size()));
    EXPECT_THROW(ReadPhonebookEntries(state, lines, desktop, StepClock(std::chrono::seconds(1))),
                 RuntimeError);
    EXPECT_THAT(desktop.Transcript, ElementsAre("status \"175-Datei wird gelesen... 99 %\"",
                                                "status \"175-Datei nicht ganz gelesen\""));
}

}  // namespace
}  // namespace norvik::test
