// The reader's own routines for value items, apart from LoadRegisterFile so that they can
// be fed with any bytes.
#pragma once

#include "formats/common/bytereader.h"
#include "formats/registerfile/registerfile.h"

namespace norvik {

/// Reads an integer item: its tag, of which 4 counts as 5, and tag - 1 value bytes, little-endian
/// and unsigned. A missing byte counts as 0. Raises error 6 for a value above `limit`.
std::int32_t ReadInteger(ByteReader& file, std::int32_t limit);

/// Reads the records behind the header into the register's places from 1 on and decides between
/// "195" and "193" in LoadedModel. Gives the number of records read and keeps RecordsRead; Damage
/// tells whether the end mark is missing, or stands in the midst of the file. Raises error 9 for a
/// 2001st record and error 6 for a value too large for its field; throws HardStop for a wrong
/// string tag.
int ReadRegisterRecords(RegisterState& state, ByteReader& file);

/// Reads a whole file: looks at its header, of which a deviating one is only reported, and reads
/// the records. Sets LoadedModel and ReadTrace; gives and raises what ReadRegisterRecords does.
int ReadRegisterFile(RegisterState& state, ByteView bytes, Desktop& desktop);

/// Shows the findings of LoadReport, if there are any, in a box of their own and empties it.
void ShowFindings(RegisterState& state, Desktop& desktop);

}  // namespace norvik
