// The address search: which questions it asks about the records it finds.
#include "sync/searchsyncaddress.h"

#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

const std::string Searching = "status \"Suche nach Adressdaten...\"";
const std::string Ok = "status \"OK\"";
const std::string NothingFound = "status \"Keine passenden Daten gefunden\"";

/// The parts of a question about a record, as transcripts show them.
const std::string Header = "box \"Suche nach 9301234567, gefunden:\\r\\n";
const std::string TakeIt =
    "\\r\\nSoll die Adresse dieses Eintrags übernommen werden?\" title \"Adresse gefunden?\" icon "
    "Question buttons Yes+No+Cancel default Yes -> ";
const std::string NoAddress =
    "\\r\\nDieser Datensatz enthält keine Adresse!\" title \"Keine Adresse\" icon Information "
    "buttons Ok default Ok -> Ok";
const std::string AddressOfAnna = "Anna Meier\\r\\nHauptstr. 1          \\r\\n10115 Berlin         "
                                  "\\r\\n";

class SearchSync : public testing::Test {
  protected:
    SearchSync() {
        settings.InternationalPrefix = u"0049";
        settings.AreaPrefix = u"030";
        sync.SyncLoaded = true;
    }

    void Name(std::size_t record, TextView given, TextView surname) {
        auto& cells = sync.Tables.SyncNameTable.at(record);
        cells[SyncTables::GivenName] = given;
        cells[SyncTables::Surname] = surname;
    }
    void Address(std::size_t record, TextView street, TextView zip, TextView city) {
        sync.Tables.SyncAddressTable.at(record) = {street, zip, city};
    }
    void Phone(std::size_t record, SyncTables::Phones column, TextView number) {
        sync.Tables.SyncPhoneTable.at(record).at(column) = number;
    }
    /// Fills record `record` with a whole person.
    void Anna(std::size_t record, SyncTables::Phones column) {
        Name(record, u"Anna", u"Meier");
        Address(record, u"Hauptstr. 1", u"10115", u"Berlin");
        Phone(record, column, u"030 1234567");
    }

    Lines Search() {
        SearchSyncAddress(state, sync, settings, desktop);
        return desktop.Transcript;
    }
    const Text& Info() { return state.Register(1).Info; }

    RegisterState state = RegisterOf({Entry(u"Anna", u"030 1234567", u"old")});
    SyncState sync;
    Settings settings;
    ScriptedDesktop desktop;
};

// The columns that an address without street or place leaves.
const std::string Blanks = std::string(21, ' ');

// Without a hit

TEST_F(SearchSync, FindsNothingInRecordsWithOtherNumbers) {
    Anna(1, SyncTables::Private);
    Phone(1, SyncTables::Private, u"030 7654321");
    EXPECT_EQ(Search(), (Lines{Searching, NothingFound}));
    EXPECT_EQ(Info(), u"old");
}

TEST_F(SearchSync, FindsNothingInAnEmptyDatabase) {
    EXPECT_EQ(Search(), (Lines{Searching, NothingFound}));
}

TEST_F(SearchSync, TellsThatNothingWasLoadedAndGoesOnAllTheSame) {
    sync.SyncLoaded = false;
    EXPECT_EQ(Search(), (Lines{OkBox(u"Keine Adreßdaten geladen!"), Searching, NothingFound}));
    EXPECT_EQ(Info(), u"old");
}

TEST_F(SearchSync, TablesThatWereFilledAreSearchedWhateverTheFlagSays) {
    sync.SyncLoaded = false;
    Anna(1, SyncTables::Private);
    desktop.AnswerBox(Button::No);
    EXPECT_EQ(Search(),
              (Lines{OkBox(u"Keine Adreßdaten geladen!"), Searching,
                     Header + AddressOfAnna + "P030 1234567" + TakeIt + "No", NothingFound}));
}

TEST_F(SearchSync, TablesWithoutAnyRecordAreAnEmptyDatabase) {
    sync.Tables.SyncNameTable.clear();
    sync.Tables.SyncAddressTable.clear();
    sync.Tables.SyncPhoneTable.clear();
    EXPECT_EQ(Search(), (Lines{Searching, NothingFound}));
}

TEST_F(SearchSync, DoesNotLookAtRecord0) {
    Anna(0, SyncTables::Private);
    EXPECT_EQ(Search(), (Lines{Searching, NothingFound}));
}

// A hit

TEST_F(SearchSync, ShowsAHitWithKeyNameAddressAndNumberAsStored) {
    Anna(1, SyncTables::Private);
    desktop.AnswerBox(Button::No);
    EXPECT_EQ(Search(), (Lines{Searching, Header + AddressOfAnna + "P030 1234567" + TakeIt + "No",
                               NothingFound}));
}

