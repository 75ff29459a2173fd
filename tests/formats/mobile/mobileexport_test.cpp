#include "formats/mobile/mobileexport.h"

#include "registertools/sortregister.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/settings.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string Start =
    "box \"Diese Funktion exportiert das aktuelle Telefonbuch\\r\\n"
    "in ein u.a. von SIM-Surf lesbares Format\" title \"Export\" icon Exclamation "
    "buttons Ok+Cancel default Ok -> ";
const std::string StartWithWarning =
    "box \"Diese Funktion exportiert das aktuelle Telefonbuch\\r\\n"
    "in ein u.a. von SIM-Surf lesbares Format\\r\\n"
    "ACHTUNG: Diese Funktion liefert nur sinnvolle Ergebnisse, wenn das\\r\\n"
    "Telefonregister keine führenden Nullen enthält!!!\" title \"Export\" icon Exclamation "
    "buttons Ok+Cancel default Ok -> ";
const std::string Exporting = "status \"Exportiere Telefonbuch in Textdatei...\"";
const std::string Exported = "status \"Telefonbuch exportiert\"";
const std::string Stopped = "status \"Telefonbuchexport durch Benutzer abgebrochen.\"";

/// The question for one entry and its answer.
std::string Question(const std::string& name, const std::string& number,
                     const std::string& answer) {
    return "box \"" + name + "\\r\\n" + number +
           "\\r\\n\\r\\nDiesen Eintrag exportieren?\" title \"Exportabfrage\" icon Question "
           "buttons Yes+No+Cancel default Yes -> " +
           answer;
}

std::string Complaint(TextView number) {
    return OkBox(Text(u"Fehler in Rufnummer: ").append(number), u"Norvik:Globalize", "Information");
}

/// The marked entries, ";" between name and number, nothing else.
MobileExportOptions Plain() {
    MobileExportOptions options;
    options.UseReductionFlags = true;
    options.DataSeparator = u";";
    return options;
}

RegisterEntry Marked(TextView name, TextView tel) {
    return Entry(name, tel, u"()");
}

struct Result {
    std::string File;
    std::vector<std::string> Transcript;
};

/// Exports after OK and the answers for the entries.
Result Export(const RegisterState& state, const MobileExportOptions& options,
              std::initializer_list<Button> answers = {}) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok);
    for (const Button answer : answers) {
        desktop.AnswerBox(answer);
    }
    ExportMobile(state, options, Berlin(), folder / "a.pbb", desktop);
    const Bytes bytes = ReadFile(folder / "a.pbb");
    return {std::string(bytes.begin(), bytes.end()), desktop.Transcript};
}

/// The line of one entry.
std::string LineOf(TextView name, TextView tel, const MobileExportOptions& options) {
    return Export(RegisterOf({Marked(name, tel)}), options).File;
}

// The first question

TEST(ExportMobile, AsksOnceThenExportsTheMarkedEntries) {
    const Result result =
        Export(RegisterOf({Marked(u"Anna", u"1"), Marked(u"Bernd", u"2")}), Plain());
    EXPECT_EQ(result.File, "Anna;1\r\nBernd;2\r\n");
    EXPECT_THAT(result.Transcript, ElementsAre(Start + "Ok", Exporting, Exported));
}

TEST(ExportMobile, WarnsOfLineAccessZerosThatTheRegisterMayHold) {
    RegisterState state = RegisterOf({Marked(u"Anna", u"01")});
    state.WarnLineAccessZero = true;
    const Result result = Export(state, Plain());
    EXPECT_EQ(result.File, "Anna;01\r\n");
    EXPECT_THAT(result.Transcript, ElementsAre(StartWithWarning + "Ok", Exporting, Exported));
}

TEST(ExportMobile, CancelAtTheFirstBoxWritesNothing) {
    for (const bool warn : {false, true}) {
        const TestFolder folder;
        const FilePath old = folder.Write("old.pbb", "old");
        RegisterState state = RegisterOf({Marked(u"Anna", u"1")});
        state.WarnLineAccessZero = warn;
        ScriptedDesktop desktop;
        desktop.AnswerBox(Button::Cancel).AnswerBox(Button::Cancel);
        ExportMobile(state, Plain(), Berlin(), folder / "new.pbb", desktop);
        ExportMobile(state, Plain(), Berlin(), old, desktop);
        const std::string box = (warn ? StartWithWarning : Start) + "Cancel";
        EXPECT_THAT(desktop.Transcript, ElementsAre(box, box));
        EXPECT_FALSE(fs::exists(folder / "new.pbb"));
        EXPECT_EQ(ReadFile(old), Raw("'old'"));
    }
}

