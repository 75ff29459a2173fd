// What a register loses when it is written in another format. docs/formats/losses.md has the table.
#pragma once

#include "formats/formattable.h"
#include "register/register.h"

#include <vector>

namespace norvik {

enum class LossKind {
    EntryLeftOut,     ///< not in the charge statement, or not loaded again
    TooManyEntries,   ///< behind the last entry that the telephone keeps
    BlankName,        ///< the telephone has nothing to show the entry under
    DoubledName,      ///< an entry before it has the same name in the file
    TextTooLong,      ///< longer than a string of the file: nothing can be written
    ChargesTooHigh,   ///< 65536 units and more: nothing can be written
    LineBreak,        ///< a line end in a text tears the entry
    Separator,        ///< a text holds what separates the values
    Quote,            ///< a quote that the file cannot hold
    DeviceByte,       ///< a character whose byte is another one's in the telephone
    Transliteration,  ///< a character that is spelled out
    Comma,            ///< the comma that the mobile export cuts out of a name
    NameCut,
    NumberCut,
    NumberCleaned,  ///< characters of the number are left out
    NumberChanged,  ///< comes back in another form
    NumberDropped,  ///< the file holds no numbers
    TextChanged,    ///< name or info text comes back otherwise
    InfoText,       ///< the file holds no info texts
    InfoCut,
    InfoFirstLine,  ///< an empty first info line falls away, the others move up
    Blanks,         ///< blanks at an end of a text fall away
    Mark,           ///< the export mark, which is a part of the info text
    RingTone,
    Announcement,
    Msn,
    CallFilter,
    ChargeCounter,  ///< whether the entry has a charge counter
    Charges,        ///< the counter's units
    UnusedBits,     ///< bits of MsnFilter without a meaning
    Amount,         ///< charges whose amount rounds to nothing
};

/// One thing that the target does not hold.
struct Loss {
    int Position = 0;  ///< in the register's order, from 1
    Text Name;         ///< the entry's
    LossKind Kind = LossKind::EntryLeftOut;
    Text What;  ///< for the user: "Name wird auf 20 Zeichen gekürzt: …"; see LossLine

    bool operator==(const Loss&) const = default;
};

/// What the entries at positions 1 to count would lose in a file of the target format, entry by
/// entry; entries that the options leave out are not looked at. For a format that can be loaded,
/// the register after writing and loading differs in exactly what is reported; the running numbers,
/// which each load sets anew, are not looked at. An entry that a line break or a separator tears is
/// reported for that alone. Raises error 5 for a character outside Windows-1252.
std::vector<Loss> LossReport(const RegisterState& state, FileFormat target,
                             const TargetOptions& options = {});

/// A loss as one line for the user, without a line end: "#12 Müller: Ansage 3 fällt weg".
Text LossLine(const Loss& loss);

}  // namespace norvik
