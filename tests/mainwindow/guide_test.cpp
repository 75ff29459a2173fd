// The documents of the help menu: what they say of the menu and of the versions must be complete.
#include "dialogs/help.h"
#include "mainwindow/menu.h"
#include "tests/support/places.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <regex>
#include <set>

namespace norvik::test {
namespace {

const std::filesystem::path HelpFolder = SourceFolder() / "docs/help";

std::string Document(const std::string& name) {
    const Bytes bytes = ReadFile(HelpFolder / name);
    return {bytes.begin(), bytes.end()};
}

/// The caption as it stands in the guide: in UTF-8, without its mnemonic, escaped.
std::string InGuide(TextView caption) {
    std::string text;
    for (const char c : Utf8(caption)) {
        switch (c) {
        case '&':
            break;
        case '<':
            text += "&lt;";
            break;
        case '>':
            text += "&gt;";
            break;
        default:
            text += c;
        }
    }
    return text;
}

/// The values of an attribute, everywhere in the guide.
std::set<std::string> Values(const std::string& guide, const std::string& attribute) {
    const std::regex pattern("\\s" + attribute + "=\"([^\"]*)\"");
    std::set<std::string> values;
    for (std::sregex_iterator match(guide.begin(), guide.end(), pattern), end; match != end;
         ++match) {
        values.insert((*match)[1]);
    }
    return values;
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(Guide, HasASectionForEveryMenuItem) {
    const std::string guide = Document("nvreadme.htm");
    for (const MenuRow& row : MenuTable()) {
        const std::string heading =
            "<h3><span class=\"m\">" + InGuide(row.Caption) + "</span></h3>";
        EXPECT_TRUE(Contains(guide, heading)) << heading;
    }
}

TEST(Guide, HasASectionForEveryMenu) {
    const std::string guide = Document("nvreadme.htm");
    for (const MenuRow& row : MenuTable()) {
        const std::string heading = ">Menü " + InGuide(row.MenuCaption) + "</h2>";
        EXPECT_TRUE(Contains(guide, heading)) << heading;
    }
}

TEST(Guide, ShowsOnlyPicturesThatExist) {
    const std::set<std::string> pictures = Values(Document("nvreadme.htm"), "src");
    EXPECT_FALSE(pictures.empty());
    for (const std::string& picture : pictures) {
        EXPECT_TRUE(std::filesystem::is_regular_file(HelpFolder / picture)) << picture;
    }
}

TEST(Guide, ShowsEveryPictureThatIsThere) {
    const std::set<std::string> pictures = Values(Document("nvreadme.htm"), "src");
    for (const auto& file : std::filesystem::directory_iterator(HelpFolder / "bilder")) {
        const std::string name = "bilder/" + file.path().filename().string();
        EXPECT_EQ(pictures.count(name), 1U) << name;
    }
}

TEST(Guide, LinksOnlyToItsOwnSections) {
    const std::string guide = Document("nvreadme.htm");
    const std::set<std::string> sections = Values(guide, "id");
    const std::set<std::string> links = Values(guide, "href");
    EXPECT_FALSE(links.empty());
    for (const std::string& link : links) {
        ASSERT_EQ(link.substr(0, 1), "#") << link;
        EXPECT_EQ(sections.count(link.substr(1)), 1U) << link;
    }
}

/// A narrow screen scrolls such a table alone, and not the page.
TEST(Guide, PutsTablesOfManyColumnsIntoAPartThatScrolls) {
    const std::string guide = Document("nvreadme.htm");
    EXPECT_TRUE(Contains(guide, "\n.scroll { overflow-x: auto;"));
    const std::string part = "<div class=\"scroll\" tabindex=\"0\">\n";
    const std::regex wide("<table>\n<tr>(<th>[^<]*</th>){4,}</tr>");
    std::ptrdiff_t tables = 0;
    for (std::sregex_iterator match(guide.begin(), guide.end(), wide), end; match != end; ++match) {
        const std::string before = guide.substr(0, static_cast<std::size_t>(match->position()));
        EXPECT_TRUE(before.ends_with(part)) << match->str();
        ++tables;
    }
    EXPECT_EQ(tables, 3);
}

TEST(Guide, ListOfChangesNamesEveryVersionOfTheAboutBoxInItsOrder) {
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Yes);
    mnuHilfeAbout(desktop);
    const std::string history = desktop.Transcript.back();
    const std::string changes = Document("whatsnew.txt");
    const std::regex pattern("V(?:ersion)? 0\\.[0-9]+[a-z]?(?=:)");
    std::size_t versions = 0;
    std::size_t place = 0;
    for (std::sregex_iterator match(history.begin(), history.end(), pattern), end; match != end;
         ++match) {
        place = changes.find("\n" + match->str() + " ", place);
        ASSERT_NE(place, std::string::npos) << match->str();
        ++versions;
    }
    EXPECT_EQ(versions, 6U);
}

TEST(Guide, ListOfChangesGoesOnToTheVersionOfTheProgram) {
    std::smatch found;
    const std::string project = Document("../../CMakeLists.txt");
    ASSERT_TRUE(std::regex_search(project, found,
                                  std::regex("VERSION (([0-9]+\\.[0-9]+)\\.[0-9]+) LANGUAGES")));
    const std::string version = found[1];
    const std::string changes = Document("whatsnew.txt");
    const std::size_t newest = changes.find("\n\nV ");
    ASSERT_NE(newest, std::string::npos);
    const std::string entry = "\n\nV " + found[2].str() + "  ";
    EXPECT_EQ(changes.substr(newest, entry.size()), entry);
    EXPECT_LT(newest, changes.find("\nV 1.0  "));
    EXPECT_LT(changes.find("\nV 1.0  "), changes.find("\nV 0.96d  "));

    EXPECT_EQ(Document("../../packaging/debian/changelog")
                  .rfind("norvik-telefonregister (" + version + ") ", 0),
              0U);
    for (const char* page : {"../norvik-konverter.1", "../norvik-telefonregister.1"}) {
        EXPECT_TRUE(Contains(Document(page), "\"Norvik Telefonregister " + version + "\"")) << page;
    }
    const std::string developers = Document("../../CHANGELOG.md");
    const std::size_t heading = developers.find("\n## ");
    ASSERT_NE(heading, std::string::npos);
    EXPECT_EQ(developers.substr(heading, version.size() + 5), "\n## " + version + "\n");
}

}  // namespace
}  // namespace norvik::test
