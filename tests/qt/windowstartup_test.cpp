#include "tests/qt/windowfixture.h"

#include <QElapsedTimer>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WindowStartup : public WindowTest {
  protected:
    std::vector<std::string> Items(const QString& list) const {
        const auto* found = Find<QComboBox>(list);
        std::vector<std::string> items;
        for (int i = 0; i < found->count(); ++i) {
            items.push_back(found->itemText(i).toStdString());
        }
        return items;
    }
};

std::vector<std::string> Numbered(const std::string& stem, int first, int last) {
    std::vector<std::string> items;
    for (int number = first; number <= last; ++number) {
        items.push_back(stem + std::to_string(number));
    }
    return items;
}

void Append(std::vector<std::string>& items, const std::vector<std::string>& more) {
    items.insert(items.end(), more.begin(), more.end());
}

TEST_F(WindowStartup, ShowsOneEmptyEntry) {
    Open();

    EXPECT_EQ(Caption(), "norvik Telefonregister - Datei: [keine]");
    EXPECT_EQ(TextOf("Status"), "OK");
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOf("AnzGes"), "1");
    EXPECT_EQ(TextOf("AnzMarkiert"), "0");
    EXPECT_EQ(TextOf("Index"), "1");
    EXPECT_EQ(TextOf("AnzQuelle"), "");
    EXPECT_EQ(TextOf("AnzQuellZeit"), "");
    EXPECT_EQ(Selector()->minimum(), 1);
    EXPECT_EQ(Selector()->maximum(), 1);
    EXPECT_EQ(Selector()->value(), 1);
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowStartup, ShowsTheFieldsOfAnEmptyEntry) {
    Open();

    EXPECT_EQ(TextOfField(0), "");
    EXPECT_EQ(TextOfField(1), "");
    for (int field = 8; field <= 13; ++field) {
        EXPECT_EQ(TextOfField(field), std::string(21, ' ')) << field;
    }
    EXPECT_EQ(TextOfField(2), "00");
    EXPECT_EQ(TextOfField(3), "0");
    EXPECT_EQ(TextOfField(4), "00");
    EXPECT_EQ(TextOfField(5), "0F");
    EXPECT_EQ(TextOfField(6), "00 (1)");
    EXPECT_EQ(TextOfField(7), "00 (1)");
    EXPECT_EQ(TextOf("DDTon"), "kein");
    EXPECT_EQ(TextOf("DDAB"), "(normal)");
    EXPECT_EQ(TextOf("DDMSN"), "(lt. Telefon)");
    EXPECT_EQ(TextOf("AnzGeb"), "0,00");
    EXPECT_TRUE(IsChecked("OptFilter(0)"));
    for (const char* box : {"chkTon", "chkCharge", "chkExport", "chkListFilter", "OptFilter(1)",
                            "OptFilter(2)", "OptFilter(3)"}) {
        EXPECT_FALSE(IsChecked(box)) << box;
    }
    EXPECT_EQ(ButtonColour(), NeutralColour());
}

TEST_F(WindowStartup, PutsTheFocusOnTheName) {
    Open();
    EXPECT_EQ(FocusedField(), 0);
}

TEST_F(WindowStartup, FillsTheAnnouncementsAndTheMsns) {
    Open();
    EXPECT_THAT(Items("DDAB"), ElementsAre("(normal)", "Ansage 1", "Ansage 2", "Ansage 3",
                                           "Ansage 4", "Ansage 5", "Ansage 6", "Ansage 7"));
    EXPECT_THAT(Items("DDMSN"),
                ElementsAre("(lt. Telefon)", "MSN 1", "MSN 2", "MSN 3", "MSN 4", "MSN 5", "MSN 6"));
}

