#include "formats/vcard/vcardentries.h"

#include "register/placetable.h"
#include "tests/support/builders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Settings Germany() {
    Settings settings;
    settings.InternationalPrefix = u"0049";
    return settings;
}

class VCardEntriesTest : public testing::Test {
  protected:
    void Take(std::string_view lines) {
        const std::string card = "BEGIN:VCARD\n" + std::string(lines) + "\nEND:VCARD\n";
        InputStream input(Bytes(card.begin(), card.end()));
        VCardReader reader(input);
        for (VCardContact contact; reader.Next(contact);) {
            entries.Take(contact);
        }
    }
    [[nodiscard]] std::vector<Text> Names() const {
        std::vector<Text> names;
        for (const RegisterEntry& entry : entries.Entries) {
            names.push_back(entry.Name);
        }
        return names;
    }
    [[nodiscard]] std::vector<Text> InfoLinesOfFirst() const {
        std::vector<Text> lines;
        for (int line = 0; line < InfoLines; ++line) {
            lines.emplace_back(RightTrim(InfoLine(entries.Entries.at(0), line)));
        }
        return lines;
    }

    VCardEntries entries = VCardEntries(Germany());
};

TEST_F(VCardEntriesTest, ANumberGivesAnEntry) {
    Take("N:M\xC3\xBCller;Anna\nTEL;HOME:+49 40 1");
    ASSERT_EQ(entries.Entries.size(), 1U);
    EXPECT_EQ(entries.Entries[0], Entry(u"Müller, Anna", u"0401"));
    EXPECT_TRUE(entries.Report.IsEmpty());
}

TEST_F(VCardEntriesTest, ANameInAnotherScriptGivesWayToOneThatCanBeRead) {
    const std::string strange = "N:\xE7\x8E\x8B;\xE5\x8A\x9B\nFN:\xE7\x8E\x8B\xE5\x8A\x9B\n";
    Take(strange + "N;ALTID=1:Wang;Li\nTEL:1");
    Take(strange + "FN;LANGUAGE=en:Li Wang\nTEL:1");
    Take(strange + "X-PHONETIC-FIRST-NAME:Li\nX-PHONETIC-LAST-NAME:Wang\nNICKNAME:x\nTEL:1");
    Take("N;SORT-AS=\"Wang,Li\":\xE7\x8E\x8B;\xE5\x8A\x9B\nNICKNAME:x\nTEL:1");
    Take("N;SORT-AS=Wang,Li:\xE7\x8E\x8B;\xE5\x8A\x9B\nTEL:1");
    Take(strange + "SORT-STRING:Wang\nTEL:1");
    Take(strange + "ORG:ACME\nNICKNAME:\xE5\x8A\x9B\nNICKNAME:Lili\nTEL:1");
    Take(strange + "ORG:ACME\nTEL:1");
    Take(strange + "EMAIL:li@example.org\nTEL:1");
    Take(strange + "ORG:\xE7\x8E\x8B\nTEL:1");
    Take("N:M\xC3\xBCller \xE2\x9D\xA4;\nNICKNAME:Mia\nTEL:1");  // a heart
    Take("N:\xE2\x9D\xA4;Tante;Hilde\nTEL:1");
    EXPECT_THAT(Names(),
                ElementsAre(u"Wang, Li", u"Li Wang", u"Wang, Li", u"Wang, Li", u"Wang, Li", u"Wang",
                            u"Lili", u"ACME", u"li@example.org", u"?, ?", u"Müller ?", u"Tante"));
    const auto instead = [](const Text& name) {
        return u"Name in fremder Schrift, dafür: " + name + u"\r\n";
    };
    EXPECT_EQ(entries.Report, instead(u"Wang, Li") + instead(u"Li Wang") + instead(u"Wang, Li") +
                                  instead(u"Wang, Li") + instead(u"Wang, Li") + instead(u"Wang") +
                                  instead(u"Lili") + instead(u"ACME") + instead(u"li@example.org") +
                                  u"Zeichen ersetzt: ?, ?\r\nZeichen ersetzt: Müller ?\r\n"
                                  u"Zeichen ersetzt: Tante\r\n");
}

