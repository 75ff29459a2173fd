// What the desktop does with documents. There is one file of it for each system.
#pragma once

#include "base/paths.h"

namespace norvik {

/// Opens a document with the program that belongs to it. Gives what the shell of Windows returns:
/// more than 32 when it was handed over, 2 when it is not there, 31 when no program opens it.
int OpenWithItsProgram(const FilePath& document);

/// Whether the dialog for printing comes without a printer, too, and offers to print into a file.
bool PrintsWithoutPrinter();

/// Opens a text in a text editor, in a window that fills the screen where the system knows how.
void OpenAsText(const FilePath& document);

}  // namespace norvik
