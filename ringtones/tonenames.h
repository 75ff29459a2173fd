// The names of the ring tones, as the main window's choice list shows them.
#pragma once

#include "base/outputfile.h"
#include "base/paths.h"
#include "base/text.h"
#include "base/windows1252.h"

#include <vector>

namespace norvik {

inline constexpr int BuiltInTones = 20;
inline constexpr int OwnTones = 60;
/// "kein", the built-in tones and the own melodies: a tone's item is its number + 1.
inline constexpr int ToneItems = 1 + BuiltInTones + OwnTones;

/// The name of the tone-names file in the program's folder.
inline constexpr TextView ToneNamesFileName = u"rt.lng";

/// The 81 names without a tone-names file.
std::vector<Text> DefaultToneNames();

/// The 81 names with the lines of a tone-names file in place of the first names behind "kein".
/// Lines that begin with ";" do not count; lines after the 80th are ignored; names that are missing
/// keep their default.
std::vector<Text> ToneNamesFrom(ByteView file);

/// The names from "rt.lng" in the program's folder, the default names where it cannot be read.
std::vector<Text> ReadToneNames(const FilePath& folder);

/// Writes the names behind "kein", a line each, to "rt.lng" in the program's folder, replacing the
/// old file only when the new one is complete.
void WriteToneNames(const FilePath& folder, const std::vector<Text>& names,
                    OverwritingHook beforeOverwriting = {});

}  // namespace norvik
