// A small register in every format that can be loaded, written out by hand. Nothing in them is
// anything that a load or the check reports.
#pragma once

#include "tests/formats/registerfile/registerfilebytes.h"

namespace norvik::test {

inline constexpr std::string_view CsvHeader =
    "Name;Tel;Info1;Info2;Info3;Info4;Info5;Info6;AB;Ton;EnTon;MSN;Filter;GebEinh;EnGeb\r\n";

/// Zita, Bö (marked, with everything that an entry can have), Anna: not in the order of the names.
inline Bytes Example195() {
    return FileOf({
        Raw("0200 0201 06 04 'Zita' 06 04 '**12' 06 1F 'Zeile eins           Zeile zwei'"
            "0200 020F 0200 0200"),
        Raw("0201 0202 06 02 'B' 94 06 04 '0301' 06 03 '()x' 03 85 00 03 91 00 020C 0203"),
        Raw("0202 0203 06 04 'Anna' 06 05 '01711' 06 00 0200 020F 0200 0200"),
    });
}

inline Bytes Example193() {
    return FileOf({
        Raw("0200 0201 06 04 'Zita' 06 04 '**12' 0200 020F 0200 0200"),
        Raw("0201 0202 06 02 'B' 94 06 04 '0301' 0200 03 91 00 020C 0200"),
        Raw("0202 0203 06 04 'Anna' 06 05 '01711' 0200 020F 0200 0200"),
    });
}

inline Bytes Example175() {
    return Raw("'norvik 175 phonebook' 0D0A"
               "'N=Zita' 0D0A 'P=**12' 0D0A 'I=Zeile eins' 0D0A 'I=Zeile zwei' 0D0A"
               "'I=' 0D0A 'I=' 0D0A 'I=' 0D0A 'I=' 0D0A"
               "'N=B' F6 0D0A 'P=0301' 0D0A 'I=()x' 0D0A"
               "'I=' 0D0A 'I=' 0D0A 'I=' 0D0A 'I=' 0D0A 'I=' 0D0A");
}

inline Bytes ExampleCsv() {
    return Raw("'Name;Tel;Info1;Info2;Info3;Info4;Info5;Info6;AB;Ton;EnTon;MSN;Filter;GebEinh;"
               "EnGeb' 0D0A"
               "'Zita;**12;Zeile eins;Zeile zwei;;;;;0;0;nein;00;Kein;0;nein' 0D0A"
               "'B' F6 ';0301;()x;;;;;;3;5;ja;02;VIP ;12;ja' 0D0A"
               "'Anna;01711;;;;;;;0;0;nein;00;Kein;0;nein' 0D0A");
}

/// Two calls.
inline Bytes ExampleCalls() {
    return Raw("06 12 'Anrufliste 195/193'"
               "02 01 06 0A '0512241830' 06 04 '0301' 01"
               "02 02 06 0A '9901010000' 06 02 'i' 94 01");
}

/// A register file without a record.
inline Bytes EmptyRegisterFile() {
    return FileOf({});
}

/// A record whose number has a wrong tag.
inline Bytes BrokenRegisterFile() {
    return OpenFileOf({Raw("0200 0201 06 04 'Anna' 07 01 '2'")});
}

}  // namespace norvik::test
