// The main window: draws the program's fields, tells them what the user typed and clicked, and is
// the one place where operations are started.
#pragma once

#include "mainwindow/givenfile.h"
#include "mainwindow/menu.h"
#include "mainwindow/program.h"
#include "qt/mainwindowwidgets.h"
#include "qt/screendesktop.h"
#include "qt/windowmemory.h"

#include <QElapsedTimer>
#include <QMainWindow>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

class QMenu;
class QPrinter;

namespace norvik {

class DoublesWindow;
class EntryListModel;
class RegisterListWindow;
class SessionManager;
class VersionsWindow;

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    /// `folder` is the program's folder. `hardStop` ends the process; it must not return to the
    /// operation (tests throw the window away instead). `documentFolder` is where the help
    /// documents are installed, `versionFolder` where earlier versions are kept; without one none
    /// are. In `settingsFile` the window remembers the last files and the windows' places from
    /// one run to the next.
    MainWindow(const FilePath& folder, std::function<void()> hardStop,
               const FilePath& documentFolder = {}, const FilePath& versionFolder = {},
               FilePath settingsFile = {});

    /// Runs the start-up with the program's arguments joined by blanks and the file that the
    /// desktop hands over, if any; to be called once, when the window is shown.
    void Start(const QString& commandLine, const FilePath& file = {});

    [[nodiscard]] const RegisterState& State() const { return program_.State; }

    /// The user's session ends: keeps what no save holds, and asks where that is allowed. Gives
    /// false when the user wants to go on. When the end of the session then closes the window,
    /// nothing more is asked.
    bool MayEndSession(SessionManager& manager);
    /// A signal ends the program: keeps what no save holds.
    void KeepAtSignal();

    // What the desktop draws.
    void ShowCurrentEntry();
    void RebuildList();
    /// Repaints the first text of an operation at once, the others as fast as a screen shows them
    /// and the last one when the operation ends; a screen reader is told of that one alone.
    void DrawStatus(const QString& text);
    void DrawCurrentFile();
    void FocusField(int field);
    void CloseByMenu();
    /// Shows the dialog of the mobile export until it is closed.
    void RunMobileExport();
    void ShowRegisterList();
    void CloseRegisterList();
    /// Shows the settings dialog until it is closed.
    void RunSettings();
    void ShowVersions();
    void CloseVersions();
    void ShowDoubles();
    void CloseDoubles();
    /// Shows the phone list's dialog until it is closed.
    void RunPhoneList();
    Text KeepReplacedFile(const FilePath& file);
    Text KeepOverwrittenFile(const FilePath& file);
    [[nodiscard]] const FilePath& VersionFolder() const { return program_.Keep.Folder; }
    /// Where a file dialog begins; empty where nobody knows.
    [[nodiscard]] FilePath DialogFolder(bool saves) const;
    void NoteChosenFile(const FilePath& file);

    /// Sees the application being told to quit.
    bool eventFilter(QObject* object, QEvent* event) override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    /// Loads what was dropped, once the drop itself has ended.
    Q_INVOKABLE void TakeDropped();
    void MakeMenus();
    void MakeShortcuts();
    void AddRecentMenu(QMenu* menu, QAction* before);
    void DrawRecentMenu();
    /// The last files may have changed.
    void FollowRecentFiles();
    /// The item that saves the register has ended.
    void NoteSavedRegister();
    void ConnectEntry();
    void ConnectChoices();
    void ConnectButtons();
    void ConnectSelection();

    /// Runs an operation between reading the fields from the widgets and drawing them again. What
    /// it changes in the register can be undone as `what`.
    void Run(const std::function<void()>& operation, TextView what = u"Änderung");
    void DrawUndo();
    void ConnectVersions();
    void ConnectSession();
    /// Tells whether something typed is not stored yet, while it is being typed.
    void FollowTyping();
    void ReadFields();
    void Draw();
    void DrawChoices();
    void DrawCounts() const;
    /// One key saves the register for the model that it came from.
    void DrawSaveShortcut() const;
    void DrawSaveChange() const;
    void SelectListRow() const;

    /// Gives how many pages the printer took, nothing when it takes none.
    std::optional<int> PrintPages(QPrinter& printer);
    bool PrintPhoneList(QWidget& parent);
    void PreviewPhoneList(QWidget& parent);

    Program program_;
    ScreenDesktop desktop_;
    std::function<void()> hardStop_;
    MainWindowWidgets widgets_;
    EntryListModel* model_;
    RegisterListWindow* list_ = nullptr;
    VersionsWindow* versions_ = nullptr;
    DoublesWindow* doubles_ = nullptr;
    FilePath settingsFile_;
    WindowMemory memory_{settingsFile_};
    RecentFiles shownRecent_;
    QMenu* recentMenu_ = nullptr;
    std::pair<std::vector<FilePath>, Dropped> dropped_;  ///< waits for the end of the drop
    std::vector<QAction*> saveActions_;
    std::vector<std::pair<QAction*, bool MainWindowFields::*>> checkActions_;
    /// The items whose captions change.
    std::vector<std::pair<QAction*, const MenuRow*>> changingActions_;
    /// The program changes widgets; what they signal is no doing of the user.
    bool drawing_ = false;
    int running_ = 0;
    QElapsedTimer statusPainted_;
    /// The status text is set and not painted yet.
    bool statusWaits_ = false;
    /// No screen reader was told of the status text yet.
    bool statusUntold_ = false;
    bool closingByMenu_ = false;
    /// The session may end; the application was told to quit.
    bool sessionEnds_ = false;
    bool quits_ = false;
    /// It was told so in the midst of an operation.
    bool closesLater_ = false;
};

}  // namespace norvik
