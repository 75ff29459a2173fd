#include "console/formats.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

TEST(Formats, HaveTheirWords) {
    EXPECT_THAT(SourceNames(), ElementsAre("195", "193", "175", "csv"));
    EXPECT_EQ(SourceOfName("195"), SourceFormat::RegisterFile);
    EXPECT_EQ(SourceOfName("193"), SourceFormat::RegisterFile);
    EXPECT_EQ(SourceOfName("175"), SourceFormat::Phonebook175);
    EXPECT_EQ(SourceOfName("csv"), SourceFormat::Csv);
    EXPECT_EQ(SourceOfName("ip286"), std::nullopt);
    EXPECT_THAT(TargetNames(),
                ElementsAre("195", "193", "175", "csv", "ip286", "simsurf", "gebuehren"));
    EXPECT_EQ(TargetOfName("195"), TargetFormat::Register195);
    EXPECT_EQ(TargetOfName("193"), TargetFormat::Register193);
    EXPECT_EQ(TargetOfName("175"), TargetFormat::Phonebook175);
    EXPECT_EQ(TargetOfName("csv"), TargetFormat::Csv);
    EXPECT_EQ(TargetOfName("ip286"), TargetFormat::Ip286);
    EXPECT_EQ(TargetOfName("simsurf"), TargetFormat::MobileExport);
    EXPECT_EQ(TargetOfName("gebuehren"), TargetFormat::ChargeStatement);
    EXPECT_EQ(TargetOfName("19"), std::nullopt);
    EXPECT_EQ(TargetOfName(""), std::nullopt);
}

TEST(Formats, OfATargetGiveTheWordBack) {
    ASSERT_EQ(TargetFormats().size(), TargetNames().size());
    for (const TargetFormat format : TargetFormats()) {
        EXPECT_EQ(TargetOfName(NameOf(format)), format);
    }
    EXPECT_EQ(NameOf(TargetFormat::MobileExport), "simsurf");
}

TEST(Formats, HaveTheirEndingsInAnyCase) {
    EXPECT_EQ(SourceOfEnding("a.t9t"), SourceFormat::RegisterFile);
    EXPECT_EQ(SourceOfEnding("a.b/c.PBO"), SourceFormat::Phonebook175);
    EXPECT_EQ(SourceOfEnding("x.t9t.Csv"), SourceFormat::Csv);
    EXPECT_EQ(SourceOfEnding("\xFF\xFE.t9A"), SourceFormat::CallList);
    EXPECT_EQ(SourceOfEnding("a.pbb"), std::nullopt);
    EXPECT_EQ(SourceOfEnding("a.t9t/b"), std::nullopt);
    EXPECT_EQ(SourceOfEnding("at9t"), std::nullopt);
    EXPECT_EQ(SourceOfEnding("-"), std::nullopt);
    EXPECT_EQ(TargetOfEnding("a.t9t"), TargetFormat::Register195);
    EXPECT_EQ(TargetOfEnding("a.pbo"), TargetFormat::Phonebook175);
    EXPECT_EQ(TargetOfEnding("a.csv"), TargetFormat::Csv);
    EXPECT_EQ(TargetOfEnding("a.PBB"), TargetFormat::MobileExport);
    EXPECT_EQ(TargetOfEnding("a.geb"), TargetFormat::ChargeStatement);
    EXPECT_EQ(TargetOfEnding("a.t9a"), std::nullopt);
}

}  // namespace
}  // namespace norvik::test
