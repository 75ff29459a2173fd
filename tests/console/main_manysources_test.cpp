// Several sources in one run, and how the program tells them apart.
#include "tests/console/converterprogram.h"

#include <filesystem>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ManySources : public ConverterProgram {
  protected:
    /// How a file in the folder is shown.
    static std::string InFolder(const char* name) { return (FilePath("ordner") / name).string(); }

    ManySources() { std::filesystem::create_directory(folder / "ordner"); }
};

TEST_F(ManySources, GoIntoAFolder) {
    folder.Write("a.t9t", Example195());
    folder.Write("b.c.pbo", Example175());
    folder.Write("anrufe.t9a", ExampleCalls());
    const Outcome outcome = Run({"--nach=csv", "a.t9t", "b.c.pbo", "anrufe.t9a", "ordner"});
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Errors, "anrufe.t9a: Anruferliste wurde in Datei\n"
                              "anrufe.t9a: " +
                                  InFolder("anrufe.csv") + " gespeichert.\n");
    EXPECT_THAT(FilesIn(folder / "ordner"), ElementsAre("a.csv", "anrufe.csv", "b.c.csv"));
    EXPECT_EQ(ReadFile(folder / "ordner/a.csv"), Run({"a.t9t", "-", "--nach=csv"}).Output);
    EXPECT_EQ(ReadFile(folder / "ordner/b.c.csv"), Run({"b.c.pbo", "-", "--nach=csv"}).Output);
}

TEST_F(ManySources, OneAloneGoesIntoAFolderToo) {
    folder.Write("a.t9t", Example195());
    EXPECT_EQ(Run({"--nach=193", "a.t9t", "ordner"}).Status, 0);
    EXPECT_THAT(FilesIn(folder / "ordner"), ElementsAre("a.t9t"));
}

TEST_F(ManySources, EachRunsToItsEndAndTheGravestStatusCounts) {
    folder.Write("a.t9t", BrokenRegisterFile());
    folder.Write("c.t9t", FileWithFinding());
    const Outcome outcome = Run({"--nach=csv", "a.t9t", "b.t9t", "c.t9t", "ordner"});
    EXPECT_EQ(outcome.Status, 4);
    EXPECT_EQ(outcome.Errors,
              Own + "\"a.t9t\" ist beschädigt: unlesbar ist Eintrag 1; 0 Einträge sind gelesen\n" +
                  Own + "\"" + InFolder("a.csv") +
                  "\" nicht geschrieben: kein Eintrag ist gelesen\n" + Own +
                  "\"b.t9t\" nicht gelesen: Datei nicht gefunden\n" + FindingOf("c.t9t"));
    EXPECT_THAT(FilesIn(folder / "ordner"), ElementsAre("c.csv"));
    EXPECT_EQ(Run({"--pruefen", "b.t9t", "c.t9t"}).Status, 3);
}

TEST_F(ManySources, AreRefusedWhereTheirTargetsAreNotClear) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> lines = {
        {{"a.t9t", "b.t9t", "ordner"},
         "das Format von ordner ist nicht zu erkennen; --nach nennt es"},
        {{"--nach=csv", "a.t9t", "x/a.pbo", "ordner"},
         "a.t9t und x/a.pbo haben dasselbe ZIEL " + InFolder("a.csv")},
        {{"--nach=csv", "--von=195", "-", "ordner"},
         "- hat keinen Namen für eine Datei im Ordner ordner"},
        {{"--nach=csv", "--ohne-doubletten", "a.csv", "b.t9t", "ordner"},
         "--ohne-doubletten gilt nur für eine QUELLE im Format csv"},
    };
    for (const auto& line : lines) {
        const Outcome outcome = Run(line.first);
        EXPECT_EQ(outcome.Status, 2);
        EXPECT_EQ(outcome.Errors, Own + line.second + "\n");
    }
    EXPECT_THAT(FilesIn(folder / "ordner"), IsEmpty());
}

TEST_F(ConverterProgram, StillPrintsErrorsAlone) {
    folder.Write("a.t9t", FileWithFinding());
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--still", "a.t9t", "b.csv"},
          {"--still", "--pruefen", "a.t9t"},
          {"--still", "--verluste", "a.t9t", "c.pbo"}}) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.Status, 1);
        EXPECT_THAT(outcome.Errors, IsEmpty());
    }
    EXPECT_EQ(Run({"--still", "fehlt.csv", "b.t9t"}).Errors,
              Own + "\"fehlt.csv\" nicht gelesen: Datei nicht gefunden\n");
}

TEST_F(ConverterProgram, AReaderOfTheLossesThatGoesAwayIsNoFailure) {
    folder.Write("a.t9t", FileOfMany(2000));
    const Outcome outcome = Run({"--verluste", "a.t9t"}, {.ReaderLeaves = true});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_THAT(outcome.Errors, IsEmpty());
}

