#include "base/lines.h"
#include "base/repeatedbox.h"
#include "formats/phonebook175/phonebookfile.h"
#include "registertools/checkregister.h"

namespace norvik {

namespace {

using namespace phonebookfile;

constexpr std::size_t InfoWidth = InfoLines * InfoLineWidth;

/// Reads the eight lines of an entry. Gives false, after a message, at a line that ends it early:
/// one with a wrong key for the name or number, or, once the file is known to be corrupt, any info
/// line. `line` is the room of its lines.
bool ReadEntry(LineReader& lines, Text& line, RegisterEntry& entry, long long& corruptLines,
               RepeatedBox& reports) {
    constexpr int NameLine = -1;
    constexpr int TelLine = 0;
    for (int j = NameLine; j <= InfoLines; ++j) {
        AssignFromBytes(line, lines.NextBytesOrRaise());
        const TextView key = Slice(line, 0, KeyLength);
        const TextView value = Slice(line, KeyLength);
        if (j == NameLine && key == NameKey) {
            entry.Name = Slice(value, 0, FieldWidth);
            continue;
        }
        if (j == TelLine && key == TelKey) {
            entry.Tel = Slice(value, 0, FieldWidth);
            continue;
        }
        const bool wrongKey = j <= TelLine || key != InfoKey;
        const std::size_t width = entry.Info.size() + InfoLineWidth;
        if (!wrongKey && width <= InfoWidth) {
            // In a corrupt file an entry is begun again and again; its text stays an info text.
            entry.Info.append(Slice(value, 0, InfoLineWidth));
            entry.Info.resize(width, u' ');
        }
        if (wrongKey || corruptLines > 0) {
            ++corruptLines;
            reports.Ask({.text = u"175-Datei korrupt, Lesen abgebrochen",
                         .title = u"Fehlermeldung",
                         .icon = Icon::Critical});
            return false;
        }
    }
    return true;
}

}  // namespace

int ReadPhonebookEntries(RegisterState& state, LineReader& lines, Desktop& desktop,
                         const Clock& clock) {
    LoadProgress progress(u"175-Datei", lines.Remaining(), desktop, clock);
    int& count = state.RecordsRead;
    count = 0;
    Text line;
    RepeatedBox reports(desktop);
    while (count < RegisterPlaces && !lines.AtEnd()) {
        const int place = count + 1;
        state.RegisterOrder(place) = static_cast<std::int16_t>(place);
        RegisterEntry& entry = state.Register(place);
        progress.Remaining(lines.Remaining());
        if (!ReadEntry(lines, line, entry, state.Damage.CorruptLines, reports)) {
            continue;
        }
        entry.Info.resize(RightTrim(entry.Info).size());
        entry.RecIndex = static_cast<std::int16_t>(place);
        entry.MsnFilter = MsnOfTelephone;
        count = place;
    }
    state.Damage.IsFull = HasFilledLine(lines);
    progress.Done();
    return count;
}

bool LoadPhonebookFile(RegisterState& state, const FilePath& path, Desktop& desktop) {
    return LoadPhonebookFile(state, ReadSourceFile(path), desktop);
}

bool LoadPhonebookFile(RegisterState& state, const SourceFile& file, Desktop& desktop) {
    LineReader lines(file.Content);
    const Text first = lines.NextOrRaise();
    if (TrimBlanks(first) != phonebookfile::Identification) {
        LongReport text(u"Dies ist keine Norvik-175-Registerdatei!");
        text.Append(LineEnd).Append(u"(").Append(first).Append(u")");  // may be a whole file
        desktop.Ask({.text = text.Shown(), .title = u"Fehlermeldung", .icon = Icon::Critical});
        return false;
    }
    ResetRegister(state);
    state.LoadReport.Clear();
    state.LoadedModel = u"175";
    state.File = {.Type = state.LoadedModel, .Path = file.Path, .Modified = file.Modified};
    desktop.SetPointer(Pointer::Hourglass);
    const int count = ReadPhonebookEntries(state, lines, desktop);
    desktop.SetPointer(Pointer::Normal);
    CheckRegister(state, desktop);
    desktop.ShowCurrentFile();
    SetCount(state, count);
    RefreshStatus(state, desktop);
    return true;
}

}  // namespace norvik
