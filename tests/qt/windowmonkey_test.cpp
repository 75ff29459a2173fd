// The window under random use: a seeded monkey types, pastes, clicks, chooses menu items, loads
// random and broken files, undoes and redoes, loads and removes earlier versions and answers every
// box at random. After each event the register is in order. NORVIK_MONKEY="EVENTS SEEDS FIRST" in
// the environment makes it work longer, from the seed FIRST (else 1) on.
#include "tests/qt/boxwatcher.h"
#include "tests/qt/windowfixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QMenuBar>
#include <QPointer>
#include <QRadioButton>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <sstream>
#include <vector>

namespace norvik::test {
namespace {

using Random = std::mt19937;

int Below(Random& random, int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(std::max(limit, 1)));
}

template <typename Container>
auto& OneOf(Random& random, Container& items) {
    return items[static_cast<std::size_t>(Below(random, static_cast<int>(items.size())))];
}

Bytes RandomBytes(Random& random, int atMost) {
    Bytes bytes(static_cast<std::size_t>(Below(random, atMost + 1)));
    for (Byte& byte : bytes) {
        byte = static_cast<Byte>(random());
    }
    return bytes;
}

QString RandomText(Random& random) {
    static const QString Characters = QStringLiteral("aZ09 +*#;,\"'&<äß€\n\r\tЖ|.-/");
    QString text;
    for (int i = Below(random, 40); i >= 0; --i) {
        text += Characters[Below(random, static_cast<int>(Characters.size()))];
    }
    return text;
}

/// The files that the monkey finds: whole ones of each kind, damaged and random ones.
class Files {
  public:
    Files(const TestFolder& folder, Random& random) : folder_(folder), random_(random) {
        const std::vector<std::pair<const char*, Bytes>> whole = {
            {"a.t9t", RegisterFile({{.name = "Anna", .tel = "0301", .info = "()x", .gebEinh = 9},
                                    {.name = "", .tel = "12", .ton = 200, .ab = 9},
                                    {.name = "M\x81ller", .tel = "+49 30/5", .msnFilter = 0x92}})},
            {"voll.t9t", NumberedRegisterFile(2000)},
            {"leer.t9t", Raw("06 0D 'TStCollection' 02 64 01 00")},
            {"b.pbo", Raw("'norvik 175 phonebook' 0D 0A 'N=Berta' 0D 0A 'P=123' 0D 0A"
                          "'I=x' 0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A")},
            {"c.csv", Raw("'Name;Tel' 0D 0A 'Carla;0301;x' 0D 0A 'Carla;0301;x' 0D 0A ';;' 0D 0A")},
            {"d.t9a", Raw("'12345678901234567890' 02 01 06 0A '0512241830' 06 07 '0301234' 01")},
            {"adressen.csv", Raw("22 'Adler' 22 ',' 22 'Anna' 22 ',' 22 '0301' 22 0D 0A")},
        };
        for (const auto& [name, bytes] : whole) {
            Add(name, bytes);
            for (int i = 0; i < 3; ++i) {
                Add((std::to_string(i) + name).c_str(), Damaged(bytes));
            }
        }
        for (const char* name : {"x.t9t", "x.pbo", "x.csv", "x.t9a"}) {
            Add(name, RandomBytes(random_, 300));
        }
    }

    QString Any() {
        switch (Below(random_, 12)) {
        case 0:
            return Path("fehlt.t9t");
        case 1:
            return Path("ordner.csv/neu");
        case 2:
            return Path("neu" + std::to_string(Below(random_, 3)));
        default:
            return OneOf(random_, paths_);
        }
    }

  private:
    QString Path(const std::string& name) const {
        return QString::fromStdString((folder_ / name).string());
    }
    void Add(const char* name, const Bytes& bytes) {
        folder_.Write(name, bytes);
        paths_.push_back(Path(name));
    }
    Bytes Damaged(Bytes bytes) {
        if (!bytes.empty()) {
            OneOf(random_, bytes) = static_cast<Byte>(random_());
            if (Below(random_, 2) == 0) {
                bytes.resize(static_cast<std::size_t>(
                    Below(random_, std::min(static_cast<int>(bytes.size()), 4000))));
            }
        }
        return bytes;
    }

    const TestFolder& folder_;
    Random& random_;
    std::vector<QString> paths_;
};

class Monkey : public BoxWatcher {
  public:
    Monkey(const TestFolder& folder, unsigned seed) : random_(seed), files_(folder, random_) {}

