#include "qt/screendesktop.h"

#include "qt/entryfield.h"
#include "qt/filedialog.h"
#include "qt/mainwindow.h"
#include "qt/messagedialog.h"
#include "qt/panelarea.h"
#include "qt/systemshell.h"
#include "qt/textconversion.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QThread>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace norvik {

namespace {

/// Shows the normal pointer while a dialog waits for the user in the midst of an operation.
class NormalPointer {
  public:
    explicit NormalPointer(bool hourglass) : hourglass_(hourglass) {
        if (hourglass_) {
            QApplication::restoreOverrideCursor();
        }
    }
    NormalPointer(const NormalPointer&) = delete;
    NormalPointer& operator=(const NormalPointer&) = delete;
    NormalPointer(NormalPointer&&) = delete;
    NormalPointer& operator=(NormalPointer&&) = delete;
    ~NormalPointer() {
        if (hourglass_) {
            QApplication::setOverrideCursor(Qt::WaitCursor);
        }
    }

  private:
    bool hourglass_;
};

/// Lets an input box refuse characters that no text of the system can hold.
void LimitInput(QInputDialog& dialog, Desktop& desktop) {
    dialog.sizeHint();  // makes the dialog create its line edit
    if (auto* input = dialog.findChild<QLineEdit*>()) {
        LimitToRepertoire(input, [&desktop] { desktop.Beep(); });
    }
}

/// The text with its lines broken so that none is wider than most of the screen: a file may bring a
/// number of 255 characters into a question, and the buttons stay on the screen.
QString Folded(const QString& text, const QWidget& widget) {
    const int room = widget.screen()->availableSize().width() * 3 / 4;
    QString folded;
    int width = 0;
    for (const QChar character : text) {
        const int advance = widget.fontMetrics().horizontalAdvance(character);
        if (width + advance > room) {
            folded += u'\n';
            width = 0;
        }
        width = character == u'\n' ? 0 : width + advance;
        folded += character;
    }
    return folded;
}

/// Shows the question as it is: what comes from a file is neither markup nor a keyboard shortcut.
void ShowPlainPrompt(QInputDialog& dialog, const QString& prompt) {
    dialog.setLabelText(Folded(prompt, dialog));
    dialog.sizeHint();  // makes the dialog create its label
    if (auto* label = dialog.findChild<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
        label->setBuddy(nullptr);
    }
    if (auto* input = dialog.findChild<QLineEdit*>()) {
        input->setAccessibleName(prompt);
    }
}

/// Waits, but not for ever, until a window that was just shown has its place on the screen: what is
/// shown above it is placed by it.
void WaitForPlace(const QWidget& window) {
    constexpr qint64 LongestWait = 1000;  // milliseconds
    QElapsedTimer time;
    time.start();
    while (window.isVisible() && !window.windowHandle()->isExposed() &&
           time.elapsed() < LongestWait) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(1);
    }
}

/// The offer to answer all further boxes alike stands below the dialog's field.
QCheckBox* AddForAllBox(QInputDialog& dialog) {
    QCheckBox* forAll = MakeForAllBox(&dialog);
    auto* layout = qobject_cast<QBoxLayout*>(dialog.layout());
    layout->insertWidget(layout->indexOf(dialog.findChild<QLineEdit*>()) + 1, forAll);
    QWidget::setTabOrder(dialog.findChild<QLineEdit*>(), forAll);
    return forAll;
}

/// Makes room for the title beside the buttons of the window's frame.
void ShowWholeTitle(QWidget& dialog) {
    constexpr int FrameButtons = 120;
    const int whole = dialog.fontMetrics().horizontalAdvance(dialog.windowTitle()) + FrameButtons;
    dialog.setMinimumWidth(std::min(whole, RoomFor(dialog).width()));
}

}  // namespace

QWidget* ScreenDesktop::Front() {
    if (!std::exchange(placed_, true)) {
        WaitForPlace(window_);
    }
    if (QWidget* dialog = QApplication::activeModalWidget()) {
        return dialog;
    }
    // A window beside the main one keeps the keyboard when what it asked for is closed.
    QWidget* active = QApplication::activeWindow();
    const bool isBeside =
        active != nullptr && active->isVisible() && active->parentWidget() == &window_;
    return isBeside ? active : &window_;
}

