#include "formats/csv/csvmenu.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;

const std::string Dialog = "open \"CSV-Datei|*.csv|Alle Dateien|*.*\" ending .csv -> ";

RegisterState Old() {
    RegisterState state = RegisterOf({Entry(u"x", u"7"), Entry(u"y", u"8"), Entry(u"z", u"9")});
    state.AnzNr = 3;
    state.Satzwahl.Value = 3;
    state.File.Type = u"175";
    return state;
}

TEST(MnuDateiLoadCSV, LoadsSortsAndShowsEntry1) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.csv", "Name;Tel\r\nc;1\r\nA;2\r\nb;3\r\n");
    RegisterState state = Old();
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);
    desktop.OnShowEntry = [&] { EXPECT_EQ(EntryAt(state, state.AnzNr).Name, u"A"); };

    mnuDateiLoadCSV(state, Settings(), {}, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(), "file", "pointer Hourglass",
                            "status \"Sortiere, Durchgang 1\"", "status \"Sortiert: 2\"",
                            "status \"Sortiere, Durchgang 2\"", "status \"Sortiert: 0\"",
                            "status \"Suche Datensatz...\"", "pointer Normal",
                            "status \"Sortieren beendet\"", "entry", "list"));
    EXPECT_THAT(Names(state), ElementsAre(u"A", u"b", u"c"));
    EXPECT_THAT(Order(state, 4), ElementsAre(2, 3, 1, 4));
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(state.Satzwahl.Value, 1);
    EXPECT_EQ(state.Satzwahl.Maximum, 3);
    EXPECT_TRUE(state.WarnLineAccessZero);
    EXPECT_EQ(state.File.Path, path);
}

TEST(MnuDateiLoadCSV, ACancelledDialogDoesNothing) {
    RegisterState state = Old();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    mnuDateiLoadCSV(state, Settings(), {.AvoidDoubles = true}, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + "cancel"));
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_EQ(state.AnzNr, 3);
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST(MnuDateiLoadCSV, ANameWithoutAPointGetsTheEnding) {
    const TestFolder folder;
    folder.Write("v1.2/telefon.csv", "Name;Tel\r\na;1\r\n");
    folder.Write("v1.2/telefon", "Name;Tel\r\nb;1\r\n");
    for (const bool avoidDoubles : {false, true}) {
        RegisterState state;
        ScriptedDesktop desktop;
        desktop.AnswerFile(folder / "v1.2" / "telefon");
        mnuDateiLoadCSV(state, Settings(), {avoidDoubles}, desktop);
        EXPECT_THAT(Names(state), ElementsAre(u"a"));
        EXPECT_EQ(state.File.Path, folder / "v1.2" / "telefon.csv");
    }
}

TEST(MnuDateiLoadCSV, ANameWithAPointIsTakenAsItIs) {
    const TestFolder folder;
    folder.Write("telefon.txt", "Name;Tel\r\na;1\r\n");
    RegisterState state;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "telefon.txt");
    mnuDateiLoadCSV(state, Settings(), {}, desktop);
    EXPECT_THAT(Names(state), ElementsAre(u"a"));
}

TEST(MnuDateiLoadCSV, AvoidsDoublesOnlyWhenAsked) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.csv", "Name;Tel\r\na;1\r\na;1\r\n");
    for (const bool avoidDoubles : {false, true}) {
        RegisterState state;
        ScriptedDesktop desktop;
        desktop.AnswerFile(path);
        mnuDateiLoadCSV(state, Settings(), {avoidDoubles}, desktop);
        EXPECT_EQ(state.AnzGes, avoidDoubles ? 1 : 2);
        EXPECT_EQ(state.LoadReport,
                  avoidDoubles ? u"Doublette entfernt: a\r\n" : u"Doppelter Name: a\r\n");
        EXPECT_EQ(state.File.Path, path);
    }
}

TEST(MnuDateiLoadCSV, LeavesRegisterSavedAsItIs) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.csv", "Name;Tel\r\na;1\r\n");
    for (const bool saved : {true, false}) {
        RegisterState state = Old();
        state.RegisterSaved = saved;
        ScriptedDesktop desktop;
        desktop.AnswerFile(path);
        mnuDateiLoadCSV(state, Settings(), {}, desktop);
        EXPECT_EQ(state.RegisterSaved, saved);
    }
}

TEST(MnuDateiLoadCSV, AFileWithoutEntriesEndsInASortError) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.csv", "Name;Tel\r\n");
    RegisterState state = Old();
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);
    EXPECT_THROW(mnuDateiLoadCSV(state, Settings(), {}, desktop), HardStop);
    EXPECT_EQ(desktop.Questions().back(), OkBox(u"Sortierfehler", u""));
}

TEST(MnuDateiLoadCSV, AFileThatCannotBeOpenedIsReportedAndTheRegisterStays) {
    const TestFolder folder;
    RegisterState state = Old();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "none.csv");
    mnuDateiLoadCSV(state, Settings(), {.AvoidDoubles = true}, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + (folder / "none.csv").string(),
                            OkBox(u"Undef'd Error: mnuDateiLoadCSV:53Datei nicht gefunden")));
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_EQ(state.AnzGes, 3);
    EXPECT_EQ(state.AnzNr, 3);
    EXPECT_FALSE(state.WarnLineAccessZero);
    EXPECT_EQ(state.File.Type, u"175");
}

TEST(MnuDateiLoadCSV, AFolderIsNoFile) {
    const TestFolder folder;
    RegisterState state = Old();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / ".");
    mnuDateiLoadCSV(state, Settings(), {}, desktop);
    EXPECT_THAT(
        desktop.Transcript,
        ElementsAre(Dialog + (folder / ".").string(),
                    OkBox(u"Undef'd Error: mnuDateiLoadCSV:75Fehler beim Zugriff auf Pfad/Datei")));
}

TEST(MnuDateiLoadCSV, AValueTooLargeForItsFieldIsReportedAndWhatWasReadWholeIsShown) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.csv", "Name;Tel\r\nb;1\r\na;2;;;;;;;32768\r\n");
    RegisterState state = Old();
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);
    mnuDateiLoadCSV(state, Settings(), {}, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + path.string(),
                                                OkBox(u"Undef'd Error: mnuDateiLoadCSV:6Überlauf"),
                                                "file", "entry", "list"));
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.Satzwahl.Maximum, 1);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(state.Register(1), Entry(u"b", u"1"));
    EXPECT_EQ(state.LoadedModel, u"");
    EXPECT_EQ(state.File.Type, u"CSV");
    EXPECT_EQ(state.File.Path, path);
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_FALSE(state.WarnLineAccessZero);
}

// Started without its menu item

TEST(LoadCSVOrReport, LoadsWithoutSorting) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.csv", "Name;Tel\r\nb;1\r\na;2\r\n");
    RegisterState state;
    ScriptedDesktop desktop;
    EXPECT_TRUE(LoadCSVOrReport(state, Settings(), path, desktop));
    EXPECT_THAT(desktop.Transcript, ElementsAre("file"));
    EXPECT_THAT(Names(state), ElementsAre(u"b", u"a"));
}

TEST(LoadCSVOrReport, ReportsAFailureAsTheMenuItemDoes) {
    RegisterState state;
    ScriptedDesktop desktop;
    EXPECT_FALSE(LoadCSVOrReport(state, Settings(), "#D/no/such/folder/a.csv", desktop));
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(OkBox(u"Undef'd Error: mnuDateiLoadCSV:76Pfad nicht gefunden")));
}

}  // namespace

}  // namespace norvik::test
