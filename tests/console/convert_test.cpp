// The converter's files beside those that the window's menu writes, for every pair of formats.
#include "console/convert.h"

#include "tests/console/converterprocess.h"
#include "tests/console/examplefiles.h"
#include "tests/console/windowfiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Source {
    const char* Name;
    const char* Word;
    FileFormat Format;
    Bytes (*File)();
};

struct Target {
    const char* Ending;
    const char* Word;
    FileFormat Format;
};

constexpr Source Sources[] = {
    {"alt.t9t", "195", FileFormat::Register195, Example195},
    {"alt193.t9t", "193", FileFormat::Register195, Example193},
    {"alt.pbo", "175", FileFormat::Phonebook175, Example175},
    {"alt.csv", "csv", FileFormat::Csv, ExampleCsv},
};

constexpr Target Targets[] = {
    {".t9t", "195", FileFormat::Register195},
    {".t9t", "193", FileFormat::Register193},
    {".pbo", "175", FileFormat::Phonebook175},
    {".csv", "csv", FileFormat::Csv},
    {".csv", "ip286", FileFormat::Ip286},
    {".pbb", "simsurf", FileFormat::MobileExport},
    {".geb", "gebuehren", FileFormat::ChargeStatement},
};

/// The endings alone do not name these; a register file keeps its model.
bool NeedsWord(const Source& source, FileFormat format) {
    const bool of193 = std::string_view(source.Word) == "193";
    return format == FileFormat::Ip286 ||
           format == (of193 ? FileFormat::Register195 : FileFormat::Register193);
}

class Pair : public testing::TestWithParam<std::tuple<Source, Target>> {
  protected:
    Pair() : path(folder.Write(source.Name, source.File())) {
        expected = WindowWrites(path, source.Format, target.Format);
        EXPECT_THAT(expected, testing::Not(IsEmpty()));
    }

    const Source source = std::get<0>(GetParam());
    const Target target = std::get<1>(GetParam());
    const TestFolder folder;
    const FilePath path;
    Bytes expected;
};

INSTANTIATE_TEST_SUITE_P(All, Pair,
                         testing::Combine(testing::ValuesIn(Sources), testing::ValuesIn(Targets)),
                         [](const testing::TestParamInfo<std::tuple<Source, Target>>& pair) {
                             return std::string("From") + std::get<0>(pair.param).Word + "To" +
                                    std::get<1>(pair.param).Word;
                         });

TEST_P(Pair, ByItsEndingsIsByteForByteWhatTheWindowWrites) {
    const FilePath file = folder / (std::string("neu") + target.Ending);
    std::vector<std::string> arguments = {path.string(), file.string()};
    if (NeedsWord(source, target.Format)) {
        arguments.insert(arguments.begin(), {"--nach", target.Word});
    }
    const Outcome outcome = RunConverter(arguments);
    EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
    EXPECT_EQ(ReadFile(file), expected);
    EXPECT_THAT(outcome.Output, IsEmpty());
}

TEST_P(Pair, ByItsWordsGoesIntoFilesOfAnyName) {
    const FilePath plain = folder.Write("quelle", source.File());
    // The statement names its source.
    const Bytes fromPlain = WindowWrites(path, source.Format, target.Format);
    const Outcome outcome = RunConverter(
        {"--von", source.Word, plain.string(), "--nach", target.Word, (folder / "ziel").string()});
    EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
    if (target.Format == FileFormat::ChargeStatement) {
        EXPECT_THAT(StringOf(ReadFile(folder / "ziel")),
                    testing::HasSubstr("\r\nQuelle: " + plain.string() + "\r\n"));
    } else {
        EXPECT_EQ(ReadFile(folder / "ziel"), fromPlain);
    }
}

TEST_P(Pair, GoesThroughPipes) {
    const Outcome outcome = RunConverter(
        {std::string("--von=") + source.Word, std::string("--nach=") + target.Word, "-", "-"},
        {.Input = source.File()});
    EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
    if (target.Format == FileFormat::ChargeStatement) {
        // What comes through a pipe has neither a path nor a date.
        EXPECT_THAT(StringOf(outcome.Output),
                    testing::HasSubstr("   Zeit: \r\nQuelle: -\r\nEINZELGEB\xDCHR\tNAME\r\n"));
    } else {
        EXPECT_EQ(outcome.Output, expected);
    }
}

TEST(ConvertCallList, IsByteForByteWhatTheWindowWrites) {
    const TestFolder folder;
    const FilePath calls = folder.Write("anrufe.t9a", ExampleCalls());
    const Bytes expected = Raw("'00;24.12.2005 18:30;0;0301' 0D0A"
                               "'01;01.01.1999 00:00;0;i' F6 0D0A");
    EXPECT_EQ(WindowConvertsCalls(calls, 2, u"0"), expected);

    const Outcome outcome = RunConverter({calls.string(), (folder / "neu.csv").string()});

    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(ReadFile(folder / "neu.csv"), expected);
    EXPECT_EQ(outcome.Errors, calls.string() + ": Anruferliste wurde in Datei\n" + calls.string() +
                                  ": " + (folder / "neu.csv").string() + " gespeichert.\n");
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("anrufe.t9a", "neu.csv"));
}

TEST(ConvertCallList, NeverReplacesTheListItself) {
    const TestFolder folder;
    const FilePath calls = folder.Write("anrufe.t9a", ExampleCalls());
    std::filesystem::create_hard_link(calls, folder / "neu.csv");
    for (const FilePath& target : {calls, folder / "neu.csv"}) {
        const Outcome outcome =
            RunConverter({"--ueberschreiben", "--nach=csv", calls.string(), target.string()});
        EXPECT_EQ(outcome.Status, 3) << outcome.Errors;
        EXPECT_EQ(ReadFile(calls), ExampleCalls());
    }
}

