// The list of callers that the 195 and 193 save (".t9a"). docs/formats/calllist.md describes it.
#pragma once

#include "base/desktop.h"
#include "base/outputfile.h"

namespace norvik {

namespace calllist {
inline constexpr std::string_view Ending = ".t9a";
/// The filter of the open dialog.
inline constexpr TextView DialogFilter = u"Anrufliste|*.t9a|Alle Dateien|*.*";
/// Opens the date and the caller's number of a call.
inline constexpr Byte StringTag = 6;
inline constexpr std::size_t HeaderLength = 20;
inline constexpr char16_t Separator = u';';
}  // namespace calllist

/// The text file that the calls of `file` go into: the path up to and including its first ".", also
/// one in a folder's name, and "csv". A path without a "." gets ".csv" appended.
FilePath CallListOutput(const FilePath& file);

/// Raises error 55 when the output would be the list itself, also by a link.
void EnsureNotItself(const FilePath& file, const FilePath& output);

/// Writes a line for each call of `file` into CallListOutput(file), asking for the MSN of each, and
/// tells where they are. Asks before it replaces a file; gives nothing, with nothing done, when the
/// user does not want that, else what the status is to say behind the path. Raises what reading and
/// writing raise, error 55 when the output would be the input itself, and error 6 for a call number
/// of 2^63 and more. Throws HardStop for a date or number with a wrong tag; the output is then as
/// it was.
std::optional<Text> ConvertCallList(const FilePath& file, Desktop& desktop);

/// How far a list that has been read is one.
struct CallListExtent {
    int WholeCalls = 0;
    std::size_t WholeBytes = 0;  ///< the list up to the end of the last whole call
    bool EndsInCall = false;
    bool BrokenCall = false;  ///< a wrong tag, or a call number that is too large
};
CallListExtent ExtentOf(ByteView calls);

/// The conversion alone: the calls of a list that has been read go into a file of any name. Raises
/// what writing raises, error 6 and HardStop as ConvertCallList does.
void WriteCallList(ByteView calls, const OutputTarget& target, Desktop& desktop);

/// Tells that the calls are in the file.
void ReportCallList(const FilePath& output, Desktop& desktop);

/// Asks for a call list and converts it. The register is not touched.
void mnuDateiConvCallListCSV(Desktop& desktop);

}  // namespace norvik
