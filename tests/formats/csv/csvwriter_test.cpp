#include "formats/csv/csvformat.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string Question =
    "box \"Sollen die Daten in \" \" gesetzt werden?\" title \"Speichern im CSV-Format\" "
    "icon Question buttons Yes+No default Yes -> ";

const std::string QuotedHeader =
    "\"Name\";\"Tel\";\"Info1\";\"Info2\";\"Info3\";\"Info4\";\"Info5\";\"Info6\";\"AB\";\"Ton\";"
    "\"EnTon\";\"MSN\";\"Filter\";\"GebEinh\";\"EnGeb\"\r\n";
const std::string PlainHeader = "Name;Tel;Info1;Info2;Info3;Info4;Info5;Info6;AB;Ton;EnTon;MSN;"
                                "Filter;GebEinh;EnGeb\r\n";

/// The file that saving gives, with the button as the answer to the question.
std::string Saved(RegisterState& state, Button answer) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    desktop.AnswerBox(answer);
    SaveCSV(state, folder / "a.csv", desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Question + (answer == Button::Yes ? "Yes" : "No")));
    const Bytes bytes = ReadFile(folder / "a.csv");
    return {bytes.begin(), bytes.end()};
}

/// The line of a register's only entry.
std::string PlainLine(const RegisterEntry& entry) {
    RegisterState state = RegisterOf({entry});
    const std::string file = Saved(state, Button::No);
    EXPECT_EQ(file.substr(0, PlainHeader.size()), PlainHeader);
    return file.substr(PlainHeader.size());
}

RegisterEntry Full() {
    RegisterEntry entry = Entry(u"Müller, Jörg", u"i0301234*#",
                                u"Büro                 "
                                u"  zweite Zeile       "
                                u"                     "
                                u"vierte               "
                                u"einundzwanzig Zeichen"
                                u"Ende");
    entry.RecNumber = 99;
    entry.Ton = 0x85;
    entry.MsnFilter = 0x95;  // MSN 6, counter on, VIP
    entry.GebEinh = 1234567;
    entry.AB = 7;
    entry.Listed = true;
    return entry;
}

RegisterEntry WithFlags(int flags) {
    RegisterEntry entry = Entry(u"n", u"1");
    entry.MsnFilter = static_cast<std::int16_t>(flags);
    return entry;
}

TEST(SaveCSV, YesSetsEveryValueInQuotesHeaderNamesIncluded) {
    RegisterState state = RegisterOf({Full()});
    EXPECT_EQ(Saved(state, Button::Yes),
              QuotedHeader + "\"M\xFCller, J\xF6rg\";\"i0301234*#\";\"B\xFCro\";\"  zweite "
                             "Zeile\";\"\";\"vierte\";\"einundzwanzig Zeichen\";\"Ende\";\"7\";"
                             "\"5\";\"ja\";\"06\";\"VIP \";\"1234567\";\"ja\"\r\n");
}

TEST(SaveCSV, NoSetsNoneInQuotes) {
    RegisterState state = RegisterOf({Full()});
    EXPECT_EQ(Saved(state, Button::No),
              PlainHeader + "M\xFCller, J\xF6rg;i0301234*#;B\xFCro;  zweite Zeile;;vierte;"
                            "einundzwanzig Zeichen;Ende;7;5;ja;06;VIP ;1234567;ja\r\n");
}

TEST(SaveCSV, AnEntryWithAnEmptyInfoGivesSixEmptyColumns) {
    RegisterState state = RegisterOf({Entry(u"Anna", u"030")});
    EXPECT_EQ(Saved(state, Button::Yes),
              QuotedHeader + "\"Anna\";\"030\";\"\";\"\";\"\";\"\";\"\";\"\";\"0\";\"0\";\"nein\";"
                             "\"00\";\"Kein\";\"0\";\"nein\"\r\n");
    EXPECT_EQ(PlainLine(Entry(u"Anna", u"030")), "Anna;030;;;;;;;0;0;nein;00;Kein;0;nein\r\n");
}

TEST(SaveCSV, FlagWord15WithoutAnMsnGives00) {
    EXPECT_EQ(PlainLine(WithFlags(15)), "n;1;;;;;;;0;0;nein;00;Kein;0;nein\r\n");
}

