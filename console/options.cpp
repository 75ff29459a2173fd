#include "console/options.h"

#include "base/platform.h"
#include "base/utf8.h"
#include "console/nearest.h"
#include "console/optiontable.h"
#include "console/printable.h"
#include "paper/pdf.h"

#include <algorithm>
#include <array>
#include <map>

namespace norvik {

namespace {

bool IsFolder(const FilePath& path) {
    std::error_code error;  // what cannot be looked up is reported when it is to be written
    return std::filesystem::is_directory(path, error);
}

bool IsOption(std::string_view argument) {
    return argument.size() > 1 && argument.starts_with('-');
}

/// Options that exclude each other; neither has a meaning beside the other.
constexpr std::array<std::array<std::string_view, 2>, 3> Exclusive = {
    {{"--sortiert", "--unsortiert"}, {"--null-hinzu", "--null-weg"}, {"--pruefen", "--zusammen"}}};

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
                result_.Files.push_back(platform::PathOfUtf8(argument));
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
            const auto nearest = Nearest(name, OptionNames());
            Fail(u"unbekannte Option " + ShownArgument(name) +
                 (nearest ? u"; am nächsten kommt " + FromAscii(*nearest)
                          : Text(u"; --hilfe nennt alle")));
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
        result_.Used.push_back(row->Name);
    }

    std::span<const std::string_view> rest_;
    Reading result_;
    bool onlyFiles_ = false;
};

/// Sources that go together into one file, which an option names.
std::vector<FilePath> TakeTogether(const ConverterOptions& options, std::vector<FilePath>& files) {
    if (IsFolder(options.Target)) {
        Fail(u"--zusammen braucht eine Datei; " + PrintablePath(options.Target) +
             u" ist ein Ordner");
    }
    if (std::count(files.begin(), files.end(), FilePath(StandardStream)) > 1) {
        Fail(u"- kann nur einmal QUELLE sein");
    }
    return files;
}

/// How many files the command line must name, and what it says when there are others. Gives the
/// sources.
std::vector<FilePath> TakeFiles(Reading& reading) {
    ConverterOptions& options = reading.Options;
    std::vector<FilePath>& files = reading.Files;
    if (files.empty()) {
        Fail(u"QUELLE fehlt (--hilfe zeigt, wie das Programm aufgerufen wird)");
    }
    if (std::any_of(files.begin(), files.end(),
                    [](const FilePath& file) { return file.empty(); })) {
        Fail(u"ein Dateiname ist leer");
    }
    const bool reportsOne =
        (options.Losses || options.Doubles) && files.size() == 1 && !options.Together;
    if (options.Check || reportsOne) {
        options.What = Task::LoadOnly;
        return files;
    }
    if (options.Together) {
        return TakeTogether(options, files);
    }
    if (files.size() == 1) {
        Fail(u"ZIEL fehlt (--hilfe zeigt, wie das Programm aufgerufen wird)");
    }
    options.Target = std::move(files.back());
    files.pop_back();
    if (files.size() > 1 && !IsFolder(options.Target)) {
        Fail(u"mehrere QUELLEN brauchen als ZIEL einen Ordner; " + PrintablePath(options.Target) +
             u" ist keiner");
    }
    return files;
}

[[noreturn]] void FailWithoutFormat(const FilePath& file, TextView option) {
    Fail(u"das Format von " + PrintablePath(file) + u" ist nicht zu erkennen; " + Text(option) +
         u" nennt es");
}

