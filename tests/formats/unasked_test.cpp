// The work of the menu's operations on text files, without their questions.
#include "base/runtimeerror.h"
#include "formats/calllist/calllist.h"
#include "formats/csv/csvformat.h"
#include "formats/csv/csvmenu.h"
#include "formats/ip286/ip286menu.h"
#include "tests/formats/calllist/calllistbytes.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

SourceReader Doubles() {
    return [] {
        return SourceFile{Raw("'Name;Tel' 0D0A 'Anna;1' 0D0A 'Anna;1' 0D0A"), "-", std::nullopt};
    };
}

TEST(LoadCSVOrReport, TakesAnySourceWithOrWithoutDoubles) {
    RegisterState state;
    ScriptedDesktop desktop;
    EXPECT_TRUE(LoadCSVOrReport(state, Settings(), Doubles(), {}, desktop));
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Anna"));
    EXPECT_EQ(state.LoadReport, u"Doppelter Name: Anna\r\n");
    EXPECT_TRUE(LoadCSVOrReport(state, Settings(), Doubles(), {.AvoidDoubles = true}, desktop));
    EXPECT_THAT(Names(state), ElementsAre(u"Anna"));
    EXPECT_EQ(state.LoadReport, u"Doublette entfernt: Anna\r\n");
    EXPECT_EQ(state.File.Type, u"CSV");
    EXPECT_EQ(state.File.Path, "-");
    EXPECT_EQ(state.File.Modified, std::nullopt);
}

TEST(LoadCSVOrReport, ReportsASourceThatCannotBeReadAndLeavesTheRegister) {
    RegisterState state = RegisterOfNames({u"Bernd"});
    ScriptedDesktop desktop;
    const SourceReader unreadable = []() -> SourceFile {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    };
    EXPECT_FALSE(LoadCSVOrReport(state, Settings(), unreadable, {}, desktop));
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(OkBox(u"Undef'd Error: mnuDateiLoadCSV:7Nicht genügend Speicher")));
    EXPECT_THAT(Names(state), ElementsAre(u"Bernd"));
}

TEST(WriteCSV, WritesWithOrWithoutQuotes) {
    const TestFolder folder;
    RegisterState state = RegisterOf({Entry(u"Anna", u"1")});
    state.RegisterSaved = false;
    WriteCSV(state, folder / "a.csv", false);
    EXPECT_TRUE(state.RegisterSaved);
    WriteCSV(state, folder / "b.csv", true);
    EXPECT_EQ(ReadFile(folder / "a.csv"),
              Raw("'Name;Tel;Info1;Info2;Info3;Info4;Info5;Info6;AB;Ton;EnTon;MSN;Filter;GebEinh;"
                  "EnGeb' 0D0A 'Anna;1;;;;;;;0;0;nein;00;Kein;0;nein' 0D0A"));
    EXPECT_EQ(ReadFile(folder / "b.csv"),
              Raw("'\"Name\";\"Tel\";\"Info1\";\"Info2\";\"Info3\";\"Info4\";\"Info5\";\"Info6\";"
                  "\"AB\";\"Ton\";\"EnTon\";\"MSN\";\"Filter\";\"GebEinh\";\"EnGeb\"' 0D0A"
                  "'\"Anna\";\"1\";\"\";\"\";\"\";\"\";\"\";\"\";\"0\";\"0\";\"nein\";\"00\";"
                  "\"Kein\";\"0\";\"nein\"' 0D0A"));
}

TEST(WarnOfLargeRegister, SpeaksFrom301EntriesOn) {
    RegisterState state;
    ScriptedDesktop desktop;
    SetCount(state, 300);
    WarnOfLargeRegister(state, desktop);
    EXPECT_THAT(desktop.Transcript, IsEmpty());
    SetCount(state, 301);
    WarnOfLargeRegister(state, desktop);
    EXPECT_EQ(desktop.Transcript.size(), 1U);
}

TEST(WriteCallList, GoesIntoAFileOfAnyNameAndReportsNothing) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    desktop.AnswerText(u"3");
    WriteCallList(CallListOf("02 01 06 0A '0512241830' 06 01 '1' 01"), folder / "neu", desktop);
    EXPECT_EQ(ReadFile(folder / "neu"), Raw("'00;24.12.2005 18:30;3;1' 0D0A"));
    EXPECT_THAT(desktop.Transcript, ElementsAre(MsnQuestion(u"24.12.2005 18:30 1", "\"3\"")));
    ReportCallList(folder / "neu", desktop);
    EXPECT_EQ(desktop.Transcript.back(), SavedBox(folder / "neu"));
}

}  // namespace
}  // namespace norvik::test
