#include "formats/csv/csvmenu.h"

#include "tests/support/builders.h"
#include "tests/support/processlimits.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string Dialog = "save \"CSV-Datei|*.csv|Alle Dateien|*.*\" ending .csv -> ";
const std::string Question =
    "box \"Sollen die Daten in \" \" gesetzt werden?\" title \"Speichern im CSV-Format\" "
    "icon Question buttons Yes+No default Yes -> ";

std::string Saved(const FilePath& path) {
    return "status \"Gespeichert: " + path.string() + "\"";
}

std::string NotSaved(TextView description) {
    return "status \"Nicht gespeichert: " + Utf8(description) + "\"";
}

RegisterState Unsaved() {
    RegisterState state = RegisterOf({Entry(u"Bö", u"2"), Entry(u"Anna", u"1", u"()x")});
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    state.AnzNr = 2;
    state.Satzwahl.Value = 2;
    state.RegisterSaved = false;
    return state;
}

const Bytes& Plain() {
    static const Bytes bytes = Raw("'Name;Tel;Info1;Info2;Info3;Info4;Info5;Info6;AB;Ton;EnTon;"
                                   "MSN;Filter;GebEinh;EnGeb' 0D 0A"
                                   "'Anna;1;()x;;;;;;0;0;nein;00;Kein;0;nein' 0D 0A"
                                   "'B' F6 ';2;;;;;;;0;0;nein;00;Kein;0;nein' 0D 0A");
    return bytes;
}

const Bytes& Quoted() {
    static const Bytes bytes =
        Raw("'\"Name\";\"Tel\";\"Info1\";\"Info2\";\"Info3\";\"Info4\";\"Info5\";\"Info6\";\"AB\";"
            "\"Ton\";\"EnTon\";\"MSN\";\"Filter\";\"GebEinh\";\"EnGeb\"' 0D 0A"
            "'\"Anna\";\"1\";\"()x\";\"\";\"\";\"\";\"\";\"\";\"0\";\"0\";\"nein\";\"00\";\"Kein\";"
            "\"0\";\"nein\"' 0D 0A"
            "'\"B' F6 '\";\"2\";\"\";\"\";\"\";\"\";\"\";\"\";\"0\";\"0\";\"nein\";\"00\";\"Kein\";"
            "\"0\";\"nein\"' 0D 0A");
    return bytes;
}

TEST(MnuDateiSaveCSV, AsksForTheNameThenForTheQuotesAndShowsTheEntryAgain) {
    const TestFolder folder;
    RegisterState state = Unsaved();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.csv").AnswerBox(Button::Yes);

    mnuDateiSaveCSV(state, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + (folder / "a.csv").string(), Question + "Yes", "entry",
                            Saved(folder / "a.csv")));
    EXPECT_EQ(ReadFile(folder / "a.csv"), Quoted());
    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_EQ(state.Satzwahl.Value, 2);
}

TEST(MnuDateiSaveCSV, WithoutQuotesTheFileIsWrittenAllTheSame) {
    const TestFolder folder;
    RegisterState state = Unsaved();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.csv").AnswerBox(Button::No);
    mnuDateiSaveCSV(state, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + (folder / "a.csv").string(),
                                                Question + "No", "entry", Saved(folder / "a.csv")));
    EXPECT_EQ(ReadFile(folder / "a.csv"), Plain());
    EXPECT_TRUE(state.RegisterSaved);
}

TEST(MnuDateiSaveCSV, CancelEndsTheOperation) {
    RegisterState state = Unsaved();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    mnuDateiSaveCSV(state, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + "cancel"));
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_TRUE(ContentsOf(state) == before);
}

TEST(MnuDateiSaveCSV, ANameWithoutAPointGetsTheEnding) {
    const TestFolder folder;
    std::filesystem::create_directory(folder / "v1.2");
    RegisterState state = Unsaved();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "v1.2" / "telefon").AnswerBox(Button::No);
    mnuDateiSaveCSV(state, desktop);
    EXPECT_EQ(ReadFile(folder / "v1.2" / "telefon.csv"), Plain());
    EXPECT_FALSE(std::filesystem::exists(folder / "v1.2" / "telefon"));
}

TEST(MnuDateiSaveCSV, AnyOtherEndingIsKept) {
    const TestFolder folder;
    RegisterState state = Unsaved();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "telefon.txt").AnswerBox(Button::No);
    mnuDateiSaveCSV(state, desktop);
    EXPECT_EQ(ReadFile(folder / "telefon.txt"), Plain());
}

