#include "console/help.h"

#include "console/messages.h"

namespace norvik {

namespace {

constexpr TextView Help = uR"(Aufruf: norvik-konverter [Optionen] QUELLE ZIEL
        norvik-konverter --pruefen [Optionen] QUELLE
        norvik-konverter --verluste [--nach FORMAT] [Optionen] QUELLE

Wandelt ein Telefonregister von einem Format in ein anderes um. Das Format folgt
aus der Endung: QUELLE .t9t, .pbo, .csv oder .t9a (Anrufliste), ZIEL .t9t, .pbo,
.csv, .pbb oder .geb. "-" ist die Standardein- oder -ausgabe.

  --von FORMAT          Format der QUELLE: 195, 193, 175 oder csv
  --nach FORMAT         Format des ZIELs: 195, 193, 175, csv, ip286, simsurf
                        oder gebuehren; ein ZIEL .t9t wird ohne --nach 193 eine
                        195-Datei
  --nur-markierte       nur markierte Einträge (193, simsurf)
  --anfuehrungszeichen  alle Werte in Anführungszeichen (csv)
  --ausschliessen TEXT  ohne die Einträge, deren Nummer TEXT enthält (ip286);
                        mehrfach möglich
  --ohne-doubletten     doppelte Zeilen der QUELLE auslassen (QUELLE csv)
  --msn TEXT            MSN aller Anrufe (QUELLE .t9a); sonst 0
  --null-hinzu          Null zur Amtholung vor alle Nummern setzen
  --null-weg CODE       Null zur Amtholung entfernen, CODE (etwa i, ## oder **)
                        vor interne Nummern setzen
  --sortiert            nach Namen sortieren (so auch ohne diese Option)
  --unsortiert          die Reihenfolge der QUELLE behalten
  --ini DATEI           Einstellungen aus DATEI lesen (Preis der Einheit,
                        Vorwahlen, Optionen des Handyexports)
  --pruefen             nur einlesen, prüfen und melden
  --verluste            vor dem Schreiben melden, was das ZIEL nicht aufnimmt;
                        ohne ZIEL nur melden, ohne --nach für alle Formate
  --ueberschreiben      ein vorhandenes ZIEL ersetzen
  --hilfe               diese Hilfe zeigen
  --version             die Version zeigen

Handyexport (simsurf), benannt wie die Einstellungen:
  --AddRegionCode       eigene Vorwahl vor Ortsnummern setzen
  --GlobalizeNumber     Nummern in internationaler Form
  --Change00to+         "+" statt der führenden "00"
  --UseReductionFlags   nur markierte Einträge (wie --nur-markierte)
  --DeleteCommaInNames  das erste Komma im Namen streichen
  --WriteMemNumber      jede Zeile mit laufender Nummer
  --UseQuotesForData    alle Werte in Anführungszeichen

Eine Option, die für QUELLE oder ZIEL keine Bedeutung hat, ist ein Fehler. Statt
"--option WERT" geht auch "--option=WERT"; nach "--" folgen nur noch Dateien.

Ende mit 0: erledigt, 1: erledigt, aber beim Einlesen, Prüfen oder Ändern der
Nummern wurde etwas gemeldet, 2: falscher Aufruf, 3: nicht lesbar oder nicht
schreibbar, 4: Abbruch wegen einer beschädigten Datei.
)";

}  // namespace

Text HelpText() {
    Text text;
    for (const char16_t character : Help) {
        text.append(character == u'\n' ? LineEnd : TextView(&character, 1));
    }
    return text;
}

Text VersionText() {
    return Text(ConverterName) + u" " + FromAscii(NORVIK_VERSION);
}

}  // namespace norvik
