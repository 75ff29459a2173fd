#include "ringtones/renameringtones.h"

#include "ringtones/tonenames.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <map>

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;
using MaybeNames = std::optional<std::vector<Text>>;

const std::string Question =
    "box \"Diese Aktion benennt, soweit möglich (siehe Anleitung) die Klingeltöne aus dem "
    "Unterverzeichnis '\\tonruf'! neu\\r\\n\" title \"Liste mit Klingeltonnamen erneuern\" icon "
    "Exclamation buttons Ok+Cancel default Ok -> ";

const std::string NoNames =
    "box \"Es wurden keine verwertbaren Klingeltonnamen gefunden!\\r\\n"
    "Existiert das Unterverzeichnis \\tonruf?\\r\\n"
    "Beginnen die Namen mit der zweistelligen Speicherplatznummer?\\r\\n\\r\\n"
    "Die Aktion wird abgebrochen.\" title \"Klingeltonnamen ersetzen: FEHLER\" icon Critical "
    "buttons Ok default Ok -> Ok";

/// The default names, which tonenames_test.cpp writes out, with others at the given indices.
std::vector<Text> NamesWith(const std::map<std::size_t, Text>& own) {
    std::vector<Text> names = DefaultToneNames();
    for (const auto& name : own) {
        names.at(name.first) = name.second;
    }
    return names;
}

class RingtoneNames : public testing::Test {
  protected:
    void GivenFiles(const std::vector<FilePath>& names) {
        for (const FilePath& name : names) {
            folder.Write("tonruf" / name, "");
        }
    }

    MaybeNames Rename() {
        desktop.AnswerBox(Button::Ok);
        return RenameRingtones(folder.Path(), desktop);
    }

    /// The names when the user agrees and some file is usable.
    std::vector<Text> Renamed() {
        const MaybeNames names = Rename();
        EXPECT_EQ(desktop.Transcript, Lines{Question + "Ok"});
        return names.value_or(std::vector<Text>());
    }

    void ExpectNoUsableFile() {
        EXPECT_EQ(Rename(), std::nullopt);
        EXPECT_EQ(desktop.Transcript, (Lines{Question + "Ok", NoNames}));
        desktop.Transcript.clear();
    }

    TestFolder folder;
    ScriptedDesktop desktop;
};

TEST_F(RingtoneNames, CancelGivesNothingAndLooksForNothing) {
    GivenFiles({"01Hund.t9r"});
    desktop.AnswerBox(Button::Cancel);
    EXPECT_EQ(RenameRingtones(folder.Path(), desktop), std::nullopt);
    EXPECT_EQ(desktop.Transcript, Lines{Question + "Cancel"});
}