TEST_F(SearchSync, EachKindOfNumberHasItsLetter) {
    const std::array<std::pair<SyncTables::Phones, const char*>, 4> letters = {{
        {SyncTables::Business, "B"},
        {SyncTables::Private, "P"},
        {SyncTables::Fax, "F"},
        {SyncTables::Other, "A"},
    }};
    for (const auto& [column, letter] : letters) {
        sync.Tables = SyncTables();
        desktop.Transcript.clear();
        Anna(1, column);
        desktop.AnswerBox(Button::No);
        EXPECT_EQ(Search(),
                  (Lines{Searching, Header + AddressOfAnna + letter + "030 1234567" + TakeIt + "No",
                         NothingFound}));
    }
}

TEST_F(SearchSync, ShowsTheNumberAsItIsStored) {
    Anna(1, SyncTables::Fax);
    Phone(1, SyncTables::Fax, u" +49 (30) 12-34/567 ");
    desktop.AnswerBox(Button::No);
    EXPECT_EQ(Search().at(1), Header + AddressOfAnna + "F +49 (30) 12-34/567 " + TakeIt + "No");
}

TEST_F(SearchSync, TheCompanyIsNotShown) {
    Anna(1, SyncTables::Private);
    sync.Tables.SyncNameTable[1][SyncTables::Company] = u"Meier & Co";
    desktop.AnswerBox(Button::No);
    EXPECT_EQ(Search().at(1), Header + AddressOfAnna + "P030 1234567" + TakeIt + "No");
}

TEST_F(SearchSync, ARecordWithoutANameShowsTheBlankBetween) {
    Anna(1, SyncTables::Private);
    Name(1, u"", u"");
    desktop.AnswerBox(Button::No);
    EXPECT_EQ(Search().at(1), Header +
                                  " \\r\\nHauptstr. 1          \\r\\n10115 Berlin         \\r\\n"
                                  "P030 1234567" +
                                  TakeIt + "No");
}

TEST_F(SearchSync, ANameIsShownWholeHoweverLong) {
    Anna(1, SyncTables::Private);
    Name(1, u"Anna Katharina Elisabeth", u"von der Lindenstrasse-Meierhofen");
    desktop.AnswerBox(Button::No);
    EXPECT_EQ(Search().at(1),
              Header +
                  "Anna Katharina Elisabeth von der Lindenstrasse-Meierhofen\\r\\n"
                  "Hauptstr. 1          \\r\\n10115 Berlin         \\r\\nP030 1234567" +
                  TakeIt + "No");
}

// Several hits

TEST_F(SearchSync, BusinessAndPrivateNumberOfOneRecordGiveTwoQuestions) {
    Anna(1, SyncTables::Business);
    Phone(1, SyncTables::Private, u"1234567");
    desktop.AnswerBox(Button::No).AnswerBox(Button::No);
    EXPECT_EQ(Search(), (Lines{Searching, Header + AddressOfAnna + "B030 1234567" + TakeIt + "No",
                               Header + AddressOfAnna + "P1234567" + TakeIt + "No", NothingFound}));
}

TEST_F(SearchSync, AsksRecordByRecordAndWithinOneInTheOrderBPFA) {
    for (const std::size_t record : {1000U, 1U}) {
        for (const auto column :
             {SyncTables::Other, SyncTables::Fax, SyncTables::Private, SyncTables::Business}) {
            Anna(record, column);
        }
    }
    Name(1000, u"Zoe", u"Last");
    for (int question = 0; question < 8; ++question) {
        desktop.AnswerBox(Button::No);
    }
    const std::string addressOfZoe =
        "Zoe Last\\r\\nHauptstr. 1          \\r\\n10115 Berlin         \\r\\n";
    const std::string end = "030 1234567" + TakeIt + "No";
    EXPECT_EQ(Search(),
              (Lines{Searching, Header + AddressOfAnna + "B" + end,
                     Header + AddressOfAnna + "P" + end, Header + AddressOfAnna + "F" + end,
                     Header + AddressOfAnna + "A" + end, Header + addressOfZoe + "B" + end,
                     Header + addressOfZoe + "P" + end, Header + addressOfZoe + "F" + end,
                     Header + addressOfZoe + "A" + end, NothingFound}));
}

TEST_F(SearchSync, EmptyRecordsBetweenTheOthersAreNoHits) {
    Anna(500, SyncTables::Private);
    desktop.AnswerBox(Button::No);
    EXPECT_EQ(Search().size(), 3U);
}

TEST_F(SearchSync, CancelAtTheFirstHitShowsThatNothingWasFound) {
    Anna(1, SyncTables::Private);
    Anna(2, SyncTables::Private);
    desktop.AnswerBox(Button::Cancel);
    EXPECT_EQ(Search(),
              (Lines{Searching, Header + AddressOfAnna + "P030 1234567" + TakeIt + "Cancel",
                     NothingFound}));
    EXPECT_EQ(Info(), u"old");
}

