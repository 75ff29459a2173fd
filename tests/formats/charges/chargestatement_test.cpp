#include "formats/charges/chargestatement.h"

#include "base/runtimeerror.h"
#include "formats/csv/csvformat.h"
#include "register/settings.h"
#include "registertools/sortregister.h"
#include "tests/support/builders.h"
#include "tests/support/processlimits.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"
#include "tests/support/times.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string Question =
    "box \"Diese Aktion speichert alle Gebühren in einer Textdatei.\" title \"Auszug\" icon "
    "Exclamation buttons Ok+Cancel default Ok -> ";
const std::string Dialog = "save \"norvik-Gebühren|*.geb|Alle Dateien|*.*\" ending .geb -> ";
const std::string Begins = "status \"Gebührenauszug wird erstellt...\"";
const std::string Ends = "status \"Gebührenauszug erstellt.\"";

Settings AtTwelveCents() {
    Settings settings;
    settings.UnitPrice = 0.12;
    return settings;
}

/// An entry whose charge counter is on.
RegisterEntry Charged(TextView name, std::int32_t units) {
    RegisterEntry entry = Entry(name, u"030");
    entry.MsnFilter = 15 + 16;
    entry.GebEinh = units;
    return entry;
}

/// The lines of a statement of a register that was not loaded, in front of the amounts.
constexpr std::string_view Head = "'Norvik Geb' FC 'hrenauszug' 0D 0A"
                                  "'Typ:    Zeit: ' 0D 0A"
                                  "'Quelle: ' 0D 0A"
                                  "'EINZELGEB' DC 'HR' 09 'NAME' 0D 0A";

Bytes StatementOf(const RegisterState& state, double unitPrice) {
    const TestFolder folder;
    WriteChargeStatement(state, unitPrice, folder / "a.geb");
    return ReadFile(folder / "a.geb");
}

/// The amounts of a statement behind its head.
Bytes AmountsOf(std::initializer_list<RegisterEntry> entries, double unitPrice) {
    const Bytes whole = StatementOf(RegisterOf(entries), unitPrice);
    const Bytes head = Raw(Head);
    EXPECT_TRUE(std::equal(head.begin(), head.end(), whole.begin(),
                           whole.begin() + static_cast<std::ptrdiff_t>(head.size())));
    return {whole.begin() + static_cast<std::ptrdiff_t>(head.size()), whole.end()};
}

TEST(ChargeStatement, NamesTheSourceThenEachChargeThenTheirSum) {
    RegisterState state = RegisterOf({Charged(u"Anna", 12), Charged(u"Bernd", 3)});
    state.File = {u"CSV", "/home/anna/b.csv", LocalTime(2005, 12, 24, 18, 30, 7)};
    EXPECT_EQ(StatementOf(state, 0.12), Raw("'Norvik Geb' FC 'hrenauszug' 0D 0A"
                                            "'Typ: CSV   Zeit: 24.12.2005 18:30:07' 0D 0A"
                                            "'Quelle: /home/anna/b.csv' 0D 0A"
                                            "'EINZELGEB' DC 'HR' 09 'NAME' 0D 0A"
                                            "'1,44' 09 'Anna' 0D 0A"
                                            "'0,36' 09 'Bernd' 0D 0A"
                                            "0D 0A"
                                            "'1,80' 09 'GESAMTSUMME' 0D 0A"));
}

TEST(ChargeStatement, WithoutAChargedEntryHoldsItsHeadAnEmptyLineAndATotalOf0) {
    EXPECT_EQ(StatementOf(RegisterOf({Entry(u"Anna")}), 0.12),
              Join({Raw(Head), Raw("0D 0A '0,00' 09 'GESAMTSUMME' 0D 0A")}));
    EXPECT_EQ(StatementOf(RegisterOf({}), 0.12),
              Join({Raw(Head), Raw("0D 0A '0,00' 09 'GESAMTSUMME' 0D 0A")}));
}

