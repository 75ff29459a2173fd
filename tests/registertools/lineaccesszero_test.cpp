#include "registertools/lineaccesszero.h"

#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string AddQuestion =
    "box \"Diese Funktion fügt zu allen Telefonnummern eine Null\\r\\n"
    "hinzu, um das Telefon an Anlagen ohne automatische Amtholung\\r\\n"
    "einsetzen zu können.\\r\\n"
    "Ausnahme: \\r\\n"
    "Bei internen Telefonnummern (i/*) werden i oder * entfernt.\\r\\n"
    "Sind Sie sicher, daß Sie diese Funktion ausführen möchten?\" "
    "title \"Konvertierung bestätigen\" icon Question buttons Yes+No default No -> ";

const std::string RemoveQuestion =
    "box \"Diese Funktion entfernt bei allen Telefonnummern eine Null,\\r\\n"
    "um ein an Anlagen ohne automatische Amtholung eingesetztes Telefon\\r\\n"
    "an einem normalen Anschluß einsetzen zu können oder um z.B. die \\r\\n"
    "automatische Amtholung durch Telefonanlage oder das Telefon zu verwenden. \\r\\n"
    "Interne Nummern (ohne Null) müssen dabei gesondert behandelt werden.\\r\\n"
    "Wollen Sie die automatische Amtholung eines Norvik 195 einsetzen?\\r\\n"
    "- Wählen Sie JA, damit das entsprechende 'i' für interne Anrufe eingetragen wird.\\r\\n"
    "  Am Telefon muß automat. Amtholung aktiviert, die Anlagenamtholung deaktviert sein.\\r\\n"
    "- Wählen Sie NEIN, um ein anlagenspezifisches Zeichen vorzusetzen.\\r\\n"
    "  Am Telefon muß automat. Amtholung deaktiviert, die Anlagenamtholung aktviert sein.\\r\\n"
    "Wählen Sie ABBRECHEN, um die Konvertierung abzubrechen.\" "
    "title \"Konvertierung bestätigen\" icon Question buttons Yes+No+Cancel default Cancel -> ";

const std::string CodeInput =
    "input \"Welchen Code sollen interne Telefonnummern vorgesetzt bekommen?\\r\\n"
    "Für ältere Auerswald-Anlagen bspw. '*',\\r\\n"
    "für neuere Norvik-Anlagen bspw. '##',\\r\\n"
    "für Fritzboxen '**'\" title \"Code für interne Telefonate\" preset \"##\" -> ";

std::string TooLong(TextView name, TextView before, TextView cut) {
    Text text = u"Telefonnummer ist nach Konvertierung zu lang:\r\nName: ";
    text.append(name).append(u"\r\nTel.: ").append(before).append(u"\r\nNeu : ").append(cut);
    text.append(u"\r\nGekürzte Nummer gespeichert");
    return OkBox(text, u"WARNUNG", "Exclamation");
}

/// What becomes of a number, without any box.
Text Converted(TextView number, TextView code) {
    RegisterState state = RegisterOf({Entry(u"Anna", number)});
    ScriptedDesktop desktop;
    ConvertLineAccessZero(state, code, desktop);
    EXPECT_THAT(desktop.Questions(), ElementsAre("list", "entry")) << Utf8(number);
    return state.Register(1).Tel;
}

RegisterState OfNumbers(std::initializer_list<TextView> numbers) {
    RegisterState state = RegisterOf({});
    int place = 0;
    for (const TextView number : numbers) {
        ++place;
        state.Register(place).Name = u"n" + Decimal(place);
        state.Register(place).Tel = number;
    }
    SetCount(state, place);
    return state;
}

std::vector<Text> Numbers(const RegisterState& state, int count) {
    std::vector<Text> numbers;
    for (int place = 1; place <= count; ++place) {
        numbers.push_back(state.Register(place).Tel);
    }
    return numbers;
}

// Adding

TEST(AddingTheZero, PutsOneInFrontOfAnExternalNumber) {
    EXPECT_EQ(Converted(u"0301234", u"0"), u"00301234");
    EXPECT_EQ(Converted(u"12", u"0"), u"012");
    EXPECT_EQ(Converted(u"0049301234", u"0"), u"00049301234");
}

TEST(AddingTheZero, TakesTheIOffAnInternalNumber) {
    EXPECT_EQ(Converted(u"i12", u"0"), u"12");
    EXPECT_EQ(Converted(u"ii12", u"0"), u"i12");
    EXPECT_EQ(Converted(u"i*12", u"0"), u"*12");
}

TEST(AddingTheZero, TakesOneOrTwoStarsOff) {
    EXPECT_EQ(Converted(u"*12", u"0"), u"12");
    EXPECT_EQ(Converted(u"**12", u"0"), u"12");
    EXPECT_EQ(Converted(u"***12", u"0"), u"*12");
    EXPECT_EQ(Converted(u"*1*2", u"0"), u"1*2");
}

