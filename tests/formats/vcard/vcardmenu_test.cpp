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

const std::string SaveDialog = "save \"vCard-Datei|*.vcf|Alle Dateien|*.*\" ending .vcf -> ";

TEST(MnuDateiSaveVCard, SavesAndSaysSo) {
    const TestFolder folder;
    RegisterState state = RegisterOf({Entry(u"Alt, Eva", u"0711")});
    Settings settings;
    settings.InternationalPrefix = u"0049";
    for (const bool saved : {true, false}) {
        state.RegisterSaved = saved;
        ScriptedDesktop desktop;
        desktop.AnswerFile(folder / "a");
        desktop.OnBeforeReplacing = [](const FilePath& /*file*/) { return Text(u" (aufgehoben)"); };
        mnuDateiSaveVCard(state, settings, desktop);
        EXPECT_THAT(desktop.Questions(), ElementsAre(SaveDialog + (folder / "a").string()));
        EXPECT_THAT(desktop.Statuses(),
                    ElementsAre("Gespeichert: " + (folder / "a.vcf").string() + " (aufgehoben)"));
        EXPECT_EQ(state.RegisterSaved, saved);
    }
    const Bytes file = ReadFile(folder / "a.vcf");
    EXPECT_EQ(std::string(file.begin(), file.end()),
              "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Alt;Eva;;;\r\nFN:Eva Alt\r\nTEL:+49711\r\n"
              "END:VCARD\r\n");
}

TEST(MnuDateiSaveVCard, ACancelledDialogDoesNothing) {
    RegisterState state = RegisterOfNames({u"x"});
    ScriptedDesktop desktop;
    desktop.AnswerFile(std::nullopt);
    mnuDateiSaveVCard(state, Settings(), desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre(SaveDialog + "cancel"));
}

TEST(MnuDateiSaveVCard, ReportsAFailure) {
    const TestFolder folder;
    RegisterState state = RegisterOfNames({u"x"});
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder / "fehlt" / "a.vcf");
    mnuDateiSaveVCard(state, Settings(), desktop);
    EXPECT_THAT(desktop.Questions(),
                ElementsAre(SaveDialog + (folder / "fehlt" / "a.vcf").string(),
                            OkBox(u"Undef'd Error: mnuDateiSaveVCard:76Pfad nicht gefunden")));
    EXPECT_THAT(desktop.Statuses(), ElementsAre("Nicht gespeichert: Pfad nicht gefunden"));
    EXPECT_TRUE(state.RegisterSaved);
}

}  // namespace
}  // namespace norvik::test
