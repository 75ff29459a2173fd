#include "formats/registerfile/registerfilereader.h"

#include "tests/formats/registerfile/registerfilebytes.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;

/// Reads the records of `bytes`, which carry no file header.
int ReadRecords(RegisterState& state, const Bytes& bytes) {
    state.LoadedModel = u"195";
    ByteReader file(bytes);
    return ReadRegisterRecords(state, file);
}

/// The number of the error that reading the records raises, 0 for none.
int ErrorOfRecords(RegisterState& state, const Bytes& bytes) {
    try {
        ReadRecords(state, bytes);
        return 0;
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
}

RegisterEntry First(const Bytes& record) {
    RegisterState state;
    EXPECT_EQ(ReadRecords(state, record), 1);
    return state.Register(1);
}

constexpr std::int32_t NoLimit = 2147483647;

std::int32_t Integer(const Bytes& bytes) {
    ByteReader file(bytes);
    return ReadInteger(file, NoLimit);
}

// Integer items

TEST(ReadInteger, Tag2GivesOneByte) {
    EXPECT_EQ(Integer(Raw("02 07 FF")), 7);
}

TEST(ReadInteger, BytesAreUnsigned) {
    EXPECT_EQ(Integer(Raw("02 FF")), 255);
    EXPECT_EQ(Integer(Raw("03 FF FF")), 65535);
}

TEST(ReadInteger, Tag3GivesTwoBytesLowByteFirst) {
    EXPECT_EQ(Integer(Raw("03 02 01 FF")), 0x0102);
}

TEST(ReadInteger, Tag4GivesFourBytes) {
    EXPECT_EQ(Integer(Raw("04 04 03 02 01 FF")), 0x01020304);
}

TEST(ReadInteger, Tag5GivesFourBytesToo) {
    EXPECT_EQ(Integer(Raw("05 04 03 02 01 FF")), 0x01020304);
}

TEST(ReadInteger, Tags0And1HaveNoValueBytes) {
    for (const Byte tag : {Byte{0}, Byte{1}}) {
        const Bytes bytes = {tag, 0x55};
        ByteReader file(bytes);
        EXPECT_EQ(ReadInteger(file, NoLimit), 0);
        EXPECT_EQ(file.ReadByte(), std::optional<Byte>(0x55));
    }
}

TEST(ReadInteger, Tag7ReadsSixBytes) {
    const Bytes bytes = Raw("07 01 02 00 00 00 00 55");
    ByteReader file(bytes);
    EXPECT_EQ(ReadInteger(file, NoLimit), 0x0201);
    EXPECT_EQ(file.ReadByte(), std::optional<Byte>(0x55));
}

TEST(ReadInteger, Tag255Reads254Bytes) {
    const Bytes bytes = Join({Raw("FF 08"), Bytes(253, 0x00), Raw("55")});
    ByteReader file(bytes);
    EXPECT_EQ(ReadInteger(file, NoLimit), 8);
    EXPECT_EQ(file.ReadByte(), std::optional<Byte>(0x55));
}

TEST(ReadInteger, AnyHighByteOfALongItemIsTooLarge) {
    for (std::size_t high = 4; high < 254; ++high) {
        Bytes bytes(255, 0x00);
        bytes[0] = 0xFF;
        bytes[1 + high] = 0x01;
        EXPECT_THROW(Integer(bytes), RuntimeError) << high;
        // A zero behind a byte that is too high does not make it small again.
        bytes[1] = 0xFF;
        EXPECT_THROW(Integer(bytes), RuntimeError) << high;
    }
}

TEST(ReadInteger, AMissingByteCountsAs0) {
    EXPECT_EQ(Integer(Raw("04 01 02")), 0x0201);
    EXPECT_EQ(Integer(Raw("03")), 0);
    EXPECT_EQ(Integer({}), 0);
}

TEST(ReadInteger, AValueAboveTheLimitRaisesError6) {
    const auto within = [](const Bytes& bytes, std::int32_t limit) {
        ByteReader file(bytes);
        return ReadInteger(file, limit);
    };
    EXPECT_EQ(within(Raw("03 FF 7F"), 32767), 32767);
    EXPECT_EQ(within(Raw("04 FF FF FF 7F"), NoLimit), 2147483647);
    for (const auto& [bytes, limit] : std::vector<std::pair<Bytes, std::int32_t>>{
             {Raw("03 00 80"), 32767}, {Raw("04 00 00 00 80"), NoLimit}}) {
        try {
            within(bytes, limit);
            ADD_FAILURE() << limit;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
        }
    }
}

// Records

TEST(ReadRegisterRecords, A195RecordFillsEveryField) {
    RegisterState state;
    EXPECT_EQ(ReadRecords(state, Raw("02 05 02 06 06 06 'M' 81 'ller' 06 04 '0*#p' 06 05 'S' 94 "
                                     "'hne' 03 85 00 02 51 03 C8 00 02 03 00")),
              1);
    EXPECT_EQ(state.LoadedModel, u"195");
    RegisterEntry expected = Entry(u"Müller", u"0*#p", u"Söhne");
    expected.RecIndex = 5;
    expected.RecNumber = 6;
    expected.Ton = 0x85;
    expected.MsnFilter = 0x51;
    expected.GebEinh = 200;
    expected.AB = 3;
    EXPECT_EQ(state.Register(1), expected);
}

TEST(ReadRegisterRecords, A193RecordHasMsn15AndAnnouncement0ButKeepsItsTone) {
    for (const std::string tone : {"02 05", "03 05 00", "04 05 00 00"}) {
        RegisterState state;
        EXPECT_EQ(ReadRecords(state, Join({Raw("02 00 02 01 06 01 'a' 06 01 '1'"), Raw(tone),
                                           Raw("02 D2 02 64 02 03 00")})),
                  1);
        EXPECT_EQ(state.LoadedModel, u"193");
        RegisterEntry expected = Entry(u"a", u"1");
        expected.RecNumber = 1;
        expected.Ton = 5;
        expected.MsnFilter = 0xDF;
        expected.GebEinh = 100;
        EXPECT_EQ(state.Register(1), expected);
    }
}

TEST(ReadRegisterRecords, EveryEntryOfA193FileHasMsn15) {
    RegisterState state;
    ReadRecords(state, Raw("0200 0201 06 01 'a' 06 00 0200 0200 0200 0201"
                           "0201 0202 06 01 'b' 06 00 0200 0210 0200 0207 00"));
    EXPECT_EQ(state.Register(1).MsnFilter, 0x0F);
    EXPECT_EQ(state.Register(2).MsnFilter, 0x1F);
    EXPECT_EQ(state.Register(1).AB, 0);
    EXPECT_EQ(state.Register(2).AB, 0);
}

TEST(ReadRegisterRecords, AnInfoOfLength0LeavesInfoEmptyAndTheToneFollows) {
    const RegisterEntry entry = First(Raw("0200 0201 06 01 'a' 06 00 06 00 02 09 020F 0200 0200"));
    EXPECT_EQ(entry.Info, u"");
    EXPECT_EQ(entry.Ton, 9);
}

TEST(ReadRegisterRecords, TheNumberIsNeverChanged) {
    const RegisterEntry entry =
        First(Raw("0200 0201 06 01 84 06 02 84 81 06 01 84 0200 020F 0200 0200"));
    EXPECT_EQ(entry.Name, u"ä");
    EXPECT_EQ(entry.Tel, u"\u201E\u0081");
    EXPECT_EQ(entry.Info, u"ä");
}

TEST(ReadRegisterRecords, TextsAreNotTrimmed) {
    const RegisterEntry entry =
        First(Raw("0200 0201 06 03 ' a ' 06 03 ' 1 ' 06 03 ' i ' 0200 020F 0200 0200"));
    EXPECT_EQ(entry.Name, u" a ");
    EXPECT_EQ(entry.Tel, u" 1 ");
    EXPECT_EQ(entry.Info, u" i ");
}

TEST(ReadRegisterRecords, TextsOf255BytesAreReadWhole) {
    const RegisterEntry entry =
        First(Join({Raw("0200 0201 06 FF"), Bytes(255, 'n'), Raw("06 FF"), Bytes(255, '1'),
                    Raw("06 FF"), Bytes(255, 'i'), Raw("0200 020F 0200 0200")}));
    EXPECT_EQ(entry.Name, Text(255, u'n'));
    EXPECT_EQ(entry.Tel, Text(255, u'1'));
    EXPECT_EQ(entry.Info, Text(255, u'i'));
}

TEST(ReadRegisterRecords, Item1AndTheToneReadThreeBytesForTag4TheOthersFour) {
    RegisterState state;
    EXPECT_EQ(ReadRecords(state, Raw("04 01 02 00  04 03 04 00 00  06 01 'a' 06 00 06 00"
                                     "04 05 00 00  04 06 00 00 00  04 07 00 01 00  04 08 00 00 00"
                                     "00")),
              1);
    RegisterEntry expected = Entry(u"a");
    expected.RecIndex = 0x0201;
    expected.RecNumber = 0x0403;
    expected.Ton = 5;
    expected.MsnFilter = 6;
    expected.GebEinh = 0x010007;
    expected.AB = 8;
    EXPECT_EQ(state.Register(1), expected);
}

TEST(ReadRegisterRecords, Item1AndTheToneReadFourBytesForTag5) {
    const RegisterEntry entry =
        First(Raw("05 01 00 00 00 0201 06 01 'a' 06 00 06 00 05 02 00 00 00 020F 0200 0200"));
    EXPECT_EQ(entry.RecIndex, 1);
    EXPECT_EQ(entry.Ton, 2);
}

TEST(ReadRegisterRecords, Tag1OfItem1AndOfTheToneHasNoValueByte) {
    const RegisterEntry entry = First(Raw("01 0201 06 01 'a' 06 00 06 00 01 020F 0200 0200"));
    EXPECT_EQ(entry.RecIndex, 0);
    EXPECT_EQ(entry.RecNumber, 1);
    EXPECT_EQ(entry.Ton, 0);
    EXPECT_EQ(entry.MsnFilter, 15);
}

TEST(ReadRegisterRecords, Tag0WhereTheToneStandsMakesA193) {
    RegisterState state;
    EXPECT_EQ(ReadRecords(state, Raw("0200 0201 06 01 'a' 06 00 00 0250 0203 0204")), 1);
    EXPECT_EQ(state.LoadedModel, u"193");
    EXPECT_EQ(state.Register(1).Ton, 0);
    EXPECT_EQ(state.Register(1).MsnFilter, 0x5F);
    EXPECT_EQ(state.Register(1).GebEinh, 3);
}

TEST(ReadRegisterRecords, Tag255WhereTheToneStandsReads254Bytes) {
    RegisterState state;
    EXPECT_EQ(ReadRecords(state, Join({Raw("0200 0201 06 01 'a' 06 00 FF 03"), Bytes(253, 0),
                                       Raw("0250 0203 0204")})),
              1);
    EXPECT_EQ(state.Register(1).Ton, 3);
    EXPECT_EQ(state.Register(1).GebEinh, 3);
}

TEST(ReadRegisterRecords, A193FoundLaterLeavesTheEntriesBeforeItAsTheyWere) {
    RegisterState state;
    EXPECT_EQ(ReadRecords(state, Raw("0200 0201 06 01 'a' 06 00 06 01 'i' 0200 0201 0200 0203"
                                     "0201 0202 06 01 'b' 06 00 0200 0201 0200 0203 00")),
              2);
    EXPECT_EQ(state.LoadedModel, u"193");
    EXPECT_EQ(state.Register(1).Info, u"i");
    EXPECT_EQ(state.Register(1).MsnFilter, 1);
    EXPECT_EQ(state.Register(1).AB, 3);
    EXPECT_EQ(state.Register(2).MsnFilter, 15);
    EXPECT_EQ(state.Register(2).AB, 0);
}

TEST(ReadRegisterRecords, OnceA193AByte6IsTheTagOfAFiveByteTone) {
    RegisterState state;
    EXPECT_EQ(ReadRecords(state, Raw("0200 0201 06 01 'a' 06 00 0200 0200 0200 0200"
                                     "0201 0202 06 01 'b' 06 00 06 09 00 00 00 00 0240 0207 0200"
                                     "00")),
              2);
    EXPECT_EQ(state.Register(2).Info, u"");
    EXPECT_EQ(state.Register(2).Ton, 9);
    EXPECT_EQ(state.Register(2).MsnFilter, 0x4F);
    EXPECT_EQ(state.Register(2).GebEinh, 7);
}

TEST(ReadRegisterRecords, AWrongTagBeforeTheNameEndsTheProgram) {
    for (const std::string tag : {"00", "02", "03", "05", "07", "FF"}) {
        RegisterState state;
        EXPECT_THROW(ReadRecords(state, Join({Raw("0200 0201"), Raw(tag),
                                              Raw("01 'a' 06 00 06 00 0200 020F 0200 0200 00")})),
                     HardStop)
            << tag;
    }
}

TEST(ReadRegisterRecords, AWrongTagBeforeTheNumberEndsTheProgram) {
    for (const std::string tag : {"00", "02", "03", "05", "07", "FF"}) {
        RegisterState state;
        EXPECT_THROW(ReadRecords(state, Join({Raw("0200 0201 06 01 'a'"), Raw(tag),
                                              Raw("01 '1' 06 00 0200 020F 0200 0200 00")})),
                     HardStop)
            << tag;
    }
}

TEST(ReadRegisterRecords, ValuesTooLargeForTheirFieldRaiseError6) {
    const std::vector<std::string> records = {
        "03 00 80 0201 06 00 06 00 06 00 0200 020F 0200 0200",
        "0200 03 00 80 06 00 06 00 06 00 0200 020F 0200 0200",
        "0200 0201 06 00 06 00 06 00 03 00 80 020F 0200 0200",
        "0200 0201 06 00 06 00 06 00 0200 03 00 80 0200 0200",
        "0200 0201 06 00 06 00 06 00 0200 020F 04 00 00 00 80 0200",
        "0200 0201 06 00 06 00 06 00 0200 020F 0200 03 00 80",
        "0200 0201 06 00 06 00 03 00 80 020F 0200 0200",
        "0200 0201 06 00 06 00 0200 020F 0200 03 FF FF"};
    for (const std::string& record : records) {
        RegisterState state;
        EXPECT_EQ(ErrorOfRecords(state, Raw(record)), 6) << record;
    }
}

TEST(ReadRegisterRecords, TheLargestValuesFit) {
    const RegisterEntry entry = First(Raw("03 FF 7F 03 FF 7F 06 00 06 00 06 00 03 FF 7F 03 FF 7F "
                                          "04 FF FF FF 7F 03 FF 7F 00"));
    EXPECT_EQ(entry.RecIndex, 32767);
    EXPECT_EQ(entry.RecNumber, 32767);
    EXPECT_EQ(entry.Ton, 32767);
    EXPECT_EQ(entry.MsnFilter, 32767);
    EXPECT_EQ(entry.GebEinh, 2147483647);
    EXPECT_EQ(entry.AB, 32767);
}

TEST(ReadRegisterRecords, TheListEndsAtItsEndByteWhateverFollows) {
    RegisterState state;
    EXPECT_EQ(ReadRecords(state, Raw("00 0200 0201 06 01 'a' 06 00 06 00 0200 020F 0200 0200")), 0);
    EXPECT_EQ(state.Register(1).Name, u"");
}

TEST(ReadRegisterRecords, TheListEndsAtTheEndOfTheFileToo) {
    RegisterState state;
    EXPECT_EQ(ReadRecords(state, Raw("0200 0201 06 01 'a' 06 00 06 00 0200 020F 0200 0200")), 1);
    EXPECT_EQ(state.Register(1).Name, u"a");
}

TEST(ReadRegisterRecords, EveryRecordTakesItsOwnPlaceInTheOrder) {
    RegisterState state;
    state.RegisterOrder(1) = 7;
    state.RegisterOrder(2) = 9;
    ReadRecords(state, Raw("0209 0201 06 01 'a' 06 00 06 00 0200 020F 0200 0200"
                           "0209 0201 06 01 'b' 06 00 06 00 0200 020F 0200 0200 00"));
    EXPECT_THAT(Order(state, 2), ElementsAre(1, 2));
    EXPECT_EQ(state.Register(2).Name, u"b");
}

TEST(ReadRegisterRecords, TheRunningNumbersOfTheFileAreKept) {
    const RegisterEntry entry = First(Raw("022A 0263 06 01 'a' 06 00 06 00 0200 020F 0200 0200"));
    EXPECT_EQ(entry.RecIndex, 42);
    EXPECT_EQ(entry.RecNumber, 99);
}

// The whole file

TEST(ReadRegisterFile, ReadsHeaderAndRecordsFromMemory) {
    const Bytes bytes = FileOf({Raw("0200 0201 06 01 'a' 06 00 0200 0200 0200 0200")});
    RegisterState state;
    ScriptedDesktop desktop;
    EXPECT_EQ(ReadRegisterFile(state, bytes, desktop), 1);
    EXPECT_THAT(desktop.Transcript, ElementsAre("pointer Hourglass"));
    EXPECT_EQ(state.LoadedModel, u"193");
    EXPECT_EQ(state.ReadTrace, u"010601610600020002000200020000");
    EXPECT_EQ(state.ReadTrace.size(), 30U);
}

}  // namespace

}  // namespace norvik::test
