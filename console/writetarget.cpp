#include "console/writetarget.h"

#include "formats/common/undefinederror.h"
#include "mainwindow/operations.h"
#include "paper/pdf.h"

#include <chrono>

namespace norvik {

namespace {

bool WritePhoneList(const ConverterOptions& options, const RegisterState& state,
                    const OutputTarget& target, Desktop& desktop) {
    PhoneListOptions list = options.List;
    if (options.OnlyMarked) {
        list.Entries = ListedEntries::Marked;
        if (CountPhoneListRows(state, list.Entries) == 0) {
            desktop.Ask({.text = u"Keine Datensätze zum Drucken!",
                         .title = u"Fehler",
                         .icon = Icon::Exclamation});
            return false;
        }
    }
    const auto now = std::chrono::floor<FileTime::duration>(std::chrono::system_clock::now());
    WritePdf(LayOutPhoneList(state, list, now), target);
    return true;
}

}  // namespace

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
    if (options.OnPaper) {
        return WritePhoneList(options, state, target, desktop);
    }
    return RowOf(options.To.value())
        .Write(state, target, TargetOptionsOf(options, settings), settings, desktop);
}

void ReportWriteError(const ConverterOptions& options, const RuntimeError& error,
                      Desktop& desktop) {
    if (options.OnPaper) {
        ReportUndefinedError(u"mnuDateiSavePdf", error, desktop);
        return;
    }
    const FormatRow& row = RowOf(options.To.value());
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
