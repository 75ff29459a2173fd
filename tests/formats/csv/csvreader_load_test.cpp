// What loading a file does besides taking its lines: doubles, skipped lines, the form, the state.
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
using testing::IsEmpty;

constexpr TextView LogTitle = u"LadeCSV: Doubletten entfernt/Hinweise";

/// A register of three entries from a 175 file, the last one shown.
RegisterState Old() {
    RegisterState state = RegisterOf({Entry(u"x", u"7"), Entry(u"y", u"8"), Entry(u"z", u"9")});
    state.RegisterOrder(1) = 3;
    state.RegisterOrder(3) = 1;
    state.AnzNr = 3;
    state.Satzwahl.Value = 3;
    state.LoadedModel = u"175";
    state.File = {.Type = u"175", .Path = "old.pbo", .Modified = std::nullopt};
    state.LoadReport = LongReport(u"old\r\n");
    return state;
}

class LoadCSVTest : public testing::Test {
  protected:
    /// Loads a file of these bytes over the old register, with "#D" in front when doubles are to
    /// go.
    void Load(std::string_view file, bool removeDoubles = false) {
        path = folder.Write("a.csv", file);
        LoadCSV(state, (removeDoubles ? "#D" : "") + path.string(), Settings(), desktop);
    }

    TestFolder folder;
    FilePath path;
    RegisterState state = Old();
    ScriptedDesktop desktop;
};

std::string LogBox(TextView log) {
    return OkBox(log, LogTitle);
}

std::string CheckBox(TextView log) {
    return OkBox(u"Es wurden 0 Fehler korrigiert\r\n\r\n" + Text(log), u"Fehlerprüfung",
                 "Information");
}

// The character set

TEST_F(LoadCSVTest, Utf8IsReadAsSuch) {
    Load("Name;Tel;Info1\r\nM\xC3\xBCller, J\xC3\xBCrgen;030 1;Gr\xC3\xBC\xC3\x9F"
         "e \xE2\x82\xAC\r\nJu\xCC\x88rgens;2;\r\n");
    EXPECT_THAT(Names(state), ElementsAre(u"Müller, Jürgen", u"Jürgens"));
    EXPECT_EQ(state.Register(1).Info, u"Grüße €");
    EXPECT_EQ(state.LoadReport, u"");
    EXPECT_THAT(desktop.Transcript, ElementsAre("file"));
}

TEST_F(LoadCSVTest, AByteOrderMarkIsNoPartOfTheHeader) {
    Load("\xEF\xBB\xBF\"Name\";\"Tel\"\r\n\"Anna\";\"1;2\"\r\n");
    EXPECT_THAT(Names(state), ElementsAre(u"Anna"));
    EXPECT_EQ(state.Register(1).Tel, u"12");
    EXPECT_THAT(desktop.Transcript, ElementsAre("file"));
}

TEST_F(LoadCSVTest, WithOneByteThatDoesNotFitAllIsWindows1252) {
    Load("Name;Tel\r\nM\xC3\xBCller;1\r\nK\xF6nig;2\r\n");
    EXPECT_THAT(Names(state), ElementsAre(u"MÃ¼ller", u"König"));
    EXPECT_THAT(desktop.Transcript, ElementsAre("file"));
}

TEST_F(LoadCSVTest, ReplacedCharactersAreNotedOnceForALine) {
    Load("N\xC4\x83me;Tel;Info1;Info2\r\nWa\xC5\x82\xC4\x99sa;1;\xC5\x82;\xC5\x82\r\n"
         "Bert;2\r\nBert;3;\xD0\x96\r\n\xC5\x82\r\n;4;\xC5\x82;;\r\n");
    EXPECT_THAT(Names(state), ElementsAre(u"Walesa", u"Bert", u"Bert", u""));
    EXPECT_EQ(state.Register(1).Info, u"l                    l");
    EXPECT_EQ(state.Register(3).Info, u"?");
    const Text log = u"Zeichen ersetzt: Walesa\r\nDoppelter Name: Bert\r\n"
                     u"Zeichen ersetzt: Bert\r\nZeichen ersetzt: \r\n";
    EXPECT_EQ(state.LoadReport, log);
    EXPECT_EQ(state.Damage.LinesPassedOver, 1);
    EXPECT_THAT(desktop.Transcript, ElementsAre(LogBox(log), CheckBox(log), "file"));
}

