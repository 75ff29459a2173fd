#include "console/utf8.h"

#include "base/windows1252.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

TEST(ToUtf8, WritesOneTwoAndThreeBytes) {
    EXPECT_EQ(ToUtf8(u""), "");
    EXPECT_EQ(ToUtf8(u"Aä€"), "A\xC3\xA4\xE2\x82\xAC");
    EXPECT_EQ(ToUtf8(u"\x007F\x0080"), "\x7F\xC2\x80");
}

TEST(FromUtf8, ReadsEveryCharacterOfTheRepertoireBack) {
    for (int byte = 0; byte < 256; ++byte) {
        const Text text(2, CharacterOf(static_cast<Byte>(byte)));
        EXPECT_EQ(FromUtf8(ToUtf8(text)), text) << byte;
    }
    EXPECT_EQ(FromUtf8(""), u"");
    EXPECT_EQ(FromUtf8("A\xC3\xA4\xE2\x82\xACz"), u"Aä€z");
}

TEST(FromUtf8, RefusesWhatIsNoUtf8) {
    for (const char* const bytes :
         {"\x80", "\xBF", "\xE4", "a\xC3", "\xC3z", "\xC1\x81", "\xE2\x82", "\xE2\x82z",
          "\xE0\x83\xA4", "\xFF", "\xF0\x9F\x98\x80", "\xF8\x88\x80\x80\x80", "\xED\xA0\x80"}) {
        EXPECT_EQ(FromUtf8(bytes), std::nullopt) << bytes;
    }
}

TEST(FromUtf8, RefusesCharactersOutsideTheRepertoire) {
    EXPECT_EQ(FromUtf8("\xC4\x80"), std::nullopt);      // U+0100
    EXPECT_EQ(FromUtf8("\xE6\x97\xA5"), std::nullopt);  // U+65E5
}

TEST(Printable, ShowsNoControlCharacter) {
    EXPECT_EQ(Printable(u"a\r\n\t\x1B\x7F\x0081\x009F"
                        u"b"),
              u"a???????b");
    EXPECT_EQ(Printable(u" ~\x00A0äÿ€"), u" ~\x00A0äÿ€");
    EXPECT_EQ(Printable(Text(1, u'\0')), u"?");
}

TEST(PrintablePath, ShowsAnyBytes) {
    EXPECT_EQ(PrintablePath(PathOfArgument("gr\xC3\xBC\xC3\x9F/\xFF\x1B\xC5\x82.t9t")),
              u"grüß/???.t9t");
}

TEST(PathOfArgument, KeepsTheBytes) {
    EXPECT_EQ(PathOfArgument("\xFF \xC3\xBC").native(), "\xFF \xC3\xBC");
}

}  // namespace
}  // namespace norvik::test
