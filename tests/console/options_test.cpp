#include "console/options.h"

#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Words = std::vector<std::string_view>;

ConverterOptions Read(const Words& words) {
    const std::vector<ConverterOptions> runs = ReadOptions(words);
    EXPECT_EQ(runs.size(), 1U);
    return runs.front();
}

/// The line that the words give, or "" when they make sense.
std::string ErrorOf(const Words& words) {
    try {
        ReadOptions(words);
        return "";
    } catch (const UsageError& error) {
        return Utf8(error.Message);
    }
}

TEST(Options, TakesTheFormatsFromTheEndingsInAnyCase) {
    const ConverterOptions options = Read({"a.T9T", "b.Pbo"});
    EXPECT_EQ(options.What, Task::Convert);
    EXPECT_EQ(options.Source, "a.T9T");
    EXPECT_EQ(options.Target, "b.Pbo");
    EXPECT_EQ(options.From, FileFormat::Register195);
    EXPECT_EQ(options.To, FileFormat::Phonebook175);
}

TEST(Options, AreThoseOfAWindowWhoseQuestionsAreAnsweredWithNo) {
    const ConverterOptions options = Read({"a.csv", "b.t9t"});
    EXPECT_EQ(options.To, FileFormat::Register195);
    EXPECT_FALSE(options.Check);
    EXPECT_FALSE(options.Losses);
    EXPECT_FALSE(options.Overwrite);
    EXPECT_FALSE(options.OnlyMarked);
    EXPECT_FALSE(options.Quoted);
    EXPECT_FALSE(options.AvoidDoubles);
    EXPECT_TRUE(options.Sorted);
    EXPECT_EQ(options.Exclusions, u"");
    EXPECT_EQ(options.Msn, u"0");
    EXPECT_EQ(options.ZeroCode, std::nullopt);
    EXPECT_TRUE(options.SettingsFile.empty());
    EXPECT_THAT(options.Boxes, IsEmpty());
}

TEST(Options, PreferTheWordsToTheEndings) {
    const ConverterOptions options = Read({"--von", "175", "a.csv", "--nach=193", "b.csv"});
    EXPECT_EQ(options.From, FileFormat::Phonebook175);
    EXPECT_EQ(options.To, FileFormat::Register193);
    EXPECT_EQ(Read({"--von=csv", "a.t9a", "b.pbb"}).From, FileFormat::Csv);
}

TEST(Options, TheLastWordForAFormatCounts) {
    EXPECT_EQ(Read({"a.t9t", "b", "--nach=193", "--nach", "175"}).To, FileFormat::Phonebook175);
}

TEST(Options, TakeADashForTheStandardStreams) {
    const ConverterOptions options = Read({"--von=195", "--nach=csv", "-", "-"});
    EXPECT_EQ(options.Source, StandardStream);
    EXPECT_EQ(options.Target, StandardStream);
    EXPECT_EQ(ErrorOf({"-", "b.csv"}), "das Format von - ist nicht zu erkennen; --von nennt es");
}

TEST(Options, BehindTwoDashesAreFilesOnly) {
    const ConverterOptions options = Read({"--nach", "csv", "--", "--von.t9t", "--"});
    EXPECT_EQ(options.Source, "--von.t9t");
    EXPECT_EQ(options.Target, "--");
}

TEST(Options, OfARegisterFileToA193) {
    const ConverterOptions options =
        Read({"--nur-markierte", "--null-hinzu", "--unsortiert", "--ini", "x y.ini", "--nach=193",
              "--ueberschreiben", "--verluste", "a.t9t", "b.t9t"});
    EXPECT_TRUE(options.OnlyMarked);
    EXPECT_EQ(options.ZeroCode, u"0");
    EXPECT_FALSE(options.Sorted);
    EXPECT_EQ(options.SettingsFile, "x y.ini");
    EXPECT_TRUE(options.Overwrite);
    EXPECT_TRUE(options.Losses);
    EXPECT_EQ(options.What, Task::Convert);
}

