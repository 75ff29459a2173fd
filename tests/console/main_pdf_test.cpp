// The converter's phone list on paper, as other programs read it.

#include "base/numbers.h"
#include "tests/console/converterprogram.h"
#include "tests/support/pdftext.h"
#include "tests/support/scripteddesktop.h"

#include <chrono>

namespace norvik::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

std::string Today() {
    const auto now = std::chrono::floor<FileTime::duration>(std::chrono::system_clock::now());
    return Utf8(FormatDateTime(now).substr(0, 10));
}

class ConverterOnPaper : public ConverterProgram {
  protected:
    ConverterOnPaper() {
        folder.Write("a.csv", Raw("'Name;Tel' 0D 'Zo' EB ';1' 0D C4 'rzte;2' 0D 'Anna;3' 0D"));
    }
};

TEST_F(ConverterOnPaper, WritesTheSortedListOfTheDay) {
    const std::string before = Today();
    const Outcome outcome = Run({"a.csv", "b.pdf"});
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_THAT(outcome.Errors, IsEmpty());
    EXPECT_THAT(outcome.Output, IsEmpty());
    const std::string day = before == Today() ? before : Today();
    EXPECT_EQ(TextOfPdf(folder / "b.pdf"),
              "A\nAnna 3\nÄrzte 2\nZ\nZoë 1\nTelefonliste 3 Einträge A – Z\na.csv Seite 1 von 1 " +
                  day + "\n\f");
}

TEST_F(ConverterOnPaper, GivesTheSameBytesToStandardOutputAndToAFolder) {
    EXPECT_EQ(Run({"a.csv", "b.pdf", "--spalten=3", "--papier=a5"}).Status, 0);
    const Outcome outcome = Run({"a.csv", "-", "--nach=pdf", "--spalten=3", "--papier=a5"});
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Output, ReadFile(folder / "b.pdf"));
    EXPECT_EQ(Run({"a.csv", ".", "--nach=pdf", "--spalten=3", "--papier=a5"}).Status, 0);
    EXPECT_EQ(ReadFile(folder / "a.pdf"), ReadFile(folder / "b.pdf"));
}

TEST_F(ConverterOnPaper, HasTheChosenPaper) {
    EXPECT_EQ(Run({"a.csv", "b.pdf", "--papier=a5"}).Status, 0);
    EXPECT_THAT(OutputOf("pdfinfo '" + (folder / "b.pdf").string() + "'"),
                HasSubstr("Page size:       419.53 x 595.28 pts"));
}

TEST_F(ConverterOnPaper, ReplacesAFileOnlyIfToldTo) {
    folder.Write("b.pdf", std::string_view("alt"));
    const Outcome kept = Run({"a.csv", "b.pdf"});
    EXPECT_EQ(kept.Status, 3);
    EXPECT_EQ(kept.Errors, Own + "\"b.pdf\" nicht geschrieben: schon vorhanden (--ueberschreiben "
                                 "ersetzt es)\n");
    EXPECT_EQ(Run({"a.csv", "b.pdf", "--ueberschreiben"}).Status, 0);
    EXPECT_EQ(ReadFile(folder / "b.pdf"), Run({"a.csv", "-", "--nach=pdf"}).Output);
    EXPECT_THAT(StringOf(ReadFile(folder / "b.pdf")), StartsWith("%PDF-"));
}

TEST_F(ConverterOnPaper, WithoutAMarkedEntryThereIsNoFile) {
    const Outcome outcome = Run({"a.csv", "b.pdf", "--nur-markierte"});
    EXPECT_EQ(outcome.Status, 3);
    EXPECT_EQ(outcome.Errors, "a.csv: Keine Datensätze zum Drucken!\n" + Own +
                                  "\"b.pdf\" nicht geschrieben: kein Eintrag ist markiert\n");
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.csv"));
}

TEST_F(ConverterOnPaper, AFailureIsSaidAsTheWindowSaysIt) {
    const Outcome outcome = Run({"a.csv", "fehlt/b.pdf"});
    EXPECT_EQ(outcome.Status, 3);
    EXPECT_EQ(outcome.Errors, "a.csv: Undef'd Error: mnuDateiSavePdf:76Pfad nicht gefunden\n" +
                                  Own + "\"fehlt/b.pdf\" nicht geschrieben: Pfad nicht gefunden\n");
}

TEST_F(ConverterOnPaper, HoldsSeveralSourcesTogether) {
    folder.Write("c.csv", Raw("'Name;Tel' 0D 'Bert;4' 0D 'Anna;3' 0D"));
    EXPECT_EQ(Run({"a.csv", "c.csv", "--zusammen", "b.pdf", "--still"}).Status, 1);
    EXPECT_THAT(TextOfPdf(folder / "b.pdf"),
                AllOf(HasSubstr("\nÄrzte 2\nB\nBert 4\nZ\n"), HasSubstr(" 4 Einträge ")));
}

}  // namespace
}  // namespace norvik::test
