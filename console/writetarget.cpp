#include "console/writetarget.h"

#include "formats/common/undefinederror.h"
#include "mainwindow/operations.h"

namespace norvik {

MobileExportOptions MobileOptions(const ConverterOptions& options, const Settings& settings) {
    MobileExportFields fields = NVHE_Load(settings);
    for (const HandyBox box : options.Boxes) {
        fields.chkHE.at(box) = true;
        chkHE_Click(fields, box);
    }
    MobileExportOptions mobile = OptionsOf(fields);
    mobile.UseReductionFlags = mobile.UseReductionFlags || options.OnlyMarked;
    return mobile;
}

TargetOptions TargetOptionsOf(const ConverterOptions& options, const Settings& settings) {
    return {.Quoted = options.Quoted,
            .OnlyMarked = options.OnlyMarked,
            .Exclusions = options.Exclusions,
            .Mobile = MobileOptions(options, settings),
            .UnitPrice = settings.UnitPrice,
            .InternationalPrefix = settings.InternationalPrefix,
            .AreaPrefix = settings.AreaPrefix};
}

bool WriteTarget(const ConverterOptions& options, const Settings& settings, RegisterState& state,
                 const OutputTarget& target, Desktop& desktop) {
    return RowOf(options.To.value())
        .Write(state, target, TargetOptionsOf(options, settings), settings, desktop);
}

void ReportWriteError(FileFormat format, const RuntimeError& error, Desktop& desktop) {
    const FormatRow& row = RowOf(format);
    switch (row.OnWriteFailure) {
    case WriteFailure::StatusLine:
        break;  // there is none
    case WriteFailure::UndefinedError:
        ReportUndefinedError(row.SaveItem, error, desktop);
        break;
    case WriteFailure::RuntimeError:
        ReportUnhandled(error, desktop);
        break;
    }
}

}  // namespace norvik
