#include "formats/ip286/ip286menu.h"

#include "tests/support/builders.h"
#include "tests/support/processlimits.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string Dialog = "save \"CSV-Datei(IP286)|*.csv|Alle Dateien|*.*\" ending .csv -> ";
const std::string Input = "input \"Texte ausschließen (leer für beenden)\" title "
                          "\"Exportbeschränkung\" preset \"\" -> ";

std::string Report(TextView text) {
    return OkBox(text, u"Exportergebnis", "Information");
}

std::string Undefined(TextView numberAndDescription) {
    return OkBox(Text(u"Undef'd Error: mnuDateiSaveIP286:").append(numberAndDescription));
}

std::string Saved(const FilePath& path) {
    return "status \"Gespeichert: " + path.string() + "\"";
}

std::string NotSaved(const std::string& description) {
    return "status \"Nicht gespeichert: " + description + "\"";
}

std::string Warning(TextView count) {
    return OkBox(Text(u"Der Datensatz wird ")
                     .append(count)
                     .append(u" Datensätze beinhalten, ein Yealink T28 speichert jedoch maximal "
                             u"300 Datensätze. Der Import wird einige Datensätze ignorieren!"),
                 u"WARNHINWEIS", "Critical");
}

RegisterState Two() {
    RegisterState state = RegisterOf({Entry(u"Öl", u"**12"), Entry(u"Anna", u"030")});
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    state.AnzNr = 2;
    state.Satzwahl.Value = 2;
    state.RegisterSaved = false;
    return state;
}

const Bytes& Whole() {
    static const Bytes bytes = Raw("'\"Name\",\"Telefonnummer\",\"Konto\"' 0D 0A"
                                   "'\"Anna\",\"030\",\"1\"' 0D 0A"
                                   "'\"Oel\",\"**12\",\"1\"' 0D 0A");
    return bytes;
}

RegisterState Many(int count) {
    RegisterState state;
    for (int place = 1; place <= count; ++place) {
        state.Register(place).Name = u"n" + Decimal(place);
        state.Register(place).Tel = Decimal(place);
    }
    SetCount(state, count);
    return state;
}

TEST(MnuDateiSaveIP286, AsksForTheNameThenForTextsAndShowsTheEntryAgain) {
    const TestFolder folder;
    RegisterState state = Two();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.csv").AnswerText(u"");

    mnuDateiSaveIP286(state, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + (folder / "a.csv").string(), Input + "\"\"",
                            Report(u"2 Einträge exportiert\r\n0 Einträge wurden ignoriert\r\n"),
                            "entry", Saved(folder / "a.csv")));
    EXPECT_EQ(ReadFile(folder / "a.csv"), Whole());
    EXPECT_EQ(state.AnzNr, 2);
}

TEST(MnuDateiSaveIP286, DoesNotMarkTheRegisterAsSavedAndChangesNothing) {
    for (const bool saved : {true, false}) {
        const TestFolder folder;
        RegisterState state = Two();
        state.RegisterSaved = saved;
        state.File.Path = "/alt.t9t";
        const Contents before = ContentsOf(state);
        ScriptedDesktop desktop;
        desktop.AnswerFile(folder / "a.csv").AnswerText(std::nullopt);
        mnuDateiSaveIP286(state, desktop);
        EXPECT_EQ(state.RegisterSaved, saved);
        EXPECT_TRUE(ContentsOf(state) == before);
        EXPECT_EQ(state.File.Path, FilePath("/alt.t9t"));
    }
}

TEST(MnuDateiSaveIP286, TheTextsAreAskedForUntilAnEmptyAnswer) {
    const TestFolder folder;
    RegisterState state = Two();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.csv").AnswerText(u"99").AnswerText(u"**").AnswerText(u"");
    mnuDateiSaveIP286(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + (folder / "a.csv").string(), Input + "\"99\"",
                            Input + "\"**\"", Input + "\"\"",
                            Report(u"1 Einträge exportiert\r\n1 Einträge wurden ignoriert\r\n"
                                   u"Öl\r\n"),
                            "entry", Saved(folder / "a.csv")));
}

