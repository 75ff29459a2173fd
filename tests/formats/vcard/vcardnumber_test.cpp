#include "formats/vcard/vcardnumber.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

Text Number(TextView number, TextView country = u"49") {
    return Dialled(number, country).Number;
}

TEST(Dialled, TurnsAPlusIntoWhatIsDialled) {
    EXPECT_EQ(Number(u"+49 40 123"), u"040123");
    EXPECT_EQ(Number(u"+49 (0)40 123"), u"040123");
    EXPECT_EQ(Number(u"+49 ( 0 ) 40/12-3"), u"040123");
    EXPECT_EQ(Number(u"+49 040 123"), u"040123");
    EXPECT_EQ(Number(u"(+49) 40 123"), u"040123");
    EXPECT_EQ(Number(u"+43 (0)1 234"), u"00431234");
    EXPECT_EQ(Number(u"+39 06 12"), u"00390612");
    EXPECT_EQ(Number(u"0049 (0)40 1"), u"0049401");
    EXPECT_EQ(Number(u"*31#+49 171"), u"*31#0171");
    EXPECT_EQ(Number(u"0+49 171"), u"00171");
    EXPECT_EQ(Number(u"++49 1"), u"01");
}

TEST(Dialled, IsTheFirstOfSeveralNumbers) {
    for (const TextView numbers :
         {u"040 123 / 0171 2", u"040/123 ::: 040 2", u"040 123 // 040 2", u"040/123, 0171/22",
          u"040123; +49 171", u"040/123 oder 0171/456", u"040 123 Fax 556", u"040 123 +49 171"}) {
        const DialledNumber dialled = Dialled(numbers, u"49");
        EXPECT_EQ(dialled.Number, u"040123") << numbers.size();
        EXPECT_TRUE(dialled.LeftOut);
    }
    EXPECT_EQ(Number(u"Tel.: 040 123"), u"040123");
    EXPECT_EQ(Number(u"040123, 1"), u"040123p1");
}

TEST(Dialled, WithoutACountryMakesZerosOfAPlus) {
    const DialledNumber dialled = Dialled(u"+49 40", u"");
    EXPECT_EQ(dialled.Number, u"004940");
    EXPECT_TRUE(dialled.PlusWithoutCountry);
    EXPECT_FALSE(Dialled(u"040", u"").PlusWithoutCountry);
    EXPECT_FALSE(Dialled(u"+43", u"49").PlusWithoutCountry);
}

TEST(Dialled, DropsWhatStandsBetweenDigits) {
    EXPECT_EQ(Number(u" 040/12-3.4 (5) "), u"04012345");
    EXPECT_EQ(Number(u"(0)40 1"), u"0401");
    EXPECT_EQ(Number(u"040 / 012 / 34"), u"04001234");
    EXPECT_EQ(Number(u"+49 / 040 / 12"), u"04012");
}

TEST(Dialled, KeepsCodesAndPauses) {
    EXPECT_EQ(Number(u"**61"), u"**61");
    EXPECT_EQ(Number(u"i12"), u"i12");
    EXPECT_EQ(Number(u"i*1"), u"i*1");
    EXPECT_EQ(Number(u"#31#040"), u"#31#040");
    EXPECT_EQ(Number(u"040,,1;2"), u"040pp1w2");
    EXPECT_EQ(Number(u"040p1W2pp3A4"), u"040p1w2pp3A4");
    EXPECT_EQ(Number(u"040;;1,;2;,3"), u"040ww1pw2wp3");
    EXPECT_EQ(Number(u",040,;"), u"040");
}

TEST(Dialled, LeavesExtensionsAndWordsOut) {
    for (const TextView number :
         {u"040 123 x7", u"040123X7", u"040 123 ext. 7", u"040 123 App.: 7", u"040 123;ext=7",
          u"tel:040-123;ext=7", u"Tel. 040 123", u"040 123 Mobil", u"040 123 + 124"}) {
        const DialledNumber dialled = Dialled(number, u"49");
        EXPECT_EQ(dialled.Number, u"040123");
        EXPECT_TRUE(dialled.LeftOut);
        EXPECT_FALSE(dialled.LettersAsDigits);
    }
    EXPECT_EQ(Number(u"112 Notruf"), u"112");
    EXPECT_EQ(Number(u"112 NOTRUF"), u"112");
    EXPECT_FALSE(Dialled(u"040 123", u"49").LeftOut);
}

