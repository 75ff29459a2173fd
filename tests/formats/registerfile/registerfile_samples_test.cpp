// The sample files, which an encoder of their own has made.
#include "formats/registerfile/registerfilemenu.h"

#include "tests/formats/registerfile/registerfilebytes.h"
#include "tests/support/builders.h"
#include "tests/support/places.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

const FilePath Samples = SourceFolder() / "samples";
const FilePath Sample195 = Samples / "telefonbuch.t9t";
const FilePath Sample193 = Samples / "telefonbuch193.t9t";

const std::string Dialog = "open \"NV-195-Datei|*.t9t|Alle Dateien|*.*\" ending .t9t -> ";

void Load(RegisterState& state, const FilePath& path) {
    ScriptedDesktop desktop;
    desktop.AnswerFile(path);
    mnuDateiLoadNV(state, desktop);
}

/// The status texts of a sort with these swaps in its passes.
std::vector<std::string> SortStatuses(const std::vector<int>& swapsOfPasses) {
    std::vector<std::string> statuses;
    int pass = 0;
    for (const int swaps : swapsOfPasses) {
        ++pass;
        statuses.push_back("Sortiere, Durchgang " + std::to_string(pass));
        statuses.push_back("Sortiert: " + std::to_string(swaps));
    }
    statuses.emplace_back("Suche Datensatz...");
    statuses.emplace_back("Sortieren beendet");
    return statuses;
}

/// One line of 21 columns.
Text Line(TextView text) {
    Text line(text);
    line.resize(21, u' ');
    return line;
}

RegisterEntry Full(int record, TextView name, TextView tel, TextView info) {
    RegisterEntry entry = Entry(name, tel, info);
    entry.RecIndex = static_cast<std::int16_t>(record - 1);
    entry.RecNumber = static_cast<std::int16_t>(record);
    return entry;
}

// telefonbuch.t9t

TEST(Samples195, LoadingShowsTheReportOfThreeFindings) {
    RegisterState state;
    ScriptedDesktop desktop;
    desktop.AnswerFile(Sample195);
    mnuDateiLoadNV(state, desktop);
    EXPECT_THAT(desktop.Questions(),
                ElementsAre(Dialog + Sample195.string(), "list",
                            OkBox(u"Es wurden 3 Fehler korrigiert\r\n\r\n"
                                  u"#10[Bestellfax Beschläge] Gebührenzähler zu hoch: 40000\r\n"
                                  u"#24[Café Süßholz] Ansage zu hoch: 9\r\n"
                                  u"#25[Musikschule Allegro] Klang zu hoch: 213\r\n",
                                  u"Fehlerprüfung", "Information"),
                            "file", "entry", "list"));
}

TEST(Samples195, TheSortTakes60Passes) {
    RegisterState state;
    ScriptedDesktop desktop;
    desktop.AnswerFile(Sample195);
    mnuDateiLoadNV(state, desktop);
    EXPECT_EQ(desktop.Statuses(),
              SortStatuses({57, 53, 52, 48, 45, 44, 44, 41, 39, 37, 31, 29, 28, 24, 22,
                            20, 18, 18, 18, 18, 16, 14, 14, 14, 11, 8,  8,  8,  8,  7,
                            7,  7,  6,  6,  6,  6,  6,  6,  5,  5,  4,  4,  4,  3,  3,
                            3,  2,  2,  2,  2,  2,  1,  1,  1,  1,  1,  1,  1,  1,  0}));
}

TEST(Samples195, TheRegisterHas60EntriesOfWhich20AreMarked) {
    RegisterState state;
    Load(state, Sample195);
    EXPECT_EQ(state.AnzGes, 60);
    EXPECT_EQ(state.AnzNr, 1);
    EXPECT_EQ(state.AnzMarkiert, 20);
    EXPECT_EQ(state.LoadedModel, u"195");
    EXPECT_EQ(state.File.Type, u"195");
    EXPECT_TRUE(state.WarnLineAccessZero);
}

