// Another program reads what is written here: Python's csv module.
#include "formats/csv/csvformat.h"
#include "formats/ip286/ip286.h"
#include "formats/registerfile/registerfilemenu.h"

#include "tests/losses/randomregister.h"
#include "tests/support/builders.h"
#include "tests/support/places.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace norvik::test {

namespace {

/// Reads a list of files with the rows that they must hold, one "file", form and path, or one "row"
/// and its fields a line, between tabs. Prints every difference and, at the end, what was compared.
constexpr std::string_view Script = R"(
import csv
import sys

FORMS = {
    "quoted": {"delimiter": ";"},
    "plain": {"delimiter": ";", "quoting": csv.QUOTE_NONE},
    "ip286": {"delimiter": ","},
}

files = []
with open(sys.argv[1], encoding="utf-8", newline="\n") as expectations:
    for line in expectations:
        kind, *fields = line.rstrip("\n").split("\t")
        if kind == "file":
            files.append((*fields, []))
        else:
            files[-1][2].append(fields)

differences = 0
for form, path, expected in files:
    with open(path, encoding="cp1252", newline="") as file:
        rows = list(csv.reader(file, strict=True, **FORMS[form]))
    with open(path, "rb") as file:
        data = file.read()
    ends = (data.count(b"\r\n"), data.count(b"\r"), data.count(b"\n"), data[-2:])
    if rows != expected or ends != (len(rows), len(rows), len(rows), b"\r\n"):
        differences += 1
        print(form, path, ends, [pair for pair in zip(rows, expected) if pair[0] != pair[1]][:2])
print(len(files), "files,", sum(len(rows) for _, _, rows in files), "rows,",
      differences, "differences")
)";

constexpr int RandomRegisters = 100;

/// What a column of text may hold without being split: no ";" and no quote, nothing but the
/// characters that every program's Windows-1252 has.
Text Characters() {
    Text characters;
    for (int byte = 0x20; byte <= 0xFF; ++byte) {
        const char16_t character = CharacterOf(static_cast<Byte>(byte));
        if (character != u';' && character != u'"' && (character < 0x7F || character > 0x9F)) {
            characters.push_back(character);
        }
    }
    return characters;
}

RegisterState RandomRegister(unsigned seed) {
    RandomValues random(seed);
    const Text characters = Characters();
    RegisterState state = RegisterOf({});
    SetCount(state, random.Below(30));
    for (int place = 1; place <= state.AnzGes; ++place) {
        RegisterEntry& entry = state.Register(place);
        entry.Name = random.TextOf(characters, 40);
        entry.Tel = random.TextOf(characters, 30);
        entry.Info = random.TextOf(random.Toss() ? characters : Text(u"a  "), 150);
        entry.Ton = random.Any<std::int16_t>();
        entry.MsnFilter = random.Any<std::int16_t>();
        entry.AB = random.Any<std::int16_t>();
        entry.GebEinh = random.Any<std::int32_t>();
    }
    random.Shuffle(state);
    return state;
}

RegisterState SampleRegister(const FilePath& name) {
    RegisterState state;
    ScriptedDesktop desktop;
    desktop.AnswerFile(SourceFolder() / "samples" / name);
    mnuDateiLoadNV(state, desktop);
    return state;
}

RegisterState SampleCSV() {
    RegisterState state;
    ScriptedDesktop desktop;
    LoadCSV(state, SourceFolder() / "samples" / "telefonbuch.csv", Settings(), desktop);
    return state;
}

// The rows that a register must give

using Row = std::vector<std::string>;

std::string Number(int value) {
    return std::to_string(value);
}

Row CsvHeader() {
    return {"Name", "Tel", "Info1", "Info2", "Info3",  "Info4",   "Info5", "Info6",
            "AB",   "Ton", "EnTon", "MSN",   "Filter", "GebEinh", "EnGeb"};
}

