// From the fields back into the register.
#include "mainwindow/showentry.h"

#include "ringtones/tonenames.h"
#include "tests/support/builders.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

class StoreEntryTest : public testing::Test {
  protected:
    StoreEntryTest() {
        FillTones(fields, DefaultToneNames());
        FillAnnouncements(fields);
        FillMsns(fields);
    }

    void Show(const RegisterEntry& entry) {
        state = RegisterOf({entry});
        ShowEntry(state, 0.12, fields);
    }

    /// The entry after the fields were stored.
    RegisterEntry Stored() {
        StoreEntry(fields, state);
        return state.Register(1);
    }

    MainWindowFields fields;
    RegisterState state;
};

TEST_F(StoreEntryTest, WritesEveryFieldAndLeavesTheRunningNumbers) {
    RegisterEntry entry = Entry(u"Alt", u"1", u"alte Info");
    entry.RecNumber = 77;
    entry.GebEinh = 100;
    entry.Ton = 5;
    entry.MsnFilter = 0x2F;
    entry.Listed = true;
    Show(entry);
    state.Register(1).RecIndex = 42;
    fields.Anzeigefeld[0] = u"Neu";
    fields.Anzeigefeld[1] = u"4711";
    fields.Anzeigefeld[8] = u"eins";
    fields.Anzeigefeld[9] = Text(21, u' ');
    fields.Anzeigefeld[10] = u"drei";
    fields.DDTon = 11;
    fields.chkTon = true;
    fields.DDAB = 3;
    fields.DDMSN = 6;
    fields.chkCharge = true;
    fields.OptFilter = 1;

    RegisterEntry expected;
    expected.RecIndex = 42;
    expected.RecNumber = 77;
    expected.Name = u"Neu";
    expected.Tel = u"4711";
    expected.Info = u"eins                                      drei";
    expected.Ton = 138;
    expected.MsnFilter = (1 * 4 + 1) * 16 + 5;
    expected.GebEinh = 100;
    expected.AB = 3;
    expected.Listed = true;
    EXPECT_EQ(Stored(), expected);
}

TEST_F(StoreEntryTest, WritesIntoThePlaceThatTheOrderNames) {
    state = RegisterOf({Entry(u"Anna"), Entry(u"Bernd"), Entry(u"Carl")});
    state.RegisterOrder(2) = 3;
    state.RegisterOrder(3) = 2;
    state.AnzNr = 2;
    ShowEntry(state, 0.12, fields);
    fields.Anzeigefeld[0] = u"Carla";

    StoreEntry(fields, state);

    EXPECT_EQ(state.Register(1).Name, u"Anna");
    EXPECT_EQ(state.Register(2).Name, u"Bernd");
    EXPECT_EQ(state.Register(3).Name, u"Carla");
    EXPECT_EQ(Order(state, 3), (std::vector<int>{1, 3, 2}));
}

TEST_F(StoreEntryTest, LeavesRegisterSavedAsItIs) {
    Show(Entry(u"Anna"));
    state.RegisterSaved = true;
    StoreEntry(fields, state);
    EXPECT_TRUE(state.RegisterSaved);
    state.RegisterSaved = false;
    StoreEntry(fields, state);
    EXPECT_FALSE(state.RegisterSaved);
}

TEST_F(StoreEntryTest, ATickedToneBoxWithKeinStoresZero) {
    Show(Entry(u"Anna"));
    fields.chkTon = true;
    EXPECT_EQ(Stored().Ton, 0);
}

TEST_F(StoreEntryTest, ATickedToneBoxWithNothingSelectedStoresZero) {
    Show(Entry(u"Anna"));
    fields.DDTon = NoItem;
    fields.chkTon = true;
    EXPECT_EQ(Stored().Ton, 0);
}

TEST_F(StoreEntryTest, KlingelOneWithTheToneBoxTickedStores138) {
    Show(Entry(u"Anna"));
    fields.DDTon = 11;
    ASSERT_EQ(fields.DDTonItems[11], u"Klingel 1");
    fields.chkTon = true;
    EXPECT_EQ(Stored().Ton, 138);
}

TEST_F(StoreEntryTest, AToneWithoutTheBoxStoresItsNumberAlone) {
    Show(Entry(u"Anna"));
    fields.DDTon = 80;
    EXPECT_EQ(Stored().Ton, 79);
}

TEST_F(StoreEntryTest, VipWithCounterAndMsnThreeStores146) {
    Show(Entry(u"Anna"));
    fields.OptFilter = 2;
    fields.chkCharge = true;
    fields.DDMSN = 3;
    EXPECT_EQ(Stored().MsnFilter, 146);
}

TEST_F(StoreEntryTest, TheTelephonesOwnMsnStoresFifteen) {
    Show(Entry(u"Anna"));
    fields.DDMSN = 0;
    EXPECT_EQ(Stored().MsnFilter, 15);
    fields.DDMSN = NoItem;
    EXPECT_EQ(Stored().MsnFilter, 15);
}

TEST_F(StoreEntryTest, TheUnusedFifthBitIsClearedAndAnUnknownMsnBecomesTheTelephonesOwn) {
    RegisterEntry entry = Entry(u"Anna");
    entry.MsnFilter = 3 * 64 + 0x20 + 0x10 + 9;
    Show(entry);
    EXPECT_EQ(Stored().MsnFilter, 3 * 64 + 0x10 + 15);
}

