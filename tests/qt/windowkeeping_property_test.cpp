// The real window under random use, with damaged files, targets that cannot be written, hard stops,
// signals and kills: what was ever stored and not erased by the user stands somewhere.
#include "mainwindow/keeping.h"
#include "tests/mainwindow/randomuser.h"
#include "tests/qt/boxwatcher.h"
#include "tests/qt/windowfixture.h"
#include "tests/support/builders.h"
#include "tests/support/ledger.h"
#include "tests/support/sequences.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QPointer>
#include <QTableWidget>

#include <iterator>
#include <map>

namespace norvik::test {
namespace {

/// Answers whatever stands above the window.
class RandomAnswers : public BoxWatcher {
  public:
    RandomAnswers(const TestFolder& folder, Random& random) : folder_(folder), random_(random) {}

    std::string Story;  ///< boxes, files and answers

  private:
    void Answer(const QPointer<QDialog>& dialog) override {
        if (auto* file = qobject_cast<QFileDialog*>(dialog)) {
            ChooseFile(*file);
        } else {
            if (auto* input = dialog->findChild<QLineEdit*>()) {
                static const std::vector<const char*> Texts = {"", "0", "7"};
                input->setText(OneOf(random_, Texts));
            }
            ClickAny(*dialog);
        }
        if (dialog != nullptr && dialog->isVisible()) {
            dialog->done(QDialog::Rejected);
        }
    }

    void ChooseFile(QFileDialog& dialog) {
        const bool saves = dialog.acceptMode() == QFileDialog::AcceptSave;
        static const std::vector<std::string> Targets = {
            "a", "a", "b", "c", "a.t9t", "hart.t9t", "weich.csv", "fehlt/d", "voll.t9t"};
        const std::vector<std::string> sources = FilesIn(folder_.Path());
        const std::string& name = saves ? OneOf(random_, Targets) : OneOf(random_, sources);
        Story += (saves ? " save " : " open ") + name;
        dialog.findChild<QLineEdit*>("fileNameEdit")
            ->setText(QString::fromStdString((folder_ / name).string()));
        const auto button = saves ? QDialogButtonBox::Save : QDialogButtonBox::Open;
        QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
    }

    void ClickAny(QDialog& dialog) {
        QList<QPushButton*> buttons;
        for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
            if (button->isVisible() && button->isEnabled()) {
                buttons.push_back(button);
            }
        }
        if (!buttons.empty()) {
            auto* button = buttons.at(static_cast<int>(random_() % unsigned(buttons.size())));
            Story += " {" + dialog.windowTitle().toStdString() + "}->" +
                     WithoutMnemonic(button->text()).toStdString();
            QTest::mouseClick(button, Qt::LeftButton);
        }
    }

    const TestFolder& folder_;
    Random& random_;
};

class WindowSequence {
  public:
    WindowSequence(const TestFolder& folder, unsigned seed)
        : folder_(folder), random_(seed), answers_(folder, random_) {
        WriteFilesToLoad(folder);
        folder.Write("programm/norvik.ini", "[common]\r\nUnit=0,12\r\n[end]\r\n");
        Open();
    }

    /// What went wrong, or nothing.
    std::string Run(int operations) {
        for (int i = 0; i < operations && finding_.empty(); ++i) {
            Operate();
        }
        Check("at the end", UndoableEntries());
        return finding_.empty() ? "" : finding_ + "\n" + story_;
    }

  private:
    struct Act {
        const char* Name;
        unsigned Weight;
        std::function<void(WindowSequence&)> Do;
    };

    static const std::vector<Act>& Acts();
    static const Act& AnyAct(Random& random);

