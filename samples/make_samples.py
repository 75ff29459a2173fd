#!/usr/bin/env python3
"""Writes the sample registers telefonbuch.t9t (195), telefonbuch193.t9t (193), telefonbuch.csv,
the sample call list anrufliste.t9a, and the address file adressen.csv with the settings norvik.ini
that read it.

    python3 make_samples.py [folder]        default: the folder of this script

The same entries give the same bytes, always. The encoders below follow the formats' descriptions in
docs/formats/ and take nothing from the program, so that the two check each other: where the program
loads these files wrongly, one of them is wrong. The character table of the register files, too,
comes from elsewhere: the telephones' bytes are those of code page 850.

All persons, firms and numbers are invented; the numbers lie in the blocks kept free for fiction.
"""

import argparse
from dataclasses import dataclass
from pathlib import Path

# The register file format

HEADER = bytes.fromhex("060D545374436F6C6C656374696F6E026401")
END_OF_LIST = b"\x00"
TAG_BYTE = 0x02
TAG_WORD = 0x03
TAG_STRING = 0x06

DEVICE_CODE_PAGE = "cp850"
DEVICE_CHARACTERS = "äöüßÄÖÜéè^°§âêô"  # beyond ASCII the telephones have only these

INFO_COLUMNS = 21
INFO_LINES = 6
TEXT_LENGTH = 21  # of a name and of a number
NAME_LENGTH_193 = 20
EXPORT_MARK = "()"

MSN_OF_TELEPHONE = 15
CHARGE_BIT = 0x10
FILTER_SHIFT = 6
INDIVIDUAL_TONE_BIT = 0x80


def encode_integer(value: int) -> bytes:
    """An integer item as the program writes it: from 128 on two value bytes."""
    if not 0 <= value <= 0xFFFF:
        raise ValueError(f"no integer item holds {value}")
    if value > 127:
        return bytes([TAG_WORD, value & 0xFF, value >> 8])
    return bytes([TAG_BYTE, value])


def encode_string(data: bytes) -> bytes:
    """A string item; its length must fit into one byte."""
    if len(data) > 255:
        raise ValueError(f"text too long: {data!r}")
    return bytes([TAG_STRING, len(data)]) + data


def device_bytes(text: str) -> bytes:
    """A name or info text in the telephones' characters, trailing blanks removed."""
    for character in text:
        if character not in DEVICE_CHARACTERS and not " " <= character <= "~":
            raise ValueError(f"the telephones have no {character!r}: {text!r}")
    return text.rstrip(" ").encode(DEVICE_CODE_PAGE)


# The entries

FILTER_NONE, FILTER_CALLS, FILTER_VIP, FILTER_CD = range(4)


def own_melody(number: int) -> int:
    """The tone number of "Eigen 1" to "Eigen 60"."""
    return 19 + number


@dataclass(frozen=True)
class Entry:
    """One entry, in the user's terms: `msn` 1..6, or 15 for "as set in the telephone"."""

    name: str
    tel: str
    lines: tuple[str, ...] = ()
    tone: int = 0
    individual: bool = False  # EnTon
    msn: int = MSN_OF_TELEPHONE
    charge: bool = False  # EnGeb
    filter: int = FILTER_NONE
    units: int = 0  # GebEinh
    announcement: int = 0  # AB
    marked: bool = False

    def __post_init__(self) -> None:
        if len(self.name) > TEXT_LENGTH or len(self.tel) > TEXT_LENGTH:
            raise ValueError(f"name or number too long: {self.name!r}")

    @property
    def info(self) -> str:
        """Lines padded to 21 columns and joined; a mark stands in front and moves them by two."""
        room = INFO_COLUMNS - len(EXPORT_MARK) if self.marked else INFO_COLUMNS
        if len(self.lines) > INFO_LINES or any(len(line) > room for line in self.lines):
            raise ValueError(f"info of {self.name!r} does not fit")
        text = "".join(line.ljust(INFO_COLUMNS) for line in self.lines).rstrip(" ")
        return EXPORT_MARK + text if self.marked else text

    @property
    def tone_word(self) -> int:
        return self.tone | (INDIVIDUAL_TONE_BIT if self.individual else 0)

    @property
    def msn_filter(self) -> int:
        msn = self.msn if self.msn == MSN_OF_TELEPHONE else self.msn - 1
        return msn | (CHARGE_BIT if self.charge else 0) | self.filter << FILTER_SHIFT


