// What the operations need of a screen: to ask the user and to show their work. Implemented by the
// window (qt/) and by the tests' scripted desktop. Everything runs on one thread; every call
// returns when it is done.
#pragma once

#include "base/files.h"
#include "base/text.h"

#include <optional>
#include <vector>

namespace norvik {

/// The program's name, as message boxes without a title of their own carry it.
inline constexpr TextView ProgramName = u"NORVIK";

enum class Icon { None, Information, Question, Exclamation, Critical };
enum class Button { Ok, Cancel, Yes, No, Abort, Retry, Ignore };

struct MessageBox {
    Text text;
    Text title = Text(ProgramName);
    Icon icon = Icon::None;
    std::vector<Button> buttons = {Button::Ok};
    /// Must be one of `buttons`.
    Button defaultButton = Button::Ok;
};

struct InputBox {
    Text prompt;
    Text title;
    Text preset = {};
};

struct FileDialog {
    /// Descriptions and patterns in turn, separated by "|": "CSV-Datei|*.csv|Alle Dateien|*.*".
    Text filter;
    /// Appended to a name without a "." of its own, for example ".t9t".
    std::string ending;
};

enum class Pointer { Normal, Hourglass };

class Desktop {
  public:
    Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    Desktop(Desktop&&) = delete;
    Desktop& operator=(Desktop&&) = delete;
    virtual ~Desktop() = default;

    // Ask. Each waits for the user's answer; a cancelled one is nullopt.

    /// The button that the user chose; closing the box is its Cancel, Abort or No, if it has one.
    virtual Button Ask(const MessageBox& box) = 0;
    virtual std::optional<Text> AskForText(const InputBox& box) = 0;
    /// A name to open; the file need not exist.
    virtual std::optional<FilePath> AskForFileToOpen(const FileDialog& dialog) = 0;
    /// A name to save under; the user has agreed to replace a file of that name.
    virtual std::optional<FilePath> AskForFileToSave(const FileDialog& dialog) = 0;

    // Show.

    /// Shows `text` in the status line and repaints it at once.
    virtual void SetStatus(TextView text) = 0;
    virtual void Beep() = 0;
    virtual void SetPointer(Pointer pointer) = 0;
    /// Shows the register's entry at its current position (AnzNr) in the main window's fields.
    virtual void ShowEntry() = 0;
    /// Builds the main window's list anew and shows the counts.
    virtual void RebuildList() = 0;
    /// Shows type, path and date of the current file.
    virtual void ShowCurrentFile() = 0;
    /// Moves the input focus to one of the main window's text fields (0 name, 1 number, 8 to 13
    /// info lines).
    virtual void FocusField(int field) = 0;
    /// Closes the main window as its close box does.
    virtual void CloseMainWindow() = 0;

    // The other windows.

    /// Shows the dialog of the mobile export and returns when it is closed.
    virtual void ShowMobileExport() = 0;
    /// Shows the register list beside the main window, or brings it to the front.
    virtual void ShowRegisterList() = 0;
    virtual void CloseRegisterList() = 0;
    /// Shows the settings dialog and returns when it is closed.
    virtual void ShowSettings() = 0;

    // Hand over.

    /// Opens a document with the program that the desktop has for it. Gives 33 when it was handed
    /// over, 2 when there is no such document, 31 when no program opens it.
    virtual int OpenDocument(const FilePath& document) = 0;
    /// Opens a text in the desktop's text editor, whether it exists or not.
    virtual void OpenInTextEditor(const FilePath& document) = 0;
};

}  // namespace norvik
