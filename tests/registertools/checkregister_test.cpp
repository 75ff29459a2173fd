#include "registertools/checkregister.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Report(TextView text) {
    return OkBox(text, u"Fehlerprüfung", "Information");
}

/// A register of one entry "Müller" with RecIndex 12.
RegisterState OneEntry() {
    RegisterState state = RegisterOf({Entry(u"Müller", u"123")});
    state.Register(1).RecIndex = 12;
    return state;
}

std::vector<std::string> Check(RegisterState& state) {
    ScriptedDesktop desktop;
    CheckRegister(state, desktop);
    return desktop.Transcript;
}

TEST(CheckRegister, ARegisterOfValidEntriesShowsNoMessage) {
    RegisterState state = RegisterOf({Entry(u"Anna", u"1"), Entry(u"Bernd", u"2", u"()x")});
    const Contents before = ContentsOf(state);
    EXPECT_THAT(Check(state), IsEmpty());
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_EQ(state.LoadReport, u"");
}

TEST(CheckRegister, TheLoadersLinesAreShownWithTheCount0) {
    RegisterState state = RegisterOf({Entry(u"Anna")});
    state.LoadReport = LongReport(u"Doppelter Name: Anna\r\n");
    EXPECT_THAT(Check(state), ElementsAre(Report(u"Es wurden 0 Fehler korrigiert\r\n\r\n"
                                                 u"Doppelter Name: Anna\r\n")));
}

TEST(CheckRegister, TheFindingsFollowTheLoadersLinesWhichAreNotCounted) {
    RegisterState state = OneEntry();
    state.Register(1).AB = 8;
    state.LoadReport = LongReport(u"eins\r\nzwei\r\n");
    EXPECT_THAT(Check(state),
                ElementsAre(Report(u"Es wurden 1 Fehler korrigiert\r\n\r\neins\r\nzwei\r\n"
                                   u"#12[Müller] Ansage zu hoch: 8\r\n")));
}

TEST(CheckRegister, ChargesOf40000AreReportedAndCountedButKept) {
    RegisterState state = OneEntry();
    state.Register(1).GebEinh = 40000;
    const RegisterEntry before = state.Register(1);
    EXPECT_THAT(Check(state),
                ElementsAre(Report(u"Es wurden 1 Fehler korrigiert\r\n\r\n"
                                   u"#12[Müller] Gebührenzähler zu hoch: 40000\r\n")));
    EXPECT_EQ(state.Register(1), before);
}

TEST(CheckRegister, Charges32768PassAnd32769AreReported) {
    RegisterState state = OneEntry();
    state.Register(1).GebEinh = 32768;
    EXPECT_THAT(Check(state), IsEmpty());
    state.Register(1).GebEinh = 32769;
    EXPECT_THAT(Check(state),
                ElementsAre(Report(u"Es wurden 1 Fehler korrigiert\r\n\r\n"
                                   u"#12[Müller] Gebührenzähler zu hoch: 32769\r\n")));
}

TEST(CheckRegister, AnEntryWithAnEmptyNameKeepsItsAnnouncement9) {
    RegisterState state = OneEntry();
    state.Register(1).Name = u"";
    state.Register(1).AB = 9;
    state.Register(1).Ton = 100;
    state.Register(1).GebEinh = 99999;
    const RegisterEntry before = state.Register(1);
    EXPECT_THAT(Check(state), IsEmpty());
    EXPECT_EQ(state.Register(1), before);
}

TEST(CheckRegister, ANameOfABlankIsNotEmpty) {
    RegisterState state = OneEntry();
    state.Register(1).Name = u" ";
    state.Register(1).AB = 9;
    EXPECT_THAT(Check(state), ElementsAre(Report(u"Es wurden 1 Fehler korrigiert\r\n\r\n"
                                                 u"#12[ ] Ansage zu hoch: 9\r\n")));
    EXPECT_EQ(state.Register(1).AB, 0);
}

TEST(CheckRegister, Announcement7AndTone79Pass) {
    RegisterState state = OneEntry();
    state.Register(1).AB = 7;
    state.Register(1).Ton = 79;
    const RegisterEntry before = state.Register(1);
    EXPECT_THAT(Check(state), IsEmpty());
    EXPECT_EQ(state.Register(1), before);
}

TEST(CheckRegister, Announcement8AndTone80AreRepaired) {
    RegisterState state = OneEntry();
    RegisterEntry expected = state.Register(1);
    state.Register(1).AB = 8;
    state.Register(1).Ton = 80;
    EXPECT_THAT(Check(state), ElementsAre(Report(u"Es wurden 2 Fehler korrigiert\r\n\r\n"
                                                 u"#12[Müller] Ansage zu hoch: 8\r\n"
                                                 u"#12[Müller] Klang zu hoch: 80\r\n")));
    expected.AB = 0;
    expected.Ton = 0;
    EXPECT_EQ(state.Register(1), expected);
}

TEST(CheckRegister, Tone79WithTheFlagSetPasses) {
    RegisterState state = OneEntry();
    state.Register(1).Ton = 0x80 + 79;
    EXPECT_THAT(Check(state), IsEmpty());
    EXPECT_EQ(state.Register(1).Ton, 0x80 + 79);
}

TEST(CheckRegister, TheFlagBitAloneDoesNotTriggerTheToneCheck) {
    RegisterState state = OneEntry();
    state.Register(1).Ton = 0x80;
    EXPECT_THAT(Check(state), IsEmpty());
    EXPECT_EQ(state.Register(1).Ton, 0x80);
}

