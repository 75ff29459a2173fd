// Contacts of other programs, as vCard files hold them: what the room shares.
// docs/formats/vcard.md describes the file.
#pragma once

#include "base/charset.h"
#include "base/desktop.h"
#include "formats/common/loadprogress.h"
#include "formats/common/sourcefile.h"
#include "register/register.h"
#include "register/settings.h"

namespace norvik {

namespace vcard {

inline constexpr std::string_view Ending = ".vcf";
/// The filter of the dialogs.
inline constexpr TextView DialogFilter = u"vCard-Datei|*.vcf|Alle Dateien|*.*";
/// The type that the window shows.
inline constexpr TextView Type = u"vCard";

}  // namespace vcard

/// Replaces the register by the numbers of a vCard file, block by block whatever its size, and
/// shows the file and what is to be said of it. Gives false, after a message, when it holds no
/// number that could be dialled; the register is as it was then. Raises what reading the file
/// raises; where numbers have been read by then, they and the current file stand beside the old
/// count, see LoadOrReport. `characters` is the character set of the properties that declare none.
bool LoadVCard(RegisterState& state, Source source, const Settings& settings, Desktop& desktop,
               Charset characters = Charset::Automatic,
               const Clock& clock = std::chrono::steady_clock::now);

}  // namespace norvik
