#include "mainwindow/versionswindow.h"

#include "formats/registerfile/registerfilemenu.h"
#include "mainwindow/keeping.h"
#include "mainwindow/undo.h"
#include "tests/support/handlerfixture.h"
#include "tests/support/testfolder.h"
#include "tests/support/times.h"
#include "versions/keptregister.h"

#include <gmock/gmock.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class VersionsWindow : public HandlerFixture {
  protected:
    VersionsWindow() {
        program.Keep.Folder = folder / "staende";
        desktop.OnBeforeReplacing = [this](const FilePath& path) {
            return KeepReplaced(program, path);
        };
        Given(RegisterOfNames({u"Zoe"}));
        StartHistory(program.Past, program.State);
    }

    void Do(const std::function<void()>& operation) {
        RunStep(program, VersionLoadedStep, operation, desktop);
    }
    void Open() {
        Do([&] { mnuDateiVersions(program, desktop); });
    }
    void Load() {
        Do([&] { VERSIONS_btnLoad_Click(program, desktop, desktop); });
    }
    void SaveAs(const FilePath& path) {
        desktop.AnswerFile(path);
        Do([&] { VERSIONS_btnSaveAs_Click(program, desktop); });
    }

    void Keep(std::int64_t when, const RegisterState& state) {
        ASSERT_TRUE(KeepVersion(program.Keep.Folder, {.When = when,
                                                      .Why = VersionReason::NotSavedAtLoad,
                                                      .Original = state.File.Path,
                                                      .IsRegister = true,
                                                      .Content = EncodeRegister(state)}));
    }
    void KeepBytes(std::int64_t when, const FilePath& original, const Bytes& bytes) {
        ASSERT_TRUE(KeepVersion(program.Keep.Folder, {.When = when,
                                                      .Why = VersionReason::Replaced,
                                                      .Original = original,
                                                      .Content = bytes}));
    }

    /// The bytes of a 195 file with these names.
    Bytes FileOf(std::initializer_list<TextView> names) {
        ScriptedDesktop quiet;
        quiet.AnswerFile(folder / "bytes.t9t");
        RegisterState state = RegisterOfNames(names);
        mnuDateiSaveNV(state, quiet);
        return ReadFile(folder / "bytes.t9t");
    }

    [[nodiscard]] const VersionsFields& Fields() const { return program.Versions; }

    TestFolder folder;
    static constexpr std::int64_t When = 1'700'000'000;
};

TEST_F(VersionsWindow, ShowsTheVersionsTheNewestChosen) {
    RegisterState state = RegisterOfNames({u"Bert", u"Anna"});
    state.File.Path = "/tmp/buch.t9t";
    Keep(When, state);
    KeepBytes(When + 60, "/tmp/alt.t9t", FileOf({u"Carl"}));
    desktop.Transcript.clear();
    Open();
    EXPECT_TRUE(Fields().Open);
    ASSERT_THAT(Fields().ListVersions, SizeIs(2));
    const VersionRow& newest = Fields().ListVersions[0];
    EXPECT_EQ(newest.When, FormatDateTime(FileTimeOf(When + 60, 0).value()));
    EXPECT_EQ(newest.Original, u"/tmp/alt.t9t");
    EXPECT_EQ(newest.Why, u"ersetzt");
    EXPECT_EQ(newest.Entries, u"1");
    EXPECT_EQ(Fields().ListVersions[1].Why, u"beim Laden nicht gesichert");
    EXPECT_EQ(Fields().ListVersions[1].Entries, u"2");
    EXPECT_EQ(Fields().Chosen, 0);
    EXPECT_THAT(Fields().ListNames, ElementsAre(u"Carl"));
    ListVersions_Click(program, 1);
    EXPECT_THAT(Fields().ListNames, ElementsAre(u"Bert", u"Anna"));
    EXPECT_THAT(desktop.Transcript, ElementsAre("show VERSIONS", "pointer Normal"));
}

