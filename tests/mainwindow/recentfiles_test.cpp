#include "mainwindow/recentfiles.h"

#include "base/platform.h"
#include "formats/formattable.h"
#include "mainwindow/menu.h"
#include "tests/mainwindow/keepingfixture.h"

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> NamesOf(const RecentFiles& files) {
    std::vector<std::string> names;
    for (const FilePath& path : files.Paths) {
        names.push_back(path.string());
    }
    return names;
}

/// As the list holds it: with the drive and the slashes of the system.
std::string Full(const char* path) {
    return std::filesystem::absolute(path).make_preferred().string();
}

TEST(AddRecent, PutsTheNewestInFrontAndKeepsEachOnce) {
    RecentFiles files;
    for (const char* path : {"/r/a.t9t", "/r/b.csv", "/s/c.pbo", "/r/a.t9t", "/r/x/../b.csv"}) {
        AddRecent(files, path, {});
    }
    EXPECT_THAT(NamesOf(files), ElementsAre(Full("/r/b.csv"), Full("/r/a.t9t"), Full("/s/c.pbo")));
    EXPECT_EQ(files.Folder, Full("/r"));
}

TEST(AddRecent, KeepsAFileOnceHoweverItsNameIsSpelledWhereThatIsTheSame) {
    RecentFiles files;
    AddRecent(files, "/r/Anna.t9t", {});
    AddRecent(files, "/r/anna.T9T", {});
    EXPECT_EQ(files.Paths.size(), platform::DistinguishesCase() ? 2U : 1U);
    EXPECT_EQ(files.Paths.front().filename(), "anna.T9T");
}

TEST(AddRecent, KeepsTheLastEight) {
    RecentFiles files;
    for (int i = 1; i <= 10; ++i) {
        AddRecent(files, "/r/" + std::to_string(i) + ".vcf", {});
    }
    EXPECT_THAT(NamesOf(files), ElementsAre(Full("/r/10.vcf"), Full("/r/9.vcf"), Full("/r/8.vcf"),
                                            Full("/r/7.vcf"), Full("/r/6.vcf"), Full("/r/5.vcf"),
                                            Full("/r/4.vcf"), Full("/r/3.vcf")));
}

TEST(AddRecent, MakesAFullPathOfARelativeOne) {
    RecentFiles files;
    AddRecent(files, "a.t9t", {});
    EXPECT_EQ(files.Paths.front(), std::filesystem::current_path() / "a.t9t");
    EXPECT_EQ(files.Folder, std::filesystem::current_path());
}

TEST(AddRecent, TakesNothingFromTheHiddenFolderNorNoPath) {
    const TestFolder folder;
    RecentFiles files;
    AddRecent(files, folder / "staende/a.t9t", folder / "staende");
    AddRecent(files, {}, folder / "staende");
    EXPECT_EQ(files, RecentFiles());
    AddRecent(files, folder / "a.t9t", folder / "staende");
    EXPECT_EQ(files.Paths.size(), 1U);
}

TEST(AddRecent, OfAnotherEndingTakesTheFolderAlone) {
    RecentFiles files;
    for (const char* path : {"/x/a.txt", "/x/a", "/x/a.t9a", "/x/a.pbb"}) {
        AddRecent(files, path, {});
    }
    EXPECT_THAT(files.Paths, IsEmpty());
    EXPECT_EQ(files.Folder, Full("/x"));
}

TEST(NoteFolder, TakesAnyFolderButTheHiddenOne) {
    const TestFolder folder;
    RecentFiles files;
    NoteFolder(files, folder.Path(), folder / "staende");
    EXPECT_EQ(files.Folder, folder.Path());
    NoteFolder(files, folder / "staende", folder / "staende");
    NoteFolder(files, {}, {});
    EXPECT_EQ(files.Folder, folder.Path());
}

TEST(RemoveRecent, RemovesTheFileAlone) {
    RecentFiles files = {.Paths = {"/a.t9t", "/b.t9t"}, .Folder = "/"};
    RemoveRecent(files, "/a.t9t");
    RemoveRecent(files, "/c.t9t");
    EXPECT_EQ(files, (RecentFiles{.Paths = {"/b.t9t"}, .Folder = "/"}));
}

