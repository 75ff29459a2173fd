#include "formats/addfile.h"

#include "tests/formats/registerfile/registerfilebytes.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

Bytes Record(const std::string& name) {
    return Raw("0200 0201 06 01 '" + name + "' 06 01 '1' 06 00 0200 020F 0200 0200");
}

class MnuDateiAdd : public testing::Test {
  protected:
    MnuDateiAdd() {
        ApplySettings(settings);
        state.AnzNr = 2;
        state.Satzwahl.Value = 2;
        state.LoadedModel = u"175";
        state.File = {.Type = u"175", .Path = "alt.pbo", .Modified = std::nullopt};
    }

    /// Adds the file and gives what came behind the question for it.
    std::vector<std::string> Add(const FilePath& path, const CsvLoadOptions& options = {}) {
        desktop.Transcript.clear();
        desktop.AnswerFile(path);
        mnuDateiAdd(state, settings, options, desktop);
        std::vector<std::string> lines = desktop.Transcript;
        EXPECT_EQ(lines.front().substr(0, lines.front().find(" -> ")), Dialog);
        lines.erase(lines.begin());
        return lines;
    }
    std::vector<std::string> AddCsv(std::string_view csv, const CsvLoadOptions& options = {}) {
        return Add(folder.Write("neu.csv", csv), options);
    }

    static std::string Report(TextView text) { return OkBox(text, u"Dazuladen", "Information"); }

    /// The sort of a register that needs only one swap in all passes but the last.
    static std::vector<std::string> Sorted(const std::vector<std::string>& passes) {
        std::vector<std::string> lines = {"pointer Hourglass"};
        int pass = 0;
        for (const std::string& swaps : passes) {
            lines.push_back("status \"Sortiere, Durchgang " + std::to_string(++pass) + "\"");
            lines.push_back("status \"Sortiert: " + swaps + "\"");
        }
        for (const char* line : {"status \"Suche Datensatz...\"", "pointer Normal",
                                 "status \"Sortieren beendet\"", "entry", "list"}) {
            lines.emplace_back(line);
        }
        return lines;
    }

    const std::string Dialog = "open \"Register und Kontakte|*.t9t *.pbo *.csv "
                               "*.vcf|NV-195-Datei|*.t9t|norvik-175-Datei|*.pbo|"
                               "CSV-Datei|*.csv|vCard-Datei|*.vcf|Alle Dateien|*.*\" ending .t9t";
    const TestFolder folder;
    Settings settings;
    RegisterState state = RegisterOf({Entry(u"Anna", u"1"), Entry(u"Dora", u"2")});
    ScriptedDesktop desktop;
};

TEST_F(MnuDateiAdd, AddsSortsAndShowsTheFirstAddedOne) {
    desktop.OnShowEntry = [this] { EXPECT_EQ(EntryAt(state, state.AnzNr).Name, u"Bert"); };
    std::vector<std::string> expected = {"pointer Normal"};
    for (const std::string& line : Sorted({"2", "0"})) {
        expected.push_back(line);
    }
    expected.emplace_back("status \"2 Einträge dazugeladen\"");
    EXPECT_EQ(AddCsv("Name;Tel\r\nBert;3\r\nCarl;4\r\n"), expected);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bert", u"Carl", u"Dora"));
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_TRUE(state.WarnLineAccessZero);
    EXPECT_EQ(state.Generation, RegisterState().Generation);
    // It stays the register of its own file.
    EXPECT_EQ(state.LoadedModel, u"175");
    EXPECT_EQ(state.File.Type, u"175");
    EXPECT_EQ(state.File.Path, "alt.pbo");
}

TEST_F(MnuDateiAdd, TellsWhatTheReaderFoundAndWhatBecameOfIt) {
    const std::vector<std::string> lines =
        AddCsv("Name;Tel\r\nAnna;1\r\nAnna;1\r\n\xC5\x81;2\r\n", {.AvoidDoubles = true});
    ASSERT_GT(lines.size(), 4U);
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](const std::string& line) { return line.starts_with("box"); }),
              1);
    EXPECT_EQ(lines[lines.size() - 2],
              Report(u"Es wurde 1 Eintrag dazugeladen, 1 war schon da\r\n\r\n"
                     u"Doublette entfernt: Anna\r\nZeichen ersetzt: L\r\n"
                     u"Gleiche Rufnummer: L (2) wie Dora\r\n"));
    EXPECT_EQ(lines.back(), "status \"1 Eintrag dazugeladen\"");
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Dora", u"L"));
}

TEST_F(MnuDateiAdd, TellsWhatAReaderCorrectedInTheSameReport) {
    const std::vector<std::string> lines =
        AddCsv("Name;Tel;I;I;I;I;I;I;AB\r\nBert;3;;;;;;;9\r\nCarl;+0;;;;;;;0\r\n");
    EXPECT_EQ(lines.at(lines.size() - 2),
              Report(u"Es wurden 2 Einträge dazugeladen\r\n\r\nEs wurden 1 Fehler korrigiert\r\n"
                     u"\r\n#0[Bert] Ansage zu hoch: 9\r\n"));
}

