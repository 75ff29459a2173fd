// What is written is read back, for all formats that hold a register as text.
#include "formats/csv/csvformat.h"
#include "formats/phonebook175/phonebookfile.h"

#include "tests/losses/randomregister.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;

enum class Form { Quoted, Plain };

FilePath Save(RegisterState& state, Form form, const TestFolder& folder) {
    const FilePath path = folder / "a.csv";
    ScriptedDesktop desktop;
    desktop.AnswerBox(form == Form::Quoted ? Button::Yes : Button::No);
    SaveCSV(state, path, desktop);
    return path;
}

RegisterState Load(const FilePath& path) {
    RegisterState state;
    ScriptedDesktop desktop;
    LoadCSV(state, path, Settings(), desktop);
    return state;
}

RegisterState ThroughCSV(RegisterState state, Form form) {
    const TestFolder folder;
    return Load(Save(state, form, folder));
}

/// What comes back for a register of this one entry.
RegisterEntry EntryThroughCSV(const RegisterEntry& entry, Form form) {
    const RegisterState state = ThroughCSV(RegisterOf({entry}), form);
    EXPECT_EQ(state.AnzGes, 1);
    return state.Register(1);
}

RegisterState ThroughPhonebook(RegisterState state) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    WritePhonebookFile(state, folder / "a.pbo", desktop);
    RegisterState loaded;
    EXPECT_TRUE(LoadPhonebookFile(loaded, folder / "a.pbo", desktop));
    return loaded;
}

RegisterEntry EntryThroughPhonebook(const RegisterEntry& entry) {
    const RegisterState state = ThroughPhonebook(RegisterOf({entry}));
    EXPECT_EQ(state.AnzGes, 1);
    return state.Register(1);
}

/// All characters that a text of these formats can hold in every form.
Text Characters() {
    Text characters;
    for (int byte = 0; byte <= 0xFF; ++byte) {
        const char16_t character = CharacterOf(static_cast<Byte>(byte));
        if (character != u';' && character != u'"' && character != u'\r') {
            characters.push_back(character);
        }
    }
    return characters;
}

/// A register as it comes from a 195, in a random order.
RegisterState RandomRegister(unsigned seed) {
    RandomValues random(seed);
    const Text characters = Characters();
    RegisterState state = RegisterOf({});
    SetCount(state, random.Below(40) + 1);
    for (int place = 1; place <= state.AnzGes; ++place) {
        RegisterEntry& entry = state.Register(place);
        entry.RecIndex = random.Any<std::int16_t>();
        entry.RecNumber = random.Any<std::int16_t>();
        entry.Name = random.TextOf(characters, 21);
        entry.Tel = (random.Toss() ? u"i" : u"") + random.TextOf(u"0123456789*#A()-pw", 20);
        entry.Info = random.TextOf(random.Toss() ? characters : Text(u"ab    "), 126);
        entry.Ton = static_cast<std::int16_t>(random.Below(80) + 128 * random.Below(2));
        const int msn = random.Below(7);
        entry.MsnFilter = static_cast<std::int16_t>((msn == 6 ? 15 : msn) + 16 * random.Below(2) +
                                                    64 * random.Below(4));
        entry.GebEinh = random.Toss() ? random.Below(300) : random.Any<std::int32_t>();
        entry.AB = static_cast<std::int16_t>(random.Below(8));
        entry.Listed = random.Toss();
    }
    random.Shuffle(state);
    return state;
}

// Random registers

class RandomRegisters : public testing::TestWithParam<unsigned> {};

TEST_P(RandomRegisters, ComeBackFromACsvFileButForTheRunningNumbersAndTheListedMark) {
    const RegisterState written = RandomRegister(GetParam());
    for (const Form form : {Form::Quoted, Form::Plain}) {
        const RegisterState read = ThroughCSV(written, form);
        ASSERT_EQ(read.AnzGes, written.AnzGes);
        for (int position = 1; position <= written.AnzGes; ++position) {
            RegisterEntry expected = EntryAt(written, position);
            expected.RecIndex = static_cast<std::int16_t>(position - 1);
            expected.RecNumber = 0;
            expected.Listed = false;
            ASSERT_EQ(read.Register(position), expected) << position;
        }
    }
}