    template <typename Widget>
    Widget* Find(const char* name) const {
        auto* widget = window_->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    // What the user does.
    void Click(const char* button) { Find<QAbstractButton>(button)->click(); }
    void Trigger(const char* item) {
        if (Find<QAction>(item)->isEnabled()) {
            Find<QAction>(item)->trigger();
        }
    }
    void TakeBack(const char* item) {
        takesBack_ = true;
        Trigger(item);
    }
    void Type();
    void Store() { Type(), Click("btnSaveChange"); }
    void ChooseRow();
    void Versions(const char* button);
    void RemoveVersion();

    void Open();
    void Operate();
    void Follow(const EntrySet& before, bool loaded);
    /// Ends the process and starts another.
    void End(const char* how);
    [[nodiscard]] EntrySet Shown() const { return EntriesOf(window_->State()); }
    EntrySet UndoableEntries();
    void Check(const char* when, EntrySet standing = {});

    const TestFolder& folder_;
    Random random_;
    RandomAnswers answers_;
    FileReader reader_;
    Ledger ledger_;
    std::unique_ptr<MainWindow> window_;
    EntrySet gone_;  ///< what stood in a version that the user removed
    bool takesBack_ = false;
    bool hardStop_ = false;
    bool ends_ = false;
    int number_ = 0;
    std::string story_;
    std::string finding_;
};

const std::vector<WindowSequence::Act>& WindowSequence::Acts() {
    const auto menu = [](const char* name, unsigned weight) {
        return Act{name, weight, [name](WindowSequence& s) { s.Trigger(name); }};
    };
    const auto versions = [](const char* button, unsigned weight) {
        return Act{button, weight, [button](WindowSequence& s) { s.Versions(button); }};
    };
    static const std::vector<Act> Acts = {
        {"new", 1, [](WindowSequence& s) { s.Click("btnNew"); }},
        {"append", 6, [](WindowSequence& s) { s.Click("btnNew"), s.Store(); }},
        {"store", 3, [](WindowSequence& s) { s.Store(); }},
        {"erase", 2, [](WindowSequence& s) { s.Click("btnErase"); }},
        {"type", 2, [](WindowSequence& s) { s.Type(); }},
        {"row", 3, [](WindowSequence& s) { s.ChooseRow(); }},
        {"mark", 2, [](WindowSequence& s) { s.Click("chkExport"); }},
        menu("mnuBearbeitenNullHinzu", 1),
        menu("mnuBearbeitenKillMSN", 1),
        menu("mnuGebDelete", 1),
        menu("mnuDateiLoadNV", 4),
        menu("mnuDateiLoad175", 2),
        menu("mnuDateiLoadCSV", 2),
        menu("mnuDateiSaveNV", 4),
        menu("MNUDateiSave193", 2),
        menu("mnuDateiSave175", 2),
        menu("mnuDateiSaveCSV", 2),
        menu("mnuDateiSaveIP286", 1),
        menu("mnuGebAuszug", 1),
        {"undo", 5, [](WindowSequence& s) { s.TakeBack("mnuBearbeitenUndo"); }},
        {"redo", 3, [](WindowSequence& s) { s.TakeBack("mnuBearbeitenRedo"); }},
        versions("btnLoad", 3),
        versions("btnSaveAs", 1),
        {"remove version", 1, [](WindowSequence& s) { s.RemoveVersion(); }},
        {"damage", 1, [](WindowSequence& s) { DamageAFile(s.folder_, s.random_, s.number_++); }},
        {"close", 2, [](WindowSequence& s) { s.ends_ = s.window_->close(); }},
        {"signal", 1, [](WindowSequence& s) { s.window_->KeepAtSignal(), s.ends_ = true; }},
        {"kill", 2, [](WindowSequence& s) { s.ends_ = true; }},
    };
    return Acts;
}

const WindowSequence::Act& WindowSequence::AnyAct(Random& random) {
    static const std::vector<const Act*> Weighted = [] {
        std::vector<const Act*> weighted;
        for (const Act& act : Acts()) {
            weighted.insert(weighted.end(), act.Weight, &act);
        }
        return weighted;
    }();
    return *OneOf(random, Weighted);
}

/// Puts something of its own into the fields.
void WindowSequence::Type() {
    const std::string name = "Name-" + std::to_string(1000 + number_++);
    const std::string number = "030100" + std::to_string(random_() % 10);
    for (const auto& [field, text] :
         {std::pair("Anzeigefeld(0)", name), std::pair("Anzeigefeld(1)", number)}) {
        auto* line = Find<QLineEdit>(field);
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, QString::fromStdString(text));
    }
    if (OneIn(random_, 2)) {
        auto* tones = Find<QComboBox>("DDTon");
        tones->setCurrentIndex(static_cast<int>(random_() % unsigned(tones->count())));
    }
}

void WindowSequence::ChooseRow() {
    auto* list = Find<QListView>("TelRegListe");
    const int rows = list->model()->rowCount();
    if (rows > 0) {
        const QModelIndex row =
            list->model()->index(static_cast<int>(random_() % unsigned(rows)), 0);
        list->scrollTo(row);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(row).center());
    }
}

