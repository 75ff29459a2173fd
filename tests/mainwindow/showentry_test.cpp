#include "mainwindow/showentry.h"

#include "ringtones/tonenames.h"
#include "tests/support/builders.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

const Text BlankLine(21, u' ');

MainWindowFields FilledLists() {
    MainWindowFields fields;
    FillTones(fields, DefaultToneNames());
    FillAnnouncements(fields);
    FillMsns(fields);
    return fields;
}

/// The fields after `entry` was shown as the only one of a register.
MainWindowFields Shown(const RegisterEntry& entry, double unitPrice = 0.12) {
    MainWindowFields fields = FilledLists();
    ShowEntry(RegisterOf({entry}), unitPrice, fields);
    return fields;
}

RegisterEntry WithTone(std::int16_t ton) {
    RegisterEntry entry = Entry(u"Anna");
    entry.Ton = ton;
    return entry;
}

RegisterEntry WithMsnFilter(std::int16_t msnFilter) {
    RegisterEntry entry = Entry(u"Anna");
    entry.MsnFilter = msnFilter;
    return entry;
}

RegisterEntry WithAnnouncement(std::int16_t announcement) {
    RegisterEntry entry = Entry(u"Anna");
    entry.AB = announcement;
    return entry;
}

RegisterEntry WithCharge(std::int32_t units) {
    RegisterEntry entry = Entry(u"Anna");
    entry.GebEinh = units;
    return entry;
}

Text ToneShown(const MainWindowFields& fields) {
    return fields.DDTonItems.at(static_cast<std::size_t>(fields.DDTon));
}

TEST(ShowEntry, ShowsEveryFieldOfAnEntry) {
    RegisterEntry entry = Entry(u"Anna Ärmel", u"0301234", u"Hauptstraße 1        10115 Berlin");
    entry.RecNumber = 0x1A2;
    entry.Ton = 0x85;
    entry.MsnFilter = 2 * 64 + 16 + 3;
    entry.GebEinh = 100;
    entry.AB = 7;
    RegisterState state = RegisterOf({Entry(u"Erste"), Entry(u"Zweite"), entry});
    state.RegisterOrder(1) = 3;  // the third place is shown first
    state.RegisterOrder(3) = 1;
    MainWindowFields fields = FilledLists();

    ShowEntry(state, 0.12, fields);

    const std::array<Text, 14> expected = {u"Anna Ärmel",
                                           u"0301234",
                                           u"85",
                                           u"100",
                                           u"07",
                                           u"93",
                                           u"02 (1)",
                                           u"A2 (1)",
                                           u"Hauptstraße 1        ",
                                           u"10115 Berlin         ",
                                           BlankLine,
                                           BlankLine,
                                           BlankLine,
                                           BlankLine};
    EXPECT_EQ(fields.Anzeigefeld, expected);
    EXPECT_EQ(fields.DDTon, 6);
    EXPECT_TRUE(fields.chkTon);
    EXPECT_EQ(fields.DDAB, 7);
    EXPECT_EQ(fields.DDMSN, 4);
    EXPECT_TRUE(fields.chkCharge);
    EXPECT_EQ(fields.OptFilter, 2);
    EXPECT_EQ(fields.AnzGeb, u"12,00");
    EXPECT_FALSE(fields.chkExport);
    EXPECT_EQ(fields.Index, 3);
    EXPECT_EQ(fields.btnSaveChange, EditState::Neutral);
}

TEST(ShowEntry, AFreshEntryResetsEveryChoiceOfTheOneBefore) {
    MainWindowFields fields = FilledLists();
    fields.DDTon = 12;
    fields.DDAB = 4;
    fields.DDMSN = 2;
    fields.chkTon = true;
    fields.chkCharge = true;
    fields.OptFilter = 3;
    fields.AnzGeb = u"47,11";
    fields.chkExport = true;
    fields.btnSaveChange = EditState::Pending;
    fields.Anzeigefeld.fill(u"alt");

    ShowEntry(RegisterOf({Entry(u"")}), 0.12, fields);

    const std::array<Text, 14> expected = {u"",       u"",       u"00",     u"0",      u"00",
                                           u"0F",     u"00 (1)", u"00 (1)", BlankLine, BlankLine,
                                           BlankLine, BlankLine, BlankLine, BlankLine};
    EXPECT_EQ(fields.Anzeigefeld, expected);
    EXPECT_EQ(fields.DDTon, 0);
    EXPECT_EQ(fields.DDAB, 0);
    EXPECT_EQ(fields.DDMSN, 0);
    EXPECT_FALSE(fields.chkTon);
    EXPECT_FALSE(fields.chkCharge);
    EXPECT_EQ(fields.OptFilter, 0);
    EXPECT_EQ(fields.AnzGeb, u"0,00");
    EXPECT_FALSE(fields.chkExport);
    EXPECT_EQ(fields.btnSaveChange, EditState::Neutral);
}