TEST_F(VCardEntriesTest, TheNameIsTheFirstThatSaysAnything) {
    Take("N:Alt;;\nFN:x\nTEL:1");
    Take("N:;Anna;\nFN:x\nTEL:1");
    Take("N:Alt;;Maria\nTEL:1");
    Take("N:; ;;;\nFN:Voll\nORG:x\nTEL:1");
    Take("N:;;;Dr.;\nFN: \nORG:Firma;x\nTEL:1");
    Take("ORG:;Einkauf\nTEL:1");
    Take("NICKNAME:Ami\nEMAIL:a@b\nTEL:1");
    Take("EMAIL:a@b\nTEL:1");
    Take("TEL:040 1");
    EXPECT_THAT(Names(), ElementsAre(u"Alt", u"Anna", u"Alt, Maria", u"Voll", u"Firma", u"Einkauf",
                                     u"Ami", u"a@b", u"040 1"));
}

TEST_F(VCardEntriesTest, SeveralNumbersHaveTheirKindsInBrackets) {
    Take("FN:A\nTEL;HOME:1\nTEL;WORK:2\nTEL;CELL:3\nTEL;FAX:4\nTEL;HOME:5\nTEL:6");
    EXPECT_THAT(Names(), ElementsAre(u"A (p)", u"A (g)", u"A (m)", u"A (f)", u"A (2)", u"A (3)"));
}

TEST_F(VCardEntriesTest, TheFirstNumberNeedsNoBracket) {
    Take("FN:A\nTEL:1\nTEL:2\nTEL;CELL:3");
    EXPECT_THAT(Names(), ElementsAre(u"A", u"A (2)", u"A (m)"));
}

TEST_F(VCardEntriesTest, ANumberComesOnce) {
    Take("FN:A\nTEL:+49 40 1\nTEL;HOME:040/1\nTEL;WORK:0401");
    EXPECT_THAT(Names(), ElementsAre(u"A"));
    Take("FN:B\nTEL:1\nTEL;HOME:1\nTEL;CELL:2");
    EXPECT_THAT(Names(), ElementsAre(u"A", u"B (p)", u"B (m)"));
}

TEST_F(VCardEntriesTest, ALongNameIsCutInFrontOfTheBracket) {
    Take("N:Abcdefghij;Klmnopqrstu\nTEL;CELL:1\nTEL;HOME:2");
    Take("N:Abcdefghi;Klmnopqrs\nTEL:1");
    Take("N:Abcdefghijklmnop;Q\nTEL:1\nTEL:2");
    EXPECT_THAT(Names(), ElementsAre(u"Abcdefghij, Klmno (m)", u"Abcdefghij, Klmno (p)",
                                     u"Abcdefghi, Klmnopqrs", u"Abcdefghijklmnop, Q",
                                     u"Abcdefghijklmnop, (2)"));
    EXPECT_EQ(entries.Report, u"Name gekürzt: Abcdefghij, Klmnopqrstu\r\n"
                              u"Name gekürzt: Abcdefghijklmnop, Q\r\n");
}

TEST_F(VCardEntriesTest, InfoLinesHoldOrganisationAddressAndNote) {
    Take("N:A;B\nORG:Firma;Einkauf\nADR:P;;Weg 1;Ort;;123;\nNOTE:eins zwei drei vier "
         "f\xC3\xBCnf\\nsechs\nTEL:1");
    EXPECT_THAT(InfoLinesOfFirst(), ElementsAre(u"Firma, Einkauf", u"Weg 1", u"123 Ort",
                                                u"eins zwei drei vier", u"fünf", u"sechs"));
    EXPECT_TRUE(entries.Report.IsEmpty());
}

TEST_F(VCardEntriesTest, TheOrganisationThatIsTheNameIsNotRepeated) {
    Take("ORG:Firma;Einkauf\nADR:Postfach 1;;;Ort;;;\nTEL:1");
    EXPECT_THAT(InfoLinesOfFirst(), ElementsAre(u"Einkauf", u"Postfach 1", u"Ort", u"", u"", u""));
}

