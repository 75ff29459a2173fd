// The file that the desktop hands over at start: loaded like a start file, under any path.

#include "mainwindow/startup.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using Transcript = std::vector<std::string>;
using NameList = std::vector<Text>;

const Bytes Header = Raw("06 0D 'TStCollection' 02 64 01");
const Bytes Anna = Raw("02 01 02 02 06 04 'Anna' 06 03 '111' 06 02 '()' 02 85 02 0F 02 07 02 01");
const Bytes Bernd = Raw("02 00 02 01 06 05 'Bernd' 06 03 '222' 06 00 02 00 02 0F 02 00 02 00");
const Bytes End = Raw("00");

class GivenFile : public testing::Test {
  protected:
    /// A start with the given file: what it shows and the register that it leaves.
    struct Start {
        Program Prog;
        ScriptedDesktop Desktop;
    };

    /// Starts `start` with a settings file of these lines.
    void Run(Start& start, const FilePath& file, std::string_view settings = "[common]\r\n",
             TextView commandLine = u"") const {
        start.Prog.Folder = Folder.Path();
        Folder.Write("norvik.ini", settings);
        StartUp(start.Prog, commandLine, start.Desktop, file);
    }

    /// The boxes of a start that cannot load its file.
    [[nodiscard]] Transcript FailingStart(const FilePath& file) const {
        Start start;
        Run(start, file);
        EXPECT_EQ(start.Prog.State.AnzGes, 1);
        EXPECT_TRUE(start.Prog.State.WarnLineAccessZero);
        Transcript boxes;
        for (const std::string& line : start.Desktop.Transcript) {
            if (line.starts_with("box")) {
                boxes.push_back(line);
            }
        }
        return boxes;
    }

    TestFolder Folder;
};

TEST_F(GivenFile, DoesAllThatAStartFileDoes) {
    const FilePath path = Folder.Write("reg.t9t", Join({Header, Bernd, Anna, End}));
    Start given;
    Run(given, path);
    Start named;
    Run(named, {}, "LoadFile=" + path.string() + "\r\n");
    EXPECT_EQ(given.Desktop.Transcript, named.Desktop.Transcript);
    EXPECT_EQ(ContentsOf(given.Prog.State), ContentsOf(named.Prog.State));
    EXPECT_EQ(Names(given.Prog.State), (NameList{u"Anna", u"Bernd"}));
    EXPECT_EQ(given.Prog.State.File.Path, path);
    EXPECT_EQ(given.Prog.State.File.Type, u"195");
    EXPECT_TRUE(given.Prog.State.RegisterSaved);
    EXPECT_TRUE(given.Prog.State.WarnLineAccessZero);
}

TEST_F(GivenFile, TakesThePlaceOfTheStartFilesOfSettingsAndCommandLine) {
    const FilePath path = Folder.Write("reg.t9t", Join({Header, Anna, End}));
    const FilePath other = Folder.Write("andere.t9t", Join({Header, Bernd, End}));
    Start start;
    Run(start, path, "LoadFile=" + other.string() + "\r\n",
        u"/l" + TextFromPath(other) + u" /g0,15");
    EXPECT_EQ(Names(start.Prog.State), (NameList{u"Anna"}));
    EXPECT_EQ(start.Prog.Set.UnitPrice, 0.15);
    EXPECT_EQ(start.Prog.Set.StartFile, u"");
    EXPECT_FALSE(start.Prog.Set.AutoloadFlag);
}

TEST_F(GivenFile, OfThe175AndAsTextAreLoadedByTheirEndingsInAnyCase) {
    Start phonebook;
    Run(phonebook, Folder.Write("A.PBO", "norvik 175 phonebook\r\nN=Anna\r\nP=111\r\n"
                                         "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\n"));
    EXPECT_EQ(Names(phonebook.Prog.State), (NameList{u"Anna"}));
    EXPECT_EQ(phonebook.Prog.State.File.Type, u"175");
    Start text;
    Run(text, Folder.Write("A.Csv", "Name;Tel\r\nAnna;111\r\n"));
    EXPECT_EQ(text.Prog.State.File.Type, u"CSV");
    EXPECT_EQ(Names(text.Prog.State), (NameList{u"Anna"}));
    Start contacts;
    Run(contacts, Folder.Write("A.VCF", "BEGIN:VCARD\nFN:Anna\nTEL:+49 111\nEND:VCARD\n"),
        "[common]\r\nCountryCode=49\r\n");
    EXPECT_EQ(contacts.Prog.State.File.Type, u"vCard");
    EXPECT_EQ(Names(contacts.Prog.State), (NameList{u"Anna"}));
    EXPECT_EQ(EntryAt(contacts.Prog.State, 1).Tel, u"0111");
}

TEST_F(GivenFile, IsNotMistakenForAnotherOfTheSameLetters) {
    Folder.Write("reg.t9t", Join({Header, Bernd, End}));
    const FilePath path = Folder.Write("REG.t9t", Join({Header, Anna, End}));
    Start start;
    Run(start, path);
    EXPECT_EQ(Names(start.Prog.State), (NameList{u"Anna"}));
    std::filesystem::remove(path);
    EXPECT_EQ(FailingStart(path), Transcript{OkBox(u"mnuLade193195: 53Datei nicht gefunden", u"")});
}

TEST_F(GivenFile, OfAnotherEndingGivesTheAutoloadMessageWithItsPath) {
    EXPECT_EQ(FailingStart(Folder / u8"Büro, Ω.TXT"),
              Transcript{OkBox(TextFromPath(Folder / "") +
                                   u"Büro, ?.TXT kann nicht automatisch geladen werden",
                               u"Autoload", "Critical")});
}

/// Names that a word of the command line cannot hold, or that could be taken for something else.
class GivenFileName : public GivenFile, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(Names, GivenFileName,
                         testing::Values("Mein Register, neu.t9t", "  .t9t", "Büro Ü ß.T9T",
                                         "Ω→日本.t9t", "\xFC \xDF.t9t", "\"in\" 'Zeichen'.t9t",
                                         "a /l b/g0,5.t9t", "-rf.t9t", "--datei.t9t",
                                         "%f $HOME.t9t", "a\nb.t9t", "c:\\x\\y.t9t", "#D.t9t",
                                         "t9t"));

TEST_P(GivenFileName, IsLoaded) {
    const FilePath path = Folder.Write(GetParam(), Join({Header, Anna, End}));
    Start start;
    Run(start, path);
    EXPECT_EQ(Names(start.Prog.State), (NameList{u"Anna"}));
    EXPECT_EQ(start.Prog.State.File.Path, path);
}

}  // namespace
}  // namespace norvik::test