TEST_F(LoadCSVTest, DoubledLinesAreComparedAsTheyStandInTheFile) {
    // A name spelled in two ways is read alike.
    Load("Name;Tel\r\n\xC5\x82;1\r\n\xC5\x82;1\r\nl;1\r\n", true);
    EXPECT_THAT(Names(state), ElementsAre(u"l", u"l"));
    EXPECT_EQ(state.LoadReport,
              u"Zeichen ersetzt: l\r\nDoublette entfernt: l\r\nDoppelter Name: l\r\n");
}

TEST_F(LoadCSVTest, TheCharacterSetMayBeTold) {
    const std::string utf8 = "Name;Tel\r\nM\xC3\xBCller;1\r\n";
    const std::string windows = "Name;Tel\r\nM\xFCller;1\r\nAnna;2\r\n";
    const auto load = [this](const std::string& file, Charset charset) {
        LoadCSV(state, {.Content = Bytes(file.begin(), file.end()), .Path = {}, .Modified = {}},
                {.Characters = charset}, Settings(), desktop);
    };
    load(utf8, Charset::Windows1252);
    EXPECT_THAT(Names(state), ElementsAre(u"MÃ¼ller"));
    EXPECT_EQ(state.LoadReport, u"");
    load(utf8, Charset::Utf8);
    EXPECT_THAT(Names(state), ElementsAre(u"Müller"));
    EXPECT_EQ(state.LoadReport, u"");
    load(windows, Charset::Utf8);
    EXPECT_THAT(Names(state), ElementsAre(u"M?ller", u"Anna"));
    EXPECT_EQ(state.LoadReport, u"Zeichen ersetzt: M?ller\r\n");
}

// Doubled lines and names

TEST_F(LoadCSVTest, WithRemovalADoubledLineIsLeftOutAndNoted) {
    Load("Name;Tel\r\nAnna;1\r\nAnna;1\r\nBert;2\r\n", true);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bert"));
    EXPECT_EQ(state.LoadReport, u"Doublette entfernt: Anna\r\n");
    EXPECT_THAT(desktop.Transcript, ElementsAre(LogBox(u"Doublette entfernt: Anna\r\n"),
                                                CheckBox(u"Doublette entfernt: Anna\r\n"), "file"));
}

TEST_F(LoadCSVTest, WithoutRemovalADoubledLineIsKeptAndItsNameNoted) {
    Load("Name;Tel\r\nAnna;1\r\nAnna;1\r\nBert;2\r\n");
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Anna", u"Bert"));
    EXPECT_THAT(desktop.Transcript, ElementsAre(LogBox(u"Doppelter Name: Anna\r\n"),
                                                CheckBox(u"Doppelter Name: Anna\r\n"), "file"));
}

TEST_F(LoadCSVTest, EqualLinesThatAreNotConsecutiveAreBothKept) {
    Load("Name;Tel\r\nAnna;1\r\nBert;2\r\nAnna;1\r\n", true);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bert", u"Anna"));
    EXPECT_EQ(state.LoadReport, u"");
    EXPECT_THAT(desktop.Transcript, ElementsAre("file"));
}

TEST_F(LoadCSVTest, WithRemovalADoubledNameInAnotherLineIsKeptAndNoted) {
    Load("Name;Tel\r\nAnna;1\r\nAnna;2\r\n", true);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Anna"));
    EXPECT_EQ(state.LoadReport, u"Doppelter Name: Anna\r\n");
}

TEST_F(LoadCSVTest, LinesThatDifferInABlankOrInCaseAreNoDoubles) {
    Load("Name;Tel\r\nAnna;1\r\nAnna;1 \r\nanna;1\r\n", true);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Anna", u"anna"));
    EXPECT_EQ(state.LoadReport, u"Doppelter Name: Anna\r\n");
}

TEST_F(LoadCSVTest, EveryFurtherDoubleIsNoted) {
    Load("Name;Tel\r\nAnna;1\r\nAnna;1\r\nAnna;1\r\n", true);
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.LoadReport, u"Doublette entfernt: Anna\r\nDoublette entfernt: Anna\r\n");
}

TEST_F(LoadCSVTest, TheNotedNameIsTheWholeFirstField) {
    Load("Name;Tel\r\nABCDEFGHIJKLMNOPQRSTUV;1\r\nABCDEFGHIJKLMNOPQRSTUV;2\r\n");
    EXPECT_EQ(state.LoadReport, u"Doppelter Name: ABCDEFGHIJKLMNOPQRSTUV\r\n");
}

TEST_F(LoadCSVTest, AFirstEntryWithoutANameIsNotedAsDoubled) {
    Load("Name;Tel\r\n;1\r\n");
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.LoadReport, u"Doppelter Name: \r\n");
}