# The telephone of the Brandt family, who run a joinery: MSN 1 is the family's, MSN 2 the firm's,
# MSN 3 the fax, MSN 4 the children's, MSN 5 the holiday flat's, MSN 6 the alarm's. Not in order of
# names, so that loading shows the sort. The marked entries are the ones that go to the 193 file.
# Three values are out of the telephones' range on purpose, for the load report: the units of
# "Bestellfax Beschläge", the announcement of "Café Süßholz", the tone of "Musikschule Allegro".
ENTRIES = [
    Entry("Zentrale Werkstatt", "11", ("Nebenstelle",), tone=1, individual=True, marked=True),
    Entry("Müller, Hans", "03023125101",
          ("privat", "Lindenallee 12", "12345 Musterstadt"),
          tone=10, individual=True, msn=1, filter=FILTER_VIP, marked=True),
    Entry("Müller, Hans", "01713920011", ("mobil",),
          tone=10, individual=True, msn=1, filter=FILTER_VIP, units=17, charge=True, marked=True),
    Entry("Müller, Hans", "06990009101", ("Büro, Mo-Do bis 16 h",), msn=2),
    Entry("Brandt, Oma Grete", "04066969102",
          ("Geburtstag 14.03.", "mittags nicht stören"),
          tone=own_melody(1), individual=True, msn=1, filter=FILTER_VIP, units=127, charge=True,
          announcement=1),
    Entry("Öztürk, Aylin", "02214710103",
          ("Geigenunterricht", "dienstags 16:30", "donnerstags 17:00"),
          tone=own_melody(2), individual=True, msn=4, charge=True, units=128, marked=True),
    Entry("Ärztehaus am Markt", "08999998104",
          ("Sprechzeiten", "Mo Di Do  8-12 15-18", "Mi Fr     8-12", "Notfall 8-22 Uhr",
           "Dr. Böhm  Tür 3", "Dr. Weiß  Tür 5"),
          announcement=2),
    Entry("Schornsteinfeger Kühn", "03023125105",
          ("kommt im Oktober", "Abgas < 60°C"),
          msn=2, filter=FILTER_CALLS, marked=True),
    Entry("Holzhandel Brenner", "06990009106",
          ("Kd.-Nr. 4711-08", "Frau Sänger, App. 21", "Rabatt 12 %"),
          tone=3, individual=True, msn=2, charge=True, units=5000),
    Entry("Lackfabrik Münzer", "04066969107", ("Bestellung bis 14 h",),
          msn=2, charge=True, units=200, filter=FILTER_CD),
    Entry("Bestellfax Beschläge", "04066969108", ("nur Fax",),
          msn=3, charge=True, units=40000),
    Entry("anna (Schulfreundin)", "01713920012", ("Zimmer 4. Stock",),
          tone=own_melody(12), individual=True, msn=4),
    Entry("Wohnzimmer", "**61", (), tone=8, individual=True, marked=True),
    Entry("Küche", "**62", (), tone=9, individual=True, marked=True),
    Entry("Büro unten", "i12", ("intern",)),
    Entry("Lager", "##21", ("Anlage alt",)),
    Entry("Werkbank Halle 2", "*31"),
    Entry("Hausmeister Block 7 B", "03023125109",
          ("Schlüssel beim", "Nachbarn, 2. Stock"), marked=True),
    Entry("Lefèvre, Hélène", "02214710110",
          ("Austauschschülerin", "Ankunft Gare 12:40"),
          tone=own_melody(20), individual=True, msn=4, announcement=3, marked=True),
    Entry("Crêperie Bellevue", "02214710111",
          ("Tisch am Fenster", "Plat: pâté 8,50", "montags zu"), filter=FILTER_CALLS),
    Entry("Côté, André", "08999998112",
          ("Möbelhändler", "Hôtel de la Gare", "Château-Linie", "liefert bis Lyon"),
          tone=7, individual=True, msn=2, filter=FILTER_VIP, units=255, charge=True),
    Entry("Kanzlei Groß & Söhne", "06990009113",
          ("Mietrecht", "§ 535, § 556 BGB", "Az. 12 C 345/67"),
          msn=2, filter=FILTER_VIP, announcement=4, marked=True),
    Entry("Überführungen Nowak", "06990009114", ("Anhänger, 3,5 t",), msn=2),
    Entry("Heizung Störung", "03023125115",
          ("Kessel: Vorlauf 55°C", "Taste ^ = Menü hoch"), msn=1, filter=FILTER_VIP,
          tone=own_melody(60), individual=True),
    Entry("Café Süßholz", "08999998116", ("Torte vorbestellen",), announcement=9),
    Entry("Musikschule Allegro", "02214710117",
          ("Anmeldung Klavier", "Frau Jürgens"), tone=85, individual=True, msn=4),
    Entry("Brandt, Jonas", "01713920013", ("Handy",),
          tone=own_melody(7), individual=True, msn=4, charge=True, units=3, marked=True),
    Entry("Brandt, Jonas", "04066969118", ("WG Hamburg", "Klingel: 3. v. oben"),
          tone=own_melody(7), individual=True, msn=4, announcement=5),
    Entry("Brandt, Mia", "01713920014", ("Handy",),
          tone=own_melody(8), individual=True, msn=4, charge=True, units=42, marked=True),
    Entry("Zahnarzt Dr. Zöllner", "03023125119",
          ("Kontrolle im Mai",), tone=4, msn=1, marked=True),
    Entry("de Vries, Jan", "00496990009120",
          ("Ferienwohnung", "Anreise Sa ab 15 h"),
          msn=5, filter=FILTER_CD, units=256, charge=True),
    Entry("Wäscherei Schön", "04066969121", ("Bettwäsche fürs Haus",), msn=5),
    Entry("Leitstelle Alarm", "03023125122",
          ("Kennwort erfragen!", "Anlage Nr. 20-117"),
          tone=2, individual=True, msn=6, filter=FILTER_VIP, announcement=7),
    Entry("Wachdienst Falke", "03023125123", (),
          tone=2, individual=True, msn=6, announcement=6, marked=True),
    Entry("Hoffmann-Lang, Ulrike", "02214710124",
          ("Steuerberaterin", "Mandant 20814", "ulrike@example.com"),
          msn=2, filter=FILTER_VIP, units=100, charge=True, marked=True),
    Entry("Physiotherapie Brand", "08999998125", ("Termine nur tel.",), msn=1, marked=True),
    Entry("Gemeindeverwaltung Au", "08999998126",
          ("Bürgerbüro Zi. 004", "Bauamt Zi. 112", "Mo-Fr 8-12", "Do 14-18", "Fax: siehe Homepage")),
    Entry("Schmidt, Karl-Heinz", "06990009127", ("Skat freitags",),
          tone=11, individual=True, msn=1),
    Entry("Schmidt, Karl-Heinz", "01713920015", ("nur im Notfall",), msn=1),
    Entry("Schmidt, Petra", "06990009128", ("Chor", "Altstimme"),
          tone=12, individual=True, msn=1, filter=FILTER_CALLS),
    Entry("Zoe (Babysitterin)", "01713920016", ("ab 17 Uhr", "9 EUR die Stunde"),
          tone=19, individual=True, msn=1, marked=True),
    Entry("Änderungsschneiderei", "03023125129", ("Abholschein 77",), msn=1),
    Entry("Köhler, Fritz", "04066969130", ("Geselle", "Personal-Nr. 6"), tone=5, msn=2),
    Entry("Köhler, Fritz", "01713920017", ("Geselle, mobil",),
          tone=5, individual=True, msn=2, charge=True, units=32768),
    Entry("Yilmaz, Deniz", "01713920018", ("Lehrling", "Berufsschule Mi Do"),
          tone=5, msn=2, marked=True),
    Entry("van Laak, Mieke", "00496990009131", ("Antikmöbel", "spricht deutsch"), msn=2,
          filter=FILTER_CALLS),
    Entry("Konferenz Innung", "00493023125199p123456", ("PIN steckt im Ruf",), msn=2),
    Entry("Anrufbeantworter", "**600", (), announcement=1),
    Entry("Türsprechstelle", "**71", ("öffnen mit *5",), tone=0, individual=True),
    Entry("Steuerbüro Äpfelbach", "06990009132", ("Ablage grün", "Frist 10.06."), msn=2, units=200),
    Entry("Kita Spatzennest", "03023125133",
          ("Gruppe Igel", "Frau Über", "7:00 bis 16:30", "krank melden bis 8:30",
           "Essen abbestellen", "bis 9:00"),
          tone=own_melody(33), individual=True, msn=1, filter=FILTER_VIP, announcement=1),
    Entry("Grundschule Sekr.", "03023125134", ("Klasse 3b", "", "Ferien ab 20.07."), msn=1),
    Entry("Tierarzt Löwe", "02214710135", ("Kater Max geimpft",), tone=6, individual=True, msn=1),
    Entry("Apotheke am Bach", "02214710136", ("Bestellt bis 11 h",), msn=1, marked=True),
    Entry("Großhandel Nägele", "08999998137",
          ("Schrauben, Dübel", "Kd.-Nr. 88"), msn=2, filter=FILTER_CD, charge=True),
    Entry("Spedition Rößler", "08999998138", ("Avis 1 Tag vorher",), msn=2, marked=True),
    Entry("Faxabruf Wetter", "06990009139", (), tone=own_melody(45), msn=3, units=3),
    Entry("Pizzeria da Nino", "04066969140", ("Nr. 12 und 34", "ohne Kapern!"), msn=1, charge=True,
          units=42),
    Entry("Ökokiste Grünfeld", "04066969141", ("Lieferung Do", "Kiste vor die Tür"), msn=1),
    Entry("abc-Taxi Brückner", "03023125142", ("auch Großraumtaxi",), msn=1),
]