TEST(Dialled, TakesAddressesApart) {
    EXPECT_EQ(Number(u"tel:+49-40-1"), u"0401");
    EXPECT_EQ(Number(u"TEL:%2B49%2040%ZZ1"), u"040");
    EXPECT_EQ(Number(u"callto:+491"), u"01");
    EXPECT_EQ(Number(u"tel:123;phone-context=+4940"), u"040123");
    EXPECT_EQ(Number(u"tel:123;phone-context=example.com;isub=9"), u"123");
}

TEST(Dialled, DialsNoDigitsOfAHost) {
    const DialledNumber dialled = Dialled(u"sip:+49-40-1@192.168.1.1;user=phone", u"49");
    EXPECT_EQ(dialled.Number, u"0401");
    EXPECT_TRUE(dialled.LeftOut);
    EXPECT_EQ(Number(u"sip:anna@192.168.1.1"), u"");
    EXPECT_EQ(Number(u"anna@example1.org"), u"");
    EXPECT_EQ(Number(u"040@1"), u"0401");
}

TEST(ShownNumber, IsNoAddress) {
    EXPECT_EQ(ShownNumber(u" tel:+49-40-1;ext=7"), u"+49-40-1");
    EXPECT_EQ(ShownNumber(u"TEL:%2B49%2040"), u"+49 40");
    EXPECT_EQ(ShownNumber(u"040 1 x7"), u"040 1 x7");
    EXPECT_EQ(ShownNumber(u"tel:%40a1"), u"tel:%40a1");  // "@a1" would be a host
}

TEST(Dialled, DialsLettersByTheirKeys) {
    const DialledNumber dialled = Dialled(u"0800-FLOWERS", u"49");
    EXPECT_EQ(dialled.Number, u"08003569377");
    EXPECT_TRUE(dialled.LettersAsDigits);
    EXPECT_EQ(Number(u"+49 800 flowers"), u"08003569377");
    EXPECT_EQ(Number(u"1-800-Go-Fedex"), u"18004633339");
    EXPECT_EQ(Number(u"01805 abc"), u"01805222");
    EXPECT_EQ(Number(u"0711-ABCDEF"), u"0711222333");
    EXPECT_EQ(Number(u"0800 1234567 kostenlos"), u"08001234567");
    EXPECT_EQ(Number(u"+1 (800) 555-CALL", u"49"), u"0018005552255");
    EXPECT_EQ(Number(u"+1 800 555 Call", u"49"), u"0018005552255");
    EXPECT_EQ(Number(u"+49 711 555-CALL"), u"07115552255");
}

TEST(Dialled, NeverCutsANumberAtLettersThatMayBelongToIt) {
    for (const TextView number :
         {u"555-call", u"0171 12345-Huber", u"0711abc", u"+49 40 12345678-ABCDEFG"}) {
        EXPECT_EQ(Number(number), u"") << number.size();
    }
    // Words and marks that tell what number it is.
    for (const TextView number :
         {u"0171 12345-MOBIL", u"0171-12345-Fax", u"0171 12345Privat", u"0171 12345-M",
          u"0171 12345-EG", u"0171 12345 Huber", u"0171 12345/Huber", u"0171 12345 (Huber)"}) {
        const DialledNumber dialled = Dialled(number, u"49");
        EXPECT_EQ(dialled.Number, u"017112345") << number.size();
        EXPECT_TRUE(dialled.LeftOut);
    }
    EXPECT_EQ(Number(u"040 1800 Mobil"), u"0401800");
    EXPECT_EQ(Number(u"0800 123 FAX"), u"0800123");
}

TEST(Dialled, NeedsADigit) {
    for (const TextView number : {u"", u"unbekannt", u"+", u"*#", u"FLOWERS", u"p", u"sip:anna"}) {
        EXPECT_EQ(Number(number), u"");
    }
}

TEST(OwnCountryCode, IsTakenFromTheSettings) {
    Settings settings;
    EXPECT_EQ(OwnCountryCode(settings), u"");
    settings.InternationalPrefix = u"00";
    EXPECT_EQ(OwnCountryCode(settings), u"");
    settings.InternationalPrefix = u"0049";
    EXPECT_EQ(OwnCountryCode(settings), u"49");
    settings.InternationalPrefix = u"00+49 ";
    EXPECT_EQ(OwnCountryCode(settings), u"49");
}

}  // namespace
}  // namespace norvik::test
