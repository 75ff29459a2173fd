// Files as people handle them: the last ones, dropped ones, and where the file dialogs begin.
#include "base/platform.h"
#include "qt/application.h"
#include "qt/icons.h"
#include "qt/textconversion.h"
#include "tests/qt/windowfixture.h"

#include <QApplication>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QMenu>
#include <QMimeData>
#include <QSysInfo>
#include <QTreeView>
#include <QUrl>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class WindowFiles : public WindowTest {
  protected:
    WindowFiles() {
        SettingsFile = Folder / "config/norvik/fenster.ini";
        VersionFolder = Folder / "staende";
        Write("a/anna.t9t", {{.name = "Anna", .tel = "1"}});
        Write("b/bernd.t9t", {{.name = "Bernd", .tel = "2"}});
        Folder.Write("c/carla.csv", "Name;Tel\r\nCarla;3\r\n");
    }

    void Write(const char* name, const std::vector<FileRecord>& records) {
        Folder.Write(platform::PathOfUtf8(name), RegisterFile(records));
    }
    void LoadFile(const char* name) {
        Dialogs.ChooseFile(PathIn(name));
        Trigger("mnuDateiLoadNV");
    }

    QMenu* Recent() const { return Find<QMenu>("mnuDateiRecent"); }
    std::vector<std::string> RecentCaptions() const {
        std::vector<std::string> captions;
        for (const QAction* action : Recent()->actions()) {
            captions.push_back(action->text().toStdString());
        }
        return captions;
    }
    std::string Caption(int place, const char* name) const {
        const FilePath path = ToFilePath(PathIn(name));
        return "&" + std::to_string(place) + " " + path.filename().string() + " – " +
               path.parent_path().string();
    }
    void ChooseRecent(int place) {
        Trigger(QString("mnuDateiRecent(%1)").arg(place - 1));
        QCoreApplication::processEvents();
        Activate();
    }

    /// Drags the files onto a widget and drops them there. Gives whether they were taken.
    bool Drop(QWidget* target, const QStringList& names, Qt::KeyboardModifiers modifiers = {}) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& name : names) {
            urls << (name.contains(":") ? QUrl(name)
                                        : QUrl::fromLocalFile(PathIn(name.toUtf8().constData())));
        }
        data.setUrls(urls);
        data.setText(names.join('\n'));
        const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
        const QPoint place = target->rect().center();
        QDragEnterEvent enter(place, actions, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(target, &enter);
        if (!enter.isAccepted()) {
            return false;
        }
        QDragMoveEvent move(place, actions, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(target, &move);
        QDropEvent drop(place, actions, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(target, &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
        QCoreApplication::processEvents();
        Activate();
        return drop.isAccepted();
    }

    /// The folder in which the dialog of a menu item begins.
    std::string FolderOf(const char* item) {
        std::string folder;
        Dialogs
            .Look([&folder](QDialog& dialog) {
                folder = dynamic_cast<QFileDialog&>(dialog).directory().path().toStdString();
            })
            .Cancel();
        Trigger(item);
        return folder;
    }
};

TEST_F(WindowFiles, WithoutALastFileTheMenuIsGrey) {
    Open();
    EXPECT_FALSE(Recent()->isEnabled());
    EXPECT_THAT(RecentCaptions(), IsEmpty());
}

TEST_F(WindowFiles, TheMenuStandsInAGroupOfItsOwnInFrontOfTheVersions) {
    Open();
    const QList<QAction*> actions = Find<QMenu>("mnuDatei")->actions();
    const auto place = actions.indexOf(Recent()->menuAction());
    ASSERT_GT(place, 0);
    EXPECT_TRUE(actions.at(place - 1)->isSeparator());
    EXPECT_TRUE(actions.at(place + 1)->isSeparator());
    EXPECT_EQ(actions.at(place + 2)->objectName(), "mnuDateiVersions");
    EXPECT_EQ(Recent()->title(), "Zule&tzt geöffnet");
}

TEST_F(WindowFiles, LoadedAndSavedFilesStandInTheMenuTheNewestFirst) {
    Open();
    LoadFile("a/anna.t9t");
    EXPECT_TRUE(Recent()->isEnabled());
    LoadFile("b/bernd.t9t");
    Dialogs.ChooseFile(PathIn("a/neu"));
    Trigger("mnuDateiSave175");
    Dialogs.ChooseFile(PathIn("a/neu"));
    Trigger("mnuDateiSaveVCard");
    EXPECT_THAT(RecentCaptions(), ElementsAre(Caption(1, "a/neu.vcf"), Caption(2, "a/neu.pbo"),
                                              Caption(3, "b/bernd.t9t"), Caption(4, "a/anna.t9t")));
}

TEST_F(WindowFiles, ExportsAndFailedSavesDoNot) {
    Open();
    LoadFile("a/anna.t9t");
    Dialogs.ChooseFile(PathIn("a/telefon")).Type("").Click(QMessageBox::Ok);
    Trigger("mnuDateiSaveIP286");
    Dialogs.ChooseFile(PathIn("fehlt/neu"));
    Trigger("mnuDateiSaveNV");
    EXPECT_THAT(RecentCaptions(), ElementsAre(Caption(1, "a/anna.t9t")));
}

TEST_F(WindowFiles, AChosenOneIsLoadedLikeByItsItem) {
    Open();
    LoadFile("a/anna.t9t");
    Dialogs.ChooseFile(PathIn("c/carla.csv"));
    Trigger("mnuDateiLoadCSV");
    Dialogs.Transcript.clear();
    ChooseRecent(2);
    EXPECT_EQ(TextOfField(0), "Anna");
    EXPECT_EQ(TextOf("AnzQuelle"), "195");
    ChooseRecent(2);
    EXPECT_EQ(TextOf("AnzQuelle"), "CSV");
    EXPECT_EQ(TextOfField(0), "Carla");
    EXPECT_THAT(RecentCaptions(), ElementsAre(Caption(1, "c/carla.csv"), Caption(2, "a/anna.t9t")));
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
    EXPECT_EQ(WithoutMnemonic(Find<QAction>("mnuBearbeitenUndo")->text()).toStdString(),
              "Rückgängig: CSV laden");
}

TEST_F(WindowFiles, AMissingOneSaysSoAndGoes) {
    Open();
    LoadFile("a/anna.t9t");
    LoadFile("b/bernd.t9t");
    std::filesystem::remove(Folder / "a/anna.t9t");
    Dialogs.Transcript.clear();
    Dialogs.Click(QMessageBox::Ok);
    ChooseRecent(2);
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OkBox(PathIn("a/anna.t9t") + " ist nicht mehr da",
                                                      "Zuletzt geöffnet", "Exclamation")));
    EXPECT_THAT(RecentCaptions(), ElementsAre(Caption(1, "b/bernd.t9t")));
    EXPECT_EQ(TextOfField(0), "Bernd");
}

