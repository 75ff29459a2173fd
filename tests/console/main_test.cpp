// The program: its command line, and what it does when all goes well (exit status 0 to 2).
#include "formats/formattable.h"
#include "tests/console/converterprogram.h"

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// Exit status 2: the command line.

TEST_F(ConverterProgram, AWrongCommandLineGivesOneLineAndStatusTwo) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> lines = {
        {{}, "QUELLE fehlt (--hilfe zeigt, wie das Programm aufgerufen wird)"},
        {{"a.t9t"}, "ZIEL fehlt (--hilfe zeigt, wie das Programm aufgerufen wird)"},
        {{"--sortirt", "a.t9t", "b.csv"},
         "unbekannte Option --sortirt; am nächsten kommt --sortiert"},
        {{"a.t9t", "b.csv", "--nach"}, "--nach braucht einen Wert"},
        {{"a.t9t", "b.csv", "c.csv"},
         "mehrere QUELLEN brauchen als ZIEL einen Ordner; c.csv ist keiner"},
        {{"-?"}, "unbekannte Option -?; --hilfe nennt alle"},
        {{"a.xls", "b.csv"}, "das Format von a.xls ist nicht zu erkennen; --von nennt es"},
        {{"a.t9t", "-"}, "das Format von - ist nicht zu erkennen; --nach nennt es"},
    };
    for (const auto& line : lines) {
        const Outcome outcome = Run(line.first);
        EXPECT_EQ(outcome.Status, 2);
        EXPECT_EQ(outcome.Errors, Own + line.second + "\n");
        EXPECT_THAT(outcome.Output, IsEmpty());
    }
}

// Exit status 0 and 1.

TEST_F(ConverterProgram, ShowsItsHelpAndItsVersion) {
    for (const std::string option : {"--hilfe", "--help", "-h"}) {
        const Outcome help = Run({option});
        EXPECT_EQ(help.Status, 0);
        EXPECT_THAT(StringOf(help.Output),
                    StartsWith("Aufruf: norvik-konverter [Optionen] QUELLE ZIEL\n"));
        EXPECT_THAT(help.Errors, IsEmpty());
    }
    for (const std::string option : {"--version", "-V"}) {
        const Outcome version = Run({option});
        EXPECT_EQ(version.Status, 0);
        EXPECT_EQ(StringOf(version.Output), "norvik-konverter 1.1.0\n");
    }
}

TEST_F(ConverterProgram, AFindingOfTheCheckGivesStatusOneAndAWholeTarget) {
    folder.Write("a.t9t", FileWithFinding());
    const Outcome outcome = Run({"a.t9t", "b.t9t"});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(outcome.Errors, FindingOf("a.t9t"));
    EXPECT_EQ(ReadFile(folder / "b.t9t"),
              FileOf({Raw("0200 0201 06 04 'Anna' 06 01 '1' 06 00 0200 020F 0200 0200")}));
}

TEST_F(ConverterProgram, PruefenOnlyReports) {
    folder.Write("a.t9t", FileWithFinding());
    folder.Write("b.t9t", Example195());
    const Outcome finding = Run({"--pruefen", "a.t9t"});
    EXPECT_EQ(finding.Status, 1);
    EXPECT_EQ(finding.Errors, FindingOf("a.t9t"));
    EXPECT_THAT(finding.Output, IsEmpty());
    const Outcome nothing = Run({"b.t9t", "--pruefen"});
    EXPECT_EQ(nothing.Status, 0);
    EXPECT_THAT(nothing.Errors, IsEmpty());
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.t9t", "b.t9t"));
}

TEST_F(ConverterProgram, PruefenTakesStandardInput) {
    const Outcome outcome = Run({"--pruefen", "--von=195", "-"}, {.Input = FileWithFinding()});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(outcome.Errors, FindingOf("-"));
}

TEST_F(ConverterProgram, AMessageOfTheReaderGivesStatusOne) {
    Bytes file = Example195();
    file[2] = 'X';
    folder.Write("a.t9t", file);
    const Outcome outcome = Run({"--pruefen", "a.t9t"});
    EXPECT_EQ(outcome.Errors, "a.t9t: Abweichender Header\n");
    EXPECT_EQ(outcome.Status, 1);
}

TEST_F(ConverterProgram, VerlusteReportsBeforeItWrites) {
    folder.Write("a.t9t", Example195());
    const Outcome outcome = Run({"--verluste", "a.t9t", "b.t9t", "--nach", "193"});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(outcome.Errors, "a.t9t: #2 Bö: Infotext fällt weg: ()x\n"
                              "a.t9t: #2 Bö: Exportmarkierung fällt weg\n"
                              "a.t9t: #2 Bö: individueller Klingelton \"2Klang 3\" fällt weg\n"
                              "a.t9t: #2 Bö: Ansage 3 fällt weg\n"
                              "a.t9t: #2 Bö: MSN 2 fällt weg\n"
                              "a.t9t: #3 Zita: Infotext fällt weg: Zeile eins / Zeile zwei\n");
    EXPECT_THAT(outcome.Output, IsEmpty());
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.t9t", "b.t9t"));
}

