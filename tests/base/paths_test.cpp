#include "base/paths.h"

#include "base/platform.h"
#include "tests/support/processlimits.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;

#ifndef _WIN32
void MakeReadOnly(const FilePath& path) {
    fs::permissions(path, fs::is_directory(path) ? fs::perms(0555) : fs::perms(0444));
}
#endif

TEST(IsSamePath, DependsOnTheCaseWhereNamesDo) {
    EXPECT_TRUE(IsSamePath("/r/a.t9t", "/r/a.t9t"));
    EXPECT_FALSE(IsSamePath("/r/a.t9t", "/r/b.t9t"));
    EXPECT_EQ(IsSamePath(u8"/r/Ä b.T9T", u8"/R/ä B.t9t"), !platform::DistinguishesCase());
}

TEST(FindIgnoringCase, AMissingFileFarBelowIsLookedForOnceInEachFolder) {
    const TestFolder folder;
    FilePath path = folder.Path();
    for (int i = 0; i < 40; ++i) {
        path /= "ordner";
    }
    fs::create_directories(path);
    EXPECT_EQ(FindIgnoringCase(path / "fehlt.lng"), path / "fehlt.lng");
}

TEST(FindIgnoringCase, APathThatExistsAsWrittenIsItself) {
    const TestFolder folder;
    const FilePath lower = folder.Write("reg.t9t", "1");
    const FilePath upper = folder.Write("REG.T9T", "2");
    EXPECT_EQ(FindIgnoringCase(lower), lower);
    EXPECT_EQ(FindIgnoringCase(upper), upper);
}

TEST(FindIgnoringCase, LooksFolderByFolder) {
    const TestFolder folder;
    const FilePath path = folder.Write(u8"Daten/Neue Register/Büro.T9T", "x");
    EXPECT_EQ(FindIgnoringCase(folder / u8"daten/neue register/büro.t9t"), path);
}

TEST(FindIgnoringCase, LettersBeyondAsciiCountToo) {
    const TestFolder folder;
    const FilePath path = folder.Write(u8"ÄRGER ŠŒŽŸ.T9T", "x");
    EXPECT_EQ(FindIgnoringCase(folder / u8"ärger šœžÿ.t9t"), path);
}

TEST(FindIgnoringCase, AFolderIsFoundLikeAFile) {
    const TestFolder folder;
    fs::create_directory(folder / "TonRuf");
    EXPECT_EQ(FindIgnoringCase(folder / "tonruf"), folder / "TonRuf");
}

TEST(FindIgnoringCase, WhereThereIsNoneItIsThePathAsWritten) {
    const TestFolder folder;
    folder.Write("Daten/anders.t9t", "x");
    EXPECT_EQ(FindIgnoringCase(folder / "daten/reg.t9t"), folder / "daten/reg.t9t");
    EXPECT_EQ(FindIgnoringCase(folder / "fehlt/reg.t9t"), folder / "fehlt/reg.t9t");
    EXPECT_EQ(FindIgnoringCase(FilePath()), FilePath());
}

TEST(FindIgnoringCase, OfSeveralTheFirstByCharacterCodesIsTaken) {
    const TestFolder folder;
    folder.Write("Reg.t9t", "1");
    folder.Write("REG.t9t", "2");
    folder.Write("rEG.t9t", "3");
    EXPECT_EQ(FindIgnoringCase(folder / "reg.t9t"), folder / "REG.t9t");
}

TEST(FindIgnoringCase, AFolderThatEqualsButDoesNotHoldTheFileHidesNoOther) {
    const TestFolder folder;
    folder.Write("DATEN/anders.t9t", "x");
    const FilePath path = folder.Write("Daten/reg.t9t", "x");
    EXPECT_EQ(FindIgnoringCase(folder / "daten/reg.t9t"), path);
}

TEST(FindIgnoringCase, ARelativePathIsLookedUpInTheWorkingFolder) {
    const TestFolder folder;
    folder.Write("Daten/Reg.T9T", "x");
    const WorkingFolder working(folder.Path());
    EXPECT_EQ(FindIgnoringCase("daten/reg.t9t"), FilePath("Daten/Reg.T9T"));
}

TEST(FindIgnoringCase, ANameThatIsNoValidUtf8DisturbsNothing) {
    const TestFolder folder;
    folder.Write(FilePath("r\xC3.t9t"), "1");
    const FilePath path = folder.Write("Reg.t9t", "2");
    EXPECT_EQ(FindIgnoringCase(folder / "reg.t9t"), path);
}

TEST(FindIgnoringCase, InAGivenFolderLooksThereAlone) {
    const TestFolder folder;
    folder.Write("PROGRAMM/Norvik.INI", "1");
    fs::create_directory(folder / "Programm");
    const FilePath given = folder / "Programm";
    EXPECT_EQ(FindIgnoringCase(given, "norvik.ini"), given / "norvik.ini");
    const FilePath path = folder.Write("Programm/NORVIK.ini", "2");
    EXPECT_EQ(FindIgnoringCase(given, "norvik.ini"), path);
    const FilePath exact = folder.Write("Programm/norvik.ini", "3");
    EXPECT_EQ(FindIgnoringCase(given, "norvik.ini"), exact);
}

TEST(WithEnding, IsAppendedToANameWithoutAPoint) {
    EXPECT_EQ(WithEnding("/daten/reg", ".t9t"), FilePath("/daten/reg.t9t"));
}

TEST(WithEnding, ANameWithAPointKeepsIt) {
    EXPECT_EQ(WithEnding("/daten/reg.txt", ".t9t"), FilePath("/daten/reg.txt"));
    EXPECT_EQ(WithEnding("/daten/reg.", ".t9t"), FilePath("/daten/reg."));
    EXPECT_EQ(WithEnding("/daten/.reg", ".t9t"), FilePath("/daten/.reg"));
}