TEST(ShowEntry, LeavesWhatBelongsToTheWholeRegister) {
    MainWindowFields fields = FilledLists();
    fields.chkListFilter = true;
    fields.TelRegListe = {u"#1: Anna (1)"};
    fields.btnSearchMoreEnabled = true;
    fields.SaveMenusEnabled = true;

    ShowEntry(RegisterOf({Entry(u"Bernd")}), 0.12, fields);

    EXPECT_TRUE(fields.chkListFilter);
    EXPECT_EQ(fields.TelRegListe, std::vector<Text>{u"#1: Anna (1)"});
    EXPECT_TRUE(fields.btnSearchMoreEnabled);
    EXPECT_TRUE(fields.SaveMenusEnabled);
}

TEST(ShowEntry, AToneOfZeroShowsKeinAndAnUntickedBox) {
    const MainWindowFields fields = Shown(WithTone(0));
    EXPECT_EQ(ToneShown(fields), u"kein");
    EXPECT_FALSE(fields.chkTon);
}

TEST(ShowEntry, ATone85HexShowsTheSixthNameWithTheBoxTicked) {
    const MainWindowFields fields = Shown(WithTone(0x85));
    EXPECT_EQ(ToneShown(fields), u"2Klang 3");
    EXPECT_EQ(fields.DDTon, 6);
    EXPECT_TRUE(fields.chkTon);
}

TEST(ShowEntry, ATone128ShowsTheFirstNameWithTheBoxTicked) {
    const MainWindowFields fields = Shown(WithTone(128));
    EXPECT_EQ(ToneShown(fields), u"3Klang 1");
    EXPECT_TRUE(fields.chkTon);
}

TEST(ShowEntry, AToneWithoutItsOwnBitLeavesTheBoxUnticked) {
    const MainWindowFields fields = Shown(WithTone(79));
    EXPECT_EQ(ToneShown(fields), u"Eigen 60");
    EXPECT_FALSE(fields.chkTon);
}

TEST(ShowEntry, AToneThatTheListDoesNotHaveSelectsNothing) {
    for (const int ton : {80, 127, 128 + 80, 255}) {
        const MainWindowFields fields = Shown(WithTone(static_cast<std::int16_t>(ton)));
        EXPECT_EQ(fields.DDTon, NoItem) << ton;
        EXPECT_EQ(fields.chkTon, ton >= 128) << ton;
        EXPECT_EQ(fields.Anzeigefeld[2], Hex2(ton)) << ton;
    }
}

TEST(ShowEntry, AnAnnouncementThatTheListDoesNotHaveSelectsNothing) {
    EXPECT_EQ(Shown(WithAnnouncement(7)).DDAB, 7);
    EXPECT_EQ(Shown(WithAnnouncement(8)).DDAB, NoItem);
    EXPECT_EQ(Shown(WithAnnouncement(32767)).DDAB, NoItem);
    EXPECT_EQ(Shown(WithAnnouncement(-1)).DDAB, NoItem);
}

TEST(ShowEntry, MsnZeroToFiveSelectTheirItems) {
    for (std::int16_t msn = 0; msn <= 5; ++msn) {
        EXPECT_EQ(Shown(WithMsnFilter(msn)).DDMSN, msn + 1);
    }
}

TEST(ShowEntry, MsnSixToFourteenShowTheTelephonesOwn) {
    for (std::int16_t msn = 6; msn <= 15; ++msn) {
        const MainWindowFields fields = Shown(WithMsnFilter(msn));
        EXPECT_EQ(fields.DDMSNItems.at(static_cast<std::size_t>(fields.DDMSN)), u"(lt. Telefon)")
            << msn;
    }
}

TEST(ShowEntry, EachFilterSwitchesItsButtonOn) {
    for (std::int16_t filter = 0; filter <= 3; ++filter) {
        const MainWindowFields fields =
            Shown(WithMsnFilter(static_cast<std::int16_t>(filter * 64 + 15)));
        EXPECT_EQ(fields.OptFilter, filter);
        EXPECT_FALSE(fields.chkCharge);
    }
}

TEST(ShowEntry, TheUnusedFifthBitIsNoFilterAndNoCounter) {
    const MainWindowFields fields = Shown(WithMsnFilter(0x20 + 15));
    EXPECT_EQ(fields.OptFilter, 0);
    EXPECT_FALSE(fields.chkCharge);
    EXPECT_EQ(fields.DDMSN, 0);
    EXPECT_EQ(fields.Anzeigefeld[5], u"2F");
}