    /// One event in a window or in whatever lies above it.
    void Act(QWidget& window) {
        switch (Below(random_, 14)) {
        case 0:
        case 1:
        case 2:
            return TypeSomewhere(window);
        case 3:
            return PasteSomewhere(window);
        case 4:
        case 5:
        case 6:
            return ClickSomething(window);
        case 7:
            return ChooseRow(window);
        case 8:
        case 9:
            return ChangeSomething(window);
        case 10:
            return TriggerMenu(window);
        case 11:
            return UndoOrRedo(window);
        case 12:
            return UseVersions(window);
        default:
            return PressKey(window);
        }
    }

    /// Whether it turns to the main window although another one stands beside it.
    bool WorksBelow() { return Below(random_, 2) == 0; }

    static void EndAllMenus() {
        while (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
    }

    int Boxes = 0;

  private:
    template <typename Widget>
    Widget* Any(QWidget& window) {
        QList<Widget*> usable;
        for (Widget* widget : window.findChildren<Widget*>()) {
            if (widget->isVisible() && widget->isEnabled() && widget->window() == &window) {
                usable.push_back(widget);
            }
        }
        return usable.empty() ? nullptr : usable[Below(random_, static_cast<int>(usable.size()))];
    }

    void TypeSomewhere(QWidget& window) {
        if (auto* field = Any<QLineEdit>(window)) {
            field->setFocus(Qt::TabFocusReason);
            TypeText(field, RandomText(random_).left(1 + Below(random_, 4)).remove(u'\n'));
        }
    }

    void PasteSomewhere(QWidget& window) {
        if (auto* field = Any<QLineEdit>(window)) {
            QApplication::clipboard()->setText(RandomText(random_));
            QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
        }
    }

    void ClickSomething(QWidget& window) {
        auto* button = Any<QAbstractButton>(window);
        if (button != nullptr && !window.isModal()) {
            QTest::mouseClick(button, Qt::LeftButton);
        } else if (auto* box = Any<QCheckBox>(window)) {
            box->click();
        }
    }

    void ChooseRow(QWidget& window) {
        auto* list = Any<QAbstractItemView>(window);
        if (list == nullptr) {
            return;
        }
        const QModelIndex row = list->model()->index(Below(random_, list->model()->rowCount()), 0);
        if (row.isValid()) {
            list->scrollTo(row);
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(row).center());
        }
    }

    void ChangeSomething(QWidget& window) {
        if (auto* list = Any<QComboBox>(window); list != nullptr && Below(random_, 2) == 0) {
            list->setCurrentIndex(Below(random_, list->count()));
        } else if (auto* bar = window.findChild<QScrollBar*>("Satzwahl")) {
            bar->setValue(bar->minimum() + Below(random_, bar->maximum() - bar->minimum() + 2));
        }
    }

    void TriggerMenu(QWidget& window) {
        QList<QAction*> usable;
        for (QAction* action : window.findChildren<QAction*>()) {
            if (action->isEnabled() && action->menu() == nullptr &&
                !action->objectName().isEmpty() && !action->objectName().startsWith("qt_")) {
                usable.push_back(action);
            }
        }
        if (!usable.empty()) {
            usable[Below(random_, static_cast<int>(usable.size()))]->trigger();
        }
    }

    void UndoOrRedo(QWidget& window) {
        const bool undo = Below(random_, 3) != 0;
        if (auto* item =
                window.findChild<QAction*>(undo ? "mnuBearbeitenUndo" : "mnuBearbeitenRedo")) {
            for (int i = Below(random_, 4); i >= 0; --i) {
                item->trigger();
            }
        }
    }

    /// Loads, saves or removes an earlier version, or opens and closes their window.
    void UseVersions(QWidget& window) {
        static const std::vector<const char*> Buttons = {"btnLoad",   "btnLoad",   "btnLoad",
                                                         "btnSaveAs", "btnRemove", "btnClose"};
        if (window.objectName() != "VERSIONS") {
            if (auto* item = window.findChild<QAction*>("mnuDateiVersions")) {
                item->trigger();
            }
            return;
        }
        ChooseRow(window);
        QTest::mouseClick(window.findChild<QPushButton*>(OneOf(random_, Buttons)), Qt::LeftButton);
    }

    void PressKey(QWidget& window) {
        static const std::vector<Qt::Key> Keys = {
            Qt::Key_Return, Qt::Key_Down,      Qt::Key_Up,     Qt::Key_Tab,      Qt::Key_Backtab,
            Qt::Key_Home,   Qt::Key_End,       Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete,
            Qt::Key_Insert, Qt::Key_Backspace, Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Space,
            Qt::Key_F3,     Qt::Key_Z,         Qt::Key_Y};
        static const std::vector<Qt::KeyboardModifiers> Modifiers = {
            Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
            Qt::ControlModifier | Qt::ShiftModifier};
        QWidget* target = window.focusWidget() == nullptr ? &window : window.focusWidget();
        QTest::keyClick(target, OneOf(random_, Keys), OneOf(random_, Modifiers));
    }

