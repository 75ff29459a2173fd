#include "tests/support/scripteddesktop.h"

#include "base/platform.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace norvik::test {

namespace {

const char* NameOf(Button button) {
    switch (button) {
    case Button::Ok:
        return "Ok";
    case Button::Cancel:
        return "Cancel";
    case Button::Yes:
        return "Yes";
    case Button::No:
        return "No";
    case Button::Abort:
        return "Abort";
    case Button::Retry:
        return "Retry";
    case Button::Ignore:
        return "Ignore";
    }
    return "?";
}

const char* NameOf(Icon icon) {
    switch (icon) {
    case Icon::None:
        return "None";
    case Icon::Information:
        return "Information";
    case Icon::Question:
        return "Question";
    case Icon::Exclamation:
        return "Exclamation";
    case Icon::Critical:
        return "Critical";
    }
    return "?";
}

std::string Quoted(TextView text) {
    return "\"" + Utf8(text) + "\"";
}

std::string Describe(const MessageBox& box) {
    std::string line = "box " + Quoted(box.text) + " title " + Quoted(box.title) + " icon " +
                       NameOf(box.icon) + " buttons ";
    for (std::size_t i = 0; i < box.buttons.size(); ++i) {
        line += (i == 0 ? "" : "+") + std::string(NameOf(box.buttons[i]));
    }
    return line + " default " + NameOf(box.defaultButton);
}

}  // namespace

