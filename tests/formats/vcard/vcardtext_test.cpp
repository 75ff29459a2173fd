#include "formats/vcard/vcardtext.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

SimplifiedText VCardText(std::string_view bytes, VCardCharset charset) {
    SimplifiedText text;
    AssignVCardText(text, bytes, charset);
    return text;
}

TEST(VCardText, IsReadByItsCharacterSet) {
    EXPECT_EQ(VCardText("M\xC3\xBCller", VCardCharset::Undeclared).Value, u"Müller");
    EXPECT_EQ(VCardText("M\xFCller \x80", VCardCharset::Undeclared).Value, u"Müller €");
    EXPECT_EQ(VCardText("M\xFCller", VCardCharset::Utf8).Value, u"M?ller");
    EXPECT_EQ(VCardText("\xC3\xBC", VCardCharset::Windows1252).Value, u"Ã¼");
    EXPECT_EQ(VCardText("\xA4\xA6\xA8\xB4\xB8\xBC\xBD\xBE\xFC", VCardCharset::Latin9).Value,
              u"€ŠšŽžŒœŸü");
}

TEST(VCardText, TellsWhatWasReplaced) {
    const SimplifiedText spelled = VCardText("\xC5\x81ukasz \xF0\x9F\x98\x80", VCardCharset::Utf8);
    EXPECT_EQ(spelled.Value, u"Lukasz ?");
    EXPECT_TRUE(spelled.Replaced);
    EXPECT_FALSE(VCardText("u\xCC\x88", VCardCharset::Utf8).Replaced);
    EXPECT_FALSE(VCardText("abc", VCardCharset::Utf8).Replaced);
}

TEST(VCardText, IsTidy) {
    EXPECT_EQ(VCardText(" a \r\n\r\n b\t\tc \n", VCardCharset::Undeclared).Value, u"a\nb c");
    EXPECT_EQ(VCardText("a\xC2\xA0\xC2\x81\xC3\xBC", VCardCharset::Undeclared).Value, u"a ü");
    EXPECT_EQ(VCardLine("a\nb\xC3\xBC\n", VCardCharset::Undeclared).Value, u"a bü");
    EXPECT_EQ(VCardText(" \n ", VCardCharset::Undeclared).Value, u"");
}

TEST(VCardNumberText, HasTheDigitsOfAnyScript) {
    EXPECT_EQ(VCardNumberText("\xD9\xA0\xDB\xB1\xEF\xBC\x92 \xEF\xBC\x8B\xE2\x80\x93\xE2\x80\x89"
                              "7",
                              VCardCharset::Undeclared)
                  .Value,
              u"012 +- 7");
    EXPECT_EQ(VCardNumberText("\xE2\x80\xAD+49 1\xE2\x80\xAC", VCardCharset::Undeclared).Value,
              u"+49 1");
    EXPECT_EQ(VCardNumberText("0 4", VCardCharset::Undeclared).Value, u"0 4");
}

TEST(VCardCharsetOf, KnowsTheUsualNames) {
    EXPECT_EQ(VCardCharsetOf("utf-8"), VCardCharset::Utf8);
    EXPECT_EQ(VCardCharsetOf("ISO-8859-1"), VCardCharset::Windows1252);
    EXPECT_EQ(VCardCharsetOf("Windows-1252"), VCardCharset::Windows1252);
    EXPECT_EQ(VCardCharsetOf("ISO-8859-15"), VCardCharset::Latin9);
    EXPECT_EQ(VCardCharsetOf("Shift_JIS"), VCardCharset::Undeclared);
    EXPECT_EQ(VCardCharsetOf(""), VCardCharset::Undeclared);
}

}  // namespace
}  // namespace norvik::test