// Which entries

TEST(ExportMobile, ByMarkAndNoneMarkedTheFileIsEmptyAndNoQuestionIsAsked) {
    const RegisterState state =
        RegisterOf({Entry(u"Anna ()", u"1()"), Entry(u"Bernd", u"2", u"( )"),
                    Entry(u"Carl", u"3", u")("), Entry(u"Dora", u"4", u"(x)")});
    const Result result = Export(state, Plain());
    EXPECT_EQ(result.File, "");
    EXPECT_THAT(result.Transcript, ElementsAre(Start + "Ok", Exporting, Exported));
}

TEST(ExportMobile, AMarkAnywhereInTheInfoSelectsTheEntry) {
    const RegisterState state =
        RegisterOf({Entry(u"a", u"1", u"()Info"), Entry(u"b", u"2", u"Info"),
                    Entry(u"c", u"3", u"Info (()) Info"),
                    Entry(u"d", u"4", Text(124, u'x') + u"()"), Entry(u"e", u"5")});
    EXPECT_EQ(Export(state, Plain()).File, "a;1\r\nc;3\r\nd;4\r\n");
}

TEST(ExportMobile, WithoutTheMarksOneQuestionPerEntryAndCancelAtTheThirdLeavesTwoLines) {
    MobileExportOptions options = Plain();
    options.UseReductionFlags = false;
    const RegisterState state = RegisterOf({Marked(u"Müller", u"030 1"), Entry(u"Bernd", u"i2*"),
                                            Entry(u"", u""), Entry(u"Dora", u"4")});
    const Result result = Export(state, options, {Button::Yes, Button::Yes, Button::Cancel});
    EXPECT_EQ(result.File, "M\xFCller;0301\r\nBernd;2\r\n");
    EXPECT_THAT(result.Transcript,
                ElementsAre(Start + "Ok", Exporting, Question("Müller", "030 1", "Yes"),
                            Question("Bernd", "i2*", "Yes"), Question("", "", "Cancel"), Exported,
                            Stopped));
}

TEST(ExportMobile, CancelAtTheThirdQuestionLeavesFewerLinesAfterANo) {
    MobileExportOptions options = Plain();
    options.UseReductionFlags = false;
    const RegisterState state = RegisterOfNames({u"A", u"B", u"C", u"D"});
    EXPECT_EQ(Export(state, options, {Button::No, Button::Yes, Button::Cancel}).File, "B;2\r\n");
    EXPECT_EQ(Export(state, options, {Button::No, Button::No, Button::Cancel}).File, "");
    EXPECT_EQ(Export(state, options, {Button::Cancel}).File, "");
}

TEST(ExportMobile, TheQuestionsAreAskedForMarkedAndOtherEntriesAlike) {
    MobileExportOptions options = Plain();
    options.UseReductionFlags = false;
    const Result result = Export(RegisterOf({Marked(u"A", u"1"), Entry(u"B", u"2")}), options,
                                 {Button::No, Button::Yes});
    EXPECT_EQ(result.File, "B;2\r\n");
    EXPECT_THAT(result.Transcript, ElementsAre(Start + "Ok", Exporting, Question("A", "1", "No"),
                                               Question("B", "2", "Yes"), Exported));
}

// In which order

/// Four marked entries at the places 1 to 4, Dora before Anna.
RegisterState Unsorted() {
    return RegisterOf({Marked(u"Dora", u"1"), Marked(u"Carl", u"2"), Marked(u"Bernd", u"3"),
                       Marked(u"Anna", u"4")});
}

TEST(ExportMobile, GoesByTablePlaceAfterSorting) {
    RegisterState state = Unsorted();
    ScriptedDesktop ignored;
    int position = 1;
    SortRegister(state, position, ignored);
    ASSERT_THAT(Names(state), ElementsAre(u"Anna", u"Bernd", u"Carl", u"Dora"));
    EXPECT_EQ(Export(state, Plain()).File, "Dora;1\r\nCarl;2\r\nBernd;3\r\nAnna;4\r\n");
}

