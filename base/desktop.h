// What the operations need of a screen: to ask the user and to show their work. Implemented by the
// window (qt/), by the converter (console/) and by the tests' scripted desktop. Everything runs on
// one thread; every call returns when it is done. dialogs/windows.h opens the other windows.
#pragma once

#include "base/paths.h"
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
    /// Where it is set, the box offers to answer all further ones alike and puts here whether the
    /// user wants that.
    bool* ForAll = nullptr;
};

struct InputBox {
    Text prompt;
    Text title;
    Text preset = {};
    bool* ForAll = nullptr;  ///< as in a MessageBox
};

struct FileDialog {
    /// Descriptions and patterns in turn, separated by "|": "Alle|*.t9t *.csv|CSV-Datei|*.csv".
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
    /// Whether a file whose name the program makes itself may be replaced; asks as a save dialog
    /// does.
    virtual bool AskToReplace(const FilePath& file) = 0;

    /// A save is about to replace the file, if there is one. Gives what the status is to say behind
    /// the path of the file that was saved.
    virtual Text BeforeReplacing(const FilePath& /*file*/) { return {}; }
    /// Any file that the program writes is about to be overwritten where it stands, so that the end
    /// of the program in the midst of it would leave half a file. Gives the same.
    virtual Text BeforeOverwriting(const FilePath& /*file*/) { return {}; }

    // Show. A desktop without a screen shows nothing.

    /// Shows `text` in the status line and repaints it at once.
    virtual void SetStatus(TextView /*text*/) {}
    virtual void Beep() {}
    virtual void SetPointer(Pointer /*pointer*/) {}
    /// Shows the register's entry at its current position (AnzNr) in the main window's fields.
    virtual void ShowEntry() {}
    /// Builds the main window's list anew and shows the counts.
    virtual void RebuildList() {}
    /// Shows type, path and date of the current file.
    virtual void ShowCurrentFile() {}
    /// Moves the input focus to one of the main window's text fields (0 name, 1 number, 8 to 13
    /// info lines).
    virtual void FocusField(int /*field*/) {}
};

}  // namespace norvik
