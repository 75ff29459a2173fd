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

void ConsoleDesktop::SetStatus(TextView /*text*/) {}
void ConsoleDesktop::Beep() {}
void ConsoleDesktop::SetPointer(Pointer /*pointer*/) {}
void ConsoleDesktop::ShowEntry() {}
void ConsoleDesktop::RebuildList() {}
void ConsoleDesktop::ShowCurrentFile() {}
void ConsoleDesktop::FocusField(int /*field*/) {}
void ConsoleDesktop::CloseMainWindow() {}
void ConsoleDesktop::ShowMobileExport() {}
void ConsoleDesktop::ShowRegisterList() {}
void ConsoleDesktop::CloseRegisterList() {}
void ConsoleDesktop::ShowSettings() {}

int ConsoleDesktop::OpenDocument(const FilePath& /*document*/) {
    constexpr int NoProgram = 31;
    return NoProgram;
}

void ConsoleDesktop::OpenInTextEditor(const FilePath& /*document*/) {}

}  // namespace norvik