TEST(WithEnding, LooksAtTheNameAloneNotAtItsFolders) {
    EXPECT_EQ(WithEnding("/daten.alt/v1.2/reg", ".t9t"), FilePath("/daten.alt/v1.2/reg.t9t"));
    EXPECT_EQ(WithEnding("../reg", ".t9t"), FilePath("../reg.t9t"));
}

TEST(TextFromPath, ShowsThePathAsItIs) {
    EXPECT_EQ(TextFromPath(FilePath(u8"/daten/Büro €uro Š.t9t")), u"/daten/Büro €uro Š.t9t");
    EXPECT_EQ(TextFromPath(FilePath()), u"");
}

TEST(TextFromPath, CharactersOutsideTheRepertoireBecomeQuestionMarks) {
    EXPECT_EQ(TextFromPath(FilePath(u8"/Жук/a\U0001F600b\u0101.t9t")), u"/?\?\?/a?b?.t9t");
}

TEST(TextFromPath, EveryByteThatIsNoValidUtf8BecomesAQuestionMark) {
    EXPECT_EQ(TextFromPath(FilePath("a\xFC"
                                    "b.t9t")),
              u"a?b.t9t");
    EXPECT_EQ(TextFromPath(FilePath("a\xE2\x82")), u"a??");
    EXPECT_EQ(TextFromPath(FilePath("\xC0\xAF\xFF")), u"???");
}

TEST(TextFromPath, AnOverlongFormIsNoCharacter) {
    EXPECT_EQ(TextFromPath(FilePath("\xE0\x80\xAF")), u"???");
    EXPECT_EQ(TextFromPath(FilePath("\xE0\x83\x9C")), u"???");
    EXPECT_EQ(TextFromPath(FilePath("\xF0\x80\x81\x81")), u"????");
}

TEST(PathFromText, NamesTheSamePath) {
    EXPECT_EQ(PathFromText(u"/daten/büro €.t9t"), FilePath(u8"/daten/büro €.t9t"));
    EXPECT_EQ(PathFromText(u""), FilePath());
}

#ifndef _WIN32
TEST(IsWritableFolder, TellsWhetherTheUserMayCreateFilesThere) {
    const TestFolder folder;
    fs::create_directory(folder / "fest");
    MakeReadOnly(folder / "fest");
    fs::create_directory(folder / "frei");
    fs::permissions(folder / "frei", fs::perms::all);
    const AsAnyUser user;
    EXPECT_TRUE(IsWritableFolder(folder / "frei"));
    EXPECT_FALSE(IsWritableFolder(folder / "fest"));
    EXPECT_FALSE(IsWritableFolder(folder / "fehlt"));
}

TEST(ProgramFolder, IsTheExecutablesOwnWhereTheUserMayWriteThere) {
    const TestFolder folder;
    fs::create_directory(folder / "bin");
    fs::permissions(folder / "bin", fs::perms::all);
    const AsAnyUser user;
    EXPECT_EQ(ProgramFolder(folder / "bin", folder / "share/norvik"), folder / "bin");
}

TEST(ProgramFolder, IsTheUsersDataFolderInASystemWideInstallation) {
    const TestFolder folder;
    fs::create_directory(folder / "bin");
    MakeReadOnly(folder / "bin");
    const AsAnyUser user;
    EXPECT_EQ(ProgramFolder(folder / "bin", folder / "share/norvik"), folder / "share/norvik");
    EXPECT_FALSE(fs::exists(folder / "share"));
}
#endif

TEST(FindIgnoringCase, AnEmptyNameIsNoPathInAnyFolder) {
    const TestFolder folder;
    EXPECT_EQ(FindIgnoringCase(folder.Path(), {}), FilePath());
}

TEST(FindIgnoringCase, TakesNoMoreThanASecondWhateverThePath) {
    const TestFolder folder;
    for (int i = 0; i < 1000; ++i) {
        folder.Write("datei" + std::to_string(i), "");
    }
    fs::create_directory(folder / "ordner");
    const auto repeated = [](const std::string& steps) {
        std::string path;
        for (int i = 0; i < 1000; ++i) {
            path += steps;
        }
        return path + "fehlt.t9t";
    };
    for (const std::string steps : {"./", "ordner/../", "Ordner/../", "../x/"}) {
        const auto start = std::chrono::steady_clock::now();
        const FilePath name = repeated(steps);
        EXPECT_EQ(FindIgnoringCase(folder.Path(), name), folder / name);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1)) << steps;
    }
}

TEST(FindIgnoringCase, FoldersOfManySpellingsAreNotSearchedForEver) {
    // Twenty levels, each under two names: a million ways down.
    const TestFolder folder;
    FilePath name;
    for (int level = 0; level < 20; ++level) {
        fs::create_directory(folder / name / "a");
        fs::create_symlink("a", folder / name / "A");
        name /= "a";
    }
    const std::clock_t start = std::clock();
    EXPECT_EQ(FindIgnoringCase(folder.Path(), name / "fehlt"), folder / name / "fehlt");
    // Of the processor's time, so that what runs beside does not count.
    EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC);
}

TEST(FindIgnoringCase, StepsThatStayWhereTheyAreDoNotCount) {
    const TestFolder folder;
    folder.Write("Daten/Reg.t9t", "x");
    EXPECT_EQ(FindIgnoringCase(folder.Path(), "./daten/././reg.t9t"), folder / "Daten/Reg.t9t");
}

}  // namespace
}  // namespace norvik::test
