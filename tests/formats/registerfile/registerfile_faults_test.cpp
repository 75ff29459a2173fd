// Disks that fail at every byte of a save.
#include "formats/registerfile/registerfilemenu.h"

#include "tests/formats/registerfile/registerfilebytes.h"
#include "tests/support/builders.h"
#include "tests/support/processlimits.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifndef _WIN32
#include "tests/support/processlimits.h"

namespace norvik::test {

namespace {

using testing::ElementsAre;

const std::string Dialog195 = "save \"norvik-195-Datei|*.t9t|Alle Dateien|*.*\" ending .t9t -> ";
const std::string Dialog193 = "save \"norvik-193/5-Datei|*.t9t|Alle Dateien|*.*\" ending .t9t -> ";
const std::string Reduction =
    "box \"Nur markierte Datensätze abspeichern?\" title \"Datensatzreduktion\" icon Question "
    "buttons Yes+No default No -> ";

/// Two entries, shown in the other order, the second position current.
RegisterState Unsaved(TextView model, bool saved) {
    RegisterState state = RegisterOf({Entry(u"Bö", u"12", u"x"), Entry(u"Anna", u"3", u"()Söhne")});
    state.Register(1).GebEinh = 200;
    state.Register(2).Ton = 0x85;
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    state.AnzNr = 2;
    state.Satzwahl.Value = 2;
    state.LoadedModel = model;
    state.RegisterSaved = saved;
    return state;
}

const Bytes& Whole195() {
    static const Bytes bytes =
        FileOf({Raw("0200 0201 06 04 'Anna' 06 01 '3' 06 07 '()S' 94 'hne' 038500 020F 0200 0200"),
                Raw("0201 0202 06 02 'B' 94 06 02 '12' 06 01 'x' 0200 020F 03C800 0200")});
    return bytes;
}

const Bytes& Whole193() {
    static const Bytes bytes =
        FileOf({Raw("0200 0201 06 04 'Anna' 06 01 '3' 0200 020F 0200 0200"),
                Raw("0201 0202 06 02 'B' 94 06 02 '12' 0200 020F 03C800 0200")});
    return bytes;
}

const Bytes& Marked193() {
    static const Bytes bytes =
        FileOf({Raw("0200 0201 06 04 'Anna' 06 01 '3' 0200 020F 0200 0200")});
    return bytes;
}

TEST(RegisterFileFaults, ASaveForThe195TellsOfAFailureAtEveryByte) {
    const Bytes& whole = Whole195();
    for (std::size_t room = 0; room < whole.size(); ++room) {
        SCOPED_TRACE("room for " + std::to_string(room) + " bytes");
        const TestFolder folder;
        const FilePath path = folder.Write("a.t9t", "alt");
        const bool saved = room % 2 == 0;
        RegisterState state = Unsaved(u"195", saved);
        const Contents before = ContentsOf(state);
        ScriptedDesktop desktop;
        desktop.AnswerFile(path);
        {
            const FileSizeLimit limit(room);
            mnuDateiSaveNV(state, desktop);
        }
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(Dialog195 + path.string(), "pointer Hourglass", "pointer Normal",
                                "list",
                                "status \"Nicht gespeichert: E/A-Fehler beim Zugriff auf ein "
                                "Gerät\""));
        EXPECT_FALSE(state.RegisterSaved);
        EXPECT_TRUE(ContentsOf(state) == before);
        EXPECT_EQ(state.AnzGes, 2);
        EXPECT_EQ(state.AnzNr, 2);
        EXPECT_EQ(ReadFile(path), Raw("'alt'"));
        EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"a.t9t"});
    }
}

TEST(RegisterFileFaults, ASaveForThe195WithJustEnoughRoomIsWhole) {
    const TestFolder folder;
    RegisterState state = Unsaved(u"195", false);
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.t9t");
    {
        const FileSizeLimit limit(Whole195().size());
        mnuDateiSaveNV(state, desktop);
    }
    EXPECT_EQ(desktop.Transcript.back(),
              "status \"Gespeichert: " + (folder / "a.t9t").string() + "\"");
    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_EQ(ReadFile(folder / "a.t9t"), Whole195());
}

TEST(RegisterFileFaults, ASaveForThe193TellsOfAFailureAtEveryByte) {
    const Bytes& whole = Whole193();
    for (std::size_t room = 0; room < whole.size(); ++room) {
        SCOPED_TRACE("room for " + std::to_string(room) + " bytes");
        const TestFolder folder;
        const FilePath path = folder.Write("a.t9t", "alt");
        const bool saved = room % 2 == 0;
        RegisterState state = Unsaved(u"193", saved);
        const Contents before = ContentsOf(state);
        ScriptedDesktop desktop;
        desktop.AnswerFile(path);
        {
            const FileSizeLimit limit(room);
            MNUDateiSave193(state, desktop);
        }
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(Dialog193 + path.string(), "pointer Hourglass", "pointer Normal",
                                "entry", "list",
                                "status \"Nicht gespeichert: E/A-Fehler beim Zugriff auf ein "
                                "Gerät\""));
        EXPECT_FALSE(state.RegisterSaved);
        EXPECT_TRUE(ContentsOf(state) == before);
        EXPECT_EQ(state.AnzGes, 2);
        EXPECT_EQ(state.AnzNr, 1);
        EXPECT_EQ(ReadFile(path), Raw("'alt'"));
        EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"a.t9t"});
    }
}

