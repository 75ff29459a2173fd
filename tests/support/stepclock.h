// A clock that goes on by the same step each time somebody looks at it.
#pragma once

#include <chrono>

namespace norvik::test {

class StepClock {
  public:
    explicit StepClock(std::chrono::milliseconds step) : step_(step) {}

    std::chrono::steady_clock::time_point operator()() { return now_ += step_; }

  private:
    std::chrono::milliseconds step_;
    std::chrono::steady_clock::time_point now_;
};

}  // namespace norvik::test
