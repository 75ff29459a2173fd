// The desktop of a program without a screen: what a box would show goes to standard error, and what
// it would ask has been answered by the options before.
#pragma once

#include "base/desktop.h"
#include "console/gatheredmessages.h"
#include "register/register.h"

namespace norvik {

/// How the desktop speaks and answers.
struct ConsoleManner {
    Text Source = {};     ///< stands in front of each line
    Text Msn = u"0";      ///< the answer to every question for the MSN of a call
    bool Silent = false;  ///< nothing is printed
};

class ConsoleDesktop : public Desktop {
  public:
    explicit ConsoleDesktop(ConsoleManner manner = {});

    /// How many boxes have told of something amiss.
    [[nodiscard]] int Findings() const { return findings_; }

    /// The names and numbers of the register stay in one line each. It must outlive the desktop's
    /// last question.
    void Know(const RegisterState& state) { state_ = &state; }

    /// Prints what has been gathered so far; the rest is printed at the end.
    void PrintMessages() { messages_.Print(); }

    /// Agrees. A box with the question icon only asks and is not shown; every other one tells
    /// something.
    Button Ask(const MessageBox& box) override;
    std::optional<Text> AskForText(const InputBox& box) override;
    /// The files are named on the command line: none is ever chosen here.
    std::optional<FilePath> AskForFileToOpen(const FileDialog& dialog) override;
    std::optional<FilePath> AskForFileToSave(const FileDialog& dialog) override;
    bool AskToReplace(const FilePath& file) override;

  private:
    void Tell(const Text& text);

    ConsoleManner manner_;
    GatheredMessages messages_;
    const RegisterState* state_ = nullptr;
    int findings_ = 0;
};

}  // namespace norvik
