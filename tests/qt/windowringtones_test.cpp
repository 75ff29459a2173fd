#include "tests/qt/windowfixture.h"
#include "tests/support/processlimits.h"

#include <filesystem>

namespace norvik::test {

namespace {

using testing::ElementsAre;

namespace fs = std::filesystem;

const std::string Question =
    "box \"Diese Aktion benennt, soweit möglich (siehe Anleitung) die Klingeltöne aus dem "
    "Unterverzeichnis '\\tonruf'! neu\n\" title \"Liste mit Klingeltonnamen erneuern\" icon "
    "Exclamation buttons OK+Abbrechen default OK";
const std::string NoNames = OkBox("Es wurden keine verwertbaren Klingeltonnamen gefunden!\n"
                                  "Existiert das Unterverzeichnis \\tonruf?\n"
                                  "Beginnen die Namen mit der zweistelligen Speicherplatznummer?\n"
                                  "\n"
                                  "Die Aktion wird abgebrochen.",
                                  "Klingeltonnamen ersetzen: FEHLER", "Critical");

/// The names of the tones 0 to 79, the own ones as they are without tone files.
std::vector<std::string> DefaultNames() {
    std::vector<std::string> names = {
        "3Klang 1",  "3Klang 2",  "3Klang 3",  "2Klang 1",  "2Klang 2",  "2Klang 3",  "2Klang 4",
        "2Klang 5",  "Ton 1",     "Ton 2",     "Klingel 1", "Klingel 2", "Klingel 3", "Klingel 4",
        "Klingel 5", "Klingel 6", "Klingel 7", "Klingel 8", "Klingel 9", "Klingel 10"};
    for (int i = 1; i <= 60; ++i) {
        names.push_back("Eigen " + std::to_string(i));
    }
    return names;
}

std::string Lines(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += name + "\r\n";
    }
    return text;
}

/// Renewing the tone names; entry 1 rings with own melody 1, entry 2 with own melody 3.
class WindowRingtones : public WindowTest {
  protected:
    WindowRingtones() {
        Load({{.name = "Anna", .tel = "1", .ton = 0x94}, {.name = "Bernd", .tel = "2", .ton = 22}});
    }

    std::vector<std::string> Choices() const {
        std::vector<std::string> items;
        for (int i = 0; i < Find<QComboBox>("DDTon")->count(); ++i) {
            items.push_back(Find<QComboBox>("DDTon")->itemText(i).toStdString());
        }
        return items;
    }

    static std::vector<std::string> BehindNone(std::vector<std::string> names) {
        names.insert(names.begin(), "kein");
        return names;
    }

