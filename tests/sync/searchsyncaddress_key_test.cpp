// The address search: which numbers are the same, and which are none.
#include "sync/searchsyncaddress.h"

#include "tests/support/builders.h"
#include "tests/support/idledesktop.h"
#include "tests/support/scripteddesktop.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

Settings Location(TextView country, TextView region) {
    Settings settings;
    settings.Table.SetValue(Setting::CountryCode, country);
    settings.Table.SetValue(Setting::RegionCode, region);
    ApplySettings(settings);
    return settings;
}

const Settings Berlin = Location(u"49", u"30");

/// A database whose only record has this number.
SyncState DatabaseOf(TextView number) {
    SyncState sync;
    sync.SyncLoaded = true;
    sync.Tables.SyncAddressTable[1][SyncTables::City] = u"Berlin";
    sync.Tables.SyncPhoneTable[1][SyncTables::Private] = number;
    return sync;
}

/// Answers every question with No and keeps its text.
class RefusingDesktop : public IdleDesktop {
  public:
    Button Ask(const MessageBox& box) override {
        Texts.push_back(box.text);
        return box.buttons.size() == 1 ? Button::Ok : Button::No;
    }
    std::vector<Text> Texts;
};

/// Whether the search for `tel` finds `number`.
bool Same(TextView tel, TextView number, const Settings& settings = Berlin) {
    RegisterState state = RegisterOf({Entry(u"Anna", tel)});
    RefusingDesktop desktop;
    SearchSyncAddress(state, DatabaseOf(number), settings, desktop);
    return desktop.Texts.size() == 1 && desktop.Texts[0].starts_with(u"Suche nach ");
}

/// The key of `tel` as a hit with that very number shows it.
Text KeyOf(TextView tel, const Settings& settings = Berlin) {
    RegisterState state = RegisterOf({Entry(u"Anna", tel)});
    RefusingDesktop desktop;
    SearchSyncAddress(state, DatabaseOf(tel), settings, desktop);
    if (desktop.Texts.size() != 1) {
        return u"not one box";
    }
    const Text& text = desktop.Texts[0];
    constexpr TextView Before = u"Suche nach ";
    return text.starts_with(Before)
               ? text.substr(Before.size(), text.find(u", gefunden:\r\n") - Before.size())
               : text;
}

/// What the search for `tel` shows when the database holds nothing.
Lines Transcript(TextView tel, const Settings& settings) {
    RegisterState state = RegisterOf({Entry(u"Anna", tel, u"old")});
    SyncState sync;
    sync.SyncLoaded = true;
    ScriptedDesktop desktop;
    SearchSyncAddress(state, sync, settings, desktop);
    EXPECT_EQ(state.Register(1).Info, u"old");
    return desktop.Transcript;
}

const Lines Refused = {OkBox(u"Telefonnummer enthält keine synchronisationsrelevanten Daten!",
                             u"SyncAdresse", "Critical")};
const Lines NothingFound = {"status \"Suche nach Adressdaten...\"",
                            "status \"Keine passenden Daten gefunden\""};

// The key

TEST(SearchSyncAddressKey, IsTheEndOfTheInternationalNumber) {
    EXPECT_EQ(KeyOf(u"030 1234567"), u"9301234567");
    EXPECT_EQ(KeyOf(u"1234567"), u"9301234567");
    EXPECT_EQ(KeyOf(u"+49 (30) 123-45 67"), u"9301234567");
    EXPECT_EQ(KeyOf(u"030 1234567890"), u"1234567890");
}

TEST(SearchSyncAddressKey, OfAShortNumberIsTheWholeNumber) {
    EXPECT_EQ(KeyOf(u"110"), u"004930110");
    EXPECT_EQ(KeyOf(u"1100"), u"0049301100");
    EXPECT_EQ(KeyOf(u"11000"), u"0493011000");
    EXPECT_EQ(KeyOf(u"07"), u"00497");
    EXPECT_EQ(KeyOf(u"00"), u"00");
    EXPECT_EQ(KeyOf(u"+"), u"00");
    EXPECT_EQ(KeyOf(u"0"), u"0049");
}

TEST(SearchSyncAddressKey, OfAnInternalNumberIsThatWithoutItsMark) {
    EXPECT_EQ(KeyOf(u"i12"), u"00493012");
    EXPECT_TRUE(Same(u"i12", u"12"));
    EXPECT_TRUE(Same(u"i12", u"030 12"));
}

TEST(SearchSyncAddressKey, KeepsPauseAndWait) {
    EXPECT_EQ(KeyOf(u"030 1234567p89w0"), u"34567p89w0");
    EXPECT_FALSE(Same(u"030 1234567p89", u"030 123456789"));
}

TEST(SearchSyncAddressKey, KeepsTheDigitsOfAServiceCode) {
    EXPECT_EQ(KeyOf(u"*31#030 1234567"), u"0301234567");
}

TEST(SearchSyncAddressKey, OfALongNumberIsItsEnd) {
    EXPECT_EQ(KeyOf(Text(255, u'1')), u"1111111111");
}

// The same number

TEST(SearchSyncAddress, NumbersThatAgreeInTheirLastTenCharactersMatchWhateverStandsBefore) {
    EXPECT_TRUE(Same(u"030 1234567", u"+43 9301234567"));
    EXPECT_TRUE(Same(u"0049 30 1234567", u"0081 77 9301234567"));
    EXPECT_TRUE(Same(u"11 1234567890", u"22 1234567890"));
}

