// The sign of life of a load that takes its time.
#pragma once

#include "base/desktop.h"

#include <chrono>
#include <functional>

namespace norvik {

/// Tells the time, std::chrono::steady_clock::now in general; tests have a clock of their own.
using Clock = std::function<std::chrono::steady_clock::time_point()>;

/// Shows in the status line how far a file has been read, as soon as that takes longer than a
/// glance. The load of a usual file leaves the status line alone.
class LoadProgress {
  public:
    /// A file of `size` bytes, called `file` ("CSV-Datei"), begins to be read.
    LoadProgress(TextView file, std::size_t size, Desktop& desktop, const Clock& clock);
    LoadProgress(const LoadProgress&) = delete;
    LoadProgress& operator=(const LoadProgress&) = delete;
    LoadProgress(LoadProgress&&) = delete;
    LoadProgress& operator=(LoadProgress&&) = delete;
    /// Where the status line shows how far a reading that was not Done has come, it says so.
    ~LoadProgress();

    /// So much of the file has not been read yet.
    void Remaining(std::size_t bytes) {
        if (bytes <= nextLook_) {  // the clock itself takes longer than reading a line
            Look(bytes);
        }
    }

    /// The reading has gone to its end.
    void Done();

  private:
    void Look(std::size_t remaining);
    void End(TextView what);

    Text file_;
    std::size_t size_;
    Desktop& desktop_;
    const Clock& clock_;
    std::size_t nextLook_;
    std::chrono::steady_clock::time_point nextSign_;
    bool shown_ = false;
};

}  // namespace norvik