TEST_F(VersionsWindow, WithoutAVersionNothingCanBeDone) {
    Open();
    EXPECT_EQ(Fields().Chosen, -1);
    Load();
    Do([&] { VERSIONS_btnSaveAs_Click(program, desktop); });
    VERSIONS_btnRemove_Click(program);
    EXPECT_THAT(desktop.Questions(), ElementsAre("show VERSIONS"));
}

TEST_F(VersionsWindow, AKeptRegisterComesBackExactly) {
    RegisterState state = RegisterOf({Entry(u"Zita", u"9", u"Info"), Entry(u"Anna", u"1")});
    state.LoadedModel = u"193";
    state.File = {.Type = u"193", .Path = "/tmp/buch.t9t", .Modified = FileTimeOf(When, 5)};
    Keep(When, state);
    Open();
    desktop.Transcript.clear();
    Load();
    EXPECT_EQ(ContentsOf(program.State), ContentsOf(state));
    EXPECT_EQ(program.State.LoadedModel, u"193");
    EXPECT_EQ(program.State.File.Path, "/tmp/buch.t9t");
    EXPECT_EQ(program.State.File.Modified, state.File.Modified);
    EXPECT_FALSE(program.State.RegisterSaved);
    EXPECT_EQ(Field(NameField), u"Zita");
    EXPECT_THAT(desktop.Questions(), ElementsAre("file", "entry", "list"));
    EXPECT_EQ(UndoCaption(program), u"&Rückgängig: Früheren Stand laden");
    Do([&] { mnuBearbeitenUndo(program, desktop); });
    EXPECT_THAT(Names(program.State), ElementsAre(u"Zoe"));
}

TEST_F(VersionsWindow, ALoadKeepsWhatNoSaveHoldsAndTheTableShowsIt) {
    Keep(When, RegisterOfNames({u"Anna"}));
    Open();
    Field(NameField) = u"Zora";
    Do([&] { btnSaveChange_Click(program, desktop); });
    Load();
    ASSERT_THAT(Fields().ListVersions, SizeIs(2));
    EXPECT_EQ(Fields().Chosen, 1);  // the same version as before
    EXPECT_THAT(Fields().ListNames, ElementsAre(u"Anna"));
    ListVersions_Click(program, 0);
    EXPECT_THAT(Fields().ListNames, ElementsAre(u"Zora"));
}

TEST_F(VersionsWindow, TheBytesOfAFileLoadAsAFileOfTheirKind) {
    KeepBytes(When, "/tmp/alt.t9t", FileOf({u"Carl", u"Anna"}));
    Open();
    Load();
    EXPECT_THAT(Names(program.State), ElementsAre(u"Anna", u"Carl"));
    EXPECT_EQ(program.State.File.Path, "/tmp/alt.t9t");
    EXPECT_FALSE(program.State.RegisterSaved);
    EXPECT_FALSE(IsHeld(program.Past, program.State));
}

TEST_F(VersionsWindow, ADamagedFileEndsNothing) {
    KeepBytes(
        When, "/tmp/kaputt.t9t",
        Join({Raw("06 0D 'TStCollection' 02 64 01"), Raw("02 00 02 01 06 04 'Anna' 07 01 '2'")}));
    Open();
    EXPECT_EQ(Fields().ListVersions.at(0).Entries, u"?");
    EXPECT_THAT(Fields().ListNames, IsEmpty());
    desktop.Transcript.clear();
    Load();
    EXPECT_THAT(desktop.Questions(),
                ElementsAre(OkBox(u"Dieser Stand lässt sich nicht lesen.", u"NORVIK", "Critical")));
    EXPECT_THAT(Names(program.State), ElementsAre(u"Zoe"));
}

