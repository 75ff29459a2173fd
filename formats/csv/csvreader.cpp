#include "base/lines.h"
#include "base/platform.h"
#include "formats/common/globalize.h"
#include "formats/csv/csvformat.h"
#include "formats/csv/csvsplit.h"
#include "formats/csv/infoflow.h"
#include "registertools/checkregister.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace norvik {

namespace {

using csvformat::Column;

constexpr int FilterUnit = 1 << FilterShift;

constexpr long long Least16 = std::numeric_limits<std::int16_t>::min();
constexpr long long Most16 = std::numeric_limits<std::int16_t>::max();
constexpr long long Least32 = std::numeric_limits<std::int32_t>::min();
constexpr long long Most32 = std::numeric_limits<std::int32_t>::max();

std::int16_t Fit16(long long value) {
    if (value < Least16 || value > Most16) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int16_t>(value);
}

bool IsYes(TextView field) {
    return !field.empty() && Contains(u"1yYjJ", field.substr(0, 1));
}

/// The filter's code: its first letter's place in "AVC", 0 for any other.
long long FilterCode(TextView field) {
    constexpr TextView Letters = u"AVC";
    const std::size_t place = field.empty() ? TextView::npos : Letters.find(UpperCase(field[0]));
    return place == TextView::npos ? 0 : static_cast<long long>(place) + 1;
}

/// The MSN's value minus one goes into the flag word as it is; what is below 1 is none.
long long MsnIndex(TextView field) {
    const long long value = LeadingInteger(field, Least32, Most32);
    return value < 1 ? MsnOfTelephone : value - 1;
}

std::int16_t FlagWord(const CsvFields& fields) {
    if (fields.Count <= Column::Msn) {
        return MsnOfTelephone;
    }
    return Fit16(MsnIndex(fields.Values[Column::Msn]) +
                 FilterUnit * FilterCode(fields.Values[Column::Filter]) +
                 (IsYes(fields.Values[Column::EnGebColumn]) ? EnGeb : 0));
}

/// The info fields that the line has.
Text InfoOf(const CsvFields& fields) {
    const std::size_t end = std::min<std::size_t>(fields.Count, Column::Info6 + 1);
    const std::size_t count = end > Column::Info1 ? end - Column::Info1 : 0;
    return AssembleInfo(std::span(fields.Values).subspan(Column::Info1, count));
}

void TakeFields(const CsvFields& fields, RegisterEntry& entry, const Settings& settings,
                RepeatedBox& reports) {
    const auto& values = fields.Values;
    entry.Info.clear();
    entry.Name = CsvName(values[Column::Name]);
    entry.Tel = Globalize(Slice(values[Column::Tel], 0, FieldWidth),
                          GlobalizeMode::CleanForTelephone, settings, reports);
    entry.Info = InfoOf(fields);
    entry.AB = Fit16(LeadingInteger(values[Column::AB], Least16, Most16));
    entry.Ton = Fit16(LeadingInteger(values[Column::Ton], Least16, Most16) +
                      (IsYes(values[Column::EnTonColumn]) ? EnTon : 0));
    entry.GebEinh =
        static_cast<std::int32_t>(LeadingInteger(values[Column::GebEinh], Least32, Most32));
    entry.MsnFilter = FlagWord(fields);
}

/// A line of the file with its fields, which are parts of its text.
struct SplitLine {
    ByteView Source;
    Text Line;
    CsvFields Fields;
    bool Replaced = false;  ///< characters of the line

    [[nodiscard]] TextView Name() const { return Fields.Values[Column::Name]; }

    void Take(ByteView source, bool isUtf8, bool quoted) {
        Source = source;
        Replaced = AssignDecoded(Line, source, isUtf8);
        Fields = quoted ? SplitQuoted(Line) : SplitPlain(Line);
    }
    /// A line that was taken is known by its bytes, before anything is made of them.
    [[nodiscard]] bool IsSame(ByteView source) const {
        return std::equal(source.begin(), source.end(), Source.begin(), Source.end());
    }
};

void Note(LongReport& report, TextView finding, TextView name) {
    report.Append(finding).Append(name).Append(LineEnd);
}

}  // namespace

