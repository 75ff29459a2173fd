#include "registertools/fillregisterlist.h"

#include <algorithm>
#include <utility>

namespace norvik {

namespace {

/// What an entry's lines are made with.
struct Reasons {
    TextView Filter;
    const std::vector<Text>& ToneNames;
    double UnitPrice;

    [[nodiscard]] bool Has(char16_t letter) const { return Filter.find(letter) != TextView::npos; }
    [[nodiscard]] bool HasCallFilter(char16_t letter) const {
        return Has(letter) || Has(AnyFilterLetter);
    }
};

/// A number as a signed decimal: a blank stands in the place of the plus sign.
Text SignedDecimal(int value) {
    return (value < 0 ? Text() : Text(u" ")) + Decimal(value);
}

/// The name of the entry's tone; none for a number that the list does not have.
Text ToneName(const RegisterEntry& entry, const std::vector<Text>& names) {
    const std::size_t item = static_cast<std::size_t>(entry.Ton & ToneMask) + 1;
    return item < names.size() ? names[item] : Text();
}

/// The reasons for which an entry is listed, in their fixed order.
std::vector<Text> ReasonsFor(const RegisterEntry& entry, const Reasons& wanted) {
    constexpr int FirstFlag = 16;
    constexpr int FilterUnitOfFlags = 4;
    // All bits from bit 6 on, unlike the two that the main window shows.
    const int filter = entry.MsnFilter / FirstFlag / FilterUnitOfFlags;
    std::vector<Text> reasons;
    const auto add = [&reasons](bool listed, const Text& reason) {
        if (listed) {
            reasons.push_back(reason);
        }
    };
    add(wanted.Has(u'T') && HasOwnTone(entry), u"Ton " + ToneName(entry, wanted.ToneNames));
    add(wanted.Has(u'A') && entry.AB > 0, u"AB-Ansage" + SignedDecimal(entry.AB));
    add(wanted.Has(u'G') && HasChargeCounter(entry),
        u"GZ " + FormatAmount(entry.GebEinh * wanted.UnitPrice));
    add(wanted.Has(NoFilterLetter) && filter == 0, u"kein Filter");
    add(wanted.HasCallFilter(u'R') && filter == 1, u"Anruffilter");
    add(wanted.HasCallFilter(u'V') && filter == 2, u"VIP-Filter");
    add(wanted.HasCallFilter(u'C') && filter == 3, u"CD- Filter");
    add(wanted.Has(u'M') && MsnOf(entry) <= LastMsn, u"MSN" + SignedDecimal(MsnOf(entry) + 1));
    add(wanted.Has(u'3') && IsMarked(entry), u"Markiert ");
    return reasons;
}

struct Line {
    Text Shown;
    int Place = 0;  ///< of its entry, in the table
    Text Key;       ///< by which it is sorted
};

/// What a line says behind the reason.
Text LineEndOf(const RegisterEntry& entry) {
    Text end = u":  " + entry.Name;
    end.append(u" (").append(entry.Tel).append(u")");
    return end;
}

void ShowSorted(std::vector<Line> lines, RegisterListFields& fields) {
    std::stable_sort(lines.begin(), lines.end(),
                     [](const Line& a, const Line& b) { return a.Key < b.Key; });
    fields.ListResult.clear();
    fields.ListPlaces.clear();
    for (Line& line : lines) {
        fields.ListResult.push_back(std::move(line.Shown));
        fields.ListPlaces.push_back(line.Place);
    }
    fields.AnzTreffer = Decimal(static_cast<long long>(lines.size()));
}

}  // namespace

void FillRegisterList(TextView filter, RegisterState& state, const std::vector<Text>& toneNames,
                      double unitPrice, RegisterListFields& fields) {
    const Reasons wanted = {filter, toneNames, unitPrice};
    std::vector<Line> lines;
    for (int position = 1; position <= state.AnzGes; ++position) {
        RegisterEntry& entry = EntryAt(state, position);
        const std::vector<Text> reasons = ReasonsFor(entry, wanted);
        entry.Listed = !reasons.empty();
        for (const Text& reason : reasons) {
            const Text line = reason + LineEndOf(entry);
            lines.push_back({line, state.RegisterOrder(position), LowerCase(line)});
        }
    }
    ShowSorted(std::move(lines), fields);
}

int PositionOfLine(const RegisterListFields& fields, int line, const RegisterState& state) {
    const auto index = static_cast<std::size_t>(line);
    if (line < 0 || index >= fields.ListResult.size()) {
        return 0;
    }
    const TextView shown = fields.ListResult[index];
    int sameText = 0;
    for (int position = 1; position <= state.AnzGes; ++position) {
        if (shown.ends_with(LineEndOf(EntryAt(state, position)))) {
            if (state.RegisterOrder(position) == fields.ListPlaces.at(index)) {
                return position;
            }
            sameText = sameText == 0 ? position : sameText;
        }
    }
    return sameText;
}

}  // namespace norvik
