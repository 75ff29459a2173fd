// The text phone book for the SIM cards of mobile telephones (".pbb").
// docs/formats/mobileexport.md describes it.
#pragma once

#include "base/desktop.h"
#include "base/outputfile.h"
#include "register/register.h"
#include "register/settings.h"

namespace norvik {

namespace mobileexport {
inline constexpr std::string_view Ending = ".pbb";
/// The filter of the save dialog.
inline constexpr TextView DialogFilter = u"SIM-Surf|*.pbb|Alle Dateien|*.*";
}  // namespace mobileexport

/// The options of the export, named as the settings name them.
struct MobileExportOptions {
    bool AddRegionCode = false;       ///< the area prefix goes in front of local numbers
    bool GlobalizeNumber = false;     ///< numbers become international ones
    bool Change00toPlus = false;      ///< a leading "00" becomes "+"
    bool UseReductionFlags = false;   ///< the marked entries; otherwise the user is asked for each
    bool DeleteCommaInNames = false;  ///< the first comma behind a name's first character is cut
    bool WriteMemNumber = false;      ///< a running number opens each line
    bool UseQuotesForData = false;
    Text DataSeparator;  ///< stands between the values of a line
};

/// The name without its first comma; a comma at the first place keeps the name as it is.
Text WithoutComma(Text name);

/// Asks, then writes name and converted number of the exported entries, in the order of the table.
/// Raises what writing raises.
void ExportMobile(const RegisterState& state, const MobileExportOptions& options,
                  const Settings& settings, const OutputTarget& target, Desktop& desktop);

}  // namespace norvik
