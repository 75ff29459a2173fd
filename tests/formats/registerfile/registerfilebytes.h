// Register files written out by hand, for the tests of their readers and writers.
#pragma once

#include "tests/support/testfolder.h"

#include <initializer_list>

namespace norvik::test {

/// The 18 bytes that open every register file.
inline Bytes FileHeader() {
    return Raw("06 0D 'TStCollection' 02 64 01");
}

/// A whole register file: the header, the records and the end of the list.
inline Bytes FileOf(std::initializer_list<Bytes> records) {
    return Join({FileHeader(), Join(records), Raw("00")});
}

/// A file without its end byte.
inline Bytes OpenFileOf(std::initializer_list<Bytes> records) {
    return Join({FileHeader(), Join(records)});
}

/// A file of `count` records with the name "x", model 195.
inline Bytes FileOfMany(int count) {
    const Bytes record = Raw("0200 0201 06 01 'x' 06 00 06 00 0200 020F 0200 0200");
    Bytes bytes = FileHeader();
    for (int i = 0; i < count; ++i) {
        bytes.insert(bytes.end(), record.begin(), record.end());
    }
    bytes.push_back(0x00);
    return bytes;
}

}  // namespace norvik::test