TEST_P(RandomRegisters, ComeBackFromAPhonebookFileWithNameNumberAndTrimmedInfo) {
    const RegisterState written = RandomRegister(GetParam());
    const RegisterState read = ThroughPhonebook(written);
    ASSERT_EQ(read.AnzGes, written.AnzGes);
    for (int position = 1; position <= written.AnzGes; ++position) {
        const RegisterEntry& entry = EntryAt(written, position);
        RegisterEntry expected = Entry(entry.Name, entry.Tel, TrimBlanks(entry.Info));
        expected.RecIndex = static_cast<std::int16_t>(position);
        ASSERT_EQ(read.Register(position), expected) << position;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomRegisters, testing::Range(1U, 41U));

// What does not come back from a CSV file

TEST(CsvRoundTrip, ALongNameIsCutTo20CharactersAndAPoint) {
    for (const Form form : {Form::Quoted, Form::Plain}) {
        EXPECT_EQ(EntryThroughCSV(Entry(u"ABCDEFGHIJKLMNOPQRSTUV", u"1"), form),
                  Entry(u"ABCDEFGHIJKLMNOPQRST.", u"1"));
    }
}

TEST(CsvRoundTrip, TheNumberIsCutAndCleaned) {
    for (const Form form : {Form::Quoted, Form::Plain}) {
        EXPECT_EQ(EntryThroughCSV(Entry(u"a", u"+49 30/123"), form).Tel, u"4930123");
        EXPECT_EQ(EntryThroughCSV(Entry(u"a", u"1234567890123456789012"), form).Tel,
                  u"123456789012345678901");
    }
}

TEST(CsvRoundTrip, BlanksAtTheEndOfANameStayOnlyBetweenQuotes) {
    EXPECT_EQ(EntryThroughCSV(Entry(u" a  "), Form::Quoted).Name, u" a  ");
    EXPECT_EQ(EntryThroughCSV(Entry(u" a  "), Form::Plain).Name, u" a");
}

TEST(CsvRoundTrip, ASemicolonStaysOnlyBetweenQuotes) {
    EXPECT_EQ(EntryThroughCSV(Entry(u"a;b", u"1", u"c;d"), Form::Quoted),
              Entry(u"a;b", u"1", u"c;d"));
    const RegisterEntry split = EntryThroughCSV(Entry(u"a;2", u"1"), Form::Plain);
    EXPECT_EQ(split.Name, u"a");
    EXPECT_EQ(split.Tel, u"2");
    EXPECT_EQ(split.Info, u"1");
}

TEST(CsvRoundTrip, QuotesAroundAValueAreLostWithoutQuotesAroundAll) {
    EXPECT_EQ(EntryThroughCSV(Entry(u"\"a\"", u"1"), Form::Plain), Entry(u"a", u"1"));
    EXPECT_EQ(EntryThroughCSV(Entry(u"a \"b\" c", u"1"), Form::Plain), Entry(u"a \"b\" c", u"1"));
}

TEST(CsvRoundTrip, AQuoteInAQuotedValueShiftsTheColumns) {
    const RegisterEntry shifted = EntryThroughCSV(Entry(u"a\"b", u"1"), Form::Quoted);
    EXPECT_EQ(shifted.Name, u"a");
    EXPECT_EQ(shifted.Tel, u"");
}

TEST(CsvRoundTrip, ALineEndInATextBreaksItsLine) {
    const RegisterState state = ThroughCSV(RegisterOf({Entry(u"An\rna", u"1")}), Form::Plain);
    EXPECT_THAT(Names(state), ElementsAre(u"na"));
}

TEST(CsvRoundTrip, InfoBehindTheSixthLineIsLost) {
    for (const Form form : {Form::Quoted, Form::Plain}) {
        EXPECT_EQ(EntryThroughCSV(Entry(u"a", u"1", Text(126, u'x') + u"yz"), form).Info,
                  Text(126, u'x'));
    }
}

TEST(CsvRoundTrip, AnMsnThatNoTelephoneHasBecomesNone) {
    for (std::int16_t msn = 6; msn <= 14; ++msn) {
        RegisterEntry entry = Entry(u"a", u"1");
        entry.MsnFilter = msn;
        EXPECT_EQ(EntryThroughCSV(entry, Form::Plain).MsnFilter, 15);
    }
}

TEST(CsvRoundTrip, BitsOfTheWordsWithoutAColumnAreLost) {
    RegisterEntry entry = Entry(u"a", u"1");
    entry.MsnFilter = 0x7F00 + 0x20 + 0x10 + 3;
    entry.Ton = 0x7F00 + 0x80 + 12;
    const RegisterEntry read = EntryThroughCSV(entry, Form::Plain);
    EXPECT_EQ(read.MsnFilter, 0x10 + 3);
    EXPECT_EQ(read.Ton, 0x80 + 12);
}

TEST(CsvRoundTrip, EveryCharacterButTheSeparatorsComesBack) {
    RegisterState written = RegisterOf({});
    for (const char16_t character : Characters()) {
        SetCount(written, written.AnzGes + 1);
        written.Register(written.AnzGes).Name = Text{u'a', character, u'b'};
        written.Register(written.AnzGes).Info = Text{character, u'b'};
    }
    EXPECT_EQ(written.AnzGes, 253);
    for (const Form form : {Form::Quoted, Form::Plain}) {
        EXPECT_TRUE(ContentsOf(ThroughCSV(written, form)) == ContentsOf(written));
    }
}

// What does not come back from a phonebook file

TEST(PhonebookRoundTrip, LongNamesAndNumbersAreCut) {
    RegisterEntry expected = Entry(u"ABCDEFGHIJKLMNOPQRSTU", u"123456789012345678901");
    expected.RecIndex = 1;
    EXPECT_EQ(EntryThroughPhonebook(Entry(u"ABCDEFGHIJKLMNOPQRSTUV", u"1234567890123456789012")),
              expected);
}

TEST(PhonebookRoundTrip, AnEmptyFirstInfoLineIsLostAndTheOthersMoveUp) {
    EXPECT_EQ(EntryThroughPhonebook(Entry(u"a", u"1",
                                          u"                     "
                                          u"  second             "
                                          u"third"))
                  .Info,
              u"second             th"
              u"ird");
}

TEST(PhonebookRoundTrip, SemicolonsQuotesAndUncleanedNumbersComeBack) {
    RegisterEntry expected = Entry(u"\"a;b\" ", u"+49 (0) 30/1 ", u"\"c\";d");
    expected.RecIndex = 1;
    EXPECT_EQ(EntryThroughPhonebook(Entry(u"\"a;b\" ", u"+49 (0) 30/1 ", u"\"c\";d")), expected);
}

TEST(PhonebookRoundTrip, ToneMsnFilterCounterAndAnnouncementAreLost) {
    RegisterEntry entry = Entry(u"a", u"1");
    entry.Ton = 130;
    entry.MsnFilter = 0;
    entry.GebEinh = 7;
    entry.AB = 3;
    RegisterEntry expected = Entry(u"a", u"1");
    expected.RecIndex = 1;
    EXPECT_EQ(EntryThroughPhonebook(entry), expected);
}

}  // namespace

}  // namespace norvik::test
