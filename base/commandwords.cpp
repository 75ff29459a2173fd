#include "base/commandwords.h"

#include <algorithm>

namespace norvik {

namespace {

bool IsGap(char16_t character) {
    return character == u' ' || character == u'\t';
}

/// The program's name, in which a backslash never means anything else.
void SkipName(std::u16string_view& line) {
    bool quoted = false;
    while (!line.empty() && (quoted || !IsGap(line.front()))) {
        quoted = quoted != (line.front() == u'"');
        line.remove_prefix(1);
    }
}

/// Takes backslashes, and the quote behind them if it stands for itself.
void TakeBackslashes(std::u16string_view& line, std::u16string& text) {
    const std::size_t count = std::min(line.find_first_not_of(u'\\'), line.size());
    line.remove_prefix(count);
    const bool beforeQuote = !line.empty() && line.front() == u'"';
    text.append(beforeQuote ? count / 2 : count, u'\\');
    if (beforeQuote && count % 2 == 1) {
        text.push_back(u'"');
        line.remove_prefix(1);
    }
}

CommandWord TakeWord(std::u16string_view& line) {
    CommandWord word;
    bool quoted = false;
    while (!line.empty() && (quoted || !IsGap(line.front()))) {
        const char16_t character = line.front();
        if (character == u'\\') {
            TakeBackslashes(line, word.Text);
        } else if (character == u'"' && quoted && line.size() > 1 && line[1] == u'"') {
            word.Text.push_back(u'"');
            line.remove_prefix(2);
        } else if (character == u'"') {
            quoted = !quoted;
            line.remove_prefix(1);
        } else {
            word.IsPattern |= !quoted && (character == u'*' || character == u'?');
            word.Text.push_back(character);
            line.remove_prefix(1);
        }
    }
    return word;
}

}  // namespace

std::vector<CommandWord> CommandWords(std::u16string_view line) {
    std::vector<CommandWord> words;
    SkipName(line);
    for (;;) {
        line.remove_prefix(static_cast<std::size_t>(
            std::find_if_not(line.begin(), line.end(), IsGap) - line.begin()));
        if (line.empty()) {
            return words;
        }
        words.push_back(TakeWord(line));
    }
}

}  // namespace norvik
