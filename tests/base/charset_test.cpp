#include "base/charset.h"

#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

/// How a file is read that is not told what it is.
bool IsUtf8(std::string_view file, Charset charset = Charset::Automatic) {
    return RecognizeText(Bytes(file.begin(), file.end()), charset).IsUtf8;
}

TEST(RecognizeText, Utf8BeyondAsciiIsUtf8) {
    EXPECT_TRUE(IsUtf8("\xC3\xA4"));
    EXPECT_TRUE(IsUtf8("Name;Tel\r\nM\xC3\xBCller;1\r\n"));
    EXPECT_TRUE(IsUtf8("a\xE2\x82\xAC"
                       "b\xF0\x9F\x98\x80\xC5\x82"));
}

TEST(RecognizeText, EverythingElseIsWindows1252) {
    EXPECT_FALSE(IsUtf8(""));
    EXPECT_FALSE(IsUtf8("Name;Tel\r\nMeier;1\r\n"));  // the same in both
    EXPECT_FALSE(IsUtf8("M\xFCller"));
    EXPECT_FALSE(IsUtf8("M\xC3\xBCller und K\xF6nig"));
    EXPECT_FALSE(IsUtf8("M\xC3"));
    EXPECT_FALSE(IsUtf8("\xE2\x82"));
    EXPECT_FALSE(IsUtf8("\xC0\xAF\xC3\xA4"));      // overlong
    EXPECT_FALSE(IsUtf8("\xED\xA0\x80\xC3\xA4"));  // half of a pair
    EXPECT_FALSE(IsUtf8("\xF4\x90\x80\x80"));
    EXPECT_FALSE(IsUtf8("\xEF\xBB"));
}

TEST(RecognizeText, AByteOrderMarkIsTakenOff) {
    for (const Charset charset : {Charset::Automatic, Charset::Utf8}) {
        const Bytes ascii = Raw("EF BB BF 'Name'");
        EXPECT_EQ(RecognizeText(ascii, charset).Content.data(), ascii.data() + 3);
        EXPECT_EQ(RecognizeText(ascii, charset).Content.size(), 4U);
        EXPECT_TRUE(RecognizeText(ascii, charset).IsUtf8);
        // Even where the rest is none.
        EXPECT_TRUE(RecognizeText(Raw("EF BB BF FC"), charset).IsUtf8);
        EXPECT_TRUE(RecognizeText(Raw("EF BB BF"), charset).Content.empty());
    }
}

TEST(RecognizeText, DoesAsItIsTold) {
    EXPECT_TRUE(IsUtf8("M\xFCller", Charset::Utf8));
    EXPECT_TRUE(IsUtf8("Meier", Charset::Utf8));
    EXPECT_FALSE(IsUtf8("M\xC3\xBCller", Charset::Windows1252));
    const Bytes marked = Raw("EF BB BF 'N'");
    EXPECT_EQ(RecognizeText(marked, Charset::Windows1252).Content.size(), 4U);
    EXPECT_FALSE(RecognizeText(marked, Charset::Windows1252).IsUtf8);
}

TEST(AssignDecoded, ReadsAsWindows1252) {
    Text text = u"a longer text";
    EXPECT_FALSE(AssignDecoded(text, Raw("'M' FC C3 BC"), false));
    EXPECT_EQ(text, u"MüÃ¼");
    EXPECT_FALSE(AssignDecoded(text, {}, false));
    EXPECT_EQ(text, u"");
}

TEST(AssignDecoded, ReadsAsUtf8) {
    Text text = u"a longer text";
    EXPECT_FALSE(AssignDecoded(text, Raw("'M' C3 BC 'u' CC 88"), true));
    EXPECT_EQ(text, u"Müü");
    EXPECT_TRUE(AssignDecoded(text, Raw("C5 82 FC E2 82"), true));
    EXPECT_EQ(text, u"l???");
    EXPECT_FALSE(AssignDecoded(text, Raw("'Meier' 0D"), true));
    EXPECT_EQ(text, u"Meier\r");
    EXPECT_FALSE(AssignDecoded(text, {}, true));
    EXPECT_EQ(text, u"");
}

}  // namespace
}  // namespace norvik::test
