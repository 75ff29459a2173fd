#include "tests/qt/windowfixture.h"

#include <QApplication>
#include <QDialogButtonBox>

#include <algorithm>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string AddZeros =
    "box \"Diese Funktion fügt zu allen Telefonnummern eine Null\n"
    "hinzu, um das Telefon an Anlagen ohne automatische Amtholung\n"
    "einsetzen zu können.\n"
    "Ausnahme: \n"
    "Bei internen Telefonnummern (i/*) werden i oder * entfernt.\n"
    "Sind Sie sicher, daß Sie diese Funktion ausführen möchten?\" "
    "title \"Konvertierung bestätigen\" icon Question buttons Ja+Nein default Nein";
const std::string RemoveZeros =
    "box \"Diese Funktion entfernt bei allen Telefonnummern eine Null,\n"
    "um ein an Anlagen ohne automatische Amtholung eingesetztes Telefon\n"
    "an einem normalen Anschluß einsetzen zu können oder um z.B. die \n"
    "automatische Amtholung durch Telefonanlage oder das Telefon zu verwenden. \n"
    "Interne Nummern (ohne Null) müssen dabei gesondert behandelt werden.\n"
    "Wollen Sie die automatische Amtholung eines Norvik 195 einsetzen?\n"
    "- Wählen Sie JA, damit das entsprechende 'i' für interne Anrufe eingetragen wird.\n"
    "  Am Telefon muß automat. Amtholung aktiviert, die Anlagenamtholung deaktviert sein.\n"
    "- Wählen Sie NEIN, um ein anlagenspezifisches Zeichen vorzusetzen.\n"
    "  Am Telefon muß automat. Amtholung deaktiviert, die Anlagenamtholung aktviert sein.\n"
    "Wählen Sie ABBRECHEN, um die Konvertierung abzubrechen.\" "
    "title \"Konvertierung bestätigen\" icon Question buttons Abbrechen+Ja+Nein default Abbrechen";
const std::string AskCode =
    "input \"Welchen Code sollen interne Telefonnummern vorgesetzt bekommen?\n"
    "Für ältere Auerswald-Anlagen bspw. '*',\n"
    "für neuere Norvik-Anlagen bspw. '##',\n"
    "für Fritzboxen '**'\" title \"Code für interne Telefonate\" preset \"##\"";
const std::string KillMsn =
    "box \"Diese Aktion löscht alle Einstellungen zu abgehenden MSN!\n\" "
    "title \"MSN löschen\" icon Exclamation buttons OK+Abbrechen default Abbrechen";

/// The line-access zero on a register whose entry 2 is shown.
class WindowZero : public WindowTest {
  protected:
    WindowZero() {
        Load({{.name = "A", .tel = "0301234"},
              {.name = "B", .tel = "i12"},
              {.name = "C", .tel = "**12"},
              {.name = "D", .tel = "##12"},
              {.name = "E", .tel = "#12"},
              {.name = "F", .tel = ""},
              {.name = "G", .tel = "0049"}});
        Selector()->setValue(2);
    }

    void ExpectUnchanged(const char* status) const {
        EXPECT_EQ(TextOf("Status"), status);
        EXPECT_EQ(Rows(), RowsBefore);
        EXPECT_EQ(TextOfField(0), "getippt");
        EXPECT_EQ(TextOf("AnzNr"), "2");
        EXPECT_EQ(ButtonColour(), NeutralColour());
    }

    const std::vector<std::string> RowsBefore = {"#1: A (0301234)", "#2: B (i12)", "#3: C (**12)",
                                                 "#4: D (##12)",    "#5: E (#12)", "#6: F ()",
                                                 "#7: G (0049)"};
};

TEST_F(WindowZero, AddingChangesEveryNumberAndShowsTheEntryAgain) {
    Retype(0, "getippt");
    Dialogs.Click(QMessageBox::Yes);
    Trigger("mnuBearbeitenNullHinzu");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(AddZeros));
    EXPECT_THAT(Rows(), ElementsAre("#1: A (00301234)", "#2: B (12)", "#3: C (12)", "#4: D (12)",
                                    "#5: E (#12)", "#6: F (0)", "#7: G (00049)"));
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_EQ(TextOfField(0), "B");
    EXPECT_EQ(TextOfField(1), "12");
    EXPECT_EQ(SelectedRow(), "#2: B (12)");
    EXPECT_EQ(TextOf("Status"), "Konvertierung beendet.");
    EXPECT_EQ(ButtonColour(), NeutralColour());
    EXPECT_TRUE(Window->close()) << "the register's state of being saved stays as it was";
}

