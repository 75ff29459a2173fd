// The handler that renews the names of the tone list.
#include "mainwindow/handlers.h"

#include "base/runtimeerror.h"
#include "mainwindow/operations.h"
#include "tests/support/filetext.h"
#include "tests/support/handlerfixture.h"
#include "tests/support/testfolder.h"

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

const std::string Question =
    "box \"Diese Aktion benennt, soweit möglich (siehe Anleitung) die Klingeltöne aus dem "
    "Unterverzeichnis '\\tonruf'! neu\\r\\n\" title \"Liste mit Klingeltonnamen erneuern\" icon "
    "Exclamation buttons Ok+Cancel default Ok -> ";

const std::string NoNames =
    "box \"Es wurden keine verwertbaren Klingeltonnamen gefunden!\\r\\n"
    "Existiert das Unterverzeichnis \\tonruf?\\r\\n"
    "Beginnen die Namen mit der zweistelligen Speicherplatznummer?\\r\\n\\r\\n"
    "Die Aktion wird abgebrochen.\" title \"Klingeltonnamen ersetzen: FEHLER\" icon Critical "
    "buttons Ok default Ok -> Ok";

std::ptrdiff_t CountOf(const std::string& part, const std::string& text) {
    std::ptrdiff_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

/// The default names with the name of slot 7 replaced.
std::vector<Text> NamesWithBird() {
    std::vector<Text> names = DefaultToneNames();
    names.at(27) = u"07Vogelzwitschern";
    return names;
}

class NameRingtones : public HandlerFixture {
  protected:
    NameRingtones() {
        program.Folder = folder.Path();
        RegisterEntry entry = Entry(u"Anna", u"030");
        entry.Ton = EnTon + 26;
        Given(RegisterOf({entry, Entry(u"Bernd", u"040")}));
    }

    void GivenTheBird() { folder.Write("tonruf/07Vogelzwitschern.t9r", "not read"); }

    TestFolder folder;
};

TEST_F(NameRingtones, FillsTheChoiceListAndWritesTheFile) {
    GivenTheBird();
    desktop.AnswerBox(Button::Ok);

    mnuNameRingtones(program, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{Question + "Ok", "entry"}));
    EXPECT_EQ(program.Fields.DDTonItems, NamesWithBird());
    EXPECT_EQ(ReadToneNames(folder.Path()), NamesWithBird());
}

TEST_F(NameRingtones, RtLngAlwaysGets80LinesWhateverNumberOfFilesWereFound) {
    GivenTheBird();
    desktop.AnswerBox(Button::Ok).AnswerBox(Button::Ok);
    mnuNameRingtones(program, desktop);
    const std::string one = TextOf(folder / "rt.lng");
    for (int slot = 10; slot < 99; ++slot) {
        folder.Write("tonruf/" + std::to_string(slot) + "a.t9r", "");
    }
    mnuNameRingtones(program, desktop);
    const std::string many = TextOf(folder / "rt.lng");

    EXPECT_EQ(CountOf("\r\n", one), 80);
    EXPECT_TRUE(one.ends_with("\r\nEigen 60\r\n"));
    EXPECT_EQ(CountOf("\r\n", many), 80);
    EXPECT_TRUE(many.ends_with("\r\n60a\r\n"));
}

TEST_F(NameRingtones, TheShownEntrysToneStaysSelected) {
    GivenTheBird();
    ASSERT_EQ(program.Fields.DDTon, 27);
    desktop.AnswerBox(Button::Ok);

    mnuNameRingtones(program, desktop);

    EXPECT_EQ(program.Fields.DDTon, 27);
    EXPECT_TRUE(program.Fields.chkTon);
    EXPECT_EQ(program.Fields.DDTonItems.at(27), u"07Vogelzwitschern");
}

