// What holds for the whole application, and for the window tests as well.
#pragma once

#include "base/files.h"

class QApplication;

namespace norvik {

/// Makes the toolkit's own buttons and dialogs German and its own, whatever the system's locale and
/// desktop.
void PrepareApplication(QApplication& application);

/// The program's folder of a running application.
FilePath ApplicationFolder();

}  // namespace norvik