TEST(CheckRegister, Tone85WithTheFlagIsReportedAs213AndLosesTheFlagToo) {
    RegisterState state = OneEntry();
    state.Register(1).Ton = 213;
    EXPECT_THAT(Check(state), ElementsAre(Report(u"Es wurden 1 Fehler korrigiert\r\n\r\n"
                                                 u"#12[Müller] Klang zu hoch: 213\r\n")));
    EXPECT_EQ(state.Register(1).Ton, 0);
}

TEST(CheckRegister, OnlyTheLowByteOfTheToneCounts) {
    RegisterState state = OneEntry();
    state.Register(1).Ton = 0x7F00;
    EXPECT_THAT(Check(state), IsEmpty());
    EXPECT_EQ(state.Register(1).Ton, 0x7F00);
    state.Register(1).Ton = 0x0150;
    EXPECT_THAT(Check(state), ElementsAre(Report(u"Es wurden 1 Fehler korrigiert\r\n\r\n"
                                                 u"#12[Müller] Klang zu hoch: 336\r\n")));
    EXPECT_EQ(state.Register(1).Ton, 0);
}

TEST(CheckRegister, NegativeAnnouncementsAndChargesPass) {
    RegisterState state = OneEntry();
    state.Register(1).AB = -1;
    state.Register(1).GebEinh = std::numeric_limits<std::int32_t>::min();
    const RegisterEntry before = state.Register(1);
    EXPECT_THAT(Check(state), IsEmpty());
    EXPECT_EQ(state.Register(1), before);
}

TEST(CheckRegister, ANegativeToneIsLookedAtByItsLowByte) {
    RegisterState state = OneEntry();
    state.Register(1).Ton = -1;
    EXPECT_THAT(Check(state), ElementsAre(Report(u"Es wurden 1 Fehler korrigiert\r\n\r\n"
                                                 u"#12[Müller] Klang zu hoch: -1\r\n")));
    EXPECT_EQ(state.Register(1).Ton, 0);
}

TEST(CheckRegister, ANegativeRecordNumberHasAMinusSign) {
    RegisterState state = OneEntry();
    state.Register(1).RecIndex = -5;
    state.Register(1).AB = 10;
    EXPECT_THAT(Check(state), ElementsAre(Report(u"Es wurden 1 Fehler korrigiert\r\n\r\n"
                                                 u"#-5[Müller] Ansage zu hoch: 10\r\n")));
}

TEST(CheckRegister, OneEntryGivesUpToThreeLinesEachWithItsPrefix) {
    RegisterState state = OneEntry();
    state.Register(1).Ton = 127;
    state.Register(1).AB = 32767;
    state.Register(1).GebEinh = 2147483647;
    EXPECT_THAT(Check(state),
                ElementsAre(Report(u"Es wurden 3 Fehler korrigiert\r\n\r\n"
                                   u"#12[Müller] Gebührenzähler zu hoch: 2147483647\r\n"
                                   u"#12[Müller] Ansage zu hoch: 32767\r\n"
                                   u"#12[Müller] Klang zu hoch: 127\r\n")));
}

TEST(CheckRegister, EntriesAreReportedInTheTablesOrderNotInTheShownOne) {
    RegisterState state = RegisterOf({Entry(u"Zoe"), Entry(u"Anna")});
    state.Register(1).AB = 8;
    state.Register(2).AB = 9;
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    EXPECT_THAT(Check(state), ElementsAre(Report(u"Es wurden 2 Fehler korrigiert\r\n\r\n"
                                                 u"#0[Zoe] Ansage zu hoch: 8\r\n"
                                                 u"#1[Anna] Ansage zu hoch: 9\r\n")));
}

TEST(CheckRegister, TheWholeTableIsCheckedUpToItsHighestPlace) {
    RegisterState state = OneEntry();
    state.Register(2000).Name = u"Letzter";
    state.Register(2000).AB = 8;
    EXPECT_THAT(Check(state), ElementsAre(Report(u"Es wurden 1 Fehler korrigiert\r\n\r\n"
                                                 u"#1999[Letzter] Ansage zu hoch: 8\r\n")));
    EXPECT_EQ(state.Register(2000).AB, 0);
}

TEST(CheckRegister, ThereIsNoEntry0ToCheck) {
    RegisterState state = OneEntry();
    EXPECT_THROW(state.Register(0), RuntimeError);
    EXPECT_NO_THROW(Check(state));
}

TEST(CheckRegister, TheReportStaysUntilTheNextLoad) {
    RegisterState state = OneEntry();
    state.Register(1).AB = 8;
    Check(state);
    EXPECT_EQ(state.LoadReport, u"#12[Müller] Ansage zu hoch: 8\r\n");
}

TEST(CheckRegister, ASecondRunCountsFrom0Again) {
    RegisterState state = OneEntry();
    state.Register(1).AB = 8;
    Check(state);
    EXPECT_THAT(Check(state), ElementsAre(Report(u"Es wurden 0 Fehler korrigiert\r\n\r\n"
                                                 u"#12[Müller] Ansage zu hoch: 8\r\n")));
}

TEST(CheckRegister, LeavesRegisterSavedAndTheOrderAsTheyAre) {
    RegisterState state = OneEntry();
    state.Register(1).AB = 8;
    const auto order = state.RegisterOrder;
    Check(state);
    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_TRUE(state.RegisterOrder == order);
}

}  // namespace

}  // namespace norvik::test
