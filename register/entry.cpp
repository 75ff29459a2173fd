#include "register/entry.h"

namespace norvik {

bool HasOwnTone(const RegisterEntry& entry) {
    return (entry.Ton & EnTon) != 0;
}

bool HasChargeCounter(const RegisterEntry& entry) {
    return (entry.MsnFilter & EnGeb) != 0;
}

int MsnOf(const RegisterEntry& entry) {
    return entry.MsnFilter & MsnMask;
}

int FilterOf(const RegisterEntry& entry) {
    return (entry.MsnFilter >> FilterShift) & FilterMask;
}

bool IsMarked(const RegisterEntry& entry) {
    return Contains(entry.Info, ExportMark);
}

Text InfoLine(const RegisterEntry& entry, int line) {
    const std::size_t start = static_cast<std::size_t>(line) * InfoLineWidth;
    return PadOrCut(Slice(entry.Info, start), InfoLineWidth);
}

}  // namespace norvik
