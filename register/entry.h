// One entry of the telephone register and the meaning of its bit fields.
#pragma once

#include "base/text.h"

#include <cstddef>
#include <cstdint>

namespace norvik {

/// The ten fields of an entry, in their order.
struct RegisterEntry {
    std::int16_t RecIndex = 0;   ///< running number from 0, as a device file stores it
    std::int16_t RecNumber = 0;  ///< second running number of a device file
    Text Name;
    Text Tel;
    Text Info;                    ///< up to six lines of InfoLineWidth characters, see InfoLine
    std::int16_t Ton = 0;         ///< bits 0-6 ring-tone number, bit 7 EnTon
    std::int16_t MsnFilter = 15;  ///< bits 0-3 MSN, bit 4 EnGeb, bits 6-7 Filter
    std::int32_t GebEinh = 0;     ///< charge units
    std::int16_t AB = 0;          ///< announcement: 0 the normal one, 1 to 7
    bool Listed = false;          ///< got a line in the register list; in no file

    bool operator==(const RegisterEntry&) const = default;
};

inline constexpr int ToneMask = 0x7F;
inline constexpr int EnTon = 0x80;
inline constexpr int MsnMask = 0x0F;
/// The MSN that is set in the telephone; 0 to 5 are MSN 1 to 6.
inline constexpr int MsnOfTelephone = 15;
inline constexpr int LastMsn = 5;
inline constexpr int EnGeb = 0x10;
inline constexpr int FilterShift = 6;
inline constexpr int FilterMask = 3;

/// Names and numbers have at most as many characters as an info line.
inline constexpr std::size_t FieldWidth = 21;
inline constexpr std::size_t InfoLineWidth = 21;
inline constexpr int InfoLines = 6;

/// Found anywhere in Info, these two characters mark the entry for export.
inline constexpr TextView ExportMark = u"()";

/// Whether the entry's ring tone is its individual one.
bool HasOwnTone(const RegisterEntry& entry);
bool HasChargeCounter(const RegisterEntry& entry);
/// The MSN bits, 0 to 15.
int MsnOf(const RegisterEntry& entry);
/// The call filter, 0 to 3: off, calls, VIP, CD.
int FilterOf(const RegisterEntry& entry);
/// Whether the entry carries the export mark.
bool IsMarked(const RegisterEntry& entry);

/// Info line `line` (0 to 5), filled up with blanks to InfoLineWidth characters.
Text InfoLine(const RegisterEntry& entry, int line);

}  // namespace norvik
