// The sample call list.
#include "formats/calllist/calllist.h"
#include "tests/formats/calllist/calllistbytes.h"
#include "tests/support/places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

const FilePath Sample = SourceFolder() / "samples" / "anrufliste.t9a";

struct SampleCall {
    const char* Number;
    const char* Date;
    const char* Msn;
    const char* Caller;
};

const std::vector<SampleCall> Calls = {{"00", "24.12.2025 18:30", "1", "03023125117"},
                                       {"01", "24.12.2025 17:45", "4", "04066969118"},
                                       {"02", "23.12.2025 12:01", "0", "**61"},
                                       {"03", "30.11.2025 23:59", "2", ""},
                                       {"04", "09.03.2025 14:05", "5", "00496990009120"},
                                       {"05", "28.02.2025 07:00", "0", "i12"},
                                       {"06", "01.01.2025 00:00", "2", "08999998112"},
                                       {"07", "31.12.2005 23:59", "4", "01713920013"},
                                       {"08", "24.12.2005 18:30", "4", "02214710110"},
                                       {"09", "02.08.2005 09:15", "", "02214710110"},
                                       {"100", "28.02.2005 12:00", "2", "06990009113"},
                                       {"299", "01.01.2005 00:00", "1", "03023125133"}};

TEST(SampleCallList, GivesItsTwelveCalls) {
    const TestFolder folder;
    const FilePath input = folder.Write("anrufliste.t9a", ReadFile(Sample));
    ScriptedDesktop desktop;
    desktop.AnswerFile(input);
    std::vector<std::string> transcript = {
        "open \"Anrufliste|*.t9a|Alle Dateien|*.*\" ending .t9a -> " + input.string()};
    std::string lines;
    for (const SampleCall& call : Calls) {
        desktop.AnswerText(FromAscii(call.Msn));
        transcript.push_back(MsnQuestion(FromAscii(call.Date + (std::string(" ") + call.Caller)),
                                         "\"" + std::string(call.Msn) + "\"",
                                         transcript.size() > 3));
        for (const char* column : {call.Number, call.Date, call.Msn}) {
            lines += column;
            lines += ";";
        }
        lines += call.Caller;
        lines += "\r\n";
    }
    transcript.push_back(SavedBox(folder / "anrufliste.csv"));
    transcript.push_back("status \"Gespeichert: " + (folder / "anrufliste.csv").string() + "\"");

    mnuDateiConvCallListCSV(desktop);

    EXPECT_EQ(desktop.Transcript, transcript);
    const Bytes written = ReadFile(folder / "anrufliste.csv");
    EXPECT_EQ(std::string(written.begin(), written.end()), lines);
}

}  // namespace
}  // namespace norvik::test
