// The address search in the contacts of a vCard file, beside that in a text file of the same
// people.
#include "sync/searchsyncaddress.h"

#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

const std::string Searching = "status \"Suche nach Adressdaten...\"";
const std::string Ok = "status \"OK\"";
const std::string NothingFound = "status \"Keine passenden Daten gefunden\"";
const std::string TakeIt =
    "\\r\\nSoll die Adresse dieses Eintrags übernommen werden?\" title \"Adresse gefunden?\" icon "
    "Question buttons Yes+No+Cancel default Yes -> ";
const std::string NoAddress =
    "\\r\\nDieser Datensatz enthält keine Adresse!\" title \"Keine Adresse\" icon Information "
    "buttons Ok default Ok -> Ok";
const std::string AddressOfAnna = "Anna Adler\\r\\nAm Markt 1           \\r\\n10115 Berlin         "
                                  "\\r\\n";

std::string HeaderFor(const std::string& key) {
    return "box \"Suche nach " + key + ", gefunden:\\r\\n";
}

class SearchContacts : public testing::Test {
  protected:
    SearchContacts() {
        settings.InternationalPrefix = u"0049";
        settings.AreaPrefix = u"030";
        for (std::size_t item = 0; item < SyncItems; ++item) {
            settings.Table.SetValue(
                static_cast<Setting>(static_cast<int>(Setting::SyncName) + static_cast<int>(item)),
                Decimal(static_cast<int>(item) + 1));
        }
    }

    void Load(const std::string& name, const std::string& bytes) {
        settings.Table.SetValue(Setting::SyncDatabase, TextFromPath(folder.Write(name, bytes)));
        LoadSyncDatabase(settings.Table, sync, desktop);
    }
    /// Anna, who has these numbers.
    void LoadAnna(const std::string& numbers) {
        Load("a.vcf", "BEGIN:VCARD\r\nN:Adler;Anna\r\nADR:;;Am Markt 1;Berlin;;10115;\r\n" +
                          numbers + "END:VCARD\r\n");
    }
    Lines Search(TextView number, std::initializer_list<Button> answers = {}) {
        state = RegisterOf({Entry(u"Anna", number, u"old")});
        state.WarnLineAccessZero = false;
        desktop.Transcript.clear();
        for (const Button answer : answers) {
            desktop.AnswerBox(answer);
        }
        SearchSyncAddress(state, sync, settings, desktop);
        return desktop.Transcript;
    }

    TestFolder folder;
    RegisterState state;
    SyncState sync;
    Settings settings;
    ScriptedDesktop desktop;
};

TEST_F(SearchContacts, AVCardIsSearchedAndTakenOverLikeATextFile) {
    const std::string header = HeaderFor("9301234567");
    const Lines expected = {
        Searching,
        header + AddressOfAnna + "B+49 (30) 1234567" + TakeIt + "No",
        header + AddressOfAnna + "P1234567" + TakeIt + "Yes",
        "entry",
        "list",
        header + "Bernd Bär\\r\\n" + std::string(21, ' ') + "\\r\\n" + std::string(21, ' ') +
            "\\r\\nF0049301234567" + NoAddress,
        header +
            "Zoe Zorn\\r\\nWeg 7                \\r\\n53111 Bonn           \\r\\nA030/1234567" +
            TakeIt + "Cancel",
        Ok};
    const Text taken = u"Am Markt 1           10115 Berlin         old";

    Load("a.csv", "\"Adler\",\"Anna\",\"\",\"Am Markt 1\",\"10115\",\"Berlin\",\"+49 (30) "
                  "1234567\",\"1234567\"\r\n"
                  "\"B\xE4r\",\"Bernd\",\"\",\"\",\"\",\"\",\"\",\"\",\"0049301234567\"\r\n"
                  "\"Zorn\",\"Zoe\",\"\",\"Weg 7\",\"53111\",\"Bonn\",\"\",\"\",\"\","
                  "\"030/1234567\"\r\n");
    const Lines ofText = Search(u"030 1234567", {Button::No, Button::Yes, Button::Cancel});
    EXPECT_EQ(state.Register(1).Info, taken);

    Load("a.vcf", "BEGIN:VCARD\r\nN:Adler;Anna\r\nADR:;;Am Markt 1;Berlin;;10115;\r\n"
                  "TEL;TYPE=home:1234567\r\nTEL;TYPE=work:+49 (30) 1234567\r\nEND:VCARD\r\n"
                  "BEGIN:VCARD\r\nN:B\xE4r;Bernd\r\nTEL;TYPE=fax:0049301234567\r\nEND:VCARD\r\n"
                  "BEGIN:VCARD\r\nN:Zorn;Zoe\r\nADR:;;Weg 7;Bonn;;53111;\r\n"
                  "TEL;TYPE=cell:030/1234567\r\nEND:VCARD\r\n");
    const Lines ofCards = Search(u"030 1234567", {Button::No, Button::Yes, Button::Cancel});
    EXPECT_EQ(state.Register(1).Info, taken);
    EXPECT_EQ(state.Register(1).Name, u"Anna");
    EXPECT_EQ(state.Register(1).Tel, u"030 1234567");

    EXPECT_EQ(ofCards, ofText);
    EXPECT_EQ(ofCards, expected);
}

