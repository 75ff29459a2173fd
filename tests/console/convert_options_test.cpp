// Each option of the converter beside the answer that the user gives in the window.
#include "console/convert.h"

#include "tests/console/converterprocess.h"
#include "tests/console/examplefiles.h"
#include "tests/console/windowfiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ConverterOption : public testing::Test {
  protected:
    /// Converts the example with the options into a new file and gives its bytes.
    Bytes Converted(std::vector<std::string> options, const std::string& target = "neu.csv") {
        options.insert(options.end(), {source.string(), (folder / target).string()});
        const Outcome outcome = RunConverter(options);
        EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
        return ReadFile(folder / target);
    }

    [[nodiscard]] Bytes InWindow(FileFormat to, const WindowAnswers& answers = {}) const {
        return WindowWrites(source, FileFormat::Register195, to, answers);
    }

    /// The lines, each with the source's name in front.
    [[nodiscard]] std::string WithSource(const std::string& lines, const FilePath& of = {}) const {
        const std::string prefix = (of.empty() ? source : of).string() + ": ";
        std::string result;
        for (std::size_t at = 0; at < lines.size(); at = lines.find('\n', at) + 1) {
            result += prefix + lines.substr(at, lines.find('\n', at) + 1 - at);
        }
        return result;
    }

    const TestFolder folder;
    const FilePath source = folder.Write("alt.t9t", Example195());
};

TEST_F(ConverterOption, AnfuehrungszeichenPutsTheValuesIntoQuotes) {
    const Bytes quoted = Converted({"--anfuehrungszeichen"});
    EXPECT_THAT(StringOf(quoted), HasSubstr("\r\n\"Anna\";\"01711\";\"\";"));
    EXPECT_EQ(quoted, InWindow(FileFormat::Csv, {.Quoted = true}));
}

TEST_F(ConverterOption, NurMarkierteWritesTheMarkedEntriesOfA193) {
    const Bytes marked = Converted({"--nur-markierte", "--nach", "193"}, "neu.t9t");
    EXPECT_EQ(marked, FileOf({Raw("0200 0201 06 02 'B' 94 06 04 '0301' 0200 03 91 00 020C 0200")}));
    EXPECT_EQ(marked, InWindow(FileFormat::Register193, {.OnlyMarked = true}));
}

TEST_F(ConverterOption, NurMarkierteWritesTheMarkedEntriesOfTheMobileExport) {
    EXPECT_EQ(Converted({"--nur-markierte"}, "a.pbb"), Raw("'B' F6 ';0301' 0D0A"));
    EXPECT_EQ(Converted({"--UseReductionFlags"}, "b.pbb"), Raw("'B' F6 ';0301' 0D0A"));
    EXPECT_EQ(InWindow(FileFormat::MobileExport, {.Boxes = {UseReductionFlagsBox}}),
              Raw("'B' F6 ';0301' 0D0A"));
}

TEST_F(ConverterOption, NurMarkierteWithoutAMarkedEntryWritesNothing) {
    folder.Write("alt.t9t", Example193());
    const Outcome outcome = RunConverter(
        {source.string(), "--nach=193", (folder / "neu.t9t").string(), "--nur-markierte"});
    EXPECT_EQ(outcome.Status, 3);
    EXPECT_EQ(outcome.Errors, source.string() +
                                  ": Keine Datensätze zum Exportieren!\n"
                                  "norvik-konverter: \"" +
                                  (folder / "neu.t9t").string() +
                                  "\" nicht geschrieben: kein Eintrag ist markiert\n");
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("alt.t9t"));
}

TEST_F(ConverterOption, AusschliessenLeavesOutNumbersThatHoldTheText) {
    const Bytes rest = Converted({"--ausschliessen", "**", "--nach=ip286", "--ausschliessen=017"});
    EXPECT_EQ(rest,
              Raw("'\"Name\",\"Telefonnummer\",\"Konto\"' 0D0A '\"Boe\",\"0301\",\"1\"' 0D0A"));
    EXPECT_EQ(rest, InWindow(FileFormat::Ip286, {.Exclusions = {u"**", u"017"}}));
}