TEST(Options, JoinTheExclusions) {
    EXPECT_EQ(
        Read({"a.t9t", "b.csv", "--nach=ip286", "--ausschliessen", "**", "--ausschliessen", "ä|b"})
            .Exclusions,
        u"**|ä|b");
}

TEST(Options, TickTheBoxesOfTheMobileExport) {
    EXPECT_THAT(Read({"a.t9t", "b.pbb", "--AddRegionCode", "--GlobalizeNumber", "--Change00to+",
                      "--UseReductionFlags", "--DeleteCommaInNames", "--WriteMemNumber",
                      "--UseQuotesForData"})
                    .Boxes,
                ElementsAre(AddRegionCodeBox, GlobalizeNumberBox, Change00toPlusBox,
                            UseReductionFlagsBox, DeleteCommaInNamesBox, WriteMemNumberBox,
                            UseQuotesForDataBox));
}

TEST(Options, TakeAnyTextAsAValueButTheNameOfAnOption) {
    EXPECT_EQ(Read({"a.t9a", "b.csv", "--msn", "-1"}).Msn, u"-1");
    EXPECT_EQ(Read({"a.t9a", "b.csv", "--msn", "--7"}).Msn, u"--7");
    EXPECT_EQ(Read({"a.t9a", "b.csv", "--msn=--ini"}).Msn, u"--ini");
    EXPECT_EQ(Read({"a.t9a", "b.csv", "--msn=a=b"}).Msn, u"a=b");
    EXPECT_EQ(Read({"a.t9a", "b.csv", "--msn", ""}).Msn, u"");
    EXPECT_EQ(ErrorOf({"a.t9a", "b.csv", "--msn", "--ueberschreiben"}), "--msn braucht einen Wert");
}

TEST(Options, OfACallList) {
    const ConverterOptions options = Read({"a.t9a", "b.CSV"});
    EXPECT_EQ(options.From, FileFormat::CallList);
    EXPECT_EQ(options.To, std::nullopt);
    EXPECT_EQ(Read({"a.t9a", "-"}).Target, StandardStream);
    EXPECT_EQ(Read({"a.t9a", "b.txt", "--nach=csv"}).To, std::nullopt);
    for (const Words& words :
         {Words{"a.t9a", "b.t9t"}, Words{"a.t9a", "b.txt"}, Words{"a.t9a", "b.csv", "--nach=ip286"},
          Words{"a.t9a", "-", "--nach=195"}, Words{"a.t9a", "b.pdf"},
          Words{"a.t9a", "-", "--nach=pdf"}}) {
        EXPECT_EQ(ErrorOf(words), "eine Anrufliste (.t9a) gibt nur eine CSV-Datei");
    }
}

TEST(Options, OfThePhoneListOnPaper) {
    const ConverterOptions byEnding = Read({"a.t9t", "b.Pdf"});
    EXPECT_TRUE(byEnding.OnPaper);
    EXPECT_EQ(byEnding.To, std::nullopt);
    EXPECT_EQ(byEnding.List, PhoneListOptions());
    const ConverterOptions byWord = Read({"a.csv", "-", "--nach=csv", "--nach=pdf", "--spalten=3",
                                          "--papier", "a5", "--nur-markierte", "--doppelte"});
    EXPECT_TRUE(byWord.OnPaper);
    EXPECT_EQ(byWord.List.Columns, 3);
    EXPECT_EQ(byWord.List.Paper, PaperA5);
    EXPECT_TRUE(byWord.OnlyMarked);
    EXPECT_EQ(Read({"a.csv", "b.pdf", "--papier=a4"}).List.Paper, PaperA4);
    EXPECT_FALSE(Read({"a.csv", "b.pdf", "--nach=pdf", "--nach=csv"}).OnPaper);
    EXPECT_TRUE(ReadOptions(Words{"a.csv", "b.t9t", "--zusammen=c.pdf"}).back().OnPaper);
    const TestFolder folder;
    EXPECT_EQ(Read({"x/a.csv", folder.Path().string(), "--nach=pdf"}).Target, folder / "a.pdf");
}

