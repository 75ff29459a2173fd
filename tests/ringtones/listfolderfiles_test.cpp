#include "ringtones/listfolderfiles.h"

#include "tests/support/processlimits.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace norvik::test {
namespace {

namespace fs = std::filesystem;

using Names = std::vector<Text>;

void WriteFiles(const TestFolder& folder, const std::vector<FilePath>& names) {
    for (const FilePath& name : names) {
        folder.Write(name, "");
    }
}

TEST(ListFolderFiles, GivesTheNamesOfTheFilesWithTheEnding) {
    const TestFolder folder;
    WriteFiles(folder, {"01Hund.t9r", "02Katze.wav", "03Maus", "04Esel.t9r.bak", "05Pferdt9r",
                        "06Kuh.t9rx", "07Ziege.laut.t9r"});
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"), (Names{u"01Hund.t9r", u"07Ziege.laut.t9r"}));
}

TEST(ListFolderFiles, MatchesTheEndingWithoutRegardToCase) {
    const TestFolder folder;
    WriteFiles(folder, {"1.t9r", "2.T9R", "3.T9r"});
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"), (Names{u"1.t9r", u"2.T9R", u"3.T9r"}));
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"T9R"), (Names{u"1.t9r", u"2.T9R", u"3.T9r"}));
}

TEST(ListFolderFiles, OrdersTheNamesWithoutRegardToCase) {
    const TestFolder folder;
    WriteFiles(folder,
               {"Zug.t9r", u8"ärger.t9r", "b.t9r", u8"Ärzte.t9r", "A.t9r", "C.t9r", "10.t9r"});
    EXPECT_EQ(
        ListFolderFiles(folder.Path(), u"t9r"),
        (Names{u"10.t9r", u"A.t9r", u"b.t9r", u"C.t9r", u"Zug.t9r", u"ärger.t9r", u"Ärzte.t9r"}));
}

TEST(ListFolderFiles, NamesThatDifferOnlyInCaseFollowTheirCharacterCodes) {
    const TestFolder folder;
    WriteFiles(folder, {"hund.t9r", "HUND.t9r", "Hund.t9r"});
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"),
              (Names{u"HUND.t9r", u"Hund.t9r", u"hund.t9r"}));
}

TEST(ListFolderFiles, FoldersDoNotCountNorDoTheirFiles) {
    const TestFolder folder;
    WriteFiles(folder, {"01Hund.t9r", "02Katze.t9r/03Maus.t9r"});
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"), Names{u"01Hund.t9r"});
}

TEST(ListFolderFiles, HiddenFilesDoNotCount) {
    const TestFolder folder;
    WriteFiles(folder, {".t9r", ".01Hund.t9r", "02Katze.t9r"});
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"), Names{u"02Katze.t9r"});
}

TEST(ListFolderFiles, GrowsAsNeeded) {
    const TestFolder folder;
    Names expected;
    for (int number = 100; number < 300; ++number) {
        folder.Write(std::to_string(number) + ".t9r", "");
        expected.push_back(FromAscii(std::to_string(number) + ".t9r"));
    }
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"), expected);
}

TEST(ListFolderFiles, AnEmptyOrMissingFolderGivesNoNames) {
    const TestFolder folder;
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"), Names());
    EXPECT_EQ(ListFolderFiles(folder / "fehlt", u"t9r"), Names());
    EXPECT_EQ(ListFolderFiles({}, u"t9r"), Names());
}

TEST(ListFolderFiles, AFileInsteadOfTheFolderGivesNoNames) {
    const TestFolder folder;
    EXPECT_EQ(ListFolderFiles(folder.Write("01Hund.t9r", ""), u"t9r"), Names());
}

TEST(ListFolderFiles, NamesWithLettersOfWindows1252AreTexts) {
    const TestFolder folder;
    WriteFiles(folder, {u8"01Grüße für 5 €!.t9r", u8"02Šašek – „Ÿ“.t9r"});
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"),
              (Names{u"01Grüße für 5 €!.t9r", u"02Šašek – „Ÿ“.t9r"}));
}

TEST(ListFolderFiles, NamesWithOtherLettersAreSkipped) {
    const TestFolder folder;
    WriteFiles(folder, {u8"01Жук.t9r", u8"02Katze.t9r", u8"03\U0001F431.t9r", u8"04ŝ.t9r",
                        u8"05Hu\u0308hner.t9r"});
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"), Names{u"02Katze.t9r"});
}

#ifndef _WIN32

TEST(ListFolderFiles, NamesThatAreNoProperTextAreSkipped) {
    const TestFolder folder;
    WriteFiles(folder, {"01\xFC.t9r", "02\xC3.t9r", "03Maus.t9r"});
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"), Names{u"03Maus.t9r"});
}

TEST(ListFolderFiles, NamesWithALineBreakAreSkipped) {
    const TestFolder folder;
    WriteFiles(folder, {"01a\nb.t9r", "02a\rb.t9r", "03Maus.t9r"});
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"), Names{u"03Maus.t9r"});
}

TEST(ListFolderFiles, PipesDoNotCount) {
    const TestFolder folder;
    ASSERT_EQ(mkfifo((folder / "01Hund.t9r").c_str(), 0600), 0);
    folder.Write("02Katze.t9r", "");
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"), Names{u"02Katze.t9r"});
}

TEST(ListFolderFiles, ALinkCountsAsWhatItLeadsTo) {
    const TestFolder folder;
    const TestFolder elsewhere;
    fs::create_symlink(elsewhere.Write("ton", ""), folder / "01Datei.t9r");
    fs::create_symlink(elsewhere.Path(), folder / "02Ordner.t9r");
    fs::create_symlink(elsewhere / "fehlt", folder / "03Nichts.t9r");
    fs::create_symlink("04Kreis.t9r", folder / "04Kreis.t9r");
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"), Names{u"01Datei.t9r"});
}

TEST(ListFolderFiles, AFolderThatMayNotBeReadGivesNoNames) {
    const TestFolder folder;
    folder.Write("tonruf/01Hund.t9r", "");
    fs::permissions(folder / "tonruf", fs::perms::none);
    {
        const AsAnyUser anyUser;
        EXPECT_EQ(ListFolderFiles(folder / "tonruf", u"t9r"), Names());
    }
    fs::permissions(folder / "tonruf", fs::perms::owner_all);
}

TEST(ListFolderFiles, FilesThatMayNotBeReadCountBecauseOnlyTheirNamesAreUsed) {
    const TestFolder folder;
    fs::permissions(folder.Write("01Hund.t9r", ""), fs::perms::none);
    fs::permissions(folder.Path(), fs::perms(0755));
    const AsAnyUser anyUser;
    EXPECT_EQ(ListFolderFiles(folder.Path(), u"t9r"), Names{u"01Hund.t9r"});
}

#endif

}  // namespace
}  // namespace norvik::test
