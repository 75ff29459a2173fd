#include "mainwindow/commandline.h"

#include "tests/support/scripteddesktop.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using Words = std::vector<Text>;
using Transcript = std::vector<std::string>;

std::string UnknownBox(TextView word) {
    return OkBox(Text(u"Kommandozeilenparameter unbekannt: ").append(word), u"NORVIK Programmstart",
                 "Exclamation");
}

/// What a command line makes of settings with a start file and a price, without any box.
Settings After(TextView commandLine) {
    Settings settings;
    settings.StartFile = u"c:\\alt.t9t";
    settings.UnitPrice = 0.5;
    ScriptedDesktop desktop;
    ReadCommandLine(commandLine, settings, desktop);
    EXPECT_EQ(desktop.Transcript, Transcript());
    return settings;
}

TEST(CommandLineWords, BlanksAndCommasSplit) {
    EXPECT_EQ(CommandLineWords(u"/la.t9t /g1"), (Words{u"/la.t9t", u"/g1"}));
    EXPECT_EQ(CommandLineWords(u"/la.t9t,/g1"), (Words{u"/la.t9t", u"/g1"}));
}

TEST(CommandLineWords, EmptyWordsAreLeftOut) {
    EXPECT_EQ(CommandLineWords(u"   /la.t9t    /g1  "), (Words{u"/la.t9t", u"/g1"}));
    EXPECT_EQ(CommandLineWords(u",,/la.t9t,, , /g1,"), (Words{u"/la.t9t", u"/g1"}));
    EXPECT_EQ(CommandLineWords(u"  , "), Words());
    EXPECT_EQ(CommandLineWords(u""), Words());
}

TEST(ReadCommandLine, AnUnknownWordIsShownInTheRepertoire) {
    Settings settings;
    ScriptedDesktop desktop;
    ReadCommandLine(u"\u0436x \U0001F600", settings, desktop);
    EXPECT_EQ(desktop.Transcript,
              (std::vector<std::string>{OkBox(u"Kommandozeilenparameter unbekannt: ?x",
                                              u"NORVIK Programmstart", "Exclamation"),
                                        OkBox(u"Kommandozeilenparameter unbekannt: ?",
                                              u"NORVIK Programmstart", "Exclamation")}));
}

TEST(CommandLineWords, AreInLowerCase) {
    EXPECT_EQ(CommandLineWords(u"/LC:\\Büro\\ÄRGER.T9T"), (Words{u"/lc:\\büro\\ärger.t9t"}));
}

TEST(CommandLineWords, ACommaBeforeADigitIsTheDecimalCommaOfAPrice) {
    EXPECT_EQ(CommandLineWords(u"/g0,15"), (Words{u"/g0,15"}));
    EXPECT_EQ(CommandLineWords(u"/G0,15,/lx"), (Words{u"/g0,15", u"/lx"}));
    EXPECT_EQ(CommandLineWords(u"/g,5"), (Words{u"/g,5"}));
}

TEST(CommandLineWords, AnyOtherCommaSplitsAPriceToo) {
    EXPECT_EQ(CommandLineWords(u"/g0,x"), (Words{u"/g0", u"x"}));
    EXPECT_EQ(CommandLineWords(u"/g0, 15"), (Words{u"/g0", u"15"}));
    EXPECT_EQ(CommandLineWords(u"/g0,"), (Words{u"/g0"}));
}

TEST(CommandLineWords, ACommaBeforeADigitSplitsAnyOtherWord) {
    EXPECT_EQ(CommandLineWords(u"/lreg,15.t9t"), (Words{u"/lreg", u"15.t9t"}));
    EXPECT_EQ(CommandLineWords(u"x/g0,15"), (Words{u"x/g0", u"15"}));
    EXPECT_EQ(CommandLineWords(u"/,15"), (Words{u"/", u"15"}));
}

TEST(CommandLineWords, QuotesHaveNoMeaning) {
    EXPECT_EQ(CommandLineWords(u"\"/la b.t9t\""), (Words{u"\"/la", u"b.t9t\""}));
}

TEST(CommandLineWords, ATabIsNoBlank) {
    EXPECT_EQ(CommandLineWords(u"/la\tb.t9t"), (Words{u"/la\tb.t9t"}));
}

