// The sample file, a list from a spreadsheet.
#include "formats/csv/csvmenu.h"

#include "tests/support/builders.h"
#include "tests/support/places.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

const FilePath Sample = SourceFolder() / "samples" / "telefonbuch.csv";

/// The whole transcript of a load with this log and these swaps in the sort's passes.
std::vector<std::string> ExpectedTranscript(const Text& log, const std::vector<int>& swaps) {
    std::vector<std::string> lines = {
        "open \"CSV-Datei|*.csv|Alle Dateien|*.*\" ending .csv -> " + Sample.string(),
        OkBox(log, u"LadeCSV: Doubletten entfernt/Hinweise"),
        OkBox(u"Es wurden 0 Fehler korrigiert\r\n\r\n" + log, u"Fehlerprüfung", "Information"),
        "file", "pointer Hourglass"};
    int pass = 0;
    for (const int count : swaps) {
        ++pass;
        lines.push_back("status \"Sortiere, Durchgang " + std::to_string(pass) + "\"");
        lines.push_back("status \"Sortiert: " + std::to_string(count) + "\"");
    }
    lines.insert(lines.end(), {"status \"Suche Datensatz...\"", "pointer Normal",
                               "status \"Sortieren beendet\"", "entry", "list"});
    return lines;
}

RegisterState Loaded(bool avoidDoubles) {
    RegisterState state;
    ScriptedDesktop desktop;
    desktop.AnswerFile(Sample);
    mnuDateiLoadCSV(state, Settings(), {avoidDoubles}, desktop);
    return state;
}

RegisterEntry Full(int index, TextView name, TextView tel, TextView info, int flagWord) {
    RegisterEntry entry = Entry(name, tel, info);
    entry.RecIndex = static_cast<std::int16_t>(index);
    entry.MsnFilter = static_cast<std::int16_t>(flagWord);
    return entry;
}

TEST(SampleCSV, WithDoublesAvoidedTheTranscriptNamesTheLineThatWasLeftOut) {
    RegisterState state;
    ScriptedDesktop desktop;
    desktop.AnswerFile(Sample);
    mnuDateiLoadCSV(state, Settings(), {.AvoidDoubles = true}, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAreArray(ExpectedTranscript(u"Doublette entfernt: Bäckerei Kornblume\r\n"
                                                    u"Doppelter Name: Dr. Weiß, Anneliese\r\n",
                                                    {11, 5, 4, 2, 2, 2, 2, 2, 0})));
}

TEST(SampleCSV, WithoutThatTheTranscriptNamesTheDoubledNames) {
    RegisterState state;
    ScriptedDesktop desktop;
    desktop.AnswerFile(Sample);
    mnuDateiLoadCSV(state, Settings(), {}, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAreArray(ExpectedTranscript(u"Doppelter Name: Bäckerei Kornblume\r\n"
                                                    u"Doppelter Name: Dr. Weiß, Anneliese\r\n",
                                                    {12, 5, 4, 2, 2, 2, 2, 2, 0})));
}

TEST(SampleCSV, TheNamesAreInSortedOrder) {
    EXPECT_THAT(Names(Loaded(true)),
                ElementsAre(u"Abel, Günther", u"Bäckerei Kornblume", u"Dr. Weiß, Anneliese",
                            u"Dr. Weiß, Anneliese", u"Fax Rathaus", u"Jäger, Ute und Jürgen",
                            u"Meier, Otto", u"Oma Käthe", u"Pförtner", u"Stadtwerke Störung",
                            u"Taxi", u"Vereinsheim Sportfre.", u"Zur Post, Gasthof",
                            u"Öko-Hof Lindner"));
    EXPECT_EQ(Loaded(false).AnzGes, 15);
}

TEST(SampleCSV, TheEntriesAreThoseOfTheList) {
    const RegisterState state = Loaded(true);
    std::vector<RegisterEntry> expected = {
        Full(0, u"Vereinsheim Sportfre.", u"0049(30)23125-104",
             u"Schlüssel beim       "
             u" Platzwart, Rückgabe "
             u" bis Montag, Getränke"
             u" selbst mitbringen",
             0 + 16 + 128),
        Full(1, u"Abel, Günther", u"03023125206",
             u"privat               "
             u"                     "
             u"ab 18 Uhr",
             3),
        Full(2, u"Bäckerei Kornblume", u"(069)90009-207", u"Brötchen vorbestellenbis 18 Uhr", 15),
        Full(3, u"Dr. Weiß, Anneliese", u"02214710208", u"Praxis", 5 + 64),
        Full(4, u"Dr. Weiß, Anneliese", u"01713920021", u"mobil", 5 + 128),
        Full(5, u"Pförtner", u"i12", u"", 15),
        Full(6, u"Oma Käthe", u"494066969-209", u"Geburtstag 3. Mai    Taschengeld 20 €", 15),
        Full(7, u"Meier, Otto", u"08999998-210",
             u"Kegelbahn:           "
             u" www.kegelbahn-zur-al"
             u"ten-post.example     "
             u"Raum 2",
             1),
        Full(8, u"Stadtwerke Störung", u"06990009211",
             u"Vertrag 20814 vom 1. "
             u" April, Zähler       "
             u" 4711-0815 im Keller "
             u" links neben der     "
             u" Waschküche          "
             u"Ablesung jedes Jah...",
             1),
        Full(9, u"Zur Post, Gasthof", u"04066969212", u"", 2 + 16 + 192),
        Full(10, u"Öko-Hof Lindner", u"02214710213", u"Milch                Eier", 1 + 16),
        Full(11, u"Taxi", u"*31", u"", 15),
        Full(12, u"Fax Rathaus", u"08999998214p12", u"Formular 7", 4),
        Full(13, u"Jäger, Ute und Jürgen", u"0171-3920022", u"Jugendwart", 15),
    };
    expected[0].Ton = 128 + 5;
    expected[0].GebEinh = 12;
    expected[3].AB = 2;
    expected[9].GebEinh = 250;
    expected[10].AB = 1;
    expected[10].Ton = 128 + 19;
    expected[11].Ton = 20;

    ASSERT_EQ(state.AnzGes, 14);
    for (int place = 1; place <= 14; ++place) {
        EXPECT_EQ(state.Register(place), expected.at(static_cast<std::size_t>(place) - 1)) << place;
    }
}

TEST(SampleCSV, WithoutDoublesAvoidedTheDoubledEntryStandsTwice) {
    const RegisterState with = Loaded(true);
    const RegisterState without = Loaded(false);
    RegisterEntry second = without.Register(4);
    EXPECT_EQ(second.RecIndex, 3);
    second.RecIndex = 2;
    EXPECT_EQ(second, without.Register(3));
    EXPECT_EQ(second, with.Register(3));
}

}  // namespace

}  // namespace norvik::test
