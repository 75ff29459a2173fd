#include "formats/vcard/vcardmenu.h"

#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string Dialog = "open \"vCard-Datei|*.vcf|Alle Dateien|*.*\" ending .vcf -> ";

TEST(MnuDateiLoadVCard, LoadsSortsAndShowsEntry1) {
    const TestFolder folder;
    folder.Write("a.vcf",
                 "BEGIN:VCARD\nFN:b\nTEL:1\nEND:VCARD\nBEGIN:VCARD\nFN:A\nTEL:2\nEND:VCARD\n");
    RegisterState state = RegisterOfNames({u"x", u"y"});
    state.RegisterSaved = false;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "a");
    mnuDateiLoadVCard(state, Settings(), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Dialog + (folder / "a").string(), "file", "pointer Hourglass",
                            "status \"Sortiere, Durchgang 1\"", "status \"Sortiert: 1\"",
                            "status \"Sortiere, Durchgang 2\"", "status \"Sortiert: 0\"",
                            "status \"Suche Datensatz...\"", "pointer Normal",
                            "status \"Sortieren beendet\"", "entry", "list"));
    EXPECT_THAT(Names(state), ElementsAre(u"A", u"b"));
    EXPECT_TRUE(state.WarnLineAccessZero);
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_EQ(state.SavedAs, u"vCard");
    EXPECT_EQ(state.File.Path, folder / "a.vcf");
}

TEST(MnuDateiLoadVCard, ACancelledDialogDoesNothing) {
    RegisterState state = RegisterOfNames({u"x"});
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    mnuDateiLoadVCard(state, Settings(), desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Dialog + "cancel"));
    EXPECT_THAT(Names(state), ElementsAre(u"x"));
}

TEST(MnuDateiLoadVCard, ReportsAFileThatCannotBeRead) {
    const TestFolder folder;
    RegisterState state = RegisterOfNames({u"x"});
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "fehlt.vcf");
    mnuDateiLoadVCard(state, Settings(), desktop);
    std::filesystem::create_directory(folder / "b.vcf");
    desktop.AnswerFile(folder / "b.vcf");
    mnuDateiLoadVCard(state, Settings(), desktop);
    EXPECT_EQ(desktop.Transcript.at(1),
              OkBox(u"Undef'd Error: mnuDateiLoadVCard:53Datei nicht gefunden"));
    EXPECT_EQ(desktop.Transcript.at(3),
              OkBox(u"Undef'd Error: mnuDateiLoadVCard:75Fehler beim Zugriff auf Pfad/Datei"));
    EXPECT_THAT(Names(state), ElementsAre(u"x"));
}

TEST(LoadVCardOrReport, ShowsWhatWasReadBeforeAnError) {
    RegisterState state = RegisterOfNames({u"x", u"y"});
    ScriptedDesktop desktop;
    int blocks = 0;
    const auto read = [&blocks](std::span<Byte> block) {
        if (++blocks > 1) {
            throw RuntimeError(ErrorNumber::DeviceError);
        }
        const std::string file = "BEGIN:VCARD\nFN:A\nTEL:1\nEND:VCARD\n";
        std::copy(file.begin(), file.end(), block.begin());
        return file.size();
    };
    EXPECT_FALSE(LoadVCardOrReport(
        state,
        [&] {
            return Source{{read, std::nullopt}, "-", std::nullopt};
        },
        Settings(), desktop));
    EXPECT_THAT(
        desktop.Transcript,
        ElementsAre(
            OkBox(u"Undef'd Error: mnuDateiLoadVCard:57E/A-Fehler beim Zugriff auf ein Gerät"),
            "file", "entry", "list"));
    EXPECT_THAT(Names(state), ElementsAre(u"A"));
    EXPECT_FALSE(state.RegisterSaved);
    EXPECT_TRUE(state.Damage.Failure);
}

TEST(LoadVCardOrReport, TellsThatNothingWasLoaded) {
    RegisterState state = RegisterOfNames({u"x"});
    ScriptedDesktop desktop;
    EXPECT_FALSE(LoadVCardOrReport(
        state,
        [] {
            return SourceFile{{}, "-", std::nullopt};
        },
        Settings(), desktop));
    EXPECT_THAT(Names(state), ElementsAre(u"x"));
}

}  // namespace
}  // namespace norvik::test
