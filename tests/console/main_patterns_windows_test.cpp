// Patterns on the command line, which the shells there leave to the program.
#include "tests/console/converterprogram.h"
#include "tests/support/windowsheader.h"

#include <filesystem>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ConverterPatterns : public ConverterProgram {
  protected:
    ConverterPatterns() {
        for (const FilePath& name : {FilePath("b.csv"), FilePath("A.CSV"), FilePath(u8"ü Ω.csv"),
                                     FilePath("c.csv_alt"), FilePath("verborgen.csv")}) {
            folder.Write(name, ExampleCsv());
        }
        EXPECT_NE(SetFileAttributesW((folder / "verborgen.csv").c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
        std::filesystem::create_directory(folder / "ordner.csv");
    }
    [[nodiscard]] Outcome RunWith(const std::string& words) const {
        return RunInShell(ConverterInShell() + " " + words, {.Folder = folder.Path()});
    }
    [[nodiscard]] std::vector<std::string> Written() const {
        return FilesIn(folder / "ordner.csv");
    }
};

TEST_F(ConverterPatterns, StandForTheFilesThatBearSuchNames) {
    const Outcome outcome = RunWith("--still --nach=175 *.csv ordner.csv");
    EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
    EXPECT_THAT(Written(), ElementsAre("A.pbo", "b.pbo", "ü Ω.pbo"));
}

TEST_F(ConverterPatterns, KnowACharacterAndAFolder) {
    const Outcome outcome = RunWith("--still --nach=175 .\\?.csv ordner.csv");
    EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
    EXPECT_THAT(Written(), ElementsAre("A.pbo", "b.pbo"));
}

TEST_F(ConverterPatterns, StayAsTheyAreInQuotesOrWhereNothingFits) {
    for (const std::string word : {"\"*.csv\"", "*.vcf"}) {
        const Outcome outcome = RunWith("--nach=175 " + word + " ordner.csv");
        EXPECT_EQ(outcome.Status, 3);
        EXPECT_THAT(outcome.Errors, HasSubstr("nicht gelesen: Dateiname falsch\n"));
    }
    EXPECT_THAT(Written(), IsEmpty());
}

}  // namespace
}  // namespace norvik::test
