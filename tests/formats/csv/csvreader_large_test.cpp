// Files of many megabytes: the signs of life and what the report keeps.
#include "formats/csv/csvformat.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/stepclock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

namespace {

using testing::ElementsAre;

/// `line` so many times behind a header.
SourceFile FileOf(int count, TextView line, TextView last = u"") {
    Text file = u"Name;Tel\r\n";
    for (int i = 0; i < count; ++i) {
        file.append(line).append(LineEnd);
    }
    return {.Content = BytesFromText(file.append(last)), .Path = "a.csv", .Modified = {}};
}

TEST(LoadCSVLarge, ALongLoadShowsHowFarItHasCome) {
    RegisterState state;
    ScriptedDesktop desktop;
    // 262 KiB: three looks at the clock
    const SourceFile file = FileOf(26214, u"Anna1234");
    LoadCSV(state, file, {}, Settings(), desktop, StepClock(std::chrono::milliseconds(150)));
    EXPECT_THAT(desktop.Transcript, ElementsAre("status \"CSV-Datei wird gelesen... 50 %\"",
                                                "status \"CSV-Datei wird gelesen... 75 %\"",
                                                "status \"CSV-Datei gelesen\"", "file"));
}

TEST(LoadCSVLarge, ALongLoadThatIsAbortedSaysSo) {
    RegisterState state;
    ScriptedDesktop desktop;
    const SourceFile file = FileOf(20000, u"Anna1234", u"Bert;2;;;;;;;32768");
    EXPECT_THROW(
        LoadCSV(state, file, {}, Settings(), desktop, StepClock(std::chrono::milliseconds(300))),
        RuntimeError);
    EXPECT_THAT(desktop.Transcript, ElementsAre("status \"CSV-Datei wird gelesen... 32 %\"",
                                                "status \"CSV-Datei wird gelesen... 65 %\"",
                                                "status \"CSV-Datei wird gelesen... 98 %\"",
                                                "status \"CSV-Datei nicht ganz gelesen\""));
}

TEST(LoadCSVLarge, OfAReportThatIsTooLongTheMiddleIsLeftOut) {
    RegisterState state;
    ScriptedDesktop desktop;
    LoadCSV(state, FileOf(100001, u"Anna;1"), {.AvoidDoubles = true}, Settings(), desktop,
            [] { return std::chrono::steady_clock::time_point(); });
    Text log;
    for (int i = 0; i < 100000; ++i) {
        log += u"Doublette entfernt: Anna\r\n";
    }
    EXPECT_EQ(state.AnzGes, 1);
    EXPECT_EQ(state.LoadReport.Size(), log.size());
    ASSERT_EQ(desktop.Transcript.size(), 3U);
    EXPECT_TRUE(desktop.Transcript[0] ==
                OkBox(LongReport(log).Shown(), u"LadeCSV: Doubletten entfernt/Hinweise"));
    EXPECT_TRUE(desktop.Transcript[1] ==
                OkBox(LongReport(u"Es wurden 0 Fehler korrigiert\r\n\r\n" + log).Shown(),
                      u"Fehlerprüfung", "Information"));
}

TEST(LoadCSVLarge, LinesOfAllLengthsInTurnAreCompared) {
    // The room of a line is used again for the second line after it.
    const Text longName(1000, u'x');
    Text file = u"Name;Tel\r\n";
    for (const TextView name : {TextView(u"a"), TextView(longName), TextView(u"a"), TextView(u"a"),
                                TextView(longName), TextView(longName)}) {
        file.append(name).append(u";1").append(LineEnd);
    }
    for (const bool removeDoubles : {false, true}) {
        RegisterState state;
        ScriptedDesktop desktop;
        const int count = ReadCSV(state, BytesFromText(file), {.AvoidDoubles = removeDoubles},
                                  Settings(), desktop);
        EXPECT_EQ(count, removeDoubles ? 4 : 6);
        const Text finding = removeDoubles ? u"Doublette entfernt: " : u"Doppelter Name: ";
        EXPECT_EQ(state.LoadReport, finding + u"a\r\n" + finding + longName + u"\r\n");
    }
}

}  // namespace

}  // namespace norvik::test
