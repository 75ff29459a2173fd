#include "mainwindow/showentry.h"

namespace norvik {

namespace {

/// The tone list holds "kein" in front of tone 0, the MSN list "(lt. Telefon)" in front of MSN 1.
constexpr int ItemsBeforeFirst = 1;

Text& Field(MainWindowFields& fields, int number) {
    return fields.Anzeigefeld.at(static_cast<std::size_t>(number));
}

const Text& Field(const MainWindowFields& fields, int number) {
    return fields.Anzeigefeld.at(static_cast<std::size_t>(number));
}

int ItemOrNone(int item, const std::vector<Text>& items) {
    return item >= 0 && item < static_cast<int>(items.size()) ? item : NoItem;
}

Text RunningNumber(int value, int position) {
    return Hex2(value) + u" (" + Decimal(position) + u")";
}

void ShowTexts(const RegisterEntry& entry, MainWindowFields& fields) {
    Field(fields, NameField) = Slice(entry.Name, 0, FieldWidth);
    Field(fields, TelField) = Slice(entry.Tel, 0, FieldWidth);
    for (int line = 0; line < InfoLines; ++line) {
        Field(fields, FirstInfoField + line) = InfoLine(entry, line);
    }
}

void ShowChoices(const RegisterEntry& entry, double unitPrice, MainWindowFields& fields) {
    fields.DDTon = 0;
    fields.chkTon = false;
    if (entry.Ton != 0) {
        fields.chkTon = HasOwnTone(entry);
        fields.DDTon = ItemOrNone((entry.Ton & ToneMask) + ItemsBeforeFirst, fields.DDTonItems);
    }
    fields.AnzGeb = FormatAmount(entry.GebEinh * unitPrice);
    fields.ChargeErased = false;
    fields.DDAB = ItemOrNone(entry.AB, fields.DDABItems);
    fields.chkCharge = HasChargeCounter(entry);
    fields.OptFilter = FilterOf(entry);
    const int msn = MsnOf(entry);
    fields.DDMSN = msn <= LastMsn ? msn + ItemsBeforeFirst : 0;
    fields.chkExport = IsMarked(entry);
}

void ShowDiagnostics(const RegisterEntry& entry, int position, MainWindowFields& fields) {
    const std::array<Text, LastDiagnosticField - FirstDiagnosticField + 1> values = {
        Hex2(entry.Ton),
        Decimal(entry.GebEinh),
        Hex2(entry.AB),
        Hex2(entry.MsnFilter),
        RunningNumber(entry.RecIndex, position),
        RunningNumber(entry.RecNumber, position)};
    for (std::size_t i = 0; i < values.size(); ++i) {
        fields.Anzeigefeld.at(FirstDiagnosticField + i) = values.at(i);
    }
}

std::int16_t ToneOf(const MainWindowFields& fields) {
    if (fields.DDTon < ItemsBeforeFirst) {  // "kein" or nothing, whatever chkTon says
        return 0;
    }
    return static_cast<std::int16_t>(fields.DDTon - ItemsBeforeFirst + (fields.chkTon ? EnTon : 0));
}

std::int16_t MsnFilterOf(const MainWindowFields& fields) {
    const int charge = fields.chkCharge ? 1 : 0;
    const int msn =
        fields.DDMSN < ItemsBeforeFirst ? MsnOfTelephone : fields.DDMSN - ItemsBeforeFirst;
    return static_cast<std::int16_t>((fields.OptFilter * 4 + charge) * 16 + msn);
}

}  // namespace

void ShowEntry(const RegisterState& state, double unitPrice, MainWindowFields& fields) {
    const RegisterEntry& entry = EntryAt(state, state.AnzNr);
    fields.Index = state.RegisterOrder(state.AnzNr);
    ShowTexts(entry, fields);
    ShowChoices(entry, unitPrice, fields);
    ShowDiagnostics(entry, state.AnzNr, fields);
    fields.btnSaveChange = EditState::Neutral;
}

void StoreEntry(const MainWindowFields& fields, RegisterState& state) {
    RegisterEntry& entry = EntryAt(state, state.AnzNr);
    entry.Name = Field(fields, NameField);
    entry.Tel = Field(fields, TelField);
    Text info;
    for (int line = 0; line < InfoLines; ++line) {
        info += PadOrCut(Field(fields, FirstInfoField + line), InfoLineWidth);
    }
    entry.Info = RightTrim(info);
    entry.Ton = ToneOf(fields);
    if (fields.ChargeErased) {  // an amount of 0,00 may just be that of a small unit price
        entry.GebEinh = 0;
    }
    entry.AB = static_cast<std::int16_t>(fields.DDAB == NoItem ? 0 : fields.DDAB);
    entry.MsnFilter = MsnFilterOf(fields);
}

}  // namespace norvik
