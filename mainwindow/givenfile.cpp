#include "mainwindow/givenfile.h"

#include "mainwindow/menu.h"

#include <utility>

namespace norvik {

namespace {

/// Another desktop, but for the first question for a file to open, which is answered already.
class WithGivenFile : public Desktop {
  public:
    WithGivenFile(Desktop& screen, FilePath given) : screen_(screen), given_(std::move(given)) {}

    std::optional<FilePath> AskForFileToOpen(const FileDialog& dialog) override {
        if (given_) {
            return std::exchange(given_, std::nullopt);
        }
        return screen_.AskForFileToOpen(dialog);
    }

    Button Ask(const MessageBox& box) override { return screen_.Ask(box); }
    std::optional<Text> AskForText(const InputBox& box) override { return screen_.AskForText(box); }
    std::optional<FilePath> AskForFileToSave(const FileDialog& dialog) override {
        return screen_.AskForFileToSave(dialog);
    }
    bool AskToReplace(const FilePath& file) override { return screen_.AskToReplace(file); }
    Text BeforeReplacing(const FilePath& file) override { return screen_.BeforeReplacing(file); }
    Text BeforeOverwriting(const FilePath& file) override {
        return screen_.BeforeOverwriting(file);
    }
    void SetStatus(TextView text) override { screen_.SetStatus(text); }
    void Beep() override { screen_.Beep(); }
    void SetPointer(Pointer pointer) override { screen_.SetPointer(pointer); }
    void ShowEntry() override { screen_.ShowEntry(); }
    void RebuildList() override { screen_.RebuildList(); }
    void ShowCurrentFile() override { screen_.ShowCurrentFile(); }
    void FocusField(int field) override { screen_.FocusField(field); }

  private:
    Desktop& screen_;
    std::optional<FilePath> given_;
};

constexpr std::string_view AddItem = "mnuDateiAdd";

/// Runs the operation of a menu item with the file; one without an ending that is loaded would be
/// given one by the operation, and be another file.
void TakeFile(Program& program, const FilePath& path, Dropped what, Desktop& desktop,
              Windows& windows) {
    const std::string_view item = LoadItemOf(path);
    const bool adds = what == Dropped::Add;
    if (item.empty()) {
        desktop.Ask({.text = TextFromPath(path) + (adds ? u" kann nicht dazugeladen werden"
                                                        : u" kann nicht geladen werden"),
                     .title = adds ? u"Dazuladen" : u"Laden",
                     .icon = Icon::Critical});
        return;
    }
    WithGivenFile given(desktop, path);
    MenuRowOf(adds ? AddItem : item).Run(program, given, windows);
}

}  // namespace

void LoadGivenFile(Program& program, const FilePath& path, Desktop& desktop, Windows& windows) {
    TakeFile(program, path, Dropped::Load, desktop, windows);
}

void LoadRecentFile(Program& program, const FilePath& path, Desktop& desktop, Windows& windows) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        RemoveRecent(program.Recent, path);
        desktop.Ask({.text = TextFromPath(path) + u" ist nicht mehr da",
                     .title = u"Zuletzt geöffnet",
                     .icon = Icon::Exclamation});
        return;
    }
    LoadGivenFile(program, path, desktop, windows);
}

void TakeDroppedFiles(Program& program, const std::vector<FilePath>& files, Dropped what,
                      Desktop& desktop, Windows& windows) {
    if (files.empty()) {
        return;
    }
    TakeFile(program, files.front(), what, desktop, windows);
    if (files.size() > 1) {
        Text status = u"Von " + Decimal(static_cast<long long>(files.size()));
        status.append(u" Dateien wurde nur die erste genommen: ")
            .append(TextFromPath(files.front().filename()));
        desktop.SetStatus(status);
    }
}

TextView StepOfFile(const FilePath& path, Dropped what) {
    const std::string_view item = LoadItemOf(path);
    if (item.empty()) {
        return {};
    }
    return MenuRowOf(what == Dropped::Add ? AddItem : item).Step;
}

}  // namespace norvik
