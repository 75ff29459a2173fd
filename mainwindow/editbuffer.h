// What the user types and chooses for the shown entry until it is stored: the editing buffer.
#pragma once

#include "mainwindow/fields.h"

namespace norvik {

/// The part of the window's fields that StoreEntry writes into the entry.
struct EditBuffer {
    std::array<Text, TextFields> Anzeigefeld;  ///< without the diagnostic fields, which stay empty
    int DDTon = 0;
    int DDAB = 0;
    int DDMSN = 0;
    bool chkTon = false;
    bool chkCharge = false;
    int OptFilter = 0;
    Text AnzGeb;
    bool ChargeErased = false;

    bool operator==(const EditBuffer&) const = default;
};

/// The buffer as the fields hold it now.
EditBuffer BufferOf(const MainWindowFields& fields);

/// Puts a buffer back into the fields.
void PutBuffer(const EditBuffer& buffer, MainWindowFields& fields);

}  // namespace norvik
