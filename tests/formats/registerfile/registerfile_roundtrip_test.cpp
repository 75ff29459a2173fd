// What the writers wrote, the reader reads back: random registers of values that the file can hold.
#include "formats/registerfile/registerfilereader.h"

#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace norvik::test {

namespace {

/// Characters that the telephones keep: those of the device's table, and Windows characters whose
/// byte does not mean another one there.
constexpr TextView DeviceText = u"äöüßÄÖÜéèê^°§âôaZ09 ()[],;.\"'\\\t~\u0001àÉñÿ€ž\u0090";
/// Any character may stand in a number.
constexpr TextView NumberText = u"0123456789*#pPFi+-/ äöüß^°§âé\u0081„Š•";

class RandomEntries {
  public:
    explicit RandomEntries(unsigned seed) : random_(seed) {}

    int UpTo(int limit) { return std::uniform_int_distribution<int>(0, limit)(random_); }

    Text TextOf(TextView characters, int longest) {
        Text text;
        for (int length = UpTo(longest); length > 0; --length) {
            text +=
                characters[static_cast<std::size_t>(UpTo(static_cast<int>(characters.size()) - 1))];
        }
        return Text(RightTrim(text));
    }

    /// Sometimes a short, sometimes the longest text.
    int Longest() { return UpTo(9) == 0 ? 255 : 21; }

    /// Small values, limits and anything between.
    int ValueUpTo(int limit) {
        switch (UpTo(3)) {
        case 0:
            return std::min(limit, 126 + UpTo(3));
        case 1:
            return limit;
        default:
            return UpTo(limit);
        }
    }

    RegisterEntry Any() {
        RegisterEntry entry = Entry(TextOf(DeviceText, Longest()), TextOf(NumberText, Longest()),
                                    TextOf(DeviceText, UpTo(1) == 0 ? 126 : 255));
        entry.RecIndex = static_cast<std::int16_t>(UpTo(32767));
        entry.RecNumber = static_cast<std::int16_t>(UpTo(32767));
        entry.Ton = static_cast<std::int16_t>(ValueUpTo(32767));
        entry.MsnFilter = static_cast<std::int16_t>(ValueUpTo(32767));
        entry.GebEinh = ValueUpTo(65535);
        entry.AB = static_cast<std::int16_t>(ValueUpTo(32767));
        return entry;
    }

    /// An entry that the check of a load leaves alone.
    RegisterEntry Valid() {
        RegisterEntry entry = Any();
        entry.Ton = static_cast<std::int16_t>(UpTo(79) + 0x80 * UpTo(1));
        entry.GebEinh = ValueUpTo(32768);
        entry.AB = static_cast<std::int16_t>(UpTo(7));
        return entry;
    }

    template <typename Make>
    RegisterState Register(int count, Make make) {
        RegisterState state = RegisterOf({});
        std::vector<std::int16_t> places(RegisterPlaces);
        std::iota(places.begin(), places.end(), std::int16_t{1});
        std::shuffle(places.begin(), places.end(), random_);
        for (int position = 1; position <= RegisterPlaces; ++position) {
            state.RegisterOrder(position) = places[static_cast<std::size_t>(position - 1)];
        }
        for (int position = 1; position <= count; ++position) {
            EntryAt(state, position) = make();
        }
        SetCount(state, count);
        CountMarked(state);
        return state;
    }

