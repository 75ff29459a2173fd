// Random operations, faults and ends of the program: what was ever stored and not erased stands
// somewhere.
#include "base/runtimeerror.h"
#include "formats/csv/csvmenu.h"
#include "formats/registerfile/registerfilemenu.h"
#include "mainwindow/keeping.h"
#include "mainwindow/startup.h"
#include "mainwindow/undo.h"
#include "ringtones/tonenames.h"
#include "tests/support/handlerfixture.h"
#include "tests/support/testfolder.h"

#include <cstdlib>
#include <random>
#include <set>

namespace norvik::test {
namespace {

/// Answers every question at random.
class RandomDesktop : public Desktop {
  public:
    RandomDesktop(Program& program, std::mt19937& random) : program_(program), random_(random) {}

    FilePath File;

    Button Ask(const MessageBox& box) override {
        return box.buttons.at(random_() % box.buttons.size());
    }
    std::optional<Text> AskForText(const InputBox& /*box*/) override { return std::nullopt; }
    std::optional<FilePath> AskForFileToOpen(const FileDialog& /*dialog*/) override { return File; }
    std::optional<FilePath> AskForFileToSave(const FileDialog& /*dialog*/) override { return File; }
    bool AskToReplace(const FilePath& /*file*/) override { return true; }
    Text BeforeReplacing(const FilePath& file) override { return KeepReplaced(program_, file); }
    void ShowEntry() override { norvik::ShowEntry(program_); }
    void RebuildList() override { RebuildRows(program_); }

  private:
    Program& program_;
    std::mt19937& random_;
};

class Sequence {
  public:
    Sequence(const TestFolder& folder, unsigned seed) : folder_(folder), random_(seed) {
        folder.Write("kaputt.t9t", Join({Raw("06 0D 'TStCollection' 02 64 01"),
                                         Raw("02 00 02 01 06 04 'Xaver' 07 01 '2'")}));
        folder.Write("halb.t9t", Raw("06 0D 'TStCollection' 02 64 01 03 00 00 09"));
        StartProgram();
    }

    void Run(int operations) {
        for (int i = 0; i < operations; ++i) {
            try {
                Operate();
            } catch (const HardStop&) {
                EndKeepingEarly(program_, Ending::HardStop);
                StartProgram();
            }
        }
    }

    /// The names that stand nowhere.
    [[nodiscard]] std::set<std::string> Lost() const {
        std::set<std::string> lost = stored_;
        const auto found = [&lost](const RegisterEntry& entry) { lost.erase(Utf8(entry.Name)); };
        for (int position = 1; position <= program_.State.AnzGes; ++position) {
            found(EntryAt(program_.State, position));
        }
        for (const HistoryStep& step : program_.Past.Steps) {
            for (const auto& [place, entry] : step.Entries) {
                found(entry);
            }
        }
        for (const auto& file : std::filesystem::recursive_directory_iterator(folder_.Path())) {
            if (!file.is_regular_file()) {
                continue;
            }
            const Bytes bytes = ReadFile(file.path());
            const std::string text(bytes.begin(), bytes.end());
            std::erase_if(lost, [&text](const std::string& name) {
                return text.find(name) != std::string::npos;
            });
        }
        return lost;
    }

    [[nodiscard]] const std::string& Story() const { return story_; }

  private:
    void StartProgram() {
        program_ = Program();
        program_.Keep.Folder = folder_ / "staende";
        FillTones(program_.Fields, DefaultToneNames());
        FillAnnouncements(program_.Fields);
        FillMsns(program_.Fields);
        ResetRegister(program_.State);
        SetCount(program_.State, 1);
        norvik::ShowEntry(program_);
        StartKeeping(program_);
        StartHistory(program_.Past, program_.State);
    }

    void Do(const std::function<void()>& operation) {
        RunStep(program_, u"Änderung", operation, desktop_);
    }

    [[nodiscard]] std::set<std::string> Shown() const {
        std::set<std::string> names;
        for (const Text& name : Names(program_.State)) {
            names.insert(Utf8(name));
        }
        return names;
    }