TEST(ExportMobile, GoesByTablePlaceAndMissesNoShownEntryAfterAnErase) {
    RegisterState state = Unsorted();
    ScriptedDesktop ignored;
    int position = 1;
    SortRegister(state, position, ignored);
    DeleteEntryAt(state, 2, ignored);  // Bernd, at place 3
    ASSERT_THAT(Names(state), ElementsAre(u"Anna", u"Carl", u"Dora"));
    EXPECT_EQ(Export(state, Plain()).File, "Dora;1\r\nCarl;2\r\nAnna;4\r\n");
}

TEST(ExportMobile, ANewEntryStandsAtThePlaceThatAnEraseFreed) {
    RegisterState state = Unsorted();
    ScriptedDesktop ignored;
    int position = 1;
    SortRegister(state, position, ignored);
    DeleteEntryAt(state, 2, ignored);
    EntryAt(state, AppendEntry(state)) = Marked(u"Emil", u"5");
    EXPECT_EQ(Export(state, Plain()).File, "Dora;1\r\nCarl;2\r\nEmil;5\r\nAnna;4\r\n");
}

TEST(ExportMobile, AsksInTheOrderOfTheTable) {
    RegisterState state = RegisterOf({Entry(u"B", u"1"), Entry(u"A", u"2")});
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    MobileExportOptions options = Plain();
    options.UseReductionFlags = false;
    EXPECT_THAT(Export(state, options, {Button::Yes, Button::Yes}).Transcript,
                ElementsAre(Start + "Ok", Exporting, Question("B", "1", "Yes"),
                            Question("A", "2", "Yes"), Exported));
}

TEST(ExportMobile, EntriesBehindTheCountStayOut) {
    RegisterState state = Unsorted();
    SetCount(state, 3);
    EXPECT_EQ(Export(state, Plain()).File, "Dora;1\r\nCarl;2\r\nBernd;3\r\n");
}

// The line

TEST(ExportMobile, WithoutQuotesAndWithASemicolonTheLineIsNameAndNumber) {
    MobileExportOptions options = Plain();
    options.AddRegionCode = true;
    options.GlobalizeNumber = true;
    options.Change00toPlus = true;
    options.DeleteCommaInNames = true;
    EXPECT_EQ(LineOf(u"Meier, Hans", u"1234567", options), "Meier Hans;+49301234567\r\n");
}

TEST(ExportMobile, QuotesStandAroundEveryValueAndAreNotEscaped) {
    MobileExportOptions options = Plain();
    options.UseQuotesForData = true;
    EXPECT_EQ(LineOf(u"Hans \"Bär\"", u"12", options), "\"Hans \"B\xE4r\"\";\"12\"\r\n");
    EXPECT_EQ(LineOf(u"", u"", options), "\"\";\"\"\r\n");
    options.WriteMemNumber = true;
    EXPECT_EQ(LineOf(u"a", u"12", options), "\"1\";\"a\";\"12\"\r\n");
}

TEST(ExportMobile, AnySeparatorStandsBetweenTheValues) {
    MobileExportOptions options = Plain();
    options.WriteMemNumber = true;
    options.DataSeparator = u"";
    EXPECT_EQ(LineOf(u"a", u"23", options), "1a23\r\n");
    options.DataSeparator = u"\t";
    EXPECT_EQ(LineOf(u"a", u"23", options), "1\ta\t23\r\n");
    options.DataSeparator = u" € ";
    EXPECT_EQ(LineOf(u"a", u"23", options), "1 \x80 a \x80 23\r\n");
}

TEST(ExportMobile, TheRunningNumberCountsTheWrittenLines) {
    MobileExportOptions options = Plain();
    options.WriteMemNumber = true;
    options.UseReductionFlags = false;
    const RegisterState state = RegisterOfNames({u"A", u"B", u"C", u"D"});
    EXPECT_EQ(Export(state, options, {Button::No, Button::Yes, Button::No, Button::Yes}).File,
              "1;B;2\r\n2;D;4\r\n");
}

TEST(ExportMobile, TheRunningNumberSkipsTheUnmarkedAndHasNoBlanks) {
    RegisterState state =
        RegisterOfNames({u"a", u"b", u"c", u"d", u"e", u"f", u"g", u"h", u"i", u"j", u"k", u"l"});
    for (const int place : {1, 2, 3, 4, 6, 7, 8, 9, 11, 12}) {
        state.Register(place).Info = u"()";
    }
    MobileExportOptions options = Plain();
    options.WriteMemNumber = true;
    EXPECT_EQ(Export(state, options).File, "1;a;1\r\n2;b;2\r\n3;c;3\r\n4;d;4\r\n5;f;6\r\n6;g;7\r\n"
                                           "7;h;8\r\n8;i;9\r\n9;k;11\r\n10;l;12\r\n");
}

