#include "base/simplify.h"

#include "base/windows1252.h"

#include <gtest/gtest.h>

#include <limits>

namespace norvik::test {
namespace {

void ExpectKept(std::u32string_view points, TextView text) {
    const SimplifiedText simplified = Simplify(points);
    EXPECT_EQ(simplified.Value, text);
    EXPECT_FALSE(simplified.Replaced) << testing::PrintToString(Text(text));
}

void ExpectReplaced(std::u32string_view points, TextView text) {
    const SimplifiedText simplified = Simplify(points);
    EXPECT_EQ(simplified.Value, text);
    EXPECT_TRUE(simplified.Replaced) << testing::PrintToString(Text(text));
}

TEST(Simplify, LeavesWhatWindows1252Has) {
    ExpectKept(U"", u"");
    for (unsigned byte = 0; byte <= std::numeric_limits<Byte>::max(); ++byte) {
        const char16_t character = CharacterOf(static_cast<Byte>(byte));
        ExpectKept(std::u32string(2, character), Text(2, character));
    }
    ExpectKept(U"Übergrößenträger „Ÿ“ \u00A01\u00AD2 \u0081",
               u"Übergrößenträger „Ÿ“ \u00A01\u00AD2 \u0081");
}

TEST(Simplify, ComposesALetterWithItsAccent) {
    ExpectKept(U"Mu\u0308ller, Rene\u0301", u"Müller, René");
    ExpectKept(U"A\u030A C\u0327 n\u0303 S\u030C y\u0308 Y\u0308 e\u0300 o\u0302",
               u"Å Ç ñ Š ÿ Ÿ è ô");
    // The same characters under another code.
    ExpectKept(U"\u212B \u212A \u1FEF \u0387 e\u0341", u"Å K ` · é");
}

TEST(Simplify, DropsTheAccentsThatTheLetterCannotHave) {
    ExpectReplaced(U"l\u0301x", u"lx");
    ExpectReplaced(U"u\u0308\u0304", u"ü");
    ExpectReplaced(U"u\u0304\u0308", u"ü");
    ExpectReplaced(U"\u1ECD\u0308", u"ö");  // a dot below, composed already
    ExpectReplaced(U"\u00E4\u0323", u"ä");
    ExpectReplaced(U"\u01D6 \u1EBF \u01DF \u1E09", u"ü ê ä ç");
    ExpectReplaced(U"c\u0301\u0327", u"ç");
    ExpectReplaced(U"1\uFE0F\u20E3", u"1");  // a key
}

TEST(Simplify, AnAccentWithoutALetterIsNotKnown) {
    ExpectReplaced(U"\u0308a", u"?a");
    ExpectReplaced(U"a\n\u0308", u"a\n?");
}

TEST(Simplify, SpellsLettersWithoutTheirMarks) {
    ExpectReplaced(U"Łódź, Wałęsa, Dvořák, Erdoğan", u"Lódz, Walesa, Dvorák, Erdogan");
    ExpectReplaced(U"Đorđe ćevapčići Ħal ıŋŦ őű ŉ", u"Dorde cevapcici Hal inT ou ’n");
    ExpectReplaced(U"Nguyễn Thị, Ștefan, Ḥaǆi", u"Nguyên Thi, Stefan, Hadži");
    ExpectReplaced(U"GROẞE STRAẞE", u"GROSSE STRASSE");
    ExpectReplaced(U"ﬁx ſ ĳ Ⅳ ⁴ ⅔ № ㎏ ㏂", u"fix s ij IV 4 2/3 No kg a.m.");
}

TEST(Simplify, SpellsSignsThatLookAlike) {
    ExpectReplaced(U"a\u2010b\u2011c\u2212d\u2012e\u2015f", u"a-b-c-d–e—f");
    ExpectReplaced(U"1\u202F2\u20093\u30004\u2028", u"1 2 3 4 ");
    ExpectReplaced(U"5\u20326\u2033 \u02BCa \u2044", u"5'6'' ’a /");
    ExpectReplaced(U"０４９（３０）／Ａｂ", u"049(30)/Ab");
    ExpectReplaced(U"𝓐𝟙ⓐ", u"A1a");
}

TEST(Simplify, MakesNothingThatDividesALine) {
    ExpectReplaced(U"24\u2033 \uFF02a\uFF02 \uFF1B\uFE54\uFE14 \u037E", u"24'' ''a'' ,,, ?");
}

TEST(Simplify, DropsWhatShowsNothing) {
    ExpectKept(U"\uFEFF030\u200B/\u200E12\u200F3\u20604\u2063", u"030/1234");
    ExpectKept(U"a\u200Du\uFE0F\u0308", u"aü");
}

TEST(Simplify, EverythingElseIsAQuestionMarkEach) {
    ExpectReplaced(U"Ελένη Борис 日本 한", u"????? ????? ?? ?");
    ExpectReplaced(U"\u1112\u1161\u11AB", u"?");  // one Korean syllable, taken apart
    ExpectReplaced(U"й й", u"? ?");               // composed or not
    ExpectReplaced(U"❤\uFE0F \U0001F44D\U0001F3FD \U0001F468\u200D\U0001F469", u"? ? ??");
    ExpectReplaced(U"\u0080 \u0378 \uFFFD \U0010FFFF", u"? ? ? ?");
    ExpectReplaced(std::u32string{0xD800, 'a', 0x110000, 0xFFFFFFFF}, u"?a??");
}

TEST(Simplify, GivesNothingOutsideTheRepertoireWhateverComes) {
    constexpr char32_t WithSpellings = 0x20000;  // beyond them only some are looked at
    constexpr char32_t Stride = 0x41;
    for (char32_t point = 0; point < 0x110000; point += point < WithSpellings ? 1 : Stride) {
        const SimplifiedText simplified = Simplify(std::u32string{U'u', point});
        bool fits = !simplified.Value.empty();
        for (const char16_t character : simplified.Value) {
            const bool divides = Contains(u";\"\r\n\t", {&character, 1});
            fits = fits && ByteOf(character) && (!divides || character == point);
        }
        ASSERT_TRUE(fits) << std::hex << static_cast<std::uint32_t>(point);
    }
}

TEST(SimplifyUtf8, ReadsTheCodePoints) {
    EXPECT_EQ(SimplifyUtf8(u8"Mu\u0308ller ł€").Value, u"Müller l€");
    EXPECT_FALSE(SimplifyUtf8(u8"Mu\u0308ller €").Replaced);
    EXPECT_EQ(SimplifyUtf8(u8"").Value, u"");
}

TEST(SimplifyUtf8, AByteThatFitsNowhereIsAQuestionMark) {
    const std::u8string bytes{u8'M', 0xFC, u8'l', 0xC3, 0xE2, 0x82};
    EXPECT_EQ(SimplifyUtf8(bytes).Value, u"M?l???");
    EXPECT_TRUE(SimplifyUtf8(bytes).Replaced);
}

}  // namespace
}  // namespace norvik::test
