// What is written of the formats beside their code: every room has its page, every page names the
// files that there are, and what users read lists every format.
#include "formats/formattable.h"
#include "tests/support/filetext.h"
#include "tests/support/places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

const fs::path Root = SourceFolder();

fs::path PageOf(const FormatRow& row) {
    return Root / "docs/formats" / (std::string(row.Page) + ".md");
}

/// The paths of sources and folders that a page names, in `…`.
std::set<std::string> NamedFiles(const std::string& page) {
    static const std::regex pattern(R"(`([a-z0-9]+/[A-Za-z0-9_/.]*)`)");
    std::set<std::string> files;
    for (auto match = std::sregex_iterator(page.begin(), page.end(), pattern);
         match != std::sregex_iterator(); ++match) {
        files.insert((*match)[1]);
    }
    return files;
}

/// The rooms whose files a page names.
std::set<std::string> NamedRooms(const std::string& page) {
    std::set<std::string> rooms;
    for (const std::string& file : NamedFiles(page)) {
        const fs::path path(file);
        const auto folder = path.begin();
        if (*folder == "formats" && *std::next(folder) != "common") {
            rooms.insert(std::next(folder)->string());
        }
    }
    return rooms;
}

TEST(FormatTable, StandsInTheOrderOfTheFormats) {
    for (std::size_t place = 0; place < FormatTable().size(); ++place) {
        EXPECT_EQ(static_cast<std::size_t>(FormatTable()[place].Format), place);
    }
}

TEST(FormatPages, NameFilesThatThereAre) {
    for (const fs::directory_entry& page : fs::directory_iterator(Root / "docs/formats")) {
        for (const std::string& file : NamedFiles(TextOf(page.path()))) {
            EXPECT_TRUE(fs::exists(Root / file)) << page.path() << " names " << file;
        }
    }
}

TEST(FormatPages, ThereIsOneForEveryFormatThatNamesItsRoom) {
    std::set<std::string> described;
    for (const FormatRow& row : FormatTable()) {
        ASSERT_TRUE(fs::exists(PageOf(row))) << row.Page;
        const std::set<std::string> rooms = NamedRooms(TextOf(PageOf(row)));
        EXPECT_EQ(rooms.size(), 1U) << row.Page;
        described.insert(rooms.begin(), rooms.end());
    }
    for (const fs::directory_entry& room : fs::directory_iterator(Root / "formats")) {
        const std::string name = room.path().filename().string();
        if (room.is_directory() && name != "common") {
            EXPECT_EQ(described.count(name), 1U) << "formats/" << name << " has no page";
        }
    }
}

TEST(FormatRooms, FilesOfAFormatShareTheStemOfItsPage) {
    for (const FormatRow& row : FormatTable()) {
        for (const std::string& room : NamedRooms(TextOf(PageOf(row)))) {
            std::vector<std::string> ofStem;
            for (const char* const folder : {"formats", "tests/formats"}) {
                for (const fs::directory_entry& file :
                     fs::directory_iterator(Root / folder / room)) {
                    if (file.path().filename().string().starts_with(row.Page)) {
                        ofStem.push_back(file.path().extension().string());
                    }
                }
            }
            EXPECT_GE(std::count(ofStem.begin(), ofStem.end(), ".h"), 1) << row.Page;
            EXPECT_GE(std::count(ofStem.begin(), ofStem.end(), ".cpp"), 2) << row.Page;
        }
    }
}

TEST(FormatRooms, EveryFormatThatIsReadIsFuzzed) {
    for (const FormatRow& row : FormatTable()) {
        if (row.OpenFilter.empty()) {
            continue;
        }
        const std::string stem(row.Page);
        EXPECT_TRUE(fs::exists(Root / "fuzzers" / (stem + "_fuzz.cpp"))) << stem;
        ASSERT_TRUE(fs::exists(Root / "fuzzers/seeds" / stem)) << stem;
        EXPECT_FALSE(fs::is_empty(Root / "fuzzers/seeds" / stem)) << stem;
    }
}

TEST(FuzzTargets, NameTheSourcesThatTheyAreAbout) {
    static const std::regex pattern(R"(\n// Sources: ([^\n]+)\n)");
    for (const fs::directory_entry& target : fs::directory_iterator(Root / "fuzzers")) {
        if (!target.path().filename().string().ends_with("_fuzz.cpp")) {
            continue;
        }
        const std::string text = TextOf(target.path());
        std::smatch match;
        ASSERT_TRUE(std::regex_search(text, match, pattern)) << target.path();
        const std::string sources = match[1];
        const std::regex word("[^ ]+");
        for (auto source = std::sregex_iterator(sources.begin(), sources.end(), word);
             source != std::sregex_iterator(); ++source) {
            EXPECT_TRUE(fs::exists(Root / source->str())) << target.path() << source->str();
        }
    }
}

TEST(Readme, NamesEveryRoom) {
    const std::string readme = TextOf(Root / "README.md");
    for (const fs::directory_entry& room : fs::directory_iterator(Root / "formats")) {
        if (room.is_directory()) {
            EXPECT_THAT(readme, HasSubstr("`" + room.path().filename().string() + "/`"));
        }
    }
}

TEST(Readme, NamesEveryEnding) {
    const std::string readme = TextOf(Root / "README.md");
    const std::string guide = TextOf(Root / "docs/help/nvreadme.htm");
    for (const FormatRow& row : FormatTable()) {
        EXPECT_THAT(readme, HasSubstr(std::string(row.Ending))) << row.Page;
        EXPECT_THAT(guide, HasSubstr(std::string(row.Ending))) << row.Page;
    }
}

TEST(DialogFilters, OfferTheEndingThatTheDialogAppends) {
    for (const FormatRow& row : FormatTable()) {
        for (const TextView filter : {row.OpenFilter, row.SaveFilter}) {
            const std::string pattern = "|*" + std::string(row.Ending) + "|Alle Dateien|*.*";
            EXPECT_TRUE(filter.empty() || filter.ends_with(FromAscii(pattern))) << row.Page;
        }
        EXPECT_EQ(row.SaveFilter.empty(), row.Write == nullptr) << row.Page;
        EXPECT_EQ(row.SaveItem.empty(), row.Write == nullptr) << row.Page;
    }
}

}  // namespace
}  // namespace norvik::test
