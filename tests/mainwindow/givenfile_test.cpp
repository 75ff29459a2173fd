#include "mainwindow/givenfile.h"

#include "tests/support/handlerfixture.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>

namespace norvik::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FileOfTheUser : public HandlerFixture {
  protected:
    FileOfTheUser() {
        Given(RegisterOfNames({u"Otto"}));
        desktop.Transcript.clear();
    }

    FilePath Csv(const FilePath& name = "a.csv") const {
        return folder.Write(name, "Name;Tel\r\nBernd;2\r\nAnna;1\r\n");
    }
    static std::string Box(const FilePath& path, TextView text, TextView title) {
        return OkBox(TextFromPath(path) + Text(text), title, "Critical");
    }

    TestFolder folder;
};

TEST_F(FileOfTheUser, IsLoadedAsByItsItemWithoutItsDialog) {
    const FilePath path = Csv();
    LoadGivenFile(program, path, desktop, desktop);
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bernd"));
    EXPECT_EQ(program.State.File.Path, path);
    EXPECT_THAT(desktop.Questions(), testing::Not(Contains(HasSubstr("open"))));
    EXPECT_THAT(desktop.Transcript, Contains("file"));
    EXPECT_THAT(desktop.Transcript, Contains("list"));
    EXPECT_THAT(desktop.Transcript, Contains("entry"));
}

TEST_F(FileOfTheUser, IsReportedAsByItsItem) {
    LoadGivenFile(program, folder / "fehlt.t9t", desktop, desktop);
    EXPECT_THAT(desktop.Questions(),
                ElementsAre(OkBox(u"Dateizugriff fehlgeschlagen!", u"Zugriffsfehler", "Critical")));
    EXPECT_THAT(Names(program.State), ElementsAre(u"Otto"));
}

TEST_F(FileOfTheUser, OfAnotherEndingIsTold) {
    for (const char* name : {"a.txt", "a", "a.t9a"}) {
        desktop.Transcript.clear();
        const FilePath path = folder.Write(name, "x");
        LoadGivenFile(program, path, desktop, desktop);
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(Box(path, u" kann nicht geladen werden", u"Laden")));
        desktop.Transcript.clear();
        TakeDroppedFiles(program, {path}, Dropped::Add, desktop, desktop);
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(Box(path, u" kann nicht dazugeladen werden", u"Dazuladen")));
    }
    EXPECT_THAT(Names(program.State), ElementsAre(u"Otto"));
}

TEST_F(FileOfTheUser, OfTheListIsLoaded) {
    const FilePath path = Csv();
    program.Recent.Paths = {path};
    LoadRecentFile(program, path, desktop, desktop);
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bernd"));
    EXPECT_THAT(program.Recent.Paths, ElementsAre(path));
}

TEST_F(FileOfTheUser, OfTheListThatIsGoneLeavesIt) {
    const FilePath path = folder / "weg.csv";
    const FilePath other = folder / "b.csv";
    program.Recent.Paths = {path, other};
    LoadRecentFile(program, path, desktop, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(OkBox(TextFromPath(path) + u" ist nicht mehr da",
                                                      u"Zuletzt geöffnet", "Exclamation")));
    EXPECT_THAT(program.Recent.Paths, ElementsAre(other));
    EXPECT_THAT(Names(program.State), ElementsAre(u"Otto"));
}

TEST_F(FileOfTheUser, DroppedIsLoaded) {
    TakeDroppedFiles(program, {Csv()}, Dropped::Load, desktop, desktop);
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bernd"));
    EXPECT_THAT(desktop.Statuses(), testing::Not(Contains(HasSubstr("nur die erste"))));
}

TEST_F(FileOfTheUser, DroppedWithTheModifierIsAdded) {
    TakeDroppedFiles(program, {Csv()}, Dropped::Add, desktop, desktop);
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bernd", u"Otto"));
    EXPECT_EQ(desktop.Statuses().back(), "2 Einträge dazugeladen");
}

TEST_F(FileOfTheUser, OfSeveralThatAreDroppedTheFirstIsTakenAndTheStatusSaysSo) {
    TakeDroppedFiles(program, {Csv(u8"ä.csv"), folder / "b.t9t", folder / "c"}, Dropped::Load,
                     desktop, desktop);
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Bernd"));
    EXPECT_EQ(desktop.Statuses().back(), "Von 3 Dateien wurde nur die erste genommen: ä.csv");
}

TEST_F(FileOfTheUser, NothingIsDropped) {
    TakeDroppedFiles(program, {}, Dropped::Load, desktop, desktop);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
}

TEST(StepOfFile, IsThatOfTheItem) {
    EXPECT_EQ(StepOfFile("/a.t9t"), u"norvik 195/193 laden");
    EXPECT_EQ(StepOfFile("/a.csv"), u"CSV laden");
    EXPECT_EQ(StepOfFile("/a.csv", Dropped::Add), u"Datei dazugeladen (# Einträge)");
    EXPECT_EQ(StepOfFile("/a.txt"), u"");
}

}  // namespace
}  // namespace norvik::test