Button ScreenDesktop::Ask(const MessageBox& box) {
    const NormalPointer whileAsking(hourglass_);
    return ShowMessageBox(box, Front());
}

std::optional<Text> ScreenDesktop::AskForText(const InputBox& box) {
    const NormalPointer whileAsking(hourglass_);
    QInputDialog dialog(Front());
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setWindowTitle(ShownTitle(box.title));
    // Any question of ours is shorter.
    constexpr std::size_t LongestPrompt = 2000;
    ShowPlainPrompt(dialog, ShownText(box.prompt, LongestPrompt));
    dialog.setTextValue(ToQString(box.preset));
    LimitInput(dialog, *this);
    QCheckBox* forAll = box.ForAll == nullptr ? nullptr : AddForAllBox(dialog);
    ShowWholeTitle(dialog);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    if (forAll != nullptr) {
        *box.ForAll = forAll->isChecked();
    }
    if (!accepted) {
        return std::nullopt;
    }
    return ToText(dialog.textValue());
}

std::optional<FilePath> ScreenDesktop::AskForFile(const FileDialog& dialog,
                                                  QFileDialog::AcceptMode mode) {
    const NormalPointer whileAsking(hourglass_);
    std::optional<FilePath> chosen =
        RunFileDialog(dialog, mode, window_.DialogFolder(mode == QFileDialog::AcceptSave),
                      window_.VersionFolder(), Front());
    if (chosen) {
        window_.NoteChosenFile(*chosen);
    }
    return chosen;
}

std::optional<FilePath> ScreenDesktop::AskForFileToOpen(const FileDialog& dialog) {
    return AskForFile(dialog, QFileDialog::AcceptOpen);
}

std::optional<FilePath> ScreenDesktop::AskForFileToSave(const FileDialog& dialog) {
    return AskForFile(dialog, QFileDialog::AcceptSave);
}

bool ScreenDesktop::AskToReplace(const FilePath& file) {
    const NormalPointer whileAsking(hourglass_);
    return AskToReplaceFile(file, Front());
}

Text ScreenDesktop::BeforeReplacing(const FilePath& file) {
    return window_.KeepReplacedFile(file);
}

Text ScreenDesktop::BeforeOverwriting(const FilePath& file) {
    return window_.KeepOverwrittenFile(file);
}

void ScreenDesktop::SetStatus(TextView text) {
    window_.DrawStatus(ToQString(text));
}

void ScreenDesktop::Beep() {
    QApplication::beep();
}

void ScreenDesktop::SetPointer(Pointer pointer) {
    const bool hourglass = pointer == Pointer::Hourglass;
    if (std::exchange(hourglass_, hourglass) == hourglass) {
        return;
    }
    if (hourglass) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

void ScreenDesktop::ShowEntry() {
    window_.ShowCurrentEntry();
}

void ScreenDesktop::RebuildList() {
    window_.RebuildList();
}

void ScreenDesktop::ShowCurrentFile() {
    window_.DrawCurrentFile();
}

void ScreenDesktop::FocusField(int field) {
    window_.FocusField(field);
}

void ScreenDesktop::CloseMainWindow() {
    window_.CloseByMenu();
}

void ScreenDesktop::ShowMobileExport() {
    window_.RunMobileExport();
}

void ScreenDesktop::ShowRegisterList() {
    window_.ShowRegisterList();
}

void ScreenDesktop::CloseRegisterList() {
    window_.CloseRegisterList();
}

void ScreenDesktop::ShowSettings() {
    window_.RunSettings();
}

void ScreenDesktop::ShowVersions() {
    window_.ShowVersions();
}

void ScreenDesktop::CloseVersions() {
    window_.CloseVersions();
}

void ScreenDesktop::ShowDoubles() {
    window_.ShowDoubles();
}

void ScreenDesktop::CloseDoubles() {
    window_.CloseDoubles();
}

void ScreenDesktop::ShowPhoneList() {
    window_.RunPhoneList();
}

int ScreenDesktop::OpenDocument(const FilePath& document) {
    return OpenWithItsProgram(document);
}

void ScreenDesktop::OpenInTextEditor(const FilePath& document) {
    OpenAsText(document);
}

}  // namespace norvik
