#include "formats/vcard/vcardwriter.h"

#include "base/utf8.h"
#include "formats/vcard/vcard.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <random>

namespace norvik::test {

namespace {

using testing::ElementsAre;

/// Country 49, area 711.
Settings Stuttgart() {
    Settings settings;
    settings.InternationalPrefix = u"0049";
    settings.AreaPrefix = u"0711";
    return settings;
}

Text International(TextView number) {
    return InternationalNumber(number, Stuttgart());
}

TEST(InternationalNumber, OfANumberOfTheOwnCountryHasItsCode) {
    EXPECT_EQ(International(u"0711123"), u"+49711123");
    EXPECT_EQ(International(u"0711 12-3"), u"+49711123");
    EXPECT_EQ(International(u"0049711123"), u"+49711123");
    EXPECT_EQ(International(u"0711123p1w2"), u"+49711123p1w2");
}

TEST(InternationalNumber, OfANumberOfTheOwnAreaHasBothCodes) {
    EXPECT_EQ(International(u"12345"), u"+4971112345");
}

TEST(InternationalNumber, OfAnotherCountryBeginsWithAPlus) {
    EXPECT_EQ(International(u"00431234"), u"+431234");
}

TEST(InternationalNumber, OfTheOwnExchangeAndOfAServiceIsTheNumberItself) {
    for (const TextView number : {u"i12", u"**61", u"*12", u"##5", u"#31#0711123", u"112", u"11833",
                                  u"116117", u"110", u""}) {
        EXPECT_EQ(International(number), number);
    }
}

TEST(InternationalNumber, WithoutTheCodesIsTheNumberItself) {
    const Settings none;
    for (const TextView number : {u"0711123", u"12345", u"00431234", u"0711 1"}) {
        EXPECT_EQ(InternationalNumber(number, none), number);
    }
    Settings country = Stuttgart();
    country.AreaPrefix = u"0";
    EXPECT_EQ(InternationalNumber(u"12345", country), u"12345");
    EXPECT_EQ(InternationalNumber(u"0711123", country), u"+49711123");
}

TEST(VCardOf, AnEntryHasNameNumberAndInfo) {
    EXPECT_EQ(VCardOf({Entry(u"Müller, Anna", u"0711123", u"Hauptstr. 1          70000 Stuttgart")},
                      Stuttgart()),
              "BEGIN:VCARD\r\nVERSION:3.0\r\nN:M\xC3\xBCller;Anna;;;\r\nFN:Anna M\xC3\xBCller\r\n"
              "TEL:+49711123\r\nNOTE:Hauptstr. 1\\n70000 Stuttgart\r\nEND:VCARD\r\n");
}

TEST(VCardOf, ANameWithoutACommaIsTheFamilysOne) {
    EXPECT_EQ(VCardOf({Entry(u"Taxi", u"112")}, Stuttgart()),
              "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Taxi;;;;\r\nFN:Taxi\r\nTEL:112\r\nEND:VCARD\r\n");
}

TEST(VCardOf, WhatEndsAValueIsEscaped) {
    EXPECT_EQ(VCardOf({Entry(u"A;B,C\\D, E", u"112")}, Stuttgart()),
              "BEGIN:VCARD\r\nVERSION:3.0\r\nN:A\\;B\\,C\\\\D;E;;;\r\nFN:E A\\;B\\,C\\\\D\r\n"
              "TEL:112\r\nEND:VCARD\r\n");
}

TEST(VCardOf, WithoutANameShowsTheNumberAndWithoutANumberHasNone) {
    EXPECT_EQ(VCardOf({Entry(u"", u"112")}, Stuttgart()),
              "BEGIN:VCARD\r\nVERSION:3.0\r\nN:;;;;\r\nFN:112\r\nTEL:112\r\nEND:VCARD\r\n");
    EXPECT_EQ(VCardOf({Entry(u"Anna")}, Stuttgart()),
              "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Anna;;;;\r\nFN:Anna\r\nEND:VCARD\r\n");
}

TEST(VCardOf, TheEntriesOfAPersonHaveOneName) {
    EXPECT_EQ(VCardOf({Entry(u"Alt, Eva (p)", u"01"), Entry(u"Alt, Eva (g)", u"02"),
                       Entry(u"Alt, Eva (m)", u"03"), Entry(u"Alt, Eva (f)", u"04"),
                       Entry(u"Alt, Eva (2)", u"05")},
                      Stuttgart()),
              "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Alt;Eva;;;\r\nFN:Eva Alt\r\nTEL;TYPE=HOME:+491\r\n"
              "TEL;TYPE=WORK:+492\r\nTEL;TYPE=CELL:+493\r\nTEL;TYPE=FAX:+494\r\nTEL:+495\r\n"
              "END:VCARD\r\n");
}

std::string NumberLineOf(TextView tel) {
    const std::string card = VCardOf({Entry(u"Anna", Text(tel))}, Stuttgart());
    const std::size_t start = card.find("TEL");
    return card.substr(start, card.find("\r\n", start) - start);
}

TEST(VCardOf, PausesAreThoseOfOtherTelephones) {
    EXPECT_EQ(NumberLineOf(u"0711123p1w2"), "TEL:+49711123\\,1\\;2");
    EXPECT_EQ(NumberLineOf(u"112pp1ww2"), "TEL:112\\,\\,1\\;\\;2");
    EXPECT_EQ(NumberLineOf(u"**61p1"), "TEL:**61\\,1");
    EXPECT_EQ(NumberLineOf(u"i12w3"), "TEL:i12\\;3");
    EXPECT_EQ(NumberLineOf(u"p1"), "TEL:p1");
    EXPECT_EQ(NumberLineOf(u"11 pw"), "TEL:11 pw");
    for (const TextView tel : {u"0711123p1w2", u"112pp1ww2", u"**61pw1", u"i12wp3", u"0043p0w0"}) {
        const auto again = ThroughCard(Entry(u"Anna", Text(tel)), Stuttgart());
        ASSERT_TRUE(again);
        EXPECT_EQ(again->Tel, tel);
    }
}

TEST(VCardOf, LongLinesAreFoldedBetweenCharacters) {
    const Text umlauts(126, u'ü');
    const std::string card = VCardOf({Entry(u"A", u"112", umlauts)}, Stuttgart());
    std::size_t start = 0;
    std::string unfolded;
    while (start < card.size()) {
        const std::size_t end = card.find("\r\n", start);
        ASSERT_LE(end - start, 75U);
        const std::string line = card.substr(start, end - start);
        EXPECT_NE(FromUtf8(line), std::nullopt) << line;  // no character is torn
        unfolded += line.starts_with(' ') ? line.substr(1) : "\n" + line;
        start = end + 2;
    }
    Text note;
    for (int line = 0; line < 6; ++line) {
        note.append(line == 0 ? u"" : u"\\n").append(umlauts.substr(0, 21));
    }
    EXPECT_THAT(unfolded, testing::HasSubstr("\nNOTE:" + ToUtf8(note) + "\nEND:VCARD"));
}

/// The entries of a file that holds the register, loaded again.
std::vector<RegisterEntry> Again(const RegisterState& state, const Settings& settings) {
    Bytes file;
    OutputTarget target(FilePath("-"));
    target.Memory = &file;
    WriteVCard(state, target, settings);
    RegisterState read;
    ScriptedDesktop desktop;
    LoadVCard(read, {InputStream(file), "a.vcf", {}}, settings, desktop);
    std::vector<RegisterEntry> entries;
    for (int position = 1; position <= read.AnzGes; ++position) {
        entries.push_back(EntryAt(read, position));
        entries.back().RecIndex = 0;
    }
    return entries;
}

std::string FileOf(const RegisterState& state, const Settings& settings) {
    Bytes file;
    OutputTarget target(FilePath("-"));
    target.Memory = &file;
    WriteVCard(state, target, settings);
    return {file.begin(), file.end()};
}

long Cards(const std::string& file) {
    long cards = 0;
    for (std::size_t place = 0; (place = file.find("BEGIN:VCARD", place)) != std::string::npos;
         ++place) {
        ++cards;
    }
    return cards;
}

TEST(WriteVCard, ReadingBackGivesTheSameRegister) {
    const std::vector<RegisterEntry> entries = {
        Entry(u"Alt, Eva (2)", u"05", u"Firma"),
        Entry(u"Alt, Eva (g)", u"02", u"Firma"),
        Entry(u"Alt, Eva (p)", u"01", u"Firma"),
        Entry(u"Bäcker", u"00431", u"Semmeln; Brot, Öfen  "),
        Entry(u"Bäcker (2)", u"0711123456"),
        Entry(u"Chef (m)", u"0171", u"Zeile 1              Zeile 2"),
        Entry(u"Notruf", u"112"),
        Entry(u"Türe, Haus", u"**61"),
        Entry(u"(x), (y)", u"i12"),
        Entry(u"21 Zeichen und nicht m", u"01")};
    RegisterState state;
    ResetRegister(state);
    SetCount(state, static_cast<int>(entries.size()) - 1);
    std::vector<RegisterEntry> expected;
    for (int position = 1; position <= state.AnzGes; ++position) {
        EntryAt(state, position) = entries.at(static_cast<std::size_t>(position - 1));
        expected.push_back(entries.at(static_cast<std::size_t>(position - 1)));
        Text& info = expected.back().Info;
        info.resize(RightTrim(info).size());
    }
    EXPECT_THAT(Again(state, Stuttgart()), testing::UnorderedElementsAreArray(expected));
    EXPECT_EQ(Cards(FileOf(state, Stuttgart())), 7);  // Eva's three numbers stand in one
}

TEST(WriteVCard, EntriesWithOtherInfoOrTheSameNumberHaveACardEach) {
    const RegisterState info =
        RegisterOf({Entry(u"Alt (p)", u"01", u"a"), Entry(u"Alt (g)", u"02", u"b")});
    EXPECT_EQ(Cards(FileOf(info, Stuttgart())), 2);
    const RegisterState number = RegisterOf({Entry(u"Alt (p)", u"01"), Entry(u"Alt (g)", u"01")});
    EXPECT_EQ(Cards(FileOf(number, Stuttgart())), 2);
    const RegisterState gap = RegisterOf({Entry(u"Alt (p)", u"01"), Entry(u"Alt (3)", u"02")});
    EXPECT_EQ(Cards(FileOf(gap, Stuttgart())), 2);
}

TEST(WriteVCard, WhoeverSharesACardComesBackAsFromACardOfTheirOwn) {
    constexpr std::array<TextView, 4> Persons = {u"Alt, Eva", u"Bo", u"Alt, Eva (p)", u"Ä ()"};
    constexpr std::array<TextView, 9> Brackets = {u"",     u" (p)", u" (g)", u" (m)", u" (f)",
                                                  u" (2)", u" (3)", u" (1)", u" (x)"};
    constexpr std::array<TextView, 6> Numbers = {u"01", u"02", u"0303", u"**4", u"", u"12345"};
    constexpr std::array<TextView, 3> Infos = {u"", u"Firma", u"()Firma"};
    std::mt19937 random(12);  // NOLINT(*-msc51-cpp)
    const auto any = [&random](const auto& texts) { return texts.at(random() % texts.size()); };
    std::size_t shared = 0;
    for (int round = 0; round < 200; ++round) {
        RegisterState state;
        ResetRegister(state);
        SetCount(state, 8);
        std::vector<RegisterEntry> expected;
        for (int position = 1; position <= state.AnzGes; ++position) {
            RegisterEntry& entry = EntryAt(state, position);
            entry = Entry(Text(any(Persons)).append(any(Brackets)), any(Numbers), any(Infos));
            if (const auto read = ThroughCard(entry, Stuttgart())) {
                expected.push_back(*read);
            }
        }
        if (!expected.empty()) {
            EXPECT_THAT(Again(state, Stuttgart()), testing::UnorderedElementsAreArray(expected));
        }
        shared += Cards(FileOf(state, Stuttgart())) < 8 ? 1 : 0;
    }
    EXPECT_GT(shared, 20U);
}

TEST(ThroughCard, IsWhatALoadMakesOfAnEntry) {
    const RegisterEntry entry = Entry(u"Anna  Alt ", u"12345", u"()x()");
    EXPECT_EQ(ThroughCard(entry, Stuttgart()), Entry(u"Anna Alt", u"071112345", u"x( )"));
    EXPECT_EQ(ThroughCard(Entry(u"Anna", u""), Stuttgart()), std::nullopt);
    EXPECT_EQ(ThroughCard(Entry(u"Anna", u"***"), Stuttgart()), std::nullopt);
}

}  // namespace

}  // namespace norvik::test