std::string Utf8(TextView text) {
    std::string result;
    for (const char16_t c : text) {
        if (c == u'\r') {
            result += "\\r";
        } else if (c == u'\n') {
            result += "\\n";
        } else if (c < 0x80) {
            result += static_cast<char>(c);
        } else if (c < 0x800) {
            result += static_cast<char>(0xC0 | (c >> 6));
            result += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            result += static_cast<char>(0xE0 | (c >> 12));
            result += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            result += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return result;
}

std::string OkBox(TextView text, TextView title, const std::string& icon) {
    return "box " + Quoted(text) + " title " + Quoted(title) + " icon " + icon +
           " buttons Ok default Ok -> Ok";
}

ScriptedDesktop::~ScriptedDesktop() {
    EXPECT_TRUE(answers_.empty()) << answers_.size() << " prepared answer(s) were not asked for";
}

ScriptedDesktop& ScriptedDesktop::AnswerBox(Button button) {
    answers_.emplace_back(button);
    return *this;
}

ScriptedDesktop& ScriptedDesktop::AnswerText(std::optional<Text> answer) {
    answers_.emplace_back(std::move(answer));
    return *this;
}

ScriptedDesktop& ScriptedDesktop::AnswerFile(std::optional<FilePath> answer) {
    answers_.emplace_back(std::move(answer));
    return *this;
}

ScriptedDesktop& ScriptedDesktop::AnswerReplace(bool answer) {
    answers_.emplace_back(answer);
    return *this;
}

std::pair<std::string, std::string> ScriptedDesktop::TakeOffer(bool* forAll) {
    if (forAll == nullptr) {
        return {};
    }
    ++offers_;
    *forAll = offers_ == TickedOffer;
    return {" offering for all", *forAll ? " for all" : ""};
}

std::vector<std::string> ScriptedDesktop::Questions() const {
    std::vector<std::string> result;
    std::copy_if(Transcript.begin(), Transcript.end(), std::back_inserter(result),
                 [](const std::string& line) {
                     return !line.starts_with("status ") && !line.starts_with("pointer ");
                 });
    return result;
}

std::vector<std::string> ScriptedDesktop::Statuses() const {
    std::vector<std::string> result;
    for (const std::string& line : Transcript) {
        if (line.starts_with("status \"")) {
            result.push_back(line.substr(8, line.size() - 9));
        }
    }
    return result;
}

template <typename Wanted>
Wanted ScriptedDesktop::NextAnswer(const std::string& question, Wanted fallback) {
    if (answers_.empty() || !std::holds_alternative<Wanted>(answers_.front())) {
        ADD_FAILURE() << "no answer is prepared for: " << question;
        return fallback;
    }
    Wanted answer = std::get<Wanted>(answers_.front());
    answers_.pop_front();
    return answer;
}

Button ScriptedDesktop::Ask(const MessageBox& box) {
    const std::string question = Describe(box);
    EXPECT_NE(std::find(box.buttons.begin(), box.buttons.end(), box.defaultButton),
              box.buttons.end())
        << "the default button is none of the box's: " << question;
    const bool onlyOk = box.buttons == std::vector<Button>{Button::Ok};
    const Button answer = onlyOk ? Button::Ok : NextAnswer(question, box.defaultButton);
    const auto [offer, taken] = TakeOffer(box.ForAll);
    Transcript.push_back(question + offer + " -> " + NameOf(answer) + taken);
    return answer;
}

std::optional<Text> ScriptedDesktop::AskForText(const InputBox& box) {
    const std::string question = "input " + Quoted(box.prompt) + " title " + Quoted(box.title) +
                                 " preset " + Quoted(box.preset);
    const auto answer = NextAnswer(question, std::optional<Text>());
    const auto [offer, taken] = TakeOffer(box.ForAll);
    Transcript.push_back(question + offer + " -> " + (answer ? Quoted(*answer) : "cancel") + taken);
    return answer;
}

std::optional<FilePath> ScriptedDesktop::AskForFile(const std::string& kind,
                                                    const FileDialog& dialog) {
    const std::string question = kind + " " + Quoted(dialog.filter) + " ending " + dialog.ending;
    const auto answer = NextAnswer(question, std::optional<FilePath>());
    Transcript.push_back(question + " -> " + (answer ? answer->string() : "cancel"));
    return answer;
}

std::optional<FilePath> ScriptedDesktop::AskForFileToOpen(const FileDialog& dialog) {
    return AskForFile("open", dialog);
}

std::optional<FilePath> ScriptedDesktop::AskForFileToSave(const FileDialog& dialog) {
    return AskForFile("save", dialog);
}

bool ScriptedDesktop::AskToReplace(const FilePath& file) {
    const std::string question = "replace " + platform::Utf8Of(file);
    const bool answer = NextAnswer(question, false);
    Transcript.push_back(question + " -> " + (answer ? "yes" : "no"));
    return answer;
}

void ScriptedDesktop::SetStatus(TextView text) {
    Transcript.push_back("status " + Quoted(text));
    if (OnStatus) {
        OnStatus(text);
    }
}

void ScriptedDesktop::Beep() {
    Transcript.emplace_back("beep");
}

void ScriptedDesktop::SetPointer(Pointer pointer) {
    Transcript.emplace_back(pointer == Pointer::Hourglass ? "pointer Hourglass" : "pointer Normal");
}

void ScriptedDesktop::ShowEntry() {
    Transcript.emplace_back("entry");
    if (OnShowEntry) {
        OnShowEntry();
    }
}

void ScriptedDesktop::RebuildList() {
    Transcript.emplace_back("list");
    if (OnRebuildList) {
        OnRebuildList();
    }
}

void ScriptedDesktop::ShowCurrentFile() {
    Transcript.emplace_back("file");
    if (OnShowCurrentFile) {
        OnShowCurrentFile();
    }
}

void ScriptedDesktop::FocusField(int field) {
    Transcript.push_back("focus " + std::to_string(field));
}

void ScriptedDesktop::CloseMainWindow() {
    Transcript.emplace_back("close");
}

void ScriptedDesktop::ShowMobileExport() {
    Transcript.emplace_back("show NVHE");
}

void ScriptedDesktop::ShowRegisterList() {
    Transcript.emplace_back("show NVList");
}

void ScriptedDesktop::CloseRegisterList() {
    Transcript.emplace_back("close NVList");
}

void ScriptedDesktop::ShowSettings() {
    Transcript.emplace_back("show NVSET");
}

void ScriptedDesktop::ShowVersions() {
    Transcript.emplace_back("show VERSIONS");
}

void ScriptedDesktop::CloseVersions() {
    Transcript.emplace_back("close VERSIONS");
}

void ScriptedDesktop::ShowDoubles() {
    Transcript.emplace_back("show DOUBLES");
}

void ScriptedDesktop::CloseDoubles() {
    Transcript.emplace_back("close DOUBLES");
}

void ScriptedDesktop::ShowPhoneList() {
    Transcript.emplace_back("show PHONELIST");
}

Text ScriptedDesktop::BeforeReplacing(const FilePath& file) {
    return OnBeforeReplacing ? OnBeforeReplacing(file) : Text();
}

Text ScriptedDesktop::BeforeOverwriting(const FilePath& file) {
    return OnBeforeOverwriting ? OnBeforeOverwriting(file) : Text();
}

int ScriptedDesktop::OpenDocument(const FilePath& document) {
    Transcript.push_back("document " + platform::Utf8Of(document) + " -> " +
                         std::to_string(ShellResult));
    return ShellResult;
}

void ScriptedDesktop::OpenInTextEditor(const FilePath& document) {
    Transcript.push_back("editor " + platform::Utf8Of(document));
}

}  // namespace norvik::test
