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
        const TextView filled = RightTrim(line.substr(0, InfoLineWidth));
        if (size_ == InfoWidth) {
            surplus_ = surplus_ || !filled.empty();
            return;
        }
        if (!filled.empty()) {
            FillTo(size_);
            std::copy(filled.begin(), filled.end(), text_.begin() + size_);
            end_ = size_ + filled.size();
        }
        size_ += InfoLineWidth;
    }

    [[nodiscard]] Text Result() {
        if (surplus_) {
            FillTo(InfoWidth);
            return Text(text_.data(), InfoWidth - Ellipsis.size()).append(Ellipsis);
        }
        return {text_.data(), end_};
    }

  private:
    /// The blanks behind the text are made when another line follows them.
    void FillTo(std::size_t end) {
        std::fill(text_.begin() + end_, text_.begin() + end, u' ');
        end_ = end;
    }

    std::array<char16_t, InfoWidth> text_{};  ///< up to end_
    std::size_t end_ = 0;                     ///< of the last line that is not blank
    std::size_t size_ = 0;                    ///< of all lines so far
    bool surplus_ = false;                    ///< there is more than blanks behind the six lines
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