TEST(MnuDateiSaveIP286, ACancelledInputEndsTheTextsAndKeepsThem) {
    const TestFolder folder;
    RegisterState state = Two();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.csv").AnswerText(u"03").AnswerText(std::nullopt);
    mnuDateiSaveIP286(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + (folder / "a.csv").string(), Input + "\"03\"",
                            Input + "cancel",
                            Report(u"1 Einträge exportiert\r\n1 Einträge wurden ignoriert\r\n"
                                   u"Anna\r\n"),
                            "entry", Saved(folder / "a.csv")));
    EXPECT_EQ(ReadFile(folder / "a.csv"), Raw("'\"Name\",\"Telefonnummer\",\"Konto\"' 0D 0A"
                                              "'\"Oel\",\"**12\",\"1\"' 0D 0A"));
}

TEST(MnuDateiSaveIP286, AnAnswerMayHoldSeveralTexts) {
    const TestFolder folder;
    RegisterState state = Two();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.csv").AnswerText(u"|*|03|").AnswerText(u"");
    mnuDateiSaveIP286(state, desktop);
    EXPECT_EQ(desktop.Transcript.at(3),
              Report(u"0 Einträge exportiert\r\n2 Einträge wurden ignoriert\r\nAnna\r\nÖl\r\n"));
}

TEST(MnuDateiSaveIP286, AnAnswerOfABlankIsNotEmpty) {
    const TestFolder folder;
    RegisterState state = RegisterOf({Entry(u"a", u"0 1"), Entry(u"b", u"01")});
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.csv").AnswerText(u" ").AnswerText(u"");
    mnuDateiSaveIP286(state, desktop);
    EXPECT_EQ(desktop.Transcript.at(3),
              Report(u"1 Einträge exportiert\r\n1 Einträge wurden ignoriert\r\na\r\n"));
}

TEST(MnuDateiSaveIP286, CancelOfTheDialogEndsTheOperation) {
    RegisterState state = Two();
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    mnuDateiSaveIP286(state, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + "cancel"));
}

TEST(MnuDateiSaveIP286, ARegisterOf301EntriesShowsTheWarningThenWritesAll301) {
    const TestFolder folder;
    RegisterState state = Many(301);
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.csv").AnswerText(u"");

    mnuDateiSaveIP286(state, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Warning(u"301"), Dialog + (folder / "a.csv").string(), Input + "\"\"",
                            Report(u"301 Einträge exportiert\r\n0 Einträge wurden ignoriert\r\n"),
                            "entry", Saved(folder / "a.csv")));
    std::string expected = "\"Name\",\"Telefonnummer\",\"Konto\"\r\n";
    for (int place = 1; place <= 301; ++place) {
        const std::string number = std::to_string(place);
        expected += "\"n" + number + "\",\"" + number + "\",\"1\"\r\n";
    }
    const Bytes file = ReadFile(folder / "a.csv");
    EXPECT_EQ(std::string(file.begin(), file.end()), expected);
}

TEST(MnuDateiSaveIP286, TheWarningCountsWhatWillBeExcludedToo) {
    const TestFolder folder;
    RegisterState state = Many(2000);
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.csv");
    for (const TextView digit : {u"0", u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8"}) {
        desktop.AnswerText(Text(digit));
    }
    desktop.AnswerText(u"");
    mnuDateiSaveIP286(state, desktop);
    EXPECT_EQ(desktop.Transcript.front(), Warning(u"2000"));
    EXPECT_EQ(ReadFile(folder / "a.csv"), Raw("'\"Name\",\"Telefonnummer\",\"Konto\"' 0D 0A"
                                              "'\"n9\",\"9\",\"1\"' 0D 0A"
                                              "'\"n99\",\"99\",\"1\"' 0D 0A"
                                              "'\"n999\",\"999\",\"1\"' 0D 0A"));
}

TEST(MnuDateiSaveIP286, TheWarningComesBeforeACancelledDialogToo) {
    RegisterState state = Many(301);
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    mnuDateiSaveIP286(state, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Warning(u"301"), Dialog + "cancel"));
}

