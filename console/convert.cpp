#include "console/convert.h"

#include "base/outputfile.h"
#include "base/runtimeerror.h"
#include "console/consoledesktop.h"
#include "console/damage.h"
#include "console/help.h"
#include "console/loadsource.h"
#include "console/messages.h"
#include "console/printable.h"
#include "console/reportlines.h"
#include "console/standardstreams.h"
#include "console/writetarget.h"
#include "formats/calllist/calllist.h"
#include "formats/common/addentries.h"
#include "formats/common/followload.h"
#include "formats/common/undefinederror.h"
#include "mainwindow/operations.h"

#include <algorithm>
#include <utility>

namespace norvik {

namespace {

/// A file's name as it stands in front of findings.
Text Shown(const FilePath& path) {
    return PrintablePath(path);
}

Text InQuotes(const FilePath& path) {
    return u"\"" + Shown(path) + u"\"";
}

ExitStatus NotRead(const FilePath& file, TextView why) {
    Say(InQuotes(file) + u" nicht gelesen: " + Text(why));
    return ExitStatus::FileFailed;
}

/// Says that there is no target, behind what the operation has said itself.
ExitStatus NotWritten(const FilePath& file, TextView why) {
    Say(InQuotes(file) + u" nicht geschrieben: " + Text(why));
    return ExitStatus::FileFailed;
}

ExitStatus AlreadyThere(const FilePath& target) {
    return NotWritten(target, u"schon vorhanden (--ueberschreiben ersetzt es)");
}

/// Prints to standard output what is the run's only result. A reader that has seen enough is no
/// failure.
ExitStatus Print(TextView lines) {
    const std::error_code error = PrintLines(stdout, lines);
    if (!error || error == std::errc::broken_pipe) {
        return ExitStatus::Done;
    }
    const bool full = error == std::errc::no_space_on_device;
    return NotWritten(
        FilePath(StandardStream),
        RuntimeError(full ? ErrorNumber::DiskFull : ErrorNumber::DeviceError).Description());
}

bool IsStandardOutput(const FilePath& target) {
    return target == FilePath(StandardStream);
}

/// Puts the target where it is to go and gives false where there is nothing to write.
using TargetWriter = std::function<bool(const OutputTarget&)>;

/// Standard output gets everything or nothing, too.
bool WriteWhole(const ConverterOptions& options, const TargetWriter& write) {
    OutputTarget target(options.Target);
    if (!IsStandardOutput(options.Target)) {
        target.Replace = options.Overwrite;
        target.OnlyFiles = true;
        return write(target);
    }
    Bytes bytes;
    target.Memory = &bytes;
    if (!write(target)) {
        return false;
    }
    WriteToStandardOutput(bytes);
    return true;
}

/// `report` shows what the window shows of a failure.
ExitStatus WriteOrSay(const ConverterOptions& options, const TargetWriter& write,
                      const std::function<void(const RuntimeError&)>& report,
                      ConsoleDesktop& desktop) {
    try {
        const bool written = WriteWhole(options, write);
        desktop.PrintMessages();
        return written ? ExitStatus::Done
                       : NotWritten(options.Target, u"kein Eintrag ist markiert");
    } catch (const FileExists&) {
        desktop.PrintMessages();
        return AlreadyThere(options.Target);
    } catch (const RuntimeError& error) {
        report(error);
        desktop.PrintMessages();
        return NotWritten(options.Target, error.Description());
    }
}

ExitStatus StatusOf(ExitStatus written, bool reported) {
    return written == ExitStatus::Done && reported ? ExitStatus::Reported : written;
}

ConsoleManner MannerOf(const ConverterOptions& options) {
    return {.Source = Shown(options.Source), .Msn = options.Msn, .Silent = options.Silent};
}

/// Says what is amiss with a source that was not read whole.
void SayDamage(const ConverterOptions& options, const std::vector<Text>& sentences) {
    for (const Text& sentence : sentences) {
        Say(InQuotes(options.Source) + u" " + sentence);
    }
}

constexpr TextView WithoutOption = u"--trotzdem schreibt, was gelesen ist";

ExitStatus Refused(const ConverterOptions& options, TextView why) {
    if (options.What == Task::Convert) {
        NotWritten(options.Target, why);
    }
    return ExitStatus::Damaged;
}

/// A call list goes from file to file; there is no register in between.
ExitStatus ConvertCalls(const ConverterOptions& options) {
    ConsoleDesktop desktop(MannerOf(options));
    const auto report = [&desktop](const RuntimeError& error) {
        ReportUndefinedError(u"mnuDateiConvCallListCSV", error, desktop);
    };
    SourceFile calls;
    try {
        calls = ReadWhole(OpenSource(options.Source));
    } catch (const RuntimeError& error) {
        return NotRead(options.Source, error.Description());
    }
    const CallListExtent extent = ExtentOf(calls.Content);
    const std::vector<Text> damage = DamageOf(extent);
    SayDamage(options, damage);
    if (!damage.empty() && extent.WholeCalls == 0) {
        return Refused(options, u"kein Anruf ist gelesen");
    }
    if (!damage.empty() && !options.DespiteDamage) {
        return Refused(options, WithoutOption);
    }
    const ByteView readable =
        damage.empty() ? ByteView(calls.Content) : ByteView(calls.Content).first(extent.WholeBytes);
    const auto write = [&](const OutputTarget& target) {
        EnsureNotItself(options.Source, options.Target);
        WriteCallList(readable, target, desktop);
        return true;
    };
    const ExitStatus written = WriteOrSay(options, write, report, desktop);
    const bool reported = desktop.Findings() > 0 || !damage.empty();
    if (written == ExitStatus::Done) {
        ReportCallList(options.Target, desktop);
    }
    return StatusOf(written, reported);
}

/// Says what is to be said of the load; gives the status where it is the end.
std::optional<ExitStatus> EndOfLoad(const ConverterOptions& options, LoadResult loaded,
                                    const RegisterState& state, ConsoleDesktop& desktop) {
    desktop.PrintMessages();
    SayDamage(options, DamageOf(state));
    switch (loaded) {
    case LoadResult::Whole:
    case LoadResult::TakenDespiteDamage:
        return std::nullopt;
    case LoadResult::Damaged:
        return Refused(options, WithoutOption);
    case LoadResult::NothingRead:
        return Refused(options, u"kein Eintrag ist gelesen");
    case LoadResult::OtherKind:
        break;
    }
    return NotRead(options.Source, state.Damage.NothingToDial
                                       ? Text(u"keine wählbare Rufnummer")
                                       : u"keine " + Text(RowOf(options.From).Called));
}

/// Writes the register that was loaded, or says what there is to say of it.
ExitStatus Deliver(const ConverterOptions& options, const Settings& settings, RegisterState& state,
                   ConsoleDesktop& desktop, bool reported) {
    Text findings = options.Doubles ? DoubleLines(options, settings, state) : Text();
    findings.append(options.Losses ? LossLines(options, settings, state) : Text());
    reported = reported || !findings.empty();
    if (options.What == Task::LoadOnly) {
        return StatusOf(Print(findings), reported);
    }
    if (!options.Silent) {
        PrintLines(stderr, findings);
    }
    const auto write = [&](const OutputTarget& target) {
        return WriteTarget(options, settings, state, target, desktop);
    };
    const auto report = [&](const RuntimeError& error) {
        ReportWriteError(options, error, desktop);
    };
    const ExitStatus written = WriteOrSay(options, write, report, desktop);
    return StatusOf(written, reported || desktop.Findings() > 0);
}

/// A register file keeps its model unless another one was named.
ConverterOptions WithModel(const ConverterOptions& options, const RegisterState& state) {
    ConverterOptions result = options;
    if (options.KeepsModel && state.LoadedModel == FromAscii(RowOf(FileFormat::Register193).Word)) {
        result.To = FileFormat::Register193;
    }
    return result;
}

/// Loads the source and says what there is to say of that; gives the status where it is the end.
std::optional<ExitStatus> Load(const ConverterOptions& options, const Settings& settings,
                               RegisterState& state, ConsoleDesktop& desktop, bool& reported) {
    Source source;
    try {
        source = OpenSource(options);
    } catch (const RuntimeError& error) {
        return NotRead(options.Source, error.Description());
    }
    desktop.Know(state);
    const LoadResult loaded = LoadSource(options, std::move(source), settings, state, desktop);
    for (const Text& sentence : PassedOver(state.Damage)) {
        desktop.Ask({.text = sentence});
    }
    reported = desktop.Findings() > 0 || loaded == LoadResult::TakenDespiteDamage;
    return EndOfLoad(options, loaded, state, desktop);
}

/// The settings, or the status where they cannot be read.
std::optional<ExitStatus> TakeSettings(const ConverterOptions& options, Settings& settings) {
    try {
        settings = ReadConverterSettings(options);
    } catch (const RuntimeError& error) {
        return NotRead(options.SettingsFile, error.Description());
    }
    return std::nullopt;
}

ExitStatus ConvertRegister(const ConverterOptions& options) {
    ConsoleDesktop desktop(MannerOf(options));
    Settings settings;
    if (const auto end = TakeSettings(options, settings)) {
        return *end;
    }
    RegisterState state;
    bool reported = false;
    if (const auto end = Load(options, settings, state, desktop, reported)) {
        return *end;
    }
    return Deliver(WithModel(options, state), settings, state, desktop, reported);
}

/// Adds a source to the register of those before it.
void AddSource(RegisterState& all, const RegisterState& source, const Settings& settings,
               Desktop& desktop) {
    const AddedEntries added = AddEntries(all, source, settings);
    if (added.AlreadyThere > 0 || !added.Findings.IsEmpty()) {
        desktop.Ask(ReportOf(added));
    }
    if (source.LoadedModel != all.LoadedModel) {
        all.LoadedModel = FromAscii(RowOf(FileFormat::Register195).Word);
    }
}

/// Goes through all sources, also behind one that is the end, and writes if none is.
ExitStatus ConvertAllTogether(const std::vector<ConverterOptions>& runs,
                              const ConverterOptions& options) {
    Settings settings;
    if (const auto end = TakeSettings(options, settings)) {
        return *end;
    }
    RegisterState all;
    ExitStatus gravest = ExitStatus::Done;
    for (const ConverterOptions& run : runs) {
        RegisterState state;
        ConsoleDesktop desktop(MannerOf(run));
        bool reported = false;
        if (const auto end = Load(run, settings, state, desktop, reported)) {
            gravest = std::max(gravest, *end);
        } else if (&run == &runs.front()) {
            all = std::move(state);
        } else if (gravest <= ExitStatus::Reported) {
            AddSource(all, state, settings, desktop);
        }
        gravest = std::max(gravest, StatusOf(ExitStatus::Done, reported || desktop.Findings() > 0));
    }
    if (gravest > ExitStatus::Reported) {
        return gravest;
    }
    ConsoleDesktop desktop(MannerOf(options));
    desktop.Know(all);
    if (options.Sorted && all.AnzGes > 0) {
        FollowLoad(all, desktop);
    }
    return Deliver(WithModel(options, all), settings, all, desktop,
                   gravest == ExitStatus::Reported);
}

ExitStatus RunTask(const ConverterOptions& options) {
    if (options.What == Task::ShowHelp) {
        return Print(HelpText());
    }
    if (options.What == Task::ShowVersion) {
        return Print(VersionText());
    }
    return Convert(options);
}

/// The status where the target may not be written: said before the work is done, not behind it.
std::optional<ExitStatus> CheckTarget(const ConverterOptions& options) {
    try {
        if (options.What == Task::Convert && !options.Overwrite &&
            !IsStandardOutput(options.Target) && IsNameTaken(options.Target)) {
            return AlreadyThere(options.Target);
        }
    } catch (const RuntimeError& error) {
        return NotWritten(options.Target, error.Description());
    }
    return std::nullopt;
}

}  // namespace

ExitStatus Convert(const ConverterOptions& options) {
    if (const auto end = CheckTarget(options)) {
        return *end;
    }
    return options.From == FileFormat::CallList ? ConvertCalls(options) : ConvertRegister(options);
}

namespace {

/// One run, to its end, whatever befalls it.
ExitStatus RunToItsEnd(const ConverterOptions& options, const std::function<ExitStatus()>& task) {
    ExitStatus status = ExitStatus::FileFailed;  // of what RunOperation reports
    try {
        ConsoleDesktop desktop({.Source = Shown(options.Source)});
        RunOperation([&] { status = task(); }, desktop);
    } catch (const HardStop&) {
        Say(InQuotes(options.Source) + u" ist beschädigt: Abbruch");
        return ExitStatus::Damaged;
    }
    return status;
}

/// What is said of all sources together begins with the target's name.
ExitStatus RunTogether(const std::vector<ConverterOptions>& runs) {
    ConverterOptions options = runs.front();
    options.Source = options.Target;
    return RunToItsEnd(options, [&] {
        const auto end = CheckTarget(options);
        return end ? *end : ConvertAllTogether(runs, options);
    });
}

}  // namespace

ExitStatus RunConverter(std::span<const std::string_view> arguments) {
    ExitStatus gravest = ExitStatus::Done;
    try {
        const std::vector<ConverterOptions> runs = ReadOptions(arguments);
        if (runs.front().Together) {
            return RunTogether(runs);
        }
        for (const ConverterOptions& options : runs) {
            gravest = std::max(gravest, RunToItsEnd(options, [&] { return RunTask(options); }));
        }
    } catch (const UsageError& error) {
        Say(error.Message);
        return ExitStatus::Usage;
    }
    return gravest;
}

}  // namespace norvik
