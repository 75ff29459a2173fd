#include "formats/registerfile/registerfilemenu.h"

#include "tests/formats/registerfile/registerfilebytes.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;

const std::string Dialog = "save \"norvik-195-Datei|*.t9t|Alle Dateien|*.*\" ending .t9t -> ";

RegisterState Unsaved() {
    RegisterState state = RegisterOf({Entry(u"Anna", u"1"), Entry(u"Bernd", u"2", u"()")});
    state.RegisterSaved = false;
    return state;
}

const Bytes& SavedBytes() {
    static const Bytes bytes =
        FileOf({Raw("0200 0201 06 04 'Anna' 06 01 '1' 06 00 0200 020F 0200 0200"),
                Raw("0201 0202 06 05 'Bernd' 06 01 '2' 06 02 '()' 0200 020F 0200 0200")});
    return bytes;
}

TEST(MnuDateiSaveNV, WritesThe195FileAndRefreshesTheStatus) {
    const TestFolder folder;
    const FilePath path = folder / "a.t9t";
    RegisterState state = Unsaved();
    state.AnzNr = 2;
    state.AnzMarkiert = 0;
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);

    mnuDateiSaveNV(state, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(), "pointer Hourglass", "pointer Normal", "list",
                            "status \"Gespeichert: " + path.string() + "\""));
    EXPECT_EQ(ReadFile(path), SavedBytes());
    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_EQ(state.AnzMarkiert, 1);
    EXPECT_EQ(state.AnzNr, 2);
}

TEST(MnuDateiSaveNV, ACancelledDialogEndsItSilently) {
    RegisterState state = Unsaved();
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    mnuDateiSaveNV(state, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + "cancel"));
    EXPECT_FALSE(state.RegisterSaved);
}

TEST(MnuDateiSaveNV, ANameWithoutAPointGetsTheEnding) {
    const TestFolder folder;
    RegisterState state = Unsaved();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "telefon");
    mnuDateiSaveNV(state, desktop);
    EXPECT_EQ(ReadFile(folder / "telefon.t9t"), SavedBytes());
    EXPECT_FALSE(std::filesystem::exists(folder / "telefon"));
}

TEST(MnuDateiSaveNV, APointInAFolderIsNoneInTheName) {
    const TestFolder folder;
    std::filesystem::create_directory(folder / "v1.2");
    RegisterState state = Unsaved();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "v1.2" / "telefon");
    mnuDateiSaveNV(state, desktop);
    EXPECT_EQ(ReadFile(folder / "v1.2" / "telefon.t9t"), SavedBytes());
}

TEST(MnuDateiSaveNV, AnyOtherEndingIsKept) {
    const TestFolder folder;
    RegisterState state = Unsaved();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "telefon.bak");
    mnuDateiSaveNV(state, desktop);
    EXPECT_EQ(ReadFile(folder / "telefon.bak"), SavedBytes());
}

TEST(MnuDateiSaveNV, SavesAnEmptyRegister) {
    const TestFolder folder;
    RegisterState state = RegisterOf({});
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.t9t");
    mnuDateiSaveNV(state, desktop);
    EXPECT_EQ(ReadFile(folder / "a.t9t"), FileOf({}));
}

TEST(MnuDateiSaveNV, ATooLongTextIsPassedOverAndStaysInTheStatusLine) {
    const TestFolder folder;
    const FilePath path = folder / "a.t9t";
    RegisterState state = Unsaved();
    state.Register(2).Name = Text(256, u'x');
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);

    mnuDateiSaveNV(state, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(), "pointer Hourglass", "pointer Normal", "list",
                            "status \"Nicht gespeichert: Ungültiger Prozeduraufruf oder "
                            "ungültiges Argument (#2 xxxxxxxxxxxxxxxxxxxxx: Name mit 256 "
                            "Zeichen)\""));
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{});
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_TRUE(ContentsOf(state) == before);
}

TEST(MnuDateiSaveNV, ACounterOf65536IsPassedOverAndLeavesTheRegisterUnsaved) {
    for (const bool saved : {true, false}) {
        const TestFolder folder;
        RegisterState state = Unsaved();
        state.Register(1).GebEinh = 65536;
        state.RegisterSaved = saved;
        ScriptedDesktop desktop;
        desktop.AnswerFile(folder / "a.t9t");
        mnuDateiSaveNV(state, desktop);
        EXPECT_EQ(desktop.Transcript.back(),
                  "status \"Nicht gespeichert: Ungültiger Prozeduraufruf oder ungültiges "
                  "Argument (#1 Anna: 65536 Einheiten)\"");
        EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{});
        EXPECT_FALSE(state.RegisterSaved);
    }
}

TEST(MnuDateiSaveNV, AFileThatCannotBeCreatedIsPassedOver) {
    const TestFolder folder;
    std::filesystem::create_directory(folder / "ordner.t9t");
    const std::vector<std::pair<FilePath, std::string>> cases = {
        {folder / "ordner.t9t", "Fehler beim Zugriff auf Pfad/Datei"},
        {folder / "fehlt" / "a.t9t", "Pfad nicht gefunden"},
        {folder / (std::string(300, 'n') + ".t9t"), "Dateiname falsch"}};
    for (const auto& [path, description] : cases) {
        RegisterState state = Unsaved();
        ScriptedDesktop desktop;
        desktop.AnswerFile(path);
        mnuDateiSaveNV(state, desktop);
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(Dialog + path.string(), "pointer Hourglass", "pointer Normal",
                                "list", "status \"Nicht gespeichert: " + description + "\""));
        EXPECT_FALSE(state.RegisterSaved);
    }
}

TEST(MnuDateiSaveNV, AGoodSaveReplacesTheStatusOfAFailedOne) {
    const TestFolder folder;
    RegisterState state = Unsaved();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "fehlt" / "a.t9t").AnswerFile(folder / "a.t9t");
    mnuDateiSaveNV(state, desktop);
    mnuDateiSaveNV(state, desktop);
    EXPECT_THAT(desktop.Statuses(), ElementsAre("Nicht gespeichert: Pfad nicht gefunden",
                                                "Gespeichert: " + (folder / "a.t9t").string()));
    EXPECT_TRUE(state.RegisterSaved);
}

TEST(MnuDateiSaveNV, TheEntryAtFaultIsNamedByItsPositionInTheOrder) {
    const TestFolder folder;
    RegisterState state = Unsaved();
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    struct Fault {
        void (*Make)(RegisterEntry& entry);
        const char* Words;
    };
    const std::vector<Fault> faults = {
        {[](RegisterEntry& entry) { entry.Tel = Text(256, u'1'); }, "Nummer mit 256 Zeichen"},
        {[](RegisterEntry& entry) { entry.Info = Text(300, u'i'); }, "Infotext mit 300 Zeichen"},
        {[](RegisterEntry& entry) { entry.GebEinh = 70000; }, "70000 Einheiten"}};
    for (const Fault& fault : faults) {
        state.Register(2) = Entry(u"B");
        fault.Make(state.Register(2));
        ScriptedDesktop desktop;
        desktop.AnswerFile(folder / "a.t9t");
        mnuDateiSaveNV(state, desktop);
        EXPECT_THAT(desktop.Statuses(),
                    ElementsAre("Nicht gespeichert: Ungültiger Prozeduraufruf oder ungültiges "
                                "Argument (#1 B: " +
                                std::string(fault.Words) + ")"));
    }
}

}  // namespace

}  // namespace norvik::test
