// The address search: what taking an address over does to the entry.
#include "sync/searchsyncaddress.h"

#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

const Text Blanks(21, u' ');
constexpr TextView Number = u"030 1234567";

class TakeOver : public testing::Test {
  protected:
    TakeOver() {
        settings.InternationalPrefix = u"0049";
        settings.AreaPrefix = u"030";
        sync.SyncLoaded = true;
    }

    /// A record with the entry's number and this address.
    void Record(std::size_t record, TextView street, TextView zip, TextView city) {
        sync.Tables.SyncAddressTable.at(record) = {street, zip, city};
        sync.Tables.SyncPhoneTable.at(record)[SyncTables::Private] = Number;
    }
    /// The info text of an entry without one after taking over the only record's address.
    Text Taken(TextView street, TextView zip, TextView city) {
        Record(1, street, zip, city);
        state.Register(1).Info.clear();
        Search({Button::Yes});
        return state.Register(1).Info;
    }
    void Search(std::initializer_list<Button> answers) {
        for (const Button answer : answers) {
            desktop.AnswerBox(answer);
        }
        SearchSyncAddress(state, sync, settings, desktop);
    }

    RegisterState state = RegisterOf({Entry(u"Anna", Number, u"old")});
    SyncState sync;
    Settings settings;
    ScriptedDesktop desktop;
};

TEST_F(TakeOver, PutsStreetAndPlaceInFrontOfTheInfoText) {
    Record(1, u"Hauptstr. 1", u"10115", u"Berlin");
    Search({Button::Yes});
    EXPECT_EQ(state.Register(1).Info, u"Hauptstr. 1          "
                                      u"10115 Berlin         "
                                      u"old");
}

TEST_F(TakeOver, ShowsTheEntryWithTheNewTextAndItsRowAndEndsWithOk) {
    Record(1, u"Hauptstr. 1", u"10115", u"Berlin");
    std::vector<Text> shown;
    desktop.OnShowEntry = [&] { shown.push_back(state.Register(1).Info); };
    Search({Button::Yes});
    EXPECT_EQ(desktop.Transcript,
              (Lines{"status \"Suche nach Adressdaten...\"",
                     "box \"Suche nach 9301234567, gefunden:\\r\\n \\r\\nHauptstr. 1          "
                     "\\r\\n10115 Berlin         \\r\\nP030 1234567\\r\\nSoll die Adresse dieses "
                     "Eintrags übernommen werden?\" title \"Adresse gefunden?\" icon Question "
                     "buttons Yes+No+Cancel default Yes -> Yes",
                     "entry", "list", "status \"OK\""}));
    EXPECT_EQ(shown, std::vector<Text>{u"Hauptstr. 1          10115 Berlin         old"});
}

TEST_F(TakeOver, ChangesNothingOfTheEntryButItsInfoText) {
    RegisterEntry& entry = state.Register(1);
    entry = {7, 8, u"Anna", Text(Number), u"old", 133, 0x93, 12, 3, true};
    RegisterEntry expected = entry;
    expected.Info = u"Hauptstr. 1          10115 Berlin         old";
    Record(1, u"Hauptstr. 1", u"10115", u"Berlin");
    Search({Button::Yes});
    EXPECT_EQ(entry, expected);
}

TEST_F(TakeOver, ChangesTheShownEntryAlone) {
    state = RegisterOf({Entry(u"Anna", Number, u"1"), Entry(u"Bernd", Number, u"2"),
                        Entry(u"Carl", Number, u"3")});
    state.RegisterOrder(1) = 3;
    state.RegisterOrder(2) = 1;
    state.RegisterOrder(3) = 2;
    state.AnzNr = 2;  // Anna
    Contents expected = ContentsOf(state);
    expected.Entries(1).Info = u"Hauptstr. 1          10115 Berlin         1";
    Record(1, u"Hauptstr. 1", u"10115", u"Berlin");
    Search({Button::Yes});
    EXPECT_TRUE(ContentsOf(state) == expected);
    EXPECT_EQ(state.AnzNr, 2);
}

