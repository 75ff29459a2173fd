#include "formats/phonebook175/phonebookfilemenu.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string Dialog = "open \"norvik-175-Datei|*.pbo|Alle Dateien|*.*\" ending .pbo -> ";
const std::string Identification = "norvik 175 phonebook\r\n";
const std::string NoInfo = "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\n";
const std::string Bernd = "N=Bernd\r\nP=2\r\n" + NoInfo;
const std::string Anna = "N=Anna\r\nP=1\r\n" + NoInfo;

RegisterState Before() {
    RegisterState state = RegisterOf({Entry(u"old1"), Entry(u"old2"), Entry(u"old3")});
    state.AnzNr = 3;
    state.Satzwahl.Value = 3;
    state.LoadedModel = u"195";
    return state;
}

std::string Undefined(TextView numberAndDescription) {
    return OkBox(Text(u"Undef'd Error: mnuDateiLoad175:").append(numberAndDescription));
}

TEST(MnuDateiLoad175, LoadsSortsAndShowsEntry1) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.pbo", Identification + Bernd + Anna);
    RegisterState state = Before();
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);

    mnuDateiLoad175(state, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(), "pointer Hourglass", "pointer Normal", "file",
                            "list", "pointer Hourglass", "status \"Sortiere, Durchgang 1\"",
                            "status \"Sortiert: 1\"", "status \"Sortiere, Durchgang 2\"",
                            "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"",
                            "pointer Normal", "status \"Sortieren beendet\"", "entry", "list"));
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bernd"));
    EXPECT_THAT(Order(state, 2), ElementsAre(2, 1));
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(state.Satzwahl.Value, 1);
    EXPECT_EQ(state.LoadedModel, u"175");
    EXPECT_EQ(state.File.Path, path);
    EXPECT_TRUE(state.WarnLineAccessZero);
}

TEST(MnuDateiLoad175, LeavesRegisterSavedAsItIs) {
    for (const bool saved : {true, false}) {
        const TestFolder folder;
        RegisterState state = Before();
        state.RegisterSaved = saved;
        ScriptedDesktop desktop;
        desktop.AnswerFile(folder.Write("a.pbo", Identification + Anna));
        mnuDateiLoad175(state, desktop);
        EXPECT_EQ(state.RegisterSaved, saved);
    }
}

TEST(MnuDateiLoad175, ACancelledDialogEndsItSilently) {
    RegisterState state = Before();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    mnuDateiLoad175(state, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + "cancel"));
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST(MnuDateiLoad175, ANameWithoutAPointGetsTheEnding) {
    const TestFolder folder;
    const FilePath path = folder.Write("v1.2/telefon.pbo", Identification + Anna);
    RegisterState state = Before();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "v1.2" / "telefon");
    mnuDateiLoad175(state, desktop);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna"));
    EXPECT_EQ(state.File.Path, path);
}

TEST(MnuDateiLoad175, AWrongFirstLineLeavesEverythingAsItWas) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.pbo", "Name;Tel\r\n");
    RegisterState state = Before();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);
    mnuDateiLoad175(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(),
                            OkBox(u"Dies ist keine Norvik-175-Registerdatei!\r\n(Name;Tel)",
                                  u"Fehlermeldung", "Critical")));
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_EQ(state.AnzNr, 3);
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST(MnuDateiLoad175, ACorruptFileIsLoadedWithItsMessages) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.pbo", Identification + Anna + "N=Carl\r\nI=x\r\nJ=y\r\n");
    RegisterState state = Before();
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);
    mnuDateiLoad175(state, desktop);
    const std::string box =
        OkBox(u"175-Datei korrupt, Lesen abgebrochen", u"Fehlermeldung", "Critical");
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(), "pointer Hourglass", box, box, "pointer Normal",
                            "file", "list", "pointer Hourglass", "status \"Sortiere, Durchgang 1\"",
                            "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"",
                            "pointer Normal", "status \"Sortieren beendet\"", "entry", "list"));
    EXPECT_THAT(Names(state), ElementsAre(u"Anna"));
    EXPECT_EQ(state.LoadedModel, u"175");
}

TEST(MnuDateiLoad175, AFileThatEndsInsideAnEntryIsReportedAndWhatWasReadWholeIsShown) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.pbo", Identification + Bernd + "N=Anna\r\nP=1\r\n");
    RegisterState state = Before();
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);

    mnuDateiLoad175(state, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(), "pointer Hourglass", "pointer Normal",
                            Undefined(u"62Einlesen hinter Dateiende"), "file", "entry", "list"));
    EXPECT_THAT(Names(state), ElementsAre(u"Bernd"));
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.Satzwahl.Maximum, 1);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(state.LoadedModel, u"175");
    EXPECT_EQ(state.File.Type, u"175");
    EXPECT_EQ(state.File.Path, path);
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST(MnuDateiLoad175, AnEmptyFileIsReportedAndLeavesTheRegister) {
    const TestFolder folder;
    RegisterState state = Before();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder.Write("a.pbo", ""));
    mnuDateiLoad175(state, desktop);
    EXPECT_THAT(desktop.Questions(), ElementsAre(Dialog + (folder / "a.pbo").string(),
                                                 Undefined(u"62Einlesen hinter Dateiende")));
    EXPECT_TRUE(ContentsOf(state) == before);
}

TEST(MnuDateiLoad175, AFileThatCannotBeOpenedIsReportedAndLeavesTheRegister) {
    const TestFolder folder;
    std::filesystem::create_directory(folder / "ordner.pbo");
    const std::vector<std::pair<FilePath, TextView>> cases = {
        {folder / "fehlt.pbo", u"53Datei nicht gefunden"},
        {folder / "fehlt" / "a.pbo", u"76Pfad nicht gefunden"},
        {folder / "ordner.pbo", u"75Fehler beim Zugriff auf Pfad/Datei"},
        {folder / (std::string(300, 'n') + ".pbo"), u"64Dateiname falsch"}};
    for (const auto& example : cases) {
        RegisterState state = Before();
        const Contents before = ContentsOf(state);
        ScriptedDesktop desktop;
        desktop.AnswerFile(example.first);
        mnuDateiLoad175(state, desktop);
        EXPECT_THAT(desktop.Questions(),
                    ElementsAre(Dialog + example.first.string(), Undefined(example.second)));
        EXPECT_TRUE(ContentsOf(state) == before);
        EXPECT_EQ(state.AnzGes, 3);
    }
}

TEST(MnuDateiLoad175, AFileWithoutEntriesTakesTheHardStopOfTheSort) {
    const TestFolder folder;
    RegisterState state = Before();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder.Write("a.pbo", Identification));
    EXPECT_THROW(mnuDateiLoad175(state, desktop), HardStop);
    EXPECT_THAT(desktop.Questions(), ElementsAre(Dialog + (folder / "a.pbo").string(), "file",
                                                 "list", OkBox(u"Sortierfehler", u"")));
}

TEST(Load175OrReport, GivesWhetherTheFileWasLoaded) {
    const TestFolder folder;
    RegisterState state = Before();
    ScriptedDesktop desktop;
    EXPECT_TRUE(Load175OrReport(state, folder.Write("a.pbo", Identification + Anna), desktop));
    EXPECT_FALSE(Load175OrReport(state, folder.Write("b.pbo", "x"), desktop));
    EXPECT_FALSE(Load175OrReport(state, folder / "fehlt.pbo", desktop));
    EXPECT_THAT(Names(state), ElementsAre(u"Anna"));
}

}  // namespace
}  // namespace norvik::test