TEST_F(MnuDateiAdd, WithNothingNewTheRegisterIsAsItWas) {
    const Contents before = ContentsOf(state);
    EXPECT_THAT(AddCsv("Name;Tel\r\nDora;2\r\n"),
                ElementsAre("pointer Normal",
                            Report(u"Es wurden 0 Einträge dazugeladen, 1 war schon da"),
                            "status \"0 Einträge dazugeladen\""));
    EXPECT_EQ(ContentsOf(state), before);
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST_F(MnuDateiAdd, ACancelledQuestionChangesNothing) {
    desktop.AnswerFile(std::nullopt);
    mnuDateiAdd(state, settings, {}, desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + " -> cancel"));
}

TEST_F(MnuDateiAdd, TakesEveryFormatThatCanBeLoaded) {
    EXPECT_EQ(Add(folder.Write("a.T9T", FileOf({Record("B")}))).back(),
              "status \"1 Eintrag dazugeladen\"");
    std::string phonebook = "norvik 175 phonebook\r\nN=C\r\nP=7\r\n";
    for (int line = 0; line < InfoLines; ++line) {
        phonebook += "I=\r\n";
    }
    EXPECT_EQ(Add(folder.Write("a.pbo", phonebook)).back(), "status \"1 Eintrag dazugeladen\"");
    EXPECT_EQ(Add(folder.Write("a.vcf", "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Cora\r\nTEL:040 7\r\n"
                                        "END:VCARD\r\n"))
                  .back(),
              "status \"1 Eintrag dazugeladen\"");
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"B", u"C", u"Cora", u"Dora"));
}

TEST_F(MnuDateiAdd, RefusesOthers) {
    for (const char* const name : {"a.t9a", "b.txt", "c.pbb"}) {
        EXPECT_THAT(Add(folder / name), ElementsAre(OkBox(TextFromPath(folder / name) +
                                                              u" kann nicht dazugeladen werden",
                                                          u"Dazuladen", "Critical")));
    }
}

TEST_F(MnuDateiAdd, AFileThatCannotBeReadAddsNothing) {
    EXPECT_THAT(Add(folder / "fehlt.csv"),
                ElementsAre("pointer Normal",
                            OkBox(u"Undef'd Error: mnuDateiLoadCSV:53Datei nicht gefunden"),
                            "status \"0 Einträge dazugeladen\""));
    EXPECT_THAT(Add(folder.Write("a.pbo", "Brief\r\n")).back(),
                "status \"0 Einträge dazugeladen\"");
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Dora"));
    EXPECT_TRUE(state.RegisterSaved);
}

TEST_F(MnuDateiAdd, OfADamagedFileTheWholeEntriesAreAdded) {
    const std::string toTheEnd = "Die Datei ist nicht bis zu ihrem Ende gelesen\\r\\n\" title "
                                 "\"Dazuladen\" icon Information "
                                 "buttons Ok default Ok -> Ok";
    const auto report = [&](const FilePath& path) {
        const std::vector<std::string> lines = Add(path);
        return lines.at(lines.size() - 2);
    };
    // A number that is too large.
    EXPECT_EQ(report(folder.Write("a.csv", "Name;Tel;;;;;;;AB\r\nB;7\r\nC;8;;;;;;;99999\r\n")),
              "box \"Es wurde 1 Eintrag dazugeladen\\r\\n\\r\\nUndef'd Error: "
              "mnuDateiLoadCSV:6Überlauf\\r\\n" +
                  toTheEnd);
    // A wrong tag.
    EXPECT_EQ(
        report(folder.Write("a.t9t", FileOf({Record("E"), Raw("0200 0201 07 01 'x'")}))),
        "box \"Es wurde 1 Eintrag dazugeladen\\r\\n\\r\\nGleiche Rufnummer: E (1) wie Anna\\r\\n" +
            toTheEnd);
    // An end in the midst of an entry.
    EXPECT_EQ(
        report(
            folder.Write("a.t9t", OpenFileOf({Record("F"), Raw("0200 0201 06 01 'G' 06 05 '0'")}))),
        "box \"Es wurde 1 Eintrag dazugeladen\\r\\n\\r\\nGleiche Rufnummer: F (1) wie Anna\\r\\n" +
            toTheEnd);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"B", u"Dora", u"E", u"F"));
}

TEST_F(MnuDateiAdd, AFileOfMoreThanARegisterHoldsSaysSo) {
    std::string file = "Name;Tel\r\n";
    for (int entry = 0; entry <= RegisterPlaces; ++entry) {
        file += "A;" + std::to_string(entry) + "\r\n";
    }
    state = RegisterOf({Entry(u"")});
    const std::vector<std::string> lines = AddCsv(file);
    EXPECT_THAT(lines.at(lines.size() - 2),
                testing::HasSubstr("Die Datei hat mehr Einträge, als gelesen werden"));
    EXPECT_EQ(state.AnzGes, RegisterPlaces);
}

}  // namespace
}  // namespace norvik::test