def record_195(entry: Entry, number: int) -> bytes:
    """The record with the running number `number`, counted from 1."""
    return b"".join([
        encode_integer(number - 1),
        encode_integer(number),
        encode_string(device_bytes(entry.name)),
        encode_string(entry.tel.rstrip(" ").encode("ascii")),
        encode_string(device_bytes(entry.info)),
        encode_integer(entry.tone_word),
        encode_integer(entry.msn_filter),
        encode_integer(entry.units),
        encode_integer(entry.announcement),
    ])


def record_193(entry: Entry, number: int) -> bytes:
    """As record_195, without the info text, with a shorter name, no tone, no announcement."""
    return b"".join([
        encode_integer(number - 1),
        encode_integer(number),
        encode_string(device_bytes(entry.name)[:NAME_LENGTH_193]),
        encode_string(entry.tel.rstrip(" ").encode("ascii")),
        encode_integer(0),
        encode_integer(entry.msn_filter),
        encode_integer(entry.units),
        encode_integer(0),
    ])


def register_file(entries, record) -> bytes:
    records = (record(entry, number) for number, entry in enumerate(entries, start=1))
    return HEADER + b"".join(records) + END_OF_LIST


# The CSV file: the list of a sports club as somebody keeps it in a spreadsheet. The column titles are
# theirs, long remarks stand in one cell, numbers are written as people write them, flags are filled
# in by several hands. One line stands there twice, one member has two lines.