TEST_F(SearchSync, TheTakeOverOfAnEarlierRunDoesNotCount) {
    Anna(1, SyncTables::Private);
    desktop.AnswerBox(Button::Yes).AnswerBox(Button::Cancel);
    EXPECT_EQ(Search().back(), Ok);
    EXPECT_EQ(Search().back(), NothingFound);
}

TEST_F(SearchSync, CancelSkipsTheOtherNumbersOfTheSameRecord) {
    Anna(1, SyncTables::Business);
    Anna(1, SyncTables::Other);
    desktop.AnswerBox(Button::Cancel);
    EXPECT_EQ(Search().size(), 3U);
}

TEST_F(SearchSync, CancelBehindATakeOverEndsWithOk) {
    Anna(1, SyncTables::Private);
    Anna(2, SyncTables::Private);
    Anna(3, SyncTables::Private);
    desktop.AnswerBox(Button::Yes).AnswerBox(Button::Cancel);
    EXPECT_EQ(Search(),
              (Lines{Searching, Header + AddressOfAnna + "P030 1234567" + TakeIt + "Yes", "entry",
                     "list", Header + AddressOfAnna + "P030 1234567" + TakeIt + "Cancel", Ok}));
}

// A hit without an address

TEST_F(SearchSync, AHitWithoutAnAddressIsToldAndTheSearchGoesOn) {
    Anna(1, SyncTables::Private);
    Address(1, u"", u"", u"");
    Anna(2, SyncTables::Private);
    desktop.AnswerBox(Button::No);
    EXPECT_EQ(Search(),
              (Lines{Searching,
                     Header + "Anna Meier\\r\\n" + Blanks + "\\r\\n" + Blanks +
                         "\\r\\nP030 1234567" + NoAddress,
                     Header + AddressOfAnna + "P030 1234567" + TakeIt + "No", NothingFound}));
    EXPECT_EQ(Info(), u"old");
}

TEST_F(SearchSync, AnAddressOfBlanksIsNone) {
    Anna(1, SyncTables::Private);
    Address(1, u"   ", u" ", u"                         ");
    EXPECT_EQ(Search(), (Lines{Searching,
                               Header + "Anna Meier\\r\\n" + Blanks + "\\r\\n" + Blanks +
                                   "\\r\\nP030 1234567" + NoAddress,
                               NothingFound}));
}

TEST_F(SearchSync, AnAddressBehindTheColumnsIsNone) {
    Anna(1, SyncTables::Private);
    Address(1, u"                     Hauptstr. 1", u"                     10115", u"Berlin");
    EXPECT_EQ(Search().at(1), Header + "Anna Meier\\r\\n" + Blanks + "\\r\\n" + Blanks +
                                  "\\r\\nP030 1234567" + NoAddress);
}

TEST_F(SearchSync, APartOfAnAddressIsAnAddress) {
    const std::array<std::array<TextView, 3>, 3> parts = {
        {{u"Hof", u"", u""}, {u"", u"10115", u""}, {u"", u"", u"Berlin"}}};
    for (const auto& part : parts) {
        Anna(1, SyncTables::Private);
        Address(1, part[0], part[1], part[2]);
        desktop.Transcript.clear();
        desktop.AnswerBox(Button::No);
        EXPECT_EQ(Search().size(), 3U) << Utf8(part[0]) << Utf8(part[1]) << Utf8(part[2]);
    }
}

TEST_F(SearchSync, AHitWithoutAnAddressBehindATakeOverEndsWithOk) {
    Anna(1, SyncTables::Private);
    Anna(2, SyncTables::Private);
    Address(2, u"", u"", u"");
    desktop.AnswerBox(Button::Yes);
    EXPECT_EQ(Search().back(), Ok);
}

TEST_F(SearchSync, HitsWithoutAnAddressEndOnceAllAreAnsweredAlike) {
    for (std::size_t record = 1; record <= 6; ++record) {
        Name(record, u"Anna", u"Meier");
        Phone(record, SyncTables::Private, u"030 1234567");
    }
    desktop.TickedOffer = 1;
    const Lines lines = Search();
    ASSERT_EQ(lines.size(), 1U + 4U + 1U);
    EXPECT_TRUE(lines[3].ends_with(" default Ok -> Ok"));
    EXPECT_TRUE(lines[4].ends_with(" default Ok offering for all -> Ok for all"));
    EXPECT_EQ(lines[5], NothingFound);
}

TEST_F(SearchSync, TheQuestionForAnAddressIsAskedEachTime) {
    for (std::size_t record = 1; record <= 6; ++record) {
        Anna(record, SyncTables::Private);
        desktop.AnswerBox(Button::No);
    }
    for (const std::string& line : Search()) {
        EXPECT_THAT(line, testing::Not(testing::HasSubstr("for all")));
    }
}

}  // namespace
}  // namespace norvik::test
