#include "textformats/infoflow.h"

#include "register/entry.h"

#include <algorithm>

namespace norvik {

namespace {

/// Ends each field in the joined text; a line ends here.
constexpr char16_t LineMark = u'\u00FF';
constexpr std::size_t InfoWidth = InfoLines * InfoLineWidth;
constexpr TextView Ellipsis = u"...";

/// Collects lines of exactly InfoLineWidth characters, and of a text that is too long no more than
/// what decides its end.
class InfoText {
  public:
    void AddLine(TextView line) {
        const Text padded = PadOrCut(line, InfoLineWidth);
        if (text_.size() < InfoWidth) {
            text_ += padded;
        } else {
            surplus_ = surplus_ || !RightTrim(padded).empty();
        }
    }

    [[nodiscard]] Text Result() const {
        if (surplus_) {
            return text_.substr(0, InfoWidth - Ellipsis.size()).append(Ellipsis);
        }
        return Text(RightTrim(text_));
    }

  private:
    Text text_;
    /// There is more than blanks behind the six lines.
    bool surplus_ = false;
};

/// Flows a text, of which every part ends with a line mark, into lines. Positions count from 1.
Text Flow(TextView text) {
    InfoText info;
    std::size_t lineStart = 1;
    std::size_t lineLength = 0;
    std::size_t lastBlank = 0;
    for (std::size_t k = 1; k <= text.size(); ++k) {
        bool breaks = false;
        ++lineLength;
        if (text[k - 1] == u' ') {
            lastBlank = k;
        }
        if (text[k - 1] == LineMark) {
            if (lineLength > 1) {
                breaks = true;
            } else {  // the mark opens a line: none is made, it begins behind the mark
                lineLength = 0;
                lineStart = k + 1;
            }
        }
        if (lineLength > InfoLineWidth) {
            if (lastBlank > lineStart) {
                k = lastBlank;
                lineLength = k - lineStart + 1;
            }
            breaks = true;
        }
        if (breaks) {
            // A line cut at a blank keeps it as the first character of the next line.
            info.AddLine(text.substr(lineStart - 1, lineLength - 1));
            const bool atMark = text[k - 1] == LineMark;
            lineStart = atMark ? k + 1 : k;
            lineLength = atMark ? 0 : 1;
        }
    }
    return info.Result();
}

}  // namespace

Text AssembleInfo(std::span<const TextView> fields) {
    const bool tooLong = std::any_of(fields.begin(), fields.end(),
                                     [](TextView field) { return field.size() > InfoLineWidth; });
    if (!tooLong) {
        InfoText info;
        for (const TextView field : fields) {
            info.AddLine(field);
        }
        return info.Result();
    }
    std::size_t length = 0;
    for (const TextView field : fields) {
        length += field.size() + 1;
    }
    Text joined;
    joined.reserve(length);  // a field may be a whole file
    for (const TextView field : fields) {
        joined.append(field).push_back(LineMark);
    }
    return Flow(joined);
}

}  // namespace norvik