/// Chooses a version and clicks a button.
void WindowSequence::Versions(const char* button) {
    Trigger("mnuDateiVersions");
    auto* table = Find<QTableWidget>("ListVersions");
    // By what they show but the time: those of one second may stand in any order, and the seed is
    // to decide.
    std::multimap<QString, int> rows;
    for (int row = 0; row < table->rowCount(); ++row) {
        rows.emplace(table->item(row, 2)->text() + table->item(row, 3)->text() +
                         table->item(row, 1)->text(),
                     row);
    }
    if (!rows.empty()) {
        const auto row = std::next(rows.begin(), static_cast<int>(random_() % rows.size()));
        table->setCurrentCell(row->second, 0);
        Click(button);
    }
    if (!hardStop_) {
        Click("btnClose");
    }
}

void WindowSequence::RemoveVersion() {
    const FilePath versions = folder_ / "staende";
    const auto kept = [&] {
        return std::filesystem::exists(versions) ? reader_.EntriesBelow(versions) : EntrySet();
    };
    const EntrySet before = kept();
    Versions("btnRemove");
    gone_ = Without(before, kept());
}

void WindowSequence::Open() {
    window_ = std::make_unique<MainWindow>(
        folder_ / "programm", [this] { hardStop_ = true; }, FilePath(), folder_ / "staende");
    window_->show();
    window_->Start({});
    ledger_.Add(Shown());
}

void WindowSequence::Operate() {
    const Act& act = AnyAct(random_);
    story_ += " " + std::string(act.Name);
    const EntrySet before = Shown();
    const unsigned generation = window_->State().Generation;
    takesBack_ = ends_ = hardStop_ = false;
    act.Do(*this);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    story_ += std::exchange(answers_.Story, {}) + " <" +
              Find<QLabel>("Status")->text().toStdString() + ">";
    if (hardStop_ || ends_) {
        End(hardStop_ ? "after a hard stop" : "after an end");
    } else {
        Follow(before, window_->State().Generation != generation && !takesBack_);
    }
    for (const Text& name : Names(window_->State())) {
        story_ += " " + Utf8(name);
    }
    story_ += "\n";
}

/// An operation has gone to its end.
void WindowSequence::Follow(const EntrySet& before, bool loaded) {
    const EntrySet after = Shown();
    if (!loaded) {
        ledger_.Erase(Without(before, after));
    }
    ledger_.Add(after);
    if (!gone_.empty()) {
        EntrySet standing = reader_.EntriesBelow(folder_.Path());
        standing.insert(after.begin(), after.end());
        ledger_.Destroy(std::exchange(gone_, EntrySet()), standing);
    }
}

void WindowSequence::End(const char* how) {
    window_.reset();
    while (QApplication::overrideCursor() != nullptr) {  // a hard stop leaves the hourglass
        QApplication::restoreOverrideCursor();
    }
    Open();
    Check(how);
}

/// Takes back every step, does them all again, and looks at what each of them shows.
EntrySet WindowSequence::UndoableEntries() {
    EntrySet entries;
    for (const char* item : {"mnuBearbeitenUndo", "mnuBearbeitenRedo"}) {
        constexpr int Most = 1000;
        for (int i = 0; i < Most && Find<QAction>(item)->isEnabled(); ++i) {
            Trigger(item);
            entries.merge(Shown());
        }
    }
    return entries;
}

void WindowSequence::Check(const char* when, EntrySet standing) {
    standing.merge(reader_.EntriesBelow(folder_.Path()));
    standing.merge(Shown());
    if (finding_.empty()) {
        finding_ = ledger_.Finding(when, standing);
    }
}

TEST(WindowKeepingProperty, WhatWasStoredAndNotErasedStandsSomewhere) {
    ExpectNoFinding<WindowSequence>("NORVIK_WINDOW_SEQUENCES", 2);
}

}  // namespace
}  // namespace norvik::test
