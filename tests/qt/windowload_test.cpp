#include "tests/qt/windowfixture.h"
#include "tests/support/times.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QPlainTextEdit>
#include <QScreen>

#include <ctime>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string OpenDialog = "open \"NV-195-Datei (*.t9t)|Alle Dateien (*)\" name \"\"";

class WindowLoad : public WindowTest {
  protected:
    WindowLoad() { Open(); }

    /// 20 November 2026, 09:05 local time.
    void SetModified(const char* name) const {
        const FileTime time = LocalTime(2026, 11, 20, 9, 5, 0);
        std::filesystem::last_write_time(Folder / name, std::chrono::file_clock::from_sys(time));
    }
};

TEST_F(WindowLoad, LoadsSortsAndShowsEntryOne) {
    Folder.Write("Register.t9t", RegisterFile({{.name = "Zoe", .tel = "030 1", .info = "Info"},
                                               {.name = "anna", .tel = "2"},
                                               {.name = "\x8Erger", .tel = "3"},
                                               {.name = "Bernd", .tel = "4", .info = "()"}}));
    SetModified("Register.t9t");
    Dialogs.ChooseFile(PathIn("Register.t9t"));

    Trigger("mnuDateiLoadNV");

    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenDialog));
    EXPECT_EQ(Caption(), "norvik Telefonregister - Datei: " + PathIn("Register.t9t").toStdString());
    EXPECT_EQ(TextOf("AnzQuelle"), "195");
    EXPECT_EQ(TextOf("AnzQuellZeit"), "20.11.2026 09:05");
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOf("AnzGes"), "4");
    EXPECT_EQ(TextOf("AnzMarkiert"), "1");
    EXPECT_EQ(TextOf("Index"), "2");
    EXPECT_EQ(Selector()->maximum(), 4);
    EXPECT_EQ(TextOfField(0), "anna");
    EXPECT_THAT(Rows(), ElementsAre("#1: anna (2)", "#2: Bernd (4) ()", "#3: Zoe (030 1) Info",
                                    "#4: Ärger (3)"));
    EXPECT_EQ(SelectedRow(), "#1: anna (2)");
    EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
    EXPECT_EQ(ButtonColour(), NeutralColour());
}

TEST_F(WindowLoad, ANameWithoutAnEndingGetsIt) {
    Folder.Write("a.b/Register.t9t", RegisterFile({{.name = "Anna", .tel = "2"}}));
    Dialogs.ChooseFile(PathIn("a.b/Register"));
    Trigger("mnuDateiLoadNV");
    EXPECT_EQ(Caption(),
              "norvik Telefonregister - Datei: " + PathIn("a.b/Register.t9t").toStdString());
    EXPECT_EQ(TextOfField(0), "Anna");
}

TEST_F(WindowLoad, ANameWithAPointStaysAsItIs) {
    Folder.Write("Register.alt", RegisterFile({{.name = "Anna", .tel = "2"}}));
    Dialogs.ChooseFile(PathIn("Register.alt"));
    Trigger("mnuDateiLoadNV");
    EXPECT_EQ(TextOfField(0), "Anna");
}

TEST_F(WindowLoad, ACancelledDialogChangesNothing) {
    Type(0, "getippt");
    Dialogs.Cancel();
    Trigger("mnuDateiLoadNV");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenDialog));
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(TextOf("Status"), "OK");
    EXPECT_EQ(Caption(), "norvik Telefonregister - Datei: [keine]");
}

TEST_F(WindowLoad, AFileThatDoesNotExistIsReportedAndTheRegisterStays) {
    Load({{.name = "Anna", .tel = "2"}});
    Dialogs.ChooseFile(PathIn("fehlt.t9t")).Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadNV");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenDialog, OkBox("Dateizugriff fehlgeschlagen!",
                                                                  "Zugriffsfehler", "Critical")));
    EXPECT_EQ(TextOfField(0), "Anna");
    EXPECT_EQ(Caption(), "norvik Telefonregister - Datei: " + PathIn("register.t9t").toStdString());
}

TEST_F(WindowLoad, AMissingFolderIsReportedWithNumberAndDescription) {
    Dialogs.ChooseFile(PathIn("fehlt/x.t9t")).Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadNV");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OpenDialog, OkBox("Undef'd Error: mnuDateiLoadNV:76Pfad nicht gefunden",
                                              "NORVIK", "None")));
}

