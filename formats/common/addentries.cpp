#include "formats/common/addentries.h"

#include "formats/common/doublednumbers.h"

#include <set>
#include <unordered_map>
#include <utility>

namespace norvik {

namespace {

bool IsEmpty(const RegisterEntry& entry) {
    return entry.Name.empty() && entry.Tel.empty() && entry.Info.empty();
}

/// Whether the register is as it is when the program has just started.
bool IsUnused(const RegisterState& state) {
    return state.AnzGes < 1 || (state.AnzGes == 1 && IsEmpty(EntryAt(state, 1)));
}

/// The entries that a register has, as far as adding looks at them.
class KnownEntries {
  public:
    explicit KnownEntries(const Settings& settings) : settings_(settings) {}

    [[nodiscard]] Text Key(const RegisterEntry& entry) const {
        return DialledKey(entry.Tel, settings_);
    }
    [[nodiscard]] bool Has(const RegisterEntry& entry, const Text& key) const {
        const bool isNoteAlone = entry.Name.empty() && key.empty();
        return !isNoteAlone && entries_.contains({entry.Name, key});
    }
    /// The name of the first entry with that number; null where there is none.
    [[nodiscard]] const Text* NameOf(const Text& key) const {
        const auto found = names_.find(key);
        return key.empty() || found == names_.end() ? nullptr : &found->second;
    }
    void Add(const RegisterEntry& entry, Text key) {
        entries_.emplace(entry.Name, key);
        names_.try_emplace(std::move(key), entry.Name);
    }

  private:
    const Settings& settings_;
    std::set<std::pair<Text, Text>> entries_;
    std::unordered_map<Text, Text> names_;
};

/// "Anna (030 1)".
Text Shown(const RegisterEntry& entry) {
    return (entry.Name + u" (").append(entry.Tel).append(u")");
}

void Copy(const RegisterEntry& entry, RegisterEntry& place) {
    const RegisterEntry empty = place;
    place = entry;
    place.RecIndex = empty.RecIndex;
    place.RecNumber = empty.RecNumber;
    place.Listed = empty.Listed;
}

}  // namespace

AddedEntries AddEntries(RegisterState& state, const RegisterState& source,
                        const Settings& settings) {
    AddedEntries added;
    KnownEntries known(settings);
    for (int position = 1; position <= state.AnzGes; ++position) {
        const RegisterEntry& entry = EntryAt(state, position);
        known.Add(entry, known.Key(entry));
    }
    for (int position = 1; position <= source.AnzGes; ++position) {
        const RegisterEntry& entry = EntryAt(source, position);
        Text key = known.Key(entry);
        if (IsEmpty(entry)) {
            continue;
        }
        if (known.Has(entry, key)) {
            ++added.AlreadyThere;
            continue;
        }
        const bool unused = IsUnused(state);
        if (!unused && state.AnzGes >= RegisterPlaces) {
            added.Findings.Append(u"Kein Platz mehr: ").Append(Shown(entry)).Append(LineEnd);
            continue;
        }
        if (const Text* name = known.NameOf(key)) {
            added.Findings.Append(u"Gleiche Rufnummer: ").Append(Shown(entry));
            added.Findings.Append(u" wie ").Append(*name).Append(LineEnd);
        }
        if (unused) {
            SetCount(state, 0);
        }
        const int index = state.RegisterOrder(AppendEntry(state));
        Copy(entry, state.Register(index));
        added.FirstIndex = added.Added == 0 ? index : added.FirstIndex;
        ++added.Added;
        known.Add(entry, std::move(key));
    }
    return added;
}

Text StatusOf(const AddedEntries& added) {
    return Decimal(added.Added) + (added.Added == 1 ? u" Eintrag" : u" Einträge") + u" dazugeladen";
}

MessageBox ReportOf(const AddedEntries& added) {
    LongReport text((added.Added == 1 ? u"Es wurde " : u"Es wurden ") + StatusOf(added));
    if (added.AlreadyThere > 0) {
        text.Append(u", ").Append(Decimal(added.AlreadyThere));
        text.Append(added.AlreadyThere == 1 ? u" war schon da" : u" waren schon da");
    }
    if (!added.Findings.IsEmpty()) {
        text.Append(LineEnd).Append(LineEnd).Append(added.Findings);
    }
    return {.text = text.Shown(), .title = u"Dazuladen", .icon = Icon::Information};
}

}  // namespace norvik
