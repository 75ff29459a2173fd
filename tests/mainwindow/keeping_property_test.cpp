// Two programs on the same files, random operations, faults and ends: what was ever stored and not
// erased by the user stands somewhere.
#include "mainwindow/menu.h"
#include "mainwindow/startup.h"
#include "mainwindow/undo.h"
#include "mainwindow/versionswindow.h"
#include "ringtones/tonenames.h"
#include "tests/mainwindow/randomuser.h"
#include "tests/support/builders.h"
#include "tests/support/ledger.h"
#include "tests/support/sequences.h"
#include "tests/support/settings.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <iterator>
#include <map>

namespace norvik::test {
namespace {

class Sequence {
  public:
    Sequence(const TestFolder& folder, unsigned seed) : folder_(folder), random_(seed) {
        WriteFilesToLoad(folder);
        for (Running& program : running_) {
            Start(program);
        }
    }

    /// What went wrong, or nothing.
    std::string Run(int operations) {
        for (int i = 0; i < operations && finding_.empty(); ++i) {
            Operate();
        }
        Check("at the end");
        return finding_.empty() ? "" : finding_ + "\n" + story_;
    }

  private:
    /// A process.
    struct Running {
        Program Prog;
        std::unique_ptr<RandomDesktop> Desk;
        /// Since the last operation without one there was a fault.
        bool Trouble = false;
    };
    struct Act {
        const char* Name;
        unsigned Weight;
        std::function<void(Sequence&)> Do;
    };

    static const std::vector<Act>& Acts();
    static const std::vector<const Act*>& WeightedActs();

    // What the user does.
    void Do(TextView what, const std::function<void()>& operation) {
        ran_ = true;
        RunStep(at_->Prog, what, operation, *at_->Desk);
    }
    void Menu(std::string_view name) {
        for (const MenuRow& row : MenuTable()) {
            if (row.Name == name) {
                Do(row.Step, [&] { row.Run(at_->Prog, *at_->Desk, *at_->Desk); });
            }
        }
    }
    void TakeBack(std::string_view name) {
        takesBack_ = true;
        Menu(name);
    }
    void New() {
        Do(NewStep, [&] { btnNew_Click(at_->Prog, *at_->Desk); });
    }
    void Store() {
        Do(StoredStep, [&] { btnSaveChange_Click(at_->Prog, *at_->Desk); });
    }
    void Type();
    void Mark();
    void Select();
    void ChooseRow();
    void Versions(const std::function<void(Program&)>& act);
    void RemoveVersion();
    void Close();
    void End(bool killed, const std::function<void()>& end);

    void Start(Running& program, const FilePath& file = {});
    void Operate();
    void Perform(const Act& act, bool faulty);
    void Follow(const EntrySet& before, bool loaded);
    void FollowDestroyed();
    /// In a register, a version or a file of the user's. A process's own file holds what its
    /// register holds, or what is out of date.
    [[nodiscard]] EntrySet Lasting();
    [[nodiscard]] EntrySet Standing();
    void Check(const char* when);

