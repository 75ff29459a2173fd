// The register file of the 195 and 193 (".t9t"): its format, its reader and its two writers.
// docs/formats/registerfile.md describes the bytes.
#pragma once

#include "base/desktop.h"
#include "base/outputfile.h"
#include "formats/common/registerfileheader.h"
#include "formats/common/sourcefile.h"
#include "register/register.h"

namespace norvik {

/// The kinds of value items: a tag is the number of value bytes plus 1 for integers.
namespace registerfile {
inline constexpr Byte EndOfList = 0x00;
inline constexpr Byte Integer8 = 0x02;
inline constexpr Byte Integer16 = 0x03;
inline constexpr Byte Integer32 = 0x04;
inline constexpr Byte ShortString = 0x06;

/// The most that the writers can put into an item.
inline constexpr std::size_t LongestString = 255;
inline constexpr int LargestInteger = 0xFFFF;
/// The 193 holds names of at most so many characters.
inline constexpr std::size_t NameWidth193 = 20;

inline constexpr std::string_view Ending = ".t9t";
/// The filters of the open dialog and of the two save dialogs.
inline constexpr TextView OpenFilter = u"NV-195-Datei|*.t9t|Alle Dateien|*.*";
inline constexpr TextView SaveFilter195 = u"norvik-195-Datei|*.t9t|Alle Dateien|*.*";
inline constexpr TextView SaveFilter193 = u"norvik-193/5-Datei|*.t9t|Alle Dateien|*.*";
}  // namespace registerfile

/// Replaces the register by the entries of a file, with LoadedModel, the current file and the
/// findings' box; then checks it and shows the file. A failure is shown as "mnuLade193195: …"; the
/// entries read so far are shown then, see LoadOrReport. A record whose name or number has a
/// wrong tag stops the program hard. Gives whether the whole file was taken.
bool LoadRegisterFile(RegisterState& state, const FilePath& path, Desktop& desktop);
/// The same with a file that has been read already.
bool LoadRegisterFile(RegisterState& state, const SourceFile& file, Desktop& desktop);

/// Writes the used positions in their order as a 195 file and sets RegisterSaved. Raises error 5
/// for a text of more than 255 characters or a number of 65536 and more, with the entry as cause.
void WriteRegisterFile195(RegisterState& state, const OutputTarget& target, Desktop& desktop);

/// The same as a 193 file: no info texts, names cut to 20 characters, no tones, no announcements.
/// With `onlyMarked` only marked entries; shows a message, writes nothing and gives false when
/// AnzMarkiert is 0.
bool WriteRegisterFile193(RegisterState& state, const OutputTarget& target, bool onlyMarked,
                          Desktop& desktop);

/// An integer item: tag and one byte for values up to 127 (negative ones by their low byte), tag
/// and two bytes from 128 on. Raises error 5 from 65536 on.
Bytes EncodeInteger(int value);

}  // namespace norvik
