// Whether the windows fit on small screens and with large texts: no button beyond the screen but in
// a part that scrolls, no text cut.
#include "qt/textconversion.h"
#include "tests/qt/windowfixture.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QProcessEnvironment>
#include <QScreen>
#include <QScrollArea>

namespace norvik::test {

namespace {

using testing::SizeIs;

bool Scrolls(const QWidget& widget, const QWidget& window) {
    for (const QWidget* part = &widget; part != &window; part = part->parentWidget()) {
        if (qobject_cast<const QScrollArea*>(part) != nullptr) {
            return true;
        }
    }
    return false;
}

bool HasText(const QWidget& widget) {
    return widget.inherits("QAbstractButton") || widget.inherits("QLabel") ||
           widget.inherits("QComboBox") || widget.inherits("QGroupBox") ||
           widget.inherits("QLineEdit");
}

std::string Described(const QWidget& widget) {
    return std::string(widget.metaObject()->className()) + ' ' + widget.objectName().toStdString() +
           ' ' + widget.accessibleName().toStdString();
}

/// The part of `widgets` that is seen without another window.
std::vector<QWidget*> PartsOf(const QWidget& window) {
    std::vector<QWidget*> parts;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisibleTo(&window) && widget->window() == &window) {
            parts.push_back(widget);
        }
    }
    return parts;
}

void ExpectOnScreen(const QWidget& window) {
    QCoreApplication::processEvents();  // lays out the parts that scroll
    const QRect screen = window.screen()->availableGeometry();
    EXPECT_LE(window.width(), screen.width());
    EXPECT_LE(window.height(), screen.height());
    for (const QWidget* widget : PartsOf(window)) {
        if (widget->inherits("QPushButton") && !Scrolls(*widget, window)) {
            EXPECT_TRUE(
                window.rect().contains(QRect(widget->mapTo(&window, QPoint()), widget->size())))
                << Described(*widget);
        }
    }
}

void ExpectFits(const QWidget& window) {
    ExpectOnScreen(window);
    for (const QWidget* widget : PartsOf(window)) {
        // What has less room shows how its text goes on.
        if (HasText(*widget) && widget->sizePolicy().horizontalPolicy() != QSizePolicy::Ignored) {
            EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << Described(*widget);
            EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << Described(*widget);
        }
    }
}

class WindowFit : public WindowTest {
  protected:
    WindowFit() {
        VersionFolder = Folder / "staende";
        Load({{.name = "Anna", .tel = "1", .gebEinh = 3},
              {.name = "Wolfgang-Wilhelm", .tel = "1", .info = "()"}});
    }

    /// Looks at what an item of the menu opens, which one answer closes.
    void Shows(const QString& item, const std::function<void()>& answer) {
        Dialogs.Look([](QDialog& dialog) { ExpectFits(dialog); });
        answer();
        Trigger(item);
        EXPECT_THAT(Dialogs.Transcript, SizeIs(1));
    }
};

TEST_F(WindowFit, TheMainWindow) {
    ExpectFits(*Window);
}

TEST_F(WindowFit, TheMenusInOneColumn) {
    for (const QAction* title : Window->menuBar()->actions()) {
        QMenu* const menu = title->menu();
        menu->popup(Window->mapToGlobal(QPoint()));
        ExpectOnScreen(*menu);
        for (QAction* item : menu->actions()) {
            EXPECT_EQ(menu->actionGeometry(item).left(),
                      menu->actionGeometry(menu->actions().constFirst()).left())
                << item->objectName().toStdString();
        }
        menu->close();
    }
}

TEST_F(WindowFit, TheMobileExport) {
    Shows("mnuDateiHandyexp", [this] { Dialogs.Drive([](QDialog&) {}); });
}

TEST_F(WindowFit, ThePhoneList) {
    Shows("mnuDateiPrint", [this] { Dialogs.Drive([](QDialog&) {}); });
}