TEST(RegisterFileFaults, ASaveOfMarkedEntriesTellsOfAFailureAtEveryByte) {
    const Bytes& whole = Marked193();
    for (std::size_t room = 0; room <= whole.size(); ++room) {
        SCOPED_TRACE("room for " + std::to_string(room) + " bytes");
        const TestFolder folder;
        const FilePath path = folder.Write("a.t9t", "alt");
        RegisterState state = Unsaved(u"195", false);
        ScriptedDesktop desktop;
        desktop.AnswerFile(path).AnswerBox(Button::Yes);
        {
            const FileSizeLimit limit(room);
            MNUDateiSave193(state, desktop);
        }
        std::vector<std::string> expected = {
            Dialog193 + path.string(), Reduction + "Yes", "pointer Hourglass",
            "pointer Normal",          "entry",           "list"};
        expected.push_back(
            room < whole.size()
                ? "status \"Nicht gespeichert: E/A-Fehler beim Zugriff auf ein Gerät\""
                : "status \"Gespeichert: " + path.string() + "\"");
        EXPECT_EQ(desktop.Transcript, expected);
        EXPECT_EQ(state.RegisterSaved, room == whole.size());
        EXPECT_EQ(ReadFile(path), room == whole.size() ? whole : Raw("'alt'"));
        EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"a.t9t"});
    }
}

TEST(RegisterFileFaults, ALargeRegisterFailsInTheMiddleToo) {
    // Far beyond any buffer: the failure comes with a write in the middle, not with the close.
    const TestFolder folder;
    RegisterState state = RegisterOf({});
    for (int place = 1; place <= RegisterPlaces; ++place) {
        state.Register(place).Info = Text(126, u'i');
    }
    SetCount(state, RegisterPlaces);
    state.RegisterSaved = false;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.t9t");
    {
        const FileSizeLimit limit(50'000);
        mnuDateiSaveNV(state, desktop);
    }
    EXPECT_EQ(desktop.Transcript.back(),
              "status \"Nicht gespeichert: E/A-Fehler beim Zugriff auf ein Gerät\"");
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{});
}

/// A name in the folder behind which a disk stands that is always full.
std::optional<FilePath> FullDisk(const TestFolder& folder) {
    if (!std::filesystem::exists("/dev/full")) {
        return std::nullopt;
    }
    std::filesystem::create_symlink("/dev/full", folder / "voll.t9t");
    return folder / "voll.t9t";
}

TEST(RegisterFileFaults, AFullDiskIsSaidForThe195) {
    const TestFolder folder;
    const std::optional<FilePath> path = FullDisk(folder);
    if (!path) {
        GTEST_SKIP() << "needs /dev/full";
    }
    for (const bool saved : {true, false}) {
        RegisterState state = Unsaved(u"195", saved);
        const Contents before = ContentsOf(state);
        ScriptedDesktop desktop;
        desktop.AnswerFile(*path);
        mnuDateiSaveNV(state, desktop);
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(Dialog195 + path->string(), "pointer Hourglass", "pointer Normal",
                                "list", "status \"Nicht gespeichert: Datenträger voll\""));
        EXPECT_FALSE(state.RegisterSaved);
        EXPECT_TRUE(ContentsOf(state) == before);
    }
}

TEST(RegisterFileFaults, AFullDiskIsSaidForThe193) {
    const TestFolder folder;
    const std::optional<FilePath> path = FullDisk(folder);
    if (!path) {
        GTEST_SKIP() << "needs /dev/full";
    }
    for (const bool saved : {true, false}) {
        RegisterState state = Unsaved(u"175", saved);
        const Contents before = ContentsOf(state);
        ScriptedDesktop desktop;
        desktop.AnswerFile(*path).AnswerBox(Button::No);
        MNUDateiSave193(state, desktop);
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(Dialog193 + path->string(), Reduction + "No", "pointer Hourglass",
                                "pointer Normal", "entry", "list",
                                "status \"Nicht gespeichert: Datenträger voll\""));
        EXPECT_FALSE(state.RegisterSaved);
        EXPECT_TRUE(ContentsOf(state) == before);
    }
}

}  // namespace

}  // namespace norvik::test
#endif
