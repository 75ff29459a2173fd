// The name and number file that the IP 286 imports. docs/formats/ip286.md describes it.
#pragma once

#include "base/desktop.h"
#include "base/outputfile.h"
#include "register/register.h"

#include <vector>

namespace norvik {

namespace ip286 {
inline constexpr std::string_view Ending = ".csv";
/// The filter of the save dialog.
inline constexpr TextView DialogFilter = u"CSV-Datei(IP286)|*.csv|Alle Dateien|*.*";
/// The title of the box that tells what was exported.
inline constexpr TextView ResultTitle = u"Exportergebnis";
}  // namespace ip286

/// The telephone keeps at most so many entries.
inline constexpr int LargestIP286Register = 300;

/// The exclusion texts of a list of them separated by "|", without the empty ones. They are parts
/// of the list.
std::vector<TextView> SplitExclusions(TextView exclusions);

/// Whether the entry's number holds one of the texts.
bool IsExcluded(const RegisterEntry& entry, const std::vector<TextView>& exclusions);

/// Writes name and number of every entry, in the register's order, whose number holds none of the
/// exclusion texts, and reports how many. `exclusions` holds texts separated by "|"; empty ones
/// exclude nothing. Raises what writing raises, and reports nothing then.
void ExportIP286(const RegisterState& state, const OutputTarget& target, TextView exclusions,
                 Desktop& desktop);

}  // namespace norvik
