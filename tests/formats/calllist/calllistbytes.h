// Call lists byte by byte, and what their conversion asks and tells.
#pragma once

#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

namespace norvik::test {

/// A header of 20 bytes that is not the register file's.
inline Bytes CallListHeader() {
    return Raw("06 12 'Anrufliste 195/193'");
}

/// The call list of these bytes behind the header.
inline Bytes CallListOf(std::string_view notation) {
    return Join({CallListHeader(), Raw(notation)});
}

/// The transcript's line of the question for a call with this date and number; from the fourth one
/// on it is `offering` to answer all others alike.
inline std::string MsnQuestion(TextView dateAndNumber, const std::string& answer = "\"0\"",
                               bool offering = false) {
    return "input \"MSN zu " + Utf8(dateAndNumber) +
           "\" title \"Anruferliste-Ergänzung MSN\" preset \"0\"" +
           (offering ? " offering for all" : "") + " -> " + answer;
}

/// The transcript's line of the box at the end.
inline std::string SavedBox(const FilePath& output) {
    return "box \"Anruferliste wurde in Datei\\r\\n" + output.string() +
           " gespeichert.\" title \"Anruferliste\" icon Information buttons Ok default Ok -> Ok";
}

}  // namespace norvik::test
