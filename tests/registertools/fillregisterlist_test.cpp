#include "registertools/fillregisterlist.h"

#include "ringtones/tonenames.h"
#include "tests/support/builders.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using Rows = std::vector<Text>;

constexpr int NoMsn = 15;

RegisterEntry With(int flags, TextView name = u"Anna") {
    RegisterEntry entry = Entry(name, u"1");
    entry.MsnFilter = static_cast<std::int16_t>(flags);
    return entry;
}

RegisterEntry WithAB(int number, TextView name = u"Anna") {
    RegisterEntry entry = Entry(name, u"1");
    entry.AB = static_cast<std::int16_t>(number);
    return entry;
}

RegisterEntry WithTone(int tone) {
    RegisterEntry entry = Entry(u"Anna", u"1");
    entry.Ton = static_cast<std::int16_t>(tone);
    return entry;
}

RegisterEntry WithCharge(std::int32_t units) {
    RegisterEntry entry = With(EnGeb + NoMsn);
    entry.GebEinh = units;
    return entry;
}

/// Has every property but those of the VIP and the CD filter.
RegisterEntry WithAll() {
    RegisterEntry entry = Entry(u"Anna", u"1", u"()Info");
    entry.Ton = EnTon + 1;
    entry.AB = 2;
    entry.MsnFilter = 0x40 + EnGeb + 3;
    entry.GebEinh = 10;
    return entry;
}

class RegisterListFill : public testing::Test {
  protected:
    void Fill(TextView filter) { FillRegisterList(filter, state, tones, unitPrice, fields); }

    /// The lines that a register of `entries` gives.
    Rows LinesFor(TextView filter, std::initializer_list<RegisterEntry> entries) {
        state = RegisterOf(entries);
        Fill(filter);
        return fields.ListResult;
    }

    std::vector<bool> Listed(int count) {
        std::vector<bool> listed;
        for (int index = 1; index <= count; ++index) {
            listed.push_back(state.Register(index).Listed);
        }
        return listed;
    }

    RegisterState state;
    std::vector<Text> tones = DefaultToneNames();
    double unitPrice = 0.12;
    RegisterListFields fields;
};

TEST_F(RegisterListFill, ALineIsTheReasonTheNameAndTheNumber) {
    RegisterEntry entry = WithAB(2, u"Müller");
    entry.Tel = u"030123456";
    EXPECT_EQ(LinesFor(u"A", {entry}), Rows{u"AB-Ansage 2:  Müller (030123456)"});
    EXPECT_EQ(fields.AnzTreffer, u"1");
}

TEST_F(RegisterListFill, EntriesWithAnEmptyNameOrNumberAreListedLikeAnyOther) {
    EXPECT_EQ(LinesFor(u"3", {Entry(u"", u"030", u"()"), Entry(u"Anna", u"", u"()"),
                              Entry(u"", u"", u"()")}),
              (Rows{u"Markiert :   ()", u"Markiert :   (030)", u"Markiert :  Anna ()"}));
    EXPECT_EQ(Listed(3), std::vector<bool>(3, true));
}

TEST_F(RegisterListFill, AnEntryWithAnAnnouncementOf0OrBelowIsNotListed) {
    EXPECT_EQ(LinesFor(u"A", {WithAB(0), WithAB(-1), WithAB(-32768), WithAB(1), WithAB(7)}),
              (Rows{u"AB-Ansage 1:  Anna (1)", u"AB-Ansage 7:  Anna (1)"}));
    EXPECT_EQ(Listed(5), (std::vector<bool>{false, false, false, true, true}));
}

TEST_F(RegisterListFill, AnAnnouncementThatNoTelephoneHasIsListedTooAsItIs) {
    EXPECT_EQ(LinesFor(u"A", {WithAB(32767)}), Rows{u"AB-Ansage 32767:  Anna (1)"});
}

TEST_F(RegisterListFill, AnEntryWithAToneButNotItsOwnIsNotListed) {
    EXPECT_EQ(LinesFor(u"T", {WithTone(5), WithTone(0), WithTone(79)}), Rows());
    EXPECT_EQ(fields.AnzTreffer, u"0");
}

TEST_F(RegisterListFill, AnOwnToneWithoutANumberIsTheFirstTone) {
    EXPECT_EQ(LinesFor(u"T", {WithTone(EnTon)}), Rows{u"Ton 3Klang 1:  Anna (1)"});
}

