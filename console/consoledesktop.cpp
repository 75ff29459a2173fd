#include "console/consoledesktop.h"

#include "console/messages.h"

#include <algorithm>

namespace norvik {

Button ConsoleDesktop::Ask(const MessageBox& box) {
    if (box.icon != Icon::Question) {
        ++boxes_;
        PrintLines(stderr, box.text);
    }
    const auto agrees = [](Button button) { return button == Button::Ok || button == Button::Yes; };
    const auto found = std::find_if(box.buttons.begin(), box.buttons.end(), agrees);
    return found == box.buttons.end() ? box.defaultButton : *found;
}

std::optional<Text> ConsoleDesktop::AskForText(const InputBox& /*box*/) {
    return msn_;
}

std::optional<FilePath> ConsoleDesktop::AskForFileToOpen(const FileDialog& /*dialog*/) {
    return std::nullopt;
}

std::optional<FilePath> ConsoleDesktop::AskForFileToSave(const FileDialog& /*dialog*/) {
    return std::nullopt;
}

bool ConsoleDesktop::AskToReplace(const FilePath& /*file*/) {
    return false;
}

}  // namespace norvik