TEST(ChargeStatement, NamesTheFileThatWasLoadedLast) {
    const TestFolder folder;
    const FilePath path = folder.Write("liste.csv", "Name;Tel\r\nAnna;1;;;;;;;;;;;;12;ja\r\n");
    std::filesystem::last_write_time(
        path, std::chrono::file_clock::from_sys(LocalTime(2025, 3, 9, 4, 5, 6)));
    RegisterState state;
    ScriptedDesktop desktop;
    LoadCSV(state, path, Settings(), desktop);
    EXPECT_EQ(StatementOf(state, 0.12),
              Join({Raw("'Norvik Geb' FC 'hrenauszug' 0D 0A"
                        "'Typ: CSV   Zeit: 09.03.2025 04:05:06' 0D 0A"),
                    Raw("'Quelle: " + path.string() + "' 0D 0A"),
                    Raw("'EINZELGEB' DC 'HR' 09 'NAME' 0D 0A"
                        "'1,44' 09 'Anna' 0D 0A 0D 0A '1,44' 09 'GESAMTSUMME' 0D 0A")}));
}

TEST(ChargeStatement, WritesAQuestionMarkForWhatTheFileCannotHoldOfThePath) {
    RegisterState state = RegisterOf({});
    state.File = {u"195", FilePath(u"/Ж/ü.t9t"), std::nullopt};
    EXPECT_EQ(StatementOf(state, 0.12),
              Raw("'Norvik Geb' FC 'hrenauszug' 0D 0A"
                  "'Typ: 195   Zeit: ' 0D 0A"
                  "'Quelle: /?/' FC '.t9t' 0D 0A"
                  "'EINZELGEB' DC 'HR' 09 'NAME' 0D 0A 0D 0A '0,00' 09 'GESAMTSUMME' 0D 0A"));
}

// The entries

TEST(ChargeStatement, LeavesOutEntriesWithoutTheBitAlsoWhenTheirCounterIsNot0) {
    RegisterEntry off = Charged(u"aus", 99);
    off.MsnFilter = 0xEF;  // all but the counter's bit
    RegisterEntry alone = Charged(u"an", 1);
    alone.MsnFilter = 0x10;
    EXPECT_EQ(AmountsOf({off, alone}, 1),
              Raw("'1,00' 09 'an' 0D 0A 0D 0A '1,00' 09 'GESAMTSUMME' 0D 0A"));
}

TEST(ChargeStatement, HasTheEntriesInDisplayOrderAndNoneBehindTheCount) {
    RegisterState state = RegisterOf(
        {Charged(u"Carl", 3), Charged(u"Anna", 1), Charged(u"Doro", 4), Charged(u"Bernd", 2)});
    ScriptedDesktop desktop;
    int place = 1;
    SortRegister(state, place, desktop);
    SetCount(state, 3);
    EXPECT_EQ(StatementOf(state, 1),
              Join({Raw(Head), Raw("'1,00' 09 'Anna' 0D 0A '2,00' 09 'Bernd' 0D 0A"
                                   "'3,00' 09 'Carl' 0D 0A 0D 0A '6,00' 09 'GESAMTSUMME' 0D 0A")}));
}

TEST(ChargeStatement, OfAFullRegisterHasAllEntries) {
    RegisterState state;
    std::string lines;
    for (int place = 1; place <= RegisterPlaces; ++place) {
        state.Register(place) = Charged(u"x", 1);
        lines += "'0,12' 09 'x' 0D 0A ";
    }
    SetCount(state, RegisterPlaces);
    EXPECT_EQ(StatementOf(state, 0.12),
              Join({Raw(Head), Raw(lines), Raw("0D 0A '240,00' 09 'GESAMTSUMME' 0D 0A")}));
}

TEST(ChargeStatement, TranslatesNamesFromTheTelephonesCharacters) {
    // á, ø and õ stand at codes of the telephone; ü and é do not.
    EXPECT_EQ(AmountsOf({Charged(u"Sá ø õ", 0), Charged(u"Müller é^", 0)}, 1),
              Raw("'0,00' 09 'S' DF ' ' B0 ' ' A7 0D 0A"
                  "'0,00' 09 'M' FC 'ller ' E9 '^' 0D 0A"
                  "0D 0A '0,00' 09 'GESAMTSUMME' 0D 0A"));
    EXPECT_EQ(AmountsOf({Charged(u"„”\u0081áŽ™š‚Š^øõƒˆ“", 0)}, 1),
              Raw("'0,00' 09 E4 F6 FC DF C4 D6 DC E9 E8 5E B0 A7 E2 EA F4 0D 0A"
                  "0D 0A '0,00' 09 'GESAMTSUMME' 0D 0A"));
}

