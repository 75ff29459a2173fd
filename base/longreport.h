// Texts that may grow without end, as the findings about a file of another kind do, and what is
// shown of them.
#pragma once

#include "base/text.h"

namespace norvik {

/// A longer text is shown without its middle.
inline constexpr std::size_t LongestShownText = 2'000'000;
/// What is then shown of its beginning and of its end each; the rest is room for the line that
/// tells how much is left out.
inline constexpr std::size_t ShownHalf = LongestShownText / 2 - 50;

/// Collects a text, but no more of it than is shown. It stands where a Text would.
class LongReport {
  public:
    LongReport() = default;
    explicit LongReport(TextView text) { Append(text); }

    LongReport& Append(TextView text);
    /// Appends all that `report` has been given, as if none of it had been left out.
    LongReport& Append(const LongReport& report);
    void Clear();

    [[nodiscard]] bool IsEmpty() const { return size_ == 0; }
    /// How many characters it has been given.
    [[nodiscard]] std::size_t Size() const { return size_; }
    /// The whole text; of one longer than LongestShownText its beginning, a line that tells how
    /// many characters are left out, and its end.
    [[nodiscard]] Text Shown() const;

    friend bool operator==(const LongReport& report, TextView text) {
        return report.Shown() == text;
    }

  private:
    Text start_;  ///< the first LongestShownText characters
    Text end_;    ///< of those behind them the last ones, ShownHalf if there are so many
    std::size_t size_ = 0;
};

}  // namespace norvik
