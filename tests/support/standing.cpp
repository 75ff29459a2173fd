#include "tests/support/standing.h"

#include "base/files.h"
#include "base/platform.h"
#include "formats/formattable.h"
#include "tests/support/idledesktop.h"
#include "tests/support/scripteddesktop.h"
#include "versions/bytes.h"
#include "versions/keptregister.h"
#include "versions/versionstore.h"

#include <algorithm>

namespace norvik::test {

namespace {

namespace fs = std::filesystem;

bool IsEmptyEntry(const RegisterEntry& entry) {
    return entry.Name.empty() && entry.Tel.empty() && entry.Info.empty();
}

/// What stands in a file is what any menu item would load from it: which one did is not known, and
/// of a damaged file its beginning does not tell.
EntrySet EntriesInBytes(const Bytes& bytes, const FilePath& path) {
    RegisterState state;
    IdleDesktop desktop;
    const auto source = [&] { return SourceFile{bytes, path, std::nullopt}; };
    EntrySet entries;
    for (const FileFormat format :
         {FileFormat::Register195, FileFormat::Phonebook175, FileFormat::Csv}) {
        try {
            RowOf(format).Load(state, source, {}, Settings(), desktop);
            entries.merge(EntriesOf(state));
        } catch (const HardStop&) {
            state = RegisterState();  // nothing of it is ever shown
        }
    }
    return entries;
}

EntrySet EntriesInFile(const Bytes& bytes, const FilePath& path) {
    const std::optional<Version> version = DecodeVersion(bytes);
    if (!version) {
        return EntriesInBytes(bytes, path);
    }
    if (!version->IsRegister) {
        return EntriesInBytes(version->Content, path);
    }
    const std::optional<RegisterState> state = DecodeRegister(version->Content);
    return state ? EntriesOf(*state) : EntrySet();
}

}  // namespace

std::string LineOf(const RegisterEntry& entry) {
    std::string line = Utf8(entry.Name) + "|" + Utf8(entry.Tel) + "|" + Utf8(entry.Info);
    for (const int number : {int{entry.Ton}, int{entry.MsnFilter}, entry.GebEinh, int{entry.AB}}) {
        line += "|" + std::to_string(number);
    }
    return line;
}

EntrySet EntriesOf(const RegisterState& state) {
    EntrySet entries;
    for (int position = 1; position <= state.AnzGes; ++position) {
        const RegisterEntry& entry = EntryAt(state, position);
        if (!IsEmptyEntry(entry)) {
            entries.insert(LineOf(entry));
        }
    }
    return entries;
}

EntrySet UndoableEntries(const RegisterState& state, const History& history) {
    RegisterState shown = state;
    History steps = history;
    EntrySet entries;
    while (StepToUndo(steps) != nullptr) {
        Undo(steps, shown);
        entries.merge(EntriesOf(shown));
    }
    while (StepToRedo(steps) != nullptr) {
        Redo(steps, shown);
        entries.merge(EntriesOf(shown));
    }
    return entries;
}

const EntrySet& FileReader::EntriesIn(const FilePath& file) {
    const Bytes bytes = ReadWholeFile(file);
    const auto [found, isNew] = read_.try_emplace(HashOf(bytes));
    if (isNew) {
        found->second = EntriesInFile(bytes, file);
    }
    return found->second;
}

EntrySet FileReader::EntriesBelow(const FilePath& folder, std::string_view but) {
    EntrySet entries;
    for (const auto& file : fs::recursive_directory_iterator(folder)) {
        const std::string name = platform::Utf8Of(file.path().filename());
        // A process's lock is empty, and on some systems nobody else may read it.
        if (file.is_regular_file() && !name.ends_with(".lock") &&
            (but.empty() || !name.starts_with(but))) {
            entries.merge(EntrySet(EntriesIn(file.path())));
        }
    }
    return entries;
}

EntrySet Without(const EntrySet& entries, const EntrySet& others) {
    EntrySet rest;
    std::set_difference(entries.begin(), entries.end(), others.begin(), others.end(),
                        std::inserter(rest, rest.end()));
    return rest;
}

}  // namespace norvik::test