TEST_F(RegisterListFill, AToneIsNamedAsInTheChoiceList) {
    tones.at(80) = u"60Hund";
    EXPECT_EQ(
        LinesFor(u"T", {WithTone(EnTon + 9), WithTone(EnTon + 78), WithTone(EnTon + 79)}),
        (Rows{u"Ton 60Hund:  Anna (1)", u"Ton Eigen 59:  Anna (1)", u"Ton Ton 2:  Anna (1)"}));
}

TEST_F(RegisterListFill, AToneBeyondTheChoiceListHasNoName) {
    EXPECT_EQ(LinesFor(u"T", {WithTone(EnTon + 80), WithTone(EnTon + 127)}),
              (Rows{u"Ton :  Anna (1)", u"Ton :  Anna (1)"}));
    tones = {u"kein"};
    EXPECT_EQ(LinesFor(u"T", {WithTone(EnTon)}), Rows{u"Ton :  Anna (1)"});
}

TEST_F(RegisterListFill, BitsAboveTheOwnToneAreNoPartOfItsNumber) {
    EXPECT_EQ(LinesFor(u"T", {WithTone(0x100 + 3), WithTone(0x100 + EnTon + 3)}),
              Rows{u"Ton 2Klang 1:  Anna (1)"});
}

TEST_F(RegisterListFill, Msn0To5AreListedAsMsn1To6AndAnyOtherIsNot) {
    EXPECT_EQ(LinesFor(u"M", {With(0), With(1), With(2), With(3), With(4), With(5)}),
              (Rows{u"MSN 1:  Anna (1)", u"MSN 2:  Anna (1)", u"MSN 3:  Anna (1)",
                    u"MSN 4:  Anna (1)", u"MSN 5:  Anna (1)", u"MSN 6:  Anna (1)"}));
    for (int msn = 6; msn <= 15; ++msn) {
        EXPECT_EQ(LinesFor(u"M", {With(msn)}), Rows()) << msn;
    }
}

TEST_F(RegisterListFill, TheMsnIsTheLowestFourBitsAlone) {
    EXPECT_EQ(LinesFor(u"M", {With(0x7FF2), With(0x7FF6)}), Rows{u"MSN 3:  Anna (1)"});
}

TEST_F(RegisterListFill, AChargeCounterIsListedWithItsAmount) {
    EXPECT_EQ(LinesFor(u"G", {WithCharge(0)}), Rows{u"GZ 0,00:  Anna (1)"});
    EXPECT_EQ(LinesFor(u"G", {WithCharge(1)}), Rows{u"GZ 0,12:  Anna (1)"});
    EXPECT_EQ(LinesFor(u"G", {WithCharge(100)}), Rows{u"GZ 12,00:  Anna (1)"});
    EXPECT_EQ(LinesFor(u"G", {WithCharge(-5)}), Rows{u"GZ -0,60:  Anna (1)"});
}

TEST_F(RegisterListFill, TheAmountHasNoThousandsSeparatorAndFollowsTheUnitPrice) {
    unitPrice = 1.005;
    EXPECT_EQ(LinesFor(u"G", {WithCharge(1)}), Rows{u"GZ 1,01:  Anna (1)"});
    EXPECT_EQ(LinesFor(u"G", {WithCharge(2147483647)}), Rows{u"GZ 2158221065,24:  Anna (1)"});
    unitPrice = 0;
    EXPECT_EQ(LinesFor(u"G", {WithCharge(100)}), Rows{u"GZ 0,00:  Anna (1)"});
}

TEST_F(RegisterListFill, ACounterThatIsOffIsNotListedWhateverItHolds) {
    RegisterEntry entry = WithCharge(100);
    entry.MsnFilter = static_cast<std::int16_t>(entry.MsnFilter & ~EnGeb);
    EXPECT_EQ(LinesFor(u"G", {entry}), Rows());
}

TEST_F(RegisterListFill, EachCallFilterHasItsOwnLetterAndText) {
    const auto filters = {With(0x0F), With(0x4F), With(0x8F), With(0xCF)};
    EXPECT_EQ(LinesFor(u"R", filters), Rows{u"Anruffilter:  Anna (1)"});
    EXPECT_EQ(Listed(4), (std::vector<bool>{false, true, false, false}));
    EXPECT_EQ(LinesFor(u"V", filters), Rows{u"VIP-Filter:  Anna (1)"});
    EXPECT_EQ(Listed(4), (std::vector<bool>{false, false, true, false}));
    EXPECT_EQ(LinesFor(u"C", filters), Rows{u"CD- Filter:  Anna (1)"});
    EXPECT_EQ(Listed(4), (std::vector<bool>{false, false, false, true}));
}

