// Which lines of an address database make a record.
#include "sync/synctables.h"

#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

/// The first three fields of each record.
using Records = std::vector<std::array<Text, SyncTables::NameColumns>>;

Records RecordsOf(ByteView file) {
    SettingsTable settings;
    settings.SetValue(Setting::SyncName, u"1");
    settings.SetValue(Setting::SyncGiven, u"2");
    settings.SetValue(Setting::SyncCompany, u"3");
    SyncTables tables;
    const std::size_t count = ReadSyncRecords(file, settings, tables);
    Records records;
    for (std::size_t record = 1; record <= count; ++record) {
        const auto& cells = tables.SyncNameTable.at(record);
        records.push_back({Text(cells[0]), Text(cells[1]), Text(cells[2])});
    }
    return records;
}

Records RecordsOf(std::string_view file) {
    return RecordsOf(ByteView(reinterpret_cast<const Byte*>(file.data()), file.size()));
}

const Records OneEmpty = {{u"", u"", u""}};
const Records AAndB = {{u"a", u"", u""}, {u"b", u"", u""}};

// Continuation

TEST(ReadSyncRecords, ALastFieldWithALineBreakIsReadAsOneRecordWithoutTheBreak) {
    EXPECT_EQ(RecordsOf("\"Meier\",\"Hans\",\"first\r\nsecond\"\r\n\"Kunz\",\"Ina\",\"x\"\r\n"),
              (Records{{u"Meier", u"Hans", u"firstsecond"}, {u"Kunz", u"Ina", u"x"}}));
}

TEST(ReadSyncRecords, TheNextLineIsAppendedWithoutAnySeparator) {
    EXPECT_EQ(RecordsOf("\"a \r\n b\"\r\n"), (Records{{u"a  b", u"", u""}}));
    EXPECT_EQ(RecordsOf("\"a\r\nb\",\"c\"\r\n"), (Records{{u"ab", u"c", u""}}));
}

TEST(ReadSyncRecords, OnlyOneFurtherLineIsJoinedWhateverItEndsWith) {
    // The first record ends in a field that is not closed, the second begins in its middle.
    EXPECT_EQ(RecordsOf("\"a\",\"1\r\n2\r\n3\"\r\n\"b\",\"c\"\r\n"),
              (Records{{u"a", u"", u""}, {u"", u"", u""}, {u"b", u"c", u""}}));
}

TEST(ReadSyncRecords, ALineThatEndsWithAnOpeningQuoteIsNotContinued) {
    EXPECT_EQ(RecordsOf("\"a\",\"\r\nb\"\r\n"), (Records{{u"a", u"", u""}, {u"", u"", u""}}));
}

TEST(ReadSyncRecords, ABlankBehindTheLastQuoteContinuesTheLine) {
    EXPECT_EQ(RecordsOf("\"a\" \r\n\"b\"\r\n\"c\"\r\n"),
              (Records{{u"a", u"b", u""}, {u"c", u"", u""}}));
}

TEST(ReadSyncRecords, ATextBehindTheLastQuoteContinuesTheLine) {
    EXPECT_EQ(RecordsOf("\"a\",1\r\n\"b\",2\r\n\"c\"\r\n"),
              (Records{{u"a", u"b", u""}, {u"c", u"", u""}}));
}

TEST(ReadSyncRecords, ALineOfOneQuoteIsNotContinued) {
    EXPECT_EQ(RecordsOf("\"\r\n\"a\"\r\n"), (Records{{u"", u"", u""}, {u"a", u"", u""}}));
}

TEST(ReadSyncRecords, TheLastLineIsNotContinued) {
    EXPECT_EQ(RecordsOf("\"a\",\"b"), (Records{{u"a", u"", u""}}));
    EXPECT_EQ(RecordsOf("\"a\",\"b\r\n"), (Records{{u"a", u"", u""}}));
}

TEST(ReadSyncRecords, ALineBreakThatEndsTheFileLeavesTheFieldOut) {
    EXPECT_EQ(RecordsOf("\"a\",\"b\r\n\r\n"), (Records{{u"a", u"", u""}}));
}

// Lines without a quote

TEST(ReadSyncRecords, AnEmptyLineIsARecordWithEmptyCells) {
    EXPECT_EQ(RecordsOf("\r\n"), OneEmpty);
    EXPECT_EQ(RecordsOf("\"a\"\r\n\r\n"), (Records{{u"a", u"", u""}, {u"", u"", u""}}));
}

TEST(ReadSyncRecords, ALineWithoutAnyQuoteIsARecordWithEmptyCells) {
    EXPECT_EQ(RecordsOf("Meier,Hans\r\n"), OneEmpty);
    EXPECT_EQ(RecordsOf("\"a\"\r\nMeier,Hans"), (Records{{u"a", u"", u""}, {u"", u"", u""}}));
}

