// What the start shows around the loading of a start file.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

namespace norvik::test {

using Transcript = std::vector<std::string>;

inline Transcript Concat(std::initializer_list<Transcript> pieces) {
    Transcript whole;
    for (const Transcript& piece : pieces) {
        whole.insert(whole.end(), piece.begin(), piece.end());
    }
    return whole;
}

/// Start-up with a settings file up to the loading of the start file, and behind it.
inline const Transcript BeforeStartFile = {"status \"Lade Konstanten...\"",
                                           "status \"Lade Ini-Datei...\"",
                                           "status \"Lade Oberfläche...\"",
                                           "status \"Lade Klingeltöne...\"",
                                           "entry",
                                           "list",
                                           "file",
                                           "status \"Lade Startdatei...\""};
inline const Transcript Ok = {"status \"OK\""};
inline const Transcript SortInOrder = {"pointer Hourglass",      "status \"Sortiere, Durchgang 1\"",
                                       "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"",
                                       "pointer Normal",         "status \"Sortieren beendet\""};
inline const Transcript SortWithOneSwap = {
    "pointer Hourglass",      "status \"Sortiere, Durchgang 1\"",
    "status \"Sortiert: 1\"", "status \"Sortiere, Durchgang 2\"",
    "status \"Sortiert: 0\"", "status \"Suche Datensatz...\"",
    "pointer Normal",         "status \"Sortieren beendet\""};
inline const Transcript FirstEntry = {"entry", "list"};

}  // namespace norvik::test
