// The help, the manual page and the completion know every option, and no other.
#include "console/help.h"

#include "console/formats.h"
#include "console/options.h"
#include "console/utf8.h"
#include "tests/console/converterprocess.h"
#include "tests/support/places.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>

namespace norvik::test {
namespace {

using Names = std::set<std::string>;

Names Expected() {
    const std::vector<std::string_view> names = OptionNames();
    return {names.begin(), names.end()};
}

/// Every word that begins with "--" and a letter.
Names OptionsIn(const std::string& text) {
    static const std::regex pattern(R"(--[A-Za-z][A-Za-z0-9+]*(-[a-z]+)*)");
    Names names;
    for (auto match = std::sregex_iterator(text.begin(), text.end(), pattern);
         match != std::sregex_iterator(); ++match) {
        names.insert(match->str());
    }
    names.erase("--option");  // stands for any of them
    return names;
}

std::string SourceText(const char* path) {
    return StringOf(ReadFile(SourceFolder() / path));
}

/// The options that a manual page explains, each in the line behind ".TP".
Names OptionsOfManualPage() {
    std::string page = SourceText("docs/norvik-konverter.1");
    page.erase(std::remove(page.begin(), page.end(), '\\'), page.end());
    std::string explained;
    for (std::size_t at = page.find("\n.TP\n"); at != std::string::npos;
         at = page.find("\n.TP\n", at + 1)) {
        const std::size_t line = at + 5;
        explained += page.substr(line, page.find('\n', line) - line) + "\n";
    }
    return OptionsIn(explained);
}

TEST(Help, NamesEveryOption) {
    EXPECT_EQ(OptionsIn(ToUtf8(HelpText())), Expected());
}

TEST(Help, NamesEveryFormat) {
    const std::string help = ToUtf8(HelpText());
    for (const std::string_view name : TargetNames()) {
        EXPECT_NE(help.find(name), std::string::npos) << name;
    }
}

TEST(Help, FitsOnATerminal) {
    const Text help = HelpText();
    EXPECT_TRUE(help.ends_with(LineEnd));
    for (std::size_t start = 0; start < help.size();) {
        const std::size_t end = help.find(LineEnd, start);
        EXPECT_LE(end - start, 80U) << ToUtf8(help.substr(start, end - start));
        EXPECT_EQ(Printable(help.substr(start, end - start)), help.substr(start, end - start));
        start = end + LineEnd.size();
    }
}

TEST(ManualPage, ExplainsEveryOption) {
    EXPECT_EQ(OptionsOfManualPage(), Expected());
}

TEST(Completion, OffersEveryOption) {
    EXPECT_EQ(OptionsIn(SourceText("console/norvik-konverter.bash-completion")), Expected());
}

TEST(Version, IsTheProjects) {
    EXPECT_TRUE(
        std::regex_match(ToUtf8(VersionText()), std::regex(R"(norvik-konverter \d+\.\d+\.\d+)")));
    const std::string project = SourceText("CMakeLists.txt");
    const std::string version =
        ToUtf8(VersionText()).substr(std::string("norvik-konverter ").size());
    EXPECT_NE(project.find(" VERSION " + version + " "), std::string::npos);
}

}  // namespace
}  // namespace norvik::test