CSV_ENCODING = "cp1252"
CSV_LINE_END = "\r\n"
CSV_COLUMNS = 15


def csv_line(name: str, tel: str, *rest: str) -> str:
    """A line with all columns; those that are not given are empty."""
    cells = [name, tel, *rest]
    if len(cells) > CSV_COLUMNS or any(";" in cell or "\r" in cell for cell in cells):
        raise ValueError(f"no line holds {cells!r}")
    return ";".join(cells + [""] * (CSV_COLUMNS - len(cells)))


CSV_HEADER = csv_line("Mitglied", "Telefon", "Bemerkung", "", "", "", "", "",
                      "Ansage", "Klang", "eigener Klang", "MSN", "Filter", "Einheiten", "Zähler")

CSV_BAKERY = csv_line("Bäckerei Kornblume", "(069) 90009-207", "Brötchen vorbestellen",
                      "bis 18 Uhr", "", "", "", "", "0", "0", "nein", "0", "Kein", "0", "nein")

CSV_LINES = [
    csv_line("Vereinsheim Sportfreunde", "0049 (30) 23125-104",
             "Schlüssel beim Platzwart, Rückgabe bis Montag, Getränke selbst mitbringen",
             "", "", "", "", "", "", "5", "ja", "1", "VIP", "12 Einheiten", "ja"),
    csv_line("Abel, Günther", "030/23125 206", "privat", "", "ab 18 Uhr", "", "", "",
             "", "", "", "4"),
    CSV_BAKERY,
    CSV_BAKERY,
    csv_line("Dr. Weiß, Anneliese", "0221 4710 208", "Praxis", "", "", "", "", "",
             "2", "", "", "6", "Anr."),
    csv_line("Dr. Weiß, Anneliese", "0171 392 00 21", "mobil", "", "", "", "", "",
             "", "", "", "6", "vip"),
    "Pförtner;i 12",  # a line that ends with its last filled cell
    csv_line("Oma Käthe", "+49 40 66969-209", "Geburtstag 3. Mai", "Taschengeld 20 €"),
    csv_line('"Meier, Otto"', "089/99998-210",
             "Kegelbahn: www.kegelbahn-zur-alten-post.example", "Raum 2", "", "", "", "",
             "", "", "no", "2", "Kein", "", "no"),
    csv_line("Stadtwerke Störung", "069 90009 211",
             "Vertrag 20814 vom 1. April, Zähler 4711-0815 im Keller links neben der Waschküche",
             "Ablesung jedes Jahr im November, Kündigung sechs Wochen vor Jahresende",
             "", "", "", "", "0", "0", "nein", "2", "Kein", "0", "nein"),
    csv_line("Zur Post, Gasthof", "04066969 212", "", "", "", "", "", "",
             "", "", "", "3", "CD", "250", "1"),
    csv_line("Öko-Hof Lindner  ", "02214710/213", "Milch", "Eier", "", "", "", "",
             "1", "19", "j", "2", "", "", "Y"),
    csv_line("Taxi", "*31", "", "", "", "", "", "", "0", "20", "nein", "00", "Kein", "0", "nein"),
    csv_line("Fax Rathaus", "089 99998 214 p 12", "Formular 7", "", "", "", "", "",
             "0", "0", "nein", "05", "Kein", "0", "nein"),
    csv_line("Jäger, Ute und Jürgen", "0171-392 00 22", "Jugendwart", "", "", "", "", "",
             "", "", "", "", "Kein", "", "nein"),
]


