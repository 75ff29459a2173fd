#include "formats/common/namingentry.h"

#include "base/runtimeerror.h"

namespace norvik {

void NamingEntry(const RegisterState& state, int position,
                 const std::function<void(const RegisterEntry& entry)>& write) {
    const RegisterEntry& entry = EntryAt(state, position);
    try {
        write(entry);
    } catch (const RuntimeError& error) {
        if (error.Number() != ErrorNumber::InvalidArgument) {
            throw;  // the disk's doing, not the entry's
        }
        Text cause = u"#" + Decimal(position) + u" ";
        cause.append(Slice(entry.Name, 0, FieldWidth));
        if (!error.Cause().empty()) {
            cause.append(u": ").append(error.Cause());
        }
        throw RuntimeError(error.Number(), cause);
    }
}

}  // namespace norvik
