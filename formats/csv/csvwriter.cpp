#include "formats/common/namingentry.h"
#include "formats/csv/csvformat.h"

namespace norvik {

namespace {

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

    void Add(TextView value) {
        line_.append(first_ ? quote_ : between_).append(value);
        first_ = false;
    }

    void EndLine() {
        line_.append(quote_).append(LineEnd);
        bytes_.clear();
        AppendBytes(bytes_, line_);
        output_.Write(bytes_);
        line_.clear();
        first_ = true;
    }

  private:
    OutputFile& output_;
    Text quote_;
    Text between_;
    Text line_;  ///< one for the whole file, so that its room is taken once
    Bytes bytes_;
    bool first_ = true;
};

/// Hands the values of an entry to `take`, column by column, without making texts of them that
/// nobody keeps.
template <typename Take>
void GiveValues(const RegisterEntry& entry, Take take) {
    take(entry.Name);
    take(entry.Tel);
    for (std::size_t line = 0; line < InfoLines; ++line) {
        take(RightTrim(Slice(entry.Info, line * InfoLineWidth, InfoLineWidth)));
    }
    take(Decimal(entry.AB));
    take(Decimal(entry.Ton & ToneMask));
    take(YesOrNo(HasOwnTone(entry)));
    take(MsnOf(entry) <= LastMsn ? Hex2(MsnOf(entry) + 1) : Hex2(0));
    const auto filter = static_cast<std::size_t>(FilterOf(entry)) * csvformat::FilterNameLength;
    take(Slice(csvformat::FilterNames, filter, csvformat::FilterNameLength));
    take(Decimal(entry.GebEinh));
    take(YesOrNo(HasChargeCounter(entry)));
}

}  // namespace

std::array<Text, csvformat::Columns> CsvValues(const RegisterEntry& entry) {
    std::array<Text, csvformat::Columns> values;
    std::size_t column = 0;
    GiveValues(entry, [&](TextView value) { values.at(column++) = value; });
    return values;
}

void SaveCSV(RegisterState& state, const OutputTarget& target, Desktop& desktop) {
    const bool quoted = desktop.Ask({.text = u"Sollen die Daten in \" \" gesetzt werden?",
                                     .title = u"Speichern im CSV-Format",
                                     .icon = Icon::Question,
                                     .buttons = {Button::Yes, Button::No},
                                     .defaultButton = Button::Yes}) == Button::Yes;
    WriteCSV(state, target, quoted);
}

void WriteCSV(RegisterState& state, const OutputTarget& target, bool quoted) {
    OutputFile output(target);
    LineWriter lines(output, quoted);
    for (const TextView header : csvformat::Headers) {
        lines.Add(header);
    }
    lines.EndLine();
    for (int position = 1; position <= state.AnzGes; ++position) {
        NamingEntry(state, position, [&lines](const RegisterEntry& entry) {
            GiveValues(entry, [&lines](TextView value) { lines.Add(value); });
            lines.EndLine();
        });
    }
    output.Close();
    NoteSaved(state, u"CSV");
}

}  // namespace norvik
