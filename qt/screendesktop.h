// The Desktop and the Windows of a real screen.
#pragma once

#include "base/desktop.h"
#include "dialogs/windows.h"
#include "qt/filedialog.h"

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace norvik {

class MainWindow;

class ScreenDesktop : public Desktop, public Windows {
  public:
    explicit ScreenDesktop(MainWindow& window) : window_(window) {}

    Button Ask(const MessageBox& box) override;
    std::optional<Text> AskForText(const InputBox& box) override;
    std::optional<FilePath> AskForFileToOpen(const FileDialog& dialog) override;
    std::optional<FilePath> AskForFileToSave(const FileDialog& dialog) override;
    bool AskToReplace(const FilePath& file) override;
    Text BeforeReplacing(const FilePath& file) override;
    Text BeforeOverwriting(const FilePath& file) override;

    void SetStatus(TextView text) override;
    void Beep() override;
    void SetPointer(Pointer pointer) override;
    void ShowEntry() override;
    void RebuildList() override;
    void ShowCurrentFile() override;
    void FocusField(int field) override;
    void CloseMainWindow() override;
    void ShowMobileExport() override;
    void ShowRegisterList() override;
    void CloseRegisterList() override;
    void ShowSettings() override;
    void ShowVersions() override;
    void CloseVersions() override;
    void ShowDoubles() override;
    void CloseDoubles() override;
    void ShowPhoneList() override;
    int OpenDocument(const FilePath& document) override;
    void OpenInTextEditor(const FilePath& document) override;

  private:
    /// What a new dialog stands above: the dialog that is open, or the main window.
    QWidget* Front();
    std::optional<FilePath> AskForFile(const FileDialog& dialog, QFileDialog::AcceptMode mode);

    MainWindow& window_;
    bool hourglass_ = false;
    /// The main window has its place on the screen.
    bool placed_ = false;
};

}  // namespace norvik
