#include "formats/charges/chargestatement.h"

#include "formats/common/devicecharacters.h"
#include "formats/common/quietsave.h"

namespace norvik {

namespace {

void WriteLine(OutputFile& output, const Text& line) {
    output.Write(BytesFromText(line + Text(LineEnd)));
}

}  // namespace

Text ChargeStatementName(const RegisterEntry& entry) {
    return DeviceToAnsi(BytesFromText(entry.Name));
}

void WriteChargeStatement(const RegisterState& state, double unitPrice,
                          const OutputTarget& target) {
    const CurrentFile& source = state.File;
    OutputFile output(target);
    WriteLine(output, u"Norvik Gebührenauszug");
    WriteLine(output, u"Typ: " + source.Type + u"   Zeit: " +
                          (source.Modified ? FormatDateTimeSeconds(*source.Modified) : Text()));
    WriteLine(output, u"Quelle: " + TextFromPath(source.Path));
    WriteLine(output, u"EINZELGEBÜHR" + Text(1, Tab) + u"NAME");
    double total = 0;
    for (int position = 1; position <= state.AnzGes; ++position) {
        const RegisterEntry& entry = EntryAt(state, position);
        if (HasChargeCounter(entry)) {
            const double amount = entry.GebEinh * unitPrice;
            total += amount;
            WriteLine(output, FormatAmount(amount) + Tab + ChargeStatementName(entry));
        }
    }
    WriteLine(output, {});
    WriteLine(output, FormatAmount(total) + Tab + u"GESAMTSUMME");
    output.Close();
}

void mnuGebAuszug(const RegisterState& state, const Settings& settings, Desktop& desktop) {
    if (desktop.Ask({.text = u"Diese Aktion speichert alle Gebühren in einer Textdatei.",
                     .title = u"Auszug",
                     .icon = Icon::Exclamation,
                     .buttons = {Button::Ok, Button::Cancel}}) != Button::Ok) {
        return;
    }
    const std::optional<FilePath> chosen =
        desktop.AskForFileToSave({.filter = Text(chargestatement::DialogFilter),
                                  .ending = std::string(chargestatement::Ending)});
    if (!chosen) {
        return;
    }
    desktop.SetStatus(u"Gebührenauszug wird erstellt...");
    const FilePath path = WithEnding(*chosen, chargestatement::Ending);
    Text remark = desktop.BeforeReplacing(path);
    SaveOrSay(
        [&] { WriteChargeStatement(state, settings.UnitPrice, TargetOf(path, desktop, remark)); },
        desktop);
    desktop.SetStatus(u"Gebührenauszug erstellt." + remark);
    desktop.ShowEntry();
}

}  // namespace norvik