TEST_F(SearchContacts, EachNumberOfAContactIsFound) {
    LoadAnna("TEL;TYPE=cell:0171 1000001\r\nTEL;TYPE=cell:0171 1000002\r\nTEL:0171 1000003\r\n"
             "TEL;TYPE=home:030 1000004\r\nTEL;TYPE=home:030 1000005\r\n"
             "TEL;TYPE=work:030 1000006\r\nTEL;TYPE=fax:030 1000007\r\n");
    const std::vector<std::pair<std::string, std::string>> numbers = {
        {"0171 1000001", "A"}, {"0171 1000002", "A"}, {"0171 1000003", "A"}, {"030 1000004", "P"},
        {"030 1000005", "P"},  {"030 1000006", "B"},  {"030 1000007", "F"}};
    for (const auto& [number, letter] : numbers) {
        const std::string key =
            number.starts_with("0171") ? "171" + number.substr(5) : "930" + number.substr(4);
        EXPECT_EQ(
            Search(FromAscii(number), {Button::No}),
            (Lines{Searching, HeaderFor(key) + AddressOfAnna + letter + number + TakeIt + "No",
                   NothingFound}));
    }
}

TEST_F(SearchContacts, WhatTheTelephoneDialsDecides) {
    const std::vector<std::pair<std::string, Text>> numbers = {
        {"+49 (0)30 123456", u"030123456"},
        {"+49 (0)30 123456", u"004930123456"},
        {"tel:+49-30-123456;ext=7", u"123456"},
        {"030 123456 x7", u"030123456"},
        {"+43 (0)1 234", u"00431234"},
        {"0800-FLOWERS", u"08003569377"},
        {"030 123456 App. 7 (Pforte)", u"123456"}};
    for (const auto& [stored, number] : numbers) {
        LoadAnna("TEL;TYPE=home:" + stored + "\r\n");
        const Lines transcript = Search(number, {Button::Yes});
        ASSERT_EQ(transcript.size(), 5U) << stored;
        const std::string shown = stored.starts_with("tel:") ? "+49-30-123456" : stored;
        EXPECT_NE(transcript[1].find(AddressOfAnna + "P" + shown + TakeIt), std::string::npos)
            << transcript[1];
        EXPECT_EQ(transcript.back(), Ok);
    }
}

TEST_F(SearchContacts, TheCountryOfTheSettingsAtTheSearchCounts) {
    LoadAnna("TEL:+43 (0)1 234567\r\n");
    EXPECT_EQ(Search(u"01234567"), (Lines{Searching, NothingFound}));
    settings.InternationalPrefix = u"0043";
    EXPECT_EQ(Search(u"01234567", {Button::No}),
              (Lines{Searching,
                     HeaderFor("0431234567") + AddressOfAnna + "A+43 (0)1 234567" + TakeIt + "No",
                     NothingFound}));
}

TEST_F(SearchContacts, OtherNumbersAndEmptyColumnsAreNotFound) {
    LoadAnna("TEL:030 7654321\r\n");
    EXPECT_EQ(Search(u"030 1234567"), (Lines{Searching, NothingFound}));
    EXPECT_EQ(Search(u"030"),
              (Lines{"box \"Telefonnummer enthält keine synchronisationsrelevanten Daten!\" title "
                     "\"SyncAdresse\" icon Critical buttons Ok default Ok -> Ok"}));
}

}  // namespace
}  // namespace norvik::test
