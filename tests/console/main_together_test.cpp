// Several sources that become one register.
#include "tests/console/converterprogram.h"

#include <filesystem>

namespace norvik::test {
namespace {

using testing::ElementsAre;

class Together : public ConverterProgram {
  protected:
    Together() {
        folder.Write("a.t9t", Example195());  // Zita **12, Bö 0301, Anna 01711
        folder.Write("b.csv", "Name;Tel\r\nAnna;01711\r\nOtto;0301\r\nAnna;01712\r\n");
    }

    /// The lines of names and numbers, quoted as the IP 286 has them.
    [[nodiscard]] std::string Entries(const std::string& file) const {
        const std::string text = StringOf(Run({file, "-", "--nach=ip286", "--unsortiert"}).Output);
        return text.substr(text.find('\n') + 1);
    }
};

const std::string Findings = "b.csv: Es wurden 2 Einträge dazugeladen, 1 war schon da\n"
                             "b.csv: Gleiche Rufnummer: Otto (0301) wie Bö\n";

TEST_F(Together, TheOthersAreAddedToTheFirst) {
    const Outcome outcome = Run({"a.t9t", "b.csv", "--zusammen", "alles.csv"});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(outcome.Errors, Findings);
    EXPECT_EQ(Entries("alles.csv"), "\"Anna\",\"01711\",\"1\"\r\n\"Anna\",\"01712\",\"1\"\r\n"
                                    "\"Boe\",\"0301\",\"1\"\r\n\"Otto\",\"0301\",\"1\"\r\n"
                                    "\"Zita\",\"**12\",\"1\"\r\n");
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.t9t", "alles.csv", "b.csv"));
}

TEST_F(Together, UnsortedTheyFollowEachOther) {
    const Outcome outcome =
        Run({"--zusammen=-", "--nach=ip286", "--unsortiert", "--still", "b.csv", "a.t9t"});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(outcome.Errors, "");
    const std::string text = StringOf(outcome.Output);
    EXPECT_EQ(text.substr(text.find('\n') + 1),
              "\"Anna\",\"01711\",\"1\"\r\n\"Otto\",\"0301\",\"1\"\r\n\"Anna\",\"01712\",\"1\"\r\n"
              "\"Zita\",\"**12\",\"1\"\r\n\"Boe\",\"0301\",\"1\"\r\n");
}

TEST_F(Together, OptionsOfTextFilesApplyToThoseAmongTheSources) {
    folder.Write("c.csv", "Name;Tel\r\nM\xC3\xBC;3\r\nM\xC3\xBC;3\r\n");
    folder.Write("d.vcf", "BEGIN:VCARD\r\nFN:N\xC3\xBC\r\nTEL:4\r\nEND:VCARD\r\n");
    const Outcome outcome = Run({"a.t9t", "c.csv", "d.vcf", "--zeichensatz=windows-1252",
                                 "--ohne-doubletten", "--zusammen", "alles.csv"});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(StringOf(ReadFile(folder / "alles.csv")).find("M\xFC"), std::string::npos);
    EXPECT_NE(StringOf(ReadFile(folder / "alles.csv")).find("M\xC3\xBC;3"), std::string::npos);
    EXPECT_NE(StringOf(ReadFile(folder / "alles.csv")).find("N\xC3\xBC;4"), std::string::npos);
    EXPECT_EQ(Run({"a.t9t", "--zeichensatz=utf-8", "--zusammen", "x.csv"}).Errors,
              Own + "--zeichensatz gilt nur für eine QUELLE im Format csv oder vcard\n");
}

TEST_F(Together, NothingToSayIsStatusZero) {
    folder.Write("c.csv", "Name;Tel\r\nCarl;3\r\n");
    const Outcome outcome = Run({"a.t9t", "c.csv", "--zusammen", "alles.t9t"});
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Errors, "");
    // One source alone is written as it would be without the option.
    EXPECT_EQ(Run({"a.t9t", "--zusammen", "eins.t9t"}).Status, 0);
    EXPECT_EQ(ReadFile(folder / "eins.t9t"), Run({"a.t9t", "-", "--nach=195"}).Output);
}

TEST_F(Together, TheNumbersCountAsTheSettingsHaveThem) {
    folder.Write("berlin.ini", "[location]\r\nCountryCode=49\r\nRegionCode=30\r\n");
    folder.Write("c.csv", "Name;Tel\r\nB\xF6;1\r\n");
    EXPECT_EQ(Run({"a.t9t", "c.csv", "--ini=berlin.ini", "--zusammen=x.csv"}).Errors,
              "c.csv: Es wurden 0 Einträge dazugeladen, 1 war schon da\n");
    EXPECT_EQ(Run({"a.t9t", "c.csv", "--zusammen=y.csv"}).Errors, "");
}

TEST_F(Together, ASourceThatFailsGivesNoTarget) {
    folder.Write("kaputt.t9t", OpenFileOf({Raw("0200 0201 06 04 'Emil' 06 01 '9' 06 00 0200 020F"
                                               "0200 0200")}));
    Outcome outcome = Run({"fehlt.csv", "a.t9t", "kaputt.t9t", "b.csv", "--zusammen", "alles.csv"});
    EXPECT_EQ(outcome.Status, 4);
    EXPECT_EQ(outcome.Errors,
              Own + "\"fehlt.csv\" nicht gelesen: Datei nicht gefunden\n" + Own +
                  "\"kaputt.t9t\" ist beschädigt: endet vorzeitig; 1 Eintrag ist gelesen\n" + Own +
                  "\"alles.csv\" nicht geschrieben: --trotzdem schreibt, was gelesen ist\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "alles.csv"));
    outcome = Run({"kaputt.t9t", "b.csv", "--trotzdem", "--zusammen", "alles.csv"});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(Entries("alles.csv"), "\"Anna\",\"01711\",\"1\"\r\n\"Anna\",\"01712\",\"1\"\r\n"
                                    "\"Emil\",\"9\",\"1\"\r\n\"Otto\",\"0301\",\"1\"\r\n");
}

TEST_F(Together, ATargetThatIsThereIsReplacedOnlyWhenTold) {
    const Outcome outcome = Run({"a.t9t", "b.csv", "--zusammen", "b.csv"});
    EXPECT_EQ(outcome.Status, 3);
    EXPECT_EQ(outcome.Errors,
              Own + "\"b.csv\" nicht geschrieben: schon vorhanden (--ueberschreiben ersetzt es)\n");
    EXPECT_EQ(Run({"a.t9t", "b.csv", "--zusammen", "b.csv", "--ueberschreiben"}).Status, 1);
    EXPECT_THAT(Entries("b.csv"), testing::HasSubstr("Zita"));
}

TEST_F(Together, ARegisterFileKeepsTheModelThatAllHave) {
    folder.Write("x.t9t", Example193());
    folder.Write("y.t9t", Example193());
    EXPECT_EQ(Run({"x.t9t", "y.t9t", "--zusammen", "alle.t9t"}).Status, 1);
    EXPECT_EQ(ReadFile(folder / "alle.t9t"), Run({"x.t9t", "-", "--nach=193"}).Output);
    EXPECT_EQ(Run({"x.t9t", "b.csv", "--zusammen", "195.t9t"}).Status, 1);
    EXPECT_EQ(ReadFile(folder / "195.t9t"),
              Run({"x.t9t", "b.csv", "--zusammen=-", "--nach=195"}).Output);
}

TEST_F(Together, LossesAreThoseOfAll) {
    const Outcome outcome =
        Run({"--verluste", "--nach=193", "b.csv", "a.t9t", "--zusammen", "alles.t9t"});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_THAT(outcome.Errors, testing::HasSubstr("alles.t9t: #5 Zita: "));
}

TEST_F(Together, RefusesWhatMakesNoSense) {
    std::filesystem::create_directory(folder / "ordner");
    const std::vector<std::pair<std::vector<std::string>, std::string>> lines = {
        {{"--zusammen", "x.csv"}, "QUELLE fehlt (--hilfe zeigt, wie das Programm aufgerufen wird)"},
        {{"a.t9t", "--zusammen"}, "--zusammen braucht einen Wert"},
        {{"a.t9t", "--zusammen="}, "--zusammen braucht einen Wert, der nicht leer ist"},
        {{"a.t9t", "--zusammen=ordner"}, "--zusammen braucht eine Datei; ordner ist ein Ordner"},
        {{"a.t9t", "--zusammen=x"}, "das Format von x ist nicht zu erkennen; --nach nennt es"},
        {{"a.t9t", "--pruefen", "--zusammen=x.csv"},
         "--pruefen und --zusammen schließen einander aus"},
        {{"-", "-", "--von=csv", "--zusammen=x.csv"}, "- kann nur einmal QUELLE sein"},
        {{"a.t9t", "anrufe.t9a", "--zusammen=x.csv"},
         "--zusammen gilt nur für ein Register als QUELLE"},
    };
    for (const auto& line : lines) {
        const Outcome outcome = Run(line.first);
        EXPECT_EQ(outcome.Status, 2);
        EXPECT_EQ(outcome.Errors, Own + line.second + "\n");
    }
}

}  // namespace
}  // namespace norvik::test