TEST_F(WindowFiles, TheyAreRememberedFromOneRunToTheNext) {
    Open();
    LoadFile("a/anna.t9t");
    Write("ä & ö/ß, 1.t9t", {{.name = "Otto", .tel = "4"}});
    LoadFile("ä & ö/ß, 1.t9t");
    const std::vector<std::string> before = RecentCaptions();
    Window.reset();
    Open();
    EXPECT_THAT(before, SizeIs(2));
    EXPECT_EQ(RecentCaptions(), before);
    EXPECT_EQ(FolderOf("mnuDateiLoadNV"), QDir(PathIn("ä & ö")).path().toStdString());
    ChooseRecent(1);
    EXPECT_EQ(TextOfField(0), "Otto");
}

TEST_F(WindowFiles, WithoutASettingsFileNothingIsWrittenAndABrokenOneDoesNotHurt) {
    Folder.Write("config/norvik/fenster.ini", "\x00\xFF[[[Zuletzt=@Variant(\x01");
    Open();
    EXPECT_THAT(RecentCaptions(), IsEmpty());
    LoadFile("a/anna.t9t");
    EXPECT_THAT(RecentCaptions(), SizeIs(1));
    Window.reset();
    std::filesystem::remove_all(Folder / "config");
    SettingsFile.clear();
    Open();
    LoadFile("a/anna.t9t");
    EXPECT_THAT(RecentCaptions(), SizeIs(1));
    EXPECT_FALSE(std::filesystem::exists(Folder / "config"));
}

