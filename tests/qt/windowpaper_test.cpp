// The phone list: its dialog, the PDF file and the printer.
#include "paper/phonelist.h"
#include "qt/paperprinting.h"
#include "tests/qt/windowfixture.h"
#include "tests/support/builders.h"
#include "tests/support/pdftext.h"

#include <QAbstractPrintDialog>
#include <QImage>
#include <QPageRanges>
#include <QPainter>
#include <QPrinter>
#include <QRadioButton>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const std::string PrintDialog = "dialog PHONELIST title \"Telefonliste drucken\"";
const std::string PdfDialog = "dialog PHONELIST title \"Telefonliste als PDF speichern\"";

class WindowPaper : public WindowTest {
  protected:
    WindowPaper() {
        Load({{.name = "Anna", .tel = "1"},
              {.name = "Bert", .tel = "2", .info = "()"},
              {.name = "Carl", .tel = "3", .ab = 2}});
    }
    QRadioButton* Choice(const char* name) const { return Find<QRadioButton>(name); }
};

TEST_F(WindowPaper, TheDialogOffersWhatThereIs) {
    Dialogs.Drive([this](QDialog&) {
        EXPECT_EQ(Choice("OptEntries(0)")->text(), "&Alle (3)");
        EXPECT_EQ(Choice("OptEntries(1)")->text(), "Nur &markierte (1)");
        EXPECT_EQ(Choice("OptEntries(2)")->text(), "Nur die der ge&filterten Liste (0)");
        EXPECT_TRUE(Choice("OptEntries(0)")->isChecked());
        EXPECT_TRUE(Choice("OptEntries(1)")->isEnabled());
        EXPECT_FALSE(Choice("OptEntries(2)")->isEnabled());
        EXPECT_TRUE(Choice("OptColumns(1)")->isChecked());
        EXPECT_TRUE(Choice("OptPaper(0)")->isChecked());
        EXPECT_EQ(Choice("OptPaper(1)")->accessibleName(), "Papier: A5");
        EXPECT_TRUE(Find<QPushButton>("btnPrint")->isDefault());
        EXPECT_EQ(Window->findChild<QPushButton*>("btnSave"), nullptr);
    });
    QTest::keyClick(Window.get(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(PrintDialog));
}

TEST_F(WindowPaper, TheFocusIsSeenAtOnceAndTabGoesFromChoiceToChoice) {
    Dialogs.Drive([this](QDialog& dialog) {
        EXPECT_TRUE(dialog.testAttribute(Qt::WA_KeyboardFocusChange));
        for (const char* next : {"OptEntries(0)", "OptColumns(1)", "OptPaper(0)", "btnPreview"}) {
            EXPECT_TRUE(Find<QWidget>(next)->hasFocus()) << next;
            QTest::keyClick(&dialog, Qt::Key_Tab);
        }
    });
    Trigger("mnuDateiPrint");
}

TEST_F(WindowPaper, SavesWhatIsChosenAsAPdfFile) {
    Dialogs.DriveToItsEnd([this](QDialog&) {
        Choice("OptEntries(1)")->click();
        Choice("OptColumns(2)")->click();
        Choice("OptPaper(1)")->click();
        Click("btnSave");
    });
    Dialogs.ChooseFile(PathIn("liste"));
    Trigger("mnuDateiSavePdf");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(PdfDialog, "save \"PDF-Datei (*.pdf)|Alle Dateien (*)\" name \"\""));
    EXPECT_EQ(TextOf("Status"), "Gespeichert: " + PathIn("liste.pdf").toStdString());
    EXPECT_THAT(TextOfPdf(Folder / "liste.pdf"),
                testing::StartsWith("B\nBert 2\nTelefonliste 1 markierter Eintrag B\n"));
    EXPECT_THAT(OutputOf("pdfinfo '" + (Folder / "liste.pdf").string() + "'"),
                HasSubstr("419.53 x 595.28 pts"));
    // It offers the same the next time, and what is cancelled there is forgotten.
    Dialogs.Drive([this](QDialog&) {
        EXPECT_TRUE(Choice("OptEntries(1)")->isChecked());
        EXPECT_TRUE(Choice("OptColumns(2)")->isChecked());
        EXPECT_TRUE(Choice("OptPaper(1)")->isChecked());
        Choice("OptPaper(0)")->click();
    });
    Trigger("mnuDateiPrint");
    Dialogs.Drive([this](QDialog&) { EXPECT_TRUE(Choice("OptPaper(1)")->isChecked()); });
    Trigger("mnuDateiPrint");
}

