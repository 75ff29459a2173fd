// Boxes that one operation may show again and again. From the fourth on, each offers to answer all
// further ones alike.
#pragma once

#include "base/desktop.h"

namespace norvik {

/// The boxes of one kind in one operation: made anew for each operation.
template <typename Box, typename Answer, Answer (Desktop::*Show)(const Box&)>
class RepeatedQuestion {
  public:
    explicit RepeatedQuestion(Desktop& desktop) : desktop_(desktop) {}

    /// What the user answers, or the answer given for all.
    Answer Ask(Box box) {
        constexpr int ShownWithoutOffer = 3;
        if (answerForAll_) {
            return *answerForAll_;
        }
        bool forAll = false;
        if (shown_ == ShownWithoutOffer) {
            box.ForAll = &forAll;
        } else {
            ++shown_;
        }
        Answer answer = (desktop_.*Show)(box);
        if (forAll) {
            answerForAll_ = answer;
        }
        return answer;
    }

  private:
    Desktop& desktop_;
    int shown_ = 0;  ///< counted as far as it matters
    std::optional<Answer> answerForAll_;
};

using RepeatedBox = RepeatedQuestion<MessageBox, Button, &Desktop::Ask>;
using RepeatedInput = RepeatedQuestion<InputBox, std::optional<Text>, &Desktop::AskForText>;

}  // namespace norvik
