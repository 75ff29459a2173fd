#include "mainwindow/keeping.h"
#include "tests/qt/windowfixture.h"
#include "tests/support/scriptedsession.h"
#include "versions/keptregister.h"

#include <QFocusFrame>
#include <QRegularExpression>
#include <QTableWidget>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const std::string QuitQuestion =
    "box \"Beenden ohne zu sichern?\" title \"Sicherheitsabfrage\" icon Question buttons "
    "OK+Abbrechen default Abbrechen";

class WindowVersions : public WindowTest {
  protected:
    WindowVersions() {
        VersionFolder = Folder / "staende";
        Load({{.name = "Anna", .tel = "1"}, {.name = "Bernd", .tel = "2"}});
    }

    /// The window on the screen; null when there is none.
    QDialog* Versions() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return Window->findChild<QDialog*>("VERSIONS");
    }
    QTableWidget* Table() const { return Find<QTableWidget>("ListVersions"); }
    std::vector<std::string> Row(int row) const {
        std::vector<std::string> texts;
        for (int column = 0; column < Table()->columnCount(); ++column) {
            texts.push_back(Table()->item(row, column)->text().toStdString());
        }
        return texts;
    }
    std::vector<std::string> Reasons() const {
        std::vector<std::string> reasons;
        for (int row = 0; row < Table()->rowCount(); ++row) {
            reasons.push_back(Row(row).at(2));
        }
        return reasons;
    }
    static bool IsTime(const std::string& text) {
        return QRegularExpression("^[0-9.]+ [0-9:]+$")
            .match(QString::fromStdString(text))
            .hasMatch();
    }
    std::vector<std::string> NamesShown() const { return RowsOf(*Find<QListView>("ListNames")); }
    /// What the toolkit does when the session manager tells the program to go.
    void Quit() const {
        QEvent quit(QEvent::Quit);
        Window->eventFilter(qApp, &quit);
    }
    std::string MenuItem() const {
        return WithoutMnemonic(Find<QAction>("mnuDateiVersions")->text()).toStdString();
    }
    std::vector<std::string> KeptReasons() const {
        std::vector<std::string> reasons;
        for (const Version& version : ListVersions(VersionFolder)) {
            reasons.push_back(
                QString::fromStdU16String(Text(DescriptionOf(version.Why))).toStdString());
        }
        return reasons;
    }
};

TEST_F(WindowVersions, ShowsTheVersionsAndTheNamesOfTheChosenOne) {
    Click("btnErase");
    Dialogs.ChooseFile(PathIn("register.t9t"));
    Trigger("mnuDateiLoadNV");
    Trigger("mnuDateiVersions");
    ASSERT_NE(Versions(), nullptr);
    EXPECT_FALSE(Versions()->isModal());
    EXPECT_EQ(Versions()->windowTitle(), "Frühere Stände");
    ASSERT_EQ(Table()->rowCount(), 1);
    EXPECT_THAT(Row(0),
                ElementsAre(testing::ResultOf(IsTime, true), PathIn("register.t9t").toStdString(),
                            "beim Laden nicht gesichert", "1"));
    EXPECT_THAT(NamesShown(), ElementsAre("Bernd"));
    Click("btnLoad");
    EXPECT_THAT(ShownNames(), ElementsAre("Bernd"));
    EXPECT_FALSE(Window->State().RegisterSaved);
    Trigger("mnuBearbeitenUndo");
    EXPECT_THAT(ShownNames(), ElementsAre("Anna", "Bernd"));
    Click("btnClose");
    EXPECT_EQ(Versions(), nullptr);
}

TEST_F(WindowVersions, TheKeyboardAloneWillDo) {
    for (const char* button : {"btnErase", "btnNew"}) {
        Click(button);
        Dialogs.ChooseFile(PathIn("register.t9t"));
        Trigger("mnuDateiLoadNV");
    }
    Trigger("mnuDateiVersions");
    ASSERT_EQ(Table()->rowCount(), 2);
    Versions()->activateWindow();
    ASSERT_TRUE(BecomesActive(*Versions()));
    const auto frames = Versions()->findChildren<QFocusFrame*>();
    ASSERT_EQ(frames.size(), 1);
    EXPECT_EQ(frames.constFirst()->widget(), Table());
    EXPECT_TRUE(
        frames.constFirst()->parentWidget()->rect().contains(frames.constFirst()->geometry()));
    EXPECT_THAT(TabOrder(*Versions()), ElementsAre("ListVersions", "ListNames", "btnLoad",
                                                   "btnSaveAs", "btnRemove", "btnClose"));
    const std::vector<std::string> newest = NamesShown();
    QTest::keyClick(Table(), Qt::Key_Down);
    const std::vector<std::string> older = NamesShown();
    EXPECT_NE(older, newest);
    QTest::keyClick(Table(), Qt::Key_Return);
    EXPECT_EQ(ShownNames(), older);
    QTest::keyClick(Table(), Qt::Key_Delete);
    ASSERT_EQ(Table()->rowCount(), 1);
    EXPECT_EQ(NamesShown(), newest);
    QTest::keyClick(Table(), Qt::Key_Enter);
    EXPECT_EQ(ShownNames(), newest);
    QTest::keyClick(Table(), Qt::Key_Escape);
    EXPECT_EQ(Versions(), nullptr);
}