Text CsvName(TextView field) {
    return field.size() > FieldWidth ? Text(field.substr(0, FieldWidth - 1)) + u"." : Text(field);
}

int ReadCSV(RegisterState& state, ByteView file, const CsvLoadOptions& options,
            const Settings& settings, Desktop& desktop, const Clock& clock) {
    constexpr std::size_t FewestFields = 2;
    const TextFile text = RecognizeText(file, options.Characters);
    LineReader lines(text.Content);
    LoadProgress progress(u"CSV-Datei", file.size(), desktop, clock);
    const bool quoted = !lines.AtEnd() && IsQuotedHeader(lines.Next());
    int& count = state.RecordsRead;
    count = 0;
    RepeatedBox reports(desktop);
    // Both empty before the first line; their room is used in turn.
    std::array<SplitLine, 2> room;
    SplitLine* line = &room.front();
    SplitLine* previous = &room.back();
    while (!lines.AtEnd() && count < RegisterPlaces) {
        progress.Remaining(lines.Remaining());
        const ByteView source = lines.NextBytes();
        const int place = count + 1;
        state.RegisterOrder(place) = static_cast<std::int16_t>(place);
        const bool doubled = options.AvoidDoubles && line->IsSame(source);
        if (!doubled) {
            std::swap(line, previous);
            line->Take(source, text.IsUtf8, quoted);
        }
        if (line->Fields.Count < FewestFields) {
            state.Damage.LinesPassedOver += IsFilled(source) ? 1 : 0;
            continue;  // takes no position
        }
        if (doubled) {
            Note(state.LoadReport, u"Doublette entfernt: ", line->Name());
            continue;
        }
        if (line->Name() == previous->Name()) {
            Note(state.LoadReport, u"Doppelter Name: ", line->Name());
        }
        if (line->Replaced) {
            Note(state.LoadReport, u"Zeichen ersetzt: ", line->Name());
        }
        TakeFields(line->Fields, state.Register(place), settings, reports);
        state.Register(place).RecIndex = static_cast<std::int16_t>(place - 1);
        count = place;
    }
    state.Damage.IsFull = HasFilledLine(lines);
    progress.Done();
    return count;
}

namespace {

/// In front of the path, it switches the removal of doubled lines on.
constexpr std::string_view RemoveDoublesMark = "#D";

}  // namespace

void LoadCSV(RegisterState& state, const FilePath& file, const Settings& settings,
             Desktop& desktop) {
    const std::string argument = platform::Utf8Of(file);
    const bool removeDoubles = argument.starts_with(RemoveDoublesMark);
    const FilePath path =
        removeDoubles ? platform::PathOfUtf8(argument.substr(RemoveDoublesMark.size())) : file;
    LoadCSV(state, ReadSourceFile(path), {.AvoidDoubles = removeDoubles}, settings, desktop);
}

void LoadCSV(RegisterState& state, const SourceFile& file, const CsvLoadOptions& options,
             const Settings& settings, Desktop& desktop, const Clock& clock) {
    ResetRegister(state);
    state.LoadReport.Clear();
    state.LoadedModel.clear();
    state.File = {.Type = u"CSV", .Path = file.Path, .Modified = file.Modified};
    SetCount(state, ReadCSV(state, file.Content, options, settings, desktop, clock));
    if (!state.LoadReport.IsEmpty()) {
        desktop.Ask(
            {.text = state.LoadReport.Shown(), .title = u"LadeCSV: Doubletten entfernt/Hinweise"});
    }
    CheckRegister(state, desktop);
    desktop.ShowCurrentFile();
}

}  // namespace norvik