TEST(ExportMobile, TheNameIsWrittenAsStored) {
    EXPECT_EQ(LineOf(u"  Straße; \"Ü\", é ", u"1", Plain()), "  Stra\xDF"
                                                             "e; \"\xDC\", \xE9 ;1\r\n");
    EXPECT_EQ(LineOf(Text(255, u'x'), u"1", Plain()), std::string(255, 'x') + ";1\r\n");
}

TEST(ExportMobile, ACommaAtTheFirstPlaceStaysAndMeierHansLosesHis) {
    MobileExportOptions options = Plain();
    options.DeleteCommaInNames = true;
    EXPECT_EQ(LineOf(u",Meier", u"1", options), ",Meier;1\r\n");
    EXPECT_EQ(LineOf(u"Meier, Hans", u"1", options), "Meier Hans;1\r\n");
}

TEST(ExportMobile, OnlyTheFirstCommaIsCutOut) {
    MobileExportOptions options = Plain();
    options.DeleteCommaInNames = true;
    EXPECT_EQ(LineOf(u"M,eier", u"1", options), "Meier;1\r\n");
    EXPECT_EQ(LineOf(u"Meier,Hans,Dr.", u"1", options), "MeierHans,Dr.;1\r\n");
    EXPECT_EQ(LineOf(u"Meier,", u"1", options), "Meier;1\r\n");
    EXPECT_EQ(LineOf(u" ,Meier", u"1", options), " Meier;1\r\n");
    EXPECT_EQ(LineOf(u",Meier, Hans", u"1", options), ",Meier, Hans;1\r\n");
    EXPECT_EQ(LineOf(u"", u"1", options), ";1\r\n");
}

TEST(ExportMobile, NeitherTheNumberNorTheQuestionLosesAComma) {
    MobileExportOptions options = Plain();
    options.DeleteCommaInNames = true;
    options.UseReductionFlags = false;
    options.DataSeparator = u",";
    const Result result = Export(RegisterOf({Entry(u"a,b", u"1,2")}), options, {Button::Yes});
    EXPECT_EQ(result.File, "ab,12\r\n");
    EXPECT_EQ(result.Transcript.at(2), Question("a,b", "1,2", "Yes"));
}

// The number

/// The number as modes 1, 2, 3 and mode 3 with "+" write it.
std::array<std::string, 4> Conversions(TextView tel) {
    std::array<std::string, 4> numbers;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        MobileExportOptions options = Plain();
        options.AddRegionCode = i >= 1;
        options.GlobalizeNumber = i >= 2;
        options.Change00toPlus = i == 3;
        numbers.at(i) = LineOf(u"a", tel, options);
    }
    return numbers;
}

TEST(ExportMobile, ConvertsTheNumberByMode) {
    EXPECT_THAT(Conversions(u"1234567"), ElementsAre("a;1234567\r\n", "a;0301234567\r\n",
                                                     "a;0049301234567\r\n", "a;+49301234567\r\n"));
    EXPECT_THAT(Conversions(u"0891234"), ElementsAre("a;0891234\r\n", "a;0891234\r\n",
                                                     "a;0049891234\r\n", "a;+49891234\r\n"));
    EXPECT_THAT(Conversions(u"0044201234"), ElementsAre("a;0044201234\r\n", "a;0044201234\r\n",
                                                        "a;0044201234\r\n", "a;+44201234\r\n"));
    EXPECT_THAT(Conversions(u"+44201234"), ElementsAre("a;+44201234\r\n", "a;+44201234\r\n",
                                                       "a;0044201234\r\n", "a;+44201234\r\n"));
}

TEST(ExportMobile, CleaningDropsWhatNoMobileTelephoneNeeds) {
    EXPECT_EQ(LineOf(u"a", u"i(0)3-0*#A12p3w4 +5", Plain()), "a;03012p3w45\r\n");
    EXPECT_EQ(LineOf(u"a", u" +49+30/B ", Plain()), "a;+4930\r\n");
    EXPECT_EQ(LineOf(u"a", u"**#A", Plain()), "a;\r\n");
}

TEST(ExportMobile, TheInternationalFormWinsOverTheRegionCode) {
    MobileExportOptions options = Plain();
    options.GlobalizeNumber = true;
    EXPECT_EQ(LineOf(u"a", u"12", options), "a;00493012\r\n");
}