TEST_F(ConverterProgram, ALineEndInANameIsShownAsAnyControlCharacter) {
    folder.Write("a.t9t",
                 FileOf({Raw("0200 0201 06 05 'An' 0D 0A 'n' 06 01 '1' 06 00 0255 020F 0200"
                             "0200")}));
    EXPECT_EQ(Run({"--pruefen", "a.t9t"}).Errors, "a.t9t: Es wurden 1 Fehler korrigiert\n"
                                                  "a.t9t: #0[An??n] Klang zu hoch: 85\n");
}

TEST_F(ConverterProgram, AWarningOfTheTargetGivesStatusOne) {
    folder.Write("a.t9t", FileOfMany(301));
    const Outcome many = Run({"--nach=ip286", "a.t9t", "a.csv"});
    EXPECT_EQ(many.Status, 1);
    folder.Write("b.t9t",
                 FileOf({Raw("0200 0201 06 04 'Anna' 06 03 '+01' 06 00 0200 020F 0200 0200")}));
    const Outcome number = Run({"b.t9t", "b.pbb"});
    EXPECT_EQ(number.Status, 1);
    EXPECT_THAT(number.Errors, testing::EndsWith("b.t9t: Fehler in Rufnummer: +01\n"));
}

TEST_F(ConverterProgram, ARegisterFileKeepsItsModel) {
    folder.Write("a.t9t", Example193());
    const Bytes as193 = Run({"a.t9t", "-", "--nach=193"}).Output;
    const Bytes as195 = Run({"a.t9t", "-", "--nach=195"}).Output;
    EXPECT_NE(as193, as195);
    EXPECT_EQ(Run({"a.t9t", "b.t9t"}).Status, 0);
    EXPECT_EQ(ReadFile(folder / "b.t9t"), as193);
    EXPECT_EQ(Run({"--verluste", "--nach=195", "a.t9t", "c.t9t"}).Status, 0);
    EXPECT_EQ(ReadFile(folder / "c.t9t"), as195);
    folder.Write("d.t9t", Example195());
    EXPECT_EQ(Run({"d.t9t", "e.t9t"}).Status, 0);
    EXPECT_EQ(ReadFile(folder / "e.t9t"), Run({"d.t9t", "-", "--nach=195"}).Output);
}

TEST_F(ConverterProgram, APriceGivesTheAmountsAndOneOfNothingIsALoss) {
    folder.Write("a.t9t", Example195());
    EXPECT_EQ(Run({"a.t9t", "a.geb", "--preis", "0,25"}).Status, 0);
    EXPECT_THAT(StringOf(ReadFile(folder / "a.geb")), testing::HasSubstr("\r\n3,00\tB\xF6\r\n"));
    const std::string none = "a.t9t: #2 Bö: Gebührenstand 12 gibt den Betrag 0,00, der Preis der "
                             "Einheit ist ";
    const auto losses = [this](const std::string& price) {
        return StringOf(
            Run({"--verluste", "a.t9t", "--nach=gebuehren", "--preis=" + price}).Output);
    };
    EXPECT_THAT(losses("0"), testing::HasSubstr(none + "0\n"));
    EXPECT_THAT(losses("0.0001"), testing::HasSubstr(none + "zu klein\n"));
    EXPECT_THAT(losses("0,12"), testing::Not(testing::HasSubstr("Betrag")));
    EXPECT_THAT(StringOf(Run({"--verluste", "a.t9t", "--nach=gebuehren"}).Output),
                testing::HasSubstr(none + "0\n"));
    for (const std::string price : {"1 Mark", "-1", "0,1,2", ",5", "1e3"}) {
        const Outcome outcome = Run({"a.t9t", "b.geb", "--preis", price});
        EXPECT_EQ(outcome.Status, 2);
        EXPECT_EQ(outcome.Errors, Own + "--preis: " + price + " ist kein Preis wie 0,12\n");
    }
}

TEST_F(ConverterProgram, AFileNameInThePlaceOfTheCodeIsAnError) {
    folder.Write("a.t9t", Example195());
#ifndef _WIN32
    const std::string pattern = "*";
#else
    const std::string pattern = "*.t9t";  // the program leaves the other one alone there
#endif
    const Outcome outcome = RunInShell(
        ConverterInShell() + " --null-weg " + pattern + " a.t9t b.csv", {.Folder = folder.Path()});
    EXPECT_EQ(outcome.Status, 2);
    EXPECT_EQ(outcome.Errors, Own + "--null-weg: a.t9t ist kein Code für interne Nummern (in "
                                    "Anführungszeichen: \"*\", \"##\", \"**\")\n");
}

}  // namespace
}  // namespace norvik::test