TEST_F(ConverterOption, TheIp286ReportsWhatItHasExported) {
    const Outcome outcome =
        RunConverter({source.string(), "-", "--nach", "ip286", "--ausschliessen", "0"});
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Errors, WithSource("1 Einträge exportiert\n2 Einträge wurden ignoriert\n"
                                         "Anna\nBö\n"));
}

TEST_F(ConverterOption, NullHinzuPutsZerosInFront) {
    const Bytes added = Converted({"--null-hinzu"});
    EXPECT_THAT(StringOf(added), HasSubstr("\r\nZita;12;"));
    EXPECT_THAT(StringOf(added), HasSubstr("\r\nAnna;001711;"));
    EXPECT_EQ(added, InWindow(FileFormat::Csv, {.ZeroCode = u"0"}));
}

TEST_F(ConverterOption, NullWegTakesZerosAndMarksInternalNumbers) {
    const Bytes removed = Converted({"--null-weg", "##"});
    EXPECT_THAT(StringOf(removed), HasSubstr("\r\nZita;##**12;"));
    EXPECT_THAT(StringOf(removed), HasSubstr("\r\nAnna;1711;"));
    EXPECT_EQ(removed, InWindow(FileFormat::Csv, {.ZeroCode = u"##"}));
}

TEST_F(ConverterOption, ANumberThatIsCutIsReported) {
    folder.Write("alt.t9t", FileOf({Raw("0200 0201 06 04 'Anna' 06 15 '030111111111111111119'"
                                        "06 00 0200 020F 0200 0200")}));
    const Outcome outcome = RunConverter({"--null-hinzu", source.string(), "-", "--nach=175"});
    EXPECT_EQ(outcome.Errors, WithSource("Telefonnummer ist nach Konvertierung zu lang:\n"
                                         "Name: Anna\n"
                                         "Tel.: 030111111111111111119\n"
                                         "Neu : 003011111111111111111\n"
                                         "Gekürzte Nummer gespeichert\n"));
    EXPECT_EQ(outcome.Status, 1);
}

TEST_F(ConverterOption, UnsortiertKeepsTheOrderOfTheSource) {
    const std::string names = "'\"Name\",\"Telefonnummer\",\"Konto\"' 0D0A ";
    EXPECT_EQ(Converted({"--unsortiert", "--nach=ip286"}, "a.csv"),
              Raw(names + "'\"Zita\",\"**12\",\"1\"' 0D0A '\"Boe\",\"0301\",\"1\"' 0D0A"
                          "'\"Anna\",\"01711\",\"1\"' 0D0A"));
    EXPECT_EQ(Converted({"--sortiert", "--nach=ip286"}, "b.csv"),
              Raw(names + "'\"Anna\",\"01711\",\"1\"' 0D0A '\"Boe\",\"0301\",\"1\"' 0D0A"
                          "'\"Zita\",\"**12\",\"1\"' 0D0A"));
}

TEST_F(ConverterOption, OhneDoublettenLeavesOutLinesThatOccurTwice) {
    const FilePath doubles = folder.Write("alt.csv", "Name;Tel\r\nAnna;1\r\nAnna;1\r\nAnna;2\r\n");
    const Outcome outcome =
        RunConverter({"--ohne-doubletten", doubles.string(), (folder / "neu.pbo").string()});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(outcome.Errors, WithSource("Doublette entfernt: Anna\nDoppelter Name: Anna\n"
                                         "Es wurden 0 Fehler korrigiert\n"
                                         "Doublette entfernt: Anna\nDoppelter Name: Anna\n",
                                         doubles));
    EXPECT_EQ(
        ReadFile(folder / "neu.pbo"),
        WindowWrites(doubles, FileFormat::Csv, FileFormat::Phonebook175, {.AvoidDoubles = true}));
}

