// The desktop of a program without a screen: what a box would show goes to standard error, and what
// it would ask has been answered by the options before.
#pragma once

#include "base/desktop.h"

#include <utility>

namespace norvik {

class ConsoleDesktop : public Desktop {
  public:
    /// `msn` is the answer to every question for the MSN of a call.
    explicit ConsoleDesktop(Text msn = u"0") : msn_(std::move(msn)) {}

    /// How many boxes have been shown.
    [[nodiscard]] int Boxes() const { return boxes_; }

    /// Agrees. A box with the question icon only asks and is not shown; every other one tells
    /// something.
    Button Ask(const MessageBox& box) override;
    std::optional<Text> AskForText(const InputBox& box) override;
    /// The files are named on the command line: none is ever chosen here.
    std::optional<FilePath> AskForFileToOpen(const FileDialog& dialog) override;
    std::optional<FilePath> AskForFileToSave(const FileDialog& dialog) override;
    bool AskToReplace(const FilePath& file) override;

  private:
    Text msn_;
    int boxes_ = 0;
};

}  // namespace norvik
