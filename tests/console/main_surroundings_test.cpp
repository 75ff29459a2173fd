// The program among pipes, odd names, locales and terminals.
#include "base/platform.h"
#include "tests/console/converterprogram.h"

#include <filesystem>

namespace norvik::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(ConverterProgram, GoesThroughAShellsPipeline) {
    folder.Write("a.t9t", Example195());
    const std::string first = ConverterInShell() + " --von 195 --nach 175 - -";
    const std::string second = ConverterInShell() + " --von 175 --nach csv - -";
#ifndef _WIN32
    const std::string line = "cat a.t9t | " + first + " | " + second + " | cat";
#else
    const std::string line = first + " < a.t9t | " + second;
#endif
    const Outcome outcome = RunInShell(line, {.Folder = folder.Path()});
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_THAT(StringOf(outcome.Output), HasSubstr("\r\nAnna;01711;"));
}

TEST_F(ConverterProgram, AReaderThatGoesAwayIsAnErrorOfWriting) {
    folder.Write("a.t9t", FileOfMany(2000));
    const Outcome outcome = Run({"--nach=csv", "a.t9t", "-"}, {.ReaderLeaves = true});
    EXPECT_EQ(outcome.Status, 3);
    EXPECT_THAT(outcome.Errors, HasSubstr("\"-\" nicht geschrieben: "));
}

TEST_F(ConverterProgram, NeedsNoFolderForTemporaryFiles) {
    folder.Write("a.t9t", Example195());
    const Surroundings none = {.Variables = {{"TMPDIR", (folder / "fehlt").string()}}};
    EXPECT_EQ(Run({"a.t9t", "-", "--nach=195"}, none).Status, 0);
    EXPECT_EQ(Run({"a.t9t", "b.csv"}, none).Status, 0);
    EXPECT_THAT(FilesIn(folder.Path()), testing::ElementsAre("a.t9t", "b.csv"));
}

TEST_F(ConverterProgram, ReadsContactsOfAnyLengthFromStandardInput) {
    std::string cards = "BEGIN:VCARD\nFN:Anna\nTEL:1\nPHOTO;ENCODING=b:";
    cards.append(std::size_t{65} * 1024 * 1024, 'A');
    cards += "\nEND:VCARD\nBEGIN:VCARD\nFN:Bernd\nTEL:2\nEND:VCARD";
    const Outcome outcome =
        Run({"-", "-", "--von=vcard", "--nach=csv"}, {.Input = Bytes(cards.begin(), cards.end())});
    EXPECT_EQ(outcome.Status, 0);
    const std::string table = StringOf(outcome.Output);
    const std::size_t first = table.find('\n') + 1;
    const std::size_t second = table.find('\n', first) + 1;
    EXPECT_EQ(table.substr(first, 7), "Anna;1;");
    EXPECT_EQ(table.substr(second, 8), "Bernd;2;");
    EXPECT_EQ(table.find('\n', second) + 1, table.size());
}

TEST_F(ConverterProgram, ReadsStandardInputUpTo64MiB) {
    // Behind a strange header the first byte ends the list.
    const Bytes most(MaximumFileSize, 0);
    const Outcome largest = Run({"-", "-", "--von=195", "--nach=195"}, {.Input = most});
    EXPECT_EQ(largest.Status, 1);
    EXPECT_EQ(largest.Errors, "-: Abweichender Header\n");
    EXPECT_EQ(largest.Output, EmptyRegisterFile());
    Bytes more = most;
    more.push_back(0);
    for (const std::string format : {"195", "175", "csv"}) {
        const Outcome tooLarge = Run({"-", "-", "--von", format, "--nach=195"}, {.Input = more});
        EXPECT_EQ(tooLarge.Status, 3);
        EXPECT_EQ(tooLarge.Errors, Own + "\"-\" nicht gelesen: Nicht genügend Speicher\n");
    }
    // The same as of a file.
    std::filesystem::resize_file(folder.Write("a.csv", "x"), MaximumFileSize + 1);
    EXPECT_EQ(Run({"a.csv", "b.csv"}).Errors,
              Own + "\"a.csv\" nicht gelesen: Nicht genügend Speicher\n");
}

