#include "console/printable.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

TEST(Printable, ShowsNoControlCharacter) {
    EXPECT_EQ(Printable(u"a\r\n\t\x1B\x7F\x0081\x009F"
                        u"b"),
              u"a???????b");
    EXPECT_EQ(Printable(u" ~\x00A0äÿ€"), u" ~\x00A0äÿ€");
    EXPECT_EQ(Printable(Text(1, u'\0')), u"?");
}

TEST(PrintablePath, ShowsAnyBytes) {
    EXPECT_EQ(PrintablePath(FilePath("gr\xC3\xBC\xC3\x9F/\xFF\x1B\xC5\x82.t9t")), u"grüß/???.t9t");
}

}  // namespace
}  // namespace norvik::test
