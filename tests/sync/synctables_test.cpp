// The records of an address database in the three tables.
#include "sync/synctables.h"

#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <optional>

namespace norvik::test {
namespace {

using Mapping = std::array<TextView, SyncItems>;
using Cells = std::vector<Text>;

constexpr Mapping InOrder = {u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9", u"10"};
const Cells AllEmpty(SyncItems);

SettingsTable SettingsOf(const Mapping& mapping) {
    SettingsTable table;
    int row = static_cast<int>(Setting::SyncName);
    for (const TextView value : mapping) {
        table.SetValue(static_cast<Setting>(row++), value);
    }
    return table;
}

/// Items 1 to 10 of a record.
Cells CellsOf(const SyncTables& tables, std::size_t record) {
    Cells cells;
    for (const TextView cell : tables.SyncNameTable.at(record)) {
        cells.emplace_back(cell);
    }
    for (const TextView cell : tables.SyncAddressTable.at(record)) {
        cells.emplace_back(cell);
    }
    for (const TextView cell : tables.SyncPhoneTable.at(record)) {
        cells.emplace_back(cell);
    }
    return cells;
}

Bytes BytesOf(std::string_view file) {
    return {file.begin(), file.end()};
}

struct Read {
    explicit Read(std::string_view file, const Mapping& mapping = InOrder)
        : Read(BytesOf(file), mapping) {}
    explicit Read(const Bytes& file, const Mapping& mapping = InOrder)
        : Count(ReadSyncRecords(file, SettingsOf(mapping), Tables)) {}

    [[nodiscard]] Cells Of(std::size_t record) const { return CellsOf(Tables, record); }
    /// The surnames of the records that were read.
    [[nodiscard]] Cells Surnames() const {
        Cells names;
        for (std::size_t record = 1; record <= Count; ++record) {
            names.emplace_back(Tables.SyncNameTable.at(record)[SyncTables::Surname]);
        }
        return names;
    }

    SyncTables Tables;
    std::size_t Count;
};

/// `count` records of one field, "1", "2", ….
std::string Numbered(int count, const std::string& lineEnd = "\r\n") {
    std::string file;
    for (int number = 1; number <= count; ++number) {
        file += "\"" + std::to_string(number) + "\"" + lineEnd;
    }
    return file;
}

/// A record of the fields "1" to `count`.
std::string Fields(int count) {
    return Numbered(count, ",") + "\"\"\r\n";
}

const Cells Meier = {u"Meier", u"Hans", u"", u"Hauptstr. 1", u"10115", u"Berlin", u"030 1234567",
                     u"",      u"",     u""};

// Tables

TEST(SyncTables, HaveRoomForRecords0To1000WithEmptyCells) {
    const SyncTables tables;
    EXPECT_EQ(tables.SyncNameTable.size(), 1001U);
    EXPECT_EQ(tables.SyncAddressTable.size(), 1001U);
    EXPECT_EQ(tables.SyncPhoneTable.size(), 1001U);
    for (std::size_t record = 0; record <= 1000; ++record) {
        EXPECT_EQ(CellsOf(tables, record), AllEmpty) << record;
    }
}

TEST(SyncTables, ACopyOutlivesItsOriginal) {
    std::optional<Read> read(std::in_place, "\"Meier\",\"with a text that is no short one\"\r\n");
    const SyncTables copy = read->Tables;
    read.reset();
    EXPECT_EQ(copy.SyncNameTable[1][SyncTables::Surname], u"Meier");
    EXPECT_EQ(copy.SyncNameTable[1][SyncTables::GivenName], u"with a text that is no short one");
}

// Fields and items

TEST(ReadSyncRecords, ALineOfTenQuotedFieldsFillsAllTenItems) {
    const Read read(R"("Meier","Hans","","Hauptstr. 1","10115","Berlin","030 1234567","","","")"
                    "\r\n");
    EXPECT_EQ(read.Count, 1U);
    EXPECT_EQ(read.Of(1), Meier);
}

TEST(ReadSyncRecords, SemicolonsBetweenTheFieldsGiveTheSame) {
    const Read read(R"("Meier";"Hans";"";"Hauptstr. 1";"10115";"Berlin";"030 1234567";"";"";"")"
                    "\r\n");
    EXPECT_EQ(read.Count, 1U);
    EXPECT_EQ(read.Of(1), Meier);
}

TEST(ReadSyncRecords, TabsBetweenTheFieldsGiveTheSame) {
    const Read read("\"Meier\"\t\"Hans\"\t\"\"\t\"Hauptstr. 1\"\t\"10115\"\t\"Berlin\"\t"
                    "\"030 1234567\"\t\"\"\t\"\"\t\"\"\r\n");
    EXPECT_EQ(read.Count, 1U);
    EXPECT_EQ(read.Of(1), Meier);
}

TEST(ReadSyncRecords, EachItemGoesIntoItsColumn) {
    const Read read(Fields(10));
    const SyncTables& tables = read.Tables;
    EXPECT_EQ(tables.SyncNameTable[1][SyncTables::Surname], u"1");
    EXPECT_EQ(tables.SyncNameTable[1][SyncTables::GivenName], u"2");
    EXPECT_EQ(tables.SyncNameTable[1][SyncTables::Company], u"3");
    EXPECT_EQ(tables.SyncAddressTable[1][SyncTables::Street], u"4");
    EXPECT_EQ(tables.SyncAddressTable[1][SyncTables::Zip], u"5");
    EXPECT_EQ(tables.SyncAddressTable[1][SyncTables::City], u"6");
    EXPECT_EQ(tables.SyncPhoneTable[1][SyncTables::Business], u"7");
    EXPECT_EQ(tables.SyncPhoneTable[1][SyncTables::Private], u"8");
    EXPECT_EQ(tables.SyncPhoneTable[1][SyncTables::Fax], u"9");
    EXPECT_EQ(tables.SyncPhoneTable[1][SyncTables::Other], u"10");
}

TEST(ReadSyncRecords, EachSettingNamesTheFieldOfItsItem) {
    SettingsTable table;
    ReadSettings(BytesOf("SyncOther=1\r\nSyncFax=2\r\nSyncPrivate=3\r\nSyncBusiness=4\r\n"
                         "SyncCity=5\r\nSyncZip=6\r\nSyncAdd=7\r\nSyncCompany=8\r\n"
                         "SyncGiven=9\r\nSyncName=10\r\n"),
                 table);
    SyncTables tables;
    ReadSyncRecords(BytesOf(Fields(10)), table, tables);
    EXPECT_EQ(CellsOf(tables, 1),
              (Cells{u"10", u"9", u"8", u"7", u"6", u"5", u"4", u"3", u"2", u"1"}));
}

TEST(ReadSyncRecords, ACellHoldsTheTextAsItIs) {
    const Read read("\"  Meier \",\"\t\",\" \"\r\n");
    EXPECT_EQ(read.Of(1), (Cells{u"  Meier ", u"\t", u" ", u"", u"", u"", u"", u"", u"", u""}));
}

TEST(ReadSyncRecords, TheFirstLineIsTheFirstRecord) {
    EXPECT_EQ(Read("\"Name\",\"Vorname\"\r\n\"Meier\",\"Hans\"\r\n").Surnames(),
              (Cells{u"Name", u"Meier"}));
}

TEST(ReadSyncRecords, RecordsAreKeptInTheFilesOrderFrom1On) {
    const Read read("\"b\"\r\n\"a\"\r\n\"c\"\r\n");
    EXPECT_EQ(read.Surnames(), (Cells{u"b", u"a", u"c"}));
    EXPECT_EQ(read.Of(0), AllEmpty);
    EXPECT_EQ(read.Of(4), AllEmpty);
}

TEST(ReadSyncRecords, EveryByteIsACharacterOfWindows1252) {
    Bytes file = {'"'};
    Text expected;
    for (int byte = 0; byte <= 255; ++byte) {
        if (byte != '"' && byte != '\r') {
            file.push_back(static_cast<Byte>(byte));
        }
    }
    for (const Byte byte : ByteView(file).subspan(1)) {
        expected += TextFromBytes(ByteView(&byte, 1));
    }
    file.insert(file.end(), {'"', '\r', '\n'});
    const Read read(file);
    EXPECT_EQ(read.Count, 1U);
    EXPECT_EQ(read.Of(1).front(), expected);
    EXPECT_EQ(expected.size(), 254U);
    EXPECT_NE(expected.find(u"€\u0081‚ƒ„"), Text::npos);
    EXPECT_NE(expected.find(u"ýþÿ"), Text::npos);
}

// Mapping

TEST(ReadSyncRecords, AMappingOf0LeavesTheItemEmptyForEveryRecord) {
    Mapping mapping = InOrder;
    mapping[3] = u"0";
    const Read read(Fields(10) + Fields(10) + Fields(10), mapping);
    EXPECT_EQ(read.Count, 3U);
    for (std::size_t record = 1; record <= 3; ++record) {
        EXPECT_EQ(read.Of(record),
                  (Cells{u"1", u"2", u"3", u"", u"5", u"6", u"7", u"8", u"9", u"10"}));
    }
}

TEST(ReadSyncRecords, WithoutAnyMappingAllCellsAreEmptyAndTheRecordsCount) {
    const Read read(Fields(10) + Fields(10), Mapping());
    EXPECT_EQ(read.Count, 2U);
    EXPECT_EQ(read.Of(1), AllEmpty);
    EXPECT_EQ(read.Of(2), AllEmpty);
}

TEST(ReadSyncRecords, AMappingIsTheNumberThatItsTextBeginsWith) {
    const Read read(Fields(41), {u"", u"x", u"-1", u"41", u"40", u"3,5", u" 7", u"+8", u"9x",
                                 u"99999999999999999999999999"});
    EXPECT_EQ(read.Of(1), (Cells{u"", u"", u"", u"", u"40", u"3", u"7", u"8", u"9", u""}));
}

TEST(ReadSyncRecords, AMappingFarBelow0IsNone) {
    const Read read(Fields(41), {u"-99999999999999999999999999", u"-40", u"00", u"007"});
    EXPECT_EQ(read.Of(1), (Cells{u"", u"", u"", u"7", u"", u"", u"", u"", u"", u""}));
}

TEST(ReadSyncRecords, TheSameFieldCanFillAllTenItems) {
    const Mapping mapping = {u"2", u"2", u"2", u"2", u"2", u"2", u"2", u"2", u"2", u"2"};
    EXPECT_EQ(Read("\"a\",\"b\"\r\n", mapping).Of(1), Cells(10, u"b"));
}

TEST(ReadSyncRecords, AFieldBeyondTheRecordsFieldsLeavesTheCellEmpty) {
    EXPECT_EQ(Read("\"a\",\"b\"\r\n").Of(1),
              (Cells{u"a", u"b", u"", u"", u"", u"", u"", u"", u"", u""}));
}

TEST(ReadSyncRecords, ARecordWithMoreThan40FieldsKeepsTheFirst40) {
    const Read read(Fields(60), {u"39", u"40", u"41", u"42", u"60"});
    EXPECT_EQ(read.Of(1), (Cells{u"39", u"40", u"", u"", u"", u"", u"", u"", u"", u""}));
}

// Number of records

TEST(ReadSyncRecords, AnEmptyFileHasNoRecord) {
    const Read read("");
    EXPECT_EQ(read.Count, 0U);
    EXPECT_EQ(read.Of(1), AllEmpty);
}

TEST(ReadSyncRecords, ReadsAFileOf999Lines) {
    const Read read(Numbered(999));
    EXPECT_EQ(read.Count, 999U);
    EXPECT_EQ(read.Of(999).front(), u"999");
    EXPECT_EQ(read.Of(1000), AllEmpty);
}

TEST(ReadSyncRecords, ReadsAFileOf1000LinesWhole) {
    const Read read(Numbered(1000));
    EXPECT_EQ(read.Count, 1000U);
    EXPECT_EQ(read.Of(1).front(), u"1");
    EXPECT_EQ(read.Of(1000).front(), u"1000");
}

TEST(ReadSyncRecords, DoesNotReadBehindThe1000thRecord) {
    for (const int lines : {1001, 1200}) {
        const Read read(Numbered(lines));
        EXPECT_EQ(read.Count, 1000U);
        EXPECT_EQ(read.Of(1000).front(), u"1000");
        EXPECT_EQ(read.Tables.SyncNameTable.size(), 1001U);
    }
}

TEST(ReadSyncRecords, The1000thRecordIsContinuedLikeTheOthers) {
    const Read read(Numbered(999) + "\"be\r\nhind\"\r\n\"not read\"\r\n");
    EXPECT_EQ(read.Count, 1000U);
    EXPECT_EQ(read.Of(1000).front(), u"behind");
}

}  // namespace
}  // namespace norvik::test
