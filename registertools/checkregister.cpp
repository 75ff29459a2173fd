#include "registertools/checkregister.h"

namespace norvik {

namespace {

constexpr std::int32_t HighestCharge = 32768;
constexpr std::int16_t HighestAnnouncement = 7;
constexpr int HighestTone = 79;

void AddFinding(LongReport& report, const RegisterEntry& entry, TextView finding, int value) {
    report.Append(u"#").Append(Decimal(entry.RecIndex));
    report.Append(u"[").Append(entry.Name).Append(u"] ");
    report.Append(finding).Append(Decimal(value)).Append(LineEnd);
}

}  // namespace

int CheckEntry(RegisterEntry& entry, LongReport& report) {
    if (entry.Name.empty()) {
        return 0;
    }
    int findings = 0;
    if (entry.GebEinh > HighestCharge) {
        ++findings;
        AddFinding(report, entry, u"Gebührenzähler zu hoch: ", entry.GebEinh);
    }
    if (entry.AB > HighestAnnouncement) {
        ++findings;
        AddFinding(report, entry, u"Ansage zu hoch: ", entry.AB);
        entry.AB = 0;
    }
    if ((entry.Ton & ToneMask) > HighestTone) {
        ++findings;
        AddFinding(report, entry, u"Klang zu hoch: ", entry.Ton);
        entry.Ton = 0;
    }
    return findings;
}

void CheckRegister(RegisterState& state, Desktop& desktop) {
    int findings = 0;
    for (int index = 1; index <= RegisterPlaces; ++index) {
        findings += CheckEntry(state.Register(index), state.LoadReport);
    }
    if (state.LoadReport.IsEmpty()) {
        return;
    }
    // A charge counter that is too high counts as corrected although it keeps its value.
    LongReport text(findings == 0 ? Text(NothingCorrected)
                                  : u"Es wurden " + Decimal(findings) + u" Fehler korrigiert");
    text.Append(LineEnd).Append(LineEnd).Append(state.LoadReport);
    desktop.Ask({.text = text.Shown(), .title = u"Fehlerprüfung", .icon = Icon::Information});
}

}  // namespace norvik