TEST_F(StoreEntryTest, TheChargeCounterIsKeptUntilItIsClearedOnScreen) {
    RegisterEntry entry = Entry(u"Anna");
    entry.GebEinh = 100;
    Show(entry);
    for (const TextView amount : {u"99,99", u"0,00", u"0", u"", u"x5"}) {
        fields.AnzGeb = amount;  // what stands there never sets the counter
        EXPECT_EQ(Stored().GebEinh, 100);
    }
    fields.ChargeErased = true;
    EXPECT_EQ(Stored().GebEinh, 0);
    fields.AnzGeb = u"12,00";  // nor does it bring a cleared one back
    EXPECT_EQ(Stored().GebEinh, 0);
}

TEST_F(StoreEntryTest, ShowingAnEntryForgetsThatTheCounterOfAnotherWasCleared) {
    RegisterEntry entry = Entry(u"Anna");
    entry.GebEinh = 100;
    fields.ChargeErased = true;
    Show(entry);
    EXPECT_EQ(Stored().GebEinh, 100);
}

TEST_F(StoreEntryTest, ANegativeCounterIsKept) {
    RegisterEntry entry = Entry(u"Anna");
    entry.GebEinh = -5;
    Show(entry);
    EXPECT_EQ(Stored().GebEinh, -5);
}

TEST_F(StoreEntryTest, ACounterThatASmallUnitPriceShowsAsZeroIsKept) {
    for (const double unitPrice : {0.0, 0.00001}) {
        RegisterEntry entry = Entry(u"Anna");
        entry.GebEinh = 100;
        state = RegisterOf({entry});
        ShowEntry(state, unitPrice, fields);
        ASSERT_EQ(fields.AnzGeb, u"0,00");
        EXPECT_EQ(Stored().GebEinh, 100);
    }
}

TEST_F(StoreEntryTest, AnAnnouncementThatShowsNothingStoresZero) {
    RegisterEntry entry = Entry(u"Anna");
    entry.AB = 9;
    Show(entry);
    ASSERT_EQ(fields.DDAB, NoItem);
    EXPECT_EQ(Stored().AB, 0);
}

TEST_F(StoreEntryTest, AToneThatShowsNothingStoresZero) {
    RegisterEntry entry = Entry(u"Anna");
    entry.Ton = 128 + 100;
    Show(entry);
    ASSERT_EQ(fields.DDTon, NoItem);
    EXPECT_EQ(Stored().Ton, 0);
}

TEST_F(StoreEntryTest, InfoLinesArePaddedAndCutAndTheWholeIsRightTrimmed) {
    Show(Entry(u"Anna"));
    fields.Anzeigefeld[8] = u" kurz";
    fields.Anzeigefeld[9] = u"einundzwanzig Zeichen und mehr";
    fields.Anzeigefeld[10] = u"";
    fields.Anzeigefeld[11] = u"";
    fields.Anzeigefeld[12] = u"Ende  ";
    fields.Anzeigefeld[13] = Text(21, u' ');
    EXPECT_EQ(Stored().Info, u" kurz                "
                             u"einundzwanzig Zeichen"
                             u"                     "
                             u"                     "
                             u"Ende");
}

TEST_F(StoreEntryTest, EmptyInfoLinesGiveAnEmptyInfo) {
    Show(Entry(u"Anna", u"1", u"weg"));
    fields.Anzeigefeld[8] = Text(21, u' ');
    EXPECT_EQ(Stored().Info, u"");
}

TEST_F(StoreEntryTest, NamesAndNumbersKeepTheirBlanks) {
    Show(Entry(u"Anna"));
    fields.Anzeigefeld[0] = u" Anna ";
    fields.Anzeigefeld[1] = u"030 ";
    EXPECT_EQ(Stored(), Entry(u" Anna ", u"030 "));
}

TEST_F(StoreEntryTest, ALongNameStaysWholeUntilItIsStored) {
    const Text longName = u"Abcdefghijklmnopqrstuvwxyz";
    Show(Entry(longName, u"1"));
    EXPECT_EQ(state.Register(1).Name, longName);
    EXPECT_EQ(Stored().Name, u"Abcdefghijklmnopqrstu");
}

TEST_F(StoreEntryTest, ShowingAndStoringKeepsEveryEntryThatTheWindowCanShow) {
    for (int ton = 0; ton < 80; ++ton) {
        for (const int variant : {0, 1, 2, 3, 4, 5, 6, 7}) {
            RegisterEntry entry = Entry(u"Anna", u"1", u"Zeile");
            const int msn = variant < 6 ? variant : 15;
            const int charge = variant % 2;
            entry.Ton = static_cast<std::int16_t>(ton + (variant > 3 ? 128 : 0));
            entry.MsnFilter = static_cast<std::int16_t>((variant % 4) * 64 + charge * 16 + msn);
            entry.GebEinh = ton;
            entry.AB = static_cast<std::int16_t>(variant);
            Show(entry);
            EXPECT_EQ(Stored(), entry);
        }
    }
}

TEST_F(StoreEntryTest, APositionOutsideTheTableRaisesErrorNine) {
    Show(Entry(u"Anna"));
    fields.Anzeigefeld[0] = u"Neu";
    const Contents before = ContentsOf(state);
    for (const int position : {0, 2001}) {
        state.AnzNr = position;
        try {
            StoreEntry(fields, state);
            ADD_FAILURE() << "no error for position " << position;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::IndexOutOfRange);
        }
        EXPECT_TRUE(ContentsOf(state) == before);
    }
}

}  // namespace
}  // namespace norvik::test
