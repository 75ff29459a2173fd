#include "formats/csv/infoflow.h"

#include "register/entry.h"

#include <algorithm>
#include <array>

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
        const TextView shown = line.substr(0, InfoLineWidth);
        if (size_ < InfoWidth) {
            auto* const end = std::copy(shown.begin(), shown.end(), text_.begin() + size_);
            size_ += InfoLineWidth;
            std::fill(end, text_.begin() + size_, u' ');
        } else {
            surplus_ = surplus_ || !RightTrim(shown).empty();
        }
    }

    [[nodiscard]] Text Result() const {
        const TextView text(text_.data(), size_);
        if (surplus_) {
            return Text(text.substr(0, InfoWidth - Ellipsis.size())).append(Ellipsis);
        }
        return Text(RightTrim(text));
    }

  private:
    std::array<char16_t, InfoWidth> text_{};  ///< filled up to size_
    std::size_t size_ = 0;
    /// There is more than blanks behind the six lines.
    bool surplus_ = false;
};

/// Flows a text, of which every part ends with a line mark, into lines. Positions count from 1.
class InfoFlow {
  public:
    explicit InfoFlow(TextView text) : text_(text) {}

    Text Result() {
        for (position_ = 1; position_ <= text_.size(); ++position_) {
            ++lineLength_;
            if (LineEndsHere()) {
                TakeLine();
            }
        }
        return info_.Result();
    }

  private:
    [[nodiscard]] bool AtMark() const { return text_[position_ - 1] == LineMark; }

    /// Whether the line ends at this character; a line that grew too long takes the position back
    /// to its last blank.
    bool LineEndsHere() {
        if (text_[position_ - 1] == u' ') {
            lastBlank_ = position_;
        }
        if (AtMark() && lineLength_ == 1) {  // the mark opens a line: none is made
            StartBehindMark();
            return false;
        }
        if (lineLength_ <= InfoLineWidth) {
            return AtMark();
        }
        if (lastBlank_ > lineStart_) {
            position_ = lastBlank_;
            lineLength_ = position_ - lineStart_ + 1;
        }
        return true;
    }

    /// A line cut at a blank keeps it as the first character of the next line.
    void TakeLine() {
        info_.AddLine(text_.substr(lineStart_ - 1, lineLength_ - 1));
        if (AtMark()) {
            StartBehindMark();
        } else {
            lineStart_ = position_;
            lineLength_ = 1;
        }
    }

    void StartBehindMark() {
        lineStart_ = position_ + 1;
        lineLength_ = 0;
    }

    TextView text_;
    InfoText info_;
    std::size_t position_ = 0;
    std::size_t lineStart_ = 1;
    std::size_t lineLength_ = 0;
    std::size_t lastBlank_ = 0;
};

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
    return InfoFlow(joined).Result();
}

}  // namespace norvik
