// What the dialog of the mobile export does, without its widgets.
#pragma once

#include "base/desktop.h"
#include "dialogs/windows.h"
#include "formats/mobile/mobileexport.h"
#include "register/register.h"
#include "register/settings.h"

#include <array>

namespace norvik {

/// The boxes chkHE(0) to chkHE(6).
enum HandyBox : std::size_t {
    AddRegionCodeBox,
    GlobalizeNumberBox,
    Change00toPlusBox,
    UseReductionFlagsBox,
    DeleteCommaInNamesBox,
    WriteMemNumberBox,
    UseQuotesForDataBox,
    HandyBoxes,
};

/// The dialog's fields, named as it names them.
struct MobileExportFields {
    Text AnzVorwahl;  ///< the area prefix
    Text AnzLand;     ///< the international prefix
    std::array<bool, HandyBoxes> chkHE{};
    Text InpSeparator;
};

/// Shows the dialog.
void mnuDateiHandyexp(Windows& windows);

/// The fields as the dialog opens: the prefixes, the stored options, and the stored separator or
/// ";" when none is stored.
MobileExportFields NVHE_Load(const Settings& settings);

/// The user changed a box. Numbers cannot become international without the area code.
void chkHE_Click(MobileExportFields& fields, std::size_t box);

/// What the fields mean for the export.
MobileExportOptions OptionsOf(const MobileExportFields& fields);

/// Asks for a file and exports the register into it.
void btnExport_Click(const MobileExportFields& fields, const RegisterState& state,
                     const Settings& settings, Desktop& desktop);

/// Stores the boxes but the first one, and the separator, in the settings and writes their file in
/// the program's folder. Raises what writing it raises; the settings then stay as they were.
void btnSaveSettings_Click(const MobileExportFields& fields, Settings& settings,
                           const FilePath& folder, Desktop& desktop);

}  // namespace norvik