TEST_F(WindowLoad, ADeviantHeaderWarnsAndReadingGoesOn) {
    Bytes file = RegisterFile({{.name = "Anna", .tel = "2"}});
    file[2] = 'X';
    Folder.Write("x.t9t", file);
    Dialogs.ChooseFile(PathIn("x.t9t")).Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadNV");
    EXPECT_THAT(
        Dialogs.Transcript,
        ElementsAre(OpenDialog, OkBox("Abweichender Header", "norvik 195 laden", "Exclamation")));
    EXPECT_EQ(TextOfField(0), "Anna");
}

TEST_F(WindowLoad, TheCheckReportsWhatItFound) {
    Folder.Write("x.t9t", RegisterFile({{.name = "Anna", .tel = "2", .ab = 8},
                                        {.name = "Bernd", .tel = "3", .ton = 80}}));
    Dialogs.ChooseFile(PathIn("x.t9t")).Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadNV");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OpenDialog, OkBox("Es wurden 2 Fehler korrigiert\n\n"
                                              "#0[Anna] Ansage zu hoch: 8\n"
                                              "#1[Bernd] Klang zu hoch: 80\n",
                                              "Fehlerprüfung", "Information")));
    EXPECT_EQ(TextOf("DDAB"), "(normal)");
    EXPECT_EQ(TextOf("AnzGes"), "2");
}

TEST_F(WindowLoad, AReportOfThousandsOfLinesStandsInAPartThatScrolls) {
    constexpr int Entries = 2000;
    std::vector<std::string> names;
    for (int i = 0; i < Entries; ++i) {
        names.push_back(QString("N%1").arg(i, 4, 10, QChar(u'0')).toStdString());
    }
    std::vector<FileRecord> records;
    QString report = "Es wurden 4000 Fehler korrigiert\n\n";
    for (int i = 0; i < Entries; ++i) {
        const std::string& name = names[static_cast<std::size_t>(i)];
        records.push_back({.name = name, .tel = "1", .ton = 127, .ab = 99});
        const QString start = QString("#%1[%2] ").arg(i).arg(QString::fromStdString(name));
        report += start + "Ansage zu hoch: 99\n" + start + "Klang zu hoch: 127\n";
    }
    Folder.Write("x.t9t", RegisterFile(records));
    Dialogs.ChooseFile(PathIn("x.t9t"))
        .Look([](QDialog& dialog) {
            const QRect screen = dialog.screen()->availableGeometry();
            EXPECT_TRUE(screen.contains(dialog.frameGeometry()));
            const auto* view = dialog.findChild<QPlainTextEdit*>();
            EXPECT_TRUE(view->isReadOnly());
            const auto* button = dialog.findChild<QAbstractButton*>();
            ASSERT_NE(button, nullptr);
            EXPECT_FALSE(button->visibleRegion().isEmpty());
            EXPECT_TRUE(screen.contains(button->mapToGlobal(button->rect().bottomRight())));
        })
        .Press(Qt::Key_Return);
    Trigger("mnuDateiLoadNV");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OpenDialog, "text \"" + report.toStdString() +
                                            "\" title \"Fehlerprüfung\" buttons OK default OK"));
    EXPECT_EQ(TextOf("AnzGes"), "2000");
    EXPECT_EQ(TextOfField(0), "N0000");
}

TEST_F(WindowLoad, ABoxThatScrollsIsClosedByEscapeToo) {
    std::vector<FileRecord> records(300, {.name = "Anna", .tel = "1", .ab = 8});
    Folder.Write("x.t9t", RegisterFile(records));
    Dialogs.ChooseFile(PathIn("x.t9t")).Press(Qt::Key_Escape);
    Trigger("mnuDateiLoadNV");
    EXPECT_EQ(Dialogs.Transcript.size(), 2U);
    EXPECT_EQ(TextOf("AnzGes"), "300");
}

TEST_F(WindowLoad, AFileOfThe193IsRecognised) {
    Folder.Write("x.t9t", Join({Raw("06 0D 'TStCollection' 02 64 01"),
                                Raw("02 00 02 01 06 04 'Anna' 06 01 '2' 02 00 02 41 02 00 02 00"),
                                Raw("00")}));
    Dialogs.ChooseFile(PathIn("x.t9t"));
    Trigger("mnuDateiLoadNV");
    EXPECT_EQ(TextOf("AnzQuelle"), "193");
    EXPECT_EQ(TextOf("DDMSN"), "(lt. Telefon)");
    EXPECT_EQ(TextOfField(5), "4F");
    EXPECT_TRUE(IsChecked("OptFilter(1)"));
}

