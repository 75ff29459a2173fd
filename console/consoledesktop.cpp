#include "console/consoledesktop.h"

#include "console/printable.h"
#include "formats/ip286/ip286.h"

#include <algorithm>

namespace norvik {

namespace {

/// Whether the box tells how an operation ended, or asks whether to begin one, and not that
/// something is amiss.
bool IsInPassing(const MessageBox& box) {
    return box.buttons.size() > 1 || box.title == ip286::ResultTitle;
}

/// Puts the field's line ends, which no one else tells from those of the message, out of the text.
void KeepInOneLine(Text& text, const Text& field) {
    if (!Contains(field, LineEnd)) {
        return;
    }
    const Text shown = Printable(field);
    for (std::size_t at = text.find(field); at != Text::npos; at = text.find(field, at)) {
        text.replace(at, field.size(), shown);
    }
}

}  // namespace

ConsoleDesktop::ConsoleDesktop(ConsoleManner manner)
    : manner_(std::move(manner)), messages_(stderr, manner_.Source) {}

Button ConsoleDesktop::Ask(const MessageBox& box) {
    if (box.icon != Icon::Question) {
        findings_ += IsInPassing(box) ? 0 : 1;
        if (!manner_.Silent) {
            Tell(box.text);
        }
    }
    const auto agrees = [](Button button) { return button == Button::Ok || button == Button::Yes; };
    const auto found = std::find_if(box.buttons.begin(), box.buttons.end(), agrees);
    return found == box.buttons.end() ? box.defaultButton : *found;
}

void ConsoleDesktop::Tell(const Text& text) {
    if (state_ == nullptr ||
        !Contains(text, LineEnd)) {  // as the text of all that come by millions
        messages_.Add(text);
        return;
    }
    Text shown = text;
    for (int place = 1; place <= RegisterPlaces; ++place) {
        KeepInOneLine(shown, state_->Register(place).Name);
        KeepInOneLine(shown, state_->Register(place).Tel);
    }
    messages_.Add(shown);
}

std::optional<Text> ConsoleDesktop::AskForText(const InputBox& /*box*/) {
    return manner_.Msn;
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
