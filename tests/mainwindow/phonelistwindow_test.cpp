#include "mainwindow/phonelistwindow.h"

#include "mainwindow/undo.h"
#include "tests/support/handlerfixture.h"
#include "tests/support/pdftext.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PhoneListWindow : public HandlerFixture {
  protected:
    PhoneListWindow() {
        RegisterState state = RegisterOf(
            {Entry(u"Anna", u"1"), Entry(u"Bert", u"2", u"()"), Entry(u"Carl", u"3", u"()")});
        state.Register(1).Listed = true;
        Given(std::move(state));
    }
    PhoneListFields& Fields() { return program.PhoneList; }

    TestFolder folder;
    const FileTime printed = FileTimeOf(1'790'000'000, 0).value();
    const std::string save = "save \"PDF-Datei|*.pdf|Alle Dateien|*.*\" ending .pdf -> ";
};

TEST_F(PhoneListWindow, OpensWithTheNumbersOfEntries) {
    mnuDateiPrint(program, desktop);
    EXPECT_FALSE(Fields().AsPdf);
    EXPECT_THAT(Fields().Counts, ElementsAre(3, 2, 0));
    program.Fields.chkListFilter = true;
    mnuDateiSavePdf(program, desktop);
    EXPECT_TRUE(Fields().AsPdf);
    EXPECT_THAT(Fields().Counts, ElementsAre(3, 2, 1));
    EXPECT_THAT(desktop.Transcript, ElementsAre("show PHONELIST", "show PHONELIST"));
}

TEST_F(PhoneListWindow, WhatWasChosenStaysUnlessThereIsNoSuchEntry) {
    Fields().Chosen = {.Entries = ListedEntries::Filtered, .Columns = 3, .Paper = PaperA5};
    program.Fields.chkListFilter = true;
    mnuDateiPrint(program, desktop);
    EXPECT_EQ(Fields().Chosen.Entries, ListedEntries::Filtered);
    program.Fields.chkListFilter = false;
    mnuDateiPrint(program, desktop);
    EXPECT_EQ(Fields().Chosen,
              (PhoneListOptions{.Entries = ListedEntries::All, .Columns = 3, .Paper = PaperA5}));
}

TEST_F(PhoneListWindow, PagesAreThoseOfTheChoicesOnThePrintersPaper) {
    Fields().Chosen = {.Entries = ListedEntries::Marked, .Columns = 3, .Paper = PaperA4};
    EXPECT_EQ(PhoneListPages(program, PaperA5, printed),
              LayOutPhoneList(program.State,
                              {.Entries = ListedEntries::Marked, .Columns = 3, .Paper = PaperA5},
                              printed));
}

TEST_F(PhoneListWindow, SavesWhatWasChosenAndTheRegisterIsAsUnsavedAsBefore) {
    program.State.RegisterSaved = false;
    Fields().Chosen.Entries = ListedEntries::Marked;
    desktop.OnBeforeReplacing = [](const FilePath&) { return Text(u" (!)"); };
    desktop.AnswerFile(folder / "liste");
    EXPECT_TRUE(PHONELIST_btnSave_Click(program, printed, desktop));
    const std::string path = (folder / "liste.pdf").string();
    EXPECT_THAT(desktop.Transcript, ElementsAre(save + (folder / "liste").string(),
                                                "status \"Gespeichert: " + path + " (!)\""));
    EXPECT_EQ(TextOfPdf(path), "B\nBert 2\nC\nCarl 3\nTelefonliste 2 markierte Einträge B – C\n"
                               "Seite 1 von 1 " +
                                   Utf8(FormatDateTime(printed).substr(0, 10)) + "\n\f");
    EXPECT_FALSE(program.State.RegisterSaved);
    program.State.RegisterSaved = true;
    desktop.AnswerFile(folder / "liste");
    EXPECT_TRUE(PHONELIST_btnSave_Click(program, printed, desktop));
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(PhoneListWindow, WithoutANameNothingIsSaved) {
    desktop.AnswerFile(std::nullopt);
    EXPECT_FALSE(PHONELIST_btnSave_Click(program, printed, desktop));
    EXPECT_THAT(desktop.Transcript, ElementsAre(save + "cancel"));
}

TEST_F(PhoneListWindow, AFailedSaveSaysSo) {
    desktop.AnswerFile(folder / "fehlt/liste.pdf");
    EXPECT_FALSE(PHONELIST_btnSave_Click(program, printed, desktop));
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(save + (folder / "fehlt/liste.pdf").string(), "pointer Normal",
                            OkBox(u"Undef'd Error: mnuDateiSavePdf:76Pfad nicht gefunden"),
                            "status \"Nicht gespeichert: Pfad nicht gefunden\""));
    EXPECT_THAT(FilesIn(folder.Path()), IsEmpty());
}

TEST_F(PhoneListWindow, TheStatusTellsHowAPrintEnds) {
    EndPrinting(1, desktop);
    EndPrinting(3, desktop);
    EndPrinting(0, desktop);
    EndPrinting(std::nullopt, desktop);
    EndPrintingWithoutPrinter(desktop);
    EXPECT_THAT(desktop.Statuses(),
                ElementsAre("Gedruckt: 1 Seite", "Gedruckt: 3 Seiten",
                            "Nicht gedruckt: diese Seiten gibt es nicht",
                            "Nicht gedruckt: der Drucker nimmt nichts an",
                            "Nicht gedruckt: es ist kein Drucker eingerichtet"));
}

TEST_F(PhoneListWindow, ChangesNothingThatCouldBeUndone) {
    StartHistory(program.Past, program.State);
    desktop.AnswerFile(folder / "liste.pdf");
    RunStep(
        program, u"Änderung", [&] { PHONELIST_btnSave_Click(program, printed, desktop); }, desktop);
    EXPECT_FALSE(CanUndo(program));
}

}  // namespace
}  // namespace norvik::test