TEST(ExportMobile, TwoZerosBecomeAPlusInEveryMode) {
    MobileExportOptions options = Plain();
    options.Change00toPlus = true;
    for (const bool addRegion : {false, true}) {
        options.AddRegionCode = addRegion;
        EXPECT_EQ(LineOf(u"a", u"00 44 1", options), "a;+441\r\n");
        EXPECT_EQ(LineOf(u"a", u"+44 1", options), "a;+441\r\n");
        EXPECT_EQ(LineOf(u"a", u"0441", options), "a;0441\r\n");
        EXPECT_EQ(LineOf(u"a", u"00", options), "a;+\r\n");
    }
}

TEST(ExportMobile, ANumberOver21CharactersIsExportedWhole) {
    EXPECT_EQ(LineOf(u"a", Text(255, u'7'), Plain()), "a;" + std::string(255, '7') + "\r\n");
}

TEST(ExportMobile, ANumberThatBeginsWithPlusZeroIsReportedAndWrittenAllTheSame) {
    const RegisterState state =
        RegisterOf({Entry(u"A", u"+030 1"), Entry(u"B", u"2"), Entry(u"C", u"+0")});
    MobileExportOptions options = Plain();
    options.UseReductionFlags = false;
    const Result result = Export(state, options, {Button::Yes, Button::Yes, Button::No});
    EXPECT_EQ(result.File, "A;+0301\r\nB;2\r\n");
    EXPECT_THAT(result.Transcript,
                ElementsAre(Start + "Ok", Exporting, Question("A", "+030 1", "Yes"),
                            Complaint(u"+0301"), Question("B", "2", "Yes"),
                            Question("C", "+0", "No"), Exported));
}

TEST(ExportMobile, APlusThatTheExportItselfMakesIsNotReported) {
    MobileExportOptions options = Plain();
    options.GlobalizeNumber = true;
    options.Change00toPlus = true;
    const Result result = Export(RegisterOf({Marked(u"A", u"000 301")}), options);
    EXPECT_EQ(result.File, "A;+0301\r\n");
    EXPECT_THAT(result.Transcript, ElementsAre(Start + "Ok", Exporting, Exported));
}

TEST(ExportMobile, AnAnswerForAllHoldsForTheOtherEntries) {
    for (const Button answer : {Button::Yes, Button::No}) {
        const TestFolder folder;
        MobileExportOptions options = Plain();
        options.UseReductionFlags = false;
        ScriptedDesktop desktop;
        desktop.TickedOffer = 1;
        desktop.AnswerBox(Button::Ok);
        for (int i = 0; i < 3; ++i) {
            desktop.AnswerBox(Button::No);
        }
        desktop.AnswerBox(answer);
        ExportMobile(RegisterOfNames({u"a", u"b", u"c", u"d", u"e", u"f"}), options, Berlin(),
                     folder / "a.pbb", desktop);
        EXPECT_EQ(desktop.Questions().size(), 5U);
        const Bytes file = ReadFile(folder / "a.pbb");
        EXPECT_EQ(std::string(file.begin(), file.end()),
                  answer == Button::Yes ? "d;4\r\ne;5\r\nf;6\r\n" : "");
        EXPECT_EQ(desktop.Transcript.back(), Exported);
    }
}

TEST(ExportMobile, TheReportsOfFaultyNumbersEndOnceAllAreAnsweredAlike) {
    const TestFolder folder;
    RegisterState state = RegisterOf({});
    for (int place = 1; place <= 6; ++place) {
        state.Register(place) = Marked(u"A", u"+030");
    }
    SetCount(state, 6);
    ScriptedDesktop desktop;
    desktop.TickedOffer = 1;
    desktop.AnswerBox(Button::Ok);
    ExportMobile(state, Plain(), Berlin(), folder / "a.pbb", desktop);
    EXPECT_EQ(desktop.Questions().size(), 1U + 4U);
    EXPECT_EQ(desktop.Questions()[3], Complaint(u"+030"));
    EXPECT_EQ(ReadFile(folder / "a.pbb").size(), 6 * std::string_view("A;+030\r\n").size());
}

TEST(ExportMobile, ATabSeparatesTheValues) {
    MobileExportOptions options = Plain();
    options.DataSeparator = u"\t";
    EXPECT_EQ(LineOf(u"Anna", u"1", options), "Anna\t1\r\n");
}

}  // namespace
}  // namespace norvik::test
