// A user who answers every question at random, and the faults that may come meanwhile.
#pragma once

#include "dialogs/mobileexportfields.h"
#include "mainwindow/handlers.h"
#include "mainwindow/keeping.h"
#include "tests/support/processlimits.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/standing.h"
#include "tests/support/testfolder.h"

#include <fstream>
#include <memory>
#include <optional>
#include <random>
#include <utility>

namespace norvik::test {

using Random = std::mt19937;

inline bool OneIn(Random& random, unsigned times) {
    return random() % times == 0;
}

template <typename Container>
auto& OneOf(Random& random, Container& items) {
    return items.at(random() % items.size());
}

/// Ends an operation in its midst as a kill of the process does.
struct Killed {};

class RandomDesktop : public Desktop, public Windows {
  public:
    RandomDesktop(Program& program, Random& random, const TestFolder& folder, FileReader& reader)
        : program_(program), random_(random), folder_(folder), reader_(reader) {}

    /// The call that kills the process; none while it is 0.
    int KillingCall = 0;
    /// The entries of files that were replaced though they could not be kept, which the status
    /// tells.
    EntrySet Told;
    std::string Story;  ///< files, answers and status texts

    Button Ask(const MessageBox& box) override {
        Call();
        const std::size_t button = random_() % box.buttons.size();
        Story += " {" + Utf8(box.text.substr(0, 40)) + "}->" + std::to_string(button);
        return box.buttons.at(button);
    }
    std::optional<Text> AskForText(const InputBox& /*box*/) override {
        Call();
        static const std::vector<std::optional<Text>> Answers = {std::nullopt, u"", u"0", u"7"};
        return OneOf(random_, Answers);
    }
    std::optional<FilePath> AskForFileToOpen(const FileDialog& /*dialog*/) override {
        Call();
        std::vector<std::string> names = FilesIn(folder_.Path());
        names.emplace_back("fehlt.t9t");
        const std::string& name = OneOf(random_, names);
        Story += " open " + name;
        return folder_ / name;
    }
    std::optional<FilePath> AskForFileToSave(const FileDialog& dialog) override {
        Call();
        static const std::vector<std::string> Names = {
            "a", "a", "b", "c", "a.t9t", "hart.t9t", "weich.csv", "fehlt/d", "voll.t9t"};
        FilePath name = OneOf(random_, Names);
        if (!name.has_extension()) {
            name += dialog.ending;
        }
        Story += " save " + name.string();
        return folder_ / name;
    }
    bool AskToReplace(const FilePath& /*file*/) override {
        Call();
        return true;
    }
    Text BeforeReplacing(const FilePath& file) override {
        Call();
        const EntrySet before =
            std::filesystem::is_regular_file(file) ? reader_.EntriesIn(file) : EntrySet();
        Text remark = KeepReplaced(program_, file);
        if (remark == u" (der frühere Stand konnte nicht aufgehoben werden)") {
            Told.insert(before.begin(), before.end());
        }
        return remark;
    }
    Text BeforeOverwriting(const FilePath& file) override {
        Call();
        return KeepOverwritten(program_, file);
    }
    void SetStatus(TextView text) override {
        Call();
        if (text.starts_with(u"Ge") || text.starts_with(u"Nicht")) {
            Story += " <" + Utf8(text) + ">";
        }
    }
    void ShowEntry() override {
        Call();
        norvik::ShowEntry(program_);
    }
    void RebuildList() override {
        Call();
        RebuildRows(program_);
    }
    void CloseMainWindow() override {}
    void ShowPhoneList() override {}
    void ShowMobileExport() override {
        btnExport_Click(NVHE_Load(program_.Set), program_.State, program_.Set, *this);
    }
    void ShowRegisterList() override {}
    void CloseRegisterList() override {}
    void ShowSettings() override {}
    void ShowDoubles() override {}
    void CloseDoubles() override {}
    void ShowVersions() override {}
    void CloseVersions() override {}
    int OpenDocument(const FilePath& /*document*/) override { return 33; }
    void OpenInTextEditor(const FilePath& /*document*/) override {}

  private:
    void Call() {
        if (KillingCall > 0 && --KillingCall == 0) {
            throw Killed();
        }
    }

    Program& program_;
    Random& random_;
    const TestFolder& folder_;
    FileReader& reader_;
};

/// A session manager that allows a question or does not.
class RandomSession : public SessionManager {
  public:
    explicit RandomSession(Random& random) : asks_(OneIn(random, 2)) {}
    bool AllowsQuestion() override { return asks_; }
    void Release() override {}
    void Cancel() override {}

