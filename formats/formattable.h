// All file formats, a row for each, and the only place that lists them: the start file, the
// converter with its help, the loss report and the tests of the documents read it.
#pragma once

#include "base/outputfile.h"
#include "formats/common/sourcefile.h"
#include "formats/csv/csvformat.h"
#include "formats/mobile/mobileexport.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace norvik {

enum class FileFormat {
    Register195,  ///< with info texts
    Register193,  ///< without
    Phonebook175,
    Csv,    ///< the register's own
    Ip286,  ///< name and number alone
    MobileExport,
    ChargeStatement,
    CallList,  ///< holds no register
    VCard,     ///< contacts of other programs
};

/// What the user decides of a load.
struct SourceOptions {
    CsvLoadOptions Csv = {};
    Charset VCardCharacters = Charset::Automatic;  ///< of properties that declare none
};

/// What the user decides of a written file.
struct TargetOptions {
    bool Quoted = false;      ///< CSV: all values stand in quotes
    bool OnlyMarked = false;  ///< where the format can do that: marked entries alone
    Text Exclusions = {};     ///< as ExportIP286 takes them
    MobileExportOptions Mobile = {};
    /// The price of a charge unit, for the loss report alone: the writer takes the settings'.
    /// Without it no amount is looked at.
    std::optional<double> UnitPrice = {};
    /// The codes of the settings, for the loss report alone, too.
    Text InternationalPrefix = {};
    Text AreaPrefix = {};
};

/// What the window shows when a file of the format cannot be written.
enum class WriteFailure {
    StatusLine,      ///< no box
    UndefinedError,  ///< the box of the operation that saves it
    RuntimeError,    ///< the box of an error that no operation handles
};

struct FormatRow {
    FileFormat Format;
    /// Names the format on the converter's command line; empty where its ending alone does.
    std::string_view Word;
    /// Of the rows that read it, and of those that write it, the first one stands for a file with
    /// this ending.
    std::string_view Ending;
    TextView Called;        ///< in the user's words
    std::string_view Page;  ///< docs/formats/PAGE.md describes it
    TextView OpenFilter;    ///< of the dialogs; empty for a format that is not read, …
    TextView SaveFilter;    ///< … that is not written
    /// Replaces the register by a start file's, neither sorted nor shown. Reports a failure and
    /// gives false where the start goes on without a register. Null: cannot be a start file.
    bool (*LoadStartFile)(RegisterState&, const FilePath&, const Settings&, Desktop&);
    /// The same for any source, the report being that of the menu item. Gives whether the source
    /// was loaded. Null: holds no register that could be loaded.
    bool (*Load)(RegisterState&, const SourceReader&, const SourceOptions&, const Settings&,
                 Desktop&);
    /// Writes the register. Gives false, after a message, when marked entries are wanted and none
    /// is marked; nothing is written then. Raises what writing raises. Null: is not written.
    bool (*Write)(RegisterState&, const OutputTarget&, const TargetOptions&, const Settings&,
                  Desktop&);
    bool CanLeaveOutUnmarked = false;  ///< TargetOptions::OnlyMarked has a meaning
    bool IsStreamed = false;  ///< Load reads its source block by block, of whatever size it is
    WriteFailure OnWriteFailure = WriteFailure::StatusLine;
    TextView SaveItem = {};  ///< the menu item that saves it, as its reports name it
};

/// All formats, in the order of FileFormat.
std::span<const FormatRow> FormatTable();
const FormatRow& RowOf(FileFormat format);

/// The words of the formats that can be loaded, and of those that can be written.
std::vector<std::string_view> SourceNames();
std::vector<std::string_view> TargetNames();

/// The format of such a word, or of a file's ending (in any case); nothing for an unknown one. An
/// ending may also stand for a format that is read without holding a register.
std::optional<FileFormat> SourceOfName(std::string_view name);
std::optional<FileFormat> TargetOfName(std::string_view name);
std::optional<FileFormat> SourceOfEnding(const FilePath& path);
std::optional<FileFormat> TargetOfEnding(const FilePath& path);

/// The formats that can be written.
std::vector<FileFormat> TargetFormats();

/// The row that loads a start file of this name: its last letters are those of an ending, with a
/// point in front of them or without. Null for another one.
const FormatRow* RowOfStartFile(TextView name);

}  // namespace norvik