TEST(SearchSyncAddress, NumbersThatDifferInTheirLastTenCharactersDoNotMatch) {
    EXPECT_FALSE(Same(u"030 1234567", u"030 1234568"));
    EXPECT_FALSE(Same(u"030 1234567", u"040 1234567"));
    EXPECT_FALSE(Same(u"030 1234567", u"+39 30 1234567 8"));
    EXPECT_FALSE(Same(u"030 1234567", u"+48 30 1234567"));
}

TEST(SearchSyncAddress, AllFormsOfANumberMatch) {
    const std::vector<TextView> forms = {u"1234567",          u"030 1234567",    u"030/1234567",
                                         u"+49 30 1234567",   u"004930 1234567", u"(030) 123-4567",
                                         u"  +49301234567  ", u"0 3 0 1234567",  u"i1234567"};
    for (const TextView tel : forms) {
        for (const TextView number : forms) {
            EXPECT_TRUE(Same(tel, number)) << Utf8(tel) << " and " << Utf8(number);
        }
    }
}

TEST(SearchSyncAddress, AShortNumberIsNotFoundAtTheEndOfALongOne) {
    EXPECT_TRUE(Same(u"07", u"+49 7"));
    EXPECT_FALSE(Same(u"07", u"030 00497"));
    EXPECT_FALSE(Same(u"030 00497", u"07"));
}

TEST(SearchSyncAddress, AnEmptyItemIsNoHitForAnyNumber) {
    for (const TextView tel : {u"1", u"0", u"030 1234567", u"+49"}) {
        EXPECT_EQ(Transcript(tel, Berlin), NothingFound) << Utf8(tel);
    }
}

// No number

TEST(SearchSyncAddress, AnEntryWithoutANumberIsRefused) {
    EXPECT_EQ(Transcript(u"", Berlin), Refused);
}

TEST(SearchSyncAddress, ANumberOfNothingToDialIsRefused) {
    for (const TextView tel : {u"   ", u"i", u"*#", u"()-", u"A", u"abc", u"ÄÖÜ", u"\t"}) {
        EXPECT_EQ(Transcript(tel, Berlin), Refused) << Utf8(tel);
    }
}

TEST(SearchSyncAddress, TheOwnAreaAloneIsRefusedLikeTheEmptyNumber) {
    for (const TextView tel : {u"030", u"+49 30", u"0049 (30)"}) {
        EXPECT_EQ(Transcript(tel, Berlin), Refused) << Utf8(tel);
    }
}

TEST(SearchSyncAddress, ARefusedNumberIsToldBehindTheMissingDatabase) {
    RegisterState state = RegisterOf({Entry(u"Anna", u"")});
    ScriptedDesktop desktop;
    SearchSyncAddress(state, SyncState(), Berlin, desktop);
    EXPECT_EQ(desktop.Transcript, (Lines{OkBox(u"Keine Adreßdaten geladen!"), Refused.front()}));
}

TEST(SearchSyncAddress, WithoutAnyCodeTheEmptyNumberIsRefused) {
    const Settings none = Location(u"", u"");
    EXPECT_EQ(Transcript(u"", none), Refused);
    EXPECT_EQ(Transcript(u"0", none), Refused);
    EXPECT_EQ(Transcript(u"1", none), NothingFound);
    EXPECT_EQ(KeyOf(u"1234567", none), u"001234567");
    EXPECT_TRUE(Same(u"1234567", u"01234567", none));
    EXPECT_FALSE(Same(u"1234567", u"", none));
}

TEST(SearchSyncAddress, WithoutACountryOrAnAreaTheEmptyNumberIsRefused) {
    EXPECT_EQ(Transcript(u"", Location(u"49", u"")), Refused);
    EXPECT_EQ(KeyOf(u"1234567", Location(u"49", u"")), u"0491234567");
    EXPECT_EQ(Transcript(u"", Location(u"", u"30")), Refused);
    EXPECT_EQ(KeyOf(u"1234567", Location(u"", u"30")), u"0301234567");
}

TEST(SearchSyncAddress, BeforeAnySettingsTheEmptyNumberIsRefused) {
    EXPECT_EQ(Transcript(u"", Settings()), Refused);
    EXPECT_EQ(Transcript(u"12", Settings()), NothingFound);
}

TEST(SearchSyncAddress, WithCodesLongerThanAKeyTheEmptyNumberIsRefused) {
    const Settings lengthy = Location(u"4912345", u"678901234");
    EXPECT_EQ(Transcript(u"", lengthy), Refused);
    EXPECT_EQ(Transcript(u"i", lengthy), Refused);
    EXPECT_EQ(KeyOf(u"5", lengthy), u"6789012345");
    EXPECT_FALSE(Same(u"5", u"", lengthy));
}

TEST(SearchSyncAddress, WithAnEmptyFormOfExactlyTenCharactersTheEmptyNumberIsRefused) {
    const Settings ten = Location(u"4912", u"3456");
    EXPECT_EQ(Transcript(u"", ten), Refused);
    EXPECT_EQ(KeyOf(u"7", ten), u"0491234567");
}

}  // namespace
}  // namespace norvik::test
