#include "losses/lossreport_entry.h"

#include "formats/csv/csvformat.h"
#include "ringtones/tonenames.h"

namespace norvik {

namespace {

/// The info text without blanks at the ends of its lines, the lines joined.
Text ShownInfo(const Text& info) {
    Text shown;
    for (std::size_t start = 0; start < info.size(); start += InfoLineWidth) {
        const TextView line = TrimBlanks(Slice(info, start, InfoLineWidth));
        if (!line.empty()) {
            shown.append(shown.empty() ? u"" : u" / ").append(line);
        }
    }
    return shown;
}

Text WithoutMarks(Text info) {
    for (std::size_t mark = info.find(ExportMark); mark != Text::npos;
         mark = info.find(ExportMark)) {
        info.erase(mark, ExportMark.size());
    }
    return info;
}

/// "á wird zu ß, Š wird zu è" for each pair of characters that differ.
Text ChangedCharacters(TextView before, TextView after) {
    Text list;
    for (std::size_t i = 0; i < before.size(); ++i) {
        const Text change = Text(1, before[i]) + u" wird zu " + after[i];
        if (before[i] != after[i] && !Contains(list, change)) {
            list.append(list.empty() ? u"" : u", ").append(change);
        }
    }
    return list;
}

/// "fällt weg" for a value that became `none`, else what it became.
Text Fate(int after, int none) {
    return after == none ? Text(u" fällt weg") : u" wird zu " + Decimal(after);
}

/// The tone by the name that the window shows without a tone-names file, else by its number.
Text ToneWords(int tone) {
    const std::vector<Text> names = DefaultToneNames();
    const auto item = static_cast<std::size_t>(tone) + 1;
    return item < names.size() ? Sentence({u"Klingelton \"", names[item], u"\""})
                               : u"Klingelton " + Decimal(tone);
}

void CompareTones(int before, int after, EntryLosses& losses) {
    if (before == after) {
        return;
    }
    const bool valid = (before & ~(ToneMask | EnTon)) == 0;
    const bool own = valid && (before & EnTon) != 0;
    const Text tone = valid ? ToneWords(before & ToneMask) : u"Klingeltonwert " + Decimal(before);
    losses.Add(LossKind::RingTone, (own ? u"individueller " : u"") + tone + Fate(after, 0));
}

void CompareFlags(const RegisterEntry& before, const RegisterEntry& after, EntryLosses& losses) {
    if (MsnOf(before) != MsnOf(after)) {
        losses.Add(LossKind::Msn, u"MSN " + Decimal(MsnOf(before) + 1) + u" fällt weg");
    }
    if (FilterOf(before) != FilterOf(after)) {
        const Text filter = CsvValues(before)[csvformat::Filter];
        losses.Add(LossKind::CallFilter,
                   Sentence({u"Anruffilter ", RightTrim(filter), u" fällt weg"}));
    }
    if (HasChargeCounter(before) != HasChargeCounter(after)) {
        losses.Add(LossKind::ChargeCounter, u"Gebührenzähler (eingeschaltet) fällt weg");
    }
    if (((before.MsnFilter ^ after.MsnFilter) & ~MsnFilterMask) != 0) {
        losses.Add(LossKind::UnusedBits, u"unbenutzte Kennbits ändern sich");
    }
}

}  // namespace

void EntryLosses::Add(LossKind kind, Text what) {
    report_.push_back(
        {.Position = position_, .Name = Text(name_), .Kind = kind, .What = std::move(what)});
}

void EntryLosses::AddTear(LossKind kind, Text what) {
    torn_ = true;
    Add(kind, std::move(what));
}

Text Sentence(std::initializer_list<TextView> pieces) {
    Text sentence;
    for (const TextView piece : pieces) {
        sentence.append(piece);
    }
    return sentence;
}

bool Changes(Text& text, Text after) {
    const bool changes = text != after;
    text = std::move(after);
    return changes;
}

void TrimEnd(Text& text, const FieldWords& field, EntryLosses& losses) {
    if (Changes(text, Text(RightTrim(text)))) {
        losses.Add(LossKind::Blanks, Sentence({u"Leerzeichen am Ende ", field.Of, u" fallen weg"}));
    }
}

void Cut(Text& text, Text cut, const FieldWords& field, LossKind kind, EntryLosses& losses) {
    const Text length = Decimal(static_cast<long long>(cut.size()));
    if (Changes(text, std::move(cut))) {
        losses.Add(kind,
                   Sentence({field.Name, u" wird auf ", length, u" Zeichen gekürzt: ", text}));
    }
}

void CutInfo(Text& info, EntryLosses& losses) {
    if (Changes(info, Text(RightTrim(Slice(info, 0, InfoWidth))))) {
        losses.Add(LossKind::InfoCut,
                   u"Infotext wird auf " + Decimal(InfoWidth) + u" Zeichen gekürzt");
    }
}

void DropInfo(RegisterEntry& entry, EntryLosses& losses) {
    if (!TrimBlanks(WithoutMarks(entry.Info)).empty()) {
        losses.Add(LossKind::InfoText, u"Infotext fällt weg: " + ShownInfo(entry.Info));
    } else if (!entry.Info.empty() && !IsMarked(entry)) {
        losses.Add(LossKind::Blanks, u"Leerzeichen im Infotext fallen weg");
    }
    entry.Info.clear();
}

void DropValues(RegisterEntry& entry) {
    entry.Ton = 0;
    entry.MsnFilter = MsnOfTelephone;
    entry.GebEinh = 0;
    entry.AB = 0;
}

void NoteDeviceBytes(TextView before, TextView after, const FieldWords& field,
                     EntryLosses& losses) {
    if (before == after) {  // of most texts
        return;
    }
    const Text changes = ChangedCharacters(before, after);
    if (!changes.empty()) {
        losses.Add(LossKind::DeviceByte,
                   Sentence({u"im Gerät dasselbe Zeichen ", field.In, u": ", changes}));
    }
}

void CompareValues(const RegisterEntry& before, const RegisterEntry& after, EntryLosses& losses) {
    if (IsMarked(before) && !IsMarked(after)) {
        losses.Add(LossKind::Mark, u"Exportmarkierung fällt weg");
    }
    CompareTones(before.Ton, after.Ton, losses);
    if (before.AB != after.AB) {
        losses.Add(LossKind::Announcement, u"Ansage " + Decimal(before.AB) + Fate(after.AB, 0));
    }
    CompareFlags(before, after, losses);
    if (before.GebEinh != after.GebEinh) {
        losses.Add(LossKind::Charges,
                   u"Gebührenstand " + Decimal(before.GebEinh) + Fate(after.GebEinh, 0));
    }
}

}  // namespace norvik