TEST_F(VCardEntriesTest, LongOrganisationsAndLabelsHaveSeveralLines) {
    Take("N:A;B\nORG:Malerbetrieb;Verwaltung West\nLABEL:Weg 1\\n1 Ort\nTEL:1");
    EXPECT_THAT(InfoLinesOfFirst(),
                ElementsAre(u"Malerbetrieb", u"Verwaltung West", u"Weg 1", u"1 Ort", u"", u""));
}

TEST_F(VCardEntriesTest, InfoIsCutBehindSixLines) {
    Take("FN:A\nNOTE:1\\n2\\n3\\n4\\n5\\n123456789012345678901234567890\nTEL:1\nTEL:2");
    EXPECT_THAT(InfoLinesOfFirst(),
                ElementsAre(u"1", u"2", u"3", u"4", u"5", u"123456789012345678901"));
    EXPECT_EQ(entries.Report, u"Infotext gekürzt: A\r\n");
}

TEST_F(VCardEntriesTest, NothingMarksAnEntryForExport) {
    Take("FN:Taxi ()\nNOTE:()(())\nTEL:1");
    Take("FN:A\nORG:12345678901234567890(\nNOTE:)x\nTEL:1");
    Take("FN:A\nNOTE:1234567890123456789 () x\nTEL:1");
    EXPECT_EQ(entries.Entries[0].Name, u"Taxi ( )");
    EXPECT_EQ(entries.Entries[0].Info, u"( )(( ))");
    EXPECT_EQ(entries.Entries[1].Info, u"12345678901234567890(x");
    for (const RegisterEntry& entry : entries.Entries) {
        EXPECT_FALSE(IsMarked(entry));
    }
}

TEST_F(VCardEntriesTest, WhatIsSpecialIsReported) {
    Take("N:\xC5\x81;A\nTEL:0800-FLOWERS\nTEL:040 1 x2\nTEL:nein\nTEL:1234567890123456789012");
    Take("FN:Ohne");
    Take("FN:Gruppe\nKIND:group");
    Take("");
    EXPECT_EQ(entries.Report, u"Buchstaben als Ziffern: L, A: 0800-FLOWERS\r\n"
                              u"Zusatz der Rufnummer weggelassen: L, A: 040 1 x2\r\n"
                              u"Nicht wählbar: L, A: nein\r\n"
                              u"Rufnummer zu lang: L, A: 1234567890123456789012\r\n"
                              u"Zeichen ersetzt: L, A\r\n"
                              u"Ohne Rufnummer: Ohne\r\n");
}

TEST_F(VCardEntriesTest, APlusWithoutACountryIsReportedOnce) {
    entries = VCardEntries(Settings());
    Take("FN:A\nTEL:+49 1\nTEL:+49 2");
    EXPECT_EQ(entries.Entries[1].Tel, u"00492");
    EXPECT_EQ(entries.Report,
              u"Die Einstellungen haben keine Landesvorwahl: jedes \"+\" wurde \"00\"\r\n");
}

TEST_F(VCardEntriesTest, ACardWithoutAnEndIsReported) {
    VCardContact contact;
    contact.FullName.Value = u"A";
    contact.Numbers = {{.Number = u"1"}};
    contact.IsWhole = false;
    contact.NumbersLeftOut = 2;
    entries.Take(contact);
    EXPECT_THAT(Names(), ElementsAre(u"A"));
    EXPECT_EQ(entries.Report,
              u"Karte ohne Ende: A\r\nZu viele Rufnummern: A: 2 weitere weggelassen\r\n");
}

TEST_F(VCardEntriesTest, WhatHasNoPlaceIsNamed) {
    for (int i = 1; i < RegisterPlaces; ++i) {
        Take("FN:A\nTEL:1");
    }
    EXPECT_FALSE(entries.IsFull);
    Take("FN:B\nTEL;HOME:1\nTEL;WORK:2\nTEL:3");
    EXPECT_TRUE(entries.IsFull);
    EXPECT_EQ(entries.Entries.size(), 2000U);
    EXPECT_EQ(entries.Entries.back().Name, u"B (p)");
    EXPECT_EQ(entries.Report, u"Kein Platz mehr: B: 2\r\nKein Platz mehr: B: 3\r\n");
}

}  // namespace
}  // namespace norvik::test
