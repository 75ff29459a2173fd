#include "base/windows1252.h"

#include "base/runtimeerror.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <map>

namespace norvik::test {
namespace {

/// The characters of the bytes 0x80 to 0x9F, in their order.
constexpr TextView Specials = u"€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ";
/// The printable ones from 0xA1 on, behind the no-break space; 0xAD is the soft hyphen.
constexpr TextView Latin = u"¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ¶·¸¹º»¼½¾¿"
                           u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß"
                           u"àáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ";

std::map<char16_t, Byte> Repertoire() {
    std::map<char16_t, Byte> bytes;
    for (unsigned code = 0; code < 0x80; ++code) {
        bytes[static_cast<char16_t>(code)] = static_cast<Byte>(code);
    }
    for (std::size_t i = 0; i < Specials.size(); ++i) {
        bytes[Specials[i]] = static_cast<Byte>(0x80 + i);
    }
    bytes[u'\u00A0'] = 0xA0;
    for (std::size_t i = 0; i < Latin.size(); ++i) {
        bytes[Latin[i]] = static_cast<Byte>(0xA1 + i);
    }
    return bytes;
}

TEST(Windows1252, EveryByteHasItsOwnCharacter) {
    const std::map<char16_t, Byte> repertoire = Repertoire();
    ASSERT_EQ(repertoire.size(), 256U);
    for (const auto& [character, byte] : repertoire) {
        EXPECT_EQ(CharacterOf(byte), character) << int{byte};
    }
}

TEST(Windows1252, OnlyTheCharactersOfTheRepertoireHaveAByte) {
    const std::map<char16_t, Byte> repertoire = Repertoire();
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const auto found = repertoire.find(static_cast<char16_t>(code));
        const auto expected =
            found == repertoire.end() ? std::nullopt : std::optional<Byte>(found->second);
        ASSERT_EQ(ByteOf(static_cast<char16_t>(code)), expected) << code;
    }
}

TEST(Windows1252, TheFiveUndefinedBytesAreTheControlCharactersOfTheirCode) {
    const Bytes undefined = {0x81, 0x8D, 0x8F, 0x90, 0x9D};
    EXPECT_EQ(TextFromBytes(undefined), u"\u0081\u008D\u008F\u0090\u009D");
    EXPECT_EQ(BytesFromText(u"\u0081\u008D\u008F\u0090\u009D"), undefined);
}

TEST(TextFromBytes, ConvertsByteByByte) {
    const Bytes bytes = {'G', 'r', 0xFC, 0xDF, 'e', 0x00, 0x80, 0x96, '\n'};
    EXPECT_EQ(TextFromBytes(bytes), Text(u"Grüße\0€–\n", 9));
    EXPECT_EQ(TextFromBytes({}), u"");
}

TEST(BytesFromText, ConvertsCharacterByCharacter) {
    const Bytes bytes = {0xC4, 'r', 'g', 'e', 'r', ' ', 0x84, 'x', 0x93};
    EXPECT_EQ(BytesFromText(u"Ärger „x“"), bytes);
    EXPECT_EQ(BytesFromText(u""), Bytes());
}

TEST(BytesFromText, ACharacterOutsideTheRepertoireRaisesError5) {
    for (const TextView text : {u"Ж", u"abc\u0100", u"\u0080", u"\xD83D\xDE00", u"\uFFFD"}) {
        try {
            BytesFromText(text);
            ADD_FAILURE() << "nothing was raised";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::InvalidArgument);
        }
    }
}

TEST(AssignFromBytes, ReplacesTheText) {
    Text text = u"a longer text than the new one";
    AssignFromBytes(text, Raw("'b' 80"));
    EXPECT_EQ(text, u"b€");
    AssignFromBytes(text, {});
    EXPECT_EQ(text, u"");
}

TEST(AppendBytes, AppendsBehindWhatIsThere) {
    Bytes bytes;
    AppendBytes(bytes, u"");
    EXPECT_EQ(bytes, Bytes());
    AppendBytes(bytes, u"a€");
    AppendBytes(bytes, u"Ÿ");
    EXPECT_EQ(bytes, Raw("'a' 80 9F"));
    EXPECT_THROW(AppendBytes(bytes, u"\u0100"), RuntimeError);
}

}  // namespace
}  // namespace norvik::test
