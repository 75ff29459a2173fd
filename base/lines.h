// The lines of text files.
#pragma once

#include "base/windows1252.h"

namespace norvik {

/// Takes a text file apart, line by line. A line ends at CR or CR LF; a bare LF belongs to its
/// line. Only in a file without any CR, as other systems write it, LF ends the lines. The last line
/// needs no line end; an end behind the last line opens no further one.
class LineReader {
  public:
    /// `file` must live as long as the reader.
    explicit LineReader(ByteView file);

    [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
    /// The number of bytes that have not been read yet.
    [[nodiscard]] std::size_t Remaining() const { return rest_.size(); }
    /// The next line without its end. Must not be called at the end.
    Text Next();
    /// The same as bytes, a part of the file.
    ByteView NextBytes();
    /// The next line; raises error 62 at the end.
    Text NextOrRaise();
    ByteView NextBytesOrRaise();

  private:
    ByteView rest_;
    Byte lineEnd_;
};

/// Whether a line holds anything but blanks and tabs.
bool IsFilled(ByteView line);

/// Reads on to the next filled line; gives whether there is one.
bool HasFilledLine(LineReader& lines);

}  // namespace norvik
