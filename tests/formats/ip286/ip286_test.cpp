#include "formats/ip286/ip286.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string Header = "\"Name\",\"Telefonnummer\",\"Konto\"\r\n";

std::string Report(TextView text) {
    return OkBox(text, u"Exportergebnis", "Information");
}

struct Result {
    std::string File;
    std::vector<std::string> Transcript;
};

Result Export(const RegisterState& state, TextView exclusions) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    ExportIP286(state, folder / "a.csv", exclusions, desktop);
    const Bytes bytes = ReadFile(folder / "a.csv");
    return {std::string(bytes.begin(), bytes.end()), desktop.Transcript};
}

TEST(ExportIP286, WritesTransliteratedNameNumberAndAccount) {
    const Result result = Export(RegisterOf({Entry(u"Müller", u"i030 12*#", u"Info"),
                                             Entry(u"Straße", u""), Entry(u"ÄÖÜ", u"1")}),
                                 u"");
    EXPECT_EQ(result.File, Header + "\"Mueller\",\"i030 12*#\",\"1\"\r\n"
                                    "\"Strasze\",\"\",\"1\"\r\n"
                                    "\"AeOeUe\",\"1\",\"1\"\r\n");
    EXPECT_THAT(result.Transcript,
                ElementsAre(Report(u"3 Einträge exportiert\r\n0 Einträge wurden ignoriert\r\n")));
}

TEST(ExportIP286, TheNumberIsUnchangedAndNotTransliterated) {
    EXPECT_EQ(Export(RegisterOf({Entry(u"a", u" ü ")}), u"").File,
              Header + "\"a\",\" \xFC \",\"1\"\r\n");
}

TEST(ExportIP286, OtherCharactersOfANameStayInWindows1252) {
    EXPECT_EQ(Export(RegisterOf({Entry(u"Café \"€\", Zoë", u"1")}), u"").File,
              Header + "\"Caf\xE9 \"\x80\", Zo\xEB\",\"1\",\"1\"\r\n");
}

TEST(ExportIP286, WithTwoStarsEveryNumberThatHoldsThemIsLeftOutAndNamed) {
    const Result result = Export(RegisterOf({Entry(u"Anna", u"**12"), Entry(u"Bernd", u"*12"),
                                             Entry(u"Jürgen", u"030**"), Entry(u"Carl", u"* *")}),
                                 u"**");
    EXPECT_EQ(result.File, Header + "\"Bernd\",\"*12\",\"1\"\r\n\"Carl\",\"* *\",\"1\"\r\n");
    EXPECT_THAT(result.Transcript,
                ElementsAre(Report(u"2 Einträge exportiert\r\n2 Einträge wurden ignoriert\r\n"
                                   u"Anna\r\nJürgen\r\n")));
}

TEST(ExportIP286, AnEntryThatSeveralTextsExcludeIsIgnoredOnce) {
    const Result result =
        Export(RegisterOf({Entry(u"a", u"12"), Entry(u"b", u"3"), Entry(u"c", u"2")}), u"1|2|12");
    EXPECT_EQ(result.File, Header + "\"b\",\"3\",\"1\"\r\n");
    EXPECT_THAT(result.Transcript,
                ElementsAre(Report(u"1 Einträge exportiert\r\n2 Einträge wurden ignoriert\r\n"
                                   u"a\r\nc\r\n")));
}

TEST(ExportIP286, TheTestIsCaseSensitiveAndLooksAtTheNumberAlone) {
    const RegisterState state = RegisterOf({Entry(u"i", u"I1", u"i"), Entry(u"b", u"i1")});
    EXPECT_EQ(Export(state, u"i").File, Header + "\"i\",\"I1\",\"1\"\r\n");
}

TEST(ExportIP286, AnEmptyExclusionTextExcludesNothing) {
    const RegisterState state = RegisterOf({Entry(u"a", u"1"), Entry(u"b", u"2")});
    for (const TextView exclusions : {u"", u"|", u"||", u"x||y", u"|x", u"x|"}) {
        EXPECT_EQ(Export(state, exclusions).File,
                  Header + "\"a\",\"1\",\"1\"\r\n\"b\",\"2\",\"1\"\r\n");
    }
    EXPECT_EQ(Export(state, u"|1||").File, Header + "\"b\",\"2\",\"1\"\r\n");
}

TEST(ExportIP286, WritesThePositionsInTheirOrder) {
    RegisterState state = RegisterOfNames({u"C", u"A", u"B", u"behind the count"});
    SetCount(state, 3);
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 3;
    state.RegisterOrder(3) = 1;
    EXPECT_EQ(Export(state, u"").File,
              Header + "\"A\",\"2\",\"1\"\r\n\"B\",\"3\",\"1\"\r\n\"C\",\"1\",\"1\"\r\n");
    EXPECT_THAT(Export(state, u"1|2|3").Transcript,
                ElementsAre(Report(u"0 Einträge exportiert\r\n3 Einträge wurden ignoriert\r\n"
                                   u"A\r\nB\r\nC\r\n")));
}

TEST(ExportIP286, AnIgnoredNameIsShownAsStored) {
    EXPECT_THAT(Export(RegisterOf({Entry(u" Müßig ", u"1")}), u"1").Transcript,
                ElementsAre(Report(u"0 Einträge exportiert\r\n1 Einträge wurden ignoriert\r\n"
                                   u" Müßig \r\n")));
}

TEST(ExportIP286, ARegisterWithoutEntriesIsTheHeaderAlone) {
    const Result result = Export(RegisterOf({}), u"**");
    EXPECT_EQ(result.File, Header);
    EXPECT_THAT(result.Transcript,
                ElementsAre(Report(u"0 Einträge exportiert\r\n0 Einträge wurden ignoriert\r\n")));
}

TEST(ExportIP286, ReplacesAnyPreviousContent) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.csv", std::string(9000, 'x'));
    ScriptedDesktop desktop;
    ExportIP286(RegisterOf({}), path, u"", desktop);
    EXPECT_EQ(ReadFile(path).size(), Header.size());
}

TEST(ExportIP286, AFileThatCannotBeCreatedRaisesWithoutAReport) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    EXPECT_THROW(ExportIP286(RegisterOf({}), folder.Path(), u"", desktop), RuntimeError);
    EXPECT_THAT(desktop.Transcript, testing::IsEmpty());
}

}  // namespace
}  // namespace norvik::test
