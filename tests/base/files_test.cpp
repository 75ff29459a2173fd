#include "base/files.h"

#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;

/// Changes the working folder as long as it exists.
class InFolder {
  public:
    explicit InFolder(const FilePath& folder) : before_(fs::current_path()) {
        fs::current_path(folder);
    }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;
    InFolder(InFolder&&) = delete;
    InFolder& operator=(InFolder&&) = delete;
    ~InFolder() { fs::current_path(before_); }

  private:
    FilePath before_;
};

std::vector<FilePath> NamesIn(const FilePath& folder) {
    std::vector<FilePath> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
}

TEST(ReadWholeFile, GivesEveryByteAsItIs) {
    const TestFolder folder;
    Bytes all;
    for (unsigned value = 0; value < 256; ++value) {
        all.push_back(static_cast<Byte>(value));
    }
    EXPECT_EQ(ReadWholeFile(folder.Write("a.bin", all)), all);
}

TEST(ReadWholeFile, AnEmptyFileGivesNoBytes) {
    const TestFolder folder;
    EXPECT_EQ(ReadWholeFile(folder.Write("a.bin", Bytes())), Bytes());
}

TEST(ReadWholeFile, FilesAroundAndBeyondTheSizeOfABlockComeWhole) {
    const TestFolder folder;
    for (const std::size_t size : {65535U, 65536U, 65537U, 131072U, 200001U}) {
        Bytes bytes(size, 'x');
        bytes.front() = 'a';
        bytes.back() = 'z';
        EXPECT_TRUE(ReadWholeFile(folder.Write("a.bin", bytes)) == bytes) << size;
    }
}

TEST(LastModified, IsTheFilesTime) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", "x");
    const auto time = FileTime(std::chrono::seconds(1258994759));
    fs::last_write_time(path, std::chrono::file_clock::from_sys(time));
    EXPECT_EQ(LastModified(path), time);
}

TEST(OutputFile, CreatesTheFile) {
    const TestFolder folder;
    OutputFile file(folder / "a.txt");
    file.Write(Raw("'ab' 00"));
    file.Write(Raw("FF 0D 0A"));
    file.Close();
    EXPECT_EQ(ReadFile(folder / "a.txt"), Raw("'ab' 00 FF 0D 0A"));
}

TEST(OutputFile, WritingNoBytesAddsNone) {
    const TestFolder folder;
    OutputFile file(folder / "a.txt");
    file.Write(Bytes());
    file.Write(Raw("'a'"));
    file.Write(Bytes());
    file.Close();
    EXPECT_EQ(ReadFile(folder / "a.txt"), Raw("'a'"));
}

TEST(OutputFile, EmptiesTheFileThatStandsThere) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.txt", "a longer old text");
    OutputFile file(path);
    EXPECT_EQ(fs::file_size(path), 0U);
    file.Write(Raw("'new'"));
    file.Close();
    EXPECT_EQ(ReadFile(path), Raw("'new'"));
}

TEST(OutputFile, WhatWasWrittenBeforeAFailureStays) {
    const TestFolder folder;
    try {
        OutputFile file(folder / "a.txt");
        file.Write(Raw("'so far'"));
        throw 1;
    } catch (int) {
        EXPECT_EQ(ReadFile(folder / "a.txt"), Raw("'so far'"));
    }
}

TEST(ReplaceFile, MakesANewFile) {
    const TestFolder folder;
    ReplaceFile(folder / "a.ini", Raw("'x' 0D 0A"));
    EXPECT_EQ(ReadFile(folder / "a.ini"), Raw("'x' 0D 0A"));
    EXPECT_EQ(NamesIn(folder.Path()), std::vector<FilePath>{"a.ini"});
}

TEST(ReplaceFile, PutsTheNewFileInTheOldOnesPlaceAndLeavesNothingBeside) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.ini", "an old text that was longer");
    ReplaceFile(path, Raw("'new'"));
    EXPECT_EQ(ReadFile(path), Raw("'new'"));
    EXPECT_EQ(NamesIn(folder.Path()), std::vector<FilePath>{"a.ini"});
}

TEST(ReplaceFile, MakesAMissingFolder) {
    const TestFolder folder;
    ReplaceFile(folder / "share/norvik/a.ini", Raw("'x'"));
    EXPECT_EQ(ReadFile(folder / "share/norvik/a.ini"), Raw("'x'"));
}

TEST(ReplaceFile, ANameWithoutAFolderIsOneInTheWorkingFolder) {
    const TestFolder folder;
    const InFolder working(folder.Path());
    ReplaceFile("a.ini", Raw("'x'"));
    EXPECT_EQ(ReadFile(folder / "a.ini"), Raw("'x'"));
}

#ifndef _WIN32
TEST(ReplaceFile, ALinkStaysOneAndItsFileIsReplaced) {
    const TestFolder folder;
    const FilePath file = folder.Write("there/a.ini", "old");
    fs::create_symlink(file, folder / "a.ini");
    ReplaceFile(folder / "a.ini", Raw("'new'"));
    EXPECT_TRUE(fs::is_symlink(folder / "a.ini"));
    EXPECT_EQ(ReadFile(file), Raw("'new'"));
}

TEST(ReplaceFile, TheFileKeepsItsPermissions) {
    const TestFolder folder;
    const FilePath file = folder.Write("a.ini", "old");
    fs::permissions(file, fs::perms(0600));
    ReplaceFile(file, Raw("'new'"));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0600));
}
#endif

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
    const FilePath path = folder.Write("Daten/Neue Register/Büro.T9T", "x");
    EXPECT_EQ(FindIgnoringCase(folder / "daten/neue register/büro.t9t"), path);
}

TEST(FindIgnoringCase, LettersBeyondAsciiCountToo) {
    const TestFolder folder;
    const FilePath path = folder.Write("ÄRGER ŠŒŽŸ.T9T", "x");
    EXPECT_EQ(FindIgnoringCase(folder / "ärger šœžÿ.t9t"), path);
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
    const InFolder working(folder.Path());
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

}  // namespace
}  // namespace norvik::test