    /// Works in a dialog and closes it.
    void Answer(const QPointer<QDialog>& dialog) override {
        ++Boxes;
        // What prints is the toolkit's own, and there may be a printer.
        if (dialog->inherits("QAbstractPrintDialog") || dialog->inherits("QPrintPreviewDialog")) {
            dialog->close();
            return;
        }
        EXPECT_FALSE(dialog->findChildren<QPushButton*>().isEmpty())
            << "a box without a button: " << dialog->windowTitle().toStdString();
        if (auto* file = qobject_cast<QFileDialog*>(dialog)) {
            file->findChild<QLineEdit*>("fileNameEdit")->setText(files_.Any());
        } else if (dialog->objectName() == "NVHE" || dialog->objectName() == "NVSET") {
            for (int i = Below(random_, 8); i > 0 && dialog != nullptr; --i) {
                Act(*dialog);
            }
        } else if (auto* input = dialog->findChild<QLineEdit*>()) {
            input->setText(RandomText(random_).left(1 + Below(random_, 6)));
        }
        if (dialog != nullptr && dialog->isVisible() && Below(random_, 8) != 0) {
            QTest::mouseClick(Any<QPushButton>(*dialog), Qt::LeftButton);
        }
        if (dialog != nullptr && dialog->isVisible()) {
            dialog->close();
        }
        if (dialog != nullptr && dialog->isVisible()) {
            dialog->done(QDialog::Rejected);
        }
    }

    Random random_;
    Files files_;
};

class WindowMonkey : public testing::Test {
  protected:
    void Open() {
        Window = std::make_unique<MainWindow>(
            Folder.Path(), [this] { ++HardStops; }, FilePath(), Folder / "staende");
        Window->show();
        Window->Start("/g0,12");
    }

    void ExpectOrder() const {
        const RegisterState& state = Window->State();
        const auto* selector = Window->findChild<QScrollBar*>("Satzwahl");
        ASSERT_GE(state.AnzGes, 0);
        ASSERT_LE(state.AnzGes, RegisterPlaces);
        ASSERT_EQ(selector->minimum(), 1);
        ASSERT_EQ(selector->maximum(), std::max(1, state.AnzGes));
        std::vector<bool> seen(RegisterPlaces + 1);
        for (int position = 1; position <= state.AnzGes; ++position) {
            const int place = state.RegisterOrder(position);
            ASSERT_TRUE(place >= 1 && place <= RegisterPlaces) << position;
            ASSERT_FALSE(seen[static_cast<std::size_t>(place)]) << "stands twice: " << place;
            seen[static_cast<std::size_t>(place)] = true;
        }
    }

    void ActOnce(Monkey& monkey) {
        if (Window == nullptr || HardStops > 0) {
            Runs += std::exchange(HardStops, 0);
            Window.reset();
            Open();
        }
        if (!Window->isVisible()) {
            Window->show();
        }
        QWidget* above = QApplication::activeWindow();
        const bool reachable = above == nullptr || !above->isModal();
        monkey.Act(above == nullptr || (reachable && monkey.WorksBelow()) ? *Window : *above);
        Monkey::EndAllMenus();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (HardStops == 0) {
            ExpectOrder();
        }
    }

    void Run(unsigned seed, int events) {
        Monkey monkey(Folder, seed);
        Window.reset();
        Runs = 0;
        for (int event = 0; event < events && !HasFailure(); ++event) {
            SCOPED_TRACE("seed " + std::to_string(seed) + " event " + std::to_string(event));
            ActOnce(monkey);
        }
        std::printf("seed %u: %d events, %d boxes, %d hard stops\n", seed, events, monkey.Boxes,
                    Runs + std::exchange(HardStops, 0));
        std::fflush(stdout);
        while (QApplication::overrideCursor() != nullptr) {  // a hard stop leaves the hourglass
            QApplication::restoreOverrideCursor();
        }
    }

    TestFolder Folder;
    std::unique_ptr<MainWindow> Window;
    int HardStops = 0;
    /// Those of the windows before.
    int Runs = 0;
};

TEST_F(WindowMonkey, FindsNothing) {
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "");  // no document is opened
    int events = 700;
    unsigned seeds = 1;
    unsigned first = 1;
    if (const char* wanted = std::getenv("NORVIK_MONKEY")) {
        std::istringstream(wanted) >> events >> seeds >> first;
    }
    for (unsigned seed = first; seed < first + seeds; ++seed) {
        Run(seed, events);
    }
    qputenv("PATH", path);
}

}  // namespace
}  // namespace norvik::test
