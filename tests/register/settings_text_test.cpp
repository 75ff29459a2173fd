// The text of a settings file, and what of it comes back.
#include "register/settings.h"

#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

/// The table that reading the written text gives.
SettingsTable ReadBack(const SettingsTable& table) {
    SettingsTable read;
    ReadSettings(BytesFromText(SettingsText(table)), read);
    return read;
}

void ExpectSame(const SettingsTable& read, const SettingsTable& written) {
    for (int row = 1; row <= SettingsRows; ++row) {
        EXPECT_EQ(read.At(row).Key, written.At(row).Key) << row;
        EXPECT_EQ(read.At(row).Value, written.At(row).Value) << row;
    }
}

/// What becomes of one value.
Text ComesBack(TextView value) {
    SettingsTable table;
    table.SetValue(Setting::DataSeparator, value);
    return ReadBack(table).Value(Setting::DataSeparator);
}

TEST(SettingsText, OfTwoValuesHasAllSectionHeaders) {
    SettingsTable table;
    table.SetValue(Setting::Language, u"deutsch");
    table.SetValue(Setting::LoadSyncOnStart, u"no");
    EXPECT_EQ(SettingsText(table), u";NORVIK.EXE Konfigurationsdatei\r\n"
                                   u";NORVIK.EXE configuration file\r\n"
                                   u";changing this file is allowed, but\r\n"
                                   u";it will be regenerated\r\n"
                                   u";if settings are changed by the program\r\n"
                                   u"\r\n[common]\r\nLanguage=deutsch\r\n"
                                   u"\r\n[location]\r\n"
                                   u"\r\n[export flags]\r\n"
                                   u"\r\n[sync settings]\r\nLoadSyncOnStart=no\r\n"
                                   u"\r\n[end]\r\n");
}

TEST(SettingsText, EveryRowComesBackToItsKey) {
    SettingsTable table;
    for (int row = 1; row <= 25; ++row) {
        table.SetValue(static_cast<Setting>(row), u"wert " + Decimal(row));
    }
    ExpectSame(ReadBack(table), table);
}

TEST(SettingsText, AnEmptyTableComesBackEmpty) {
    ExpectSame(ReadBack(SettingsTable()), SettingsTable());
}

TEST(SettingsText, WrittenAgainIsTheSame) {
    SettingsTable table;
    table.SetValue(Setting::LoadFile, u"c:\\büro\\reg.t9t");
    table.SetValue(Setting::Unit, u"0,12");
    EXPECT_EQ(SettingsText(ReadBack(table)), SettingsText(table));
}

TEST(SettingsText, AValueMayHoldAnyCharacterOfALine) {
    for (const TextView value : {u"=", u"a=b", u"==", u";", u";a", u"[end]", u"\"", u"|", u",",
                                 u"\t", u"ä€ß", u"a  b", u"\n", u"a\nb"}) {
        EXPECT_EQ(ComesBack(value), value);
    }
}

TEST(SettingsText, AValueComesBackInLowerCaseAndWithoutBlanksAtItsEnds) {
    EXPECT_EQ(ComesBack(u" Ä B "), u"ä b");
    EXPECT_EQ(ComesBack(u" "), u"");
}

TEST(SettingsText, EveryWindows1252CharacterButTheLineEndComesBack) {
    Bytes bytes;
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '\r') {
            bytes.push_back(static_cast<Byte>(byte));
        }
    }
    const Text value = u"x" + LowerCase(TextFromBytes(bytes)) + u"x";
    EXPECT_EQ(ComesBack(value), value);
}

}  // namespace
}  // namespace norvik::test
