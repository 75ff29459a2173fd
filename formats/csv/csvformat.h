// The register as a text file of semicolon-separated columns: what reader and writer share.
// docs/formats/csv.md describes the file.
#pragma once

#include "base/charset.h"
#include "base/desktop.h"
#include "base/outputfile.h"
#include "formats/common/loadprogress.h"
#include "formats/common/sourcefile.h"
#include "register/register.h"
#include "register/settings.h"

#include <array>

namespace norvik {

namespace csvformat {

inline constexpr char16_t Separator = u';';
inline constexpr char16_t Quote = u'"';
inline constexpr std::size_t Columns = 15;

/// The columns, counted from 0, in their fixed order.
enum Column : std::size_t {
    Name,
    Tel,
    Info1,
    Info6 = Info1 + InfoLines - 1,
    AB,
    Ton,
    EnTonColumn,
    Msn,
    Filter,
    GebEinh,
    EnGebColumn,
};

inline constexpr std::array<TextView, Columns> Headers = {
    u"Name", u"Tel", u"Info1", u"Info2", u"Info3",  u"Info4",   u"Info5", u"Info6",
    u"AB",   u"Ton", u"EnTon", u"MSN",   u"Filter", u"GebEinh", u"EnGeb"};

inline constexpr TextView Yes = u"ja";
inline constexpr TextView No = u"nein";
/// Four characters for each call filter.
inline constexpr TextView FilterNames = u"KeinAnr.VIP CD  ";
inline constexpr std::size_t FilterNameLength = 4;

inline constexpr std::string_view Ending = ".csv";
/// The filter of the dialogs.
inline constexpr TextView DialogFilter = u"CSV-Datei|*.csv|Alle Dateien|*.*";

}  // namespace csvformat

/// How a CSV file is loaded.
struct CsvLoadOptions {
    bool AvoidDoubles = false;  ///< lines that double the one before them are left out
    Charset Characters = Charset::Automatic;
};

/// Replaces the register by the entries of a CSV file, checks it and shows the file. `file` is its
/// path, with "#D" in front when doubled lines are to be left out. Raises what reading the file
/// raises, before the register is touched, and error 6 for a value too large for its field; the
/// current file and the entries read so far stand beside the old count then, see LoadOrReport.
void LoadCSV(RegisterState& state, const FilePath& file, const Settings& settings,
             Desktop& desktop);
/// The same with a file that has been read already.
void LoadCSV(RegisterState& state, const SourceFile& file, const CsvLoadOptions& options,
             const Settings& settings, Desktop& desktop,
             const Clock& clock = std::chrono::steady_clock::now);

/// Takes the lines of a CSV file into the register's places from 1 on and notes doubled lines and
/// names, and lines with replaced characters, in LoadReport; gives the number of entries and keeps
/// RecordsRead; Damage tells of filled lines that are no entry and whether there are more than
/// there are places. Raises error 6 as LoadCSV does.
int ReadCSV(RegisterState& state, ByteView file, const CsvLoadOptions& options,
            const Settings& settings, Desktop& desktop,
            const Clock& clock = std::chrono::steady_clock::now);

/// The name that the reader makes of a name field: of one longer than 21 characters the first 20
/// and a ".".
Text CsvName(TextView field);

/// The values that the writer writes of an entry, without quotes.
std::array<Text, csvformat::Columns> CsvValues(const RegisterEntry& entry);

/// Asks whether the values are to stand in quotes, writes the register in its order as a CSV file
/// and sets RegisterSaved. Raises what writing raises.
void SaveCSV(RegisterState& state, const OutputTarget& target, Desktop& desktop);

/// Writes the register as SaveCSV does, without asking; with `quoted` all values stand in quotes.
void WriteCSV(RegisterState& state, const OutputTarget& target, bool quoted);

}  // namespace norvik
