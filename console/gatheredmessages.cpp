#include "console/gatheredmessages.h"

#include "console/messages.h"

#include <algorithm>
#include <utility>

namespace norvik {

namespace {

/// Characters and messages that are kept at most, but for the last one.
constexpr std::size_t MostCharacters = 4'000'000;
constexpr std::size_t MostMessages = 10'000;

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
        Text lines = WithSource(source_, message.What);
        if (message.Times > 1 && lines.ends_with(LineEnd)) {
            lines.resize(lines.size() - LineEnd.size());
            lines.append(u" (").append(Decimal(message.Times)).append(u"-mal)").append(LineEnd);
        }
        PrintLines(output_, lines);
    }
}

Text WithSource(TextView source, TextView text) {
    Text lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(LineEnd), text.size());
        if (end > 0) {
            lines.append(source).append(source.empty() ? u"" : u": ");
            lines.append(text.substr(0, end)).append(LineEnd);
        }
        text.remove_prefix(std::min(end + LineEnd.size(), text.size()));
    }
    return lines;
}

}  // namespace norvik