  private:
    bool asks_;
};

/// While it lives, the disk may be full from some byte of each file on, or the folder of the
/// earlier versions be gone.
class Fault {
  public:
    Fault(Random& random, FilePath versions) : versions_(std::move(versions)) {
        constexpr unsigned Rarely = 8;
        if (!OneIn(random, Rarely)) {
            return;
        }
        static const std::vector<unsigned> Rooms = {1, 100, 600, 6000};
#ifndef _WIN32
        if (!OneIn(random, 4)) {
            limit_ = std::make_unique<FileSizeLimit>(random() % OneOf(random, Rooms));
            return;
        }
#endif
        hides_ = std::filesystem::exists(versions_);
        if (hides_) {
            std::filesystem::rename(versions_, Hidden());
            std::ofstream(versions_) << "no folder";
        }
    }
    Fault(const Fault&) = delete;
    Fault& operator=(const Fault&) = delete;
    Fault(Fault&&) = delete;
    Fault& operator=(Fault&&) = delete;
    ~Fault() {
        if (hides_) {
            std::filesystem::remove(versions_);
            std::filesystem::rename(Hidden(), versions_);
        }
    }

    [[nodiscard]] bool IsThere() const {
#ifndef _WIN32
        return hides_ || limit_ != nullptr;
#else
        return hides_;
#endif
    }

  private:
    [[nodiscard]] FilePath Hidden() const {
        return FilePath(versions_) += ".weg";
    }

    FilePath versions_;
    bool hides_ = false;
#ifndef _WIN32
    std::unique_ptr<FileSizeLimit> limit_;
#endif
};

/// Whole files of each kind, one that ends a load in an error and one that ends the program; a file
/// of two names, a link to nowhere and one to a full disk.
inline void WriteFilesToLoad(const TestFolder& folder) {
    const Bytes whole =
        Join({Raw("06 0D 'TStCollection' 02 64 01"), Raw("02 00 02 01 06 04 'Xaver' 07 01 '2'")});
    folder.Write("kaputt.t9t", whole);
    folder.Write("halb.t9t", Raw("06 0D 'TStCollection' 02 64 01 03 00 00 09"));
    folder.Write("gut.csv", Raw("'Name;Tel' 0D 0A 'Carla;0301;x' 0D 0A 'Carla;0301;x' 0D 0A"));
    folder.Write("gut.pbo", Raw("'norvik 175 phonebook' 0D 0A 'N=Berta' 0D 0A 'P=123' 0D 0A"
                                "'I=x' 0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A"
                                "'I=' 0D 0A"));
    folder.Write("adressen.csv", Raw("22 'Adler' 22 2C 22 'Weg 1' 22 2C 22 '0301002' 22 0D 0A"));
    folder.Write("hart.t9t", Raw("06 0D 'TStCollection' 02 64 01 00"));
    std::filesystem::create_hard_link(folder / "hart.t9t", folder / "hart2.t9t");
#ifndef _WIN32
    std::filesystem::create_symlink(folder / "b.csv", folder / "weich.csv");
    std::filesystem::create_symlink("/dev/full", folder / "voll.t9t");
#endif
}

/// Puts a damaged copy of one of the files beside it.
inline void DamageAFile(const TestFolder& folder, Random& random, int number) {
    const std::vector<std::string> names = FilesIn(folder.Path());
    const FilePath file = folder / OneOf(random, names);
    if (!std::filesystem::is_regular_file(file) || std::filesystem::file_size(file) == 0) {
        return;
    }
    Bytes bytes = ReadFile(file);
    OneOf(random, bytes) = static_cast<Byte>(random());
    if (OneIn(random, 2)) {
        bytes.resize(random() % bytes.size());
    }
    FilePath name = "schaden-" + std::to_string(number);
    std::ofstream(folder / (name += file.extension()), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}

/// Another program changes or removes one of the files that were saved. Gives what stood in it.
inline EntrySet ChangeAFile(const TestFolder& folder, Random& random, FileReader& reader) {
    static const std::vector<const char*> Names = {"a.t9t", "b.t9t", "a.pbo", "a.csv", "hart.t9t"};
    const FilePath file = folder / OneOf(random, Names);
    if (!std::filesystem::exists(file)) {
        return {};
    }
    EntrySet before = reader.EntriesIn(file);
    if (OneIn(random, 2)) {
        std::filesystem::remove(file);
    } else {
        std::ofstream(file, std::ios::binary | std::ios::trunc) << "Name;Tel\r\nFremd;1\r\n";
    }
    return before;
}

}  // namespace norvik::test