TEST(ConvertCallList, NeverReplacesTheListThroughALink) {
    const TestFolder folder;
    const FilePath calls = folder.Write("anrufe.t9a", ExampleCalls());
    std::filesystem::create_symlink(calls, folder / "neu.csv");
    const Outcome outcome = RunConverter(
        {"--ueberschreiben", "--nach=csv", calls.string(), (folder / "neu.csv").string()});
    EXPECT_EQ(outcome.Status, 3) << outcome.Errors;
    EXPECT_EQ(ReadFile(calls), ExampleCalls());
}

TEST(ConvertCallList, TakesTheMsnOfTheOption) {
    const TestFolder folder;
    const FilePath calls = folder.Write("anrufe.T9A", ExampleCalls());
    const Outcome outcome = RunConverter({"--msn", "Büro", calls.string(), "-"});
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Output, Raw("'00;24.12.2005 18:30;B' FC 'ro;0301' 0D0A"
                                  "'01;01.01.1999 00:00;B' FC 'ro;i' F6 0D0A"));
    EXPECT_EQ(outcome.Output, WindowConvertsCalls(calls, 2, u"Büro"));
    EXPECT_EQ(RunConverter({"--msn=", calls.string(), "-", "--nach=csv"}).Output,
              WindowConvertsCalls(calls, 2, u""));
}

TEST(ConvertCallList, ReportsTheHeaderOfARegisterAndGoesOn) {
    const TestFolder folder;
    const Bytes call = Raw("02 01 06 0A '0512241830' 06 04 '0301' 01");
    const FilePath calls = folder.Write("anrufe.t9a", Join({FileHeader(), Raw("2020"), call}));
    const Outcome outcome = RunConverter({calls.string(), (folder / "neu.csv").string()});
    const std::string prefix = calls.string() + ": ";
    EXPECT_EQ(outcome.Errors, prefix + "Header=RegisterHeader!\n" + prefix +
                                  "Anruferliste wurde in Datei\n" + prefix +
                                  (folder / "neu.csv").string() + " gespeichert.\n");
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(ReadFile(folder / "neu.csv"), Raw("'00;24.12.2005 18:30;0;0301' 0D0A"));
}

TEST(ConvertCallList, ThatIsDamagedGivesItsWholeCallsOnRequestAlone) {
    const std::vector<std::pair<Bytes, std::string>> lists = {
        {Join({ExampleCalls(), Raw("02 03 07 01 '0' 06 01 '1' 01")}), "unlesbar ist Anruf 3"},
        {Join({ExampleCalls(), Raw("09 01 01 01 01 01 01 01 FF 06 00 06 00 01")}),
         "unlesbar ist Anruf 3"},
        {Join({ExampleCalls(), Raw("02 03 06 0A '0512'")}), "endet mitten in Anruf 3"},
    };
    for (const auto& list : lists) {
        const TestFolder folder;
        const FilePath calls = folder.Write("anrufe.t9a", list.first);
        const std::string damage = "norvik-konverter: \"" + calls.string() +
                                   "\" ist beschädigt: " + list.second +
                                   "; 2 Anrufe sind gelesen\n";
        for (const std::string& target : {(folder / "neu.csv").string(), std::string("-")}) {
            const Outcome outcome = RunConverter({calls.string(), target});
            EXPECT_EQ(outcome.Status, 4);
            EXPECT_EQ(outcome.Errors, damage + "norvik-konverter: \"" + target +
                                          "\" nicht geschrieben: --trotzdem schreibt, was gelesen "
                                          "ist\n");
            EXPECT_THAT(outcome.Output, IsEmpty());
            EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("anrufe.t9a"));
        }
        const Outcome taken = RunConverter({"--trotzdem", "--still", calls.string(), "-"});
        EXPECT_EQ(taken.Status, 1);
        EXPECT_EQ(taken.Errors, damage);
        EXPECT_EQ(taken.Output,
                  RunConverter({folder.Write("a.t9a", ExampleCalls()).string(), "-"}).Output);
    }
}

TEST(ConvertCallList, OfWhichNoCallIsWholeGivesNothing) {
    const TestFolder folder;
    const FilePath calls =
        folder.Write("a.t9a", Raw("06 12 'Anrufliste 195/193' 02 03 07 01 '0' 06 01 '1' 01"));
    const Outcome outcome = RunConverter({"--trotzdem", calls.string(), "-"});
    EXPECT_EQ(outcome.Status, 4);
    EXPECT_EQ(outcome.Errors, "norvik-konverter: \"" + calls.string() +
                                  "\" ist beschädigt: unlesbar ist Anruf 1; 0 Anrufe sind gelesen\n"
                                  "norvik-konverter: \"-\" nicht geschrieben: kein Anruf ist "
                                  "gelesen\n");
}

TEST(ConvertCallList, ThatIsMissingIsNamedWithTheReason) {
    const TestFolder folder;
    const Outcome outcome =
        RunConverter({(folder / "a.t9a").string(), (folder / "b.csv").string()});
    EXPECT_EQ(outcome.Status, 3);
    EXPECT_EQ(outcome.Errors, "norvik-konverter: \"" + (folder / "a.t9a").string() +
                                  "\" nicht gelesen: Datei nicht gefunden\n");
    EXPECT_THAT(FilesIn(folder.Path()), IsEmpty());
}

}  // namespace
}  // namespace norvik::test
