#include "mainwindow/versionswindow.h"

#include "base/outputfile.h"
#include "base/platform.h"
#include "formats/common/followload.h"
#include "formats/common/quietsave.h"
#include "formats/common/registerfileheader.h"
#include "formats/formattable.h"
#include "losses/lossreport.h"
#include "mainwindow/registerlistwindow.h"
#include "versions/keptregister.h"
#include "versions/versionstore.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace norvik {

namespace {

constexpr TextView SaveFilter =
    u"norvik-195/193-Datei|*.t9t|norvik-175-Datei|*.pbo|CSV-Datei|*.csv|vCard-Datei|*.vcf|"
    u"Alle Dateien|*.*";
constexpr std::string_view SaveEnding = ".t9t";
constexpr TextView AnyFilter = u"Alle Dateien|*.*";

/// Looks into a version without showing anything.
class SilentDesktop : public Desktop {
  public:
    Button Ask(const MessageBox& box) override { return box.defaultButton; }
    std::optional<Text> AskForText(const InputBox& /*box*/) override { return std::nullopt; }
    std::optional<FilePath> AskForFileToOpen(const FileDialog& /*dialog*/) override {
        return std::nullopt;
    }
    std::optional<FilePath> AskForFileToSave(const FileDialog& /*dialog*/) override {
        return std::nullopt;
    }
    bool AskToReplace(const FilePath& /*file*/) override { return false; }
};

bool IsText(const Bytes& bytes) {
    constexpr std::uint8_t Delete = 0x7F;
    return std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) {
        return byte == '\t' || byte == '\n' || byte == '\r' || (byte >= ' ' && byte != Delete);
    });
}

/// The format of a kept file: by its original's ending, else by what it begins with, else that of
/// texts; none for the bytes of a phone list or a picture.
std::optional<FileFormat> FormatOf(const Version& version) {
    const auto format = SourceOfEnding(version.Original);
    if (format && RowOf(*format).Load != nullptr) {
        return *format;
    }
    const bool hasHeader =
        version.Content.size() >= RegisterFileHeader.size() &&
        std::equal(RegisterFileHeader.begin(), RegisterFileHeader.end(), version.Content.begin());
    return hasHeader                 ? std::optional(FileFormat::Register195)
           : IsText(version.Content) ? std::optional(FileFormat::Csv)
                                     : std::nullopt;
}

bool LoadBytes(RegisterState& state, const Version& version, const Settings& settings,
               Desktop& desktop) {
    const std::optional<FileFormat> format = FormatOf(version);
    const auto modified = FileTimeOf(version.When, 0);
    return format && RowOf(*format).Load(
                         state,
                         [&] {
                             return SourceFile{version.Content, version.Original, modified};
                         },
                         {}, settings, desktop);
}

/// The register that a version holds, nothing for one that cannot be read to its end.
std::optional<RegisterState> RegisterIn(const Version& version, const Settings& settings) {
    if (version.IsRegister) {
        return DecodeRegister(version.Content);
    }
    try {
        RegisterState state;
        ResetRegister(state);
        SilentDesktop silent;
        return LoadBytes(state, version, settings, silent) && state.AnzGes > 0
                   ? std::optional(std::move(state))
                   : std::nullopt;
    } catch (const RuntimeError&) {
        return std::nullopt;
    } catch (const HardStop&) {  // ends a load, not a look
        return std::nullopt;
    }
}

VersionRow RowOfVersion(const FilePath& file, const Program& program) {
    const std::optional<Version> version = ReadVersion(file);
    if (!version) {
        return {.File = file};
    }
    const auto state = RegisterIn(*version, program.Set);
    const auto when = FileTimeOf(version->When, 0);
    return {.File = file,
            .When = when ? FormatDateTime(*when) : Text(),
            .Original = TextFromPath(version->Original),
            .Why = Text(DescriptionOf(version->Why)),
            .Entries = state ? Decimal(state->AnzGes) : Text(u"?")};
}

const VersionRow* ChosenRow(const VersionsFields& fields) {
    const auto row = static_cast<std::size_t>(fields.Chosen);
    return fields.Chosen >= 0 && row < fields.ListVersions.size() ? &fields.ListVersions[row]
                                                                  : nullptr;
}

void ShowNames(Program& program) {
    VersionsFields& fields = program.Versions;
    fields.ListNames.clear();
    const VersionRow* row = ChosenRow(fields);
    const auto version = row == nullptr ? std::nullopt : ReadVersion(row->File);
    const auto state = version ? RegisterIn(*version, program.Set) : std::nullopt;
    for (int position = 1; state && position <= state->AnzGes; ++position) {
        fields.ListNames.push_back(EntryAt(*state, position).Name);
    }
}

/// Reads the folder again; the chosen version stays chosen. A version never changes, so what was
/// read of it stays.
void Refresh(Program& program) {
    VersionsFields& fields = program.Versions;
    const VersionRow* before = ChosenRow(fields);
    const FilePath chosen = before == nullptr ? FilePath() : before->File;
    std::map<FilePath, VersionRow> known;
    for (VersionRow& row : fields.ListVersions) {
        known.emplace(row.File, std::move(row));
    }
    fields.ListVersions.clear();
    for (const Version& version : ListVersions(program.Keep.Folder)) {
        const auto row = known.find(version.File);
        fields.ListVersions.push_back(row == known.end() ? RowOfVersion(version.File, program)
                                                         : std::move(row->second));
    }
    const auto found = std::find_if(fields.ListVersions.begin(), fields.ListVersions.end(),
                                    [&](const VersionRow& row) { return row.File == chosen; });
    const auto last = static_cast<int>(fields.ListVersions.size()) - 1;
    fields.Chosen = found != fields.ListVersions.end()
                        ? static_cast<int>(found - fields.ListVersions.begin())
                        : std::min(std::max(fields.Chosen, 0), last);
    fields.Changes = program.Keep.Changes;
    ShowNames(program);
}

