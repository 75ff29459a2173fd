// Damaged register files: cut at every byte, every byte changed, and bytes without any sense, read
// beside a second reader that does nothing but follow the format.
#include "formats/registerfile/registerfilemenu.h"
#include "formats/registerfile/registerfilereader.h"

#include "formats/common/devicecharacters.h"
#include "tests/formats/registerfile/registerfilebytes.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace norvik::test {

namespace {

enum class Ending { Regular, TooLarge, Broken };

std::ostream& operator<<(std::ostream& out, Ending ending) {
    constexpr const char* Names[] = {"Regular", "TooLarge", "Broken"};
    return out << Names[static_cast<int>(ending)];
}

struct Reading {
    Ending ending = Ending::Regular;
    int count = 0;
    Text model = u"195";
    std::vector<RegisterEntry> entries;  ///< also the one that was being read
};

/// Follows the format step by step; far fewer than 2000 records.
class PlainReader {
  public:
    explicit PlainReader(const Bytes& records) : bytes_(records) {}

    Reading Read() {
        try {
            while (at_ < bytes_.size()) {
                const int tag = Next(0);
                if (tag == 0) {
                    break;
                }
                RegisterEntry entry;
                entry.RecIndex = static_cast<std::int16_t>(result_.entries.size());
                result_.entries.push_back(entry);
                ReadRecord(tag, result_.entries.back());
                ++result_.count;
            }
        } catch (Ending ending) {
            result_.ending = ending;
        }
        return result_;
    }

  private:
    /// The next byte, or `missing` behind the end.
    int Next(int missing) { return at_ < bytes_.size() ? bytes_[at_++] : missing; }

    std::int64_t Value(int tag, std::int64_t limit) {
        std::int64_t value = 0;
        bool tooLarge = false;
        for (int k = 0; k < tag - 1; ++k) {
            const int byte = Next(0);
            if (k < 4) {
                value += std::int64_t{byte} << (8 * k);
            } else if (byte != 0) {
                tooLarge = true;
            }
        }
        if (tooLarge || value > limit) {
            throw Ending::TooLarge;
        }
        return value;
    }

    std::int16_t Value16(int tag) { return static_cast<std::int16_t>(Value(tag, 32767)); }

    int WidenedTag() {
        const int tag = Next(0);
        return tag == 4 ? 5 : tag;
    }

    Bytes StringValue() {
        Bytes text;
        for (int length = Next(0); length > 0 && at_ < bytes_.size(); --length) {
            text.push_back(bytes_[at_++]);
        }
        return text;
    }

    Bytes String() {
        if (Next(6) != 6) {
            throw Ending::Broken;
        }
        return StringValue();
    }

    void ReadRecord(int tag, RegisterEntry& entry) {
        entry.RecIndex = Value16(tag);
        entry.RecNumber = Value16(WidenedTag());
        entry.Name = DeviceToAnsi(String());
        entry.Tel = TextFromBytes(String());
        int next = Next(6);
        if (next != 6) {
            result_.model = u"193";
        }
        const bool is193 = result_.model == u"193";
        if (!is193) {
            entry.Info = DeviceToAnsi(StringValue());
            next = Next(0);
        }
        entry.Ton = Value16(next);
        entry.MsnFilter = Value16(WidenedTag());
        if (is193) {
            entry.MsnFilter = static_cast<std::int16_t>(entry.MsnFilter / 16 * 16 + 15);
        }
        entry.GebEinh = static_cast<std::int32_t>(Value(WidenedTag(), 2147483647));
        entry.AB = Value16(WidenedTag());
        if (is193) {
            entry.AB = 0;
        }
    }

