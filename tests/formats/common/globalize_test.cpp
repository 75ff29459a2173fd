#include "formats/common/globalize.h"

#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using enum GlobalizeMode;
using testing::ElementsAre;
using testing::IsEmpty;

/// Country 49, area 30.
Settings Berlin() {
    Settings settings;
    settings.InternationalPrefix = u"0049";
    settings.AreaPrefix = u"030";
    return settings;
}

/// The converted number, where no message is expected.
Text Quiet(TextView number, GlobalizeMode mode) {
    ScriptedDesktop desktop;
    Text result = Globalize(number, mode, Berlin(), desktop);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    return result;
}

// Cleaning

TEST(Globalize, CleansANumberOfAnotherProgram) {
    EXPECT_EQ(Quiet(u"0049 (30) 123-456/7", CleanForTelephone), u"0049(30)123-4567");
}

TEST(Globalize, KeepsTheInternalMarkInFrontOnly) {
    EXPECT_EQ(Quiet(u"i12", CleanForTelephone), u"i12");
    EXPECT_EQ(Quiet(u"1i2", CleanForTelephone), u"12");
    EXPECT_EQ(Quiet(u"ii2", CleanForTelephone), u"i2");
    EXPECT_EQ(Quiet(u"I12", CleanForTelephone), u"12");
}

TEST(Globalize, BlanksAroundTheNumberDoNotHideItsFirstCharacter) {
    EXPECT_EQ(Quiet(u"   i12  ", CleanForTelephone), u"i12");
    EXPECT_EQ(Quiet(u"  +491  ", Clean), u"+491");
}

TEST(Globalize, AForeignCharacterInFrontHidesTheFirstOne) {
    EXPECT_EQ(Quiet(u"/i12", CleanForTelephone), u"12");
    EXPECT_EQ(Quiet(u"\ti12", CleanForTelephone), u"12");
    EXPECT_EQ(Quiet(u"(+49)30", Clean), u"4930");
}

TEST(Globalize, KeepsEveryCharacterThatATelephoneDials) {
    EXPECT_EQ(Quiet(u"i*#0123456789A()-pw", CleanForTelephone), u"i*#0123456789A()-pw");
    EXPECT_EQ(Quiet(u"**61", CleanForTelephone), u"**61");
}

TEST(Globalize, DropsAllOtherCharacters) {
    EXPECT_EQ(Quiet(u"+4.9,3/0 a B P W\u00E4\u00FF1", CleanForTelephone), u"49301");
    EXPECT_EQ(Quiet(u"abc", CleanForTelephone), u"");
    EXPECT_EQ(Quiet(u"", CleanForTelephone), u"");
    EXPECT_EQ(Quiet(u"   ", CleanForTelephone), u"");
}

TEST(Globalize, TheOtherModesKeepDigitsPausesAndALeadingPlus) {
    EXPECT_EQ(Quiet(u"+49(30)12-3*4#5A6i7p8w9", Clean), u"+49301234567p8w9");
    EXPECT_EQ(Quiet(u"i12", Clean), u"12");
    EXPECT_EQ(Quiet(u"1+2", Clean), u"12");
}

TEST(Globalize, OfAllCharactersInsideANumberOnlyThoseAreKept) {
    Text all = u"1";
    for (int byte = 0; byte <= 255; ++byte) {
        all.push_back(CharacterOf(static_cast<Byte>(byte)));
    }
    EXPECT_EQ(Quiet(all + u"1", CleanForTelephone), u"1#()*-0123456789Apw1");
    EXPECT_EQ(Quiet(all + u"1", Clean), u"10123456789pw1");
}

TEST(Globalize, CleaningAddsNoPrefix) {
    EXPECT_EQ(Quiet(u"2312510", CleanForTelephone), u"2312510");
    EXPECT_EQ(Quiet(u"2312510", Clean), u"2312510");
}

// The region prefix

TEST(Globalize, PutsTheRegionInFrontOfALocalNumber) {
    EXPECT_EQ(Quiet(u"231 25-10", AddArea), u"0302312510");
    EXPECT_EQ(Quiet(u"p1", AddArea), u"030p1");
}

TEST(Globalize, ANumberWithAPrefixGetsNoRegion) {
    EXPECT_EQ(Quiet(u"040 66969", AddArea), u"04066969");
    EXPECT_EQ(Quiet(u"0049 40", AddArea), u"004940");
    EXPECT_EQ(Quiet(u"+49 40", AddArea), u"+4940");
}

TEST(Globalize, AnEmptyNumberGetsTheRegionToo) {
    EXPECT_EQ(Quiet(u"", AddArea), u"030");
}

// The country prefix

TEST(Globalize, TheCountryTakesThePlaceOfTheTrunkZero) {
    EXPECT_EQ(Quiet(u"040 66969", International), u"00494066969");
}

TEST(Globalize, ALocalNumberGetsRegionAndCountry) {
    EXPECT_EQ(Quiet(u"2312510", International), u"0049302312510");
}

TEST(Globalize, APlusBecomesTwoZeros) {
    EXPECT_EQ(Quiet(u"+43 1 5051", International), u"004315051");
}

TEST(Globalize, AnInternationalNumberStays) {
    EXPECT_EQ(Quiet(u"0043 1 5051", International), u"004315051");
}

TEST(Globalize, APlusAndAZeroBecomeThreeZerosWithoutAMessage) {
    EXPECT_EQ(Quiet(u"+030 1", International), u"000301");
}

TEST(Globalize, WithoutSettingsTheFirstDigitIsStillDropped) {
    ScriptedDesktop desktop;
    Settings none;
    EXPECT_EQ(Globalize(u"123", International, none, desktop), u"23");
    EXPECT_EQ(Globalize(u"", International, none, desktop), u"");
    EXPECT_THAT(desktop.Transcript, IsEmpty());
}

// The plus

TEST(Globalize, TwoLeadingZerosBecomeAPlus) {
    EXPECT_EQ(Quiet(u"040 66969", InternationalPlus), u"+494066969");
    EXPECT_EQ(Quiet(u"2312510", InternationalPlus), u"+49302312510");
    EXPECT_EQ(Quiet(u"0043 1", InternationalPlus), u"+431");
    EXPECT_EQ(Quiet(u"+43 1", InternationalPlus), u"+431");
}

// The report

TEST(Globalize, ReportsAPlusAndAZeroInEveryModeThatKeepsThem) {
    for (const GlobalizeMode mode : {Clean, AddArea, InternationalPlus}) {
        ScriptedDesktop desktop;
        EXPECT_EQ(Globalize(u"+030 1", mode, Berlin(), desktop), u"+0301");
        EXPECT_THAT(desktop.Transcript, ElementsAre(OkBox(u"Fehler in Rufnummer: +0301",
                                                          u"Norvik:Globalize", "Information")));
    }
}

TEST(Globalize, ReportsThreeLeadingZerosAsAPlusAndAZero) {
    ScriptedDesktop desktop;
    EXPECT_EQ(Globalize(u"000 301", InternationalPlus, Berlin(), desktop), u"+0301");
    EXPECT_THAT(desktop.Transcript, ElementsAre(OkBox(u"Fehler in Rufnummer: +0301",
                                                      u"Norvik:Globalize", "Information")));
}

TEST(Globalize, TheTelephonesModeDropsThePlusAndReportsNothing) {
    EXPECT_EQ(Quiet(u"+030 1", CleanForTelephone), u"0301");
}

}  // namespace

}  // namespace norvik::test
