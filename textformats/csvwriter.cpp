#include "textformats/csvformat.h"

namespace norvik {

namespace {

using csvformat::Column;
using Row = std::array<Text, csvformat::Columns>;

Text YesOrNo(bool yes) {
    return Text(yes ? csvformat::Yes : csvformat::No);
}

Row ValuesOf(const RegisterEntry& entry) {
    Row values;
    values[Column::Name] = entry.Name;
    values[Column::Tel] = entry.Tel;
    for (int line = 0; line < InfoLines; ++line) {
        const Text info = InfoLine(entry, line);
        values.at(Column::Info1 + static_cast<std::size_t>(line)) = RightTrim(info);
    }
    values[Column::AB] = Decimal(entry.AB);
    values[Column::Ton] = Decimal(entry.Ton & ToneMask);
    values[Column::EnTonColumn] = YesOrNo(HasOwnTone(entry));
    values[Column::Msn] = MsnOf(entry) <= LastMsn ? Hex2(MsnOf(entry) + 1) : Hex2(0);
    const auto filter = static_cast<std::size_t>(FilterOf(entry)) * csvformat::FilterNameLength;
    values[Column::Filter] = Slice(csvformat::FilterNames, filter, csvformat::FilterNameLength);
    values[Column::GebEinh] = Decimal(entry.GebEinh);
    values[Column::EnGebColumn] = YesOrNo(HasChargeCounter(entry));
    return values;
}

/// A line of the values, each between `quote`, which is a quote or nothing.
template <typename Values>
Bytes Line(const Values& values, TextView quote) {
    Text line(quote);
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i > 0) {
            line.append(quote).push_back(csvformat::Separator);
            line.append(quote);
        }
        line.append(values[i]);
    }
    line.append(quote).append(LineEnd);
    return BytesFromText(line);
}

}  // namespace

void SaveCSV(RegisterState& state, const FilePath& file, Desktop& desktop) {
    const bool quoted = desktop.Ask({.text = u"Sollen die Daten in \" \" gesetzt werden?",
                                     .title = u"Speichern im CSV-Format",
                                     .icon = Icon::Question,
                                     .buttons = {Button::Yes, Button::No},
                                     .defaultButton = Button::Yes}) == Button::Yes;
    const TextView quote = quoted ? TextView(&csvformat::Quote, 1) : TextView();
    OutputFile output(file);
    output.Write(Line(csvformat::Headers, quote));
    for (int position = 1; position <= state.AnzGes; ++position) {
        output.Write(Line(ValuesOf(EntryAt(state, position)), quote));
    }
    output.Close();
    state.RegisterSaved = true;
}

}  // namespace norvik