TEST(AddingTheZero, TakesTwoHashesOffAndKeepsOne) {
    EXPECT_EQ(Converted(u"##12", u"0"), u"12");
    EXPECT_EQ(Converted(u"#12", u"0"), u"#12");
    EXPECT_EQ(Converted(u"###12", u"0"), u"#12");
    EXPECT_EQ(Converted(u"#", u"0"), u"#");
    EXPECT_EQ(Converted(u"#*12", u"0"), u"#*12");
}

TEST(AddingTheZero, AnEmptyNumberBecomes0) {
    EXPECT_EQ(Converted(u"", u"0"), u"0");
}

TEST(AddingTheZero, ANumberThatIsAMarkAloneBecomes0) {
    for (const TextView mark : {u"i", u"*", u"**", u"##"}) {
        EXPECT_EQ(Converted(mark, u"0"), u"0");
    }
}

TEST(AddingTheZero, ACapitalIIsNoMark) {
    EXPECT_EQ(Converted(u"I12", u"0"), u"0I12");
    EXPECT_EQ(Converted(u" i12", u"0"), u"0 i12");
}

// Removing

TEST(RemovingTheZero, WithCodeI) {
    EXPECT_EQ(Converted(u"0301234", u"i"), u"301234");
    EXPECT_EQ(Converted(u"12", u"i"), u"i12");
    EXPECT_EQ(Converted(u"", u"i"), u"i");
    EXPECT_EQ(Converted(u"i12", u"i"), u"ii12");
}

TEST(RemovingTheZero, WithCodeOfTwoHashes) {
    EXPECT_EQ(Converted(u"12", u"##"), u"##12");
    EXPECT_EQ(Converted(u"012", u"##"), u"12");
    EXPECT_EQ(Converted(u"", u"##"), u"##");
}

TEST(RemovingTheZero, TakesOnlyTheFirstZero) {
    EXPECT_EQ(Converted(u"0049301234", u"i"), u"049301234");
    EXPECT_EQ(Converted(u"0", u"i"), u"");
}

TEST(RemovingTheZero, AfterAddingGivesBackExternalNumbers) {
    for (const TextView number : {u"0301234", u"0049", u"12", u"I5", u""}) {
        EXPECT_EQ(Converted(Converted(number, u"0"), u"i"), number);
    }
}

TEST(RemovingTheZero, AfterAddingAStarOfAnInternalNumberComesBackAsI) {
    EXPECT_EQ(Converted(Converted(u"*12", u"0"), u"i"), u"i12");
}

// Too long

TEST(ATooLongNumber, Of21CharactersLosesItsLastDigitAndTheWarningNamesTheEntry) {
    RegisterState state = RegisterOf({Entry(u"Jürgen", u"123456789012345678901")});
    ScriptedDesktop desktop;

    ConvertLineAccessZero(state, u"0", desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre("status \"Nullen werden hinzugefügt...\"", "pointer Hourglass",
                            TooLong(u"Jürgen", u"123456789012345678901", u"012345678901234567890"),
                            "pointer Normal", "status \"Konvertierung beendet.\"", "list",
                            "entry"));
    EXPECT_EQ(state.Register(1).Tel, u"012345678901234567890");
}

TEST(ATooLongNumber, Of20CharactersJustFits) {
    EXPECT_EQ(Converted(u"12345678901234567890", u"0"), u"012345678901234567890");
}

TEST(ATooLongNumber, GivesOneBoxPerEntryAndTheConversionRunsToItsEnd) {
    RegisterState state = RegisterOf({Entry(u"A", u"12345678901234567890"), Entry(u"B", u"01"),
                                      Entry(u"C", u"98765432109876543210"), Entry(u"D", u"2")});
    ScriptedDesktop desktop;
    ConvertLineAccessZero(state, u"**", desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre("status \"Nullen werden entfernt (**)...\"", "pointer Hourglass",
                            TooLong(u"A", u"12345678901234567890", u"**1234567890123456789"),
                            TooLong(u"C", u"98765432109876543210", u"**9876543210987654321"),
                            "pointer Normal", "status \"Konvertierung beendet.\"", "list",
                            "entry"));
    EXPECT_THAT(Numbers(state, 4),
                ElementsAre(u"**1234567890123456789", u"1", u"**9876543210987654321", u"**2"));
}

TEST(ATooLongNumber, OfARegisterFileIsCutEvenWhereItGrowsShorter) {
    RegisterState state = RegisterOf({Entry(u"A", u"0" + Text(40, u'7'))});
    ScriptedDesktop desktop;
    ConvertLineAccessZero(state, u"i", desktop);
    EXPECT_THAT(desktop.Questions(),
                ElementsAre(TooLong(u"A", u"0" + Text(40, u'7'), Text(21, u'7')), "list", "entry"));
    EXPECT_EQ(state.Register(1).Tel, Text(21, u'7'));
}

