// The mobile export and its file: when it is opened and closed, what a failure leaves.
#include "formats/mobile/mobileexport.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/processlimits.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

const std::string Start =
    "box \"Diese Funktion exportiert das aktuelle Telefonbuch\\r\\n"
    "in ein u.a. von SIM-Surf lesbares Format\" title \"Export\" icon Exclamation "
    "buttons Ok+Cancel default Ok -> Ok";
std::string NotSaved(const std::string& description) {
    return "status \"Nicht gespeichert: " + description + "\"";
}
const std::string Exporting = "status \"Exportiere Telefonbuch in Textdatei...\"";
const std::string Exported = "status \"Telefonbuch exportiert\"";

MobileExportOptions Plain() {
    MobileExportOptions options;
    options.UseReductionFlags = true;
    options.DataSeparator = u";";
    return options;
}

RegisterState Two() {
    return RegisterOf({Entry(u"Anna", u"1", u"()"), Entry(u"Bernd", u"2", u"()")});
}

const Bytes Whole = Raw("'Anna;1' 0D 0A 'Bernd;2' 0D 0A");

RegisterState Many(int count) {
    RegisterState state = RegisterOf({});
    SetCount(state, count);
    for (int place = 1; place <= count; ++place) {
        state.Register(place) = Entry(u"Anna", Text(200, u'1'), u"()");
    }
    return state;
}

/// The number of the run-time error that the export raises; 0 for none.
int ErrorOf(const RegisterState& state, const FilePath& file, ScriptedDesktop& desktop) {
    desktop.AnswerBox(Button::Ok);
    try {
        ExportMobile(state, Plain(), Settings(), file, desktop);
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

/// Notes the file's size at every box and status; -1 while there is no file.
class WatchingDesktop : public ScriptedDesktop {
  public:
    explicit WatchingDesktop(FilePath file) : file_(std::move(file)) {}

    std::vector<int> Sizes;

    Button Ask(const MessageBox& box) override {
        Look();
        return ScriptedDesktop::Ask(box);
    }
    void SetStatus(TextView text) override {
        Look();
        ScriptedDesktop::SetStatus(text);
    }

  private:
    void Look() {
        Sizes.push_back(fs::exists(file_) ? static_cast<int>(fs::file_size(file_)) : -1);
    }

    FilePath file_;
};

TEST(ExportMobileFile, StandsInItsPlaceBeforeTheLastStatus) {
    const TestFolder folder;
    WatchingDesktop desktop(folder / "a.pbb");
    desktop.AnswerBox(Button::Ok).AnswerBox(Button::No).AnswerBox(Button::No);
    MobileExportOptions options = Plain();
    options.UseReductionFlags = false;
    ExportMobile(Two(), options, Settings(), folder / "a.pbb", desktop);
    EXPECT_THAT(desktop.Sizes, ElementsAre(-1, -1, -1, -1, 0))
        << "box, status, two questions, status";

    WatchingDesktop second(folder / "a.pbb");
    second.AnswerBox(Button::Ok);
    ExportMobile(Two(), Plain(), Settings(), folder / "a.pbb", second);
    EXPECT_THAT(second.Sizes, ElementsAre(0, 0, 17)) << "box, status, status";
}

TEST(ExportMobileFile, IsClosedBeforeBothStatusesOfAStoppedExport) {
    const TestFolder folder;
    WatchingDesktop desktop(folder / "a.pbb");
    desktop.AnswerBox(Button::Ok).AnswerBox(Button::Yes).AnswerBox(Button::Cancel);
    MobileExportOptions options = Plain();
    options.UseReductionFlags = false;
    ExportMobile(Two(), options, Settings(), folder / "a.pbb", desktop);
    ASSERT_EQ(desktop.Sizes.size(), 6U);
    EXPECT_EQ(desktop.Sizes[4], 8);
    EXPECT_EQ(desktop.Sizes[5], 8);
}

TEST(ExportMobileFile, ReplacesAnyPreviousContent) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.pbb", std::string(9000, 'x'));
    ScriptedDesktop desktop;
    EXPECT_EQ(ErrorOf(Two(), path, desktop), 0);
    EXPECT_EQ(ReadFile(path), Whole);
}

TEST(ExportMobileFile, IsEmptiedEvenWhenTheFirstQuestionIsCancelled) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.pbb", "old");
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok).AnswerBox(Button::Cancel);
    ExportMobile(Two(), MobileExportOptions(), Settings(), path, desktop);
    EXPECT_EQ(ReadFile(path), Bytes());
}

TEST(ExportMobileFile, TheRegisterStaysAsItIs) {
    const TestFolder folder;
    for (const bool saved : {false, true}) {
        RegisterState state = Two();
        state.RegisterOrder(1) = 2;
        state.RegisterOrder(2) = 1;
        state.RegisterSaved = saved;
        const Contents before = ContentsOf(state);
        ScriptedDesktop desktop;
        EXPECT_EQ(ErrorOf(state, folder / "a.pbb", desktop), 0);
        EXPECT_TRUE(ContentsOf(state) == before);
        EXPECT_EQ(state.RegisterSaved, saved);
        EXPECT_TRUE(state.File.Path.empty());
    }
}