TEST(Options, RefuseWhatThePhoneListOnPaperHasNot) {
    const std::string columns = "--spalten: ";
    for (const std::string wrong : {"0", "4", "12", "x"}) {
        EXPECT_EQ(ErrorOf({"a.t9t", "b.pdf", "--spalten", wrong}),
                  columns + wrong + " ist keine Zahl von 1 bis 3");
    }
    EXPECT_EQ(ErrorOf({"a.t9t", "b.pdf", "--papier=A3"}),
              "--papier: unbekanntes Papier A3; am nächsten kommt a4");
    EXPECT_EQ(ErrorOf({"a.t9t", "b.pdf", "--papier=letter"}),
              "--papier: unbekanntes Papier letter; bekannt sind a4, a5");
    EXPECT_EQ(ErrorOf({"a.t9t", "b.csv", "--spalten=2"}), "--spalten gilt nur für das Ziel pdf");
    EXPECT_EQ(ErrorOf({"a.t9t", "b.csv", "--papier=a4"}), "--papier gilt nur für das Ziel pdf");
    EXPECT_EQ(ErrorOf({"a.t9t", "b.pdf", "--verluste"}), "--verluste gilt nicht für das Ziel pdf");
    EXPECT_EQ(ErrorOf({"a.t9t", "--nach=pdf", "--verluste"}),
              "--verluste gilt nicht für das Ziel pdf");
    EXPECT_EQ(ErrorOf({"--von=pdf", "a", "b"}),
              "--von: unbekanntes Format pdf; bekannt sind 195, 193, 175, csv, vcard");
    EXPECT_EQ(ErrorOf({"a.pdf", "b.csv"}),
              "das Format von a.pdf ist nicht zu erkennen; --von nennt es");
}

TEST(Options, WithoutATarget) {
    const ConverterOptions check = Read({"--pruefen", "a.csv", "--ohne-doubletten"});
    EXPECT_EQ(check.What, Task::LoadOnly);
    EXPECT_TRUE(check.Check);
    EXPECT_TRUE(check.AvoidDoubles);
    EXPECT_EQ(check.Characters, Charset::Automatic);
    EXPECT_EQ(check.To, std::nullopt);
    const ConverterOptions losses = Read({"--verluste", "a.csv", "--nach=193"});
    EXPECT_EQ(losses.What, Task::LoadOnly);
    EXPECT_EQ(losses.To, FileFormat::Register193);
    EXPECT_EQ(Read({"--verluste", "--pruefen", "a.csv"}).What, Task::LoadOnly);
    EXPECT_EQ(Read({"--verluste", "a.csv", "--nur-markierte", "--ausschliessen=1",
                    "--anfuehrungszeichen", "--AddRegionCode"})
                  .To,
              std::nullopt);
    const std::vector<ConverterOptions> runs = ReadOptions(Words{"--pruefen", "a.csv", "b.pbo"});
    EXPECT_EQ(runs.size(), 2U);
    EXPECT_EQ(runs.back().Source, "b.pbo");
    EXPECT_EQ(runs.back().From, FileFormat::Phonebook175);
    EXPECT_EQ(ErrorOf({"--pruefen", "--nach=193", "a.csv"}),
              "--nach gilt nur mit einem ZIEL oder mit --verluste");
    EXPECT_EQ(ErrorOf({"--verluste", "a.csv", "--ueberschreiben"}),
              "--ueberschreiben gilt nur mit einem ZIEL");
    EXPECT_EQ(ErrorOf({"--pruefen", "a.t9a"}), "--pruefen gilt nur für ein Register als QUELLE");
    EXPECT_EQ(ErrorOf({"--verluste", "a.t9a"}), "--verluste gilt nur für ein Register als QUELLE");
}

