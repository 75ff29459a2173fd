#include "console/reportlines.h"

#include "console/printable.h"
#include "console/writetarget.h"
#include "formats/common/doublednumbers.h"
#include "losses/lossreport.h"

namespace norvik {

Text LossLines(const ConverterOptions& options, const Settings& settings,
               const RegisterState& state) {
    const TargetOptions targetOptions = TargetOptionsOf(options, settings);
    const Text source = PrintablePath(options.Source) + u": ";
    Text lines;
    for (const FileFormat format : TargetFormats()) {
        if (options.To.value_or(format) != format) {
            continue;
        }
        const Text prefix = options.To ? source : source + FromAscii(RowOf(format).Word) + u": ";
        for (const Loss& loss : LossReport(state, format, targetOptions)) {
            lines.append(prefix).append(Printable(LossLine(loss))).append(LineEnd);
        }
    }
    return lines;
}

Text DoubleLines(const ConverterOptions& options, const Settings& settings,
                 const RegisterState& state) {
    Text lines;
    for (const DoubledNumber& number : DoubledNumbers(state, settings)) {
        lines.append(PrintablePath(options.Source)).append(u": doppelt ").append(number.Key);
        TextView separator = u": ";
        for (const int position : number.Positions) {
            const RegisterEntry& entry = EntryAt(state, position);
            lines.append(separator)
                .append(Printable(entry.Name))
                .append(u" (")
                .append(Printable(entry.Tel))
                .append(u")");
            separator = u", ";
        }
        lines.append(LineEnd);
    }
    return lines;
}

}  // namespace norvik