TEST_F(NameRingtones, WithoutAToneTheFirstItemIsSelected) {
    GivenTheBird();
    Given(RegisterOfNames({u"Anna"}));
    desktop.AnswerBox(Button::Ok);
    mnuNameRingtones(program, desktop);
    EXPECT_EQ(program.Fields.DDTon, 0);
    EXPECT_EQ(program.Fields.DDTonItems.at(0), u"kein");
}

TEST_F(NameRingtones, TheChangeIndicatorGetsItsNormalColour) {
    GivenTheBird();
    for (const EditState state : {EditState::Pending, EditState::Stored}) {
        program.Fields.btnSaveChange = state;
        desktop.AnswerBox(Button::Ok);
        mnuNameRingtones(program, desktop);
        EXPECT_EQ(program.Fields.btnSaveChange, EditState::Neutral);
    }
}

TEST_F(NameRingtones, TheRegisterStaysAsItWas) {
    GivenTheBird();
    const Contents before = ContentsOf(program.State);
    desktop.AnswerBox(Button::Ok);
    mnuNameRingtones(program, desktop);
    EXPECT_TRUE(ContentsOf(program.State) == before);
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(NameRingtones, CancelChangesNothing) {
    GivenTheBird();
    program.Fields.btnSaveChange = EditState::Pending;
    desktop.AnswerBox(Button::Cancel);

    mnuNameRingtones(program, desktop);

    EXPECT_EQ(desktop.Transcript, Lines{Question + "Cancel"});
    EXPECT_EQ(program.Fields.DDTonItems, DefaultToneNames());
    EXPECT_EQ(program.Fields.DDTon, 27);
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
    EXPECT_FALSE(std::filesystem::exists(folder / "rt.lng"));
}

TEST_F(NameRingtones, WithoutAUsableFileNothingIsChanged) {
    folder.Write("tonruf/Vogelzwitschern.t9r", "");
    folder.Write("rt.lng", "alt\r\n");
    FillTones(program.Fields, ReadToneNames(folder.Path()));
    norvik::ShowEntry(program);
    program.Fields.btnSaveChange = EditState::Pending;
    desktop.AnswerBox(Button::Ok);

    mnuNameRingtones(program, desktop);

    EXPECT_EQ(desktop.Transcript, (Lines{Question + "Ok", NoNames}));
    EXPECT_EQ(program.Fields.DDTonItems.at(1), u"alt");
    EXPECT_EQ(program.Fields.DDTon, 27);
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
    EXPECT_EQ(ReadFile(folder / "rt.lng"), Raw("'alt' 0D 0A"));
}

TEST_F(NameRingtones, AFileThatCannotBeWrittenIsAnUnhandledRunTimeError) {
    GivenTheBird();
    folder.Write("rt.lng/a", "");
    desktop.AnswerBox(Button::Ok);

    RunOperation([&] { mnuNameRingtones(program, desktop); }, desktop);

    EXPECT_EQ(desktop.Transcript,
              (Lines{Question + "Ok", "entry", "pointer Normal",
                     OkBox(u"Laufzeitfehler '75':\r\n\r\nFehler beim Zugriff auf Pfad/Datei",
                           u"NORVIK", "Critical")}));
}

TEST_F(NameRingtones, WhenWritingFailsTheListIsNewAndTheEntrysToneStillSelected) {
    GivenTheBird();
    folder.Write("rt.lng/a", "");
    program.Fields.btnSaveChange = EditState::Pending;
    desktop.AnswerBox(Button::Ok);

    EXPECT_THROW(mnuNameRingtones(program, desktop), RuntimeError);

    EXPECT_EQ(program.Fields.DDTonItems, NamesWithBird());
    EXPECT_EQ(program.Fields.DDTon, 27);
    EXPECT_TRUE(program.Fields.chkTon);
    btnSaveChange_Click(program, desktop);
    EXPECT_EQ(program.State.Register(1).Ton, EnTon + 26);
}

}  // namespace
}  // namespace norvik::test
