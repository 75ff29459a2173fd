// File dialogs as the operations ask for them.
#pragma once

#include "base/desktop.h"

#include <QFileDialog>

namespace norvik {

/// Shows a file dialog above `parent`, the platform's own where it has one, and gives the chosen
/// name, or nothing when it was cancelled. It begins in `folder`, or where the last one ended if
/// there is no such folder. Before a file is replaced the user is asked for the name with its
/// ending. What lies in `hidden`, the folder of earlier versions, is not taken, and the toolkit's
/// own dialog does not show it.
std::optional<FilePath> RunFileDialog(const FileDialog& dialog, QFileDialog::AcceptMode mode,
                                      const FilePath& folder, const FilePath& hidden,
                                      QWidget* parent);

/// Asks whether `file` may be replaced, as a file dialog for saving does.
bool AskToReplaceFile(const FilePath& file, QWidget* parent);

}  // namespace norvik
