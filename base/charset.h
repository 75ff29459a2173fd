// The character set of text files that other programs wrote: UTF-8 or Windows-1252.
#pragma once

#include "base/windows1252.h"

namespace norvik {

enum class Charset {
    Automatic,  ///< UTF-8 where the file is so, else Windows-1252
    Utf8,
    Windows1252,
};

/// The bytes of a text file, and how they are read.
struct TextFile {
    ByteView Content;  ///< without a byte order mark
    bool IsUtf8 = false;
};

/// Says how a file is read, the view being one of `file`. Told to find out, it takes a file that
/// begins with the byte order mark, or is UTF-8 with a character beyond ASCII, as UTF-8.
TextFile RecognizeText(ByteView file, Charset charset = Charset::Automatic);

/// Makes `text`, whose room it uses again, the text of a part of the file; gives whether a
/// character was replaced.
bool AssignDecoded(Text& text, ByteView bytes, bool isUtf8);

}  // namespace norvik