TEST(ChargeStatement, WritesNamesOtherwiseAsTheyAre) {
    EXPECT_EQ(
        AmountsOf({Charged(u"", 1), Charged(u"  a;\"b\"\tc, ein langer Name über 21 ", 2)}, 1),
        Raw("'1,00' 09 0D 0A"
            "'2,00' 09 '  a;\"b\"' 09 'c, ein langer Name ' FC 'ber 21 ' 0D 0A"
            "0D 0A '3,00' 09 'GESAMTSUMME' 0D 0A"));
}

TEST(ChargeStatement, ANameThatTheFileCannotHoldRaisesError5) {
    const TestFolder folder;
    try {
        WriteChargeStatement(RegisterOf({Charged(u"Жук", 1)}), 1, folder / "a.geb");
        ADD_FAILURE() << "nothing was raised";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::InvalidArgument);
    }
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{});
}

// The amounts

TEST(ChargeStatement, TwelveUnitsAtAUnitPriceOf0_12Give1_44) {
    EXPECT_EQ(AmountsOf({Charged(u"Anna", 12)}, 0.12),
              Raw("'1,44' 09 'Anna' 0D 0A 0D 0A '1,44' 09 'GESAMTSUMME' 0D 0A"));
}

TEST(ChargeStatement, NoUnitsWithTheCounterOnGiveALineWith0_00) {
    EXPECT_EQ(AmountsOf({Charged(u"Anna", 0)}, 0.12),
              Raw("'0,00' 09 'Anna' 0D 0A 0D 0A '0,00' 09 'GESAMTSUMME' 0D 0A"));
}

TEST(ChargeStatement, AnAmountOf123456_7IsWrittenWithoutGrouping) {
    EXPECT_EQ(AmountsOf({Charged(u"Anna", 1'234'567)}, 0.1),
              Raw("'123456,70' 09 'Anna' 0D 0A 0D 0A '123456,70' 09 'GESAMTSUMME' 0D 0A"));
    EXPECT_EQ(AmountsOf({Charged(u"Anna", 2'147'483'647)}, 1),
              Raw("'2147483647,00' 09 'Anna' 0D 0A 0D 0A '2147483647,00' 09 'GESAMTSUMME' 0D 0A"));
}

TEST(ChargeStatement, AmountsAreRoundedHalfAwayFromZero) {
    EXPECT_EQ(AmountsOf({Charged(u"a", 5), Charged(u"b", -5), Charged(u"c", 107)}, 0.025),
              Raw("'0,13' 09 'a' 0D 0A '-0,13' 09 'b' 0D 0A '2,68' 09 'c' 0D 0A"
                  "0D 0A '2,68' 09 'GESAMTSUMME' 0D 0A"));
}

TEST(ChargeStatement, TheTotalIsTheSumOfTheAmountsBeforeTheyAreRounded) {
    EXPECT_EQ(AmountsOf({Charged(u"a", 1), Charged(u"b", 1), Charged(u"c", 1)}, 0.333),
              Raw("'0,33' 09 'a' 0D 0A '0,33' 09 'b' 0D 0A '0,33' 09 'c' 0D 0A"
                  "0D 0A '1,00' 09 'GESAMTSUMME' 0D 0A"));
}

TEST(ChargeStatement, ANegativeCounterIsTakenOff) {
    EXPECT_EQ(AmountsOf({Charged(u"a", -12), Charged(u"b", 1)}, 0.12),
              Raw("'-1,44' 09 'a' 0D 0A '0,12' 09 'b' 0D 0A"
                  "0D 0A '-1,32' 09 'GESAMTSUMME' 0D 0A"));
}

TEST(ChargeStatement, AUnitPriceThatIsNoNumberCountsAs0) {
    Settings settings;
    settings.Table.SetValue(Setting::Unit, u"billig");
    ApplySettings(settings);
    EXPECT_EQ(AmountsOf({Charged(u"Anna", 12)}, settings.UnitPrice),
              Raw("'0,00' 09 'Anna' 0D 0A 0D 0A '0,00' 09 'GESAMTSUMME' 0D 0A"));
}

TEST(ChargeStatement, TheUnitPriceMayHaveACommaOrAPoint) {
    for (const TextView price : {u"0,12", u"0.12"}) {
        Settings settings;
        settings.Table.SetValue(Setting::Unit, price);
        ApplySettings(settings);
        EXPECT_EQ(AmountsOf({Charged(u"Anna", 12)}, settings.UnitPrice),
                  Raw("'1,44' 09 'Anna' 0D 0A 0D 0A '1,44' 09 'GESAMTSUMME' 0D 0A"));
    }
}

// The menu item

class Statement : public testing::Test {
  protected:
    Statement() : state(RegisterOf({Charged(u"Anna", 12), Charged(u"Bernd", 3)})) {
        state.AnzNr = 2;
    }
    [[nodiscard]] static Bytes Whole() {
        return Join({Raw(Head), Raw("'1,44' 09 'Anna' 0D 0A '0,36' 09 'Bernd' 0D 0A"
                                    "0D 0A '1,80' 09 'GESAMTSUMME' 0D 0A")});
    }

    TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
};

TEST_F(Statement, AsksTwiceWritesTheFileAndShowsTheEntryAgain) {
    const FilePath path = folder / "a.geb";
    desktop.AnswerBox(Button::Ok).AnswerFile(path);
    mnuGebAuszug(state, AtTwelveCents(), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Question + "Ok", Dialog + path.string(), Begins, Ends, "entry"));
    EXPECT_EQ(ReadFile(path), Whole());
}

TEST_F(Statement, CancelOfTheQuestionWritesNothing) {
    desktop.AnswerBox(Button::Cancel);
    mnuGebAuszug(state, AtTwelveCents(), desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Question + "Cancel"));
}

TEST_F(Statement, CancelOfTheFileDialogWritesNothing) {
    desktop.AnswerBox(Button::Ok).AnswerFile(std::nullopt);
    mnuGebAuszug(state, AtTwelveCents(), desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Question + "Ok", Dialog + "cancel"));
}