TEST(Samples195, TheNamesAreInSortedOrder) {
    RegisterState state;
    Load(state, Sample195);
    EXPECT_THAT(Names(state), ElementsAreArray(std::vector<Text>{
                                  u"abc-Taxi Brückner",     u"anna (Schulfreundin)",
                                  u"Anrufbeantworter",      u"Apotheke am Bach",
                                  u"Bestellfax Beschläge",  u"Brandt, Jonas",
                                  u"Brandt, Jonas",         u"Brandt, Mia",
                                  u"Brandt, Oma Grete",     u"Büro unten",
                                  u"Café Süßholz",          u"Crêperie Bellevue",
                                  u"Côté, André",           u"de Vries, Jan",
                                  u"Faxabruf Wetter",       u"Gemeindeverwaltung Au",
                                  u"Großhandel Nägele",     u"Grundschule Sekr.",
                                  u"Hausmeister Block 7 B", u"Heizung Störung",
                                  u"Hoffmann-Lang, Ulrike", u"Holzhandel Brenner",
                                  u"Kanzlei Groß & Söhne",  u"Kita Spatzennest",
                                  u"Konferenz Innung",      u"Köhler, Fritz",
                                  u"Köhler, Fritz",         u"Küche",
                                  u"Lackfabrik Münzer",     u"Lager",
                                  u"Lefèvre, Hélène",       u"Leitstelle Alarm",
                                  u"Musikschule Allegro",   u"Müller, Hans",
                                  u"Müller, Hans",          u"Müller, Hans",
                                  u"Physiotherapie Brand",  u"Pizzeria da Nino",
                                  u"Schmidt, Karl-Heinz",   u"Schmidt, Karl-Heinz",
                                  u"Schmidt, Petra",        u"Schornsteinfeger Kühn",
                                  u"Spedition Rößler",      u"Steuerbüro Äpfelbach",
                                  u"Tierarzt Löwe",         u"Türsprechstelle",
                                  u"van Laak, Mieke",       u"Wachdienst Falke",
                                  u"Werkbank Halle 2",      u"Wohnzimmer",
                                  u"Wäscherei Schön",       u"Yilmaz, Deniz",
                                  u"Zahnarzt Dr. Zöllner",  u"Zentrale Werkstatt",
                                  u"Zoe (Babysitterin)",    u"Änderungsschneiderei",
                                  u"Ärztehaus am Markt",    u"Ökokiste Grünfeld",
                                  u"Öztürk, Aylin",         u"Überführungen Nowak",
                              }));
    EXPECT_THAT(Order(state, 60),
                ElementsAreArray({60, 12, 48, 54, 11, 27, 28, 29, 5,  15, 25, 20, 21, 31, 57,
                                  37, 55, 52, 18, 24, 35, 9,  22, 51, 47, 43, 44, 14, 10, 16,
                                  19, 33, 26, 2,  3,  4,  36, 58, 38, 39, 40, 8,  56, 50, 53,
                                  49, 46, 34, 17, 13, 32, 45, 30, 1,  41, 42, 7,  59, 6,  23}));
}

TEST(Samples195, WholeRecordsComeIn) {
    RegisterState state;
    Load(state, Sample195);

    RegisterEntry expected = Full(1, u"Zentrale Werkstatt", u"11", u"()Nebenstelle");
    expected.Ton = 0x81;
    EXPECT_EQ(state.Register(1), expected);

    expected = Full(2, u"Müller, Hans", u"03023125101",
                    u"()" + Line(u"privat") + Line(u"Lindenallee 12") + u"12345 Musterstadt");
    expected.Ton = 0x80 + 10;
    expected.MsnFilter = 2 << 6;
    EXPECT_EQ(state.Register(2), expected);

    expected =
        Full(7, u"Ärztehaus am Markt", u"08999998104",
             Line(u"Sprechzeiten") + Line(u"Mo Di Do  8-12 15-18") + Line(u"Mi Fr     8-12") +
                 Line(u"Notfall 8-22 Uhr") + Line(u"Dr. Böhm  Tür 3") + u"Dr. Weiß  Tür 5");
    expected.AB = 2;
    EXPECT_EQ(state.Register(7), expected);

    expected = Full(21, u"Côté, André", u"08999998112",
                    Line(u"Möbelhändler") + Line(u"Hôtel de la Gare") + Line(u"Château-Linie") +
                        u"liefert bis Lyon");
    expected.Ton = 0x80 + 7;
    expected.MsnFilter = 1 + 0x10 + (2 << 6);
    expected.GebEinh = 255;
    EXPECT_EQ(state.Register(21), expected);

    expected = Full(44, u"Köhler, Fritz", u"01713920017", u"Geselle, mobil");
    expected.Ton = 0x85;
    expected.MsnFilter = 0x11;
    expected.GebEinh = 32768;
    EXPECT_EQ(state.Register(44), expected);

    expected = Full(52, u"Grundschule Sekr.", u"03023125134",
                    Line(u"Klasse 3b") + Line(u"") + u"Ferien ab 20.07.");
    expected.MsnFilter = 0;
    EXPECT_EQ(state.Register(52), expected);
}