    /// What the user's own act takes out of the register need not stand anywhere.
    void DoErasing(const std::function<void()>& operation) {
        const std::set<std::string> before = Shown();
        const unsigned generation = program_.State.Generation;
        Do(operation);
        if (program_.State.Generation != generation) {
            return;
        }
        const std::set<std::string> after = Shown();
        for (const std::string& name : before) {
            if (after.count(name) == 0) {
                stored_.erase(name);
            }
        }
    }

    void Store(bool anew) {
        if (anew) {
            Do([&] { btnNew_Click(program_, desktop_); });
        }
        const std::string name = "Name-" + std::to_string(1000 + number_++);
        program_.Fields.Anzeigefeld.at(NameField) = FromAscii(name);
        DoErasing([&] { btnSaveChange_Click(program_, desktop_); });
        stored_.insert(name);
    }

    void Save(int how) {
        const std::vector<FilePath> files = {"a.t9t", "b.t9t", "c.t9t", "fehlt/d.t9t"};
        desktop_.File = folder_ / files.at(random_() % files.size());
        switch (how) {
        case 0:
            Do([&] { mnuDateiSaveNV(program_.State, desktop_); });
            return;
        case 1:
            Do([&] { MNUDateiSave193(program_.State, desktop_); });
            return;
        default:
            desktop_.File.replace_extension(".csv");
            Do([&] { mnuDateiSaveCSV(program_.State, desktop_); });
        }
    }

    void LoadAny() {
        const std::vector<FilePath> files = {"a.t9t", "b.t9t",    "c.t9t",
                                             "d.t9t", "halb.t9t", "kaputt.t9t"};
        desktop_.File = folder_ / files.at(random_() % files.size());
        Do([&] { mnuDateiLoadNV(program_.State, desktop_); });
    }

    void Operate() {
        constexpr unsigned Operations = 14;
        const unsigned operation = random_() % Operations;
        story_ += " " + std::to_string(operation);
        switch (operation) {
        case 0:
        case 1:
        case 2:
            return Store(true);
        case 3:
            return Store(false);
        case 4:
            return DoErasing([&] { btnErase_Click(program_, desktop_); });
        case 5:
            return Do([&] {
                SelectRecord(program_.State, static_cast<int>(random_() % 5) + 1, desktop_);
            });
        case 6:
            program_.Fields.chkExport = !program_.Fields.chkExport;
            return Do([&] { chkExport_Click(program_, desktop_); });
        case 7:
        case 8:
            return Save(static_cast<int>(random_() % 3));
        case 9:
        case 10:
            return LoadAny();
        case 11:
            return DoErasing([&] { mnuBearbeitenUndo(program_, desktop_); });
        case 12:
            return DoErasing([&] { mnuBearbeitenRedo(program_, desktop_); });
        default:
            return End();
        }
    }

    /// The program is closed, ended by a signal or killed.
    void End() {
        switch (random_() % 3) {
        case 0:
            EndKeeping(program_, VersionReason::NotSavedAtQuit);
            break;
        case 1:
            EndKeepingEarly(program_, Ending::Signal);
            break;
        default:
            break;
        }
        StartProgram();
    }

    const TestFolder& folder_;
    std::mt19937 random_;
    Program program_;
    RandomDesktop desktop_{program_, random_};
    std::set<std::string> stored_;
    int number_ = 0;
    std::string story_;
};

/// NORVIK_SEQUENCES in the environment lets it work longer.
TEST(KeepingProperty, WhatWasStoredAndNotErasedStandsSomewhere) {
    const char* wanted = std::getenv("NORVIK_SEQUENCES");
    const unsigned sequences = wanted == nullptr ? 40 : static_cast<unsigned>(std::atoi(wanted));
    constexpr int Operations = 30;
    for (unsigned seed = 1; seed <= sequences; ++seed) {
        const TestFolder folder;
        Sequence sequence(folder, seed);
        sequence.Run(Operations);
        ASSERT_EQ(sequence.Lost(), std::set<std::string>())
            << "seed " << seed << ":" << sequence.Story();
    }
}

}  // namespace
}  // namespace norvik::test
