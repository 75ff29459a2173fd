#include "formats/registerfile/registerfilemenu.h"

#include "formats/registerfile/registerfile.h"
#include "tests/formats/registerfile/registerfilebytes.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;

const std::string Dialog = "save \"norvik-193/5-Datei|*.t9t|Alle Dateien|*.*\" ending .t9t -> ";
const std::string Reduction =
    "box \"Nur markierte Datensätze abspeichern?\" title \"Datensatzreduktion\" icon Question "
    "buttons Yes+No default No -> ";

std::string Saved(const FilePath& path) {
    return "status \"Gespeichert: " + path.string() + "\"";
}

RegisterState Unsaved(TextView model) {
    RegisterState state = RegisterOf({Entry(u"Anna", u"1"), Entry(u"Bernd", u"2", u"()")});
    state.RegisterSaved = false;
    state.LoadedModel = model;
    state.AnzNr = 2;
    state.Satzwahl.Value = 2;
    return state;
}

Bytes AllBytes() {
    return FileOf({Raw("0200 0201 06 04 'Anna' 06 01 '1' 0200 020F 0200 0200"),
                   Raw("0201 0202 06 05 'Bernd' 06 01 '2' 0200 020F 0200 0200")});
}

Bytes MarkedBytes() {
    return FileOf({Raw("0200 0201 06 05 'Bernd' 06 01 '2' 0200 020F 0200 0200")});
}

TEST(MnuDateiSave193, ARegisterNotFromA193FileAsksForTheReduction) {
    for (const TextView model : {u"195", u"175", u""}) {
        const TestFolder folder;
        const FilePath path = folder / "a.t9t";
        RegisterState state = Unsaved(model);
        ScriptedDesktop desktop;
        desktop.AnswerFile(path).AnswerBox(Button::Yes);

        MNUDateiSave193(state, desktop);

        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(Dialog + path.string(), Reduction + "Yes", "pointer Hourglass",
                                "pointer Normal", "entry", "list", Saved(path)));
        EXPECT_EQ(ReadFile(path), MarkedBytes());
        EXPECT_TRUE(state.RegisterSaved);
        EXPECT_EQ(state.LoadedModel, model);
    }
}

TEST(MnuDateiSave193, NoWritesAllEntries) {
    const TestFolder folder;
    const FilePath path = folder / "a.t9t";
    RegisterState state = Unsaved(u"195");
    ScriptedDesktop desktop;
    desktop.AnswerFile(path).AnswerBox(Button::No);
    MNUDateiSave193(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(), Reduction + "No", "pointer Hourglass",
                            "pointer Normal", "entry", "list", Saved(path)));
    EXPECT_EQ(ReadFile(path), AllBytes());
}

TEST(MnuDateiSave193, ARegisterFromA193FileIsSavedWholeWithoutAQuestion) {
    const TestFolder folder;
    const FilePath path = folder / "a.t9t";
    RegisterState state = Unsaved(u"193");
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);
    MNUDateiSave193(state, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + path.string(), "pointer Hourglass",
                                                "pointer Normal", "entry", "list", Saved(path)));
    EXPECT_EQ(ReadFile(path), AllBytes());
}

TEST(MnuDateiSave193, AYesIsForgottenWhenTheNextSaveAsksNothing) {
    const TestFolder folder;
    RegisterState state = Unsaved(u"195");
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.t9t").AnswerBox(Button::Yes).AnswerFile(folder / "b.t9t");
    MNUDateiSave193(state, desktop);
    state.LoadedModel = u"193";
    MNUDateiSave193(state, desktop);
    EXPECT_EQ(ReadFile(folder / "b.t9t"), AllBytes());
}

TEST(MnuDateiSave193, Shows1InTheRecordNumberFieldAfterwards) {
    const TestFolder folder;
    RegisterState state = Unsaved(u"193");
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.t9t");
    desktop.OnShowEntry = [&] { EXPECT_EQ(state.AnzNr, 1); };
    MNUDateiSave193(state, desktop);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(state.Satzwahl.Value, 1);
}

TEST(MnuDateiSave193, ACancelledDialogEndsItSilently) {
    RegisterState state = Unsaved(u"195");
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    MNUDateiSave193(state, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + "cancel"));
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_EQ(state.AnzNr, 2);
}

TEST(MnuDateiSave193, ANameWithoutAPointGetsTheEnding) {
    const TestFolder folder;
    RegisterState state = Unsaved(u"193");
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "telefon").AnswerFile(folder / "telefon.x");
    MNUDateiSave193(state, desktop);
    MNUDateiSave193(state, desktop);
    EXPECT_EQ(ReadFile(folder / "telefon.t9t"), AllBytes());
    EXPECT_EQ(ReadFile(folder / "telefon.x"), AllBytes());
    EXPECT_FALSE(std::filesystem::exists(folder / "telefon"));
}

TEST(MnuDateiSave193, WithoutMarkedEntriesNoFileIsWrittenAndTheOperationGoesOn) {
    const TestFolder folder;
    const FilePath path = folder / "a.t9t";
    RegisterState state = Unsaved(u"195");
    state.Register(2).Info = u"";
    CountMarked(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(path).AnswerBox(Button::Yes);

    MNUDateiSave193(state, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(), Reduction + "Yes",
                            OkBox(u"Keine Datensätze zum Exportieren!", u"Fehler", "Exclamation"),
                            "entry", "list",
                            "status \"Nicht gespeichert: kein Eintrag ist markiert\""));
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_EQ(state.AnzNr, 1);
}

TEST(MnuDateiSave193, AFailureIsPassedOverAndTheNextStepsRun) {
    const TestFolder folder;
    const FilePath path = folder / "a.t9t";
    RegisterState state = Unsaved(u"193");
    state.Register(2).GebEinh = 65536;
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);

    MNUDateiSave193(state, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(), "pointer Hourglass", "pointer Normal", "entry",
                            "list",
                            "status \"Nicht gespeichert: Ungültiger Prozeduraufruf oder "
                            "ungültiges Argument (#2 Bernd: 65536 Einheiten)\""));
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{});
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_TRUE(ContentsOf(state) == before);
}

TEST(MnuDateiSave193, AMissingFolderIsPassedOver) {
    const TestFolder folder;
    const FilePath path = folder / "fehlt" / "a.t9t";
    RegisterState state = Unsaved(u"195");
    ScriptedDesktop desktop;
    desktop.AnswerFile(path).AnswerBox(Button::No);
    MNUDateiSave193(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + path.string(), Reduction + "No", "pointer Hourglass",
                            "pointer Normal", "entry", "list",
                            "status \"Nicht gespeichert: Pfad nicht gefunden\""));
    EXPECT_FALSE(state.RegisterSaved);
}

TEST(MnuDateiSave193, TheFileWrittenIsReadAsA193File) {
    const TestFolder folder;
    RegisterState state = Unsaved(u"195");
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.t9t").AnswerBox(Button::No);
    MNUDateiSave193(state, desktop);
    LoadRegisterFile(state, folder / "a.t9t", desktop);
    EXPECT_EQ(state.LoadedModel, u"193");
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bernd"));
}

}  // namespace

}  // namespace norvik::test