TEST(Options, ShowHelpAndVersionBeforeAllThatFollows) {
    EXPECT_EQ(Read({"--hilfe", "--falsch"}).What, Task::ShowHelp);
    EXPECT_EQ(Read({"a", "b", "c", "--version", "--nach"}).What, Task::ShowVersion);
    EXPECT_EQ(Read({"-h"}).What, Task::ShowHelp);
    EXPECT_EQ(Read({"--help"}).What, Task::ShowHelp);
    EXPECT_EQ(Read({"-V"}).What, Task::ShowVersion);
    EXPECT_NE(ErrorOf({"--falsch", "--hilfe"}), "");
}

TEST(Options, NameTheNearestOneOfAWrongOne) {
    const std::vector<std::pair<std::string_view, std::string>> wrong = {
        {"--nur-markirte", "--nur-markierte"},
        {"--anführungszeichen", "--anfuehrungszeichen"},
        {"--überschreiben", "--ueberschreiben"},
        {"--anf", "--anfuehrungszeichen"},
        {"--addregioncode", "--AddRegionCode"},
        {"--Change00to", "--Change00to+"},
        {"-v", "--von"},
        {"--ausschließen=1", "--ausschliessen"},
    };
    for (const auto& option : wrong) {
        const std::string name(option.first.substr(0, option.first.find('=')));
        EXPECT_EQ(ErrorOf({"a.t9t", "b.csv", option.first}),
                  "unbekannte Option " + name + "; am nächsten kommt " + option.second);
    }
    for (const std::string name : {"-?", "--to", "-x"}) {
        EXPECT_EQ(ErrorOf({"a.t9t", "b.csv", name}),
                  "unbekannte Option " + name + "; --hilfe nennt alle");
    }
}

TEST(Options, NameTheNearestOneOfAWrongFormat) {
    EXPECT_EQ(ErrorOf({"--von", "cvs", "a", "b"}),
              "--von: unbekanntes Format cvs; am nächsten kommt csv");
    EXPECT_EQ(ErrorOf({"--von", "ip286", "a", "b"}),
              "--von: unbekanntes Format ip286; bekannt sind 195, 193, 175, csv, vcard");
    EXPECT_EQ(ErrorOf({"--nach", "gebühren", "a", "b"}),
              "--nach: unbekanntes Format gebühren; am nächsten kommt gebuehren");
    EXPECT_EQ(ErrorOf({"--nach=", "a", "b"}),
              "--nach: unbekanntes Format ; bekannt sind 195, 193, 175, csv, ip286, simsurf, "
              "gebuehren, vcard, pdf");
    EXPECT_EQ(ErrorOf({"--nach=CSV", "a", "b"}),
              "--nach: unbekanntes Format CSV; am nächsten kommt csv");
}

TEST(Options, TakeTheCharacterSetOfTheSource) {
    const auto charset = [](std::string_view name) {
        return Read({"a.csv", "b.t9t", "--zeichensatz", name}).Characters;
    };
    EXPECT_EQ(charset("auto"), Charset::Automatic);
    EXPECT_EQ(charset("utf-8"), Charset::Utf8);
    EXPECT_EQ(charset("windows-1252"), Charset::Windows1252);
    EXPECT_EQ(ErrorOf({"a.csv", "b.t9t", "--zeichensatz=utf8"}),
              "--zeichensatz: unbekannter Zeichensatz utf8; am nächsten kommt utf-8");
    EXPECT_EQ(ErrorOf({"a.csv", "b.t9t", "--zeichensatz=koi-zzzzz"}),
              "--zeichensatz: unbekannter Zeichensatz koi-zzzzz; bekannt sind auto, utf-8, "
              "windows-1252");
}