TEST(SaveCSV, MsnIndex5Gives06AndTheIndexes6To14Give00) {
    const std::vector<std::string> columns = {"01", "02", "03", "04", "05", "06", "00", "00",
                                              "00", "00", "00", "00", "00", "00", "00", "00"};
    for (std::size_t msn = 0; msn < columns.size(); ++msn) {
        EXPECT_EQ(PlainLine(WithFlags(static_cast<int>(msn))),
                  "n;1;;;;;;;0;0;nein;" + columns[msn] + ";Kein;0;nein\r\n");
    }
}

TEST(SaveCSV, FilterCode2GivesVipWithItsTrailingBlankAnd3GivesCdWithTwo) {
    EXPECT_EQ(PlainLine(WithFlags(0x0F)), "n;1;;;;;;;0;0;nein;00;Kein;0;nein\r\n");
    EXPECT_EQ(PlainLine(WithFlags(0x4F)), "n;1;;;;;;;0;0;nein;00;Anr.;0;nein\r\n");
    EXPECT_EQ(PlainLine(WithFlags(0x8F)), "n;1;;;;;;;0;0;nein;00;VIP ;0;nein\r\n");
    EXPECT_EQ(PlainLine(WithFlags(0xCF)), "n;1;;;;;;;0;0;nein;00;CD  ;0;nein\r\n");
}

TEST(SaveCSV, TheFilterIsBits6And7Alone) {
    EXPECT_EQ(PlainLine(WithFlags(0x7F2F)), "n;1;;;;;;;0;0;nein;00;Kein;0;nein\r\n");
    EXPECT_EQ(PlainLine(WithFlags(-1)), "n;1;;;;;;;0;0;nein;00;CD  ;0;ja\r\n");
}

TEST(SaveCSV, Bit4OfTheFlagWordIsTheChargeCounter) {
    EXPECT_EQ(PlainLine(WithFlags(0x1F)), "n;1;;;;;;;0;0;nein;00;Kein;0;ja\r\n");
    EXPECT_EQ(PlainLine(WithFlags(0x10)), "n;1;;;;;;;0;0;nein;01;Kein;0;ja\r\n");
}

TEST(SaveCSV, TheToneIsItsLow7BitsAndBit7SaysJa) {
    const std::vector<std::pair<int, std::string>> cases = {{0x7F, "127;nein"},
                                                            {0x80, "0;ja"},
                                                            {0xFF, "127;ja"},
                                                            {0x100 + 3, "3;nein"},
                                                            {-1, "127;ja"}};
    for (const auto& example : cases) {
        RegisterEntry entry = Entry(u"n", u"1");
        entry.Ton = static_cast<std::int16_t>(example.first);
        EXPECT_EQ(PlainLine(entry), "n;1;;;;;;;0;" + example.second + ";00;Kein;0;nein\r\n");
    }
}

TEST(SaveCSV, NumbersAreDecimalWithoutBlanksNegativeOnesWithAMinus) {
    RegisterEntry entry = Entry(u"n", u"1");
    entry.AB = -32768;
    entry.GebEinh = -2147483647 - 1;
    EXPECT_EQ(PlainLine(entry), "n;1;;;;;;;-32768;0;nein;00;Kein;-2147483648;nein\r\n");
    entry.AB = 32767;
    entry.GebEinh = 2147483647;
    EXPECT_EQ(PlainLine(entry), "n;1;;;;;;;32767;0;nein;00;Kein;2147483647;nein\r\n");
}

TEST(SaveCSV, NameAndNumberStandAsStored) {
    EXPECT_EQ(PlainLine(Entry(u"  ein Name von mehr als 21 Zeichen ", u" 00 49 ")),
              "  ein Name von mehr als 21 Zeichen ; 00 49 ;;;;;;;0;0;nein;00;Kein;0;nein\r\n");
}

TEST(SaveCSV, ASeparatorOrQuoteInAValueIsWrittenAsItIs) {
    RegisterState state = RegisterOf({Entry(u"a;b", u"\"1\"", u"x;\"y")});
    EXPECT_EQ(Saved(state, Button::Yes),
              QuotedHeader + "\"a;b\";\"\"1\"\";\"x;\"y\";\"\";\"\";\"\";\"\";\"\";\"0\";\"0\";"
                             "\"nein\";\"00\";\"Kein\";\"0\";\"nein\"\r\n");
}

TEST(SaveCSV, InfoBehindTheSixthLineHasNoColumn) {
    EXPECT_EQ(PlainLine(Entry(u"n", u"1", Text(126, u'i') + u"zu viel")),
              "n;1;iiiiiiiiiiiiiiiiiiiii;iiiiiiiiiiiiiiiiiiiii;iiiiiiiiiiiiiiiiiiiii;"
              "iiiiiiiiiiiiiiiiiiiii;iiiiiiiiiiiiiiiiiiiii;iiiiiiiiiiiiiiiiiiiii;0;0;nein;00;"
              "Kein;0;nein\r\n");
}

