// A desktop that does nothing and answers every question with its default, for the benchmarks and
// the fuzz targets.
#pragma once

#include "base/desktop.h"

namespace norvik::test {

class IdleDesktop : public Desktop {
  public:
    Button Ask(const MessageBox& box) override { return box.defaultButton; }
    std::optional<Text> AskForText(const InputBox& /*box*/) override { return std::nullopt; }
    std::optional<FilePath> AskForFileToOpen(const FileDialog& /*dialog*/) override {
        return std::nullopt;
    }
    std::optional<FilePath> AskForFileToSave(const FileDialog& /*dialog*/) override {
        return std::nullopt;
    }
    bool AskToReplace(const FilePath& /*file*/) override { return true; }
};

}  // namespace norvik::test
