// Loads whose source has been read elsewhere, as standard input is.
#include "formats/common/sourcefile.h"

#include "base/runtimeerror.h"
#include "formats/phonebook175/phonebookfile.h"
#include "formats/phonebook175/phonebookfilemenu.h"
#include "formats/registerfile/registerfile.h"
#include "formats/registerfile/registerfilemenu.h"
#include "tests/formats/registerfile/registerfilebytes.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

Bytes OneRecord() {
    return FileOf({Raw("0200 0201 06 04 'Anna' 06 01 '1' 06 00 0200 020F 0200 0200")});
}

Bytes OneOf175() {
    return Raw("'norvik 175 phonebook' 0D0A 'N=Anna' 0D0A 'P=1' 0D0A"
               "'I=' 0D0A 'I=' 0D0A 'I=' 0D0A 'I=' 0D0A 'I=' 0D0A 'I=' 0D0A");
}

SourceFile Unreadable() {
    throw RuntimeError(ErrorNumber::OutOfMemory);
}

TEST(ReadSourceFile, GivesBytesPathAndDate) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.t9t", "abc");
    const SourceFile file = ReadSourceFile(path);
    EXPECT_EQ(file.Content, Raw("'abc'"));
    EXPECT_EQ(file.Path, path);
    EXPECT_EQ(file.Modified, LastModified(path));
    EXPECT_THROW(ReadSourceFile(folder / "fehlt"), RuntimeError);
}

TEST(OpenSourceFile, GivesAStreamOfAnySize) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.vcf", "abc");
    std::filesystem::resize_file(path, MaximumFileSize + 1);
    Source source = OpenSourceFile(path);
    EXPECT_EQ(source.Path, path);
    EXPECT_EQ(source.Modified, LastModified(path));
    EXPECT_EQ(source.Content.Size(), MaximumFileSize + 1);
    Bytes block(3);
    EXPECT_EQ(source.Content.Read(block), 3U);
    EXPECT_EQ(block, Raw("'abc'"));
    EXPECT_THROW(ReadWhole(OpenSourceFile(path)), RuntimeError);
    EXPECT_THROW(OpenSourceFile(folder.Path()), RuntimeError);
}

TEST(ReadWhole, GivesBackWhatIsInMemory) {
    const SourceFile file = ReadWhole(SourceFile{Raw("'abc'"), "-", std::nullopt});
    EXPECT_EQ(file.Content, Raw("'abc'"));
    EXPECT_EQ(file.Path, "-");
}

TEST(LoadRegisterFile, TakesAFileThatHasBeenRead) {
    RegisterState state;
    ScriptedDesktop desktop;
    EXPECT_TRUE(
        LoadRegisterFile(state, {.Content = OneRecord(), .Path = "-", .Modified = {}}, desktop));
    EXPECT_THAT(Names(state), ElementsAre(u"Anna"));
    EXPECT_EQ(state.File.Type, u"195");
    EXPECT_EQ(state.File.Path, "-");
    EXPECT_EQ(state.File.Modified, std::nullopt);
}

TEST(LoadRegisterFile, TellsWhetherItTookTheWholeFile) {
    const TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
    EXPECT_TRUE(LoadRegisterFile(state, folder.Write("a.t9t", OneRecord()), desktop));
    EXPECT_FALSE(LoadRegisterFile(state, folder.Write("a.t9t", FileOfMany(2001)), desktop));
    EXPECT_FALSE(LoadRegisterFile(state, folder / "fehlt.t9t", desktop));
}

TEST(LoadNVOrReport, LoadsWithoutSortingOrShowing) {
    RegisterState state;
    ScriptedDesktop desktop;
    EXPECT_TRUE(LoadNVOrReport(
        state,
        [] {
            return SourceFile{OneRecord(), "a.t9t", std::nullopt};
        },
        desktop));
    EXPECT_THAT(Names(state), ElementsAre(u"Anna"));
    EXPECT_THAT(desktop.Questions(), ElementsAre("list", "file"));
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST(LoadNVOrReport, ReportsASourceThatCannotBeReadAndLeavesTheRegister) {
    RegisterState state = RegisterOfNames({u"Bernd"});
    ScriptedDesktop desktop;
    EXPECT_FALSE(LoadNVOrReport(state, Unreadable, desktop));
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(OkBox(u"Undef'd Error: mnuDateiLoadNV:7Nicht genügend Speicher")));
    EXPECT_THAT(Names(state), ElementsAre(u"Bernd"));
}

TEST(Load175OrReport, TakesAnySource) {
    RegisterState state;
    ScriptedDesktop desktop;
    EXPECT_TRUE(Load175OrReport(
        state,
        [] {
            return SourceFile{OneOf175(), "-", std::nullopt};
        },
        desktop));
    EXPECT_THAT(Names(state), ElementsAre(u"Anna"));
    EXPECT_EQ(state.File.Path, "-");
    EXPECT_EQ(state.File.Modified, std::nullopt);
    EXPECT_FALSE(Load175OrReport(state, Unreadable, desktop));
    EXPECT_EQ(desktop.Transcript.back(),
              OkBox(u"Undef'd Error: mnuDateiLoad175:7Nicht genügend Speicher"));
}

}  // namespace
}  // namespace norvik::test
