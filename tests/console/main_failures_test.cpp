// The program when files fail it (exit status 3 and 4).
#include "tests/console/converterprogram.h"

#include <filesystem>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// Exit status 3: files.

TEST_F(ConverterProgram, ASourceThatCannotBeReadIsNamedWithTheReason) {
    std::filesystem::create_directory(folder / "ordner.csv");
    const std::vector<std::pair<std::string, std::string>> messages = {
        {"a.t9t", "Datei nicht gefunden"}, {"fehlt/a.t9t", "Pfad nicht gefunden"},
        {"a.pbo", "Datei nicht gefunden"}, {"a.csv", "Datei nicht gefunden"},
        {"a.t9a", "Datei nicht gefunden"}, {"ordner.csv", "Fehler beim Zugriff auf Pfad/Datei"},
    };
    for (const auto& message : messages) {
        const Outcome outcome = Run({message.first, "neu.csv"});
        EXPECT_EQ(outcome.Status, 3);
        EXPECT_EQ(outcome.Errors,
                  Own + "\"" + message.first + "\" nicht gelesen: " + message.second + "\n");
    }
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("ordner.csv"));
}

TEST_F(ConverterProgram, ASourceOfAnotherKindLeavesNothing) {
    folder.Write("a.pbo", "Name;Tel\r\n");
    const Outcome other = Run({"a.pbo", "neu.csv"});
    EXPECT_EQ(other.Status, 3);
    EXPECT_EQ(other.Errors, "a.pbo: Dies ist keine Norvik-175-Registerdatei!\na.pbo: (Name;Tel)\n" +
                                Own + "\"a.pbo\" nicht gelesen: keine 175-Datei\n");
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.pbo"));
}

TEST_F(ConverterProgram, AVCardWithoutANumberToDialIsCalledSo) {
    folder.Write("a.vcf", "BEGIN:VCARD\r\nFN:Anna\r\nTEL:unbekannt\r\nEND:VCARD\r\n");
    const Outcome outcome = Run({"a.vcf", "neu.csv"});
    EXPECT_EQ(outcome.Status, 3);
    EXPECT_EQ(outcome.Errors, "a.vcf: In dieser vCard-Datei steht keine wählbare Rufnummer!\n"
                              "a.vcf: Nicht wählbar: Anna: unbekannt\n" +
                                  Own + "\"a.vcf\" nicht gelesen: keine wählbare Rufnummer\n");
    folder.Write("b.vcf", "Brief\r\n");
    EXPECT_EQ(Run({"b.vcf", "neu.csv"}).Errors, "b.vcf: Dies ist keine vCard-Datei!\n" + Own +
                                                    "\"b.vcf\" nicht gelesen: keine vCard-Datei\n");
}

TEST_F(ConverterProgram, AnExistingTargetIsReplacedOnlyOnRequest) {
    folder.Write("a.t9t", Example195());
    folder.Write("b.pbo", "alt");
    const Outcome refused = Run({"a.t9t", "b.pbo"});
    EXPECT_EQ(refused.Status, 3);
    EXPECT_EQ(refused.Errors,
              Own + "\"b.pbo\" nicht geschrieben: schon vorhanden (--ueberschreiben ersetzt es)\n");
    EXPECT_EQ(StringOf(ReadFile(folder / "b.pbo")), "alt");
    EXPECT_EQ(Run({"a.t9t", "b.pbo", "--ueberschreiben"}).Status, 0);
    EXPECT_THAT(StringOf(ReadFile(folder / "b.pbo")), StartsWith("norvik 175 phonebook\r\n"));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.t9t", "b.pbo"));
}

TEST_F(ConverterProgram, TheSourceItselfCanBeReplaced) {
    const Bytes sorted = Run({"a.t9t", "-", "--nach=195"},
                             {.Folder = folder.Write("a.t9t", Example195()).parent_path()})
                             .Output;
    EXPECT_EQ(Run({"a.t9t", "a.t9t"}).Status, 3);
    EXPECT_EQ(ReadFile(folder / "a.t9t"), Example195());
    EXPECT_EQ(Run({"--ueberschreiben", "a.t9t", "a.t9t"}).Status, 0);
    EXPECT_EQ(ReadFile(folder / "a.t9t"), sorted);
    EXPECT_NE(sorted, Example195());
}

TEST_F(ConverterProgram, ATargetThatCannotBeWrittenIsReportedAsByTheWindow) {
    folder.Write("a.t9t", Example195());
    const std::string own = Own + "\"fehlt/b\" nicht geschrieben: Pfad nicht gefunden\n";
    const std::vector<std::pair<std::string, std::string>> messages = {
        {"195", ""},
        {"193", ""},
        {"175", ""},
        {"csv", "a.t9t: Undef'd Error: mnuDateiSaveCSV:76Pfad nicht gefunden\n"},
        {"ip286", "a.t9t: Undef'd Error: mnuDateiSaveIP286:76Pfad nicht gefunden\n"},
        {"simsurf", "a.t9t: Diese Funktion exportiert das aktuelle Telefonbuch\n"
                    "a.t9t: in ein u.a. von SIM-Surf lesbares Format\n"
                    "a.t9t: ACHTUNG: Diese Funktion liefert nur sinnvolle Ergebnisse, wenn das\n"
                    "a.t9t: Telefonregister keine führenden Nullen enthält!!!\n"
                    "a.t9t: Laufzeitfehler '76':\na.t9t: Pfad nicht gefunden\n"},
        {"gebuehren", "a.t9t: Laufzeitfehler '76':\na.t9t: Pfad nicht gefunden\n"},
    };
    for (const auto& message : messages) {
        const Outcome outcome = Run({"a.t9t", "fehlt/b", "--nach", message.first});
        EXPECT_EQ(outcome.Status, 3);
        EXPECT_EQ(outcome.Errors, message.second + own);
    }
}

