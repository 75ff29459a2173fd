#include "formats/vcard/vcardproperty.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> PartsOf(std::string_view line) {
    const auto property = SplitVCardProperty(line);
    if (!property) {
        return {};
    }
    return {std::string(property->Group), std::string(property->Name),
            std::string(property->Parameters), std::string(property->Value)};
}

std::vector<std::string> ParametersOf(std::string_view text) {
    std::vector<std::string> all;
    VCardParameters parameters(text);
    while (const auto parameter = parameters.Next()) {
        all.push_back(std::string(parameter->Name) + "|" + std::string(parameter->Value));
    }
    return all;
}

TEST(SplitVCardProperty, FindsTheParts) {
    EXPECT_THAT(PartsOf("TEL:1"), ElementsAre("", "TEL", "", "1"));
    EXPECT_THAT(PartsOf("item1.tel ; TYPE=home:a:b"),
                ElementsAre("item1", "tel", " TYPE=home", "a:b"));
    EXPECT_THAT(PartsOf("TEL;X=\"a:b;c\";Y=d:1"), ElementsAre("", "TEL", "X=\"a:b;c\";Y=d", "1"));
    EXPECT_THAT(PartsOf("TEL;X=\"a:1"), ElementsAre("", "TEL", "X=\"a", "1"));
    EXPECT_THAT(PartsOf("N:"), ElementsAre("", "N", "", ""));
}

TEST(SplitVCardProperty, NeedsANameAndAColon) {
    for (const char* const line : {"", "abc", "TEL;CELL", ":1", ";X:1", "a.:1"}) {
        EXPECT_THAT(PartsOf(line), IsEmpty()) << line;
    }
}

TEST(VCardParameters, ComeOneByOne) {
    EXPECT_THAT(ParametersOf("TYPE=home,WORK;CELL; pref = 1;X=\"a,b;c\""),
                ElementsAre("TYPE|home", "TYPE|WORK", "|CELL", "pref|1", "X|a,b;c"));
    EXPECT_THAT(ParametersOf(";;TYPE="), ElementsAre("|", "|", "TYPE|"));
    EXPECT_THAT(ParametersOf(""), IsEmpty());
}

TEST(VCardNameOf, KnowsThemInAnyCase) {
    EXPECT_EQ(VCardNameOf("tel"), VCardName::Number);
    EXPECT_EQ(VCardNameOf("X-ABLabel"), VCardName::GroupLabel);
    EXPECT_EQ(VCardNameOf("PHOTO"), std::nullopt);
}

TEST(TransferOf, IsToldByAParameterOrABareWord) {
    const auto of = [](std::string_view parameters) {
        return TransferOf({.Group = {}, .Name = "N", .Parameters = parameters, .Value = {}});
    };
    EXPECT_EQ(of("encoding=quoted-printable"), VCardTransfer::QuotedPrintable);
    EXPECT_EQ(of("CHARSET=UTF-8;QUOTED-PRINTABLE"), VCardTransfer::QuotedPrintable);
    EXPECT_EQ(of("ENCODING=b"), VCardTransfer::Base64);
    EXPECT_EQ(of("BASE64"), VCardTransfer::Base64);
    EXPECT_EQ(of("ENCODING=8BIT"), VCardTransfer::Plain);
    EXPECT_EQ(of("B"), VCardTransfer::Plain);
    EXPECT_EQ(of("TYPE=base64"), VCardTransfer::Plain);
}

TEST(TransferredBytes, AreThoseThatWereEncoded) {
    std::string room;
    EXPECT_EQ(TransferredBytes("=4A=c3=B6=", VCardTransfer::QuotedPrintable, room), "J\xC3\xB6");
    EXPECT_EQ(TransferredBytes("=4=ZZ=4", VCardTransfer::QuotedPrintable, room), "=4=ZZ=4");
    EXPECT_EQ(TransferredBytes("QW5u YQ==", VCardTransfer::Base64, room), "Anna");
    EXPECT_EQ(TransferredBytes("=4A", VCardTransfer::Plain, room), "=4A");
}

TEST(TakeVCardPiece, EndsAtASeparatorThatIsNotEscaped) {
    std::string_view rest = "a\\;b;c;";
    EXPECT_EQ(TakeVCardPiece(rest, ';'), "a\\;b");
    EXPECT_EQ(TakeVCardPiece(rest, ';'), "c");
    EXPECT_EQ(TakeVCardPiece(rest, ';'), "");
    rest = "a\\";
    EXPECT_EQ(TakeVCardPiece(rest, ';'), "a\\");
    EXPECT_EQ(rest, "");
}

TEST(Unescaped, ReplacesWhatIsEscaped) {
    std::string room;
    EXPECT_EQ(Unescaped("a\\nb\\N\\,\\;\\:\\\\n", room), "a\nb\n,;:\\n");
    EXPECT_EQ(Unescaped("C:\\x\\", room), "C:\\x\\");
}

TEST(Bytes, AreComparedLoweredAndTrimmedByAscii) {
    EXPECT_TRUE(EqualsIgnoringCase("aZ-1", "Az-1"));
    EXPECT_FALSE(EqualsIgnoringCase("a", "ab"));
    EXPECT_TRUE(ContainsIgnoringCase("a,pReF", "PREF"));
    EXPECT_FALSE(ContainsIgnoringCase("pre", "PREF"));
    EXPECT_EQ(LoweredAscii("AbC\xC4"), "abc\xC4");
    EXPECT_EQ(TrimmedBytes(" \ta b\t "), "a b");
    EXPECT_EQ(TrimmedBytes(" \t"), "");
}

}  // namespace
}  // namespace norvik::test