TEST(RecentCaption, ShowsPlaceNameAndFolder) {
    EXPECT_EQ(RecentCaption(1, "/home/a/telefon.t9t"), u"&1 telefon.t9t – /home/a");
    EXPECT_EQ(RecentCaption(8, u8"/Müller & Söhne/a&b.csv"), u"&8 a&&b.csv – /Müller && Söhne");
    EXPECT_EQ(RecentCaption(2, FilePath(u"/Жук/a.t9t")), u"&2 a.t9t – /???");
    EXPECT_EQ(RecentCaption(4, "/a\nb/c\td.t9t"), u"&4 c?d.t9t – /a?b");
}

TEST(RecentCaption, ShowsTheEndOfALongFolder) {
    const std::string longFolder = "/" + std::string(60, 'x') + "/" + std::string(30, 'y');
    EXPECT_EQ(RecentCaption(3, longFolder + "/a.t9t"),
              u"&3 a.t9t – …" + Text(18, u'x') + u"/" + Text(30, u'y'));
}

TEST(LoadItemOf, IsAnItemForEveryFormatThatCanBeLoaded) {
    for (const FormatRow& row : FormatTable()) {
        const FilePath path = "/x/a" + std::string(row.Ending);
        const auto format = SourceOfEnding(path);
        const bool canBeLoaded = format && RowOf(*format).Load != nullptr;
        const std::string_view item = LoadItemOf(path);
        EXPECT_EQ(!item.empty(), canBeLoaded) << row.Ending;
        if (!item.empty()) {
            EXPECT_NO_THROW(MenuRowOf(item)) << item;
            EXPECT_TRUE(item.starts_with("mnuDateiLoad")) << item;
        }
    }
    EXPECT_EQ(LoadItemOf("/x/A.T9T"), "mnuDateiLoadNV");
    EXPECT_EQ(LoadItemOf("/x/a.pbo"), "mnuDateiLoad175");
    EXPECT_EQ(LoadItemOf("/x/a.csv"), "mnuDateiLoadCSV");
    EXPECT_EQ(LoadItemOf("/x/a.vcf"), "mnuDateiLoadVCard");
    EXPECT_EQ(LoadItemOf("/x/a"), "");
}

/// What an operation leaves of the last files.
class RecentFilesOfSteps : public KeepingTest {
  protected:
    RecentFilesOfSteps() { Start(RegisterOfNames({u"Anna", u"Bernd"})); }
};

TEST_F(RecentFilesOfSteps, ALoadedFileIsTheNewest) {
    Save195(folder / "a.t9t");
    EXPECT_THAT(program.Recent.Paths, IsEmpty());  // the window tells a register's save from others
    EXPECT_EQ(program.SavedTo, folder / "a.t9t");
    Load(folder / "a.t9t");
    EXPECT_THAT(program.Recent.Paths, ElementsAre(folder / "a.t9t"));
    EXPECT_EQ(program.Recent.Folder, folder.Path());
    EXPECT_EQ(program.SavedTo, "");
}

TEST_F(RecentFilesOfSteps, AFileThatCannotBeLoadedOrSavedIsNone) {
    desktop.AnswerFile(folder / "fehlt.t9t");
    Do([&] { mnuDateiLoadNV(program.State, desktop); });
    EXPECT_THAT(program.Recent.Paths, IsEmpty());
    Save195(folder / "fehlt/a.t9t");
    EXPECT_EQ(program.SavedTo, "");
}

TEST_F(RecentFilesOfSteps, ASaveOfAPartIsASave) {
    SetExportMark(program.State, 1, true);
    Save193(folder / "a.t9t", Button::Yes);
    EXPECT_EQ(program.SavedTo, folder / "a.t9t");
    Erase();
    EXPECT_EQ(program.SavedTo, "");
}

}  // namespace
}  // namespace norvik::test
