#include "formats/common/transliterate.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

TEST(Transliterate, EachUmlautBecomesItsTwoLetters) {
    EXPECT_EQ(Transliterate(u"ä"), u"ae");
    EXPECT_EQ(Transliterate(u"ö"), u"oe");
    EXPECT_EQ(Transliterate(u"ü"), u"ue");
    EXPECT_EQ(Transliterate(u"Ä"), u"Ae");
    EXPECT_EQ(Transliterate(u"Ö"), u"Oe");
    EXPECT_EQ(Transliterate(u"Ü"), u"Ue");
}

TEST(Transliterate, TheSharpSGivesSzAndNotSs) {
    EXPECT_EQ(Transliterate(u"ß"), u"sz");
}

TEST(Transliterate, TheNameStrasseIsExportedWithSz) {
    EXPECT_EQ(Transliterate(u"Straße"), u"Strasze");
}

TEST(Transliterate, CapitalUmlautsKeepTheirFirstLetterCapital) {
    EXPECT_EQ(Transliterate(u"ÄÖÜ"), u"AeOeUe");
}

TEST(Transliterate, EveryOccurrenceIsReplaced) {
    EXPECT_EQ(Transliterate(u"Müller und Süßmüller, Öl-Ähre"),
              u"Mueller und Sueszmueller, Oel-Aehre");
    EXPECT_EQ(Transliterate(u"üüü"), u"ueueue");
}

TEST(Transliterate, WhatWasPutInIsNotReplacedAgain) {
    EXPECT_EQ(Transliterate(u"äeöuszü"), u"aeeoeuszue");
}

TEST(Transliterate, OtherCharactersAreUnchanged) {
    Text others;
    for (char16_t c = 1; c < 0x100; ++c) {
        if (TextView(u"äöüßÄÖÜ").find(c) == TextView::npos) {
            others.push_back(c);
        }
    }
    others += u"€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ";
    EXPECT_EQ(Transliterate(others), others);
}

TEST(Transliterate, AnEmptyTextStaysEmpty) {
    EXPECT_EQ(Transliterate(u""), u"");
}

}  // namespace
}  // namespace norvik::test