TEST_F(LoadCSVTest, ASkippedLineIsAPreviousLineToo) {
    Load("Name;Tel\r\nAnna;1\r\n\r\nAnna;1\r\nBert\r\nBert;2\r\n", true);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Anna", u"Bert"));
    EXPECT_EQ(state.LoadReport, u"Doppelter Name: Bert\r\n");
}

TEST_F(LoadCSVTest, TheHeaderIsNoPreviousLine) {
    Load("Anna;1\r\nAnna;1\r\n", true);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna"));
    EXPECT_EQ(state.LoadReport, u"");
}

TEST_F(LoadCSVTest, DoublesAreFoundInTheQuotedFormToo) {
    Load("\"Name\"\r\n\"Anna\";\"1\"\r\n\"Anna\";\"1\"\r\n\"Anna\";\"2\"\r\n", true);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Anna"));
    EXPECT_EQ(state.LoadReport, u"Doublette entfernt: Anna\r\nDoppelter Name: Anna\r\n");
}

TEST_F(LoadCSVTest, TheLogIsShownBeforeTheCheckAndAgainInItsBox) {
    Load("Name;Tel\r\nAnna;1\r\nAnna;2;;;;;;;9\r\n");
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(LogBox(u"Doppelter Name: Anna\r\n"),
                            OkBox(u"Es wurden 1 Fehler korrigiert\r\n\r\n"
                                  u"Doppelter Name: Anna\r\n#1[Anna] Ansage zu hoch: 9\r\n",
                                  u"Fehlerprüfung", "Information"),
                            "file"));
    EXPECT_EQ(state.Register(2).AB, 0);
}

TEST_F(LoadCSVTest, TheCheckAloneShowsOnlyItsOwnBox) {
    Load("Name;Tel\r\nAnna;1;;;;;;;9\r\n");
    EXPECT_THAT(desktop.Transcript, ElementsAre(OkBox(u"Es wurden 1 Fehler korrigiert\r\n\r\n"
                                                      u"#0[Anna] Ansage zu hoch: 9\r\n",
                                                      u"Fehlerprüfung", "Information"),
                                                "file"));
}

// Skipped lines and the form

TEST_F(LoadCSVTest, LinesWithFewerThanTwoFieldsTakeNoPosition) {
    Load("Name;Tel\r\n\r\nAnna\r\nBert;2\r\n \r\nCarl;3\r\n");
    EXPECT_THAT(Names(state), ElementsAre(u"Bert", u"Carl"));
    EXPECT_EQ(state.Register(2).RecIndex, 1);
}

TEST_F(LoadCSVTest, QuotedLinesWithoutAQuotedValueTakeNoPosition) {
    Load("\"Name\";\"Tel\"\r\nAnna;1\r\n\r\n\"Bert\r\n\"Carl\"\r\n");
    EXPECT_THAT(Names(state), ElementsAre(u"Carl"));
}

TEST_F(LoadCSVTest, AQuotedHeaderWithAnOddNumberOfQuotesMeansTheUnquotedForm) {
    Load("\"Name\";Tel\"\r\n\"Anna;x\";\"1\"\r\nBert;2\r\n");
    EXPECT_THAT(Names(state), ElementsAre(u"\"Anna", u"Bert"));
    EXPECT_EQ(state.Register(1).Tel, u"");
}

TEST_F(LoadCSVTest, QuotesInTheLinesDoNotMatterToTheForm) {
    Load("Name;Tel\r\n\"Anna\";\"1\"\r\n");
    EXPECT_EQ(state.Register(1), Entry(u"Anna", u"1"));
}

TEST_F(LoadCSVTest, LinesEndAtACarriageReturnAlone) {
    Load("Name;Tel\rAnna;1\rBert;2");
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bert"));
}

TEST_F(LoadCSVTest, ABareLineFeedDoesNotEndALine) {
    Load("Name;Tel\r\nAn\nna;1\r\n");
    EXPECT_THAT(Names(state), ElementsAre(u"An\nna"));
}

TEST_F(LoadCSVTest, InAFileWithoutCarriageReturnsLineFeedsEndTheLines) {
    Load("Name;Tel\nAnna;1\nBert;2\n");
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bert"));
}

TEST_F(LoadCSVTest, BytesAreWindows1252) {
    Load("Name;Tel;Info1\r\nM\xFCller;1;\x80 \x81\r\n");
    EXPECT_EQ(state.Register(1), Entry(u"Müller", u"1", u"€ \u0081"));
}

// The state

