// The address database in the window, for the tests of its load and of the search.
#pragma once

#include "tests/qt/windowfixture.h"

#include <QMenu>

#include <string>

namespace norvik::test {

inline const std::string NoFile =
    OkBox("SyncDatei nicht gefunden, bitte prüfen!", "Laden", "Critical");
inline const std::string NoAddresses = OkBox("Keine Adreßdaten geladen!", "NORVIK", "None");
inline const std::string NoKey = OkBox(
    "Telefonnummer enthält keine synchronisationsrelevanten Daten!", "SyncAdresse", "Critical");
inline const std::string Warning =
    "box \"ACHTUNG! Diese Funktion liefert nur sinnvolle Ergebnisse,\n"
    "wenn das Register keine Nullen zur Amtholung enthält\n"
    "(ggf. mit 'Bearbeiten' entfernen)\n"
    "\n"
    "'Wiederholen': Aktion wird trotzdem durchgeführt\n"
    "'Ignorieren' : Aktion wird durchgeführt, keine weitere Warnung\" title \"WARNUNG!\" icon "
    "Exclamation buttons Abbrechen+Wiederholen+Ignorieren default Abbrechen";

/// The question for a record that was found; `text` is what it shows of it.
inline std::string Hit(const std::string& text) {
    return "box \"" + text +
           "Soll die Adresse dieses Eintrags übernommen werden?\" title \"Adresse gefunden?\" icon "
           "Question buttons Abbrechen+Ja+Nein default Ja";
}

/// The window with settings that name an address database of ten fields a record.
class WindowSync : public WindowTest {
  protected:
    void WriteSettings(const std::string& more = {}) const {
        Folder.Write("norvik.ini", "CountryCode=49\r\nRegionCode=30\r\nSyncDatabase=" +
                                       PathIn("adressen.csv").toStdString() +
                                       "\r\nSyncName=1\r\nSyncGiven=2\r\nSyncCompany=3\r\n"
                                       "SyncAdd=4\r\nSyncZip=5\r\nSyncCity=6\r\nSyncBusiness=7\r\n"
                                       "SyncPrivate=8\r\nSyncFax=9\r\nSyncOther=10\r\n" +
                                       more);
    }
    void WriteAddresses(const std::string& file) const { Folder.Write("adressen.csv", file); }

    bool CanSearch() const { return Find<QMenu>("mnuSync")->menuAction()->isEnabled(); }
    std::string Status() const { return TextOf("Status"); }
};

}  // namespace norvik::test