    bool HasNamesFile() const { return fs::exists(Folder / "rt.lng"); }
};

TEST_F(WindowRingtones, TheToneFilesNameTheOwnMelodies) {
    Folder.Write("tonruf/01Hund.t9r", "");
    Folder.Write("tonruf/3Katze.t9r", "");
    Folder.Write(u8"tonruf/60Löwe.T9R", "");
    Retype(0, "getippt");
    Click("chkTon");
    ASSERT_EQ(ButtonColour(), Pending);
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuNameRingtones");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Question));
    std::vector<std::string> names = DefaultNames();
    names[20] = "01Hund";
    names[22] = "3Katze";
    names[79] = "60Löwe";
    EXPECT_EQ(Choices(), BehindNone(names));
    names[79] = "60L\xF6we";
    EXPECT_EQ(FileText("rt.lng"), Lines(names));
    EXPECT_EQ(TextOf("DDTon"), "01Hund") << "the shown entry's tone stays selected";
    EXPECT_TRUE(IsChecked("chkTon"));
    EXPECT_EQ(TextOfField(0), "Anna") << "the entry is shown again";
    EXPECT_EQ(ButtonColour(), NeutralColour());
    EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
    Selector()->setValue(2);
    EXPECT_EQ(TextOf("DDTon"), "3Katze");
    EXPECT_EQ(TextOfField(2), "16");
    EXPECT_TRUE(Window->close()) << "the register is as saved as it was";
}

TEST_F(WindowRingtones, TheNextStartReadsTheNewNames) {
    Folder.Write("tonruf/07Vogelzwitschern.t9r", "");
    Dialogs.Press(Qt::Key_Return);
    Trigger("mnuNameRingtones");
    const std::vector<std::string> renewed = Choices();
    Open();
    EXPECT_EQ(Choices(), renewed);
    EXPECT_EQ(Choices().at(27), "07Vogelzwitschern");
}

TEST_F(WindowRingtones, OnlyUsableFilesOfTheFolderCount) {
    for (const char* name :
         {"00Test.t9r", "61Zuviel.t9r", "Hund.t9r", "05a.t9r", "05B.t9r", "06x.wav", ".07x.t9r"}) {
        Folder.Write(FilePath("TonRuf") / name, "");
    }
    fs::create_directory(Folder / "TonRuf" / "08Ordner.t9r");
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuNameRingtones");
    std::vector<std::string> names = DefaultNames();
    names[24] = "05B";
    EXPECT_EQ(Choices(), BehindNone(names));
    EXPECT_EQ(FileText("rt.lng"), Lines(names));
}

TEST_F(WindowRingtones, AnOldNamesFileIsReplacedWhole) {
    Folder.Write("rt.lng", std::string(5000, 'x'));
    Folder.Write("tonruf/01Hund.t9r", "");
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuNameRingtones");
    std::vector<std::string> names = DefaultNames();
    names[20] = "01Hund";
    EXPECT_EQ(FileText("rt.lng"), Lines(names));
}

TEST_F(WindowRingtones, WithoutAUsableFileNothingIsChanged) {
    const std::vector<std::string> before = Choices();
    Click("chkTon");
    Dialogs.Click(QMessageBox::Ok).Click(QMessageBox::Ok);
    Trigger("mnuNameRingtones");
    Folder.Write("tonruf/00Test.t9r", "");
    Dialogs.Click(QMessageBox::Ok).Press(Qt::Key_Return);
    Trigger("mnuNameRingtones");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Question, NoNames, Question, NoNames));
    EXPECT_EQ(Choices(), before);
    EXPECT_FALSE(HasNamesFile());
    EXPECT_EQ(ButtonColour(), Pending);
}

TEST_F(WindowRingtones, RefusingChangesNothing) {
    Folder.Write("tonruf/01Hund.t9r", "");
    const std::vector<std::string> before = Choices();
    Retype(0, "getippt");
    Click("chkTon");
    Dialogs.Cancel().Press(Qt::Key_Escape).Close();
    for (int i = 0; i < 3; ++i) {
        Trigger("mnuNameRingtones");
    }
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Question, Question, Question));
    EXPECT_EQ(Choices(), before);
    EXPECT_EQ(TextOf("DDTon"), "Eigen 1");
    EXPECT_FALSE(HasNamesFile());
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(ButtonColour(), Pending);
}

#ifndef _WIN32
TEST_F(WindowRingtones, ANamesFileThatCannotBeWrittenIsARuntimeErrorAndStaysWhole) {
    Folder.Write("rt.lng", "alt");
    Folder.Write("tonruf/01Hund.t9r", "");
    fs::permissions(Folder.Path(), fs::perms(0555));
    {
        const AsAnyUser anyUser;
        Dialogs.Click(QMessageBox::Ok).Click(QMessageBox::Ok);
        Trigger("mnuNameRingtones");
    }
    fs::permissions(Folder.Path(), fs::perms::owner_all);
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(Question, RuntimeErrorBox(70, "Zugriff verweigert")));
    EXPECT_EQ(FileText("rt.lng"), "alt");
    EXPECT_EQ(TextOf("DDTon"), "01Hund");
}
#endif

TEST_F(WindowRingtones, AStoredEntryKeepsItsTone) {
    Folder.Write("tonruf/02Katze.t9r", "");
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuNameRingtones");
    Click("btnSaveChange");
    Selector()->setValue(2);
    Selector()->setValue(1);
    EXPECT_EQ(TextOfField(2), "94");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Question));
}

}  // namespace

}  // namespace norvik::test
