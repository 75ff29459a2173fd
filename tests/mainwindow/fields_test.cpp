#include "mainwindow/fields.h"

#include "ringtones/tonenames.h"
#include "tests/support/testfolder.h"
#include "tests/support/times.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

void ExpectColour(const Colour& colour, int red, int green, int blue) {
    EXPECT_EQ(colour.Red, red);
    EXPECT_EQ(colour.Green, green);
    EXPECT_EQ(colour.Blue, blue);
}

TEST(FillAnnouncements, NormalAndSevenNumbersWithTheFirstSelected) {
    MainWindowFields fields;
    fields.DDAB = 5;

    FillAnnouncements(fields);

    EXPECT_EQ(fields.DDABItems,
              (std::vector<Text>{u"(normal)", u"Ansage 1", u"Ansage 2", u"Ansage 3", u"Ansage 4",
                                 u"Ansage 5", u"Ansage 6", u"Ansage 7"}));
    EXPECT_EQ(fields.DDAB, 0);
}

TEST(FillMsns, TheTelephonesOwnAndSixNumbersWithTheFirstSelected) {
    MainWindowFields fields;
    fields.DDMSN = 3;

    FillMsns(fields);

    EXPECT_EQ(fields.DDMSNItems, (std::vector<Text>{u"(lt. Telefon)", u"MSN 1", u"MSN 2", u"MSN 3",
                                                    u"MSN 4", u"MSN 5", u"MSN 6"}));
    EXPECT_EQ(fields.DDMSN, 0);
}

TEST(FillTones, AMissingToneNamesFileGivesTwentyFixedNamesAndSixtyOwnMelodies) {
    const TestFolder folder;
    MainWindowFields fields;
    fields.DDTon = 17;

    FillTones(fields, ReadToneNames(folder.Path()));

    std::vector<Text> expected = {
        u"kein",      u"3Klang 1",  u"3Klang 2",  u"3Klang 3",  u"2Klang 1",  u"2Klang 2",
        u"2Klang 3",  u"2Klang 4",  u"2Klang 5",  u"Ton 1",     u"Ton 2",     u"Klingel 1",
        u"Klingel 2", u"Klingel 3", u"Klingel 4", u"Klingel 5", u"Klingel 6", u"Klingel 7",
        u"Klingel 8", u"Klingel 9", u"Klingel 10"};
    for (int number = 1; number <= 60; ++number) {
        expected.push_back(u"Eigen " + Decimal(number));
    }
    EXPECT_EQ(fields.DDTonItems, expected);
    EXPECT_EQ(fields.DDTonItems.size(), 81U);
    EXPECT_EQ(fields.DDTon, 0);
}

TEST(FillTones, TheLinesOfTheToneNamesFileFollowKeinInFileOrder) {
    const TestFolder folder;
    std::string file = "; Kommentar\r\nWecker\r\n;noch einer\r\nGong\r\n";
    for (int line = 3; line <= 22; ++line) {
        file += "Zeile " + std::to_string(line) + "\r\n";
    }
    folder.Write("rt.lng", file);
    MainWindowFields fields;

    FillTones(fields, ReadToneNames(folder.Path()));

    ASSERT_EQ(fields.DDTonItems.size(), 81U);
    EXPECT_EQ(fields.DDTonItems[0], u"kein");
    EXPECT_EQ(fields.DDTonItems[1], u"Wecker");
    EXPECT_EQ(fields.DDTonItems[2], u"Gong");
    EXPECT_EQ(fields.DDTonItems[3], u"Zeile 3");
    EXPECT_EQ(fields.DDTonItems[22], u"Zeile 22");
    EXPECT_EQ(fields.DDTonItems[23], u"Eigen 3");
    EXPECT_EQ(fields.DDTonItems[80], u"Eigen 60");
    EXPECT_EQ(fields.DDTon, 0);
}

TEST(EnableSaveMenus, SwitchesThemOnAndOff) {
    MainWindowFields fields;
    EnableSaveMenus(fields, true);
    EXPECT_TRUE(fields.SaveMenusEnabled);
    EnableSaveMenus(fields, false);
    EXPECT_FALSE(fields.SaveMenusEnabled);
}

TEST(EditStateColours, PendingIsLightRedAndStoredIsLightGreen) {
    ExpectColour(PendingColour, 255, 128, 128);
    ExpectColour(StoredColour, 192, 255, 192);
}

TEST(CaptionOf, NoFileIsKeine) {
    EXPECT_EQ(CaptionOf(CurrentFile()), u"norvik Telefonregister - Datei: [keine]");
}

TEST(CaptionOf, AFileIsShownByItsPathAsItWasLoaded) {
    CurrentFile file;
    file.Path = u8"/home/anna/Büro/Register.t9t";
    EXPECT_EQ(CaptionOf(file), u"norvik Telefonregister - Datei: /home/anna/Büro/Register.t9t");
}

TEST(CaptionOf, CharactersOutsideTheRepertoireBecomeQuestionMarks) {
    CurrentFile file;
    file.Path = u8"/tmp/Ωmega ✆.t9t";
    EXPECT_EQ(CaptionOf(file), u"norvik Telefonregister - Datei: /tmp/?mega ?.t9t");
}

TEST(SourceTimeOf, NothingLoadedIsEmpty) {
    EXPECT_EQ(SourceTimeOf(CurrentFile()), u"");
}

TEST(SourceTimeOf, TheFilesDateAndTimeAreGermanWithoutSeconds) {
    CurrentFile file;
    file.Modified = LocalTime(2004, 3, 5, 7, 9, 59);

    EXPECT_EQ(SourceTimeOf(file), u"05.03.2004 07:09");
}

}  // namespace
}  // namespace norvik::test
