// What the window writes: the operations of its menu items, with a user who answers as the
// converter does by itself.
#pragma once

#include "formats/formattable.h"
#include "register/settings.h"
#include "tests/support/testfolder.h"

#include <vector>

namespace norvik::test {

/// The answers of the user.
struct WindowAnswers {
    Settings Set = {};
    bool AvoidDoubles = false;
    bool OnlyMarked = false;
    bool Quoted = false;
    std::vector<Text> Exclusions = {};
    /// As "--null-hinzu" and "--null-weg" say it.
    std::optional<Text> ZeroCode = {};
    /// The boxes of the mobile export that the user ticks.
    std::vector<std::size_t> Boxes = {};
};

/// Loads `source` and saves it in the target format, from the menu. Gives the bytes of the file.
Bytes WindowWrites(const FilePath& source, FileFormat from, FileFormat to,
                   const WindowAnswers& answers = {});

/// Converts a call list from the menu, with one answer for every call's MSN.
Bytes WindowConvertsCalls(const FilePath& source, int calls, TextView msn);

}  // namespace norvik::test