// The conversion as a whole

TEST(ConvertLineAccessZero, ShowsItsWorkAndRefreshesTheDisplay) {
    RegisterState state = OfNumbers({u"1", u"02"});
    state.Register(2).Info = u"()";
    state.AnzNr = 2;
    state.Satzwahl.Value = 2;
    ScriptedDesktop desktop;
    desktop.OnRebuildList = [&] { EXPECT_EQ(state.AnzMarkiert, 1); };

    ConvertLineAccessZero(state, u"##", desktop);

    EXPECT_THAT(desktop.Transcript,
                ElementsAre("status \"Nullen werden entfernt (##)...\"", "pointer Hourglass",
                            "pointer Normal", "status \"Konvertierung beendet.\"", "list",
                            "entry"));
    EXPECT_THAT(Numbers(state, 2), ElementsAre(u"##1", u"2"));
    EXPECT_EQ(state.AnzNr, 2);
    EXPECT_EQ(state.Satzwahl.Value, 2);
}

TEST(ConvertLineAccessZero, ChangesNothingButTheNumbers) {
    RegisterEntry entry = Entry(u"0Anna", u"1", u"0Info");
    entry.RecNumber = 2;
    entry.Ton = 3;
    entry.MsnFilter = 4;
    entry.GebEinh = 5;
    entry.AB = 6;
    entry.Listed = true;
    RegisterState state = RegisterOf({entry});
    ScriptedDesktop desktop;
    ConvertLineAccessZero(state, u"0", desktop);
    entry.Tel = u"01";
    EXPECT_EQ(state.Register(1), entry);
}

TEST(ConvertLineAccessZero, LeavesRegisterSavedAsItIs) {
    for (const bool saved : {true, false}) {
        RegisterState state = OfNumbers({u"1"});
        state.RegisterSaved = saved;
        ScriptedDesktop desktop;
        ConvertLineAccessZero(state, u"0", desktop);
        EXPECT_EQ(state.RegisterSaved, saved);
    }
}

TEST(ConvertLineAccessZero, AddingZerosSetsTheWarningAndRemovingThemClearsIt) {
    for (const bool before : {true, false}) {
        RegisterState state = OfNumbers({u"1"});
        ScriptedDesktop desktop;
        state.WarnLineAccessZero = before;
        ConvertLineAccessZero(state, u"0", desktop);
        EXPECT_TRUE(state.WarnLineAccessZero);
        state.WarnLineAccessZero = before;
        ConvertLineAccessZero(state, u"i", desktop);
        EXPECT_FALSE(state.WarnLineAccessZero);
    }
}

TEST(ConvertLineAccessZero, GoesThroughThePlacesInAscendingOrderNotInTheShownOne) {
    RegisterState state = OfNumbers({u"11111111111111111111", u"22222222222222222222"});
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    ScriptedDesktop desktop;
    ConvertLineAccessZero(state, u"##", desktop);
    EXPECT_THAT(desktop.Questions(),
                ElementsAre(TooLong(u"n1", u"11111111111111111111", u"##1111111111111111111"),
                            TooLong(u"n2", u"22222222222222222222", u"##2222222222222222222"),
                            "list", "entry"));
}

TEST(ConvertLineAccessZero, AfterAnEraseNoShownEntryIsMissedAndNoneConvertedTwice) {
    RegisterState state = OfNumbers({u"1", u"2", u"3", u"4"});
    state.RegisterOrder(1) = 4;
    state.RegisterOrder(2) = 1;
    state.RegisterOrder(3) = 3;
    state.RegisterOrder(4) = 2;
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 2, desktop);  // frees place 1; the places 2, 3 and 4 are shown
    ConvertLineAccessZero(state, u"0", desktop);
    EXPECT_THAT(Numbers(state, 4), ElementsAre(u"1", u"02", u"03", u"04"));
}

TEST(ConvertLineAccessZero, EntriesBehindTheCountKeepTheirNumbers) {
    RegisterState state = OfNumbers({u"1", u"2"});
    SetCount(state, 1);
    ScriptedDesktop desktop;
    ConvertLineAccessZero(state, u"0", desktop);
    EXPECT_THAT(Numbers(state, 3), ElementsAre(u"01", u"2", u""));
}

TEST(ConvertLineAccessZero, AFullRegisterIsConvertedWhole) {
    RegisterState state;
    SetCount(state, RegisterPlaces);
    ScriptedDesktop desktop;
    ConvertLineAccessZero(state, u"i", desktop);
    for (int place = 1; place <= RegisterPlaces; ++place) {
        ASSERT_EQ(state.Register(place).Tel, u"i") << place;
    }
}

