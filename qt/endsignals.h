// The signals with which the system asks the program to end.
#pragma once

#include <QObject>

#include <functional>

namespace norvik {

/// Listens from its making on. `before` runs in the event loop, then the signal ends the program.
class EndSignals : public QObject {
  public:
    explicit EndSignals(std::function<void()> before, QObject* parent = nullptr);

  private:
    std::function<void()> before_;
};

}  // namespace norvik
