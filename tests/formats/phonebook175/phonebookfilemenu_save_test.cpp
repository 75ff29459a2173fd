#include "formats/phonebook175/phonebookfilemenu.h"

#include "tests/support/builders.h"
#include "tests/support/processlimits.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string Dialog = "save \"norvik-175-Datei|*.pbo|Alle Dateien|*.*\" ending .pbo -> ";

std::string NotSaved(const std::string& description) {
    return "status \"Nicht gespeichert: " + description + "\"";
}

std::string Saved(const FilePath& path) {
    return "status \"Gespeichert: " + path.string() + "\"";
}

RegisterState Unsaved() {
    RegisterState state = RegisterOf({Entry(u"Bö", u"2"), Entry(u"Anna", u"1", u" ()x ")});
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    state.AnzNr = 2;
    state.Satzwahl.Value = 2;
    state.AnzMarkiert = 0;
    state.RegisterSaved = false;
    return state;
}

const Bytes& Whole() {
    static const Bytes bytes = Raw("'norvik 175 phonebook' 0D 0A"
                                   "'N=Anna' 0D 0A 'P=1' 0D 0A 'I=()x' 0D 0A 'I=' 0D 0A"
                                   "'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A"
                                   "'N=B' F6 0D 0A 'P=2' 0D 0A 'I=' 0D 0A 'I=' 0D 0A"
                                   "'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A");
    return bytes;
}

TEST(MnuDateiSave175, WritesTheFileShowsEntry1AndRefreshesTheStatus) {
    const TestFolder folder;
    RegisterState state = Unsaved();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.pbo");

    mnuDateiSave175(state, desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + (folder / "a.pbo").string(), "pointer Hourglass",
                            "pointer Normal", "entry", "list", Saved(folder / "a.pbo")));
    EXPECT_EQ(ReadFile(folder / "a.pbo"), Whole());
    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(state.Satzwahl.Value, 1);
    EXPECT_EQ(state.AnzMarkiert, 1);
    EXPECT_EQ(state.Register(2).Info, u"()x");
}

TEST(MnuDateiSave175, ACancelledDialogEndsItSilently) {
    RegisterState state = Unsaved();
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    mnuDateiSave175(state, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + "cancel"));
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_TRUE(ContentsOf(state) == before);
}

TEST(MnuDateiSave175, ANameWithoutAPointGetsTheEnding) {
    const TestFolder folder;
    RegisterState state = Unsaved();
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "telefon").AnswerFile(folder / "telefon.txt");
    mnuDateiSave175(state, desktop);
    mnuDateiSave175(state, desktop);
    EXPECT_EQ(ReadFile(folder / "telefon.pbo"), Whole());
    EXPECT_EQ(ReadFile(folder / "telefon.txt"), Whole());
    EXPECT_FALSE(std::filesystem::exists(folder / "telefon"));
}

TEST(MnuDateiSave175, AFileThatCannotBeCreatedIsPassedOverAndTheOperationGoesOn) {
    const TestFolder folder;
    std::filesystem::create_directory(folder / "ordner.pbo");
    const std::vector<std::pair<FilePath, std::string>> cases = {
        {folder / "ordner.pbo", "Fehler beim Zugriff auf Pfad/Datei"},
        {folder / "fehlt" / "a.pbo", "Pfad nicht gefunden"},
        {folder / (std::string(300, 'n') + ".pbo"), "Dateiname falsch"}};
    for (const auto& example : cases) {
        for (const bool saved : {true, false}) {
            RegisterState state = Unsaved();
            state.RegisterSaved = saved;
            const Contents before = ContentsOf(state);
            ScriptedDesktop desktop;
            desktop.AnswerFile(example.first);
            mnuDateiSave175(state, desktop);
            EXPECT_THAT(desktop.Transcript,
                        ElementsAre(Dialog + example.first.string(), "pointer Hourglass",
                                    "pointer Normal", "entry", "list", NotSaved(example.second)));
            EXPECT_FALSE(state.RegisterSaved);
            EXPECT_EQ(state.AnzNr, 1);
            EXPECT_TRUE(ContentsOf(state) == before);
        }
    }
}

TEST(MnuDateiSave175, ATextThatTheFileCannotHoldIsPassedOver) {
    const TestFolder folder;
    RegisterState state = Unsaved();
    state.Register(1).Name = u"Ж";
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.pbo");
    mnuDateiSave175(state, desktop);
    EXPECT_EQ(desktop.Transcript.back(),
              NotSaved("Ungültiger Prozeduraufruf oder ungültiges Argument (#2 Ж)"));
    EXPECT_FALSE(state.RegisterSaved);
}

#ifndef _WIN32
TEST(MnuDateiSave175, TellsOfAFailureAtEveryByte) {
    for (std::size_t room = 0; room <= Whole().size(); ++room) {
        SCOPED_TRACE("room for " + std::to_string(room) + " bytes");
        const TestFolder folder;
        RegisterState state = Unsaved();
        ScriptedDesktop desktop;
        desktop.AnswerFile(folder.Write("a.pbo", "alt"));
        {
            const FileSizeLimit limit(room);
            mnuDateiSave175(state, desktop);
        }
        const bool fits = room == Whole().size();
        const std::vector<std::string> expected = {Dialog + (folder / "a.pbo").string(),
                                                   "pointer Hourglass",
                                                   "pointer Normal",
                                                   "entry",
                                                   "list",
                                                   fits
                                                       ? Saved(folder / "a.pbo")
                                                       : NotSaved("E/A-Fehler beim Zugriff auf ein "
                                                                  "Gerät")};
        EXPECT_EQ(desktop.Transcript, expected);
        EXPECT_EQ(state.RegisterSaved, fits);
        EXPECT_EQ(state.AnzNr, 1);
        EXPECT_EQ(ReadFile(folder / "a.pbo"), fits ? Whole() : Raw("'alt'"));
        EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"a.pbo"});
    }
}

TEST(MnuDateiSave175, ALargeRegisterFailsInTheMiddleTooWithTheRestOfTheInfosUntrimmed) {
    const TestFolder folder;
    RegisterState state;
    for (int place = 1; place <= RegisterPlaces; ++place) {
        state.Register(place).Info = u" " + Text(120, u'i');
    }
    SetCount(state, RegisterPlaces);
    state.RegisterSaved = false;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.pbo");
    {
        const FileSizeLimit limit(50'000);
        mnuDateiSave175(state, desktop);
    }
    EXPECT_EQ(desktop.Transcript.back(), NotSaved("E/A-Fehler beim Zugriff auf ein Gerät"));
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{});
    EXPECT_EQ(state.Register(1).Info, Text(120, u'i'));
    EXPECT_EQ(state.Register(2000).Info, u" " + Text(120, u'i'));
}

TEST(MnuDateiSave175, AFullDiskIsSaid) {
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "needs /dev/full";
    }
    for (const bool saved : {true, false}) {
        const TestFolder folder;
        std::filesystem::create_symlink("/dev/full", folder / "voll.pbo");
        RegisterState state = Unsaved();
        state.RegisterSaved = saved;
        ScriptedDesktop desktop;
        desktop.AnswerFile(folder / "voll.pbo");
        mnuDateiSave175(state, desktop);
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(Dialog + (folder / "voll.pbo").string(), "pointer Hourglass",
                                "pointer Normal", "entry", "list", NotSaved("Datenträger voll")));
        EXPECT_FALSE(state.RegisterSaved);
    }
}
#endif

}  // namespace
}  // namespace norvik::test
