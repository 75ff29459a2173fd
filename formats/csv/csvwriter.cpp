#include "formats/csv/csvformat.h"

namespace norvik {

namespace {

using csvformat::Column;

TextView YesOrNo(bool yes) {
    return yes ? csvformat::Yes : csvformat::No;
}

/// Writes lines of values, each between quotes or not.
class LineWriter {
  public:
    LineWriter(OutputFile& output, bool quoted)
        : output_(output),
          quote_(quoted ? 1 : 0, csvformat::Quote),
          between_(quote_ + csvformat::Separator + quote_) {}

    template <typename Values>
    void Write(const Values& values) {
        line_.assign(quote_).append(values.front());
        for (std::size_t i = 1; i < values.size(); ++i) {
            line_.append(between_).append(values[i]);
        }
        line_.append(quote_).append(LineEnd);
        output_.Write(BytesFromText(line_));
    }

  private:
    OutputFile& output_;
    Text quote_;
    Text between_;
    Text line_;  ///< one for the whole file, so that its room is taken once
};

}  // namespace

std::array<Text, csvformat::Columns> CsvValues(const RegisterEntry& entry) {
    std::array<Text, csvformat::Columns> values;
    values[Column::Name] = entry.Name;
    values[Column::Tel] = entry.Tel;
    for (int line = 0; line < InfoLines; ++line) {
        const std::size_t start = static_cast<std::size_t>(line) * InfoLineWidth;
        values.at(Column::Info1 + static_cast<std::size_t>(line)) =
            RightTrim(Slice(entry.Info, start, InfoLineWidth));
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

void SaveCSV(RegisterState& state, const FilePath& file, Desktop& desktop) {
    const bool quoted = desktop.Ask({.text = u"Sollen die Daten in \" \" gesetzt werden?",
                                     .title = u"Speichern im CSV-Format",
                                     .icon = Icon::Question,
                                     .buttons = {Button::Yes, Button::No},
                                     .defaultButton = Button::Yes}) == Button::Yes;
    WriteCSV(state, file, quoted);
}

void WriteCSV(RegisterState& state, const FilePath& file, bool quoted) {
    OutputFile output(file);
    LineWriter lines(output, quoted);
    lines.Write(csvformat::Headers);
    for (int position = 1; position <= state.AnzGes; ++position) {
        lines.Write(CsvValues(EntryAt(state, position)));
    }
    output.Close();
    state.RegisterSaved = true;
}

}  // namespace norvik