TEST(MnuDateiSaveCSV, AFileThatCannotBeCreatedIsReportedAndNothingElseChanges) {
    const TestFolder folder;
    std::filesystem::create_directory(folder / "ordner.csv");
    const std::vector<std::pair<FilePath, TextView>> cases = {
        {folder / "ordner.csv", u"75Fehler beim Zugriff auf Pfad/Datei"},
        {folder / "fehlt" / "a.csv", u"76Pfad nicht gefunden"},
        {folder / (std::string(300, 'n') + ".csv"), u"64Dateiname falsch"}};
    for (const auto& example : cases) {
        for (const bool saved : {true, false}) {
            RegisterState state = Unsaved();
            state.RegisterSaved = saved;
            const Contents before = ContentsOf(state);
            ScriptedDesktop desktop;
            desktop.AnswerFile(example.first).AnswerBox(Button::Yes);
            mnuDateiSaveCSV(state, desktop);
            EXPECT_THAT(
                desktop.Transcript,
                ElementsAre(Dialog + example.first.string(), Question + "Yes",
                            OkBox(Text(u"Undef'd Error: mnuDateiSaveCSV:").append(example.second)),
                            NotSaved(example.second.substr(2))));
            EXPECT_FALSE(state.RegisterSaved);
            EXPECT_TRUE(ContentsOf(state) == before);
        }
    }
}

TEST(MnuDateiSaveCSV, ATextThatTheFileCannotHoldIsReported) {
    const TestFolder folder;
    RegisterState state = Unsaved();
    state.Register(1).Tel = u"Ж";
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.csv").AnswerBox(Button::No);
    mnuDateiSaveCSV(state, desktop);
    EXPECT_EQ(desktop.Questions().back(),
              OkBox(u"Undef'd Error: mnuDateiSaveCSV:5Ungültiger Prozeduraufruf oder ungültiges "
                    u"Argument"));
    EXPECT_EQ(desktop.Transcript.back(),
              NotSaved(u"Ungültiger Prozeduraufruf oder ungültiges Argument (#2 Bö)"));
    EXPECT_FALSE(state.RegisterSaved);
}

#ifndef _WIN32
TEST(MnuDateiSaveCSV, TellsOfAFailureAtEveryByte) {
    for (const Button answer : {Button::Yes, Button::No}) {
        const Bytes& whole = answer == Button::Yes ? Quoted() : Plain();
        for (std::size_t room = 0; room <= whole.size(); ++room) {
            SCOPED_TRACE("room for " + std::to_string(room) + " bytes");
            const TestFolder folder;
            RegisterState state = Unsaved();
            const Contents before = ContentsOf(state);
            ScriptedDesktop desktop;
            desktop.AnswerFile(folder.Write("a.csv", "alt")).AnswerBox(answer);
            {
                const FileSizeLimit limit(room);
                mnuDateiSaveCSV(state, desktop);
            }
            const bool fits = room == whole.size();
            EXPECT_THAT(desktop.Transcript,
                        ElementsAre(Dialog + (folder / "a.csv").string(),
                                    Question + (answer == Button::Yes ? "Yes" : "No"),
                                    fits ? "entry"
                                         : OkBox(u"Undef'd Error: mnuDateiSaveCSV:57E/A-Fehler "
                                                 u"beim Zugriff auf ein Gerät"),
                                    fits ? Saved(folder / "a.csv")
                                         : NotSaved(u"E/A-Fehler beim Zugriff auf ein Gerät")));
            EXPECT_EQ(state.RegisterSaved, fits);
            EXPECT_TRUE(ContentsOf(state) == before);
            EXPECT_EQ(ReadFile(folder / "a.csv"), fits ? whole : Raw("'alt'"));
            EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"a.csv"});
        }
    }
}

TEST(MnuDateiSaveCSV, ALargeRegisterFailsInTheMiddleToo) {
    const TestFolder folder;
    RegisterState state;
    for (int place = 1; place <= RegisterPlaces; ++place) {
        state.Register(place).Info = Text(126, u'i');
    }
    SetCount(state, RegisterPlaces);
    state.RegisterSaved = false;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.csv").AnswerBox(Button::No);
    {
        const FileSizeLimit limit(50'000);
        mnuDateiSaveCSV(state, desktop);
    }
    EXPECT_EQ(desktop.Questions().back(),
              OkBox(u"Undef'd Error: mnuDateiSaveCSV:57E/A-Fehler beim Zugriff auf ein Gerät"));
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{});
}

TEST(MnuDateiSaveCSV, AFullDiskIsReported) {
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "needs /dev/full";
    }
    const TestFolder folder;
    std::filesystem::create_symlink("/dev/full", folder / "voll.csv");
    RegisterState state = Unsaved();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "voll.csv").AnswerBox(Button::No);
    mnuDateiSaveCSV(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + (folder / "voll.csv").string(), Question + "No",
                            OkBox(u"Undef'd Error: mnuDateiSaveCSV:61Datenträger voll"),
                            NotSaved(u"Datenträger voll")));
    EXPECT_FALSE(state.RegisterSaved);
}
#endif

}  // namespace
}  // namespace norvik::test