TEST_F(VersionsWindow, AKeptRegisterIsSavedInTheFormatOfTheEnding) {
    Keep(When, RegisterOfNames({u"Anna", u"Bert"}));
    Open();
    SaveAs(folder / "neu");
    EXPECT_EQ(desktop.Statuses().back(), "Gespeichert: " + (folder / "neu.t9t").string());
    EXPECT_EQ(ReadFile(folder / "neu.t9t"), FileOf({u"Anna", u"Bert"}));
    SaveAs(folder / "neu.pbo");
    SaveAs(folder / "neu.csv");
    SaveAs(folder / "neu.vcf");
    EXPECT_THAT(FilesIn(folder.Path()),
                ElementsAre("bytes.t9t", "neu.csv", "neu.pbo", "neu.t9t", "neu.vcf", "staende"));
    const Bytes contacts = ReadFile(folder / "neu.vcf");
    EXPECT_THAT(std::string(contacts.begin(), contacts.end()),
                testing::StartsWith("BEGIN:VCARD\r\n"));
    EXPECT_THAT(Names(program.State), ElementsAre(u"Zoe"));
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(VersionsWindow, TheBytesOfAFileAreSavedAsTheyAre) {
    Bytes bytes = FileOf({u"Carl"});
    bytes.push_back(0x55);
    KeepBytes(When, "/tmp/alt.t9t", bytes);
    Open();
    SaveAs(folder / "neu.t9t");
    EXPECT_EQ(ReadFile(folder / "neu.t9t"), bytes);
}

TEST_F(VersionsWindow, WhatIsNoRegisterIsNotLoadedAndSavedAsItIs) {
    const std::pair<const char*, Bytes> files[] = {
        {".pdf", Raw("'%PDF-1.3' 0A 'a;1' 0D 0A 00 7F 'b;2' 0D 0A")},
        {".t9t", Join({Raw("06 0D 'TStCollection' 02 64 01"), Raw("02 00 02 01 06 04 'Anna'"),
                       Raw("07 01 '2'")})},
        {"", Raw("01 'a;1' 0D 0A")}};
    for (const auto& [ending, bytes] : files) {
        KeepBytes(When, FilePath("/tmp/alt") += ending, bytes);
        Open();
        ASSERT_EQ(Fields().ListVersions.size(), 1U);
        EXPECT_EQ(Fields().ListVersions.at(0).Entries, u"?");
        EXPECT_THAT(Fields().ListNames, IsEmpty());
        Load();
        EXPECT_EQ(desktop.Questions().back(),
                  OkBox(u"Dieser Stand lässt sich nicht lesen.", u"NORVIK", "Critical"));
        SaveAs(folder / "neu");
        const FilePath saved = FilePath(folder / "neu") += ending;
        EXPECT_EQ(desktop.Statuses().back(), "Gespeichert: " + saved.string());
        EXPECT_EQ(ReadFile(saved), bytes);
        Do([&] { VERSIONS_btnRemove_Click(program); });
    }
    EXPECT_THAT(Names(program.State), ElementsAre(u"Zoe"));
}

TEST_F(VersionsWindow, ARemovedVersionIsGone) {
    Keep(When, RegisterOfNames({u"Anna"}));
    Keep(When + 1, RegisterOfNames({u"Bert"}));
    Open();
    Do([&] { VERSIONS_btnRemove_Click(program); });
    EXPECT_THAT(Fields().ListVersions, SizeIs(1));
    EXPECT_THAT(Fields().ListNames, ElementsAre(u"Anna"));
    EXPECT_THAT(FilesIn(program.Keep.Folder), SizeIs(1));
    Do([&] { VERSIONS_btnClose_Click(program, desktop); });
    EXPECT_FALSE(Fields().Open);
    EXPECT_EQ(desktop.Questions().back(), "close VERSIONS");
}

TEST_F(VersionsWindow, TheMenuItemHasAMarkUntilItIsOpened) {
    EXPECT_EQ(VersionsCaption(program), u"&Frühere Stände...");
    program.Keep.Note = u"Das Programm wurde abgebrochen.";
    EXPECT_EQ(VersionsCaption(program), u"&Frühere Stände... •");
    Open();
    EXPECT_EQ(VersionsCaption(program), u"&Frühere Stände...");
}

}  // namespace
}  // namespace norvik::test
