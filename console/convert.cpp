#include "console/convert.h"

#include "base/outputfile.h"
#include "base/runtimeerror.h"
#include "console/consoledesktop.h"
#include "console/help.h"
#include "console/loadsource.h"
#include "console/messages.h"
#include "console/printable.h"
#include "console/standardstreams.h"
#include "console/writetarget.h"
#include "formats/calllist/calllist.h"
#include "formats/common/undefinederror.h"
#include "losses/lossreport.h"
#include "mainwindow/operations.h"

namespace norvik {

namespace {

Text InQuotes(const FilePath& path) {
    return u"\"" + PrintablePath(path) + u"\"";
}

ExitStatus NotRead(const FilePath& file) {
    Say(InQuotes(file) + u" nicht gelesen");
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

/// Prints to standard output what is the run's only result.
ExitStatus Print(TextView lines) {
    if (!PrintLines(stdout, lines)) {
        return NotWritten(FilePath(StandardStream),
                          RuntimeError(ErrorNumber::DeviceError).Description());
    }
    return ExitStatus::Done;
}

/// One line for each loss in the target format, or in every format with its name in front.
Text LossLines(const ConverterOptions& options, const Settings& settings,
               const RegisterState& state) {
    const TargetOptions targetOptions = TargetOptionsOf(options, settings);
    Text lines;
    for (const FileFormat format : TargetFormats()) {
        if (options.To.value_or(format) != format) {
            continue;
        }
        const Text prefix = options.To ? Text() : FromAscii(RowOf(format).Word) + u": ";
        for (const Loss& loss : LossReport(state, format, targetOptions)) {
            lines.append(prefix).append(Printable(LossLine(loss))).append(LineEnd);
        }
    }
    return lines;
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
                      const std::function<void(const RuntimeError&)>& report) {
    try {
        return WriteWhole(options, write)
                   ? ExitStatus::Done
                   : NotWritten(options.Target, u"kein Eintrag ist markiert");
    } catch (const FileExists&) {
        return AlreadyThere(options.Target);
    } catch (const RuntimeError& error) {
        report(error);
        return NotWritten(options.Target, error.Description());
    }
}

ExitStatus StatusOf(ExitStatus written, bool reported) {
    return written == ExitStatus::Done && reported ? ExitStatus::Reported : written;
}

/// A call list goes from file to file; there is no register in between.
ExitStatus ConvertCalls(const ConverterOptions& options) {
    ConsoleDesktop desktop(options.Msn);
    const auto report = [&desktop](const RuntimeError& error) {
        ReportUndefinedError(u"mnuDateiConvCallListCSV", error, desktop);
    };
    SourceFile calls;
    try {
        calls = ReadSource(options.Source);
    } catch (const RuntimeError& error) {
        report(error);
        return NotRead(options.Source);
    }
    const auto write = [&](const OutputTarget& target) {
        EnsureNotItself(options.Source, options.Target);
        WriteCallList(calls.Content, target, desktop);
        return true;
    };
    const ExitStatus written = WriteOrSay(options, write, report);
    const bool reported = desktop.Boxes() > 0;
    if (written == ExitStatus::Done) {
        ReportCallList(options.Target, desktop);
    }
    return StatusOf(written, reported);
}

ExitStatus ConvertRegister(const ConverterOptions& options) {
    ConsoleDesktop desktop;
    Settings settings;
    try {
        settings = ReadConverterSettings(options);
    } catch (const RuntimeError& error) {
        Say(InQuotes(options.SettingsFile) + u" nicht gelesen: " + Text(error.Description()));
        return ExitStatus::FileFailed;
    }
    RegisterState state;
    if (!LoadSource(options, settings, state, desktop)) {
        return NotRead(options.Source);
    }
    const bool reported = desktop.Boxes() > 0;
    const Text losses = options.Losses ? LossLines(options, settings, state) : Text();
    if (options.What == Task::LoadOnly) {
        return StatusOf(Print(losses), reported);
    }
    PrintLines(stderr, losses);
    const auto write = [&](const OutputTarget& target) {
        return WriteTarget(options, settings, state, target, desktop);
    };
    const auto report = [&](const RuntimeError& error) {
        ReportWriteError(options.To.value(), error, desktop);
    };
    return StatusOf(WriteOrSay(options, write, report), reported);
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

}  // namespace

ExitStatus Convert(const ConverterOptions& options) {
    try {
        // Said before the work is done, not behind it.
        if (options.What == Task::Convert && !options.Overwrite &&
            !IsStandardOutput(options.Target) && IsNameTaken(options.Target)) {
            return AlreadyThere(options.Target);
        }
    } catch (const RuntimeError& error) {
        return NotWritten(options.Target, error.Description());
    }
    return options.From == FileFormat::CallList ? ConvertCalls(options) : ConvertRegister(options);
}

ExitStatus RunConverter(std::span<const std::string_view> arguments) {
    ConverterOptions options;
    try {
        options = ReadOptions(arguments);
    } catch (const UsageError& error) {
        Say(error.Message);
        return ExitStatus::Usage;
    }
    ExitStatus status = ExitStatus::FileFailed;  // of what RunOperation reports
    try {
        ConsoleDesktop desktop;
        RunOperation([&] { status = RunTask(options); }, desktop);
    } catch (const HardStop&) {
        Say(InQuotes(options.Source) + u" ist beschädigt: Abbruch");
        return ExitStatus::HardStopped;
    }
    return status;
}

}  // namespace norvik