TEST_F(ConverterProgram, TakesNamesOfAnyCharacters) {
    std::vector<std::string> names = {"mit blank.T9T",       "grüße ß.t9T",         "\xFF\xFE.t9t",
                                      "-vorn.t9t",           "łódź 日本 Ωμέγα.t9t", "#Da.t9t",
                                      "\xF0\x9F\x93\x9E.t9t"};
#ifndef _WIN32
    names.emplace_back("zeile\nzwei.t9t");
#endif
    for (const std::string& name : names) {
        folder.Write(platform::PathOfUtf8(name), Example195());
        const Outcome outcome = Run({"--nach=195", "--", name, name + ".neu"});
        EXPECT_EQ(outcome.Status, 0) << name << outcome.Errors;
        EXPECT_EQ(ReadFile(folder / platform::PathOfUtf8(name + ".neu")),
                  Run({"./" + name, "-", "--nach=195"}).Output);
    }
    EXPECT_EQ(FilesIn(folder.Path()).size(), names.size() * 2);
    folder.Write("#Da.csv", ExampleCsv());
    EXPECT_EQ(Run({"#Da.csv", "b.pbo"}).Status, 0);
}

TEST_F(ConverterProgram, ShowsNamesSoThatATerminalIsSafe) {
    EXPECT_THAT(Run({"\xFF.t9t", "a.csv"}).Errors,
                HasSubstr(Own + "\"?.t9t\" nicht gelesen: Datei nicht gefunden\n"));
    // Half of a surrogate pair.
    EXPECT_THAT(Run({"a\xED\xA0\x80z.t9t", "a.csv"}).Errors,
                HasSubstr(Own + "\"a???z.t9t\" nicht gelesen: Datei nicht gefunden\n"));
    const FilePath controls = "\x1B[2J\n.t9t";
    const std::string reason =
        platform::IsPossibleName(controls) ? "Datei nicht gefunden" : "Dateiname falsch";
    EXPECT_THAT(Run({controls.string(), "a.csv"}).Errors,
                HasSubstr(Own + "\"?[2J?.t9t\" nicht gelesen: " + reason + "\n"));
    EXPECT_THAT(Run({"gr\xC3\xBC\xC3\x9F.t9t", "a.csv"}).Errors,
                HasSubstr(Own + "\"grüß.t9t\" nicht gelesen: Datei nicht gefunden\n"));
    EXPECT_EQ(
        Run({"--nach=\x1B]0;x\x07", "a", "b"}).Errors,
        Own + "--nach: unbekanntes Format ?]0;x?; bekannt sind 195, 193, 175, csv, ip286, simsurf, "
              "gebuehren, vcard, pdf\n");
}

TEST_F(ConverterProgram, ShowsEntriesSoThatATerminalIsSafe) {
    // Escape sequences of seven and eight bits, a bell, line ends, and a finding that shows them.
    folder.Write("a.t9t", FileOf({Raw("0200 0201 06 0E 1B '[2J' 9B '5m' 07 0D 0A 7F 81 90 0A"
                                      "06 01 '1' 06 00 0200 020F 0200 0209")}));
    const Outcome outcome = Run({"--pruefen", "a.t9t"});
    EXPECT_EQ(outcome.Status, 1);
    for (const char c : outcome.Errors) {
        EXPECT_TRUE(c == '\n' || static_cast<unsigned char>(c) >= 0x20);
        EXPECT_NE(c, '\x7F');
    }
    EXPECT_THAT(outcome.Errors, HasSubstr("#0[?[2J›5m?"));
    const Outcome losses = Run({"--verluste", "a.t9t", "--nach=ip286"});
    EXPECT_THAT(StringOf(losses.Output), testing::Not(HasSubstr("\x1B")));
}

TEST_F(ConverterProgram, SpeaksUtf8InEveryLocale) {
    folder.Write("a.t9t", Example195());
    const std::vector<std::string> arguments = {"--verluste", "a.t9t", "--nach=193"};
    const Outcome plain = Run(arguments, {.Locale = "C"});
    const Outcome utf8 = Run(arguments, {.Locale = "C.UTF-8"});
    EXPECT_EQ(plain.Output, utf8.Output);
    EXPECT_THAT(StringOf(plain.Output), HasSubstr("Bö"));
}

TEST_F(ConverterProgram, TakesTextsInUtf8Only) {
    folder.Write("a.t9t", Example195());
    EXPECT_EQ(Run({"--null-weg", "\xE4", "a.t9t", "b.csv"}).Errors,
              Own + "--null-weg: unzulässige Zeichen im Wert ?\n");
    EXPECT_EQ(Run({"--null-weg", "日", "a.t9t", "b.csv"}).Status, 2);
    folder.Write("a.t9a", ExampleCalls());
    EXPECT_EQ(Run({"--msn", "ä", "a.t9a", "b.csv"}).Status, 0);
    EXPECT_THAT(StringOf(ReadFile(folder / "b.csv")), HasSubstr(";\xE4;0301\r\n"));
}

}  // namespace
}  // namespace norvik::test
