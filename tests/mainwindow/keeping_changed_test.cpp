// Two programs, one file: a save over what somebody else has written meanwhile.
#include "formats/csv/csvmenu.h"
#include "formats/phonebook175/phonebookfilemenu.h"
#include "tests/mainwindow/keepingfixture.h"
#include "tests/support/processlimits.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::Contains;
namespace fs = std::filesystem;

constexpr std::string_view Changed = " (inzwischen geändert; der andere Stand ist aufgehoben)";

class KeepingChanged : public KeepingTest {
  protected:
    using Save = std::function<void(const FilePath&)>;

    [[nodiscard]] static std::string Saved(const FilePath& path) {
        return "Gespeichert: " + path.string();
    }

    const std::vector<std::pair<std::string, Save>> saves = {
        {"a.t9t", [this](const FilePath& path) { Save195(path); }},
        {"b.t9t", [this](const FilePath& path) { Save193(path, Button::No); }},
        {"a.pbo",
         [this](const FilePath& path) {
             desktop.AnswerFile(path);
             Do([&] { mnuDateiSave175(program.State, desktop); });
         }},
        {"a.csv",
         [this](const FilePath& path) {
             desktop.AnswerFile(path).AnswerBox(Button::No);
             Do([&] { mnuDateiSaveCSV(program.State, desktop); });
         }},
    };
};

TEST_F(KeepingChanged, EverySaveOfTheRegisterTellsOfItAndKeepsTheOtherVersion) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    for (const auto& [name, save] : saves) {
        const FilePath path = folder / name;
        save(path);
        EXPECT_EQ(desktop.Statuses().back(), Saved(path));
        save(path);
        EXPECT_EQ(desktop.Statuses().back(), Saved(path));
        folder.Write(name, "fremd");
        save(path);
        EXPECT_EQ(desktop.Statuses().back(), Saved(path).append(Changed));
        EXPECT_THAT(Kept(), Contains("ersetzt: 5 bytes of " + name));
        fs::remove_all(Store());
        EXPECT_NE(ReadFile(path), Raw("'fremd'"));
    }
}

TEST_F(KeepingChanged, AFileThatThisProgramNeverSawIsJustReplaced) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    const FilePath path = folder.Write("a.t9t", "fremd");
    Save195(path);
    EXPECT_EQ(desktop.Statuses().back(), Saved(path));
    EXPECT_THAT(Kept(), Contains("ersetzt: 5 bytes of a.t9t"));
}

TEST_F(KeepingChanged, AFileThatIsGoneIsNoOtherVersion) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    const FilePath path = folder / "a.t9t";
    Save195(path);
    fs::remove(path);
    Save195(path);
    EXPECT_EQ(desktop.Statuses().back(), Saved(path));
    EXPECT_THAT(Kept(), testing::IsEmpty());
}

TEST_F(KeepingChanged, AFileIsTheSameByAnyOfItsPaths) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    fs::create_directory_symlink(folder.Path(), folder / "link");
    Save195(folder / "a.t9t");
    folder.Write("a.t9t", "fremd");
    const FilePath path = folder / "link" / "a.t9t";
    Save195(path);
    EXPECT_EQ(desktop.Statuses().back(), Saved(path).append(Changed));
    Save195(folder / "a.t9t");
    EXPECT_EQ(desktop.Statuses().back(), Saved(folder / "a.t9t"));
}

TEST_F(KeepingChanged, AnUndoneLoadKnowsItsFileStill) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    const FilePath path = folder / "a.t9t";
    Save195(path);
    Load(path);
    Do([&] { mnuBearbeitenUndo(program, desktop); });
    folder.Write("a.t9t", "fremd");
    Save195(path);
    EXPECT_EQ(desktop.Statuses().back(), Saved(path).append(Changed));
}

#ifndef _WIN32
TEST_F(KeepingChanged, ASaveThatFailsLeavesTheOtherVersionAndTellsTheNextOne) {
    Start(RegisterOfNames({u"Anna", u"Bert"}));
    const FilePath path = folder / "a.t9t";
    Save195(path);
    folder.Write("a.t9t", "fremd");
    fs::permissions(path, fs::perms(0444));
    fs::permissions(folder.Path(), fs::perms(0777));
    {
        const AsAnyUser user;
        Save195(path);
    }
    EXPECT_EQ(desktop.Statuses().back(), "Nicht gespeichert: Zugriff verweigert");
    EXPECT_EQ(ReadFile(path), Raw("'fremd'"));
    fs::permissions(path, fs::perms(0644));
    Save195(path);
    EXPECT_EQ(desktop.Statuses().back(), Saved(path).append(Changed));
}
#endif

}  // namespace
}  // namespace norvik::test
