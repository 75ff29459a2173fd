#include "base/utf16.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

TEST(Utf16, GoesToUtf8AndBack) {
    const std::u16string text = u"a\u00E4\u20AC\U0001F600\uFFFFz";
    const std::string utf8 = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBFz";
    EXPECT_EQ(Utf8OfUtf16(text), utf8);
    EXPECT_EQ(Utf16OfUtf8(utf8), text);
    EXPECT_EQ(Utf8OfUtf16(u""), "");
    EXPECT_EQ(Utf16OfUtf8(""), u"");
    EXPECT_EQ(Utf16OfUtf8(std::string("a\0b", 3)), std::u16string(u"a\0b", 3));
}

TEST(Utf16, AHalfThatStandsAloneComesBack) {
    const std::u16string halves = {u'a', 0xD800, u'b', 0xDC00, 0xD83D, 0xD83D, 0xDE00, 0xDFFF};
    EXPECT_EQ(Utf8OfUtf16(halves), "a\xED\xA0\x80"
                                   "b\xED\xB0\x80\xED\xA0\xBD\xF0\x9F\x98\x80\xED\xBF\xBF");
    EXPECT_EQ(Utf16OfUtf8(Utf8OfUtf16(halves)), halves);
}

TEST(Utf16, EveryByteThatDoesNotFitIsReplaced) {
    EXPECT_EQ(Utf16OfUtf8("a\xFF"
                          "b\xC3"),
              u"a\uFFFDb\uFFFD");
    EXPECT_EQ(Utf16OfUtf8("\xED\xA0"), u"\uFFFD\uFFFD");
    EXPECT_EQ(Utf16OfUtf8("\xED\xA0\xC0"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(Utf16OfUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(Utf16OfUtf8("\xC0\xAF"), u"\uFFFD\uFFFD");
}

}  // namespace
}  // namespace norvik::test
