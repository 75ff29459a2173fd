#include "formats/vcard/vcardlines.h"

#include "base/utf8.h"
#include "formats/vcard/vcardproperty.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace norvik {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr char32_t FirstHalves = 0xD800;
constexpr char32_t SecondHalves = 0xDC00;
constexpr char32_t BehindHalves = 0xE000;

std::string_view CharactersOf(ByteView bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool IsBlank(char byte) {
    return byte == ' ' || byte == '\t';
}

/// Whether "=" is the last byte, blanks apart.
bool EndsWithBreak(std::string_view line) {
    while (!line.empty() && IsBlank(line.back())) {
        line.remove_suffix(1);
    }
    return line.ends_with('=');
}

/// Finds out whether a line that grows is quoted-printable, so that "=" at its end breaks it
/// softly.
class SoftBreaks {
  public:
    bool MayStandIn(std::string_view line) {
        if (!known_) {
            const auto property = SplitVCardProperty(line.substr(0, LongestHead));
            known_ = property || line.size() >= LongestHead;
            may_ = property && TransferOf(*property) == VCardTransfer::QuotedPrintable;
        }
        return may_;
    }

  private:
    /// A colon further behind ends no name and parameters.
    static constexpr std::size_t LongestHead = 256;

    bool known_ = false;
    bool may_ = false;
};

bool IsEdgeOfCard(std::string_view line) {
    const std::optional<VCardProperty> property = SplitVCardProperty(line);
    return property && EqualsIgnoringCase(TrimmedBytes(property->Value), "VCARD") &&
           (EqualsIgnoringCase(property->Name, "BEGIN") ||
            EqualsIgnoringCase(property->Name, "END"));
}

}  // namespace

bool VCardLines::Next(std::string_view& line) {
    if (TakeWhole(line)) {
        return true;
    }
    const bool isThere = Join();
    line = joined_;
    return isThere;
}

/// Takes a line that stands in the block as a whole, with the byte behind it, and needs no change,
/// as most do.
bool VCardLines::TakeWhole(std::string_view& line) {
    if (nextIsWaiting_ || ((rest_.empty() || lineFeedBelongs_) && !Fill()) || hasZeros_) {
        return false;
    }
    const std::size_t length = LengthOfLine();
    if (length > LongestVCardLine || length + 2 >= rest_.size()) {
        return false;
    }
    line = rest_.substr(0, length);
    const bool endsInBoth = rest_[length] == '\r' && rest_[length + 1] == '\n';
    const std::size_t behind = length + (endsInBoth ? 2 : 1);
    if (EndsWithBreak(line) || IsBlank(rest_[behind]) || line.starts_with(Utf8Mark)) {
        return false;
    }
    rest_.remove_prefix(behind);
    return true;
}

/// Puts the next line together; false at the end.
bool VCardLines::Join() {
    std::string& line = joined_;
    line.clear();
    if (std::exchange(nextIsWaiting_, false)) {
        line = next_;
    } else if (!AppendPhysical(line)) {
        return false;
    }
    if (line.starts_with(Utf8Mark)) {
        line.erase(0, Utf8Mark.size());
    }
    if (EqualsIgnoringCase(line, "END:VCARD")) {  // is whole, even if nothing more can be read
        return true;
    }
    SoftBreaks softBreaks;
    for (;;) {
        if (last_ == '=' && softBreaks.MayStandIn(line)) {
            next_.clear();
            if (!AppendPhysical(next_)) {
                return true;
            }
            if (IsEdgeOfCard(next_)) {  // the break was none
                nextIsWaiting_ = true;
                return true;
            }
            line.resize(std::min(line.size(), line.find_last_not_of(" \t") + 1));
            if (line.ends_with('=')) {  // a line cut short has lost it
                line.pop_back();
            }
            Append(line, next_);
        } else if (Fill() && IsBlank(rest_.front())) {
            rest_.remove_prefix(1);
            AppendPhysical(line);
        } else {
            return true;
        }
    }
}