// The menu operations

TEST(MnuBearbeitenNullHinzu, AsksAndAddsTheZeros) {
    RegisterState state = OfNumbers({u"1", u"i2"});
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Yes);
    mnuBearbeitenNullHinzu(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(AddQuestion + "Yes", "status \"Nullen werden hinzugefügt...\"",
                            "pointer Hourglass", "pointer Normal",
                            "status \"Konvertierung beendet.\"", "list", "entry"));
    EXPECT_THAT(Numbers(state, 2), ElementsAre(u"01", u"2"));
    EXPECT_TRUE(state.WarnLineAccessZero);
}

TEST(MnuBearbeitenNullHinzu, NoChangesNothing) {
    RegisterState state = OfNumbers({u"1"});
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::No);
    mnuBearbeitenNullHinzu(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(AddQuestion + "No", "status \"Konvertierung abgebrochen.\""));
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST(MnuBearbeitenNullEntf, YesMarksInternalNumbersWithI) {
    RegisterState state = OfNumbers({u"01", u"2"});
    state.WarnLineAccessZero = true;
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Yes);
    mnuBearbeitenNullEntf(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(RemoveQuestion + "Yes", "status \"Nullen werden entfernt (i)...\"",
                            "pointer Hourglass", "pointer Normal",
                            "status \"Konvertierung beendet.\"", "list", "entry"));
    EXPECT_THAT(Numbers(state, 2), ElementsAre(u"1", u"i2"));
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST(MnuBearbeitenNullEntf, NoAsksForTheCode) {
    RegisterState state = OfNumbers({u"01", u"2"});
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::No).AnswerText(u"**");
    mnuBearbeitenNullEntf(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(RemoveQuestion + "No", CodeInput + "\"**\"",
                            "status \"Nullen werden entfernt (**)...\"", "pointer Hourglass",
                            "pointer Normal", "status \"Konvertierung beendet.\"", "list",
                            "entry"));
    EXPECT_THAT(Numbers(state, 2), ElementsAre(u"1", u"**2"));
}

TEST(MnuBearbeitenNullEntf, AnEmptyOrCancelledCodeChangesNothing) {
    for (const bool cancels : {true, false}) {
        RegisterState state = OfNumbers({u"01"});
        state.WarnLineAccessZero = true;
        const Contents before = ContentsOf(state);
        ScriptedDesktop desktop;
        desktop.AnswerBox(Button::No).AnswerText(cancels ? std::nullopt : std::optional(Text()));
        mnuBearbeitenNullEntf(state, desktop);
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(RemoveQuestion + "No", CodeInput + (cancels ? "cancel" : "\"\""),
                                "status \"Konvertierung abgebrochen\""));
        EXPECT_TRUE(ContentsOf(state) == before);
        EXPECT_TRUE(state.WarnLineAccessZero);
    }
}

TEST(MnuBearbeitenNullEntf, CancelChangesNothing) {
    RegisterState state = OfNumbers({u"01"});
    const Contents before = ContentsOf(state);
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Cancel);
    mnuBearbeitenNullEntf(state, desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(RemoveQuestion + "Cancel", "status \"Konvertierung abgebrochen\""));
    EXPECT_TRUE(ContentsOf(state) == before);
}

TEST(MnuBearbeitenNullEntf, TheCode0AddsTheZeros) {
    RegisterState state = OfNumbers({u"01"});
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::No).AnswerText(u"0");
    mnuBearbeitenNullEntf(state, desktop);
    EXPECT_EQ(desktop.Transcript.at(2), "status \"Nullen werden hinzugefügt...\"");
    EXPECT_EQ(state.Register(1).Tel, u"001");
    EXPECT_TRUE(state.WarnLineAccessZero);
}

TEST(ConvertLineAccessZero, TheWarningsEndOnceAllAreAnsweredAlikeAndTheNumbersAreAllCut) {
    const Text number = Text(21, u'1');
    RegisterState state = OfNumbers({number, number, number, number, number, number});
    ScriptedDesktop desktop;
    desktop.TickedOffer = 1;
    ConvertLineAccessZero(state, u"0", desktop);
    EXPECT_EQ(desktop.Questions().size(), 4U + 2U);
    EXPECT_TRUE(desktop.Questions()[2].ends_with(" default Ok -> Ok"));
    EXPECT_TRUE(desktop.Questions()[3].ends_with(" default Ok offering for all -> Ok for all"));
    for (int place = 1; place <= 6; ++place) {
        EXPECT_EQ(state.Register(place).Tel, u"0" + Text(20, u'1'));
    }
}

}  // namespace
}  // namespace norvik::test