TEST_F(LoadCSVTest, TheWholeRegisterIsReplaced) {
    Load("Name;Tel\r\nAnna;1\r\n");
    RegisterState expected;
    expected.Register(1) = Entry(u"Anna", u"1");
    EXPECT_TRUE(ContentsOf(state) == ContentsOf(expected));
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.Satzwahl.Maximum, 1);
    EXPECT_EQ(state.LoadReport, u"");
}

TEST_F(LoadCSVTest, TheCurrentFileIsTheCsvFile) {
    Load("Name;Tel\r\nAnna;1\r\n", true);
    EXPECT_EQ(state.File.Type, u"CSV");
    EXPECT_EQ(state.File.Path, path);
    EXPECT_EQ(state.File.Modified, LastModified(path));
    EXPECT_EQ(state.LoadedModel, u"");
    EXPECT_THAT(desktop.Transcript, ElementsAre("file"));
}

TEST_F(LoadCSVTest, TheFileIsKnownBeforeTheWindowShowsIt) {
    class Watcher : public ScriptedDesktop {
      public:
        explicit Watcher(const RegisterState& watched) : state_(watched) {}
        void ShowCurrentFile() override { TypeShown = state_.File.Type; }
        Text TypeShown;

      private:
        const RegisterState& state_;
    };
    Watcher watcher(state);
    LoadCSV(state, folder.Write("a.csv", "Name;Tel\r\nAnna;1\r\n"), Settings(), watcher);
    EXPECT_EQ(watcher.TypeShown, u"CSV");
}

TEST_F(LoadCSVTest, AnEmptyFileGivesAnEmptyRegister) {
    for (const std::string_view file :
         {"", "Name;Tel", "Name;Tel\r\n", "\r\n", "\"\"\r\nx;1\r\n"}) {
        state = Old();
        Load(file);
        EXPECT_EQ(state.AnzGes, 0) << file;
        EXPECT_TRUE(ContentsOf(state) == ContentsOf(RegisterState())) << file;
        EXPECT_EQ(state.File.Type, u"CSV") << file;
    }
}

TEST_F(LoadCSVTest, The2001stLineAndAllAfterItAreIgnored) {
    std::string file = "Name;Tel\r\n";
    for (int i = 1; i <= 2003; ++i) {
        file += "n" + std::to_string(i) + ";" + std::to_string(i) + "\r\n";
    }
    file += "Anna;;;;;;;;99999\r\n";  // would overflow
    Load(file);
    EXPECT_EQ(state.AnzGes, 2000);
    EXPECT_EQ(state.Register(1).Name, u"n1");
    EXPECT_EQ(state.Register(2000).Name, u"n2000");
    EXPECT_EQ(state.Register(2000).RecIndex, 1999);
    EXPECT_THAT(desktop.Transcript, ElementsAre("file"));
}

TEST_F(LoadCSVTest, SkippedLinesDoNotCountTowardsThe2000) {
    std::string file = "Name;Tel\r\n";
    for (int i = 1; i <= 2000; ++i) {
        file += "n" + std::to_string(i) + ";1\r\n\r\n";
    }
    Load(file);
    EXPECT_EQ(state.AnzGes, 2000);
    EXPECT_EQ(state.Register(2000).Name, u"n2000");
}

// Failures

TEST_F(LoadCSVTest, AFileThatCannotBeOpenedLeavesTheRegisterAsItWas) {
    const Contents before = ContentsOf(state);
    try {
        LoadCSV(state, folder / "none.csv", Settings(), desktop);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
    }
    EXPECT_TRUE(ContentsOf(state) == before);
    EXPECT_EQ(state.AnzGes, 3);
    EXPECT_EQ(state.LoadReport, u"old\r\n");
    EXPECT_EQ(state.File.Type, u"175");
    EXPECT_EQ(state.LoadedModel, u"175");
    EXPECT_THAT(desktop.Transcript, IsEmpty());
}

TEST_F(LoadCSVTest, AnAbortedLoadRaisesItsErrorBesideTheEntriesReadSoFar) {
    try {
        Load("Name;Tel\r\nAnna;1\r\nBert;2;;;;;;;32768\r\nCarl;3\r\n");
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
    }
    EXPECT_EQ(state.AnzGes, 3);
    EXPECT_EQ(state.Satzwahl.Maximum, 3);
    EXPECT_EQ(state.Register(1), Entry(u"Anna", u"1"));
    EXPECT_EQ(state.Register(3), RegisterState().Register(3));
    EXPECT_THAT(Order(state, 3), ElementsAre(1, 2, 3));
    EXPECT_EQ(state.RecordsRead, 1);
    EXPECT_EQ(state.File.Type, u"CSV");
    EXPECT_EQ(state.File.Path, path);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
}

}  // namespace

}  // namespace norvik::test
