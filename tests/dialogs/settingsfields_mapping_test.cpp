// The settings dialog: taking a field for an item, and the keyboard in its value boxes.
#include "dialogs/settingsfields.h"

#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace norvik::test {
namespace {

using testing::Each;

/// A list of three fields with one of them selected, or none.
SettingsFields WithSelected(int selected) {
    SettingsFields fields;
    fields.ListSyncFileItems = {u"1 - Bär", u"2 - Bernd", u"3 - Hauptstr. 1"};
    fields.SelectedItem = selected;
    fields.SetValue.fill(u"vorher");
    fields.Testausgabe.fill(u"vorher");
    return fields;
}

TEST(Itemexpl, EachOfTheTenLabelsTakesTheSelectedFieldForItsItem) {
    for (int label = 7; label <= 16; ++label) {
        SettingsFields fields = WithSelected(2);
        itemexpl_Click(fields, label);

        std::array<Text, SettingValues> values;
        values.fill(u"vorher");
        values.at(static_cast<std::size_t>(label) - 4) = u"3";
        std::array<Text, SyncItems> outputs;
        outputs.fill(u"vorher");
        outputs.at(static_cast<std::size_t>(label) - 7) = u"3 - Hauptstr. 1";
        EXPECT_EQ(fields.SetValue, values) << label;
        EXPECT_EQ(fields.Testausgabe, outputs) << label;
    }
}

TEST(Itemexpl, ClickingAnItemLabelWithNoFieldSelectedStores0) {
    SettingsFields fields = WithSelected(-1);
    itemexpl_Click(fields, 7);
    EXPECT_EQ(fields.SetValue.at(3), u"0");
    EXPECT_EQ(fields.Testausgabe.at(0), u"");
}

TEST(Itemexpl, ClicksOnOtherLabelsDoNothing) {
    for (const int label : {-1000, -1, 0, 1, 6, 17, 18, 1000, std::numeric_limits<int>::max()}) {
        SettingsFields fields = WithSelected(1);
        itemexpl_Click(fields, label);
        EXPECT_THAT(fields.SetValue, Each(Text(u"vorher"))) << label;
        EXPECT_THAT(fields.Testausgabe, Each(Text(u"vorher"))) << label;
    }
}

TEST(ShowMappedField, ShowsTheFieldOfATypedNumberAndNothingForAnyOther) {
    const TestFolder folder;
    const Text file =
        TextFromPath(folder.Write("a.csv", "\"Adler\",\"Anna\"\r\n\"B\xE4r\",\"Bernd\""));
    for (const auto& [value, shown] : std::vector<std::pair<Text, Text>>{{u"1", u"Bär"},
                                                                         {u" 2", u"Bernd"},
                                                                         {u"3", u""},
                                                                         {u"0", u""},
                                                                         {u"-1", u""},
                                                                         {u"", u""},
                                                                         {u"x", u""}}) {
        SettingsFields fields = WithSelected(2);
        fields.InpSyncFile = file;
        fields.ScrollSyncFile = 2;
        fields.SetValue.at(5) = value;
        std::array<Text, SyncItems> outputs = fields.Testausgabe;
        outputs.at(2) = shown;
        ShowMappedField(fields, 5);
        EXPECT_EQ(fields.Testausgabe, outputs) << Utf8(value);
        EXPECT_EQ(fields.SelectedItem, 2);
        EXPECT_EQ(fields.ListSyncFileItems.size(), 3U);
    }
}

TEST(ShowMappedField, WithoutAFileThereIsNothingToShow) {
    SettingsFields fields = WithSelected(-1);
    fields.SetValue.fill(u"1");
    ShowMappedField(fields, 3);
    EXPECT_EQ(fields.Testausgabe.at(0), u"");
    fields.InpSyncFile = u"/nicht/da.csv";
    ShowMappedField(fields, 12);
    EXPECT_EQ(fields.Testausgabe.at(9), u"");
}

TEST(ShowMappedField, ABoxOfTheLocationHasNone) {
    SettingsFields fields = WithSelected(-1);
    for (std::size_t box = 0; box < FirstItemValue; ++box) {
        ShowMappedField(fields, box);
    }
    EXPECT_THAT(fields.Testausgabe, Each(Text(u"vorher")));
}

TEST(Itemexpl, KeepsListAndSelectionForTheNextItem) {
    SettingsFields fields = WithSelected(1);
    itemexpl_Click(fields, 13);
    itemexpl_Click(fields, 14);
    EXPECT_EQ(fields.SelectedItem, 1);
    EXPECT_EQ(fields.ListSyncFileItems.size(), 3U);
    EXPECT_EQ(fields.SetValue.at(9), u"2");
    EXPECT_EQ(fields.SetValue.at(10), u"2");
}

TEST(Itemexpl, TheNextSampleRecordShowsTheTextOfTheTakenFieldAlone) {
    const TestFolder folder;
    SettingsFields fields;
    fields.InpSyncFile =
        TextFromPath(folder.Write("a.csv", "\"Adler\",\"Anna\"\r\n\"B\xE4r\",\"Bernd\"\r\n"));
    ShowSampleRecord(fields);
    fields.SelectedItem = 1;
    itemexpl_Click(fields, 8);
    EXPECT_EQ(fields.Testausgabe.at(1), u"2 - Anna");

    fields.ScrollSyncFile = 2;
    ShowSampleRecord(fields);
    EXPECT_EQ(fields.Testausgabe.at(1), u"Bernd");
}

TEST(Itemexpl, TheLineOfAMissingFileCountsAsTheFirstField) {
    SettingsFields fields;
    SetSyncItemList(fields, u"/gibt/es/nicht.csv", 1);
    fields.SelectedItem = 0;
    itemexpl_Click(fields, 16);
    EXPECT_EQ(fields.SetValue.at(12), u"1");
    EXPECT_EQ(fields.Testausgabe.at(9), u"SyncDatei n. gefunden");
}

TEST(NextValueBox, EnterAndDownGoThroughAllThirteenBoxesAndRoundTo0) {
    std::vector<std::size_t> visited = {0};
    for (int step = 0; step < 13; ++step) {
        visited.push_back(NextValueBox(visited.back(), false));
    }
    EXPECT_EQ(visited, (std::vector<std::size_t>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 0}));
}

TEST(NextValueBox, UpGoesThroughAllThirteenBoxesBackwardsAndRoundTo12) {
    std::vector<std::size_t> visited = {12};
    for (int step = 0; step < 14; ++step) {
        visited.push_back(NextValueBox(visited.back(), true));
    }
    EXPECT_EQ(visited,
              (std::vector<std::size_t>{12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 12, 11}));
}

}  // namespace
}  // namespace norvik::test
