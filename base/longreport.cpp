#include "base/longreport.h"

#include <algorithm>

namespace norvik {

namespace {

TextView LastOf(TextView text, std::size_t count) {
    return text.substr(text.size() - std::min(text.size(), count));
}

Text GapLine(std::size_t leftOut) {
    Text line(LineEnd);
    line.append(u"[… ").append(Decimal(static_cast<long long>(leftOut)));
    return line.append(u" Zeichen ausgelassen …]").append(LineEnd);
}

}  // namespace

LongReport& LongReport::Append(TextView text) {
    size_ += text.size();
    const std::size_t taken = std::min(text.size(), LongestShownText - start_.size());
    start_.append(text.substr(0, taken));
    end_.append(LastOf(text.substr(taken), ShownHalf));
    // Seldom enough that what is moved costs less than what was appended since.
    if (end_.size() > 2 * ShownHalf) {
        end_.erase(0, end_.size() - ShownHalf);
    }
    return *this;
}

LongReport& LongReport::Append(const LongReport& report) {
    const std::size_t leftOut = report.size_ - report.start_.size() - report.end_.size();
    Append(report.start_);
    Append(report.end_);
    size_ += leftOut;
    return *this;
}

void LongReport::Clear() {
    *this = LongReport();
}

Text LongReport::Shown() const {
    if (size_ <= LongestShownText) {
        return start_;
    }
    const TextView end = LastOf(end_, ShownHalf);
    Text shown = start_.substr(0, ShownHalf);
    shown.append(GapLine(size_ - 2 * ShownHalf));
    return shown.append(LastOf(start_, ShownHalf - end.size())).append(end);
}

}  // namespace norvik
