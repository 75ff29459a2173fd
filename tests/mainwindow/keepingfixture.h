// A program that keeps earlier versions in a folder of the test's, driven as the window drives it.
#pragma once

#include "formats/registerfile/registerfilemenu.h"
#include "mainwindow/keeping.h"
#include "mainwindow/undo.h"
#include "tests/support/handlerfixture.h"
#include "tests/support/scriptedsession.h"
#include "tests/support/testfolder.h"
#include "versions/keptregister.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace norvik::test {

class KeepingTest : public HandlerFixture {
  protected:
    KeepingTest() {
        program.Keep.Folder = Store();
        desktop.OnBeforeReplacing = [this](const FilePath& path) {
            return KeepReplaced(program, path);
        };
        desktop.OnBeforeOverwriting = [this](const FilePath& path) {
            return KeepOverwritten(program, path);
        };
    }

    [[nodiscard]] FilePath Store() const { return folder / "staende"; }

    void Start(RegisterState state, int position = 1) {
        Given(std::move(state), position);
        StartHistory(program.Past, program.State);
        desktop.Transcript.clear();
    }

    /// Runs an operation as the window does.
    void Do(const std::function<void()>& operation) {
        RunStep(program, u"Änderung", operation, desktop);
    }
    void Erase() {
        Do([&] { btnErase_Click(program, desktop); });
    }
    void Save195(const FilePath& path) {
        desktop.AnswerFile(path);
        Do([&] { mnuDateiSaveNV(program.State, desktop); });
    }
    void Save193(const FilePath& path, Button onlyMarked) {
        desktop.AnswerFile(path).AnswerBox(onlyMarked);
        Do([&] { MNUDateiSave193(program.State, desktop); });
    }
    void Load(const FilePath& path) {
        desktop.AnswerFile(path);
        Do([&] { mnuDateiLoadNV(program.State, desktop); });
    }

    /// "why: names" of every version, the newest first; the bytes of a file count as its length.
    [[nodiscard]] std::vector<std::string> Kept() const {
        std::vector<std::string> kept;
        for (const Version& version : ListVersions(Store())) {
            const Version whole = ReadVersion(version.File).value();
            std::string line = Utf8(DescriptionOf(whole.Why)) + ":";
            if (whole.IsRegister) {
                const RegisterState state = DecodeRegister(whole.Content).value();
                for (const Text& name : Names(state)) {
                    line += " " + Utf8(name);
                }
            } else {
                line += " " + std::to_string(whole.Content.size()) + " bytes of " +
                        whole.Original.filename().string();
            }
            kept.push_back(line);
        }
        return kept;
    }
    /// How many files of processes stand.
    [[nodiscard]] std::ptrdiff_t Sessions() const {
        if (!std::filesystem::exists(Store())) {
            return 0;
        }
        const auto files = FilesIn(Store());
        return std::count_if(files.begin(), files.end(), [](const std::string& name) {
            return name.starts_with("sitzung-") && name.ends_with(".stand");
        });
    }

    TestFolder folder;
    ScriptedSession session;
};

}  // namespace norvik::test