TEST_F(ConverterOption, ZeichensatzTellsHowTheSourceIsRead) {
    const auto names = [this](const std::vector<std::string>& options, std::string_view file) {
        const FilePath csv = folder.Write("alt.csv", file);
        std::vector<std::string> arguments = {csv.string(), "-", "--nach=csv"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Outcome outcome = RunConverter(arguments);
        const std::string output = StringOf(outcome.Output);
        const std::size_t line = output.find('\n') + 1;
        return output.substr(line, output.find(';', line) - line) + " " +
               std::to_string(outcome.Status) + " " + outcome.Errors;
    };
    const std::string utf8 = "Name;Tel\r\nM\xC3\xBCller;1\r\n";
    const std::string windows = "Name;Tel\r\nM\xFCller;1\r\n";
    EXPECT_EQ(names({}, utf8), "M\xFCller 0 ");
    EXPECT_EQ(names({"--zeichensatz=auto"}, windows), "M\xFCller 0 ");
    EXPECT_EQ(names({"--zeichensatz=windows-1252"}, utf8), "M\xC3\xBCller 0 ");
    EXPECT_EQ(names({"--zeichensatz=utf-8"}, windows),
              "M?ller 1 " + WithSource("Zeichen ersetzt: M?ller\n"
                                       "Es wurden 0 Fehler korrigiert\n"
                                       "Zeichen ersetzt: M?ller\n",
                                       folder / "alt.csv"));
}

TEST_F(ConverterOption, ZeichensatzIsThatOfAVCardsPropertiesWithoutOne) {
    const auto names = [this](const std::string& characters, const std::string& file) {
        const FilePath cards = folder.Write("alt.vcf", file);
        const Outcome outcome = RunConverter(
            {cards.string(), "-", "--nach=csv", "--still", "--zeichensatz=" + characters});
        const std::string output = StringOf(outcome.Output);
        const std::size_t line = output.find('\n') + 1;
        return output.substr(line, output.find(';', line) - line);
    };
    const std::string utf8 = "BEGIN:VCARD\nFN:M\xC3\xBCller\nTEL:1\nEND:VCARD\n";
    EXPECT_EQ(names("auto", utf8), "M\xFCller");
    EXPECT_EQ(names("windows-1252", utf8), "M\xC3\xBCller");
    EXPECT_EQ(names("windows-1252", "\xEF\xBB\xBF" + utf8), "M\xFCller");
    EXPECT_EQ(names("utf-8", "BEGIN:VCARD\nFN:M\xFCller\nTEL:1\nEND:VCARD\n"), "M?ller");
    EXPECT_EQ(names("utf-8", "BEGIN:VCARD\nFN;CHARSET=ISO-8859-1:M\xFCller\nTEL:1\nEND:VCARD\n"),
              "M\xFCller");
}

TEST_F(ConverterOption, IniGivesThePriceOfTheUnit) {
    const FilePath ini = folder.Write("meine einstellungen", "[common]\r\nUnit=0,25\r\n");
    WindowAnswers answers;
    answers.Set.Table.SetValue(Setting::Unit, u"0,25");
    const Bytes statement = Converted({"--ini", ini.string()}, "neu.geb");
    EXPECT_THAT(StringOf(statement), HasSubstr("\r\n3,00\tB\xF6\r\n"));
    EXPECT_EQ(statement, InWindow(FileFormat::ChargeStatement, answers));
    EXPECT_THAT(StringOf(Converted({}, "ohne.geb")), HasSubstr("\r\n0,00\tB\xF6\r\n"));
}

TEST_F(ConverterOption, IniThatCannotBeReadEndsIt) {
    const FilePath ini = folder / "fehlt.ini";
    const Outcome outcome =
        RunConverter({"--ini", ini.string(), source.string(), (folder / "neu.csv").string()});
    EXPECT_EQ(outcome.Status, 3);
    EXPECT_EQ(outcome.Errors,
              "norvik-konverter: \"" + ini.string() + "\" nicht gelesen: Datei nicht gefunden\n");
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("alt.t9t"));
}