    const TestFolder& folder_;
    Random random_;
    FileReader reader_;
    std::array<Running, 2> running_;
    Running* at_ = nullptr;
    Ledger ledger_;
    /// What stood in a file that the running operation destroys, by the user or another program.
    EntrySet gone_;
    bool takesBack_ = false;
    bool ended_ = false;
    bool ran_ = false;
    int number_ = 0;
    std::string story_;
    std::string finding_;
};

const std::vector<Sequence::Act>& Sequence::Acts() {
    const auto menu = [](const char* name, unsigned weight) {
        return Act{name, weight, [name](Sequence& s) { s.Menu(name); }};
    };
    static const std::vector<Act> Acts = {
        {"new", 1, [](Sequence& s) { s.New(); }},
        {"append", 6, [](Sequence& s) { s.New(), s.Type(), s.Store(); }},
        {"store", 3, [](Sequence& s) { s.Type(), s.Store(); }},
        {"erase", 2,
         [](Sequence& s) { s.Do(EraseStep, [&] { btnErase_Click(s.at_->Prog, *s.at_->Desk); }); }},
        {"type", 1, [](Sequence& s) { s.Type(); }},
        {"select", 3, [](Sequence& s) { s.Select(); }},
        {"row", 1, [](Sequence& s) { s.ChooseRow(); }},
        {"mark", 2, [](Sequence& s) { s.Mark(); }},
        menu("mnuBearbeitenNullHinzu", 1),
        menu("mnuBearbeitenNullEntf", 1),
        menu("mnuBearbeitenKillMSN", 1),
        menu("mnuGebDelete", 1),
        menu("mnuDateiLoadSync", 1),
        menu("mnuSyncAdd", 2),
        menu("mnuExtraDoubles", 1),
        menu("mnuDateiLoadNV", 4),
        menu("mnuDateiLoad175", 2),
        menu("mnuDateiLoadCSV", 2),
        menu("mnuDateiSaveNV", 4),
        menu("MNUDateiSave193", 2),
        menu("mnuDateiSave175", 2),
        menu("mnuDateiSaveCSV", 2),
        menu("mnuDateiSaveIP286", 1),
        menu("mnuDateiHandyexp", 1),
        menu("mnuGebAuszug", 1),
        menu("mnuDateiConvCallListCSV", 1),
        {"undo", 5, [](Sequence& s) { s.TakeBack("mnuBearbeitenUndo"); }},
        {"redo", 3, [](Sequence& s) { s.TakeBack("mnuBearbeitenRedo"); }},
        {"load version", 3,
         [](Sequence& s) {
             s.Versions([&](Program& program) {
                 s.Do(VersionLoadedStep,
                      [&] { VERSIONS_btnLoad_Click(program, *s.at_->Desk, *s.at_->Desk); });
             });
         }},
        {"save version", 1,
         [](Sequence& s) {
             s.Versions([&](Program& program) {
                 s.Do({}, [&] { VERSIONS_btnSaveAs_Click(program, *s.at_->Desk); });
             });
         }},
        {"remove version", 1, [](Sequence& s) { s.RemoveVersion(); }},
        {"close", 2, [](Sequence& s) { s.Close(); }},
        {"signal", 1,
         [](Sequence& s) { s.End(false, [&] { EndKeepingEarly(s.at_->Prog, Ending::Signal); }); }},
        {"kill", 2, [](Sequence& s) { s.End(true, [] {}); }},
        {"damage", 1, [](Sequence& s) { DamageAFile(s.folder_, s.random_, s.number_++); }},
        {"another", 1, [](Sequence& s) { s.gone_ = ChangeAFile(s.folder_, s.random_, s.reader_); }},
    };
    return Acts;
}

const std::vector<const Sequence::Act*>& Sequence::WeightedActs() {
    static const std::vector<const Act*> Weighted = [] {
        std::vector<const Act*> weighted;
        for (const Act& act : Acts()) {
            weighted.insert(weighted.end(), act.Weight, &act);
        }
        return weighted;
    }();
    return Weighted;
}

/// Puts something of its own into the fields.
void Sequence::Type() {
    MainWindowFields& fields = at_->Prog.Fields;
    const auto below = [this](unsigned limit) { return static_cast<int>(random_() % limit); };
    fields.Anzeigefeld.at(NameField) = FromAscii("Name-" + std::to_string(1000 + number_++));
    fields.Anzeigefeld.at(TelField) = FromAscii("030100" + std::to_string(below(10)));
    fields.Anzeigefeld.at(FirstInfoField) = PadOrCut(OneIn(random_, 3) ? u"()zu Hause" : u"", 21);
    fields.Anzeigefeld.at(FirstInfoField + 1) = PadOrCut(OneIn(random_, 3) ? u"Grüße" : u"", 21);
    fields.DDTon = below(20);
    fields.DDAB = below(8);
    fields.DDMSN = below(7);
    fields.chkTon = OneIn(random_, 2);
    fields.chkCharge = OneIn(random_, 2);
    fields.OptFilter = below(4);
    if (OneIn(random_, 2)) {
        Do({}, [&] { Choice_Change(at_->Prog); });
    }
}

void Sequence::Mark() {
    bool& mark = at_->Prog.Fields.chkExport;
    mark = !mark;
    Do(mark ? MarkedStep : UnmarkedStep, [&] { chkExport_Click(at_->Prog, *at_->Desk); });
}

void Sequence::Select() {
    const auto count = static_cast<unsigned>(std::max(1, at_->Prog.State.AnzGes));
    const int position = static_cast<int>(random_() % count) + 1;
    Do({}, [&] { Satzwahl_Change(at_->Prog, position, *at_->Desk); });
}

void Sequence::ChooseRow() {
    std::vector<Text> rows = at_->Prog.Fields.TelRegListe;
    if (!rows.empty()) {
        const Text row = OneOf(random_, rows);
        Do(StoredStep, [&] { TelRegListe_Click(at_->Prog, row, *at_->Desk); });
    }
}

/// Chooses a version and does something with it.
void Sequence::Versions(const std::function<void(Program&)>& act) {
    Program& program = at_->Prog;
    Menu("mnuDateiVersions");
    // By what is in them: those of one second may stand in any order, and the seed is to decide.
    std::multimap<EntrySet, int> rows;
    for (const VersionRow& version : program.Versions.ListVersions) {
        rows.emplace(reader_.EntriesIn(version.File), static_cast<int>(rows.size()));
    }
    if (!rows.empty()) {
        const auto row = std::next(rows.begin(), static_cast<int>(random_() % rows.size()));
        Do({}, [&] { ListVersions_Click(program, row->second); });
        act(program);
    }
    Do({}, [&] { VERSIONS_btnClose_Click(program, *at_->Desk); });
}

void Sequence::RemoveVersion() {
    Versions([&](Program& program) {
        const VersionsFields& fields = program.Versions;
        gone_ =
            reader_.EntriesIn(fields.ListVersions.at(static_cast<std::size_t>(fields.Chosen)).File);
        Do({}, [&] { VERSIONS_btnRemove_Click(program); });
    });
}

/// By the window or at the end of the session.
void Sequence::Close() {
    bool may = false;
    if (OneIn(random_, 2)) {
        Do({}, [&] { may = MayClose(at_->Prog, *at_->Desk); });
    } else {
        RandomSession session(random_);
        may = EndSession(at_->Prog, session, false, *at_->Desk);
    }
    if (may) {
        End(false, [&] { EndKeeping(at_->Prog, VersionReason::NotSavedAtQuit); });
    }
}

/// Ends the process and starts another in its place.
void Sequence::End(bool killed, const std::function<void()>& end) {
    story_ += at_->Desk->Story;
    const Ledger::Ended ended = {.Shown = EntriesOf(at_->Prog.Past.Last),
                                 .Undoable = UndoableEntries(at_->Prog.Past.Last, at_->Prog.Past),
                                 .Killed = killed,
                                 .Troubled = at_->Trouble};
    end();
    ended_ = true;
    FollowDestroyed();
    Start(*at_);
    ledger_.End(ended, Lasting());
    Check("after an end");
}

void Sequence::Start(Running& program, const FilePath& file) {
    program.Prog = Program();
    program.Desk = std::make_unique<RandomDesktop>(program.Prog, random_, folder_, reader_);
    program.Prog.Folder = folder_ / "programm";
    program.Prog.Keep.Folder = folder_ / "staende";
    StartKeeping(program.Prog);
    RunStep(
        program.Prog, {}, [&] { StartUp(program.Prog, {}, *program.Desk, file); }, *program.Desk);
    SettingsTable& table = program.Prog.Set.Table;
    table = Berlin().Table;
    table.SetValue(Setting::SyncDatabase, TextFromPath(folder_ / "adressen.csv"));
    table.SetValue(Setting::SyncName, u"1");
    table.SetValue(Setting::SyncAdd, u"2");
    table.SetValue(Setting::SyncBusiness, u"3");
    ApplySettings(program.Prog.Set);
    ledger_.Add(EntriesOf(program.Prog.State));
}

void Sequence::Operate() {
    at_ = &running_.at(OneIn(random_, 4) ? 1 : 0);
    const Act& act = *OneOf(random_, WeightedActs());
    const Fault fault(random_, folder_ / "staende");
    story_ += (at_ == running_.data() ? " " : " 2:") + std::string(act.Name);
    story_ += fault.IsThere() ? " (fault)" : "";
    constexpr unsigned Rarely = 25;
    at_->Desk->KillingCall = OneIn(random_, Rarely) ? static_cast<int>(random_() % 12) + 1 : 0;
    Perform(act, fault.IsThere());
}

void Sequence::Perform(const Act& act, bool faulty) {
    const EntrySet before = EntriesOf(at_->Prog.State);
    const unsigned generation = at_->Prog.State.Generation;
    takesBack_ = ended_ = ran_ = false;
    gone_.clear();
    at_->Trouble = at_->Trouble || faulty;
    try {
        act.Do(*this);
        if (!ended_) {
            Follow(before, at_->Prog.State.Generation != generation && !takesBack_);
        }
    } catch (const HardStop&) {
        story_ += " (hard stop)";
        End(false, [&] { EndKeepingEarly(at_->Prog, Ending::HardStop); });
    } catch (const Killed&) {
        story_ += " (killed)";
        End(true, [] {});
    }
    story_ += std::exchange(at_->Desk->Story, {}) + " =";
    for (const Text& name : Names(at_->Prog.State)) {
        story_ += " " + Utf8(name);
    }
    story_ += "\n";
    at_->Trouble = faulty || (at_->Trouble && !ran_);
    at_->Desk->KillingCall = 0;
}

/// An operation has gone to its end.
void Sequence::Follow(const EntrySet& before, bool loaded) {
    const EntrySet after = EntriesOf(at_->Prog.State);
    const EntrySet dropped = Without(before, after);
    const EntrySet lost = dropped.empty()
                              ? dropped
                              : Without(dropped, UndoableEntries(at_->Prog.State, at_->Prog.Past));
    if (!lost.empty()) {
        finding_ = "cannot be undone: " + *lost.begin();
    }
    if (!loaded) {
        ledger_.Erase(dropped);
    }
    ledger_.Add(after);
    FollowDestroyed();
}

/// The user wanted it or was told, or the process ended before it could tell.
void Sequence::FollowDestroyed() {
    gone_.merge(std::exchange(at_->Desk->Told, EntrySet()));
    if (!gone_.empty()) {
        ledger_.Destroy(std::exchange(gone_, EntrySet()), Lasting());
    }
}

EntrySet Sequence::Lasting() {
    EntrySet lasting = reader_.EntriesBelow(folder_.Path(), "sitzung-");
    for (const Running& program : running_) {
        lasting.merge(EntriesOf(program.Prog.State));
    }
    return lasting;
}

EntrySet Sequence::Standing() {
    EntrySet standing = Lasting();
    standing.merge(reader_.EntriesBelow(folder_.Path()));
    for (const Running& program : running_) {
        standing.merge(UndoableEntries(program.Prog.State, program.Prog.Past));
    }
    return standing;
}

void Sequence::Check(const char* when) {
    if (finding_.empty()) {
        finding_ = ledger_.Finding(when, Standing());
    }
}

TEST(KeepingProperty, WhatWasStoredAndNotErasedStandsSomewhere) {
    ExpectNoFinding<Sequence>("NORVIK_SEQUENCES", 10);
}

}  // namespace
}  // namespace norvik::test