TEST(ReadSyncRecords, AnEmptyLineAndALineWithoutAQuoteAreOneEmptyRecord) {
    EXPECT_EQ(RecordsOf("\r\nMeier\r\n"), OneEmpty);
    EXPECT_EQ(RecordsOf("Meier\r\nHans\r\n"), OneEmpty);
    EXPECT_EQ(RecordsOf("\r\n\r\n"), OneEmpty);
    EXPECT_EQ(RecordsOf("\r\n\r\n\"a\"\r\n"), (Records{{u"", u"", u""}, {u"a", u"", u""}}));
}

TEST(ReadSyncRecords, AnEmptyLineBeforeAQuotedRecordBecomesPartOfIt) {
    EXPECT_EQ(RecordsOf("\r\n\"a\",\"b\"\r\n\"c\"\r\n"),
              (Records{{u"a", u"b", u""}, {u"c", u"", u""}}));
}

TEST(ReadSyncRecords, AnEmptyLineBetweenQuotedRecordsMakesNoRecord) {
    EXPECT_EQ(RecordsOf("\"a\"\r\n\r\n\"b\"\r\n"), AAndB);
}

TEST(ReadSyncRecords, ALineOfEmptyFieldsIsARecordWithEmptyCells) {
    EXPECT_EQ(RecordsOf("\"\",\"\",\"\"\r\n\"a\"\r\n"),
              (Records{{u"", u"", u""}, {u"a", u"", u""}}));
}

// Line ends

TEST(ReadSyncRecords, ALineEndsAtACarriageReturnAlone) {
    EXPECT_EQ(RecordsOf("\"a\"\r\"b\"\r"), AAndB);
}

TEST(ReadSyncRecords, LineFeedsEndTheLinesOfAFileWithoutAnyCarriageReturn) {
    EXPECT_EQ(RecordsOf("\"a\"\n\"b\"\n"), AAndB);
    EXPECT_EQ(RecordsOf("\"a\",\"x\ny\"\n\"b\"\n"),
              (Records{{u"a", u"xy", u""}, {u"b", u"", u""}}));
}

TEST(ReadSyncRecords, ALineFeedInAFieldBelongsToItBesideCarriageReturns) {
    EXPECT_EQ(RecordsOf("\"a\nb\"\r\n\"c\"\r\n"), (Records{{u"a\nb", u"", u""}, {u"c", u"", u""}}));
}

TEST(ReadSyncRecords, ALineFeedBetweenFieldsSeparatesThemBesideCarriageReturns) {
    EXPECT_EQ(RecordsOf("\"a\"\n\"b\"\r\n"), (Records{{u"a", u"b", u""}}));
}

TEST(ReadSyncRecords, TheLastLineNeedsNoLineEnd) {
    EXPECT_EQ(RecordsOf("\"a\"\r\n\"b\""), AAndB);
    EXPECT_EQ(RecordsOf("\"a\"\n\"b\""), AAndB);
    EXPECT_EQ(RecordsOf("\"a\"\r\"b\""), AAndB);
}

TEST(ReadSyncRecords, AZeroByteOrAnEndMarkIsACharacterLikeOthers) {
    EXPECT_EQ(RecordsOf(Raw("'\"a' 00 1A 'b\"' 0D 0A '\"c\"' 0D 0A")), (Records{{Text(u"a\0\x1A"
                                                                                      u"b",
                                                                                      4),
                                                                                 u"", u""},
                                                                                {u"c", u"", u""}}));
}

TEST(ReadSyncRecords, AnEndMarkBehindTheLastLineIsARecordWithEmptyCells) {
    EXPECT_EQ(RecordsOf(Raw("'\"a\"' 0D 0A 1A")), (Records{{u"a", u"", u""}, {u"", u"", u""}}));
}

// Large files of a single line

constexpr std::size_t Large = 20'000'000;

TEST(ReadSyncRecords, ALargeFileWithoutALineEndIsOneRecord) {
    Bytes file(Large, 'x');
    EXPECT_EQ(RecordsOf(file), OneEmpty);
    file.front() = '"';
    file.back() = '"';
    EXPECT_EQ(RecordsOf(file).at(0)[0].size(), Large - 2);
}

TEST(ReadSyncRecords, ALargeFileOfQuotesHas40EmptyFields) {
    EXPECT_EQ(RecordsOf(Bytes(Large, '"')), OneEmpty);
}

TEST(ReadSyncRecords, ALargeFileOfLineEndsHas1000Records) {
    EXPECT_EQ(RecordsOf(Bytes(Large, '\r')).size(), 1000U);
    EXPECT_EQ(RecordsOf(Bytes(Large, '\n')).size(), 1000U);
}

}  // namespace
}  // namespace norvik::test