bool IsPdf(const FilePath& path) {
    return LowerCase(TextFromPath(path.filename())).ends_with(FromAscii(PdfEnding));
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
    const bool byEnding = hasTarget && !reading.To && !reading.ToPaper;
    options.OnPaper = reading.ToPaper || (byEnding && IsPdf(options.Target));
    options.To = byEnding ? TargetOfEnding(options.Target) : reading.To;
    if (options.From == FileFormat::CallList) {
        const bool known =
            options.To || options.Target == FilePath(StandardStream) || IsFolder(options.Target);
        const bool isOther =
            options.OnPaper || options.To.value_or(FileFormat::Csv) != FileFormat::Csv;
        if (hasTarget && (!known || isOther)) {
            Fail(u"eine Anrufliste (.t9a) gibt nur eine CSV-Datei");
        }
        options.To.reset();
    } else if (hasTarget && !options.To && !options.OnPaper) {
        FailWithoutFormat(options.Target, u"--nach");
    }
    if (options.OnPaper && options.Losses) {
        Fail(u"--verluste gilt nicht für das Ziel pdf");
    }
    options.KeepsModel = hasTarget && !reading.To && options.To == FileFormat::Register195;
}

/// A folder as target holds a file of the source's name with the ending of its format.
void TakeFolder(ConverterOptions& options) {
    if (options.What != Task::Convert || !IsFolder(options.Target)) {
        return;
    }
    if (options.Source == FilePath(StandardStream)) {
        Fail(u"- hat keinen Namen für eine Datei im Ordner " + PrintablePath(options.Target));
    }
    const std::string_view ending =
        options.OnPaper ? PdfEnding : RowOf(options.To.value_or(FileFormat::Csv)).Ending;
    FilePath name = options.Source.filename().stem();
    name += std::string(ending);
    options.Target /= name;
}

/// No run writes what another one has written.
void EnsureDifferentTargets(const std::vector<ConverterOptions>& runs) {
    std::map<FilePath, const ConverterOptions*> targets;
    for (const ConverterOptions& run : runs) {
        const auto [first, isNew] = targets.try_emplace(run.Target, &run);
        if (!isNew && !run.Target.empty()) {
            Fail(PrintablePath(first->second->Source) + u" und " + PrintablePath(run.Source) +
                 u" haben dasselbe ZIEL " + PrintablePath(run.Target));
        }
    }
}

/// An option that would change nothing is a mistake that must not pass in silence: whoever asks for
/// the marked entries must not get all of them.
void EnsureAllApply(const Reading& reading, const std::vector<ConverterOptions>& runs) {
    const auto uses = [&](std::string_view name) {
        return std::find(reading.Used.begin(), reading.Used.end(), name) != reading.Used.end();
    };
    for (const auto& pair : Exclusive) {
        if (uses(pair[0]) && uses(pair[1])) {
            Fail(FromAscii(pair[0]) + u" und " + FromAscii(pair[1]) + u" schließen einander aus");
        }
    }
    for (const std::string_view name : reading.Used) {
        const OptionRow& row = *FindRow(name);
        const bool applies = row.IsForSomeSources && reading.Options.Together
                                 ? std::any_of(runs.begin(), runs.end(), row.Applies)
                                 : std::all_of(runs.begin(), runs.end(), row.Applies);
        if (!applies) {
            Fail(FromAscii(row.Name) + u" gilt nur " + Text(row.Where));
        }
    }
}

}  // namespace

std::vector<ConverterOptions> ReadOptions(std::span<const std::string_view> arguments) {
    Reading reading = ArgumentReader(arguments).Read();
    if (reading.Options.What != Task::Convert) {
        return {reading.Options};
    }
    std::vector<ConverterOptions> runs;
    for (const FilePath& source : TakeFiles(reading)) {
        Reading one = reading;
        one.Options.Source = source;
        TakeFormats(one);
        TakeFolder(one.Options);
        runs.push_back(std::move(one.Options));
    }
    EnsureAllApply(reading, runs);
    if (!reading.Options.Together) {
        EnsureDifferentTargets(runs);
    }
    return runs;
}

std::vector<std::string_view> TargetWords() {
    std::vector<std::string_view> words = TargetNames();
    words.push_back(PdfWord);
    return words;
}

std::vector<std::string_view> TargetEndings() {
    std::vector<std::string_view> endings;
    for (const FormatRow& row : FormatTable()) {
        if (TargetOfEnding(FilePath(row.Ending)) == row.Format) {
            endings.push_back(row.Ending);
        }
    }
    endings.push_back(PdfEnding);
    return endings;
}

}  // namespace norvik