TEST_F(WindowStartup, AMissingToneFileGivesTheFixedNamesAndSixtyOwnMelodies) {
    Open();
    std::vector<std::string> expected = {"kein"};
    Append(expected, Numbered("3Klang ", 1, 3));
    Append(expected, Numbered("2Klang ", 1, 5));
    Append(expected, Numbered("Ton ", 1, 2));
    Append(expected, Numbered("Klingel ", 1, 10));
    Append(expected, Numbered("Eigen ", 1, 60));
    EXPECT_EQ(Items("DDTon"), expected);
    EXPECT_EQ(expected.size(), 81U);
}

TEST_F(WindowStartup, TheToneFileNamesTheTones) {
    Folder.Write("rt.lng", "; names\r\nGong\r\nHarfe & Fl\xF6te\r\n");
    Open();
    std::vector<std::string> expected = {"kein", "Gong", "Harfe & Flöte", "3Klang 3"};
    Append(expected, Numbered("2Klang ", 1, 5));
    Append(expected, Numbered("Ton ", 1, 2));
    Append(expected, Numbered("Klingel ", 1, 10));
    Append(expected, Numbered("Eigen ", 1, 60));
    EXPECT_EQ(Items("DDTon"), expected);
    EXPECT_EQ(TextOf("DDTon"), "kein");
}

TEST_F(WindowStartup, DisablesContinuingASearchAndEnablesSaving) {
    Open();
    EXPECT_FALSE(Find<QAbstractButton>("btnSearchMore")->isEnabled());
    EXPECT_TRUE(Find<QAction>("mnuDateiSaveNV")->isEnabled());
    EXPECT_TRUE(Find<QAction>("MNUDateiSave193")->isEnabled());
}

TEST_F(WindowStartup, TheWindowMadeButNotStartedCannotSave) {
    Make();
    EXPECT_FALSE(Find<QAction>("mnuDateiSaveNV")->isEnabled());
    EXPECT_FALSE(Find<QAction>("MNUDateiSave193")->isEnabled());
}

TEST_F(WindowStartup, PaintsTheStatusTexts) {
    Make();
    const PaintedTexts status(Find<QLabel>("Status"));
    Window->Start({});
    EXPECT_THAT(status.Texts,
                PaintedFrom({"Lade Konstanten...", "Lade Ini-Datei...", "Lade Oberfläche...",
                             "Lade Klingeltöne...", "Lade Startdatei...", "OK"}));
}

TEST_F(WindowStartup, PaintsTheStatusNoMoreOftenThanAScreenShowsIt) {
    Open();
    Folder.Write("register.t9t", NumberedRegisterFile(2000));
    const PaintedTexts status(Find<QLabel>("Status"));
    Dialogs.ChooseFile(PathIn("register.t9t"));
    QElapsedTimer time;
    time.start();
    Trigger("mnuDateiLoadNV");
    // The first text, one each 16 milliseconds, the last one; and whatever the dialog laid bare.
    constexpr std::size_t Others = 4;
    EXPECT_LE(status.Texts.size(), static_cast<std::size_t>(time.elapsed()) / 16 + Others);
    EXPECT_EQ(status.Texts.back(), "Sortieren beendet");
}

TEST_F(WindowStartup, AMissingSettingsFileIsReportedAndTheStartGoesOn) {
    std::filesystem::remove(Folder / "norvik.ini");
    Dialogs.Click(QMessageBox::Ok);
    Open();
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OkBox("Ini-Datei nicht vorhanden. Bitte Einstellungen aufrufen und 1x "
                                  "speichern ('Übernehmen')!",
                                  "NORVIK", "None")));
    EXPECT_EQ(TextOf("Status"), "OK");
    EXPECT_EQ(TextOf("AnzGes"), "1");
}

TEST_F(WindowStartup, UnknownWordsAreReportedOneByOne) {
    Dialogs.Click(QMessageBox::Ok).Click(QMessageBox::Ok);
    Open("Foo <b>fett</b>");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OkBox("Kommandozeilenparameter unbekannt: foo", "NORVIK Programmstart",
                                  "Exclamation"),
                            OkBox("Kommandozeilenparameter unbekannt: <b>fett</b>",
                                  "NORVIK Programmstart", "Exclamation")));
    EXPECT_EQ(TextOf("Status"), "OK");
}