TEST(Options, RefuseValuesThatMakeNoSense) {
    EXPECT_EQ(ErrorOf({"a.t9t", "b.csv", "--sortiert=ja"}), "--sortiert nimmt keinen Wert an");
    EXPECT_EQ(ErrorOf({"a.t9t", "b.csv", "--null-weg", ""}),
              "--null-weg braucht einen Wert, der nicht leer ist");
    EXPECT_EQ(ErrorOf({"a.t9t", "b.csv", "--null-weg=0"}),
              "--null-weg: 0 ist kein Code für interne Nummern");
    EXPECT_EQ(Read({"a.t9t", "b.csv", "--null-weg=00"}).ZeroCode, u"00");
    EXPECT_EQ(ErrorOf({"a.t9t", "b.csv", "--nach=ip286", "--ausschliessen="}),
              "--ausschliessen braucht einen Wert, der nicht leer ist");
    EXPECT_EQ(ErrorOf({"a.t9t", "b.csv", "--ini="}),
              "--ini braucht einen Wert, der nicht leer ist");
    EXPECT_EQ(ErrorOf({"a.t9a", "b.csv", "--msn=1\r\n2"}),
              "--msn: unzulässige Zeichen im Wert 1??2");
    EXPECT_EQ(ErrorOf({"a.t9t", ""}), "ein Dateiname ist leer");
}

TEST(Options, RefuseWhatWouldChangeNothing) {
    const std::vector<std::pair<Words, std::string>> useless = {
        {{"--nur-markierte", "b.csv"},
         "--nur-markierte gilt nur für die Ziele 193, simsurf und pdf"},
        {{"--nur-markierte", "b.t9t"},
         "--nur-markierte gilt nur für die Ziele 193, simsurf und pdf"},
        {{"--anfuehrungszeichen", "b.t9t"},
         "--anfuehrungszeichen gilt nur für ein Register mit dem Ziel csv"},
        {{"--anfuehrungszeichen", "b.csv", "--nach=ip286"},
         "--anfuehrungszeichen gilt nur für ein Register mit dem Ziel csv"},
        {{"--ausschliessen=1", "b.csv"}, "--ausschliessen gilt nur für das Ziel ip286"},
        {{"--ohne-doubletten", "b.csv"},
         "--ohne-doubletten gilt nur für eine QUELLE im Format csv"},
        {{"--zeichensatz=utf-8", "b.csv"},
         "--zeichensatz gilt nur für eine QUELLE im Format csv oder vcard"},
        {{"--msn=1", "b.csv"}, "--msn gilt nur für eine Anrufliste (.t9a)"},
        {{"--WriteMemNumber", "b.geb"}, "--WriteMemNumber gilt nur für das Ziel simsurf"},
    };
    for (const auto& line : useless) {
        Words words = {"a.t9t"};
        words.insert(words.end(), line.first.begin(), line.first.end());
        EXPECT_EQ(ErrorOf(words), line.second);
    }
    for (const std::string_view option :
         {"--null-hinzu", "--null-weg=i", "--sortiert", "--unsortiert", "--ini=x"}) {
        EXPECT_EQ(ErrorOf({"a.t9a", "b.csv", option}),
                  std::string(option.substr(0, option.find('='))) +
                      " gilt nur für ein Register als QUELLE");
    }
    EXPECT_EQ(ErrorOf({"a.t9a", "b.csv", "--anfuehrungszeichen"}),
              "--anfuehrungszeichen gilt nur für ein Register mit dem Ziel csv");
}

TEST(Options, RefuseTwoThatExcludeEachOther) {
    EXPECT_EQ(ErrorOf({"a.t9t", "b.csv", "--unsortiert", "--sortiert"}),
              "--sortiert und --unsortiert schließen einander aus");
    EXPECT_EQ(ErrorOf({"a.t9t", "b.csv", "--null-weg=i", "--null-hinzu"}),
              "--null-hinzu und --null-weg schließen einander aus");
    EXPECT_EQ(ErrorOf({"a.t9t", "b.csv", "--null-hinzu", "--null-hinzu"}), "");
}

}  // namespace
}  // namespace norvik::test