def csv_file() -> bytes:
    lines = [CSV_HEADER, *CSV_LINES]
    return "".join(line + CSV_LINE_END for line in lines).encode(CSV_ENCODING)


# The call list: twelve calls at the telephone of the Brandt family, newest first. Its header is made
# up; the program only wants 20 bytes. The numbers are given as a telephone counts them, from 1; two
# stand far behind, since calls between them were deleted.

CALL_LIST_HEADER = b"\x06\x12Anrufliste 195/193"
CALL_LIST_END = b"\x00"


@dataclass(frozen=True)
class Call:
    """One call: its number in the list, YYMMDDhhmm, who called, and the bytes that end it."""

    number: int
    stamp: str
    tel: str
    trailing: bytes = b"\x01"

    def __post_init__(self) -> None:
        if len(self.stamp) != 10 or not self.stamp.isdigit():
            raise ValueError(f"no date and time: {self.stamp!r}")


CALLS = [
    Call(1, "2512241830", "03023125117"),
    Call(2, "2512241745", "04066969118"),
    Call(3, "2512231201", "**61"),
    Call(4, "2511302359", ""),  # the caller's number was withheld
    Call(5, "2503091405", "00496990009120", b""),
    Call(6, "2502280700", "i12", b"\x00\x00\x00\x00"),
    Call(7, "2501010000", "08999998112"),
    Call(8, "0512312359", "01713920013"),
    Call(9, "0512241830", "02214710110", b"\x00"),
    Call(10, "0508020915", "02214710110"),
    Call(101, "0502281200", "06990009113"),
    Call(300, "0501010000", "03023125133"),
]


def sized(data: bytes) -> bytes:
    """An element behind a length byte that counts itself."""
    if len(data) > 254:
        raise ValueError(f"element too long: {data!r}")
    return bytes([1 + len(data)]) + data