TEST_F(WindowFiles, ADialogBeginsWhereTheUserWasLast) {
    Open();
    LoadFile("a/anna.t9t");
    EXPECT_EQ(FolderOf("mnuDateiLoadNV"), QDir(PathIn("a")).path().toStdString());
    Dialogs.ChooseFile(PathIn("c/telefon")).Type("").Click(QMessageBox::Ok);
    Trigger("mnuDateiSaveIP286");
    EXPECT_EQ(FolderOf("mnuDateiLoadNV"), QDir(PathIn("c")).path().toStdString());
    // A save is for the folder of the current file.
    EXPECT_EQ(FolderOf("mnuDateiSaveNV"), QDir(PathIn("a")).path().toStdString());
    ChooseRecent(1);
    EXPECT_EQ(FolderOf("mnuDateiLoadCSV"), QDir(PathIn("a")).path().toStdString());
}

TEST_F(WindowFiles, AStartFilesFolderGoesBeforeTheRememberedOne) {
    Open();
    LoadFile("b/bernd.t9t");
    Window.reset();
    Make();
    Window->Start({}, ToFilePath(PathIn("a/anna.t9t")));
    EXPECT_EQ(FolderOf("mnuDateiLoadNV"), QDir(PathIn("a")).path().toStdString());
    EXPECT_THAT(RecentCaptions(), ElementsAre(Caption(1, "a/anna.t9t"), Caption(2, "b/bernd.t9t")));
}

TEST_F(WindowFiles, AFolderThatIsGoneIsNotMissed) {
    Open();
    LoadFile("a/anna.t9t");
    std::filesystem::remove_all(Folder / "a");
    EXPECT_NE(FolderOf("mnuDateiLoadNV"), QDir(PathIn("a")).path().toStdString());
}

