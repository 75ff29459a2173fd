// Where a call list comes from and goes to, and what happens when it cannot.
#include "formats/calllist/calllist.h"

#include "base/runtimeerror.h"
#include "tests/formats/calllist/calllistbytes.h"
#include "tests/support/processlimits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view OneCall = "02 01 06 0A '0512241830' 06 03 '030' 02 01 00";
const std::string OneLine = "00;24.12.2005 18:30;2;030\r\n";

constexpr TextView AtAndOf = u"24.12.2005 18:30 030";

class CallListFiles : public testing::Test {
  protected:
    /// The number of the error that the conversion of `file` raises; 0 for none.
    int ErrorOfConverting(const FilePath& file) {
        try {
            ConvertCallList(file, desktop);
        } catch (const RuntimeError& error) {
            return static_cast<int>(error.Number());
        }
        return 0;
    }
    [[nodiscard]] std::string Read(const FilePath& name) const {
        const Bytes bytes = ReadFile(folder / name);
        return {bytes.begin(), bytes.end()};
    }

    /// The transcript's line of the question whether to replace the output.
    [[nodiscard]] std::string Replace(const std::string& answer) const {
        return "replace " + (folder / "anrufe.csv").string() + " -> " + answer;
    }

    TestFolder folder;
    ScriptedDesktop desktop;
};

TEST_F(CallListFiles, TheFirstPointMayStandInAFoldersName) {
    desktop.AnswerText(u"2");
    ConvertCallList(folder.Write(FilePath("my.data") / "calls.t9a", CallListOf(OneCall)), desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(MsnQuestion(u"24.12.2005 18:30 030", "\"2\""),
                                                SavedBox(folder / "my.csv")));
    EXPECT_EQ(Read("my.csv"), OneLine);
    EXPECT_FALSE(fs::exists(folder / "my.data" / "calls.csv"));
}

TEST_F(CallListFiles, AFileOfTheOutputsNameIsReplacedWhenTheUserWantsIt) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    folder.Write("anrufe.csv", std::string(1000, 'x'));
    desktop.AnswerReplace(true).AnswerText(u"2");
    EXPECT_TRUE(ConvertCallList(input, desktop));
    EXPECT_THAT(desktop.Transcript, ElementsAre(Replace("yes"), MsnQuestion(AtAndOf, "\"2\""),
                                                SavedBox(folder / "anrufe.csv")));
    EXPECT_EQ(Read("anrufe.csv"), OneLine);
}

TEST_F(CallListFiles, AFileOfTheOutputsNameThatIsNotToBeReplacedEndsTheConversionSilently) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    folder.Write("anrufe.csv", "alt");
    desktop.AnswerReplace(false);
    EXPECT_FALSE(ConvertCallList(input, desktop));
    EXPECT_THAT(desktop.Transcript, ElementsAre(Replace("no")));
    EXPECT_EQ(Read("anrufe.csv"), "alt");
}

TEST_F(CallListFiles, TheCallListStaysAsItIs) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    desktop.AnswerText(u"2");
    ConvertCallList(input, desktop);
    EXPECT_EQ(ReadFile(input), CallListOf(OneCall));
}

TEST_F(CallListFiles, CharactersThatTheBoxCannotShowBecomeQuestionMarks) {
    const FilePath input = folder.Write(FilePath(u"Жук ü.t9a"), CallListOf("00"));
    ConvertCallList(input, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(SavedBox(folder / FilePath(u"??? ü.csv"))));
    EXPECT_TRUE(fs::exists(folder / FilePath(u"Жук ü.csv")));
}

// The output would be the call list itself

TEST_F(CallListFiles, AnOutputThatIsTheInputRaisesError55BeforeAnythingIsWritten) {
    const FilePath input = folder.Write("anrufe.csv", CallListOf(OneCall));
    EXPECT_EQ(ErrorOfConverting(input), 55);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_EQ(ReadFile(input), CallListOf(OneCall));
}

TEST_F(CallListFiles, AnOutputThatIsALinkToTheInputRaisesError55) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    fs::create_symlink("anrufe.t9a", folder / "anrufe.csv");
    EXPECT_EQ(ErrorOfConverting(input), 55);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_EQ(ReadFile(input), CallListOf(OneCall));
    EXPECT_TRUE(fs::is_symlink(folder / "anrufe.csv"));
}

TEST_F(CallListFiles, AnInputThatIsALinkToTheOutputRaisesError55) {
    const FilePath output = folder.Write("anrufe.csv", CallListOf(OneCall));
    fs::create_symlink("anrufe.csv", folder / "anrufe.t9a");
    EXPECT_EQ(ErrorOfConverting(folder / "anrufe.t9a"), 55);
    EXPECT_EQ(ReadFile(output), CallListOf(OneCall));
}

TEST_F(CallListFiles, AnOutputThatIsTheSameFileUnderAnotherNameRaisesError55) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    fs::create_hard_link(input, folder / "anrufe.csv");
    EXPECT_EQ(ErrorOfConverting(input), 55);
    EXPECT_EQ(ReadFile(input), CallListOf(OneCall));
}

