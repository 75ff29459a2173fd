#include "console/gatheredmessages.h"

#include "console/messages.h"

#include <algorithm>
#include <utility>

namespace norvik {

namespace {

/// Characters and messages that are kept at most, but for the last one.
constexpr std::size_t MostCharacters = 4'000'000;
constexpr std::size_t MostMessages = 10'000;

/// Takes the first line off.
TextView TakeLine(TextView& text) {
    const std::size_t end = std::min(text.find(LineEnd), text.size());
    const TextView line = text.substr(0, end);
    text.remove_prefix(std::min(end + LineEnd.size(), text.size()));
    return line;
}

Text Times(long long count) {
    return u" (" + Decimal(count) + u"-mal)";
}

}  // namespace

GatheredMessages::GatheredMessages(std::FILE* output, Text source)
    : output_(output), source_(std::move(source)) {}

GatheredMessages::~GatheredMessages() {
    try {
        Print();
    } catch (const std::exception&) {  // memory ran out: there is nothing left to tell it with
    }
}

void GatheredMessages::Add(TextView message) {
    if (last_ != nullptr && last_->What == message) {  // most that repeat come in a row
        ++last_->Times;
        return;
    }
    if (const auto known = byText_.find(message); known != byText_.end()) {
        last_ = known->second;
        ++last_->Times;
        return;
    }
    if (size_ + message.size() > MostCharacters || messages_.size() == MostMessages) {
        Print();
    }
    messages_.push_back({.What = Text(message)});
    last_ = &messages_.back();
    byText_.emplace(last_->What, last_);
    size_ += message.size();
}

void GatheredMessages::Print() {
    const std::deque<Message> messages = std::exchange(messages_, {});
    byText_.clear();
    last_ = nullptr;
    size_ = 0;
    for (const Message& message : messages) {
        Text lines = WithSource(source_, OnceEach(message.What));
        if (message.Times > 1 && lines.ends_with(LineEnd)) {
            lines.resize(lines.size() - LineEnd.size());
            lines.append(Times(message.Times)).append(LineEnd);
        }
        PrintLines(output_, lines);
    }
}

Text WithSource(TextView source, TextView text) {
    Text lines;
    while (!text.empty()) {
        const TextView line = TakeLine(text);
        if (!line.empty()) {
            lines.append(source).append(source.empty() ? u"" : u": ").append(line);
            lines.append(LineEnd);
        }
    }
    return lines;
}

Text OnceEach(TextView text) {
    std::unordered_map<TextView, long long> times;
    for (TextView rest = text; !rest.empty();) {
        ++times[TakeLine(rest)];
    }
    Text lines;
    lines.reserve(text.size());
    while (!text.empty()) {
        const TextView line = TakeLine(text);
        long long& count = times[line];
        if (line.empty() || count == 1) {
            lines.append(line).append(LineEnd);
        } else if (count > 1) {
            lines.append(line).append(Times(count)).append(LineEnd);
            count = 0;  // the others are counted here
        }
    }
    return lines;
}

}  // namespace norvik
