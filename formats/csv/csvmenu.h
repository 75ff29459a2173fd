// The menu items of the CSV file: loading and saving.
#pragma once

#include "base/desktop.h"
#include "formats/common/sourcefile.h"
#include "formats/csv/csvformat.h"
#include "register/register.h"
#include "register/settings.h"

namespace norvik {

/// Asks for a CSV file, loads, checks and sorts it and shows its first entry. A failure is
/// reported and ends the operation.
void mnuDateiLoadCSV(RegisterState& state, const Settings& settings, const CsvLoadOptions& options,
                     Desktop& desktop);

/// Loads a CSV file, `file` as LoadCSV takes it; a failure is reported as that of mnuDateiLoadCSV.
/// Gives whether the file was loaded.
bool LoadCSVOrReport(RegisterState& state, const Settings& settings, const FilePath& file,
                     Desktop& desktop);
/// The same from any source.
bool LoadCSVOrReport(RegisterState& state, const Settings& settings, const SourceReader& read,
                     const CsvLoadOptions& options, Desktop& desktop);

/// Asks for a name and saves the register as a CSV file. A failure is reported and ends the
/// operation.
void mnuDateiSaveCSV(RegisterState& state, Desktop& desktop);

}  // namespace norvik