TEST_F(RegisterListFill, FStandsForAnyCallFilterAndNForNone) {
    const auto filters = {With(0x0F), With(0x4F), With(0x8F), With(0xCF)};
    EXPECT_EQ(LinesFor(u"F", filters), (Rows{u"Anruffilter:  Anna (1)", u"CD- Filter:  Anna (1)",
                                             u"VIP-Filter:  Anna (1)"}));
    EXPECT_EQ(Listed(4), (std::vector<bool>{false, true, true, true}));
    EXPECT_EQ(LinesFor(u"N", filters), Rows{u"kein Filter:  Anna (1)"});
    EXPECT_EQ(Listed(4), (std::vector<bool>{true, false, false, false}));
}

TEST_F(RegisterListFill, FBesideALettersOwnAddsNoSecondLine) {
    EXPECT_EQ(LinesFor(u"RFVCF", {With(0x4F)}), Rows{u"Anruffilter:  Anna (1)"});
    EXPECT_EQ(fields.AnzTreffer, u"1");
}

TEST_F(RegisterListFill, TheFilterIsAllBitsFromBit6On) {
    // Above bit 7 stands what makes none of the four filters, "none" included.
    EXPECT_EQ(LinesFor(u"FN", {With(0x100 + NoMsn), With(0x140 + NoMsn), With(0x4000)}), Rows());
}

TEST_F(RegisterListFill, Bit5IsNoPartOfTheFilter) {
    EXPECT_EQ(LinesFor(u"GN", {With(0x2F)}), Rows{u"kein Filter:  Anna (1)"});
    EXPECT_EQ(LinesFor(u"GR", {With(0x6F)}), Rows{u"Anruffilter:  Anna (1)"});
}

TEST_F(RegisterListFill, AnEntryIsMarkedWhereverTheMarkStands) {
    EXPECT_EQ(LinesFor(u"3", {Entry(u"a", u"1", u"()Info"), Entry(u"b", u"2", u"In()fo"),
                              Entry(u"c", u"3", u"( )"), Entry(u"d", u"4", u")("),
                              Entry(u"()e", u"()", u"")}),
              (Rows{u"Markiert :  a (1)", u"Markiert :  b (2)"}));
}

TEST_F(RegisterListFill, ACallFilterAndAnAnnouncementGiveTwoLinesAndTwoHits) {
    RegisterEntry entry = With(0x4F);
    entry.AB = 3;
    EXPECT_EQ(LinesFor(u"AR", {entry}),
              (Rows{u"AB-Ansage 3:  Anna (1)", u"Anruffilter:  Anna (1)"}));
    EXPECT_EQ(fields.AnzTreffer, u"2");
    EXPECT_EQ(Listed(1), std::vector<bool>{true});
}

TEST_F(RegisterListFill, AllLettersGiveALineForEachPropertyOfAnEntry) {
    const Rows expected = {u"AB-Ansage 2:  Anna (1)", u"Anruffilter:  Anna (1)",
                           u"GZ 1,20:  Anna (1)",     u"Markiert :  Anna (1)",
                           u"MSN 4:  Anna (1)",       u"Ton 3Klang 2:  Anna (1)"};
    EXPECT_EQ(LinesFor(u"ATMGRVC3", {WithAll()}), expected);
    EXPECT_EQ(LinesFor(u"3CVRGMTA", {WithAll()}), expected);
    EXPECT_EQ(LinesFor(u"AATTMMGGRR33", {WithAll()}), expected);
    EXPECT_EQ(fields.AnzTreffer, u"6");
}

TEST_F(RegisterListFill, OtherLettersAndSmallOnesMeanNothing) {
    EXPECT_EQ(LinesFor(u"atmgrvcfnXYZ012 ", {WithAll()}), Rows());
    EXPECT_EQ(fields.AnzTreffer, u"0");
}

TEST_F(RegisterListFill, TheLinesAreSortedByLoweredTextByCharacterCodes) {
    EXPECT_EQ(LinesFor(u"3", {Entry(u"Zug", u"1", u"()"), Entry(u"Öl", u"2", u"()"),
                              Entry(u"anna", u"3", u"()"), Entry(u"BERND", u"4", u"()"),
                              Entry(u"_x", u"5", u"()"), Entry(u"ärger", u"6", u"()")}),
              (Rows{u"Markiert :  _x (5)", u"Markiert :  anna (3)", u"Markiert :  BERND (4)",
                    u"Markiert :  Zug (1)", u"Markiert :  ärger (6)", u"Markiert :  Öl (2)"}));
}

