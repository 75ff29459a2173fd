// What the user wants: the command line, read and found to make sense.
#pragma once

#include "base/paths.h"
#include "base/text.h"
#include "dialogs/mobileexportfields.h"
#include "formats/formattable.h"
#include "paper/phonelist.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace norvik {

/// Stands for standard input and standard output.
inline constexpr std::string_view StandardStream = "-";

enum class Task {
    Convert,
    LoadOnly,  ///< there is no target: the register is checked, or something of it reported
    ShowHelp,
    ShowVersion,
};

struct ConverterOptions {
    Task What = Task::Convert;
    FilePath Source = {};
    FilePath Target = {};  ///< empty when there is none
    FileFormat From = FileFormat::Register195;
    /// Nothing for the file that a call list gives, for the phone list on paper, and where the
    /// losses in every format are wanted.
    std::optional<FileFormat> To = {};
    /// The target is a PDF file of the phone list.
    bool OnPaper = false;
    /// "--zusammen": the target holds this source and all others. The first one is the register to
    /// which the others are added.
    bool Together = false;
    /// A register file becomes one of the same model, whatever `To` is.
    bool KeepsModel = false;

    bool Check = false;                       ///< "--pruefen"
    bool Losses = false;                      ///< "--verluste"
    bool Doubles = false;                     ///< "--doppelte"
    bool Overwrite = false;                   ///< "--ueberschreiben"
    bool DespiteDamage = false;               ///< "--trotzdem"
    bool Silent = false;                      ///< "--still"
    bool OnlyMarked = false;                  ///< "--nur-markierte"
    bool Quoted = false;                      ///< "--anfuehrungszeichen"
    bool AvoidDoubles = false;                ///< "--ohne-doubletten"
    Charset Characters = Charset::Automatic;  ///< "--zeichensatz"
    bool Sorted = true;                       ///< "--sortiert", "--unsortiert"
    Text Exclusions = {};                     ///< "--ausschliessen", joined by "|"
    Text Msn = u"0";                          ///< "--msn"; the window's boxes begin with the same
    /// As ConvertLineAccessZero takes it: "0" for "--null-hinzu", else the code of "--null-weg".
    std::optional<Text> ZeroCode = {};
    PhoneListOptions List = {};            ///< "--spalten", "--papier"
    FilePath SettingsFile = {};            ///< "--ini"; empty when there is none
    std::optional<double> UnitPrice = {};  ///< "--preis"
    /// The options of the mobile export, which are named as their settings.
    std::vector<HandyBox> Boxes = {};
};

/// A command line that makes no sense. The message is one line for the user.
struct UsageError {
    Text Message;
};

/// Reads the arguments behind the program's name and gives the runs that they ask for, one for each
/// source; those of sources that go together are one. Throws UsageError. After "--hilfe" or
/// "--version" nothing more is looked at.
std::vector<ConverterOptions> ReadOptions(std::span<const std::string_view> arguments);

/// The words of all targets, and their endings.
std::vector<std::string_view> TargetWords();
std::vector<std::string_view> TargetEndings();

/// The names of all options that begin with two dashes.
std::vector<std::string_view> OptionNames();

}  // namespace norvik