TEST_F(WindowZero, RefusingToAddChangesNothing) {
    Retype(0, "getippt");
    Dialogs.Click(QMessageBox::No).Press(Qt::Key_Return).Press(Qt::Key_Escape).Close();
    for (int i = 0; i < 4; ++i) {
        Trigger("mnuBearbeitenNullHinzu");
        ExpectUnchanged("Konvertierung abgebrochen.");
    }
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(AddZeros, AddZeros, AddZeros, AddZeros));
}

TEST_F(WindowZero, TheStatusLineFollowsTheConversion) {
    PaintedTexts painted(Find<QLabel>("Status"));
    Dialogs.Click(QMessageBox::Yes).Click(QMessageBox::No).Type("*");
    Trigger("mnuBearbeitenNullHinzu");
    Trigger("mnuBearbeitenNullEntf");
    painted.Texts.erase(std::unique(painted.Texts.begin(), painted.Texts.end()),
                        painted.Texts.end());
    painted.Texts.erase(
        std::remove(painted.Texts.begin(), painted.Texts.end(), "Sortieren beendet"),
        painted.Texts.end());
    EXPECT_THAT(painted.Texts,
                ElementsAre("Nullen werden hinzugefügt...", "Konvertierung beendet.",
                            "Nullen werden entfernt (*)...", "Konvertierung beendet."));
}

TEST_F(WindowZero, ANumberThatGetsTooLongIsCutWithAWarning) {
    Load({{.name = "<b>L", .tel = "030456789012345678901"}, {.name = "K", .tel = "1"}});
    Dialogs.Click(QMessageBox::Yes)
        .Look([this](QDialog&) {
            EXPECT_EQ(TextOf("Status"), "Nullen werden hinzugefügt...");
            EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        })
        .Click(QMessageBox::Ok);
    Trigger("mnuBearbeitenNullHinzu");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(AddZeros, OkBox("Telefonnummer ist nach Konvertierung zu lang:\n"
                                            "Name: <b>L\n"
                                            "Tel.: 030456789012345678901\n"
                                            "Neu : 003045678901234567890\n"
                                            "Gekürzte Nummer gespeichert",
                                            "WARNUNG", "Exclamation")));
    EXPECT_THAT(Rows(), ElementsAre("#1: <b>L (003045678901234567890)", "#2: K (01)"));
    EXPECT_EQ(TextOf("Status"), "Konvertierung beendet.");
}

TEST_F(WindowZero, RemovingMarksInternalNumbersWithI) {
    Retype(0, "getippt");
    Dialogs.Click(QMessageBox::Yes);
    Trigger("mnuBearbeitenNullEntf");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(RemoveZeros));
    EXPECT_THAT(Rows(), ElementsAre("#1: A (301234)", "#2: B (ii12)", "#3: C (i**12)",
                                    "#4: D (i##12)", "#5: E (i#12)", "#6: F (i)", "#7: G (049)"));
    EXPECT_EQ(TextOf("AnzNr"), "2");
    EXPECT_EQ(TextOfField(0), "B");
    EXPECT_EQ(TextOfField(1), "ii12");
    EXPECT_EQ(TextOf("Status"), "Konvertierung beendet.");
    EXPECT_EQ(ButtonColour(), NeutralColour());
    EXPECT_TRUE(Window->close());
}

TEST_F(WindowZero, RemovingMarksInternalNumbersWithThePresetCode) {
    Dialogs.Click(QMessageBox::No).Press(Qt::Key_Return);
    Trigger("mnuBearbeitenNullEntf");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(RemoveZeros, AskCode));
    EXPECT_EQ(TextOfField(1), "##i12");
    EXPECT_EQ(Rows().front(), "#1: A (301234)");
}

TEST_F(WindowZero, ATypedCodeTakesThePlaceOfThePreset) {
    Dialogs.Click(QMessageBox::No).Type("**");
    Trigger("mnuBearbeitenNullEntf");
    EXPECT_EQ(TextOfField(1), "**i12");
}