TEST_F(ConverterOption, TheMobileExportShowsItsWarningAndAsksNothing) {
    const Outcome outcome = RunConverter({source.string(), "-", "--nach", "simsurf"});
    EXPECT_EQ(outcome.Errors,
              WithSource("Diese Funktion exportiert das aktuelle Telefonbuch\n"
                         "in ein u.a. von SIM-Surf lesbares Format\n"
                         "ACHTUNG: Diese Funktion liefert nur sinnvolle Ergebnisse, wenn das\n"
                         "Telefonregister keine führenden Nullen enthält!!!\n"));
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Output, Raw("'Zita;12' 0D0A 'B' F6 ';0301' 0D0A 'Anna;01711' 0D0A"));
}

/// A box of the mobile export, its option, and the value that "norvik.ini" holds for it.
struct MobileOption {
    const char* Option;
    std::size_t Box;
    Setting Row;
};

class ConverterMobileOption : public ConverterOption,
                              public testing::WithParamInterface<MobileOption> {};

INSTANTIATE_TEST_SUITE_P(
    All, ConverterMobileOption,
    testing::Values(
        MobileOption{"--AddRegionCode", AddRegionCodeBox, Setting::AddRegionCode},
        MobileOption{"--GlobalizeNumber", GlobalizeNumberBox, Setting::GlobalizeNumber},
        MobileOption{"--Change00to+", Change00toPlusBox, Setting::Change00toPlus},
        MobileOption{"--UseReductionFlags", UseReductionFlagsBox, Setting::UseReductionFlags},
        MobileOption{"--DeleteCommaInNames", DeleteCommaInNamesBox, Setting::DeleteCommaInNames},
        MobileOption{"--WriteMemNumber", WriteMemNumberBox, Setting::WriteMemNumber},
        MobileOption{"--UseQuotesForData", UseQuotesForDataBox, Setting::UseQuotesForData}));

TEST_P(ConverterMobileOption, IsTheBoxOfTheDialogAndTheSettingOfItsName) {
    folder.Write(
        "alt.t9t",
        FileOf({Raw("0200 0201 06 0B 'Meier, Hans' 06 07 '1234567' 06 00 0200 020F 0200 0200"),
                Raw("0201 0202 06 01 'B' 06 0A '0044201234' 06 02 '()' 0200 020F 0200 0200")}));
    const std::string location = "CountryCode=49\r\nRegionCode=30\r\nDataSeparator=,\r\n";
    const FilePath ini = folder.Write("a.ini", location);
    const std::string name = std::string(GetParam().Option).substr(2);
    const FilePath withRow = folder.Write("b.ini", location + name + "=yes\r\n");
    WindowAnswers answers;
    answers.Set.Table.SetValue(Setting::CountryCode, u"49");
    answers.Set.Table.SetValue(Setting::RegionCode, u"30");
    answers.Set.Table.SetValue(Setting::DataSeparator, u",");
    const Bytes plain = InWindow(FileFormat::MobileExport, answers);
    answers.Boxes = {GetParam().Box};
    const Bytes expected = InWindow(FileFormat::MobileExport, answers);

    EXPECT_EQ(Converted({"--ini", ini.string()}, "ohne.pbb"), plain);
    EXPECT_EQ(Converted({"--ini", ini.string(), GetParam().Option}, "option.pbb"), expected);
    EXPECT_EQ(Converted({"--ini", withRow.string()}, "zeile.pbb"), expected);
    if (GetParam().Box != Change00toPlusBox) {
        EXPECT_NE(plain, expected);
    } else {
        EXPECT_THAT(StringOf(expected), HasSubstr("+44201234"));
    }
}

}  // namespace
}  // namespace norvik::test
