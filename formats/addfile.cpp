#include "formats/addfile.h"

#include "formats/common/addentries.h"
#include "formats/common/registerfileheader.h"
#include "formats/formattable.h"
#include "registertools/checkregister.h"
#include "registertools/sortregister.h"

#include <algorithm>

namespace norvik {

namespace {

/// Asks as another desktop, but shows nothing of a register: the one that is read is not the one on
/// the screen. What only tells something is kept for one report.
class BehindTheScreen : public Desktop {
  public:
    explicit BehindTheScreen(Desktop& screen) : screen_(screen) {}

    Button Ask(const MessageBox& box) override {
        if (box.buttons.size() > 1) {
            return screen_.Ask(box);
        }
        if (last_ && !box.text.ends_with(last_->text)) {  // the new one does not repeat it
            AppendLast();
        }
        last_ = box;
        last_->ForAll = nullptr;
        return box.defaultButton;
    }
    std::optional<Text> AskForText(const InputBox& box) override { return screen_.AskForText(box); }
    std::optional<FilePath> AskForFileToOpen(const FileDialog& dialog) override {
        return screen_.AskForFileToOpen(dialog);
    }
    std::optional<FilePath> AskForFileToSave(const FileDialog& dialog) override {
        return screen_.AskForFileToSave(dialog);
    }
    bool AskToReplace(const FilePath& file) override { return screen_.AskToReplace(file); }
    void SetStatus(TextView text) override { screen_.SetStatus(text); }
    void SetPointer(Pointer pointer) override { screen_.SetPointer(pointer); }

    /// What has been told, as lines.
    LongReport Report() {
        if (last_) {
            AppendLast();
        }
        return report_;
    }
    /// Tells it, of a file of which nothing was read.
    void ShowReport() {
        if (!last_) {
            return;
        }
        MessageBox box = *last_;
        if (!report_.IsEmpty()) {
            box.text = report_.Append(box.text).Shown();
        }
        screen_.Ask(box);
    }

  private:
    void AppendLast() {
        TextView text = last_->text;
        if (text.starts_with(NothingCorrected)) {
            text.remove_prefix(NothingCorrected.size());
            text.remove_prefix(std::min(text.find_first_not_of(LineEnd), text.size()));
        }
        report_.Append(text);
        if (!text.empty() && !text.ends_with(LineEnd)) {
            report_.Append(LineEnd);
        }
        last_.reset();
    }

    Desktop& screen_;
    LongReport report_;
    std::optional<MessageBox> last_;
};

/// The formats that can be loaded, each ending once.
std::vector<const FormatRow*> RowsByEnding() {
    std::vector<const FormatRow*> rows;
    for (const FormatRow& row : FormatTable()) {
        if (row.Load != nullptr && SourceOfEnding(FilePath(row.Ending)) == row.Format) {
            rows.push_back(&row);
        }
    }
    return rows;
}

/// All endings at once, then one each.
FileDialog DialogForAll() {
    Text all;
    Text each;
    const std::vector<const FormatRow*> rows = RowsByEnding();
    for (const FormatRow* row : rows) {
        const Text pattern = u"*" + FromAscii(row->Ending);
        all.append(all.empty() ? u"" : u" ").append(pattern);
        each.append(u"|").append(row->OpenFilter.substr(0, row->OpenFilter.find(u'|')));
        each.append(u"|").append(pattern);
    }
    return {.filter = u"Register und Kontakte|" + all + each + u"|Alle Dateien|*.*",
            .ending = std::string(rows.front()->Ending)};
}

/// Null where the ending is that of no format that can be loaded.
const FormatRow* RowOfFile(const FilePath& path) {
    const std::optional<FileFormat> format = SourceOfEnding(path);
    const FormatRow* row = format ? &RowOf(*format) : nullptr;
    return row == nullptr || row->Load == nullptr ? nullptr : row;
}

/// Loads the file into a register of its own. Gives whether anything of it was read; `isWhole`
/// whether all of it was.
bool LoadBehindTheScreen(RegisterState& source, const FormatRow& row, const FilePath& path,
                         const SourceOptions& options, const Settings& settings, bool& isWhole,
                         Desktop& desktop) {
    const unsigned before = source.Generation;
    try {
        isWhole = row.Load(
            source, [&path] { return OpenSourceFile(path); }, options, settings, desktop);
    } catch (const HardStop&) {  // a broken entry; the register on the screen is as it was
        isWhole = false;
        SetCount(source, source.RecordsRead);
    }
    desktop.SetPointer(Pointer::Normal);
    if (source.Generation == before) {
        return false;
    }
    if (!isWhole) {
        SetCount(source, source.RecordsRead);
        CheckRegister(source, desktop);
    } else if (source.Damage.LastEntryIsCut) {
        SetCount(source, source.AnzGes - 1);
    }
    isWhole = isWhole && !source.Damage.EndsEarly;
    return true;
}

void ShowAdded(RegisterState& state, const AddedEntries& added, Desktop& desktop) {
    state.RegisterSaved = false;
    state.WarnLineAccessZero = true;
    int place = 1;
    while (state.RegisterOrder(place) != added.FirstIndex) {
        ++place;
    }
    SortRegister(state, place, desktop);
    SelectRecord(state, place, desktop);
    RefreshStatus(state, desktop);
}

}  // namespace

void mnuDateiAdd(RegisterState& state, const Settings& settings, const CsvLoadOptions& options,
                 Desktop& desktop) {
    const FileDialog dialog = DialogForAll();
    const std::optional<FilePath> chosen = desktop.AskForFileToOpen(dialog);
    if (!chosen) {
        return;
    }
    const FilePath path = WithEnding(*chosen, dialog.ending);
    const FormatRow* row = RowOfFile(path);
    if (row == nullptr) {
        desktop.Ask({.text = TextFromPath(path) + u" kann nicht dazugeladen werden",
                     .title = u"Dazuladen",
                     .icon = Icon::Critical});
        return;
    }
    RegisterState source;
    BehindTheScreen reader(desktop);
    bool isWhole = false;
    const bool isRead =
        LoadBehindTheScreen(source, *row, path, {.Csv = options}, settings, isWhole, reader);
    AddedEntries added;
    if (isRead) {
        added = AddEntries(state, source, settings);
        added.Findings = reader.Report().Append(added.Findings);
        if (!isWhole) {
            added.Findings.Append(u"Die Datei ist nicht bis zu ihrem Ende gelesen").Append(LineEnd);
        }
        if (source.Damage.IsFull) {
            added.Findings.Append(u"Die Datei hat mehr Einträge, als gelesen werden")
                .Append(LineEnd);
        }
    }
    if (added.Added > 0) {
        ShowAdded(state, added, desktop);
    }
    if (!isRead) {
        reader.ShowReport();
    } else if (added.Added == 0 || added.AlreadyThere > 0 || !added.Findings.IsEmpty()) {
        desktop.Ask(ReportOf(added));
    }
    desktop.SetStatus(StatusOf(added));
}

}  // namespace norvik
