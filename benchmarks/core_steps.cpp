// What undoing and keeping cost: operations on a register of full entries, run as steps that can be
// undone and with a folder of earlier versions, against the same operations alone.
#include "benchmarks/ratios.h"
#include "benchmarks/registers.h"
#include "formats/registerfile/registerfile.h"
#include "formats/registerfile/registerfilemenu.h"
#include "mainwindow/keeping.h"
#include "mainwindow/operations.h"
#include "mainwindow/undo.h"
#include "registertools/lineaccesszero.h"
#include "tests/support/idledesktop.h"

#include <benchmark/benchmark.h>

namespace norvik::benchmarks {

namespace {

/// Keeps what a save replaces, and chooses one file in every dialog.
class StepDesktop : public test::IdleDesktop {
  public:
    StepDesktop(Program& program, FilePath file) : program_(program), file_(std::move(file)) {}

    Button Ask(const MessageBox& /*box*/) override { return Button::Yes; }
    std::optional<FilePath> AskForFileToOpen(const FileDialog& /*dialog*/) override {
        return file_;
    }
    std::optional<FilePath> AskForFileToSave(const FileDialog& /*dialog*/) override {
        return file_;
    }
    Text BeforeReplacing(const FilePath& path) override { return KeepReplaced(program_, path); }

  private:
    Program& program_;
    FilePath file_;
};

/// A program with a register of full entries: 21, 21 and 126 characters.
class Measured {
  public:
    explicit Measured(bool keeps)
        : folder_(std::filesystem::temp_directory_path() / "norvik-benchmark-steps"),
          desktop_(program_, folder_ / "a.t9t"),
          keeps_(keeps) {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        RegisterState& state = program_.State;
        ResetRegister(state);
        SetCount(state, RegisterPlaces);
        for (int position = 1; position <= state.AnzGes; ++position) {
            RegisterEntry& entry = EntryAt(state, position);
            entry.Name = Decimal(100'000 + position) + Text(15, u'n');
            entry.Tel = Text(15, u'1') + Decimal(100'000 + position);
            entry.Info = Text(126, u'i');
        }
        WriteRegisterFile195(state, folder_ / "a.t9t", desktop_);
        if (keeps) {
            program_.Keep.Folder = folder_ / "staende";
            StartKeeping(program_);
        }
        StartHistory(program_.Past, state);
    }
    Measured(const Measured&) = delete;
    Measured& operator=(const Measured&) = delete;
    Measured(Measured&&) = delete;
    Measured& operator=(Measured&&) = delete;
    ~Measured() { std::filesystem::remove_all(folder_); }

    RegisterState& State() { return program_.State; }
    StepDesktop& OfDesktop() { return desktop_; }

    void Do(const std::function<void()>& operation) {
        if (keeps_) {
            RunStep(program_, u"Schritt", operation, desktop_);
        } else {
            RunOperation(operation, desktop_);
        }
    }

  private:
    FilePath folder_;
    Program program_;
    StepDesktop desktop_;
    bool keeps_;
};

void ChangeOne(benchmark::State& run, bool keeps) {
    Measured measured(keeps);
    char16_t letter = u'a';
    for (auto _ : run) {
        letter = letter == u'z' ? u'a' : static_cast<char16_t>(letter + 1);
        measured.Do([&] { EntryAt(measured.State(), 1000).Info.front() = letter; });
    }
}
void StepOfOneEntry(benchmark::State& run) {
    ChangeOne(run, true);
}
void StepOfOneEntry_Baseline(benchmark::State& run) {
    ChangeOne(run, false);
}
BENCHMARK(StepOfOneEntry)->Unit(benchmark::kMicrosecond);
BENCHMARK(StepOfOneEntry_Baseline)->Unit(benchmark::kMicrosecond);

void ChangeAll(benchmark::State& run, bool keeps) {
    Measured measured(keeps);
    bool adds = false;
    for (auto _ : run) {
        adds = !adds;
        measured.Do([&] {
            ConvertLineAccessZero(measured.State(), adds ? u"0" : u"##", measured.OfDesktop());
        });
    }
}
void StepOfAllEntries(benchmark::State& run) {
    ChangeAll(run, true);
}
void StepOfAllEntries_Baseline(benchmark::State& run) {
    ChangeAll(run, false);
}
BENCHMARK(StepOfAllEntries)->Unit(benchmark::kMicrosecond);
BENCHMARK(StepOfAllEntries_Baseline)->Unit(benchmark::kMicrosecond);

void LoadAgain(benchmark::State& run, bool keeps) {
    Measured measured(keeps);
    for (auto _ : run) {
        measured.Do([&] { mnuDateiLoadNV(measured.State(), measured.OfDesktop()); });
    }
}
void StepOfALoad(benchmark::State& run) {
    LoadAgain(run, true);
}
void StepOfALoad_Baseline(benchmark::State& run) {
    LoadAgain(run, false);
}
BENCHMARK(StepOfALoad)->Unit(benchmark::kMicrosecond);
BENCHMARK(StepOfALoad_Baseline)->Unit(benchmark::kMicrosecond);

/// Each save replaces a file of another content.
void SaveAgain(benchmark::State& run, bool keeps) {
    Measured measured(keeps);
    char16_t letter = u'a';
    for (auto _ : run) {
        letter = letter == u'z' ? u'a' : static_cast<char16_t>(letter + 1);
        measured.Do([&] {
            EntryAt(measured.State(), 1000).Info.front() = letter;
            mnuDateiSaveNV(measured.State(), measured.OfDesktop());
        });
    }
}
void StepOfASave(benchmark::State& run) {
    SaveAgain(run, true);
}
void StepOfASave_Baseline(benchmark::State& run) {
    SaveAgain(run, false);
}
BENCHMARK(StepOfASave)->Unit(benchmark::kMicrosecond);
BENCHMARK(StepOfASave_Baseline)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace norvik::benchmarks
