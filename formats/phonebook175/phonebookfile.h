// The phonebook file of the 175 (".pbo"): its format, its reader and its writer.
// docs/formats/phonebookfile.md describes the lines.
#pragma once

#include "base/desktop.h"
#include "base/outputfile.h"
#include "formats/common/loadprogress.h"
#include "formats/common/sourcefile.h"
#include "register/register.h"

namespace norvik {

namespace phonebookfile {
/// The first line of every phonebook file.
inline constexpr TextView Identification = u"norvik 175 phonebook";
/// Every further line begins with the key of its value; an entry has a name, a number and six info
/// lines.
inline constexpr TextView NameKey = u"N=";
inline constexpr TextView TelKey = u"P=";
inline constexpr TextView InfoKey = u"I=";
inline constexpr std::size_t KeyLength = 2;

inline constexpr std::string_view Ending = ".pbo";
/// The filter of the dialogs.
inline constexpr TextView DialogFilter = u"norvik-175-Datei|*.pbo|Alle Dateien|*.*";
}  // namespace phonebookfile

/// Replaces the register by the entries of a phonebook file, checks it and shows the file. Gives
/// false for a file of another kind, which is reported and leaves the register as it was. A line
/// with a wrong key, and every line after it that could end an entry, is reported; reading goes on.
/// Raises what reading the file raises, error 62 for an empty file before the register is touched,
/// and for one that ends inside an entry; the current file and the entries read so far stand beside
/// the old count then, see LoadOrReport.
bool LoadPhonebookFile(RegisterState& state, const FilePath& path, Desktop& desktop);
/// The same with a file that has been read already.
bool LoadPhonebookFile(RegisterState& state, const SourceFile& file, Desktop& desktop);

/// Reads the lines behind the identification line into the register's places from 1 on; gives the
/// number of whole entries and keeps RecordsRead; Damage tells how many lines were reported and
/// whether there are entries for which there is no place. Raises error 62 at an end inside an
/// entry.
int ReadPhonebookEntries(RegisterState& state, class LineReader& lines, Desktop& desktop,
                         const Clock& clock = std::chrono::steady_clock::now);

/// Writes the register in its order and sets RegisterSaved. Takes the blanks off both ends of each
/// entry's info text, in the register too. Raises what writing raises.
void WritePhonebookFile(RegisterState& state, const OutputTarget& target, Desktop& desktop);

}  // namespace norvik