// Failures

TEST(ExportMobileFile, AFolderOfThatNameRaises75) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    EXPECT_EQ(ErrorOf(Two(), folder.Path(), desktop), 75);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Start, Exporting, NotSaved("Fehler beim Zugriff auf Pfad/Datei")));
}

TEST(ExportMobileFile, AMissingFolderRaises76) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    EXPECT_EQ(ErrorOf(Two(), folder / "fehlt/a.pbb", desktop), 76);
    EXPECT_THAT(desktop.Transcript, ElementsAre(Start, Exporting, NotSaved("Pfad nicht gefunden")));
    EXPECT_FALSE(fs::exists(folder / "fehlt"));
}

TEST(ExportMobileFile, ANameThatTheFileCannotHoldRaises5AndLeavesNoLineBefore) {
    const TestFolder folder;
    RegisterState state = Two();
    state.Register(2).Name = u"Жук";
    ScriptedDesktop desktop;
    EXPECT_EQ(ErrorOf(state, folder / "a.pbb", desktop), 5);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(Start, Exporting,
                            NotSaved("Ungültiger Prozeduraufruf oder ungültiges Argument")));
    EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{});
}

#ifndef _WIN32
TEST(ExportMobileFile, AReadOnlyFolderRaises70) {
    const TestFolder folder;
    fs::permissions(folder.Path(), fs::perms(0555));
    ScriptedDesktop desktop;
    {
        const AsAnyUser anyUser;
        EXPECT_EQ(ErrorOf(Two(), folder / "a.pbb", desktop), 70);
    }
    fs::permissions(folder.Path(), fs::perms(0755));
    EXPECT_THAT(desktop.Transcript, ElementsAre(Start, Exporting, NotSaved("Zugriff verweigert")));
    EXPECT_FALSE(fs::exists(folder / "a.pbb"));
}

TEST(ExportMobileFile, AReadOnlyFileRaises70AndStays) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.pbb", "old");
    fs::permissions(path, fs::perms(0444));
    ScriptedDesktop desktop;
    {
        const AsAnyUser anyUser;
        EXPECT_EQ(ErrorOf(Two(), path, desktop), 70);
    }
    EXPECT_THAT(desktop.Transcript, ElementsAre(Start, Exporting, NotSaved("Zugriff verweigert")));
    EXPECT_EQ(ReadFile(path), Raw("'old'"));
}

TEST(ExportMobileFile, FailsAtEveryByteWithoutSayingThatItIsExported) {
    for (std::size_t room = 0; room < Whole.size(); ++room) {
        SCOPED_TRACE("room for " + std::to_string(room) + " bytes");
        const TestFolder folder;
        const FilePath path = folder.Write("a.pbb", "old");
        ScriptedDesktop desktop;
        {
            const FileSizeLimit limit(room);
            EXPECT_EQ(ErrorOf(Two(), path, desktop), 57);
        }
        EXPECT_THAT(
            desktop.Transcript,
            ElementsAre(Start, Exporting, NotSaved("E/A-Fehler beim Zugriff auf ein Gerät")));
        EXPECT_EQ(ReadFile(folder / "a.pbb"), Raw("'old'"));
        EXPECT_EQ(FilesIn(folder.Path()), std::vector<std::string>{"a.pbb"});
    }
}

TEST(ExportMobileFile, AFullDiskRaises61) {
    if (!fs::exists("/dev/full")) {
        GTEST_SKIP() << "needs /dev/full";
    }
    for (const int count : {2, 2000}) {  // within a buffer and far beyond any
        ScriptedDesktop desktop;
        EXPECT_EQ(ErrorOf(Many(count), "/dev/full", desktop), 61);
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(Start, Exporting, NotSaved("Datenträger voll")));
    }
}
#endif

TEST(ExportMobileFile, IsEmptyForARegisterWithoutEntries) {
    for (const bool byMark : {false, true}) {
        const TestFolder folder;
        MobileExportOptions options = Plain();
        options.UseReductionFlags = byMark;
        ScriptedDesktop desktop;
        desktop.AnswerBox(Button::Ok);
        ExportMobile(RegisterOf({}), options, Settings(), folder / "a.pbb", desktop);
        EXPECT_EQ(ReadFile(folder / "a.pbb"), Bytes());
        EXPECT_THAT(desktop.Transcript, ElementsAre(Start, Exporting, Exported));
    }
}

TEST(ExportMobileFile, AFullRegisterIsWrittenWhole) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    EXPECT_EQ(ErrorOf(Many(2000), folder / "a.pbb", desktop), 0);
    EXPECT_EQ(ReadFile(folder / "a.pbb").size(), 2000U * (5 + 200 + 2));
    EXPECT_THAT(desktop.Transcript, ElementsAre(Start, Exporting, Exported));
}

}  // namespace
}  // namespace norvik::test