TEST_F(ConverterProgram, VerlusteWithoutATargetGoesToStandardOutput) {
    folder.Write("a.t9t", Example195());
    const std::string losses = Run({"--verluste", "a.t9t", "-", "--nach", "193"}).Errors;
    EXPECT_THAT(losses, HasSubstr("#2 Bö: "));
    const Outcome outcome = Run({"--verluste", "a.t9t", "--nach", "193"});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(StringOf(outcome.Output), losses);
    EXPECT_THAT(outcome.Errors, IsEmpty());
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.t9t"));
}

TEST_F(ConverterProgram, VerlusteAloneReportsEveryFormat) {
    folder.Write("a.t9t", Example195());
    const std::string all = StringOf(Run({"--verluste", "a.t9t"}).Output);
    std::string expected;
    for (const std::string_view name : TargetNames()) {
        const std::string word(name);
        std::string lines = StringOf(Run({"--verluste", "a.t9t", "--nach", word}).Output);
        for (std::size_t start = 0; start < lines.size(); start = lines.find('\n', start) + 1) {
            lines.insert(start + std::string("a.t9t: ").size(), word + ": ");
        }
        expected += lines;
    }
    EXPECT_EQ(all, expected);
    EXPECT_THAT(all, HasSubstr("\na.t9t: ip286: #2 Bö: "));
}

TEST_F(ConverterProgram, VerlusteIsSilentWhereNothingIsLost) {
    folder.Write("a.t9t", Example195());
    const Outcome outcome = Run({"--verluste", "a.t9t", "--nach", "195"});
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_THAT(outcome.Output, IsEmpty());
    EXPECT_THAT(outcome.Errors, IsEmpty());
}

TEST_F(ConverterProgram, VerlusteFollowsTheOptionsOfTheTarget) {
    folder.Write("a.csv", "\"Name\";\"Tel\"\r\n\"An;na\";\"1\"\r\n");
    EXPECT_THAT(StringOf(Run({"--verluste", "a.csv", "--nach=csv"}).Output), HasSubstr("An;na"));
    EXPECT_THAT(Run({"--verluste", "a.csv", "--nach=csv", "--anfuehrungszeichen"}).Output,
                IsEmpty());
    folder.Write("a.t9t", Example195());
    EXPECT_EQ(StringOf(Run({"--verluste", "a.t9t", "--nach=ip286", "--ausschliessen=0",
                            "--ausschliessen=*"})
                           .Output),
              "");
}

TEST_F(ConverterProgram, DoppelteReportsTheNumbersOfSeveralEntries) {
    folder.Write("a.csv", Raw("'Name;Tel' 0D 'Anna;030 1' 0D 'Bernd;2' 0D 'Carla;0049(30)1' 0D"));
    folder.Write("n.ini", Raw("'[location]' 0D0A 'countrycode=49' 0D0A 'regioncode=30' 0D0A"));
    const std::string found = "a.csv: doppelt 0049301: Anna (0301), Carla (0049(30)1)\n";
    const Outcome alone = Run({"--doppelte", "--ini", "n.ini", "a.csv"});
    EXPECT_EQ(alone.Status, 1);
    EXPECT_EQ(StringOf(alone.Output), found);
    EXPECT_THAT(alone.Errors, IsEmpty());
    const Outcome beside = Run({"--doppelte", "--ini", "n.ini", "a.csv", "b.t9t"});
    EXPECT_EQ(beside.Status, 1);
    EXPECT_EQ(beside.Errors, found);
    EXPECT_THAT(beside.Output, IsEmpty());
    EXPECT_EQ(Run({"a.csv", "c.t9t"}).Status, 0);
    EXPECT_EQ(ReadFile(folder / "b.t9t"), ReadFile(folder / "c.t9t"));
    const Outcome other = Run({"--doppelte", "a.csv"});
    EXPECT_EQ(other.Status, 0);
    EXPECT_THAT(other.Output, IsEmpty());
    EXPECT_THAT(other.Errors, IsEmpty());
}

TEST_F(ConverterProgram, ARegisterWithoutEntriesIsNoError) {
    folder.Write("a.t9t", EmptyRegisterFile());
    folder.Write("a.pbo", "norvik 175 phonebook\r\n");
    folder.Write("a.csv", CsvHeader);
    for (const std::string source : {"a.t9t", "a.pbo", "a.csv"}) {
        for (const std::string order : {"--sortiert", "--unsortiert"}) {
            const Outcome outcome = Run({source, "-", "--nach=csv", order});
            EXPECT_EQ(outcome.Status, 0);
            EXPECT_THAT(outcome.Errors, IsEmpty());
            EXPECT_EQ(StringOf(outcome.Output), CsvHeader);
            EXPECT_EQ(Run({source, "-", "--nach=195", order}).Output, EmptyRegisterFile());
        }
    }
}

}  // namespace
}  // namespace norvik::test