TEST(MnuDateiSaveIP286, ARegisterOf300EntriesShowsNoWarning) {
    RegisterState state = Many(300);
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    mnuDateiSaveIP286(state, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + "cancel"));
}

TEST(MnuDateiSaveIP286, ANameWithoutAPointGetsTheEnding) {
    const TestFolder folder;
    RegisterState state = Two();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "telefon").AnswerText(u"");
    mnuDateiSaveIP286(state, desktop);
    EXPECT_EQ(ReadFile(folder / "telefon.csv"), Whole());
    desktop.AnswerFile(folder / "telefon.txt").AnswerText(u"");
    mnuDateiSaveIP286(state, desktop);
    EXPECT_EQ(ReadFile(folder / "telefon.txt"), Whole());
}

TEST(MnuDateiSaveIP286, AFileThatCannotBeCreatedIsReportedAfterTheQuestions) {
    const TestFolder folder;
    RegisterState state = Two();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "fehlt" / "a.csv").AnswerText(u"x").AnswerText(u"");
    mnuDateiSaveIP286(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + (folder / "fehlt" / "a.csv").string(), Input + "\"x\"",
                            Input + "\"\"", Undefined(u"76Pfad nicht gefunden"),
                            NotSaved("Pfad nicht gefunden")));
    EXPECT_TRUE(ContentsOf(state) == before);
}

TEST(MnuDateiSaveIP286, ATextThatTheFileCannotHoldIsReported) {
    const TestFolder folder;
    RegisterState state = RegisterOf({Entry(u"Жук", u"1")});
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.csv").AnswerText(u"");
    mnuDateiSaveIP286(state, desktop);
    EXPECT_EQ(desktop.Questions().back(),
              Undefined(u"5Ungültiger Prozeduraufruf oder ungültiges Argument"));
    EXPECT_EQ(desktop.Transcript.back(),
              NotSaved("Ungültiger Prozeduraufruf oder ungültiges Argument (#1 Жук)"));
}

#ifndef _WIN32
TEST(MnuDateiSaveIP286, FailsAtEveryByteWithoutAResult) {
    for (std::size_t room = 0; room < Whole().size(); ++room) {
        SCOPED_TRACE("room for " + std::to_string(room) + " bytes");
        const TestFolder folder;
        RegisterState state = Two();
        const Contents before = ContentsOf(state);
        ScriptedDesktop desktop;
        desktop.AnswerFile(folder.Write("a.csv", "alt")).AnswerText(u"");
        {
            const FileSizeLimit limit(room);
            mnuDateiSaveIP286(state, desktop);
        }
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(Dialog + (folder / "a.csv").string(), Input + "\"\"",
                                Undefined(u"57E/A-Fehler beim Zugriff auf ein Gerät"),
                                NotSaved("E/A-Fehler beim Zugriff auf ein Gerät")));
        EXPECT_FALSE(state.RegisterSaved);
        EXPECT_TRUE(ContentsOf(state) == before);
        EXPECT_EQ(ReadFile(folder / "a.csv"), Raw("'alt'"));
        EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"a.csv"});
    }
}

TEST(MnuDateiSaveIP286, AFullDiskIsReported) {
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "needs /dev/full";
    }
    const TestFolder folder;
    std::filesystem::create_symlink("/dev/full", folder / "voll.csv");
    RegisterState state = Many(2000);  // far beyond any buffer
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "voll.csv").AnswerText(u"");
    mnuDateiSaveIP286(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Warning(u"2000"), Dialog + (folder / "voll.csv").string(),
                            Input + "\"\"", Undefined(u"61Datenträger voll"),
                            NotSaved("Datenträger voll")));
}
#endif

}  // namespace
}  // namespace norvik::test