TEST_F(WindowZero, ARefusedFirstCharacterLeavesThePresetCode) {
    QString preset;
    Dialogs.Click(QMessageBox::No)
        .Look([&preset](QDialog& dialog) {
            auto* input = dialog.findChild<QLineEdit*>();
            preset = input->text();
            TypeText(input, QString::fromUtf8("→"));
            EXPECT_EQ(input->text(), preset);
        })
        .Cancel();
    Trigger("mnuBearbeitenNullEntf");
    EXPECT_NE(preset, "");
}

TEST_F(WindowZero, TheLinesOfTheInputBoxFollowEachOtherWithoutABlankLine) {
    Dialogs.Click(QMessageBox::No)
        .Look([](QDialog& dialog) {
            const auto* prompt = dialog.findChild<QLabel*>();
            const QLabel fourLines("1\n2\n3\n4", &dialog);
            EXPECT_EQ(prompt->sizeHint().height(), fourLines.sizeHint().height());
        })
        .Cancel();
    Trigger("mnuBearbeitenNullEntf");
}

TEST_F(WindowZero, TheInputBoxIsGerman) {
    Dialogs.Click(QMessageBox::No)
        .Look([](QDialog& dialog) {
            const auto* buttons = dialog.findChild<QDialogButtonBox*>();
            EXPECT_EQ(WithoutMnemonic(buttons->button(QDialogButtonBox::Ok)->text()), "OK");
            EXPECT_EQ(WithoutMnemonic(buttons->button(QDialogButtonBox::Cancel)->text()),
                      "Abbrechen");
        })
        .Cancel();
    Trigger("mnuBearbeitenNullEntf");
}

TEST_F(WindowZero, RefusingToRemoveChangesNothing) {
    Retype(0, "getippt");
    Dialogs.Cancel().Press(Qt::Key_Return).Press(Qt::Key_Escape).Close();
    for (int i = 0; i < 4; ++i) {
        Trigger("mnuBearbeitenNullEntf");
        ExpectUnchanged("Konvertierung abgebrochen");
    }
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(RemoveZeros, RemoveZeros, RemoveZeros, RemoveZeros));
}

TEST_F(WindowZero, WithoutACodeNothingIsRemoved) {
    Retype(0, "getippt");
    Dialogs.Click(QMessageBox::No).Cancel();
    Trigger("mnuBearbeitenNullEntf");
    ExpectUnchanged("Konvertierung abgebrochen");
    Dialogs.Click(QMessageBox::No)
        .Look([](QDialog& dialog) { dialog.findChild<QLineEdit*>()->clear(); })
        .Type("");
    Trigger("mnuBearbeitenNullEntf");
    ExpectUnchanged("Konvertierung abgebrochen");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(RemoveZeros, AskCode, RemoveZeros, AskCode));
}

/// Removing the MSN settings; entry 1 has one, beside its filter and its charge counter.
class WindowKillMsn : public WindowTest {
  protected:
    WindowKillMsn() {
        Load({{.name = "Anna", .tel = "1", .msnFilter = 0xD2},
              {.name = "Bernd", .tel = "2", .msnFilter = 6},
              {.name = "Carla", .tel = "3"},
              {.name = "Dora", .tel = "4", .msnFilter = 0}});
    }
};

TEST_F(WindowKillMsn, TheShownMsnGoesAtOnceAndWhatIsTypedStays) {
    ASSERT_EQ(TextOf("DDMSN"), "MSN 3");
    Retype(0, "getippt");
    Retype(8, "Info");
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuBearbeitenKillMSN");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(KillMsn));
    EXPECT_EQ(TextOf("Status"), "2abgehende MSN-Einträge wurden gelöscht.");
    EXPECT_EQ(TextOf("DDMSN"), "(lt. Telefon)");
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(TextOfField(8), Line("Info"));
    EXPECT_EQ(TextOfField(5), "DF");
    EXPECT_EQ(ButtonColour(), NeutralColour());
    EXPECT_TRUE(Window->close()) << "the register's state of being saved stays as it was";
}

TEST_F(WindowKillMsn, TheOtherBitsOfEveryEntryStay) {
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuBearbeitenKillMSN");
    std::vector<std::string> flags;
    for (const int position : {4, 3, 2, 1}) {
        Selector()->setValue(position);
        flags.push_back(TextOfField(5));
    }
    EXPECT_THAT(flags, ElementsAre("0F", "0F", "06", "DF"));
    EXPECT_TRUE(IsChecked("OptFilter(3)"));
    EXPECT_TRUE(IsChecked("chkCharge"));
}

