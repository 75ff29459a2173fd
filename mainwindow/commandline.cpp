#include "mainwindow/commandline.h"

#include "base/numbers.h"

namespace norvik {

namespace {

constexpr TextView StartFileSwitch = u"/l";
constexpr TextView UnitPriceSwitch = u"/g";

bool IsDecimalComma(TextView line, std::size_t comma, TextView wordSoFar) {
    const char16_t next = comma + 1 < line.size() ? line[comma + 1] : u'\0';
    return wordSoFar.starts_with(UnitPriceSwitch) && next >= u'0' && next <= u'9';
}

}  // namespace

std::vector<Text> CommandLineWords(TextView commandLine) {
    const Text line = LowerCase(commandLine);
    std::vector<Text> words;
    Text word;
    const auto endWord = [&] {
        if (!word.empty()) {
            words.push_back(std::move(word));
        }
        word.clear();
    };
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool splits = line[i] == u' ' || (line[i] == u',' && !IsDecimalComma(line, i, word));
        if (splits) {
            endWord();
        } else {
            word.push_back(line[i]);
        }
    }
    endWord();
    return words;
}

void ReadCommandLine(TextView commandLine, Settings& settings, Desktop& desktop) {
    for (const Text& word : CommandLineWords(commandLine)) {
        const TextView option = Slice(word, 0, 2);
        const TextView rest = Slice(word, 2);
        if (option == StartFileSwitch) {
            settings.AutoloadFlag = true;
            settings.StartFile = rest;
            settings.StartFolder.clear();
        } else if (option == UnitPriceSwitch) {
            settings.UnitPrice = ParseDecimal(rest);
        } else {
            desktop.Ask(
                {.text = u"Kommandozeilenparameter unbekannt: " + TextFromPath(PathFromText(word)),
                 .title = u"NORVIK Programmstart",
                 .icon = Icon::Exclamation});
        }
    }
}

}  // namespace norvik
