#include "formats/vcard/vcard.h"
#include "formats/vcard/vcardentries.h"

#include <algorithm>
#include <utility>

namespace norvik {

namespace {

struct ReadContacts {
    VCardEntries Entries;
    long long Contacts = 0;
    bool LastIsCut = false;  ///< the file ends in the midst of a card
    std::optional<RuntimeError> Failure = {};
};

/// Reads as far as it goes.
void ReadAll(ReadContacts& read, InputStream& input, Charset characters, Desktop& desktop,
             const Clock& clock) {
    const auto size = static_cast<std::size_t>(input.Size().value_or(0));
    read.Entries.Reserve();
    LoadProgress progress(u"vCard-Datei", size, desktop, clock);
    VCardReader reader(input, characters);
    VCardContact contact;
    try {
        while (reader.Next(contact)) {
            ++read.Contacts;
            read.LastIsCut = !contact.IsWhole;
            read.Entries.Take(contact);
            if (size > 0) {
                const auto taken = static_cast<std::size_t>(reader.BytesRead());
                progress.Remaining(size - std::min(taken, size));
            }
        }
        progress.Done();
    } catch (const RuntimeError& error) {
        read.Failure = error;
    }
}

void ReportNothing(const ReadContacts& read, Desktop& desktop) {
    LongReport text(read.Contacts == 0 ? u"Dies ist keine vCard-Datei!"
                                       : u"In dieser vCard-Datei steht keine wählbare Rufnummer!");
    if (!read.Entries.Report.IsEmpty()) {
        text.Append(LineEnd).Append(LineEnd).Append(read.Entries.Report);
    }
    desktop.Ask({.text = text.Shown(), .title = u"Fehlermeldung", .icon = Icon::Critical});
}

void FillRegister(RegisterState& state, std::vector<RegisterEntry>& entries) {
    int& count = state.RecordsRead;
    count = 0;
    for (RegisterEntry& entry : entries) {
        entry.RecIndex = static_cast<std::int16_t>(count);
        ++count;
        state.Register(count) = std::move(entry);
    }
}

}  // namespace

bool LoadVCard(RegisterState& state, Source source, const Settings& settings, Desktop& desktop,
               Charset characters, const Clock& clock) {
    ReadContacts read{.Entries = VCardEntries(settings)};
    ReadAll(read, source.Content, characters, desktop, clock);
    if (read.Entries.Entries.empty()) {
        if (read.Failure) {
            throw RuntimeError(*read.Failure);
        }
        state.Damage.NothingToDial = read.Contacts > 0;
        ReportNothing(read, desktop);
        return false;
    }
    ResetRegister(state);
    state.LoadReport = std::move(read.Entries.Report);
    state.LoadedModel.clear();
    state.File = {.Type = Text(vcard::Type), .Path = source.Path, .Modified = source.Modified};
    FillRegister(state, read.Entries.Entries);
    state.Damage.IsFull = read.Entries.IsFull;
    state.Damage.EndsEarly = read.LastIsCut;  // the numbers that came are whole
    if (read.Failure) {
        throw RuntimeError(*read.Failure);
    }
    SetCount(state, state.RecordsRead);
    if (!state.LoadReport.IsEmpty()) {
        desktop.Ask({.text = state.LoadReport.Shown(), .title = u"vCard laden: Hinweise"});
    }
    desktop.ShowCurrentFile();
    return true;
}

}  // namespace norvik