TEST_F(WindowVersions, ADoubleClickLoads) {
    Click("btnErase");
    Dialogs.ChooseFile(PathIn("register.t9t"));
    Trigger("mnuDateiLoadNV");
    Trigger("mnuDateiVersions");
    const QPoint place = Table()->visualItemRect(Table()->item(0, 0)).center();
    QTest::mouseClick(Table()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(Table()->viewport(), Qt::LeftButton, {}, place);
    EXPECT_THAT(ShownNames(), ElementsAre("Bernd"));
}

TEST_F(WindowVersions, KeepsTheKeyboardBehindItsFileDialog) {
    Click("btnErase");
    Dialogs.ChooseFile(PathIn("register.t9t"));
    Trigger("mnuDateiLoadNV");
    Trigger("mnuDateiVersions");
    Versions()->activateWindow();
    ASSERT_TRUE(BecomesActive(*Versions()));
    Dialogs.Look([this](QDialog& dialog) { EXPECT_EQ(dialog.parentWidget(), Versions()); })
        .Cancel();
    Click("btnSaveAs");
}

TEST_F(WindowVersions, WithoutAVersionOnlyClosingIsPossible) {
    Trigger("mnuDateiVersions");
    EXPECT_EQ(Table()->rowCount(), 0);
    for (const char* name : {"btnLoad", "btnSaveAs", "btnRemove"}) {
        EXPECT_FALSE(Find<QPushButton>(name)->isEnabled()) << name;
    }
    EXPECT_TRUE(Find<QPushButton>("btnClose")->isEnabled());
}

TEST_F(WindowVersions, ASaveKeepsWhatItReplacesAndTheOpenWindowShowsIt) {
    Trigger("mnuDateiVersions");
    Click("btnErase");
    Dialogs.ChooseFile(PathIn("register.t9t"));
    Dialogs.Click(QMessageBox::Yes);
    Trigger("mnuDateiSaveNV");
    EXPECT_EQ(TextOf("Status"), "Gespeichert: " + PathIn("register.t9t").toStdString());
    EXPECT_THAT(Reasons(), ElementsAre("ersetzt"));
    EXPECT_THAT(NamesShown(), ElementsAre("Anna", "Bernd"));
    Dialogs.ChooseFile(PathIn("alt"));
    Click("btnSaveAs");
    EXPECT_EQ(TextOf("Status"), "Gespeichert: " + PathIn("alt.t9t").toStdString());
    EXPECT_EQ(ReadFile(Folder / "alt.t9t"),
              RegisterFile({{.name = "Anna", .tel = "1"}, {.name = "Bernd", .tel = "2"}}));
    Click("btnRemove");
    EXPECT_EQ(Table()->rowCount(), 0);
    EXPECT_THAT(KeptReasons(), IsEmpty());
}

TEST_F(WindowVersions, AFileThatChangedMeanwhileIsTold) {
    Folder.Write("register.t9t", RegisterFile({{.name = "Fremd", .tel = "9"}}));
    Click("btnErase");
    Dialogs.ChooseFile(PathIn("register.t9t"));
    Dialogs.Click(QMessageBox::Yes);
    Trigger("mnuDateiSaveNV");
    EXPECT_EQ(TextOf("Status"), "Gespeichert: " + PathIn("register.t9t").toStdString() +
                                    " (inzwischen geändert; der andere Stand ist aufgehoben)");
}

TEST_F(WindowVersions, ClosingKeepsWhatIsNotSaved) {
    Click("btnErase");
    Dialogs.Click(QMessageBox::Ok);
    Window->close();
    EXPECT_THAT(KeptReasons(), ElementsAre("beim Beenden nicht gesichert"));
    EXPECT_THAT(FilesIn(VersionFolder), SizeIs(1));
}

TEST_F(WindowVersions, TheEndOfTheSessionAsksAndThenClosesWithoutAnotherQuestion) {
    ScriptedSession session;
    Click("btnErase");
    Dialogs.Click(QMessageBox::Cancel);
    EXPECT_FALSE(Window->MayEndSession(session));
    Dialogs.Click(QMessageBox::Ok);
    EXPECT_TRUE(Window->MayEndSession(session));
    EXPECT_THAT(session.Transcript, ElementsAre("ask", "cancel", "ask", "release"));
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(QuitQuestion, QuitQuestion));
    EXPECT_THAT(KeptReasons(), ElementsAre("beim Beenden nicht gesichert"));
    Quit();
    EXPECT_TRUE(Window->close());
    EXPECT_THAT(Dialogs.Transcript, SizeIs(2));
}