TEST(ShowEntry, AHundredUnitsAtTwelveHundredthsShowTwelve) {
    EXPECT_EQ(Shown(WithCharge(100), 0.12).AnzGeb, u"12,00");
}

TEST(ShowEntry, TheCounterIsShownInUnitsAndAsAnAmount) {
    const MainWindowFields fields = Shown(WithCharge(2'000'000'000), 0.12);
    EXPECT_EQ(fields.Anzeigefeld[3], u"2000000000");
    EXPECT_EQ(fields.AnzGeb, u"240000000,00");
    EXPECT_EQ(Shown(WithCharge(-5), 0.12).Anzeigefeld[3], u"-5");
    EXPECT_EQ(Shown(WithCharge(-5), 0.12).AnzGeb, u"-0,60");
    EXPECT_EQ(Shown(WithCharge(100), 0).AnzGeb, u"0,00");
}

TEST(ShowEntry, NamesAndNumbersLongerThanTheirFieldAreShownCut) {
    const Text longName = u"Abcdefghijklmnopqrstuvwxyz";
    const Text longTel = u"012345678901234567890123";
    const RegisterState state = RegisterOf({Entry(longName, longTel)});
    MainWindowFields fields = FilledLists();

    ShowEntry(state, 0.12, fields);

    EXPECT_EQ(fields.Anzeigefeld[0], u"Abcdefghijklmnopqrstu");
    EXPECT_EQ(fields.Anzeigefeld[1], u"012345678901234567890");
    EXPECT_EQ(state.Register(1), Entry(longName, longTel));
}

TEST(ShowEntry, InfoBehindItsSixthLineIsNotShown) {
    const Text info = Text(126, u'x') + u"hinten";
    const MainWindowFields fields = Shown(Entry(u"Anna", u"1", info));
    for (std::size_t line = 8; line <= 13; ++line) {
        EXPECT_EQ(fields.Anzeigefeld.at(line), Text(21, u'x')) << line;
    }
}

TEST(ShowEntry, TheExportBoxIsTickedForAMarkAnywhereInTheInfo) {
    EXPECT_TRUE(Shown(Entry(u"Anna", u"1", u"()Info")).chkExport);
    EXPECT_TRUE(Shown(Entry(u"Anna", u"1", u"abc()def")).chkExport);
    EXPECT_FALSE(Shown(Entry(u"Anna", u"1", u"( )")).chkExport);
    EXPECT_FALSE(Shown(Entry(u"Anna()", u"()", u"")).chkExport);
}

TEST(ShowEntry, TheRunningNumbersStandWithThePosition) {
    RegisterState state = RegisterOf({Entry(u"Anna"), Entry(u"Bernd")});
    state.Register(2).RecIndex = 4096;
    state.Register(2).RecNumber = 255;
    state.AnzNr = 2;
    MainWindowFields fields = FilledLists();

    ShowEntry(state, 0.12, fields);

    EXPECT_EQ(fields.Anzeigefeld[6], u"00 (2)");
    EXPECT_EQ(fields.Anzeigefeld[7], u"FF (2)");
}

TEST(ShowEntry, APositionBehindTheCountShowsWhatTheTableHoldsThere) {
    RegisterState state = RegisterOf({Entry(u"Anna"), Entry(u"Gelöscht")});
    SetCount(state, 1);
    state.AnzNr = 2;
    MainWindowFields fields = FilledLists();

    ShowEntry(state, 0.12, fields);

    EXPECT_EQ(fields.Anzeigefeld[0], u"Gelöscht");
    EXPECT_EQ(fields.Index, 2);
}

TEST(ShowEntry, APositionOutsideTheTableRaisesErrorNineAndChangesNoField) {
    for (const int position : {0, 2001, -1}) {
        RegisterState state = RegisterOf({Entry(u"Anna")});
        state.AnzNr = position;
        MainWindowFields fields = FilledLists();
        fields.Anzeigefeld.fill(u"alt");
        fields.DDTon = 3;
        fields.btnSaveChange = EditState::Pending;
        try {
            ShowEntry(state, 0.12, fields);
            ADD_FAILURE() << "no error for position " << position;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::IndexOutOfRange);
        }
        for (const Text& field : fields.Anzeigefeld) {
            EXPECT_EQ(field, u"alt");
        }
        EXPECT_EQ(fields.DDTon, 3);
        EXPECT_EQ(fields.btnSaveChange, EditState::Pending);
    }
}

}  // namespace
}  // namespace norvik::test