TEST_F(ConverterProgram, AFullDiskLeavesNoTarget) {
    folder.Write("a.t9t", FileOfMany(500));
    for (const std::string format : {"195", "193", "175", "csv", "ip286", "simsurf", "gebuehren"}) {
        folder.Write("alt", "alt");
        const unsigned room = format == "gebuehren" ? 10 : 1000;
        for (const std::string target : {"neu", "alt"}) {
            const Outcome outcome =
                Run({"--ueberschreiben", "a.t9t", target, "--nach", format}, {.LongestFile = room});
            EXPECT_EQ(outcome.Status, 3) << format;
            EXPECT_THAT(outcome.Errors, HasSubstr("\"" + target + "\" nicht geschrieben: E/A-"));
        }
        EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.t9t", "alt")) << format;
        EXPECT_EQ(StringOf(ReadFile(folder / "alt")), "alt");
    }
}

TEST_F(ConverterProgram, AValueThatTheTargetCannotHoldLeavesNoTarget) {
    folder.Write("a.csv", std::string(CsvHeader) + "Anna;1;;;;;;;0;0;nein;00;Kein;65536;ja\r\n");
    const Outcome outcome = Run({"a.csv", "b.t9t"});
    EXPECT_EQ(outcome.Status, 3);
    EXPECT_THAT(outcome.Errors, HasSubstr(Own + "\"b.t9t\" nicht geschrieben: Ungültiger "
                                                "Prozeduraufruf oder ungültiges Argument\n"));
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.csv"));
}

TEST_F(ConverterProgram, ADeviceIsNoTarget) {
    folder.Write("a.t9t", Example195());
#ifndef _WIN32
    const std::vector<std::string> devices = {"/dev/null"};
#else
    const std::vector<std::string> devices = {"NUL", "nul"};
#endif
    for (const std::string& target : devices) {
        const Outcome outcome = Run({"a.t9t", target, "--nach=195", "--ueberschreiben"});
        EXPECT_EQ(outcome.Status, 3);
        EXPECT_EQ(outcome.Errors, Own + "\"" + target +
                                      "\" nicht geschrieben: Fehler beim Zugriff auf Pfad/Datei\n");
    }
#ifndef _WIN32
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
#endif
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.t9t"));
}

TEST_F(ConverterProgram, StandardOutputThatIsFullOrClosedIsNotWritable) {
    folder.Write("a.t9t", Example195());
    const Outcome full = Run({"a.t9t", "-", "--nach=195"}, {.Output = "/dev/full"});
    EXPECT_EQ(full.Status, 3);
    EXPECT_EQ(full.Errors, Own + "\"-\" nicht geschrieben: Datenträger voll\n");
    for (const std::string option : {"--hilfe", "--version"}) {
        const Outcome noRoom = Run({option}, {.Output = "/dev/full"});
        EXPECT_EQ(noRoom.Status, 3);
        EXPECT_EQ(noRoom.Errors, full.Errors);
    }
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"a.t9t", "-", "--nach=195"}, {"--hilfe"}, {"--version"}}) {
        const Outcome closed = Run(arguments, {.Closed = {1}});
        EXPECT_EQ(closed.Status, 3);
        EXPECT_EQ(closed.Errors,
                  Own + "\"-\" nicht geschrieben: E/A-Fehler beim Zugriff auf ein Gerät\n");
    }
}

TEST_F(ConverterProgram, AClosedStandardStreamIsNeverMistakenForTheTarget) {
    folder.Write("a.t9t", FileWithFinding());
    EXPECT_EQ(Run({"a.t9t", "b.csv"}, {.Closed = {0, 1, 2}}).Status, 1);
    EXPECT_EQ(Run({"a.t9t", "c.csv"}).Status, 1);
    EXPECT_EQ(ReadFile(folder / "b.csv"), ReadFile(folder / "c.csv"));
}

TEST_F(ConverterProgram, AClosedStandardInputIsNotReadable) {
    const Outcome outcome = Run({"-", "b.csv", "--von=csv"}, {.Closed = {0}});
    EXPECT_EQ(outcome.Status, 3);
    EXPECT_EQ(outcome.Errors, Own + "\"-\" nicht gelesen: E/A-Fehler beim Zugriff auf ein Gerät\n");
}

}  // namespace
}  // namespace norvik::test
