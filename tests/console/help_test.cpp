// The help, the manual page and the completion know every option, and no other.
#include "console/help.h"

#include "base/utf8.h"
#include "console/options.h"
#include "console/printable.h"
#include "formats/formattable.h"
#include "tests/console/converterprocess.h"
#include "tests/support/places.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>

namespace norvik::test {
namespace {

using testing::HasSubstr;
using Names = std::set<std::string>;

std::string Joined(const std::vector<std::string_view>& words) {
    std::string text;
    for (const std::string_view word : words) {
        text.append(text.empty() ? "" : " ").append(word);
    }
    return text;
}

/// "a, b oder c".
std::string Enumerated(const std::vector<std::string_view>& words) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        text.append(i == 0 ? "" : i + 1 == words.size() ? " oder " : ", ").append(words[i]);
    }
    return text;
}

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
    EXPECT_THAT(
        help,
        HasSubstr(
            "\r\n\r\nWandelt ein Telefonregister von einem Format in ein anderes um. Das Format "
            "folgt\r\naus der Endung: QUELLE .t9t, .pbo, .csv, .t9a (Anrufliste) oder .vcf, ZIEL "
            ".t9t,\r\n.pbo, .csv, .pbb, .geb, .vcf oder .pdf. \"-\" ist die Standardein- "
            "oder -ausgabe.\r\n\r\n"
            "  --von FORMAT          Format der QUELLE: 195, 193, 175, csv oder vcard\r\n"
            "  --nach FORMAT         Format des ZIELs: 195, 193, 175, csv, ip286, simsurf,\r\n"
            "                        gebuehren, vcard oder pdf; ein ZIEL .t9t wird ohne\r\n"
            "                        --nach eine 195-Datei, aus einer 193-Datei eine\r\n"
            "                        193-Datei\r\n"
            "  --nur-markierte "));
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

TEST(ManualPage, ListsEveryFormat) {
    std::string expected = "FORMAT\tEndung\tals QUELLE\tals ZIEL\n";
    for (const FormatRow& row : FormatTable()) {
        if (row.Word.empty()) {
            continue;
        }
        const auto written = TargetOfEnding(FilePath(row.Ending));
        const bool ownEnding = !written || RowOf(*written).Page == row.Page;
        const std::string ending(row.Ending);
        expected += std::string(row.Word) + "\t" + (ownEnding ? ending : "(" + ending + ")") +
                    (row.Load != nullptr ? "\tja" : "\tnein") +
                    (row.Write != nullptr ? "\tja\n" : "\tnein\n");
    }
    expected += "pdf\t.pdf\tnein\tja\n";
    const std::string page = SourceText("docs/norvik-konverter.1");
    EXPECT_THAT(page, HasSubstr("\n" + expected + ".TE\n"));
    EXPECT_THAT(page, HasSubstr("\nFormat der QUELLE: " + Enumerated(SourceNames()) + ".\n"));
    EXPECT_THAT(page, HasSubstr("\nFormat des ZIELs: " + Enumerated(TargetWords()) + ".\n"));
}

TEST(Completion, OffersEveryFormat) {
    const std::string script = SourceText("console/norvik-konverter.bash-completion");
    EXPECT_THAT(script, HasSubstr("compgen -W \"" + Joined(SourceNames()) + "\""));
    EXPECT_THAT(script, HasSubstr("compgen -W \"" + Joined(TargetWords()) + "\""));
    std::vector<std::string_view> sources;
    for (const FormatRow& row : FormatTable()) {
        if (SourceOfEnding(FilePath(row.Ending)) == row.Format) {
            sources.push_back(row.Ending);
        }
    }
    EXPECT_THAT(script, HasSubstr("_norvik_konverter_files \"$word\" " + Joined(sources) + "\n"));
    EXPECT_THAT(script,
                HasSubstr("_norvik_konverter_files \"$word\" " + Joined(TargetEndings()) + "\n"));
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
