// Adding the entries of one register to another one.
#pragma once

#include "base/desktop.h"
#include "register/register.h"
#include "register/settings.h"

namespace norvik {

/// What became of the entries that were to be added.
struct AddedEntries {
    int Added = 0;
    int AlreadyThere = 0;      ///< entries whose name and dialled number the register had
    int FirstIndex = 0;        ///< the table index of the first one added
    LongReport Findings = {};  ///< lines
};

/// Appends copies of the entries of `source`, in their order, to the register, unless an entry with
/// the same name that dials the same number is there. One whose number another name has is named,
/// and so is one that finds no place. An empty entry is not added; where the
/// register holds nothing else, the first one added takes its place. Nothing is sorted or shown.
AddedEntries AddEntries(RegisterState& state, const RegisterState& source,
                        const Settings& settings);

/// "12 Einträge dazugeladen".
Text StatusOf(const AddedEntries& added);

/// The box that tells what was added and what there is to say about it.
MessageBox ReportOf(const AddedEntries& added);

}  // namespace norvik