TEST(Samples195, TheThreeFindingsAreTreatedAsReported) {
    RegisterState state;
    Load(state, Sample195);

    RegisterEntry expected = Full(11, u"Bestellfax Beschläge", u"04066969108", u"nur Fax");
    expected.MsnFilter = 0x12;
    expected.GebEinh = 40000;
    EXPECT_EQ(state.Register(11), expected);

    expected = Full(25, u"Café Süßholz", u"08999998116", u"Torte vorbestellen");
    EXPECT_EQ(state.Register(25), expected);

    expected = Full(26, u"Musikschule Allegro", u"02214710117",
                    Line(u"Anmeldung Klavier") + u"Frau Jürgens");
    expected.MsnFilter = 3;
    EXPECT_EQ(state.Register(26), expected);
}

TEST(Samples195, TheDeviceCharactersOfTheInfosComeIn) {
    RegisterState state;
    Load(state, Sample195);
    EXPECT_EQ(state.Register(24).Info, Line(u"Kessel: Vorlauf 55°C") + u"Taste ^ = Menü hoch");
    EXPECT_EQ(state.Register(22).Info,
              u"()" + Line(u"Mietrecht") + Line(u"§ 535, § 556 BGB") + u"Az. 12 C 345/67");
}

TEST(Samples195, SavingTheMarkedEntriesForThe193WritesThemInSortedOrder) {
    const TestFolder folder;
    RegisterState state;
    Load(state, Sample195);
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.t9t").AnswerBox(Button::Yes);
    MNUDateiSave193(state, desktop);
    EXPECT_EQ(
        ReadFile(folder / "a.t9t"),
        FileOf(
            {Raw("0200 0201 06 10 'Apotheke am Bach' 06 0B '02214710136' 0200 0200 0200 0200"),
             Raw("0201 0202 06 0D 'Brandt, Jonas' 06 0B '01713920013' 0200 0213 0203 0200"),
             Raw("0202 0203 06 0B 'Brandt, Mia' 06 0B '01713920014' 0200 0213 022A 0200"),
             Raw("0203 0204 06 14 'Hausmeister Block 7 ' 06 0B '03023125109' 0200 020F 0200 0200"),
             Raw("0204 0205 06 14 'Hoffmann-Lang, Ulrik' 06 0B '02214710124' 0200 039100 0264 "
                 "0200"),
             Raw("0205 0206 06 14 'Kanzlei Gro' E1 ' & S' 94 'hne' 06 0B '06990009113' 0200 038100 "
                 "0200 0200"),
             Raw("0206 0207 06 05 'K' 81 'che' 06 04 '**62' 0200 020F 0200 0200"),
             Raw("0207 0208 06 0F 'Lef' 8A 'vre, H' 82 'l' 8A 'ne' 06 0B '02214710110' 0200 0203 "
                 "0200 0200"),
             Raw("0208 0209 06 0C 'M' 81 'ller, Hans' 06 0B '03023125101' 0200 038000 0200 0200"),
             Raw("0209 020A 06 0C 'M' 81 'ller, Hans' 06 0B '01713920011' 0200 039000 0211 0200"),
             Raw("020A 020B 06 14 'Physiotherapie Brand' 06 0B '08999998125' 0200 0200 0200 0200"),
             Raw("020B 020C 06 14 'Schornsteinfeger K' 81 'h' 06 0B '03023125105' 0200 0241 0200 "
                 "0200"),
             Raw("020C 020D 06 10 'Spedition R' 94 E1 'ler' 06 0B '08999998138' 0200 0201 0200 "
                 "0200"),
             Raw("020D 020E 06 10 'Wachdienst Falke' 06 0B '03023125123' 0200 0205 0200 0200"),
             Raw("020E 020F 06 0A 'Wohnzimmer' 06 04 '**61' 0200 020F 0200 0200"),
             Raw("020F 0210 06 0D 'Yilmaz, Deniz' 06 0B '01713920018' 0200 0201 0200 0200"),
             Raw("0210 0211 06 14 'Zahnarzt Dr. Z' 94 'llner' 06 0B '03023125119' 0200 0200 0200 "
                 "0200"),
             Raw("0211 0212 06 12 'Zentrale Werkstatt' 06 02 '11' 0200 020F 0200 0200"),
             Raw("0212 0213 06 12 'Zoe (Babysitterin)' 06 0B '01713920016' 0200 0200 0200 0200"),
             Raw("0213 0214 06 0D 99 'zt' 81 'rk, Aylin' 06 0B '02214710103' 0200 0213 038000 "
                 "0200")}));
}

