// Plays prepared answers to the dialogs of the window and keeps a transcript of what they showed. A
// dialog without a prepared answer, an answer that the dialog cannot take and an answer left over
// fail the test, and so does a dialog that is not shown above the one that it was opened from;
// every dialog is closed, so that no test waits for ever. Windows that leave the others usable are
// left alone.
#pragma once

#include <QDialog>
#include <QMessageBox>
#include <QTimer>

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace norvik::test {

class DialogAnswers : public QObject {
  public:
    DialogAnswers();
    DialogAnswers(const DialogAnswers&) = delete;
    DialogAnswers& operator=(const DialogAnswers&) = delete;
    DialogAnswers(DialogAnswers&&) = delete;
    DialogAnswers& operator=(DialogAnswers&&) = delete;
    ~DialogAnswers() override;

    // Answers, in the order of the dialogs.

    /// Clicks a button of a message box, also of one that scrolls.
    DialogAnswers& Click(QMessageBox::StandardButton button);
    /// Presses a key in whatever has the dialog's focus.
    DialogAnswers& Press(Qt::Key key);
    /// Closes the dialog as its close box does.
    DialogAnswers& Close();
    /// Types into an input box and clicks OK.
    DialogAnswers& Type(const QString& text);
    /// Gives a file dialog a name and clicks its button.
    DialogAnswers& ChooseFile(const QString& name);
    /// The same with a name that exists, answers the question whether to replace it with "Nein",
    /// and then cancels the file dialog, which is still open.
    DialogAnswers& ChooseFileAndKeep(const QString& name);
    /// Clicks the button "Abbrechen" of an input box or a file dialog.
    DialogAnswers& Cancel();
    /// Lets `act` work in a dialog of several controls; the answers that follow are for the dialogs
    /// that it opens. The dialog must still be open then and is closed by its "btnCancel".
    DialogAnswers& Drive(std::function<void(QDialog&)> act);
    /// The same with an act that closes the dialog itself.
    DialogAnswers& DriveToItsEnd(std::function<void(QDialog&)> act);
    /// Looks at the dialog that the next answer is for, before it is answered.
    DialogAnswers& Look(std::function<void(QDialog&)> look);

    /// One line per dialog, UTF-8; captions without their mnemonics:
    ///   box "text" title "title" icon None buttons Ja+Nein default Nein
    ///   text "text" title "title" buttons OK default OK                      (one that scrolls)
    ///   input "prompt" title "title" preset ""
    ///   open "NV-195-Datei (*.t9t)|Alle Dateien (*)" name ""
    ///   save "norvik-195-Datei (*.t9t)|Alle Dateien (*)" name ""
    ///   dialog NVHE title "Handyexport"                               (any other, its object name)
    std::vector<std::string> Transcript;

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    struct Answer {
        std::function<void(QDialog&)> look;
        std::function<void(QDialog&)> act;
    };

    DialogAnswers& Add(std::function<void(QDialog&)> act);
    void AnswerDialog(QDialog& dialog);
    static void CloseForgotten();

    std::deque<Answer> answers_;
    std::function<void(QDialog&)> nextLook_;
    /// The dialogs that are being answered, each above the one before.
    std::vector<QDialog*> open_;
    QTimer watchdog_;
};

/// Waits until the window is the active one itself, not only one of those that belong together.
bool BecomesActive(const QWidget& window);

/// Types characters, those without a key on a plain keyboard included.
void TypeText(QWidget* widget, const QString& text);

/// A caption without the mark of its mnemonic.
QString WithoutMnemonic(QString caption);

/// "box …" as the transcript shows a message box that only has an OK button.
std::string OkBox(const QString& text, const QString& title, const std::string& icon);

}  // namespace norvik::test