TEST(SaveCSV, OnlyBlanksAreTrimmedFromAnInfoLine) {
    EXPECT_EQ(PlainLine(Entry(u"n", u"1", u" a\t ")), "n;1; a\t;;;;;;0;0;nein;00;Kein;0;nein\r\n");
}

TEST(SaveCSV, EveryWindows1252CharacterIsItsByte) {
    EXPECT_EQ(PlainLine(Entry(u"€ÄÖÜß\u0081ÿ", u"1")),
              "\x80\xC4\xD6\xDC\xDF\x81\xFF;1;;;;;;;0;0;nein;00;Kein;0;nein\r\n");
}

TEST(SaveCSV, WritesThePositionsInTheirOrder) {
    RegisterState state = RegisterOfNames({u"C", u"A", u"B", u"behind the count"});
    SetCount(state, 3);
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 3;
    state.RegisterOrder(3) = 1;
    EXPECT_EQ(Saved(state, Button::No), PlainHeader + "A;2;;;;;;;0;0;nein;00;Kein;0;nein\r\n"
                                                      "B;3;;;;;;;0;0;nein;00;Kein;0;nein\r\n"
                                                      "C;1;;;;;;;0;0;nein;00;Kein;0;nein\r\n");
}

TEST(SaveCSV, ARegisterWithoutEntriesIsTheHeaderAlone) {
    RegisterState state = RegisterOf({});
    EXPECT_EQ(Saved(state, Button::Yes), QuotedHeader);
    EXPECT_EQ(Saved(state, Button::No), PlainHeader);
}

TEST(SaveCSV, AFullRegisterHas2001Lines) {
    RegisterState state;
    SetCount(state, RegisterPlaces);
    const std::string file = Saved(state, Button::No);
    EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 2001);
    EXPECT_EQ(file.size(), PlainHeader.size() + 2000 * 33U) << ";;;;;;;;0;0;nein;00;Kein;0;nein";
}

TEST(SaveCSV, MarksTheRegisterAsSavedAndChangesNothingElse) {
    RegisterState state = RegisterOf({Full(), Entry(u"b", u"2", u" x ")});
    state.RegisterSaved = false;
    state.AnzNr = 2;
    state.LoadedModel = u"193";
    state.File.Type = u"193";
    state.File.Path = "/alt.t9t";
    state.File.Modified = FileTime{std::chrono::seconds{5}};
    state.LoadReport = LongReport(u"alt\r\n");
    const Contents before = ContentsOf(state);

    Saved(state, Button::No);

    EXPECT_TRUE(state.RegisterSaved);
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_EQ(state.LoadedModel, u"193");
    EXPECT_EQ(state.File.Type, u"193");
    EXPECT_EQ(state.File.Path, FilePath("/alt.t9t"));
    EXPECT_EQ(state.File.Modified, std::optional<FileTime>(FileTime{std::chrono::seconds{5}}));
    EXPECT_EQ(state.LoadReport, u"alt\r\n");
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST(SaveCSV, ReplacesAnyPreviousContent) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.csv", std::string(9000, 'x'));
    RegisterState state = RegisterOf({});
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::No);
    SaveCSV(state, path, desktop);
    EXPECT_EQ(ReadFile(path).size(), PlainHeader.size());
}

TEST(SaveCSV, TheQuestionComesBeforeTheFileIsTouched) {
    const TestFolder folder;
    RegisterState state = RegisterOf({Entry(u"a")});
    state.RegisterSaved = false;
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Yes);
    EXPECT_THROW(SaveCSV(state, folder / "fehlt" / "a.csv", desktop), RuntimeError);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Question + "Yes"));
    EXPECT_FALSE(state.RegisterSaved);
}

TEST(SaveCSV, ATextThatTheFileCannotHoldRaisesError5AndIsNoSave) {
    const TestFolder folder;
    RegisterState state = RegisterOf({Entry(u"a"), Entry(u"Жук")});
    state.RegisterSaved = false;
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::No);
    try {
        SaveCSV(state, folder / "a.csv", desktop);
        ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::InvalidArgument);
    }
    EXPECT_FALSE(state.RegisterSaved);
}

}  // namespace
}  // namespace norvik::test