TEST(ReadCommandLine, BothSwitchesOverrideTheSettings) {
    const Settings settings = After(u"/lc:\\x\\y.pbo /g0,15");
    EXPECT_EQ(settings.StartFile, u"c:\\x\\y.pbo");
    EXPECT_TRUE(settings.AutoloadFlag);
    EXPECT_EQ(settings.UnitPrice, 0.15);
}

TEST(ReadCommandLine, WithoutSwitchesTheSettingsStay) {
    const Settings settings = After(u"");
    EXPECT_EQ(settings.StartFile, u"c:\\alt.t9t");
    EXPECT_FALSE(settings.AutoloadFlag);
    EXPECT_EQ(settings.UnitPrice, 0.5);
}

TEST(ReadCommandLine, APriceAloneLeavesTheStartFile) {
    const Settings settings = After(u"/g0.2");
    EXPECT_EQ(settings.StartFile, u"c:\\alt.t9t");
    EXPECT_FALSE(settings.AutoloadFlag);
    EXPECT_EQ(settings.UnitPrice, 0.2);
}

TEST(ReadCommandLine, AStartFileAloneLeavesThePrice) {
    const Settings settings = After(u"/Lc:\\Neu.T9T");
    EXPECT_EQ(settings.StartFile, u"c:\\neu.t9t");
    EXPECT_TRUE(settings.AutoloadFlag);
    EXPECT_EQ(settings.UnitPrice, 0.5);
}

TEST(ReadCommandLine, TheLaterOfTwoSwitchesWins) {
    const Settings settings = After(u"/la.t9t /g1 /lb.t9t /g2");
    EXPECT_EQ(settings.StartFile, u"b.t9t");
    EXPECT_EQ(settings.UnitPrice, 2);
}

TEST(ReadCommandLine, ABareStartFileSwitchNamesTheEmptyPath) {
    const Settings settings = After(u"/l");
    EXPECT_EQ(settings.StartFile, u"");
    EXPECT_TRUE(settings.AutoloadFlag);
}

TEST(ReadCommandLine, ABarePriceSwitchSetsThePriceTo0) {
    EXPECT_EQ(After(u"/g").UnitPrice, 0);
    EXPECT_EQ(After(u"/gratis").UnitPrice, 0);
}

TEST(ReadCommandLine, TheSwitchesNeedNoBlankBehindThem) {
    EXPECT_EQ(After(u"/l/g5").StartFile, u"/g5");
}

TEST(ReadCommandLine, EveryUnknownWordIsReportedAndTheNextOneExamined) {
    Settings settings;
    ScriptedDesktop desktop;
    ReadCommandLine(u"-L /x /g3 Hilfe", settings, desktop);
    EXPECT_EQ(desktop.Transcript,
              (Transcript{UnknownBox(u"-l"), UnknownBox(u"/x"), UnknownBox(u"hilfe")}));
    EXPECT_EQ(settings.UnitPrice, 3);
    EXPECT_FALSE(settings.AutoloadFlag);
}

TEST(ReadCommandLine, AWordOfOneCharacterIsUnknown) {
    Settings settings;
    ScriptedDesktop desktop;
    ReadCommandLine(u"/ l", settings, desktop);
    EXPECT_EQ(desktop.Transcript, (Transcript{UnknownBox(u"/"), UnknownBox(u"l")}));
}

TEST(ReadCommandLine, APathWithABlankFallsApart) {
    Settings settings;
    ScriptedDesktop desktop;
    ReadCommandLine(u"/lc:\\eigene dateien\\a.t9t", settings, desktop);
    EXPECT_EQ(settings.StartFile, u"c:\\eigene");
    EXPECT_EQ(desktop.Transcript, Transcript{UnknownBox(u"dateien\\a.t9t")});
}

TEST(ReadCommandLine, WordsAfterTheTenthAreExaminedLikeTheOthers) {
    Settings settings;
    ScriptedDesktop desktop;
    ReadCommandLine(u"/g1 /g2 /g3 /g4 /g5 /g6 /g7 /g8 /g9 /g10 /g11 zwölf", settings, desktop);
    EXPECT_EQ(settings.UnitPrice, 11);
    EXPECT_EQ(desktop.Transcript, Transcript{UnknownBox(u"zwölf")});
}

}  // namespace
}  // namespace norvik::test