TEST_F(WindowKillMsn, AChoiceThatIsNotStoredStaysPending) {
    Click("chkTon");
    Choose("DDMSN", 5);
    ASSERT_EQ(ButtonColour(), Pending);
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuBearbeitenKillMSN");
    EXPECT_EQ(TextOf("DDMSN"), "(lt. Telefon)");
    EXPECT_TRUE(IsChecked("chkTon"));
    EXPECT_EQ(ButtonColour(), Pending);
}

TEST_F(WindowKillMsn, ASecondTimeThereIsNothingToRemove) {
    Dialogs.Click(QMessageBox::Ok).Click(QMessageBox::Ok);
    Trigger("mnuBearbeitenKillMSN");
    Trigger("mnuBearbeitenKillMSN");
    EXPECT_EQ(TextOf("Status"), "0abgehende MSN-Einträge wurden gelöscht.");
}

TEST_F(WindowKillMsn, RefusingChangesNothing) {
    Retype(0, "getippt");
    Dialogs.Cancel().Press(Qt::Key_Return).Press(Qt::Key_Escape).Close();
    for (int i = 0; i < 4; ++i) {
        Trigger("mnuBearbeitenKillMSN");
    }
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(KillMsn, KillMsn, KillMsn, KillMsn));
    EXPECT_EQ(TextOf("DDMSN"), "MSN 3");
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
    Selector()->setValue(4);
    EXPECT_EQ(TextOfField(5), "00");
}

class WindowDoubles : public WindowTest {
  protected:
    WindowDoubles() { Open(); }

    QAction* Option() const { return Find<QAction>("mnuExtraDoubles"); }

    void LoadDoubles() {
        Dialogs.Transcript.clear();
        Folder.Write("x.csv", "Name;Tel\r\nAnna;1\r\nAnna;1\r\n");
        Dialogs.ChooseFile(PathIn("x.csv")).Click(QMessageBox::Ok).Click(QMessageBox::Ok);
        Trigger("mnuDateiLoadCSV");
    }
    void ExpectNote(const QString& note) const {
        EXPECT_THAT(Dialogs.Transcript,
                    ElementsAre("open \"CSV-Datei (*.csv)|Alle Dateien (*)\" name \"\"",
                                OkBox(note, "LadeCSV: Doubletten entfernt/Hinweise", "None"),
                                OkBox("Es wurden 0 Fehler korrigiert\n\n" + note, "Fehlerprüfung",
                                      "Information")));
    }
};

TEST_F(WindowDoubles, EachClickReversesTheCheckMarkAndNothingElse) {
    EXPECT_TRUE(Option()->isCheckable());
    EXPECT_FALSE(Option()->isChecked());
    Type(0, "getippt");
    for (const bool on : {true, false, true}) {
        Trigger("mnuExtraDoubles");
        EXPECT_EQ(Option()->isChecked(), on);
    }
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(TextOf("Status"), "OK");
    EXPECT_EQ(ButtonColour(), NeutralColour());
    EXPECT_TRUE(Window->close());
}

TEST_F(WindowDoubles, OffBothOfTwoDoubledLinesAreLoaded) {
    LoadDoubles();
    ExpectNote("Doppelter Name: Anna\n");
    EXPECT_THAT(Rows(), ElementsAre("#1: Anna (1)", "#2: Anna (1)"));
}

TEST_F(WindowDoubles, OnTheSecondOfTwoDoubledLinesIsLeftOut) {
    Trigger("mnuExtraDoubles");
    LoadDoubles();
    ExpectNote("Doublette entfernt: Anna\n");
    EXPECT_THAT(Rows(), ElementsAre("#1: Anna (1)"));
    EXPECT_EQ(Caption(), "norvik Telefonregister - Datei: " + PathIn("x.csv").toStdString());
    EXPECT_TRUE(Option()->isChecked()) << "the option stays for the next load";
    Trigger("mnuExtraDoubles");
    LoadDoubles();
    ExpectNote("Doppelter Name: Anna\n");
}

}  // namespace

}  // namespace norvik::test
