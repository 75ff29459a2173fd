// Few and strong colours for those who need them, where the system's visual style would paint over
// them.
#pragma once

#include <functional>

class QApplication;

namespace norvik {

/// Whether the user has asked the system for a high contrast whose colours its visual style may not
/// know. There is one file of it for each system.
bool WantsHighContrast();

/// Draws all windows in the colours of the palette alone as long as a high contrast is wanted, and
/// in the system's style otherwise, also when that changes. To be called once.
void FollowHighContrast(QApplication& application,
                        std::function<bool()> isWanted = WantsHighContrast);

}  // namespace norvik
