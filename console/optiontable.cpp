#include "console/optiontable.h"

#include "base/numbers.h"
#include "base/platform.h"
#include "base/utf8.h"
#include "console/nearest.h"
#include "console/printable.h"
#include "formats/common/globalize.h"
#include "paper/pdf.h"

#include <algorithm>
#include <array>

namespace norvik {

namespace {

bool IsDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
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

/// Says that the value of an option is none of the known words.
[[noreturn]] void FailUnknown(TextView message, std::string_view value,
                              std::span<const std::string_view> names) {
    const Text unknown = Text(message) + u" " + ShownArgument(value);
    if (const auto nearest = Nearest(value, names)) {
        Fail(unknown + u"; am nächsten kommt " + FromAscii(*nearest));
    }
    Text known;
    for (const std::string_view name : names) {
        known.append(known.empty() ? u"" : u", ").append(FromAscii(name));
    }
    Fail(unknown + u"; bekannt sind " + known);
}

FileFormat FormatValue(TextView option, std::string_view value, std::optional<FileFormat> format,
                       std::span<const std::string_view> names) {
    if (!format) {
        FailUnknown(Text(option) + u": unbekanntes Format", value, names);
    }
    return *format;
}

void TakeTarget(Reading& reading, std::string_view value) {
    reading.ToPaper = value == PdfWord;
    reading.To =
        reading.ToPaper
            ? std::nullopt
            : std::optional(FormatValue(u"--nach", value, TargetOfName(value), TargetWords()));
}

void TakeColumns(Reading& reading, std::string_view value) {
    const bool isOne = value.size() == 1 && value[0] >= '1' && value[0] <= '0' + MostListColumns;
    if (!isOne) {
        Fail(u"--spalten: " + ShownArgument(value) + u" ist keine Zahl von 1 bis 3");
    }
    reading.Options.List.Columns = value[0] - '0';
}

void TakePaper(Reading& reading, std::string_view value) {
    constexpr std::array<std::string_view, 2> Names = {"a4", "a5"};
    if (value != Names[0] && value != Names[1]) {
        FailUnknown(u"--papier: unbekanntes Papier", value, Names);
    }
    reading.Options.List.Paper = value == Names[0] ? PaperA4 : PaperA5;
}

/// In the order of `Charset`.
constexpr std::array<std::string_view, 3> CharsetNames = {"auto", "utf-8", "windows-1252"};

void TakeCharset(Reading& reading, std::string_view value) {
    const auto* const found = std::find(CharsetNames.begin(), CharsetNames.end(), value);
    if (found == CharsetNames.end()) {
        FailUnknown(u"--zeichensatz: unbekannter Zeichensatz", value, CharsetNames);
    }
    reading.Options.Characters = static_cast<Charset>(found - CharsetNames.begin());
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
    // A shell puts file names in the place of "*".
    if (CleanNumber(code, GlobalizeMode::CleanForTelephone) != code) {
        Fail(u"--null-weg: " + Printable(code) +
             u" ist kein Code für interne Nummern (in Anführungszeichen: \"*\", \"##\", \"**\")");
    }
    reading.Options.ZeroCode = std::move(code);
}

/// Digits with one comma or point at most, as the editor's "/g" takes them.
void TakeUnitPrice(Reading& reading, std::string_view value) {
    const Text price = FilledTextValue(u"--preis", value);
    const bool starts = IsDigit(price.front());
    const auto others = std::count_if(price.begin(), price.end(),
                                      [](char16_t character) { return !IsDigit(character); });
    const auto points = std::count_if(price.begin(), price.end(), [](char16_t character) {
        return character == u',' || character == u'.';
    });
    if (!starts || others != points || points > 1) {
        Fail(u"--preis: " + price + u" ist kein Preis wie 0,12");
    }
    reading.Options.UnitPrice = ParseDecimal(price);
}

void TakeSettingsFile(Reading& reading, std::string_view value) {
    if (value.empty()) {
        Fail(u"--ini braucht einen Wert, der nicht leer ist");
    }
    reading.Options.SettingsFile = platform::PathOfUtf8(value);
}

void TakeTogether(Reading& reading, std::string_view value) {
    if (value.empty()) {
        Fail(u"--zusammen braucht einen Wert, der nicht leer ist");
    }
    reading.Options.Together = true;
    reading.Options.Target = platform::PathOfUtf8(value);
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

/// Files in which more than one character set stands.
bool OfCharacters(const ConverterOptions& options) {
    return From<FileFormat::Csv>(options) || From<FileFormat::VCard>(options);
}

bool ToAny(const ConverterOptions& options) {
    return options.Losses && options.What == Task::LoadOnly && !options.To;
}

template <FileFormat Format>
bool To(const ConverterOptions& options) {
    return OfRegister(options) && (ToAny(options) || options.To == Format);
}

bool ToReduced(const ConverterOptions& options) {
    return OfRegister(options) && (ToAny(options) || options.OnPaper ||
                                   (options.To && RowOf(*options.To).CanLeaveOutUnmarked));
}

bool ToPaper(const ConverterOptions& options) {
    return OfRegister(options) && options.OnPaper;
}

bool ToFormat(const ConverterOptions& options) {
    return options.What == Task::Convert || options.Losses;
}

/// Where a damaged source ends the run.
bool NeedsWholeSource(const ConverterOptions& options) {
    return ToFormat(options) || options.Doubles;
}

bool ToFile(const ConverterOptions& options) {
    return options.What == Task::Convert;
}

constexpr TextView ForRegisters = u"für ein Register als QUELLE";
constexpr TextView ForPaper = u"für das Ziel pdf";
constexpr TextView ForMobileExport = u"für das Ziel simsurf";

// clang-format off
constexpr std::array<OptionRow, 32> Rows = {{
    {"--von", true, [](Reading& reading, std::string_view value) {
         reading.From = FormatValue(u"--von", value, SourceOfName(value), SourceNames());
     }, Anywhere, u""},
    {"--nach", true, TakeTarget, ToFormat, u"mit einem ZIEL oder mit --verluste"},
    {"--nur-markierte", false, Set<&ConverterOptions::OnlyMarked>, ToReduced, u"für die Ziele 193, simsurf und pdf"},
    {"--anfuehrungszeichen", false, Set<&ConverterOptions::Quoted>, To<FileFormat::Csv>, u"für ein Register mit dem Ziel csv"},
    {"--ausschliessen", true, TakeExclusion, To<FileFormat::Ip286>, u"für das Ziel ip286"},
    {"--spalten", true, TakeColumns, ToPaper, ForPaper},
    {"--papier", true, TakePaper, ToPaper, ForPaper},
    {"--ohne-doubletten", false, Set<&ConverterOptions::AvoidDoubles>, From<FileFormat::Csv>, u"für eine QUELLE im Format csv", true},
    {"--zeichensatz", true, TakeCharset, OfCharacters, u"für eine QUELLE im Format csv oder vcard", true},
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
    {"--preis", true, TakeUnitPrice, To<FileFormat::ChargeStatement>, u"für das Ziel gebuehren"},
    {"--AddRegionCode", false, Tick<AddRegionCodeBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--GlobalizeNumber", false, Tick<GlobalizeNumberBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--Change00to+", false, Tick<Change00toPlusBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--UseReductionFlags", false, Tick<UseReductionFlagsBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--DeleteCommaInNames", false, Tick<DeleteCommaInNamesBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--WriteMemNumber", false, Tick<WriteMemNumberBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--UseQuotesForData", false, Tick<UseQuotesForDataBox>, To<FileFormat::MobileExport>, ForMobileExport},
    {"--pruefen", false, Set<&ConverterOptions::Check>, OfRegister, ForRegisters},
    {"--verluste", false, Set<&ConverterOptions::Losses>, OfRegister, ForRegisters},
    {"--doppelte", false, Set<&ConverterOptions::Doubles>, OfRegister, ForRegisters},
    {"--zusammen", true, TakeTogether, OfRegister, ForRegisters},
    {"--ueberschreiben", false, Set<&ConverterOptions::Overwrite>, ToFile, u"mit einem ZIEL"},
    {"--trotzdem", false, Set<&ConverterOptions::DespiteDamage>, NeedsWholeSource, u"mit einem ZIEL, mit --verluste oder mit --doppelte"},
    {"--still", false, Set<&ConverterOptions::Silent>, Anywhere, u""},
    {"--hilfe", false, [](Reading& reading, std::string_view /*value*/) {
         reading.Options.What = Task::ShowHelp;
     }, Anywhere, u""},
    {"--version", false, [](Reading& reading, std::string_view /*value*/) {
         reading.Options.What = Task::ShowVersion;
     }, Anywhere, u""},
}};
// clang-format on

/// What most programs call an option.
constexpr std::array<std::array<std::string_view, 2>, 3> OtherNames = {
    {{"--help", "--hilfe"}, {"-h", "--hilfe"}, {"-V", "--version"}}};

}  // namespace

Text ShownArgument(std::string_view argument) {
    return PrintablePath(platform::PathOfUtf8(argument));
}

[[noreturn]] void Fail(Text message) {
    throw UsageError{std::move(message)};
}

const OptionRow* FindRow(std::string_view name) {
    for (const auto& other : OtherNames) {
        name = name == other[0] ? other[1] : name;
    }
    const auto* found = std::find_if(Rows.begin(), Rows.end(),
                                     [name](const OptionRow& row) { return row.Name == name; });
    return found == Rows.end() ? nullptr : found;
}

std::vector<std::string_view> OptionNames() {
    std::vector<std::string_view> names(Rows.size());
    std::transform(Rows.begin(), Rows.end(), names.begin(),
                   [](const OptionRow& row) { return row.Name; });
    for (const auto& other : OtherNames) {
        if (other[0].starts_with("--")) {
            names.push_back(other[0]);
        }
    }
    return names;
}

}  // namespace norvik