TEST_F(WindowFit, TheSettings) {
    Shows("mnuSettingsBasic", [this] { Dialogs.Drive([](QDialog&) {}); });
}

TEST_F(WindowFit, TheWindowsBesideIt) {
    for (const auto& [item, window] : {std::pair{"mnuListView", "NVList"},
                                       {"mnuListDoubles", "DOUBLES"},
                                       {"mnuDateiVersions", "VERSIONS"}}) {
        Trigger(item);
        ExpectFits(*Find<QDialog>(window));
    }
}

TEST_F(WindowFit, TheBoxes) {
    Shows("mnuGebDelete", [this] { Dialogs.Click(QMessageBox::Cancel); });
}

TEST_F(WindowFit, TheAboutBoxes) {
    Dialogs.Look([](QDialog& box) { ExpectFits(box); }).Click(QMessageBox::Yes);
    Dialogs.Look([](QDialog& box) { ExpectFits(box); }).Click(QMessageBox::Ok);
    Trigger("mnuHilfeAbout");
}

TEST_F(WindowFit, ABoxOfManyLines) {
    std::vector<FileRecord> records(40, {.name = "Anna", .tel = "1", .ab = 99});
    Folder.Write("viele.t9t", RegisterFile(records));
    Dialogs.ChooseFile(PathIn("viele.t9t"));
    Dialogs.Look([](QDialog& box) { ExpectFits(box); }).Click(QMessageBox::Ok);
    Trigger("mnuDateiLoadNV");
}

TEST_F(WindowFit, TheInputBox) {
    Dialogs.Look([](QDialog& box) { ExpectFits(box); }).Cancel();
    Click("btnSearch");
}

TEST_F(WindowFit, TheFileDialog) {
    Dialogs.Look([](QDialog& dialog) { ExpectOnScreen(dialog); }).Cancel();
    Trigger("mnuDateiLoadNV");
}

/// A screen: its size, the scale and the size of its texts.
struct Screen {
    int width;
    int height;
    double scale;
    int dpi;
};

/// The narrowest in each way; scripts/fit_table.py looks at all of them.
class SmallScreens : public testing::TestWithParam<Screen> {};

INSTANTIATE_TEST_SUITE_P(Sizes, SmallScreens,
                         testing::Values(Screen{1024, 600, 2, 96}, Screen{1024, 600, 1, 192},
                                         Screen{1920, 1080, 1.25, 96}),
                         [](const auto& screen) {
                             return std::to_string(screen.param.width) + "x" +
                                    std::to_string(static_cast<int>(screen.param.scale * 100)) +
                                    "dpi" + std::to_string(screen.param.dpi);
                         });

TEST_P(SmallScreens, AllOfThemFit) {
    // A screen's size and texts are fixed when a process begins.
    const Screen& screen = GetParam();
    const TestFolder folder;
    const QString config =
        QString(R"({"screens":[{"name":"s","x":0,"y":0,"width":%1,"height":%2,"logicalDpi":%3,)"
                R"("logicalBaseDpi":%4,"dpr":1}]})")
            .arg(screen.width)
            .arg(screen.height)
            .arg(static_cast<int>(screen.dpi * screen.scale))
            .arg(screen.dpi);
    folder.Write("screen.json", config.toStdString());
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // The path is one without a drive: colons part the words.
    environment.insert("QT_QPA_PLATFORM", "offscreen:configfile=screen.json");
    process.setWorkingDirectory(FromFilePath(folder.Path()));
    for (const char* unwanted :
         {"GTEST_TOTAL_SHARDS", "GTEST_SHARD_INDEX", "GTEST_SHARD_STATUS_FILE"}) {
        environment.remove(unwanted);
    }
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {"--gtest_filter=WindowFit.*", "--gtest_brief=1"});
    constexpr int LongestRun = 120'000;  // milliseconds
    ASSERT_TRUE(process.waitForFinished(LongestRun));
    EXPECT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
}

}  // namespace

}  // namespace norvik::test
