#include "registertools/checkregister.h"

namespace norvik {

namespace {

constexpr std::int32_t HighestCharge = 32768;
constexpr std::int16_t HighestAnnouncement = 7;
constexpr int HighestTone = 79;

void AddFinding(Text& report, const RegisterEntry& entry, TextView finding, int value) {
    report.append(u"#").append(Decimal(entry.RecIndex));
    report.append(u"[").append(entry.Name).append(u"] ");
    report.append(finding).append(Decimal(value)).append(LineEnd);
}

}  // namespace

int CheckEntry(RegisterEntry& entry, Text& report) {
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
    if (state.LoadReport.empty()) {
        return;
    }
    // A charge counter that is too high counts as corrected although it keeps its value.
    MessageBox box;
    box.text = u"Es wurden " + Decimal(findings) + u" Fehler korrigiert";
    box.text.append(LineEnd).append(LineEnd).append(state.LoadReport);
    box.title = u"Fehlerprüfung";
    box.icon = Icon::Information;
    desktop.Ask(box);
}

}  // namespace norvik
