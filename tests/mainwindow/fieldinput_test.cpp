#include "mainwindow/fieldinput.h"

#include "mainwindow/fields.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <random>

namespace norvik {

// Beside the type, where GoogleTest looks for them.
static bool operator==(const FieldEdit& a, const FieldEdit& b) {
    return a.FieldText == b.FieldText && a.Cursor == b.Cursor && a.Beep == b.Beep;
}

static std::ostream& operator<<(std::ostream& out, const FieldEdit& edit) {
    out << '"';
    for (const char16_t c : edit.FieldText) {
        out << (c < 0x7F && c >= 0x20 ? std::string(1, static_cast<char>(c))
                                      : "<" + std::to_string(c) + ">");
    }
    return out << "\" cursor " << edit.Cursor << (edit.Beep ? " beep" : "");
}

namespace test {
namespace {

const FieldRule NameRule = RuleOfField(NameField);
const FieldRule InfoRule = RuleOfField(FirstInfoField);

constexpr TextView Full = u"123456789012345678901";

/// What the field `before` becomes when `inserted` is put in at `place` over `replaced` characters.
FieldEdit Insert(TextView before, std::size_t place, std::u16string_view inserted,
                 const FieldRule& rule, std::size_t replaced = 0) {
    std::u16string after(before);
    after.replace(place, replaced, inserted);
    return ChangeField(before, after, place + inserted.size(), rule);
}

FieldEdit Quiet(TextView text, std::size_t cursor) {
    return {.FieldText = Text(text), .Cursor = cursor, .Beep = false};
}

FieldEdit Beeping(TextView text, std::size_t cursor) {
    return {.FieldText = Text(text), .Cursor = cursor, .Beep = true};
}

/// `text` filled up to an info line.
Text Padded(TextView text) {
    Text result(text);
    result.resize(21, u' ');
    return result;
}

TEST(RuleOfField, NameAndNumberHaveUpToTwentyOneCharacters) {
    for (const int field : {0, 1}) {
        EXPECT_EQ(RuleOfField(field).Width, 21U);
        EXPECT_FALSE(RuleOfField(field).Padded);
    }
}

TEST(RuleOfField, InfoLinesAlwaysHaveTwentyOne) {
    for (int field = 8; field <= 13; ++field) {
        EXPECT_EQ(RuleOfField(field).Width, 21U);
        EXPECT_TRUE(RuleOfField(field).Padded);
    }
}

TEST(ChangeField, TypingIntoANameIsTakenAsItIs) {
    EXPECT_EQ(Insert(u"", 0, u"A", NameRule), Quiet(u"A", 1));
    EXPECT_EQ(Insert(u"Ana", 2, u"n", NameRule), Quiet(u"Anna", 3));
    EXPECT_EQ(Insert(u"Anna", 4, u" ", NameRule), Quiet(u"Anna ", 5));
}

TEST(ChangeField, DeletingIsTakenAsItIs) {
    EXPECT_EQ(ChangeField(u"Anna", u"Ana", 2, NameRule), Quiet(u"Ana", 2));
    EXPECT_EQ(ChangeField(u"Anna", u"", 0, NameRule), Quiet(u"", 0));
    EXPECT_EQ(ChangeField(Padded(u"Anna"), u"", 0, InfoRule), Quiet(Padded(u""), 0));
}

TEST(ChangeField, TheTwentyFirstCharacterOfANameStillFits) {
    EXPECT_EQ(Insert(Full.substr(0, 20), 20, u"1", NameRule), Quiet(Full, 21));
}

TEST(ChangeField, ANameLongerThanTwentyOneBeepsAndIsCut) {
    EXPECT_EQ(Insert(Full, 21, u"2", NameRule), Beeping(Full, 21));
}

TEST(ChangeField, TypingIntoTheMiddleOfAFullNameCutsItsEnd) {
    EXPECT_EQ(Insert(Full, 0, u"x", NameRule), Beeping(u"x12345678901234567890", 1));
}

TEST(ChangeField, ABlankTooManyBehindAFullNameBeepsToo) {
    EXPECT_EQ(Insert(Full, 21, u" ", NameRule), Beeping(Full, 21));
}

TEST(ChangeField, APastedTextIsCutAsTypedTextIs) {
    EXPECT_EQ(Insert(u"ab", 1, u"0123456789012345678901234", NameRule),
              Beeping(u"a01234567890123456789", 21));
}

TEST(ChangeField, AnInfoLineIsFilledUpWithBlanks) {
    EXPECT_EQ(ChangeField(u"", u"A", 1, InfoRule), Quiet(u"A                    ", 1));
}

TEST(ChangeField, TypingIntoAnInfoLineCutsItsPaddingWithoutABeep) {
    EXPECT_EQ(Insert(Padded(u"Ana"), 2, u"n", InfoRule), Quiet(Padded(u"Anna"), 3));
    EXPECT_EQ(Insert(Padded(u""), 0, u" ", InfoRule), Quiet(Padded(u""), 1));
}

TEST(ChangeField, DeletingInAnInfoLineFillsItUp) {
    EXPECT_EQ(ChangeField(Padded(u"Anna"), Padded(u"Anna").substr(1), 0, InfoRule),
              Quiet(Padded(u"nna"), 0));
}

TEST(ChangeField, AnInfoLineThatLosesACharacterBeeps) {
    EXPECT_EQ(Insert(Full, 21, u"2", InfoRule), Beeping(Full, 21));
    EXPECT_EQ(Insert(Full, 3, u"x", InfoRule), Beeping(u"123x45678901234567890", 4));
}

TEST(ChangeField, AnInfoLineThatLosesOneBlankAndOneCharacterBeeps) {
    // Two are pushed out: the blank at the end and the character before it.
    EXPECT_EQ(Insert(u"12345678901234567890 ", 0, u"xy", InfoRule),
              Beeping(u"xy1234567890123456789", 2));
}

TEST(ChangeField, ACharacterBehindTheEndOfAPaddedLineBeeps) {
    EXPECT_EQ(Insert(Padded(u"Anna"), 21, u"x", InfoRule), Beeping(Padded(u"Anna"), 21));
}

TEST(ChangeField, AnInputBoxTakesAnyLength) {
    const Text longText(5000, u'x');
    EXPECT_EQ(Insert(longText, 5000, u"y", FieldRule()), Quiet(longText + u"y", 5001));
}

TEST(ChangeField, ALineEndPutInBecomesOneBlank) {
    EXPECT_EQ(Insert(u"ab", 1, u"\r\n", NameRule), Quiet(u"a b", 2));
    EXPECT_EQ(Insert(u"ab", 1, u"\n", NameRule), Quiet(u"a b", 2));
    EXPECT_EQ(Insert(u"ab", 1, u"\r", NameRule), Quiet(u"a b", 2));
    EXPECT_EQ(Insert(u"ab", 1, u"\u2028", NameRule), Quiet(u"a b", 2));
    EXPECT_EQ(Insert(u"ab", 1, u"x\r\ny\r\n\r\nz", NameRule), Quiet(u"ax y  zb", 7));
    EXPECT_EQ(Insert(u"ab", 1, u"\n\r", NameRule), Quiet(u"a  b", 3));
}

TEST(ChangeField, AControlCharacterPutInBecomesABlank) {
    EXPECT_EQ(Insert(u"ab", 1, u"\t", NameRule), Quiet(u"a b", 2));
    EXPECT_EQ(Insert(u"ab", 1, std::u16string_view(u"\0", 1), NameRule), Quiet(u"a b", 2));
    EXPECT_EQ(Insert(u"ab", 1, u"\u007F", NameRule), Quiet(u"a b", 2));
    EXPECT_EQ(Insert(u"ab", 1, u"\u0081", NameRule), Quiet(u"a b", 2));
}

TEST(ChangeField, ControlCharactersThatWereLoadedStay) {
    EXPECT_EQ(Insert(u"a\tb", 3, u"c", NameRule), Quiet(u"a\tbc", 4));
    EXPECT_EQ(Insert(u"a\r\nb", 0, u"\n", NameRule), Quiet(u" a\r\nb", 1));
    EXPECT_EQ(ChangeField(u"a\tbc", u"a\tb", 3, NameRule), Quiet(u"a\tb", 3));
}

TEST(ChangeField, ALineEndInAReplacedSelectionBecomesABlank) {
    EXPECT_EQ(Insert(u"Anna Berg", 4, u"\r\n", NameRule, 1), Quiet(u"Anna Berg", 5));
    EXPECT_EQ(Insert(u"Anna", 0, u"\tAnna", NameRule, 4), Quiet(u" Anna", 5));
}

TEST(ChangeField, ACharacterOutsideTheRepertoireIsRefusedWithABeep) {
    EXPECT_EQ(Insert(u"Anna", 4, u"\u03A9", NameRule), Beeping(u"Anna", 4));
    EXPECT_EQ(Insert(u"Anna", 2, u"\u0080", NameRule), Beeping(u"Anna", 2));
    EXPECT_EQ(Insert(Padded(u"Anna"), 4, u"\u03A9", InfoRule), Beeping(Padded(u"Anna"), 4));
}

TEST(ChangeField, OneForeignCharacterRefusesAWholePastedText) {
    EXPECT_EQ(Insert(u"Anna", 4, u" und \u0416enja", NameRule), Beeping(u"Anna", 4));
}

TEST(ChangeField, ACharacterBeyondSixteenBitsIsRefused) {
    EXPECT_EQ(Insert(u"Anna", 4, u"\U0001F600", NameRule), Beeping(u"Anna", 4));
    EXPECT_EQ(Insert(u"Anna", 4, std::u16string(1, char16_t{0xD83D}), NameRule),
              Beeping(u"Anna", 4));
}

TEST(ChangeField, ARefusedTextLeavesTheSelectionThatItWouldReplace) {
    EXPECT_EQ(Insert(u"Anna", 0, u"\u03A9", NameRule, 4), Beeping(u"Anna", 0));
}

TEST(ChangeField, TheWholeRepertoireIsTaken) {
    EXPECT_EQ(Insert(u"", 0, u"ÄÖÜäöüß€„“éè°§ŠŒŽŸ~}", NameRule),
              Quiet(u"ÄÖÜäöüß€„“éè°§ŠŒŽŸ~}", 20));
}

TEST(ChangeField, NoChangeIsQuiet) {
    EXPECT_EQ(ChangeField(u"a\tb", u"a\tb", 2, NameRule), Quiet(u"a\tb", 2));
    EXPECT_EQ(ChangeField(Full, Full, 21, InfoRule), Quiet(Full, 21));
}

TEST(ChangeField, PuttingInAnythingKeepsWhatStoodThereAndCleansOnlyTheNew) {
    std::mt19937 random(7);
    const auto pick = [&](std::size_t below) {
        return std::uniform_int_distribution<std::size_t>(0, below - 1)(random);
    };
    const auto text = [&](std::size_t longest) {
        Text result;
        for (std::size_t length = pick(longest + 1); length > 0; --length) {
            result.push_back(u"aab\t "[pick(5)]);
        }
        return result;
    };
    const auto controls = [](TextView t) { return std::count(t.begin(), t.end(), u'\t'); };
    for (int round = 0; round < 3000; ++round) {
        const Text before = text(8);
        const Text inserted = text(5);
        const std::size_t place = pick(before.size() + 1);

        const FieldEdit edit = Insert(before, place, inserted, NameRule);

        Text blanked = Text(before).insert(place, inserted);
        std::replace(blanked.begin(), blanked.end(), u'\t', u' ');
        Text result = edit.FieldText;
        EXPECT_EQ(controls(result), controls(before));
        std::replace(result.begin(), result.end(), u'\t', u' ');
        EXPECT_EQ(result, blanked);
        EXPECT_EQ(edit.Cursor, place + inserted.size());
        EXPECT_FALSE(edit.Beep);
    }
}

TEST(ChangeField, ATabStaysOneWhereTheFieldTakesIt) {
    const FieldRule rule = {.TakesTab = true};
    EXPECT_EQ(Insert(u"a", 1, u"\t", rule), Quiet(u"a\t", 2));
    EXPECT_EQ(Insert(u"", 0, u"\t\n\x01", rule), Quiet(u"\t  ", 3));
    EXPECT_EQ(Insert(u"a", 1, u"\t", NameRule), Quiet(u"a ", 2));
}

TEST(CursorAtEntering, StandsBehindTheLastCharacterThatIsNoBlank) {
    EXPECT_EQ(CursorAtEntering(Padded(u"")), 0U);
    EXPECT_EQ(CursorAtEntering(Padded(u"Anna")), 4U);
    EXPECT_EQ(CursorAtEntering(Padded(u" a b")), 4U);
    EXPECT_EQ(CursorAtEntering(Full), 21U);
    EXPECT_EQ(CursorAtEntering(u""), 0U);
}

}  // namespace
}  // namespace test
}  // namespace norvik
