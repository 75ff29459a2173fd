#include "formats/formattable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

TEST(Formats, HaveTheirWords) {
    EXPECT_THAT(SourceNames(), ElementsAre("195", "193", "175", "csv", "vcard"));
    EXPECT_EQ(SourceOfName("195"), FileFormat::Register195);
    EXPECT_EQ(SourceOfName("193"), FileFormat::Register193);
    EXPECT_EQ(SourceOfName("175"), FileFormat::Phonebook175);
    EXPECT_EQ(SourceOfName("csv"), FileFormat::Csv);
    EXPECT_EQ(SourceOfName("vcard"), FileFormat::VCard);
    EXPECT_EQ(SourceOfName("ip286"), std::nullopt);
    EXPECT_THAT(TargetNames(),
                ElementsAre("195", "193", "175", "csv", "ip286", "simsurf", "gebuehren", "vcard"));
    EXPECT_EQ(TargetOfName("195"), FileFormat::Register195);
    EXPECT_EQ(TargetOfName("193"), FileFormat::Register193);
    EXPECT_EQ(TargetOfName("175"), FileFormat::Phonebook175);
    EXPECT_EQ(TargetOfName("csv"), FileFormat::Csv);
    EXPECT_EQ(TargetOfName("ip286"), FileFormat::Ip286);
    EXPECT_EQ(TargetOfName("simsurf"), FileFormat::MobileExport);
    EXPECT_EQ(TargetOfName("gebuehren"), FileFormat::ChargeStatement);
    EXPECT_EQ(TargetOfName("19"), std::nullopt);
    EXPECT_EQ(TargetOfName(""), std::nullopt);
}

TEST(Formats, OfATargetGiveTheWordBack) {
    ASSERT_EQ(TargetFormats().size(), TargetNames().size());
    for (const FileFormat format : TargetFormats()) {
        EXPECT_EQ(TargetOfName(RowOf(format).Word), format);
    }
    EXPECT_EQ(RowOf(FileFormat::MobileExport).Word, "simsurf");
}

TEST(Formats, HaveTheirEndingsInAnyCase) {
    EXPECT_EQ(SourceOfEnding("a.t9t"), FileFormat::Register195);
    EXPECT_EQ(SourceOfEnding("a.b/c.PBO"), FileFormat::Phonebook175);
    EXPECT_EQ(SourceOfEnding("x.t9t.Csv"), FileFormat::Csv);
    EXPECT_EQ(SourceOfEnding("\xFF\xFE.t9A"), FileFormat::CallList);
    EXPECT_EQ(SourceOfEnding("kontakte.VCF"), FileFormat::VCard);
    EXPECT_EQ(SourceOfEnding("a.pbb"), std::nullopt);
    EXPECT_EQ(SourceOfEnding("a.t9t/b"), std::nullopt);
    EXPECT_EQ(SourceOfEnding("at9t"), std::nullopt);
    EXPECT_EQ(SourceOfEnding("-"), std::nullopt);
    EXPECT_EQ(TargetOfEnding("a.t9t"), FileFormat::Register195);
    EXPECT_EQ(TargetOfEnding("a.pbo"), FileFormat::Phonebook175);
    EXPECT_EQ(TargetOfEnding("a.csv"), FileFormat::Csv);
    EXPECT_EQ(TargetOfEnding("a.PBB"), FileFormat::MobileExport);
    EXPECT_EQ(TargetOfEnding("a.geb"), FileFormat::ChargeStatement);
    EXPECT_EQ(TargetOfEnding("a.t9a"), std::nullopt);
}

}  // namespace
}  // namespace norvik::test
