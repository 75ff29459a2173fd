// What the windows remember of their sizes and places, and where a window stands beside the main
// one.
#include "tests/qt/windowfixture.h"

#include <QScreen>
#include <QSplitter>

#include <fstream>

#include <sys/stat.h>

namespace norvik::test {

namespace {

class WindowMemory : public WindowTest {
  protected:
    WindowMemory() { SettingsFile = Folder / "merkzettel.conf"; }

    void OpenAgain() {
        ASSERT_TRUE(Window->close());
        Window.reset();
        Open();
    }
};

TEST_F(WindowMemory, TheMainWindowComesBackAsItWas) {
    Open();
    Window->setGeometry(60, 50, 700, 500);
    auto* splitter = Find<QSplitter>("Teilung");
    splitter->setSizes({300, 400});
    const QList<int> sizes = splitter->sizes();
    const std::string ini = FileText("norvik.ini");
    OpenAgain();
    EXPECT_EQ(Window->geometry(), QRect(60, 50, 700, 500));
    EXPECT_EQ(Find<QSplitter>("Teilung")->sizes(), sizes);
    EXPECT_EQ(FileText("norvik.ini"), ini);
}

TEST_F(WindowMemory, TheWindowsBesideItComeBackAsTheyWere) {
    Open();
    for (const auto& [item, name] : {std::pair{"mnuListView", "NVList"},
                                     {"mnuListDoubles", "DOUBLES"},
                                     {"mnuDateiVersions", "VERSIONS"}}) {
        Trigger(item);
        Find<QDialog>(name)->setGeometry(20, 70, 600, 444);
    }
    OpenAgain();
    for (const auto& [item, name] : {std::pair{"mnuListView", "NVList"},
                                     {"mnuListDoubles", "DOUBLES"},
                                     {"mnuDateiVersions", "VERSIONS"}}) {
        Trigger(item);
        EXPECT_EQ(Find<QDialog>(name)->geometry(), QRect(20, 70, 600, 444)) << name;
    }
}

TEST_F(WindowMemory, TheDialogsComeBackAsTheyWere) {
    Open();
    for (const char* item : {"mnuDateiHandyexp", "mnuSettingsBasic", "mnuDateiPrint"}) {
        Dialogs.Drive([](QDialog& dialog) { dialog.setGeometry(10, 20, 700, 690); });
        Trigger(item);
        Dialogs.Drive(
            [](QDialog& dialog) { EXPECT_EQ(dialog.geometry(), QRect(10, 20, 700, 690)); });
        Trigger(item);
    }
}

TEST_F(WindowMemory, APlaceBeyondTheScreenIsNone) {
    Open();
    Window->setGeometry(5000, 4000, 700, 500);
    OpenAgain();
    EXPECT_TRUE(Window->screen()->availableGeometry().contains(Window->geometry()));
}

TEST_F(WindowMemory, ADamagedSettingsFileIsNone) {
    Folder.Write("merkzettel.conf",
                 "[Fenster-14]\nMW-Platz=@ByteArray(\\x1\\xd9xx)\nMW-Teilung=1\n");
    Open();
    EXPECT_TRUE(Window->isVisible());
}

#ifndef _WIN32
TEST_F(WindowMemory, WhatCannotBeReadToItsEndIsNone) {
    ASSERT_EQ(mkfifo((Folder / "fifo").c_str(), S_IRUSR | S_IWUSR), 0);
    std::ofstream(Folder / "riese") << "[Dateien]\n";
    std::filesystem::resize_file(Folder / "riese", std::uintmax_t{1} << 40);
    for (const FilePath& file : {Folder / "fifo", FilePath("/dev/zero"), Folder / "riese"}) {
        SettingsFile = file;
        Open();
        EXPECT_TRUE(Window->isVisible());
        EXPECT_TRUE(Window->close());
        Window.reset();
    }
}
#endif

TEST_F(WindowMemory, WithoutASettingsFileNothingIsRemembered) {
    SettingsFile.clear();
    Open();
    const QRect usual = Window->geometry();
    Window->setGeometry(60, 50, 700, 500);
    OpenAgain();
    EXPECT_EQ(Window->geometry(), usual);
}

TEST_F(WindowMemory, ANewWindowStandsBesideTheFieldsAndTheList) {
    Open();
    Window->setGeometry(0, 20, 790, 300);
    QCoreApplication::processEvents();
    Trigger("mnuListView");
    const QRect list = Find<QDialog>("NVList")->frameGeometry();
    EXPECT_TRUE(Window->screen()->availableGeometry().contains(list));
    EXPECT_FALSE(list.intersects(Window->frameGeometry()));
}

}  // namespace

}  // namespace norvik::test