TEST_F(CallListFiles, AFolderWithAPointThroughWhichTheOutputIsTheInputRaisesError55) {
    fs::create_directory(folder / "daten.alt");
    const FilePath other = folder.Write("daten.csv", CallListOf(OneCall));
    fs::create_symlink(other, folder / "daten.alt" / "anrufe.t9a");
    EXPECT_EQ(ErrorOfConverting(folder / "daten.alt" / "anrufe.t9a"), 55);
    EXPECT_EQ(ReadFile(other), CallListOf(OneCall));
}

TEST_F(CallListFiles, AMissingInputWithTheOutputsNameIsMissing) {
    EXPECT_EQ(ErrorOfConverting(folder / "anrufe.csv"), 53);
    EXPECT_FALSE(fs::exists(folder / "anrufe.csv"));
}

TEST_F(CallListFiles, AnOutputThatIsALinkToAnotherFileIsWrittenThere) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    folder.Write("woanders.txt", "alt");
    fs::create_symlink("woanders.txt", folder / "anrufe.csv");
    desktop.AnswerReplace(true).AnswerText(u"2");
    EXPECT_EQ(ErrorOfConverting(input), 0);
    EXPECT_EQ(Read("woanders.txt"), OneLine);
}

// Files that cannot be opened

TEST_F(CallListFiles, AnInputThatCannotBeReadLeavesAnOldOutputAsItWas) {
    folder.Write("anrufe.csv", "alt");
    EXPECT_EQ(ErrorOfConverting(folder / "anrufe.t9a"), 53);
    EXPECT_EQ(ErrorOfConverting(folder / "fehlt" / "anrufe.t9a"), 76);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    EXPECT_EQ(Read("anrufe.csv"), "alt");
}

TEST_F(CallListFiles, AnOutputThatIsAFolderRaisesError75) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    fs::create_directory(folder / "anrufe.csv");
    EXPECT_EQ(ErrorOfConverting(input), 75);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
}

#ifndef _WIN32
TEST_F(CallListFiles, AnOutputThatIsAPipeWithoutAReaderRaisesError75) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    ASSERT_EQ(mkfifo((folder / "anrufe.csv").c_str(), 0600), 0);
    desktop.AnswerReplace(true);
    EXPECT_EQ(ErrorOfConverting(input), 75);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Replace("yes")));
}

TEST_F(CallListFiles, AnOutputWithoutPermissionRaisesError70AndStaysAsItWas) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    const FilePath output = folder.Write("anrufe.csv", "alt");
    fs::permissions(output, fs::perms::owner_read);
    desktop.AnswerReplace(true);
    {
        const AsAnyUser anyUser;
        EXPECT_EQ(ErrorOfConverting(input), 70);
    }
    EXPECT_THAT(desktop.Transcript, ElementsAre(Replace("yes")));
    EXPECT_EQ(Read("anrufe.csv"), "alt");
}

#endif

TEST_F(CallListFiles, TheHeaderIsNotWarnedAboutBeforeTheOutputStands) {
    const FilePath input = folder.Write("anrufe.t9a", Raw("06 0D 'TStCollection' 02 64 01 00"));
    fs::create_directory(folder / "anrufe.csv");
    EXPECT_EQ(ErrorOfConverting(input), 75);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
}

#ifndef _WIN32
TEST_F(CallListFiles, AFullDiskRaises61AfterTheQuestions) {
    if (!fs::exists("/dev/full")) {
        GTEST_SKIP() << "needs /dev/full";
    }
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    fs::create_symlink("/dev/full", folder / "anrufe.csv");
    desktop.AnswerReplace(true).AnswerText(u"2");
    EXPECT_EQ(ErrorOfConverting(input), 61);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Replace("yes"), MsnQuestion(AtAndOf, "\"2\"")));
}

TEST_F(CallListFiles, WritingThatFailsAtAnyByteIsNeverCalledSaved) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    for (std::size_t room = 0; room < OneLine.size(); ++room) {
        SCOPED_TRACE(room);
        desktop.Transcript.clear();
        desktop.AnswerText(u"2");
        fs::remove(folder / "anrufe.csv");
        {
            const FileSizeLimit limit(room);
            EXPECT_EQ(ErrorOfConverting(input), 57);
        }
        EXPECT_THAT(desktop.Transcript, ElementsAre(MsnQuestion(u"24.12.2005 18:30 030", "\"2\"")));
        EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"anrufe.t9a"});
    }
}

#endif

TEST_F(CallListFiles, AFileOf64MiBIsStillRead) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    fs::resize_file(input, MaximumFileSize);
    desktop.AnswerText(u"2");
    EXPECT_EQ(ErrorOfConverting(input), 0);
    EXPECT_EQ(Read("anrufe.csv"), OneLine);
}

}  // namespace
}  // namespace norvik::test