Row CsvRow(const RegisterEntry& entry) {
    Row row = {Utf8(entry.Name), Utf8(entry.Tel)};
    for (std::size_t start = 0; start < 126; start += 21) {
        Text line = start < entry.Info.size() ? entry.Info.substr(start, 21) : Text();
        while (!line.empty() && line.back() == u' ') {
            line.pop_back();
        }
        row.push_back(Utf8(line));
    }
    const auto flags = static_cast<unsigned>(entry.MsnFilter);
    const auto tone = static_cast<unsigned>(entry.Ton);
    const std::vector<std::string> filters = {"Kein", "Anr.", "VIP ", "CD  "};
    row.push_back(Number(entry.AB));
    row.push_back(Number(static_cast<int>(tone % 128)));
    row.emplace_back(tone / 128 % 2 == 1 ? "ja" : "nein");
    row.push_back(flags % 16 < 6 ? "0" + Number(static_cast<int>(flags % 16) + 1) : "00");
    row.push_back(filters.at(flags / 64 % 4));
    row.push_back(Number(entry.GebEinh));
    row.emplace_back(flags / 16 % 2 == 1 ? "ja" : "nein");
    return row;
}

Row IP286Row(const RegisterEntry& entry) {
    std::string name;
    for (const char16_t character : entry.Name) {
        switch (character) {
        case u'ä':
            name += "ae";
            break;
        case u'ö':
            name += "oe";
            break;
        case u'ü':
            name += "ue";
            break;
        case u'Ä':
            name += "Ae";
            break;
        case u'Ö':
            name += "Oe";
            break;
        case u'Ü':
            name += "Ue";
            break;
        case u'ß':
            name += "sz";
            break;
        default:
            name += Utf8(Text(1, character));
        }
    }
    return {name, Utf8(entry.Tel), "1"};
}

/// Collects what the script is to compare.
class Expectations {
  public:
    void File(const std::string& form, const FilePath& path) {
        text_ += "file\t" + form + "\t" + path.string() + "\n";
        ++Files;
    }
    void AddRow(const Row& row) {
        text_ += "row";
        for (const std::string& field : row) {
            text_ += "\t" + field;
        }
        text_ += "\n";
        ++Rows;
    }
    [[nodiscard]] const std::string& AsText() const { return text_; }

    int Files = 0;
    int Rows = 0;

  private:
    std::string text_;
};

/// Writes a register in all three ways and notes what its files must hold.
void WriteAll(RegisterState state, const FilePath& stem, Expectations& expectations) {
    for (const std::string form : {"quoted", "plain", "ip286"}) {
        const FilePath path = stem.string() + "." + form;
        const bool csv = form != "ip286";
        ScriptedDesktop desktop;
        if (csv) {
            desktop.AnswerBox(form == "quoted" ? Button::Yes : Button::No);
            SaveCSV(state, path, desktop);
        } else {
            ExportIP286(state, path, u"", desktop);
        }
        expectations.File(form, path);
        expectations.AddRow(csv ? CsvHeader() : Row{"Name", "Telefonnummer", "Konto"});
        for (int position = 1; position <= state.AnzGes; ++position) {
            const RegisterEntry& entry = state.Register(state.RegisterOrder(position));
            expectations.AddRow(csv ? CsvRow(entry) : IP286Row(entry));
        }
    }
}

TEST(OtherPrograms, ReadTheWrittenFilesAsTheRegisterHasThem) {
    if (std::system("python3 --version > /dev/null 2>&1") != 0) {
        GTEST_SKIP() << "needs python3";
    }
    const TestFolder folder;
    Expectations expectations;
    WriteAll(SampleRegister("telefonbuch.t9t"), folder / "sample195", expectations);
    WriteAll(SampleRegister("telefonbuch193.t9t"), folder / "sample193", expectations);
    WriteAll(SampleCSV(), folder / "samplecsv", expectations);
    for (unsigned seed = 1; seed <= RandomRegisters; ++seed) {
        WriteAll(RandomRegister(seed), folder / ("random" + std::to_string(seed)), expectations);
    }
    ASSERT_EQ(expectations.Files, 3 * (3 + RandomRegisters));
    ASSERT_GT(expectations.Rows, 3 * (60 + 20 + 15) + RandomRegisters);

    const FilePath script = folder.Write("compare.py", Script);
    const FilePath list = folder.Write("expectations", expectations.AsText());
    const FilePath report = folder / "report";
    const std::string command = "python3 -B '" + script.string() + "' '" + list.string() + "' > '" +
                                report.string() + "' 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0);
    const Bytes bytes = ReadFile(report);
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()),
              std::to_string(expectations.Files) + " files, " + std::to_string(expectations.Rows) +
                  " rows, 0 differences\n");
}

}  // namespace

}  // namespace norvik::test
