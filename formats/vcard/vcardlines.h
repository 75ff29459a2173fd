// The lines of a vCard file, each put together again from the pieces that it was folded into.
#pragma once

#include "base/inputstream.h"

#include <string>
#include <string_view>

namespace norvik {

/// What is kept of a line; the rest, of a picture for example, is read and forgotten.
inline constexpr std::size_t LongestVCardLine = std::size_t{64} * 1024;

/// Reads a stream line by line in a memory that does not grow with it. CR, LF and CR LF end a line.
/// A line that begins with a blank or tab goes on with the one before it, and so does the one
/// behind a quoted-printable line that ends with "=". UTF-16 with its mark is read as UTF-8; other
/// bytes stay as they are, without those of value 0 and a line's leading mark of UTF-8.
class VCardLines {
  public:
    /// `input` must live as long as the reader.
    explicit VCardLines(InputStream& input) : input_(input), block_(InputBlockSize) {}

    /// Gives the next line in `line`, until the next one is asked for; false at the end. Raises
    /// what reading raises.
    bool Next(std::string_view& line);

    /// How many bytes of the stream have been read, in whole blocks.
    [[nodiscard]] std::uintmax_t BytesRead() const { return bytesRead_; }
    /// The stream opened with the mark of UTF-8 or UTF-16.
    [[nodiscard]] bool IsMarked() const { return isMarked_; }

  private:
    enum class Form { Unknown, Plain, LittleEndian, BigEndian };

    bool TakeWhole(std::string_view& line);
    bool Join();
    std::size_t LengthOfLine();
    bool Fill();
    bool ReadBlock();
    void FindForm();
    void TakeUtf16(ByteView bytes);
    bool AppendPhysical(std::string& line);
    void Append(std::string& line, std::string_view piece);

    InputStream& input_;
    Bytes block_;
    std::string converted_;         ///< a block of UTF-16 in UTF-8
    std::string_view rest_;         ///< of the block, not read yet
    std::size_t fromLineFeed_ = 0;  ///< bytes from the next LF of the block on; npos: not sought
    bool hasZeros_ = false;         ///< the block holds bytes of value 0
    std::uintmax_t bytesRead_ = 0;
    Form form_ = Form::Unknown;
    bool isMarked_ = false;
    std::string unitBytes_;   ///< a unit of UTF-16 that has not all come yet
    char32_t firstHalf_ = 0;  ///< of a surrogate pair
    std::string joined_;      ///< a line that does not stand in the block as it is
    std::string next_;        ///< a line behind a soft line break
    bool nextIsWaiting_ = false;
    char last_ = 0;                 ///< of the line read last, blanks apart
    bool lineFeedBelongs_ = false;  ///< to the line end that has been read
};

}  // namespace norvik
