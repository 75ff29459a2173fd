#include "formats/common/devicecharacters.h"

#include "base/runtimeerror.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <array>

namespace norvik::test {

namespace {

struct Pair {
    Byte device;
    char16_t ansi;
};

constexpr std::array<Pair, 15> Pairs = {{{132, u'ä'},
                                         {148, u'ö'},
                                         {129, u'ü'},
                                         {225, u'ß'},
                                         {142, u'Ä'},
                                         {153, u'Ö'},
                                         {154, u'Ü'},
                                         {130, u'é'},
                                         {138, u'è'},
                                         {94, u'^'},
                                         {248, u'°'},
                                         {245, u'§'},
                                         {131, u'â'},
                                         {136, u'ê'},
                                         {147, u'ô'}}};

/// What the telephone's bytes 0x80 to 0x9F mean; of the others only E1, F5 and F8 differ from the
/// code of their character.
constexpr std::array<char16_t, 32> Characters80To9F = {
    0x20AC, u'ü',   u'é',   u'â', u'ä',   0x2026, 0x2020, 0x2021, u'ê',   0x2030, u'è',
    0x2039, 0x0152, 0x008D, u'Ä', 0x008F, 0x0090, 0x2018, 0x2019, u'ô',   u'ö',   0x2022,
    0x2013, 0x2014, 0x02DC, u'Ö', u'Ü',   0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t ExpectedCharacter(int byte) {
    if (byte >= 0x80 && byte <= 0x9F) {
        return Characters80To9F[static_cast<std::size_t>(byte - 0x80)];
    }
    switch (byte) {
    case 0xE1:
        return u'ß';
    case 0xF5:
        return u'§';
    case 0xF8:
        return u'°';
    default:
        return static_cast<char16_t>(byte);
    }
}

TEST(DeviceToAnsi, TheFifteenDeviceCharactersBecomeTheirAnsiCharacters) {
    for (const Pair& pair : Pairs) {
        EXPECT_EQ(DeviceToAnsi(Bytes{pair.device}), Text(1, pair.ansi)) << int{pair.device};
    }
}

TEST(DeviceToAnsi, EveryByteHasItsCharacter) {
    for (int byte = 0; byte <= 0xFF; ++byte) {
        EXPECT_EQ(DeviceToAnsi(Bytes{static_cast<Byte>(byte)}), Text(1, ExpectedCharacter(byte)))
            << byte;
    }
}

TEST(DeviceToAnsi, ConvertsInsideAText) {
    EXPECT_EQ(DeviceToAnsi(Raw("'M' 81 'ller, ' 99 'zt' 81 'rk'")), u"Müller, Öztürk");
}

TEST(DeviceToAnsi, AnEmptyTextStaysEmpty) {
    EXPECT_EQ(DeviceToAnsi({}), u"");
}

TEST(AnsiToDevice, TheFifteenAnsiCharactersBecomeTheirDeviceBytes) {
    for (const Pair& pair : Pairs) {
        EXPECT_EQ(AnsiToDevice(Text(1, pair.ansi)), Bytes{pair.device}) << int{pair.device};
    }
}

TEST(AnsiToDevice, OtherCharactersKeepTheirWindowsByte) {
    EXPECT_EQ(AnsiToDevice(u"Az 09"), Raw("'Az 09'"));
    EXPECT_EQ(AnsiToDevice(u"àÉñ÷ÿ"), Raw("E0 C9 F1 F7 FF"));
    EXPECT_EQ(AnsiToDevice(u"€„Šž\u008D"), Raw("80 84 8A 9E 8D"));
}

TEST(AnsiToDevice, CapitalAndSmallLettersAreDifferentCharacters) {
    EXPECT_EQ(AnsiToDevice(u"éÉèÈâÂêÊôÔ"), Raw("82 C9 8A C8 83 C2 88 CA 93 D4"));
}

TEST(AnsiToDevice, ConvertsInsideAText) {
    EXPECT_EQ(AnsiToDevice(u"Müller"), Raw("'M' 81 'ller'"));
}

TEST(AnsiToDevice, AnEmptyTextStaysEmpty) {
    EXPECT_EQ(AnsiToDevice(u""), Bytes());
}

TEST(AnsiToDevice, ACharacterOutsideTheRepertoireRaisesError5) {
    try {
        AnsiToDevice(u"a\u0411");
        ADD_FAILURE() << "nothing was raised";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::InvalidArgument);
    }
}

TEST(AnsiToDevice, UndoesDeviceToAnsiExceptForBytesThatMeanTwoThings) {
    for (int byte = 0; byte <= 0xFF; ++byte) {
        const Bytes one = {static_cast<Byte>(byte)};
        const Bytes back = AnsiToDevice(DeviceToAnsi(one));
        // The Windows bytes of the fifteen characters come back as their device bytes.
        Bytes expected = one;
        for (const Pair& pair : Pairs) {
            if (pair.ansi == static_cast<char16_t>(byte)) {
                expected = {pair.device};
            }
        }
        if (byte == 0xE1 || byte == 0xF5 || byte == 0xF8) {
            expected = one;
        }
        EXPECT_EQ(back, expected) << byte;
    }
}

}  // namespace

}  // namespace norvik::test
