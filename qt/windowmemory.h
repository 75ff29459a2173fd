// Remembers how large the windows were and where they stood, from one run to the next.
#pragma once

#include "base/paths.h"

#include <QObject>

#include <utility>

class QWidget;

namespace norvik {

class WindowMemory : public QObject {
  public:
    /// Keeps what it remembers in a settings file; without one it remembers nothing.
    explicit WindowMemory(FilePath settingsFile) : settingsFile_(std::move(settingsFile)) {}

    /// Gives a window that is not shown yet the size and the place that the one of its name had,
    /// and remembers those that it has when it goes; of the main window the division, too.
    void Follow(QWidget& window);

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void Remember(const QWidget& window) const;

    FilePath settingsFile_;
};

}  // namespace norvik