TEST_F(WindowVersions, WhereNothingMayBeAskedTheEndOfTheSessionKeepsAll) {
    ScriptedSession session;
    session.Allows = false;
    Click("btnErase");
    EXPECT_TRUE(Window->MayEndSession(session));
    EXPECT_THAT(session.Transcript, ElementsAre("ask"));
    EXPECT_THAT(KeptReasons(), ElementsAre("beim Beenden nicht gesichert"));
    Quit();
    EXPECT_TRUE(Window->close());
}

TEST_F(WindowVersions, TheEndOfTheSessionLeavesNothingBehindWhereNoWindowIsClosed) {
    ScriptedSession session;
    Click("btnErase");
    EXPECT_THAT(FilesIn(VersionFolder), SizeIs(2)) << "the process's own, locked";
    Dialogs.Click(QMessageBox::Cancel);
    EXPECT_FALSE(Window->MayEndSession(session));
    QMetaObject::invokeMethod(qApp, "aboutToQuit");
    EXPECT_THAT(FilesIn(VersionFolder), SizeIs(3)) << "the session goes on";
    Dialogs.Click(QMessageBox::Ok);
    EXPECT_TRUE(Window->MayEndSession(session));
    QMetaObject::invokeMethod(qApp, "aboutToQuit");
    EXPECT_THAT(FilesIn(VersionFolder), SizeIs(1));
    EXPECT_THAT(KeptReasons(), ElementsAre("beim Beenden nicht gesichert"));
}

TEST_F(WindowVersions, TheEndOfTheSessionAsksNothingInTheMidstOfAnOperation) {
    ScriptedSession session;
    Click("btnErase");
    Dialogs
        .Look([&](QDialog&) {
            EXPECT_TRUE(Window->MayEndSession(session));
            Quit();
            EXPECT_FALSE(Window->close());
        })
        .Click(QMessageBox::No);
    Trigger("mnuBearbeitenNullHinzu");
    EXPECT_THAT(session.Transcript, IsEmpty());
    EXPECT_THAT(KeptReasons(), ElementsAre("beim Beenden nicht gesichert"));
    QCoreApplication::processEvents();
    EXPECT_FALSE(Window->isVisible()) << "it closes when the operation has ended";
}

TEST_F(WindowVersions, TheUsersOwnClosingAsksWhenTheSessionDidNotEndAfterAll) {
    ScriptedSession session;
    Click("btnErase");
    Dialogs.Click(QMessageBox::Ok);
    EXPECT_TRUE(Window->MayEndSession(session));
    Dialogs.Click(QMessageBox::Cancel);
    EXPECT_FALSE(Window->close());
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(QuitQuestion, QuitQuestion));
}

TEST_F(WindowVersions, AHardStopKeepsTheRegisterAndTheNextStartTellsOfIt) {
    Click("btnErase");
    Folder.Write("kaputt.t9t", Join({Raw("06 0D 'TStCollection' 02 64 01"),
                                     Raw("02 00 02 01 06 04 'Anna' 07 01 '2'")}));
    Dialogs.ChooseFile(PathIn("kaputt.t9t"));
    Trigger("mnuDateiLoadNV");
    EXPECT_EQ(HardStops, 1);
    Window.reset();
    QApplication::restoreOverrideCursor();  // a process that ended has none
    EXPECT_THAT(KeptReasons(), ElementsAre("Programmabbruch"));
    Open();
    EXPECT_EQ(MenuItem(), "Frühere Stände... •");
    EXPECT_EQ(Find<QLabel>("Status")->toolTip(),
              "Das Programm hat sich an einer beschädigten Datei beendet. Was nicht gesichert war, "
              "steht unter Datei, Frühere Stände.");
    Trigger("mnuDateiVersions");
    EXPECT_EQ(MenuItem(), "Frühere Stände...");
    EXPECT_EQ(Find<QLabel>("Status")->toolTip(), "");
    EXPECT_THAT(NamesShown(), ElementsAre("Bernd"));
    EXPECT_THAT(Dialogs.Transcript, SizeIs(1));
}

TEST_F(WindowVersions, ASignalKeepsTheRegister) {
    Click("btnErase");
    Window->KeepAtSignal();
    EXPECT_THAT(KeptReasons(), ElementsAre("beim Beenden nicht gesichert"));
    Open();
    EXPECT_EQ(MenuItem(), "Frühere Stände... •");
}

}  // namespace
}  // namespace norvik::test