/// The bytes in front of the next CR or LF of the block. The place of a LF is kept: it is not
/// sought again for each line that a CR ends.
std::size_t VCardLines::LengthOfLine() {
    if (fromLineFeed_ > rest_.size()) {
        fromLineFeed_ = rest_.size() - std::min(rest_.find('\n'), rest_.size());
    }
    const std::string_view line = rest_.substr(0, rest_.size() - fromLineFeed_);
    return std::min(line.find('\r'), line.size());
}

/// Takes care that there is something to read; false at the end.
bool VCardLines::Fill() {
    for (;;) {
        if (rest_.empty() && !ReadBlock()) {
            return false;
        }
        if (rest_.empty()) {  // of UTF-16, not even a character
            continue;
        }
        if (!std::exchange(lineFeedBelongs_, false) || rest_.front() != '\n') {
            return true;
        }
        rest_.remove_prefix(1);
    }
}

bool VCardLines::ReadBlock() {
    const std::size_t count = input_.Read(block_);
    if (count == 0) {
        return false;
    }
    bytesRead_ += count;
    const ByteView bytes = ByteView(block_).first(count);
    rest_ = CharactersOf(bytes);
    if (form_ == Form::Unknown) {
        FindForm();
    }
    if (form_ != Form::Plain) {
        TakeUtf16(bytes);
    }
    fromLineFeed_ = std::string_view::npos;
    hasZeros_ = rest_.find('\0') != std::string_view::npos;
    return true;
}

void VCardLines::FindForm() {
    form_ = rest_.starts_with("\xFF\xFE")   ? Form::LittleEndian
            : rest_.starts_with("\xFE\xFF") ? Form::BigEndian
                                            : Form::Plain;
    isMarked_ = form_ != Form::Plain || rest_.starts_with(Utf8Mark);
}

/// Makes UTF-8 of a block of UTF-16, which may end in the midst of a character. A half of a
/// surrogate pair alone is left out.
void VCardLines::TakeUtf16(ByteView bytes) {
    converted_.clear();
    for (const Byte byte : bytes) {
        unitBytes_.push_back(static_cast<char>(byte));
        if (unitBytes_.size() < 2) {
            continue;
        }
        if (form_ == Form::LittleEndian) {
            std::swap(unitBytes_.front(), unitBytes_.back());
        }
        constexpr char32_t High = 0x100;
        const char32_t unit =
            static_cast<Byte>(unitBytes_.front()) * High + static_cast<Byte>(unitBytes_.back());
        unitBytes_.clear();
        const char32_t first = std::exchange(firstHalf_, 0);
        if (unit >= FirstHalves && unit < SecondHalves) {
            firstHalf_ = unit;
        } else if (unit < FirstHalves || unit >= BehindHalves) {
            AppendUtf8(converted_, unit);
        } else if (first != 0) {
            constexpr char32_t BitsOfHalf = 10;
            AppendUtf8(converted_,
                       0x10000 + ((first - FirstHalves) << BitsOfHalf) + (unit - SecondHalves));
        }
    }
    rest_ = converted_;
}

/// Appends what is left up to the next line end; false at the end of the stream.
bool VCardLines::AppendPhysical(std::string& line) {
    last_ = 0;
    if (!Fill()) {
        return false;
    }
    for (;;) {
        const std::size_t length = LengthOfLine();
        Append(line, rest_.substr(0, length));
        if (length < rest_.size()) {
            lineFeedBelongs_ = rest_[length] == '\r';
            rest_.remove_prefix(length + 1);
            return true;
        }
        rest_ = {};
        if (!Fill()) {
            return true;
        }
    }
}

void VCardLines::Append(std::string& line, std::string_view piece) {
    const std::size_t last = piece.find_last_not_of(" \t");
    if (last != std::string_view::npos) {
        last_ = piece[last];
    }
    const std::string_view kept = piece.substr(0, LongestVCardLine - line.size());
    if (kept.find('\0') == std::string_view::npos) {
        line.append(kept);
    } else {
        std::copy_if(kept.begin(), kept.end(), std::back_inserter(line),
                     [](char byte) { return byte != '\0'; });
    }
}

}  // namespace norvik
