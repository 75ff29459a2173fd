#include "formats/vcard/vcard.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/errors.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/stepclock.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

Source SourceOf(std::string_view file) {
    return SourceFile{Bytes(file.begin(), file.end()), "a.vcf", std::nullopt};
}

/// The file, then an error.
Source BrokenOff(std::string file) {
    const auto read = [file](std::span<Byte> block) mutable {
        if (file.empty()) {
            throw RuntimeError(ErrorNumber::DeviceError);
        }
        std::copy(file.begin(), file.end(), block.begin());
        return std::exchange(file, "").size();
    };
    return {{read, std::nullopt}, "a.vcf", std::nullopt};
}

RegisterState Old() {
    RegisterState state = RegisterOfNames({u"Alt"});
    state.LoadedModel = u"175";
    state.File.Type = u"175";
    return state;
}

TEST(LoadVCard, ReplacesTheRegister) {
    RegisterState state = Old();
    ScriptedDesktop desktop;
    EXPECT_TRUE(LoadVCard(state,
                          SourceOf("BEGIN:VCARD\nFN:B\nTEL:1\nEND:VCARD\nBEGIN:VCARD\nFN:A\nTEL:"
                                   "2\nTEL;CELL:3\nEND:VCARD"),
                          Settings(), desktop));
    EXPECT_THAT(Names(state), ElementsAre(u"B", u"A", u"A (m)"));
    EXPECT_EQ(EntryAt(state, 3).RecIndex, 2);
    EXPECT_EQ(EntryAt(state, 3).Tel, u"3");
    EXPECT_EQ(state.File.Type, u"vCard");
    EXPECT_EQ(state.File.Path, "a.vcf");
    EXPECT_EQ(state.LoadedModel, u"");
    EXPECT_EQ(state.RecordsRead, 3);
    EXPECT_FALSE(state.Damage.IsFull);
    EXPECT_THAT(desktop.Transcript, ElementsAre("file"));
}

TEST(LoadVCard, ShowsItsReportOnce) {
    RegisterState state = Old();
    ScriptedDesktop desktop;
    LoadVCard(state, SourceOf("BEGIN:VCARD\nFN:A\nTEL:1\nTEL:x\nEND:VCARD"), Settings(), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(OkBox(u"Nicht wählbar: A: x\r\n", u"vCard laden: Hinweise"), "file"));
    EXPECT_EQ(state.LoadReport, u"Nicht wählbar: A: x\r\n");
}

TEST(LoadVCard, LeavesTheRegisterWhereNothingCanBeRead) {
    for (const auto& [file, message] : std::vector<std::pair<std::string, Text>>{
             {"", u"Dies ist keine vCard-Datei!"},
             {"Anna;040\r\n", u"Dies ist keine vCard-Datei!"},
             {"BEGIN:VCARD\nFN:A\nEND:VCARD", u"In dieser vCard-Datei steht keine wählbare "
                                              u"Rufnummer!\r\n\r\nOhne Rufnummer: A\r\n"}}) {
        RegisterState state = Old();
        const Contents before = ContentsOf(state);
        ScriptedDesktop desktop;
        EXPECT_FALSE(LoadVCard(state, SourceOf(file), Settings(), desktop));
        EXPECT_THAT(desktop.Transcript, ElementsAre(OkBox(message, u"Fehlermeldung", "Critical")));
        EXPECT_TRUE(ContentsOf(state) == before);
        EXPECT_EQ(state.File.Type, u"175");
        EXPECT_EQ(state.LoadedModel, u"175");
    }
}

TEST(LoadVCard, TellsACardThatIsCut) {
    RegisterState state;
    ScriptedDesktop desktop;
    EXPECT_TRUE(LoadVCard(state, SourceOf("BEGIN:VCARD\nFN:A\nTEL:1"), Settings(), desktop));
    EXPECT_TRUE(state.Damage.EndsEarly);
    EXPECT_FALSE(state.Damage.LastEntryIsCut);
    EXPECT_EQ(state.LoadReport, u"Karte ohne Ende: A\r\n");
}

TEST(LoadVCard, KeepsWhatWasReadBeforeAnError) {
    RegisterState state = Old();
    ScriptedDesktop desktop;
    EXPECT_EQ(ErrorOf([&] {
                  LoadVCard(state, BrokenOff("BEGIN:VCARD\nFN:A\nTEL:1\nEND:VCARD\nBEGIN"),
                            Settings(), desktop);
              }),
              57);
    EXPECT_EQ(EntryAt(state, 1).Name, u"A");
    EXPECT_EQ(state.RecordsRead, 1);
    EXPECT_EQ(state.File.Type, u"vCard");
}

TEST(LoadVCard, TakesACardThatEndsDirectlyBeforeAnError) {
    for (const char* const end : {"\n", "\r", "\r\n"}) {
        RegisterState state = Old();
        ScriptedDesktop desktop;
        const std::string card = "BEGIN:VCARD\nFN:A\nTEL:1\nEND:VCARD";
        EXPECT_EQ(ErrorOf([&] { LoadVCard(state, BrokenOff(card + end), Settings(), desktop); }),
                  57);
        EXPECT_EQ(state.RecordsRead, 1);
    }
}

TEST(LoadVCard, LeavesTheRegisterWhenAnErrorComesFirst) {
    RegisterState state = Old();
    ScriptedDesktop desktop;
    EXPECT_EQ(
        ErrorOf([&] { LoadVCard(state, BrokenOff("BEGIN:VCARD\nFN:A"), Settings(), desktop); }),
        57);
    EXPECT_THAT(Names(state), ElementsAre(u"Alt"));
    EXPECT_EQ(state.File.Type, u"175");
}

TEST(LoadVCard, TellsOfMoreThanThereArePlaces) {
    std::string file = "BEGIN:VCARD\nFN:A\n";
    for (int i = 0; i < 2001; ++i) {
        file += "TEL:" + std::to_string(i) + "\nEND:VCARD\nBEGIN:VCARD\nFN:A\n";
    }
    RegisterState state;
    ScriptedDesktop desktop;
    EXPECT_TRUE(LoadVCard(state, SourceOf(file + "END:VCARD"), Settings(), desktop));
    EXPECT_EQ(state.AnzGes, 2000);
    EXPECT_TRUE(state.Damage.IsFull);
    EXPECT_EQ(state.LoadReport, u"Kein Platz mehr: A: 2000\r\nOhne Rufnummer: A\r\n");
}

TEST(LoadVCard, ShowsHowFarItHasCome) {
    std::string file = "BEGIN:VCARD\nFN:A\nTEL:1\nEND:VCARD\nBEGIN:VCARD\nFN:B\nTEL:2\n";
    file += "PHOTO:" + std::string(200000, 'x') + "\nEND:VCARD";
    RegisterState state;
    ScriptedDesktop desktop;
    LoadVCard(state, SourceOf(file), Settings(), desktop, Charset::Automatic,
              StepClock(std::chrono::seconds(1)));
    EXPECT_THAT(desktop.Statuses(),
                ElementsAre("vCard-Datei wird gelesen... 32 %", "vCard-Datei wird gelesen... 100 %",
                            "vCard-Datei gelesen"));
}

}  // namespace
}  // namespace norvik::test
