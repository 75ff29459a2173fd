// The real main window on a platform without a screen: found by object names, driven by simulated
// events.
#pragma once

#include "qt/mainwindow.h"
#include "tests/qt/dialoganswers.h"
#include "tests/support/testfolder.h"

#include <QAbstractButton>
#include <QAction>
#include <QColor>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace norvik::test {

/// A record of a register file; the texts are the file's bytes.
struct FileRecord {
    std::string_view name;
    std::string_view tel;
    std::string_view info = "";
    int ton = 0;
    int msnFilter = 15;
    int gebEinh = 0;
    int ab = 0;
};

/// A register file of the 195 with the given records.
Bytes RegisterFile(const std::vector<FileRecord>& records);

/// `count` records named "Name 0001", "Name 0002", … with the numbers 1, 2, ….
Bytes NumberedRegisterFile(int count);

/// Text filled up with blanks to the 21 characters of an info line.
std::string Line(const std::string& text);

/// The box of a run-time error that no operation handles, as the transcript shows it.
std::string RuntimeErrorBox(int number, const QString& description);

inline const QColor Pending(255, 128, 128);
inline const QColor Stored(192, 255, 192);

/// The texts that a label painted are the first and the last of `set`, the texts that it was given
/// one after the other, and any between them, in their order; a text may be painted again.
testing::Matcher<const std::vector<std::string>&> PaintedFrom(const std::vector<std::string>& set);

/// Keeps every text that a label paints, in their order.
class PaintedTexts : public QObject {
  public:
    explicit PaintedTexts(QLabel* label);
    std::vector<std::string> Texts;

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    QLabel* label_;
};

class WindowTest : public testing::Test {
  protected:
    WindowTest();
    ~WindowTest() override;

    /// Makes the window without starting it.
    void Make();
    /// Makes the window, shows it and runs the start-up.
    void Open(const QString& commandLine = {});
    /// Opens the window, if there is none yet, and loads a register file through the menu.
    void Load(const Bytes& file);
    void Load(const std::vector<FileRecord>& records);
    /// Brings the window to the front, as after a dialog.
    void Activate();

    QString PathIn(const char* name) const;
    /// The bytes of a file in the test's folder.
    std::string FileText(const char* name) const;

    template <typename Widget>
    Widget* Find(const QString& name) const {
        auto* widget = Window->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name.toStdString();
        return widget;
    }
    QLineEdit* Field(int number) const;
    QListView* List() const { return Find<QListView>("TelRegListe"); }
    QScrollBar* Selector() const { return Find<QScrollBar>("Satzwahl"); }

    /// What a field, label, choice list or button shows.
    std::string TextOf(const QString& name) const;
    std::string TextOfField(int number) const;
    std::string Caption() const { return Window->windowTitle().toStdString(); }
    bool IsChecked(const QString& name) const;
    QColor ButtonColour() const;
    QColor NeutralColour() const;
    /// All rows of the list.
    std::vector<std::string> Rows() const { return RowsOf(*List()); }
    static std::vector<std::string> RowsOf(const QAbstractItemView& list);
    /// The input widgets that the tab key enters, from the focused one through the whole cycle.
    static std::vector<std::string> TabOrder(QWidget& window);
    std::string SelectedRow() const;
    /// The names of the entries 1 to count, each shown in turn.
    std::vector<std::string> ShownNames();
    /// "0/1/8/9/…" of the text field that has the focus, -1 for none.
    int FocusedField() const;

    void Click(const QString& button);
    void Trigger(const QString& action);
    void ClickRow(int row);
    /// Presses a key in the widget that has the focus.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Enter(int field);
    /// Types at the end of a field's text.
    void Type(int field, const QString& text);
    /// Replaces the whole text of a field by typing.
    void Retype(int field, const QString& text);
    void Paste(QWidget* field, const QString& text);
    /// Chooses an item of a choice list by the keyboard.
    void Choose(const QString& list, int item);

    TestFolder Folder;
    /// The program's folder, and where the help documents are installed.
    FilePath ProgramFolder = Folder.Path();
    FilePath DocumentFolder = Folder / "installiert";
    FilePath SettingsFile;   ///< where the last files are remembered; nowhere by default
    FilePath VersionFolder;  ///< where earlier versions are kept; nowhere by default
    DialogAnswers Dialogs;
    std::unique_ptr<MainWindow> Window;
    int HardStops = 0;
};

}  // namespace norvik::test
