// What the program tells of a source: each message once, with how often it came.
#pragma once

#include "base/text.h"

#include <cstdio>
#include <deque>
#include <string_view>
#include <unordered_map>

namespace norvik {

class GatheredMessages {
  public:
    /// `source` stands in front of each line; nothing does when it is empty.
    GatheredMessages(std::FILE* output, Text source);
    GatheredMessages(const GatheredMessages&) = delete;
    GatheredMessages& operator=(const GatheredMessages&) = delete;
    GatheredMessages(GatheredMessages&&) = delete;
    GatheredMessages& operator=(GatheredMessages&&) = delete;
    /// Prints what has not been printed.
    ~GatheredMessages();

    /// Takes a message, which may have several lines. What is kept does not grow without end:
    /// when it is too much it is printed, and counting begins anew.
    void Add(TextView message);
    /// Prints the messages in the order in which each came first.
    void Print();

  private:
    struct Message {
        Text What;
        long long Times = 1;
    };

    std::FILE* output_;
    Text source_;
    std::deque<Message> messages_;  ///< whose texts stay where they are
    std::unordered_map<TextView, Message*> byText_;
    Message* last_ = nullptr;
    std::size_t size_ = 0;
};

/// The lines of `text`, equal ones once, with how often they come.
Text OnceEach(TextView text);

/// The lines of `text`, each with `source` in front; empty ones fall away.
Text WithSource(TextView source, TextView text);

}  // namespace norvik