TEST_F(WindowFiles, ATypedFolderIsOpenedAndTheNameIsEmptyThen) {
    Open();
    for (const char* item : {"mnuDateiLoadNV", "mnuDateiSaveNV"}) {
        Dialogs.DriveToItsEnd([this](QDialog& dialog) {
            auto& files = dynamic_cast<QFileDialog&>(dialog);
            auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
            files.setDirectory(PathIn("a"));
            name->setText(PathIn("b"));
            name->setFocus();
            name->completer()->popup()->show();
            QTest::keyClick(name, Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(files.directory(), QDir(PathIn("b")));
            EXPECT_EQ(name->text(), "");
            EXPECT_FALSE(name->completer()->popup()->isVisible());
            files.setDirectory(PathIn("."));
            name->setText("c");
            QTest::keyClick(name, Qt::Key_Return);
            EXPECT_EQ(files.directory(), QDir(PathIn("c")));
            EXPECT_EQ(name->text(), "");
            dialog.reject();
        });
        Trigger(item);
    }
}

TEST_F(WindowFiles, ThePlacesAndHeadingsOfTheDialogAreNotCut) {
    Open();
    Dialogs
        .Look([](QDialog& dialog) {
            const auto* places = dialog.findChild<QListView*>("sidebar");
            ASSERT_NE(places, nullptr);
            EXPECT_GE(places->viewport()->width(), places->sizeHintForColumn(0));
            const QHeaderView* header = dialog.findChild<QTreeView*>("treeView")->header();
            for (int column = 0; column < header->count(); ++column) {
                EXPECT_GE(header->sectionSize(column), header->sectionSizeHint(column));
            }
            EXPECT_LE(header->length(), header->parentWidget()->width());
        })
        .Cancel();
    Trigger("mnuDateiLoadNV");
}

TEST_F(WindowFiles, ADroppedFileIsLoadedWhereverItFalls) {
    Open();
    for (const char* target :
         {"MW", "Anzeigefeld(0)", "Anzeigefeld(6)", "TelRegListe", "DDTon", "btnNew", "Status"}) {
        QWidget* widget = target == std::string("MW") ? Window.get() : Find<QWidget>(target);
        EXPECT_TRUE(Drop(widget, {"a/anna.t9t"})) << target;
        EXPECT_EQ(TextOfField(0), "Anna") << target;
        EXPECT_TRUE(Drop(widget, {"c/carla.csv"})) << target;
        EXPECT_EQ(TextOfField(0), "Carla") << target;
    }
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
    EXPECT_THAT(RecentCaptions(), SizeIs(2));
}

TEST_F(WindowFiles, OfSeveralDroppedFilesTheFirstIsLoaded) {
    Open();
    EXPECT_TRUE(Drop(Window.get(), {"b/bernd.t9t", "a/anna.t9t"}));
    EXPECT_EQ(TextOfField(0), "Bernd");
    EXPECT_EQ(TextOf("Status"), "Von 2 Dateien wurde nur die erste genommen: bernd.t9t");
}

TEST_F(WindowFiles, WithCtrlADroppedFileIsAdded) {
    Open();
    LoadFile("a/anna.t9t");
    EXPECT_TRUE(Drop(Window.get(), {"c/carla.csv"}, Qt::ControlModifier));
    EXPECT_EQ(TextOf("AnzGes"), "2");
    EXPECT_EQ(TextOf("AnzQuelle"), "195");
    EXPECT_EQ(TextOf("Status"), "1 Eintrag dazugeladen");
}

TEST_F(WindowFiles, AFileOfThisMachineMayNameIt) {
    Open();
    for (const QString& host : {QString("localhost"), QSysInfo::machineHostName()}) {
        LoadFile("b/bernd.t9t");
        EXPECT_TRUE(Drop(Window.get(),
                         {"file://" + host + QUrl::fromLocalFile(PathIn("a/anna.t9t")).path()}));
        EXPECT_EQ(TextOfField(0), "Anna");
    }
    EXPECT_THAT(Dialogs.Transcript, SizeIs(2));
}

TEST_F(WindowFiles, AFileWhoseNameIsNoTextIsLoadedAndRemembered) {
    Write("a/\xFF%.t9t", {{.name = "Anna", .tel = "1"}});
    Open();
    EXPECT_TRUE(Drop(Window.get(), {"file://" + PathIn("a/") + "%FF%25.t9t"}));
    EXPECT_EQ(TextOfField(0), "Anna");
    Window.reset();
    Make();
    Window->Start({}, {});
    EXPECT_EQ(TextOf("AnzGes"), "1");
    EXPECT_EQ(TextOfField(0), "");
    ChooseRecent(1);
    EXPECT_EQ(TextOfField(0), "Anna");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowFiles, WhatIsNoFileOfThisMachineIsNotTaken) {
    Open();
    EXPECT_FALSE(Drop(Window.get(), {"file://elsewhere.invalid" + PathIn("a/anna.t9t")}));
    EXPECT_FALSE(Drop(Window.get(), {"file://" + PathIn("a/anna.t9t") + "%00.t9t"}));
    EXPECT_FALSE(Drop(Window.get(), {"https://example.org/a.t9t"}));
    EXPECT_FALSE(Drop(Window.get(), {}));
    EXPECT_EQ(TextOf("AnzGes"), "1");
}

TEST_F(WindowFiles, ATextIsStillDroppedIntoAField) {
    Open();
    QMimeData data;
    data.setText("Otto");
    const QPoint place(4, 4);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(Field(0), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(Field(0), &drop);
    EXPECT_EQ(TextOfField(0), "Otto");
}

TEST_F(WindowFiles, TheWindowHasAnIconOfItsOwn) {
    Open();
    const QIcon icon = Window->windowIcon();
    for (const int side : {16, 32, 48, 128}) {
        EXPECT_EQ(icon.actualSize(QSize(side, side)), QSize(side, side));
        EXPECT_NE(icon.pixmap(side, side).toImage().pixelColor(side / 2, side * 2 / 3).alpha(), 0);
    }
}

TEST_F(WindowFiles, MenuItemsHaveTheIconsOfTheDesktopsTheme) {
    EXPECT_TRUE(MenuIcon("mnuDateiLoadCSV").isNull());
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::red);
    const QString theme = PathIn("icons/probe");
    Folder.Write("icons/probe/index.theme",
                 "[Icon Theme]\nName=probe\nDirectories=16\n[16]\nSize=16\n");
    std::filesystem::create_directory(Folder / "icons/probe/16");
    ASSERT_TRUE(image.save(theme + "/16/document-open.png"));
    const QStringList paths = QIcon::themeSearchPaths();
    const QString before = QIcon::themeName();
    QIcon::setThemeSearchPaths({PathIn("icons")});
    QIcon::setThemeName("probe");
    Open();
    EXPECT_FALSE(Find<QAction>("mnuDateiLoadNV")->icon().isNull());
    EXPECT_TRUE(Find<QAction>("mnuDateiSaveNV")->icon().isNull());
    EXPECT_TRUE(Find<QAction>("mnuDateiLoadCSV")->icon().isNull());
    QIcon::setThemeName(before);
    QIcon::setThemeSearchPaths(paths);
}

}  // namespace

}  // namespace norvik::test
