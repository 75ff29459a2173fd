#include "tests/qt/windowfixture.h"

namespace norvik::test {

namespace {

using testing::ElementsAre;

TEST_F(WindowTest, AFileIsAddedAndTakenAwayAgain) {
    Load({{.name = "Anna", .tel = "1"}, {.name = "Dora", .tel = "2"}});
    const std::string caption = Caption();
    Dialogs.Transcript.clear();
    Folder.Write("neu.csv", "\xEF\xBB\xBFName;Tel\r\nAnna;1\r\nM\xC3\xBCller;1\r\nBert;3\r\n");
    Dialogs.ChooseFile(PathIn("neu.csv")).Click(QMessageBox::Ok);
    Trigger("mnuDateiAdd");
    EXPECT_THAT(
        Dialogs.Transcript,
        ElementsAre("open \"Register und Kontakte (*.t9t *.pbo *.csv *.vcf)|NV-195-Datei (*.t9t)|"
                    "norvik-175-Datei (*.pbo)|CSV-Datei (*.csv)|vCard-Datei (*.vcf)|Alle Dateien "
                    "(*)\" name \"\"",
                    OkBox("Es wurden 2 Einträge dazugeladen, 1 war schon da\n\n"
                          "Gleiche Rufnummer: Müller (1) wie Anna\n",
                          "Dazuladen", "Information")));
    EXPECT_THAT(Rows(),
                ElementsAre("#1: Anna (1)", "#2: Bert (3)", "#3: Dora (2)", "#4: Müller (1)"));
    EXPECT_EQ(TextOf("AnzGes"), "4");
    EXPECT_EQ(TextOfField(0), "Müller");  // the first one of the file
    EXPECT_EQ(TextOf("Status"), "2 Einträge dazugeladen");
    EXPECT_EQ(Caption(), caption);
    EXPECT_EQ(TextOf("AnzQuelle"), "195");
    auto* undo = Window->findChild<QAction*>("mnuBearbeitenUndo");
    EXPECT_EQ(undo->text().remove(u'&'), "Rückgängig: Datei dazugeladen (2 Einträge)");
    Trigger("mnuBearbeitenUndo");
    EXPECT_THAT(ShownNames(), ElementsAre("Anna", "Dora"));
    Trigger("mnuBearbeitenRedo");
    EXPECT_THAT(ShownNames(), ElementsAre("Anna", "Bert", "Dora", "Müller"));
}

TEST_F(WindowTest, ABoxHasRoomForItsTitle) {
    Load({{.name = "Anna", .tel = "1"}});
    Folder.Write("a.vcf", "BEGIN:VCARD\r\nFN:A\r\nTEL:1\r\nTEL:x\r\nEND:VCARD\r\n");
    Dialogs.ChooseFile(PathIn("a.vcf"))
        .Look([](QDialog& dialog) {
            QFont font = dialog.font();
            font.setBold(true);
            const QFontMetrics metrics(font);
            EXPECT_GE(dialog.width(),
                      metrics.horizontalAdvance(dialog.windowTitle()) + 6 * metrics.height());
        })
        .Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadVCard");
}

}  // namespace

}  // namespace norvik::test
