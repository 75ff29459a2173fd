#include "console/writetarget.h"

#include "formats/charges/chargestatement.h"
#include "formats/common/undefinederror.h"
#include "formats/csv/csvformat.h"
#include "formats/ip286/ip286.h"
#include "formats/ip286/ip286menu.h"
#include "formats/phonebook175/phonebookfile.h"
#include "formats/registerfile/registerfile.h"
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

LossOptions LossOptionsOf(const ConverterOptions& options, const Settings& settings) {
    return {.QuotedCsv = options.Quoted,
            .OnlyMarked = options.OnlyMarked,
            .Exclusions = options.Exclusions,
            .Mobile = MobileOptions(options, settings)};
}

bool WriteTarget(const ConverterOptions& options, const Settings& settings, RegisterState& state,
                 const FilePath& path, Desktop& desktop) {
    switch (options.To.value()) {
    case TargetFormat::Register195:
        WriteRegisterFile195(state, path, desktop);
        break;
    case TargetFormat::Register193:
        WriteRegisterFile193(state, path, options.OnlyMarked, desktop);
        return !options.OnlyMarked || state.AnzMarkiert > 0;
    case TargetFormat::Phonebook175:
        WritePhonebookFile(state, path, desktop);
        break;
    case TargetFormat::Csv:
        WriteCSV(state, path, options.Quoted);
        break;
    case TargetFormat::Ip286:
        WarnOfLargeRegister(state, desktop);
        ExportIP286(state, path, options.Exclusions, desktop);
        break;
    case TargetFormat::MobileExport:
        ExportMobile(state, MobileOptions(options, settings), settings, path, desktop);
        break;
    case TargetFormat::ChargeStatement:
        WriteChargeStatement(state, settings.UnitPrice, path);
        break;
    }
    return true;
}

void ReportWriteError(TargetFormat format, const RuntimeError& error, Desktop& desktop) {
    switch (format) {
    case TargetFormat::Register195:
    case TargetFormat::Register193:
    case TargetFormat::Phonebook175:
        break;  // the window tells it in the status line alone
    case TargetFormat::Csv:
        ReportUndefinedError(u"mnuDateiSaveCSV", error, desktop);
        break;
    case TargetFormat::Ip286:
        ReportUndefinedError(u"mnuDateiSaveIP286", error, desktop);
        break;
    case TargetFormat::MobileExport:
    case TargetFormat::ChargeStatement:
        ReportUnhandled(error, desktop);
        break;
    }
}

}  // namespace norvik