TEST_F(TakeOver, LeavesItOpenWhetherTheRegisterIsSaved) {
    Record(1, u"Hauptstr. 1", u"10115", u"Berlin");
    for (const bool saved : {true, false}) {
        state.RegisterSaved = saved;
        Search({Button::Yes});
        EXPECT_EQ(state.RegisterSaved, saved);
    }
}

TEST_F(TakeOver, ASecondYesPutsASecondAddressInFrontOfTheFirst) {
    Record(1, u"Hauptstr. 1", u"10115", u"Berlin");
    Record(2, u"Am Hof 2", u"20095", u"Hamburg");
    Search({Button::Yes, Button::Yes});
    EXPECT_EQ(state.Register(1).Info, u"Am Hof 2             20095 Hamburg        "
                                      u"Hauptstr. 1          10115 Berlin         "
                                      u"old");
    EXPECT_EQ(desktop.Statuses(), (Lines{"Suche nach Adressdaten...", "OK"}));
}

TEST_F(TakeOver, TheSameRecordCanBeTakenOnceForEachOfItsNumbers) {
    Record(1, u"A", u"1", u"B");
    sync.Tables.SyncPhoneTable[1].fill(Number);
    Search({Button::Yes, Button::No, Button::Yes, Button::No});
    EXPECT_EQ(state.Register(1).Info, u"A                    1 B                  "
                                      u"A                    1 B                  "
                                      u"old");
}

TEST_F(TakeOver, NoTakesNothingAndGoesOn) {
    Record(1, u"Hauptstr. 1", u"10115", u"Berlin");
    Record(2, u"Am Hof 2", u"20095", u"Hamburg");
    Record(3, u"Am Tor 3", u"50667", u"Köln");
    Search({Button::No, Button::Yes, Button::No});
    EXPECT_EQ(state.Register(1).Info, u"Am Hof 2             20095 Hamburg        old");
    EXPECT_EQ(desktop.Statuses(), (Lines{"Suche nach Adressdaten...", "OK"}));
}

TEST_F(TakeOver, CancelKeepsWhatWasTakenAndAsksNoMore) {
    Record(1, u"Hauptstr. 1", u"10115", u"Berlin");
    Record(2, u"Am Hof 2", u"20095", u"Hamburg");
    Record(3, u"Am Tor 3", u"50667", u"Köln");
    Search({Button::Yes, Button::Cancel});
    EXPECT_EQ(state.Register(1).Info, u"Hauptstr. 1          10115 Berlin         old");
    EXPECT_EQ(desktop.Statuses(), (Lines{"Suche nach Adressdaten...", "OK"}));
}

TEST_F(TakeOver, ARecordWithoutAnAddressLeavesTheInfoText) {
    Record(1, u"", u"", u"");
    Search({});
    EXPECT_EQ(state.Register(1).Info, u"old");
    EXPECT_EQ(desktop.Statuses(),
              (Lines{"Suche nach Adressdaten...", "Keine passenden Daten gefunden"}));
}

// The columns

TEST_F(TakeOver, AStreetOf30CharactersIsCutTo21InQuestionAndInfoText) {
    EXPECT_EQ(Taken(u"123456789012345678901234567890", u"10115", u"Berlin"),
              u"12345678901234567890110115 Berlin         ");
    EXPECT_EQ(desktop.Questions().at(0),
              "box \"Suche nach 9301234567, gefunden:\\r\\n \\r\\n123456789012345678901\\r\\n10115 "
              "Berlin         \\r\\nP030 1234567\\r\\nSoll die Adresse dieses Eintrags übernommen "
              "werden?\" title \"Adresse gefunden?\" icon Question buttons Yes+No+Cancel default "
              "Yes -> Yes");
}

TEST_F(TakeOver, AStreetIsFilledUpOrCutTo21Characters) {
    const Text place = u"1 A                  ";
    EXPECT_EQ(Taken(u"", u"1", u"A"), Blanks + place);
    EXPECT_EQ(Taken(u"12345678901234567890", u"1", u"A"), u"12345678901234567890 " + place);
    EXPECT_EQ(Taken(u"123456789012345678901", u"1", u"A"), u"123456789012345678901" + place);
    EXPECT_EQ(Taken(u"1234567890123456789012", u"1", u"A"), u"123456789012345678901" + place);
}