TEST_F(WindowPaper, ACancelledFileDialogLeavesTheDialogOpen) {
    Dialogs.Drive([this](QDialog& dialog) {
        Click("btnSave");
        EXPECT_TRUE(dialog.isVisible());
    });
    Dialogs.Cancel();
    Trigger("mnuDateiSavePdf");
    EXPECT_EQ(Dialogs.Transcript.size(), 2U);
}

TEST_F(WindowPaper, AFileThatIsThereIsReplacedOnlyAfterAQuestion) {
    Folder.Write("liste.pdf", std::string_view("alt"));
    Dialogs.Drive([this](QDialog&) { Click("btnSave"); });
    Dialogs.ChooseFileAndKeep(PathIn("liste"));
    Trigger("mnuDateiSavePdf");
    EXPECT_EQ(FileText("liste.pdf"), "alt");
}

TEST_F(WindowPaper, TheFilteredListIsOfferedWhileItsFilterIsOn) {
    Trigger("mnuListView");
    Find<QAbstractButton>("chkFi(0)")->click();
    Click("btnExit");
    ASSERT_THAT(Rows(), ElementsAre("#3: Carl (3)"));
    Dialogs.DriveToItsEnd([this](QDialog&) {
        EXPECT_EQ(Choice("OptEntries(2)")->text(), "Nur die der ge&filterten Liste (1)");
        Choice("OptEntries(2)")->click();
        Click("btnSave");
    });
    Dialogs.ChooseFile(PathIn("liste.pdf"));
    Trigger("mnuDateiSavePdf");
    EXPECT_THAT(TextOfPdf(Folder / "liste.pdf"),
                testing::StartsWith("C\nCarl 3\nTelefonliste 1 gefilterter Eintrag C\n"));
}

TEST_F(WindowPaper, PrintsThroughTheToolkitsDialog) {
    Dialogs.DriveToItsEnd([this](QDialog&) { Click("btnPrint"); });
    Dialogs.DriveToItsEnd([this](QDialog& dialog) {
        ASSERT_NE(qobject_cast<QAbstractPrintDialog*>(&dialog), nullptr);
        auto* printers = dialog.findChild<QComboBox*>(QStringLiteral("printers"));
        printers->setCurrentIndex(printers->count() - 1);  // the file, behind the printers
        dialog.findChild<QLineEdit*>(QStringLiteral("filename"))->setText(PathIn("druck.pdf"));
        dialog.accept();
    });
    Trigger("mnuDateiPrint");
    EXPECT_EQ(TextOf("Status"), "Gedruckt: 1 Seite");
    EXPECT_THAT(TextOfPdf(Folder / "druck.pdf"), HasSubstr("Bert"));
}

TEST_F(WindowPaper, ShowsAPreview) {
    Dialogs.Drive([this](QDialog&) {
        Choice("OptColumns(0)")->click();
        Click("btnPreview");
    });
    Dialogs.Press(Qt::Key_Escape);
    Trigger("mnuDateiPrint");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(PrintDialog, "dialog PREVIEW title \"Druckvorschau: Telefonliste\""));
}