TEST_F(RingtoneNames, AreTheFileNamesInFrontOfTheEndingWithTheirNumbers) {
    GivenFiles({"07Vogelzwitschern.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{27, u"07Vogelzwitschern"}}));
}

TEST_F(RingtoneNames, OfTheFiles01HundAnd3KatzeStandAt21And23) {
    GivenFiles({"01Hund.t9r", "3Katze.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{21, u"01Hund"}, {23, u"3Katze"}}));
}

TEST_F(RingtoneNames, AFile00TestIsSkipped) {
    GivenFiles({"00Test.t9r", "02Test.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{22, u"02Test"}}));
}

TEST_F(RingtoneNames, AFile05AnrufWithAnEndingInCapitalsIsUsed) {
    GivenFiles({"05Anruf.T9R"});
    EXPECT_EQ(Renamed(), NamesWith({{25, u"05Anruf"}}));
}

TEST_F(RingtoneNames, OfTwoFilesStartingWith05TheOneListedLaterNamesIndex25) {
    GivenFiles({"05Zug.t9r", "05Auto.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{25, u"05Zug"}}));
}

TEST_F(RingtoneNames, CapitalsDoNotPutAFileInFront) {
    GivenFiles({"05auto.t9r", "05Zug.t9r", "6zug.t9r", "6Auto.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{25, u"05Zug"}, {26, u"6zug"}}));
}

TEST_F(RingtoneNames, AOneDigitNumberIsListedBehindTheTwoDigitOne) {
    GivenFiles({"5a.t9r", "05z.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{25, u"5a"}}));
}

TEST_F(RingtoneNames, TheSlotsReachFrom1To60) {
    GivenFiles({"01Erster.t9r", "60Letzter.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{21, u"01Erster"}, {80, u"60Letzter"}}));
}

TEST_F(RingtoneNames, NumbersAbove60AreSkipped) {
    GivenFiles({"60a.t9r", "61b.t9r", "79c.t9r", "80d.t9r", "99e.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{80, u"60a"}}));
}

TEST_F(RingtoneNames, OnlyTheFirstTwoCharactersAreTheNumber) {
    GivenFiles({"123.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{32, u"123"}}));
}

TEST_F(RingtoneNames, NamesWithoutANumberAreSkipped) {
    GivenFiles({"Hund.t9r", "H1und.t9r", "-5Hund.t9r", "x01.t9r", "01Katze.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{21, u"01Katze"}}));
}

TEST_F(RingtoneNames, ALeadingPlusIsPartOfTheNumber) {
    GivenFiles({"+5Hund.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{25, u"+5Hund"}}));
}

TEST_F(RingtoneNames, TheNameMayBeTheNumberAlone) {
    GivenFiles({"4.t9r", "05.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{24, u"4"}, {25, u"05"}}));
}

TEST_F(RingtoneNames, TheFirstEndingInTheNameEndsIt) {
    GivenFiles({"05Hund.t9r.laut.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{25, u"05Hund"}}));
}

TEST_F(RingtoneNames, PointsUmlautsAndBlanksStayInTheName) {
    GivenFiles({u8"05 Grüße, 2. Fassung €.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{25, u"05 Grüße, 2. Fassung €"}}));
}

TEST_F(RingtoneNames, AFileNameOutsideWindows1252IsSkipped) {
    GivenFiles({u8"05Жук.t9r", u8"06Hund.t9r"});
    EXPECT_EQ(Renamed(), NamesWith({{26, u"06Hund"}}));
}

TEST_F(RingtoneNames, MoreThan60FilesAreAllLookedAt) {
    std::map<std::size_t, Text> expected;
    for (int slot = 1; slot <= 60; ++slot) {
        const std::string number = (slot < 10 ? "0" : "") + std::to_string(slot);
        GivenFiles({number + "a.t9r", number + "b.t9r"});
        expected[static_cast<std::size_t>(slot) + 20] = FromAscii(number + "b");
    }
    EXPECT_EQ(Renamed(), NamesWith(expected));
}

TEST_F(RingtoneNames, TheToneFolderIsFoundWhateverItsCase) {
    folder.Write("TonRuf/01Hund.t9r", "");
    EXPECT_EQ(Renamed(), NamesWith({{21, u"01Hund"}}));
}

TEST_F(RingtoneNames, ComeFromTheDefaultNamesAndNotFromAnOlderFile) {
    GivenFiles({"02Hund.t9r"});
    folder.Write("rt.lng", "alt 1\r\nalt 2\r\n");
    EXPECT_EQ(Renamed(), NamesWith({{22, u"02Hund"}}));
    EXPECT_EQ(ReadFile(folder / "rt.lng"), Raw("'alt 1' 0D 0A 'alt 2' 0D 0A"));
}

TEST_F(RingtoneNames, AMissingFolderIsReported) {
    ExpectNoUsableFile();
}

TEST_F(RingtoneNames, AnEmptyFolderIsReported) {
    std::filesystem::create_directory(folder / "tonruf");
    ExpectNoUsableFile();
}

TEST_F(RingtoneNames, AFileInTheFoldersPlaceIsReported) {
    folder.Write("tonruf", "");
    ExpectNoUsableFile();
}

TEST_F(RingtoneNames, FilesThatAreAllUnusableAreReported) {
    GivenFiles({"00Test.t9r", "61Hund.t9r", "Katze.t9r", "01Maus.wav", ".02Esel.t9r"});
    GivenFiles({u8"03Жук.t9r", "04Ordner.t9r/05Kuh.t9r"});
    ExpectNoUsableFile();
}

}  // namespace
}  // namespace norvik::test