    const Bytes& bytes_;
    std::size_t at_ = 0;
    Reading result_;
};

/// Reads with the program's reader; `state` gets the entries.
Reading ReadByProgram(const Bytes& records, RegisterState& state) {
    Reading reading;
    state.LoadedModel = u"195";
    ByteReader file(records);
    try {
        reading.count = ReadRegisterRecords(state, file);
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
        reading.ending = Ending::TooLarge;
    } catch (const HardStop&) {
        reading.ending = Ending::Broken;
    }
    reading.model = state.LoadedModel;
    return reading;
}

/// Expects that the program reads the records as the plain reader does.
void ExpectReadAsByThePlainReader(const Bytes& records, RegisterState& state) {
    constexpr int MoreThanAnyTestReads = 100;
    for (int place = 1; place <= MoreThanAnyTestReads; ++place) {
        ClearEntry(state, place);
    }
    const Reading expected = PlainReader(records).Read();
    const Reading reading = ReadByProgram(records, state);
    EXPECT_EQ(reading.ending, expected.ending);
    if (expected.ending == Ending::Regular) {
        EXPECT_EQ(reading.count, expected.count);
    }
    if (expected.ending == Ending::Broken) {
        return;  // nothing of the register is seen any more
    }
    EXPECT_EQ(reading.model, expected.model);
    for (std::size_t i = 0; i < expected.entries.size(); ++i) {
        const RegisterEntry& entry = state.Register(static_cast<int>(i) + 1);
        if (expected.ending == Ending::Regular || i + 1 < expected.entries.size()) {
            EXPECT_EQ(entry, expected.entries[i]);
        } else {
            EXPECT_EQ(entry.Name, expected.entries[i].Name);
            EXPECT_EQ(entry.Tel, expected.entries[i].Tel);
            EXPECT_EQ(entry.Info, expected.entries[i].Info);
        }
    }
}

const Bytes& Records195() {
    static const Bytes bytes =
        Raw("03 02 01 03 03 01 06 03 'A' 84 'b' 06 02 '12' 06 03 'xyz' 03 85 00 02 1F"
            "04 01 02 03 00 02 05"
            "0201 0202 06 01 'c' 06 00 06 00 0200 020F 0200 0200 00");
    return bytes;
}

const Bytes& Records193() {
    static const Bytes bytes = Raw("0200 0201 06 02 'Ab' 06 02 '12' 0205 0211 03C800 0203"
                                   "0201 0202 06 01 'c' 06 00 03 81 00 0250 0200 0200 00");
    return bytes;
}

// Cut files

TEST(RegisterFileDamage, ACut195FileKeepsWhatWasReadAndCountsTheCutRecord) {
    // The first record's items by the place of their tag.
    constexpr std::size_t RecIndexAt = 0;
    constexpr std::size_t RecNumberAt = 3;
    constexpr std::size_t NameAt = 6;
    constexpr std::size_t TelAt = 11;
    constexpr std::size_t InfoAt = 15;
    constexpr std::size_t TonAt = 20;
    constexpr std::size_t MsnFilterAt = 23;
    constexpr std::size_t GebEinhAt = 25;
    constexpr std::size_t ABAt = 30;
    constexpr std::size_t RecordSize = 32;
    const auto value = [](std::size_t cut, std::size_t tagAt, std::vector<int> bytes) {
        int sum = 0;
        for (std::size_t k = 0; k < bytes.size(); ++k) {
            sum += tagAt + 1 + k < cut ? bytes[k] << (8 * k) : 0;
        }
        return sum;
    };
    const auto text = [](std::size_t cut, std::size_t tagAt, TextView whole) {
        return Text(whole.substr(0, cut > tagAt + 2 ? cut - tagAt - 2 : 0));
    };
    for (std::size_t cut = 1; cut <= RecordSize; ++cut) {
        SCOPED_TRACE("cut behind " + std::to_string(cut) + " bytes");
        RegisterEntry expected;
        expected.RecIndex = static_cast<std::int16_t>(value(cut, RecIndexAt, {2, 1}));
        expected.RecNumber = static_cast<std::int16_t>(value(cut, RecNumberAt, {3, 1}));
        expected.Name = text(cut, NameAt, u"Aäb");
        expected.Tel = text(cut, TelAt, u"12");
        expected.Info = text(cut, InfoAt, u"xyz");
        expected.Ton = static_cast<std::int16_t>(value(cut, TonAt, {0x85, 0}));
        expected.MsnFilter = static_cast<std::int16_t>(value(cut, MsnFilterAt, {0x1F}));
        expected.GebEinh = value(cut, GebEinhAt, {1, 2, 3, 0});
        expected.AB = static_cast<std::int16_t>(value(cut, ABAt, {5}));

        const TestFolder folder;
        Bytes bytes = Join({FileHeader(), Records195()});
        bytes.resize(18 + cut);
        RegisterState state;
        ScriptedDesktop desktop;
        LoadRegisterFile(state, folder.Write("a.t9t", bytes), desktop);
        EXPECT_EQ(desktop.Transcript.back(), "file");
        EXPECT_EQ(state.AnzGes, 1);
        EXPECT_EQ(state.LoadedModel, u"195");
        // The check reports the counter once its third byte is there; it changes nothing here.
        EXPECT_EQ(state.Register(1), expected);
    }
}

TEST(RegisterFileDamage, ACut193FileIsA193FromItsToneTagOn) {
    // The first record: the tag of the tone stands behind 12 bytes.
    const Bytes& records = Records193();
    for (std::size_t cut = 1; cut <= 21; ++cut) {
        SCOPED_TRACE("cut behind " + std::to_string(cut) + " bytes");
        RegisterState state;
        const Bytes bytes(records.begin(), records.begin() + static_cast<std::ptrdiff_t>(cut));
        const Reading reading = ReadByProgram(bytes, state);
        EXPECT_EQ(reading.ending, Ending::Regular);
        EXPECT_EQ(reading.count, 1);
        EXPECT_EQ(reading.model, cut > 12 ? u"193" : u"195");

        RegisterEntry expected;
        expected.RecNumber = cut > 3 ? 1 : 0;
        expected.Name = Text(u"Ab").substr(0, cut > 6 ? cut - 6 : 0);
        expected.Tel = Text(u"12").substr(0, cut > 10 ? cut - 10 : 0);
        expected.Ton = cut > 13 ? 5 : 0;
        expected.MsnFilter = cut > 15 ? 0x1F : cut > 12 ? 15 : 0;
        expected.GebEinh = cut > 17 ? 200 : 0;
        EXPECT_EQ(state.Register(1), expected);
    }
}

TEST(RegisterFileDamage, AFileCutAtAnyByteIsReadWithoutAnError) {
    RegisterState state;
    for (const Bytes& records : {Records195(), Records193()}) {
        for (std::size_t cut = 0; cut <= records.size(); ++cut) {
            SCOPED_TRACE("cut behind " + std::to_string(cut) + " bytes");
            const Bytes bytes(records.begin(), records.begin() + static_cast<std::ptrdiff_t>(cut));
            EXPECT_EQ(PlainReader(bytes).Read().ending, Ending::Regular);
            ExpectReadAsByThePlainReader(bytes, state);
        }
    }
}

TEST(RegisterFileDamage, ALengthBeyondTheEndGivesAShorterText) {
    RegisterState state;
    EXPECT_EQ(ReadByProgram(Raw("0200 0201 06 FF 'abc'"), state).count, 1);
    EXPECT_EQ(state.Register(1).Name, u"abc");
}

// Changed bytes

const std::vector<Byte>& Replacements() {
    static const std::vector<Byte> bytes = {0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06,
                                            0x07, 0x09, 0x20, 0x7F, 0x80, 0xFE, 0xFF};
    return bytes;
}

TEST(RegisterFileDamage, EveryByteChangedIsReadAsByThePlainReader) {
    RegisterState state;
    for (const Bytes& records : {Records195(), Records193()}) {
        for (std::size_t at = 0; at < records.size(); ++at) {
            for (const Byte replacement : Replacements()) {
                SCOPED_TRACE("byte " + std::to_string(at) + " is " + std::to_string(replacement));
                Bytes bytes = records;
                bytes[at] = replacement;
                ExpectReadAsByThePlainReader(bytes, state);
            }
        }
    }
}

TEST(RegisterFileDamage, BytesInsertedAndRemovedAreReadAsByThePlainReader) {
    RegisterState state;
    for (const Bytes& records : {Records195(), Records193()}) {
        for (std::size_t at = 0; at < records.size(); ++at) {
            SCOPED_TRACE("byte " + std::to_string(at));
            const auto offset = static_cast<std::ptrdiff_t>(at);
            Bytes removed = records;
            removed.erase(removed.begin() + offset);
            ExpectReadAsByThePlainReader(removed, state);
            for (const Byte insertion : Replacements()) {
                Bytes inserted = records;
                inserted.insert(inserted.begin() + offset, insertion);
                ExpectReadAsByThePlainReader(inserted, state);
            }
        }
    }
}

TEST(RegisterFileDamage, BytesWithoutSenseAreReadAsByThePlainReader) {
    RegisterState state;
    for (unsigned seed = 1; seed <= 3000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        // Mostly tags, so that many reach far into a record.
        std::discrete_distribution<int> kind({1, 5, 3, 1, 6, 4});
        Bytes bytes;
        for (std::size_t length = 1 + random() % 80; length > 0; --length) {
            constexpr Byte Tags[] = {0x00, 0x02, 0x03, 0x04, 0x06};
            const int which = kind(random);
            bytes.push_back(which < 5 ? Tags[which] : static_cast<Byte>(random() % 256));
        }
        ExpectReadAsByThePlainReader(bytes, state);
    }
}

/// Whether the boxes of a load are among those that the operation has.
bool IsABoxOfALoad(const std::string& question) {
    return question == "entry" || question == "list" || question == "file" ||
           question.starts_with("open ") ||
           question == OkBox(u"Abweichender Header", u"norvik 195 laden", "Exclamation") ||
           question == OkBox(u"mnuLade193195: 6Überlauf", u"") ||
           question == OkBox(u"Sortierfehler", u"") ||
           (question.starts_with("box \"Es wurden ") &&
            question.ends_with(
                "\" title \"Fehlerprüfung\" icon Information buttons Ok default Ok -> Ok"));
}

TEST(RegisterFileDamage, TheMenuOperationEndsInOrderWhateverByteIsChanged) {
    const TestFolder folder;
    const Bytes whole = Join({FileHeader(), Records195()});
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const Byte replacement : {Byte{0x00}, Byte{0x04}, Byte{0x06}, Byte{0xFF}}) {
            SCOPED_TRACE("byte " + std::to_string(at) + " is " + std::to_string(replacement));
            Bytes bytes = whole;
            bytes[at] = replacement;
            RegisterState state;
            ScriptedDesktop desktop;
            desktop.AnswerFile(folder.Write("a.t9t", bytes));
            try {
                mnuDateiLoadNV(state, desktop);
                EXPECT_EQ(desktop.Transcript.back(), "list");
                EXPECT_EQ(state.AnzNr, 1);
                EXPECT_GE(state.AnzGes, 1);
                EXPECT_TRUE(state.LoadedModel == u"195" || state.LoadedModel == u"193");
            } catch (const HardStop&) {
                EXPECT_TRUE(desktop.Transcript.back() == OkBox(u"Sortierfehler", u"") ||
                            desktop.Transcript.back() == "pointer Hourglass")
                    << desktop.Transcript.back();
            }
            for (const std::string& question : desktop.Questions()) {
                EXPECT_TRUE(IsABoxOfALoad(question)) << question;
            }
        }
    }
}

}  // namespace

}  // namespace norvik::test