TEST_F(TakeOver, APlaceIsFilledUpOrCutTo21Characters) {
    const Text street = u"A                    ";
    EXPECT_EQ(Taken(u"A", u"", u""), street + Blanks);
    EXPECT_EQ(Taken(u"A", u"10115", u"12345678901234"), street + u"10115 12345678901234 ");
    EXPECT_EQ(Taken(u"A", u"10115", u"123456789012345"), street + u"10115 123456789012345");
    EXPECT_EQ(Taken(u"A", u"10115", u"1234567890123456"), street + u"10115 123456789012345");
    EXPECT_EQ(Taken(u"A", u"10115", u"123456789012345678901234"),
              street + u"10115 123456789012345");
}

TEST_F(TakeOver, APostcodeOrATownAloneKeepsTheBlankBetween) {
    EXPECT_EQ(Taken(u"", u"10115", u""), Blanks + u"10115                ");
    EXPECT_EQ(Taken(u"", u"", u"Berlin"), Blanks + u" Berlin              ");
}

TEST_F(TakeOver, ALongPostcodeLeavesNoRoomForTheTown) {
    const Text street = u"A                    ";
    EXPECT_EQ(Taken(u"A", u"12345678901234567890", u"Berlin"), street + u"12345678901234567890 ");
    EXPECT_EQ(Taken(u"A", u"123456789012345678901", u"Berlin"), street + u"123456789012345678901");
    EXPECT_EQ(Taken(u"A", u"123456789012345678901234", u"Berlin"),
              street + u"123456789012345678901");
}

TEST_F(TakeOver, BlanksAroundStreetAndPlaceStay) {
    EXPECT_EQ(Taken(u"  Hof ", u" 1", u" A"), u"  Hof                 1  A                ");
}

TEST_F(TakeOver, EveryCharacterOfTheAddressIsTakenAsItIs) {
    EXPECT_EQ(Taken(u"Straße\t1€", u"1\n", u"Köln\u0081"),
              u"Straße\t1€            1\n Köln\u0081             ");
}

// The info text

TEST_F(TakeOver, AnEmptyInfoTextBecomesTheTwoColumns) {
    EXPECT_EQ(Taken(u"Hauptstr. 1", u"10115", u"Berlin"),
              u"Hauptstr. 1          10115 Berlin         ");
}

TEST_F(TakeOver, NothingOfALongInfoTextIsDropped) {
    const Text old = Text(63, u'a') + Text(63, u'b');
    state.Register(1).Info = old;
    Record(1, u"Hauptstr. 1", u"10115", u"Berlin");
    Search({Button::Yes});
    EXPECT_EQ(state.Register(1).Info, u"Hauptstr. 1          10115 Berlin         " + old);
    Search({Button::Yes});
    EXPECT_EQ(state.Register(1).Info, u"Hauptstr. 1          10115 Berlin         "
                                      u"Hauptstr. 1          10115 Berlin         " +
                                          old);
    EXPECT_EQ(state.Register(1).Info.size(), 210U);
}

TEST_F(TakeOver, TheExportMarkBehindTheAddressStillMarksTheEntry) {
    state.Register(1).Info = u"()";
    Record(1, u"Hauptstr. 1", u"10115", u"Berlin");
    Search({Button::Yes});
    EXPECT_TRUE(IsMarked(state.Register(1)));
    EXPECT_EQ(state.AnzMarkiert, 1);
}

TEST_F(TakeOver, AnAddressThatHoldsTheExportMarkMarksTheEntryAndIsCounted) {
    ASSERT_EQ(state.AnzMarkiert, 0);
    Record(1, u"Hof ()", u"10115", u"Berlin");
    Search({Button::Yes});
    EXPECT_TRUE(IsMarked(state.Register(1)));
    EXPECT_EQ(state.AnzMarkiert, 1);
}

}  // namespace
}  // namespace norvik::test
