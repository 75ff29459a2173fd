#include "formats/calllist/calllist.h"

#include "base/runtimeerror.h"
#include "tests/formats/calllist/calllistbytes.h"
#include "tests/support/processlimits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

const std::string Dialog = "open \"Anrufliste|*.t9a|Alle Dateien|*.*\" ending .t9a -> ";
constexpr std::string_view OneCall = "02 01 06 0A '0512241830' 06 03 '030' 02 01 00";
const Bytes& OneLine() {
    static const Bytes line = Raw("'00;24.12.2005 18:30;2;030' 0D 0A");
    return line;
}

std::string Undefined(TextView numberAndDescription) {
    return OkBox(Text(u"Undef'd Error: mnuDateiConvCallListCSV:").append(numberAndDescription));
}

std::string NotSaved(TextView numberAndDescription) {
    const std::size_t description = numberAndDescription.find_first_not_of(u"0123456789");
    return "status \"Nicht gespeichert: " + Utf8(numberAndDescription.substr(description)) + "\"";
}

class ConvertFromMenu : public testing::Test {
  protected:
    TestFolder folder;
    ScriptedDesktop desktop;
};

TEST_F(ConvertFromMenu, AsksForTheFileAndConvertsIt) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    desktop.AnswerFile(input).AnswerText(u"2");

    mnuDateiConvCallListCSV(desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + input.string(), MsnQuestion(u"24.12.2005 18:30 030", "\"2\""),
                            SavedBox(folder / "anrufe.csv"),
                            "status \"Gespeichert: " + (folder / "anrufe.csv").string() + "\""));
    EXPECT_EQ(ReadFile(folder / "anrufe.csv"), OneLine());
}

TEST_F(ConvertFromMenu, CancelEndsTheOperation) {
    desktop.AnswerFile(std::nullopt);
    mnuDateiConvCallListCSV(desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + "cancel"));
}

TEST_F(ConvertFromMenu, ANameWithoutAPointGetsTheEnding) {
    folder.Write("anrufe.t9a", CallListOf(OneCall));
    folder.Write("anrufe", "wird nicht gelesen");
    desktop.AnswerFile(folder / "anrufe").AnswerText(u"2");
    mnuDateiConvCallListCSV(desktop);
    EXPECT_EQ(ReadFile(folder / "anrufe.csv"), OneLine());
}

TEST_F(ConvertFromMenu, APointInAFoldersNameIsNoneOfTheName) {
    folder.Write(FilePath("my.data") / "anrufe.t9a", CallListOf(OneCall));
    desktop.AnswerFile(folder / "my.data" / "anrufe").AnswerText(u"2");
    mnuDateiConvCallListCSV(desktop);
    EXPECT_EQ(ReadFile(folder / "my.csv"), OneLine());
}

TEST_F(ConvertFromMenu, ANameWithAPointIsTakenAsItIs) {
    desktop.AnswerFile(folder.Write("anrufe.bin", CallListOf(OneCall))).AnswerText(u"2");
    mnuDateiConvCallListCSV(desktop);
    EXPECT_EQ(ReadFile(folder / "anrufe.csv"), OneLine());
}

TEST_F(ConvertFromMenu, AnOutputThatWouldBeTheInputIsReported) {
    const FilePath input = folder.Write("anrufe.csv", CallListOf(OneCall));
    desktop.AnswerFile(input);
    mnuDateiConvCallListCSV(desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + input.string(), Undefined(u"55Datei bereits geöffnet"),
                            NotSaved(u"55Datei bereits geöffnet")));
    EXPECT_EQ(ReadFile(input), CallListOf(OneCall));
}

TEST_F(ConvertFromMenu, AnOutputThatCannotBeCreatedIsReported) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf(OneCall));
    fs::create_directory(folder / "anrufe.csv");
    desktop.AnswerFile(input);
    mnuDateiConvCallListCSV(desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + input.string(),
                                                Undefined(u"75Fehler beim Zugriff auf Pfad/Datei"),
                                                NotSaved(u"75Fehler beim Zugriff auf Pfad/Datei")));
}

TEST_F(ConvertFromMenu, ACallNumberTooLargeIsReported) {
    const FilePath input =
        folder.Write("anrufe.t9a", CallListOf("09 00 00 00 00 00 00 00 80 06 00 06 00 01"));
    desktop.AnswerFile(input);
    mnuDateiConvCallListCSV(desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + input.string(), Undefined(u"6Überlauf"),
                                                NotSaved(u"6Überlauf")));
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"anrufe.t9a"});
}

TEST_F(ConvertFromMenu, AWrongTagEndsTheProgramWithoutAMessage) {
    const FilePath input = folder.Write("anrufe.t9a", CallListOf("02 01 05 0A '0512241830'"));
    desktop.AnswerFile(input);
    EXPECT_THROW(mnuDateiConvCallListCSV(desktop), HardStop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + input.string()));
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"anrufe.t9a"});
}

#ifndef _WIN32
/// Puts something that is no readable file under a path.
struct Unreadable {
    const char* What;
    void (*Make)(const FilePath& path);
    TextView NumberAndDescription;
};

void MakeFileOf65MB(const FilePath& path) {
    { std::ofstream created(path); }
    fs::resize_file(path, std::uintmax_t{65} * 1024 * 1024);
}

void MakeFileJustTooLarge(const FilePath& path) {
    { std::ofstream created(path); }
    fs::resize_file(path, MaximumFileSize + 1);
}

void MakeForbidden(const FilePath& path) {
    { std::ofstream created(path); }
    fs::permissions(path, fs::perms::none);
}

constexpr TextView OutOfMemory = u"7Nicht genügend Speicher";
constexpr TextView PathAccess = u"75Fehler beim Zugriff auf Pfad/Datei";

const std::vector<Unreadable> Kinds = {
    {"nothing", [](const FilePath&) {}, u"53Datei nicht gefunden"},
    {"a link to nothing", [](const FilePath& path) { fs::create_symlink("nirgends", path); },
     u"53Datei nicht gefunden"},
    {"a file of 65 MB", MakeFileOf65MB, OutOfMemory},
    {"a file of 64 MiB and a byte", MakeFileJustTooLarge, OutOfMemory},
    {"a device without an end", [](const FilePath& path) { fs::create_symlink("/dev/zero", path); },
     PathAccess},
    {"a device without a byte", [](const FilePath& path) { fs::create_symlink("/dev/null", path); },
     PathAccess},
    {"a folder", [](const FilePath& path) { fs::create_directory(path); }, PathAccess},
    {"a pipe without a writer",
     [](const FilePath& path) { ASSERT_EQ(mkfifo(path.c_str(), 0600), 0); }, PathAccess},
    {"a link to itself", [](const FilePath& path) { fs::create_symlink(path.filename(), path); },
     u"64Dateiname falsch"},
    {"a file without permission", MakeForbidden, u"70Zugriff verweigert"}};

TEST(ConvertAnyFile, ThatCannotBeReadIsReportedAndNothingIsWritten) {
    for (const Unreadable& kind : Kinds) {
        SCOPED_TRACE(kind.What);
        const TestFolder folder;
        const FilePath path = folder / "anrufe.t9a";
        kind.Make(path);
        ScriptedDesktop desktop;
        desktop.AnswerFile(path);
        {
            const AsAnyUser anyUser;
            mnuDateiConvCallListCSV(desktop);
        }
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(Dialog + path.string(), Undefined(kind.NumberAndDescription),
                                NotSaved(kind.NumberAndDescription)));
        EXPECT_FALSE(fs::exists(folder / "anrufe.csv"));
    }
}
#endif

}  // namespace
}  // namespace norvik::test