TEST_F(RegisterListFill, AnnouncementsAreSortedAsTextNotAsNumbers) {
    EXPECT_EQ(LinesFor(u"A", {WithAB(10), WithAB(9)}),
              (Rows{u"AB-Ansage 10:  Anna (1)", u"AB-Ansage 9:  Anna (1)"}));
}

TEST_F(RegisterListFill, EntriesAreVisitedByPosition) {
    // But for the case the lines are the same, so they stay in the order in which they came.
    state = RegisterOf(
        {Entry(u"anna", u"1", u"()"), Entry(u"ANNA", u"1", u"()"), Entry(u"Anna", u"1", u"()")});
    state.RegisterOrder(1) = 3;
    state.RegisterOrder(2) = 1;
    state.RegisterOrder(3) = 2;
    Fill(u"3");
    EXPECT_EQ(fields.ListResult,
              (Rows{u"Markiert :  Anna (1)", u"Markiert :  anna (1)", u"Markiert :  ANNA (1)"}));
}

TEST_F(RegisterListFill, OnlyTheUsedPositionsAreVisited) {
    state = RegisterOf({Entry(u"a", u"1", u"()"), Entry(u"b", u"2", u"()"),
                        Entry(u"c", u"3", u"()"), Entry(u"d", u"4", u"()")});
    SetCount(state, 2);
    state.RegisterOrder(1) = 4;
    state.RegisterOrder(2) = 1;
    state.RegisterOrder(3) = 2;
    state.RegisterOrder(4) = 3;
    state.Register(3).Listed = true;

    Fill(u"3");

    EXPECT_EQ(fields.ListResult, (Rows{u"Markiert :  a (1)", u"Markiert :  d (4)"}));
    EXPECT_EQ(fields.AnzTreffer, u"2");
    EXPECT_EQ(Listed(4), (std::vector<bool>{true, false, true, true}));
}

TEST_F(RegisterListFill, EachFillClearsTheMarksAndLinesOfTheOneBefore) {
    state = RegisterOf({WithAB(1, u"a"), With(0x4F, u"b")});
    Fill(u"A");
    EXPECT_EQ(Listed(2), (std::vector<bool>{true, false}));
    Fill(u"R");
    EXPECT_EQ(fields.ListResult, Rows{u"Anruffilter:  b (1)"});
    EXPECT_EQ(fields.AnzTreffer, u"1");
    EXPECT_EQ(Listed(2), (std::vector<bool>{false, true}));
    Fill(u"V");
    EXPECT_EQ(fields.ListResult, Rows());
    EXPECT_EQ(fields.AnzTreffer, u"0");
    EXPECT_EQ(Listed(2), (std::vector<bool>{false, false}));
}

TEST_F(RegisterListFill, ChangesNothingOfAnEntryButItsMark) {
    RegisterEntry expected = WithAll();
    LinesFor(u"ATMGRVC3FN", {expected});
    expected.Listed = true;
    EXPECT_EQ(state.Register(1), expected);
    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_EQ(Order(state, 3), (std::vector<int>{1, 2, 3}));
}

TEST_F(RegisterListFill, AFullRegisterGivesALineForEachPropertyOfEach) {
    state = RegisterOf({});
    for (int place = 1; place <= RegisterPlaces; ++place) {
        state.Register(place) = WithAll();
    }
    SetCount(state, RegisterPlaces);
    Fill(u"ATMGRVC3");
    EXPECT_EQ(fields.ListResult.size(), 6U * RegisterPlaces);
    EXPECT_EQ(fields.AnzTreffer, u"12000");
    EXPECT_EQ(Listed(RegisterPlaces), std::vector<bool>(RegisterPlaces, true));
}

TEST(RegisterListFields, BeforeTheFirstFillTheHitCountIsADash) {
    const RegisterListFields fields;
    EXPECT_EQ(fields.AnzTreffer, u"-");
    EXPECT_EQ(fields.ListResult, Rows());
    EXPECT_FALSE(fields.Open);
    for (const bool ticked : fields.chkFi) {
        EXPECT_FALSE(ticked);
    }
}

}  // namespace
}  // namespace norvik::test