/// What the toolkit's printer makes of a document of three pages.
class PaperPrinting : public testing::Test {
  protected:
    PaperPrinting() {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(file.string()));
    }
    std::optional<int> Print() {
        return PrintPaper(printer, [this](const PaperSize& size) {
            wanted = size;
            PaperDocument document = {.Title = u"Seiten", .Size = size, .Pages = {}};
            for (const TextView text : {u"eins", u"zwei Ä€", u"drei"}) {
                document.Pages.push_back(
                    {.Texts = {{.X = 100, .Y = 100, .Size = 12, .Content = Text(text)}},
                     .Lines = {{50, 200, 300, 200, 1, 0}}});
            }
            return document;
        });
    }

    TestFolder folder;
    FilePath file = folder / "druck.pdf";
    QPrinter printer;
    PaperSize wanted;
};

TEST_F(PaperPrinting, PrintsAllPagesInTheProgramsOwnFont) {
    EXPECT_EQ(Print(), 3);
    EXPECT_EQ(TextOfPdf(file), "eins\n\fzwei Ä€\n\fdrei\n\f");
    EXPECT_THAT(OutputOf("pdffonts '" + file.string() + "'"), HasSubstr("Telefonliste"));
}

TEST_F(PaperPrinting, PrintsThePagesThatWereChosen) {
    printer.setPrintRange(QPrinter::PageRange);
    printer.setPageRanges(QPageRanges::fromString("2-9"));
    EXPECT_EQ(Print(), 2);
    EXPECT_EQ(TextOfPdf(file), "zwei Ä€\n\fdrei\n\f");
}

TEST_F(PaperPrinting, WithoutAPageThatWasChosenNothingIsPrinted) {
    printer.setPrintRange(QPrinter::PageRange);
    printer.setPageRanges(QPageRanges::fromString("7"));
    EXPECT_EQ(Print(), 0);
    EXPECT_THAT(FilesIn(folder.Path()), testing::IsEmpty());
}

TEST_F(PaperPrinting, APrinterThatTakesNothingGivesNothing) {
    printer.setOutputFileName(QString::fromStdString((folder / "fehlt/druck.pdf").string()));
    EXPECT_EQ(Print(), std::nullopt);
}

TEST_F(PaperPrinting, AFileOnAFullDiskIsNotPrinted) {
    printer.setOutputFileName("/dev/full");
    EXPECT_EQ(Print(), std::nullopt);
}

TEST_F(PaperPrinting, FollowsThePaperAndItsDirection) {
    printer.setPageSize(QPageSize(QPageSize::A5));
    printer.setPageOrientation(QPageLayout::Landscape);
    Print();
    EXPECT_NEAR(wanted.Width, PaperA5.Height, 1);
    EXPECT_NEAR(wanted.Height, PaperA5.Width, 1);
}

TEST_F(PaperPrinting, DrawsWhereThePagesPointsAre) {
    QImage image(400, 200, QImage::Format_Grayscale8);
    image.setDotsPerMeterX(5669);  // 144 dots to an inch: 2 to a point
    image.setDotsPerMeterY(5669);
    image.fill(Qt::white);
    QPainter painter(&image);
    DrawPaperPage(painter, {.Texts = {{.X = 20, .Y = 50, .Size = 20, .Content = u"M"}},
                            .Lines = {{100, 10, 150, 10, 4, 0}}});
    painter.end();
    const auto isDark = [&image](int x, int y) { return qGray(image.pixel(x, y)) < 128; };
    EXPECT_TRUE(isDark(250, 20));
    EXPECT_FALSE(isDark(250, 30));
    EXPECT_FALSE(isDark(310, 20));
    int dark = 0;
    for (int x = 40; x < 80; ++x) {
        for (int y = 70; y < 100; ++y) {
            dark += isDark(x, y) ? 1 : 0;
        }
    }
    EXPECT_GT(dark, 100) << "the letter stands on its line";
    for (int x = 0; x < 39; ++x) {
        EXPECT_FALSE(isDark(x, 90));
    }
}

}  // namespace
}  // namespace norvik::test
