// Another program checks what is written here: the international numbers of the mobile export are
// those that a library for telephone numbers gives, Debian's python3-phonenumbers.
#include "formats/mobile/mobileexport.h"

#include "tests/support/builders.h"
#include "tests/support/filetext.h"
#include "tests/support/places.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/settings.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <sstream>

namespace norvik::test {

namespace {

/// The interpreter that sees Debian's packages, whatever else comes first in the path.
const std::string Python = "/usr/bin/python3 -B ";

/// Numbers of the own area as people store them, without its code.
const std::vector<std::string> OwnArea = {
    "123456",     "12 34 56",   "123-456",  "12/34 56", "1234567", "231 25-10",
    "(123) 4567", " 90 18 20 ", "12345678", "20000000", "1234",    "110 0-0",
};

/// Spellings in which the export, by its rules, gives another number than the library: what it
/// gives, and the rule. Wherever such a spelling comes up, also among the examples, it is expected.
struct Difference {
    std::string Input;
    std::string Exported;
    std::string Rule;
};
const std::string EveryDigitStays =
    "every digit stays: a trunk zero behind the country code is dialled like any other";
const std::string PlusInFrontOnly =
    "a plus that is not the first character goes, what follows is taken for a local number";
const std::string NoZeroIsLocal =
    "a number without a leading zero or plus is one of the own area; the library writes this one "
    "without its trunk zero";
const std::string LettersGo = "letters go, digits stay: there is no extension, no vanity number";
const std::string PausesStay = "p and w stay, as the pauses of a dialling mobile telephone";
const std::vector<Difference> Differences = {
    {"+49 (0)30 123456", "+49030123456", EveryDigitStays},
    {"0049 (0)30/123456", "+49030123456", EveryDigitStays},
    {"0049-0-30-123456", "+49030123456", EveryDigitStays},
    {"+44 (0)121 234 5678", "+4401212345678", EveryDigitStays},
    {"+44 0121 234 5678", "+4401212345678", EveryDigitStays},
    {"+33 (0)1 23 45 67 89", "+330123456789", EveryDigitStays},
    {"+7 (8)301 123-45-67", "+783011234567", EveryDigitStays},
    {"(+49) 30 123456", "+49304930123456", PlusInFrontOnly},
    {"(+44) 121 234 5678", "+4930441212345678", PlusInFrontOnly},
    {"tel:+44-121-234-5678", "+4930441212345678", PlusInFrontOnly},
    {"16412345", "+493016412345", NoZeroIsLocal},
    {"(16412345)", "+493016412345", NoZeroIsLocal},
    {" 16412345", "+493016412345", NoZeroIsLocal},
    {"+49 30 123456 ext. 12", "+493012345612", LettersGo},
    {"030 123456;ext=5", "+49301234565", LettersGo},
    {"+1 800 FLOWERS", "+1800", LettersGo},
    {"0900 1 FLOWER", "+499001", LettersGo},
    {"030 123456p12", "+4930123456p12", PausesStay},
};

/// Spellings that look like the ones above and are the library's number all the same.
const std::vector<std::string> AlikeAllTheSame = {
    "+39 06 1234 5678",    // in Italy the zero is part of the number
    "+39 (0)6 1234 5678",  // and stays in parentheses, too
    "0039 06/12345678",   "++49 30 123456", "i030123456", "Tel. 030 123456", "030.123456",
};

struct Number {
    std::string Kind;
    std::string Region;
    std::string Input;
    std::string Answer;  ///< the library's E.164 form
};

/// What the library knows and answers.
struct Library {
    std::vector<Number> Numbers;
    std::size_t Regions = 0;
    std::size_t Examples = 0;
};

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

/// Asks the library, with the script beside this file.
Library Ask() {
    std::string spellings;
    for (const Difference& difference : Differences) {
        spellings += difference.Input + "\n";
    }
    for (const std::string& spelling : AlikeAllTheSame) {
        spellings += spelling + "\n";
    }
    std::string ownArea;
    for (const std::string& number : OwnArea) {
        ownArea += number + "\n";
    }
    const TestFolder folder;
    const FilePath answers = folder / "answers";
    const FilePath script = SourceFolder() / "tests" / "formats" / "common" / "examplenumbers.py";
    const std::string command =
        Python + "'" + script.string() + "' '" + folder.Write("own", ownArea).string() + "' '" +
        folder.Write("spellings", spellings).string() + "' > '" + answers.string() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);

