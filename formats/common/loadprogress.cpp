#include "formats/common/loadprogress.h"

#include <algorithm>
#include <utility>

namespace norvik {

namespace {

constexpr std::chrono::milliseconds FirstSign{300};
constexpr std::chrono::milliseconds BetweenSigns{100};
/// Bytes between two looks at the clock.
constexpr std::size_t BetweenLooks = std::size_t{64} * 1024;

std::size_t Behind(std::size_t remaining) {
    return remaining - std::min(remaining, BetweenLooks);
}

}  // namespace

LoadProgress::LoadProgress(TextView file, std::size_t size, Desktop& desktop, const Clock& clock)
    : file_(file),
      size_(size),
      desktop_(desktop),
      clock_(clock),
      nextLook_(Behind(size)),
      nextSign_(clock_() + FirstSign) {}

LoadProgress::~LoadProgress() {
    End(u" nicht ganz gelesen");
}

void LoadProgress::Done() {
    End(u" gelesen");
}

void LoadProgress::Look(std::size_t remaining) {
    nextLook_ = Behind(remaining);
    const auto now = clock_();
    if (now < nextSign_) {
        return;
    }
    nextSign_ = now + BetweenSigns;
    shown_ = true;
    const auto percent = static_cast<long long>((size_ - remaining) * 100 / size_);
    desktop_.SetStatus(file_ + u" wird gelesen... " + Decimal(percent) + u" %");
}

void LoadProgress::End(TextView what) {
    if (std::exchange(shown_, false)) {
        desktop_.SetStatus(file_ + Text(what));
    }
}

}  // namespace norvik