TEST_F(WindowStartup, LoadsTheStartFileOfTheCommandLine) {
    Folder.Write("Mein.T9T", RegisterFile({{.name = "Zoe", .tel = "1"},
                                           {.name = "anna", .tel = "2", .gebEinh = 100}}));
    Open("/L" + PathIn("MEIN.t9t") + " /g0,15");
    EXPECT_EQ(Caption(), "norvik Telefonregister - Datei: " + PathIn("Mein.T9T").toStdString());
    EXPECT_EQ(TextOf("AnzQuelle"), "195");
    EXPECT_EQ(TextOf("AnzGes"), "2");
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOfField(0), "anna");
    EXPECT_EQ(TextOf("AnzGeb"), "15,00");
    EXPECT_THAT(Rows(), ElementsAre("#1: anna (2)", "#2: Zoe (1)"));
    EXPECT_EQ(TextOf("Status"), "OK");
}

TEST_F(WindowStartup, LoadsTheStartFileOfTheSettings) {
    Folder.Write("start.t9t", RegisterFile({{.name = "Anna", .tel = "2", .gebEinh = 100}}));
    Folder.Write("norvik.ini",
                 "LOADFILE = " + PathIn("start.t9t").toStdString() + " \r\nUnit=0.2\r\n");
    Open();
    EXPECT_EQ(TextOfField(0), "Anna");
    EXPECT_EQ(TextOf("AnzGeb"), "20,00");
    Window->close();
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowStartup, PaintsTheStatusTextsOfTheStartFile) {
    Folder.Write("start.t9t",
                 RegisterFile({{.name = "Zoe", .tel = "1"}, {.name = "Anna", .tel = "2"}}));
    Make();
    const PaintedTexts status(Find<QLabel>("Status"));
    Window->Start("/l" + PathIn("start.t9t"));
    EXPECT_THAT(status.Texts,
                PaintedFrom({"Lade Konstanten...", "Lade Ini-Datei...", "Lade Oberfläche...",
                             "Lade Klingeltöne...", "Lade Startdatei...", "Sortiere, Durchgang 1",
                             "Sortiert: 1", "Sortiere, Durchgang 2", "Sortiert: 0",
                             "Suche Datensatz...", "Sortieren beendet", "OK"}));
}

TEST_F(WindowStartup, AStartFileEndingInTxtGivesTheAutoloadMessageAndLeavesOneEmptyEntry) {
    Dialogs.Click(QMessageBox::Ok);
    Open("/lc:\\X\\y.TXT");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OkBox("c:\\x\\y.txt kann nicht automatisch geladen werden", "Autoload",
                                  "Critical")));
    EXPECT_EQ(TextOf("AnzGes"), "1");
    EXPECT_EQ(TextOfField(0), "");
    EXPECT_EQ(Caption(), "norvik Telefonregister - Datei: [keine]");
    EXPECT_EQ(TextOf("Status"), "OK");
}

TEST_F(WindowStartup, AStartFileWithoutEntriesIsNotSorted) {
    Folder.Write("leer.t9t", RegisterFile({}));
    Open("/l" + PathIn("leer.t9t"));
    EXPECT_EQ(TextOf("AnzGes"), "0");
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOfField(0), "");
    EXPECT_EQ(TextOf("Status"), "OK");
    EXPECT_EQ(HardStops, 0);
}

TEST_F(WindowStartup, AStartFileThatDoesNotExistIsReportedByTheReader) {
    Dialogs.Click(QMessageBox::Ok);
    Open("/l" + PathIn("fehlt.t9t"));
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OkBox("mnuLade193195: 53Datei nicht gefunden", " ", "None")));
    EXPECT_EQ(TextOf("AnzGes"), "1");
    EXPECT_EQ(TextOf("Status"), "OK");
}

}  // namespace

}  // namespace norvik::test