TEST(Samples195, SavedInTheFilesOrderItHasTheSamplesBytes) {
    const TestFolder folder;
    RegisterState state;
    Load(state, Sample195);
    // The file's order, and the two values that the check has repaired.
    for (int place = 1; place <= 60; ++place) {
        state.RegisterOrder(place) = static_cast<std::int16_t>(place);
    }
    state.Register(25).AB = 9;
    state.Register(26).Ton = 213;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a.t9t").AnswerFile(folder / "b.t9t").AnswerBox(Button::Yes);
    mnuDateiSaveNV(state, desktop);
    EXPECT_EQ(ReadFile(folder / "a.t9t"), ReadFile(Sample195));
    MNUDateiSave193(state, desktop);
    EXPECT_EQ(ReadFile(folder / "b.t9t"), ReadFile(Sample193));
}

// telefonbuch193.t9t

TEST(Samples193, LoadingShowsNoReport) {
    RegisterState state;
    ScriptedDesktop desktop;
    desktop.AnswerFile(Sample193);
    mnuDateiLoadNV(state, desktop);
    EXPECT_THAT(desktop.Questions(),
                ElementsAre(Dialog + Sample193.string(), "list", "file", "entry", "list"));
    EXPECT_EQ(desktop.Statuses(),
              SortStatuses({18, 15, 12, 12, 10, 10, 7, 5, 4, 4, 2, 1, 1, 1, 1, 1, 1, 1, 0}));
    EXPECT_EQ(state.AnzGes, 20);
    EXPECT_EQ(state.AnzMarkiert, 0);
    EXPECT_EQ(state.LoadedModel, u"193");
    EXPECT_EQ(state.File.Type, u"193");
}

TEST(Samples193, TheNamesAreInSortedOrder) {
    RegisterState state;
    Load(state, Sample193);
    EXPECT_THAT(Names(state), ElementsAreArray(std::vector<Text>{
                                  u"Apotheke am Bach",
                                  u"Brandt, Jonas",
                                  u"Brandt, Mia",
                                  u"Hausmeister Block 7 ",
                                  u"Hoffmann-Lang, Ulrik",
                                  u"Kanzlei Groß & Söhne",
                                  u"Küche",
                                  u"Lefèvre, Hélène",
                                  u"Müller, Hans",
                                  u"Müller, Hans",
                                  u"Physiotherapie Brand",
                                  u"Schornsteinfeger Küh",
                                  u"Spedition Rößler",
                                  u"Wachdienst Falke",
                                  u"Wohnzimmer",
                                  u"Yilmaz, Deniz",
                                  u"Zahnarzt Dr. Zöllner",
                                  u"Zentrale Werkstatt",
                                  u"Zoe (Babysitterin)",
                                  u"Öztürk, Aylin",
                              }));
}

TEST(Samples193, EveryEntryHasMsn15NoInfoNoToneAndNoAnnouncement) {
    RegisterState state;
    Load(state, Sample193);
    for (int place = 1; place <= 20; ++place) {
        const RegisterEntry& entry = state.Register(place);
        EXPECT_EQ(MsnOf(entry), 15) << place;
        EXPECT_EQ(entry.Info, u"") << place;
        EXPECT_EQ(entry.Ton, 0) << place;
        EXPECT_EQ(entry.AB, 0) << place;
    }
}

TEST(Samples193, WholeRecordsComeIn) {
    RegisterState state;
    Load(state, Sample193);

    RegisterEntry expected = Full(3, u"Müller, Hans", u"01713920011", u"");
    expected.MsnFilter = 15 + 0x10 + (2 << 6);
    expected.GebEinh = 17;
    EXPECT_EQ(state.Register(3), expected);

    expected = Full(4, u"Öztürk, Aylin", u"02214710103", u"");
    expected.MsnFilter = 15 + 0x10;
    expected.GebEinh = 128;
    EXPECT_EQ(state.Register(4), expected);

    expected = Full(5, u"Schornsteinfeger Küh", u"03023125105", u"");
    expected.MsnFilter = 15 + (1 << 6);
    EXPECT_EQ(state.Register(5), expected);
}

// The generator

TEST(SampleGenerator, GivesTheSameBytesOnEveryRun) {
    if (std::system("python3 --version > /dev/null 2>&1") != 0) {
        GTEST_SKIP() << "needs python3";
    }
    const TestFolder folder;
    const std::string command = "python3 -B '" + (Samples / "make_samples.py").string() + "' '" +
                                folder.Path().string() + "' > /dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(ReadFile(folder / "telefonbuch.t9t"), ReadFile(Sample195));
    EXPECT_EQ(ReadFile(folder / "telefonbuch193.t9t"), ReadFile(Sample193));
    EXPECT_EQ(ReadFile(folder / "telefonbuch.csv"), ReadFile(Samples / "telefonbuch.csv"));
}

}  // namespace

}  // namespace norvik::test