  private:
    std::mt19937 random_;
};

RegisterEntry ExpectedFrom195(RegisterEntry entry, int record) {
    entry.RecIndex = static_cast<std::int16_t>(record - 1);
    entry.RecNumber = static_cast<std::int16_t>(record);
    return entry;
}

RegisterEntry ExpectedFrom193(RegisterEntry entry, int record) {
    entry = ExpectedFrom195(entry, record);
    entry.Name = entry.Name.substr(0, 20);
    entry.Info = u"";
    entry.Ton = 0;
    entry.MsnFilter = static_cast<std::int16_t>(entry.MsnFilter | 15);
    entry.AB = 0;
    return entry;
}

/// Reads the records of a whole file, without the check.
int ReadRecords(RegisterState& state, const Bytes& file) {
    constexpr std::size_t HeaderSize = 18;
    state.LoadedModel = u"195";
    ByteReader bytes(ByteView(file).subspan(HeaderSize));
    return ReadRegisterRecords(state, bytes);
}

TEST(RegisterFileRoundtrip, A195FileGivesTheSameRegisterInEveryField) {
    const TestFolder folder;
    const FilePath path = folder / "a.t9t";
    for (unsigned seed = 1; seed <= 150; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomEntries random(seed);
        RegisterState written = random.Register(random.UpTo(12), [&] { return random.Any(); });
        ScriptedDesktop desktop;
        WriteRegisterFile195(written, path, desktop);

        RegisterState read;
        ASSERT_EQ(ReadRecords(read, ReadFile(path)), written.AnzGes);
        EXPECT_EQ(read.LoadedModel, u"195");
        for (int record = 1; record <= written.AnzGes; ++record) {
            EXPECT_EQ(read.Register(record), ExpectedFrom195(EntryAt(written, record), record));
        }
    }
}

TEST(RegisterFileRoundtrip, A193FileLosesItsOwnFieldsOnly) {
    const TestFolder folder;
    const FilePath path = folder / "a.t9t";
    for (unsigned seed = 1; seed <= 150; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomEntries random(seed);
        RegisterState written = random.Register(1 + random.UpTo(12), [&] { return random.Any(); });
        ScriptedDesktop desktop;
        WriteRegisterFile193(written, path, false, desktop);

        RegisterState read;
        ASSERT_EQ(ReadRecords(read, ReadFile(path)), written.AnzGes);
        EXPECT_EQ(read.LoadedModel, u"193");
        for (int record = 1; record <= written.AnzGes; ++record) {
            EXPECT_EQ(read.Register(record), ExpectedFrom193(EntryAt(written, record), record));
        }
    }
}

TEST(RegisterFileRoundtrip, LoadingShowsNoMessageForValuesThatTheTelephonesHold) {
    const TestFolder folder;
    const FilePath path = folder / "a.t9t";
    for (unsigned seed = 1; seed <= 50; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomEntries random(seed);
        RegisterState written =
            random.Register(1 + random.UpTo(12), [&] { return random.Valid(); });
        ScriptedDesktop desktop;
        WriteRegisterFile195(written, path, desktop);
        desktop.Transcript.clear();

        RegisterState read;
        LoadRegisterFile(read, path, desktop);
        EXPECT_EQ(desktop.Transcript, (std::vector<std::string>{"pointer Hourglass",
                                                                "pointer Normal", "list", "file"}));
        ASSERT_EQ(read.AnzGes, written.AnzGes);
        for (int record = 1; record <= written.AnzGes; ++record) {
            EXPECT_EQ(EntryAt(read, record), ExpectedFrom195(EntryAt(written, record), record));
        }
    }
}

TEST(RegisterFileRoundtrip, TheMarkedEntriesOfA193FileKeepTheirOrder) {
    const TestFolder folder;
    const FilePath path = folder / "a.t9t";
    for (unsigned seed = 1; seed <= 50; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomEntries random(seed);
        RegisterState written = random.Register(1 + random.UpTo(20), [&] {
            RegisterEntry entry = random.Any();
            entry.Info += random.UpTo(1) == 0 ? u"()" : u"x";
            entry.Info.erase(0, entry.Info.size() - std::min<std::size_t>(entry.Info.size(), 255));
            return entry;
        });
        written.AnzMarkiert = 1;
        ScriptedDesktop desktop;
        WriteRegisterFile193(written, path, true, desktop);

        std::vector<RegisterEntry> expected;
        for (int position = 1; position <= written.AnzGes; ++position) {
            const RegisterEntry& entry = EntryAt(written, position);
            if (entry.Info.find(u"()") != Text::npos) {
                expected.push_back(ExpectedFrom193(entry, static_cast<int>(expected.size()) + 1));
            }
        }
        RegisterState read;
        ASSERT_EQ(ReadRecords(read, ReadFile(path)), static_cast<int>(expected.size()));
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(read.Register(static_cast<int>(i) + 1), expected[i]);
        }
    }
}

TEST(RegisterFileRoundtrip, WritingWhatWasReadGivesTheSameBytes) {
    const TestFolder folder;
    for (unsigned seed = 1; seed <= 50; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomEntries random(seed);
        RegisterState written = random.Register(random.UpTo(12), [&] { return random.Valid(); });
        ScriptedDesktop desktop;
        WriteRegisterFile195(written, folder / "a.t9t", desktop);
        RegisterState read;
        LoadRegisterFile(read, folder / "a.t9t", desktop);
        WriteRegisterFile195(read, folder / "b.t9t", desktop);
        EXPECT_EQ(ReadFile(folder / "a.t9t"), ReadFile(folder / "b.t9t"));
    }
}

TEST(RegisterFileRoundtrip, AFullRegisterComesBackWhole) {
    const TestFolder folder;
    const FilePath path = folder / "a.t9t";
    RandomEntries random(7);
    RegisterState written = random.Register(2000, [&] { return random.Valid(); });
    ScriptedDesktop desktop;
    WriteRegisterFile195(written, path, desktop);
    RegisterState read;
    LoadRegisterFile(read, path, desktop);
    ASSERT_EQ(read.AnzGes, 2000);
    for (int record = 1; record <= 2000; ++record) {
        ASSERT_EQ(EntryAt(read, record), ExpectedFrom195(EntryAt(written, record), record));
    }
}

}  // namespace

}  // namespace norvik::test