def call_record(call: Call) -> bytes:
    """The number has as many bytes as it needs, the least significant first."""
    return b"".join([
        sized(call.number.to_bytes((call.number.bit_length() + 7) // 8, "little")),
        encode_string(call.stamp.encode("ascii")),
        encode_string(call.tel.encode("ascii")),
        sized(call.trailing),
    ])


def call_list() -> bytes:
    return CALL_LIST_HEADER + b"".join(call_record(call) for call in CALLS) + CALL_LIST_END


# The address file: the text export of somebody's address book, every field in double quotes. The
# first records are the people of the register, their numbers written as people write them; the
# others are filled up from the tables below. Three fields belong to no item of the settings.

ADDRESS_RECORDS = 150
ADDRESS_NOTE_EVERY = 7
ADDRESS_NO_PLACE_EVERY = 19
ADDRESS_NO_NUMBER_EVERY = 31


@dataclass(frozen=True)
class Address:
    """One record; the fields in the order of the file."""

    surname: str
    given: str = ""
    company: str = ""
    position: str = ""
    street: str = ""
    postcode: str = ""
    town: str = ""
    country: str = ""
    business: str = ""
    private: str = ""
    fax: str = ""
    other: str = ""
    mail: str = ""
    note: str = ""  # may hold one line break

    def __post_init__(self) -> None:
        *single, note = self.fields
        if any('"' in field for field in self.fields) or any("\n" in field for field in single):
            raise ValueError(f"no record holds {self.fields!r}")
        if note.count("\n") > 1 or note.endswith("\n"):
            raise ValueError(f"a record has one continuation line: {note!r}")

    @property
    def fields(self) -> tuple[str, ...]:
        return tuple(getattr(self, name) for name in self.__dataclass_fields__)


# The fields of the ten items, in the settings' order.
ADDRESS_ITEMS = {
    "SyncName": "surname",
    "SyncGiven": "given",
    "SyncCompany": "company",
    "SyncAdd": "street",
    "SyncZip": "postcode",
    "SyncCity": "town",
    "SyncBusiness": "business",
    "SyncPrivate": "private",
    "SyncFax": "fax",
    "SyncOther": "other",
}

KNOWN_ADDRESSES = [
    Address("Müller", "Hans", "Ingenieurbüro Querbalken", "Statiker", "Lindenallee 12", "12345",
            "Musterstadt", "D", business="(069) 90009-101", private="030 / 23125-101",
            other="+49 171 3920011", mail="hans@example.com", note="Geburtstag 2. Februar"),
    Address("Brandt", "Grete", street="Am Großen Torfmoorweg 118b", postcode="23456",
            town="Nebelhafen", country="D", private="+49 40 66969-102",
            note="Schlüssel hängt beim Nachbarn,\ndritte Tür links"),
    Address("Brandt", "Jonas", street="Kaistraße 3", postcode="23456", town="Nebelhafen",
            country="D", private="040/66969118", other="0171 392 00 13", mail="jonas@example.org"),
    Address("Öztürk", "Aylin", "Musikzimmer Öztürk", "Geigenlehrerin", "Bogengasse 4", "34567",
            "Apfelbach", "D", business="0221 4710-103", private="0221 4710-103"),
    Address("Sänger", "Ilse", "Holzhandel Brenner", "Verkauf", "Sägewerkstraße 20", "45678",
            "Rübenfeld", "D", business="+49 (69) 90009-106", fax="069 90009-906",
            mail="verkauf@example.net", note="Apparat 21"),
    Address("Lefèvre", "Hélène", private="0221 / 4710 110", note="Adresse in Frankreich erfragen"),
    Address("Côté", "André", "Château-Möbel", "Inhaber", "Bahnhofsplatz 1", "56789",
            "Bad Lindental", "D", business="089-99998-112"),
    Address("Groß", "Leonore", "Kanzlei Groß & Söhne", "Rechtsanwältin", "Richterstieg 9", "45678",
            "Rübenfeld", "D", business="0049 69 90009 113", fax="069 90009-913",
            mail="kanzlei@example.com", note="Termine nur mit Voranmeldung,\nZimmer im 2. Stock"),
    Address("Zöllner", "Ruprecht", "Zahnarztpraxis", "Dr.", "Marktplatz 7", "12345", "Musterstadt",
            "D", business="030 23 125 119"),
    Address("de Vries", "Jan", "Vries & Dochter", "", "Deichlaan 31", "1234 AB", "Zandkerk", "NL",
            business="+49 69 90009-120", mail="jan@example.nl"),
    Address("Hoffmann-Lang", "Ulrike", "Steuerbüro", "Steuerberaterin", "Zahlenweg 100", "34567",
            "Apfelbach", "D", business="0221/4710124", mail="ulrike@example.com"),
    Address("Schmidt", "Karl-Heinz", "", "", "Skatgasse 18", "45678", "Rübenfeld", "D",
            private="069 90009-127", other="+49171 3920015"),
    Address("Schmidt", "Petra", "", "", "Notenufer 5", "45678", "Rübenfeld", "D",
            private="(069) 90009 128"),
    Address("Köhler", "Fritz", "Tischlerei Brandt", "Geselle", "Hobelbank 6", "23456", "Nebelhafen",
            "D", private="040 66969 130", other="0171/3920017"),
    Address("Yilmaz", "Deniz", "Tischlerei Brandt", "Lehrling", "Schulring 40", "23456",
            "Nebelhafen", "D", other="+49-171-3920018"),
    Address("van Laak", "Mieke", "Antiek aan de Gracht", "", "Herenkade 77", "4321 ZY",
            "Zandkerk", "NL", business="0049 69 90009-131"),
    Address("Löwe", "Kunigunde", "Tierarztpraxis", "Dr.", "Katzensteig 8", "34567", "Apfelbach",
            "D", business="0221 4710 - 135", note="Kater Max, Impfpass mitbringen"),
    Address("", "", "Pizzeria da Nino", "", "Ofenstraße 14", "23456", "Nebelhafen", "D",
            business="+49 40 66969140"),
]

ADDRESS_SURNAMES = [
    "Ackerlaub", "Bärwinkel", "Dachslager", "Eschenhag", "Fröschle", "Grünspecht", "Hügelsang",
    "Immenkorb", "Jägerhut", "Kräuterer", "Löffelholm", "Mühlsteg", "Nüsslein-Korb", "Öhmdorf",
    "Pfühlmann", "Quittenau", "Rübenach", "Süßkirsch", "Türmerle", "Überacker", "Vogelweid",
    "Wüstenrieth", "Zwölfbaum",
]
ADDRESS_GIVEN_NAMES = [
    "Adelgunde", "Björn", "Cäcilie", "Dörte", "Eberhard", "Friederike", "Günter", "Hedwig",
    "Irmgard", "Jörg", "Käthe", "Lütje", "Margarethe", "Notburga", "Ottokar", "Philippa",
    "Quirin", "Rüdiger", "Sönke",
]
ADDRESS_STREETS = [
    "Amselgrund", "Birkenweg", "Dorfanger", "Erlenstraße", "Fliederbogen", "Gänsemarkt",
    "Heideweg", "Im Winkel", "Jahnstraße", "Kirchsteig", "Mühlgasse", "Straße am Alten Güterbahnhof",
    "Wiesengrund",
]
# Town, postcode, and how its numbers are written; {} is the last three digits.
ADDRESS_TOWNS = [
    ("Musterstadt", "12345", ("030 23125-{}", "030/23125{}", "+49 30 23125 {}")),
    ("Nebelhafen", "23456", ("040 66969-{}", "(040) 66969{}", "0049 40 66969-{}")),
    ("Apfelbach", "34567", ("0221 4710-{}", "0221/4710{}", "+49 221 4710{}")),
    ("Rübenfeld", "45678", ("069 90009-{}", "(069) 90009 {}", "+49-69-90009{}")),
    ("Bad Lindental", "56789", ("089 99998-{}", "089/99998 {}", "+49 89 99998-{}")),
]
ADDRESS_MOBILE_NUMBERS = ("0171 39200{}", "0171/39 200 {}", "+49 171 39200{}")
ADDRESS_COMPANIES = [
    "", "Gärtnerei Immergrün", "", "", "Buchbinderei Goldschnitt", "", "Fährbetrieb Überfahrt", "",
]


def further_address(number: int) -> Address:
    """The record with the running number `number` among those that the tables give, from 1."""
    town, postcode, forms = ADDRESS_TOWNS[number % len(ADDRESS_TOWNS)]
    company = ADDRESS_COMPANIES[number % len(ADDRESS_COMPANIES)]
    given = ADDRESS_GIVEN_NAMES[number * 5 % len(ADDRESS_GIVEN_NAMES)]
    note = "Weihnachtskarte" if number % ADDRESS_NOTE_EVERY == 0 else ""
    if number % (ADDRESS_NOTE_EVERY * 5) == 0:
        note += ",\nlieber anrufen"
    place = {}
    if number % ADDRESS_NO_PLACE_EVERY:
        street = ADDRESS_STREETS[number * 3 % len(ADDRESS_STREETS)]
        place = {"street": f"{street} {number % 60 + 1}", "postcode": postcode, "town": town,
                 "country": "D"}
    numbers = {}
    if number % ADDRESS_NO_NUMBER_EVERY:
        numbers["private"] = forms[number % len(forms)].format(300 + number)
        if company:
            numbers["business"] = forms[(number + 1) % len(forms)].format(500 + number)
            numbers["fax"] = forms[0].format(700 + number)
        if number % 3 == 0:
            mobile = ADDRESS_MOBILE_NUMBERS[number % 2 + number % 5 // 4]
            numbers["other"] = mobile.format(f"{30 + number // 3}")
    mail = f"post{number}@example.org" if number % 4 == 0 else ""
    return Address(ADDRESS_SURNAMES[number * 7 % len(ADDRESS_SURNAMES)], given, company,
                   mail=mail, note=note, **place, **numbers)


def address_records() -> list[Address]:
    further = range(1, ADDRESS_RECORDS - len(KNOWN_ADDRESSES) + 1)
    records = KNOWN_ADDRESSES + [further_address(number) for number in further]
    return sorted(records, key=lambda record: (record.surname or record.company, record.given))


def address_file(records: list[Address]) -> bytes:
    lines = (",".join(f'"{field}"' for field in record.fields) for record in records)
    text = "".join(line + "\n" for line in lines)
    return text.replace("\n", CSV_LINE_END).encode(CSV_ENCODING)


def settings_file() -> bytes:
    """The settings that go with the register and the address file, as the program writes them."""
    places = {name: str(place) for place, name in enumerate(Address.__dataclass_fields__, start=1)}
    sections = {
        "common": {"Unit": "0,12"},
        "location": {"CountryCode": "49", "RegionCode": "30"},
        "export flags": {},
        "sync settings": {"SyncDatabase": "adressen.csv"}
        | {key: places[field] for key, field in ADDRESS_ITEMS.items()}
        | {"LoadSyncOnStart": "yes"},
        "end": {},
    }
    lines = [";NORVIK.EXE Konfigurationsdatei", ";NORVIK.EXE configuration file",
             ";changing this file is allowed, but", ";it will be regenerated",
             ";if settings are changed by the program"]
    for section, values in sections.items():
        lines += ["", f"[{section}]", *(f"{key}={value}" for key, value in values.items())]
    return "".join(line + CSV_LINE_END for line in lines).encode(CSV_ENCODING)


def write_address_samples(folder: Path) -> None:
    records = address_records()
    data = address_file(records)
    (folder / "adressen.csv").write_bytes(data)
    print(f"adressen.csv: {len(records)} records, {len(data)} bytes")
    data = settings_file()
    (folder / "norvik.ini").write_bytes(data)
    print(f"norvik.ini: {len(data)} bytes")


def main() -> None:
    parser = argparse.ArgumentParser(description="Writes the sample files.")
    parser.add_argument("folder", nargs="?", type=Path, default=Path(__file__).resolve().parent)
    folder = parser.parse_args().folder

    marked = [entry for entry in ENTRIES if entry.marked]
    for name, entries, record in (
        ("telefonbuch.t9t", ENTRIES, record_195),
        ("telefonbuch193.t9t", marked, record_193),
    ):
        data = register_file(entries, record)
        (folder / name).write_bytes(data)
        print(f"{name}: {len(entries)} entries, {len(data)} bytes")

    data = csv_file()
    (folder / "telefonbuch.csv").write_bytes(data)
    print(f"telefonbuch.csv: {len(CSV_LINES)} lines, {len(data)} bytes")

    data = call_list()
    (folder / "anrufliste.t9a").write_bytes(data)
    print(f"anrufliste.t9a: {len(CALLS)} calls, {len(data)} bytes")


    write_address_samples(folder)


if __name__ == "__main__":
    main()