/// The chosen version with the register in it, if there is one.
struct ChosenVersion {
    Version Kept;
    std::optional<RegisterState> State;
};

/// Nothing, and a message, where the version cannot be read, or has no register but one is needed.
std::optional<ChosenVersion> ReadChosen(const Program& program, bool needsRegister,
                                        Desktop& desktop) {
    const VersionRow* row = ChosenRow(program.Versions);
    if (row == nullptr) {
        return std::nullopt;
    }
    std::optional<Version> version = ReadVersion(row->File);
    std::optional<RegisterState> state = version ? RegisterIn(*version, program.Set) : std::nullopt;
    if (!version || (!state && (needsRegister || version->IsRegister))) {
        desktop.Ask({.text = u"Dieser Stand lässt sich nicht lesen.", .icon = Icon::Critical});
        return std::nullopt;
    }
    return ChosenVersion{std::move(*version), std::move(state)};
}

/// The register format of a name; a 193 file where it loses nothing, since both end alike.
FileFormat TargetFormat(const FilePath& path, const RegisterState& state) {
    const auto format = TargetOfEnding(path);
    if (format == FileFormat::Phonebook175 || format == FileFormat::Csv ||
        format == FileFormat::VCard) {
        return *format;
    }
    return state.File.Type == u"193" && LossReport(state, FileFormat::Register193).empty()
               ? FileFormat::Register193
               : FileFormat::Register195;
}

/// A file that is to be of the same kind again, or holds no register, stays byte for byte.
void WriteVersion(ChosenVersion& chosen, const OutputTarget& target, const Settings& settings,
                  Desktop& desktop) {
    const Version& version = chosen.Kept;
    const auto ending = [](const FilePath& file) {
        return LowerCase(TextFromPath(file.extension()));
    };
    if (!chosen.State || (!version.IsRegister && ending(target.Path) == ending(version.Original))) {
        OutputFile file(target);
        file.Write(version.Content);
        file.Close();
        return;
    }
    RowOf(TargetFormat(target.Path, *chosen.State))
        .Write(*chosen.State, target, {}, settings, desktop);
}

}  // namespace

void mnuDateiVersions(Program& program, Windows& windows) {
    program.Keep.Note.clear();
    program.Versions.Open = true;
    Refresh(program);
    windows.ShowVersions();
}

Text VersionsCaption(const Program& program) {
    Text caption = u"&Frühere Stände...";
    return program.Keep.Note.empty() ? caption : caption.append(u" •");
}

void FollowVersions(Program& program) {
    if (program.Versions.Open && program.Versions.Changes != program.Keep.Changes) {
        Refresh(program);
    }
}

void ListVersions_Click(Program& program, int row) {
    program.Versions.Chosen = row;
    ShowNames(program);
}

void VERSIONS_btnLoad_Click(Program& program, Desktop& desktop, Windows& windows) {
    const auto chosen = ReadChosen(program, true, desktop);
    if (!chosen) {
        return;
    }
    const Version& version = chosen->Kept;
    RegisterState& state = program.State;
    const unsigned wholeFiles = state.WholeFiles;
    if (version.IsRegister) {
        const unsigned generation = state.Generation + 1;
        state = *chosen->State;
        state.Generation = generation;
        desktop.ShowCurrentFile();
        ShowFirstEntry(state, desktop);
    } else if (LoadBytes(state, version, program.Set, desktop)) {
        FollowLoad(state, desktop);
    }
    // No file but the kept one holds it.
    state.WholeFiles = wholeFiles;
    state.RegisterSaved = false;
    RenewRegisterList(program, desktop, windows);
    desktop.SetStatus((u"Geladen: Stand vom " + ChosenRow(program.Versions)->When)
                          .append(u", ")
                          .append(DescriptionOf(version.Why)));
}

void VERSIONS_btnSaveAs_Click(Program& program, Desktop& desktop) {
    auto chosen = ReadChosen(program, false, desktop);
    if (!chosen) {
        return;
    }
    const std::string ending = chosen->State ? std::string(SaveEnding)
                                             : platform::Utf8Of(chosen->Kept.Original.extension());
    const auto name = desktop.AskForFileToSave(
        {.filter = Text(chosen->State ? SaveFilter : AnyFilter), .ending = ending});
    if (!name) {
        return;
    }
    const FilePath path = WithEnding(*name, ending);
    const SaveResult result = TrySave(
        path,
        [&](const OutputTarget& target) { WriteVersion(*chosen, target, program.Set, desktop); },
        desktop);
    if (result.Failure) {
        ShowNotSaved(*result.Failure, desktop);
    } else {
        ShowSaved(path, desktop, result.Remark);
    }
}

void VERSIONS_btnRemove_Click(Program& program) {
    if (const VersionRow* row = ChosenRow(program.Versions)) {
        std::error_code ignored;  // one that does not go stays in the list
        std::filesystem::remove(row->File, ignored);
        Refresh(program);
    }
}

void VERSIONS_btnClose_Click(Program& program, Windows& windows) {
    program.Versions = VersionsFields();
    windows.CloseVersions();
}

}  // namespace norvik
