#include "dialogs/mobileexportfields.h"

#include "formats/common/quietsave.h"

#include <utility>

namespace norvik {

namespace {

constexpr TextView Yes = u"yes";
constexpr TextView No = u"no";
constexpr TextView UsualSeparator = u";";

/// The settings of the boxes, by their index.
constexpr std::array<Setting, HandyBoxes> BoxSettings = {
    Setting::AddRegionCode,     Setting::GlobalizeNumber,    Setting::Change00toPlus,
    Setting::UseReductionFlags, Setting::DeleteCommaInNames, Setting::WriteMemNumber,
    Setting::UseQuotesForData};

}  // namespace

void mnuDateiHandyexp(Windows& windows) {
    windows.ShowMobileExport();
}

MobileExportFields NVHE_Load(const Settings& settings) {
    const SettingsTable& table = settings.Table;
    MobileExportFields fields;
    fields.AnzVorwahl = u"0" + table.Value(Setting::RegionCode);
    fields.AnzLand = u"00" + table.Value(Setting::CountryCode);
    fields.InpSeparator = table.Value(Setting::DataSeparator);
    if (fields.InpSeparator.empty()) {
        fields.InpSeparator = UsualSeparator;
    }
    for (std::size_t box = 0; box < HandyBoxes; ++box) {
        if (table.Value(BoxSettings.at(box)) == Yes) {
            fields.chkHE.at(box) = true;
            chkHE_Click(fields, box);
        }
    }
    return fields;
}

void chkHE_Click(MobileExportFields& fields, std::size_t box) {
    if (box == GlobalizeNumberBox && fields.chkHE[GlobalizeNumberBox]) {
        fields.chkHE[AddRegionCodeBox] = true;
    }
}

MobileExportOptions OptionsOf(const MobileExportFields& fields) {
    return {.AddRegionCode = fields.chkHE[AddRegionCodeBox],
            .GlobalizeNumber = fields.chkHE[GlobalizeNumberBox],
            .Change00toPlus = fields.chkHE[Change00toPlusBox],
            .UseReductionFlags = fields.chkHE[UseReductionFlagsBox],
            .DeleteCommaInNames = fields.chkHE[DeleteCommaInNamesBox],
            .WriteMemNumber = fields.chkHE[WriteMemNumberBox],
            .UseQuotesForData = fields.chkHE[UseQuotesForDataBox],
            .DataSeparator = fields.InpSeparator};
}

void btnExport_Click(const MobileExportFields& fields, const RegisterState& state,
                     const Settings& settings, Desktop& desktop) {
    const std::optional<FilePath> chosen = desktop.AskForFileToSave(
        {.filter = Text(mobileexport::DialogFilter), .ending = std::string(mobileexport::Ending)});
    if (!chosen) {
        return;
    }
    const FilePath path = WithEnding(*chosen, mobileexport::Ending);
    desktop.BeforeReplacing(path);
    ExportMobile(state, OptionsOf(fields), settings, path, desktop);
    desktop.ShowEntry();
}

void btnSaveSettings_Click(const MobileExportFields& fields, Settings& settings,
                           const FilePath& folder, Desktop& desktop) {
    SettingsTable table = settings.Table;
    for (std::size_t box = GlobalizeNumberBox; box < HandyBoxes; ++box) {
        table.SetValue(BoxSettings.at(box), fields.chkHE.at(box) ? Yes : No);
    }
    table.SetValue(Setting::DataSeparator, fields.InpSeparator);
    Text remark;
    WriteSettingsFile(folder, table, TellDesktop(desktop, remark));
    settings.Table = std::move(table);
    desktop.SetStatus(u"Einstellungen gespeichert" + remark);
}

}  // namespace norvik
