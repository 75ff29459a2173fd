#include "formats/vcard/vcardkind.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

NumberKind KindOf(std::string_view line) {
    return NumberKindOf(SplitVCardProperty(line).value());
}

TEST(NumberKind, IsToldByTheTypes) {
    EXPECT_EQ(KindOf("TEL:1"), NumberKind::Unknown);
    EXPECT_EQ(KindOf("TEL;TYPE=main:1"), NumberKind::Unknown);
    EXPECT_EQ(KindOf("TEL;HOME;VOICE:1"), NumberKind::Home);
    EXPECT_EQ(KindOf("TEL;type=WORK;type=pref:1"), NumberKind::Work);
    EXPECT_EQ(KindOf("TEL;TYPE=\"work,cell\":1"), NumberKind::Mobile);
    EXPECT_EQ(KindOf("TEL;TYPE=cell,home:1"), NumberKind::Mobile);
    EXPECT_EQ(KindOf("TEL;TYPE=IPHONE:1"), NumberKind::Mobile);
    EXPECT_EQ(KindOf("TEL;CAR:1"), NumberKind::Mobile);
    EXPECT_EQ(KindOf("TEL;FAX;WORK:1"), NumberKind::Fax);
    EXPECT_EQ(KindOf("TEL;TYPE=WORK;X-NOTE=home:1"), NumberKind::Work);
}

TEST(NumberKind, IsToldByALabel) {
    EXPECT_EQ(NumberKindOf("_$!<Mobile>!$_"), NumberKind::Mobile);
    EXPECT_EQ(NumberKindOf("_$!<HomeFAX>!$_"), NumberKind::Fax);
    EXPECT_EQ(NumberKindOf("Arbeit"), NumberKind::Work);
    EXPECT_EQ(NumberKindOf("B\xC3\xBCro"), NumberKind::Work);
    EXPECT_EQ(NumberKindOf("Privat"), NumberKind::Home);
    EXPECT_EQ(NumberKindOf("Ferienhaus"), NumberKind::Unknown);
}

TEST(NumberKind, IsToldByATypeOfTheUsersOwn) {
    EXPECT_EQ(KindOf("TEL;X-CUSTOM(CHARSET=UTF-8,ENCODING=QUOTED-PRINTABLE,=42=C3=BC=72=6F):1"),
              NumberKind::Work);
    EXPECT_EQ(KindOf("TEL;X-CUSTOM(Laube):1"), NumberKind::Unknown);
}

}  // namespace
}  // namespace norvik::test