TEST_F(WindowLoad, The2001stRecordIsAnErrorWithABlankTitle) {
    Folder.Write("x.t9t", NumberedRegisterFile(2001));
    Dialogs.ChooseFile(PathIn("x.t9t")).Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadNV");
    EXPECT_THAT(
        Dialogs.Transcript,
        ElementsAre(OpenDialog,
                    OkBox("mnuLade193195: 9Index außerhalb des gültigen Bereichs", " ", "None")));
    EXPECT_EQ(TextOf("AnzGes"), "2000");
    EXPECT_EQ(TextOfField(0), "Name 0001");
}

TEST_F(WindowLoad, AFileWithoutEntriesEndsTheProgramWithSortierfehler) {
    Folder.Write("leer.t9t", RegisterFile({}));
    Dialogs.ChooseFile(PathIn("leer.t9t"))
        .Look([](QDialog&) { EXPECT_EQ(QApplication::overrideCursor(), nullptr); })
        .Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadNV");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenDialog, OkBox("Sortierfehler", " ", "None")));
    EXPECT_EQ(HardStops, 1);
    Window.reset();
    QApplication::restoreOverrideCursor();  // a process that ended has none
}

TEST_F(WindowLoad, AWrongTagEndsTheProgramWithoutAQuestion) {
    Click("btnNew");
    Folder.Write("kaputt.t9t", Join({Raw("06 0D 'TStCollection' 02 64 01"),
                                     Raw("02 00 02 01 07 04 'Anna' 06 01 '2'")}));
    Dialogs.ChooseFile(PathIn("kaputt.t9t"));
    Trigger("mnuDateiLoadNV");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenDialog));
    EXPECT_EQ(HardStops, 1);
    Window.reset();
    QApplication::restoreOverrideCursor();
}

TEST_F(WindowLoad, TheFileDialogIsTheToolkitsOwnAndGerman) {
    Dialogs
        .Look([](QDialog& dialog) {
            const auto& file = dynamic_cast<QFileDialog&>(dialog);
            EXPECT_EQ(file.windowTitle(), "Öffnen");
            const auto* buttons = dialog.findChild<QDialogButtonBox*>();
            EXPECT_EQ(WithoutMnemonic(buttons->button(QDialogButtonBox::Open)->text()), "Öffnen");
            EXPECT_EQ(WithoutMnemonic(buttons->button(QDialogButtonBox::Cancel)->text()),
                      "Abbrechen");
            EXPECT_EQ(WithoutMnemonic(dialog.findChild<QLabel*>("fileNameLabel")->text()),
                      "Dateiname:");
        })
        .Cancel();
    Trigger("mnuDateiLoadNV");
}

TEST_F(WindowLoad, TheCaptionShowsANameThatHoldsThePlaceholderOfTheToolkit) {
    Folder.Write("a[*]b.t9t", RegisterFile({{.name = "Anna", .tel = "2"}}));
    Dialogs.ChooseFile(PathIn("a[*]b.t9t"));
    Trigger("mnuDateiLoadNV");
    EXPECT_EQ(Window->windowHandle()->title(),
              "norvik Telefonregister - Datei: " + PathIn("a[*]b.t9t"));
}

TEST_F(WindowLoad, CharactersOutsideTheRepertoireAreQuestionMarksInTheCaption) {
    Folder.Write(u8"Жanna.t9t", RegisterFile({{.name = "Anna", .tel = "2"}}));
    Dialogs.ChooseFile(PathIn("Жanna.t9t"));
    Trigger("mnuDateiLoadNV");
    EXPECT_EQ(Caption(), "norvik Telefonregister - Datei: " + PathIn("?anna.t9t").toStdString());
    EXPECT_EQ(TextOfField(0), "Anna");
}

TEST_F(WindowLoad, LoadingAgainReplacesTheRegister) {
    Load({{.name = "Anna", .tel = "2"}, {.name = "Bernd", .tel = "3", .info = "()"}});
    Load({{.name = "Carla", .tel = "4"}});
    EXPECT_THAT(Rows(), ElementsAre("#1: Carla (4)"));
    EXPECT_EQ(TextOf("AnzGes"), "1");
    EXPECT_EQ(TextOf("AnzMarkiert"), "0");
    EXPECT_EQ(Selector()->maximum(), 1);
}

TEST_F(WindowLoad, ALoadedRegisterNeedNotBeSaved) {
    Load({{.name = "Anna", .tel = "2"}});
    EXPECT_TRUE(Window->close());
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

}  // namespace

}  // namespace norvik::test
