#include "console/help.h"

#include "console/messages.h"
#include "console/options.h"
#include "formats/formattable.h"

#include <algorithm>

namespace norvik {

namespace {

constexpr std::size_t Width = 80;
constexpr std::size_t Explanations = 24;  ///< the column in which they stand

constexpr TextView Calls = uR"(Aufruf: norvik-konverter [Optionen] QUELLE ZIEL
        norvik-konverter [Optionen] --nach FORMAT QUELLE... ORDNER
        norvik-konverter [Optionen] QUELLE... --zusammen ZIEL
        norvik-konverter --pruefen [Optionen] QUELLE...
        norvik-konverter --verluste [--nach FORMAT] [Optionen] QUELLE
        norvik-konverter --doppelte [Optionen] QUELLE

)";

constexpr TextView OtherOptions =
    uR"(  --nur-markierte       nur markierte Einträge (193, simsurf, pdf)
  --anfuehrungszeichen  alle Werte in Anführungszeichen (csv)
  --ausschliessen TEXT  ohne die Einträge, deren Nummer TEXT enthält (ip286);
                        mehrfach möglich
  --spalten ZAHL        1, 2 oder 3 Spalten auf einer Seite (pdf); sonst 2
  --papier NAME         a4 oder a5 (pdf); sonst a4
  --ohne-doubletten     Zeilen auslassen, die der vorigen gleichen (QUELLE csv)
  --zeichensatz NAME    Zeichensatz (QUELLE csv; vcard, wo keiner genannt ist):
                        utf-8, windows-1252 oder auto, dann aus der Datei
                        ersehen (so auch ohne diese Option)
  --msn TEXT            MSN aller Anrufe (QUELLE .t9a); sonst 0
  --null-hinzu          Null zur Amtholung vor alle Nummern setzen
  --null-weg CODE       Null zur Amtholung entfernen, CODE (etwa i, "##", "**"
                        oder "*") vor interne Nummern setzen; die
                        Anführungszeichen sind für die Shell nötig
  --sortiert            nach Namen sortieren (so auch ohne diese Option)
  --unsortiert          die Reihenfolge der QUELLE behalten
  --ini DATEI           Einstellungen aus DATEI lesen (Preis der Einheit,
                        Vorwahlen, Optionen des Handyexports)
  --preis PREIS         Preis der Gebühreneinheit, etwa 0,12 (gebuehren)
  --pruefen             nur einlesen, prüfen und melden
  --verluste            vor dem Schreiben melden, was das ZIEL nicht aufnimmt;
                        ohne ZIEL nur melden, ohne --nach für alle Formate
  --doppelte            Rufnummern melden, die mehrere Einträge haben; ohne ZIEL
                        nur melden
  --zusammen ZIEL       alle QUELLEN in ein ZIEL, die anderen zur ersten dazu;
                        gleiche Einträge (Name und Nummer) nur einmal
  --ueberschreiben      ein vorhandenes ZIEL ersetzen
  --trotzdem            schreiben, was von einer beschädigten QUELLE lesbar ist
  --still               nur Fehler zeigen (Ende mit 2, 3 oder 4)
  --hilfe, --help, -h   diese Hilfe zeigen
  --version, -V         die Version zeigen

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

Ende mit 0: erledigt, 1: erledigt, aber es wurde etwas gemeldet, oder --verluste
oder --doppelte fand etwas, 2: falscher Aufruf, 3: nicht lesbar oder nicht
schreibbar, 4: die QUELLE ist beschädigt oder nicht ganz lesbar, und es gibt
kein ZIEL. Bei mehreren QUELLEN zählt die höchste Zahl.
)";

/// "a, b oder c".
Text Enumerated(const std::vector<Text>& items) {
    Text text;
    for (std::size_t i = 0; i < items.size(); ++i) {
        text.append(i == 0 ? u"" : i + 1 == items.size() ? u" oder " : u", ").append(items[i]);
    }
    return text;
}

Text Enumerated(const std::vector<std::string_view>& words) {
    std::vector<Text> items(words.size());
    std::transform(words.begin(), words.end(), items.begin(), FromAscii);
    return Enumerated(items);
}

/// The endings of the formats that are read, each once, with what it stands for where no word names
/// it.
std::vector<Text> SourceEndings() {
    std::vector<Text> endings;
    for (const FormatRow& row : FormatTable()) {
        if (SourceOfEnding(FilePath(row.Ending)) == row.Format) {
            const Text ending = FromAscii(row.Ending);
            endings.push_back(row.Word.empty() ? ending + u" (" + Text(row.Called) + u")" : ending);
        }
    }
    return endings;
}

/// The words of `text` in lines that fit behind `start`; further lines begin below its end.
Text Folded(TextView start, TextView text) {
    Text folded(start);
    std::size_t column = start.size();
    bool first = true;
    for (TextView rest = text; !rest.empty();) {
        const std::size_t end = std::min(rest.find(u' '), rest.size());
        if (!first && column + 1 + end > Width) {
            folded.append(u"\n").append(start.size(), u' ');
            column = start.size();
        } else if (!first) {
            folded.append(u" ");
            ++column;
        }
        folded.append(rest.substr(0, end));
        column += end;
        rest.remove_prefix(std::min(end + 1, rest.size()));
        first = false;
    }
    return folded.append(u"\n");
}

/// An option's name, in front of its explanation.
Text OptionColumn(TextView option) {
    Text column = u"  " + Text(option);
    return column.append(Explanations - column.size(), u' ');
}

Text Help() {
    Text help(Calls);
    help.append(Folded(
        {}, u"Wandelt ein Telefonregister von einem Format in ein anderes um. Das Format folgt aus "
            u"der Endung: QUELLE " +
                Enumerated(SourceEndings()) + u", ZIEL " + Enumerated(TargetEndings()) +
                u". \"-\" ist die Standardein- oder -ausgabe."));
    help.append(u"\n");
    help.append(
        Folded(OptionColumn(u"--von FORMAT"), u"Format der QUELLE: " + Enumerated(SourceNames())));
    help.append(Folded(OptionColumn(u"--nach FORMAT"),
                       u"Format des ZIELs: " + Enumerated(TargetWords()) +
                           u"; ein ZIEL .t9t wird ohne --nach eine 195-Datei, aus "
                           u"einer 193-Datei eine 193-Datei"));
    return help.append(OtherOptions);
}

}  // namespace

Text HelpText() {
    Text text;
    for (const char16_t character : Help()) {
        text.append(character == u'\n' ? LineEnd : TextView(&character, 1));
    }
    return text;
}

Text VersionText() {
    return Text(ConverterName) + u" " + FromAscii(NORVIK_VERSION);
}

}  // namespace norvik
