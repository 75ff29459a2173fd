#include "console/options.h"

#include "base/platform.h"
#include "base/utf8.h"
#include "console/nearest.h"
#include "console/printable.h"

#include <algorithm>
#include <array>

namespace norvik {

namespace {

/// What has been read of the command line so far.
struct Reading {
    ConverterOptions Options;
    std::optional<FileFormat> From;
    std::optional<FileFormat> To;
    std::vector<FilePath> Files;
    /// The options that occurred, as places in the table.
    std::vector<std::size_t> Used;
};

Text ShownArgument(std::string_view argument) {
    return PrintablePath(platform::PathOfArgument(argument));
}

[[noreturn]] void Fail(Text message) {
    throw UsageError{std::move(message)};
}

/// The value of an option as a text without control characters.
Text TextValue(TextView option, std::string_view value) {
    const std::optional<Text> text = FromUtf8(value);
    if (!text || std::any_of(text->begin(), text->end(), IsControl)) {
        Fail(Text(option) + u": unzulässige Zeichen im Wert " + ShownArgument(value));
    }
    return *text;
}

Text FilledTextValue(TextView option, std::string_view value) {
    Text text = TextValue(option, value);
    if (text.empty()) {
        Fail(Text(option) + u" braucht einen Wert, der nicht leer ist");
    }
    return text;
}

FileFormat FormatValue(TextView option, std::string_view value, std::optional<FileFormat> format,
                       std::span<const std::string_view> names) {
    if (!format) {
        Fail(Text(option) + u": unbekanntes Format " + ShownArgument(value) +
             u"; am nächsten kommt " + FromAscii(Nearest(value, names)));
    }
    return *format;
}

void TakeExclusion(Reading& reading, std::string_view value) {
    Text& exclusions = reading.Options.Exclusions;
    exclusions.append(exclusions.empty() ? u"" : u"|");
    exclusions.append(FilledTextValue(u"--ausschliessen", value));
}

void TakeZeroCode(Reading& reading, std::string_view value) {
    Text code = FilledTextValue(u"--null-weg", value);
    if (code == u"0") {
        Fail(u"--null-weg: 0 ist kein Code für interne Nummern");
    }
    reading.Options.ZeroCode = std::move(code);
}

void TakeSettingsFile(Reading& reading, std::string_view value) {
    if (value.empty()) {
        Fail(u"--ini braucht einen Wert, der nicht leer ist");
    }
    reading.Options.SettingsFile = platform::PathOfArgument(value);
}

template <bool ConverterOptions::*Flag>
void Set(Reading& reading, std::string_view /*value*/) {
    reading.Options.*Flag = true;
}

template <HandyBox Box>
void Tick(Reading& reading, std::string_view /*value*/) {
    reading.Options.Boxes.push_back(Box);
}

// Where an option has a meaning. Without a target and its format, the losses in every format are
// reported, and any of a target's options may matter.

bool Anywhere(const ConverterOptions& /*options*/) {
    return true;
}

bool OfRegister(const ConverterOptions& options) {
    return RowOf(options.From).Load != nullptr;
}

template <FileFormat Format>
bool From(const ConverterOptions& options) {
    return options.From == Format;
}

bool ToAny(const ConverterOptions& options) {
    return options.Losses && options.What == Task::LoadOnly && !options.To;
}

template <FileFormat Format>
bool To(const ConverterOptions& options) {
    return OfRegister(options) && (ToAny(options) || options.To == Format);
}

bool ToReduced(const ConverterOptions& options) {
    return OfRegister(options) &&
           (ToAny(options) || (options.To && RowOf(*options.To).CanLeaveOutUnmarked));
}

bool ToFormat(const ConverterOptions& options) {
    return options.What == Task::Convert || options.Losses;
}

bool ToFile(const ConverterOptions& options) {
    return options.What == Task::Convert;
}

struct OptionRow {
    std::string_view Name;
    bool TakesValue;
    void (*Take)(Reading& reading, std::string_view value);
    bool (*Applies)(const ConverterOptions& options);
    TextView Where;  ///< completes "--name gilt nur "
};

constexpr TextView ForRegisters = u"für ein Register als QUELLE";
constexpr TextView ForMobileExport = u"für das Ziel simsurf";

// clang-format off
constexpr std::array<OptionRow, 24> Rows = {{
    {"--von", true, [](Reading& reading, std::string_view value) {
         reading.From = FormatValue(u"--von", value, SourceOfName(value), SourceNames());
     }, Anywhere, u""},
    {"--nach", true, [](Reading& reading, std::string_view value) {
         reading.To = FormatValue(u"--nach", value, TargetOfName(value), TargetNames());
     }, ToFormat, u"mit einem ZIEL oder mit --verluste"},
    {"--nur-markierte", false, Set<&ConverterOptions::OnlyMarked>, ToReduced, u"für die Ziele 193 und simsurf"},
    {"--anfuehrungszeichen", false, Set<&ConverterOptions::Quoted>, To<FileFormat::Csv>, u"für ein Register mit dem Ziel csv"},
    {"--ausschliessen", true, TakeExclusion, To<FileFormat::Ip286>, u"für das Ziel ip286"},
    {"--ohne-doubletten", false, Set<&ConverterOptions::AvoidDoubles>, From<FileFormat::Csv>, u"für eine QUELLE im Format csv"},
    {"--msn", true, [](Reading& reading, std::string_view value) {
         reading.Options.Msn = TextValue(u"--msn", value);
     }, From<FileFormat::CallList>, u"für eine Anrufliste (.t9a)"},
    {"--null-hinzu", false, [](Reading& reading, std::string_view /*value*/) {
         reading.Options.ZeroCode = u"0";
     }, OfRegister, ForRegisters},
    {"--null-weg", true, TakeZeroCode, OfRegister, ForRegisters},
    {"--sortiert", false, [](Reading& /*reading*/, std::string_view /*value*/) {}, OfRegister, ForRegisters},
    {"--unsortiert", false, [](Reading& reading, std::string_view /*value*/) {
         reading.Options.Sorted = false;
     }, OfRegister, ForRegisters},
    {"--ini", true, TakeSettingsFile, OfRegister, ForRegisters},
    {"--AddRegionCode", false, Tick<AddRegionCodeBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--GlobalizeNumber", false, Tick<GlobalizeNumberBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--Change00to+", false, Tick<Change00toPlusBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--UseReductionFlags", false, Tick<UseReductionFlagsBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--DeleteCommaInNames", false, Tick<DeleteCommaInNamesBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--WriteMemNumber", false, Tick<WriteMemNumberBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--UseQuotesForData", false, Tick<UseQuotesForDataBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--pruefen", false, Set<&ConverterOptions::Check>, OfRegister, ForRegisters},
    {"--verluste", false, Set<&ConverterOptions::Losses>, OfRegister, ForRegisters},
    {"--ueberschreiben", false, Set<&ConverterOptions::Overwrite>, ToFile, u"mit einem ZIEL"},
    {"--hilfe", false, [](Reading& reading, std::string_view /*value*/) {
         reading.Options.What = Task::ShowHelp;
     }, Anywhere, u""},
    {"--version", false, [](Reading& reading, std::string_view /*value*/) {
         reading.Options.What = Task::ShowVersion;
     }, Anywhere, u""},
}};
// clang-format on

const OptionRow* FindRow(std::string_view name) {
    const auto* found = std::find_if(Rows.begin(), Rows.end(),
                                     [name](const OptionRow& row) { return row.Name == name; });
    return found == Rows.end() ? nullptr : found;
}

bool IsOption(std::string_view argument) {
    return argument.size() > 1 && argument.starts_with('-');
}

/// Options that exclude each other; neither has a meaning beside the other.
constexpr std::array<std::array<std::string_view, 2>, 2> Exclusive = {
    {{"--sortiert", "--unsortiert"}, {"--null-hinzu", "--null-weg"}}};

/// Takes the arguments one by one.
class ArgumentReader {
  public:
    explicit ArgumentReader(std::span<const std::string_view> arguments) : rest_(arguments) {}

    Reading Read() {
        while (!rest_.empty() && result_.Options.What == Task::Convert) {
            const std::string_view argument = Next();
            if (argument == "--" && !onlyFiles_) {
                onlyFiles_ = true;
            } else if (!onlyFiles_ && IsOption(argument)) {
                TakeOption(argument);
            } else {
                result_.Files.push_back(platform::PathOfArgument(argument));
            }
        }
        return std::move(result_);
    }

  private:
    std::string_view Next() {
        const std::string_view argument = rest_.front();
        rest_ = rest_.subspan(1);
        return argument;
    }

    void TakeOption(std::string_view argument) {
        const std::size_t equals = std::min(argument.find('='), argument.size());
        const std::string_view name = argument.substr(0, equals);
        const OptionRow* row = FindRow(name);
        if (row == nullptr) {
            const std::vector<std::string_view> names = OptionNames();
            Fail(u"unbekannte Option " + ShownArgument(name) + u"; am nächsten kommt " +
                 FromAscii(Nearest(name, names)));
        }
        std::string_view value;
        if (equals < argument.size()) {
            if (!row->TakesValue) {
                Fail(FromAscii(name) + u" nimmt keinen Wert an");
            }
            value = argument.substr(equals + 1);
        } else if (row->TakesValue) {
            // The name of an option that follows at once is an option, no value.
            if (rest_.empty() || FindRow(rest_.front()) != nullptr) {
                Fail(FromAscii(name) + u" braucht einen Wert");
            }
            value = Next();
        }
        row->Take(result_, value);
        result_.Used.push_back(static_cast<std::size_t>(row - Rows.data()));
    }

    std::span<const std::string_view> rest_;
    Reading result_;
    bool onlyFiles_ = false;
};

/// How many files the command line must name, and what it says when there are others.
void TakeFiles(Reading& reading) {
    ConverterOptions& options = reading.Options;
    if (reading.Files.empty()) {
        Fail(u"QUELLE fehlt (--hilfe zeigt, wie das Programm aufgerufen wird)");
    }
    if (std::any_of(reading.Files.begin(), reading.Files.end(),
                    [](const FilePath& file) { return file.empty(); })) {
        Fail(u"ein Dateiname ist leer");
    }
    const bool withoutTarget = options.Check || (options.Losses && reading.Files.size() == 1);
    if (!withoutTarget && reading.Files.size() == 1) {
        Fail(u"ZIEL fehlt (--hilfe zeigt, wie das Programm aufgerufen wird)");
    }
    const std::size_t most = withoutTarget ? 1 : 2;
    if (reading.Files.size() > most) {
        Fail(u"zu viele Dateien: " + PrintablePath(reading.Files[most]));
    }
    options.What = withoutTarget ? Task::LoadOnly : Task::Convert;
    options.Source = reading.Files.front();
    options.Target = withoutTarget ? FilePath() : reading.Files.back();
}

[[noreturn]] void FailWithoutFormat(const FilePath& file, TextView option) {
    Fail(u"das Format von " + PrintablePath(file) + u" ist nicht zu erkennen; " + Text(option) +
         u" nennt es");
}

/// What the options say comes before the ending.
void TakeFormats(Reading& reading) {
    ConverterOptions& options = reading.Options;
    const std::optional<FileFormat> from =
        reading.From ? reading.From : SourceOfEnding(options.Source);
    if (!from) {
        FailWithoutFormat(options.Source, u"--von");
    }
    options.From = *from;
    const bool hasTarget = options.What == Task::Convert;
    options.To = reading.To || !hasTarget ? reading.To : TargetOfEnding(options.Target);
    if (options.From == FileFormat::CallList) {
        const bool known = options.To || options.Target == FilePath(StandardStream);
        if (hasTarget && (!known || options.To.value_or(FileFormat::Csv) != FileFormat::Csv)) {
            Fail(u"eine Anrufliste (.t9a) gibt nur eine CSV-Datei");
        }
        options.To.reset();
    } else if (hasTarget && !options.To) {
        FailWithoutFormat(options.Target, u"--nach");
    }
}

/// An option that would change nothing is a mistake that must not pass in silence: whoever asks for
/// the marked entries must not get all of them.
void EnsureAllApply(const Reading& reading) {
    const auto uses = [&](std::string_view name) {
        return std::any_of(reading.Used.begin(), reading.Used.end(),
                           [name](std::size_t row) { return Rows.at(row).Name == name; });
    };
    for (const auto& pair : Exclusive) {
        if (uses(pair[0]) && uses(pair[1])) {
            Fail(FromAscii(pair[0]) + u" und " + FromAscii(pair[1]) + u" schließen einander aus");
        }
    }
    for (const std::size_t place : reading.Used) {
        const OptionRow& row = Rows.at(place);
        if (!row.Applies(reading.Options)) {
            Fail(FromAscii(row.Name) + u" gilt nur " + Text(row.Where));
        }
    }
}

}  // namespace

ConverterOptions ReadOptions(std::span<const std::string_view> arguments) {
    Reading reading = ArgumentReader(arguments).Read();
    if (reading.Options.What == Task::Convert) {
        TakeFiles(reading);
        TakeFormats(reading);
        EnsureAllApply(reading);
    }
    return reading.Options;
}

std::vector<std::string_view> OptionNames() {
    std::vector<std::string_view> names(Rows.size());
    std::transform(Rows.begin(), Rows.end(), names.begin(),
                   [](const OptionRow& row) { return row.Name; });
    return names;
}

}  // namespace norvik