    Library library;
    for (const std::string& line : Split(TextOf(answers), '\n')) {
        const std::vector<std::string> fields = Split(line, '\t');
        if (fields.at(0) == "total") {
            library.Regions = std::stoul(fields.at(1));
            library.Examples = std::stoul(fields.at(2));
        } else {
            library.Numbers.push_back({fields.at(0), fields.at(1), fields.at(2), fields.at(3)});
        }
    }
    return library;
}

/// The lines of the export of a register that holds the inputs of `count` numbers from `first` on,
/// each entry's name being the number's place in the list.
std::vector<std::string> Exported(const std::vector<Number>& numbers, std::size_t first,
                                  std::size_t count) {
    RegisterState state = RegisterOf({});
    SetCount(state, static_cast<int>(count));
    for (std::size_t i = 0; i < count; ++i) {
        const Text name = Decimal(static_cast<long long>(first + i));
        state.Register(static_cast<int>(i + 1)) =
            Entry(name, FromAscii(numbers.at(first + i).Input), u"()");
    }
    const MobileExportOptions options = {.AddRegionCode = true,
                                         .GlobalizeNumber = true,
                                         .Change00toPlus = true,
                                         .UseReductionFlags = true,
                                         .DeleteCommaInNames = false,
                                         .WriteMemNumber = false,
                                         .UseQuotesForData = false,
                                         .DataSeparator = u";"};
    const TestFolder folder;
    ScriptedDesktop desktop;
    desktop.AnswerBox(Button::Ok);
    ExportMobile(state, options, Berlin(), folder / "a.pbb", desktop);
    EXPECT_EQ(desktop.Transcript.size(), 3U) << "the question, two statuses, and no complaint";
    const std::string file = TextOf(folder / "a.pbb");
    EXPECT_TRUE(file.ends_with("\r\n"));
    std::vector<std::string> lines = Split(file, '\n');
    EXPECT_EQ(lines.size(), count);
    return lines;
}

/// The numbers that a file of the export has for the inputs.
std::vector<std::string> ExportedNumbers(const std::vector<Number>& numbers) {
    std::vector<std::string> exported;
    while (exported.size() < numbers.size()) {
        const std::size_t first = exported.size();
        const std::size_t count = std::min<std::size_t>(RegisterPlaces, numbers.size() - first);
        std::vector<std::string> lines = Exported(numbers, first, count);
        lines.resize(count);
        for (const std::string& line : lines) {
            const std::string start = std::to_string(exported.size()) + ";";
            EXPECT_TRUE(line.starts_with(start) && line.ends_with("\r")) << line;
            exported.push_back(line.substr(start.size(), line.size() - start.size() - 1));
        }
    }
    return exported;
}

/// The script has answered for every example, for each number of the own area and each spelling.
void ExpectComplete(const Library& library) {
    std::set<std::string> regions;
    std::set<std::pair<std::string, std::string>> examples;
    std::map<std::string, std::size_t> kinds;
    for (const Number& number : library.Numbers) {
        ++kinds[number.Kind];
        if (number.Kind == "number") {
            regions.insert(number.Region);
            examples.emplace(number.Region, number.Answer);
        }
    }
    EXPECT_EQ(regions.size(), library.Regions);
    EXPECT_EQ(examples.size(), library.Examples);
    EXPECT_GE(regions.size(), 200U);
    EXPECT_GE(examples.size(), 1000U);
    EXPECT_GE(kinds["number"], 10 * examples.size());
    EXPECT_EQ(kinds["local"], OwnArea.size());
    EXPECT_EQ(kinds["spelling"], Differences.size() + AlikeAllTheSame.size());
}

TEST(PhoneNumbers, OfTheExportAreTheLibrarysButForTheListedDifferences) {
    if (std::system((Python + "-c 'import phonenumbers' > /dev/null 2>&1").c_str()) != 0) {
        GTEST_SKIP() << "needs python3-phonenumbers";
    }
    const Library library = Ask();
    ExpectComplete(library);

    const std::vector<std::string> exported = ExportedNumbers(library.Numbers);
    ASSERT_EQ(exported.size(), library.Numbers.size());
    std::map<std::string, std::string> found;
    for (std::size_t i = 0; i < exported.size(); ++i) {
        const Number& number = library.Numbers[i];
        if (exported[i] != number.Answer) {
            found[number.Input] = exported[i];
        }
    }
    for (const Difference& difference : Differences) {
        EXPECT_EQ(found[difference.Input], difference.Exported)
            << difference.Input << ": " << difference.Rule;
        found.erase(difference.Input);
    }
    EXPECT_THAT(found, testing::IsEmpty()) << "spelling and exported number, not listed";
}

}  // namespace

}  // namespace norvik::test