TEST_F(Statement, ANameWithoutAPointGetsTheEnding) {
    std::filesystem::create_directory(folder / "my.data");
    desktop.AnswerBox(Button::Ok).AnswerFile(folder / "my.data" / "auszug");
    desktop.AnswerBox(Button::Ok).AnswerFile(folder / "auszug.txt");
    mnuGebAuszug(state, AtTwelveCents(), desktop);
    mnuGebAuszug(state, AtTwelveCents(), desktop);
    EXPECT_EQ(ReadFile(folder / "my.data" / "auszug.geb"), Whole());
    EXPECT_EQ(ReadFile(folder / "auszug.txt"), Whole());
}

TEST_F(Statement, ReplacesAFileThatStandsThere) {
    desktop.AnswerBox(Button::Ok).AnswerFile(folder.Write("a.geb", std::string(5000, 'x')));
    mnuGebAuszug(state, AtTwelveCents(), desktop);
    EXPECT_EQ(ReadFile(folder / "a.geb"), Whole());
}

TEST_F(Statement, AFileThatCannotBeCreatedRaisesItsError) {
    desktop.AnswerBox(Button::Ok).AnswerFile(folder / "fehlt" / "a.geb");
    try {
        mnuGebAuszug(state, AtTwelveCents(), desktop);
        ADD_FAILURE() << "nothing was raised";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::PathNotFound);
    }
    EXPECT_EQ(desktop.Transcript.back(), "status \"Nicht gespeichert: Pfad nicht gefunden\"");
}

#ifndef _WIN32
TEST_F(Statement, WritingThatFailsAtAnyByteRaisesAnErrorAndSaysNothingOfAStatement) {
    const Bytes whole = Whole();
    for (std::size_t room = 0; room < whole.size(); ++room) {
        SCOPED_TRACE(room);
        desktop.Transcript.clear();
        desktop.AnswerBox(Button::Ok).AnswerFile(folder.Write("a.geb", "alt"));
        {
            const FileSizeLimit limit(room);
            EXPECT_THROW(mnuGebAuszug(state, AtTwelveCents(), desktop), RuntimeError);
        }
        EXPECT_EQ(desktop.Transcript.back(),
                  "status \"Nicht gespeichert: E/A-Fehler beim Zugriff auf ein Gerät\"");
        EXPECT_EQ(ReadFile(folder / "a.geb"), Raw("'alt'"));
    }
}
#endif

}  // namespace
}  // namespace norvik::test
